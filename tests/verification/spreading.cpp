#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "verification/sinusoid.h"

// One-line theory: dy/dt = eps d2y/dx2 (Pelnard-Considere 1956; Dean 2002),
// with eps the effective diffusivity of the case. The wave is so oblique that Q keeps one sign and
// the relaxation of nodal points does nothing. The term in K2 is switched off (K2 1e-6) but where
// said.

namespace {

using namespace kelptest;

const OffshoreWave oblique{1.0, 8.0, 20.0, gauge_depth};

const Sinusoid straight_contour{oblique, Contour::stays_straight, 40};
const Sinusoid turning_contour{oblique, Contour::turns_with_the_shoreline, 160};

/// Second order and nothing else: each halving of DX (with a quarter of DT) divides the change of
/// the answer by four, and the limit is the exact solution.
void expect_second_order(const Sinusoid& sinusoid, const std::string& name) {
  std::vector<double> ratio;
  for (const int cells : {20, 40, 80, 160}) {
    ratio.push_back(decay(sinusoid, cells).ratio);
    measured(name + ", " + std::to_string(cells) + " cells, relative error of the amplitude",
             ratio.back() / sinusoid.exact_ratio() - 1.0);
  }
  for (std::size_t k = 2; k < ratio.size(); ++k) {
    const double order = std::log2((ratio[k - 1] - ratio[k - 2]) / (ratio[k] - ratio[k - 1]));
    measured(name + ", order of convergence", order);
    EXPECT_NEAR(order, 2.0, 0.1);
  }
  const double limit = ratio[3] + (ratio[3] - ratio[2]) / 3.0;
  measured(name + ", relative error of the limit", limit / sinusoid.exact_ratio() - 1.0);
  EXPECT_NEAR(limit / sinusoid.exact_ratio(), 1.0, error_of_diffusivity * sinusoid.decay());
}

}  // namespace

TEST(spreading, of_a_sinusoid_under_a_wave_held_by_a_straight_contour_is_of_second_order) {
  expect_second_order(straight_contour, "sinusoid, straight contour");
}

TEST(spreading, of_a_sinusoid_under_a_wave_that_turns_with_the_shoreline_is_of_second_order) {
  expect_second_order(turning_contour, "sinusoid, turning contour");
}

// What is told of the two contours is no matter of taste: the shoreline spreads three to four times
// as fast where the contour stays straight.
TEST(spreading, keeps_its_effective_diffusivity_from_five_to_thirty_degrees) {
  for (const double degrees : {5.0, 10.0, 15.0, 25.0, 30.0}) {
    for (const Contour contour : {Contour::stays_straight, Contour::turns_with_the_shoreline}) {
      const OffshoreWave wave{1.0, 8.0, degrees, gauge_depth};
      const Sinusoid sinusoid{wave, contour, contour == Contour::stays_straight ? 40 : 120};
      const double error = decay(sinusoid, 80).ratio / sinusoid.exact_ratio() - 1.0;
      const std::string name = "sinusoid, " + std::to_string(static_cast<int>(degrees)) +
                               " degrees, " +
                               (contour == Contour::stays_straight ? "straight" : "turning");
      measured(name + " contour, eps", sinusoid.diffusivity());
      measured(name + " contour, relative error of the amplitude", error);
      EXPECT_LT(std::abs(error),
                sinusoid.leading_error(80) * 1.1 + error_of_diffusivity * sinusoid.decay())
          << name;
    }
  }
}

// Past the angle of greatest transport (42 degrees here) a turning contour makes the diffusivity
// negative, and the sinusoid grows (Ashton, Murray and Arnault 2001). Same errors as when it
// decays. Shorter waves grow faster, down to what the smoothing of the breaking field still passes,
// so the grid is coarse and the sinusoid high above the rounding: on 80 cells, rounding outgrows
// it.
TEST(spreading, turns_to_growth_past_the_angle_of_greatest_transport) {
  const OffshoreWave wave{1.0, 8.0, 55.0, gauge_depth};
  const Sinusoid sinusoid{wave, Contour::turns_with_the_shoreline, 120};
  ASSERT_LT(sinusoid.diffusivity(), 0.0);
  const double ratio = decay(sinusoid, 40).ratio;
  measured("sinusoid, 55 degrees, growth in 120 days, exact", sinusoid.exact_ratio());
  measured("sinusoid, 55 degrees, relative error of the amplitude",
           ratio / sinusoid.exact_ratio() - 1.0);
  EXPECT_GT(ratio, 1.0);
  EXPECT_NEAR(ratio / sinusoid.exact_ratio(), 1.0,
              sinusoid.leading_error(40) * 1.1 + error_of_diffusivity * -sinusoid.decay());
}

