#include "waves/spreading.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>

#include "unit/run/small_model.h"

namespace kelprun {
namespace {

constexpr double PI_2 = 3.141593 / 2.0;

double of(float x) { return static_cast<double>(x); }

/// Wave of a period with its deep-water length.
struct Sea {
  explicit Sea(double T)
      : SIGMA(static_cast<float>(2.0 * std::numbers::pi / T)),
        L0(9.806 * T * T / (2.0 * std::numbers::pi)) {}
  float depth(double x) const { return static_cast<float>(x * L0); }
  float SIGMA;
  double L0;
};

TEST(spreading, deeper_than_a_fifth_of_the_wave_length_the_concentration_falls_slowly) {
  const Sea sea(8.0);
  for (const double x : {0.21, 0.3, 0.5, 0.8}) {
    const double expected = 9.609375 * std::pow(x, -0.27181286);
    const Spreading s = SPREADMAX(sea.depth(x), sea.SIGMA);
    EXPECT_NEAR(of(s.SMAX), std::max(expected, 10.0), 2e-5) << x;
  }
}

TEST(spreading, shallower_the_concentration_rises_as_the_depth_falls) {
  const Sea sea(8.0);
  for (const double x : {0.05, 0.1, 0.15, 0.199}) {
    const double expected = 2.923 * std::pow(x, -1.027);
    const Spreading s = SPREADMAX(sea.depth(x), sea.SIGMA);
    EXPECT_NEAR(of(s.SMAX), expected, 1e-4) << x;
  }
}

TEST(spreading, the_two_formulas_meet_with_a_small_step_at_a_fifth) {
  const Sea sea(8.0);
  const double below = of(SPREADMAX(sea.depth(0.1999), sea.SIGMA).SMAX);
  const double above = of(SPREADMAX(sea.depth(0.2001), sea.SIGMA).SMAX);
  EXPECT_NEAR(below, 2.923 * std::pow(0.1999, -1.027), 1e-4);          // 15.27
  EXPECT_NEAR(above, 9.609375 * std::pow(0.2001, -0.27181286), 1e-4);  // 14.88
  EXPECT_GT(below - above, 0.3);
}

TEST(spreading, a_fifth_of_the_wave_length_itself_counts_as_shallow) {
  const float L0 = ((9.806f / 1.0f) * 3.141593f * 2.0f) / 1.0f;
  const float d = 0.2f * L0;
  ASSERT_EQ(d / L0, 0.2f);
  EXPECT_NEAR(of(SPREADMAX(d, 1.0f).SMAX), 2.923 * std::pow(0.2, -1.027), 1e-4);
}

TEST(spreading, lies_between_ten_and_a_hundred) {
  const Sea sea(8.0);
  // 2.923 x^-1.027 reaches 100 at x = 0.0320, 9.609 x^-0.272 falls to 10 at x = 0.8637.
  EXPECT_EQ(SPREADMAX(sea.depth(0.031), sea.SIGMA).SMAX, 100.0f);
  EXPECT_LT(SPREADMAX(sea.depth(0.033), sea.SIGMA).SMAX, 100.0f);
  EXPECT_EQ(SPREADMAX(sea.depth(0.001), sea.SIGMA).SMAX, 100.0f);
  EXPECT_GT(SPREADMAX(sea.depth(0.86), sea.SIGMA).SMAX, 10.0f);
  EXPECT_EQ(SPREADMAX(sea.depth(0.87), sea.SIGMA).SMAX, 10.0f);
  EXPECT_EQ(SPREADMAX(sea.depth(5.0), sea.SIGMA).SMAX, 10.0f);
}

TEST(spreading, a_tip_without_depth_has_the_narrowest_spreading) {
  EXPECT_EQ(SPREADMAX(0.0f, 0.8f).SMAX, 100.0f);
}

TEST(spreading, the_divisor_is_a_parabola_of_the_concentration) {
  const Sea sea(8.0);
  // At the limits: (-0.00103 + 0.27) 10 + 5.31 and (-0.0103 + 0.27) 100 + 5.31.
  EXPECT_NEAR(of(SPREADMAX(sea.depth(3.0), sea.SIGMA).AKD), 7.9997, 1e-5);
  EXPECT_NEAR(of(SPREADMAX(sea.depth(0.01), sea.SIGMA).AKD), 31.28, 1e-5);
}

TEST(spreading, on_the_shadow_line_half_of_the_energy_arrives) {
  for (const float B : {0.8f, 1.6129032f, 3.2f}) EXPECT_NEAR(of(open_share(B, 0.0f)), 0.7071, 5e-5);
}

TEST(spreading, everything_arrives_in_the_open_and_nothing_deep_in_the_shadow) {
  EXPECT_FLOAT_EQ(open_share(1.25f, WIDEST_ANGLE), 1.0f);
  EXPECT_FLOAT_EQ(open_share(3.2f, WIDEST_ANGLE), 1.0f);
  EXPECT_LT(open_share(1.25f, -4.0f), 0.01f);
  EXPECT_LT(open_share(3.2f, -4.0f), 1e-3f);
  EXPECT_GE(open_share(3.2f, -6.0f), 0.0f);
  EXPECT_FALSE(std::isnan(open_share(3.2f, -6.0f)));
}

TEST(spreading, the_share_of_energy_is_half_of_one_plus_the_hyperbolic_tangent) {
  for (double th = -2.0; th <= 2.01; th += 0.25) {
    for (const double B : {1.25, 2.0, 3.0}) {
      const double KD = std::sqrt(0.5 * (1.0 + std::tanh(B * th)));
      EXPECT_NEAR(of(open_share(static_cast<float>(B), static_cast<float>(th))), KD,
                  2e-4 * KD + 1e-4)
          << th;
      const double mirrored = of(open_share(static_cast<float>(B), static_cast<float>(-th)));
      EXPECT_NEAR(KD * KD + mirrored * mirrored, 1.0, 1e-5) << "both sides share the energy";
    }
  }
}

struct RayCase {
  float X, P;
  double first, second;
};

TEST(spreading, rays_seaward_of_the_shoreline_are_plain_angles_at_both_tips) {
  for (const RayCase& c : {RayCase{30, 40, 0.6435011, 0.6435011},
                           RayCase{-30, 40, -0.6435011, -0.6435011}, RayCase{0, 40, 0, 0}}) {
    EXPECT_NEAR(of(first_tip_ray(c.X, c.P)), c.first, 1e-6);
    EXPECT_NEAR(of(second_tip_ray(c.X, c.P)), c.second, 1e-6);
  }
}

TEST(spreading, rays_from_a_tip_landward_of_the_point_are_turned_along_the_coast) {
  // To the right of the tip the arctangent is -0.6435; to its left it is +0.6435.
  EXPECT_NEAR(of(first_tip_ray(30, -40)), PI_2 + 0.6435011, 1e-6);
  EXPECT_NEAR(of(second_tip_ray(30, -40)), PI_2, 1e-6);
  EXPECT_NEAR(of(first_tip_ray(-30, -40)), -PI_2, 1e-6);
  EXPECT_NEAR(of(second_tip_ray(-30, -40)), -(PI_2 + 0.6435011), 1e-6);
  EXPECT_EQ(first_tip_ray(0, -40), 0.0f) << "straight behind the tip nothing is turned";
  EXPECT_EQ(second_tip_ray(0, -40), 0.0f);
}

TEST(spreading, the_two_tips_are_mirror_images) {
  kelptest::Random random(7);
  for (int n = 0; n < 200; ++n) {
    const float X = random.real(-300.0, 300.0);
    const float P = random.real(-50.0, 200.0);
    EXPECT_EQ(first_tip_ray(X, P), -second_tip_ray(-X, P)) << X << " " << P;
  }
}

TEST(spreading, distances_below_a_centimetre_are_a_centimetre_and_lose_their_sign) {
  EXPECT_EQ(kept_from_zero(0.0f), 0.01f);
  EXPECT_EQ(kept_from_zero(0.0099f), 0.01f);
  EXPECT_EQ(kept_from_zero(-0.0099f), 0.01f);
  EXPECT_EQ(kept_from_zero(0.01f), 0.01f);
  EXPECT_EQ(kept_from_zero(-0.01f), -0.01f);
  EXPECT_EQ(kept_from_zero(-3.0f), -3.0f);
  EXPECT_EQ(kept_from_zero(0.0101f), 0.0101f);
}

TEST(spreading, the_later_the_round_the_less_of_the_new_value_is_taken) {
  struct Range {
    int from, to;
    double weight;
  };
  constexpr std::array ranges{Range{4, 8, 3},   Range{9, 18, 4},  Range{19, 28, 5},
                              Range{29, 38, 6}, Range{39, 48, 7}, Range{49, 58, 8},
                              Range{59, 68, 9}, Range{69, 74, 10}};
  for (int round = 0; round < 4; ++round) EXPECT_EQ(damped(0.9f, 0.2f, round), 0.2f);
  int rounds = 4;
  for (const Range& range : ranges)
    for (int round = range.from; round <= range.to; ++round, ++rounds)
      EXPECT_NEAR(of(damped(0.9f, 0.2f, round)), (range.weight * 0.9 + 0.2) / (range.weight + 1.0),
                  1e-6)
          << round;
  EXPECT_EQ(rounds, 75) << "every round is in one range";
}

}  // namespace
}  // namespace kelprun
