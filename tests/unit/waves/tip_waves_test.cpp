#include "waves/tip_waves.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "unit/run/small_model.h"
#include "unit/waves/structured_coast.h"
#include "waves/kernel.h"
#include "waves/spreading.h"

namespace kelprun {
namespace {

double of(float x) { return static_cast<double>(x); }

/// Wave number that solves sigma^2 = g k tanh kd, by Newton's method.
double wave_number_at(double T, double d) {
  const double sigma = 2.0 * std::numbers::pi / T;
  double k = sigma * sigma / 9.806;
  for (int n = 0; n < 60; ++n) {
    const double t = std::tanh(k * d);
    k -= (9.806 * k * t - sigma * sigma) / (9.806 * t + 9.806 * k * d * (1.0 - t * t));
  }
  return k;
}

constexpr kelptest::OffshoreWave OBLIQUE{1.2f, 8.0f, 25.0, 15.0f};

Model coast_with_breakwater(float depth) {
  return kelptest::structured_coast({40, 20.0f, {}, {{15, 22, 150.0f, depth, 0.2f}}});
}

TEST(tip_waves, the_wave_of_the_wall_is_refracted_and_shoaled_to_the_depth_of_the_tip) {
  Model m = coast_with_breakwater(5.0f);
  m.shore.ALPHAC.fill(0.05f);
  kelptest::send_waves(m, OBLIQUE);
  const TipWave& wave = m.diffraction.tip_waves(2);
  const double k1 = wave_number_at(8.0, 15.0);
  const double k2 = wave_number_at(8.0, 5.0);
  const double angle = 25.0 * std::numbers::pi / 180.0;
  const double turned = std::asin(std::sin(angle - 0.05) * k1 / k2);
  EXPECT_NEAR(of(wave.k), k2, 1e-3 * k2);
  EXPECT_NEAR(of(wave.Z), 0.05 + turned, 1e-3);
  const auto group_speed = [](double k, double d) {
    return (0.5 + k * d / std::sinh(2.0 * k * d)) * 2.0 * std::numbers::pi / 8.0 / k;
  };
  const double H = 1.2 * std::sqrt(std::cos(angle - 0.05) / std::cos(turned)) *
                   std::sqrt(group_speed(k1, 15.0) / group_speed(k2, 5.0));
  EXPECT_NEAR(of(wave.H), H, 1e-3 * H);
  EXPECT_NEAR(of(wave.LTIP), 2.0 * std::numbers::pi / k2, 0.05);
  const Spreading spreading = SPREADMAX(5.0f, m.waves.SIGMA);
  EXPECT_EQ(wave.SMAX, spreading.SMAX);
  EXPECT_EQ(wave.AKD, spreading.AKD);
}

TEST(tip_waves, each_tip_takes_the_wave_and_the_contour_of_its_own_wall) {
  Model m = coast_with_breakwater(5.0f);
  kelptest::send_waves(m, OBLIQUE);
  m.waves.HRF(22) = 2.4f;
  m.shore.ALPHAC(22) = 0.3f;
  set_tip_waves(m.tips, m.waves, m.shore.ALPHAC, m.diffraction.tip_waves);
  const TransformedWave left = TRANSFORM(m.waves.WKRF(15), 1.2f, m.waves.ZRF(15), m.waves.CGRF(15),
                                         0.0f, 5.0f, m.waves.WK0, m.waves.SIGMA);
  const TransformedWave right = TRANSFORM(m.waves.WKRF(22), 2.4f, m.waves.ZRF(22), m.waves.CGRF(22),
                                          0.3f, 5.0f, m.waves.WK0, m.waves.SIGMA);
  EXPECT_EQ(m.diffraction.tip_waves(2).Z, left.Z2);
  EXPECT_EQ(m.diffraction.tip_waves(2).H, left.H2);
  EXPECT_EQ(m.diffraction.tip_waves(3).Z, right.Z2);
  EXPECT_EQ(m.diffraction.tip_waves(3).H, right.H2);
}

TEST(tip_waves, a_tip_deeper_than_the_reference_depth_gets_the_angle_of_the_contour) {
  Model m = coast_with_breakwater(16.0f);
  m.shore.ALPHAC.fill(0.12f);
  kelptest::send_waves(m, OBLIQUE);
  m.waves.pass.HZ = 0.7f;  // the wave of the pass, not that of the wall, is shoaled
  set_tip_waves(m.tips, m.waves, m.shore.ALPHAC, m.diffraction.tip_waves);
  const TipWave& wave = m.diffraction.tip_waves(2);
  EXPECT_EQ(wave.Z, 0.12f);
  const double sigma = 2.0 * std::numbers::pi / 8.0;
  const double k2 = wave_number_at(8.0, 16.0);
  const double Cg0 = 9.806 / (2.0 * sigma);
  const double Cg2 = (0.5 + k2 * 16.0 / std::sinh(32.0 * k2)) * sigma / k2;
  const double H =
      0.7 * std::sqrt(std::cos(25.0 * std::numbers::pi / 180.0 - 0.12)) * std::sqrt(Cg0 / Cg2);
  EXPECT_NEAR(of(wave.H), H, 1e-3 * H);
  EXPECT_NEAR(of(wave.k), k2, 1e-3 * k2);
}

TEST(tip_waves, a_tip_exactly_at_the_reference_depth_refracts_the_wave_of_the_wall) {
  Model m = coast_with_breakwater(15.0f);
  kelptest::send_waves(m, OBLIQUE);
  EXPECT_NEAR(of(m.diffraction.tip_waves(2).Z), 25.0 * std::numbers::pi / 180.0, 1e-3);
}

TEST(tip_waves, tips_at_one_wall_share_the_wave_length_of_the_first_of_them) {
  Model m = kelptest::structured_coast(
      {40, 20.0f, {}, {{15, 22, 150.0f, 5.0f, 0.2f}, {22, 28, 180.0f, 8.0f, 0.2f}}});
  kelptest::send_waves(m, OBLIQUE);
  ASSERT_EQ(m.tips.tips(3).cell, 22);
  ASSERT_EQ(m.tips.tips(4).cell, 22);
  const auto& waves = m.diffraction.tip_waves;
  EXPECT_EQ(waves(4).LTIP, waves(3).LTIP);
  EXPECT_NEAR(of(waves(3).LTIP), 2.0 * std::numbers::pi / wave_number_at(8.0, 5.0), 0.05);
  EXPECT_NEAR(of(waves(4).k), wave_number_at(8.0, 8.0), 1e-4)
      << "the wave itself is its own depth's";
  EXPECT_LT(waves(4).SMAX, waves(3).SMAX);
}

TEST(tip_waves, both_tips_of_a_groin_on_the_last_wall_have_its_wave) {
  Model m = kelptest::structured_coast({40, 20.0f, {{41, 150.0f, 5.0f}}, {}});
  kelptest::send_waves(m, OBLIQUE);
  ASSERT_EQ(m.tips.tips.size(), 3);
  for (const std::int32_t j : {2, 3})
    EXPECT_NEAR(of(m.diffraction.tip_waves(j).k), wave_number_at(8.0, 5.0), 1e-4) << j;
}

TEST(tip_waves, the_ends_of_the_coast_have_no_wave) {
  Model m = coast_with_breakwater(5.0f);
  kelptest::send_waves(m, OBLIQUE);
  for (const std::int32_t end : {1, 4}) {
    EXPECT_EQ(m.diffraction.tip_waves(end).k, 0.0f);
    EXPECT_EQ(m.diffraction.tip_waves(end).SMAX, 1.0f);
    EXPECT_EQ(m.diffraction.tip_waves(end).AKD, 1.0f);
  }
}

TEST(tip_waves, one_tip_that_the_shoreline_has_not_passed_is_enough_to_bend_waves) {
  Model m = coast_with_breakwater(5.0f);
  EXPECT_TRUE(has_active_tip(m.tips));
  m.tips.TIPOFF(2) = 1;
  EXPECT_TRUE(has_active_tip(m.tips));
  m.tips.TIPOFF(3) = 1;
  EXPECT_FALSE(has_active_tip(m.tips));
}

TEST(tip_waves, an_open_coast_has_no_tip_that_bends_waves) {
  const Model m = kelptest::structured_coast({10, 20.0f, {}, {}});
  EXPECT_FALSE(has_active_tip(m.tips));
}

}  // namespace
}  // namespace kelprun
