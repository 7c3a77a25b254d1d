#include "coast/relaxation.h"

#include <gtest/gtest.h>

#include <array>

#include "unit/run/small_model.h"

namespace kelprun {
namespace {

/// Walls 1 to N with the transports of `before`, relaxed.
template <std::size_t N>
std::array<float, N> relaxed(const std::array<float, N>& before) {
  Grid grid;
  grid.NX = static_cast<std::int32_t>(N) - 1;
  PerWall<float> Q;
  Q.take(grid.NX);
  kelptest::put(Q, before);
  relax_nodal_points(grid, Q);
  std::array<float, N> after{};
  for (std::size_t k = 0; k < N; ++k) after[k] = Q(static_cast<std::int64_t>(k) + 1);
  return after;
}

TEST(relaxation, reaches_eleven_walls_down_and_ten_walls_up) {
  // With Q = c at wall c every replacement changes it by 6/8 of the step of 1.
  constexpr std::int32_t NX = 40;
  std::array<float, NX + 1> before{};
  for (std::int32_t c = 1; c <= NX + 1; ++c)
    before[static_cast<std::size_t>(c - 1)] = static_cast<float>(c);
  before[19] = 0.0f;  // wall 20
  const auto after = relaxed(before);
  for (std::int32_t c = 1; c <= NX + 1; ++c) {
    const auto k = static_cast<std::size_t>(c - 1);
    float expected = before[k];
    if (c >= 9 && c <= 19) expected -= 0.75f;
    if (c >= 21 && c <= 30) expected += 0.75f;
    EXPECT_EQ(after[k], expected) << "wall " << c;
  }
}

TEST(relaxation, each_replacement_sees_the_old_value_of_the_next_wall_outwards) {
  // Wall 5 is the nodal point. Down: 4 -> (2 16 + 6 8)/8 = 10, 3 -> (2 8 + 6 4)/8 = 5,
  // 2 -> (2 4 + 6 2)/8 = 2.5. Up: 6 -> (2 8 + 6 24)/8 = 20, 7 -> (2 24 + 6 40)/8 = 36,
  // 8 -> (2 40 + 6 8)/8 = 16; walls 9 to 11 lie too near the end to be replaced.
  constexpr std::array<float, 11> before{2, 4, 8, 16, 0, 8, 24, 40, 8, 8, 8};
  constexpr std::array<float, 11> expected{2, 2.5f, 5, 10, 0, 20, 36, 16, 8, 8, 8};
  EXPECT_EQ(relaxed(before), expected);
}

TEST(relaxation, leaves_a_row_without_nodal_point_and_a_row_of_negative_transports_alone) {
  constexpr std::array<float, 9> positive{1, 2, 3, 5, 8, 3, 2, 1, 4};
  EXPECT_EQ(relaxed(positive), positive);
  constexpr std::array<float, 9> negative{-1, -2, -3, -5, -8, -3, -2, -1, -4};
  EXPECT_EQ(relaxed(negative), negative);
}

TEST(relaxation, stops_at_the_first_wall_that_is_not_positive) {
  // Nodal walls 4 and 7. From 4 up: 5 -> (2 8 + 6 16)/8 = 14, 6 -> (2 16 + 6 (-8))/8 = -2, stop at
  // 7. Wall 6 is negative by now: down from it 5 -> (2 14 + 6 0)/8 = 3.5, stop at 4; up from it
  // nothing. From 7 down: stop at 6; up: 8 -> (2 8 + 6 8)/8 = 8.
  constexpr std::array<float, 12> before{8, 8, 8, 0, 8, 16, -8, 8, 8, 8, 8, 8};
  constexpr std::array<float, 12> expected{8, 8, 8, 0, 3.5f, -2, -8, 8, 8, 8, 8, 8};
  EXPECT_EQ(relaxed(before), expected);
}

TEST(relaxation, a_transport_of_half_a_millionth_counts_as_not_positive) {
  std::array<float, 9> row{8, 8, 8, 16, 5e-7f, 8, 16, 8, 8};
  const auto after = relaxed(row);
  EXPECT_EQ(after[3], 10.0f);  // (2 16 + 6 8)/8
  EXPECT_EQ(after[5], 14.0f);  // (2 8 + 6 16)/8
  EXPECT_EQ(after[4], 5e-7f);
}

TEST(relaxation, a_transport_of_exactly_a_millionth_counts_as_positive) {
  constexpr std::array<float, 9> row{8, 8, 8, 16, 1e-6f, 8, 16, 8, 8};
  EXPECT_EQ(relaxed(row), row);
}

TEST(relaxation, a_transport_of_exactly_a_millionth_beside_a_nodal_point_is_replaced) {
  // (2 1e-6 + 6 80)/8 is 60 in single precision; then (2 80 + 6 8)/8 and (2 8 + 6 2)/8.
  constexpr std::array<float, 11> before{2, 8, 80, 1e-6f, 0, 1e-6f, 80, 8, 8, 8, 8};
  constexpr std::array<float, 11> expected{2, 3.5f, 26, 60, 0, 60, 26, 8, 8, 8, 8};
  EXPECT_EQ(relaxed(before), expected);
}

TEST(relaxation, an_isolated_positive_wall_between_negative_ones_takes_on_their_sign) {
  // From 4 up: 5 -> (2 4 - 6)/8 = 0.25. From 6 down: 5 -> (2 0.25 - 6)/8 = -0.6875.
  constexpr std::array<float, 9> before{-1, -1, -1, -1, 4, -1, -1, -1, -1};
  constexpr std::array<float, 9> expected{-1, -1, -1, -1, -0.6875f, -1, -1, -1, -1};
  EXPECT_EQ(relaxed(before), expected);
}

TEST(relaxation, starts_at_no_wall_nearer_to_an_end_than_the_third_or_the_last_but_two) {
  // Eight cells: walls 3 to 7 are asked.
  constexpr std::array<float, 9> near_left{8, 0, 4, 2, 8, 16, 4, 8, 8};
  EXPECT_EQ(relaxed(near_left), near_left);
  constexpr std::array<float, 9> near_right{8, 8, 4, 2, 8, 16, 4, 0, 8};
  EXPECT_EQ(relaxed(near_right), near_right);
}

TEST(relaxation, replaces_neither_the_first_wall_nor_the_last_three) {
  // Six cells, nodal wall 3: wall 2 -> (2 4 + 6 8)/8 = 7, wall 4 -> (2 4 + 6 8)/8 = 7; wall 5 is
  // the last but two.
  constexpr std::array<float, 7> before{8, 4, 0, 4, 8, 16, 32};
  constexpr std::array<float, 7> expected{8, 7, 0, 7, 8, 16, 32};
  EXPECT_EQ(relaxed(before), expected);
  // Nodal wall 5 = NX-1: nothing above it is replaced; below it 4 -> (2 4 + 6 2)/8 = 2.5 and
  // 3 -> (2 2 + 6 8)/8 = 6.5, while 2 keeps its 8.
  constexpr std::array<float, 7> at_right{8, 8, 2, 4, 0, 4, 16};
  constexpr std::array<float, 7> expected_right{8, 8, 6.5f, 2.5f, 0, 4, 16};
  EXPECT_EQ(relaxed(at_right), expected_right);
}

TEST(relaxation, of_a_coast_too_short_for_it_does_nothing) {
  constexpr std::array<float, 4> row{4, 0, -1, 8};
  EXPECT_EQ(relaxed(row), row);
}

}  // namespace
}  // namespace kelprun
