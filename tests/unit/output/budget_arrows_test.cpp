#include "output/budget_report.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "unit/output/budget_case.h"

namespace kelprun {
namespace {

using kelptest::Lines;
using kelptest::put;
using kelptest::YARD3;

class budget_arrows : public kelptest::BudgetReport {};

void carry_sand(Ledgers& l) {
  put(l.QRIGHTSUM, std::array{1.0f, 2.5f, 3.0f, 4.0f, 5.0f});
  put(l.QLEFTSUM, std::array{-6.0f, -7.0f, -8.0f, -9.75f, -10.0f});
  put(l.QRIGHTMEAN, std::array{11.0, 12.0, 13.0, 14.0, 15.0});
  put(l.QLEFTMEAN, std::array{-16.0, -17.0, -18.0, -19.0, -20.0});
}

TEST_F(budget_arrows, an_arrow_shows_the_transports_of_its_two_walls) {
  carry_sand(m.ledgers);
  add_arrow(2, 4);
  EXPECT_EQ(entries(), (Lines{"  LEDG FLUX ARROW 1", "     KELPRUN GRID CELL RANGE: ",
                              "         STARTING GRID CELL-WALL:   "
                              "2",
                              "         ENDING   GRID CELL-WALL:   "
                              "4",
                              "     TRANSPORT AT GRID CELL-WALL:   "
                              "2",
                              "         VOLUME TO RIGHT (M3"
                              "):     "
                              "       "
                              "2.5",
                              "         VOLUME TO LEFT  (M3"
                              "):     "
                              "       "
                              "-7.",
                              "         AVG. RATE TO RIGHT (M3"
                              "/YR):"
                              "      "
                              "12.",
                              "         AVG. RATE TO LEFT  (M3"
                              "/YR):"
                              "      "
                              "-17.",
                              "     TRANSPORT AT GRID CELL-WALL:   "
                              "4",
                              "         VOLUME TO RIGHT (M3"
                              "):     "
                              "       "
                              "4.",
                              "         VOLUME TO LEFT (M3"
                              "):      "
                              "-9.75",
                              "         AVG. RATE TO RIGHT (M3"
                              "/YR):"
                              "      "
                              "14.",
                              "         AVG. RATE TO LEFT  (M3"
                              "/YR):"
                              "      "
                              "-19."}));
}

TEST_F(budget_arrows, transports_are_in_reporting_units_already) {
  use_feet();
  carry_sand(m.ledgers);
  m.ledgers.QRIGHTSUM(2) = 1.0f / 3.0f;
  m.ledgers.QRIGHTMEAN(2) = 1.0 / 3.0;
  add_arrow(2, 4);
  const Lines all = entries();
  ASSERT_EQ(all.size(), 14u);
  EXPECT_EQ(all[5], "         VOLUME TO RIGHT (CY):            0.33333334");
  EXPECT_EQ(all[6], "         VOLUME TO LEFT  (CY):            -7.");
  EXPECT_EQ(all[7], "         AVG. RATE TO RIGHT (CY/YR):      0.3333333333333333");
  EXPECT_EQ(all[11], "         VOLUME TO LEFT (CY):      -9.75");
}

TEST_F(budget_arrows, arrows_follow_the_budget_cells) {
  add_cell(1, 2);
  add_arrow(11, 1);
  add_arrow(3, 3);
  const Lines all = entries();
  ASSERT_EQ(all.size(), 7u + 2u * 14u);
  EXPECT_EQ(all[0], "  LEDG CELL 1");
  EXPECT_EQ(all[7], "  LEDG FLUX ARROW 1");
  EXPECT_EQ(all[9], "         STARTING GRID CELL-WALL:   11");
  EXPECT_EQ(all[10], "         ENDING   GRID CELL-WALL:   1");
  EXPECT_EQ(all[11], "     TRANSPORT AT GRID CELL-WALL:   11");
  EXPECT_EQ(all[16], "     TRANSPORT AT GRID CELL-WALL:   1");
  EXPECT_EQ(all[21], "  LEDG FLUX ARROW 2");
  EXPECT_EQ(all[25], "     TRANSPORT AT GRID CELL-WALL:   3");
  EXPECT_EQ(all[30], "     TRANSPORT AT GRID CELL-WALL:   3");
}

/// Every store of the mouths with a value of its own; sand that moves left counts negative.
void fill_mouths(InletFlow& flow, float unit) {
  flow.right.VQIE = 100.0f * unit;
  flow.right.VQC = 28.0f * unit;
  flow.right.VQOUT = 512.0f * unit;
  flow.left.VQIE = -24.0f * unit;
  flow.left.VQC = -8.0f * unit;
  flow.left.VQOUT = -64.0f * unit;
  flow.VQIN = 7777.0f;
  flow.VQOUT = 8888.0f;
}

const Lines LEFT_MOUTH{
    "     LEDG FLUX ARROW ADJACENT TO INLET:  "
    "South",
    "     TRANSPORT INTO OR OUT OF INLET AT "
    "CELL-WALL:"
    " 4",
    "         VOL. INTO INLET LEFT TO RIGHT "
    "128.",
    "         VOL. FROM INLET RIGHT TO LEFT "
    "64.",
    "         AVG. RATE INTO INLET L TO R"
    "/YR):"
    " 64.",
    "         AVG. RATE FROM INLET R TO L"
    "/YR):"
    " 32."};
const Lines RIGHT_MOUTH{
    "     LEDG FLUX ARROW ADJACENT TO INLET:  "
    "South",
    "     TRANSPORT INTO OR OUT OF INLET AT "
    "CELL-WALL:"
    " 7",
    "         VOL. INTO INLET RIGHT TO LEFT "
    "32.",
    "         VOL. FROM INLET LEFT TO RIGHT "
    "512.",
    "         AVG. RATE INTO INLET R TO L"
    "/YR):"
    " 16.",
    "         AVG. RATE FROM INLET L TO R"
    "/YR):"
    " 256."};

Lines joined(const Lines& first, const Lines& second) {
  Lines both = first;
  both.insert(both.end(), second.begin(), second.end());
  return both;
}

TEST_F(budget_arrows, an_arrow_at_a_mouth_shows_what_passed_there) {
  fill_mouths(add_inlet(4, 6), 1.0f);
  struct Case {
    std::int32_t first, last;
    Lines lines;
  };
  for (const Case& c : {Case{2, 4, LEFT_MOUTH}, Case{4, 5, LEFT_MOUTH}, Case{3, 7, RIGHT_MOUTH},
                        Case{7, 9, RIGHT_MOUTH}, Case{5, 6, {}}, Case{3, 8, {}}}) {
    m.budget = {};
    add_arrow(c.first, c.last);
    EXPECT_EQ(behind_walls(), c.lines) << c.first << " to " << c.last;
  }
}

TEST_F(budget_arrows, an_arrow_across_an_inlet_shows_both_mouths_its_first_wall_first) {
  fill_mouths(add_inlet(4, 6), 1.0f);
  add_arrow(4, 7);
  EXPECT_EQ(behind_walls(), joined(LEFT_MOUTH, RIGHT_MOUTH));
  m.budget = {};
  add_arrow(7, 4);
  EXPECT_EQ(behind_walls(), joined(RIGHT_MOUTH, LEFT_MOUTH));
}

TEST_F(budget_arrows, an_arrow_of_one_wall_shows_its_mouth_for_each_end) {
  fill_mouths(add_inlet(4, 6), 1.0f);
  add_arrow(4, 4);
  EXPECT_EQ(behind_walls(), joined(LEFT_MOUTH, LEFT_MOUTH));
  m.budget = {};
  add_arrow(7, 7);
  EXPECT_EQ(behind_walls(), joined(RIGHT_MOUTH, RIGHT_MOUTH));
}

TEST_F(budget_arrows, mouths_in_cubic_yards) {
  use_feet();
  InletFlow& flow = add_inlet(4, 6);
  fill_mouths(flow, 0.0f);
  // One of each sum alone, so that it comes back from metres without a rounding.
  flow.right.VQIE = 128.0f * YARD3;
  flow.right.VQOUT = 512.0f * YARD3;
  flow.left.VQC = -32.0f * YARD3;
  flow.left.VQOUT = -64.0f * YARD3;
  add_arrow(4, 7);
  EXPECT_EQ(behind_walls(), joined(LEFT_MOUTH, RIGHT_MOUTH));
}

TEST_F(budget_arrows, neighbouring_inlets_take_turns_at_their_common_wall) {
  fill_mouths(add_inlet(4, 6, "South"), 1.0f);
  fill_mouths(add_inlet(7, 8, "North"), 1.0f);
  add_arrow(7, 9);
  const Lines lines = behind_walls();
  ASSERT_EQ(lines.size(), 18u);
  EXPECT_EQ(Lines(lines.begin(), lines.begin() + 6), RIGHT_MOUTH);
  EXPECT_EQ(lines[6], "     LEDG FLUX ARROW ADJACENT TO INLET:  North");
  EXPECT_EQ(lines[7], "     TRANSPORT INTO OR OUT OF INLET AT CELL-WALL: 7");
  EXPECT_EQ(lines[8], "         VOL. INTO INLET LEFT TO RIGHT 128.");
  EXPECT_EQ(lines[13], "     TRANSPORT INTO OR OUT OF INLET AT CELL-WALL: 9");
  EXPECT_EQ(lines[14], "         VOL. INTO INLET RIGHT TO LEFT 32.");
}

TEST_F(budget_arrows, signs_of_a_mouth_print_as_they_come) {
  InletFlow& flow = add_inlet(4, 6);
  flow.left.VQIE = 5.0f;
  add_arrow(4, 7);
  const Lines lines = behind_walls();
  ASSERT_EQ(lines.size(), 12u);
  EXPECT_EQ(lines[2], "         VOL. INTO INLET LEFT TO RIGHT 0.");
  EXPECT_EQ(lines[3], "         VOL. FROM INLET RIGHT TO LEFT -0.");
  EXPECT_EQ(lines[8], "         VOL. INTO INLET RIGHT TO LEFT -5.");
}

TEST_F(budget_arrows, mouths_over_no_years) {
  m.clock.NDAYS = 0;
  InletFlow& flow = add_inlet(4, 6);
  fill_mouths(flow, 1.0f);
  flow.right.VQOUT = 0.0f;
  add_arrow(4, 7);
  const Lines lines = behind_walls();
  ASSERT_EQ(lines.size(), 12u);
  EXPECT_EQ(lines[2], "         VOL. INTO INLET LEFT TO RIGHT 128.");
  EXPECT_EQ(lines[4], "         AVG. RATE INTO INLET L TO R/YR): Infinity");
  EXPECT_EQ(lines[5], "         AVG. RATE FROM INLET R TO L/YR): Infinity");
  EXPECT_EQ(lines[10], "         AVG. RATE INTO INLET R TO L/YR): Infinity");
  EXPECT_EQ(lines[11], "         AVG. RATE FROM INLET L TO R/YR): NaN");
}

}  // namespace
}  // namespace kelprun
