#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "verification/coast.h"

// The same coast told in metres and in feet. The foot is 0.3048 m and its cube in yards 0.9144^3.

namespace {

using namespace kelptest;

constexpr double foot = 0.3048;
constexpr double yard = 0.9144;

Coast coast_in(double unit) {
  Coast coast;
  coast.DX = 100.0 / unit;
  coast.DT = 6.0;
  coast.steps = 400;
  for (int c = 1; c <= 60; ++c)
    coast.shoreline.push_back((60.0 + 15.0 * std::exp(-std::pow((c - 25) / 5.0, 2))) / unit);
  coast.keywords = {{"DCLOS", digits(7.0 / unit)},
                    {"BERMHT", digits(1.0 / unit)},
                    {"WAVEID", "60 " + digits(gauge_depth / unit) + " 0 waves.dat"},
                    {"K2", "0.38"},
                    {"ISMOOTH", "5"},
                    {"KELUNITS", unit == 1.0 ? "(m)" : "(ft)"}};
  coast.more_lines = {"ISWBEG: 34", "ISWEND: 40", "SWY1: " + digits(59.0 / unit),
                      "SWY2: " + digits(58.0 / unit)};
  coast.waves = steady_wave(1.0, 8.0, 25.0);
  return coast;
}

double largest_difference(const CoastRun& run, const CoastRun& other) {
  const std::vector<double> Y = run.shoreline();
  const std::vector<double> other_Y = other.shoreline();
  double largest = 0.0;
  for (std::size_t k = 0; k < Y.size(); ++k)
    largest = std::max(largest, std::abs(Y[k] - other_Y[k]));
  return largest;
}

}  // namespace

// Every length is rounded once more on its way from feet, which changes rates by some 1e-7; the
// contour's steps of 3e-5 m fall otherwise. See the mirrored coast for the bound of 1e-3 m.
TEST(units, a_coast_told_in_feet_moves_as_in_metres) {
  CoastRun metres(coast_in(1.0));
  CoastRun feet(coast_in(foot));
  metres.to_the_end();
  feet.to_the_end();
  double movement = 0.0;
  for (int c = 1; c <= 60; ++c)
    movement = std::max(movement, std::abs(metres.Y(c) - metres.model().shore.YSTART(c)));
  measured("feet against metres, largest movement, m", movement);
  measured("feet against metres, largest difference, m", largest_difference(metres, feet));
  EXPECT_GT(movement, 1.0);
  EXPECT_LT(largest_difference(metres, feet), 1e-3);
}

TEST(units, wave_heights_told_in_feet_move_the_coast_as_in_metres) {
  Coast in_feet = coast_in(1.0);
  in_feet.keywords["WAVUNITS"] = "(ft)";
  in_feet.waves = steady_wave(1.0 / foot, 8.0, 25.0);
  CoastRun metres(coast_in(1.0));
  CoastRun feet(in_feet);
  metres.to_the_end();
  feet.to_the_end();
  EXPECT_LT(largest_difference(metres, feet), 1e-3);
}

// The tables of the real program: positions are rounded to 0.005 of either unit, rates to 0.5 m3 or
// cubic yards a year; the rates follow the shoreline's 1e-3 m in 100 m, 1e-5 in angle.
TEST(units, tables_in_feet_and_cubic_yards_tell_the_same_coast) {
  const WorkFolder metres;
  const WorkFolder feet;
  write_coast(metres, coast_in(1.0));
  write_coast(feet, coast_in(foot));
  ASSERT_EQ(run_program(metres, {"run.cfg"}).status, 0);
  ASSERT_EQ(run_program(feet, {"run.cfg"}).status, 0);
  const auto compare = [&](const std::string& name, int width, double factor, double tolerance) {
    const Table in_metres = read_table(metres.read(name), width);
    const Table in_feet = read_table(feet.read(name), width);
    EXPECT_EQ(in_metres.dates, in_feet.dates);
    ASSERT_EQ(in_metres.rows.size(), in_feet.rows.size());
    for (std::size_t r = 0; r < in_metres.rows.size(); ++r)
      for (std::size_t k = 0; k < in_metres.rows[r].size(); ++k)
        EXPECT_NEAR(in_metres.rows[r][k], in_feet.rows[r].at(k) * factor, tolerance)
            << name << " row " << r << " column " << k;
  };
  const double cubic_yard = yard * yard * yard;
  compare("run.slo", 14, foot, 0.005 * (1.0 + foot) + 1e-3);
  // 1e-5 of the angle of 0.14 at breaking, of a million m3 a year.
  compare("run.qtr", 16, cubic_yard, 0.5 * (1.0 + cubic_yard) + 70.0);
  // Volumes to 0.005, and 1e-3 m of a cell of 800 m2.
  compare("run.vcc", 14, cubic_yard, 0.005 * (1.0 + cubic_yard) + 0.8);
}
