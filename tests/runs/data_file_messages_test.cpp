#include "runs/case.h"

/// Shoreline, contour and width files that hold too little, and the steps of waves and tables that
/// do not go with the time step.
namespace kelptest {
namespace {

struct Short {
  std::string name;
  Changes changes;
  Lines echoes;
  std::string file;
  std::string text;
  Lines printed;
  std::string message;
  std::string explained;
};

std::ostream& operator<<(std::ostream& out, const Short& row) { return out << row.name; }

const Lines SHORELINE{" ERROR FOUND IN \"SHOIN\".", " FILE \"SHORL\" CONTAINS TOO FEW VALUES",
                      " PLEASE CHANGE IN DATA FILE(S)"};
const Lines CONTOUR{" ERROR FOUND IN \"SHOIN\".", " FILE \"SHORM\" CONTAINS TOO FEW VALUES",
                    " PLEASE CHANGE IN DATA FILE(S)"};
const Lines WIDTHS{" ERROR FOUND IN \"DXIN\".", " FILE \"DXDAT\" CONTAINS TOO FEW VALUES",
                   " PLEASE CHANGE IN DATA FILE"};
const Changes WITH_CONTOUR{{"IREG", "1"}, {"REGFILE", "reg.dat"}};
const Changes WITH_CONTOUR_3{{"IREG", "3"}, {"REGFILE", "reg.dat"}};
const Changes WITH_WIDTHS{{"DX", "-1"}, {"DXFILE", "dx.dat"}};
const Lines CONTOUR_ECHO = free_lines({"Reading Regional Shoreline: reg.dat"});
const Lines WIDTHS_ECHO = free_lines({"Reading Variable Grid Cell Spacing File: dx.dat"});
const std::string HEADERS = "1\n2\n3\n4\n";
const std::string TEN = "9 9 9 9 9 9 9 9 9 9\n";

const std::vector<Short> ROWS{
    {"shoreline_of_headers_alone",
     {},
     {},
     "shore.dat",
     HEADERS,
     SHORELINE,
     "INITIAL SHORELINE FILE CONTAINS TOO FEW VALUES",
     "shore.dat: line 4: the file ends after 0 of 20 values"},
    {"empty_shoreline",
     {},
     {},
     "shore.dat",
     "",
     SHORELINE,
     "INITIAL SHORELINE FILE CONTAINS TOO FEW VALUES",
     "shore.dat: line 0: the file ends after 0 of 4 header lines"},
    {"shoreline_of_19_values",
     {},
     {},
     "shore.dat",
     HEADERS + TEN + "9 9 9 9 9 9 9 9 9\n",
     SHORELINE,
     "INITIAL SHORELINE FILE CONTAINS TOO FEW VALUES",
     "shore.dat: line 6: the file ends after 19 of 20 values"},
    {"shoreline_whose_long_line_loses_its_surplus",
     {},
     {},
     "shore.dat",
     HEADERS + "9 9 9 9 9 9 9 9 9 9 9 9 9 9 9 9 9 9 9 9\n",
     SHORELINE,
     "INITIAL SHORELINE FILE CONTAINS TOO FEW VALUES",
     "shore.dat: line 5: the file ends after 10 of 20 values"},
    {"contour_of_headers_alone", WITH_CONTOUR, CONTOUR_ECHO, "reg.dat", HEADERS, CONTOUR,
     "REGIONAL CONTOUR FILE CONTAINS TOO FEW VALUES",
     "reg.dat: line 4: the file ends after 0 of 20 values"},
    {"contour_of_one_group", WITH_CONTOUR_3, CONTOUR_ECHO, "reg.dat", HEADERS + TEN, CONTOUR,
     "REGIONAL CONTOUR FILE CONTAINS TOO FEW VALUES",
     "reg.dat: line 5: the file ends after 10 of 20 values"},
    {"widths_of_headers_alone", WITH_WIDTHS, WIDTHS_ECHO, "dx.dat", HEADERS, WIDTHS,
     "VARIABLE DX FILE CONTAINS TOO FEW VALUES",
     "dx.dat: line 4: the file ends after 0 of 20 values"},
    {"widths_of_12_values", WITH_WIDTHS, WIDTHS_ECHO, "dx.dat", HEADERS + TEN + "9 9\n", WIDTHS,
     "VARIABLE DX FILE CONTAINS TOO FEW VALUES",
     "dx.dat: line 6: the file ends after 12 of 20 values"},
};

class too_few_values : public testing::TestWithParam<Short> {};

TEST_P(too_few_values, are_told_on_the_console_and_in_the_report) {
  const Short& row = GetParam();
  Case ended(row.changes);
  ended.with(row.file, row.text).run();
  expect_fatal(ended, {opening(), row.echoes, free_lines(row.printed), {""}}, row.message,
               row.explained);
  EXPECT_EQ(ended.report(), text_of({free_lines(row.printed)}));
  EXPECT_FALSE(ended.folder.exists("run.slo"));
}

INSTANTIATE_TEST_SUITE_P(in_a, too_few_values, testing::ValuesIn(ROWS),
                         [](const auto& row) { return row.param.name; });

TEST(shoreline_and_contour, are_read_in_step_so_that_the_shoreline_is_told_first) {
  Case ended(WITH_CONTOUR);
  ended.with("shore.dat", HEADERS + TEN).with("reg.dat", HEADERS + TEN).run();
  expect_fatal(ended, {opening(), CONTOUR_ECHO, free_lines(SHORELINE), {""}},
               "INITIAL SHORELINE FILE CONTAINS TOO FEW VALUES",
               "shore.dat: line 5: the file ends after 10 of 20 values");
}

TEST(shoreline_file, too_many_values_are_not_noticed) {
  Case more;
  more.with("shore.dat", HEADERS + "100 100 100 100 100 100 100 100 100 100 7 7\n" +
                             "100 100 100 100 100 100 100 100 100 100\n7 7 7\n");
  more.run();
  expect_completed(more);
  EXPECT_EQ(more.table("slo").rows.front(), std::vector<double>(20, 100.0));
}

TEST(shoreline_file, grids_of_10_and_11_cells_read_one_and_two_groups) {
  for (const int NX : {1, 10, 11}) {
    const std::string cells = std::to_string(NX);
    Case read(Changes{{"NX", cells}, {"WAVEID", cells + " 20.0 0 waves.dat"}, {"ISMOOTH", "1"}});
    std::vector<double> shoreline;
    for (int i = 1; i <= NX; ++i) shoreline.push_back(100.0 + i);
    read.with("shore.dat", values_file(shoreline)).run();
    EXPECT_EQ(read.outcome.status, 0) << NX;
    EXPECT_EQ(read.table("slo").rows.front(), shoreline);
  }
}

TEST(width_file, a_missing_name_is_a_run_time_message_that_names_the_keyword) {
  Case ended(Changes{{"DX", "-1"}});
  ended.run();
  expect_run_time_message(ended, "kelprun: DXFILE: ");
}

TEST(width_file, a_missing_file_is_a_run_time_message_that_names_it) {
  Case ended(Changes{{"DX", "-1"}, {"DXFILE", "none.dat"}});
  ended.run();
  expect_run_time_message(ended, "kelprun: none.dat: ");
}

/// A step that does not go with another one: the two lines of the report and the message.
struct Step {
  std::string name;
  Changes changes;
  Lines more_lines;
  std::string waves;
  Lines reported;
  std::string message;
};

std::ostream& operator<<(std::ostream& out, const Step& row) { return out << row.name; }

Changes with_waves(Changes changes) {
  changes["WAVEID"] = "20 20.0 24 waves.dat";
  return changes;
}

const std::string STEADY = "1.0 8.0 10.0\n";
const std::string HOURLY = hourly_waves(19970101, 24, "1.0 8.0 10.0");
const Lines FILES_SECOND{
    " PLEASE REVIEW AND REVISE YOUR .cfg AND INPUT WAVE FILES AS APPROPRIATE."};
const Lines WAVE_MULTIPLE{
    " ERROR. TIME STEP IN WAVE FILE MUST BE A MULTIPLE OF SIMULATION TIME STEP.",
    FILES_SECOND.front()};
const Lines WAVE_TOO_SHORT{" ERROR. SIMULATION TIME STEP GREATER THAN TIME STEP IN WAVE FILE.",
                           FILES_SECOND.front()};
const Lines TABLE_MULTIPLE{" ERROR. DTSAVE MUST BE A MULTIPLE OF SIMULATION TIME STEP.",
                           " PLEASE  REVIEW AND REVISE YOUR .cfg FILE."};
const Lines FILL_DATES{" ERROR. INCORRECT FORMAT ON BEACH FILL DATES.",
                       " PLEASE CORRECT YOUR .spd FILE."};

Lines fill(const std::string& start, const std::string& end) {
  return {"BFDATS: " + start, "BFDATE: " + end, "IBFS: 3", "IBFE: 5", "YADD: 10"};
}

const std::vector<Step> STEPS{
    {"step_above_the_wave_step",
     with_waves({{"DT", "2"}, {"DTSAVE", "2"}}),
     {},
     HOURLY,
     WAVE_TOO_SHORT,
     "ERROR. Simulation time step greater than wave time step"},
    {"wave_step_backwards",
     with_waves({}),
     {},
     "19970101 0100 1 8 10\n" + HOURLY,
     WAVE_TOO_SHORT,
     "ERROR. Simulation time step greater than wave time step"},
    {"step_that_does_not_divide_the_wave_step",
     with_waves({{"DT", "0.75"}, {"DTSAVE", "3"}}),
     {},
     HOURLY,
     WAVE_MULTIPLE,
     "ERROR. Wave time step not a multiple of simulation time step"},
    {"thirtieth_of_an_hour_in_decimals",
     with_waves({{"DT", "0.0333333333"}, {"DTSAVE", "0.0333333333"}}),
     {},
     HOURLY,
     WAVE_MULTIPLE,
     "ERROR. Wave time step not a multiple of simulation time step"},
    {"wave_step_named_before_the_table_interval",
     with_waves({{"DT", "0.75"}, {"DTSAVE", "1"}}),
     {},
     HOURLY,
     WAVE_MULTIPLE,
     "ERROR. Wave time step not a multiple of simulation time step"},
    {"table_interval_of_7_hours_with_3_hour_steps",
     {{"DT", "3"}, {"DTSAVE", "7"}},
     {},
     STEADY,
     TABLE_MULTIPLE,
     "ERROR. DTSAVE not a multiple of simulation time step."},
    {"table_interval_below_the_step",
     {{"DT", "3"}, {"DTSAVE", "1"}},
     {},
     STEADY,
     TABLE_MULTIPLE,
     "ERROR. DTSAVE not a multiple of simulation time step."},
    {"fill_that_starts_in_month_13",
     {},
     fill("19971301", "19980110"),
     STEADY,
     FILL_DATES,
     "ERROR. Incorrect format on beach fill dates."},
    {"fill_that_ends_on_day_32",
     {},
     fill("19970101", "19970132"),
     STEADY,
     FILL_DATES,
     "ERROR. Incorrect format on beach fill dates."},
};

class step_relations : public testing::TestWithParam<Step> {};

TEST_P(step_relations, end_the_run_with_two_report_lines_and_one_console_record) {
  const Step& row = GetParam();
  Case ended(row.changes, row.more_lines);
  ended.with("waves.dat", row.waves).run();
  expect_fatal(ended, {opening(), banner()}, row.message);
  EXPECT_EQ(ended.behind_head(), free_lines(row.reported));
  // The tables have their titles by then, and no row.
  EXPECT_EQ(ended.folder.read("run.slo"), "Shoreline Position Output\n");
}

INSTANTIATE_TEST_SUITE_P(rows, step_relations, testing::ValuesIn(STEPS),
                         [](const auto& row) { return row.param.name; });

struct Span {
  std::string name;
  std::string second;
  std::string span;
};

std::ostream& operator<<(std::ostream& out, const Span& row) { return out << row.name; }

class first_two_wave_dates : public testing::TestWithParam<Span> {};

TEST_P(first_two_wave_dates, must_lie_in_one_month) {
  const std::string& span = GetParam().span;
  Case ended(Changes{{"SIMDATS", "19970131"}, {"WAVEID", "20 20.0 2 waves.dat"}});
  ended.with("waves.dat", "19970131 2300 1 8 10\n" + GetParam().second + " 1 8 10\n").run();
  // The wave step is known before the report has its banner.
  expect_fatal(ended, {opening()}, "ERROR. Wave time step exceeds one " + span + ".");
  EXPECT_EQ(ended.report(),
            text_of({free_lines({" ERROR.  Time step in WAVEFILE exceeds one " + span + ".  Please",
                                 " review and revise your input wave files."})}));
}

INSTANTIATE_TEST_SUITE_P(rows, first_two_wave_dates,
                         testing::Values(Span{"midnight_at_a_month_end", "19970201 0000", "month"},
                                         Span{"same_day_of_the_next_year", "19980131 2300", "year"},
                                         Span{"midnight_of_new_year", "19980101 0000", "year"}),
                         [](const auto& row) { return row.param.name; });

TEST(bypass_operations, more_than_250_are_refused_after_the_step_relations) {
  Lines operations;
  for (int k = 1; k <= 251; ++k)
    operations.insert(operations.end(),
                      {"BPDATS: 1", "BPDATE: 2", "IBPS: 3", "IBPE: 5", "QBP: 0.01"});
  Case ended({}, operations);
  ended.run();
  expect_fatal(ended, {opening(), banner()}, "ERROR. Too many bypassing operations.");
  Lines reported = free_lines({" ERROR. TOO MANY BYPASSING OPERATIONS.",
                               " PLEASE CHANGE VALUE OF \"NBP\" IN YOUR SPATIAL DOMAIN FILE.",
                               " MAXIMUM NUMBER IS 250"});
  reported.emplace_back();
  EXPECT_EQ(ended.behind_head(), reported);
}

TEST(bypass_operations, exactly_250_pass) {
  Lines operations;
  for (int k = 1; k <= 250; ++k)
    operations.insert(operations.end(),
                      {"BPDATS: 1", "BPDATE: 2", "IBPS: 3", "IBPE: 5", "QBP: 0.01"});
  Case ended({}, operations);
  ended.run();
  expect_completed(ended);
}

TEST(groins, a_non_diffracting_groin_joined_to_a_breakwater_is_refused) {
  Case ended({}, {"IXNDG: 10", "YNDG: 300", "PNDG: 0", "DBI1: 5", "DBI2: 10", "DBY1: 300",
                  "DBY2: 300", "DBDEP1: 3", "DBDEP2: 3", "TRANDB: 0.5"});
  ended.run();
  expect_fatal(ended, {opening(), banner()},
               "ERROR.  Non-Diffracting groin connected to breakwater");
  EXPECT_EQ(ended.behind_head(),
            free_lines({" ERROR. GROIN CONNECTED TO DETACHED BREAKWATER MUST BE",
                        " CLASSIFIED AS A DIFFRACTING GROIN. PLEASE CHANGE YOUR .spd FILE."}));
}

}  // namespace
}  // namespace kelptest
