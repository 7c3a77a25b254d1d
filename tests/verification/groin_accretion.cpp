#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "verification/reference_physics.h"
#include "verification/reference_shoreline.h"
#include "verification/structured_coast.h"

// Sand piles up on the updrift side of a long groin that lets nothing past, before it bypasses:
// Pelnard-Considere's solution of the diffusion equation with Q = 0 at the groin. The breaking wave
// is held fixed by a straight contour. The groin does not diffract, so that this is all that acts.

namespace {

using namespace kelptest;

constexpr int days = 180;
constexpr double half_length = 4000.0;  ///< m of coast on either side of the groin
constexpr double seconds = days * 86400.0;
constexpr double degree = 3.14159265358979323846 / 180.0;

/// 6.5 degrees at the gauge are 2.4 at breaking. The solution for small angles is above that of the
/// full sine by 0.053 % of the front at 2 degrees (0.0394039 for 0.0393829 in units of
/// sqrt(eps t)), and by the square of the angle more: 0.08 % here.
OffshoreWave wave_from(double degrees) { return {1.0, 8.0, degrees, gauge_depth}; }
constexpr double from_the_left = 6.5;

/// What the sine of the transport formula spreads with, at small angles: 2 Q0/D, Q0 the factor
/// before sin 2 alpha.
double diffusivity() {
  const BrokenWave b = closed_form(wave_from(from_the_left), 0.0);
  return 2.0 * transport(b, b.angle - 0.25 * 180.0 * degree, K1_of_the_coast) / profile_height;
}

double breaking_angle() { return closed_form(wave_from(from_the_left), 0.0).angle; }

double exact(double x) { return groin_accretion(x, seconds, diffusivity(), breaking_angle()); }

/// The coast with the groin in its middle. DT goes as DX^2: 24 h at 100 m.
struct Case {
  double DX;
  int cells() const { return static_cast<int>(half_length / DX); }  ///< on either side
};

Coast coast_of(const Case& one, double degrees) {
  Coast coast;
  coast.DX = one.DX;
  coast.DT = 24.0 * one.DX * one.DX / 1e4;
  coast.steps = static_cast<int>(days * 24.0 / coast.DT);
  coast.shoreline.assign(static_cast<std::size_t>(2 * one.cells()), 100.0);
  coast.contour.assign(coast.shoreline.size(), 500.0);
  coast.waves = steady_wave(1.0, 8.0, degrees);
  coast.more_lines = lines_of({{{one.cells() + 1, 600.0}}, {}});
  return coast;
}

/// The updrift side after the run. `x` of cell k (from 1) is its middle's distance from the groin.
struct Accretion {
  double at_groin;   ///< advance of the cell beside the groin less the exact one, over exact(0)
  double largest;    ///< largest distance from the exact profile, over exact(0)
  double volume;     ///< impounded, m3
  double downdrift;  ///< lost downdrift, m3
};

Accretion accretion(const Case& one, double degrees, Curve* curve = nullptr) {
  CoastRun run(coast_of(one, degrees));
  run.to_the_end();
  const int n = one.cells();
  const bool to_the_right = degrees > 0.0;
  Accretion a{};
  for (int k = 1; k <= n; ++k) {
    const double x = (k - 0.5) * one.DX;
    const double advance = run.Y(to_the_right ? n + 1 - k : n + k) - 100.0;
    const double error = (advance - exact(x)) / exact(0.0);
    if (k == 1) a.at_groin = error;
    a.largest = std::max(a.largest, std::abs(error));
    if (curve != nullptr) curve->row({one.DX, x, advance, exact(x)});
  }
  a.volume = to_the_right ? gained_sand(run, 1, n) : gained_sand(run, n + 1, 2 * n);
  a.downdrift = to_the_right ? -gained_sand(run, n + 1, 2 * n) : -gained_sand(run, 1, n);
  return a;
}

/// Spreading keeps ahead of the cells by eps t/DX^2; errors of second order are parts of its
/// inverse. The exact advance at the groin a(t) has a curvature of a/(2 eps t).
double of_second_order(double DX) { return DX * DX / (2.0 * diffusivity() * seconds); }

std::string name_of(const Case& one) { return "groin, cells of " + digits(one.DX) + " m, "; }

}  // namespace

