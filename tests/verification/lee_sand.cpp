#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>

#include "verification/structured_coast.h"

// Breakwaters on a coast that long groins close at both ends: salients grow up to the structures,
// sand is taken off at the tips, laid down in the lee and handed back where there is no room, and
// no sand is made or lost on the way.

namespace {

using namespace kelptest;

constexpr int NX = 60;
constexpr int days = 300;
constexpr int records_a_day = 2;
constexpr double shore = 100.0;
constexpr double rounding = 1.0 / (1 << 24);  ///< largest relative rounding of a single value

double drawn(double low, double high, std::mt19937& numbers) {
  return low + (high - low) * static_cast<double>(numbers()) / 4294967296.0;
}

/// Half-daily waves from both sides; their dates are not looked at.
std::string waves_from_both_sides() {
  std::mt19937 numbers(1984);
  std::string file;
  for (int k = 0; k < days * records_a_day; ++k)
    file += std::string("19970101 ") + (k % 2 == 0 ? "0 " : "1200 ") +
            digits(drawn(0.5, 1.2, numbers)) + " " + digits(drawn(6, 9, numbers)) + " " +
            digits(drawn(-40, 40, numbers)) + "\n";
  return file;
}

Coast coast_with(Structures structures) {
  Coast coast;
  coast.DX = 20.0;
  coast.DT = 1.0;
  coast.steps = days * 24;
  coast.shoreline.assign(NX, shore);
  coast.waves = waves_from_both_sides();
  close_both_ends(coast, structures);
  coast.keywords.insert({{"WAVEID", "60 20 " + std::to_string(days * records_a_day) + " waves.dat"},
                         {"SIMDATS", "19970101"},
                         {"K2", "0.38"},
                         {"ISMOOTH", "11"}});
  coast.more_lines = lines_of(structures);
  return coast;
}

struct Balance {
  double gained = 0.0;     ///< net gain of all cells, m3
  double advanced = 0.0;   ///< gain of the cells that gained, m3
  double allowance = 0.0;  ///< of rounding, m3
  int fills = 0;           ///< steps in which sand entered a lee
  int on_the_line = 0;     ///< cells stopped at a structure, over all steps
};

/// A cell takes four roundings of a product with Q(c+1) - Q(c), as on the open coast. In the lee
/// and beside it a transport is put together from parts, each rounded to its own size: eight
/// roundings of the transports of both walls.
Balance balance_of(CoastRun& run) {
  const kelprun::Model& m = run.model();
  const double seconds = static_cast<double>(m.clock.DT) * 3600.0;
  Balance b;
  for (bool more = true; more;) {
    more = run.step();
    bool filled = false;
    for (int c = 1; c <= NX; ++c) {
      const auto& IBWST = m.breakwaters.IBWST;
      const bool lee = IBWST(c) != 0 || IBWST(c + 1) != 0 || (c > 1 && IBWST(c - 1) != 0);
      b.allowance += rounding * seconds *
                     (lee ? 8.0 * (std::abs(run.Q(c)) + std::abs(run.Q(c + 1)))
                          : 4.0 * std::abs(run.Q(c + 1) - run.Q(c)));
      filled = filled || m.transport.QLEE(c) != 0.0f;
      b.on_the_line += run.Y(c) == m.shore.YBW(c);
      EXPECT_LE(run.Y(c), m.shore.YBW(c)) << "cell " << c << ", step " << m.clock.ITS;
    }
    b.fills += filled;
    EXPECT_EQ(run.Q(1), 0.0);
    EXPECT_EQ(run.Q(NX + 1), 0.0);
  }
  EXPECT_EQ(m.clock.ITS, m.clock.NTS) << "the run must reach its end";
  b.gained = gained_sand(run, 1, NX);
  for (int c = 1; c <= NX; ++c) b.advanced += std::max(gained_sand(run, c, c), 0.0);
  return b;
}

void expect_closed(const Structures& structures, const std::string& name) {
  CoastRun run(coast_with(structures));
  const Balance b = balance_of(run);
  measured(name + ", sand of the cells that gained, m3", b.advanced);
  measured(name + ", balance left open, m3", b.gained);
  measured(name + ", allowance of rounding, m3", b.allowance);
  measured(name + ", steps in which sand entered a lee", b.fills);
  measured(name + ", cells on a structure, over all steps", b.on_the_line);
  EXPECT_NEAR(b.gained, 0.0, b.allowance);
  EXPECT_LT(b.allowance, 1e-3 * b.advanced) << "the allowance must be that of rounding";
  EXPECT_GT(b.advanced, 1e4);
  EXPECT_GT(b.fills, 100);
  EXPECT_GT(b.on_the_line, 100);
}

}  // namespace

TEST(lee_sand, is_kept_behind_detached_breakwaters) {
  expect_closed({{},
                 {{15, 22, shore + 60, shore + 60, 1.4, 1.4, 0.0},
                  {38, 48, shore + 60, shore + 90, 1.4, 1.8, 0.2}}},
                "lee of two breakwaters");
}

TEST(lee_sand, is_kept_behind_touching_breakwaters_and_a_groin_in_their_lee) {
  expect_closed({{{33, shore + 30, 0.2}},
                 {{24, 30, shore + 60, shore + 70, 1.4, 1.5, 0.0},
                  {30, 37, shore + 70, shore + 50, 1.5, 1.3, 0.0}}},
                "lee of touching breakwaters");
}

TEST(lee_sand, is_kept_at_a_t_groin) {
  expect_closed({{{30, shore + 60, 0.1, true, 1.4}},
                 {{25, 30, shore + 60, shore + 60, 1.4, 1.4, 0.0},
                  {30, 35, shore + 60, shore + 60, 1.4, 1.4, 0.0}}},
                "lee of a T-groin");
}
