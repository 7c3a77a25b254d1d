// Diffraction at the tips of groins.
#include <gtest/gtest.h>

#include <cmath>

#include "unit/waves/worked_zone.h"

namespace kelprun {
namespace {

using kelptest::CoastPlan;
using kelptest::OffshoreWave;
using kelptest::settled_coefficient;
using kelptest::spreading_of;
using kelptest::ZoneByZone;

double of(float x) { return static_cast<double>(x); }

constexpr OffshoreWave NORMAL{1.0f, 7.0f, 0.0, 20.0f};
constexpr OffshoreWave FROM_LEFT{1.0f, 7.0f, 25.0, 20.0f};
constexpr OffshoreWave FROM_RIGHT{1.0f, 7.0f, -25.0, 20.0f};

/// A groin at wall 40, 120 m long in 3 m of water.
CoastPlan one_groin(float permeability = 0.0f, float D = 3.0f) {
  return {80, 20.0f, {{40, 120.0f, D, permeability}}, {}};
}

Model sea(const CoastPlan& plan, const OffshoreWave& wave) {
  Model m = kelptest::structured_coast(plan);
  kelptest::send_waves(m, wave);
  return m;
}

TEST(diffraction_groin, a_groin_that_the_waves_meet_head_on_bends_nothing) {
  Model m = sea(one_groin(), NORMAL);
  ZoneByZone zones(m);
  zones.compare(1);
  EXPECT_EQ(zones.zone.IEND, 40);
  for (std::int32_t i = 1; i <= 39; ++i) EXPECT_EQ(m.diffraction.HBD(i), m.waves.HBU(i));
  EXPECT_EQ(m.diffraction.HBD(40), 0.0f) << "its own wall belongs to the right side then";
  zones.compare(3);
  EXPECT_EQ(zones.zone.IBEG, 40);
  for (std::int32_t i = 40; i <= 81; ++i) EXPECT_EQ(m.diffraction.HBD(i), m.waves.HBU(i));
}

TEST(diffraction_groin, a_groin_shades_the_side_that_the_waves_do_not_come_from) {
  Model m = sea(one_groin(), FROM_LEFT);
  ZoneByZone zones(m);
  zones.compare(1);
  for (std::int32_t i = 1; i <= 40; ++i) EXPECT_EQ(m.diffraction.HBD(i), m.waves.HBU(i));
  zones.compare(3);
  EXPECT_EQ(m.diffraction.HBD(40), 0.0f) << "its own wall belongs to the lit side";
  const TipWave& wave = m.diffraction.tip_waves(3);
  for (const std::int32_t i : {41, 42, 44}) {
    const double KD = settled_coefficient(spreading_of(wave), 20.0 * (i - 40), 120.0, 3.0,
                                          of(m.waves.HBU(40)), of(wave.Z));
    EXPECT_NEAR(zones.share(i), KD, 0.02) << i;
  }
  EXPECT_LT(zones.share(41), 0.8);
  EXPECT_GT(zones.share(60), 0.95);

  m = sea(one_groin(), FROM_RIGHT);
  ZoneByZone mirrored(m);
  mirrored.compare(3);
  for (std::int32_t i = 40; i <= 81; ++i) EXPECT_EQ(m.diffraction.HBD(i), m.waves.HBU(i));
  mirrored.compare(1);
  EXPECT_EQ(m.diffraction.HBD(40), 0.0f);
  EXPECT_LT(mirrored.share(39), 0.8);
}

TEST(diffraction_groin, what_passes_through_or_round_a_groin_brightens_its_shadow) {
  Model tight = sea(one_groin(), FROM_LEFT);
  ZoneByZone dark(tight);
  dark.compare(3);
  // In 3 m of water nothing passes round the tip: 1.27/0.78 times a 1 m wave is less than 3 m.
  ASSERT_EQ(dark.zone.first.BYP, 0.0f);
  Model m = sea(one_groin(0.4f), FROM_LEFT);
  ZoneByZone zones(m);
  zones.compare(3);
  EXPECT_EQ(zones.zone.first.KTn, -0.4f);
  for (const std::int32_t i : {41, 43, 46}) {
    const double dark_share = dark.share(i);
    EXPECT_NEAR(zones.share(i), std::sqrt(dark_share * dark_share * 0.6 + 0.4), 0.02) << i;
  }
}

TEST(diffraction_groin, a_groin_of_permeability_one_takes_nothing) {
  Model m = sea(one_groin(1.0f), FROM_LEFT);
  ZoneByZone zones(m);
  zones.compare_all();
  zones.compare(3);
  for (std::int32_t i = 41; i <= 81; ++i)
    EXPECT_NEAR(of(m.diffraction.HBD(i)), of(m.waves.HBU(i)), 1e-6);
}

TEST(diffraction_groin, a_short_groin_lets_the_outer_part_of_the_surf_zone_past) {
  // 10 m long: the profile is 0.1 10^0.667 = 0.46 m deep there, the surf zone about 1.7 m.
  Model m = sea({80, 20.0f, {{40, 10.0f, 3.0f, 0.4f}}, {}}, FROM_LEFT);
  ZoneByZone zones(m);
  zones.compare_all();
  zones.compare(3);
  const double Dlt = 1.27 / 0.78 * of(m.diffraction.tip_waves(3).H);
  const double BYP = 1.0 - 0.1 * std::pow(10.0, 0.667) / Dlt;
  EXPECT_NEAR(of(zones.zone.first.BYP), BYP, 1e-5);
  const double past = BYP + 0.4 - 0.4 * BYP;
  for (const std::int32_t i : {41, 42}) EXPECT_GT(zones.share(i), std::sqrt(past) - 1e-3) << i;
}

TEST(diffraction_groin, a_groin_level_with_the_shoreline_lets_no_share_past) {
  Model m = sea({80, 20.0f, {{40, 120.0f, 3.0f, 0.4f, 3}}, {}}, FROM_LEFT);
  ZoneByZone zones(m);
  zones.compare_all();
  zones.compare(3);
  const TipWave& wave = m.diffraction.tip_waves(3);
  const double KD =
      settled_coefficient(spreading_of(wave), 20.0, 120.0, 3.0, of(m.waves.HBU(40)), of(wave.Z));
  EXPECT_NEAR(zones.share(41), KD, 0.02) << "its permeability has no say";
}

}  // namespace
}  // namespace kelprun
