#include "coast/lee.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

#include "unit/coast/lee_case.h"

namespace kelprun {
namespace {

using kelptest::exact_lee;
using kelptest::fill;

/// Cells 3 to 8 of ten lie behind a breakwater; its tip walls are 3 and 9.
Model six_cells() { return exact_lee(10, 3, 8); }

using Shoreline = std::vector<double>;
using Walls = std::vector<float>;

Shoreline shoreline(const Model& m) { return {m.shore.Y.begin(), m.shore.Y.end()}; }
Walls walls(const Model& m) { return {m.transport.Q.begin(), m.transport.Q.end()}; }

/// Fills the lee of a coast and that of its mirror image, and looks at both.
void expect_filled(Model m, const Shoreline& Y, const Walls& Q) {
  Model r = kelptest::mirrored(m);
  fill(m);
  EXPECT_EQ(shoreline(m), Y);
  EXPECT_EQ(walls(m), Q);
  fill(r);
  EXPECT_EQ(shoreline(r), Shoreline(Y.rbegin(), Y.rend())) << "mirror image";
  Walls reversed(Q.rbegin(), Q.rend());
  for (float& rate : reversed) rate = -rate;
  EXPECT_EQ(walls(r), reversed) << "mirror image";
}

TEST(lee, sand_from_one_tip_is_laid_down_over_its_half_of_six_cells) {
  // The left half is cells 3 to 5, 6 m long. 6 m3/s were taken off at wall 3 and would fit: laid
  // down falling off with the distance from the tip, each metre of coast takes 1 m3/s. The
  // innermost cell 5 gets none: wall 5 holds 0, wall 4 what cell 4 takes, 2, and wall 3 what cells
  // 3 and 4 take, 4. So the two cells move by 2/2 = 1 m, cell 2 outside gives 4/2 = 2 m, and the
  // share of cell 5, 2 m3/s, stays outside.
  Model m = six_cells();
  m.transport.QBWTIP(3) = 6.0f;
  expect_filled(m, {0, -2, 1, 1, 0, 0, 0, 0, 0, 0}, {0, 0, 4, 2, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, an_end_cell_with_a_prescribed_movement_keeps_it) {
  // Cells 2 to 7 of eight: cell 1 would give 2 m, but its own wall brings what it gives.
  Model m = exact_lee(8, 2, 7);
  m.transport.QBWTIP(2) = 6.0f;
  Model free = m;
  fill(free);
  EXPECT_EQ(shoreline(free), (Shoreline{-2, 1, 1, 0, 0, 0, 0, 0}));
  m.boundaries.left.QBC = m.boundaries.right.QBC = true;
  Model r = kelptest::mirrored(m);
  fill(m);
  EXPECT_EQ(shoreline(m), (Shoreline{0, 1, 1, 0, 0, 0, 0, 0}));
  EXPECT_EQ(walls(m), (Walls{4, 4, 2, 0, 0, 0, 0, 0, 0}));
  fill(r);
  EXPECT_EQ(shoreline(r), (Shoreline{0, 0, 0, 0, 0, 1, 1, 0})) << "mirror image";
}

TEST(lee, a_cell_that_reaches_the_line_sends_the_rest_back_towards_the_tip) {
  // As above, but cell 4 has 0.5 m of room: it keeps 1 of its 2 m3/s, so that wall 4 holds 1. Cell
  // 3 then gets 4 - 1 = 3, which would move it by 1.5 m: it has room for 1 m, keeps 2, and wall 3
  // holds 3. Cell 2 gives 3/2 = 1.5 m.
  Model m = six_cells();
  m.transport.QBWTIP(3) = 6.0f;
  m.shore.YBW(4) = 0.5;
  m.shore.YBW(3) = 1.0;
  expect_filled(m, {0, -1.5, 1, 0.5, 0, 0, 0, 0, 0, 0}, {0, 0, 3, 1, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, no_more_is_taken_than_the_half_holds_up_to_the_line) {
  // Room of 1, 0.5 and 0 m in cells 3 to 5: rates of 2, 1 and 0 m3/s, so that CAP is 3 of the 60
  // taken off, 0.5 a metre: wall 4 holds 1, wall 3 2. Cells 3 and 4 move by 0.5 m each.
  Model m = six_cells();
  m.transport.QBWTIP(3) = 60.0f;
  m.shore.YBW(3) = 1.0;
  m.shore.YBW(4) = 0.5;
  m.shore.YBW(5) = 0.0;
  expect_filled(m, {0, -1, 0.5, 0.5, 0, 0, 0, 0, 0, 0}, {0, 0, 2, 1, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, the_room_is_measured_from_the_shoreline_at_entry_of_the_step) {
  // As above: at entry the shoreline was at 0, then a placement moved cell 3 by a quarter metre.
  Model m = six_cells();
  m.transport.QBWTIP(3) = 60.0f;
  m.shore.YBW(3) = 1.0;
  m.shore.YBW(4) = 0.5;
  m.shore.YBW(5) = 0.0;
  m.shore.Y(3) = m.shore.YBASE(3) = 0.25;
  expect_filled(m, {0, -1, 0.75, 0.5, 0, 0, 0, 0, 0, 0}, {0, 0, 2, 1, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, a_shoreline_that_has_advanced_leaves_less_room) {
  // The rooms of cells 3 to 5 are 1, 0.5 and 0 m again, with cell 3 at 0.25 m and its line at 1.25.
  Model m = six_cells();
  m.transport.QBWTIP(3) = 60.0f;
  m.shore.Y(3) = m.shore.YBASE(3) = m.shore.YPREV(3) = 0.25;
  m.shore.YBW(3) = 1.25;
  m.shore.YBW(4) = 0.5;
  m.shore.YBW(5) = 0.0;
  expect_filled(m, {0, -1, 0.75, 0.5, 0, 0, 0, 0, 0, 0}, {0, 0, 2, 1, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, a_shoreline_ahead_of_the_line_leaves_no_room_and_takes_nothing_out) {
  // Cells 3 to 5 lie at the line but for cell 3, which is ahead of it by less than counts as
  // passed: CAP would be negative and is 0. Cell 3 goes back to the line, its sand to cell 2.
  Model m = six_cells();
  m.transport.QBWTIP(3) = 6.0f;
  for (std::int32_t c = 3; c <= 5; ++c) m.shore.YBW(c) = 0.0;
  m.shore.Y(3) = m.shore.YBASE(3) = m.shore.YPREV(3) = 0.0009765625;
  expect_filled(m, {0, 0.0009765625, 0, 0, 0, 0, 0, 0, 0, 0},
                {0, 0, -0.001953125f, 0, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, sand_from_both_tips_goes_back_to_its_walls) {
  // 4 and 2 m3/s: all of it enters at the tips, cells 3 and 8 take it.
  Model m = six_cells();
  m.transport.QBWTIP(3) = 4.0f;
  m.transport.QBWTIP(9) = -2.0f;
  expect_filled(m, {0, -2, 2, 0, 0, 0, 0, 1, -1, 0}, {0, 0, 4, 0, 0, 0, 0, 0, -2, 0, 0});
}

TEST(lee, sand_that_goes_back_to_its_wall_stops_at_the_line_too) {
  // Cell 3 has room for 0.5 m, 1 m3/s.
  Model m = six_cells();
  m.transport.QBWTIP(3) = 4.0f;
  m.transport.QBWTIP(9) = -2.0f;
  m.shore.YBW(3) = 0.5;
  expect_filled(m, {0, -0.5, 0.5, 0, 0, 0, 0, 1, -1, 0}, {0, 0, 1, 0, 0, 0, 0, 0, -2, 0, 0});
}

TEST(lee, sand_that_leaves_the_lee_is_not_kept) {
  Model m = six_cells();
  m.transport.QBWTIP(3) = -2.0f;
  expect_filled(m, {0, 1, -1, 0, 0, 0, 0, 0, 0, 0}, {0, 0, -2, 0, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, the_cell_outside_does_not_fall_behind_its_seawall) {
  // The example of six cells, but cell 2 can give 0.5 m alone, 1 m3/s of the 4: everything that is
  // laid down shrinks to a quarter.
  Model m = six_cells();
  m.transport.QBWTIP(3) = 6.0f;
  m.shore.YSW(2) = -0.5;
  expect_filled(m, {0, -0.5, 0.25, 0.25, 0, 0, 0, 0, 0, 0}, {0, 0, 1, 0.5f, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, a_cell_outside_that_stands_on_its_seawall_gives_nothing) {
  Model m = six_cells();
  m.transport.QBWTIP(3) = 6.0f;
  m.shore.YSW(2) = 0.0;
  expect_filled(m, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, a_cell_outside_that_lies_behind_its_seawall_is_asked_for_nothing) {
  // It would need sand, but the lee has none to give.
  Model m = six_cells();
  m.transport.QBWTIP(3) = 6.0f;
  m.shore.YSW(2) = 1.0;
  expect_filled(m, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, the_seawall_of_an_end_cell_holds_too) {
  // Cells 2 to 7 of eight, so that the cell outside is the coast's last one: it gives 0.5 m alone.
  Model m = exact_lee(8, 2, 7);
  m.transport.QBWTIP(2) = 6.0f;
  m.shore.YSW(1) = -0.5;
  expect_filled(m, {-0.5, 0.25, 0.25, 0, 0, 0, 0, 0}, {0, 1, 0.5f, 0, 0, 0, 0, 0, 0});
}

TEST(lee, sand_going_back_to_both_walls_is_cut_at_the_seawalls_too) {
  Model m = six_cells();
  m.transport.QBWTIP(3) = 4.0f;
  m.transport.QBWTIP(9) = -2.0f;
  m.shore.YSW(2) = -0.25;
  m.shore.YSW(9) = 0.0;
  expect_filled(m, {0, -0.25, 0.25, 0, 0, 0, 0, 0, 0, 0}, {0, 0, 0.5f, 0, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, cells_past_the_structure_take_no_sand) {
  // Cell 4 is past the structure. The half still is 6 m long; wall 4 loses what cell 4 would have
  // taken, and cell 3 gets all that enters: 4 m3/s.
  Model m = six_cells();
  m.transport.QBWTIP(3) = 6.0f;
  m.breakwaters.IBWST(4) = -2;
  m.shore.YBW(4) = 99999.0;
  expect_filled(m, {0, -2, 2, 0, 0, 0, 0, 0, 0, 0}, {0, 0, 4, 0, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, cells_past_the_structure_and_inlets_count_in_no_capacity) {
  // Cell 3 has room for 3 m, 6 m3/s, cell 5 has none, and cell 4 does not count: CAP is 6, 1 a
  // metre. Walls 3 and 4 would hold 4 and 2; cell 4 takes nothing, so cell 3 gets the 4.
  for (const bool inlet : {false, true}) {
    Model m = six_cells();
    m.transport.QBWTIP(3) = 60.0f;
    m.inlets.INLC(4) = inlet ? 1 : 0;
    m.breakwaters.IBWST(4) = inlet ? 1 : -2;
    m.shore.YBW(4) = 99999.0;
    m.shore.YBW(3) = 3.0;
    m.shore.YBW(5) = 0.0;
    expect_filled(m, {0, -2, 2, 0, 0, 0, 0, 0, 0, 0}, {0, 0, 4, 0, 0, 0, 0, 0, 0, 0, 0});
  }
}

TEST(lee, a_cell_past_the_structure_hands_the_surplus_of_the_lee_on) {
  // Cell 5 has come over its line by 1 m in the sweep: 2 m3/s go through cell 4 to cell 3.
  Model m = six_cells();
  m.breakwaters.IBWST(4) = -2;
  m.shore.YBW(5) = 0.0;
  m.shore.Y(5) = 1.0;
  m.transport.Q(6) = -2.0f;  // what brought it there, from cell 6
  m.shore.Y(6) = -1.0;
  expect_filled(m, {0, 0, 1, 0, 0, -1, 0, 0, 0, 0}, {0, 0, 0, -2, -2, -2, 0, 0, 0, 0, 0});
}

TEST(lee, a_cell_that_the_sweep_alone_brought_over_the_line_goes_back_to_it) {
  Model m = six_cells();
  m.shore.YBW(3) = 1.0;
  m.shore.Y(3) = 3.0;
  m.shore.Y(2) = -3.0;
  m.transport.Q(3) = 6.0f;
  expect_filled(m, {0, -1, 1, 0, 0, 0, 0, 0, 0, 0}, {0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, cells_below_the_line_stay_as_the_sweep_left_them) {
  Model m = six_cells();
  m.shore.YBW(5) = 1.0;
  m.shore.Y(5) = 1.0;
  m.shore.YBASE(5) = -7.0;  // would show if the cell were computed again
  m.transport.Q(4) = 3.0f;
  expect_filled(m, {0, 0, 0, 0, 1, 0, 0, 0, 0, 0}, {0, 0, 0, 3, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, the_surplus_of_a_cell_counts_its_sources) {
  // A source of 3 m2/s fills cell 4 by 3 m, the line stands at 1 m: 4 m3/s go out through cell 3.
  Model m = six_cells();
  m.shore.DYSRC(4) = 3.0;
  m.shore.Y(4) = 3.0;
  m.shore.YBW(4) = 1.0;
  expect_filled(m, {0, 0, 2, 1, 0, 0, 0, 0, 0, 0}, {0, 0, 0, -4, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, an_inlet_in_the_lee_stays_and_hands_the_sand_on) {
  // Cell 4 is an inlet: its share goes to cell 3, and no sand is lost in it.
  Model m = six_cells();
  m.transport.QBWTIP(3) = 6.0f;
  m.inlets.INLC(4) = 1;
  m.shore.Y(4) = m.shore.YBASE(4) = -30.0;
  expect_filled(m, {0, -2, 2, -30, 0, 0, 0, 0, 0, 0}, {0, 0, 4, 0, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, an_inlet_outside_the_tip_has_nothing_to_give) {
  Model m = six_cells();
  m.transport.QBWTIP(3) = 6.0f;
  m.inlets.INLC(2) = 1;
  expect_filled(m, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, a_surplus_that_leaves_beside_an_inlet_comes_down_beyond_it) {
  Model m = six_cells();
  m.inlets.INLC(2) = 1;
  m.shore.YBW(3) = 0.0;
  m.shore.Y(3) = 2.0;
  m.transport.Q(4) = -4.0f;
  m.shore.Y(4) = -2.0;
  expect_filled(m, {2, 0, 0, -2, 0, 0, 0, 0, 0, 0}, {0, -4, -4, -4, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, a_surplus_that_leaves_through_an_inlet_at_the_end_leaves_the_coast) {
  Model m = exact_lee(8, 2, 7);
  m.inlets.INLC(1) = 1;
  m.transport.QBWTIP(2) = -2.0f;
  expect_filled(m, {0, -1, 0, 0, 0, 0, 0, 0}, {-2, -2, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, a_surplus_goes_past_a_lee_that_begins_beyond_the_inlet) {
  // Lees on cells 3 to 5 and 7 to 9 with an inlet between: 4 and 2 m3/s too much. What leaves
  // the first one on the right passes the second one and lies on cell 10, what leaves the second
  // one on the left lies on cell 2.
  Model m = exact_lee(11, 3, 5);
  m.breakwaters.lee_groups.append({7, 9});
  for (std::int32_t c = 7; c <= 9; ++c) {
    m.breakwaters.IBWST(c) = 1;
    m.shore.YBW(c) = 100.0;
  }
  m.inlets.INLC(6) = 1;
  m.groins.ICSTR(3) = m.groins.ICSTR(10) = 1;  // all surplus goes towards the inlet
  for (const std::int32_t c : {5, 7}) {
    m.shore.YBW(c) = 0.0;
    m.shore.Y(c) = 2.0;
    m.shore.DYSRC(c) = 2.0;
  }
  m.shore.DYSRC(7) = 1.0;
  m.shore.Y(7) = 1.0;
  fill(m);
  EXPECT_EQ(shoreline(m), (Shoreline{0, 1, 0, 0, 0, 0, 0, 0, 0, 2, 0}));
  EXPECT_EQ(walls(m), (Walls{0, 0, -2, -2, -2, 2, 2, 4, 4, 4, 0, 0}));
}

TEST(lee, a_tip_wall_beside_or_on_a_groin_gets_no_fill) {
  for (const std::int32_t type : {2, 4, -1, -2}) {
    Model m = six_cells();
    m.transport.QBWTIP(3) = 6.0f;
    m.groins.ICSTR(3) = type;
    expect_filled(m, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
  }
}

/// A diffracting groin as set-up marks it.
void add_groin(Model& m, std::int32_t wall) {
  m.groins.ICSTR(wall - 1) = m.groins.ICSTR(wall + 1) = 2;
  m.groins.ICSTR(wall) = 1;
}

TEST(lee, a_groin_at_the_other_end_leaves_the_whole_lee_to_the_tip) {
  // Six cells, 12 m: 12 m3/s are 1 a metre; the innermost cell 8 gets none.
  Model m = six_cells();
  add_groin(m, 9);
  m.transport.QBWTIP(3) = 12.0f;
  expect_filled(m, {0, -5, 1, 1, 1, 1, 1, 0, 0, 0}, {0, 0, 10, 8, 6, 4, 2, 0, 0, 0, 0});
}

TEST(lee, with_a_groin_at_the_other_end_all_surplus_leaves_by_the_open_tip) {
  Model m = six_cells();
  add_groin(m, 9);
  m.shore.YBW(8) = 0.0;
  m.shore.Y(8) = 1.0;
  m.shore.DYSRC(8) = 1.0;
  for (std::int32_t c = 3; c <= 7; ++c) m.shore.YBW(c) = 0.0;
  expect_filled(m, {0, 1, 0, 0, 0, 0, 0, 0, 0, 0}, {0, 0, -2, -2, -2, -2, -2, -2, 0, 0, 0});
}

TEST(lee, sand_from_a_tip_fills_as_far_as_the_first_groin) {
  // Groins at walls 6 and 8: the left tip fills cells 3 to 5, 6 m.
  Model m = six_cells();
  add_groin(m, 6);
  m.groins.ICSTR(8) = 3;
  m.transport.QBWTIP(3) = 6.0f;
  expect_filled(m, {0, -2, 1, 1, 0, 0, 0, 0, 0, 0}, {0, 0, 4, 2, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, sand_from_the_right_tip_fills_from_the_last_groin_on) {
  // Groins at walls 5 and 7: the right tip fills cells 7 and 8, 4 m, 1 m3/s a metre; cell 7 none.
  Model m = six_cells();
  m.groins.ICSTR(5) = 1;
  m.groins.ICSTR(7) = 1;
  m.transport.QBWTIP(9) = -4.0f;
  expect_filled(m, {0, 0, 0, 0, 0, 0, 0, 1, -1, 0}, {0, 0, 0, 0, 0, 0, 0, 0, -2, 0, 0});
}

TEST(lee, buried_and_non_diffracting_groins_do_not_end_the_stretch) {
  for (const std::int32_t type : {4, -1, -2}) {
    Model m = six_cells();
    m.groins.ICSTR(5) = type;
    m.transport.QBWTIP(3) = 6.0f;
    expect_filled(m, {0, -2, 1, 1, 0, 0, 0, 0, 0, 0}, {0, 0, 4, 2, 0, 0, 0, 0, 0, 0, 0});
  }
}

TEST(lee, left_of_the_first_groin_the_surplus_leaves_left_and_right_of_it_right) {
  Model m = six_cells();
  m.groins.ICSTR(5) = 1;
  for (std::int32_t c = 3; c <= 8; ++c) m.shore.YBW(c) = 0.0;
  for (const std::int32_t c : {4, 5}) {
    m.shore.DYSRC(c) = 1.0;
    m.shore.Y(c) = 1.0;
  }
  fill(m);
  EXPECT_EQ(shoreline(m), (Shoreline{0, 1, 0, 0, 0, 0, 0, 0, 1, 0}));
  EXPECT_EQ(walls(m), (Walls{0, 0, -2, -2, 0, 2, 2, 2, 2, 0, 0}));
}

TEST(lee, a_groin_before_the_last_cell_of_the_lee_leaves_all_others_to_the_left_tip) {
  // Cell 7 is 1 m over the line: its 2 m3/s go left into cell 6 and not past the groin at wall 8.
  Model m = six_cells();
  m.groins.ICSTR(8) = 1;
  m.shore.YBW(7) = 0.0;
  m.shore.Y(7) = m.shore.YBASE(7) = 1.0;
  expect_filled(m, {0, 0, 0, 0, 0, 1, 0, 0, 0, 0}, {0, 0, 0, 0, 0, 0, -2, 0, 0, 0, 0});
}

TEST(lee, the_middle_cell_of_an_odd_lee_belongs_to_the_left_tip) {
  // Cells 3 to 7: the left half is cells 3 to 5, the right one cells 6 and 7.
  Model m = exact_lee(9, 3, 7);
  m.transport.QBWTIP(3) = 6.0f;
  fill(m);
  EXPECT_EQ(walls(m), (Walls{0, 0, 4, 2, 0, 0, 0, 0, 0, 0}));
  Model r = exact_lee(9, 3, 7);
  r.transport.QBWTIP(8) = -4.0f;
  fill(r);
  EXPECT_EQ(walls(r), (Walls{0, 0, 0, 0, 0, 0, 0, -2, 0, 0}));
}

TEST(lee, a_lee_of_one_or_two_cells_gets_nothing_laid_down) {
  for (const std::int32_t last : {3, 4}) {
    Model m = exact_lee(8, 3, last);
    m.transport.QBWTIP(3) = 6.0f;
    const Shoreline Y = shoreline(m);
    expect_filled(m, Y, Walls(9, 0.0f));
  }
}

TEST(lee, a_lee_from_end_to_end_has_no_cell_outside) {
  Model m = exact_lee(4, 1, 4);
  m.groins.ICSTR(1) = m.groins.ICSTR(5) = 1;
  m.shore.YBW(1) = 0.0;
  m.shore.DYSRC(1) = 1.0;
  m.shore.Y(1) = 1.0;
  expect_filled(m, {0, 0, 0, 0}, {-2, 0, 0, 0, 0});
}

TEST(lee, two_lees_share_the_cell_between_them) {
  // Cell 6 gives 2 m3/s to the lee on its right and takes the surplus of 2 m3/s from its left.
  Model m = exact_lee(11, 2, 5);
  m.breakwaters.lee_groups.append({7, 10});
  for (std::int32_t c = 7; c <= 10; ++c) m.shore.YBW(c) = 100.0;
  m.transport.QBWTIP(7) = 4.0f;
  m.shore.YBW(5) = 0.0;
  m.shore.DYSRC(5) = 1.0;
  m.shore.Y(5) = 1.0;
  expect_filled(m, {0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0}, {0, 0, 0, 0, 0, 2, 2, 0, 0, 0, 0, 0});
}

TEST(lee, wide_cells_take_their_share_of_the_sand) {
  // 12 m: 1, 3 and 8 m; 12 m3/s are 1 a metre, walls 3 and 4 hold 4 and 3. The cells move by 1 m.
  Model m = six_cells();
  m.grid.DX(3) = 1.0f;
  m.grid.DX(4) = 3.0f;
  m.grid.DX(5) = 8.0f;
  m.transport.QBWTIP(3) = 12.0f;
  expect_filled(m, {0, -2, 1, 1, 0, 0, 0, 0, 0, 0}, {0, 0, 4, 3, 0, 0, 0, 0, 0, 0, 0});
}

TEST(lee, the_base_is_the_shoreline_ahead_of_the_sweep) {
  Model m = six_cells();
  for (std::int32_t c = 1; c <= 10; ++c) m.shore.Y(c) = 10.0 * c;
  keep_base_of_lees(m.grid, m.breakwaters, m.shore);
  for (std::int32_t c = 1; c <= 10; ++c) EXPECT_EQ(m.shore.YBASE(c), 10.0 * c);
}

TEST(lee, values_that_are_no_numbers_pass_into_the_shoreline) {
  Model m = six_cells();
  m.transport.QBWTIP(3) = std::nanf("");
  m.transport.Q(4) = std::nanf("");
  fill(m);
  EXPECT_TRUE(std::isnan(m.shore.Y(3)));
  EXPECT_EQ(m.shore.Y(8), 0.0);
}

TEST(lee, without_breakwaters_nothing_changes) {
  Model m = kelptest::small_model(5);
  m.transport.QBWTIP.fill(3.0f);
  keep_base_of_lees(m.grid, m.breakwaters, m.shore);
  fill(m);
  for (std::int32_t i = 1; i <= 6; ++i) EXPECT_EQ(m.transport.Q(i), 0.0f);
}

}  // namespace
}  // namespace kelprun