// The point source: V/(D sqrt(4 pi eps t)) exp(-x^2/(4 eps t)), begun when it is 400 m wide. The
// real program, its table read back. The table is rounded to 0.005 m; the slope of 0.003 bends the
// diffusivity by 0.3 %, and the kernel by another 0.3 %, of 2 m each: 0.017 m in all.
TEST(spreading, of_a_point_source_follows_the_gaussian_in_the_shoreline_table) {
  constexpr double height = 2.0;
  constexpr double width = 400.0;
  constexpr int days = 90;
  constexpr double DX = 50.0;
  constexpr int middle = 101;
  const auto gaussian = [](int cell, double variance) {
    const double x = (cell - middle) * DX;
    return height * width / std::sqrt(variance) * std::exp(-x * x / (2.0 * variance));
  };
  Coast coast;
  coast.DX = DX;
  coast.DT = 6.0;
  coast.steps = days * 4;
  for (int cell = 1; cell < 2 * middle; ++cell)
    coast.shoreline.push_back(gaussian(cell, width * width));
  coast.contour.assign(coast.shoreline.size(), 500.0);
  coast.waves = steady_wave(oblique.H, oblique.T, oblique.degrees);
  const WorkFolder folder;
  write_coast(folder, coast);
  ASSERT_EQ(run_program(folder, {"run.cfg"}).status, 0);

  const Table table = read_table(folder.read("run.slo"), 14);
  const double eps =
      effective_diffusivity(oblique, K1_of_the_coast, profile_height, Contour::stays_straight);
  const double variance = width * width + 2.0 * eps * days * 86400.0;
  double largest = 0.0;
  for (int cell = 1; cell < 2 * middle; ++cell)
    largest = std::max(largest, std::abs(table.rows.back().at(static_cast<std::size_t>(cell - 1)) -
                                         gaussian(cell, variance)));
  measured("point source, height left, m", gaussian(middle, variance));
  measured("point source, largest error, m", largest);
  EXPECT_LT(largest, 0.017);
}

// With a turning contour the breaking height follows the shoreline, and the term in K2 carries the
// sinusoid along the coast without a change of its amplitude: dy/dt = eps d2y/dx2 - a d3y/dx3. The
// phase is read over the middle one of nine wave lengths, where the pinned ends are not felt.
TEST(spreading, drifts_along_the_coast_with_the_height_gradient_term) {
  constexpr double K2 = 0.77;
  constexpr int cells = 80;
  constexpr int waves = 9;
  Coast coast = sinusoid_coast(turning_contour, cells);
  coast.keywords["K2"] = digits(K2);
  const double k = Sinusoid::wave_number();
  coast.shoreline.clear();
  for (int i = 0; i <= waves * cells; ++i) coast.shoreline.push_back(std::sin(k * i * coast.DX));
  CoastRun run(coast);
  run.to_the_end();

  double sine = 0.0;
  double cosine = 0.0;
  for (int i = waves / 2 * cells; i < (waves / 2 + 1) * cells; ++i) {
    sine += run.Y(i + 1) * std::sin(k * i * coast.DX);
    cosine += run.Y(i + 1) * std::cos(k * i * coast.DX);
  }
  const double drift = -std::atan2(cosine, sine) / k;
  const double expected = drift_speed(oblique, K2, D50_of_the_coast, profile_height, k) *
                          turning_contour.days * 86400.0;
  measured("drift of the sinusoid in 160 days, m, exact", expected);
  measured("drift of the sinusoid, relative error", drift / expected - 1.0);
  // Differences over two walls and the smoothing of three: (k DX)^2 (1/6 + 1/4 + ...), 0.5 %; the
  // kernel: 0.3 %, twice, for the derivative of the height.
  EXPECT_GT(expected, 10.0);
  EXPECT_NEAR(drift / expected, 1.0, 0.011);
  EXPECT_NEAR(
      std::hypot(sine, cosine) * 2.0 / cells / turning_contour.exact_ratio(), 1.0,
      turning_contour.leading_error(cells) * 1.1 + error_of_diffusivity * turning_contour.decay());
}
