#include <filesystem>

#include "runs/case.h"

/// Inlets that a run refuses: cells, volumes and dredging that make no sense, and tables that
/// cannot be written.
namespace kelptest {
namespace {

struct Nonsense {
  std::string name;
  Lines lines;
  std::string message;
  std::string explained = "";
};

std::ostream& operator<<(std::ostream& out, const Nonsense& row) { return out << row.name; }

Lines without(const std::string& keyword) {
  Lines lines = inlet(9, 11);
  std::erase_if(lines, [&](const std::string& line) { return line.starts_with(keyword + ":"); });
  return lines;
}

const std::vector<Nonsense> NONSENSE{
    {"first_cell_outside_the_grid", inlet(0, 5), "IINLS 0 lies outside 1 to 20"},
    {"last_cell_outside_the_grid", inlet(9, 21), "IINLE 21 lies outside 1 to 20"},
    {"no_last_cell", without("IINLE"), "IINLE 0 lies outside 1 to 20"},
    {"last_cell_before_the_first", inlet(9, 8), "IINLE 8 of inlet 1 lies before its IINLS 9"},
    {"one_cell_of_beach_on_the_left", inlet(2, 5),
     "inlet 1, cells 2 to 5, needs two cells of beach on each side"},
    {"one_cell_of_beach_on_the_right", inlet(9, 19),
     "inlet 1, cells 9 to 19, needs two cells of beach on each side"},
    {"no_beach_at_all", inlet(1, 20),
     "inlet 1, cells 1 to 20, needs two cells of beach on each side"},
    {"inlets_that_overlap", all({inlet(5, 9), inlet(9, 12)}), "inlet 2 overlaps inlet 1"},
    {"inlets_one_inside_the_other", all({inlet(8, 9), inlet(6, 12)}), "inlet 2 overlaps inlet 1"},
    {"inlets_with_one_cell_between", all({inlet(5, 7), inlet(9, 12)}),
     "inlet 2 and inlet 1 need two cells of beach between them"},
    {"inlets_with_one_cell_between_from_the_right", all({inlet(9, 12), inlet(5, 7)}),
     "inlet 2 and inlet 1 need two cells of beach between them"},
    {"third_inlet_on_the_first", all({inlet(5, 7), inlet(12, 13), inlet(7, 7)}),
     "inlet 3 overlaps inlet 1"},
    {"placement_on_more_cells_than_a_coast_has", all({inlet(9, 11), {"IBYPR1: 1", "IBYPR2: 4001"}}),
     "inlet 1: placement cells 1 to 4001 are more than a coast has"},
    {"placement_on_all_numbers_of_eight_columns",
     all({inlet(9, 11), {"IBYPL1: -9999999", "IBYPL2: 99999999"}}),
     "inlet 1: placement cells -9999999 to 99999999 are more than a coast has"},
    {"no_equilibrium_of_the_ebb_shoal", without("VVSEQ"),
     "VVSEQ of inlet 1 must be above 0, it is 0."},
    {"no_equilibrium_of_the_flood_shoal", without("VVSFQ"),
     "VVSFQ of inlet 1 must be above 0, it is 0."},
    {"no_equilibrium_of_the_left_bypass_bar", without("VVSBQL"),
     "VVSBQL of inlet 1 must be above 0, it is 0."},
    {"no_equilibrium_of_the_right_bypass_bar", without("VVSBQR"),
     "VVSBQR of inlet 1 must be above 0, it is 0."},
    {"no_equilibrium_of_the_left_attachment_bar", without("VVSAQL"),
     "VVSAQL of inlet 1 must be above 0, it is 0."},
    {"no_equilibrium_of_the_right_attachment_bar", without("VVSAQR"),
     "VVSAQR of inlet 1 must be above 0, it is 0."},
    {"no_equilibrium_at_the_second_inlet", all({inlet(5, 7), {"IINLS: 12", "IINLE: 13"}}),
     "VVSEQ of inlet 2 must be above 0, it is 0."},
    {"equilibrium_below_0", all({{"VVSEQ: -5"}, without("VVSEQ")}),
     "VVSEQ of inlet 1 must be above 0, it is -5."},
    {"dredged_volume_without_its_days_on_a_date",
     all({inlet(9, 11), {"IMOR: 3", "IDREDS: 19970101", "IDREDE: 19970102", "DREDV: 1000"}}),
     "dredging event 1 of inlet 1: DREDV needs a DRDAY before it, not 0"},
    {"dredging_over_no_days_at_the_second_inlet",
     all({inlet(5, 6),
          {"IMOR: 3", "IDREDS: 19970101", "DRDAY: 1", "DREDV: 10"},
          inlet(12, 13),
          {"IMOR: 1", "IDREDS: 19970101", "DRDAY: 0", "DREDV: 10"}}),
     "dredging event 2 of inlet 2: DREDV needs a DRDAY before it, not 0"},
    {"dredging_ahead_of_all_inlets",
     {"IMOR: 3"},
     "IMOR stands before any IINLS line",
     "run.cfg: line 37: IMOR: no IINLS line stands ahead of it"},
};

class inlets_refused : public testing::TestWithParam<Nonsense> {};

TEST_P(inlets_refused, by_a_fatal_message_and_nothing_is_computed) {
  Case refused({}, GetParam().lines);
  refused.run();
  expect_fatal(refused, {opening()}, GetParam().message, GetParam().explained);
  EXPECT_FALSE(refused.folder.exists("Inlet1.irv"));
  EXPECT_FALSE(refused.folder.exists("run.slo"));
}

TEST(inlets, without_placement_cells_are_warned_of_for_the_side_that_lacks_them) {
  const auto warnings = [](const Lines& cells) {
    Case run({}, all({inlet(9, 11), cells}));
    run.run();
    EXPECT_EQ(run.outcome.status, 0);
    return run.outcome.err;
  };
  const auto lost = [](const std::string& cells) {
    return "kelprun: warning: inlet 1 has no placement cells " + cells +
           " in the grid: sand that passes to that side is lost\n";
  };
  EXPECT_EQ(warnings({}), lost("IBYPL1 to IBYPL2") + lost("IBYPR1 to IBYPR2"));
  EXPECT_EQ(warnings({"IBYPL1: 4", "IBYPL2: 7", "IBYPR1: 21", "IBYPR2: 24"}),
            lost("IBYPR1 to IBYPR2"));
  EXPECT_EQ(warnings({"IBYPL1: 4", "IBYPL2: 3", "IBYPR1: 20", "IBYPR2: 24"}),
            lost("IBYPL1 to IBYPL2"));
}

TEST(inlets, whose_dredging_comes_to_nothing_are_warned_of) {
  Case run({{"DT", ""}}, all({inlet(9, 11),
                              placement(7, 13),
                              {"IMOR: 3", "IDREDS: 19970101", "IDREDE: 19970102", "DRDAY: 1",
                               "DREDV: 1000", "DT: 1"}}));
  run.run();
  EXPECT_EQ(run.outcome.status, 0);
  EXPECT_EQ(run.outcome.err,
            "kelprun: warning: dredging event 1 of inlet 1 moves nothing: DT and DRDAY must stand "
            "ahead of DREDV\n");
}

INSTANTIATE_TEST_SUITE_P(rows, inlets_refused, testing::ValuesIn(NONSENSE),
                         [](const auto& row) { return row.param.name; });

TEST(inlets, with_two_cells_of_beach_on_each_side_and_between_them_are_run) {
  const Lines places = all({placement(2, 10), placement(11, 19)});
  Case run({}, all({inlet(3, 9), inlet(12, 18), places}));
  run.run();
  expect_completed(run);
  Case in_any_order({}, all({inlet(12, 18), inlet(3, 9), places}));
  in_any_order.run();
  expect_completed(in_any_order);
  EXPECT_EQ(in_any_order.folder.read("run.slo"), run.folder.read("run.slo"));
}

TEST(inlets, dredging_without_a_date_needs_no_days) {
  Case run({}, all({inlet(9, 11), placement(7, 13), {"IMOR: 3", "DREDV: 1000"}}));
  run.run();
  expect_completed(run);
}

TEST(inlets, whose_file_is_another_output_an_input_or_that_of_another_inlet_are_refused) {
  struct Collision {
    Changes changes;
    Lines lines;
    std::string output, other;
  };
  const std::vector<Collision> collisions{
      {{{"PRFILE", "Inlet1.irv"}}, inlet(9, 11), "Inlet1.irv", "Inlet1.irv"},
      {{{"INIFILE", "shore.irv"}},
       all({inlet(9, 11), {"INLNAME: shore"}}),
       "shore.irv",
       "overwrite the input file shore.irv"},
      {{{"INIFILE", "Inlet1.irv"}}, inlet(9, 11), "Inlet1.irv", "overwrite"},
      {{},
       all({inlet(5, 6), {"INLNAME: East"}, inlet(12, 13), {"INLNAME: East"}}),
       "East.irv",
       "East.irv are the same file"},
      {{},
       all({inlet(5, 6), {"INLNAME: Inlet2"}, inlet(12, 13)}),
       "Inlet2.irv",
       "Inlet2.irv are the same file"},
      {{},
       all({inlet(5, 6), {"INLNAME: East"}, inlet(12, 13), {"INLNAME: ./East"}}),
       "East.irv",
       "./East.irv are the same file"},
  };
  for (const Collision& row : collisions) {
    SCOPED_TRACE(row.output + ", " + row.other);
    Case refused(row.changes, row.lines);
    const std::string shore = refused.folder.read("shore.dat");
    refused.with("shore.irv", shore).with("Inlet1.irv", shore).run();
    expect_run_time_message(refused, "kelprun: " + row.output + ": this output ");
    EXPECT_GT(occurrences(refused.outcome.err, row.other), 0) << refused.outcome.err;
    EXPECT_EQ(refused.folder.read("shore.irv"), shore);
    EXPECT_EQ(refused.folder.read("Inlet1.irv"), shore);
  }
}

TEST(inlets, whose_table_cannot_be_opened_are_told) {
  Case blocked({}, all({inlet(9, 11), placement(7, 13)}));
  std::filesystem::create_directory(blocked.folder.path() / "Inlet1.irv");
  blocked.run();
  expect_run_time_message(blocked, "kelprun: Inlet1.irv: cannot be opened: ");
  EXPECT_EQ(occurrences(blocked.outcome.out, "Time Simulation begins"), 0);
  Case missing({}, all({inlet(9, 11), placement(7, 13), {"INLNAME: nowhere/East"}}));
  missing.run();
  expect_run_time_message(missing, "kelprun: nowhere/East.irv: cannot be opened: ");
}

}  // namespace
}  // namespace kelptest
