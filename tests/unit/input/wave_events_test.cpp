#include "input/wave_events.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "unit/input/reading.h"

namespace {

using kelprun::GaugeWave;
using kelptest::Said;

const double degree = std::acos(-1.0) / 180.0;

/// A coast of ten cells of 100 m with gauges at the end cells, and the reader of their files.
class wave_events : public testing::Test {
 protected:
  wave_events() {
    model.grid.NX = 10;
    model.grid.XCELL.take(10);
    for (std::int32_t i = 1; i <= 11; ++i) model.grid.XCELL(i) = static_cast<float>(100 * i);
    kelprun::Waves& w = model.waves;
    w.HAMP.take(10, 1.0f);
    w.THETAAMP.take(10, 1.0f);
    for (kelprun::PerWall<float>* line :
         {&w.THETADEL, &w.RANG, &w.HRF, &w.TRF, &w.ZRF, &w.ZRFPRTOUT, &w.DRF})
      line->take(10);
    model.settings.CONV = 1.0f;
    model.settings.WAVCONV = 1.0f;
    model.clock.SIMDATS = 19970101;
    model.clock.ITS = 1;
  }

  std::string path(const std::string& name) const { return (folder.path() / name).string(); }

  /// Adds a wave file that ends at this cell.
  void gauge(std::int32_t end_cell, const std::string& text, float depth = 20.0f) {
    const std::string name = "waves" + std::to_string(files.waves.size() + 1) + ".dat";
    folder.write(name, text);
    ASSERT_TRUE(files.waves.emplace_back().open(path(name)));
    model.series.IWEND.append(end_cell);
    model.series.WMDEP.append(depth);
  }

  Said read() {
    if (!placed) reader.place_walls(model.grid, model.series);
    placed = true;
    return kelptest::listen([&] {
      reader.read(files, model.settings, model.grid, model.series, model.clock, model.waves,
                  report);
    });
  }

  void open_report() {
    ASSERT_TRUE(report.set_name(path("run.prt")));
    report.begin();
  }

  std::vector<std::string> report_lines() { return kelptest::lines(folder.read("run.prt")); }

  kelprun::Waves& waves() { return model.waves; }

