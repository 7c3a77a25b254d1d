#include "input/tidal_currents.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "unit/input/reading.h"

namespace {

using kelptest::Said;

/// A coast of ten cells of 100 m that begins at 50 m, with stations at chosen end cells.
class tidal_currents : public testing::Test {
 protected:
  tidal_currents() { take_cells(std::vector<float>(10, 100.0f), 50.0f); }

  void take_cells(const std::vector<float>& widths, float X0) {
    grid = {};
    grid.NX = static_cast<std::int32_t>(widths.size());
    grid.XCELL.take(grid.NX);
    float X = X0;
    for (std::int32_t i = 1; i <= grid.NX + 1; ++i) {
      X += i <= grid.NX ? widths[static_cast<std::size_t>(i - 1)] : widths.back();
      grid.XCELL(i) = X;
    }
  }

  std::string path(const std::string& name) const { return (folder.path() / name).string(); }

  void station(std::int32_t end_cell, const std::string& text) {
    const std::string name = "tide" + std::to_string(files.tides.size() + 1) + ".dat";
    folder.write(name, text);
    ASSERT_TRUE(files.tides.emplace_back().open(path(name)));
    series.ITCEND.append(end_cell);
    series.TIDEFLAG = 1;
  }

  void no_stations() {
    files.tides.clear();
    series = {};
  }

  /// Hourly records of one station.
  static std::string hourly(const std::vector<float>& currents) {
    std::string text;
    for (std::size_t n = 0; n < currents.size(); ++n)
      text += "19970101 " + std::to_string(100 * n) + " " + std::to_string(currents[n]) + "\n";
    return text;
  }

  Said read(std::int32_t count, float DT = 1.0f) {
    series.NTCRNTREC = count;
    return kelptest::listen([&] { kelprun::read_tidal_currents(grid, DT, files, series, report); });
  }

  /// One record, read twice, of stations at these end cells with these currents.
  void read_stations(const std::vector<std::int32_t>& end_cells,
                     const std::vector<float>& currents) {
    no_stations();
    for (std::size_t k = 0; k < end_cells.size(); ++k)
      station(end_cells[k], hourly({currents[k], currents[k]}));
    const Said said = read(2);
    EXPECT_FALSE(said.status.has_value()) << said.err;
  }

  float current(std::int32_t record, std::int32_t wall) const {
    return series.TCRNT(static_cast<std::int64_t>(record - 1) * (grid.NX + 1) + wall);
  }

  std::vector<float> row(std::int32_t record) const {
    std::vector<float> values;
    for (std::int32_t i = 1; i <= grid.NX + 1; ++i) values.push_back(current(record, i));
    return values;
  }

  void expect_refused(const std::string& first, const std::string& second, float DT,
                      const std::vector<std::string>& lines, const std::string& message) {
    no_stations();
    station(10, "19970101 " + first + " 0\n19970101 " + second + " 0\n");
    ASSERT_TRUE(report.set_name(path("run.prt")));
    report.begin();
    const Said said = read(2, DT);
    EXPECT_EQ(said.status, 1);
    EXPECT_EQ(said.out, " Reading TCRNTFILE: \n" + kelptest::fatal_record(message));
    EXPECT_EQ(said.err, "");
    report.close();
    std::string expected;
    for (const std::string& line : lines) expected += " " + line + "\n";
    EXPECT_EQ(folder.read("run.prt"), expected);
  }

