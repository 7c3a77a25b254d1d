#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "coast/transport.h"
#include "unit/coast/transport_case.h"

namespace kelprun {
namespace {

using kelptest::central;
using kelptest::compute;
using kelptest::left_sided;
using kelptest::right_sided;
using kelptest::without_gradient;

constexpr float BEYOND = 1.5708f;

Model coast() { return kelptest::coast_under_waves(12, 7); }

/// All waves drive sand to the right, or all to the left.
Model coast_with_drift(float angle) {
  Model m = coast();
  m.waves.ZB.fill(angle);
  m.shore.ALPHA.fill(0.0f);
  m.profile.K2CELL.fill(1e-6f);
  return m;
}

void place_groin(Model& m, std::int32_t wall, std::int32_t type, float BYPF) {
  m.groins.NGRP += 1;
  m.groins.IXGRP.append(wall);
  m.groins.BYPF.append(BYPF);
  m.groins.ICSTR(wall) = type;
}

TEST(transport_at_structures, a_wall_at_a_shoreline_on_a_breakwater_has_no_gradient_term) {
  Model m = coast();
  m.breakwaters.IBWST(6) = -1;
  compute(m);
  EXPECT_EQ(m.transport.Q(6), without_gradient(m, 6));
  EXPECT_EQ(m.transport.Q(5), left_sided(m, 5));
  EXPECT_EQ(m.transport.Q(7), right_sided(m, 7));
  EXPECT_EQ(m.transport.Q(4), central(m, 4));
  EXPECT_EQ(m.transport.Q(8), central(m, 8));
}

TEST(transport_at_structures, a_diffracting_groin_has_no_gradient_term_and_one_sided_neighbours) {
  for (const std::int32_t type : {1, 3}) {
    Model m = coast();
    m.groins.ICSTR(6) = type;  // not in the list of groins, so that no factor hides the formula
    compute(m);
    EXPECT_EQ(m.transport.Q(6), without_gradient(m, 6)) << type;
    EXPECT_EQ(m.transport.Q(5), left_sided(m, 5)) << type;
    EXPECT_EQ(m.transport.Q(7), right_sided(m, 7)) << type;
  }
}

TEST(transport_at_structures, a_non_diffracting_groin_keeps_its_own_gradient_term) {
  Model m = coast();
  m.groins.ICSTR(6) = -1;
  compute(m);
  EXPECT_EQ(m.transport.Q(6), central(m, 6));
  EXPECT_EQ(m.transport.Q(5), left_sided(m, 5));
  EXPECT_EQ(m.transport.Q(7), right_sided(m, 7));
}

TEST(transport_at_structures, other_wall_types_leave_the_gradient_central) {
  for (const std::int32_t type : {2, 4, -2}) {
    Model m = coast();
    m.groins.ICSTR(6) = type;
    compute(m);
    for (std::int32_t i = 5; i <= 7; ++i) EXPECT_EQ(m.transport.Q(i), central(m, i)) << type;
  }
}

TEST(transport_at_structures, a_structure_on_the_right_comes_before_one_on_the_left) {
  Model m = coast();
  m.groins.ICSTR(5) = -1;
  m.groins.ICSTR(7) = -1;
  compute(m);
  EXPECT_EQ(m.transport.Q(6), left_sided(m, 6));
}

TEST(transport_at_structures, a_replaced_wave_has_no_gradient_term) {
  Model m = coast();
  m.waves.ITOMBOLO(6) = 1;
  compute(m);
  EXPECT_EQ(m.transport.Q(6), without_gradient(m, 6));
  EXPECT_EQ(m.transport.Q(5), central(m, 5));
}

TEST(transport_at_structures, a_cell_beyond_its_breakwater_line_closes_the_gradients_across_it) {
  Model m = coast();
  m.shore.Y.fill(100.0);
  m.shore.YBW(6) = 100.0;  // reached: no longer landward of it
  compute(m);
  EXPECT_EQ(m.transport.Q(5), without_gradient(m, 5)) << "its right cell of the stencil is closed";
  EXPECT_EQ(m.transport.Q(7), without_gradient(m, 7)) << "its left cell of the stencil is closed";
  EXPECT_EQ(m.transport.Q(6), central(m, 6)) << "the wall's own cell is not asked";
  m.shore.YBW(6) = 100.001;
  compute(m);
  for (std::int32_t i = 5; i <= 7; ++i) EXPECT_EQ(m.transport.Q(i), central(m, i)) << i;
}

TEST(transport_at_structures, closed_cells_close_the_one_sided_gradients_too) {
  for (const std::int32_t closed : {11, 12}) {
    Model m = coast();
    m.shore.YBW(closed) = -1.0;
    compute(m);
    EXPECT_EQ(m.transport.Q(12), without_gradient(m, 12)) << "left-sided, cells 11 and 12";
  }
  for (const std::int32_t closed : {2, 3}) {
    Model m = coast();
    m.shore.YBW(closed) = -1.0;
    compute(m);
    EXPECT_EQ(m.transport.Q(2), without_gradient(m, 2)) << "right-sided, cells 2 and 3";
  }
}

TEST(transport_at_structures, the_transport_at_a_groin_is_multiplied_by_its_factor) {
  for (const std::int32_t type : {1, 3, -1, -3}) {
    Model m = coast();
    place_groin(m, 4, type, 0.25f);
    place_groin(m, 9, type, 0.5f);
    compute(m);
    const auto alone = [&](std::int32_t i) {
      return type > 0 ? without_gradient(m, i) : central(m, i);
    };
    EXPECT_EQ(m.transport.Q(4), alone(4) * 0.25f) << type;
    EXPECT_EQ(m.transport.Q(9), alone(9) * 0.5f) << type;
  }
}

TEST(transport_at_structures, a_buried_or_level_groin_of_other_types_takes_no_factor) {
  for (const std::int32_t type : {4, -2, 2}) {
    Model m = coast();
    place_groin(m, 6, type, 0.25f);
    compute(m);
    EXPECT_EQ(m.transport.Q(6), central(m, 6)) << type;
  }
}

TEST(transport_at_structures, groins_on_the_end_walls_take_their_factors) {
  Model m = coast_with_drift(0.2f);
  place_groin(m, 1, 1, 0.0f);
  place_groin(m, 13, 1, 0.5f);
  compute(m);
  EXPECT_EQ(m.transport.Q(1), 0.0f);
  EXPECT_EQ(m.transport.Q(13), without_gradient(m, 13) * 0.5f);
}

TEST(transport_at_structures, beyond_the_normal_a_standing_groin_scales_its_neighbours_transport) {
  for (const std::int32_t type : {1, -1, 3}) {
    Model m = coast_with_drift(0.2f);
    place_groin(m, 6, type, 0.5f);
    m.waves.ZB(6) = BEYOND;
    compute(m);
    const float factor = type == 3 ? 1.1f : 0.5f * 1.1f;
    EXPECT_EQ(m.transport.Q(6), factor * m.transport.Q(5)) << type;
  }
}

TEST(transport_at_structures, the_factor_of_a_groin_ends_with_its_wall) {
  Model m = coast_with_drift(0.2f);
  place_groin(m, 6, 1, 0.5f);
  m.waves.ZB(7) = BEYOND;
  compute(m);
  EXPECT_EQ(m.transport.Q(7), 1.1f * m.transport.Q(6));
}

TEST(share_landward, is_what_the_profile_leaves_landward_of_the_line) {
  // 8 m out the bed lies 0.1 8^0.667 = 0.40028 m deep; of a limit of 1 m that leaves 0.59972.
  EXPECT_NEAR(static_cast<double>(share_landward(8.0f, 1.0f, 0.1f)),
              1.0 - 0.1 * std::pow(8.0, 0.667), 1e-6);
}

TEST(share_landward, is_nothing_where_the_depth_at_the_line_equals_the_limit) {
  ASSERT_EQ(std::pow(1.0f, 0.667f) * 0.1f, 0.1f);
  EXPECT_EQ(share_landward(1.0f, 0.1f, 0.1f), 0.0f);
  EXPECT_GT(share_landward(1.0f, std::nextafter(0.1f, 1.0f), 0.1f), 0.0f);
  EXPECT_EQ(share_landward(1.0f, 0.09f, 0.1f), 0.0f) << "the line lies seaward of all transport";
}

TEST(share_landward, is_nothing_with_a_limit_depth_of_exactly_one_centimetre) {
  EXPECT_EQ(share_landward(-5.0f, 0.01f, 0.1f), 0.0f);
  EXPECT_EQ(share_landward(-5.0f, std::nextafter(0.01f, 1.0f), 0.1f), 1.0f);
}

TEST(share_landward, is_everything_where_the_shoreline_lies_seaward_of_the_line) {
  EXPECT_EQ(share_landward(-0.001f, 2.0f, 0.1f), 1.0f);
  EXPECT_EQ(share_landward(0.0f, 2.0f, 0.1f), 1.0f);
}

/// A breakwater at cells 5 to 8, 8 m out.
Model coast_with_breakwater(float angle) {
  Model m = coast_with_drift(angle);
  m.shore.Y.fill(50.0);
  for (std::int32_t i = 5; i <= 8; ++i) {
    m.breakwaters.IBWST(i) = 1;
    m.shore.YBW(i) = 58.0;
  }
  return m;
}

TEST(transport_at_structures, half_of_the_landward_share_is_taken_off_at_the_tip_it_enters_by) {
  // Sand to the right enters the lee at its left end, wall 5.
  Model m = coast_with_breakwater(0.2f);
  const float F = share_landward(8.0f, m.waves.HB(5) * (1.27f / 0.78f), 0.1f);
  ASSERT_GT(F, 0.0f);
  compute(m);
  const float whole = central(m, 5);
  EXPECT_EQ(m.transport.QBWTIP(5), whole * 0.5f * F);
  EXPECT_EQ(m.transport.Q(5), whole - whole * 0.5f * F);
  EXPECT_EQ(m.transport.QBWTIP(9), 0.0f);
  EXPECT_EQ(m.transport.Q(9), central(m, 9));
  for (std::int32_t i = 6; i <= 8; ++i) EXPECT_EQ(m.transport.QBWTIP(i), 0.0f) << "inside";
}

TEST(transport_at_structures, sand_to_the_left_is_taken_off_at_the_other_tip) {
  Model m = coast_with_breakwater(-0.2f);
  const float F = share_landward(8.0f, m.waves.HB(9) * (1.27f / 0.78f), 0.1f);
  ASSERT_GT(F, 0.0f);
  compute(m);
  const float whole = central(m, 9);
  EXPECT_EQ(m.transport.QBWTIP(9), whole * 0.5f * F);
  EXPECT_EQ(m.transport.Q(9), whole - whole * 0.5f * F);
  EXPECT_EQ(m.transport.QBWTIP(5), 0.0f);
}

TEST(transport_at_structures, a_lee_of_the_last_cell_alone_is_entered_too) {
  Model m = coast_with_drift(0.2f);
  m.shore.Y.fill(50.0);
  m.breakwaters.IBWST(12) = 1;
  m.shore.YBW(12) = 58.0;
  compute(m);
  const float F = share_landward(8.0f, m.waves.HB(12) * (1.27f / 0.78f), 0.1f);
  const float whole = left_sided(m, 12);
  EXPECT_GT(m.transport.QBWTIP(12), 0.0f);
  EXPECT_EQ(m.transport.QBWTIP(12), whole * 0.5f * F);
  EXPECT_EQ(m.transport.Q(12), whole - whole * 0.5f * F);
}

TEST(transport_at_structures, the_distance_to_the_tip_is_measured_from_the_mean_of_both_cells) {
  Model m = coast_with_breakwater(0.2f);
  m.shore.Y(4) = 44.0;  // mean 47: 11 m to the line
  compute(m);
  const float F = share_landward(11.0f, m.waves.HB(5) * (1.27f / 0.78f), 0.1f);
  EXPECT_EQ(m.transport.QBWTIP(5), central(m, 5) * 0.5f * F);
}

TEST(transport_at_structures, a_cell_on_its_breakwater_line_has_a_tip_and_one_beyond_it_has_none) {
  Model on_line = coast_with_breakwater(0.2f);
  on_line.breakwaters.IBWST(5) = -1;
  compute(on_line);
  EXPECT_GT(on_line.transport.QBWTIP(5), 0.0f);
  Model beyond = coast_with_breakwater(0.2f);
  beyond.breakwaters.IBWST(5) = -2;
  compute(beyond);
  EXPECT_EQ(beyond.transport.QBWTIP(5), 0.0f);
}

TEST(transport_at_structures, a_diffracting_groin_on_the_tip_takes_nothing_off) {
  for (const std::int32_t type : {1, 3}) {
    Model m = coast_with_breakwater(0.2f);
    m.groins.ICSTR(5) = type;
    compute(m);
    EXPECT_EQ(m.transport.QBWTIP(5), 0.0f) << type;
  }
  Model m = coast_with_breakwater(0.2f);
  m.groins.ICSTR(5) = -1;
  compute(m);
  EXPECT_GT(m.transport.QBWTIP(5), 0.0f) << "the type is asked with its sign";
}

TEST(transport_at_structures, a_tip_on_an_end_wall_takes_nothing_off) {
  Model m = coast_with_drift(-0.2f);
  for (std::int32_t i = 9; i <= 12; ++i) {
    m.breakwaters.IBWST(i) = 1;
    m.shore.YBW(i) = 8.0;
  }
  compute(m);
  EXPECT_EQ(m.transport.QBWTIP(13), 0.0f);
}

}  // namespace
}  // namespace kelprun