  kelptest::WorkFolder folder;
  kelprun::Model model;
  kelprun::InputFiles files;
  kelprun::Report report;
  kelprun::WaveEvents reader;
  bool placed = false;
};

// One gauge.

TEST_F(wave_events, one_gauge_gives_every_wall_the_same_wave) {
  for (const std::int32_t end_cell : {1, 5, 10, 11}) {
    files.waves.clear();
    model.series = {};
    placed = false;
    reader = {};
    gauge(end_cell, "2.0 8.0 30.0\n", 17.5f);
    EXPECT_FALSE(read().status.has_value());
    for (std::int32_t i = 1; i <= 11; ++i) {
      EXPECT_EQ(waves().HRF(i), 2.0f) << "end " << end_cell << " wall " << i;
      EXPECT_EQ(waves().TRF(i), 8.0f);
      EXPECT_EQ(waves().ZRFPRTOUT(i), 30.0f);
      EXPECT_NEAR(waves().ZRF(i), 30.0 * degree, 1e-6);
      EXPECT_EQ(waves().DRF(i), 17.5f);
    }
  }
}

TEST_F(wave_events, the_last_wall_is_handed_back_in_degrees) {
  gauge(10, "2.0 8.0 -30.0\n");
  read();
  EXPECT_EQ(waves().pass.HZ, 2.0f);
  EXPECT_EQ(waves().pass.T, 8.0f);
  EXPECT_NEAR(waves().pass.ZZ, -30.0, 1e-4);
  EXPECT_NEAR(waves().pass.ZZDEG, -30.0, 1e-4);
}

TEST_F(wave_events, amplification_turns_and_scales_each_wall_by_itself) {
  gauge(10, "2.0 8.0 30.0\n");
  for (std::int32_t i = 1; i <= 11; ++i) {
    waves().HAMP(i) = 0.1f * static_cast<float>(i);
    waves().THETAAMP(i) = 0.05f * static_cast<float>(i);
    waves().THETADEL(i) = 0.01f * static_cast<float>(i);
  }
  read();
  for (std::int32_t i = 1; i <= 11; ++i) {
    EXPECT_NEAR(waves().HRF(i), 2.0 * 0.1 * i, 1e-6);
    EXPECT_NEAR(waves().ZRF(i), 30.0 * degree * 0.05 * i + 0.01 * i, 1e-6);
    EXPECT_EQ(waves().ZRFPRTOUT(i), 30.0f) << "as it stands in the file";
  }
  EXPECT_NEAR(waves().pass.HZ, 2.2, 1e-6);
  EXPECT_NEAR(waves().pass.ZZ, 30.0 * 0.55 + 0.11 / degree, 1e-4);
}

TEST_F(wave_events, heights_come_in_their_own_unit) {
  model.settings.WAVCONV = 0.3048f;
  gauge(10, "10 9 0\n");
  read();
  EXPECT_FLOAT_EQ(waves().HRF(1), 3.048f);
}

// Several gauges.

TEST_F(wave_events, between_two_gauges_all_values_go_over_in_a_straight_line) {
  gauge(3, "1.0 6.0 10.0\n", 10.0f);
  gauge(8, "2.0 8.0 -20.0\n", 20.0f);
  read();
  for (std::int32_t i = 1; i <= 11; ++i) {
    const double f = i <= 3 ? 0.0 : i >= 8 ? 1.0 : (i - 3) / 5.0;
    EXPECT_NEAR(waves().HRF(i), 1.0 + f, 1e-5) << "wall " << i;
    EXPECT_NEAR(waves().TRF(i), 6.0 + 2.0 * f, 1e-5);
    EXPECT_NEAR(waves().ZRFPRTOUT(i), 10.0 - 30.0 * f, 1e-4);
    EXPECT_NEAR(waves().DRF(i), 10.0 + 10.0 * f, 1e-5);
  }
}

TEST_F(wave_events, distances_along_the_coast_decide_not_cell_numbers) {
  for (std::int32_t i = 1; i <= 11; ++i) model.grid.XCELL(i) = static_cast<float>(10 * i * i);
  gauge(2, "1.0 8.0 0\n");
  gauge(6, "2.0 8.0 0\n");
  read();
  for (std::int32_t i = 2; i <= 6; ++i)
    EXPECT_NEAR(waves().HRF(i), 1.0 + (i * i - 4.0) / 32.0, 1e-5) << "wall " << i;
}

TEST_F(wave_events, three_gauges_have_two_stretches_between_them) {
  gauge(2, "1.0 8.0 0\n");
  gauge(5, "4.0 8.0 0\n");
  gauge(10, "2.0 8.0 0\n");
  read();
  const std::vector<double> expected = {1, 1, 2, 3, 4, 3.6, 3.2, 2.8, 2.4, 2, 2};
  for (std::int32_t i = 1; i <= 11; ++i)
    EXPECT_NEAR(waves().HRF(i), expected[static_cast<std::size_t>(i - 1)], 1e-5) << "wall " << i;
}

TEST_F(wave_events, gauges_at_both_ends_of_the_grid_span_it) {
  gauge(1, "1.0 8.0 0\n");
  gauge(11, "2.0 8.0 0\n");
  read();
  for (std::int32_t i = 1; i <= 11; ++i)
    EXPECT_NEAR(waves().HRF(i), 1.0 + (i - 1) / 10.0, 1e-5) << "wall " << i;
}

TEST_F(wave_events, between_a_calm_and_a_stormy_gauge_height_and_period_are_in_between) {
  gauge(1, "0.05 8.0 40\n");
  gauge(11, "2.0 10.1 0\n");
  open_report();
  read();
  EXPECT_EQ(waves().HRF(1), 0.0f);
  EXPECT_EQ(waves().TRF(1), 0.1f);
  EXPECT_NEAR(waves().TRF(6), 5.1, 1e-5);
  EXPECT_NEAR(waves().HRF(6), 1.0, 1e-5);
  EXPECT_EQ(waves().ZRF(1), 0.0f);
}

// Screening.

GaugeWave screened(float HZ, float T, float ZZ, std::int32_t* bad_angles = nullptr) {
  std::int32_t count = 0;
  const GaugeWave wave = kelprun::screened({HZ, T, ZZ}, count);
  if (bad_angles != nullptr) *bad_angles = count;
  return wave;
}

void expect_calm(const GaugeWave& wave) {
  EXPECT_EQ(wave.HZ, 0.0f);
  EXPECT_EQ(wave.T, 0.1f) << "never 0";
  EXPECT_EQ(wave.ZZ, 0.0f);
}

void expect_kept(const GaugeWave& wave, float HZ, float T, float ZZ) {
  EXPECT_EQ(wave.HZ, HZ);
  EXPECT_EQ(wave.T, T);
  EXPECT_EQ(wave.ZZ, ZZ);
}

TEST(wave_screening, a_height_of_a_tenth_passes_and_a_lower_one_is_calm) {
  expect_kept(screened(0.1f, 8.0f, 10.0f), 0.1f, 8.0f, 10.0f);
  expect_calm(screened(0.0999f, 8.0f, 10.0f));
  expect_calm(screened(0.0f, 8.0f, 10.0f));
  expect_calm(screened(-1.0f, 8.0f, 10.0f));
}

TEST(wave_screening, a_period_of_a_tenth_passes_and_a_lower_one_is_calm) {
  expect_kept(screened(1.0f, 0.1f, 10.0f), 1.0f, 0.1f, 10.0f);
  expect_calm(screened(1.0f, 0.0999f, 10.0f));
  expect_calm(screened(1.0f, 0.0f, 10.0f));
}

TEST(wave_screening, values_above_98_mark_missing_data) {
  expect_kept(screened(98.0f, 98.0f, 10.0f), 98.0f, 98.0f, 10.0f);
  expect_calm(screened(98.01f, 8.0f, 10.0f));
  expect_calm(screened(1.0f, 98.01f, 10.0f));
  expect_calm(screened(99.99f, 99.99f, 10.0f));
}

TEST(wave_screening, an_angle_of_90_passes_and_one_beyond_is_calm_and_counted) {
  std::int32_t bad_angles = 0;
  expect_kept(screened(1.0f, 8.0f, 90.0f, &bad_angles), 1.0f, 8.0f, 90.0f);
  EXPECT_EQ(bad_angles, 0);
  expect_kept(screened(1.0f, 8.0f, -90.0f, &bad_angles), 1.0f, 8.0f, -90.0f);
  EXPECT_EQ(bad_angles, 0);
  expect_calm(screened(1.0f, 8.0f, 90.01f, &bad_angles));
  EXPECT_EQ(bad_angles, 1);
  expect_calm(screened(1.0f, 8.0f, -999.0f, &bad_angles));
  EXPECT_EQ(bad_angles, 1);
}

TEST(wave_screening, a_record_that_is_calm_already_has_no_angle_to_count) {
  std::int32_t bad_angles = 0;
  expect_calm(screened(0.05f, 8.0f, 120.0f, &bad_angles));
  EXPECT_EQ(bad_angles, 0);
  expect_calm(screened(99.0f, 99.0f, 999.0f, &bad_angles));
  EXPECT_EQ(bad_angles, 0);
}

TEST_F(wave_events, bad_angles_are_counted_over_files_and_events) {
  gauge(5, "1 8 95\n");
  gauge(10, "1 8 -95\n");
  read();
  EXPECT_EQ(waves().NBADANG, 2);
  read();
  EXPECT_EQ(waves().NBADANG, 4) << "a steady record counts at every event";
}

// The steepness cap: 0.142 of the deep-water length 1.56 T^2, 5.538 m at 5 s.

TEST_F(wave_events, a_wave_steeper_than_possible_is_lowered) {
  gauge(10, "7 5 0\n");
  read();
  for (std::int32_t i = 1; i <= 11; ++i) EXPECT_NEAR(waves().HRF(i), 0.142 * 1.56 * 25.0, 1e-5);
  EXPECT_NEAR(waves().pass.HZ, 5.538, 1e-5);
}

TEST_F(wave_events, a_wave_below_that_steepness_stays) {
  gauge(10, "5.53 5 0\n");
  open_report();
  read();
  EXPECT_EQ(waves().HRF(1), 5.53f);
  EXPECT_EQ(report_lines().size(), 0u);
  EXPECT_EQ(waves().WAVEWARN, 0);
}

TEST_F(wave_events, the_amplified_height_in_metres_is_what_counts) {
  model.settings.WAVCONV = 0.3048f;
  waves().HAMP(4) = 2.0f;
  gauge(10, "10 5 0\n");
  read();
  EXPECT_FLOAT_EQ(waves().HRF(3), 3.048f);
  EXPECT_NEAR(waves().HRF(4), 5.538, 1e-5);
}

TEST_F(wave_events, a_calm_record_has_no_steepness) {
  gauge(10, "0 0 0\n");
  open_report();
  read();
  EXPECT_EQ(waves().HRF(5), 0.0f);
  EXPECT_EQ(waves().TRF(5), 0.1f);
  EXPECT_EQ(report_lines().size(), 0u);
}

TEST_F(wave_events, the_first_lowered_wall_is_told_in_the_length_unit) {
  model.settings.PRWARN = false;
  model.settings.CONV = 0.3048f;
  gauge(10, "7 5 0\n");
  open_report();
  read();
  const std::vector<std::string> told = report_lines();
  ASSERT_EQ(told.size(), 4u) << "one block for all walls";
  EXPECT_EQ(told[0], " WARNING. UNPHYSICAL DEEPWATER WAVE STEEPNESS.");
  EXPECT_EQ(told[1], "  WAVE HEIGHT REDUCED TO MATCH HZ/LZ = 0.142");
  const std::string text = "  GIVING HZ = ";
  ASSERT_EQ(told[2].substr(0, text.size()), text);
  EXPECT_NEAR(std::stod(told[2].substr(text.size())), 5.538 / 0.3048, 1e-4);
  EXPECT_EQ(told[3], "");
  EXPECT_EQ(waves().WAVEWARN, 1);
}

TEST_F(wave_events, every_lowered_wall_is_told_where_repeated_warnings_are_wanted) {
  waves().HAMP.fill(0.1f);
  waves().HAMP(2) = waves().HAMP(7) = 1.0f;
  gauge(10, "7 5 0\n");
  open_report();
  read();
  EXPECT_EQ(report_lines().size(), 8u);
}

TEST_F(wave_events, a_later_event_is_told_again_only_where_repeated_warnings_are_wanted) {
  gauge(10, "7 5 0\n");
  open_report();
  model.settings.PRWARN = false;
  for (const std::int32_t state : {-1, 1, 2}) {
    waves().WAVEWARN = state;
    read();
    EXPECT_EQ(report_lines().size(), 0u) << state;
  }
  model.settings.PRWARN = true;
  waves().WAVEWARN = -1;
  read();
  EXPECT_EQ(report_lines().size(), 44u) << "four lines at each of 11 walls";
}

TEST_F(wave_events, the_warning_state_asks_for_a_line_with_the_date) {
  gauge(10, "7 5 0\n");
  const std::pair<std::int32_t, std::int32_t> cases[] = {{0, 1}, {1, 1}, {2, 2}, {-1, 2}};
  for (const auto& [before, after] : cases) {
    waves().WAVEWARN = before;
    read();
    EXPECT_EQ(waves().WAVEWARN, after) << before;
  }
}

TEST_F(wave_events, a_wave_that_stays_leaves_the_warning_state) {
  gauge(10, "1 8 0\n");
  for (const std::int32_t state : {-1, 0, 1, 2}) {
    waves().WAVEWARN = state;
    read();
    EXPECT_EQ(waves().WAVEWARN, state);
  }
}

// Turning to the regional contour.

TEST_F(wave_events, mode_1_turns_each_wall_to_the_regional_contour) {
  model.settings.IREG = 1;
  model.grid.AZIMUTH = 72.0f;
  model.grid.AZIM90 = -18.0f;
  for (std::int32_t i = 1; i <= 11; ++i) waves().RANG(i) = 0.02f * static_cast<float>(i);
  waves().THETAAMP.fill(0.5f);
  waves().THETADEL.fill(0.25f);
  gauge(10, "1 8 20\n");
  read();
  for (std::int32_t i = 1; i <= 11; ++i) {
    EXPECT_NEAR(waves().ZRF(i), (20.0 * degree - 0.02 * i) * 0.5 + 0.25, 2e-6) << "wall " << i;
    EXPECT_EQ(waves().ZRFPRTOUT(i), 20.0f);
  }
  EXPECT_NEAR(waves().pass.ZZ, (20.0 - 0.22 / degree) * 0.5 + 0.25 / degree, 1e-4);
  EXPECT_NEAR(waves().pass.ZZDEG, 20.0 * 0.5 + 0.25 / degree, 1e-4) << "before the turn";
}

TEST_F(wave_events, other_modes_turn_nothing) {
  waves().RANG.fill(0.3f);
  gauge(10, "1 8 20\n");
  for (const std::int32_t mode : {0, 2, 3}) {
    model.settings.IREG = mode;
    read();
    EXPECT_NEAR(waves().ZRF(5), 20.0 * degree, 1e-6);
  }
}

TEST_F(wave_events, a_turned_angle_stays_within_half_a_circle) {
  model.settings.IREG = 1;
  gauge(10, "1 8 90\n");
  waves().RANG.fill(-1.6f);
  read();
  EXPECT_NEAR(waves().ZRF(5), 90.0 * degree + 1.6 - 360.0 * degree, 2e-6);
}

TEST_F(wave_events, an_angle_that_rounding_takes_beyond_90_degrees_comes_from_the_other_side) {
  // Of two cells at one place the left one takes all of the way from gauge to gauge, 180 degrees
  // less 1/131072. Rounded to 180 this ends 1/131072 behind 90 degrees, where waves are turned by
  // half a circle.
  model.settings.IREG = 1;
  model.grid.XCELL(9) = model.grid.XCELL(10);
  gauge(1, "1 8 -89.99999237060547\n");
  gauge(10, "1 8 90\n");
  read();
  ASSERT_GT(waves().ZRFPRTOUT(9), 90.0f);
  EXPECT_NEAR(waves().ZRF(9), -90.0 * degree, 1e-6);
  EXPECT_NEAR(waves().ZRF(10), 90.0 * degree, 1e-6);
}

TEST_F(wave_events, an_angle_that_rounding_takes_below_minus_90_comes_from_the_other_side) {
  model.settings.IREG = 1;
  model.grid.XCELL(9) = model.grid.XCELL(10);
  gauge(1, "1 8 89.99999237060547\n");
  gauge(10, "1 8 -90\n");
  read();
  ASSERT_LT(waves().ZRFPRTOUT(9), -90.0f);
  EXPECT_NEAR(waves().ZRF(9), 90.0 * degree, 1e-6);
  EXPECT_NEAR(waves().ZRF(10), -90.0 * degree, 1e-6);
}

// Files.

TEST_F(wave_events, a_steady_file_gives_its_first_record_at_every_event) {
  gauge(10, "1 8 10\n2 9 20\n");
  for (int event = 1; event <= 3; ++event) {
    EXPECT_FALSE(read().status.has_value());
    EXPECT_EQ(waves().HRF(5), 1.0f);
    EXPECT_EQ(waves().TRF(5), 8.0f);
  }
}

TEST_F(wave_events, a_series_is_read_forward_one_record_a_file_and_event) {
  model.series.WAVEID = 3;
  gauge(1, "19970101 0 1 8 0\n19970101 600 2 8 0\n");
  gauge(10, "19970101 0 3 8 0\n19970101 600 4 8 0\n");
  read();
  EXPECT_EQ(waves().HRF(1), 1.0f);
  EXPECT_EQ(waves().HRF(10), 3.0f);
  read();
  EXPECT_EQ(waves().HRF(1), 2.0f);
  EXPECT_EQ(waves().HRF(10), 4.0f);
}

TEST_F(wave_events, records_before_the_start_date_are_thrown_away) {
  model.series.WAVEID = 3;
  gauge(10, "19961230 0 5 8 0\n19961231 2300 6 8 0\n19970101 0 1 8 0\n19970102 0 2 8 0\n");
  read();
  EXPECT_EQ(waves().HRF(5), 1.0f);
  read();
  EXPECT_EQ(waves().HRF(5), 2.0f);
}

TEST_F(wave_events, a_record_may_go_on_over_lines_and_loses_what_it_does_not_need) {
  model.series.WAVEID = 2;
  gauge(10, "19970101,0\r\n\t1,8 30 99 98\r\n19970102 0 2 9 40\n");
  read();
  EXPECT_EQ(waves().HRF(5), 1.0f);
  EXPECT_EQ(waves().ZRFPRTOUT(5), 30.0f);
  read();
  EXPECT_EQ(waves().TRF(5), 9.0f);
}

TEST_F(wave_events, an_item_left_out_of_a_record_keeps_that_of_the_record_before) {
  model.series.WAVEID = 2;
  gauge(10, "19970101 0 1 8 30\n19970102 0,,9 /\n");
  read();
  read();
  EXPECT_EQ(waves().HRF(5), 1.0f);
  EXPECT_EQ(waves().TRF(5), 9.0f);
  EXPECT_EQ(waves().ZRFPRTOUT(5), 30.0f);
}

TEST_F(wave_events, a_file_that_ends_early_says_how_many_records_the_run_needed) {
  model.series.WAVEID = 2;
  gauge(10, "19970101 0 1 8 0\n19970101 600 2 8 0\n");
  read();
  read();
  model.clock.ITS = 13;
  const Said said = read();
  EXPECT_EQ(said.status, 1);
  EXPECT_EQ(said.err, "kelprun: " + path("waves1.dat") +
                          ": record 3 (line 2): the file ends here, but the run needs 3 wave "
                          "records by time step 13\n");
}

TEST_F(wave_events, a_word_in_a_record_ends_the_run) {
  gauge(10, "1 eight 10\n");
  const Said said = read();
  EXPECT_EQ(said.status, 1);
  EXPECT_NE(said.err.find("record 1 (line 1): 'eight'"), std::string::npos) << said.err;
}

}  // namespace