  kelptest::WorkFolder folder;
  kelprun::Grid grid;
  kelprun::Series series;
  kelprun::InputFiles files;
  kelprun::Report report;
};

const std::vector<std::string> TOO_LONG{
    " ERROR.  Time step in tidal current file exceeds 6 hours.  Please",
    " review and revise your input tidal current file."};
const std::vector<std::string> TOO_SHORT{
    " ERROR. SIMULATION TIME STEP GREATER THAN TIME STEP IN TIDAL CURRENT FILE.",
    " PLEASE REVIEW AND REVISE YOUR .cfg AND INPUT TIDAL CURRENT FILE AS APPROPRIATE."};
const std::vector<std::string> UNEVEN{
    " ERROR. TIME STEP IN TIDAL CURRENT FILE MUST BE A MULTIPLE OF SIMULATION TIME STEP.",
    " PLEASE REVIEW AND REVISE YOUR TIDAL CURRENT FILE."};
const std::string TOO_LONG_MESSAGE = "ERROR. Tidal current time step exceeds 6 hours.";
const std::string TOO_SHORT_MESSAGE =
    "ERROR. Simulation time step greater than tidal current time step.";
const std::string UNEVEN_MESSAGE =
    "ERROR. Tidal current time step not a multiple of simulation time step.";

// Along the coast.

TEST_F(tidal_currents, one_station_gives_its_value_to_every_wall) {
  for (const std::int32_t end_cell : {1, 4, 10, 11}) {
    read_stations({end_cell}, {-0.75f});
    EXPECT_EQ(row(1), std::vector<float>(11, -0.75f)) << end_cell;
  }
}

TEST_F(tidal_currents, between_two_stations_they_are_linear_and_outside_them_constant) {
  read_stations({3, 7}, {1.0f, -1.0f});
  EXPECT_EQ(row(1), (std::vector<float>{1.0f, 1.0f, 1.0f, 0.5f, 0.0f, -0.5f, -1.0f, -1.0f, -1.0f,
                                        -1.0f, -1.0f}));
}

TEST_F(tidal_currents, distances_count_and_not_cells) {
  // Walls at 100, 200, 500, 600 and 700 m.
  take_cells({100.0f, 100.0f, 300.0f, 100.0f}, 0.0f);
  read_stations({1, 3}, {0.0f, 8.0f});
  EXPECT_EQ(row(1), (std::vector<float>{0.0f, 2.0f, 8.0f, 8.0f, 8.0f}));
}

TEST_F(tidal_currents, stations_at_both_ends_of_the_grid_span_it) {
  read_stations({1, 11}, {0.0f, 5.0f});
  for (std::int32_t i = 1; i <= 11; ++i)
    EXPECT_FLOAT_EQ(current(1, i), 0.5f * static_cast<float>(i - 1));
}

TEST_F(tidal_currents, follow_the_straight_lines_between_any_stations) {
  // Against the value by its own meaning: the last station at or before the wall, the next one
  // beyond it, and the line between them.
  std::mt19937 bits(20240601);
  const auto between = [&](double low, double high) {
    return low + (high - low) * (static_cast<double>(bits()) / 4294967296.0);
  };
  for (int layout = 0; layout < 50; ++layout) {
    std::vector<float> widths;
    for (int i = 0; i < 40; ++i) widths.push_back(static_cast<float>(between(20.0, 200.0)));
    take_cells(widths, static_cast<float>(between(-1000.0, 1000.0)));
    std::vector<std::int32_t> ends;
    std::vector<float> values;
    for (std::int32_t cell = 1; cell <= 41; ++cell) {
      if (between(0.0, 1.0) > 0.2) continue;
      ends.push_back(cell);
      values.push_back(static_cast<float>(between(-2.0, 2.0)));
    }
    if (ends.empty()) continue;
    read_stations(ends, values);
    for (std::int32_t i = 1; i <= 41; ++i) {
      std::size_t next = 0;
      while (next < ends.size() && ends[next] <= i) ++next;
      const std::size_t right = std::min(next, ends.size() - 1);
      const std::size_t left = next == 0 ? 0 : next - 1;
      const auto X = [&](std::int32_t wall) { return static_cast<double>(grid.XCELL(wall)); };
      double wanted = static_cast<double>(values[left]);
      if (left != right)
        wanted += (X(i) - X(ends[left])) / (X(ends[right]) - X(ends[left])) *
                  (static_cast<double>(values[right]) - wanted);
      EXPECT_NEAR(static_cast<double>(current(1, i)), wanted, 1e-5) << layout << " wall " << i;
    }
  }
}

TEST_F(tidal_currents, every_record_has_a_row_of_all_walls) {
  station(2, hourly({1.0f, 2.0f, 3.0f}));
  station(6, hourly({5.0f, 2.0f, -1.0f}));
  EXPECT_EQ(read(3).out, " Reading TCRNTFILE: \n");
  EXPECT_EQ(series.NTCPOINTS, 11);
  EXPECT_EQ(series.TCRNT.size(), 33);
  EXPECT_EQ(row(1), (std::vector<float>{1, 1, 2, 3, 4, 5, 5, 5, 5, 5, 5}));
  EXPECT_EQ(row(2), std::vector<float>(11, 2.0f));
  EXPECT_EQ(row(3), (std::vector<float>{3, 3, 2, 1, 0, -1, -1, -1, -1, -1, -1}));
  EXPECT_EQ(series.ITCREC, 1);
}

TEST_F(tidal_currents, the_longest_coast_has_4001_walls) {
  take_cells(std::vector<float>(4000, 25.0f), 0.0f);
  read_stations({1, 4001}, {-1.0f, 1.0f});
  EXPECT_EQ(series.NTCPOINTS, 4001);
  EXPECT_EQ(series.TCRNT.size(), 8002);
  EXPECT_EQ(current(2, 4001), 1.0f);
  EXPECT_NEAR(static_cast<double>(current(2, 2001)), 0.0, 1e-6);
}

TEST_F(tidal_currents, are_not_converted_and_not_yet_multiplied) {
  series.KTIDE = 3.0f;
  station(10, hourly({0.25f, 0.5f}));
  read(2);
  EXPECT_EQ(current(1, 1), 0.25f);
  EXPECT_EQ(current(2, 11), 0.5f);
}

// Stations that make no sense keep their values finite.

TEST_F(tidal_currents, two_stations_at_one_cell_leave_no_gap_between_them) {
  read_stations({5, 5}, {1.0f, 3.0f});
  // At their cell they have no distance, and the first one holds.
  EXPECT_EQ(row(1), (std::vector<float>{1, 1, 1, 1, 1, 3, 3, 3, 3, 3, 3}));
  read_stations({11, 11}, {1.0f, 3.0f});
  EXPECT_EQ(row(1), std::vector<float>(11, 1.0f));
}

TEST_F(tidal_currents, stations_out_of_their_order_give_finite_currents) {
  read_stations({8, 3}, {1.0f, 3.0f});
  EXPECT_EQ(row(1), (std::vector<float>{1, 1, 1, 1, 1, 1, 1, 1, 3, 3, 3}));
  read_stations({10, 5, 2, 11, 1}, {1.0f, 3.0f, -1.0f, 2.0f, 5.0f});
  for (const float value : row(1)) EXPECT_TRUE(std::isfinite(value));
}

TEST_F(tidal_currents, walls_that_single_precision_cannot_tell_apart_are_one_place) {
  take_cells(std::vector<float>(4, 0.5f), 1.0e9f);
  ASSERT_EQ(grid.XCELL(1), grid.XCELL(4));
  read_stations({1, 4}, {1.0f, 3.0f});
  EXPECT_EQ(row(1), (std::vector<float>{1, 1, 1, 3, 3}));
}

// The step.

TEST_F(tidal_currents, the_step_is_that_of_the_first_two_clock_times) {
  station(10, "19970101 1245 1\n19990101 1500 2\n");
  EXPECT_FALSE(read(2, 0.75f).status.has_value());
  EXPECT_EQ(series.DTTC, 2.25f);
}

TEST_F(tidal_currents, the_clock_times_are_those_of_the_last_station) {
  station(3, "19970101 0 1\n19970101 100 1\n");
  station(7, "19970101 0 1\n19970101 300 1\n");
  read(2);
  EXPECT_EQ(series.DTTC, 3.0f);
}

TEST_F(tidal_currents, a_clock_time_that_the_last_station_leaves_out_is_that_of_the_one_before) {
  station(3, "19970101 0 1\n19970101 200 1\n");
  station(7, "19970101 0 1\n19970101,,1\n");
  read(2);
  EXPECT_EQ(series.DTTC, 2.0f);
  EXPECT_EQ(current(2, 7), 1.0f);
}

TEST_F(tidal_currents, a_current_left_out_is_zero) {
  station(3, hourly({2.0f, 2.0f}));
  station(7, "19970101 0 1\n19970101 100 /\n");
  read(2);
  EXPECT_EQ(current(2, 3), 2.0f);
  EXPECT_EQ(current(2, 7), 0.0f);
}

TEST_F(tidal_currents, six_hours_pass_and_a_minute_more_is_too_long) {
  station(10, "19970101 0 1\n19970101 600 1\n");
  EXPECT_FALSE(read(2).status.has_value());
  EXPECT_EQ(series.DTTC, 6.0f);
  expect_refused("0", "601", 1.0f, TOO_LONG, TOO_LONG_MESSAGE);
  expect_refused("0", "700", 12.0f, TOO_LONG, TOO_LONG_MESSAGE);
}

TEST_F(tidal_currents, a_step_shorter_than_that_of_the_run_is_refused) {
  expect_refused("0", "30", 1.0f, TOO_SHORT, TOO_SHORT_MESSAGE);
  expect_refused("600", "600", 0.25f, TOO_SHORT, TOO_SHORT_MESSAGE);
}

TEST_F(tidal_currents, a_first_step_across_midnight_is_negative_and_refused) {
  expect_refused("2300", "0", 1.0f, TOO_SHORT, TOO_SHORT_MESSAGE);
}

TEST_F(tidal_currents, a_step_of_three_quarters_does_not_fill_the_hour) {
  expect_refused("0", "100", 0.75f, UNEVEN, UNEVEN_MESSAGE);
}

// Hostile files.

TEST_F(tidal_currents, a_file_that_ends_too_early_is_named_with_its_record) {
  station(3, hourly({1.0f, 2.0f, 3.0f}));
  station(7, hourly({1.0f, 2.0f}));
  const Said said = read(3);
  EXPECT_EQ(said.status, 1);
  EXPECT_EQ(said.err, "kelprun: " + path("tide2.dat") +
                          ": record 3 (line 2): the file ends after 2 records\n");
}

TEST_F(tidal_currents, an_empty_file_ends_the_run_whatever_the_count) {
  take_cells(std::vector<float>(4000, 25.0f), 0.0f);
  station(10, "");
  const Said said = read(100000);
  EXPECT_EQ(said.status, 1);
  EXPECT_EQ(said.err, "kelprun: " + path("tide1.dat") +
                          ": record 1 (line 0): the file ends after 0 records\n");
  EXPECT_TRUE(series.TCRNT.empty()) << "no storage is taken for what is not there";
}

TEST_F(tidal_currents, an_item_that_is_no_number_is_told) {
  station(10, "19970101 0 1\n19970101 100 ebb\n");
  const Said said = read(2);
  EXPECT_EQ(said.status, 1);
  EXPECT_EQ(said.err, "kelprun: " + path("tide1.dat") +
                          ": record 2 (line 2): 'ebb' is no number of its kind\n");
}

}  // namespace
