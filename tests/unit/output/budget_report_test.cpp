#include "output/budget_report.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "text/free_format.h"
#include "unit/inlets/inlet_case.h"
#include "unit/output/report_case.h"

namespace kelprun {
namespace {

using kelptest::put;
using kelptest::YARD3;
using Lines = std::vector<std::string>;

const Lines HEAD{" " + std::string(46, ' '), " " + std::string(63, '*'),
                 " *                         LEDG OUTPUT                         *",
                 " " + std::string(63, '*')};
const Lines END{"  SIGN CONVENTION:  EROSION (-), ACCRETION (+)", " " + std::string(46, ' '),
                " " + std::string(63, '*')};

/// Ten cells over two years of 365 days, so that a rate is half a volume.
class budget_report : public testing::Test {
 protected:
  budget_report() : m(kelptest::coast_in_metres(10)) { m.clock.NDAYS = 730; }

  /// Lengths in feet, volumes in cubic yards.
  void use_feet() {
    m = kelptest::coast_in_feet(10);
    m.clock.NDAYS = 730;
  }

  void add_cell(std::int32_t first, std::int32_t last) {
    ++m.budget.NLEDGV;
    m.budget.ILEDGV1.append(first);
    m.budget.ILEDGV2.append(last);
  }

  void add_arrow(std::int32_t first, std::int32_t last) {
    ++m.budget.NLEDGQ;
    m.budget.ILEDGQ1.append(first);
    m.budget.ILEDGQ2.append(last);
  }

  InletFlow& add_inlet(std::int32_t first, std::int32_t last, const std::string& name = "South") {
    kelptest::add_inlet(m, first, last);
    m.inlets.INLNAME(m.inlets.NINL) = name;
    m.inlets.flows.resize(static_cast<std::size_t>(m.inlets.NINL));
    return m.inlets.flows(m.inlets.NINL);
  }

  Lines whole() { return kelptest::report_of(m, report_budget); }

  /// The entries between head and end.
  Lines entries() {
    const Lines all = whole();
    EXPECT_GE(all.size(), HEAD.size() + END.size());
    if (all.size() < HEAD.size() + END.size()) return {};
    const Lines head(all.begin(), all.begin() + 4);
    const Lines end(all.end() - 3, all.end());
    EXPECT_EQ(head, HEAD);
    EXPECT_EQ(end, END);
    return {all.begin() + 4, all.end() - 3};
  }

  /// What stands behind the range and the volume change of the only budget cell.
  Lines behind_volume_change() {
    const Lines all = entries();
    EXPECT_GE(all.size(), 7u);
    EXPECT_EQ(all[6], "");
    return {all.begin() + 7, all.end()};
  }

  /// What stands behind the two walls of the only arrow.
  Lines behind_walls() {
    const Lines all = entries();
    EXPECT_GE(all.size(), 14u);
    return {all.begin() + 14, all.end()};
  }

  Model m;
};

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

// Flux arrows.

void carry_sand(Ledgers& l) {
  put(l.QRIGHTSUM, std::array{1.0f, 2.5f, 3.0f, 4.0f, 5.0f});
  put(l.QLEFTSUM, std::array{-6.0f, -7.0f, -8.0f, -9.75f, -10.0f});
  put(l.QRIGHTMEAN, std::array{11.0, 12.0, 13.0, 14.0, 15.0});
  put(l.QLEFTMEAN, std::array{-16.0, -17.0, -18.0, -19.0, -20.0});
}

TEST_F(budget_report, an_arrow_shows_the_transports_of_its_two_walls) {
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

TEST_F(budget_report, transports_are_in_reporting_units_already) {
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

TEST_F(budget_report, arrows_follow_the_budget_cells) {
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

TEST_F(budget_report, an_arrow_at_a_mouth_shows_what_passed_there) {
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

TEST_F(budget_report, an_arrow_across_an_inlet_shows_both_mouths_its_first_wall_first) {
  fill_mouths(add_inlet(4, 6), 1.0f);
  add_arrow(4, 7);
  EXPECT_EQ(behind_walls(), joined(LEFT_MOUTH, RIGHT_MOUTH));
  m.budget = {};
  add_arrow(7, 4);
  EXPECT_EQ(behind_walls(), joined(RIGHT_MOUTH, LEFT_MOUTH));
}

TEST_F(budget_report, an_arrow_of_one_wall_shows_its_mouth_for_each_end) {
  fill_mouths(add_inlet(4, 6), 1.0f);
  add_arrow(4, 4);
  EXPECT_EQ(behind_walls(), joined(LEFT_MOUTH, LEFT_MOUTH));
  m.budget = {};
  add_arrow(7, 7);
  EXPECT_EQ(behind_walls(), joined(RIGHT_MOUTH, RIGHT_MOUTH));
}

TEST_F(budget_report, mouths_in_cubic_yards) {
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

TEST_F(budget_report, neighbouring_inlets_take_turns_at_their_common_wall) {
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

TEST_F(budget_report, signs_of_a_mouth_print_as_they_come) {
  InletFlow& flow = add_inlet(4, 6);
  flow.left.VQIE = 5.0f;
  add_arrow(4, 7);
  const Lines lines = behind_walls();
  ASSERT_EQ(lines.size(), 12u);
  EXPECT_EQ(lines[2], "         VOL. INTO INLET LEFT TO RIGHT 0.");
  EXPECT_EQ(lines[3], "         VOL. FROM INLET RIGHT TO LEFT -0.");
  EXPECT_EQ(lines[8], "         VOL. INTO INLET RIGHT TO LEFT -5.");
}

TEST_F(budget_report, mouths_over_no_years) {
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
