#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "verification/coast.h"
#include "verification/reference_physics.h"

namespace {

using namespace kelptest;

const std::vector<OffshoreWave> waves{
    {0.3, 5, 10, gauge_depth},  {0.5, 12, -30, gauge_depth}, {0.8, 6, 45, gauge_depth},
    {1.0, 8, 1, gauge_depth},   {1.0, 8, 20, gauge_depth},   {1.0, 8, -60, gauge_depth},
    {1.5, 10, 35, gauge_depth}, {1.5, 7, -5, gauge_depth},   {2.0, 14, 50, gauge_depth},
    {2.5, 9, -15, gauge_depth}, {3.0, 8, 25, gauge_depth},   {3.0, 12, 70, gauge_depth},
};

/// The transport of the model half way along a straight coast of 20 cells, in a current (m/s).
double modelled(const OffshoreWave& wave, double current = 0.0) {
  Coast coast;
  if (current != 0.0) {
    coast.tide = "19970101 0 " + digits(current) + "\n19970101 100 0\n";
    coast.keywords["TIDEFILE"] = "20 2 tide.dat";
  }
  coast.DT = 1.0;
  coast.steps = 1;
  coast.shoreline.assign(20, 100.0);
  coast.waves = steady_wave(wave.H, wave.T, wave.degrees);
  CoastRun run(coast);
  run.to_the_end();
  return run.Q(10);
}

double expected(const OffshoreWave& wave, BreakingTheory theory) {
  return transport_along(wave, 0.0, K1_of_the_coast, Contour::turns_with_the_shoreline, theory);
}

}  // namespace

// The reference solves the dispersion relation and the equation of breaking by iteration, where the
// model has a Pade form (error of c below 0.1 %, its own gravity 9.81 for 9.806) and a polynomial
// (error of the breaking depth below 0.1 %). The breaking height goes as c^0.4 at the gauge, so
// those errors come to 0.3 % and 0.3 % of a transport that goes as its power 2.5 and the angle.
TEST(straight_coast, transport_is_that_of_refraction_breaking_and_the_cerc_formula) {
  double largest = 0.0;
  for (const OffshoreWave& wave : waves) {
    const double Q = expected(wave, shallow_water);
    const double error = modelled(wave) / Q - 1.0;
    EXPECT_LT(std::abs(error), 0.006) << wave.H << " m " << wave.T << " s " << wave.degrees;
    largest = std::max(largest, std::abs(error));
  }
  measured("straight coast, largest relative error of Q", largest);
}

// The closed form holds the breaking wave to be a shallow-water wave. With x = sigma^2 d/g at the
// breaking depth d, linear theory has Cg = sqrt(g d) (1 - x/2) and c = sqrt(g d) (1 - x/6), and a
// breaking depth larger by x/5; the model's transport is therefore lower by
// x/2 - x/6 + x/10 = 0.43 x to first order. Half of x bounds it.
TEST(straight_coast, closed_form_breaking_keeps_transport_below_full_linear_theory) {
  double largest = 0.0;
  for (const OffshoreWave& wave : waves) {
    const double sigma = 2.0 * std::numbers::pi / wave.T;
    const double depth = linear_theory(wave, 0.0).H / breaker_index;
    const double x = sigma * sigma * depth / gravity;
    const double shortfall = 1.0 - modelled(wave) / expected(wave, linear_theory);
    EXPECT_GT(shortfall, 0.0) << wave.H << " m " << wave.T << " s " << wave.degrees;
    EXPECT_LT(shortfall, 0.5 * x) << wave.H << " m " << wave.T << " s " << wave.degrees;
    largest = std::max(largest, shortfall);
  }
  measured("straight coast, largest shortfall of Q against full linear theory", largest);
}

// A current adds a term in Hb^1.5 Cgb, linear in the current, and nothing else changes: the two
// errors of 0.3 % above act on a power 2 of the breaking height, and the angle's cosine is flat.
TEST(straight_coast, a_tidal_current_carries_the_sand_that_the_waves_stir_up) {
  double largest = 0.0;
  for (const OffshoreWave& wave : waves) {
    for (const double current : {0.5, -0.2}) {
      const double added = modelled(wave, current) - modelled(wave);
      const double wanted =
          tidal_transport(shallow_water(wave, 0.0), 0.0, K1_of_the_coast, current);
      const double error = added / wanted - 1.0;
      EXPECT_LT(std::abs(error), 0.006) << wave.H << " m " << wave.T << " s " << wave.degrees;
      largest = std::max(largest, std::abs(error));
    }
  }
  measured("straight coast, largest relative error of the tidal part of Q", largest);
}
