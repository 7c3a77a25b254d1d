#include "waves/wave_field.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>

#include "unit/run/small_model.h"
#include "unit/waves/diffracting_coast.h"
#include "waves/breaking.h"
#include "waves/kernel.h"

namespace kelprun {
namespace {

constexpr double DEGREE = std::numbers::pi / 180.0;

/// A coast of waves that differ from wall to wall, all of them possible.
Model varied_waves(std::int32_t NX, std::uint32_t seed) {
  Model m = kelptest::small_model(NX);
  kelptest::Random random(seed);
  for (std::int32_t i = 1; i <= NX + 1; ++i) {
    m.waves.HRF(i) = random.real(0.3, 3.0);
    m.waves.TRF(i) = random.real(5.0, 14.0);
    m.waves.ZRF(i) = random.real(-1.0, 1.0);
    m.waves.DRF(i) = random.real(8.0, 30.0);
    m.shore.ALPHAC(i) = random.real(-0.1, 0.1);
  }
  return m;
}

TEST(wave_field, one_cell_without_height_makes_the_pass_calm) {
  Model m = varied_waves(5, 1);
  EXPECT_FALSE(is_calm(m.grid, m.waves));
  m.waves.HRF(4) = 0.0f;
  EXPECT_TRUE(is_calm(m.grid, m.waves));
  m.waves.HRF(4) = 1e-6f;
  EXPECT_FALSE(is_calm(m.grid, m.waves));
}

TEST(wave_field, one_cell_without_period_makes_the_pass_calm) {
  for (const float T : {0.0f, -0.0f, -3.0f}) {
    Model m = varied_waves(5, 1);
    m.waves.TRF(5) = T;
    EXPECT_TRUE(is_calm(m.grid, m.waves)) << T;
  }
}

TEST(wave_field, the_last_wall_has_no_say_in_the_calm_test) {
  Model m = varied_waves(5, 1);
  m.waves.HRF(6) = 0.0f;
  m.waves.TRF(6) = 0.0f;
  EXPECT_FALSE(is_calm(m.grid, m.waves));
}

TEST(wave_field, every_wall_breaks_its_own_wave_over_its_own_contour) {
  Model m = varied_waves(40, 2);
  // Runs of neighbours with the same gauge, and changes of one of the two values alone.
  for (const std::int32_t i : {3, 4, 5, 20}) {
    m.waves.TRF(i) = m.waves.TRF(i - 1);
    m.waves.DRF(i) = m.waves.DRF(i - 1);
  }
  m.waves.TRF(12) = m.waves.TRF(11);
  m.waves.DRF(16) = m.waves.DRF(15);
  const PerWall<float> contour = m.shore.ALPHAC;
  const PerWall<float> angle = m.waves.ZRF;
  break_waves(m.settings, m.grid, m.waves, m.shore.ALPHAC);
  for (std::int32_t i = 1; i <= 41; ++i) {
    const Dispersion reference = DISPERSE(m.waves.TRF(i), m.waves.DRF(i));
    EXPECT_EQ(m.waves.CGRF(i), reference.Cg);
    EXPECT_EQ(m.waves.WKRF(i), reference.k);
    const BreakingWave wave = BREAKDIRECT(reference.k, m.waves.HRF(i), m.waves.TRF(i), angle(i),
                                          reference.n, contour(i), 0.78f);
    EXPECT_EQ(m.waves.HBU(i), wave.Hb) << i;
    EXPECT_EQ(m.waves.ZBU(i), wave.Zb) << i;
    EXPECT_EQ(m.waves.WKBU(i), wave.kb) << i;
    EXPECT_EQ(m.waves.CGBU(i), wave.Cgb) << i;
    EXPECT_EQ(m.shore.ALPHAC(i), contour(i));
    EXPECT_EQ(m.waves.ZRF(i), angle(i));
  }
}

TEST(wave_field, a_wave_from_behind_the_contour_breaks_at_its_height_normal_to_a_straight_one) {
  Model m = varied_waves(4, 3);
  m.waves.pass.ZZDEG = 80.0f;
  m.waves.ZRF.fill(1.2f);
  m.shore.ALPHAC.fill(0.0f);
  m.shore.ALPHAC(3) = static_cast<float>(-11.0 * DEGREE);  // 80 + 11 degrees from its normal
  break_waves(m.settings, m.grid, m.waves, m.shore.ALPHAC);
  EXPECT_EQ(m.shore.ALPHAC(3), 0.0f);
  EXPECT_EQ(m.waves.ZRF(3), 0.0f);
  const Dispersion reference = DISPERSE(m.waves.TRF(3), m.waves.DRF(3));
  const BreakingWave normal =
      BREAKDIRECT(reference.k, m.waves.HRF(3), m.waves.TRF(3), 0.0f, reference.n, 0.0f, 0.78f);
  EXPECT_EQ(m.waves.HBU(3), normal.Hb);
  EXPECT_EQ(m.waves.ZBU(3), 0.0f);
  EXPECT_EQ(m.waves.ZRF(2), 1.2f);
  EXPECT_NE(m.waves.ZBU(2), 0.0f);
}

TEST(wave_field, the_angle_of_the_pass_decides_and_not_the_walls_own) {
  Model m = varied_waves(4, 4);
  m.shore.ALPHAC.fill(0.0f);
  m.waves.ZRF.fill(0.3f);
  m.waves.pass.ZZDEG = 90.0f;
  break_waves(m.settings, m.grid, m.waves, m.shore.ALPHAC);
  for (std::int32_t i = 1; i <= 5; ++i) EXPECT_EQ(m.waves.ZRF(i), 0.0f);
  m.waves.ZRF.fill(0.3f);
  m.waves.pass.ZZDEG = -90.0f;
  break_waves(m.settings, m.grid, m.waves, m.shore.ALPHAC);
  for (std::int32_t i = 1; i <= 5; ++i) EXPECT_EQ(m.waves.ZRF(i), 0.0f);
  m.waves.ZRF.fill(1.57f);  // itself far beyond the contour's reach: nothing asks for it
  m.waves.pass.ZZDEG = 89.9f;
  break_waves(m.settings, m.grid, m.waves, m.shore.ALPHAC);
  for (std::int32_t i = 1; i <= 5; ++i) EXPECT_EQ(m.waves.ZRF(i), 1.57f);
}

TEST(wave_field, the_energy_sum_of_one_zone_gives_its_wave_back_up_to_45_degrees) {
  Model m = kelptest::small_model(6);
  kelptest::put(m.waves.HBU, std::array{0.5f, 1.0f, 1.5f, 2.0f, 2.5f, 0.0f, 3.0f});
  const std::array degrees{-45.0, -20.0, 0.0, 30.0, 44.0, 10.0, 45.0};
  for (std::int32_t i = 1; i <= 7; ++i)
    m.waves.ZBU(i) = static_cast<float>(degrees[static_cast<std::size_t>(i - 1)] * DEGREE);
  ASSERT_TRUE(kelptest::combine_zones(m));
  for (std::int32_t i = 1; i <= 7; ++i)
    EXPECT_NEAR(static_cast<double>(m.waves.HB(i)), static_cast<double>(m.waves.HBU(i)), 1e-6);
  for (std::int32_t i : {1, 2, 3, 4, 5, 7})
    // The arcsine loses half the digits at 45 degrees, where it stands at its end.
    EXPECT_NEAR(static_cast<double>(m.waves.ZB(i)),
                degrees[static_cast<std::size_t>(i - 1)] * DEGREE, 3e-4)
        << i;
  EXPECT_EQ(m.waves.ZB(6), 0.0f) << "no height, no angle";
}

TEST(wave_field, the_energy_sum_folds_angles_beyond_45_degrees_back) {
  Model m = kelptest::small_model(2);
  m.waves.HBU.fill(1.3f);
  kelptest::put(m.waves.ZBU,
                std::array{static_cast<float>(60.0 * DEGREE), static_cast<float>(-70.0 * DEGREE),
                           static_cast<float>(90.0 * DEGREE)});
  ASSERT_TRUE(kelptest::combine_zones(m));
  EXPECT_NEAR(static_cast<double>(m.waves.ZB(1)) / DEGREE, 30.0, 1e-4);
  EXPECT_NEAR(static_cast<double>(m.waves.ZB(2)) / DEGREE, -20.0, 1e-4);
  EXPECT_NEAR(static_cast<double>(m.waves.ZB(3)) / DEGREE, 0.0, 1e-4);
}

TEST(wave_field, the_energy_sum_is_evaluated_float_by_float_in_one_order) {
  Model m = varied_waves(100, 5);
  break_waves(m.settings, m.grid, m.waves, m.shore.ALPHAC);
  ASSERT_TRUE(kelptest::combine_zones(m));
  for (std::int32_t i = 1; i <= 101; ++i) {
    const float h = m.waves.HBU(i) * m.waves.HBU(i);
    const float sum = std::sin(2.0f * m.waves.ZBU(i)) * h;
    EXPECT_EQ(m.waves.ZB(i), 0.5f * std::asin(sum / h));
    EXPECT_EQ(m.waves.HB(i), std::sqrt(h));
  }
}

TEST(wave_field, smoothing_weighs_a_quarter_a_half_a_quarter_of_the_unsmoothed_field) {
  Model m = kelptest::small_model(4);
  kelptest::put(m.waves.HB, std::array{1.0f, 2.0f, 4.0f, 8.0f, 16.0f});
  kelptest::put(m.waves.ZB, std::array{0.0f, 0.0f, 1.0f, 0.0f, -1.0f});
  m.waves.ITOMBOLO.fill(1);
  kelptest::finish_field(m);
  const std::array HB{1.0f, 2.25f, 4.5f, 9.0f, 16.0f};
  const std::array ZB{0.0f, 0.25f, 0.5f, 0.0f, -1.0f};
  for (std::int32_t i = 1; i <= 5; ++i) {
    EXPECT_EQ(m.waves.HB(i), HB[static_cast<std::size_t>(i - 1)]) << i;
    EXPECT_EQ(m.waves.ZB(i), ZB[static_cast<std::size_t>(i - 1)]) << i;
  }
  for (std::int32_t i = 2; i <= 4; ++i) EXPECT_EQ(m.waves.ITOMBOLO(i), 0);
}

TEST(wave_field, without_structures_the_field_is_the_smoothed_undiffracted_wave) {
  Model m = varied_waves(30, 6);
  for (std::int32_t i = 1; i <= 31; ++i) m.waves.ZRF(i) *= 0.5f;
  break_waves(m.settings, m.grid, m.waves, m.shore.ALPHAC);
  ASSERT_TRUE(kelptest::combine_zones(m));
  kelptest::finish_field(m);
  const auto HBU = [&](std::int32_t i) { return static_cast<double>(m.waves.HBU(i)); };
  const auto ZBU = [&](std::int32_t i) { return static_cast<double>(m.waves.ZBU(i)); };
  for (std::int32_t i = 2; i <= 30; ++i) {
    ASSERT_LT(std::abs(ZBU(i)), 45.0 * DEGREE);
    EXPECT_NEAR(static_cast<double>(m.waves.HB(i)), 0.25 * (HBU(i - 1) + 2.0 * HBU(i) + HBU(i + 1)),
                1e-6);
    EXPECT_NEAR(static_cast<double>(m.waves.ZB(i)), 0.25 * (ZBU(i - 1) + 2.0 * ZBU(i) + ZBU(i + 1)),
                1e-6);
  }
}

TEST(wave_field, group_speed_at_breaking_follows_the_period_of_the_pass) {
  Model m = kelptest::small_model(3);
  m.waves.TRF.fill(4.0f);  // the walls' own periods have no say here
  m.waves.pass.T = 11.0f;
  kelptest::put(m.waves.HB, std::array{0.5f, 1.7f, 0.0f, 3.0f});
  m.waves.CGB.fill(9.0f);
  m.waves.WKB.fill(9.0f);
  set_group_speed(m.settings, m.grid, m.waves);
  for (const std::int32_t i : {1, 2, 4}) {
    const Dispersion at_breaking = DISPERSE(11.0f, m.waves.HB(i) / 0.78f);
    EXPECT_EQ(m.waves.CGB(i), at_breaking.Cg);
    EXPECT_EQ(m.waves.WKB(i), at_breaking.k);
  }
  EXPECT_EQ(m.waves.CGB(3), 0.0f);
  EXPECT_EQ(m.waves.WKB(3), 0.0f);
}

}  // namespace
}  // namespace kelprun
