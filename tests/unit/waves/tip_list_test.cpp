#include "waves/tip_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

#include "unit/run/small_model.h"

namespace kelprun {
namespace {

using testing::ElementsAre;

constexpr std::int32_t NX = 40;
constexpr float K = 0.3f, K2 = 0.6f;

/// Tips in coast order and transmission coefficients, laid out.
struct Laid {
  Laid(std::initializer_list<Tip> tips, std::initializer_list<float> TRANDB = {},
       Model model = kelptest::small_model(NX))
      : m(std::move(model)) {
    for (const Tip& tip : tips) m.tips.tips.append(tip);
    for (const float share : TRANDB) m.breakwaters.TRANDB.append(share);
    TIPLIST(m.grid, m.breakwaters, m.tips, m.zones, m.diffraction);
  }
  std::vector<std::int32_t> cells() const {
    std::vector<std::int32_t> walls;
    for (const Tip& tip : m.tips.tips) walls.push_back(tip.cell);
    return walls;
  }
  std::vector<float> shares() const { return {m.zones.KTZ.begin(), m.zones.KTZ.end()}; }
  std::vector<std::int32_t> order() const { return {m.zones.ZORDER.begin(), m.zones.ZORDER.end()}; }
  std::vector<std::int32_t> joined() const {
    std::vector<std::int32_t> walls;
    for (std::int32_t i = 1; i <= NX + 1; ++i)
      if (m.zones.ITIPJOIN(i) == 1) walls.push_back(i);
    return walls;
  }
  Model m;
};

Tip left_end() { return {LEFT_END_TIP, 0.0f, 0.0f}; }
Tip right_end() { return {LAST_TIP, 0.0f, 0.0f}; }
Tip at(std::int32_t wall, float Y = 100.0f) { return {wall, Y, 4.0f}; }

TEST(tip_list, an_open_coast_is_one_open_zone) {
  const Laid coast({left_end(), right_end()});
  EXPECT_EQ(coast.m.tips.NZ, 1);
  EXPECT_EQ(coast.m.zones.NZACT, 1);
  EXPECT_THAT(coast.shares(), ElementsAre(1.0f));
  EXPECT_THAT(coast.order(), ElementsAre(1));
  EXPECT_THAT(coast.cells(), ElementsAre(-1, -2));
}

TEST(tip_list, a_groin_inside_the_coast_is_a_zone_without_extent_between_two_open_ones) {
  const Laid coast({left_end(), at(10), at(10), right_end()});
  EXPECT_THAT(coast.shares(), ElementsAre(1.0f, -1.0f, 1.0f));
  EXPECT_THAT(coast.cells(), ElementsAre(-1, 10, 10, -2));
  EXPECT_EQ(coast.m.zones.NZACT, 2);
  EXPECT_THAT(coast.order(), ElementsAre(1, 3, 0));
  EXPECT_TRUE(coast.joined().empty());
}

TEST(tip_list, a_breakwater_is_a_dim_zone_between_two_open_ones_that_are_worked_first) {
  const Laid coast({left_end(), at(10), at(15), right_end()}, {K});
  EXPECT_THAT(coast.shares(), ElementsAre(1.0f, K, 1.0f));
  EXPECT_EQ(coast.m.tips.NZ, 3);
  EXPECT_EQ(coast.m.zones.NZACT, 3);
  EXPECT_THAT(coast.order(), ElementsAre(1, 3, 2));
}

TEST(tip_list, groins_on_both_boundaries_close_the_coast_with_zones_without_extent) {
  const Laid coast({at(1), at(NX + 1)});
  EXPECT_THAT(coast.cells(), ElementsAre(1, 1, NX + 1, NX + 1));
  EXPECT_THAT(coast.shares(), ElementsAre(-1.0f, 1.0f, -1.0f));
  EXPECT_EQ(coast.m.zones.NZACT, 1);
  EXPECT_THAT(coast.order(), ElementsAre(2, 0, 0));
  EXPECT_EQ(coast.m.tips.tips(1).Y, 100.0f);
  EXPECT_EQ(coast.m.tips.tips(4).Y, 100.0f);
}

TEST(tip_list, a_groin_on_the_left_boundary_alone) {
  const Laid coast({at(1), right_end()});
  EXPECT_THAT(coast.cells(), ElementsAre(1, 1, -2));
  EXPECT_THAT(coast.shares(), ElementsAre(-1.0f, 1.0f));
}

TEST(tip_list, a_groin_on_the_right_boundary_alone) {
  const Laid coast({left_end(), at(NX + 1)});
  EXPECT_THAT(coast.cells(), ElementsAre(-1, NX + 1, NX + 1));
  EXPECT_THAT(coast.shares(), ElementsAre(1.0f, -1.0f));
}

TEST(tip_list, a_breakwater_between_groins_on_both_boundaries) {
  const Laid coast({at(1), at(10), at(15), at(NX + 1)}, {K});
  EXPECT_THAT(coast.cells(), ElementsAre(1, 1, 10, 15, NX + 1, NX + 1));
  EXPECT_THAT(coast.shares(), ElementsAre(-1.0f, 1.0f, K, 1.0f, -1.0f));
  EXPECT_THAT(coast.order(), ElementsAre(2, 4, 3, 0, 0));
}

TEST(tip_list, a_breakwater_that_ends_on_a_groin_loses_one_of_the_groins_tips) {
  const Laid coast({left_end(), at(10), at(15), at(15), at(15), right_end()}, {K});
  EXPECT_THAT(coast.cells(), ElementsAre(-1, 10, 15, 15, -2));
  EXPECT_THAT(coast.shares(), ElementsAre(1.0f, K, -1.0f, 1.0f));
  EXPECT_THAT(coast.joined(), ElementsAre(15));
  EXPECT_THAT(coast.order(), ElementsAre(1, 4, 2, 0));
}

TEST(tip_list, a_breakwater_that_begins_on_a_groin_loses_one_of_the_groins_tips) {
  const Laid coast({left_end(), at(10), at(10), at(10), at(15), right_end()}, {K});
  EXPECT_THAT(coast.cells(), ElementsAre(-1, 10, 10, 15, -2));
  EXPECT_THAT(coast.shares(), ElementsAre(1.0f, -1.0f, K, 1.0f));
  EXPECT_THAT(coast.joined(), ElementsAre(10));
  EXPECT_THAT(coast.order(), ElementsAre(1, 4, 3, 0));
}

TEST(tip_list, a_t_groin_has_a_dim_zone_on_either_side_of_the_one_without_extent) {
  const Laid coast({left_end(), at(10), at(15), at(15), at(15), at(15), at(20), right_end()},
                   {K, K2});
  EXPECT_THAT(coast.cells(), ElementsAre(-1, 10, 15, 15, 20, -2));
  EXPECT_THAT(coast.shares(), ElementsAre(1.0f, K, -1.0f, K2, 1.0f));
  EXPECT_THAT(coast.joined(), ElementsAre(15));
  EXPECT_THAT(coast.order(), ElementsAre(1, 5, 2, 4, 0));
}

TEST(tip_list, breakwaters_that_touch_share_one_tip) {
  const Laid coast({left_end(), at(10), at(15), at(15), at(20), right_end()}, {K, K2});
  EXPECT_THAT(coast.cells(), ElementsAre(-1, 10, 15, 20, -2));
  EXPECT_THAT(coast.shares(), ElementsAre(1.0f, K, K2, 1.0f));
  EXPECT_THAT(coast.joined(), ElementsAre(15));
}

TEST(tip_list, breakwaters_one_behind_the_other_at_a_wall_keep_a_gap_between_their_tips) {
  const Laid coast({left_end(), at(10), at(15, 100.0f), at(15, 120.0f), at(20), right_end()},
                   {K, K2});
  EXPECT_THAT(coast.shares(), ElementsAre(1.0f, K, 1.0f, K2, 1.0f));
  EXPECT_TRUE(coast.joined().empty());
}

TEST(tip_list, a_breakwater_that_ends_on_the_right_boundary_groin) {
  const Laid coast({left_end(), at(30), at(NX + 1), at(NX + 1)}, {K});
  EXPECT_THAT(coast.cells(), ElementsAre(-1, 30, NX + 1, NX + 1));
  EXPECT_THAT(coast.shares(), ElementsAre(1.0f, K, -1.0f));
  EXPECT_THAT(coast.joined(), ElementsAre(NX + 1));
}

TEST(tip_list, a_breakwater_that_begins_on_the_left_boundary_groin) {
  const Laid coast({at(1), at(1), at(10), right_end()}, {K});
  EXPECT_THAT(coast.cells(), ElementsAre(1, 1, 10, -2));
  EXPECT_THAT(coast.shares(), ElementsAre(-1.0f, K, 1.0f));
  EXPECT_THAT(coast.joined(), ElementsAre(1));
}

TEST(tip_list, a_coast_that_begins_behind_a_breakwater_gives_its_first_zone_the_coefficient) {
  const Laid coast({at(10), at(20), at(25), right_end()}, {K, K2});
  EXPECT_THAT(coast.cells(), ElementsAre(-1, 10, 20, 25, -2));
  EXPECT_THAT(coast.shares(), ElementsAre(K, 1.0f, K2, 1.0f));
}

TEST(tip_list, a_coast_that_ends_behind_a_breakwater_gives_its_last_zone_the_coefficient) {
  const Laid coast({left_end(), at(10), at(20), at(25)}, {K, K2});
  EXPECT_THAT(coast.cells(), ElementsAre(-1, 10, 20, 25, -2));
  EXPECT_THAT(coast.shares(), ElementsAre(1.0f, K, 1.0f, K2));
}

TEST(tip_list, a_breakwater_that_lets_nothing_through_has_no_turn_in_the_order_of_work) {
  const Laid coast({left_end(), at(10), at(15), at(20), at(25), right_end()}, {0.0f, K});
  EXPECT_THAT(coast.shares(), ElementsAre(1.0f, 0.0f, 1.0f, K, 1.0f));
  EXPECT_EQ(coast.m.zones.NZACT, 4);
  EXPECT_THAT(coast.order(), ElementsAre(1, 3, 5, 4, 0));
}

TEST(tip_list, a_breakwater_that_lets_more_than_everything_through_keeps_its_place_in_the_order) {
  const Laid coast({left_end(), at(10), at(15), at(20), at(25), right_end()}, {1.2f, K});
  EXPECT_THAT(coast.shares(), ElementsAre(1.0f, 1.2f, 1.0f, K, 1.0f));
  EXPECT_THAT(coast.order(), ElementsAre(1, 2, 3, 5, 4));
}

TEST(tip_list, the_order_is_by_place_among_the_zones_behind_breakwaters_and_among_the_others) {
  const Laid coast({left_end(), at(4), at(6), at(10), at(12), at(16), at(18), right_end()},
                   {0.7f, 0.2f, 0.5f});
  EXPECT_THAT(coast.order(), ElementsAre(1, 3, 5, 7, 2, 4, 6));
}

TEST(tip_list, the_limits_of_the_order_are_strict) {
  // 0.01 and 0.999 are not moved; what lies just inside is; below 0.01 is left out.
  const Laid coast({left_end(), at(4), at(6), at(10), at(12), at(16), at(18), at(22), at(24),
                    at(28), at(30), right_end()},
                   {0.01f, 0.999f, 0.0101f, 0.9989f, 0.0099f});
  EXPECT_THAT(coast.order(), ElementsAre(1, 2, 3, 4, 5, 7, 9, 11, 6, 8, 0));
  EXPECT_EQ(coast.m.zones.NZACT, 10);
}

TEST(tip_list, distances_from_a_tip_are_sums_of_the_widths_between) {
  Model m = kelptest::small_model(NX);
  m.grid.variable = true;
  kelptest::Random random(41);
  for (std::int32_t i = 1; i <= NX; ++i) m.grid.DX(i) = random.real(3.0, 60.0);
  const Laid coast({left_end(), at(10), at(15), right_end()}, {K}, m);
  const auto& DX = coast.m.grid.DX;
  for (const std::int32_t j : {2, 3}) {
    const std::int32_t c = coast.m.tips.tips(j).cell;
    const PerWall<float>& X = coast.m.zones.XTIP(j);
    EXPECT_EQ(X(c), 0.0f);
    for (std::int32_t i = c + 1; i <= NX + 1; ++i) {
      float sum = 0.0f;
      for (std::int32_t n = c; n <= i - 1; ++n) sum += DX(n);
      EXPECT_EQ(X(i), sum) << i;
    }
    for (std::int32_t i = 1; i < c; ++i) {
      float sum = 0.0f;  // from the wall towards the tip: the order is part of the result
      for (std::int32_t n = i; n <= c - 1; ++n) sum += DX(n);
      EXPECT_EQ(X(i), -sum) << i;
    }
  }
  float between = 0.0f;
  for (std::int32_t n = 10; n <= 14; ++n) between += DX(n);
  EXPECT_EQ(coast.m.zones.DXTIPS(2), between);
  EXPECT_EQ(coast.m.zones.DXTIPS(1), 0.0f) << "an end of the coast has no distance";
  EXPECT_EQ(coast.m.zones.DXTIPS(3), 0.0f);
}

TEST(tip_list, a_breakwater_from_the_first_wall_on_has_the_distance_of_its_tips) {
  const Laid coast({at(1), at(11), right_end()}, {K});
  EXPECT_EQ(coast.m.zones.DXTIPS(1), 0.0f);
  EXPECT_EQ(coast.m.zones.DXTIPS(2), 10.0f * coast.m.grid.DX(1));
}

TEST(tip_list, a_groin_at_the_right_tip_is_joined_on_the_last_wall_but_one_too) {
  const Laid coast({left_end(), at(NX - 5), at(NX), at(NX), at(NX), right_end()}, {K});
  EXPECT_THAT(coast.shares(), ElementsAre(1.0f, K, -1.0f, 1.0f));
  EXPECT_THAT(coast.joined(), ElementsAre(NX));
}

TEST(tip_list, the_order_of_the_sum_towards_the_left_can_be_told_from_its_reverse) {
  // Widths of very different size: only one of the two orders of summing gives this value.
  Model m = kelptest::small_model(NX);
  m.grid.variable = true;
  m.grid.DX.fill(10.0f);
  m.grid.DX(7) = 16777216.0f;
  m.grid.DX(8) = 1.0f;
  m.grid.DX(9) = 1.0f;
  const Laid coast({left_end(), at(10), at(15), right_end()}, {K}, m);
  EXPECT_EQ(coast.m.zones.XTIP(2)(7), -16777216.0f) << "each metre is lost on its own";
}

TEST(tip_list, distances_on_a_coast_of_equal_cells_and_storage_for_every_tip) {
  const Laid coast({left_end(), at(10), at(10), right_end()});
  EXPECT_EQ(coast.m.zones.XTIP(2)(13), 300.0f);
  EXPECT_EQ(coast.m.zones.XTIP(2)(4), -600.0f);
  EXPECT_EQ(coast.m.zones.XTIP(3)(4), -600.0f);
  EXPECT_EQ(coast.m.zones.DXTIPS(2), 0.0f) << "the two tips of one groin";
  EXPECT_EQ(coast.m.diffraction.KDTAB.size(), 4);
  EXPECT_EQ(coast.m.diffraction.KDTAB(3).size(), NX + 1);
  EXPECT_EQ(coast.m.diffraction.tip_waves.size(), 4);
  EXPECT_EQ(coast.m.tips.TIPOFF.size(), 4);
}

}  // namespace
}  // namespace kelprun
