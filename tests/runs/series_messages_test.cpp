#include "runs/case.h"

/// Files of water levels and tidal currents that do not go with the time step, that are short,
/// garbled or missing.
namespace kelptest {
namespace {

/// Two clock times in a file of water levels or tidal currents: the two lines of the report and the
/// message.
struct Series {
  std::string name;
  std::string DT;
  std::string times[2];
  Lines reported;
  std::string message;
};

std::ostream& operator<<(std::ostream& out, const Series& row) { return out << row.name; }

std::string two_records(const Series& row) {
  return "19970101 " + row.times[0] + " 0.5\n19970101 " + row.times[1] + " 0.5\n";
}

/// The readers come ahead of the banner, and nothing but their own lines is told.
void expect_series_refused(const Case& ended, const Series& row, const Lines& echoes) {
  expect_fatal(ended, {opening(), free_lines(echoes)}, row.message);
  EXPECT_EQ(ended.report(), text_of({free_lines(row.reported)}));
  EXPECT_FALSE(ended.folder.exists("run.slo"));
}

const Lines LEVEL_LONG{" ERROR.  Time step in water level file exceeds 6 hours.  Please",
                       " review and revise your input water level file."};
const Lines LEVEL_SHORT{
    " ERROR. SIMULATION TIME STEP GREATER THAN TIME STEP IN WATER LEVEL FILE.",
    " PLEASE REVIEW AND REVISE YOUR .cfg AND INPUT WATER LEVEL FILE AS APPROPRIATE."};
const Lines LEVEL_UNEVEN{
    " ERROR. TIME STEP IN WATER LEVEL FILE MUST BE A MULTIPLE OF SIMULATION TIME STEP.",
    " PLEASE REVIEW AND REVISE YOUR WATER LEVEL FILE."};

class water_level_file : public testing::TestWithParam<Series> {};

TEST_P(water_level_file, ends_the_run_with_two_report_lines_and_one_console_record) {
  const Series& row = GetParam();
  // The configured step fits, but only the file's own one counts.
  Case ended(Changes{{"DT", row.DT}, {"DTSAVE", row.DT}, {"DTWL", row.DT}},
             {"KTMETDB: 1", "WLFILE: 2 level.dat"});
  ended.with("level.dat", two_records(row)).run();
  expect_series_refused(ended, row,
                        {"Opening Water Level Input File: level.dat", "Reading WTRELFILE"});
}

INSTANTIATE_TEST_SUITE_P(
    with, water_level_file,
    testing::Values(Series{"six_hours_and_a_minute",
                           "1",
                           {"0", "601"},
                           LEVEL_LONG,
                           "ERROR. Water level time step exceeds 6 hours."},
                    Series{"half_of_the_step",
                           "1",
                           {"0", "30"},
                           LEVEL_SHORT,
                           "ERROR. Simulation time step greater than water level time step."},
                    Series{"midnight_in_between",
                           "1",
                           {"2300", "0"},
                           LEVEL_SHORT,
                           "ERROR. Simulation time step greater than water level time step."},
                    Series{"an_hour_and_steps_of_45_minutes",
                           "0.75",
                           {"0", "100"},
                           LEVEL_UNEVEN,
                           "ERROR. Water level time step not a multiple of simulation time step."}),
    [](const auto& row) { return row.param.name; });

const Lines CURRENT_LONG{" ERROR.  Time step in tidal current file exceeds 6 hours.  Please",
                         " review and revise your input tidal current file."};
const Lines CURRENT_SHORT{
    " ERROR. SIMULATION TIME STEP GREATER THAN TIME STEP IN TIDAL CURRENT FILE.",
    " PLEASE REVIEW AND REVISE YOUR .cfg AND INPUT TIDAL CURRENT FILE AS APPROPRIATE."};
const Lines CURRENT_UNEVEN{
    " ERROR. TIME STEP IN TIDAL CURRENT FILE MUST BE A MULTIPLE OF SIMULATION TIME STEP.",
    " PLEASE REVIEW AND REVISE YOUR TIDAL CURRENT FILE."};

class tidal_current_file : public testing::TestWithParam<Series> {};

TEST_P(tidal_current_file, ends_the_run_with_two_report_lines_and_one_console_record) {
  const Series& row = GetParam();
  Case ended(Changes{{"DT", row.DT}, {"DTSAVE", row.DT}}, {"TIDEFILE: 20 2 tide.dat"});
  ended.with("tide.dat", two_records(row)).run();
  expect_series_refused(ended, row,
                        {"Opening Tidal Current Input File: tide.dat", "Reading TCRNTFILE: "});
}

INSTANTIATE_TEST_SUITE_P(
    with, tidal_current_file,
    testing::Values(Series{"six_hours_and_a_minute",
                           "1",
                           {"0", "601"},
                           CURRENT_LONG,
                           "ERROR. Tidal current time step exceeds 6 hours."},
                    Series{"two_equal_times",
                           "1",
                           {"600", "600"},
                           CURRENT_SHORT,
                           "ERROR. Simulation time step greater than tidal current time step."},
                    Series{"midnight_in_between",
                           "1",
                           {"2300", "0"},
                           CURRENT_SHORT,
                           "ERROR. Simulation time step greater than tidal current time step."},
                    Series{
                        "an_hour_and_steps_of_45_minutes",
                        "0.75",
                        {"0", "100"},
                        CURRENT_UNEVEN,
                        "ERROR. Tidal current time step not a multiple of simulation time step."}),
    [](const auto& row) { return row.param.name; });

TEST(water_level_file, is_read_ahead_of_the_tidal_currents) {
  Case both({}, {"KTMETDB: 1", "WLFILE: 2 level.dat", "TIDEFILE: 20 2 tide.dat"});
  both.with("level.dat", "19970101 0 0\n").with("tide.dat", "").run();
  expect_run_time_message(both,
                          "kelprun: level.dat: record 2 (line 1): the file ends after 1 records");
  EXPECT_EQ(occurrences(both.outcome.out, "Reading TCRNTFILE"), 0);
}

TEST(water_level_file, is_not_read_where_no_transmission_is_computed) {
  Case ignored({}, {"WLFILE: 2 level.dat"});
  ignored.with("level.dat", "no level at all\n").run();
  expect_completed(ignored);
  EXPECT_EQ(occurrences(ignored.outcome.out, "Reading WTRELFILE"), 0);
}

TEST(water_level_file, is_asked_for_where_transmission_is_computed) {
  Case ended({}, {"KTMETDB: 1"});
  ended.run();
  expect_run_time_message(ended, "kelprun: WLFILE: ");
}

TEST(tidal_current_file, that_is_short_or_garbled_is_named_with_record_and_line) {
  const Lines lines{"TIDEFILE: 20 3 tide.dat"};
  Case cut({}, lines);
  cut.with("tide.dat", "19970101 0 0.5\n19970101 100 0.5\n19970101 200").run();
  expect_run_time_message(cut,
                          "kelprun: tide.dat: record 3 (line 3): the file ends after 2 records");
  Case letters({}, lines);
  letters.with("tide.dat", "19970101 0 0.5\n19970101 100 flood\n19970101 200 0.5\n").run();
  expect_run_time_message(letters,
                          "kelprun: tide.dat: record 2 (line 2): 'flood' is no number of its kind");
}

}  // namespace
}  // namespace kelptest
