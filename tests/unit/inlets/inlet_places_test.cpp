#include "inlets/inlet_places.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "unit/inlets/inlet_case.h"
#include "unit/run/in_process.h"

namespace kelprun {
namespace {

using Lines = std::vector<std::string>;

/// Twenty cells with the shoreline at 101, 102, ... m and an inlet on cells 8 to 11.
Model coast_with_inlet() {
  Model m = kelptest::small_model(20);
  for (std::int32_t i = 1; i <= 20; ++i) m.shore.Y(i) = 100.0 + i;
  kelptest::add_inlet(m, 8, 11);
  return m;
}

/// A groin of the merged list, with its wall type.
void add_groin(Model& m, std::int32_t wall, float tip, std::int32_t type) {
  ++m.groins.NGRP;
  m.groins.IXGRP.append(wall);
  m.groins.YGT.append(tip);
  m.groins.ICSTR(wall) = type;
}

/// Sets the shoreline at the inlets; gives the report.
Lines set_shorelines(Model& m) {
  kelptest::ReadableReport report;
  set_inlet_shorelines(m.groins, m.inlets, m.shore, report.report);
  return report.lines();
}

void expect_sides(const Model& m, float left, float right) {
  EXPECT_EQ(m.inlets.YINLL(1), left);
  EXPECT_EQ(m.inlets.YINLR(1), right);
}

TEST(inlet_places, cells_of_every_inlet_are_marked_and_no_others) {
  Model m = kelptest::small_model(20);
  kelptest::add_inlet(m, 3, 4);
  kelptest::add_inlet(m, 12, 12);
  set_shorelines(m);
  for (std::int32_t i = 1; i <= 20; ++i)
    EXPECT_EQ(m.inlets.INLC(i), i == 3 || i == 4 || i == 12 ? 1 : 0) << i;
  EXPECT_EQ(m.inlets.flows.size(), 2);
}

TEST(inlet_places, an_open_side_takes_the_beach_beside_the_inlet) {
  Model m = coast_with_inlet();
  EXPECT_EQ(set_shorelines(m), Lines{});
  expect_sides(m, 107.0f, 112.0f);
}

TEST(inlet_places, diffracting_jetties_on_both_sides_look_at_the_cells_of_the_inlet) {
  Model m = coast_with_inlet();
  add_groin(m, 3, 500.0f, 1);
  add_groin(m, 8, 160.0f, 1);
  add_groin(m, 12, 151.0f, 1);
  m.inlets.JBCL(1) = 0.5f;
  m.inlets.JBCR(1) = 0.25f;
  EXPECT_EQ(set_shorelines(m), Lines{});
  // 160 - (160 - 108)/2 and 151 - (151 - 111)/4.
  expect_sides(m, 134.0f, 141.0f);
}

TEST(inlet_places,
     a_plain_groin_on_the_right_looks_at_the_beach_beyond_it_and_one_on_the_left_not) {
  Model m = coast_with_inlet();
  add_groin(m, 8, 160.0f, -1);
  add_groin(m, 12, 152.0f, -1);
  m.inlets.JBCL(1) = 0.5f;
  m.inlets.JBCR(1) = 0.25f;
  EXPECT_EQ(set_shorelines(m), Lines{});
  // 160 - (160 - 108)/2 and 152 - (152 - 112)/4.
  expect_sides(m, 134.0f, 142.0f);
}

TEST(inlet_places, a_side_at_a_jetty_is_worked_out_in_double_and_then_rounded) {
  Model m = coast_with_inlet();
  add_groin(m, 8, 1000.1f, 1);
  m.inlets.JBCL(1) = 0.3f;
  m.shore.Y(8) = 0.123456789;
  set_shorelines(m);
  const auto tip = static_cast<double>(1000.1f);
  const double side = tip - (tip - 0.123456789) * static_cast<double>(0.3f);
  EXPECT_EQ(m.inlets.YINLL(1), static_cast<float>(side));
  const float rough = 1000.1f - (1000.1f - 0.123456789f) * 0.3f;
  EXPECT_NE(m.inlets.YINLL(1), rough) << "the case must tell the two precisions apart";
}

TEST(inlet_places, without_a_groin_on_the_left_both_boundary_values_become_1) {
  Model m = coast_with_inlet();
  add_groin(m, 12, 151.0f, 1);
  m.inlets.JBCL(1) = 0.5f;
  m.inlets.JBCR(1) = 0.25f;
  set_shorelines(m);
  EXPECT_EQ(m.inlets.JBCL(1), 1.0f);
  EXPECT_EQ(m.inlets.JBCR(1), 1.0f);
  // 151 - (151 - 111) 1: the value 1 is in force on the right too.
  expect_sides(m, 107.0f, 111.0f);
}

TEST(inlet_places, a_groin_on_the_left_alone_leaves_both_boundary_values) {
  for (const std::int32_t type : {1, -1, 2}) {
    Model m = coast_with_inlet();
    add_groin(m, 8, 160.0f, type);
    m.inlets.JBCL(1) = 0.5f;
    m.inlets.JBCR(1) = 0.25f;
    set_shorelines(m);
    EXPECT_EQ(m.inlets.JBCL(1), 0.5f) << type;
    EXPECT_EQ(m.inlets.JBCR(1), 0.25f) << type;
  }
}

TEST(inlet_places, any_other_type_beside_an_inlet_is_told_and_counts_as_open_beach) {
  const Lines warning{" WARNING: Unstructured inlet is next to groin",
                      " Setting virtual shoreline equal to shoreline at inlet "};
  Lines twice = warning;
  twice.insert(twice.end(), warning.begin(), warning.end());
  for (const std::int32_t type : {2, 3, 4, -2}) {
    Model left = coast_with_inlet();
    left.groins.ICSTR(8) = type;
    left.inlets.JBCL(1) = left.inlets.JBCR(1) = 0.5f;
    EXPECT_EQ(set_shorelines(left), warning) << type;
    expect_sides(left, 107.0f, 112.0f);
    Model right = coast_with_inlet();
    right.groins.ICSTR(12) = type;
    EXPECT_EQ(set_shorelines(right), warning) << type;
    expect_sides(right, 107.0f, 112.0f);
    Model both = coast_with_inlet();
    both.groins.ICSTR(8) = both.groins.ICSTR(12) = type;
    EXPECT_EQ(set_shorelines(both), twice) << type;
    expect_sides(both, 107.0f, 112.0f);
  }
}

TEST(inlet_places, a_given_left_side_leaves_both_sides_as_given_and_says_nothing) {
  Model m = coast_with_inlet();
  m.groins.ICSTR(8) = m.groins.ICSTR(12) = 2;
  m.inlets.YINLL(1) = 60.0f;
  EXPECT_EQ(set_shorelines(m), Lines{});
  expect_sides(m, 60.0f, 0.0f);
  Model below = coast_with_inlet();
  below.inlets.YINLL(1) = -5.0f;
  below.inlets.YINLR(1) = 70.0f;
  set_shorelines(below);
  expect_sides(below, -5.0f, 70.0f);
}

TEST(inlet_places, a_right_side_given_alone_is_derived_all_the_same) {
  Model m = coast_with_inlet();
  m.inlets.YINLR(1) = 70.0f;
  set_shorelines(m);
  expect_sides(m, 107.0f, 112.0f);
}

TEST(inlet_places, the_shoreline_across_steps_in_single_precision_and_sums_in_double) {
  Model m = coast_with_inlet();
  m.inlets.YINLL(1) = 100.1f;
  m.inlets.YINLR(1) = 133.7f;
  set_shorelines(m);
  const float step = (133.7f - 100.1f) / 3.0f;
  double Y = static_cast<double>(100.1f);
  for (std::int32_t i = 8; i <= 11; ++i, Y += static_cast<double>(step))
    EXPECT_EQ(m.shore.Y(i), Y) << i;
  EXPECT_NE(m.shore.Y(11), static_cast<double>(133.7f)) << "the step carries its rounding along";
  EXPECT_NEAR(m.shore.Y(11), 133.7, 2e-5);
  EXPECT_EQ(m.shore.Y(7), 107.0);
  EXPECT_EQ(m.shore.Y(12), 112.0);
}

TEST(inlet_places, an_inlet_of_one_cell_takes_its_left_side) {
  Model m = kelptest::small_model(20);
  for (std::int32_t i = 1; i <= 20; ++i) m.shore.Y(i) = 100.0 + i;
  kelptest::add_inlet(m, 8, 8);
  set_shorelines(m);
  for (std::int32_t i = 1; i <= 20; ++i) EXPECT_EQ(m.shore.Y(i), i == 8 ? 107.0 : 100.0 + i);
}

TEST(inlet_places, every_inlet_has_sides_of_its_own) {
  Model m = coast_with_inlet();
  kelptest::add_inlet(m, 14, 15);
  m.inlets.YINLL(1) = 50.0f;
  m.inlets.YINLR(1) = 80.0f;
  set_shorelines(m);
  EXPECT_EQ(m.shore.Y(9), 60.0);
  EXPECT_EQ(m.inlets.YINLL(2), 113.0f);
  EXPECT_EQ(m.inlets.YINLR(2), 116.0f);
}

/// The placement of cells IS to IE on the right of an inlet, on ten cells 10, 20, ... m wide.
Placement placed_on(std::int32_t IS, std::int32_t IE) {
  Model m = kelptest::small_model(10);
  for (std::int32_t i = 1; i <= 10; ++i) m.grid.DX(i) = 10.0f * static_cast<float>(i);
  kelptest::add_inlet(m, 4, 6);
  m.inlets.IBYPR1(1) = IS;
  m.inlets.IBYPR2(1) = IE;
  m.inlets.IBYPL1(1) = IE;
  m.inlets.IBYPL2(1) = IE;
  set_placements(m.grid, m.inlets);
  EXPECT_EQ(m.inlets.left_placement.size(), 1);
  return m.inlets.right_placement(1);
}

void expect_placement(const Placement& p, std::int32_t first, float SUMDX,
                      const std::vector<double>& weights) {
  ASSERT_EQ(p.WPLACE.size(), static_cast<std::int32_t>(weights.size()));
  EXPECT_EQ(p.first, first);
  EXPECT_EQ(p.last, first + p.WPLACE.size() - 1);
  EXPECT_EQ(p.SUMDX, SUMDX);
  for (std::int32_t j = 1; j <= p.WPLACE.size(); ++j)
    EXPECT_NEAR(static_cast<double>(p.WPLACE(j)), weights[static_cast<std::size_t>(j - 1)], 1e-7)
        << j;
}

TEST(placement, on_one_cell_gives_it_all) {
  expect_placement(placed_on(7, 7), 7, 70.0f, {1.0});
  EXPECT_EQ(placed_on(7, 7).WPLACE(1), 1.0f);
}

TEST(placement, on_an_odd_stretch_is_a_triangle_about_its_middle_cell) {
  // Heights 1/3, 1, 1/3 and 1/5, 3/5, 1, 3/5, 1/5.
  expect_placement(placed_on(7, 9), 7, 240.0f, {0.2, 0.6, 0.2});
  expect_placement(placed_on(6, 10), 6, 400.0f, {1 / 13.0, 3 / 13.0, 5 / 13.0, 3 / 13.0, 1 / 13.0});
}

TEST(placement, on_an_even_stretch_gives_its_two_middle_cells_the_same) {
  expect_placement(placed_on(7, 8), 7, 150.0f, {0.5, 0.5});
  // Heights 1/4, 3/4, 3/4, 1/4; the middle lies right of an odd and of an even cell.
  for (const std::int32_t IS : {6, 7}) {
    const Placement p = placed_on(IS, IS + 3);
    expect_placement(p, IS, 10.0f * static_cast<float>(4 * IS + 6), {0.125, 0.375, 0.375, 0.125});
    EXPECT_EQ(p.WPLACE(2), p.WPLACE(3));
  }
}

TEST(placement, weights_of_any_stretch_inside_the_grid_sum_to_1) {
  for (std::int32_t IS = 1; IS <= 10; ++IS) {
    for (std::int32_t IE = IS; IE <= 10; ++IE) {
      double sum = 0.0;
      for (const float weight : placed_on(IS, IE).WPLACE) sum += static_cast<double>(weight);
      EXPECT_NEAR(sum, 1.0, 3e-7) << IS << " to " << IE;
    }
  }
}

TEST(placement, cells_outside_the_grid_take_their_share_away_with_them) {
  // Heights 1/5, 3/5, 1, 3/5, 1/5 about cell 1 and about cell 10.
  expect_placement(placed_on(-1, 3), 1, 60.0f, {5 / 13.0, 3 / 13.0, 1 / 13.0});
  expect_placement(placed_on(8, 12), 8, 270.0f, {1 / 13.0, 3 / 13.0, 5 / 13.0});
}

TEST(placement, a_middle_left_of_the_grid_is_cut_toward_cell_0) {
  // Cells -4 to 3 have their middle between -1 and 0; the cut takes 0. Heights from -4 on: -1/8,
  // 1/8, 3/8, 5/8, 7/8, 7/8, 5/8, 3/8, in sum 30/8.
  expect_placement(placed_on(-4, 3), 1, 60.0f, {7 / 30.0, 5 / 30.0, 3 / 30.0});
}

TEST(placement, outside_the_grid_upside_down_or_not_given_takes_nothing) {
  constexpr std::int32_t FAR = std::numeric_limits<std::int32_t>::max();
  const std::vector<std::pair<std::int32_t, std::int32_t>> stretches{
      {0, 0}, {-5, 0}, {-3, -3}, {11, 11}, {11, 40}, {8, 7}, {5, -5}, {FAR, FAR}, {-FAR, -FAR}};
  for (const auto& [IS, IE] : stretches) {
    const Placement p = placed_on(IS, IE);
    EXPECT_LT(p.last, p.first) << IS << " to " << IE;
    EXPECT_TRUE(p.WPLACE.empty()) << IS << " to " << IE;
  }
}

TEST(placement, of_the_left_and_the_right_and_of_every_inlet_are_kept_apart) {
  Model m = kelptest::small_model(20);
  kelptest::add_inlet(m, 6, 7);
  kelptest::add_inlet(m, 13, 14);
  kelptest::put(m.inlets.IBYPL1, std::array{2, 9});
  kelptest::put(m.inlets.IBYPL2, std::array{3, 9});
  kelptest::put(m.inlets.IBYPR1, std::array{8, 16});
  kelptest::put(m.inlets.IBYPR2, std::array{10, 19});
  set_placements(m.grid, m.inlets);
  ASSERT_EQ(m.inlets.left_placement.size(), 2);
  ASSERT_EQ(m.inlets.right_placement.size(), 2);
  EXPECT_EQ(m.inlets.left_placement(1).first, 2);
  EXPECT_EQ(m.inlets.left_placement(1).last, 3);
  EXPECT_EQ(m.inlets.right_placement(1).first, 8);
  EXPECT_EQ(m.inlets.right_placement(1).last, 10);
  EXPECT_EQ(m.inlets.left_placement(2).last, 9);
  EXPECT_EQ(m.inlets.right_placement(2).WPLACE.size(), 4);
}

TEST(bridge, crosses_an_inlet_on_the_line_between_the_cells_beside_it) {
  Model m = kelptest::small_model(8);
  kelptest::put(m.grid.DX, std::array{10.0f, 30.0f, 20.0f, 50.0f, 20.0f, 10.0f, 20.0f, 40.0f});
  kelptest::put(m.grid.XCELL,
                std::array{10.0f, 40.0f, 60.0f, 110.0f, 130.0f, 140.0f, 160.0f, 200.0f});
  kelptest::put(m.shore.YOLD, std::array{5.0, 100.0, 1.0, 2.0, 3.0, 4.0, 160.0, 7.0});
  kelptest::add_inlet(m, 3, 6);
  bridge_inlets(m.grid, m.inlets, m.shore.YOLD);
  // From 100 at 40 m to 160 at 160 m: 10, 35, 45 and 50 m higher.
  const std::array expected{5.0, 100.0, 110.0, 135.0, 145.0, 150.0, 160.0, 7.0};
  for (std::size_t k = 0; k < expected.size(); ++k)
    EXPECT_NEAR(m.shore.YOLD(static_cast<std::int64_t>(k) + 1), expected[k], 2e-5) << k + 1;
}

TEST(bridge, is_built_in_single_precision) {
  Model m = kelptest::small_model(12);
  kelptest::Random random(52);
  float X = 0.0f;
  for (std::int32_t i = 1; i <= 12; ++i) {
    m.grid.XCELL(i) = X += m.grid.DX(i) = random.real(20.0, 90.0);
    m.shore.YOLD(i) = random.between(50.0, 150.0);
  }
  const PerCell<double> before = m.shore.YOLD;
  kelptest::add_inlet(m, 3, 5);
  kelptest::add_inlet(m, 8, 10);
  bridge_inlets(m.grid, m.inlets, m.shore.YOLD);
  for (const auto& [L, R] : {std::pair{3, 5}, std::pair{8, 10}}) {
    const auto left = static_cast<float>(before(L - 1));
    const float rise = static_cast<float>(before(R + 1)) - left;
    const float length = m.grid.XCELL(R + 1) - m.grid.XCELL(L - 1);
    for (std::int32_t i = L; i <= R; ++i) {
      const float share = (m.grid.XCELL(i) - m.grid.XCELL(L - 1)) / length;
      const float Y = share * rise + left;
      EXPECT_EQ(m.shore.YOLD(i), static_cast<double>(Y)) << i;
    }
  }
  for (const std::int32_t i : {1, 2, 6, 7, 11, 12}) EXPECT_EQ(m.shore.YOLD(i), before(i)) << i;
}

}  // namespace
}  // namespace kelprun
