#include "waves/final_field.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "unit/run/small_model.h"
#include "unit/waves/diffracting_coast.h"

namespace kelprun {
namespace {

constexpr std::int32_t NX = 20;

/// Heights 1, 4, 9, ..., angles their hundredth: no two three-point means are alike.
Model field() {
  Model m = kelptest::small_model(NX);
  for (std::int32_t i = 1; i <= NX + 1; ++i) {
    m.waves.HB(i) = static_cast<float>(i * i);
    m.waves.ZB(i) = 0.01f * m.waves.HB(i);
    m.waves.HBU(i) = 1000.0f + static_cast<float>(i);
  }
  return m;
}

float square(std::int32_t i) { return static_cast<float>(i * i); }
/// Means of the squares around i: all three, without the right one, without the left one.
float three(std::int32_t i) { return square(i) + 0.5f; }
float without_right(std::int32_t i) { return square(i) - 0.25f * static_cast<float>(2 * i - 1); }
float without_left(std::int32_t i) { return square(i) + 0.25f * static_cast<float>(2 * i + 1); }

void expect_wall(const Model& m, std::int32_t i, float H) {
  EXPECT_FLOAT_EQ(m.waves.HB(i), H) << "wall " << i;
  EXPECT_NEAR(static_cast<double>(m.waves.ZB(i)), 0.01 * static_cast<double>(H), 1e-5) << i;
}

void expect_replaced(const Model& m, std::int32_t i, float H) {
  EXPECT_FLOAT_EQ(m.waves.HB(i), H) << "wall " << i;
  EXPECT_EQ(m.waves.ZB(i), 0.0f) << "wall " << i;
  EXPECT_EQ(m.waves.ITOMBOLO(i), 1) << "wall " << i;
}

TEST(final_field, walls_away_from_structures_take_the_mean_of_three) {
  Model m = field();
  kelptest::finish_field(m);
  expect_wall(m, 1, 1.0f);
  for (std::int32_t i = 2; i <= NX; ++i) expect_wall(m, i, three(i));
  expect_wall(m, NX + 1, square(NX + 1));
}

TEST(final_field, smoothing_does_not_reach_across_a_groin) {
  Model m = field();
  m.groins.ICSTR(8) = 1;
  kelptest::finish_field(m);
  expect_wall(m, 6, three(6));
  expect_wall(m, 7, without_right(7));
  expect_wall(m, 8, square(8));
  expect_wall(m, 9, without_left(9));
  expect_wall(m, 10, three(10));
}

TEST(final_field, only_a_groin_that_stands_out_parts_the_field) {
  for (const std::int32_t type : {2, 3, 4, -1, -2}) {
    Model m = field();
    m.groins.ICSTR(8) = type;
    kelptest::finish_field(m);
    for (std::int32_t i = 7; i <= 9; ++i) expect_wall(m, i, three(i));
  }
}

TEST(final_field, a_wall_between_two_groins_leans_on_the_left_one) {
  Model m = field();
  m.groins.ICSTR(8) = 1;
  m.groins.ICSTR(10) = 1;
  kelptest::finish_field(m);
  expect_wall(m, 9, without_right(9));
}

TEST(final_field, groins_on_the_boundaries_part_the_walls_beside_them) {
  Model m = field();
  m.groins.ICSTR(1) = 1;
  m.groins.ICSTR(NX + 1) = 1;
  kelptest::finish_field(m);
  expect_wall(m, 2, without_left(2));
  expect_wall(m, NX, without_right(NX));
}

TEST(final_field, smoothing_does_not_reach_into_cells_that_have_grown_to_a_breakwater) {
  Model m = field();
  for (const std::int32_t cell : {8, 9}) m.breakwaters.IBWST(cell) = -1;
  kelptest::finish_field(m);
  expect_wall(m, 7, three(7));
  expect_wall(m, 8, without_right(8));
  expect_wall(m, 9, square(9));
  expect_wall(m, 10, without_left(10));
  expect_wall(m, 11, three(11));
}

TEST(final_field, smoothing_does_not_reach_into_a_grown_first_cell) {
  Model m = field();
  m.breakwaters.IBWST(1) = -1;
  kelptest::finish_field(m);
  expect_wall(m, 1, 1.0f);
  expect_wall(m, 2, without_left(2));
  expect_wall(m, 3, three(3));
}

TEST(final_field, cells_behind_or_beyond_a_breakwater_are_smoothed_as_any) {
  for (const std::int32_t state : {1, -2}) {
    Model m = field();
    for (const std::int32_t cell : {8, 9}) m.breakwaters.IBWST(cell) = state;
    kelptest::finish_field(m);
    for (std::int32_t i = 7; i <= 11; ++i) expect_wall(m, i, three(i));
  }
}

void add_inlet(Model& m, std::int32_t first, std::int32_t last) {
  ++m.inlets.NINL;
  m.inlets.IINLS.append(first);
  m.inlets.IINLE.append(last);
  for (std::int32_t i = first; i <= last; ++i) m.inlets.INLC(i) = 1;
}

TEST(final_field, walls_inside_an_inlet_have_no_wave_and_its_mouth_that_of_the_beach) {
  Model m = field();
  add_inlet(m, 8, 11);
  kelptest::finish_field(m);
  expect_wall(m, 7, three(7));
  expect_wall(m, 8, three(7));
  for (std::int32_t i = 9; i <= 11; ++i) expect_wall(m, i, 0.0f);
  expect_wall(m, 12, three(13));
  expect_wall(m, 13, three(13));
}

TEST(final_field, an_inlet_of_one_cell_has_two_walls_at_its_mouth_and_none_inside) {
  Model m = field();
  add_inlet(m, 8, 8);
  kelptest::finish_field(m);
  expect_wall(m, 8, three(7));
  expect_wall(m, 9, three(10));
}

TEST(final_field, inlets_beside_the_ends_of_the_coast_look_at_the_end_walls) {
  Model m = field();
  add_inlet(m, 2, 4);
  add_inlet(m, 17, NX - 1);
  kelptest::finish_field(m);
  expect_wall(m, 2, square(1));
  expect_wall(m, NX, square(NX + 1));
}

TEST(final_field, inlets_at_the_very_ends_keep_the_end_walls) {
  Model m = field();
  add_inlet(m, 1, 3);
  add_inlet(m, 18, NX);
  kelptest::finish_field(m);
  expect_wall(m, 1, square(1));
  for (const std::int32_t i : {2, 3, 19, 20}) expect_wall(m, i, 0.0f);
  expect_wall(m, 4, three(5));
  expect_wall(m, 18, three(17));
  expect_wall(m, NX + 1, square(NX + 1));
}

TEST(final_field, two_inlets_with_one_cell_between_share_its_smoothed_wave) {
  Model m = field();
  add_inlet(m, 5, 7);
  add_inlet(m, 9, 11);
  kelptest::finish_field(m);
  expect_wall(m, 8, three(8));
  expect_wall(m, 9, three(8));
}

/// A breakwater over cells 5 to 11 whose shoreline has reached it in the given cells.
Model tombolo(std::int32_t attached, const std::vector<std::int32_t>& reached, float K = 0.3f) {
  Model m = field();
  m.breakwaters.NDB = 1;
  m.breakwaters.DBI1.append(5);
  m.breakwaters.DBI2.append(12);
  m.breakwaters.TRANDB.append(K);
  m.breakwaters.attached.append(attached);
  for (std::int32_t i = 5; i <= 11; ++i) m.breakwaters.IBWST(i) = 1;
  for (const std::int32_t cell : reached) m.breakwaters.IBWST(cell) = -1;
  if (attached == 1) m.groins.ICSTR(5) = 1;
  if (attached == 2) m.groins.ICSTR(12) = 1;
  return m;
}

void expect_only_replaced(const Model& m, const std::vector<std::int32_t>& walls) {
  for (std::int32_t i = 2; i <= NX; ++i) {
    const bool among = std::find(walls.begin(), walls.end(), i) != walls.end();
    EXPECT_EQ(m.waves.ITOMBOLO(i), among ? 1 : 0) << "wall " << i;
  }
}

TEST(final_field, without_a_groin_the_walls_between_the_outermost_grown_cells_are_replaced) {
  Model m = tombolo(0, {6, 7, 9});
  kelptest::finish_field(m);
  expect_replaced(m, 7, 0.0f);  // both of its cells are grown
  expect_replaced(m, 8, 0.3f * 1008.0f);
  expect_replaced(m, 9, 0.3f * 1009.0f);
  expect_only_replaced(m, {7, 8, 9});
  expect_wall(m, 6, without_right(6));
  expect_wall(m, 10, without_left(10));
}

TEST(final_field, one_grown_cell_alone_replaces_nothing_without_a_groin) {
  Model m = tombolo(0, {8});
  kelptest::finish_field(m);
  expect_only_replaced(m, {});
}

TEST(final_field, a_grown_cell_of_the_next_breakwater_replaces_nothing_of_this_one) {
  // The next one begins where this one ends, at wall 12, and one of its cells alone is grown.
  Model m = tombolo(0, {8});
  m.breakwaters.NDB = 2;
  m.breakwaters.DBI1.append(12);
  m.breakwaters.DBI2.append(15);
  m.breakwaters.TRANDB.append(0.3f);
  m.breakwaters.attached.append(0);
  m.breakwaters.IBWST(12) = -1;
  kelptest::finish_field(m);
  expect_only_replaced(m, {});
}

TEST(final_field, at_least_a_tenth_of_the_wave_stands_between_grown_cells) {
  Model m = tombolo(0, {6, 9}, 0.05f);
  kelptest::finish_field(m);
  expect_replaced(m, 8, 0.1f * 1008.0f);
}

TEST(final_field, with_a_groin_at_the_left_tip_grown_walls_are_replaced_and_no_others) {
  Model m = tombolo(1, {6, 7, 9});
  kelptest::finish_field(m);
  expect_replaced(m, 6, 0.3f * 1006.0f);
  expect_replaced(m, 7, 0.0f);
  expect_replaced(m, 9, 0.3f * 1009.0f);
  expect_only_replaced(m, {6, 7, 9});
}

TEST(final_field, a_grown_cell_at_the_left_groin_leaves_its_wall_without_a_wave) {
  Model m = tombolo(1, {5, 6});
  kelptest::finish_field(m);
  expect_replaced(m, 5, 0.0f);
  expect_replaced(m, 6, 0.0f);
  expect_only_replaced(m, {5, 6});
}

TEST(final_field, the_wall_past_the_last_cell_counts_with_a_groin_at_the_left_tip) {
  // The next breakwater touches, and its first cell is grown as well.
  Model m = tombolo(1, {11, 12});
  kelptest::finish_field(m);
  expect_replaced(m, 11, 0.3f * 1011.0f);
  expect_replaced(m, 12, 0.0f);
}

TEST(final_field, with_a_groin_at_the_right_tip_all_walls_from_the_first_grown_cell_are_replaced) {
  Model m = tombolo(2, {6, 7, 9});
  kelptest::finish_field(m);
  expect_wall(m, 6, without_right(6));
  expect_replaced(m, 7, 0.0f);
  for (const std::int32_t i : {8, 9, 10, 11})
    expect_replaced(m, i, 0.3f * (1000.0f + static_cast<float>(i)));
  expect_only_replaced(m, {7, 8, 9, 10, 11});
  expect_wall(m, 12, square(12));  // the groin's own wall stays
}

TEST(final_field, a_grown_cell_beyond_the_right_groin_leaves_the_groins_wall_without_a_wave) {
  Model m = tombolo(2, {9, 12});
  kelptest::finish_field(m);
  expect_replaced(m, 12, 0.0f);
  expect_replaced(m, 10, 0.3f * 1010.0f);
}

TEST(final_field, groins_at_both_tips_leave_nothing_to_replace) {
  Model m = tombolo(3, {6, 7, 9});
  kelptest::finish_field(m);
  expect_only_replaced(m, {});
}

TEST(final_field, a_breakwater_of_one_cell_replaces_nothing_and_one_of_two_cells_does) {
  Model m = tombolo(1, {5, 6});
  m.breakwaters.DBI2(1) = 6;
  kelptest::finish_field(m);
  expect_only_replaced(m, {});
  m = tombolo(1, {5, 6});
  m.breakwaters.DBI2(1) = 7;
  kelptest::finish_field(m);
  expect_only_replaced(m, {5, 6});
}

TEST(final_field, marks_of_the_step_before_are_cleared) {
  Model m = field();
  m.waves.ITOMBOLO.fill(1);
  kelptest::finish_field(m);
  expect_only_replaced(m, {});
}

TEST(final_field, the_end_walls_keep_their_waves_at_a_breakwater_on_a_boundary_groin) {
  Model m = tombolo(2, {19, 20});
  m.groins.ICSTR(12) = 0;
  m.breakwaters.DBI1(1) = 16;
  m.breakwaters.DBI2(1) = NX + 1;
  m.groins.ICSTR(NX + 1) = 1;
  kelptest::finish_field(m);
  expect_replaced(m, 20, 0.0f);
  expect_wall(m, NX + 1, square(NX + 1));
}

}  // namespace
}  // namespace kelprun
