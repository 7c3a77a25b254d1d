#include "output/closing_report.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include "text/free_format.h"
#include "unit/output/report_case.h"

namespace kelprun {
namespace {

using kelptest::list;
using kelptest::put;
using kelptest::report_of;
using kelptest::YARD3;
using Lines = std::vector<std::string>;

// Mean annual transports.

Model coast_with_means(Model m) {
  put(m.ledgers.QNETMEAN, std::array{14610.0, -36075.0, 1e9});
  put(m.ledgers.QLEFTMEAN, std::array{-1000.0, -2500.0, -4.9});
  put(m.ledgers.QRIGHTMEAN, std::array{6000.0, 123456.0, 250.0});
  return m;
}

TEST(closing_means, are_in_thousands_of_cubic_metres) {
  const Model m = coast_with_means(kelptest::coast_in_metres(2));
  EXPECT_EQ(
      report_of(m, report_means),
      (Lines{"  MEAN NET ANNUAL TRANSPORT (M3/1000) ", "      14.61     -36.08 1000000.00",
             "  MEAN ANNUAL TRANSPORT TO THE LEFT (M3/1000) ", "      -1.00      -2.50      -0.00",
             "  MEAN ANNUAL TRANSPORT TO THE RIGHT (M3/1000) ",
             "       6.00     123.46       0.25"}));
}

TEST(closing_means, are_in_thousands_of_cubic_yards_with_a_title_of_its_own_end) {
  // The rates are in reporting units already; this title has no blank behind it.
  const Model m = coast_with_means(kelptest::coast_in_feet(2));
  EXPECT_EQ(report_of(m, report_means),
            (Lines{"  MEAN NET ANNUAL TRANSPORT (YARDS3/1000)", "      14.61     -36.08 1000000.00",
                   "  MEAN ANNUAL TRANSPORT TO THE LEFT (YARDS3/1000)",
                   "      -1.00      -2.50      -0.00",
                   "  MEAN ANNUAL TRANSPORT TO THE RIGHT (YARDS3/1000)",
                   "       6.00     123.46       0.25"}));
}

// The last state.

Model coast_at_end(Model m) {
  const float CONV = m.settings.CONV;
  m.clock.ITS = 2920;
  m.clock.NEXTDATE = 19980101;
  m.waves.pass = {1.5f * m.settings.WAVCONV, 8.0f, -20.5f, 33.0f};
  const float CONVYD3 = m.settings.CONVYD3;
  put(m.transport.Q, std::array{0.25f * CONVYD3, -0.5f * CONVYD3, 0.0625f * CONVYD3});
  kelptest::put_shoreline(m);
  put(m.shore.YMAX, std::array{20.0f * CONV, 0.0f});
  put(m.shore.YMIN, std::array{1.0f * CONV, -9.0f * CONV});
  put(m.shore.YCON, std::array{310.0f * CONV, 311.0f * CONV});
  return m;
}

TEST(closing_report, the_last_state_in_metres) {
  const Model m = coast_at_end(kelptest::coast_in_metres(2));
  EXPECT_EQ(
      report_of(m, report_end),
      (Lines{" OUTPUT LAST TIMESTEP NO. 2920 DATE IS 19980101",
             "  OFFSHORE WAVE DATA INPUT:", "   HZ = 1.5 T = 8.    ZZ = -20.5", "",
             " LONGSHORE TRANSPORT FOR LAST TIME STEP *100  (M3/SEC)",
             "      25.00     -50.00       6.25", "", "  CALCULATED FINAL SHORELINE POSITION (M)",
             "     112.50     192.75", "  CALCULATED SEAWARDMOST SHORELINE POSITION (M)",
             "     120.00     200.00", "  CALCULATED LANDWARDMOST SHORELINE POSITION (M)",
             "     101.00     191.00", "  CALCULATED REPRESENTATIVE OFFSHORE CONTOUR POSITION (M)",
             "     410.00     511.00"}));
}

TEST(closing_report, the_last_state_in_feet_and_cubic_yards) {
  const Model m = coast_at_end(kelptest::coast_in_feet(2));
  EXPECT_EQ(
      report_of(m, report_end),
      (Lines{" OUTPUT LAST TIMESTEP NO. 2920 DATE IS 19980101",
             "  OFFSHORE WAVE DATA INPUT:", "   HZ = 1.5 T = 8.    ZZ = -20.5", "",
             " LONGSHORE TRANSPORT FOR LAST TIME STEP *100 (YARDS3/SEC)",
             "      25.00     -50.00       6.25", "", "  CALCULATED FINAL SHORELINE POSITION (FT)",
             "     112.50     192.75", "  CALCULATED SEAWARDMOST SHORELINE POSITION (FT)",
             "     120.00     200.00", "  CALCULATED LANDWARDMOST SHORELINE POSITION (FT)",
             "     101.00     191.00", "  CALCULATED REPRESENTATIVE OFFSHORE CONTOUR POSITION (FT)",
             "     410.00     511.00"}));
}

TEST(closing_report, the_last_wave_has_a_unit_of_its_own) {
  Model m = coast_at_end(kelptest::coast_in_metres(2));
  m.settings.WAVCONV = 0.3048f;
  m.waves.pass.HZ = 4.0f * 0.3048f;
  EXPECT_EQ(report_of(m, report_end)[2], "   HZ = 4. T = 8.    ZZ = -20.5");
}

TEST(closing_report, the_final_shoreline_is_formed_in_double_precision_and_the_extremes_are_not) {
  Model m = coast_at_end(kelptest::coast_in_metres(2));
  put(m.shore.YREG, std::array{299000.0f, 0.0f});
  put(m.shore.Y, std::array{1000.13, 0.0});
  put(m.shore.YMAX, std::array{1000.13f, 0.0f});
  const Lines lines = report_of(m, report_end);
  EXPECT_EQ(lines[8], "  300000.13       0.00");
  // At 300 km single precision has steps of 1/32 m: 0.13 is nearest to 0.125.
  EXPECT_EQ(lines[10], "  300000.12       0.00");
}

TEST(closing_report, wave_statistics_stand_behind_the_last_wave_and_transmission_at_the_end) {
  Model m = coast_at_end(kelptest::coast_in_metres(2));
  m.undiffracted.steps = 1;
  m.settings.KTMETFLAG = 1;
  m.breakwaters.NDB = 1;
  m.breakwaters.kt.KTCOUNT = 4;
  m.breakwaters.kt.KTSUM = list(std::array{2.0f});
  m.breakwaters.kt.KTMAX = list(std::array{0.75f});
  m.breakwaters.kt.KTMIN = list(std::array{0.25f});
  const Lines lines = report_of(m, report_end);
  ASSERT_EQ(lines.size(), 15u + 6u + 7u);
  EXPECT_EQ(lines[3], "");
  EXPECT_EQ(lines[4], "  OUTPUT OF UNDIFFRACTED BREAKING WAVE STATISITCS");
  EXPECT_EQ(lines[5], "  N.B. THESE VALUES ARE NOT SMOOTHED!");
  EXPECT_EQ(lines[6], "   X-COORD.   H-MEAN   H52-MEAN   ZBS-MEAN   ZB-MEAN    HZ-MEAN");
  EXPECT_EQ(lines[10], " LONGSHORE TRANSPORT FOR LAST TIME STEP *100  (M3/SEC)");
  EXPECT_EQ(
      Lines(lines.begin() + 21, lines.end()),
      (Lines{"  DETACHED BREAKWATER KT STATISTICS: ", "  AVG KT VALUE(S)  = ", "       0.50",
             "  MAX KT VALUE(S)  = ", "       0.75", "  MIN KT VALUE(S)  = ", "       0.25"}));
}

// The volumes.

/// Cells of different heights; the volumes come back from metres without a rounding.
Model coast_with_volumes(Model m) {
  const float CONVYD3 = m.settings.CONVYD3;
  put(m.profile.DCLOSCELL, std::array{5.0f, 6.0f, 50.0f});
  put(m.profile.BERMHTCELL, std::array{1.0f, 2.0f, 50.0f});
  put(m.ledgers.VOLCELL, std::array{512.0f * CONVYD3, -128.0f * CONVYD3});
  put(m.ledgers.VOLLEN,
      std::array{4.0f * CONVYD3 / m.settings.CONV, -1.0f * CONVYD3 / m.settings.CONV});
  m.ledgers.VOLTOTAL = 384.0f * CONVYD3;
  m.ledgers.AREATOTAL = -32.0f * CONVYD3;
  return m;
}

TEST(closing_volumes, in_metres_with_the_height_of_the_last_cell_in_the_total) {
  const Model m = coast_with_volumes(kelptest::coast_in_metres(2));
  EXPECT_EQ(report_of(m, report_closing_volumes),
            (Lines{"  CALCULATED VOLUME CHANGE (M3 PER GRID CELL) ", "     512.00    -128.00",
                   "  CALCULATED VOLUME CHANGE (M3 PER LINEAR M) ", "       4.00      -1.00",
                   " CALCULATED TOTAL VOLUMETRIC CHANGE = -256. (M3)",
                   "  SIGN CONVENTION:  EROSION (-), ACCRETION (+)"}));
}

TEST(closing_volumes, in_feet_and_cubic_yards) {
  const Model m = coast_with_volumes(kelptest::coast_in_feet(2));
  EXPECT_EQ(report_of(m, report_closing_volumes),
            (Lines{"  CALCULATED VOLUME CHANGE (CY PER GRID CELL) ", "     512.00    -128.00",
                   "  CALCULATED VOLUME CHANGE (CY PER LINEAR FT) ", "       4.00      -1.00",
                   " CALCULATED TOTAL VOLUMETRIC CHANGE = -256. (YARDS3)",
                   "  SIGN CONVENTION:  EROSION (-), ACCRETION (+)"}));
}

/// As the report writes it, by another road.
std::string in_columns(float value) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%11.2f", static_cast<double>(value));
  return text.data();
}

TEST(closing_volumes, the_volume_by_length_is_divided_first) {
  Model m = coast_with_volumes(kelptest::coast_in_feet(2));
  int different = 0;
  for (float V = 2000001.0f; different < 3; V += 1.0f) {
    const float divided_first = V / YARD3 * 0.3048f;
    if (divided_first == V * 0.3048f / YARD3) continue;
    ++different;
    m.ledgers.VOLLEN(1) = V;
    EXPECT_EQ(report_of(m, report_closing_volumes)[3], in_columns(divided_first) + "      -1.00");
  }
}

TEST(closing_volumes, the_total_is_formed_in_single_precision) {
  Model m = coast_with_volumes(kelptest::coast_in_feet(2));
  m.profile.DCLOSCELL(2) = 6.1f;
  m.profile.BERMHTCELL(2) = 0.7f;
  m.ledgers.AREATOTAL = 123456.7f;
  const float total = (6.1f + 0.7f) * 123456.7f / YARD3;
  EXPECT_EQ(report_of(m, report_closing_volumes)[4],
            " CALCULATED TOTAL VOLUMETRIC CHANGE = " + free_number(total) + " (YARDS3)");
  EXPECT_NEAR(static_cast<double>(total), 6.8 * 123456.7 / (0.9144 * 0.9144 * 0.9144), 0.5);
}

TEST(closing_volumes, the_budget_stands_ahead_of_the_total) {
  Model m = coast_with_volumes(kelptest::coast_in_metres(2));
  m.clock.NDAYS = 365;
  m.budget.NLEDGV = 1;
  m.budget.ILEDGV1 = list(std::array{1});
  m.budget.ILEDGV2 = list(std::array{2});
  const Lines lines = report_of(m, report_closing_volumes);
  ASSERT_EQ(lines.size(), 6u + 14u);
  EXPECT_EQ(lines[3], "       4.00      -1.00");
  EXPECT_EQ(lines[4], " " + std::string(46, ' '));
  EXPECT_EQ(lines[15], "  SIGN CONVENTION:  EROSION (-), ACCRETION (+)");
  EXPECT_EQ(lines[17], " " + std::string(63, '*'));
  EXPECT_EQ(lines[18], " CALCULATED TOTAL VOLUMETRIC CHANGE = -256. (M3)");
  EXPECT_EQ(lines[19], "  SIGN CONVENTION:  EROSION (-), ACCRETION (+)");
}

}  // namespace
}  // namespace kelprun
