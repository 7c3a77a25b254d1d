#include "coast/profile_shape.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kelprun {
namespace {

TEST(profile_shape, grows_with_the_grain_in_four_bands) {
  EXPECT_NEAR(static_cast<double>(profile_shape_factor(0.2f)), 0.41 * std::pow(0.2, 0.94), 1e-7);
  EXPECT_NEAR(static_cast<double>(profile_shape_factor(1.0f)), 0.23, 1e-7);
  EXPECT_NEAR(static_cast<double>(profile_shape_factor(20.0f)), 0.23 * std::pow(20.0, 0.28), 1e-6);
  EXPECT_NEAR(static_cast<double>(profile_shape_factor(60.0f)), 0.46 * std::pow(60.0, 0.11), 1e-6);
}

TEST(profile_shape, a_grain_exactly_on_a_limit_belongs_to_the_coarser_band) {
  EXPECT_EQ(profile_shape_factor(0.4f), 0.23f * std::pow(0.4f, 0.32f));
  EXPECT_EQ(profile_shape_factor(10.0f), 0.23f * std::pow(10.0f, 0.28f));
  EXPECT_EQ(profile_shape_factor(40.0f), 0.46f * std::pow(40.0f, 0.11f));
  const float finer = std::nextafter(0.4f, 0.0f);
  EXPECT_EQ(profile_shape_factor(finer), 0.41f * std::pow(finer, 0.94f));
}

TEST(profile_shape, the_beach_slope_is_the_mean_slope_down_to_the_active_depth) {
  // 0.1^3/4 = 0.00025, its root 0.0158114.
  EXPECT_NEAR(static_cast<double>(beach_slope(0.1f, 4.0f)), std::sqrt(0.00025), 1e-8);
}

}  // namespace
}  // namespace kelprun
