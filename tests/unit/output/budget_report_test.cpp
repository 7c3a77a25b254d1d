#include "output/budget_report.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <utility>

#include "text/free_format.h"
#include "unit/output/budget_case.h"

namespace kelprun {
namespace {

using kelptest::Lines;
using kelptest::put;
using kelptest::YARD3;

class budget_report : public kelptest::BudgetReport {};

TEST_F(budget_report, without_budget_cell_or_arrow_there_is_no_block) {
  add_inlet(4, 6);
  EXPECT_EQ(whole(), Lines{});
}

// Budget cells. The words stand in the pieces that they are put together from.

TEST_F(budget_report, a_cell_without_fill_or_bypass_has_its_range_and_its_volume_change) {
  put(m.ledgers.VOLCELL, std::array{1.0f, 1000.5f, 499.5f, -200.0f, 8000.0f});
  add_cell(2, 4);
  EXPECT_EQ(entries(), (Lines{"  LEDG CELL 1", "     KELPRUN GRID CELL RANGE: ",
                              "         STARTING GRID CELL:        "
                              "2",
                              "         ENDING   GRID CELL:        "
                              "4",
                              "     VOLUME CHANGE (M3"
                              "):             "
                              "     "
                              "1300.",
                              "     AVG. VOLUME CHANGE RATE (M3"
                              "/YR):"
                              "     "
                              "650.",
                              ""}));
}

TEST_F(budget_report, cells_come_in_the_order_of_the_configuration) {
  put(m.ledgers.VOLCELL,
      std::array{1.0f, 2.0f, 4.0f, 8.0f, 16.0f, 32.0f, 64.0f, 0.0f, 0.0f, -5.0f});
  add_cell(7, 10);
  add_cell(1, 1);
  add_cell(1, 10);
  const Lines all = entries();
  ASSERT_EQ(all.size(), 21u);
  EXPECT_EQ(all[0], "  LEDG CELL 1");
  EXPECT_EQ(all[2], "         STARTING GRID CELL:        7");
  EXPECT_EQ(all[3], "         ENDING   GRID CELL:        10");
  EXPECT_EQ(all[4], "     VOLUME CHANGE (M3):                  59.");
  EXPECT_EQ(all[7], "  LEDG CELL 2");
  EXPECT_EQ(all[11], "     VOLUME CHANGE (M3):                  1.");
  EXPECT_EQ(all[12], "     AVG. VOLUME CHANGE RATE (M3/YR):     0.5");
  EXPECT_EQ(all[14], "  LEDG CELL 3");
  EXPECT_EQ(all[18], "     VOLUME CHANGE (M3):                  122.");
}

/// Fills and bypassing in cells 2 and 3, the sums of which are powers of two of `unit`.
void move_sand(Ledgers& l, float unit) {
  put(l.VOLCELL, std::array{0.0f, 512.0f * unit, 512.0f * unit});
  put(l.VFILLP, std::array{7.0f, 32.0f * unit, 32.0f * unit, 7.0f});
  put(l.VFILLN, std::array{-7.0f, -16.0f * unit, -16.0f * unit, -7.0f});
  put(l.VBYPP, std::array{7.0f, 8.0f * unit, 8.0f * unit, 7.0f});
  put(l.VBYPN, std::array{-7.0f, -4.0f * unit, -4.0f * unit, -7.0f});
}

TEST_F(budget_report, a_cell_with_fills_and_bypassing_shows_five_pairs) {
  move_sand(m.ledgers, 1.0f);
  add_cell(2, 3);
  EXPECT_EQ(entries(), (Lines{"  LEDG CELL 1", "     KELPRUN GRID CELL RANGE: ",
                              "         STARTING GRID CELL:        "
                              "2",
                              "         ENDING   GRID CELL:        "
                              "3",
                              "     VOLUME CHANGE (M3"
                              "):             "
                              "     "
                              "1024.",
                              "     AVG. VOLUME CHANGE RATE (M3"
                              "/YR):"
                              "     "
                              "512.",
                              "",
                              "     BEACH FILL VOLUME PLACEMENT (M3"
                              "):    "
                              "64.",
                              "     AVG. BEACH FILL RATE (M3"
                              "/YR):"
                              "        "
                              "32.",
                              "",
                              // A number is set off by a blank from the parenthesis.
                              "     BEACH EXCAVATION VOLUME REMOVAL (M3"
                              ")"
                              " -32.",
                              "     AVG. BEACH EXCAVATION RATE (M3"
                              "/YR):  "
                              "-16.",
                              "",
                              "     BYPASS SOURCE VOLUME PLACEMENT (M3"
                              "): "
                              "16.",
                              "     AVG. BYPASS SOURCE RATE (M3"
                              "/YR):     "
                              "8.",
                              "",
                              "     BYPASS SINK VOLUME REMOVAL (M3"
                              "):     "
                              "-8.",
                              "     AVG. BYPASS SINK RATE (M3"
                              "/YR):"
                              "       "
                              "-4.",
                              ""}));
}

TEST_F(budget_report, feet_give_cubic_yards_and_their_label) {
  use_feet();
  move_sand(m.ledgers, YARD3);
  add_cell(2, 3);
  EXPECT_EQ(entries(),
            (Lines{"  LEDG CELL 1", "     KELPRUN GRID CELL RANGE: ",
                   "         STARTING GRID CELL:        2", "         ENDING   GRID CELL:        3",
                   "     VOLUME CHANGE (CY):                  1024.",
                   "     AVG. VOLUME CHANGE RATE (CY/YR):     512.", "",
                   "     BEACH FILL VOLUME PLACEMENT (CY):    64.",
                   "     AVG. BEACH FILL RATE (CY/YR):        32.", "",
                   "     BEACH EXCAVATION VOLUME REMOVAL (CY) -32.",
                   "     AVG. BEACH EXCAVATION RATE (CY/YR):  -16.", "",
                   "     BYPASS SOURCE VOLUME PLACEMENT (CY): 16.",
                   "     AVG. BYPASS SOURCE RATE (CY/YR):     8.", "",
                   "     BYPASS SINK VOLUME REMOVAL (CY):     -8.",
                   "     AVG. BYPASS SINK RATE (CY/YR):       -4.", ""}));
}

TEST_F(budget_report, a_pair_stands_only_where_its_sum_passes_a_hundredth_of_a_cubic_metre) {
  const float limit = 0.01f;
  const float above = std::nextafter(limit, 1.0f);
  const float below = std::nextafter(limit, 0.0f);
  struct Case {
    PerCell<float> Ledgers::*ledger;
    float sign;
    const char* words;
  };
  add_cell(2, 4);
  for (const Case& c :
       {Case{&Ledgers::VFILLP, 1.0f, "     BEACH FILL VOLUME PLACEMENT (M3):    "},
        Case{&Ledgers::VFILLN, -1.0f, "     BEACH EXCAVATION VOLUME REMOVAL (M3) "},
        Case{&Ledgers::VBYPP, 1.0f, "     BYPASS SOURCE VOLUME PLACEMENT (M3): "},
        Case{&Ledgers::VBYPN, -1.0f, "     BYPASS SINK VOLUME REMOVAL (M3):     "}}) {
    PerCell<float>& volumes = m.ledgers.*c.ledger;
    for (const float size : {below, limit}) {
      volumes(3) = c.sign * size;
      EXPECT_EQ(behind_volume_change(), Lines{}) << c.words << size;
    }
    volumes(3) = c.sign * above;
    const Lines lines = behind_volume_change();
    ASSERT_EQ(lines.size(), 3u) << c.words;
    EXPECT_EQ(lines[0], c.words + free_number(static_cast<double>(c.sign * above)));
    EXPECT_EQ(lines[2], "");
    // Sand of the other sign is not shown in this place.
    volumes(3) = -c.sign;
    EXPECT_EQ(behind_volume_change(), Lines{}) << c.words;
    volumes(3) = 0.0f;
  }
}

TEST_F(budget_report, the_limit_is_for_the_sum_of_the_cell_and_for_cubic_metres) {
  use_feet();
  add_cell(1, 2);
  put(m.ledgers.VFILLP, std::array{0.006f, 0.006f});
  EXPECT_EQ(behind_volume_change().size(), 3u);
  // 0.012 cubic yards are 0.0092 m3.
  put(m.ledgers.VFILLP, std::array{0.012f * YARD3, 0.0f});
  EXPECT_EQ(behind_volume_change(), Lines{});
}

TEST_F(budget_report, sums_of_a_cell_are_formed_in_double_precision) {
  put(m.ledgers.VOLCELL, std::array{16777216.0f, 1.0f, 0.1f});
  add_cell(1, 3);
  const double sum = 16777217.0 + static_cast<double>(0.1f);
  EXPECT_EQ(entries()[4], "     VOLUME CHANGE (M3):                  " + free_number(sum));
  EXPECT_EQ(entries()[5], "     AVG. VOLUME CHANGE RATE (M3/YR):     " + free_number(sum / 2.0));
}

TEST_F(budget_report, the_years_of_the_run_are_a_single_precision_number) {
  m.clock.NDAYS = 731;
  m.ledgers.VOLCELL(1) = 1000.0f;
  add_cell(1, 1);
  const float YR = 731.0f / 365.0f;
  const double rate = 1000.0 / static_cast<double>(YR);
  EXPECT_NE(rate, 1000.0 / (731.0 / 365.0));
  EXPECT_EQ(entries()[5], "     AVG. VOLUME CHANGE RATE (M3/YR):     " + free_number(rate));
}

TEST_F(budget_report, a_range_that_runs_backwards_holds_nothing) {
  m.ledgers.VOLCELL.fill(5.0f);
  m.ledgers.VFILLP.fill(5.0f);
  add_cell(6, 3);
  const Lines all = entries();
  ASSERT_EQ(all.size(), 7u);
  EXPECT_EQ(all[2], "         STARTING GRID CELL:        6");
  EXPECT_EQ(all[3], "         ENDING   GRID CELL:        3");
  EXPECT_EQ(all[4], "     VOLUME CHANGE (M3):                  0.");
  EXPECT_EQ(all[5], "     AVG. VOLUME CHANGE RATE (M3/YR):     0.");
}

TEST_F(budget_report, a_run_told_by_its_number_of_steps_divides_by_no_years) {
  m.clock.NDAYS = 0;
  m.ledgers.VOLCELL(1) = -3.0f;
  m.ledgers.VFILLP(1) = 2.0f;
  add_cell(1, 1);
  add_cell(2, 2);
  const Lines all = entries();
  ASSERT_EQ(all.size(), 17u);
  EXPECT_EQ(all[4], "     VOLUME CHANGE (M3):                  -3.");
  EXPECT_EQ(all[5], "     AVG. VOLUME CHANGE RATE (M3/YR):     -Infinity");
  EXPECT_EQ(all[8], "     AVG. BEACH FILL RATE (M3/YR):        Infinity");
  EXPECT_EQ(all[15], "     AVG. VOLUME CHANGE RATE (M3/YR):     NaN");
}

// Inlets beside and inside a budget cell.

void route_sand(InletFlow& flow, float unit) {
  flow.VQIN = 1024.0f * unit;
  flow.VQOUT = 256.0f * unit;
  flow.VDREDP = -16.0f * unit;
  flow.VDREDR = -48.0f * unit;
}

TEST_F(budget_report, a_cell_that_holds_an_inlet_shows_its_volumes) {
  route_sand(add_inlet(4, 6), 1.0f);
  add_cell(4, 6);
  EXPECT_EQ(behind_volume_change(), (Lines{"     LEDG CELL INCLUDES INLET:           "
                                           "South",
                                           "     VOLUME TRANSPORTED INTO INLET (M3"
                                           "):  "
                                           "1024.",
                                           "     VOLUME TRANSPORTED FROM INLET (M3"
                                           "):  "
                                           "256.",
                                           "     DREDGED VOLUME PLACEMENT (M3"
                                           ":       "
                                           "-16.",
                                           "     DREDGED VOLUME REMOVAL (M3"
                                           "): "
                                           "        "
                                           "-48.",
                                           "     INLET VOLUME CHANGE (M3"
                                           "):    "
                                           "        "
                                           "704.",
                                           "     AVG. DREDGED PLACEMENT RATE (M3"
                                           "/YR): "
                                           "-8.",
                                           "     AVG. DREDGED REMOVAL RATE (M3"
                                           "/YR):   "
                                           "-24.",
                                           "     AVG. INLET VOL. CHANGE RATE (M3"
                                           "/YR): "
                                           "352."}));
}

TEST_F(budget_report, an_inlet_in_cubic_yards) {
  use_feet();
  route_sand(add_inlet(4, 6), YARD3);
  add_cell(4, 6);
  const Lines lines = behind_volume_change();
  ASSERT_EQ(lines.size(), 9u);
  EXPECT_EQ(lines[1], "     VOLUME TRANSPORTED INTO INLET (CY):  1024.");
  EXPECT_EQ(lines[2], "     VOLUME TRANSPORTED FROM INLET (CY):  256.");
  EXPECT_EQ(lines[3], "     DREDGED VOLUME PLACEMENT (CY:       -16.");
  EXPECT_EQ(lines[6], "     AVG. DREDGED PLACEMENT RATE (CY/YR): -8.");
}

TEST_F(budget_report, the_volumes_of_an_inlet_are_single_precision_numbers_taken_in_their_order) {
  // 2^24 and one unit: each dredged volume alone is lost, the sum of both would not be.
  InletFlow& flow = add_inlet(4, 6);
  flow.VQIN = 0.1f;
  add_cell(4, 6);
  EXPECT_EQ(behind_volume_change()[1], "     VOLUME TRANSPORTED INTO INLET (M3):  0.1");
  flow.VQIN = 0.0f;
  flow.VQOUT = 16777216.0f;
  flow.VDREDP = -1.0f;
  flow.VDREDR = -1.0f;
  EXPECT_EQ(behind_volume_change()[5], "     INLET VOLUME CHANGE (M3):            -16777216.");
}

TEST_F(budget_report, a_cell_that_covers_the_inlet_and_more_holds_it) {
  add_inlet(4, 6);
  for (const auto& [first, last] : {std::pair{3, 8}, {4, 7}, {1, 6}, {1, 10}}) {
    m.budget = {};
    add_cell(first, last);
    const Lines lines = behind_volume_change();
    ASSERT_EQ(lines.size(), 9u) << first << " to " << last;
    EXPECT_EQ(lines[0], "     LEDG CELL INCLUDES INLET:           South");
  }
}

TEST_F(budget_report, a_cell_that_ends_beside_an_inlet_is_warned_of_its_neighbour) {
  add_inlet(4, 6);
  for (const auto& [first, last] : {std::pair{1, 3}, {3, 3}, {7, 10}, {7, 7}}) {
    m.budget = {};
    add_cell(first, last);
    EXPECT_EQ(behind_volume_change(), (Lines{"     WARNING: LEDG CELL "
                                             "1",
                                             "     IS ADJACENT TO BOUNDARY OF INLET: "
                                             "South",
                                             "     INLET VOLUME CONTRIBUTION "
                                             "NOT INCLUDED IN CALCULATION"}))
        << first << " to " << last;
  }
}

TEST_F(budget_report, a_cell_with_a_part_of_an_inlet_is_warned_of_it) {
  add_inlet(4, 7);
  // The left end inside, the right end inside, both.
  for (const auto& [first, last] :
       {std::pair{5, 9}, {6, 7}, {1, 5}, {4, 6}, {5, 6}, {5, 5}, {6, 10}}) {
    m.budget = {};
    add_cell(first, last);
    EXPECT_EQ(behind_volume_change(), (Lines{"     WARNING: LEDG CELL "
                                             "1"
                                             " ONLY "
                                             "CONTAINS PART OF INLET: "
                                             "South",
                                             "     INLET VOLUME CONTRIBUTION "
                                             "NOT INCLUDED IN CALCULATION"}))
        << first << " to " << last;
  }
}

TEST_F(budget_report, a_cell_that_only_touches_an_end_of_an_inlet_gets_neither_lines_nor_warning) {
  add_inlet(4, 7);
  for (const auto& [first, last] : {std::pair{7, 10}, {7, 7}, {1, 4}, {4, 4}}) {
    m.budget = {};
    add_cell(first, last);
    EXPECT_EQ(behind_volume_change(), Lines{}) << first << " to " << last;
  }
}

TEST_F(budget_report, a_cell_away_from_an_inlet_knows_nothing_of_it) {
  add_inlet(4, 6);
  for (const auto& [first, last] : {std::pair{1, 2}, {8, 10}}) {
    m.budget = {};
    add_cell(first, last);
    EXPECT_EQ(behind_volume_change(), Lines{}) << first << " to " << last;
  }
}

TEST_F(budget_report, an_inlet_of_one_cell_is_held_or_a_neighbour) {
  add_inlet(5, 5);
  add_cell(5, 5);
  EXPECT_EQ(behind_volume_change().size(), 9u);
  m.budget = {};
  add_cell(2, 4);
  EXPECT_EQ(behind_volume_change().size(), 3u);
}

TEST_F(budget_report, each_inlet_is_looked_at_in_turn_behind_the_pairs) {
  move_sand(m.ledgers, 1.0f);
  add_inlet(2, 3, "  North Pass ");
  add_inlet(9, 10, "");
  add_inlet(6, 8, "West");
  add_cell(1, 8);
  add_cell(1, 7);
  const Lines all = entries();
  ASSERT_EQ(all.size(), 2u * 19u + 9u + 3u + 9u + 9u + 2u);
  EXPECT_EQ(all[18], "") << "end of the last pair";
  EXPECT_EQ(all[19], "     LEDG CELL INCLUDES INLET:           North Pass");
  EXPECT_EQ(all[28], "     WARNING: LEDG CELL 1");
  EXPECT_EQ(all[29], "     IS ADJACENT TO BOUNDARY OF INLET: Inlet2");
  EXPECT_EQ(all[31], "     LEDG CELL INCLUDES INLET:           West");
  EXPECT_EQ(all[40], "  LEDG CELL 2");
  EXPECT_EQ(all[59], "     LEDG CELL INCLUDES INLET:           North Pass");
  EXPECT_EQ(all[68], "     WARNING: LEDG CELL 2 ONLY CONTAINS PART OF INLET: West");
}

TEST_F(budget_report, an_inlet_over_no_years) {
  m.clock.NDAYS = 0;
  InletFlow& flow = add_inlet(4, 6);
  flow.VDREDR = -5.0f;
  add_cell(4, 6);
  const Lines lines = behind_volume_change();
  ASSERT_EQ(lines.size(), 9u);
  EXPECT_EQ(lines[6], "     AVG. DREDGED PLACEMENT RATE (M3/YR): NaN");
  EXPECT_EQ(lines[7], "     AVG. DREDGED REMOVAL RATE (M3/YR):   -Infinity");
  EXPECT_EQ(lines[8], "     AVG. INLET VOL. CHANGE RATE (M3/YR): -Infinity");
}

}  // namespace
}  // namespace kelprun
