#include <gtest/gtest.h>

#include <cmath>

#include "verification/coast.h"

// An end of the grid moves as it is told, whatever the waves do: its wall passes just the sand that
// the movement needs. Sands and waves as in coast.h, 40 steps of 6 hours, four a day.

namespace {

using namespace kelptest;

constexpr int NX = 30;
constexpr int steps = 40;

Coast moving_coast(double degrees) {
  Coast coast;
  coast.DT = 6.0;
  coast.steps = steps;
  for (int c = 1; c <= NX; ++c) coast.shoreline.push_back(100.0 + 0.4 * c + 0.005 * c * c);
  coast.waves = steady_wave(1.0, 8.0, degrees);
  return coast;
}

/// Steps through the run and expects both ends to follow a steady movement. One step may be off by
/// a few roundings of the transport that the end's wall passes (4 of 2^-24), on DX times 8 m.
void expect_steady_movement(const Coast& coast, double left_step, double right_step) {
  CoastRun run(coast);
  const double left = run.Y(1);
  const double right = run.Y(NX);
  const double metres_for_flux = coast.DT * 3600.0 / (coast.DX * profile_height);
  double allowance = 0.0;
  for (int n = 1; n <= steps; ++n) {
    ASSERT_EQ(run.step(), n < steps);
    const double flux =
        std::abs(run.Q(1)) + std::abs(run.Q(2)) + std::abs(run.Q(NX)) + std::abs(run.Q(NX + 1));
    allowance += 4.0 / (1 << 24) * metres_for_flux * flux;
    ASSERT_NEAR(run.Y(1), left + n * left_step, allowance) << "step " << n;
    ASSERT_NEAR(run.Y(NX), right + n * right_step, allowance) << "step " << n;
  }
  measured("moving end, error of the left end after 40 steps, m",
           run.Y(1) - left - steps * left_step);
  EXPECT_LT(allowance, 1e-4);
}

Coast with_movement(Coast coast, const char* period, const char* left, const char* right) {
  coast.keywords.insert({{"LBCTYPE", "3"},
                         {"LMOVPER", period},
                         {"LMOVY", left},
                         {"RBCTYPE", "3"},
                         {"RMOVPER", period},
                         {"RMOVY", right}});
  return coast;
}

}  // namespace

TEST(moving_end, moves_by_its_movement_of_a_step_of_a_day_and_of_the_run) {
  expect_steady_movement(with_movement(moving_coast(25.0), "3", "0.25", "-0.5"), 0.25, -0.5);
  expect_steady_movement(with_movement(moving_coast(25.0), "2", "1", "-2"), 0.25, -0.5);
  expect_steady_movement(with_movement(moving_coast(25.0), "1", "10", "-20"), 0.25, -0.5);
}

TEST(moving_end, moves_by_its_movement_under_waves_from_the_other_side) {
  expect_steady_movement(with_movement(moving_coast(-25.0), "3", "0.25", "-0.5"), 0.25, -0.5);
}

TEST(moving_end, told_in_feet_moves_by_its_feet) {
  Coast coast = with_movement(moving_coast(25.0), "3", "1", "-2");
  coast.keywords["KELUNITS"] = "(ft)";
  coast.DX = 100.0 / 0.3048;
  coast.keywords.insert({{"DCLOS", digits(7.0 / 0.3048)}, {"BERMHT", digits(1.0 / 0.3048)}});
  CoastRun run(coast);
  const double left = run.Y(1);
  const double right = run.Y(NX);
  run.to_the_end();
  // 0.3048 in single precision, 1.2e-8 off, and the roundings of the transport.
  EXPECT_NEAR(run.Y(1) - left, steps * 0.3048, 1e-4);
  EXPECT_NEAR(run.Y(NX) - right, -2.0 * steps * 0.3048, 1e-4);
}

TEST(moving_end, moves_in_a_calm_and_nothing_else_does) {
  Coast coast = with_movement(moving_coast(25.0), "3", "0.25", "-0.5");
  coast.waves = steady_wave(0.05, 8.0, 25.0);
  CoastRun run(coast);
  const std::vector<double> start = run.shoreline();
  run.to_the_end();
  EXPECT_EQ(run.Y(1), start.front() + steps * 0.25);
  EXPECT_EQ(run.Y(NX), start.back() - steps * 0.5);
  for (int c = 2; c < NX; ++c)
    EXPECT_EQ(run.Y(c), start[static_cast<std::size_t>(c - 1)]) << "cell " << c;
}

TEST(pinned_end, stays_while_the_beach_beside_it_moves) {
  CoastRun run(moving_coast(25.0));
  const std::vector<double> start = run.shoreline();
  run.to_the_end();
  EXPECT_EQ(run.Y(1), start.front());
  EXPECT_EQ(run.Y(NX), start.back());
  EXPECT_GT(std::abs(run.Y(2) - start[1]), 1e-3);
}

// The relaxation of nodal points follows the setting of the end walls. Its sweep down from a
// crossing within eleven walls gives wall 2 the value (Q(2) + 3 Q(1))/4, so that the left end keeps
// a quarter of its movement. The right end's walls are out of its reach.
TEST(moving_end, keeps_a_quarter_of_its_movement_beside_a_nodal_point) {
  // A parabola under a normal wave: Q is positive on its left half, to a crossing beside the
  // trough, cell 9 or 20.
  const auto first_step = [](double crest) {
    Coast coast;
    coast.DT = 6.0;
    coast.steps = 1;
    for (int c = 1; c <= NX; ++c) coast.shoreline.push_back(100.0 + 0.05 * std::pow(c - crest, 2));
    coast.waves = steady_wave(1.0, 8.0, 0.0);
    CoastRun run(with_movement(coast, "3", "0.25", "-0.5"));
    const double left = run.Y(1);
    const double right = run.Y(NX);
    run.to_the_end();
    EXPECT_NEAR(run.Y(NX) - right, -0.5, 1e-6);
    return run.Y(1) - left;
  };
  EXPECT_NEAR(first_step(9.0), 0.25 / 4.0, 1e-6);
  EXPECT_NEAR(first_step(20.0), 0.25, 1e-6);
}
