#include "runs/case.h"

/// What the checks of the two lateral boundaries refuse and warn of. The grid has 21 walls.
namespace kelptest {
namespace {

Lines groin(int wall) { return {"IXNDG: " + std::to_string(wall), "YNDG: 200", "PNDG: 0"}; }

const Lines WRONG_LEFT_TYPE{" ERROR. INVALID BOUNDARY CONDITION SPECIFICATION ON",
                            " LEFT-HAND MODEL BOUNDARY.  PLEASE CHANGE VALUEOF",
                            " \"LBCTYPE\" IN YOUR .cfg FILE."};
const Lines WRONG_RIGHT_TYPE{" ERROR. INVALID BOUNDARY CONDITION SPECIFICATION ON",
                             " RIGHT-HAND MODEL BOUNDARY.  PLEASE CHANGE VALUE OF",
                             " \"RBCTYPE\" IN YOUR .cfg FILE."};
const Lines WRONG_LEFT_PERIOD{" ERROR. INVALID BOUNDARY MOVEMENT PERIOD SPECIFICATION",
                              " ON LEFT-HAND MODEL BOUNDARY.  PLEASE CHANGE VALUE OF",
                              " \"LMOVPER\" IN YOUR .cfg FILE."};
const Lines WRONG_RIGHT_PERIOD{" ERROR. INVALID BOUNDARY MOVEMENT PERIOD SPECIFICATION",
                               " ON RIGHT-HAND MODEL BOUNDARY.  PLEASE CHANGE VALUE OF",
                               " \"RMOVPER\" IN YOUR .cfg FILE."};
const Lines NO_GROIN_AT_GATE{" ERROR. GATED BOUNDARY CONDITION SPECIFIED AT N+1,",
                             "BUT NO GROIN SPECIFIED AT N+1"};

const std::vector<Refusal> ROWS{
    {"left_type_4", {{"LBCTYPE", "4"}}, {}, WRONG_LEFT_TYPE},
    {"left_type_below_0", {{"LBCTYPE", "-1"}}, {}, WRONG_LEFT_TYPE},
    {"right_type_4", {{"RBCTYPE", "4"}}, {}, WRONG_RIGHT_TYPE},
    {"right_type_below_0", {{"RBCTYPE", "-1"}}, {}, WRONG_RIGHT_TYPE},
    {"groin_on_a_pinned_left_end",
     {},
     groin(1),
     {" ERROR. BOTH \"PINNED-BEACH\" BOUNDARY CONDITION AND A",
      " GROIN ARE SPECIFIED ON THE LEFT-HAND MODEL BOUNDARY.",
      " NOT ALLOWED. PLEASE CHANGE YOUR .cfg FILE."}},
    {"groin_on_a_pinned_right_end",
     {},
     groin(21),
     {" ERROR. BOTH \"PINNED-BEACH\" BOUNDARY CONDITION AND A",
      " GROIN ARE SPECIFIED ON THE RIGHT-HAND MODEL BOUNDARY.",
      " NOT ALLOWED. PLEASE CHANGE YOUR .cfg FILE."}},
    {"groin_on_a_moving_left_end",
     {{"LBCTYPE", "3"}, {"LMOVPER", "1"}},
     groin(1),
     {" ERROR. BOTH \"MOVING-SHORELINE\" BOUNDARY CONDITION AND",
      " A GROIN ARE SPECIFIED ON THE LEFT-HAND MODEL BOUNDARY.",
      " NOT ALLOWED. PLEASE CHANGE YOUR .cfg FILE."}},
    {"groin_on_a_moving_right_end",
     {{"RBCTYPE", "3"}, {"RMOVPER", "1"}},
     groin(21),
     {" ERROR. BOTH \"MOVING-SHORELINE\" BOUNDARY CONDITION AND",
      " A GROIN ARE SPECIFIED ON THE RIGHT-HAND MODEL  BOUNDARY.",
      " NOT ALLOWED. PLEASE CHANGE YOUR .cfg FILE."}},
    {"left_period_left_out", {{"LBCTYPE", "3"}}, {}, WRONG_LEFT_PERIOD},
    {"left_period_4", {{"LBCTYPE", "3"}, {"LMOVPER", "4"}}, {}, WRONG_LEFT_PERIOD},
    {"right_period_left_out", {{"RBCTYPE", "3"}}, {}, WRONG_RIGHT_PERIOD},
    {"right_period_4", {{"RBCTYPE", "3"}, {"RMOVPER", "4"}}, {}, WRONG_RIGHT_PERIOD},
    {"right_groin_type_without_any_groin", {{"RBCTYPE", "1"}}, {}, NO_GROIN_AT_GATE},
    {"right_gated_type_without_any_groin", {{"RBCTYPE", "2"}}, {}, NO_GROIN_AT_GATE},
    {"right_groin_type_without_a_groin_there", {{"RBCTYPE", "1"}}, groin(8), NO_GROIN_AT_GATE},
};

class boundary_checks_refuse : public testing::TestWithParam<Refusal> {};

TEST_P(boundary_checks_refuse, with_their_lines_and_the_first_once_more) {
  expect_refused(GetParam());
}

INSTANTIATE_TEST_SUITE_P(rows, boundary_checks_refuse, testing::ValuesIn(ROWS), name_of_row);

const Lines LEFT_PINNED{" WARNING. \"PINNED-BEACH\" BOUNDARY CONDITION SPECIFIED",
                        " ON LEFT-HAND MODEL BOUNDARY AND A RATE OF SHORELINE",
                        " CHANGE WAS ALSO SPECIFIED.  RATE OF SHORELINE CHANGE",
                        " ON LEFT-HAND BOUNDARY REASSIGNED TO ZERO."};
const Lines RIGHT_PINNED{" WARNING. \"PINNED-BEACH\" BOUNDARY CONDITION SPECIFIED",
                         " ON RIGHT-HAND MODEL BOUNDARY AND A RATE OF SHORELINE",
                         " CHANGE WAS ALSO SPECIFIED.  RATE OF SHORELINE CHANGE",
                         " ON RIGHT-HAND BOUNDARY REASSIGNED TO ZERO."};
const Lines LEFT_ZERO{" WARNING. DISTANCE FROM GROIN TIP ON LEFT-HAND BOUNDARY",
                      " TO SHORELINE OUTSIDE GRID SPECIFIED AS ZERO. PLEASE",
                      " VERIFY VALUE OF \"LGROINY\" IN YOUR .cfg FILE."};
const Lines RIGHT_ZERO{" WARNING. DISTANCE FROM GROIN TIP ON RIGHT-HAND BOUNDARY",
                       " TO SHORELINE OUTSIDE GRID SPECIFIED AS ZERO. PLEASE",
                       " VERIFY VALUE OF \"RGROINY\" IN YOUR .cfg FILE."};

TEST(boundary_warnings, a_movement_of_a_pinned_end_is_told_and_dropped) {
  Case pinned(Changes{
      {"LMOVY", "2"}, {"LMOVPER", "3"}, {"RMOVY", "-2"}, {"RMOVPER", "3"}, {"SIMDATE", "4"}});
  pinned.with("waves.dat", "0 8 0\n").run();
  expect_completed(pinned);
  EXPECT_EQ(pinned.outcome.out,
            text_of({opening(), free_lines(LEFT_PINNED), free_lines(RIGHT_PINNED), banner(),
                     begins(), year_block(0, 4, 19970101), closing()}));
  // The whole run is calm, in which a moving end would move.
  EXPECT_EQ(pinned.table("slo").rows, std::vector(5, std::vector<double>(20, 100.0)));
}

TEST(boundary_warnings, an_end_without_a_rate_of_movement_says_nothing) {
  Case pinned(Changes{{"LMOVY", "0"}, {"LMOVPER", "3"}});
  pinned.run();
  expect_completed(pinned);
  EXPECT_EQ(occurrences(pinned.outcome.out, "WARNING"), 0);
}

TEST(boundary_warnings, a_gated_left_end_needs_no_groin_but_is_told_of_its_distance) {
  for (const char* type : {"1", "2"}) {
    Case gated(Changes{{"LBCTYPE", type}, {"SIMDATE", "4"}});
    gated.run();
    expect_completed(gated);
    EXPECT_EQ(gated.outcome.out, text_of({opening(), free_lines(LEFT_ZERO), banner(), begins(),
                                          year_block(0, 4, 19970101), closing()}));
  }
}

TEST(boundary_warnings, a_distance_of_the_left_groin_that_is_given_says_nothing) {
  Case gated(Changes{{"LBCTYPE", "1"}, {"LGROINY", "-0.5"}});
  gated.run();
  expect_completed(gated);
  EXPECT_EQ(occurrences(gated.outcome.out, "WARNING"), 0);
}

TEST(boundary_warnings, a_gated_right_end_is_told_of_its_distance) {
  Case gated(Changes{{"RBCTYPE", "1"}}, groin(21));
  gated.run();
  EXPECT_EQ(occurrences(gated.outcome.out, text_of({opening(), free_lines(RIGHT_ZERO)})), 1);
  expect_completed(gated);
}

}  // namespace
}  // namespace kelptest
