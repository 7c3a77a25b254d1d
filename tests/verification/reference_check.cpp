#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "verification/reference_physics.h"

// The reference is itself held against tables of another hand: deep-water waves of H 1 m and T 8 s,
// g 9.81, gamma 0.78, K1 0.77, D 8 m. Its gravity of 9.806 changes heights by less than 0.01 % and
// transports by less than 0.05 %.

namespace {

using kelptest::BrokenWave;
using kelptest::OffshoreWave;

constexpr double deep = 500.0;
constexpr double in_degrees = 180.0 / std::numbers::pi;

struct TableRow {
  double degrees;
  double value;
  double angle;
};

void expect_breaking(kelptest::BreakingTheory theory, const TableRow& row) {
  const BrokenWave wave = theory({1.0, 8.0, row.degrees, deep}, 0.0);
  EXPECT_NEAR(wave.H, row.value, 2e-4 * row.value);
  EXPECT_NEAR(wave.angle * in_degrees, row.angle, 5e-4 * row.angle);
}

/// The tables of transport take c = Cg = sqrt(g d) at breaking.
BrokenWave shallow_water_throughout(const OffshoreWave& wave, double contour) {
  BrokenWave broken = kelptest::shallow_water(wave, contour);
  broken.Cg = std::sqrt(kelptest::gravity * broken.H / kelptest::breaker_index);
  return broken;
}

}  // namespace

TEST(reference_physics, agrees_with_tabulated_breaking_waves) {
  for (const TableRow& row : {TableRow{10, 1.27311784, 3.13434624},
                              {30, 1.21321018, 8.84805741},
                              {70, 0.837583345, 13.9708345}})
    expect_breaking(kelptest::linear_theory, row);
  for (const TableRow& row : {TableRow{10, 1.24712238, 3.15627729},
                              {30, 1.18966572, 8.90766973},
                              {70, 0.826402432, 14.0367101}})
    expect_breaking(kelptest::shallow_water, row);
  for (const TableRow& row : {TableRow{10, 1.24699475, 3.15611562},
                              {30, 1.18893858, 8.90492495},
                              {70, 0.825664611, 14.0303142}})
    expect_breaking(kelptest::closed_form, row);
}

TEST(reference_physics, agrees_with_tabulated_transport_and_effective_diffusivity) {
  struct Row {
    double degrees, Q, diffusivity;
  };
  for (const Row& row : {Row{10, 0.0137987848, 0.00942305054}, Row{20, 0.025713235, 0.00744714752},
                         Row{30, 0.0341253981, 0.0044670659}}) {
    const OffshoreWave wave{1.0, 8.0, row.degrees, deep};
    const auto turning = kelptest::Contour::turns_with_the_shoreline;
    EXPECT_NEAR(kelptest::transport_along(wave, 0.0, 0.77, turning, shallow_water_throughout),
                row.Q, 1e-3 * row.Q);
    EXPECT_NEAR(kelptest::effective_diffusivity(wave, 0.77, 8.0, turning, shallow_water_throughout),
                row.diffusivity, 1e-3 * row.diffusivity);
  }
}
