#include "input/checks.h"

#include <gtest/gtest.h>

#include <string>

#include "unit/input/reading.h"

namespace {

class checks : public kelptest::ReadingTest {};

TEST_F(checks, the_usual_configuration_passes_in_metres) {
  check({});
  expect_accepted();
  EXPECT_EQ(model().settings.CONV, 1.0f);
  EXPECT_EQ(model().settings.CONVYD, 1.0f);
  EXPECT_EQ(model().settings.CONVYD3, 1.0f);
  EXPECT_EQ(model().clock.SPD, 24.0f);
  EXPECT_EQ(model().clock.NTS, 10);
  EXPECT_EQ(model().grid.DX(20), 100.0f);
}

TEST_F(checks, feet_become_metres_and_cubic_yards_cubic_metres) {
  check(
      {{"KELUNITS", "(ft)"}, {"DCLOS", "20"}, {"BERMHT", "3"}, {"DX", "200"}},
      {"IINLS: 4",     "IINLE: 5",     "VVSE: 1000",  "VVSF: 2000",  "VVSBL: 3000",  "VVSBR: 4000",
       "VVSAL: 5000",  "VVSAR: 6000",  "VVSEQ: 1100", "VVSFQ: 2100", "VVSBQL: 3100", "VVSBQR: 4100",
       "VVSAQL: 5100", "VVSAQR: 6100", "IMOR: 1",     "DRDAY: 10",   "DREDV: 2400",  "BFDATS: 1",
       "BFDATE: 5",    "IBFS: 3",      "IBFE: 6",     "YADD: 100"});
  expect_accepted();
  EXPECT_EQ(model().settings.CONV, 0.3048f);
  EXPECT_EQ(model().settings.CONVYD, 0.9144f);
  const float cube = 0.9144f * 0.9144f * 0.9144f;
  EXPECT_EQ(model().settings.CONVYD3, cube);
  for (const std::int32_t i : {1, 20, 21}) {
    EXPECT_FLOAT_EQ(model().profile.DCLOSCELL(i), 6.096f);
    EXPECT_FLOAT_EQ(model().profile.BERMHTCELL(i), 0.9144f);
  }
  EXPECT_FLOAT_EQ(model().grid.DX(1), 60.96f);
  EXPECT_FLOAT_EQ(model().grid.DX(20), 60.96f);
  EXPECT_FLOAT_EQ(model().events.YADD(1), 30.48f);
  const kelprun::Inlets& n = model().inlets;
  EXPECT_FLOAT_EQ(n.VVSE(1), 1000.0f * cube);
  EXPECT_FLOAT_EQ(n.VVSF(1), 2000.0f * cube);
  EXPECT_FLOAT_EQ(n.VVSBL(1), 3000.0f * cube);
  EXPECT_FLOAT_EQ(n.VVSBR(1), 4000.0f * cube);
  EXPECT_FLOAT_EQ(n.VVSAL(1), 5000.0f * cube);
  EXPECT_FLOAT_EQ(n.VVSAR(1), 6000.0f * cube);
  EXPECT_FLOAT_EQ(n.VVSEQ(1), 1100.0f * cube);
  EXPECT_FLOAT_EQ(n.VVSFQ(1), 2100.0f * cube);
  EXPECT_FLOAT_EQ(n.VVSBQL(1), 3100.0f * cube);
  EXPECT_FLOAT_EQ(n.VVSBQR(1), 4100.0f * cube);
  EXPECT_FLOAT_EQ(n.VVSAQL(1), 5100.0f * cube);
  EXPECT_FLOAT_EQ(n.VVSAQR(1), 6100.0f * cube);
  EXPECT_FLOAT_EQ(n.dredgings.at(0).DREDQ, 10.0f * cube);
}

TEST_F(checks, what_has_no_length_unit_or_its_own_is_not_converted) {
  check({{"KELUNITS", "(ft)"},
         {"WAVUNITS", "(m)"},
         {"X0", "7"},
         {"D50", "0.3"},
         {"LMOVY", "5"},
         {"LMOVPER", "3"},
         {"LBCTYPE", "3"}},
        {"ISWBEG: 3", "ISWEND: 5", "SWY1: 40", "SWY2: 50", "IINLS: 8", "IINLE: 9", "YINLL: 60",
         "YINLR: 70", "VVSEQ: 1", "VVSFQ: 1", "VVSBQL: 1", "VVSBQR: 1", "VVSAQL: 1", "VVSAQR: 1"});
  expect_accepted();
  EXPECT_EQ(model().settings.WAVCONV, 1.0f) << "wave heights have a unit of their own";
  EXPECT_EQ(model().settings.D50, 0.3f);
  EXPECT_EQ(model().seawalls.SWY1(1), 40.0f) << "converted where it is used";
  EXPECT_EQ(model().seawalls.SWY2(1), 50.0f);
  EXPECT_EQ(model().inlets.YINLL(1), 60.0f);
  EXPECT_EQ(model().inlets.YINLR(1), 70.0f);
  EXPECT_FLOAT_EQ(model().boundaries.left.MOVSTEP, 1.524f);
}

TEST_F(checks, the_adaptive_step_has_defaults_where_it_is_wanted) {
  check({{"DTADAPT", "1"}, {"DT", "0.5"}});
  expect_accepted();
  EXPECT_EQ(model().settings.DTMIN, 0.0001);
  EXPECT_EQ(model().settings.DTMAX, 0.5f);
  EXPECT_EQ(model().clock.NSTABSTEPS, 28.0f * 48.0f);
  check({{"DTADAPT", "1"}, {"DTMIN", "0.1"}, {"DTMAX", "2"}, {"NSTABDTMIN", "1.5"}});
  EXPECT_EQ(model().settings.DTMIN, 0.1);
  EXPECT_EQ(model().settings.DTMAX, 2.0f);
  EXPECT_EQ(model().clock.NSTABSTEPS, 36.0f);
}

TEST_F(checks, a_fixed_step_needs_no_adaptive_defaults) {
  check({{"DTADAPT", "2"}});
  EXPECT_EQ(model().settings.DTMIN, 0.0);
  EXPECT_EQ(model().settings.DTMAX, 0.0f);
}

TEST_F(checks, four_thousand_cells_are_accepted_and_one_more_is_refused) {
  const kelptest::Changes ends = {{"IK1END", ""},       {"IK2END", ""},       {"IHAMPEND", ""},
                                  {"ITHETAAMPEND", ""}, {"ITHETADELEND", ""}, {"IBERMHTEND", ""},
                                  {"IDCLOSEND", ""}};
  kelptest::Changes changes = ends;
  changes["NX"] = "4000";
  check(changes);
  expect_accepted();
  EXPECT_EQ(model().profile.K1CELL(4001), 0.4f);
  changes["NX"] = "4001";
  changes["INIFILE"] = "waves.dat";  // No shoreline is read before the refusal.
  check(changes);
  expect_fatal(" ERROR. TOO MANY SHORELINE CELLS.");
  EXPECT_TRUE(said("  PLEASE CHANGE VALUE OF \"nx\" IN YOUR .spd FILE."));
  EXPECT_TRUE(said("  MAXIMUM NUMBER IS 4000"));
  changes["DX"] = "-1";
  check(changes);
  expect_fatal(" ERROR. TOO MANY SHORELINE CELLS.");
}

TEST_F(checks, five_hundred_print_dates_pass_and_one_more_is_refused) {
  check({}, kelptest::Lines(500, "PRDATE: 5"));
  expect_accepted();
  check({}, kelptest::Lines(501, "PRDATE: 5"));
  expect_fatal(" ERROR. TOO MANY INTERMEDIATE PRINT-OUTS REQUESTED.");
  EXPECT_TRUE(said("  MAXIMUM NUMBER IS 500"));
}

TEST_F(checks, a_first_width_of_minus_one_announces_a_file_of_widths) {
  check({{"DX", "-1"}, {"DXFILE", "widths.dat"}});
  expect_accepted();
  EXPECT_TRUE(model().grid.variable);
  check({{"DX", "100 -1"}});
  EXPECT_FALSE(model().grid.variable);
}

TEST_F(checks, fills_that_reach_past_one_end_pass) {
  const auto fill = [this](const std::string& first, const std::string& last) {
    check({}, {"BFDATS: 1", "BFDATE: 5", "IBFS: " + first, "IBFE: " + last, "YADD: 10"});
  };
  fill("-3", "6");
  expect_accepted();
  fill("15", "29");
  expect_accepted();
  fill("1", "20");
  expect_accepted();
  fill("0", "21");
  expect_fatal(" ERROR. BEACH FILL IS OUTSIDE CALCULATION GRID.");
  fill("9", "8");
  expect_fatal(" START X-COORDINATE OF BEACH FILL IS .GT. END X-COORDINATE.");
  fill("9", "9");
  expect_accepted();
}

TEST_F(checks, a_step_count_or_a_later_date_gives_the_run_length) {
  check({{"SIMDATE", "60"}});
  EXPECT_EQ(model().clock.NTS, 60);
  EXPECT_EQ(model().clock.NDAYS, 0);
  check({{"SIMDATE", "19980101"}, {"DT", "3"}, {"DTSAVE", "3"}});
  EXPECT_EQ(model().clock.NDAYS, 365);
  EXPECT_EQ(model().clock.NTS, 2920);
  check({{"SIMDATS", "20"}, {"SIMDATE", "20"}});
  EXPECT_EQ(model().clock.NTS, 20);
  check({{"SIMDATE", "19970101"}});
  expect_fatal(" ERROR. SIMULATION ENDING DATE MUST BE LATER THAN");
}

TEST_F(checks, the_first_failing_check_ends_the_run) {
  check({{"SIMDATS", "19971301"}, {"SIMDATE", "60"}, {"LBCTYPE", "7"}, {"NX", "5000"}});
  expect_fatal(" ERROR. INCORRECT FORMAT ON SIMULATION START DATE.");
  check({{"LBCTYPE", "7"}, {"NX", "5000"}});
  expect_fatal(" ERROR. TOO MANY SHORELINE CELLS.");
  check({{"LBCTYPE", "7"}, {"RBCTYPE", "7"}});
  expect_fatal(" ERROR. INVALID BOUNDARY CONDITION SPECIFICATION ON");
  EXPECT_TRUE(said("  LEFT-HAND MODEL BOUNDARY.  PLEASE CHANGE VALUEOF"));
}

TEST_F(checks, a_configuration_that_fails_quietly_ends_the_checks_at_once) {
  check({{"LBCTYPE", "7"}}, {"IXDG: 5", "DDG: 0"});
  EXPECT_FALSE(now->accepted);
  EXPECT_FALSE(now->said.status.has_value());
}

TEST_F(checks, failing_checks_leave_the_report_alone) {
  check({{"LBCTYPE", "7"}});
  expect_fatal(" ERROR. INVALID BOUNDARY CONDITION SPECIFICATION ON");
  EXPECT_EQ(report_text(), "");
}

TEST_F(checks, the_whole_way_from_lines_to_tips) {
  check({{"LBCTYPE", "1"}, {"LGROINY", "40"}, {"KELUNITS", "(ft)"}},
        {"IXDG: 9", "IXDG: 1", "YDG: 90", "YDG: 80", "DDG: 10", "DDG: 8", "PDG: 0.1", "PDG: 0.2",
         "DBI1: 14", "DBI2: 17", "DBY1: 200", "DBY2: 200", "DBDEP1: 12", "DBDEP2: 12"});
  expect_accepted();
  std::vector<std::int32_t> cells;
  for (const kelprun::Tip& tip : model().tips.tips) cells.push_back(tip.cell);
  EXPECT_EQ(cells, (std::vector<std::int32_t>{1, 9, 9, 14, 17, -2}));
  EXPECT_EQ(model().tips.NZ, 3);
  EXPECT_FLOAT_EQ(model().tips.tips(1).Y, 24.384f);
  EXPECT_FLOAT_EQ(model().tips.tips(2).Y, 27.432f);
  EXPECT_FLOAT_EQ(model().boundaries.left.GROINY, 12.192f);
}

}  // namespace
