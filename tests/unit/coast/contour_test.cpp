#include "coast/contour.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "unit/run/small_model.h"

namespace kelprun {
namespace {

template <std::size_t N>
Model shoreline(const std::array<double, N>& Y) {
  Model m = kelptest::small_model(static_cast<std::int32_t>(N));
  kelptest::put(m.shore.YOLD, Y);
  return m;
}

void smooth(Model& m, std::int32_t window) {
  m.settings.ISMOOTH = window;
  smooth_contour(m.grid, m.settings.ISMOOTH, m.shore);
}

template <std::size_t N>
void expect_contour(const Model& m, const std::array<double, N>& YCON) {
  for (std::size_t k = 0; k < N; ++k)
    EXPECT_NEAR(static_cast<double>(m.shore.YCON(static_cast<std::int64_t>(k) + 1)), YCON[k], 5e-5)
        << "cell " << k + 1;
}

TEST(contour, a_window_below_three_leaves_the_shoreline_as_it_is_plus_300) {
  constexpr std::array Y{10.25, -3.5, 0.125, 77.0, 12.0};
  for (const std::int32_t window : {0, 1, 2}) {
    Model m = shoreline(Y);
    smooth(m, window);
    for (std::int32_t i = 1; i <= 5; ++i)
      EXPECT_EQ(static_cast<double>(m.shore.YCON(i)), Y[static_cast<std::size_t>(i - 1)] + 300.0);
    EXPECT_EQ(m.settings.ISMOOTH, window);
  }
}

TEST(contour, two_passes_of_a_window_of_three_spread_a_spike_over_five_cells) {
  // First pass 0 3 3 3 0, second 0 2 3 2 0.
  Model m = shoreline(std::array{0.0, 0.0, 9.0, 0.0, 0.0});
  smooth(m, 3);
  expect_contour(m, std::array{300.0, 302.0, 303.0, 302.0, 300.0});
}

TEST(contour, the_ends_are_straight_lines_from_the_outermost_cell_to_the_outermost_mean) {
  // First pass: means 2 2 2 in cells 3 to 5, lines 0 1 and 1 0 beside them. Second pass: means 1.4
  // 1.6 1.4, lines 0 0.7 and 0.7 0.
  Model m = shoreline(std::array{0.0, 0.0, 0.0, 10.0, 0.0, 0.0, 0.0});
  smooth(m, 5);
  expect_contour(m, std::array{300.0, 300.7, 301.4, 301.6, 301.4, 300.7, 300.0});
  // Unlike ends: the first pass gives 10 7 4 4 4 2 0, the second means 29/5, 21/5 and 14/5.
  Model tilted = shoreline(std::array{10.0, 0.0, 0.0, 10.0, 0.0, 10.0, 0.0});
  smooth(tilted, 5);
  expect_contour(tilted, std::array{310.0, 307.9, 305.8, 304.2, 302.8, 301.4, 300.0});
}

TEST(contour, an_even_window_works_as_the_odd_one_below_and_is_told_as_that) {
  kelptest::Random random(61);
  Model even = kelptest::small_model(40);
  for (std::int32_t i = 1; i <= 40; ++i) even.shore.YOLD(i) = random.between(-50.0, 50.0);
  Model odd = even;
  smooth(even, 12);
  smooth(odd, 11);
  EXPECT_EQ(even.settings.ISMOOTH, 11);
  for (std::int32_t i = 1; i <= 40; ++i) EXPECT_EQ(even.shore.YCON(i), odd.shore.YCON(i));
  Model four = odd;
  smooth(four, 4);
  EXPECT_EQ(four.settings.ISMOOTH, 3);
}

TEST(contour, a_straight_sloping_shoreline_is_kept_plus_300) {
  for (const std::int32_t window : {3, 5, 11, 25}) {
    Model m = kelptest::small_model(25);
    for (std::int32_t i = 1; i <= 25; ++i) m.shore.YOLD(i) = 20.0 - 1.5 * i;
    smooth(m, window);
    for (std::int32_t i = 1; i <= 25; ++i)
      EXPECT_NEAR(static_cast<double>(m.shore.YCON(i)), 320.0 - 1.5 * i, 1e-4) << window;
  }
}

TEST(contour, a_window_wider_than_the_grid_works_as_the_widest_odd_one_that_fits) {
  kelptest::Random random(62);
  for (const std::int32_t NX : {1, 2, 3, 4, 6, 7, 10}) {
    Model wide = kelptest::small_model(NX);
    for (std::int32_t i = 1; i <= NX; ++i) wide.shore.YOLD(i) = random.between(-50.0, 50.0);
    Model fitting = wide;
    smooth(wide, 21);
    EXPECT_EQ(wide.settings.ISMOOTH, 21) << "the setting stands";
    smooth(fitting, NX % 2 == 0 ? NX - 1 : NX);
    for (std::int32_t i = 1; i <= NX; ++i)
      EXPECT_EQ(wide.shore.YCON(i), fitting.shore.YCON(i)) << NX << " cells";
  }
}

TEST(contour, the_moving_sum_is_carried_along_the_coast_in_single_precision) {
  constexpr std::int32_t NX = 300;
  constexpr std::int32_t L = 11;
  constexpr std::int32_t M = 5;
  Model m = kelptest::small_model(NX);
  kelptest::Random random(63);
  std::array<float, NX + 1> work{};
  for (std::int32_t i = 1; i <= NX; ++i) {
    m.shore.YOLD(i) = random.between(-500.0, 500.0);
    work[static_cast<std::size_t>(i)] = static_cast<float>(m.shore.YOLD(i));
  }
  const auto at = [&](std::int32_t i) -> float& { return work[static_cast<std::size_t>(i)]; };
  float direct_differs = 0.0f;
  for (int pass = 1; pass <= 2; ++pass) {
    std::array<float, NX + 1> mean{};
    const auto to = [&](std::int32_t i) -> float& { return mean[static_cast<std::size_t>(i)]; };
    float sum = 0.0f;
    for (std::int32_t i = 1; i <= L; ++i) sum += at(i);
    to(M + 1) = sum / 11.0f;
    for (std::int32_t i = M + 2; i <= NX - M; ++i) {
      sum -= at(i - M - 1);
      sum += at(i + M);
      to(i) = sum / 11.0f;
      float direct = 0.0f;
      for (std::int32_t j = i - M; j <= i + M; ++j) direct += at(j);
      direct_differs += std::abs(direct / 11.0f - to(i));
    }
    for (std::int32_t i = 1; i <= M; ++i)
      to(i) = (static_cast<float>(i) - 3.5f) * ((to(M + 1) - at(1)) / 5.0f) +
              (to(M + 1) + at(1)) * 0.5f;
    for (std::int32_t i = NX - M + 1; i <= NX; ++i)
      to(i) = (static_cast<float>(i) - 297.5f) * ((at(NX) - to(NX - M)) / 5.0f) +
              (at(NX) + to(NX - M)) * 0.5f;
    work = mean;
  }
  smooth(m, L);
  for (std::int32_t i = 1; i <= NX; ++i) EXPECT_EQ(m.shore.YCON(i), at(i) + 300.0f) << i;
  EXPECT_GT(direct_differs, 0.0f) << "sums formed afresh would round differently";
}

TEST(contour, the_shoreline_itself_is_left_alone) {
  Model m = shoreline(std::array{0.0, 0.0, 9.0, 0.0, 0.0});
  m.shore.Y = m.shore.YOLD;
  smooth(m, 3);
  EXPECT_EQ(m.shore.YOLD(3), 9.0);
  EXPECT_EQ(m.shore.Y(3), 9.0);
}

TEST(contour, its_orientation_is_the_slope_between_neighbours_and_the_ends_repeat_theirs) {
  Model m = kelptest::small_model(4);
  kelptest::put(m.grid.DX, std::array{10.0f, 30.0f, 10.0f, 30.0f});
  kelptest::put(m.shore.YCON, std::array{300.0f, 320.0f, 310.0f, 310.0f});
  set_contour_orientation(m.grid, m.shore);
  EXPECT_EQ(m.shore.ALPHAC(2), std::atan(1.0f));
  EXPECT_EQ(m.shore.ALPHAC(1), m.shore.ALPHAC(2));
  EXPECT_EQ(m.shore.ALPHAC(3), std::atan(-0.5f));
  EXPECT_EQ(m.shore.ALPHAC(4), 0.0f);
  EXPECT_EQ(m.shore.ALPHAC(5), m.shore.ALPHAC(4));
}

TEST(contour, its_orientation_is_evaluated_in_single_precision) {
  Model m = kelptest::small_model(50);
  kelptest::Random random(64);
  for (std::int32_t i = 1; i <= 50; ++i) {
    m.grid.DX(i) = random.real(20.0, 120.0);
    m.shore.YCON(i) = random.real(250.0, 350.0);
  }
  set_contour_orientation(m.grid, m.shore);
  for (std::int32_t i = 2; i <= 50; ++i) {
    const float rise = m.shore.YCON(i) - m.shore.YCON(i - 1);
    const float run = 0.5f * (m.grid.DX(i) + m.grid.DX(i - 1));
    EXPECT_EQ(m.shore.ALPHAC(i), std::atan(rise / run));
  }
}

}  // namespace
}  // namespace kelprun
