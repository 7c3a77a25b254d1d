#include "waves/zones.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>

#include "unit/run/small_model.h"
#include "unit/waves/diffracting_coast.h"
#include "unit/waves/reference_field.h"
#include "unit/waves/structured_coast.h"
#include "waves/kernel.h"

namespace kelprun {
namespace {

using kelptest::CoastPlan;
using kelptest::OffshoreWave;
using kelptest::ReferenceField;

constexpr OffshoreWave NORMAL{1.0f, 7.0f, 0.0, 20.0f};
constexpr OffshoreWave FROM_LEFT{1.0f, 7.0f, 25.0, 20.0f};
constexpr OffshoreWave FROM_RIGHT{1.0f, 7.0f, -25.0, 20.0f};

double of(float x) { return static_cast<double>(x); }

Model sea(const CoastPlan& plan, const OffshoreWave& wave) {
  Model m = kelptest::structured_coast(plan);
  kelptest::send_waves(m, wave);
  return m;
}

CoastPlan one_breakwater(float KT = 0.3f, std::int32_t state = 1) {
  return {80, 20.0f, {}, {{30, 40, 200.0f, 6.0f, KT, state}}};
}

/// The field of the model beside both references: to the bit, and to rounding.
void compare(Model& m) {
  ReferenceField<float> same(m);
  ReferenceField<double> exact(m);
  ASSERT_TRUE(kelptest::combine_zones(m));
  ASSERT_TRUE(same.combine());
  ASSERT_TRUE(exact.combine());
  for (std::int32_t i = 1; i <= m.grid.NX + 1; ++i) {
    const auto n = static_cast<std::size_t>(i);
    EXPECT_EQ(m.waves.HB(i), same.HB[n]) << "wall " << i;
    EXPECT_EQ(m.waves.ZB(i), same.ZB[n]) << "wall " << i;
    EXPECT_NEAR(of(m.waves.HB(i)), exact.HB[n], 3e-4) << "wall " << i;
    EXPECT_NEAR(of(m.waves.ZB(i)), exact.ZB[n], 3e-4) << "wall " << i;
  }
}

void expect_equal_fields(const Model& a, const Model& b) {
  for (std::int32_t i = 1; i <= a.grid.NX + 1; ++i) {
    EXPECT_EQ(a.waves.HB(i), b.waves.HB(i)) << "wall " << i;
    EXPECT_EQ(a.waves.ZB(i), b.waves.ZB(i)) << "wall " << i;
  }
}

TEST(zones, fields_of_breakwaters_and_groins_are_those_of_the_reference) {
  const std::array plans{
      one_breakwater(),
      CoastPlan{80, 20.0f, {{40, 120.0f, 3.0f, 0.3f}}, {}},
      CoastPlan{80, 20.0f, {}, {{20, 30, 150.0f, 5.0f, 0.2f}, {38, 50, 150.0f, 5.0f, 0.6f}}},
      CoastPlan{80, 20.0f, {{1, 90.0f, 3.0f}, {81, 90.0f, 3.0f}}, {{30, 40, 150.0f, 5.0f, 0.2f}}},
      CoastPlan{80,
                20.0f,
                {{40, 200.0f, 6.0f}},
                {{30, 40, 200.0f, 6.0f, 0.3f}, {40, 50, 200.0f, 6.0f, 0.5f}}},
      CoastPlan{80, 20.0f, {{40, 200.0f, 6.0f, 0.2f}}, {{30, 40, 200.0f, 6.0f, 0.3f}}},
      CoastPlan{80, 20.0f, {{40, 200.0f, 6.0f, 0.2f}}, {{40, 50, 200.0f, 6.0f, 0.3f}}}};
  for (std::size_t n = 0; n < plans.size(); ++n) {
    for (const OffshoreWave& wave : {FROM_LEFT, NORMAL, FROM_RIGHT}) {
      SCOPED_TRACE(testing::Message() << "plan " << n << ", " << wave.degrees << " degrees");
      Model m = sea(plans[n], wave);
      compare(m);
    }
  }
}

TEST(zones, without_an_active_tip_the_undiffracted_field_counts_once) {
  Model m = sea(one_breakwater(0.3f, -2), FROM_LEFT);
  ASSERT_EQ(m.tips.TIPOFF(2), 1);
  ASSERT_EQ(m.tips.TIPOFF(3), 1);
  m.inlets.NINL = 1;
  m.inlets.IINLS = kelptest::list(std::array{50});
  m.inlets.IINLE = kelptest::list(std::array{52});
  for (std::int32_t i = 50; i <= 52; ++i) m.inlets.INLC(i) = 1;
  ASSERT_TRUE(kelptest::combine_zones(m));
  for (std::int32_t i = 1; i <= 81; ++i) {
    const bool inside = i == 51 || i == 52;
    EXPECT_FLOAT_EQ(m.waves.HB(i), inside ? 0.0f : m.waves.HBU(i)) << i;
    EXPECT_NEAR(of(m.waves.ZB(i)), inside ? 0.0 : of(m.waves.ZBU(i)), 1e-6) << i;
  }
}

TEST(zones, a_zone_that_lets_a_hundredth_or_less_through_adds_nothing) {
  // Deep in the lee the open zones bring next to nothing, so that the zone's own part shows.
  const auto middle = [](float KT) {
    Model m = sea({120, 20.0f, {}, {{30, 90, 120.0f, 5.0f, KT}}}, NORMAL);
    EXPECT_TRUE(kelptest::combine_zones(m));
    return of(m.waves.HB(60)) / of(m.waves.HBU(60));
  };
  const double dark = middle(0.0f);
  EXPECT_EQ(middle(0.01f), dark);
  EXPECT_EQ(middle(0.009f), dark);
  EXPECT_LT(dark, 0.05);
  EXPECT_NEAR(std::sqrt(middle(0.02f) * middle(0.02f) - dark * dark), 0.02, 1e-4);
}

TEST(zones, heights_of_the_zones_add_in_squares) {
  // Under normal waves, symmetric about wall 35: both gaps bring the same height H, and what they
  // leave, 0.3 (1 - H^2), comes through the breakwater.
  Model m = sea(one_breakwater(0.3f), NORMAL);
  ReferenceField<double> left(m);
  ASSERT_TRUE(left.work(1));
  const double gap = left.HBD[35] / of(m.waves.HBU(35));
  ASSERT_GT(gap, 0.05);
  ASSERT_TRUE(kelptest::combine_zones(m));
  const double behind = 0.3 * (1.0 - gap * gap);
  EXPECT_NEAR(of(m.waves.HB(35)) / of(m.waves.HBU(35)),
              std::sqrt(2.0 * gap * gap + behind * behind), 1e-4);
}

TEST(zones, angles_are_means_of_doubled_angles_weighted_with_energy) {
  Model m = sea(one_breakwater(), FROM_LEFT);
  ReferenceField<double> reference(m);
  double sum = 0.0, energy = 0.0;
  for (const std::int32_t Z : {1, 3, 2}) {
    ASSERT_TRUE(reference.work(Z));
    const double H = reference.HBD[36];
    energy += H * H;
    sum += H * H * std::sin(2.0 * reference.ZBD[36]);
  }
  ASSERT_TRUE(kelptest::combine_zones(m));
  EXPECT_NEAR(of(m.waves.ZB(36)), 0.5 * std::asin(sum / energy), 1e-4);
  EXPECT_NEAR(of(m.waves.HB(36)), std::sqrt(energy), 1e-4);
}

TEST(zones, a_breakwater_that_the_shoreline_has_passed_is_as_if_it_were_not_there) {
  // Alone; between two others; at the side of a groin.
  const kelptest::BreakwaterPlan passed{35, 45, 20.0f, 2.0f, 0.3f, -2};
  const std::array<CoastPlan, 2> plans{
      CoastPlan{120, 20.0f, {}, {{15, 22, 200.0f, 6.0f, 0.2f}, {60, 70, 200.0f, 6.0f, 0.4f}}},
      CoastPlan{120, 20.0f, {}, {{60, 70, 200.0f, 6.0f, 0.4f}}}};
  for (const CoastPlan& without : plans) {
    CoastPlan with = without;
    with.breakwaters.insert(with.breakwaters.end() - 1, passed);
    for (const OffshoreWave& wave : {FROM_LEFT, NORMAL, FROM_RIGHT}) {
      SCOPED_TRACE(wave.degrees);
      Model m = sea(with, wave);
      Model open = sea(without, wave);
      compare(m);
      ASSERT_TRUE(kelptest::combine_zones(open));
      expect_equal_fields(m, open);
    }
  }
}

TEST(zones, a_buried_groin_on_the_left_boundary_leaves_the_coast_open_there) {
  const std::vector<kelptest::BreakwaterPlan> breakwaters{{30, 40, 200.0f, 6.0f, 0.3f}};
  for (const OffshoreWave& wave : {FROM_LEFT, NORMAL, FROM_RIGHT}) {
    SCOPED_TRACE(wave.degrees);
    Model m = sea({80, 20.0f, {{1, 40.0f, 2.0f, 0.0f, 4}}, breakwaters}, wave);
    Model open = sea({80, 20.0f, {}, breakwaters}, wave);
    compare(m);
    ASSERT_TRUE(kelptest::combine_zones(open));
    expect_equal_fields(m, open);
  }
}

TEST(zones, a_filled_first_cell_behind_a_buried_groin_has_no_wave) {
  // The groin on wall 1 is passed, so that the zone of the breakwater begins at the open end.
  Model m = sea({80, 20.0f, {{1, 200.0f, 6.0f, 0.0f, 4}}, {{1, 11, 200.0f, 6.0f, 0.3f}}}, NORMAL);
  m.breakwaters.IBWST(1) = -1;
  compare(m);
  EXPECT_EQ(m.waves.HB(1), 0.0f);
  EXPECT_GT(m.waves.HB(2), 0.0f);
}

TEST(zones, the_search_for_an_active_tip_ends_at_the_last_one) {
  // A buried groin on the right boundary is the end of the list and bends the waves all the same:
  // at its own wall, straight behind it, half of the energy arrives under normal waves.
  const std::vector<kelptest::BreakwaterPlan> breakwaters{{30, 40, 200.0f, 6.0f, 0.3f}};
  for (const OffshoreWave& wave : {FROM_LEFT, NORMAL, FROM_RIGHT}) {
    SCOPED_TRACE(wave.degrees);
    Model m = sea({80, 20.0f, {{81, -5.0f, 1.5f, 0.0f, 4}}, breakwaters}, wave);
    compare(m);
    const double share = of(m.waves.HB(81)) / of(m.waves.HBU(81));
    EXPECT_TRUE(wave.degrees != 0.0 || std::abs(share - std::sqrt(0.5)) < 1e-4) << share;
  }
}

/// A zone of one open gap whose working arrays hold chosen values at wall 10.
struct Merged {
  Merged() : m(kelptest::structured_coast({20, 20.0f, {}, {{5, 15, 200.0f, 6.0f, 0.3f}}})) {
    kelptest::send_waves(m, FROM_LEFT);
    zone.Z = 3;
    zone.KT = 1.0f;
    zone.IBEG = 1;
    zone.IEND = 21;
    zone.first = {3, 15, 0.3f, 0.0f, true, 0.09f, false};
    zone.second = {4, LAST_TIP, 1.0f, 0.0f, false, 0.13f, false};
    Diffraction& d = m.diffraction;
    d.HBD.fill(0.6f);
    d.ZBD.fill(0.15f);
    d.ZRAY.fill(-0.5f);
    d.WRAMP1.fill(0.75f);
    d.WRAMP2.fill(0.25f);
    m.shore.ALPHA.fill(0.1f);
    m.waves.WKBU.fill(0.2f);
  }
  /// Angle at wall 10 with the acting tip of that kind.
  double angle(std::int32_t IZONE) {
    m.diffraction.IZONE.fill(IZONE);
    m.diffraction.ZBD.fill(0.15f);
    MERGEDIFF(kelptest::diffracting_coast(m), zone, m.waves, m.diffraction);
    return of(m.diffraction.ZBD(10));
  }
  /// Snell's law from wave number kk to that at the depth of breaking, 0.6/0.78 m.
  double refracted(double a, double kk) const {
    const double d = 0.6 / 0.78;
    const double sigma = 2.0 * 3.141593 / 7.0;
    double kb = 1.0;
    for (int n = 0; n < 60; ++n) {
      const double t = std::tanh(kb * d);
      kb -= (9.806 * kb * t - sigma * sigma) / (9.806 * t + 9.806 * kb * d * (1.0 - t * t));
    }
    return 0.1 + std::asin(kk * std::sin(a - 0.1) / kb);
  }
  Model m;
  WorkedZone zone;
};

// The wave number at breaking is good to 1e-4 of itself.
constexpr double MERGED = 1e-4;

TEST(zones, the_first_tips_ray_is_blended_with_the_undiffracted_angle) {
  Merged c;
  EXPECT_NEAR(c.angle(1), c.refracted(-0.5 * 0.75 + 0.15 * 0.25, 0.75 * 0.09 + 0.25 * 0.2), MERGED);
}

TEST(zones, the_second_tips_ray_is_blended_by_its_own_weight) {
  Merged c;
  EXPECT_NEAR(c.angle(2), c.refracted(-0.5 * 0.25 + 0.15 * 0.75, 0.25 * 0.13 + 0.75 * 0.2), MERGED);
}

TEST(zones, where_no_tip_acts_the_undiffracted_wave_is_refracted) {
  Merged c;
  EXPECT_NEAR(c.angle(0), c.refracted(0.15, 0.2), MERGED);
}

TEST(zones, where_both_tips_act_the_mean_ray_has_the_mean_wave_number) {
  Merged c;
  EXPECT_NEAR(c.angle(12), c.refracted(-0.5, 0.11), MERGED);
}

TEST(zones, what_passes_a_groin_keeps_part_of_the_undiffracted_angle) {
  Merged c;
  c.m.zones.KTZ(2) = -1.0f;  // the tip is a groin's
  c.zone.first.KTn = -0.4f;
  const double w2 = std::pow(0.4, 0.2);
  const double ray = -0.5 * 0.75 + 0.15 * 0.25;
  EXPECT_NEAR(c.angle(1), c.refracted(ray * (1.0 - w2) + 0.15 * w2, w2 * 0.2 + (1.0 - w2) * 0.09),
              MERGED);
  c.zone.first.KTn = 0.0f;  // a tight one lets nothing through
  EXPECT_NEAR(c.angle(1), c.refracted(ray, 0.75 * 0.09 + 0.25 * 0.2), MERGED);
  c.zone.first.KTn = -0.4f;
  EXPECT_NEAR(c.angle(2), c.refracted(-0.5 * 0.25 + 0.15 * 0.75, 0.25 * 0.13 + 0.75 * 0.2), MERGED)
      << "the right tip is not on it";
}

TEST(zones, what_passes_a_groin_at_the_right_tip_keeps_part_of_the_undiffracted_angle) {
  Merged c;
  c.zone.Z = 1;
  c.m.zones.KTZ(2) = -1.0f;
  c.zone.second.KTn = -0.4f;
  const double w2 = std::pow(0.4, 0.2);
  const double ray = -0.5 * 0.25 + 0.15 * 0.75;
  EXPECT_NEAR(c.angle(2), c.refracted(ray * (1.0 - w2) + 0.15 * w2, w2 * 0.2 + (1.0 - w2) * 0.13),
              MERGED);
}

TEST(zones, diffracted_waves_of_a_centimetre_are_none) {
  Merged c;
  c.m.diffraction.HBD(10) = 0.01f;
  EXPECT_EQ(c.angle(1), 0.0);
  EXPECT_EQ(c.m.diffraction.HBD(10), 0.0f);
  c.m.diffraction.HBD(10) = 0.0101f;
  EXPECT_NE(c.angle(1), 0.0);
  EXPECT_EQ(c.m.diffraction.HBD(10), 0.0101f);
}

TEST(zones, a_wave_number_above_that_at_breaking_leaves_the_angle_as_it_is) {
  Merged c;
  c.m.waves.WKBU.fill(3.0f);
  EXPECT_EQ(c.angle(0), of(0.15f));
}

TEST(zones, a_wave_number_equal_to_that_at_breaking_keeps_the_angle_of_the_ray) {
  Merged c;
  c.zone.first.k = c.zone.second.k = wave_number(c.m.waves.WK0, 0.6f * (1.0f / 0.78f));
  EXPECT_NEAR(c.angle(12), -0.5, 1e-6);
}

TEST(zones, a_marked_shoreline_orientation_counts_without_its_mark) {
  Merged c;
  const double plain = c.angle(1);
  c.m.shore.ALPHA.fill(999.1f);
  EXPECT_NEAR(c.angle(1), plain, 1e-4);
}

TEST(zones, at_its_own_groins_a_zone_keeps_the_angle_of_the_tip_that_acts) {
  Merged c;
  c.zone.IBEG = 10;
  c.m.groins.ICSTR(10) = 1;
  EXPECT_EQ(c.angle(1), of(0.15f));
  EXPECT_NE(c.angle(2), of(0.15f));
  c.m.groins.ICSTR(10) = 3;
  EXPECT_NE(c.angle(1), of(0.15f)) << "a groin level with the shoreline is none here";
  c.m.groins.ICSTR(10) = 1;
  c.zone.IBEG = 1;
  c.zone.IEND = 10;
  EXPECT_EQ(c.angle(2), of(0.15f));
  EXPECT_NE(c.angle(1), of(0.15f));
}

// Neighbour values and brightness show in the field: each is turned by hand in one place.

TEST(zones, a_groin_that_is_tight_on_one_side_is_tight_by_its_own_permeability) {
  // Groins at walls 30 and 50 of different permeability: each shadow has its own groin's share.
  const auto lee = [](float first, float second, std::int32_t wall) {
    Model m = sea({80, 20.0f, {{30, 120.0f, 3.0f, first}, {50, 120.0f, 3.0f, second}}, {}},
                  {1.0f, 7.0f, 50.0, 20.0f});
    EXPECT_TRUE(kelptest::combine_zones(m));
    return of(m.waves.HB(wall)) / of(m.waves.HBU(wall));
  };
  const double dark = lee(0.0f, 0.0f, 31);
  EXPECT_NEAR(lee(0.0f, 0.0f, 51), dark, 1e-6);
  EXPECT_NEAR(lee(0.5f, 0.0f, 51), dark, 1e-6);
  EXPECT_NEAR(lee(0.5f, 0.0f, 31), std::sqrt(dark * dark * 0.5 + 0.5), 0.02);
  EXPECT_NEAR(lee(0.0f, 0.5f, 31), dark, 1e-6);
}

TEST(zones, the_water_level_adds_to_the_depth_at_the_tip_of_a_short_groin) {
  // The deeper water lets less of the surf zone past: the shadow behind the groin is darker.
  const auto lee = [](const OffshoreWave& wave, float WL) {
    Model m = sea({80, 20.0f, {{40, 15.0f, 1.5f}}, {}}, wave);
    m.series.WL = WL;
    compare(m);
    return m.waves.HB(wave.degrees > 0.0 ? 41 : 39);
  };
  EXPECT_LT(lee(FROM_LEFT, 0.3f), lee(FROM_LEFT, 0.0f));
  EXPECT_LT(lee(FROM_RIGHT, 0.3f), lee(FROM_RIGHT, 0.0f));
}

TEST(zones, waves_along_the_shoreline_normal_of_a_short_groin_bring_nothing_past_it) {
  for (const OffshoreWave& wave : {FROM_LEFT, FROM_RIGHT}) {
    Model m = sea({80, 20.0f, {{40, 15.0f, 1.5f}}, {}}, wave);
    SCOPED_TRACE(wave.degrees);
    const std::int32_t lee = wave.degrees > 0.0 ? 41 : 39;
    compare(m);
    const float past = m.waves.HB(lee);
    m.shore.ALPHA(40) = m.diffraction.tip_waves(2).Z;
    compare(m);
    EXPECT_LT(m.waves.HB(lee), past);
  }
}

TEST(zones, a_groin_near_an_end_of_the_coast_takes_the_length_given_for_the_boundary) {
  // Two cells are wanted on the side that the waves come from to draw the shoreline on.
  const auto lee = [](std::int32_t wall, const OffshoreWave& wave, float GROINY) {
    Model m = sea({80, 20.0f, {{wall, 60.0f, 3.0f}}, {}}, wave);
    m.boundaries.left.GROINY = GROINY;
    m.boundaries.right.GROINY = GROINY;
    compare(m);
    return of(m.waves.HB(wave.degrees > 0.0 ? wall + 1 : wall - 1));
  };
  for (const std::int32_t wall : {2, 3, 4})
    EXPECT_EQ(lee(wall, FROM_LEFT, 5.0f) > lee(wall, FROM_LEFT, 50.0f) + 0.02, wall == 2) << wall;
  for (const std::int32_t wall : {78, 79, 80})
    EXPECT_EQ(lee(wall, FROM_RIGHT, 5.0f) > lee(wall, FROM_RIGHT, 50.0f) + 0.02, wall == 80)
        << wall;
}

TEST(zones, a_groin_at_a_breakwater_is_served_anew_in_every_step) {
  Model m = sea({80, 20.0f, {{1, 90.0f, 3.0f}, {40, 200.0f, 6.0f}}, {{30, 40, 200.0f, 6.0f, 0.3f}}},
                FROM_LEFT);
  ASSERT_TRUE(kelptest::combine_zones(m));
  const float first_step = m.waves.HB(40);
  EXPECT_FLOAT_EQ(first_step, m.waves.HBU(40));
  ASSERT_TRUE(kelptest::combine_zones(m));
  EXPECT_EQ(m.waves.HB(40), first_step);
}

TEST(zones, one_symmetric_breakwater_under_normal_waves_gives_a_symmetric_field) {
  Model m = sea(one_breakwater(), NORMAL);
  ASSERT_TRUE(kelptest::combine_zones(m));
  for (int n = 0; n <= 29; ++n) {
    EXPECT_NEAR(of(m.waves.HB(35 - n)), of(m.waves.HB(35 + n)), 1e-6) << n;
    EXPECT_NEAR(of(m.waves.ZB(35 - n)), -of(m.waves.ZB(35 + n)), 1e-6) << n;
  }
}

/// The coast seen from the sea's other side: cells, waves and orientations reversed.
Model mirror_image(const CoastPlan& plan, const Model& m, OffshoreWave wave) {
  const std::int32_t NX = plan.NX;
  CoastPlan mirrored{NX, plan.DX};
  for (auto g = plan.groins.rbegin(); g != plan.groins.rend(); ++g)
    mirrored.groins.push_back({NX + 2 - g->wall, g->Y, g->D, g->permeability});
  for (auto b = plan.breakwaters.rbegin(); b != plan.breakwaters.rend(); ++b)
    mirrored.breakwaters.push_back({NX + 2 - b->right, NX + 2 - b->left, b->Y, b->D, b->KT});
  Model image = kelptest::structured_coast(mirrored);
  for (std::int32_t i = 1; i <= NX; ++i) image.shore.Y(NX + 1 - i) = m.shore.Y(i);
  for (std::int32_t i = 1; i <= NX + 1; ++i) image.shore.ALPHA(NX + 2 - i) = -m.shore.ALPHA(i);
  wave.degrees = -wave.degrees;
  kelptest::send_waves(image, wave);
  return image;
}

TEST(zones, a_mirrored_coast_with_mirrored_waves_has_the_mirrored_field) {
  // Structures that stand free, a winding shoreline, oblique waves. What is left out here has rules
  // that know left from right: waves exactly normal (or tips deeper than the reference depth, whose
  // wave is normal) at a groin count as coming from the right; a groin on the right boundary may
  // lose its wall's wave and one on the left not; the blend within half a wave length of the tip
  // takes the shoreline of the cell right of the wall; a groin at the end of a breakwater gives its
  // wall to the first zone from the left; a structure within 2 cm of the beach is passed by the
  // walk of a right tip only; zones brighter than open water keep their place in the order of work.
  kelptest::Random random(17);
  for (int n = 0; n < 100; ++n) {
    SCOPED_TRACE(n);
    CoastPlan plan{random.whole(60, 110), random.real(8.0, 35.0)};
    for (std::int32_t wall = random.whole(4, 12); wall < plan.NX - 18;) {
      const float Y = random.real(150.0, 250.0);
      const float D = random.real(2.0, 9.0);
      const std::int32_t right = wall + random.whole(2, 9);
      if (random.whole(0, 1) == 0)
        plan.groins.push_back({wall, Y, D, random.real(0.0, 1.0)});
      else
        plan.breakwaters.push_back({wall, right, Y, D, random.real(0.02, 0.9)});
      wall = right + random.whole(2, 12);
    }
    OffshoreWave wave{random.real(0.3, 2.0), random.real(4.0, 9.0), random.between(1.0, 60.0),
                      20.0f};
    if (random.whole(0, 1) == 0) wave.degrees = -wave.degrees;
    Model m = kelptest::structured_coast(plan);
    double Y = 0.0;
    for (std::int32_t i = 1; i <= plan.NX; ++i) m.shore.Y(i) = Y += random.between(-3.0, 3.0);
    for (std::int32_t i = 1; i <= plan.NX + 1; ++i) m.shore.ALPHA(i) = random.real(-0.3, 0.3);
    kelptest::send_waves(m, wave);
    Model image = mirror_image(plan, m, wave);
    ASSERT_TRUE(kelptest::combine_zones(m));
    ASSERT_TRUE(kelptest::combine_zones(image));
    for (std::int32_t i = 1; i <= plan.NX + 1; ++i) {
      ASSERT_NEAR(of(m.waves.HB(i)), of(image.waves.HB(plan.NX + 2 - i)), 1e-6) << i;
      ASSERT_NEAR(of(m.waves.ZB(i)), -of(image.waves.ZB(plan.NX + 2 - i)), 1e-6) << i;
    }
  }
}

TEST(zones, random_coasts_agree_with_the_reference_bit_by_bit) {
  kelptest::Random random(99);
  int converged = 0;
  for (int n = 0; n < 400; ++n) {
    SCOPED_TRACE(n);
    Model m = kelptest::random_sea(random);
    ReferenceField<float> same(m);
    const bool worked = kelptest::combine_zones(m);
    ASSERT_EQ(same.combine(), worked);
    if (!worked) continue;
    ++converged;
    for (std::int32_t i = 1; i <= m.grid.NX + 1; ++i) {
      const auto at = static_cast<std::size_t>(i);
      ASSERT_EQ(m.waves.HB(i), same.HB[at]) << "wall " << i;
      ASSERT_EQ(m.waves.ZB(i), same.ZB[at]) << "wall " << i;
      ASSERT_TRUE(std::isfinite(m.waves.HB(i)));
      ASSERT_LE(std::abs(m.waves.ZB(i)), 0.7854f);
      ASSERT_GE(m.waves.HB(i), 0.0f);
    }
  }
  EXPECT_GT(converged, 390);
}

}  // namespace
}  // namespace kelprun
