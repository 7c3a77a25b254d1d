#include "inlets/mouths.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "inlets/inlet_places.h"
#include "unit/inlets/inlet_case.h"
#include "unit/run/in_process.h"

namespace kelprun {
namespace {

constexpr float DTSEC = 1024.0f;
constexpr std::int32_t DATE = 19970203;
constexpr std::int32_t L = 7;   ///< first cell of the inlet, and its left wall
constexpr std::int32_t R = 10;  ///< last cell

/// Sixteen cells whose numbers stay exact: 64 m wide, 8 m high, steps of 1024 s; an inlet on cells
/// 7 to 10 that passes on all it gets, to cell 14 on its right and cell 3 on its left. No sand is
/// on its way.
Model coast_with_inlet() {
  Model m = kelptest::small_model(16);
  m.grid.DX.fill(64.0f);
  m.transport.RDEN.fill(128.0f);
  kelptest::add_inlet(m, L, R);
  m.inlets.IBYPL1(1) = m.inlets.IBYPL2(1) = 3;
  m.inlets.IBYPR1(1) = m.inlets.IBYPR2(1) = 14;
  return m;
}

/// Routes once with the placement cells as they stand.
void route(Model& m, std::int32_t date = DATE) {
  m.inlets.flows.allocate(static_cast<std::size_t>(m.inlets.NINL));
  set_placements(m.grid, m.inlets);
  route_inlets(date, DTSEC, m.groins, m.inlets, m.shore, m.transport);
}

/// Rate that was routed into inlet k, m3/s.
float routed(const Model& m, std::int32_t k = 1) { return m.inlets.flows(k).VQIN / DTSEC; }

std::vector<float> volumes_of(const Model& m) {
  const Inlets& n = m.inlets;
  return {n.VVSE(1), n.VVSF(1), n.VVSBL(1), n.VVSBR(1), n.VVSAL(1), n.VVSAR(1)};
}

/// Volume by which cells have grown from 0, m3.
double placed(const Model& m, std::int32_t first, std::int32_t last) {
  double sum = 0.0;
  for (std::int32_t i = first; i <= last; ++i) sum += m.shore.Y(i) * 64.0 * 8.0;
  return sum;
}

TEST(mouths, an_open_left_mouth_takes_what_arrives_one_wall_before_it) {
  for (const std::int32_t type : {0, 4}) {
    Model m = coast_with_inlet();
    m.groins.ICSTR(L) = type;
    m.transport.Q(L - 1) = 0.25f;
    m.transport.Q(L) = 0.125f;
    route(m);
    EXPECT_EQ(routed(m), 0.25f) << type;
    EXPECT_EQ(m.inlets.flows(1).right.Qout, 0.25f) << type;
    EXPECT_EQ(m.transport.Q(L), 0.25f) << type;
    EXPECT_EQ(m.transport.Q(L - 1), 0.25f) << type;
  }
}

TEST(mouths, an_open_right_mouth_takes_what_arrives_one_wall_beyond_it) {
  for (const std::int32_t type : {0, 4}) {
    Model m = coast_with_inlet();
    m.groins.ICSTR(R + 1) = type;
    m.transport.Q(R + 2) = -0.25f;
    m.transport.Q(R + 1) = -0.125f;
    route(m);
    EXPECT_EQ(routed(m), 0.25f) << type;
    EXPECT_EQ(m.inlets.flows(1).left.Qout, 0.25f) << type;
    EXPECT_EQ(m.transport.Q(R + 1), -0.25f) << type;
    EXPECT_EQ(m.transport.Q(R + 2), -0.25f) << type;
  }
}

TEST(mouths, at_a_groin_take_what_its_own_wall_lets_past) {
  for (const std::int32_t type : {1, 2, 3, -1, -2}) {
    Model m = coast_with_inlet();
    m.groins.ICSTR(L) = m.groins.ICSTR(R + 1) = type;
    m.transport.Q(L - 1) = 0.5f;
    m.transport.Q(L) = 0.125f;
    m.transport.Q(R + 1) = -0.0625f;
    m.transport.Q(R + 2) = -0.5f;
    route(m);
    const InletFlow& flow = m.inlets.flows(1);
    EXPECT_EQ(flow.right.Qout, 0.125f) << type;
    EXPECT_EQ(flow.left.Qout, 0.0625f) << type;
    EXPECT_EQ(routed(m), 0.1875f) << type;
    EXPECT_EQ(m.transport.Q(L), 0.125f) << type;
    EXPECT_EQ(m.transport.Q(R + 1), -0.0625f) << type;
  }
}

TEST(mouths, at_a_groin_that_lets_nothing_past_are_routed_all_the_same) {
  Model m = coast_with_inlet();
  m.groins.ICSTR(L) = m.groins.ICSTR(R + 1) = -1;
  m.transport.Q(L - 1) = 0.5f;
  m.transport.Q(R + 2) = -0.5f;
  m.inlets.VVSBR(1) = m.inlets.VVSBL(1) = 0.0f;
  m.inlets.flows.allocate(1);
  route(m);
  EXPECT_EQ(routed(m), 0.0f);
  EXPECT_EQ(m.transport.Q(L), 0.0f);
  EXPECT_EQ(m.transport.Q(R + 1), 0.0f);
  EXPECT_EQ(m.inlets.VVSBR(1), 0.00001f) << "the routing lifts an empty bar";
  EXPECT_EQ(m.inlets.VVSBL(1), 0.00001f);
}

TEST(mouths, at_a_groin_whose_own_transport_is_reversed_take_sand_back) {
  Model m = coast_with_inlet();
  m.groins.ICSTR(L) = m.groins.ICSTR(R + 1) = 1;
  m.transport.Q(L - 1) = 0.5f;
  m.transport.Q(L) = -0.0625f;
  m.transport.Q(R + 1) = 0.125f;
  m.transport.Q(R + 2) = -0.5f;
  route(m);
  const InletFlow& flow = m.inlets.flows(1);
  EXPECT_EQ(flow.right.Qout, -0.0625f);
  EXPECT_EQ(flow.left.Qout, -0.125f);
  EXPECT_EQ(routed(m), -0.1875f);
  EXPECT_EQ(m.transport.Q(L), -0.0625f);
  EXPECT_EQ(m.transport.Q(R + 1), 0.125f);
}

TEST(mouths, sand_that_moves_away_leaves_nothing_at_the_mouth_and_the_shoals_untouched) {
  for (const std::int32_t type : {0, 1, 2, 3, 4, -1, -2}) {
    for (const float away : {0.0f, 0.25f}) {
      Model m = coast_with_inlet();
      kelptest::empty_shoals(m, 1);
      m.inlets.VVSE(1) = 1000.0f;
      m.inlets.VVSF(1) = 5000.0f;
      m.groins.ICSTR(L) = m.groins.ICSTR(R + 1) = type;
      m.transport.Q(L - 1) = -away;
      m.transport.Q(L) = 0.125f;
      m.transport.Q(R + 1) = -0.125f;
      m.transport.Q(R + 2) = away;
      const auto before = volumes_of(m);
      m.inlets.flows.allocate(1);
      set_placements(m.grid, m.inlets);
      m.inlets.flows(1).right.Qout = 0.75f;
      m.inlets.flows(1).left.Qie = 0.5f;
      route_inlets(DATE, DTSEC, m.groins, m.inlets, m.shore, m.transport);
      EXPECT_EQ(m.transport.Q(L), 0.0f) << type;
      EXPECT_EQ(m.transport.Q(R + 1), 0.0f) << type;
      EXPECT_EQ(volumes_of(m), before) << type << ": an empty bar is not lifted either";
      EXPECT_EQ(m.inlets.flows(1).VQIN, 0.0f) << type;
      EXPECT_EQ(m.inlets.flows(1).right.Qout, 0.75f) << "rates of an earlier step stay";
      EXPECT_EQ(m.inlets.flows(1).left.Qie, 0.5f);
      EXPECT_EQ(placed(m, 1, 16), 0.0) << type;
    }
  }
}

TEST(mouths, the_right_one_sees_the_shoals_that_the_left_one_left) {
  Model m = coast_with_inlet();
  kelptest::empty_shoals(m, 1);
  m.transport.Q(L - 1) = 0.5f;
  m.transport.Q(R + 2) = -0.25f;
  route(m);
  // Left: all 0.5 goes into the channel, half of it to each of the two empty shoals, 256 m3 in a
  // step. Right: the shoals now hold 512 of 8192 m3, so that 1/16 of 0.25 passes the channel, and
  // the ebb shoal, at 1/16, gives 1/16 of what it gets: 1/64 past and half of 15/64 through the
  // channel, as the deficits are still the same.
  const InletFlow& flow = m.inlets.flows(1);
  EXPECT_EQ(flow.right.Qie, 0.0f);
  EXPECT_EQ(flow.right.Qc, 0.5f);
  EXPECT_EQ(flow.right.Qeb, 0.0f);
  EXPECT_EQ(flow.left.Qie, 1.0f / 64.0f);
  EXPECT_EQ(flow.left.Qc, 15.0f / 64.0f);
  EXPECT_EQ(flow.Qce, 15.0f / 128.0f);
  EXPECT_EQ(flow.left.Qeb, (2.0f + 15.0f) / 128.0f / 16.0f);
}

TEST(mouths, one_placement_cell_gets_nine_tenths_and_the_cell_beside_the_inlet_the_rest) {
  Model m = coast_with_inlet();
  m.transport.Q(L - 1) = 0.5f;
  m.transport.Q(R + 2) = -0.25f;
  route(m);
  // 512 m3 to the right, 256 m3 to the left.
  EXPECT_NEAR(placed(m, 14, 14), 0.9 * 512.0, 1e-4);
  EXPECT_NEAR(placed(m, R + 1, R + 1), 0.1 * 512.0, 1e-4);
  EXPECT_NEAR(placed(m, 3, 3), 0.9 * 256.0, 1e-4);
  EXPECT_NEAR(placed(m, L - 1, L - 1), 0.1 * 256.0, 1e-4);
  EXPECT_NEAR(placed(m, 1, 16), 768.0, 2e-4) << "and no other cell gets anything";
}

TEST(mouths, a_placement_is_rounded_as_its_factors_are) {
  Model m = coast_with_inlet();
  m.transport.RDEN(14) = 123.456f;
  m.grid.DX(14) = 87.65f;
  m.transport.Q(L - 1) = 0.5f;
  m.shore.Y(14) = 100.123456789;
  m.shore.Y(R + 1) = 99.987654321;
  route(m);
  const float QPLACE = 0.5f / 87.65f;
  const float stretch = QPLACE * 0.9f;
  const float beside = QPLACE * 0.1f;
  EXPECT_EQ(m.shore.Y(14), 100.123456789 + static_cast<double>(123.456f * stretch));
  EXPECT_EQ(m.shore.Y(R + 1), 99.987654321 + static_cast<double>(123.456f * beside));
}

TEST(mouths, the_share_beside_the_inlet_is_summed_in_double_and_added_once) {
  Model m = coast_with_inlet();
  m.inlets.IBYPR1(1) = 13;
  m.inlets.IBYPR2(1) = 15;
  for (std::int32_t i = 13; i <= 15; ++i)
    m.transport.RDEN(i) = 100.1f + 7.3f * static_cast<float>(i);
  m.transport.Q(L - 1) = 0.5f;
  m.shore.Y(R + 1) = 99.987654321;
  route(m);
  const Placement& p = m.inlets.right_placement(1);
  const float beside = 0.5f / 192.0f * 0.1f;
  double sum = 0.0;
  for (std::int32_t i = 13; i <= 15; ++i)
    sum += static_cast<double>(m.transport.RDEN(i) * beside * p.WPLACE(i - 12));
  EXPECT_EQ(m.shore.Y(R + 1), 99.987654321 + sum);
}

TEST(mouths, a_stretch_of_equal_cells_gets_the_sand_divided_by_their_number) {
  for (const std::int32_t N : {1, 2, 3, 4, 5}) {
    Model m = coast_with_inlet();
    m.inlets.IBYPR1(1) = 12;
    m.inlets.IBYPR2(1) = 11 + N;
    m.transport.Q(L - 1) = 0.5f;
    route(m);
    EXPECT_NEAR(placed(m, 12, 11 + N), 0.9 * 512.0 / N, 2e-4) << N;
    EXPECT_NEAR(placed(m, R + 1, R + 1), 0.1 * 512.0 / N, 1e-4) << N;
    EXPECT_NEAR(m.inlets.flows(1).VQOUT, 512.0, 1e-4) << "the account tells the whole";
    if (N % 2 == 0) {
      EXPECT_EQ(m.shore.Y(11 + N / 2), m.shore.Y(12 + N / 2)) << N;
    } else {
      EXPECT_GE(m.shore.Y(12 + N / 2), m.shore.Y(12)) << N;
    }
  }
}

TEST(mouths, unequal_cells_get_their_weight_of_the_rate_over_the_width_of_the_stretch) {
  // Weights 1/5, 3/5, 1/5 and widths 32, 64, 128 m: 512 m3 (1/5 32 + 3/5 64 + 1/5 128)/224 in all.
  Model m = coast_with_inlet();
  m.inlets.IBYPR1(1) = 13;
  m.inlets.IBYPR2(1) = 15;
  kelptest::put(m.grid.DX, std::array{64.0f, 64.0f, 64.0f, 64.0f, 64.0f, 64.0f, 64.0f, 64.0f, 64.0f,
                                      64.0f, 64.0f, 64.0f, 32.0f, 64.0f, 128.0f, 64.0f});
  m.transport.Q(L - 1) = 0.5f;
  route(m);
  const double on_the_cells =
      8.0 * (m.shore.Y(13) * 32.0 + m.shore.Y(14) * 64.0 + m.shore.Y(15) * 128.0);
  EXPECT_NEAR(on_the_cells, 0.9 * 512.0 * (6.4 + 38.4 + 25.6) / 224.0, 1e-4);
  // The cell beside the inlet is moved, not filled: its width does not enter.
  EXPECT_NEAR(m.shore.Y(R + 1), 0.1 * 512.0 / 8.0 / 224.0, 1e-6);
}

TEST(mouths, a_stretch_may_hold_the_cell_beside_the_inlet_and_reach_past_the_grid) {
  Model beside = coast_with_inlet();
  beside.inlets.IBYPL1(1) = beside.inlets.IBYPL2(1) = L - 1;
  beside.transport.Q(R + 2) = -0.5f;
  route(beside);
  EXPECT_NEAR(placed(beside, L - 1, L - 1), 512.0, 2e-4);
  EXPECT_NEAR(placed(beside, 1, 16), 512.0, 2e-4);
  Model past = coast_with_inlet();
  past.inlets.IBYPR1(1) = 16;
  past.inlets.IBYPR2(1) = 17;
  past.transport.Q(L - 1) = 0.5f;
  route(past);
  EXPECT_NEAR(placed(past, 16, 16), 0.9 * 256.0, 1e-4) << "half of the weights, all of the width";
  EXPECT_NEAR(placed(past, R + 1, R + 1), 0.1 * 256.0, 1e-4);
}

TEST(mouths, without_placement_cells_nothing_is_placed) {
  Model m = coast_with_inlet();
  for (auto* cells : {&m.inlets.IBYPL1, &m.inlets.IBYPL2, &m.inlets.IBYPR1, &m.inlets.IBYPR2})
    (*cells)(1) = 0;
  m.transport.Q(L - 1) = 0.5f;
  m.transport.Q(R + 2) = -0.25f;
  route(m);
  for (std::int32_t i = 1; i <= 16; ++i) EXPECT_EQ(m.shore.Y(i), 0.0) << i;
  EXPECT_EQ(m.inlets.flows(1).VQOUT, 768.0f);
}

TEST(mouths, the_dredging_of_the_date_comes_ahead_of_the_routing) {
  Model m = coast_with_inlet();
  m.inlets.DREDFLAG = 1;
  m.inlets.NDRED(1) = 1;
  m.inlets.dredgings = {{1, 1, 6, DATE, DATE, 1024.0f}};
  m.transport.Q(L - 1) = 0.5f;
  route(m);
  // The attachment bar, at 3/4, keeps a quarter of the 512 m3 that arrive.
  EXPECT_EQ(m.inlets.flows(1).right.Qout, 0.375f);
  EXPECT_EQ(m.inlets.VVSAR(1), 3072.0f + 128.0f);
  Model other_day = coast_with_inlet();
  other_day.inlets.DREDFLAG = 1;
  other_day.inlets.NDRED(1) = 1;
  other_day.inlets.dredgings = {{1, 1, 6, DATE, DATE, 1024.0f}};
  other_day.transport.Q(L - 1) = 0.5f;
  route(other_day, DATE + 1);
  EXPECT_EQ(other_day.inlets.flows(1).right.Qout, 0.5f);
}

TEST(mouths, dredging_goes_on_where_no_sand_arrives) {
  Model m = coast_with_inlet();
  m.inlets.DREDFLAG = 1;
  m.inlets.NDRED(1) = 1;
  m.inlets.dredgings = {{1, 1, 3, DATE, DATE, 1024.0f}};
  route(m);
  EXPECT_EQ(m.inlets.VVSE(1), 3072.0f);
}

/// Inlets on cells 4 to 5 and 8 to 9: two cells of beach lie between, and wall 7 between those.
Model coast_with_two_inlets() {
  Model m = kelptest::small_model(12);
  m.grid.DX.fill(64.0f);
  m.transport.RDEN.fill(128.0f);
  kelptest::add_inlet(m, 4, 5);
  kelptest::add_inlet(m, 8, 9);
  return m;
}

TEST(mouths, two_inlets_share_the_wall_between_them_by_its_direction) {
  Model right = coast_with_two_inlets();
  right.transport.Q(7) = 0.25f;
  route(right);
  EXPECT_EQ(routed(right, 1), 0.0f);
  EXPECT_EQ(routed(right, 2), 0.25f);
  EXPECT_EQ(right.transport.Q(8), 0.25f);
  Model left = coast_with_two_inlets();
  left.transport.Q(7) = -0.25f;
  route(left);
  EXPECT_EQ(routed(left, 1), 0.25f);
  EXPECT_EQ(routed(left, 2), 0.0f);
  EXPECT_EQ(left.transport.Q(6), -0.25f);
}

TEST(reset_mouths, shows_nothing_at_the_mouths_and_the_neighbour_beside_them) {
  Model m = coast_with_inlet();
  for (std::int32_t i = 1; i <= 17; ++i) m.transport.Q(i) = static_cast<float>(i);
  reset_mouths(m.inlets, m.transport);
  for (std::int32_t i = 1; i <= 17; ++i) {
    float expected = static_cast<float>(i);
    if (i == L || i == R + 1) expected = 0.0f;
    if (i == L - 1) expected = static_cast<float>(L - 2);
    if (i == R + 2) expected = static_cast<float>(R + 3);
    EXPECT_EQ(m.transport.Q(i), expected) << i;
  }
}

TEST(reset_mouths, between_two_inlets_two_cells_apart_leaves_nothing) {
  Model m = coast_with_two_inlets();
  for (std::int32_t i = 1; i <= 13; ++i) m.transport.Q(i) = static_cast<float>(i);
  reset_mouths(m.inlets, m.transport);
  // Wall 7 first becomes 8, the wall at the second mouth, and is then set by the first one's 0.
  const std::array expected{1.0f, 2.0f, 2.0f, 0.0f,  5.0f,  0.0f, 0.0f,
                            0.0f, 9.0f, 0.0f, 12.0f, 12.0f, 13.0f};
  for (std::size_t k = 0; k < expected.size(); ++k)
    EXPECT_EQ(m.transport.Q(static_cast<std::int64_t>(k) + 1), expected[k]) << k + 1;
}

TEST(reset_mouths, between_two_inlets_three_cells_apart_goes_by_the_order_of_the_inlets) {
  // Inlets on cells 4 to 5 and 9 to 10: walls 7 and 8 lie between. The first inlet sets wall 7 from
  // wall 8, the second wall 8 from wall 7, which by then holds what wall 8 held.
  Model m = kelptest::small_model(13);
  kelptest::add_inlet(m, 4, 5);
  kelptest::add_inlet(m, 9, 10);
  for (std::int32_t i = 1; i <= 14; ++i) m.transport.Q(i) = static_cast<float>(i);
  reset_mouths(m.inlets, m.transport);
  EXPECT_EQ(m.transport.Q(7), 8.0f);
  EXPECT_EQ(m.transport.Q(8), 8.0f);
  Model swapped = kelptest::small_model(13);
  kelptest::add_inlet(swapped, 9, 10);
  kelptest::add_inlet(swapped, 4, 5);
  for (std::int32_t i = 1; i <= 14; ++i) swapped.transport.Q(i) = static_cast<float>(i);
  reset_mouths(swapped.inlets, swapped.transport);
  EXPECT_EQ(swapped.transport.Q(7), 7.0f);
  EXPECT_EQ(swapped.transport.Q(8), 7.0f);
}

}  // namespace
}  // namespace kelprun
