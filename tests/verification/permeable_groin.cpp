#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <set>

#include "verification/reference_physics.h"
#include "verification/structured_coast.h"

// A groin of permeability 1 passes everything. What it still changes is told here: the shoreline
// angle of its wall is a mean over three walls, and its neighbours take the height gradient from
// one side. A diffracting one of permeability 1 lets all waves through as well.

namespace {

using namespace kelptest;

constexpr int NX = 60;
constexpr int g = 31;  ///< wall of the groin
constexpr double K2 = 0.38;

/// Bumps with slopes below 0.06, under waves that break at 9 degrees: Q is positive throughout, so
/// that no wall is relaxed.
Coast coast_of(bool straight) {
  Coast coast;
  coast.DT = 6.0;
  coast.steps = 2;
  for (int c = 1; c <= NX; ++c)
    coast.shoreline.push_back(100.0 +
                              (straight ? 0.0 : 12.0 * std::exp(-std::pow((c - 27) / 5.0, 2))));
  coast.waves = steady_wave(1.0, 8.0, 30.0);
  return coast;
}

Coast with_groin(Coast coast, bool diffracting) {
  coast.more_lines = lines_of({{{g, 400.0, 1.0, diffracting, 3.0}}, {}});
  return coast;
}

std::set<int> walls_that_differ(const CoastRun& run, const CoastRun& other) {
  std::set<int> walls;
  for (int i = 1; i <= NX + 1; ++i)
    if (run.Q(i) != other.Q(i)) walls.insert(i);
  return walls;
}

/// Orientation of the shoreline at each wall from 2 on, as it stands.
std::vector<double> orientations(const CoastRun& run) {
  std::vector<double> angles(2, 0.0);
  for (int i = 2; i <= NX; ++i)
    angles.push_back(
        std::atan((run.Y(i) - run.Y(i - 1)) / static_cast<double>(run.model().grid.DX(i))));
  return angles;
}

double angle_of_wave(const CoastRun& run, int i) {
  return static_cast<double>(run.model().waves.ZB(i));
}

double height(const CoastRun& run, int i) { return static_cast<double>(run.model().waves.HB(i)); }

}  // namespace

TEST(permeable_groin, changes_nothing_to_the_last_bit_on_a_straight_coast) {
  for (const double degrees : {30.0, 0.0, -50.0}) {
    Coast coast = coast_of(true);
    coast.waves = steady_wave(1.0, 8.0, degrees);
    coast.keywords["K2"] = digits(K2);
    CoastRun open(coast);
    CoastRun run(with_groin(coast, false));
    open.to_the_end();
    run.to_the_end();
    EXPECT_EQ(walls_that_differ(run, open), std::set<int>{}) << degrees;
    EXPECT_EQ(run.shoreline(), open.shoreline()) << degrees;
  }
}

// With the breaking wave held fixed no gradient is left. The wall on the right still has the angle
// of the step before in the mean, 0 in the first step.
TEST(permeable_groin, changes_its_own_wall_by_the_mean_of_three_shoreline_angles) {
  Coast coast = coast_of(false);
  coast.contour.assign(NX, 500.0);
  CoastRun open(coast);
  CoastRun run(with_groin(coast, false));
  std::vector<double> before(NX + 2, 0.0);
  for (int step = 1; step <= 2; ++step) {
    const std::vector<double> now = orientations(run);
    const double mean = (now[g] + now[g - 1] + before[g + 1]) / 3.0;
    ASSERT_EQ(run.step(), step == 1);
    open.step();
    const double theta = angle_of_wave(run, g);
    const double undisturbed = run.Q(g - 10) / std::sin(2.0 * (theta - now[g - 10]));
    EXPECT_NEAR(run.Q(g), undisturbed * std::sin(2.0 * (theta - mean)), 2e-6 * run.Q(g)) << step;
    if (step == 1) {
      EXPECT_EQ(walls_that_differ(run, open), std::set<int>{g});
    }
    before = now;
  }
}

