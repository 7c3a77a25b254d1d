#include "runs/case.h"

/// Every refusal of the consistency checks but those of the two boundaries, on the grid of 20 cells
/// (21 walls) of the basic configuration.
namespace kelptest {
namespace {

/// A groin on the left wall lets a breakwater end there.
const Changes GROIN_BOUNDARIES{{"LBCTYPE", "1"}, {"LGROINY", "5"}};

Lines repeated(int count, const std::string& line) {
  return Lines(static_cast<std::size_t>(count), line);
}

Lines non_diffracting_groins(const Lines& walls) {
  Lines result;
  for (const std::string& wall : walls)
    result.insert(result.end(), {"IXNDG: " + wall, "YNDG: 200", "PNDG: 0"});
  return result;
}

Lines diffracting_groin(int wall, int tip) {
  return {"IXDG: " + std::to_string(wall), "YDG: " + std::to_string(tip), "DDG: 4", "PDG: 0"};
}

Lines breakwater(int left, int right, int distance) {
  const std::string Y = std::to_string(distance);
  return {"DBI1: " + std::to_string(left),
          "DBI2: " + std::to_string(right),
          "DBY1: " + Y,
          "DBY2: " + Y,
          "DBDEP1: 3",
          "DBDEP2: 3",
          "TRANDB: 0.5"};
}

const Lines WRONG_START_DATE{" ERROR. INCORRECT FORMAT ON SIMULATION START DATE.",
                             " PLEASE CORRECT YOUR .cfg FILE."};
const Lines WRONG_END_DATE{" ERROR. SIMULATION ENDING DATE MUST BE LATER THAN",
                           " THE STARTING DATE. PLEASE CORRECT YOUR .cfg FILE."};
const Lines TOO_MANY_PRINT_DATES{" ERROR. TOO MANY INTERMEDIATE PRINT-OUTS REQUESTED.",
                                 " PLEASE CHANGE VALUE OF \"NOUT\" IN START FILE.",
                                 " MAXIMUM NUMBER IS 500"};
const Lines TOO_MANY_CELLS{" ERROR. TOO MANY SHORELINE CELLS.",
                           " PLEASE CHANGE VALUE OF \"nx\" IN YOUR .spd FILE.",
                           " MAXIMUM NUMBER IS 4000"};
const Lines TOO_MANY_PLAIN_GROINS{" ERROR. TOO MANY NON-DIFFRACTING GROINS. PLEASE",
                                  " CHANGE VALUE OF \"NNDG\" IN YOUR .spd FILE.",
                                  " MAXIMUM NUMBER IS 250"};
const Lines PLAIN_GROIN_OUTSIDE{" ERROR. NON-DIFFRACTING GROIN OUTSIDE CALCULATION GRID.",
                                " PLEASE CHANGE IN YOUR .spd FILE."};
const Lines TOO_MANY_DIFFRACTING_GROINS{" ERROR. TOO MANY DIFFRACTING GROINS. PLEASE CHANGE",
                                        " VALUE OF \"NDG\" IN YOUR .spd FILE.",
                                        " MAXIMUM NUMBER IS 250"};
const Lines DIFFRACTING_GROIN_OUTSIDE{" ERROR. DIFFRACTING GROIN OUTSIDE CALCULATION",
                                      " GRID. PLEASE CHANGE IN YOUR .spd FILE."};
const Lines GROIN_BESIDE_END{" ERROR. GROIN NEXT TO GRID BOUNDARY. ",
                             " MOVE GROIN OR GRID ONE STEP IN EITHER DIRECTION."};
const Lines GROINS_TOO_CLOSE{" ERROR. GROINS MUST BE SEPARATED BY AT LEAST",
                             " TWO CALCULATION CELLS. PLEASE CHANGE."};
const Lines TOO_MANY_BREAKWATERS{" ERROR. TOO MANY DETACHED BREAKWATERS. PLEASE",
                                 " CHANGE VALUE OF \"NDB\" IN YOUR .spd FILE.",
                                 " MAXIMUM NUMBER IS 125"};
const Lines OPEN_LEFT_END{" ERROR. DETACHED BREAKWATER ENDING ON OPEN ",
                          " LEFT-HAND BOUNDARY NOT ALLOWED. ", " PLEASE CHANGE IN YOUR .spd FILE."};
const Lines UNCONNECTED_LEFT_END{" ERROR. DETACHED BREAKWATER AND DIFFRACTING  GROIN ON",
                                 " LEFT-HAND BOUNDARY MUST BE CONNECTED.  PLEASE CHANGE",
                                 " IN YOUR .spd FILE."};
const Lines OPEN_RIGHT_END{" ERROR. DETACHED BREAKWATER ENDING ON OPEN ",
                           " RIGHT-HAND BOUNDARY NOT ALLOWED. ",
                           " PLEASE CHANGE IN YOUR .spd FILE."};
const Lines UNCONNECTED_RIGHT_END{" ERROR. DETACHED BREAKWATER AND DIFFRACTING GROIN ON",
                                  " RIGHT-HAND BOUNDARY MUST BE CONNECTED.  PLEASE CHANGE",
                                  " IN YOUR .spd FILE."};
const Lines TIP_OUTSIDE{" ERROR. DETACHED BREAKWATER TIP OUTSIDE ",
                        " CALCULATION GRID. PLEASE CHANGE IN YOUR .kelFILE."};
const Lines NOT_AT_GROIN_TIP{" ERROR. DETACHED BREAKWATER CAN ONLY",
                             " CONNECT TO A GROIN AT THE GROIN TIP.",
                             " PLEASE CONSULT YOUR MANUAL."};
const Lines OVERLAP{" ERROR. DIFFRACTING STRUCTURES OVERLAP.", " PLEASE CONSULT YOUR MANUAL."};
const Lines FILL_OUTSIDE{" ERROR. BEACH FILL IS OUTSIDE CALCULATION GRID.",
                         " PLEASE CORRECT YOUR .spd FILE."};
const Lines FILL_REVERSED{" START X-COORDINATE OF BEACH FILL IS .GT. END X-COORDINATE.",
                          " PLEASE CORRECT YOUR .spd FILE."};

Lines fill(const std::string& first, const std::string& last) {
  return {"BFDATS: 19970101", "BFDATE: 19970102", "IBFS: " + first, "IBFE: " + last, "YADD: 10"};
}

const std::vector<Refusal> ROWS{
    {"start_month_13", {{"SIMDATS", "19971301"}}, {}, WRONG_START_DATE},
    {"start_day_32", {{"SIMDATS", "19970132"}}, {}, WRONG_START_DATE},
    {"end_date_equal_to_start_date", {{"SIMDATE", "19970101"}}, {}, WRONG_END_DATE},
    {"end_18000000_equal_to_the_start",
     {{"SIMDATS", "18000000"}, {"SIMDATE", "18000000"}},
     {},
     WRONG_END_DATE},
    {"501_print_dates", {}, repeated(501, "PRDATE: 3"), TOO_MANY_PRINT_DATES},
    {"4001_cells", {{"NX", "4001"}}, {}, TOO_MANY_CELLS},
    {"4001_cells_of_a_variable_grid", {{"NX", "4001"}, {"DX", "-1"}}, {}, TOO_MANY_CELLS},
    {"251_non_diffracting_groins", {}, repeated(251, "IXNDG: 5"), TOO_MANY_PLAIN_GROINS},
    {"non_diffracting_groin_at_wall_0", {}, non_diffracting_groins({"0"}), PLAIN_GROIN_OUTSIDE},
    {"non_diffracting_groin_beyond_the_last_wall",
     {},
     non_diffracting_groins({"22"}),
     PLAIN_GROIN_OUTSIDE},
    {"251_diffracting_groins",
     {},
     all({repeated(251, "IXDG: 5"), {"DDG: 4"}}),
     TOO_MANY_DIFFRACTING_GROINS},
    {"diffracting_groin_at_wall_0", {}, diffracting_groin(0, 200), DIFFRACTING_GROIN_OUTSIDE},
    {"diffracting_groin_beyond_the_last_wall",
     {},
     diffracting_groin(22, 200),
     DIFFRACTING_GROIN_OUTSIDE},
    {"only_groin_at_wall_2", {}, non_diffracting_groins({"2"}), GROIN_BESIDE_END},
    {"only_groin_at_wall_nx", {}, diffracting_groin(20, 200), GROIN_BESIDE_END},
    {"two_groins_at_one_wall", {}, non_diffracting_groins({"8", "8"}), GROINS_TOO_CLOSE},
    {"groins_of_both_kinds_at_one_wall",
     {},
     all({non_diffracting_groins({"8"}), diffracting_groin(8, 200)}),
     GROINS_TOO_CLOSE},
    {"unsorted_groins_one_cell_apart",
     {},
     non_diffracting_groins({"15", "8", "14"}),
     GROINS_TOO_CLOSE},
    {"126_breakwaters", {}, repeated(126, "DBI1: 5"), TOO_MANY_BREAKWATERS},
    {"breakwater_ending_on_an_open_left_end", {}, breakwater(1, 5, 300), OPEN_LEFT_END},
    {"breakwater_beside_a_groin_on_the_left_end", GROIN_BOUNDARIES,
     all({diffracting_groin(1, 200), breakwater(1, 5, 300)}), UNCONNECTED_LEFT_END},
    {"breakwater_ending_on_an_open_right_end",
     {},
     all({non_diffracting_groins({"8"}), breakwater(15, 21, 300)}),
     OPEN_RIGHT_END},
    {"breakwater_beside_a_groin_on_the_right_end",
     {{"RBCTYPE", "1"}, {"RGROINY", "5"}},
     all({diffracting_groin(21, 200), breakwater(15, 21, 300)}),
     UNCONNECTED_RIGHT_END},
    {"first_breakwater_tip_at_cell_0", {}, breakwater(0, 5, 300), TIP_OUTSIDE},
    {"last_breakwater_tip_beyond_the_last_wall", {}, breakwater(15, 22, 300), TIP_OUTSIDE},
    {"groin_longer_than_the_breakwater_at_its_wall",
     {},
     all({diffracting_groin(10, 400), breakwater(5, 10, 300)}),
     NOT_AT_GROIN_TIP},
    {"shorter_groin_where_two_breakwaters_meet",
     {},
     all({diffracting_groin(10, 200), breakwater(5, 10, 300), breakwater(10, 15, 300)}),
     NOT_AT_GROIN_TIP},
    {"breakwaters_in_descending_order",
     {},
     all({breakwater(12, 16, 300), breakwater(5, 8, 300)}),
     OVERLAP},
    {"breakwaters_that_reach_over_each_other",
     {},
     all({breakwater(5, 12, 300), breakwater(9, 16, 300)}),
     OVERLAP},
    {"diffracting_groin_between_the_tips_of_a_breakwater",
     {},
     all({diffracting_groin(10, 200), breakwater(5, 15, 300)}),
     OVERLAP},
    {"groin_between_the_tips_of_the_first_breakwater_on_a_groin", GROIN_BOUNDARIES,
     all({diffracting_groin(1, 300), diffracting_groin(4, 200), breakwater(1, 6, 300)}), OVERLAP},
    {"fill_beyond_both_ends", {}, fill("0", "21"), FILL_OUTSIDE},
    {"fill_that_ends_before_it_starts", {}, fill("12", "11"), FILL_REVERSED},
};

class checks_refuse : public testing::TestWithParam<Refusal> {};

TEST_P(checks_refuse, with_their_lines_and_the_first_once_more) { expect_refused(GetParam()); }

INSTANTIATE_TEST_SUITE_P(rows, checks_refuse, testing::ValuesIn(ROWS), name_of_row);

TEST(checks, a_grid_of_too_many_cells_is_refused_before_any_shoreline_is_read) {
  Case refused(Changes{{"NX", "4001"}});
  refused.with("shore.dat", "only one line\n").run();
  expect_fatal(refused, {opening(), free_lines(TOO_MANY_CELLS)}, TOO_MANY_CELLS.front());
}

TEST(checks, the_first_failing_check_ends_the_run_so_that_only_its_lines_appear) {
  Lines groins = non_diffracting_groins({"8", "8"});
  Case refused(Changes{{"SIMDATS", "19971301"}, {"LBCTYPE", "7"}}, groins);
  refused.run();
  expect_fatal(refused, {opening(), free_lines(WRONG_START_DATE)}, WRONG_START_DATE.front());
}

TEST(checks, an_end_date_before_the_start_date_is_refused_while_reading) {
  Case refused(Changes{{"SIMDATE", "19961231"}});
  refused.run();
  expect_fatal(refused, {opening()}, "SIMDATE must be >= SIMDATS");
}

struct Passing {
  std::string name;
  Changes changes;
  Lines more_lines;
};

std::ostream& operator<<(std::ostream& out, const Passing& row) { return out << row.name; }

const std::vector<Passing> PASSING{
    {"groin_at_wall_3", {}, non_diffracting_groins({"3"})},
    {"groin_at_the_last_wall_but_two", {}, non_diffracting_groins({"19"})},
    {"groins_two_walls_apart", {}, non_diffracting_groins({"8", "10", "12"})},
    {"500_print_dates_and_a_groin",
     {},
     all({repeated(500, "PRDATE: 3"), non_diffracting_groins({"8"})})},
    {"groins_on_both_ends",
     {{"LBCTYPE", "1"}, {"RBCTYPE", "2"}, {"LGROINY", "5"}, {"RGROINY", "5"}},
     non_diffracting_groins({"1", "21"})},
    {"breakwater_at_the_right_end_of_a_coast_without_groins", {}, breakwater(15, 21, 300)},
    {"breakwater_joined_to_a_groin_at_its_tip",
     {},
     all({diffracting_groin(10, 300), breakwater(5, 10, 300)})},
    {"shorter_groin_at_the_end_of_one_breakwater",
     {},
     all({diffracting_groin(10, 200), breakwater(5, 10, 300)})},
    {"breakwater_joined_to_the_groin_on_the_left_end", GROIN_BOUNDARIES,
     all({diffracting_groin(1, 300), breakwater(1, 5, 300)})},
    {"breakwater_that_ends_on_the_non_diffracting_groin_on_the_left_end", GROIN_BOUNDARIES,
     all({{"IXNDG: 1", "YNDG: 100", "PNDG: 0"}, breakwater(1, 5, 300)})},
    {"breakwaters_that_touch", {}, all({breakwater(5, 10, 300), breakwater(10, 15, 300)})},
    {"fill_beyond_the_left_end", {}, fill("-3", "5")},
    {"fill_beyond_the_right_end", {}, fill("15", "40")},
    {"bypass_operation",
     {},
     {"BPDATS: 19970101", "BPDATE: 19970102", "IBPS: 3", "IBPE: 15", "QBP: 0.01"}},
    {"tidal_inlet", {}, all({inlet(9, 11), placement(7, 13)})},
    {"dredged_volume_before_its_days",
     {},
     all({inlet(9, 11), placement(7, 13), {"IMOR: 1", "DREDV: 1000", "DRDAY: 10"}})},
};

class checks_pass : public testing::TestWithParam<Passing> {};

TEST_P(checks_pass, and_the_run_goes_on_to_its_end) {
  Case passing(GetParam().changes, GetParam().more_lines);
  passing.run();
  expect_completed(passing);
}

INSTANTIATE_TEST_SUITE_P(rows, checks_pass, testing::ValuesIn(PASSING),
                         [](const auto& row) { return row.param.name; });

TEST(checks, exactly_250_groins_of_a_kind_pass) {
  Changes changes{{"NX", "1000"}, {"WAVEID", "1000 20.0 0 waves.dat"}};
  for (const char* list :
       {"IK1END", "IK2END", "IHAMPEND", "ITHETAAMPEND", "ITHETADELEND", "IBERMHTEND", "IDCLOSEND"})
    changes[list] = "1000";
  Lines groins;
  for (int k = 1; k <= 250; ++k)
    groins.insert(groins.end(), {"IXNDG: " + std::to_string(3 * k), "YNDG: 200", "PNDG: 0"});
  Case passing(changes, groins);
  passing.with("shore.dat", values_file(std::vector<double>(1000, 100.0))).run();
  expect_completed(passing);
}

TEST(checks, month_0_and_day_0_of_the_start_date_pass) {
  for (const char* date : {"19970001", "19970100"}) {
    Case passing(Changes{{"SIMDATS", date}});
    passing.run();
    expect_completed(passing);
  }
}

}  // namespace
}  // namespace kelptest
