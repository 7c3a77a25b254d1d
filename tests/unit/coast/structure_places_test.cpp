#include "coast/structure_places.h"

#include <gtest/gtest.h>

#include <array>
#include <initializer_list>
#include <vector>

#include "model/constants.h"
#include "unit/run/small_model.h"

namespace kelprun {
namespace {

constexpr std::int32_t NX = 10;

Model coast() { return kelptest::small_model(NX); }

void add_diffracting(Model& m, std::int32_t wall) {
  m.groins.NDG += 1;
  m.groins.IXDG.append(wall);
  m.groins.YDG.append(60.0f);
}

void add_plain(Model& m, std::int32_t wall) {
  m.groins.NNDG += 1;
  m.groins.IXNDG.append(wall);
  m.groins.YNDG.append(60.0f);
}

void add_to_list(Model& m, std::int32_t wall) {
  m.groins.NGRP += 1;
  m.groins.IXGRP.append(wall);
  m.groins.YGT.append(60.0f);
}

void add_breakwater(Model& m, std::int32_t DBI1, std::int32_t DBI2, float Y1 = 60.0f,
                    float Y2 = 60.0f) {
  m.breakwaters.NDB += 1;
  m.breakwaters.DBI1.append(DBI1);
  m.breakwaters.DBI2.append(DBI2);
  m.breakwaters.DBY1.append(Y1);
  m.breakwaters.DBY2.append(Y2);
}

std::vector<std::int32_t> types(const Model& m) {
  return {m.groins.ICSTR.begin(), m.groins.ICSTR.end()};
}

TEST(wall_types, a_diffracting_groin_marks_its_wall_and_both_beside_it) {
  Model m = coast();
  add_diffracting(m, 4);
  add_plain(m, 8);
  set_wall_types(m.grid, m.groins);
  EXPECT_EQ(types(m), (std::vector{0, 0, 2, 1, 2, 0, 0, -1, 0, 0, 0}));
}

TEST(wall_types, groins_on_the_end_walls_mark_the_inner_neighbour_alone) {
  Model m = coast();
  add_diffracting(m, 1);
  add_diffracting(m, NX + 1);
  set_wall_types(m.grid, m.groins);
  EXPECT_EQ(types(m), (std::vector{1, 2, 0, 0, 0, 0, 0, 0, 0, 2, 1}));
}

TEST(wall_types, groins_beside_the_end_walls_mark_them) {
  Model m = coast();
  add_diffracting(m, 2);
  add_diffracting(m, NX);
  set_wall_types(m.grid, m.groins);
  EXPECT_EQ(types(m), (std::vector{2, 1, 2, 0, 0, 0, 0, 0, 2, 1, 2}));
}

TEST(wall_types, two_groins_share_the_wall_between_them) {
  Model m = coast();
  add_diffracting(m, 4);
  add_diffracting(m, 6);
  set_wall_types(m.grid, m.groins);
  EXPECT_EQ(types(m), (std::vector{0, 0, 2, 1, 2, 1, 2, 0, 0, 0, 0}));
}

TEST(connections, groins_know_which_ends_of_breakwaters_they_hold) {
  Model m = coast();
  for (const std::int32_t wall : {1, 4, 7, 9}) add_to_list(m, wall);
  add_breakwater(m, 1, 4);
  add_breakwater(m, 4, 6);
  add_breakwater(m, 8, 9);
  connect_groins_and_breakwaters(m.groins, m.breakwaters);
  const auto expect = [&](std::int32_t k, std::int32_t ends) {
    EXPECT_EQ(m.groins.IGCONN(k), ends) << k;
    EXPECT_EQ(m.groins.IGSHAD(m.groins.IXGRP(k)), ends) << k;
  };
  expect(1, 1);
  expect(2, 3);
  expect(3, 0);
  expect(4, 2);
  for (const std::int32_t wall : {2, 3, 5, 6, 8, 10, 11}) EXPECT_EQ(m.groins.IGSHAD(wall), 0);
}

TEST(connections, breakwaters_know_which_of_their_ends_have_groins) {
  Model m = coast();
  for (const std::int32_t wall : {1, 4, 9, 11}) add_to_list(m, wall);
  add_breakwater(m, 1, 4);
  add_breakwater(m, 4, 6);
  add_breakwater(m, 6, 7);
  add_breakwater(m, 7, 9);
  add_breakwater(m, 9, 10);
  add_breakwater(m, 10, 11);
  connect_groins_and_breakwaters(m.groins, m.breakwaters);
  const std::array expected{3, 1, 0, 2, 1, 2};
  for (std::int32_t k = 1; k <= 6; ++k)
    EXPECT_EQ(m.breakwaters.attached(k), expected[static_cast<std::size_t>(k - 1)]) << k;
}

TEST(connections, the_factors_have_a_place_for_each_groin) {
  Model m = coast();
  for (const std::int32_t wall : {4, 9}) add_to_list(m, wall);
  connect_groins_and_breakwaters(m.groins, m.breakwaters);
  EXPECT_EQ(m.groins.BYPF.size(), 2);
  EXPECT_EQ(m.groins.QGR.size(), 2);
  EXPECT_EQ(m.groins.IGCONN.size(), 2);
}

void expect_groups(const Breakwaters& b, std::initializer_list<LeeGroup> groups) {
  ASSERT_EQ(b.lee_groups.size(), static_cast<std::int32_t>(groups.size()));
  std::int32_t j = 0;
  for (const LeeGroup& group : groups) {
    ++j;
    EXPECT_EQ(b.lee_groups(j).I1, group.I1) << j;
    EXPECT_EQ(b.lee_groups(j).I2, group.I2) << j;
  }
}

TEST(lee_groups, breakwaters_that_touch_are_one_group) {
  Model m = coast();
  add_breakwater(m, 1, 3);
  add_breakwater(m, 3, 4);
  add_breakwater(m, 5, 8);
  add_breakwater(m, 8, 11);
  group_breakwaters(m.breakwaters);
  expect_groups(m.breakwaters, {{1, 3}, {5, 10}});
}

TEST(lee_groups, a_breakwater_without_extent_has_no_lee) {
  Model m = coast();
  add_breakwater(m, 2, 2);
  add_breakwater(m, 4, 6);
  add_breakwater(m, 6, 6);
  add_breakwater(m, 6, 7);
  group_breakwaters(m.breakwaters);
  expect_groups(m.breakwaters, {{4, 6}});
}

TEST(lee_groups, without_breakwaters_there_is_none_and_a_second_call_adds_none) {
  Model m = coast();
  group_breakwaters(m.breakwaters);
  expect_groups(m.breakwaters, {});
  add_breakwater(m, 2, 5);
  group_breakwaters(m.breakwaters);
  group_breakwaters(m.breakwaters);
  expect_groups(m.breakwaters, {{2, 4}});
}

TEST(breakwater_lines, a_line_is_straight_between_its_tips_and_taken_at_mid_cell) {
  Model m = coast();
  add_breakwater(m, 3, 7, 40.0f, 80.0f);  // 40 m over 4 cells, half a cell to the first middle
  set_breakwater_lines(m.grid, m.breakwaters, m.shore);
  EXPECT_EQ(m.shore.YBWI(3), 45.0);
  EXPECT_EQ(m.shore.YBWI(4), 55.0);
  EXPECT_EQ(m.shore.YBWI(5), 65.0);
  EXPECT_EQ(m.shore.YBWI(6), 75.0);
  EXPECT_EQ(m.shore.YBWI(2), 0.0);
  EXPECT_EQ(m.shore.YBWI(7), 0.0);
}

TEST(breakwater_lines, wide_cells_take_their_share_of_the_length) {
  Model m = coast();
  m.grid.DX(4) = 20.0f;
  m.grid.DX(5) = 60.0f;
  m.grid.DX(6) = 80.0f;
  add_breakwater(m, 4, 7, 100.0f, 20.0f);  // half a metre landward a metre along
  set_breakwater_lines(m.grid, m.breakwaters, m.shore);
  EXPECT_EQ(m.shore.YBWI(4), 95.0);
  EXPECT_EQ(m.shore.YBWI(5), 75.0);
  EXPECT_EQ(m.shore.YBWI(6), 40.0);
}

TEST(breakwater_lines, a_level_breakwater_stands_exactly_where_its_tips_do) {
  Model m = coast();
  for (std::int32_t i = 1; i <= NX; ++i) m.grid.DX(i) = 30.0f + 7.7f * static_cast<float>(i);
  add_breakwater(m, 1, NX + 1, 61.3f, 61.3f);
  set_breakwater_lines(m.grid, m.breakwaters, m.shore);
  for (std::int32_t c = 1; c <= NX; ++c)
    EXPECT_EQ(m.shore.YBWI(c), static_cast<double>(61.3f)) << c;
}

TEST(breakwater_lines, tips_on_one_wall_draw_nothing) {
  Model m = coast();
  add_breakwater(m, 5, 5, 40.0f, 80.0f);
  set_breakwater_lines(m.grid, m.breakwaters, m.shore);
  for (std::int32_t c = 1; c <= NX; ++c) EXPECT_EQ(m.shore.YBWI(c), 0.0) << c;
}

/// All kinds of structures under a regional contour that rises by 2 m a cell and has a step.
Model coast_with_contour(std::int32_t IREG) {
  Model m = coast();
  m.settings.IREG = IREG;
  for (std::int32_t i = 1; i <= NX; ++i) m.shore.YREG(i) = 2.0f * static_cast<float>(i);
  m.shore.YREG(5) = 30.0f;
  add_diffracting(m, 1);
  add_diffracting(m, 5);
  add_plain(m, 6);
  add_plain(m, NX + 1);
  for (const std::int32_t wall : {1, 5, 6, NX + 1}) add_to_list(m, wall);
  add_breakwater(m, 1, 5, 60.0f, 60.0f);
  add_breakwater(m, 6, NX + 1, 60.0f, 60.0f);
  m.tips.breakwater_tips = kelptest::list(std::array<Tip, 3>{
      {{LEFT_END_TIP, 60.0f, 3.0f}, {6, 60.0f, 3.0f}, {RIGHT_END_TIP, 60.0f, 3.0f}}});
  m.tips.groin_tips = kelptest::list(std::array<Tip, 2>{{{1, 60.0f, 3.0f}, {5, 60.0f, 3.0f}}});
  m.tips.tips = kelptest::list(
      std::array<Tip, 3>{{{5, 60.0f, 3.0f}, {NX + 1, 60.0f, 3.0f}, {LAST_TIP, 60.0f, 3.0f}}});
  return m;
}

void subtract(Model& m) {
  subtract_regional_contour(m.settings, m.grid, m.shore.YREG, m.groins, m.breakwaters, m.tips);
}

// The contour is 2 4 6 8 30 12 ... 18 20: at wall 1 the line through 2 and 4 gives 1, at the last
// wall 21, at wall 5 the mean of 8 and 30 gives 19, at wall 6 that of 30 and 12 gives 21.
constexpr float AT_1 = 59.0f;
constexpr float AT_5 = 41.0f;
constexpr float AT_6 = 39.0f;
constexpr float AT_LAST = 39.0f;

TEST(regional_contour, structures_are_measured_from_the_contour_at_their_walls) {
  for (const std::int32_t IREG : {1, 2}) {
    Model m = coast_with_contour(IREG);
    subtract(m);
    EXPECT_EQ(m.groins.YDG(1), AT_1);
    EXPECT_EQ(m.groins.YDG(2), AT_5);
    EXPECT_EQ(m.groins.YNDG(1), AT_6);
    EXPECT_EQ(m.groins.YNDG(2), AT_LAST);
    EXPECT_EQ(m.groins.YGT(1), AT_1);
    EXPECT_EQ(m.groins.YGT(2), AT_5);
    EXPECT_EQ(m.groins.YGT(3), AT_6);
    EXPECT_EQ(m.groins.YGT(4), AT_LAST);
    EXPECT_EQ(m.breakwaters.DBY1(1), AT_1);
    EXPECT_EQ(m.breakwaters.DBY2(1), AT_5);
    EXPECT_EQ(m.breakwaters.DBY1(2), AT_6);
    EXPECT_EQ(m.breakwaters.DBY2(2), AT_LAST);
  }
}

TEST(regional_contour, tips_move_with_their_walls_and_virtual_tips_stay) {
  Model m = coast_with_contour(1);
  subtract(m);
  const auto expect = [](const Array1<Tip>& tips, std::initializer_list<float> positions) {
    std::int32_t j = 0;
    for (const float Y : positions) {
      EXPECT_EQ(tips(++j).Y, Y) << j;
      EXPECT_EQ(tips(j).D, 3.0f) << j;
    }
  };
  expect(m.tips.breakwater_tips, {60.0f, AT_6, 60.0f});
  expect(m.tips.groin_tips, {AT_1, AT_5});
  expect(m.tips.tips, {AT_5, AT_LAST, 60.0f});
}

TEST(regional_contour, without_a_contour_or_with_a_fixed_one_nothing_moves) {
  for (const std::int32_t IREG : {0, 3}) {
    Model m = coast_with_contour(IREG);
    subtract(m);
    EXPECT_EQ(m.groins.YGT(2), 60.0f) << IREG;
    EXPECT_EQ(m.groins.YDG(2), 60.0f) << IREG;
    EXPECT_EQ(m.groins.YNDG(1), 60.0f) << IREG;
    EXPECT_EQ(m.breakwaters.DBY2(1), 60.0f) << IREG;
    EXPECT_EQ(m.tips.tips(1).Y, 60.0f) << IREG;
  }
}

TEST(regional_contour, a_coast_of_one_cell_has_a_level_contour) {
  Model m = kelptest::small_model(1);
  m.settings.IREG = 1;
  m.shore.YREG(1) = 7.0f;
  add_diffracting(m, 1);
  add_diffracting(m, 2);
  subtract(m);
  EXPECT_EQ(m.groins.YDG(1), 53.0f);
  EXPECT_EQ(m.groins.YDG(2), 53.0f);
}

}  // namespace
}  // namespace kelprun