TEST(reference_shoreline, agrees_with_tabulated_exact_solutions) {
  constexpr double eps = 0.0180636132;
  constexpr double year = 31557600.0;
  EXPECT_NEAR(groin_accretion(0, year, eps, 2 * degree), 29.7504241, 1e-6);
  EXPECT_NEAR(groin_accretion(800, year, eps, 2 * degree), 9.7944023, 1e-6);
  EXPECT_NEAR(groin_accretion(400, 2592000, eps, 5 * degree), 2.40095966, 1e-6);
  EXPECT_NEAR(between_groins(0, 2592000, 1000, eps, 3 * degree), -12.7866742, 1e-3);
  EXPECT_NEAR(between_groins(750, 2592000, 1000, eps, 3 * degree), 3.6666991, 1e-3);
  EXPECT_NEAR(between_groins(250, 15552000, 1000, eps, 3 * degree), -12.1632883, 1e-3);
}

// What comes in is the transport of a straight coast: its errors of breaking and dispersion are
// those of straight_coast.cpp, and the end of the coast is 5 sqrt(eps t) away.
TEST(groin_accretion, impounds_the_transport_that_comes_in) {
  const double come_in = transport_along(wave_from(from_the_left), 0.0, K1_of_the_coast,
                                         Contour::stays_straight, shallow_water) *
                         seconds;
  for (const double DX : {100.0, 50.0, 25.0}) {
    for (const double degrees : {from_the_left, -from_the_left}) {
      const Accretion a = accretion({DX}, degrees);
      measured(name_of({DX}) + "impounded over come in, less 1", a.volume / come_in - 1.0);
      EXPECT_NEAR(a.volume, come_in, 0.005 * come_in);
      // Downdrift the same leaves the coast.
      EXPECT_NEAR(a.downdrift, a.volume, 1e-4 * a.volume);
    }
  }
}

// To the left nothing relaxes the transport. Second order: the three-point difference and the step
// in time give parts of a twelfth and of r/2 = 0.15 of the scale; half of it is allowed. Besides,
// 0.3 % of the diffusivity, 0.2 % of the transport and 0.08 % of the small angle.
TEST(groin_accretion, is_that_of_the_exact_solution_where_sand_goes_left) {
  for (const double DX : {100.0, 50.0, 25.0}) {
    const Accretion a = accretion({DX}, -from_the_left);
    measured(name_of({DX}) + "sand to the left, error at the groin over the advance", a.at_groin);
    measured(name_of({DX}) + "sand to the left, largest error over the advance", a.largest);
    EXPECT_LT(a.largest, 0.5 * of_second_order(DX) + 0.004);
  }
}

// To the right the relaxation gives each of the eleven walls beside the groin the transport of a
// place 0.75 cells farther away. The scale of the disturbance is that of nodal_points.cpp, 11 DX
// times 0.75 DX of the curvature, 8.25 of the scale above, and so is the band round it. What it
// does is not a steeper front: the error of a wall carries on to the next one with another sign, so
// that a saw-tooth stands where the relaxed walls begin, with too much sand there and too little at
// the groin.
TEST(groin_accretion, is_disturbed_beside_the_groin_by_the_relaxation_and_converges) {
  Curve curve("groin_accretion", "DX,x,model,exact");
  double last = 1.0;
  for (const double DX : {100.0, 50.0, 25.0}) {
    const Accretion a = accretion({DX}, from_the_left, &curve);
    const double scale = 8.25 * of_second_order(DX);
    measured(name_of({DX}) + "sand to the right, error at the groin over the advance", a.at_groin);
    measured(name_of({DX}) + "sand to the right, largest error over the advance", a.largest);
    measured(name_of({DX}) + "the same over 8.25 DX^2 of the curvature", a.largest / scale);
    EXPECT_GT(a.largest, 0.5 * scale);
    EXPECT_LT(a.largest, 4.0 * scale);
    EXPECT_LT(a.largest, 0.5 * last);
    last = a.largest;
  }
}
