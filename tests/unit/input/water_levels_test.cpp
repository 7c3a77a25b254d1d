#include "input/water_levels.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/input/reading.h"

namespace {

using kelptest::Said;

class water_levels : public testing::Test {
 protected:
  water_levels() { settings.CONV = 1.0f; }

  std::string path(const std::string& name) const { return (folder.path() / name).string(); }

  /// Reads `count` records of a file with this text, for a run with steps of DT hours.
  Said read(const std::string& text, std::int32_t count, float DT = 1.0f) {
    folder.write("levels.dat", text);
    EXPECT_TRUE(files.water_level.open(path("levels.dat")));
    series.NWLREC = count;
    return kelptest::listen(
        [&] { kelprun::read_water_levels(settings, DT, files, series, report); });
  }

  /// Two levels at these clock times of one day.
  Said read_times(const std::string& first, const std::string& second, float DT = 1.0f) {
    return read("19970101 " + first + " 0\n19970101 " + second + " 0\n", 2, DT);
  }

  float step(const std::string& first, const std::string& second, float DT = 1.0f) {
    EXPECT_FALSE(read_times(first, second, DT).status.has_value()) << first << " " << second;
    return series.DTWL;
  }

  /// The two times end the run with this fatal message, behind these two report lines.
  void expect_refused(const std::string& first, const std::string& second, float DT,
                      const std::vector<std::string>& lines, const std::string& message) {
    kelprun::Report& told = report;
    ASSERT_TRUE(told.set_name(path("run.prt")));
    told.begin();
    const Said said = read_times(first, second, DT);
    EXPECT_EQ(said.status, 1);
    EXPECT_EQ(said.out, " Reading WTRELFILE\n" + kelptest::fatal_record(message));
    EXPECT_EQ(said.err, "");
    told.close();
    std::string expected;
    for (const std::string& line : lines) expected += " " + line + "\n";
    EXPECT_EQ(folder.read("run.prt"), expected);
  }

  void expect_failure(const std::string& text, std::int32_t count, const std::string& what) {
    const Said said = read(text, count);
    EXPECT_EQ(said.status, 1) << text;
    EXPECT_EQ(said.err, "kelprun: " + path("levels.dat") + ": " + what + "\n");
  }

