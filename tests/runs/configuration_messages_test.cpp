#include "runs/case.h"

/// What the reader of the configuration says: echoes, refusals, warnings.
namespace kelptest {
namespace {

const Lines START = free_lines({"KelpRun Model Execution", "Reading CONFIGFILE: run.cfg"});
const Lines TITLE = free_lines({"Simulation Title: test"});

/// A refusal in the middle or at the end of the reading: the console before it, its message, and
/// the line on standard error that tells what the message does not.
struct Stop {
  std::string name;
  Changes changes;
  Lines more_lines;
  Lines before;
  std::string message;
  std::string explained = "";
};

std::ostream& operator<<(std::ostream& out, const Stop& row) { return out << row.name; }

Lines opening_and(const Lines& texts) {
  Lines result = opening();
  for (const std::string& line : free_lines(texts)) result.push_back(line);
  return result;
}

Lines start_and(const Lines& texts) {
  Lines result = START;
  for (const std::string& line : free_lines(texts)) result.push_back(line);
  return result;
}

Lines without_last(Lines console, int count) {
  console.resize(console.size() - static_cast<std::size_t>(count));
  return console;
}

const std::string LONG_LINE = "DTMAX: " + std::string(60, 'x');

const std::vector<Stop> ROWS{
    // Files that cannot be opened.
    {"initial_shoreline",
     {{"INIFILE", "none.dat"}},
     {},
     start_and({"Simulation Title: test", "Reading Initial Shoreline: none.dat"}),
     "Cannot not open initial shoreline file",
     "run.cfg: line 3: INIFILE: 'none.dat' cannot be opened: there is no such file"},
    {"regional_contour",
     {},
     {"REGFILE: none.dat"},
     opening_and({"Reading Regional Shoreline: none.dat"}),
     "Cannot not open regional shoreline file",
     "run.cfg: line 37: REGFILE: 'none.dat' cannot be opened: there is no such file"},
    {"wave_file",
     {{"WAVEID", "20 20.0 0 none.dat"}},
     {},
     start_and({"Simulation Title: test", "Reading Initial Shoreline: shore.dat",
                "Opening Wave Input File: none.dat"}),
     "Cannot not open wave file",
     "run.cfg: line 5: WAVEID: 'none.dat' cannot be opened: there is no such file"},
    {"water_level_file",
     {},
     {"WLFILE: 5 none.dat"},
     opening_and({"Opening Water Level Input File: none.dat"}),
     "Cannot not open water level file",
     "run.cfg: line 37: WLFILE: 'none.dat' cannot be opened: there is no such file"},
    {"bypass_event_file_named_as_the_water_level_file",
     {},
     {"BYPFILE: none.dat"},
     opening_and({"Opening Non-uniform Bypass Event Input File: none.dat"}),
     "Cannot not open water level file",
     "run.cfg: line 37: BYPFILE: 'none.dat' cannot be opened: there is no such file"},
    {"tidal_current_file",
     {},
     {"TIDEFILE: 20 5 none.dat"},
     opening_and({"Opening Tidal Current Input File: none.dat"}),
     "Cannot not open tidal current file",
     "run.cfg: line 37: TIDEFILE: 'none.dat' cannot be opened: there is no such file"},
    {"report",
     {{"PRFILE", "no_folder/run.prt"}},
     {},
     opening(),
     "Cannot not open prtfil file",
     "run.cfg: line 6: PRFILE: 'no_folder/run.prt' cannot be opened for writing: No such file or "
     "directory"},
    // What the file must hold.
    {"no_marker", {{"KELPRUN", ""}}, {}, opening(), "Configuration file not targeted for KelpRun"},
    {"marker_with_a_leading_blank",
     {{"KELPRUN", ""}},
     {" KELPRUN: yes"},
     opening(),
     "Configuration file not targeted for KelpRun"},
    {"no_initial_shoreline",
     {{"INIFILE", ""}},
     {},
     start_and({"Simulation Title: test", "Opening Wave Input File: waves.dat"}),
     "Initial Shoreline filename omitted in config file"},
    {"no_wave_file",
     {{"WAVEID", ""}},
     {},
     without_last(opening(), 1),
     "WAVEINFILE filename omitted in config file"},
    {"no_report", {{"PRFILE", ""}}, {}, opening(), "PRTFILE filename omitted in config file"},
    {"length_unit_without_parentheses",
     {{"KELUNITS", "ft"}},
     {},
     opening(),
     "KELUNITS must be (ft) or (m)"},
    {"unknown_length_unit", {{"KELUNITS", "(km)"}}, {}, opening(), "KELUNITS must be (ft) or (m)"},
    {"height_unit_without_parentheses",
     {{"WAVUNITS", "m"}},
     {},
     opening(),
     "WAVUNITS must be (ft) or (m)"},
    {"end_before_start", {{"SIMDATE", "19961231"}}, {}, opening(), "SIMDATE must be >= SIMDATS"},
    {"time_step_left_out", {{"DT", ""}}, {}, opening(), "DT must be > 0."},
    {"negative_time_step", {{"DT", "-1"}}, {}, opening(), "DT must be > 0."},
    {"table_interval_left_out", {{"DTSAVE", ""}}, {}, opening(), "DTSAVE must be > 0."},
    {"table_interval_0", {{"DTSAVE", "0"}}, {}, opening(), "DTSAVE must be > 0."},
    // Values that cannot be decoded, one for each form.
    {"whole_number",
     {{"NX", "twenty"}},
     {},
     opening(),
     "Invalid config data: NX: twenty",
     "run.cfg: line 9: NX: 'twenty' is no whole number"},
    {"whole_number_with_decimals",
     {{"NX", "20.5"}},
     {},
     opening(),
     "Invalid config data: NX: 20.5",
     "run.cfg: line 9: NX: '20.5' is no whole number"},
    {"real",
     {{"DT", "1h"}},
     {},
     opening(),
     "Invalid config data: DT: 1h",
     "run.cfg: line 13: DT: '1h' is no number"},
    {"double",
     {},
     {"DTMIN: none"},
     opening(),
     "Invalid config data: DTMIN: none",
     "run.cfg: line 37: DTMIN: 'none' is no number"},
    {"real_list",
     {{"K1", "0.4 zero"}},
     {},
     opening(),
     "Invalid config data: K1: 0.4 zero",
     "run.cfg: line 15: K1: 'zero' is no number"},
    {"whole_number_list",
     {{"IK1END", "10 x"}},
     {},
     opening(),
     "Invalid config data: IK1END: 10 x",
     "run.cfg: line 17: IK1END: 'x' is no whole number"},
    {"whole_number_of_8_columns",
     {{"SIMDATE", "10 days"}},
     {},
     opening(),
     "Invalid config data: SIMDATE: 10 days",
     "run.cfg: line 12: SIMDATE: '10 days' is no whole number in its first 8 columns"},
    {"logical",
     {{"PRWARN", "no"}},
     {},
     opening(),
     "Invalid config data: PRWARN: no",
     "run.cfg: line 34: PRWARN: 'no' is no T or F"},
    {"name_without_its_closing_quote",
     {{"INIFILE", "\"shore.dat"}},
     {},
     start_and({"Simulation Title: test"}),
     "Invalid config data: INIFILE: \"shore.dat",
     "run.cfg: line 3: INIFILE: '\"shore.dat' is no name: a closing quote is missing, or it holds "
     "a NUL byte"},
    {"items_of_a_wave_file",
     {{"WAVEID", "20 deep 0 waves.dat"}},
     {},
     without_last(opening(), 1),
     "Invalid config data: WAVEID: 20 deep 0 waves.dat",
     "run.cfg: line 5: WAVEID: 'deep' is no item of its kind, or has no closing quote"},
    {"first_52_characters_of_a_long_line",
     {},
     {LONG_LINE},
     opening(),
     "Invalid config data: " + LONG_LINE.substr(0, 52),
     "run.cfg: line 37: DTMAX: '" + std::string(40, 'x') + "...' is no number"},
    {"number_of_wave_files",
     {{"NUMWAVES", "one"}},
     {},
     start_and({"Simulation Title: test", "Reading Initial Shoreline: shore.dat"}),
     "Cannot not open wave file",
     "run.cfg: line 4: NUMWAVES: 'one' is no whole number in its first 8 columns"},
    {"tidal_factor",
     {},
     {"KTIDE: half"},
     opening(),
     "Cannot not open wave file",
     "run.cfg: line 37: KTIDE: 'half' is no number"},
};

class reading_stops : public testing::TestWithParam<Stop> {};

TEST_P(reading_stops, with_its_message_and_leaves_an_existing_report_alone) {
  const Stop& row = GetParam();
  Case stopped(row.changes, row.more_lines);
  stopped.with("run.prt", "of an earlier run\n").run();
  expect_fatal(stopped, {row.before}, row.message, row.explained);
  EXPECT_EQ(stopped.report(), "of an earlier run\n");
  EXPECT_FALSE(stopped.folder.exists("run.slo"));
}

INSTANTIATE_TEST_SUITE_P(rows, reading_stops, testing::ValuesIn(ROWS),
                         [](const auto& row) { return row.param.name; });

TEST(reading, a_diffracting_groin_without_depth_ends_the_run_without_a_fatal_record) {
  for (const Lines& depth : {Lines{}, Lines{"DDG: 0"}, Lines{"DDG: 4", "DDG: 0"}}) {
    Lines groin{"IXDG: 8", "YDG: 200"};
    groin.insert(groin.end(), depth.begin(), depth.end());
    Case stopped({}, groin);
    stopped.run();
    EXPECT_EQ(stopped.outcome.status, 1);
    EXPECT_EQ(stopped.outcome.out,
              text_of({opening_and({"Diffracting groin depth file DDG omitted or set to  zero in "
                                    "config file"})}));
    EXPECT_EQ(stopped.outcome.err, "");
  }
}

TEST(reading, the_missing_marker_is_told_after_every_named_file_was_opened) {
  Case stopped(Changes{{"KELPRUN", ""}, {"INIFILE", "none.dat"}});
  stopped.run();
  expect_fatal(stopped, {START, TITLE, free_lines({"Reading Initial Shoreline: none.dat"})},
               "Cannot not open initial shoreline file",
               "run.cfg: line 2: INIFILE: 'none.dat' cannot be opened: there is no such file");
}

TEST(reading, every_named_file_is_echoed_where_its_line_stands) {
  Case full(Changes{{"TITLE", "A longer title"}, {"SIMDATE", "2"}},
            {"REGFILE: reg.dat", "DXFILE: \"no file of this name\"", "BYPFILE: byp.dat",
             "WLFILE: 2 wl.dat"});
  full.with("reg.dat", "").with("byp.dat", "").with("wl.dat", "");
  full.run();
  expect_completed(full);
  EXPECT_EQ(
      full.outcome.out,
      text_of(
          {free_lines({"KelpRun Model Execution", "Reading CONFIGFILE: run.cfg",
                       "Simulation Title: A longer title", "Reading Initial Shoreline: shore.dat",
                       "Opening Wave Input File: waves.dat", "Reading Regional Shoreline: reg.dat",
                       "Reading Variable Grid Cell Spacing File: no file of this name",
                       "Opening Non-uniform Bypass Event Input File: byp.dat",
                       "Opening Water Level Input File: wl.dat"}),
           banner(), begins(), year_block(0, 2, 19970101), closing()}));
}

TEST(reading, a_title_without_text_prints_nothing) {
  Case untitled(Changes{{"TITLE", ""}}, {"TITLE:", "TITLE:    "});
  untitled.run();
  expect_completed(untitled);
  EXPECT_EQ(occurrences(untitled.outcome.out, "Simulation Title"), 0);
}

struct EndList {
  const char* keyword;
  const char* message;
};

std::ostream& operator<<(std::ostream& out, const EndList& row) { return out << row.keyword; }

class missing_end_list : public testing::TestWithParam<EndList> {};

TEST_P(missing_end_list, is_told_on_the_console_and_in_the_report) {
  Case constant(Changes{{GetParam().keyword, ""}, {"SIMDATE", "2"}});
  constant.run();
  expect_completed(constant);
  const Lines warning = free_lines({GetParam().message});
  EXPECT_EQ(constant.outcome.out, text_of({opening(), warning, banner(), begins(),
                                           year_block(0, 2, 19970101), closing()}));
  EXPECT_EQ(constant.ahead_of_head(), warning);
}

INSTANTIATE_TEST_SUITE_P(
    of, missing_end_list,
    testing::Values(
        EndList{"IK1END", "No IK1END specified. K1 is constant alongshore"},
        EndList{"IK2END", "No IK2END specified. K2 is constant alongshore"},
        EndList{"IHAMPEND", "No IHAMPEND specified. HAMP is constant alongshore"},
        EndList{"ITHETAAMPEND", "No ITHETAAMPEND specified. THETAAMP is constant alongshore"},
        EndList{"ITHETADELEND", "No ITHETADELEND specified. THETADEL is constant alongshore"},
        EndList{"IBERMHTEND", "No IBERMHTEND specified. BERMHT is constant alongshore"},
        EndList{"IDCLOSEND", "No IDCLOSEND specified. DCLOS is constant alongshore"}),
    [](const auto& row) { return std::string(row.param.keyword); });

TEST(reading, all_missing_end_lists_are_told_in_their_order) {
  Case constant(Changes{{"IK1END", ""},
                        {"IK2END", ""},
                        {"IHAMPEND", ""},
                        {"ITHETAAMPEND", ""},
                        {"ITHETADELEND", ""},
                        {"IBERMHTEND", ""},
                        {"IDCLOSEND", ""}});
  constant.run();
  const Lines warnings = free_lines({"No IK1END specified. K1 is constant alongshore",
                                     "No IK2END specified. K2 is constant alongshore",
                                     "No IHAMPEND specified. HAMP is constant alongshore",
                                     "No ITHETAAMPEND specified. THETAAMP is constant alongshore",
                                     "No ITHETADELEND specified. THETADEL is constant alongshore",
                                     "No IBERMHTEND specified. BERMHT is constant alongshore",
                                     "No IDCLOSEND specified. DCLOS is constant alongshore"});
  EXPECT_TRUE(constant.outcome.out.starts_with(text_of({opening(), warnings, banner()})));
  EXPECT_EQ(constant.ahead_of_head(), warnings);
}

class zero_equilibrium_volume : public testing::TestWithParam<const char*> {};

TEST_P(zero_equilibrium_volume, is_replaced_and_told) {
  const std::string keyword = GetParam();
  const Lines warning = free_lines({keyword + " cannot = 0; resetting to 0.00001"});
  Lines volumes = inlet(9, 11);
  for (const std::string& line : placement(7, 13)) volumes.push_back(line);
  for (std::string& line : volumes)
    if (line.starts_with(keyword + ":")) line = keyword + ": 0";
  Case replaced({}, volumes);
  replaced.run();
  expect_completed(replaced);
  EXPECT_TRUE(replaced.outcome.out.starts_with(text_of({opening(), warning})));
  EXPECT_EQ(replaced.ahead_of_head(), warning);
}

INSTANTIATE_TEST_SUITE_P(of, zero_equilibrium_volume,
                         testing::Values("VVSEQ", "VVSFQ", "VVSBQL", "VVSBQR", "VVSAQL", "VVSAQR"),
                         [](const auto& row) { return std::string(row.param); });

TEST(reading, a_replaced_volume_ahead_of_the_report_name_is_told_on_the_console_alone) {
  Case replaced(Changes{{"PRFILE", ""}}, {"IINLS: 9", "IINLE: 11", "VVSEQ: 0", "PRFILE: run.prt"});
  replaced.run();
  EXPECT_EQ(occurrences(replaced.outcome.out, "VVSEQ cannot = 0; resetting to 0.00001"), 1);
  EXPECT_EQ(occurrences(replaced.report(), "VVSEQ"), 0);
}

/// A value that would make nonsense of the run, and what its message must name.
struct Nonsense {
  std::string name;
  Changes changes;
  Lines more_lines;
  Lines named;
};

std::ostream& operator<<(std::ostream& out, const Nonsense& row) { return out << row.name; }

const std::vector<Nonsense> NONSENSE{
    {"no_cells", {{"NX", "0"}}, {}, {"NX", "0"}},
    {"width_0", {{"DX", "0"}}, {}, {"DX", "0"}},
    {"width_minus_2", {{"DX", "-2"}}, {}, {"DX", "-2"}},
    {"grain_size_left_out", {{"D50", ""}}, {}, {"D50"}},
    {"breaker_index_0", {}, {"GAMMA: 0"}, {"GAMMA"}},
    {"transport_coefficient_0_in_one_cell",
     {{"K1", "0.4 0 0.4"}, {"IK1END", "9 10 20"}},
     {},
     {"K1", "10"}},
    {"profile_without_height", {{"DCLOS", "-1"}}, {}, {"DCLOS", "BERMHT"}},
    {"more_wave_files_announced_than_named", {{"NUMWAVES", "2"}}, {}, {"NUMWAVES", "2"}},
    {"wave_files_that_do_not_ascend",
     {{"NUMWAVES", "2"}, {"WAVEID", "15 20.0 0 waves.dat"}},
     {"WAVEID: 10 20.0 0 waves.dat"},
     {"WAVEID", "10", "15"}},
    {"one_water_level", {}, {"WLFILE: 1 waves.dat"}, {"WLFILE", "1"}},
    {"one_tidal_current", {}, {"TIDEFILE: 20 1 waves.dat"}, {"TIDEFILE", "1"}},
    {"run_of_no_steps", {{"SIMDATE", "0"}}, {}, {"SIMDATE", "0"}},
    {"seawall_end_without_a_seawall", {}, {"ISWEND: 4"}, {"ISWEND", "ISWBEG"}},
    {"inlet_name_without_an_inlet", {}, {"INLNAME: East"}, {"INLNAME", "IINLS"}},
    {"seawall_outside_the_grid", {}, {"ISWBEG: 21", "ISWEND: 21"}, {"ISWBEG", "21"}},
};

class nonsense : public testing::TestWithParam<Nonsense> {};

TEST_P(nonsense, is_refused_by_a_message_that_names_it) {
  Case refused(GetParam().changes, GetParam().more_lines);
  refused.run();
  EXPECT_EQ(refused.outcome.status, 1);
  ASSERT_FALSE(refused.outcome.out.empty());
  const std::string record = lines(refused.outcome.out).back();
  EXPECT_TRUE(record.starts_with("ERROR: ")) << record;
  EXPECT_EQ(record.size(), 80u);
  for (const std::string& word : GetParam().named)
    EXPECT_GT(occurrences(record, word), 0) << record << " lacks " << word;
}

INSTANTIATE_TEST_SUITE_P(refused, nonsense, testing::ValuesIn(NONSENSE),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace kelptest
