#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "verification/coast.h"

// Sand is neither made nor lost: what the cells gained is what came in at wall 1 less what left at
// wall NX+1, to the rounding of single precision and no more. Waves of a fixed random sequence come
// from both sides, with calms between them, so that every order of the sweep occurs.

namespace {

using namespace kelptest;

constexpr int days = 100;
constexpr double rounding = 1.0 / (1 << 24);  ///< largest relative rounding of a single value

Coast wavy_coast() {
  Coast coast;
  coast.DT = 24.0 / wave_records_a_day;
  coast.steps = days * wave_records_a_day;
  for (int i = 1; i <= 60; ++i)
    coast.shoreline.push_back(50.0 + 10.0 * std::sin(2.0 * std::numbers::pi * i / 23.0));
  coast.waves = changing_waves(1997, days, 2.2);
  coast.keywords = {{"WAVEID", "60 20 " + std::to_string(coast.steps) + " waves.dat"},
                    {"SIMDATS", "19970101"},
                    {"K2", "0.38"},
                    {"ISMOOTH", "11"}};
  return coast;
}

/// What the cells gained, what passed the ends, and what rounding may have added, all m3.
struct Balance {
  double gained = 0.0;
  double come_in = 0.0;
  double moved = 0.0;  ///< gross transport through all walls
  double allowance = 0.0;
  int steps_at_seawall = 0;
};

/// A cell takes four roundings of a product with Q(c+1) - Q(c): RDEN, RDEN/DX, the difference, the
/// product. A cell that its seawall stops takes the rounding of Y to single precision once more,
/// and repairs a transport by at most five roundings of its size.
Balance balance_of(CoastRun& run) {
  const kelprun::Model& m = run.model();
  const int NX = m.grid.NX;
  const double area = static_cast<double>(m.grid.DX(1)) * profile_height;
  const double seconds = static_cast<double>(m.clock.DT) * 3600.0;
  const std::vector<double> start = run.shoreline();
  Balance b;
  for (bool more = true; more;) {
    const std::vector<double> before = run.shoreline();
    more = run.step();
    if (m.waves.HRF(1) == 0.0f) {
      EXPECT_EQ(run.shoreline(), before) << "a calm moved the shoreline at step " << m.clock.ITS;
      continue;
    }
    b.come_in += seconds * (run.Q(1) - run.Q(NX + 1));
    for (int c = 1; c <= NX; ++c) {
      b.moved += seconds * std::abs(run.Q(c));
      b.allowance += 4.0 * rounding * seconds * std::abs(run.Q(c + 1) - run.Q(c));
      if (run.Y(c) != m.shore.YSW(c)) continue;
      ++b.steps_at_seawall;
      const double YO = before[static_cast<std::size_t>(c - 1)];
      b.allowance += area * std::abs(YO - static_cast<double>(static_cast<float>(YO))) +
                     5.0 * rounding * seconds * (std::abs(run.Q(c)) + std::abs(run.Q(c + 1)));
    }
  }
  for (int c = 1; c <= NX; ++c)
    b.gained += area * (run.Y(c) - start[static_cast<std::size_t>(c - 1)]);
  return b;
}

void expect_closed(const Balance& b, const std::string& name) {
  measured(name + ", moved through all walls, m3", b.moved);
  measured(name + ", come in through the ends, m3", b.come_in);
  measured(name + ", balance left open, m3", b.gained - b.come_in);
  measured(name + ", allowance of rounding, m3", b.allowance);
  EXPECT_NEAR(b.gained, b.come_in, b.allowance);
  EXPECT_LT(b.allowance, 1e-6 * b.moved) << "the allowance must be that of rounding";
}

}  // namespace

TEST(sand_balance, closes_to_rounding_on_an_open_coast_with_pinned_ends) {
  CoastRun run(wavy_coast());
  const Balance b = balance_of(run);
  expect_closed(b, "open coast");
  EXPECT_EQ(b.steps_at_seawall, 0);
  EXPECT_GT(b.moved, 1e6);
}