  kelptest::WorkFolder folder;
  kelprun::Settings settings;
  kelprun::Series series;
  kelprun::InputFiles files;
  kelprun::Report report;
};

const std::vector<std::string> TOO_LONG{
    " ERROR.  Time step in water level file exceeds 6 hours.  Please",
    " review and revise your input water level file."};
const std::vector<std::string> TOO_SHORT{
    " ERROR. SIMULATION TIME STEP GREATER THAN TIME STEP IN WATER LEVEL FILE.",
    " PLEASE REVIEW AND REVISE YOUR .cfg AND INPUT WATER LEVEL FILE AS APPROPRIATE."};
const std::vector<std::string> UNEVEN{
    " ERROR. TIME STEP IN WATER LEVEL FILE MUST BE A MULTIPLE OF SIMULATION TIME STEP.",
    " PLEASE REVIEW AND REVISE YOUR WATER LEVEL FILE."};
const std::string TOO_LONG_MESSAGE = "ERROR. Water level time step exceeds 6 hours.";
const std::string TOO_SHORT_MESSAGE =
    "ERROR. Simulation time step greater than water level time step.";
const std::string UNEVEN_MESSAGE =
    "ERROR. Water level time step not a multiple of simulation time step.";

// Levels.

TEST_F(water_levels, are_read_in_the_length_unit_and_kept_in_metres) {
  settings.CONV = 0.3048f;
  const Said said = read("19970101 0 1.5\n19970101 300 -2\n19970101 600 0\n", 3);
  EXPECT_FALSE(said.status.has_value());
  EXPECT_EQ(said.out, " Reading WTRELFILE\n");
  ASSERT_EQ(series.WLFILE.size(), 3);
  EXPECT_FLOAT_EQ(series.WLFILE(1), 0.4572f);
  EXPECT_FLOAT_EQ(series.WLFILE(2), -0.6096f);
  EXPECT_EQ(series.WLFILE(3), 0.0f);
}

TEST_F(water_levels, a_record_runs_over_lines_and_is_followed_by_anything) {
  read("19970101 0 1 tide gauge\n\n19970101\n100\n2 x\n19970101,200,3,4,5\n", 3);
  EXPECT_EQ(kelptest::values_of(series.WLFILE), (std::vector<float>{1.0f, 2.0f, 3.0f}));
  EXPECT_EQ(series.DTWL, 1.0f);
}

TEST_F(water_levels, an_item_left_out_is_zero) {
  read("19970101 0 1\n19970101 100 /\n,,3\n", 3);
  EXPECT_EQ(kelptest::values_of(series.WLFILE), (std::vector<float>{1.0f, 0.0f, 3.0f}));
}

TEST_F(water_levels, records_behind_the_count_are_not_looked_at) {
  EXPECT_FALSE(read("19970101 0 1\n19970101 100 2\nend of data\n", 2).status.has_value());
  EXPECT_EQ(series.WLFILE.size(), 2);
}

TEST_F(water_levels, the_index_stands_in_front_of_the_second_record) {
  series.IWLREC = 77;
  read("19970101 0 1\n19970101 100 2\n", 2);
  EXPECT_EQ(series.IWLREC, 2);
}

// The step.

TEST_F(water_levels, the_step_is_that_of_the_first_two_clock_times) {
  EXPECT_EQ(step("0", "100"), 1.0f);
  EXPECT_EQ(step("1230", "1300", 0.5f), 0.5f);
  EXPECT_EQ(step("945", "1200", 0.75f), 2.25f);
  EXPECT_EQ(step("800", "820", 20.0f / 60.0f), 20.0f / 60.0f);
}

TEST_F(water_levels, the_step_takes_the_place_of_the_configured_one) {
  series.DTWL = 5.0f;
  EXPECT_EQ(step("0", "300"), 3.0f);
}

TEST_F(water_levels, dates_and_later_times_do_not_count) {
  EXPECT_FALSE(read("19970131 0 1\n20050101 200 2\n19000101 2359 3\n", 3).status.has_value());
  EXPECT_EQ(series.DTWL, 2.0f);
}

TEST_F(water_levels, six_hours_pass) { EXPECT_EQ(step("0", "600"), 6.0f); }

TEST_F(water_levels, six_hours_and_a_minute_are_too_long) {
  expect_refused("0", "601", 1.0f, TOO_LONG, TOO_LONG_MESSAGE);
}

TEST_F(water_levels, the_longest_step_is_told_before_all_else) {
  // 7 hours are no multiple of 2 hours either, and 12 hours are above both.
  expect_refused("0", "700", 2.0f, TOO_LONG, TOO_LONG_MESSAGE);
  expect_refused("0", "700", 12.0f, TOO_LONG, TOO_LONG_MESSAGE);
}

TEST_F(water_levels, a_step_shorter_than_that_of_the_run_is_refused) {
  expect_refused("0", "30", 1.0f, TOO_SHORT, TOO_SHORT_MESSAGE);
}

TEST_F(water_levels, a_first_step_across_midnight_is_negative_and_so_shorter_than_that_of_the_run) {
  // 2300 to 0: -2300 + 40 * 23 = -1380 minutes, -23 hours.
  expect_refused("2300", "0", 1.0f, TOO_SHORT, TOO_SHORT_MESSAGE);
  EXPECT_EQ(series.DTWL, 0.0f);
}

TEST_F(water_levels, two_equal_times_are_a_step_of_zero) {
  expect_refused("600", "600", 0.25f, TOO_SHORT, TOO_SHORT_MESSAGE);
}

TEST_F(water_levels, a_step_of_three_quarters_does_not_fill_the_hour) {
  expect_refused("0", "100", 0.75f, UNEVEN, UNEVEN_MESSAGE);
}

TEST_F(water_levels, multiples_are_told_in_thousandths) {
  // 0.1 has no exact single value, but its product with 1000 is exactly 100.
  ASSERT_NE(static_cast<double>(0.1f), 0.1);
  ASSERT_EQ(1000.0f * 0.1f, 100.0f);
  EXPECT_EQ(step("0", "100", 0.1f), 1.0f);
  // A thousandth of an hour too long leaves 1000 - 501 = 499 of them.
  expect_refused("0", "100", 0.501f, UNEVEN, UNEVEN_MESSAGE);
}

// Hostile files.

TEST_F(water_levels, a_file_that_ends_too_early_ends_the_run_with_what_there_is) {
  expect_failure("", 2, "record 1 (line 0): the file ends after 0 records");
  expect_failure("19970101 0 1\n", 2, "record 2 (line 1): the file ends after 1 records");
  expect_failure("19970101 0 1\n19970101 100\n", 2,
                 "record 2 (line 2): the file ends after 1 records");
  expect_failure("19970101 0 1\n19970101 100 1\n", 100000,
                 "record 3 (line 2): the file ends after 2 records");
}

TEST_F(water_levels, an_item_that_is_no_number_ends_the_run) {
  expect_failure("jan 0 1\n", 2, "record 1 (line 1): 'jan' is no number of its kind");
  expect_failure("19970101.5 0 1\n", 2, "record 1 (line 1): '19970101.5' is no number of its kind");
  expect_failure("19970101 0 1\n19970101 noon 1\n", 2,
                 "record 2 (line 2): 'noon' is no number of its kind");
  expect_failure("19970101 40000 1\n", 2, "record 1 (line 1): '40000' is no number of its kind");
  expect_failure("19970101 0 nan\n", 2, "record 1 (line 1): 'nan' is no number of its kind");
  expect_failure("19970101 0 1\n19970101 100 1\n19970101 200 inf\n", 3,
                 "record 3 (line 3): 'inf' is no number of its kind");
  expect_failure("19970101 0 1e40\n", 2, "record 1 (line 1): '1e40' is no number of its kind");
}

TEST_F(water_levels, a_run_that_names_no_file_is_told_which_keyword_is_missing) {
  const Said said =
      kelptest::listen([&] { kelprun::read_water_levels(settings, 1.0f, files, series, report); });
  EXPECT_EQ(said.status, 1);
  EXPECT_EQ(said.err, "kelprun: WLFILE: KTMETDB is given, but no water level file is named\n");
}

}  // namespace
