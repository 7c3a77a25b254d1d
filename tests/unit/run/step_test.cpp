#include <gtest/gtest.h>

#include <cmath>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "unit/run/in_process.h"

namespace kelprun {
namespace {

using kelptest::WatchedRun;
using Changes = std::map<std::string, std::string>;

/// Hourly records from the start date on, all on the first day: height, period, angle.
std::string hourly(const std::vector<std::string>& waves) {
  std::string text;
  for (std::size_t hour = 0; hour < waves.size(); ++hour)
    text += "19970101 " + std::to_string(hour * 100) + " " + waves[hour] + "\n";
  return text;
}

std::string configuration(Changes changes, std::size_t records = 0,
                          const std::vector<std::string>& more_lines = {}) {
  if (records > 0) changes["WAVEID"] = "20 20.0 " + std::to_string(records) + " waves.dat";
  return kelptest::basic_configuration(changes, more_lines);
}

/// A left end that moves by half a metre every step shows whether a pass did anything.
const Changes MOVING_END{{"LBCTYPE", "3"}, {"LMOVY", "0.5"}, {"LMOVPER", "3"}};

/// Silences the console of what runs in it, unless a check fails there.
template <class Routine>
kelptest::Said quietly(Routine routine) {
  kelptest::Said said = kelptest::listen(routine);
  EXPECT_FALSE(said.status.has_value());
  if (testing::Test::HasFailure()) std::cout << said.out << said.err;
  return said;
}

constexpr double SHORELINE = 100.0;

TEST(step, a_calm_wave_moves_the_ends_and_keeps_the_last_transport) {
  const std::vector<std::string> waves{"1.0 8.0 10", "0.0 8.0 10", "1.0 8.0 10"};
  quietly([&] {
    WatchedRun run(configuration(MOVING_END, 3), hourly(waves));
    run.step();
    const float Q = run.model().transport.Q(10);
    EXPECT_NE(Q, 0.0f);
    EXPECT_NEAR(run.model().shore.Y(1), SHORELINE + 0.5, 1e-6);
    const float sum = run.model().ledgers.QNETSUM(10);
    run.step();
    EXPECT_NEAR(run.model().shore.Y(1), SHORELINE + 1.0, 1e-6);
    EXPECT_EQ(run.model().transport.Q(10), Q);
    EXPECT_EQ(run.model().ledgers.QNETSUM(10), sum) << "but it is not added again";
    run.step();
    EXPECT_NE(run.model().ledgers.QNETSUM(10), sum);
  });
}

TEST(step, one_cell_without_a_period_makes_the_whole_pass_calm) {
  // With two hours between the records the second step holds the wave, all but the period.
  quietly([&] {
    WatchedRun run(configuration(MOVING_END, 2),
                   "19970101 0 1.0 8.0 10\n19970101 200 1.0 8.0 10\n");
    run.step();
    const float sum = run.model().ledgers.QNETSUM(10);
    EXPECT_NE(sum, 0.0f);
    run.model().waves.TRF(7) = 0.0f;
    run.step();
    EXPECT_NEAR(run.model().shore.Y(1), SHORELINE + 1.0, 1e-6);
    EXPECT_EQ(run.model().ledgers.QNETSUM(10), sum);
  });
}

TEST(step, a_wave_of_exactly_90_degrees_is_passed_over_without_even_moving_the_ends) {
  for (const std::string angle : {"90", "-90"}) {
    const std::vector<std::string> waves{"1.0 8.0 10", "1.0 8.0 " + angle, "1.0 8.0 10"};
    quietly([&] {
      WatchedRun run(configuration(MOVING_END, 3), hourly(waves));
      run.step();
      const float sum = run.model().ledgers.QNETSUM(10);
      run.step();
      EXPECT_NEAR(run.model().shore.Y(1), SHORELINE + 0.5, 1e-6) << angle;
      EXPECT_EQ(run.model().ledgers.QNETSUM(10), sum);
      run.step();
      EXPECT_NEAR(run.model().shore.Y(1), SHORELINE + 1.0, 1e-6);
    });
  }
}

TEST(step, a_wave_of_89_9_degrees_acts) {
  for (const std::string angle : {"89.9", "-89.9"}) {
    quietly([&] {
      WatchedRun run(configuration(MOVING_END, 2), hourly({"1.0 8.0 10", "1.0 8.0 " + angle}));
      run.step();
      const float sum = run.model().ledgers.QNETSUM(10);
      run.step();
      EXPECT_NE(run.model().ledgers.QNETSUM(10), sum) << angle;
    });
  }
}

TEST(step, between_two_records_the_wave_lasts_whatever_the_wave_field_did_to_it) {
  // A wave that leaves the contour clears its walls' angles for one step only.
  quietly([&] {
    WatchedRun run(configuration({}, 2), "19970101 0 1.0 8.0 10\n19970101 400 2.0 9.0 20\n");
    run.step();
    const Waves first = run.model().waves;
    for (int n = 2; n <= 4; ++n) {
      run.model().waves.HRF.fill(9.0f);
      run.model().waves.ZRF.fill(0.0f);
      run.model().waves.pass = {};
      run.step();
      EXPECT_EQ(run.model().waves.pass.HZ, 1.0f);
      EXPECT_EQ(run.model().waves.pass.ZZDEG, first.pass.ZZDEG);
      EXPECT_EQ(run.model().waves.HRF(4), first.HRF(4));
      EXPECT_EQ(run.model().waves.ZRF(4), first.ZRF(4));
      EXPECT_EQ(run.model().series.IWEVENT, 2);
    }
    run.step();
    EXPECT_EQ(run.model().waves.pass.HZ, 2.0f);
    EXPECT_EQ(run.model().series.IWEVENT, 1) << "the second of two entries: the table starts over";
  });
}

TEST(step, an_even_smoothing_window_is_lowered_in_the_setting) {
  quietly([&] {
    WatchedRun run(configuration({{"ISMOOTH", "12"}}), "1.0 8.0 10\n");
    EXPECT_EQ(run.model().settings.ISMOOTH, 12);
    run.step();
    EXPECT_EQ(run.model().settings.ISMOOTH, 11);
  });
}

TEST(step, keeps_the_extremes_of_every_cell) {
  quietly([&] {
    Changes changes = MOVING_END;
    changes["RBCTYPE"] = "3";
    changes["RMOVY"] = "-0.25";
    changes["RMOVPER"] = "3";
    WatchedRun run(configuration(changes), "1.0 8.0 10\n");
    run.complete();
    const Shore& s = run.model().shore;
    EXPECT_NEAR(static_cast<double>(s.YMAX(1)), SHORELINE + 5.0, 1e-4);
    EXPECT_EQ(s.YMIN(1), 100.0f);
    EXPECT_NEAR(static_cast<double>(s.YMIN(20)), SHORELINE - 2.5, 1e-4);
    EXPECT_EQ(s.YMAX(20), 100.0f);
  });
}

/// The narrow cells of 5 m make the parameter about 2 for an hour's step.
const Changes ADAPTIVE{{"DX", "5"}, {"DTADAPT", "1"}, {"SIMDATE", "19970102"}};

TEST(step, after_a_reduction_the_step_number_follows_the_elapsed_time) {
  quietly([&] {
    WatchedRun run(configuration(ADAPTIVE), "1.0 8.0 10\n");
    const Clock& c = run.model().clock;
    EXPECT_EQ(c.NTS, 24);
    run.step();
    EXPECT_EQ(c.ITS, 1) << "the step of the reduction keeps its number";
    ASSERT_LT(c.DT, 0.5f);
    const auto shorter = static_cast<std::int32_t>(std::round(1.0f / c.DT));
    EXPECT_EQ(c.NTS, 24 * shorter);
    EXPECT_EQ(c.ELAPSED, 1.0f);
    run.step();
    EXPECT_EQ(c.ITS, shorter + 1);
    run.step();
    EXPECT_EQ(c.ITS, shorter + 2);
    while (run.step()) {
    }
    EXPECT_EQ(c.ITS, c.NTS);
    EXPECT_EQ(run.finish(), 0);
  });
}

TEST(step, without_waves_the_step_length_is_left_alone) {
  quietly([&] {
    Changes changes = ADAPTIVE;
    changes["DTMAX"] = "8";
    changes["NSTABDTMIN"] = "0.01";
    WatchedRun run(configuration(changes), "0.0 8.0 10\n");
    for (int n = 1; n <= 10; ++n) run.step();
    EXPECT_EQ(run.model().clock.DT, 1.0f);
    EXPECT_EQ(run.model().clock.NSTABLE, 0);
    EXPECT_EQ(run.model().clock.ITS, 10);
  });
}

TEST(step, a_waves_angle_test_leaves_the_quiet_count_alone_too) {
  quietly([&] {
    Changes changes = ADAPTIVE;
    changes["DX"] = "500";
    WatchedRun run(configuration(changes, 3), hourly({"1.0 8.0 10", "1.0 8.0 90", "1.0 8.0 10"}));
    run.step();
    EXPECT_EQ(run.model().clock.NSTABLE, 1);
    run.step();
    EXPECT_EQ(run.model().clock.NSTABLE, 1);
    run.step();
    EXPECT_EQ(run.model().clock.NSTABLE, 2);
  });
}

TEST(step, an_unstable_step_that_may_not_adapt_is_warned_of_and_taken) {
  const kelptest::Said said = quietly([&] {
    WatchedRun run(configuration({{"DX", "5"}}), "1.0 8.0 10\n");
    for (int n = 1; n <= 3; ++n) run.step();
    EXPECT_EQ(run.model().clock.DT, 1.0f);
    EXPECT_NE(run.model().transport.Q(10), 0.0f);
  });
  std::int32_t warnings = 0;
  for (const std::string& line : kelptest::lines(said.out))
    warnings += line == " WARNING!  Solution is unstable." ? 1 : 0;
  EXPECT_EQ(warnings, 3) << "the console is told in every step";
}

std::size_t rows(const WatchedRun& run, const std::string& suffix) {
  return kelptest::lines(run.folder().read("run." + suffix)).size() - 1;
}

TEST(step, a_run_of_one_step_has_two_rows_under_the_same_date) {
  for (const std::string DTSAVE : {"1", "24"}) {
    quietly([&] {
      WatchedRun run(configuration({{"SIMDATE", "1"}, {"DTSAVE", DTSAVE}}), "1.0 8.0 10\n");
      run.complete();
      for (const std::string suffix : {"slo", "off", "vcc", "vcx"}) {
        const auto table = kelptest::read_table(run.folder().read("run." + suffix), 14);
        ASSERT_EQ(table.dates, (std::vector{19970101, 19970101})) << suffix << " " << DTSAVE;
      }
    });
  }
}

TEST(step, tables_get_a_row_at_step_1_at_every_save_step_and_at_the_end) {
  quietly([&] {
    WatchedRun run(configuration({{"DTSAVE", "4"}}), "1.0 8.0 10\n");
    run.complete();
    for (const std::string suffix : {"slo", "qtr", "off", "vcc", "vcx"})
      EXPECT_EQ(rows(run, suffix), 4u) << suffix << ": steps 1, 4, 8 and 10";
    for (const std::string suffix : {"mqn", "mqr", "mql"})
      EXPECT_EQ(rows(run, suffix), 2u) << suffix << ": the last year block and the means";
  });
}

TEST(step, a_calm_first_pass_still_writes_its_rows) {
  quietly([&] {
    WatchedRun run(configuration({}), "0.0 8.0 10\n");
    run.step();
    for (const std::string suffix : {"slo", "qtr", "off", "vcc", "vcx"})
      EXPECT_EQ(rows(run, suffix), 2u) << suffix;
  });
}

TEST(step, a_print_date_adds_a_row_of_year_sums_unless_it_is_the_last_step) {
  quietly([&] {
    WatchedRun run(configuration({}, 0, {"PRDATE: 3", "PRDATE: 10"}), "1.0 8.0 10\n");
    run.complete();
    EXPECT_EQ(rows(run, "mqn"), 3u) << "step 3, the year block and the means";
    EXPECT_EQ(run.model().clock.IPRINT, 2);
  });
}

TEST(step, a_print_date_that_has_passed_holds_up_the_later_ones) {
  const std::vector<std::vector<std::string>> lists{{"PRDATE: 19961231", "PRDATE: 5"},
                                                    {"PRDATE: 3", "PRDATE: 2", "PRDATE: 5"}};
  for (const auto& list : lists) {
    quietly([&] {
      WatchedRun run(configuration({}, 0, list), "1.0 8.0 10\n");
      run.complete();
      const std::size_t printed = list.size() - 2;
      EXPECT_EQ(rows(run, "mqn"), 2 + printed);
      EXPECT_EQ(run.model().clock.IPRINT, static_cast<std::int32_t>(1 + printed));
    });
  }
}

}  // namespace
}  // namespace kelprun
