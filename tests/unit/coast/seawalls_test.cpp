#include "coast/seawalls.h"

#include <gtest/gtest.h>

#include <array>

#include "unit/run/small_model.h"

namespace kelprun {
namespace {

/// Adds a seawall from cell b at position y1 to cell e at position y2.
void build(Seawalls& s, std::int32_t b, std::int32_t e, float y1, float y2) {
  s.NSW += 1;
  s.ISWBEG.append(b);
  s.ISWEND.append(e);
  s.SWY1.append(y1);
  s.SWY2.append(y2);
}

void set_limits(Model& m) { set_seawall_limits(m.settings, m.grid, m.seawalls, m.shore); }

constexpr double FAR_LANDWARD = -9999.0;

TEST(seawalls, without_any_the_limit_lies_far_landward_everywhere) {
  Model m = kelptest::small_model(5);
  m.settings.CONV = 0.3048f;
  m.shore.YREG.fill(50.0f);
  m.shore.Y.fill(-20000.0);
  set_limits(m);
  for (std::int32_t i = 1; i <= 5; ++i) EXPECT_EQ(m.shore.YSW(i), FAR_LANDWARD);
}

TEST(seawalls, between_its_ends_a_seawall_is_straight_in_distance_and_not_in_cells) {
  Model m = kelptest::small_model(6);
  kelptest::put(m.grid.XCELL, std::array{10.0f, 20.0f, 25.0f, 40.0f, 60.0f, 90.0f});
  build(m.seawalls, 2, 5, 30.0f, 50.0f);
  set_limits(m);
  EXPECT_EQ(m.shore.YSW(1), FAR_LANDWARD);
  EXPECT_EQ(m.shore.YSW(2), 30.0);
  EXPECT_EQ(m.shore.YSW(3), 32.5);  // 5 of 40 m
  EXPECT_EQ(m.shore.YSW(4), 40.0);  // 20 of 40 m
  EXPECT_EQ(m.shore.YSW(5), 50.0);
  EXPECT_EQ(m.shore.YSW(6), FAR_LANDWARD);
}

TEST(seawalls, the_interpolation_is_evaluated_float_by_float_in_one_order) {
  Model m = kelptest::small_model(30);
  kelptest::Random random(51);
  float x = 3.7f;
  for (std::int32_t i = 1; i <= 30; ++i) {
    m.shore.YREG(i) = random.real(-20.0, 20.0);
    m.grid.XCELL(i) = x;
    x += random.real(10.0, 90.0);
  }
  m.settings.CONV = 0.3048f;
  build(m.seawalls, 4, 27, 131.7f, 88.3f);
  set_limits(m);
  for (std::int32_t i = 5; i <= 26; ++i) {
    const float along = m.grid.XCELL(i) - m.grid.XCELL(4);
    const float length = m.grid.XCELL(27) - m.grid.XCELL(4);
    const float position = 131.7f + (along / length) * (88.3f - 131.7f);
    const float limit = position * 0.3048f - m.shore.YREG(i);
    EXPECT_EQ(m.shore.YSW(i), static_cast<double>(limit)) << i;
  }
}

TEST(seawalls, a_seawall_of_one_cell_stands_at_its_second_position) {
  Model m = kelptest::small_model(3);
  build(m.seawalls, 2, 2, 30.0f, 50.0f);
  set_limits(m);
  EXPECT_EQ(m.shore.YSW(1), FAR_LANDWARD);
  EXPECT_EQ(m.shore.YSW(2), 50.0);
  EXPECT_EQ(m.shore.YSW(3), FAR_LANDWARD);
}

TEST(seawalls, a_seawall_of_two_cells_has_its_two_positions_alone) {
  Model m = kelptest::small_model(3);
  build(m.seawalls, 1, 2, 30.0f, 50.0f);
  set_limits(m);
  EXPECT_EQ(m.shore.YSW(1), 30.0);
  EXPECT_EQ(m.shore.YSW(2), 50.0);
}

TEST(seawalls, the_positions_at_the_ends_are_not_interpolated) {
  // 0.3 is not 100.1 + (0.3 - 100.1) in single precision.
  ASSERT_NE(100.1f + (0.3f - 100.1f), 0.3f);
  Model m = kelptest::small_model(3);
  build(m.seawalls, 1, 3, 100.1f, 0.3f);
  set_limits(m);
  EXPECT_EQ(m.shore.YSW(1), static_cast<double>(100.1f));
  EXPECT_EQ(m.shore.YSW(3), static_cast<double>(0.3f));
}

TEST(seawalls, positions_in_feet_become_metres) {
  Model m = kelptest::small_model(4);
  m.settings.CONV = 0.3048f;
  build(m.seawalls, 1, 3, 100.0f, 200.0f);
  set_limits(m);
  EXPECT_NEAR(m.shore.YSW(1), 30.48, 1e-5);
  EXPECT_NEAR(m.shore.YSW(2), 45.72, 1e-5);
  EXPECT_NEAR(m.shore.YSW(3), 60.96, 1e-5);
  EXPECT_NEAR(m.shore.YSW(4), -9999.0 * 0.3048, 1e-3) << "beside it the far line is in feet too";
}

TEST(seawalls, positions_count_from_the_regional_contour_of_each_cell) {
  Model m = kelptest::small_model(4);
  kelptest::put(m.shore.YREG, std::array{5.0f, 7.0f, 9.0f, 11.0f});
  build(m.seawalls, 1, 3, 30.0f, 50.0f);
  set_limits(m);
  EXPECT_EQ(m.shore.YSW(1), 25.0);
  EXPECT_EQ(m.shore.YSW(2), 33.0);
  EXPECT_EQ(m.shore.YSW(3), 41.0);
  EXPECT_EQ(m.shore.YSW(4), -9999.0 - 11.0);
}

TEST(seawalls, beside_a_seawall_the_limit_never_lies_seaward_of_the_shoreline) {
  Model m = kelptest::small_model(3);
  kelptest::put(m.shore.Y, std::array{-12000.0, 0.0, 100.0});
  build(m.seawalls, 3, 3, 80.0f, 80.0f);
  set_limits(m);
  EXPECT_EQ(m.shore.YSW(1), -12000.0);
  EXPECT_EQ(m.shore.YSW(2), FAR_LANDWARD);
}

TEST(seawalls, a_seawall_can_stand_seaward_of_the_shoreline) {
  Model m = kelptest::small_model(3);
  m.shore.Y.fill(60.0);
  build(m.seawalls, 2, 2, 80.0f, 80.0f);
  set_limits(m);
  EXPECT_EQ(m.shore.YSW(2), 80.0);
  EXPECT_EQ(m.shore.Y(2), 60.0) << "the limit is set, the shoreline is not lifted yet";
}

TEST(seawalls, of_two_seawalls_on_a_cell_the_later_one_holds) {
  Model m = kelptest::small_model(5);
  build(m.seawalls, 1, 4, 10.0f, 10.0f);
  build(m.seawalls, 3, 5, 20.0f, 20.0f);
  set_limits(m);
  for (const std::int32_t i : {1, 2}) EXPECT_EQ(m.shore.YSW(i), 10.0);
  for (const std::int32_t i : {3, 4, 5}) EXPECT_EQ(m.shore.YSW(i), 20.0);
}

}  // namespace
}  // namespace kelprun
