#include "coast/groin_factors.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "unit/run/small_model.h"

namespace kelprun {
namespace {

constexpr std::int32_t NX = 12;
constexpr float QUARTER_PI = 3.141593f * 0.25f;

/// A shoreline at 0 under a wave of 1 m that drives sand to the right. GAMMA makes the limit depth
/// equal to the wave height.
Model coast() {
  Model m = kelptest::small_model(NX);
  m.settings.GAMMA = 1.27f;
  m.settings.ASHAPE = 0.1f;
  m.waves.HB.fill(1.0f);
  m.waves.ZB.fill(0.2f);
  m.waves.CGB.fill(3.0f);
  for (std::int32_t i = 1; i <= NX; ++i) m.profile.K1EFF(i) = 0.02f;
  return m;
}

void add_groin(Model& m, std::int32_t wall, float tip, float PERM, std::int32_t type) {
  Groins& g = m.groins;
  g.NGRP += 1;
  g.IXGRP.append(wall);
  g.YGT.append(tip);
  g.PGR.append(PERM);
  g.BYPF.append(0.0f);
  g.QGR.append(0.0f);
  g.IGCONN.append(0);
  g.ICSTR(wall) = type;
}

void pass(Model& m, float WL = 0.0f) {
  GROINPASS(m.settings, WL, m.grid, m.profile, m.boundaries, m.waves, m.inlets.INLC, m.shore,
            m.groins, m.transport);
}

/// A single groin at wall 6.
Model groin_coast(float tip, float PERM = 0.0f, std::int32_t type = 1) {
  Model m = coast();
  add_groin(m, 6, tip, PERM, type);
  return m;
}

float factor(Model m, float WL = 0.0f) {
  pass(m, WL);
  return m.groins.BYPF(1);
}

std::int32_t type_after(float tip, std::int32_t before, std::int32_t wall = 6) {
  Model m = coast();
  add_groin(m, wall, tip, 0.0f, before);
  m.boundaries.left.GROINY = m.boundaries.right.GROINY = tip;
  pass(m);
  return m.groins.ICSTR(wall);
}

/// Share that bypasses a tip at this distance, in double: one less the ratio of the depth at the
/// tip to the limit depth, which is the wave height here.
double bypassing(double distance, double height, double WL = 0.0) {
  return 1.0 - (0.1 * std::pow(distance, 0.667) + WL) / height;
}

TEST(groin_factors, a_groin_beyond_the_surf_zone_passes_nothing) {
  EXPECT_EQ(factor(groin_coast(500.0f)), 0.0f);
}

TEST(groin_factors, a_groin_beyond_the_surf_zone_passes_its_permeability) {
  EXPECT_EQ(factor(groin_coast(500.0f, 0.375f)), 0.375f);
}

TEST(groin_factors, permeability_one_passes_everything_at_any_tip_distance) {
  for (const float tip : {0.0f, 0.5f, 3.0f, 20.0f, 33.0f, 500.0f})
    EXPECT_EQ(factor(groin_coast(tip, 1.0f)), 1.0f) << tip;
}

TEST(groin_factors, half_the_surf_zone_beyond_the_tip_passes_half) {
  Model m = groin_coast(1.0f);  // depth 0.1 m at 1 m from the shoreline
  m.waves.HB.fill(0.2f);
  EXPECT_EQ(factor(m), 0.5f);
  m.groins.PGR(1) = 0.5f;  // and half of the other half seeps through
  EXPECT_EQ(factor(m), 0.75f);
}

TEST(groin_factors, a_groin_seen_at_no_distance_has_the_depth_of_the_water_level) {
  // The tip lies behind the updrift shoreline; the downdrift one keeps the groin standing out.
  Model m = groin_coast(10.0f);
  m.shore.Y(4) = m.shore.Y(5) = 10.0;
  m.waves.HB.fill(4.0f);
  EXPECT_EQ(factor(m, 0.0f), 1.0f);
  EXPECT_EQ(factor(m, 0.5f), 0.875f);
  EXPECT_EQ(factor(m, 8.0f), 0.0f);
}

TEST(groin_factors, a_low_water_level_never_passes_more_than_everything) {
  EXPECT_EQ(factor(groin_coast(1.0f), -3.0f), 1.0f);
}

TEST(groin_factors, the_water_level_adds_to_the_depth_at_the_tip) {
  EXPECT_NEAR(factor(groin_coast(8.0f), 0.25f), bypassing(8.0, 1.0, 0.25), 1e-6);
}

TEST(groin_factors, a_wave_that_moves_no_sand_bypasses_nothing) {
  Model m = groin_coast(0.0f, 0.25f, -1);
  m.groins.YGT(1) = 5.0f;
  m.settings.ASHAPE = 0.0f;  // no depth at the tip
  m.waves.HB.fill(0.01f);    // the limit of movement itself
  EXPECT_EQ(factor(m), 0.25f);
  m.waves.HB.fill(std::nextafter(0.01f, 1.0f));
  EXPECT_EQ(factor(m), 1.0f);
}

TEST(groin_factors, a_tip_at_the_limit_depth_passes_nothing) {
  Model m = groin_coast(1.0f);
  m.waves.HB.fill(0.1f);
  EXPECT_EQ(factor(m), 0.0f);
}

TEST(groin_factors, the_updrift_shoreline_extended_to_the_wall_gives_the_distance) {
  Model m = groin_coast(30.0f);
  m.waves.HB.fill(2.0f);
  m.shore.Y(4) = 3.0;
  m.shore.Y(5) = 5.0;  // at the wall 5 + (5-3)/2 = 6, the tip 24 m ahead
  m.shore.Y(6) = 2.0;
  m.shore.Y(7) = 6.0;  // at the wall 2 - (6-2)/2 = 0, the tip 30 m ahead
  m.shore.ALPHA.fill(0.0f);
  EXPECT_NEAR(factor(m), bypassing(24.0, 2.0), 1e-6);
  m.waves.ZB.fill(-0.2f);
  EXPECT_NEAR(factor(m), bypassing(30.0, 2.0), 1e-6);
}

TEST(groin_factors, groins_on_the_end_walls_look_at_the_shoreline_outside) {
  Model m = coast();
  m.waves.HB.fill(2.0f);
  add_groin(m, 1, 40.0f, 0.0f, 1);
  add_groin(m, NX + 1, 50.0f, 0.0f, 1);
  m.boundaries.left.GROINY = 10.0f;
  m.boundaries.right.GROINY = 20.0f;
  pass(m);
  EXPECT_NEAR(m.groins.BYPF(1), bypassing(10.0, 2.0), 1e-6);
  EXPECT_NEAR(m.groins.BYPF(2), bypassing(50.0, 2.0), 1e-6);
  m.waves.ZB.fill(-0.2f);
  pass(m);
  EXPECT_NEAR(m.groins.BYPF(1), bypassing(40.0, 2.0), 1e-6);
  EXPECT_NEAR(m.groins.BYPF(2), bypassing(20.0, 2.0), 1e-6);
}

TEST(groin_factors, a_wave_along_the_shoreline_normal_passes_the_permeability_alone) {
  Model m = groin_coast(0.5f, 0.25f);
  m.groins.IGCONN(1) = 3;  // a bypassing part would be taken off
  m.shore.ALPHA(6) = 0.2f;
  pass(m);
  EXPECT_EQ(m.groins.BYPF(1), 0.25f);
  EXPECT_EQ(m.groins.QGR(1), 0.0f);
}

TEST(groin_factors, the_shoreline_angle_at_a_groin_is_cut_to_a_quarter_of_pi) {
  for (const float ALPHA : {1.0f, -1.0f}) {
    Model m = groin_coast(30.0f);
    m.shore.ALPHA.fill(ALPHA);
    pass(m);
    EXPECT_EQ(m.shore.ALPHA(6), std::copysign(QUARTER_PI, ALPHA));
    EXPECT_EQ(m.shore.ALPHA(5), ALPHA);
    EXPECT_EQ(m.shore.ALPHA(7), ALPHA);
  }
}

TEST(groin_factors, a_moderate_shoreline_angle_stays) {
  Model m = groin_coast(30.0f);
  m.shore.ALPHA(6) = 0.7f;
  pass(m);
  EXPECT_EQ(m.shore.ALPHA(6), 0.7f);
}

TEST(groin_factors, the_cut_angle_decides_where_the_sand_comes_from) {
  // At 1 radian the wave at 0.9 would drive sand to the left; cut to 0.785 it drives it right.
  Model m = groin_coast(10.0f);
  m.waves.HB.fill(2.0f);
  m.waves.ZB.fill(0.9f);
  m.shore.ALPHA.fill(1.0f);
  m.shore.Y(4) = m.shore.Y(5) = 9.0;
  EXPECT_NEAR(factor(m), bypassing(1.0, 2.0), 1e-6);
}

TEST(groin_types, a_diffracting_groin_within_20_cm_becomes_transparent) {
  Model m = groin_coast(std::nextafter(0.2f, 0.0f), 0.0f);
  m.waves.HB.fill(0.011f);  // would bypass hardly anything
  pass(m);
  EXPECT_EQ(m.groins.ICSTR(6), 3);
  EXPECT_EQ(m.groins.BYPF(1), 1.0f);
  EXPECT_EQ(m.groins.QGR(1), 1.0f);
}

TEST(groin_types, a_diffracting_groin_at_20_cm_stands_out) { EXPECT_EQ(type_after(0.2f, 1), 1); }

TEST(groin_types, the_larger_of_the_two_distances_counts) {
  Model m = groin_coast(10.0f);
  m.shore.Y(4) = m.shore.Y(5) = 10.0;
  pass(m);
  EXPECT_EQ(m.groins.ICSTR(6), 1);
  Model mirrored = groin_coast(10.0f);
  mirrored.shore.Y(6) = mirrored.shore.Y(7) = 10.0;
  pass(mirrored);
  EXPECT_EQ(mirrored.groins.ICSTR(6), 1);
}

TEST(groin_types, a_diffracting_groin_on_an_end_wall_stands_out_always) {
  EXPECT_EQ(type_after(0.1f, 1, 1), 1);
  EXPECT_EQ(type_after(0.1f, 1, NX + 1), 1);
}

TEST(groin_types, a_groin_that_is_level_already_is_transparent) {
  Model m = groin_coast(50.0f, 0.0f, 3);
  pass(m);
  EXPECT_EQ(m.groins.ICSTR(6), 3);
  EXPECT_EQ(m.groins.BYPF(1), 1.0f);
}

TEST(groin_types, a_buried_groin_keeps_the_factor_of_an_earlier_pass) {
  Model m = groin_coast(50.0f, 0.5f, 4);
  m.groins.BYPF(1) = 0.625f;
  m.groins.QGR(1) = -0.5f;
  m.shore.ALPHA(6) = 1.0f;
  pass(m);
  EXPECT_EQ(m.groins.ICSTR(6), 4);
  EXPECT_EQ(m.groins.BYPF(1), 0.625f);
  EXPECT_EQ(m.groins.QGR(1), -0.5f);
  EXPECT_EQ(m.shore.ALPHA(6), 1.0f);
}

TEST(groin_types, a_non_diffracting_groin_sinks_below_1_m_and_comes_back_at_2_m) {
  const float below_1 = std::nextafter(1.0f, 0.0f);
  const float below_2 = std::nextafter(2.0f, 0.0f);
  EXPECT_EQ(type_after(below_1, -1), -2);
  EXPECT_EQ(type_after(1.0f, -1), -1);
  EXPECT_EQ(type_after(1.0f, -2), -2);
  EXPECT_EQ(type_after(below_2, -1), -1);
  EXPECT_EQ(type_after(below_2, -2), -2);
  EXPECT_EQ(type_after(2.0f, -2), -1);
}

TEST(groin_types, a_sunk_groin_passes_everything_and_one_between_keeps_its_factor) {
  Model m = groin_coast(0.5f, 0.0f, -1);
  m.shore.ALPHA(6) = 1.0f;
  pass(m);
  EXPECT_EQ(m.groins.BYPF(1), 1.0f);
  EXPECT_EQ(m.shore.ALPHA(6), 1.0f);  // a sunk groin is not worked on
  m.groins.YGT(1) = 1.5f;
  pass(m);
  EXPECT_EQ(m.groins.ICSTR(6), -2);
  EXPECT_EQ(m.groins.BYPF(1), 1.0f);
}

TEST(groin_types, a_non_diffracting_groin_on_an_end_wall_never_sinks) {
  for (const std::int32_t wall : {1, NX + 1}) {
    EXPECT_EQ(type_after(0.5f, -1, wall), -1) << wall;
    EXPECT_EQ(type_after(0.5f, -2, wall), -1) << wall;
  }
}

TEST(groin_factors, an_inlet_on_the_updrift_side_takes_all_that_would_pass) {
  Model m = groin_coast(0.5f, 0.5f);
  m.inlets.INLC(5) = 1;
  EXPECT_EQ(factor(m), 0.0f);
  m.waves.ZB.fill(-0.2f);
  EXPECT_GT(factor(m), 0.5f);
  m.inlets.INLC(5) = 0;
  m.inlets.INLC(6) = 1;
  EXPECT_EQ(factor(m), 0.0f);
  m.waves.ZB.fill(0.2f);
  EXPECT_GT(factor(m), 0.5f);
}

TEST(groin_factors, an_inlet_in_the_outermost_cells_takes_nothing) {
  // The wall of the end is no mouth that sand is routed at.
  Model left = coast();
  add_groin(left, 2, 0.5f, 0.5f, 1);
  left.boundaries.left.GROINY = 0.5f;
  left.inlets.INLC(1) = 1;
  EXPECT_GT(factor(left), 0.5f);
  Model right = coast();
  add_groin(right, NX, 0.5f, 0.5f, 1);
  right.boundaries.right.GROINY = 0.5f;
  right.waves.ZB.fill(-0.2f);
  right.inlets.INLC(NX) = 1;
  EXPECT_GT(factor(right), 0.5f);
}

TEST(groin_factors, an_inlet_beside_the_groin_leaves_the_measure_of_the_transport) {
  Model m = groin_coast(0.5f, 0.5f);
  m.inlets.INLC(5) = 1;
  pass(m);
  EXPECT_GT(m.groins.QGR(1), 0.0f);
}

/// The transport at a groin by its formula in double, with the gradient factor NT and the doubled
/// height difference GR.
double measure(double H, double ALF, double NT, double GR) {
  return H * H * 3.0 * (0.02 * std::sin(2.0 * ALF) - NT * GR * std::cos(ALF));
}

TEST(groin_measure, the_transport_that_a_groin_would_see) {
  Model m = groin_coast(30.0f);
  m.waves.HB(6) = 1.5f;
  pass(m);
  EXPECT_NEAR(m.groins.QGR(1), measure(1.5, 0.2, 0.0, 0.0), 1e-6);
  m.waves.ZB.fill(-0.2f);
  pass(m);
  EXPECT_NEAR(m.groins.QGR(1), -measure(1.5, 0.2, 0.0, 0.0), 1e-6);
}

TEST(groin_measure, a_wave_beyond_the_normal_counts_as_along_the_shore) {
  Model m = groin_coast(30.0f);
  for (const float ZB : {2.0f, -2.0f}) {
    m.waves.ZB.fill(ZB);
    pass(m);
    EXPECT_NEAR(m.groins.QGR(1), 0.0, 1e-6) << ZB;
  }
}

TEST(groin_measure, the_gradient_factor_is_cut_to_a_whole_number) {
  Model m = groin_coast(30.0f);
  m.waves.HB(5) = 0.5f;
  m.waves.HB(7) = 1.75f;
  m.profile.K2EFF.fill(199.0f);  // 199/200: none
  pass(m);
  EXPECT_NEAR(m.groins.QGR(1), measure(1.0, 0.2, 0.0, 0.0), 1e-6);
  m.profile.K2EFF.fill(590.0f);  // 590/200: two, with the difference 2 (1 - 0.5) on the left
  pass(m);
  EXPECT_NEAR(m.groins.QGR(1), measure(1.0, 0.2, 2.0, 1.0), 1e-5);
  m.waves.ZB.fill(-0.2f);  // and 2 (1.75 - 1) on the right
  pass(m);
  EXPECT_NEAR(m.groins.QGR(1), measure(1.0, -0.2, 2.0, 1.5), 1e-5);
}

TEST(groin_measure, end_walls_have_no_gradient_towards_the_outside) {
  Model m = coast();
  add_groin(m, 1, 30.0f, 0.0f, 1);
  m.boundaries.left.GROINY = 30.0f;
  m.profile.K2EFF.fill(590.0f);
  m.waves.HB(2) = 3.0f;
  pass(m);
  EXPECT_NEAR(m.groins.QGR(1), measure(1.0, 0.2, 0.0, 0.0), 1e-6);
}

TEST(groin_measure, the_last_wall_has_no_cell_and_its_measure_is_0) {
  for (const float ZB : {0.2f, -0.2f}) {
    Model m = coast();
    add_groin(m, NX + 1, 30.0f, 0.0f, 1);
    m.boundaries.right.GROINY = 30.0f;
    m.profile.K2EFF.fill(590.0f);
    m.profile.K2EFF(NX + 1) = 0.0f;
    m.waves.HB(NX) = 3.0f;
    m.waves.ZB.fill(ZB);
    pass(m);
    EXPECT_EQ(m.groins.QGR(1), 0.0f);
  }
}

TEST(groin_measure, the_wall_before_the_last_cell_has_its_width) {
  // The last cell is 50 m wide: 199/100 gives one where a cell of 100 m would give none.
  Model m = coast();
  add_groin(m, NX, 30.0f, 0.0f, 1);
  m.boundaries.right.GROINY = 30.0f;
  m.grid.DX(NX) = 50.0f;
  m.profile.K2EFF.fill(199.0f);
  m.waves.HB(NX - 1) = 0.5f;
  pass(m);
  EXPECT_NEAR(m.groins.QGR(1), measure(1.0, 0.2, 1.0, 1.0), 1e-5);
}

TEST(groin_measure, huge_and_undefined_gradient_factors_are_harmless) {
  for (const float K2EFF :
       {1e30f, std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()}) {
    Model m = groin_coast(8.0f);
    m.groins.IGCONN(1) = 2;
    m.profile.K2EFF.fill(K2EFF);
    pass(m);
    EXPECT_TRUE(std::isfinite(m.groins.BYPF(1))) << K2EFF;
  }
}

/// A groin that passes a quarter around its tip and a third of the rest through itself, at an end
/// of a breakwater.
Model connected(std::int32_t IGCONN, float ZB) {
  Model m = groin_coast(1.0f, 1.0f / 3.0f);
  m.settings.ASHAPE = 0.75f;
  m.waves.ZB.fill(ZB);
  m.groins.IGCONN(1) = IGCONN;
  m.transport.QBWTIP.fill(9.0f);
  pass(m);
  return m;
}

constexpr double SEEPS = 0.75 / 3.0;
constexpr double ALL = SEEPS + 0.25;

TEST(groins_at_breakwaters, a_free_groin_keeps_its_bypassing) {
  const Model m = connected(0, 0.2f);
  EXPECT_NEAR(m.groins.BYPF(1), ALL, 1e-6);
  EXPECT_EQ(m.transport.QBWTIP(6), 9.0f);
}

TEST(groins_at_breakwaters, a_breakwater_on_the_side_that_sand_comes_from_stops_the_bypassing) {
  for (const bool to_left : {false, true}) {
    for (const std::int32_t IGCONN : {to_left ? 1 : 2, 3}) {
      const Model m = connected(IGCONN, to_left ? -0.2f : 0.2f);
      EXPECT_NEAR(m.groins.BYPF(1), SEEPS, 1e-6) << IGCONN;
      EXPECT_EQ(m.transport.QBWTIP(6), 0.0f) << IGCONN;
    }
  }
}

TEST(groins_at_breakwaters, what_bypasses_to_the_left_goes_into_the_lee_of_a_right_end) {
  const Model m = connected(2, -0.2f);
  EXPECT_NEAR(m.groins.BYPF(1), SEEPS, 1e-6);
  EXPECT_LT(m.groins.QGR(1), 0.0f);
  EXPECT_EQ(m.transport.QBWTIP(6), m.groins.QGR(1) * 0.25f);
}

TEST(groins_at_breakwaters, to_the_right_of_a_left_end_only_a_tip_on_the_line_hands_over) {
  Model m = connected(1, 0.2f);
  EXPECT_NEAR(m.groins.BYPF(1), ALL, 1e-6);
  EXPECT_EQ(m.transport.QBWTIP(6), 9.0f);
  m.shore.YBW(5) = 1.0;  // the tip itself
  pass(m);
  EXPECT_NEAR(m.groins.BYPF(1), SEEPS, 1e-6);
  EXPECT_EQ(m.transport.QBWTIP(6), m.groins.QGR(1) * 0.25f);
}

TEST(groins_at_breakwaters, a_groin_that_sees_no_transport_counts_as_one_to_the_right) {
  // At a left end with the tip off the line nothing is handed over, unlike to the left.
  Model m = groin_coast(1.0f, 1.0f / 3.0f);
  m.settings.ASHAPE = 0.75f;
  m.profile.K1EFF(6) = 0.0f;
  m.groins.IGCONN(1) = 1;
  m.transport.QBWTIP.fill(9.0f);
  pass(m);
  EXPECT_EQ(m.groins.QGR(1), 0.0f);
  EXPECT_NEAR(m.groins.BYPF(1), ALL, 1e-6);
  EXPECT_EQ(m.transport.QBWTIP(6), 9.0f);
}

TEST(groins_at_breakwaters, a_level_groin_between_two_breakwaters_loses_its_bypassing) {
  Model m = groin_coast(0.1f);  // within 20 cm
  m.settings.ASHAPE = 0.75f;
  m.groins.IGCONN(1) = 3;
  pass(m);
  EXPECT_EQ(m.groins.ICSTR(6), 3);
  EXPECT_NEAR(m.groins.BYPF(1), 1.0 - (1.0 - 0.75 * std::pow(0.1, 0.667)), 1e-6);
}

TEST(groins_at_breakwaters, a_buried_groin_has_no_bypassing_to_lose) {
  Model m = groin_coast(50.0f, 0.0f, 4);
  m.groins.IGCONN(1) = 3;
  m.groins.BYPF(1) = 0.5f;
  for (int n = 0; n < 3; ++n) pass(m);
  EXPECT_EQ(m.groins.BYPF(1), 0.5f);
}

TEST(groins_at_breakwaters, a_breakwater_that_begins_on_wall_1_has_no_cell_before_it) {
  Model m = coast();
  add_groin(m, 1, 1.0f, 0.5f, 1);
  m.boundaries.left.GROINY = 500.0f;
  m.groins.IGCONN(1) = 1;
  m.transport.QBWTIP.fill(9.0f);
  pass(m);
  EXPECT_EQ(m.groins.BYPF(1), 0.5f);
  EXPECT_EQ(m.transport.QBWTIP(1), 9.0f);
}

TEST(groin_factors, each_groin_has_its_own_factor) {
  Model m = coast();
  m.waves.HB.fill(2.0f);
  add_groin(m, 4, 5.0f, 0.0f, 1);
  add_groin(m, 6, 10.0f, 0.0f, -1);
  add_groin(m, 9, 500.0f, 0.5f, 1);
  pass(m);
  EXPECT_NEAR(m.groins.BYPF(1), bypassing(5.0, 2.0), 1e-6);
  EXPECT_NEAR(m.groins.BYPF(2), bypassing(10.0, 2.0), 1e-6);
  EXPECT_EQ(m.groins.BYPF(3), 0.5f);
}

}  // namespace
}  // namespace kelprun
