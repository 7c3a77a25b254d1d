#include "coast/structure_states.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "model/constants.h"
#include "unit/run/small_model.h"

namespace kelprun {
namespace {

constexpr std::int32_t NX = 12;
constexpr float EPS = 0.001f;

Model coast() {
  Model m = kelptest::small_model(NX);
  m.shore.YSW.fill(-9999.0);
  m.shore.YSWI.fill(-9999.0);
  return m;
}

void add_diffracting_groin(Model& m, std::int32_t wall, float tip) {
  m.groins.NDG += 1;
  m.groins.IXDG.append(wall);
  m.groins.YDG.append(tip);
  m.groins.ICSTR(wall) = 1;
}

/// A breakwater on cells first to last, its line at the same distance all along.
void add_breakwater(Model& m, std::int32_t first, std::int32_t last, double line) {
  m.breakwaters.NDB += 1;
  m.breakwaters.DBI1.append(first);
  m.breakwaters.DBI2.append(last + 1);
  for (std::int32_t c = first; c <= last; ++c) m.shore.YBWI(c) = line;
}

void add_tips(Model& m, const std::vector<std::int32_t>& walls) {
  for (const std::int32_t wall : walls) m.tips.tips.append({wall, 0.0f, 0.0f});
  m.tips.TIPOFF.allocate(walls.size());
}

void classify(Model& m) { set_structure_states(m.grid, m.groins, m.breakwaters, m.shore, m.tips); }

/// Type of a groin at wall 6 whose tip stands so far seaward of a shoreline at 0.
std::int32_t type_of_groin(float tip) {
  Model m = coast();
  add_diffracting_groin(m, 6, tip);
  classify(m);
  return m.groins.ICSTR(6);
}

TEST(structure_states, a_diffracting_groin_stands_out_is_level_or_is_buried) {
  EXPECT_EQ(type_of_groin(50.0f), 1);
  EXPECT_EQ(type_of_groin(0.0f), 3);
  EXPECT_EQ(type_of_groin(-50.0f), 4);
}

TEST(structure_states, a_tip_a_millimetre_ahead_stands_out_and_one_a_millimetre_behind_is_level) {
  EXPECT_EQ(type_of_groin(EPS), 1);
  EXPECT_EQ(type_of_groin(std::nextafter(EPS, 0.0f)), 3);
  EXPECT_EQ(type_of_groin(-EPS), 3);
  EXPECT_EQ(type_of_groin(std::nextafter(-EPS, -1.0f)), 4);
}

TEST(structure_states, the_cell_that_stands_farther_out_decides) {
  for (const std::int32_t cell : {5, 6}) {
    Model m = coast();
    add_diffracting_groin(m, 6, 10.0f);
    m.shore.Y(cell) = 20.0;
    classify(m);
    EXPECT_EQ(m.groins.ICSTR(6), 4) << cell;
  }
}

TEST(structure_states, groins_on_the_end_walls_look_at_the_one_cell_beside_them) {
  Model m = coast();
  add_diffracting_groin(m, 1, 10.0f);
  add_diffracting_groin(m, NX + 1, 10.0f);
  m.shore.Y(1) = 20.0;
  m.shore.Y(NX) = 10.0;
  m.shore.Y(2) = m.shore.Y(NX - 1) = 500.0;
  classify(m);
  EXPECT_EQ(m.groins.ICSTR(1), 4);
  EXPECT_EQ(m.groins.ICSTR(NX + 1), 3);
}

TEST(structure_states, a_groin_stands_out_again_when_the_shoreline_retreats) {
  Model m = coast();
  add_diffracting_groin(m, 6, 10.0f);
  m.shore.Y(6) = 11.0;
  classify(m);
  EXPECT_EQ(m.groins.ICSTR(6), 4);
  m.shore.Y(6) = 9.0;
  classify(m);
  EXPECT_EQ(m.groins.ICSTR(6), 1);
}

TEST(structure_states, other_walls_keep_their_types) {
  Model m = coast();
  add_diffracting_groin(m, 6, 10.0f);
  m.groins.ICSTR(5) = m.groins.ICSTR(7) = 2;
  m.groins.ICSTR(9) = -2;
  classify(m);
  EXPECT_EQ(m.groins.ICSTR(5), 2);
  EXPECT_EQ(m.groins.ICSTR(7), 2);
  EXPECT_EQ(m.groins.ICSTR(9), -2);
}

TEST(structure_states, an_open_lee_has_its_line_and_its_own_seawall) {
  Model m = coast();
  add_breakwater(m, 4, 7, 80.0);
  m.shore.YSWI(5) = -3.0;
  m.shore.YSW(5) = 80.0;  // of an earlier pass
  classify(m);
  for (std::int32_t c = 4; c <= 7; ++c) {
    EXPECT_EQ(m.breakwaters.IBWST(c), 1) << c;
    EXPECT_EQ(m.shore.YBW(c), 80.0) << c;
  }
  EXPECT_EQ(m.shore.YSW(5), -3.0);
  EXPECT_EQ(m.shore.YSW(4), -9999.0);
}

TEST(structure_states, cells_off_the_breakwater_have_no_line) {
  Model m = coast();
  add_breakwater(m, 4, 7, 80.0);
  classify(m);
  for (const std::int32_t c : {1, 3, 8, NX}) {
    EXPECT_EQ(m.breakwaters.IBWST(c), 0) << c;
    EXPECT_EQ(m.shore.YBW(c), NO_BREAKWATER_LINE) << c;
    EXPECT_EQ(m.shore.YSW(c), -9999.0) << c;
  }
}

/// State of cell 5 of a breakwater with its line at 0 and the shoreline elsewhere far behind.
Model with_shoreline_at(double Y5) {
  Model m = coast();
  m.shore.Y.fill(-100.0);
  add_breakwater(m, 4, 7, 0.0);
  m.shore.Y(5) = Y5;
  classify(m);
  return m;
}

TEST(structure_states, a_cell_within_a_millimetre_of_the_line_is_on_it) {
  const auto one = static_cast<double>(EPS);
  EXPECT_EQ(with_shoreline_at(-one).breakwaters.IBWST(5), 1);
  EXPECT_EQ(with_shoreline_at(std::nextafter(-one, 0.0)).breakwaters.IBWST(5), -1);
  EXPECT_EQ(with_shoreline_at(one).breakwaters.IBWST(5), -1);
  EXPECT_EQ(with_shoreline_at(std::nextafter(one, 1.0)).breakwaters.IBWST(5), -2);
}

TEST(structure_states, a_cell_on_the_line_keeps_the_line_and_its_own_seawall) {
  const Model m = with_shoreline_at(0.0);
  EXPECT_EQ(m.shore.YBW(5), 0.0);
  EXPECT_EQ(m.shore.YSW(5), -9999.0);
  EXPECT_EQ(m.breakwaters.IBWST(4), 1);
}

TEST(structure_states, one_passed_cell_makes_the_whole_breakwater_passed_but_not_its_lines) {
  const Model m = with_shoreline_at(2.0);
  for (std::int32_t c = 4; c <= 7; ++c) EXPECT_EQ(m.breakwaters.IBWST(c), -2) << c;
  EXPECT_EQ(m.shore.YBW(5), NO_BREAKWATER_LINE);
  EXPECT_EQ(m.shore.YSW(5), 0.0);
  for (const std::int32_t c : {4, 6, 7}) {
    EXPECT_EQ(m.shore.YBW(c), 0.0) << c;
    EXPECT_EQ(m.shore.YSW(c), -9999.0) << c;
  }
}

TEST(structure_states, a_passed_breakwater_leaves_the_one_that_touches_it_alone) {
  Model m = coast();
  add_breakwater(m, 3, 5, 10.0);
  add_breakwater(m, 6, 8, 10.0);
  m.shore.Y(6) = 30.0;
  classify(m);
  for (std::int32_t c = 3; c <= 5; ++c) EXPECT_EQ(m.breakwaters.IBWST(c), 1) << c;
  for (std::int32_t c = 6; c <= 8; ++c) EXPECT_EQ(m.breakwaters.IBWST(c), -2) << c;
}

TEST(structure_states, a_breakwater_opens_again_when_the_shoreline_retreats) {
  Model m = with_shoreline_at(2.0);
  m.shore.Y(5) = -1.0;
  classify(m);
  for (std::int32_t c = 4; c <= 7; ++c) EXPECT_EQ(m.breakwaters.IBWST(c), 1) << c;
  EXPECT_EQ(m.shore.YBW(5), 0.0);
  EXPECT_EQ(m.shore.YSW(5), -9999.0);
}

TEST(structure_states, a_breakwater_may_reach_to_both_ends_of_the_grid) {
  Model m = coast();
  add_breakwater(m, 1, NX, 10.0);
  add_tips(m, {1, NX + 1});
  m.shore.Y(NX) = 11.0;
  classify(m);
  EXPECT_EQ(m.breakwaters.IBWST(1), -2);
  EXPECT_EQ(m.breakwaters.IBWST(NX), -2);
  EXPECT_EQ(m.breakwaters.IBWST(NX + 1), 0);
  EXPECT_EQ(m.tips.TIPOFF(1), 1);
  EXPECT_EQ(m.tips.TIPOFF(2), 1);
}

TEST(structure_states, both_tips_of_a_passed_breakwater_are_off) {
  Model m = coast();
  add_breakwater(m, 3, 5, 10.0);
  add_breakwater(m, 8, 10, 10.0);
  add_tips(m, {LEFT_END_TIP, 3, 6, 8, 11, LAST_TIP});
  m.shore.Y(4) = 12.0;
  classify(m);
  EXPECT_EQ(m.tips.TIPOFF(2), 1);
  EXPECT_EQ(m.tips.TIPOFF(3), 1);
  EXPECT_EQ(m.tips.TIPOFF(4), 0);
  EXPECT_EQ(m.tips.TIPOFF(5), 0);
}

TEST(structure_states, virtual_tips_are_never_off) {
  Model m = coast();
  add_breakwater(m, 3, 5, 10.0);
  add_tips(m, {LEFT_END_TIP, 3, 6, RIGHT_END_TIP, LAST_TIP});
  m.shore.Y.fill(20.0);
  m.tips.TIPOFF.fill(1);
  classify(m);
  EXPECT_EQ(m.tips.TIPOFF(1), 0);
  EXPECT_EQ(m.tips.TIPOFF(4), 0);
  EXPECT_EQ(m.tips.TIPOFF(5), 0);
}

TEST(structure_states, the_tips_of_a_buried_groin_are_off_and_those_of_a_level_one_are_not) {
  for (const float tip : {-5.0f, 0.0f, 5.0f}) {
    Model m = coast();
    add_diffracting_groin(m, 6, tip);
    add_tips(m, {LEFT_END_TIP, 6, 6, LAST_TIP});
    classify(m);
    EXPECT_EQ(m.tips.TIPOFF(2), tip < 0.0f ? 1 : 0) << tip;
    EXPECT_EQ(m.tips.TIPOFF(3), tip < 0.0f ? 1 : 0) << tip;
  }
}

}  // namespace
}  // namespace kelprun
