#include "input/regional_angle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <vector>

namespace {

class regional_angle : public testing::Test {
 protected:
  /// A contour of ten cells of 100 m and its own angles, worked out in double precision.
  void SetUp() override { take({0, 10, 25, 20, 60, 50, 50, 90, 80, 130}); }

  void take(const std::vector<double>& contour) {
    NX = static_cast<std::int32_t>(contour.size());
    model.grid.NX = NX;
    model.grid.DX.take(NX, 100.0f);
    model.shore.YREG.take(NX);
    model.waves.RANG0.take(NX);
    model.waves.RANG.take(NX);
    own.assign(contour.size() + 2, 0.0);
    for (std::int32_t i = 1; i <= NX; ++i)
      model.shore.YREG(i) = static_cast<float>(contour[static_cast<std::size_t>(i - 1)]);
    for (std::size_t i = 2; i <= contour.size(); ++i)
      own[i] = std::atan((contour[i - 1] - contour[i - 2]) / 100.0);
    own[1] = own[2];
  }

  void set(std::int32_t mode, std::int32_t window = 0, const std::vector<std::int32_t>& ends = {}) {
    model.settings.WAVREGANG = mode;
    model.settings.IWAVREGSMOOTH = window;
    model.series.IWEND = {};
    for (const std::int32_t end : ends) model.series.IWEND.append(end);
    kelprun::set_regional_angle(model.settings, model.grid, model.series, model.shore.YREG,
                                model.waves);
  }

  double sum(std::int32_t first, std::int32_t last) const {
    double total = 0.0;
    for (std::int32_t i = first; i <= last; ++i) total += own[static_cast<std::size_t>(i)];
    return total;
  }

  void expect_angles(std::int32_t first, std::int32_t last, double expected) const {
    for (std::int32_t i = first; i <= last; ++i)
      EXPECT_NEAR(model.waves.RANG(i), expected, 1e-6) << "cell " << i;
  }

  void expect_own_angles(std::int32_t first, std::int32_t last) const {
    for (std::int32_t i = first; i <= last; ++i)
      EXPECT_NEAR(model.waves.RANG(i), own[static_cast<std::size_t>(i)], 1e-7) << "cell " << i;
  }

  std::int32_t NX = 0;
  std::vector<double> own;
  kelprun::Model model;
};

TEST_F(regional_angle, a_contour_that_advances_with_the_cell_number_has_a_positive_angle) {
  take({0, 100});
  set(3);
  EXPECT_NEAR(model.waves.RANG(2), std::atan(1.0), 1e-7);
}

TEST_F(regional_angle, an_angle_looks_from_cell_middle_to_cell_middle) {
  take({0, 30, 30});
  model.grid.DX(1) = 20.0f;
  model.grid.DX(2) = 60.0f;
  set(3);
  EXPECT_NEAR(model.waves.RANG0(2), std::atan(30.0 / 40.0), 1e-7);
  EXPECT_NEAR(model.waves.RANG0(1), std::atan(30.0 / 40.0), 1e-7);
  EXPECT_NEAR(model.waves.RANG0(3), 0.0, 1e-7);
}

TEST_F(regional_angle, a_mode_that_does_not_exist_averages_nothing) {
  for (const std::int32_t mode : {3, -1, 7}) {
    set(mode, 3);
    expect_own_angles(1, 10);
  }
}

TEST_F(regional_angle, windows_of_a_fixed_width_hold_their_mean_and_the_rest_keeps_its_own) {
  set(0, 3);
  expect_angles(1, 3, sum(1, 3) / 3.0);
  expect_angles(4, 6, sum(4, 6) / 3.0);
  expect_angles(7, 9, sum(7, 9) / 3.0);
  expect_own_angles(10, 10);
}

TEST_F(regional_angle, averaging_leaves_the_angles_before_averaging_alone) {
  set(0, 5);
  for (std::int32_t i = 1; i <= 10; ++i)
    EXPECT_NEAR(model.waves.RANG0(i), own[static_cast<std::size_t>(i)], 1e-7);
}

TEST_F(regional_angle, a_window_of_none_or_of_more_than_all_cells_is_one_of_all_cells) {
  for (const std::int32_t window : {0, 10, 11, 5000}) {
    set(0, window);
    expect_angles(1, 10, sum(1, 10) / 10.0);
  }
}

TEST_F(regional_angle, a_window_of_one_cell_is_never_closed_at_cell_1) {
  set(0, 1);
  expect_own_angles(1, 1);
  expect_angles(2, 2, sum(1, 2));
  expect_own_angles(3, 10);
}

TEST_F(regional_angle, one_mean_serves_all_cells) {
  set(1, 3);
  expect_angles(1, 10, sum(1, 10) / 10.0);
}

TEST_F(regional_angle, a_window_between_gauges_divides_by_one_less_than_its_cells) {
  set(2, 0, {4, 10});
  // The window of the first gauge ends at cell (4 + 10)/2.
  expect_angles(1, 7, sum(1, 7) / 6.0);
  expect_angles(8, 10, sum(8, 10) / 2.0);
}

TEST_F(regional_angle, the_middle_between_gauges_is_rounded_down) {
  set(2, 0, {2, 5, 10});
  expect_angles(1, 3, sum(1, 3) / 2.0);
  expect_angles(4, 7, sum(4, 7) / 3.0);
  expect_angles(8, 10, sum(8, 10) / 2.0);
}

TEST_F(regional_angle, one_gauge_has_one_window_of_all_cells) {
  set(2, 3, {10});
  expect_angles(1, 10, sum(1, 10) / 9.0);
}

TEST_F(regional_angle, a_window_of_a_single_cell_between_gauges_divides_by_zero) {
  set(2, 0, {4, 5, 6});
  // The windows end at cells (4 + 5)/2 = 4, (5 + 6)/2 = 5 and 10.
  expect_angles(1, 4, sum(1, 4) / 3.0);
  EXPECT_TRUE(std::isinf(model.waves.RANG(5))) << model.waves.RANG(5);
  EXPECT_GT(model.waves.RANG(5), 0.0f);
  expect_angles(6, 10, sum(6, 10) / 4.0);
}

TEST_F(regional_angle, the_last_wall_has_the_angle_of_the_last_cell) {
  for (const std::int32_t mode : {0, 1, 2, 3}) {
    set(mode, 4, {10});
    EXPECT_EQ(model.waves.RANG(11), model.waves.RANG(10));
  }
}

TEST_F(regional_angle, a_coast_of_one_cell_stays_inside_its_storage) {
  take({0});
  for (const std::int32_t mode : {0, 1, 2}) {
    set(mode, 1, {1});
    EXPECT_EQ(model.waves.RANG(2), model.waves.RANG(1));
  }
}

}  // namespace
