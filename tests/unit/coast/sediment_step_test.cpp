#include "coast/sediment_step.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "coast/relaxation.h"
#include "coast/sweep.h"
#include "coast/transport.h"
#include "input/boundary_checks.h"
#include "unit/coast/transport_case.h"

namespace kelprun {
namespace {

void sediment_step(Model& m, float DT = 1.0f) {
  SEDSTEP(m.settings, DT, 0, m.grid, m.profile, m.boundaries, m.waves, m.groins, m.breakwaters,
          m.inlets, m.shore, m.transport);
}

/// Waves that drive sand to the right everywhere, under varied heights.
Model drifting_coast(std::int32_t NX) {
  Model m = kelptest::coast_under_waves(NX, 71);
  m.waves.ZB.fill(0.3f);
  m.shore.ALPHA.fill(0.0f);
  m.profile.K2CELL.fill(0.001f);
  m.profile.K1EFF(NX + 1) = 0.0f;
  m.shore.YSW.fill(-9999.0);
  for (std::int32_t i = 1; i <= NX; ++i) m.shore.Y(i) = 100.0 + i;
  return m;
}

TEST(boundary_walls, a_pinned_end_has_the_transport_of_its_neighbour) {
  Model m = kelptest::small_model(3);
  m.transport.RDEN.fill(450.0f);
  kelptest::put(m.transport.Q, std::array{9.0f, 0.125f, -0.25f, 9.0f});
  set_boundary_walls(m.grid, m.boundaries, m.transport);
  EXPECT_EQ(m.transport.Q(1), 0.125f);
  EXPECT_EQ(m.transport.Q(4), -0.25f);
}

TEST(boundary_walls, a_moving_end_gets_or_loses_the_sand_of_its_movement) {
  Model m = kelptest::small_model(3);
  m.grid.DX.fill(200.0f);
  m.transport.RDEN.fill(400.0f);
  m.boundaries.left.MOVSTEP = 0.5f;    // 0.5 200/400 = 0.25 m3/s
  m.boundaries.right.MOVSTEP = 0.25f;  // 0.125 m3/s
  kelptest::put(m.transport.Q, std::array{9.0f, 1.0f, 1.0f, 9.0f});
  set_boundary_walls(m.grid, m.boundaries, m.transport);
  EXPECT_EQ(m.transport.Q(1), 1.25f);
  EXPECT_EQ(m.transport.Q(4), 0.875f);
}

TEST(boundary_walls, an_end_with_a_groin_keeps_the_groins_transport) {
  Model m = kelptest::small_model(3);
  m.transport.RDEN.fill(450.0f);
  m.boundaries.left.QBC = false;
  m.boundaries.right.QBC = false;
  kelptest::put(m.transport.Q, std::array{0.5f, 1.0f, 1.0f, 0.75f});
  set_boundary_walls(m.grid, m.boundaries, m.transport);
  EXPECT_EQ(m.transport.Q(1), 0.5f);
  EXPECT_EQ(m.transport.Q(4), 0.75f);
}

TEST(sediment_step, a_pinned_end_never_moves_by_transport) {
  Model m = drifting_coast(10);
  for (int n = 0; n < 50; ++n) sediment_step(m);
  EXPECT_EQ(m.transport.Q(1), m.transport.Q(2));
  EXPECT_NE(m.transport.Q(2), 0.0f);
  EXPECT_EQ(m.shore.Y(1), 101.0);
  EXPECT_EQ(m.shore.Y(10), 110.0);
  EXPECT_NE(m.shore.Y(2), 102.0);
}

TEST(sediment_step, a_source_still_moves_a_pinned_end) {
  Model m = drifting_coast(10);
  m.shore.DYSRC(1) = 1e-4;
  sediment_step(m);
  // RDEN = 3600/8 = 450 s/m.
  EXPECT_EQ(m.shore.Y(1), 101.0 + 450.0 * 1e-4);
}

TEST(sediment_step, a_moving_end_with_a_period_of_a_step_moves_by_its_distance_every_step) {
  Model m = drifting_coast(10);
  m.boundaries.left = {.BCTYPE = 3, .MOVY = 2.5f, .MOVPER = 3};
  m.boundaries.right = {.BCTYPE = 3, .MOVY = -1.25f, .MOVPER = 3};
  constexpr float CONV = 0.3048f;
  for (Boundary* b : {&m.boundaries.left, &m.boundaries.right})
    b->MOVSTEP = boundary_movement(*b, CONV, 1000, 24.0f);
  for (int n = 1; n <= 20; ++n) {
    if (n % 5 == 0) {
      CALMSTEP(m.grid, m.profile, m.boundaries, 1.0f, m.shore);
    } else {
      sediment_step(m);
    }
    // The movement passes through a transport in single precision.
    EXPECT_NEAR(m.shore.Y(1), 101.0 + n * 2.5 * 0.3048, 2e-6 * n);
    EXPECT_NEAR(m.shore.Y(10), 110.0 - n * 1.25 * 0.3048, 2e-6 * n);
  }
}

TEST(sediment_step, keeps_the_shoreline_that_it_started_from) {
  Model m = drifting_coast(6);
  const PerCell<double> before = m.shore.Y;
  sediment_step(m);
  for (std::int32_t i = 1; i <= 6; ++i) EXPECT_EQ(m.shore.YPREV(i), before(i));
}

TEST(sediment_step, goes_through_transport_boundaries_relaxation_and_sweep_in_this_order) {
  Model m = kelptest::coast_under_waves(40, 72);
  m.shore.YSW.fill(-0.001);
  m.boundaries.left.MOVSTEP = 0.01f;
  Model by_hand = m;
  sediment_step(m, 3.0f);
  Transport& t = by_hand.transport;
  const TransportConstants constants = transport_constants(3.0f, by_hand.settings.GAMMA);
  clear_transport(constants, by_hand.settings, by_hand.grid, by_hand.profile, by_hand.waves, t);
  compute_transport(constants, by_hand.settings, by_hand.grid, by_hand.profile, by_hand.waves,
                    by_hand.shore, by_hand.groins, by_hand.breakwaters, t);
  set_boundary_walls(by_hand.grid, by_hand.boundaries, t);
  relax_nodal_points(by_hand.grid, t.Q);
  move_shoreline(by_hand.grid, by_hand.inlets.INLC, by_hand.shore, t);
  for (std::int32_t i = 1; i <= 41; ++i) EXPECT_EQ(m.transport.Q(i), t.Q(i)) << i;
  for (std::int32_t i = 1; i <= 40; ++i) EXPECT_EQ(m.shore.Y(i), by_hand.shore.Y(i)) << i;
}

TEST(sediment_step, the_relaxation_beside_an_end_keeps_a_pinned_one_and_holds_back_a_moving_one) {
  // Nodal wall 3 relaxes wall 2 after wall 1 was set from it. At a pinned end both are the same; at
  // a moving one wall 2 takes 6/8 of the difference, so that the end goes a quarter of its way.
  Model m = drifting_coast(10);
  m.waves.HB.fill(1.0f);
  m.waves.CGB.fill(4.0f);
  m.waves.ZB(3) = -0.3f;
  sediment_step(m);
  ASSERT_GT(m.transport.Q(2), 0.0f);
  ASSERT_LT(m.transport.Q(3), 0.0f);
  EXPECT_NEAR(m.shore.Y(1), 101.0, 1e-6);
  m.boundaries.left.MOVSTEP = 0.5f;
  const double before = m.shore.Y(1);
  sediment_step(m);
  EXPECT_NEAR(m.shore.Y(1) - before, 0.125, 1e-6);
}

TEST(sediment_step, splits_the_transport_of_the_step_by_its_direction) {
  Model m = kelptest::coast_under_waves(30, 73);
  m.shore.YSW.fill(-9999.0);
  m.waves.HB(7) = 0.0f;
  sediment_step(m);
  const Transport& t = m.transport;
  std::int32_t left = 0;
  for (std::int32_t i = 1; i <= 31; ++i) {
    EXPECT_EQ(t.QRIGHT(i), t.Q(i) > 0.0f ? t.Q(i) : 0.0f);
    EXPECT_EQ(t.QLEFT(i), t.Q(i) > 0.0f ? 0.0f : t.Q(i));
    EXPECT_EQ(t.QGROSS(i), std::abs(t.Q(i)));
    left += t.Q(i) < 0.0f ? 1 : 0;
  }
  EXPECT_GT(left, 3);
  EXPECT_LT(left, 28);
  const float first = t.QGROSS(5);
  m.shore.Y = m.shore.YPREV;
  sediment_step(m);
  EXPECT_EQ(t.QGROSS(5), first) << "the sums start again with every step";
}

TEST(calm_step, adds_sources_and_the_movement_of_the_ends_alone) {
  Model m = kelptest::small_model(4);
  kelptest::put(m.shore.Y, std::array{10.0, 20.0, 30.0, 40.0});
  kelptest::put(m.shore.DYSRC, std::array{1e-4, 0.0, -2e-4, 0.0, 5.0});
  m.inlets.INLC(3) = 1;
  m.boundaries.left.MOVSTEP = 0.125f;
  m.boundaries.right.MOVSTEP = -0.5f;
  m.transport.Q.fill(0.25f);
  m.transport.QGROSS.fill(0.5f);
  CALMSTEP(m.grid, m.profile, m.boundaries, 3.0f, m.shore);
  // 3 h over 8 m: 1350 s/m.
  EXPECT_DOUBLE_EQ(m.shore.Y(1), 10.0 + 0.135 + 0.125);
  EXPECT_EQ(m.shore.Y(2), 20.0);
  EXPECT_DOUBLE_EQ(m.shore.Y(3), 30.0 - 0.27) << "inlet cells take part";
  EXPECT_EQ(m.shore.Y(4), 39.5);
  EXPECT_EQ(m.transport.Q(2), 0.25f);
  EXPECT_EQ(m.transport.QGROSS(2), 0.5f);
}

TEST(calm_step, is_evaluated_in_double_precision_from_single_precision_factors) {
  Model m = kelptest::small_model(3);
  m.profile.DCLOSCELL.fill(7.3f);
  m.profile.BERMHTCELL.fill(1.1f);
  m.shore.DYSRC(2) = 1.23456789e-5;
  m.shore.Y(2) = 98.7654321;
  constexpr float DT = 0.1f;
  CALMSTEP(m.grid, m.profile, m.boundaries, DT, m.shore);
  const float seconds = DT * 3600.0f;
  const float height = 7.3f + 1.1f;
  EXPECT_EQ(m.shore.Y(2), 98.7654321 + 1.23456789e-5 * static_cast<double>(seconds) /
                                           static_cast<double>(height));
}

TEST(calm_step, a_coast_of_one_cell_takes_the_movement_of_both_ends) {
  Model m = kelptest::small_model(1);
  m.boundaries.left.MOVSTEP = 0.125f;
  m.boundaries.right.MOVSTEP = 0.25f;
  CALMSTEP(m.grid, m.profile, m.boundaries, 1.0f, m.shore);
  EXPECT_EQ(m.shore.Y(1), 0.375);
}

}  // namespace
}  // namespace kelprun