// The waves are those of the open coast to the last bit. Of the walls beside the groin each takes
// the height difference of its outer side, doubled, in place of the one across it.
TEST(permeable_groin, leaves_its_neighbours_the_height_gradient_of_their_own_side) {
  Coast coast = coast_of(false);
  coast.keywords["K2"] = digits(K2);
  CoastRun open(coast);
  CoastRun run(with_groin(coast, false));
  const std::vector<double> angles = orientations(run);
  run.step();
  open.step();
  for (int i = 1; i <= NX + 1; ++i) {
    EXPECT_EQ(run.model().waves.HB(i), open.model().waves.HB(i)) << "wall " << i;
    EXPECT_EQ(run.model().waves.ZB(i), open.model().waves.ZB(i)) << "wall " << i;
  }
  EXPECT_EQ(walls_that_differ(run, open), (std::set<int>{g - 1, g, g + 1}));
  const auto difference = [&](int i, int outwards) {
    const double across = height(run, i + 1) - height(run, i - 1);
    const double one_sided = 2.0 * outwards * (height(run, i + outwards) - height(run, i));
    const double H = height(run, i);
    return -H * H * static_cast<double>(run.model().waves.CGB(i)) *
           (2.0 * K2 / transport_divisor()) /
           (2.0 * 1.416 * static_cast<double>(run.model().waves.TANB)) *
           std::cos(angle_of_wave(run, i) - angles[static_cast<std::size_t>(i)]) *
           (one_sided - across) / coast.DX;
  };
  // Single precision keeps 1e-7 of a Q of 0.1 m3/s.
  EXPECT_NEAR(run.Q(g - 1) - open.Q(g - 1), difference(g - 1, -1), 3e-8);
  EXPECT_NEAR(run.Q(g + 1) - open.Q(g + 1), difference(g + 1, +1), 3e-8);
  EXPECT_GT(std::abs(difference(g - 1, -1)), 1e-6);
}

// Three walls on average have the slope that the one wall would have, when that one is less by DX^2
// of the slope's curvature: the shoreline steps by (k DX)^3 of a sinusoid there.
TEST(permeable_groin, hardly_disturbs_a_spreading_sinusoid) {
  constexpr double length = 2000.0;
  Coast coast;
  coast.DX = 50.0;
  coast.DT = 6.0;
  coast.steps = 160;
  const double k = 2.0 * std::numbers::pi / length;
  for (int i = 0; i <= 80; ++i) coast.shoreline.push_back(100.0 + std::sin(k * i * coast.DX));
  coast.contour.assign(coast.shoreline.size(), 500.0);
  coast.waves = steady_wave(1.0, 8.0, 20.0);
  CoastRun open(coast);
  CoastRun run(with_groin(coast, false));
  open.to_the_end();
  run.to_the_end();
  double largest = 0.0;
  for (int c = 1; c <= coast.NX(); ++c) largest = std::max(largest, std::abs(run.Y(c) - open.Y(c)));
  const double kDX = k * coast.DX;
  measured("permeable groin, change of a sinusoid over its amplitude", largest);
  measured("permeable groin, cube of k DX", kDX * kDX * kDX);
  EXPECT_LT(largest, 2.0 * kDX * kDX * kDX);
  EXPECT_GT(largest, 0.0);
}

// All energy goes through and round it, with the angle that it had, so that the coast is the open
// one but for the two forms of the dispersion relation, which differ by 0.05 % in celerity.
TEST(permeable_groin, that_diffracts_lets_the_waves_through_as_well) {
  for (const double degrees : {30.0, -15.0}) {
    Coast coast = coast_of(true);
    coast.waves = steady_wave(1.0, 8.0, degrees);
    CoastRun open(coast);
    CoastRun run(with_groin(coast, true));
    run.step();
    open.step();
    double of_height = 0.0;
    double of_angle = 0.0;
    double of_Q = 0.0;
    for (int i = 1; i <= NX + 1; ++i) {
      of_height = std::max(of_height, std::abs(height(run, i) / height(open, i) - 1.0));
      of_angle = std::max(of_angle, std::abs(angle_of_wave(run, i) / angle_of_wave(open, i) - 1.0));
      of_Q = std::max(of_Q, std::abs(run.Q(i) / open.Q(i) - 1.0));
    }
    const std::string name =
        "permeable diffracting groin, " + digits(degrees) + " degrees, change of ";
    measured(name + "the height", of_height);
    measured(name + "the angle", of_angle);
    measured(name + "the transport", of_Q);
    EXPECT_LT(of_height, 1e-6);
    EXPECT_LT(of_angle, 1e-3);
    EXPECT_LT(of_Q, 1e-3);
  }
}
