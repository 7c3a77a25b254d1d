#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <numbers>

#include "model/constants.h"
#include "unit/run/small_model.h"
#include "waves/transmission.h"

namespace kelprun {
namespace {

constexpr float INFINITE = std::numeric_limits<float>::infinity();
constexpr float NAN_VALUE = std::numeric_limits<float>::quiet_NaN();
constexpr float HUGE_VALUE_32 = std::numeric_limits<float>::max();

constexpr TransmissionWarnings NONE{};
/// What the negative freeboard of every submerged crest brings with it.
constexpr TransmissionWarnings USUAL{.negative_range = true};

void expect_near(float value, double exact) {
  EXPECT_NEAR(static_cast<double>(value), exact, 2e-6 * std::max(1.0, std::abs(exact)));
}

// Method 1. The values were worked out by hand to 10 digits, from the products of the exponentials
// and from p = (Rc/D50)(B/L), q = (Rc/D50)(Hi/B).

TEST(submerged_crest_method, agrees_with_values_worked_by_hand) {
  struct Row {
    float Hi, L, Rc, BDB, D50DB;
    double KT;
  };
  constexpr std::array ROWS{Row{1.0f, 40.0f, -0.5f, 4.0f, 1.0f, 0.4558396183},
                            Row{1.5f, 50.0f, -0.25f, 8.0f, 0.75f, 0.2702176084},
                            Row{2.0f, 60.0f, -3.0f, 10.0f, 1.25f, 0.7100500321},
                            Row{0.5f, 30.0f, -1.0f, 2.0f, 0.25f, 0.8469409477},
                            Row{0.25f, 20.0f, -0.125f, 16.0f, 0.5f, 0.2805357121}};
  for (const Row& r : ROWS) {
    const Transmitted t =
        transmission_over_submerged_crest({r.Hi, 100.0f, r.L, r.Rc}, r.BDB, r.D50DB);
    expect_near(t.KT, r.KT);
    EXPECT_EQ(t.warnings, USUAL) << r.Rc;
  }
}

TEST(submerged_crest_method, a_value_above_one_and_a_half_is_cut_to_it_with_a_warning) {
  // 1 - e = 0.99906, |p| = 0.08, |q| = 48: the formula gives 4.2113.
  const Transmitted t =
      transmission_over_submerged_crest({3.0f, 100.0f, 50.0f, -2.0f}, 0.5f, 0.25f);
  EXPECT_EQ(t.KT, 1.5f);
  EXPECT_EQ(t.warnings, (TransmissionWarnings{.above_limit = true, .negative_range = true}));
}

TEST(submerged_crest_method, a_value_of_exactly_zero_warns_of_nothing) {
  // No freeboard makes p and q 0; a wave this small beside the crest makes e 1.
  const Transmitted t =
      transmission_over_submerged_crest({1e-9f, 100.0f, 40.0f, 0.0f}, 10.0f, 1.0f);
  EXPECT_EQ(t.KT, 0.0f);
  EXPECT_EQ(t.warnings, NONE);
}

TEST(submerged_crest_method, a_value_below_zero_is_raised_to_it_with_a_warning) {
  // |p| = 256, |q| = 0.5: the formula gives -11.07.
  const Transmitted t =
      transmission_over_submerged_crest({1.0f, 100.0f, 8.0f, -4.0f}, 64.0f, 0.125f);
  EXPECT_EQ(t.KT, 0.0f);
  EXPECT_EQ(t.warnings, (TransmissionWarnings{.below_zero = true, .negative_range = true}));
}

TEST(submerged_crest_method, inputs_beyond_their_range_are_warned_of) {
  // With a crest above the water both inputs are positive: Hi = L = B = D50 = 1 makes p = q = Rc.
  const auto warnings = [](float Hi, float L, float Rc) {
    return transmission_over_submerged_crest({Hi, 100.0f, L, Rc}, 1.0f, 1.0f).warnings;
  };
  const TransmissionWarnings beyond{.beyond_range = true};
  EXPECT_EQ(warnings(1.0f, 1.0f, 2.14f), NONE);
  EXPECT_EQ(warnings(1.0f, 1.0f, 2.15f), beyond);
  // Hi = 0.25 makes q a quarter of p.
  EXPECT_EQ(warnings(0.25f, 1.0f, 7.08f), NONE);
  EXPECT_EQ(warnings(0.25f, 1.0f, 7.09f), beyond);
}

TEST(submerged_crest_method, without_a_stone_size_the_value_is_no_number) {
  const Transmitted t = transmission_over_submerged_crest({1.0f, 100.0f, 40.0f, -0.5f}, 4.0f, 0.0f);
  EXPECT_TRUE(std::isnan(t.KT));
  EXPECT_EQ(t.warnings, USUAL);
}

TEST(submerged_crest_method, is_evaluated_float_by_float_in_one_order) {
  kelptest::Random random(331);
  for (int n = 0; n < 500; ++n) {
    const float Hi = random.real(0.2, 3.0);
    const float L = random.real(10.0, 80.0);
    const float Rc = random.real(-3.0, -0.01);
    const float BDB = random.real(1.0, 20.0);
    const float D50DB = random.real(0.3, 2.0);
    const float first = -0.65f * std::abs(Rc / Hi);
    const float second = 1.09f * (Hi / BDB);
    const float e = std::exp(first - second);
    const float LD = L * D50DB;
    const float BD = BDB * D50DB;
    const float p = std::abs((Rc * BDB) / LD);
    const float q = std::abs((Rc * Hi) / BD);
    const float difference = (1.0f - e) - 0.047f * p;
    const float KT = difference + 0.067f * q;
    const Transmitted t = transmission_over_submerged_crest({Hi, 50.0f, L, Rc}, BDB, D50DB);
    EXPECT_EQ(t.KT, std::max(std::min(KT, 1.5f), 0.0f));
  }
}

// Method 2: L0 = 100 m, Hi = 1 m, slope 0.5 makes xi 5, so that the two exponentials are
// exp(-2.5) = 0.082085 and exp(-2.05) = 0.128735.

float low_crest(float Rr, float Br) {
  const Transmitted t = transmission_over_low_crest({1.0f, 100.0f, 40.0f, Rr}, Br, 0.5f);
  EXPECT_EQ(t.warnings, NONE);
  return t.KT;
}

TEST(low_crest_method, an_emergent_crest_truncates_to_nothing_and_gets_the_lower_limit) {
  // A1 = -0.018, A2 = -0.170.
  EXPECT_EQ(low_crest(1.0f, 4.0f), 0.075f);
}

TEST(low_crest_method, a_deeply_submerged_crest_gets_the_upper_limit) {
  // A1 = 1.67, A2 = 1.33.
  EXPECT_EQ(low_crest(-3.0f, 2.0f), 0.8f);
}

TEST(low_crest_method, a_part_just_below_one_counts_nothing) {
  // A1 = 0.9875 at Rr = -1, Br = 1, and 1.01 at Rr = -1.06.
  EXPECT_EQ(low_crest(-1.0f, 1.0f), 0.075f);
  EXPECT_EQ(low_crest(-1.06f, 1.0f), 0.8f);
}

TEST(low_crest_method, narrow_and_wide_crests_are_blended_between_widths_of_8_and_12) {
  // With Rr = -2.2 A1 = 0.88 + 0.27 to 0.31 counts 1 and A2 = 0.77 + 0.09 to 0.12 counts nothing.
  EXPECT_EQ(low_crest(-2.2f, 7.9f), 0.8f);
  EXPECT_EQ(low_crest(-2.2f, 8.0f), 0.8f);
  EXPECT_EQ(low_crest(-2.2f, 9.0f), 0.75f);
  EXPECT_EQ(low_crest(-2.2f, 10.0f), 0.5f);
  EXPECT_EQ(low_crest(-2.2f, 11.0f), 0.25f);
  EXPECT_EQ(low_crest(-2.2f, 12.0f), 0.075f);
  EXPECT_EQ(low_crest(-2.2f, 12.1f), 0.075f);
  // Wide crests know A2 alone: 1.088 at Rr = -2.9, Br = 16.
  EXPECT_EQ(low_crest(-2.9f, 16.0f), 0.8f);
}

TEST(low_crest_method, stays_between_its_limits_for_values_without_bounds_and_without_meaning) {
  const std::array values{0.0f,           -0.0f,    1e-30f,    1e30f,     HUGE_VALUE_32,
                          -HUGE_VALUE_32, INFINITE, -INFINITE, NAN_VALUE, -1.0f};
  for (const float Hi : values)
    for (const float L0 : values)
      for (const float Rc : values)
        for (const float BDB : values)
          for (const float SSDB : values) {
            const float KT = transmission_over_low_crest({Hi, L0, 1.0f, Rc}, BDB, SSDB).KT;
            ASSERT_GE(KT, 0.075f);
            ASSERT_LE(KT, 0.8f);
          }
  EXPECT_EQ(low_crest(-1e30f, 2.0f), 0.8f);
  EXPECT_EQ(low_crest(-INFINITE, 2.0f), 0.8f);
  EXPECT_EQ(low_crest(INFINITE, 2.0f), 0.075f);
  EXPECT_EQ(low_crest(NAN_VALUE, 2.0f), 0.075f);
}

TEST(low_crest_method, follows_its_formula_in_double_over_random_crests) {
  kelptest::Random random(332);
  int upper = 0;
  int blended = 0;
  for (int n = 0; n < 2000; ++n) {
    const float Hi = random.real(0.3, 3.0);
    const float L0 = random.real(30.0, 300.0);
    const float Rc = random.real(-9.0, 2.0);
    const float BDB = random.real(1.0, 30.0);
    const float SSDB = random.real(0.1, 1.0);
    const auto d = [](float value) { return static_cast<double>(value); };
    const double xi = d(SSDB) * std::sqrt(d(L0) / d(Hi));
    const double Br = d(BDB) / d(Hi);
    const double narrow =
        0.64 * std::exp(-0.31 * std::log(Br)) * -std::expm1(-xi / 2.0) - 0.4 * d(Rc) / d(Hi);
    const double wide =
        0.51 * std::exp(-0.65 * std::log(Br)) * -std::expm1(-0.41 * xi) - 0.35 * d(Rc) / d(Hi);
    // Next to a whole number single and double precision may fall on different sides.
    if (std::abs(narrow - std::round(narrow)) < 1e-4 || std::abs(wide - std::round(wide)) < 1e-4)
      continue;
    const double share = std::clamp((Br - 8.0) / 4.0, 0.0, 1.0);
    const double KT = std::lerp(std::trunc(narrow), std::trunc(wide), share);
    const double exact = std::clamp(KT, 0.075, 0.8);
    expect_near(transmission_over_low_crest({Hi, L0, 40.0f, Rc}, BDB, SSDB).KT, exact);
    upper += exact == 0.8;
    blended += exact > 0.075 && exact < 0.8;
  }
  EXPECT_GT(upper, 100);
  EXPECT_GT(blended, 20);
}

// Any other method: worked out by hand to 10 digits, powers as exponentials of logarithms.

TEST(reef_method, agrees_with_values_worked_by_hand) {
  struct Row {
    float Hi, L0, Rc, HDB, ATDB, D50DB;
    double KT;
  };
  constexpr std::array ROWS{// submerged: T1 counts 0.1, T2 = 0.7156814701 and 0.7329516481
                            Row{1.0f, 100.0f, -0.5f, 4.0f, 28.0f, 1.0f, 0.7226340475},
                            Row{2.0f, 150.0f, -1.5f, 3.0f, 20.0f, 0.5f, 0.7397419269},
                            Row{1.0f, 100.0f, -0.5f, 4.0f, 28.0f, 0.0625f, 0.100000101},
                            // T1 = 0.3389448188 with T2 = 0.760787, 0.471780, 0.200528
                            Row{1.0f, 100.0f, 0.0f, 5.0f, 50.0f, 1.0f, 0.8328749673},
                            Row{1.0f, 100.0f, 1.0f, 5.0f, 50.0f, 1.0f, 0.5809130566},
                            Row{1.0f, 100.0f, 2.0f, 5.0f, 50.0f, 1.0f, 0.3938209188},
                            // a freeboard above 2 heights: T2 = 0
                            Row{1.0f, 100.0f, 2.5f, 5.0f, 50.0f, 1.0f, 0.3389448188},
                            // both parts together may pass more than the whole wave
                            Row{0.5f, 80.0f, 0.25f, 4.0f, 30.0f, 1.5f, 1.093368894}};
  for (const Row& r : ROWS) {
    const Transmitted t =
        transmission_through_and_over({r.Hi, r.L0, 40.0f, r.Rc}, r.HDB, r.ATDB, r.D50DB);
    expect_near(t.KT, r.KT);
    EXPECT_EQ(t.warnings, NONE);
  }
}

TEST(reef_method, is_evaluated_float_by_float_in_one_order) {
  kelptest::Random random(333);
  for (int n = 0; n < 500; ++n) {
    const float Hi = random.real(0.2, 3.0);
    const float L0 = random.real(30.0, 300.0);
    const float Rc = random.real(-3.0, 6.0);
    const float HDB = random.real(1.0, 8.0);
    const float ATDB = random.real(5.0, 90.0);
    const float D50DB = random.real(0.3, 2.0);
    const float area = (2.35f * ATDB) / (L0 * HDB);
    const float through = std::pow(Hi / D50DB, 0.982f) * std::exp(0.433f + area);
    float T1 = 1.0f / (1.0f + through);
    float T2 = 0.0f;
    if (Rc < 0.0f) {
      const float stones = (0.00137f * ATDB) / (D50DB * D50DB);
      const float exponent = (0.631f * (Rc / Hi) - 0.646f) + stones;
      T2 = 1.0f / (1.0f + std::exp(exponent));
      T1 = 0.1f;
    } else if (Rc / Hi <= 2.0f) {
      const float stones = 17.4f / (ATDB / (HDB * D50DB));
      const float steepness = 0.00118f / (Hi / L0);
      const float crest = (12.7f * Rc) / std::sqrt(L0 * Hi);
      T2 = 1.0f / (1.0f + std::exp(((0.465f - stones) + steepness) + crest));
    }
    const float KT = std::sqrt(T1 * T1 + T2 * T2);
    EXPECT_EQ(transmission_through_and_over({Hi, L0, 40.0f, Rc}, HDB, ATDB, D50DB).KT, KT);
  }
}

TEST(reef_method, without_a_stone_size_nothing_passes_through_and_the_value_stays_a_number) {
  // Submerged: T2 vanishes as well, which leaves the 0.1. Emergent: the term of the stones
  // vanishes, T2 = 1/(1 + exp(0.465 + 0.118 + 12.7/10)) = 0.135452.
  EXPECT_FLOAT_EQ(transmission_through_and_over({1.0f, 100.0f, 40.0f, -0.5f}, 4.0f, 28.0f, 0.0f).KT,
                  0.1f);
  expect_near(transmission_through_and_over({1.0f, 100.0f, 40.0f, 1.0f}, 5.0f, 50.0f, 0.0f).KT,
              1.0 / (1.0 + std::exp(1.853)));
}

TEST(every_method, stays_between_its_limits_or_is_no_number) {
  const std::array values{0.0f, 1e-30f, 1.0f, HUGE_VALUE_32, -1.0f, INFINITE, -INFINITE, NAN_VALUE};
  for (const float Hi : values)
    for (const float L : values)
      for (const float Rc : values)
        for (const float B : values)
          for (const float D : values) {
            for (const float KT : {transmission_over_submerged_crest({Hi, L, L, Rc}, B, D).KT,
                                   transmission_through_and_over({Hi, L, L, Rc}, B, L, D).KT})
              ASSERT_TRUE(std::isnan(KT) || (KT >= 0.0f && KT <= 1.5f)) << KT;
          }
}

/// The wave at the structure in double precision from the dispersion relation itself, solved by
/// bisection.
struct ExactWave {
  double Hi, L;
};

ExactWave exact_wave(double T, double H, double Z, double A, double d) {
  const double g = 9.806;
  const double sigma = 2.0 * std::numbers::pi / T;
  double low = 0.0;
  double high = 1000.0;
  for (int n = 0; n < 200; ++n) {
    const double middle = 0.5 * (low + high);
    (g * middle * std::tanh(middle * d) < sigma * sigma ? low : high) = middle;
  }
  const double k = 0.5 * (low + high);
  const double deep_k = sigma * sigma / g;
  const double deep_group_speed = 0.5 * sigma / deep_k;
  const double group_speed = 0.5 * (1.0 + 2.0 * k * d / std::sinh(2.0 * k * d)) * sigma / k;
  const double turned = std::asin(deep_k / k * std::sin(Z - A));
  const double refraction = std::cos(Z - A) / std::cos(turned);
  return {H * std::sqrt(refraction * deep_group_speed / group_speed), 2.0 * std::numbers::pi / k};
}

TEST(wave_at_the_breakwater, shoals_and_refracts_from_deep_water_with_the_cells_height_and_angle) {
  kelptest::Random random(334);
  Waves w;
  for (auto* field : {&w.HRF, &w.ZRF}) field->take(5);
  for (int n = 0; n < 300; ++n) {
    w.pass.T = random.real(4.0, 14.0);
    w.SIGMA = 2.0f * PI / w.pass.T;
    w.WK0 = w.SIGMA * w.SIGMA / G;
    w.HRF(3) = random.real(0.3, 3.0);
    w.ZRF(3) = random.real(-0.8, 0.8);
    const float A = random.real(-0.3, 0.3);
    const float d = random.real(1.0, 8.0);
    const float HDB = random.real(0.5, 9.0);
    const BreakwaterWave wave = wave_at_breakwater(w, A, 3, d, HDB);
    const auto at = [](float value) { return static_cast<double>(value); };
    const ExactWave exact = exact_wave(at(w.pass.T), at(w.HRF(3)), at(w.ZRF(3)), at(A), at(d));
    // The closed form of the dispersion relation is good to 0.01 %.
    EXPECT_NEAR(at(wave.Hi), exact.Hi, 2e-4 * exact.Hi) << at(w.pass.T) << " s " << d << " m";
    EXPECT_NEAR(at(wave.L), exact.L, 2e-4 * exact.L);
    const double deep_length = 9.806 * at(w.pass.T) * at(w.pass.T) / (2.0 * std::numbers::pi);
    EXPECT_NEAR(at(wave.L0), deep_length, 1e-6 * deep_length);
    EXPECT_EQ(wave.Rc, HDB - d);
  }
}

}  // namespace
}  // namespace kelprun