TEST(sand_balance, closes_to_rounding_where_seawalls_cut_the_transport) {
  Coast coast = wavy_coast();
  coast.more_lines = {"ISWBEG: 26", "ISWEND: 31", "SWY1: 56", "SWY2: 57",
                      "ISWBEG: 49", "ISWEND: 54", "SWY1: 55", "SWY2: 55"};
  CoastRun run(coast);
  for (int c = 1; c <= run.model().grid.NX; ++c)
    ASSERT_GE(run.Y(c), run.model().shore.YSW(c)) << "cell " << c << " starts behind its wall";
  const Balance b = balance_of(run);
  expect_closed(b, "coast with seawalls");
  measured("coast with seawalls, cells stopped, over all steps", b.steps_at_seawall);
  EXPECT_GT(b.steps_at_seawall, 100);
  for (int c = 1; c <= run.model().grid.NX; ++c)
    EXPECT_GE(run.Y(c), run.model().shore.YSW(c)) << "cell " << c;
}

// The single-precision ledgers round once a step, each time by up to their own size's rounding.
TEST(sand_balance, of_each_cell_agrees_with_the_transport_sums_of_its_walls) {
  CoastRun run(wavy_coast());
  run.to_the_end();
  const kelprun::Model& m = run.model();
  const auto sum = [&](int wall) { return static_cast<double>(m.ledgers.QNETSUM(wall)); };
  double largest_sum = 0.0;
  for (int i = 1; i <= m.grid.NX + 1; ++i) largest_sum = std::max(largest_sum, std::abs(sum(i)));
  // Run sums wander, and were larger on the way: at most the gross sums.
  double largest_gross = 0.0;
  for (int i = 1; i <= m.grid.NX + 1; ++i)
    largest_gross = std::max(largest_gross, static_cast<double>(m.ledgers.QRIGHTSUM(i)) -
                                                static_cast<double>(m.ledgers.QLEFTSUM(i)));
  const double allowance = 2.0 * m.clock.NTS * rounding * largest_gross;
  double largest = 0.0;
  for (int c = 1; c <= m.grid.NX; ++c) {
    const double error = static_cast<double>(m.ledgers.VOLCELL(c)) - (sum(c) - sum(c + 1));
    EXPECT_LT(std::abs(error), allowance) << "cell " << c;
    largest = std::max(largest, std::abs(error));
  }
  measured("ledgers, largest net sum of a wall, m3", largest_sum);
  measured("ledgers, largest error of a cell, m3", largest);
  measured("ledgers, allowance of rounding, m3", allowance);
}

// The one way to make sand: a shoreline that starts more than a step's transport behind its
// seawall. Two such cells c, c+1 on a straight coast of transport q, their wall 2 m ahead, with v =
// DX D 2 m/DT > q:
//   cell c takes its 2 m and leaves wall c+1 with q - v < 0, so that cell c+1 now diverges;
//   it too takes its 2 m, and its walls are scaled by -v/v: wall c+1 becomes v - q, wall c+2 -q,
//   though cell c, behind the sweep, has counted with q - v;
//   cell c+2, without a wall, gives 2 q.
// So 2 v - 2 q of a step appears, nothing passes the ends, and from then on the balance closes.
TEST(sand_balance, is_broken_once_where_a_shoreline_starts_behind_its_seawall) {
  constexpr double behind = 2.0;
  Coast coast;
  coast.DT = 6.0;
  coast.steps = 100;
  coast.shoreline.assign(40, 60.0);
  coast.contour.assign(40, 500.0);
  coast.waves = steady_wave(1.0, 8.0, 30.0);
  coast.more_lines = {"ISWBEG: 20", "ISWEND: 21", "SWY1: 62", "SWY2: 62"};
  CoastRun run(coast);
  const double area = coast.DX * profile_height;
  const double seconds = coast.DT * 3600.0;

  ASSERT_TRUE(run.step());
  const double q = run.Q(5);
  const double v = area * behind / seconds;
  ASSERT_GT(v, q);
  double made = 0.0;
  for (int c = 1; c <= 40; ++c) made += area * (run.Y(c) - 60.0);
  measured("shoreline behind a seawall, sand made in the first step, m3", made);
  EXPECT_NEAR(made, (2.0 * v - 2.0 * q) * seconds, 0.01);
  EXPECT_DOUBLE_EQ(run.Q(1), run.Q(41));

  const Balance later = balance_of(run);
  EXPECT_NEAR(later.gained, later.come_in, later.allowance);

  coast.waves = steady_wave(1.0, 8.0, -30.0);
  CoastRun to_the_left(coast);
  const Balance closed = balance_of(to_the_left);
  EXPECT_NEAR(closed.gained, closed.come_in, closed.allowance);
}
