// How the work of a tip goes along the coast: where it begins, what closes it, what it leaves out.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "unit/run/small_model.h"
#include "unit/waves/worked_zone.h"
#include "waves/diffraction.h"

namespace kelprun {
namespace {

using kelptest::BreakwaterPlan;
using kelptest::CoastPlan;
using kelptest::GroinPlan;
using kelptest::OffshoreWave;
using kelptest::ZoneByZone;

double of(float x) { return static_cast<double>(x); }

constexpr OffshoreWave NORMAL{1.0f, 7.0f, 0.0, 20.0f};
constexpr OffshoreWave FROM_LEFT{1.0f, 7.0f, 25.0, 20.0f};
constexpr OffshoreWave FROM_RIGHT{1.0f, 7.0f, -25.0, 20.0f};

Model sea(const CoastPlan& plan, const OffshoreWave& wave) {
  Model m = kelptest::structured_coast(plan);
  kelptest::send_waves(m, wave);
  return m;
}

CoastPlan one_breakwater(std::int32_t state = 1) {
  return {80, 20.0f, {}, {{30, 40, 200.0f, 6.0f, 0.3f, state}}};
}

TEST(diffraction_walk, a_zone_reaches_to_the_first_groin_beyond_either_tip) {
  const CoastPlan plan{80,
                       20.0f,
                       {{10, 80.0f, 3.0f}, {60, 80.0f, 3.0f}},
                       {{20, 28, 200.0f, 6.0f, 0.3f}, {36, 44, 200.0f, 6.0f, 0.3f}}};
  Model m = sea(plan, FROM_LEFT);
  ZoneByZone zones(m);
  zones.compare_all();
  // Tips: -1, 10, 10, 20, 28, 36, 44, 60, 60, -2; zone 5 is the gap between the breakwaters.
  zones.compare(5);
  EXPECT_EQ(zones.zone.IBEG, 10);
  EXPECT_EQ(zones.zone.IEND, 60);
  zones.compare(1);
  EXPECT_EQ(zones.zone.IBEG, 1);
  EXPECT_EQ(zones.zone.IEND, 10);
  zones.compare(9);
  EXPECT_EQ(zones.zone.IBEG, 60);
  EXPECT_EQ(zones.zone.IEND, 81);
}

TEST(diffraction_walk, a_buried_groin_does_not_end_the_reach_and_a_level_one_does) {
  for (const std::int32_t type : {1, 3, 4}) {
    const CoastPlan plan{
        80, 20.0f, {{10, 80.0f, 3.0f, 0.0f, type}}, {{30, 40, 200.0f, 6.0f, 0.3f}}};
    Model m = sea(plan, FROM_LEFT);
    WorkedZone zone;
    zone.Z = 4;  // the breakwater's, between tips 4 and 5
    zone.first.cell = 30;
    find_reach(kelptest::diffracting_coast(m), zone);
    EXPECT_EQ(zone.IBEG, type == 4 ? 1 : 10) << type;
    EXPECT_EQ(zone.IEND, 81);
  }
}

TEST(diffraction_walk, groins_on_both_boundaries_enclose_one_zone) {
  const CoastPlan plan{60, 20.0f, {{1, 80.0f, 3.0f}, {61, 80.0f, 3.0f}}, {}};
  for (const OffshoreWave& wave : {FROM_LEFT, FROM_RIGHT, NORMAL}) {
    SCOPED_TRACE(wave.degrees);
    Model m = sea(plan, wave);
    ZoneByZone zones(m);
    zones.compare(2);
    EXPECT_EQ(zones.zone.IBEG, 1);
    EXPECT_EQ(zones.zone.IEND, 61);
    EXPECT_EQ(zones.zone.first.cell, 1);
    EXPECT_EQ(zones.zone.second.cell, 61);
    // The wall of the left groin always has its wave; that of the right one when it is lit.
    EXPECT_NEAR(zones.share(1), 1.0, 1e-3);
    EXPECT_NEAR(zones.share(61), wave.degrees > 0.0 ? 1.0 : 0.0, 1e-3);
  }
}

TEST(diffraction_walk, a_structure_grown_to_the_beach_leaves_no_shadow_on_the_side_of_the_waves) {
  // The shoreline has come within 2 cm of the line at the cells beside both tips.
  for (const OffshoreWave& wave : {FROM_LEFT, NORMAL, FROM_RIGHT}) {
    SCOPED_TRACE(wave.degrees);
    Model m = sea(one_breakwater(), wave);
    m.shore.Y(30) = 199.99;
    m.shore.Y(39) = 199.99;
    ZoneByZone zones(m);
    zones.compare_all();
    zones.compare(3);
    if (wave.degrees <= 0.0) {
      EXPECT_EQ(zones.zone.ZTPL, -999.0f);
      for (std::int32_t i = 40; i <= 81; ++i) EXPECT_EQ(m.diffraction.HBD(i), m.waves.HBU(i)) << i;
      for (std::int32_t i = 1; i < 40; ++i) EXPECT_EQ(m.diffraction.HBD(i), 0.0f) << i;
    } else {
      EXPECT_LT(zones.share(41), 0.6) << "from the other side the tip bends waves as ever";
    }
    zones.compare(1);
    if (wave.degrees >= 0.0) {
      for (std::int32_t i = 1; i <= 30; ++i) EXPECT_EQ(m.diffraction.HBD(i), m.waves.HBU(i)) << i;
      // Unlike at a left tip the walls behind the structure are worked on, and meant so.
      EXPECT_GT(m.diffraction.HBD(32), 0.0f);
    } else {
      EXPECT_LT(zones.share(29), 0.6);
    }
  }
}

TEST(diffraction_walk, two_centimetres_are_the_limit_of_being_grown_to_the_beach) {
  for (const double gap : {0.019, 0.021}) {
    Model m = sea(one_breakwater(), FROM_RIGHT);
    m.shore.Y(39) = 200.0 - gap;
    ZoneByZone zones(m);
    zones.compare(3);
    EXPECT_EQ(zones.zone.ZTPL == -999.0f, gap < 0.02);
  }
}

TEST(diffraction_walk, two_centimetres_themselves_are_not_grown_to_the_beach) {
  Model m = sea(one_breakwater(), FROM_RIGHT);
  m.shore.YBW(39) = static_cast<double>(0.02f);
  ZoneByZone zones(m);
  ASSERT_TRUE(zones.work(3));
  EXPECT_NE(zones.zone.ZTPL, -999.0f);
}

TEST(diffraction_walk, a_structure_of_the_first_cell_can_grow_to_the_beach) {
  Model m = sea({80, 20.0f, {}, {{1, 2, 200.0f, 6.0f, 0.3f}}}, FROM_RIGHT);
  m.shore.Y(1) = 199.99;
  ZoneByZone zones(m);
  zones.compare(3);
  EXPECT_EQ(zones.zone.ZTPL, -999.0f);
  for (std::int32_t i = 2; i <= 81; ++i) EXPECT_EQ(m.diffraction.HBD(i), m.waves.HBU(i)) << i;
}

TEST(diffraction_walk, structures_on_the_end_walls_work_as_all_others) {
  const std::array<CoastPlan, 6> plans{{
      {80, 20.0f, {{1, 200.0f, 6.0f}}, {}},
      {80, 20.0f, {{81, 200.0f, 6.0f}}, {}},
      {80, 20.0f, {}, {{1, 11, 200.0f, 6.0f, 0.3f}}},
      {80, 20.0f, {}, {{71, 81, 200.0f, 6.0f, 0.3f}}},
      {80, 20.0f, {}, {{1, 11, 200.0f, 6.0f, 1.2f}}},
      {80, 20.0f, {{1, 200.0f, 6.0f}}, {{30, 40, 200.0f, 6.0f, 1.2f}}},
  }};
  for (const CoastPlan& plan : plans)
    for (const OffshoreWave& wave : {FROM_LEFT, NORMAL, FROM_RIGHT}) {
      SCOPED_TRACE(&plan - plans.data());
      SCOPED_TRACE(wave.degrees);
      Model m = sea(plan, wave);
      ZoneByZone(m).compare_all();
    }
}

TEST(diffraction_walk, nothing_of_a_zone_gets_behind_cells_that_the_shoreline_has_filled) {
  Model m = sea(one_breakwater(), FROM_LEFT);
  m.breakwaters.IBWST(33) = -1;
  m.breakwaters.IBWST(36) = -1;
  ZoneByZone zones(m);
  zones.compare_all();
  zones.compare(3);  // from the right, walking down: wall 36 ends it
  for (std::int32_t i = 1; i <= 36; ++i) EXPECT_EQ(m.diffraction.HBD(i), 0.0f) << i;
  EXPECT_GT(m.diffraction.HBD(37), 0.0f);
  zones.compare(1);  // from the left, walking up: the wall right of cell 33 ends it
  for (std::int32_t i = 34; i <= 81; ++i) EXPECT_EQ(m.diffraction.HBD(i), 0.0f) << i;
  EXPECT_GT(m.diffraction.HBD(33), 0.0f);
}

TEST(diffraction_walk, the_wall_where_a_walk_begins_is_worked_though_its_cell_is_filled) {
  Model m = sea(one_breakwater(), FROM_RIGHT);
  for (const std::int32_t cell : {30, 39}) m.breakwaters.IBWST(cell) = -1;
  m.shore.YBW(39) = 250.0;  // not near the beach: only the state acts
  m.shore.YBW(30) = 250.0;
  ZoneByZone zones(m);
  zones.compare_all();
  zones.compare(1);
  EXPECT_GT(m.diffraction.HBD(30), 0.0f);
  EXPECT_EQ(m.diffraction.HBD(31), 0.0f);
  zones.compare(3);
  EXPECT_GT(m.diffraction.HBD(40), 0.0f);
  EXPECT_EQ(m.diffraction.HBD(39), 0.0f);
}

TEST(diffraction_walk, the_starting_wall_is_worked_at_the_limit_of_the_other_tip_as_well) {
  // A right tip one wall ahead of the end: the walk from the end begins at that very wall.
  Model m = sea({80, 20.0f, {}, {{70, 80, 200.0f, 6.0f, 0.3f}}}, FROM_LEFT);
  m.breakwaters.IBWST(80) = -1;
  ZoneByZone zones(m);
  zones.compare(3);
  EXPECT_GT(m.diffraction.HBD(80), 0.0f);
}

TEST(diffraction_walk, walls_between_two_cells_of_an_inlet_are_inside_it) {
  // Cells 1 and 2, and the last two of 80.
  Model m = sea(one_breakwater(), NORMAL);
  for (const std::int32_t cell : {1, 2, 79, 80}) m.inlets.INLC(cell) = 1;
  const DiffractingCoast coast = kelptest::diffracting_coast(m);
  for (std::int32_t i = 1; i <= 81; ++i) EXPECT_EQ(coast.inside_inlet(i), i == 2 || i == 80) << i;
}

TEST(diffraction_walk, inside_an_inlet_there_is_no_wave) {
  Model m = sea(one_breakwater(), FROM_LEFT);
  m.inlets.NINL = 1;
  m.inlets.IINLS = kelptest::list(std::array{50});
  m.inlets.IINLE = kelptest::list(std::array{53});
  for (std::int32_t i = 50; i <= 53; ++i) m.inlets.INLC(i) = 1;
  ZoneByZone zones(m);
  zones.compare_all();
  for (const std::int32_t Z : {3, 1, 2}) {
    zones.compare(Z);
    for (const std::int32_t i : {51, 52, 53}) EXPECT_EQ(m.diffraction.HBD(i), 0.0f);
  }
  zones.compare(3);
  EXPECT_GT(m.diffraction.HBD(50), 0.5f) << "the walls at its mouth are worked";
  EXPECT_GT(m.diffraction.HBD(54), 0.5f) << "and the walks go on beyond it";
}

/// A groin at wall 40 at the right end, the left end or in the middle of breakwaters.
CoastPlan l_groin_with_breakwater_on_the_left() {
  return {80, 20.0f, {{40, 200.0f, 6.0f}}, {{30, 40, 200.0f, 6.0f, 0.3f}}};
}
CoastPlan l_groin_with_breakwater_on_the_right() {
  return {80, 20.0f, {{40, 200.0f, 6.0f}}, {{40, 50, 200.0f, 6.0f, 0.3f}}};
}
CoastPlan t_groin() {
  return {80,
          20.0f,
          {{40, 200.0f, 6.0f}},
          {{30, 40, 200.0f, 6.0f, 0.3f}, {40, 50, 200.0f, 6.0f, 0.5f}}};
}

/// Heights at the groin's wall that the zones bring, in the order of the work.
std::vector<float> at_the_groin(Model& m) {
  ZoneByZone zones(m);
  std::vector<float> heights;
  for (std::int32_t n = 1; n <= m.zones.NZACT; ++n) {
    zones.compare(m.zones.ZORDER(n));
    const bool reached = zones.zone.IBEG <= 40 && zones.zone.IEND >= 40;
    heights.push_back(reached ? m.diffraction.HBD(40) : 0.0f);
  }
  return heights;
}

TEST(diffraction_walk, a_groin_at_the_right_end_of_a_breakwater_has_the_wave_of_one_zone) {
  // Zones in order: 1 open on the left, 4 open on the right of the groin, 2 behind the breakwater.
  for (const OffshoreWave& wave : {FROM_LEFT, NORMAL, FROM_RIGHT}) {
    SCOPED_TRACE(wave.degrees);
    Model m = sea(l_groin_with_breakwater_on_the_left(), wave);
    ASSERT_EQ(m.groins.IGSHAD(40), 2);
    const std::vector<float> heights = at_the_groin(m);
    const float HBU = m.waves.HBU(40);
    ASSERT_EQ(heights.size(), 3u);
    EXPECT_EQ(heights[0], wave.degrees > 0.0 ? HBU : 0.0f);
    EXPECT_EQ(heights[1], wave.degrees > 0.0 ? 0.0f : HBU);
    EXPECT_EQ(heights[2], 0.0f) << "the wall has been served in this step";
    EXPECT_EQ(m.diffraction.DONE(40), 1);
  }
}

TEST(diffraction_walk, a_groin_at_the_left_end_of_a_breakwater_has_the_wave_of_one_zone) {
  // Zones in order: 1 open on the left of the groin, 4 open on the right, 3 behind the breakwater.
  for (const OffshoreWave& wave : {FROM_LEFT, NORMAL, FROM_RIGHT}) {
    SCOPED_TRACE(wave.degrees);
    Model m = sea(l_groin_with_breakwater_on_the_right(), wave);
    ASSERT_EQ(m.groins.IGSHAD(40), 1);
    const std::vector<float> heights = at_the_groin(m);
    const float HBU = m.waves.HBU(40);
    ASSERT_EQ(heights.size(), 3u);
    EXPECT_EQ(heights[0], wave.degrees > 0.0 ? HBU : 0.0f);
    EXPECT_EQ(heights[1], wave.degrees > 0.0 ? 0.0f : HBU);
    EXPECT_EQ(heights[2], 0.0f);
    EXPECT_EQ(m.diffraction.DONE(40), 1);
  }
}

TEST(diffraction_walk, the_wall_of_a_t_groin_has_no_wave) {
  for (const OffshoreWave& wave : {FROM_LEFT, NORMAL, FROM_RIGHT}) {
    SCOPED_TRACE(wave.degrees);
    Model m = sea(t_groin(), wave);
    ASSERT_EQ(m.groins.IGSHAD(40), 3);
    for (const float H : at_the_groin(m)) EXPECT_EQ(H, 0.0f);
    EXPECT_EQ(m.diffraction.DONE(40), 0);
  }
}

TEST(diffraction_walk, behind_a_breakwater_that_ends_on_a_groin_both_orders_of_tips_agree) {
  // The two layouts are mirror images, and their dim zones find the groin at different tips.
  Model left = sea(l_groin_with_breakwater_on_the_left(), FROM_LEFT);
  ZoneByZone zones_left(left);
  zones_left.compare_all();
  zones_left.compare(2);
  // Mirror image: NX + 2 - i takes wall 40 to wall 42 of a coast of 80 cells.
  const CoastPlan plan{80, 20.0f, {{42, 200.0f, 6.0f}}, {{42, 52, 200.0f, 6.0f, 0.3f}}};
  Model right = sea(plan, FROM_RIGHT);
  ZoneByZone zones_right(right);
  zones_right.compare_all();
  zones_right.compare(3);
  for (std::int32_t i = 30; i <= 39; ++i)
    EXPECT_NEAR(of(left.diffraction.HBD(i)), of(right.diffraction.HBD(82 - i)), 1e-6) << i;
  EXPECT_GT(left.diffraction.HBD(36), 0.1f);
}

TEST(diffraction_walk, a_breakwater_between_two_groins_of_its_own) {
  const CoastPlan plan{
      80, 20.0f, {{30, 200.0f, 6.0f}, {40, 200.0f, 6.0f}}, {{30, 40, 200.0f, 6.0f, 0.5f}}};
  for (const OffshoreWave& wave : {FROM_LEFT, NORMAL, FROM_RIGHT}) {
    SCOPED_TRACE(wave.degrees);
    Model m = sea(plan, wave);
    ZoneByZone(m).compare_all();
  }
}

TEST(diffraction_walk, a_breakwater_that_ends_on_a_boundary_groin) {
  const CoastPlan right{60, 20.0f, {{61, 200.0f, 6.0f}}, {{50, 61, 200.0f, 6.0f, 0.4f}}};
  const CoastPlan left{60, 20.0f, {{1, 200.0f, 6.0f}}, {{1, 12, 200.0f, 6.0f, 0.4f}}};
  for (const CoastPlan& plan : {right, left}) {
    for (const OffshoreWave& wave : {FROM_LEFT, NORMAL, FROM_RIGHT}) {
      SCOPED_TRACE(wave.degrees);
      Model m = sea(plan, wave);
      ZoneByZone(m).compare_all();
    }
  }
}

TEST(diffraction_walk, the_waves_of_a_zone_stay_between_its_groins) {
  const CoastPlan plan{80, 20.0f, {{20, 120.0f, 3.0f, 0.5f}, {60, 120.0f, 3.0f, 0.5f}}, {}};
  Model m = sea(plan, FROM_LEFT);
  m.waves.HBU.fill(0.0f);  // no wave inside: what the other zones bring must not get there
  for (std::int32_t i = 1; i <= 19; ++i) m.waves.HBU(i) = 1.0f;
  for (std::int32_t i = 61; i <= 81; ++i) m.waves.HBU(i) = 1.0f;
  ASSERT_TRUE(kelptest::combine_zones(m));
  for (std::int32_t i = 20; i <= 60; ++i) EXPECT_EQ(m.waves.HB(i), 0.0f) << i;
  EXPECT_EQ(m.waves.HB(10), 1.0f);
}

/// Coefficients are shares and no height rises above the open sea's, on any coast.
TEST(diffraction_walk, random_coasts_agree_with_the_reference_bit_by_bit_and_stay_within_bounds) {
  kelptest::Random random(2024);
  int worked = 0;
  for (int n = 0; n < 300; ++n) {
    SCOPED_TRACE(n);
    Model m = kelptest::random_sea(random);
    ZoneByZone zones(m);
    for (std::int32_t at = 1; at <= m.zones.NZACT; ++at) {
      const std::int32_t Z = m.zones.ZORDER(at);
      if (m.zones.KTZ(Z) <= 0.01f || m.tips.TIPOFF(Z) == 1) continue;
      SCOPED_TRACE(Z);
      if (!zones.work(Z)) continue;
      ++worked;
      zones.expect_same();
      const Diffraction& d = m.diffraction;
      const float most = std::max(1.0f, m.zones.KTZ(Z));
      for (std::int32_t i = zones.zone.IBEG; i <= zones.zone.IEND; ++i) {
        for (const std::int32_t j : {zones.zone.first.ITP, zones.zone.second.ITP}) {
          ASSERT_GE(d.KDTAB(j)(i), 0.0f) << i;
          ASSERT_LE(d.KDTAB(j)(i), 1.0f) << i;
        }
        ASSERT_GE(d.KDB(i), 0.0f) << i;
        ASSERT_LE(d.KDB(i), 1.0f) << i;
        ASSERT_GE(d.HBD(i), 0.0f) << i;
        ASSERT_LE(d.HBD(i), m.waves.HBU(i) * most) << i;
        ASSERT_TRUE(d.IZONE(i) == 0 || std::abs(d.ZRAY(i)) < 3.2f) << i;
      }
    }
  }
  EXPECT_GT(worked, 1000);
}

}  // namespace
}  // namespace kelprun
