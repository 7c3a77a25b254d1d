#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "verification/reference_physics.h"
#include "verification/reference_shoreline.h"
#include "verification/structured_coast.h"

// A beach between two long groins turns until it faces the waves, and no sand leaves it. With the
// contour held straight that is the line normal to the breaking wave; where the contour turns with
// the shoreline, waves and contour end normal to the wave at the gauge.

namespace {

using namespace kelptest;

constexpr int cells = 20;
constexpr double length = 1000.0;
constexpr double degree = 3.14159265358979323846 / 180.0;

Coast cell_of(double degrees, Contour contour, int days) {
  Coast coast;
  coast.DX = length / cells;
  coast.DT = 3.0;
  coast.steps = days * 8;
  coast.shoreline.assign(cells, 100.0);
  if (contour == Contour::stays_straight) coast.contour.assign(cells, 500.0);
  coast.waves = steady_wave(1.0, 8.0, degrees);
  Structures ends;
  close_both_ends(coast, ends);
  coast.more_lines = lines_of(ends);
  return coast;
}

/// Net gain of the whole cell over the sand that moved from its one half to the other.
double lost_share(const CoastRun& run) {
  double moved = 0.0;
  for (int c = 1; c <= cells; ++c) moved += std::abs(gained_sand(run, c, c)) / 2.0;
  return gained_sand(run, 1, cells) / moved;
}

/// Largest distance from the line through the middle at `angle`, over the height of the line.
double distance_from_line(const CoastRun& run, double angle) {
  double largest = 0.0;
  for (int c = 1; c <= cells; ++c) {
    const double line = 100.0 + std::tan(angle) * ((c - 0.5) * length / cells - 0.5 * length);
    largest = std::max(largest, std::abs(run.Y(c) - line));
  }
  return largest / (0.5 * length * std::abs(std::tan(angle)));
}

}  // namespace

// A step rounds the change of each cell by up to 4 2^-24 of itself, so that the sum stays within
// 2.4e-7 of what moved if no change turns back, as here. The slowest mode falls with
// eps (pi/length)^2: by exp(-16) in 540 days.
TEST(closed_cell, turns_to_the_breaking_wave_and_keeps_its_sand) {
  for (const double degrees : {6.5, -6.5}) {
    CoastRun run(cell_of(degrees, Contour::stays_straight, 540));
    run.to_the_end();
    const double angle = closed_form({1.0, 8.0, degrees, gauge_depth}, 0.0).angle;
    const std::string name = "closed cell, contour held, " + digits(degrees) + " degrees, ";
    measured(name + "distance from the wave-normal line", distance_from_line(run, angle));
    measured(name + "share of the sand lost", lost_share(run));
    // Celerity to 0.1 % twice, and what the relaxation calls no transport: 1e-6 m3/s, 1e-5 radian.
    EXPECT_LT(distance_from_line(run, angle), 0.003);
    EXPECT_LT(std::abs(lost_share(run)), 1e-6);
    for (int i = 1; i <= cells + 1; ++i) EXPECT_NEAR(run.Q(i), 0.0, 1e-5) << "wall " << i;
    EXPECT_EQ(run.Q(1), 0.0);
    EXPECT_EQ(run.Q(cells + 1), 0.0);
  }
}

// While it turns. To the left alone, where nothing relaxes the transport beside the groins; errors
// as at the single groin, here with eps t/DX^2 = 18: 0.5/36 and 0.4 %.
TEST(closed_cell, turns_as_the_exact_solution_does) {
  constexpr int days = 15;
  const OffshoreWave wave{1.0, 8.0, -6.5, gauge_depth};
  const BrokenWave b = closed_form(wave, 0.0);
  const double eps =
      2.0 * K1_of_the_coast / transport_divisor() * b.H * b.H * b.Cg / profile_height;
  CoastRun run(cell_of(wave.degrees, Contour::stays_straight, days));
  run.to_the_end();
  const double height = between_groins(length, days * 86400.0, length, eps, -b.angle);
  double largest = 0.0;
  for (int c = 1; c <= cells; ++c) {
    // The left groin is the downdrift one here.
    const double x = length - (c - 0.5) * length / cells;
    const double exact = between_groins(x, days * 86400.0, length, eps, -b.angle);
    largest = std::max(largest, std::abs(run.Y(c) - 100.0 - exact) / height);
  }
  measured("closed cell, on its way, largest error over the advance", largest);
  const double second_order = (length / cells) * (length / cells) / (2.0 * eps * days * 86400.0);
  EXPECT_LT(largest, 0.5 * second_order + 0.004);
}

// The line is that of the wave at the gauge to rounding: there Q is 0 whatever the celerity.
TEST(closed_cell, faces_the_offshore_wave_where_the_contour_turns_with_it) {
  for (const double degrees : {3.0, -3.0}) {
    CoastRun run(cell_of(degrees, Contour::turns_with_the_shoreline, 1500));
    run.to_the_end();
    const std::string name = "closed cell, contour turns, " + digits(degrees) + " degrees, ";
    measured(name + "distance from the wave-normal line",
             distance_from_line(run, degrees * degree));
    measured(name + "share of the sand lost", lost_share(run));
    EXPECT_LT(distance_from_line(run, degrees * degree), 0.003);
    EXPECT_LT(std::abs(lost_share(run)), 1e-6);
  }
}
