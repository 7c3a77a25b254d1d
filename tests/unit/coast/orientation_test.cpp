#include "coast/orientation.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "unit/run/small_model.h"

namespace kelprun {
namespace {

void orient(Model& m) { set_shoreline_orientation(m.grid, m.boundaries, m.groins, m.shore); }

void place_groin(Model& m, std::int32_t wall, std::int32_t type, float tip) {
  m.groins.NGRP += 1;
  m.groins.IXGRP.append(wall);
  m.groins.YGT.append(tip);
  m.groins.ICSTR(wall) = type;
}

/// Five cells of 100 m whose shoreline rises by 10, 20, 30 and 40 m; the walls hold 0.5 from the
/// last step.
Model rising_coast() {
  Model m = kelptest::small_model(5);
  kelptest::put(m.shore.Y, std::array{0.0, 10.0, 30.0, 60.0, 100.0});
  m.shore.ALPHA.fill(0.5f);
  return m;
}

float slope(double rise) { return static_cast<float>(std::atan(rise / 100.0)); }

TEST(orientation, a_straight_shoreline_along_the_baseline_has_none) {
  Model m = kelptest::small_model(4);
  m.shore.Y.fill(123.25);
  orient(m);
  for (std::int32_t i = 1; i <= 5; ++i) EXPECT_EQ(m.shore.ALPHA(i), 0.0f);
}

TEST(orientation, is_the_slope_between_neighbours_and_the_end_walls_repeat_the_next) {
  Model m = rising_coast();
  orient(m);
  EXPECT_EQ(m.shore.ALPHA(1), slope(10.0));
  EXPECT_EQ(m.shore.ALPHA(2), slope(10.0));
  EXPECT_EQ(m.shore.ALPHA(3), slope(20.0));
  EXPECT_EQ(m.shore.ALPHA(4), slope(30.0));
  EXPECT_EQ(m.shore.ALPHA(5), slope(40.0));
  EXPECT_EQ(m.shore.ALPHA(6), slope(40.0));
}

TEST(orientation, lies_between_the_middles_of_cells_of_unequal_width) {
  Model m = kelptest::small_model(3);
  kelptest::put(m.grid.DX, std::array{10.0f, 30.0f, 50.0f});
  kelptest::put(m.shore.Y, std::array{0.0, 20.0, -20.0});
  orient(m);
  EXPECT_EQ(m.shore.ALPHA(2), std::atan(1.0f));
  EXPECT_EQ(m.shore.ALPHA(3), std::atan(-1.0f));
}

TEST(orientation, keeps_the_small_changes_of_a_far_shoreline) {
  // A tenth of a millimetre is far below the last single-precision digit of 1000 km.
  Model m = kelptest::small_model(3);
  kelptest::put(m.shore.Y, std::array{1e6, 1e6 + 1e-4, 1e6});
  orient(m);
  EXPECT_NEAR(static_cast<double>(m.shore.ALPHA(2)), 1e-6, 1e-11);
  EXPECT_NEAR(static_cast<double>(m.shore.ALPHA(3)), -1e-6, 1e-11);
}

TEST(orientation, a_standing_groin_takes_the_mean_with_its_neighbours_one_of_them_a_step_old) {
  for (const std::int32_t type : {1, 2, 4, -1}) {
    Model m = rising_coast();
    place_groin(m, 3, type, 80.0f);
    orient(m);
    EXPECT_EQ(m.shore.ALPHA(3), (slope(20.0) + slope(10.0) + 0.5f) / 3.0f) << type;
    EXPECT_EQ(m.shore.ALPHA(4), slope(30.0));
  }
}

TEST(orientation, a_groin_level_with_the_shoreline_or_on_the_first_wall_takes_no_mean) {
  for (const std::int32_t type : {-2, 3}) {
    Model m = rising_coast();
    place_groin(m, 3, type, 80.0f);
    orient(m);
    EXPECT_EQ(m.shore.ALPHA(3), slope(20.0)) << type;
  }
  Model m = rising_coast();
  place_groin(m, 1, 4, 80.0f);
  orient(m);
  EXPECT_EQ(m.shore.ALPHA(1), slope(10.0));
}

TEST(orientation, of_two_neighbouring_groins_the_second_sees_the_mean_of_the_first) {
  Model m = rising_coast();
  place_groin(m, 3, 1, 80.0f);
  place_groin(m, 4, 1, 80.0f);
  orient(m);
  const float first = (slope(20.0) + slope(10.0) + 0.5f) / 3.0f;
  EXPECT_EQ(m.shore.ALPHA(3), first);
  EXPECT_EQ(m.shore.ALPHA(4), (slope(30.0) + first + 0.5f) / 3.0f);
}

TEST(orientation, a_groin_on_an_end_wall_looks_at_the_shoreline_outside_the_grid) {
  for (const std::int32_t type : {1, -1}) {
    Model m = rising_coast();
    m.boundaries.left.BCTYPE = 1;
    m.boundaries.right.BCTYPE = 1;
    m.boundaries.left.GROINY = 70.0f;
    m.boundaries.right.GROINY = 60.0f;
    place_groin(m, 1, type, 90.0f);
    place_groin(m, 3, -2, 500.0f);
    place_groin(m, 6, type, 150.0f);
    orient(m);
    // Outside lie 90 - 70 = 20 m and 150 - 60 = 90 m; the shoreline inside at 0 and 100 m.
    EXPECT_EQ(m.shore.ALPHA(1), slope(-20.0)) << type;
    EXPECT_EQ(m.shore.ALPHA(6), slope(-10.0)) << type;
  }
}

TEST(orientation, a_gated_groin_sees_a_straight_shoreline) {
  Model m = rising_coast();
  m.boundaries.left.BCTYPE = 2;
  m.boundaries.right.BCTYPE = 2;
  place_groin(m, 1, 1, 90.0f);
  place_groin(m, 6, 1, 150.0f);
  orient(m);
  EXPECT_EQ(m.shore.ALPHA(1), 0.0f);
  EXPECT_EQ(m.shore.ALPHA(6), 0.0f);
  EXPECT_EQ(m.shore.ALPHA(5), slope(40.0));
}

TEST(orientation, a_buried_groin_on_an_end_wall_is_passed_over) {
  Model m = rising_coast();
  place_groin(m, 1, 4, -10.0f);
  place_groin(m, 6, 4, 20.0f);
  orient(m);
  EXPECT_EQ(m.shore.ALPHA(1), slope(10.0));
  EXPECT_EQ(m.shore.ALPHA(6), slope(40.0));
}

}  // namespace
}  // namespace kelprun
