#include "output/print_block.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "unit/output/report_case.h"

namespace kelprun {
namespace {

using kelptest::put;
using kelptest::report_of;
using Lines = std::vector<std::string>;

/// Two cells at step 24 of a run whose last year block was at the end of 1997. Volumes are powers
/// of two of the reported unit, so that they come back from metres without a rounding.
Model coast_at_print_date(Model m) {
  const float CONV = m.settings.CONV;
  const float CONVYD3 = m.settings.CONVYD3;
  m.clock.ITS = 24;
  m.clock.SIMDATS = 19970101;
  m.clock.FROMDATE = 19980102;
  m.clock.NEXTDATE = 19980403;
  m.ledgers.QMAX = 100000.0f;
  kelptest::put_shoreline(m);
  put(m.ledgers.QNETYR, std::array{1.0f, -2.5f, 1234567.0f});
  put(m.ledgers.QLEFTYR, std::array{-3.0f, -4.0f, -5.0f});
  put(m.ledgers.QRIGHTYR, std::array{6.0f, 7.0f, 8.0f});
  put(m.ledgers.QGROSSYR, std::array{999.0f, 999.0f, 999.0f});
  put(m.ledgers.VOLCELL, std::array{512.0f * CONVYD3, -128.0f * CONVYD3});
  put(m.ledgers.VOLLEN, std::array{4.0f * CONVYD3 / CONV, -1.0f * CONVYD3 / CONV});
  m.ledgers.VOLTOTAL = 256.0f * CONVYD3;
  m.ledgers.AREATOTAL = 77.0f;
  return m;
}

TEST(print_block, in_metres) {
  const Model m = coast_at_print_date(kelptest::coast_in_metres(2));
  EXPECT_EQ(
      report_of(m, report_print_date),
      (Lines{"  SHORELINE POSITION (M) AFTER 24 TIME STEPS. DATE IS 19980403",
             "     112.50     192.75",
             "  MEAN ANNUALIZED NET TRANSPORT (M3) FROM 19980102 TO 19980403",
             "       1.00      -2.50 1234567.00",
             "  MEAN ANNUALIZED TRANSPORT TO THE LEFT (M3) FROM 19980102 TO 19980403",
             "      -3.00      -4.00      -5.00",
             "  MEAN ANNUALIZED TRANSPORT TO THE RIGHT (M3) FROM 19980102 TO 19980403",
             "       6.00       7.00       8.00", "  CALCULATED VOLUME CHANGE (M3 PER GRID CELL) ",
             "     512.00    -128.00", "  CALCULATED VOLUME CHANGE (M3 PER LINEAR M) ",
             "       4.00      -1.00", " CALCULATED TOTAL VOLUMETRIC CHANGE = 256. (M3)", ""}));
}

TEST(print_block, in_feet_and_cubic_yards) {
  // The transports are in cubic yards already; the volume changes are not.
  const Model m = coast_at_print_date(kelptest::coast_in_feet(2));
  EXPECT_EQ(
      report_of(m, report_print_date),
      (Lines{"  SHORELINE POSITION (FT) AFTER 24 TIME STEPS. DATE IS 19980403",
             "     112.50     192.75",
             "  MEAN ANNUALIZED NET TRANSPORT (YARDS3) FROM 19980102 TO 19980403",
             "       1.00      -2.50 1234567.00",
             "  MEAN ANNUALIZED TRANSPORT TO THE LEFT (YARDS3) FROM 19980102 TO 19980403",
             "      -3.00      -4.00      -5.00",
             "  MEAN ANNUALIZED TRANSPORT TO THE RIGHT (YARDS3) FROM 19980102 TO 19980403",
             "       6.00       7.00       8.00", "  CALCULATED VOLUME CHANGE (CY PER GRID CELL) ",
             "     512.00    -128.00", "  CALCULATED VOLUME CHANGE (CY PER LINEAR FT) ",
             "       4.00      -1.00", " CALCULATED TOTAL VOLUMETRIC CHANGE = 256. (YARDS3)", ""}));
}

TEST(print_block, the_words_follow_the_last_year_block_and_the_sums_stay_in_full_units) {
  Model m = coast_at_print_date(kelptest::coast_in_metres(2));
  m.ledgers.QMAX = std::nextafter(100000.0f, 2e5f);
  Lines lines = report_of(m, report_print_date);
  EXPECT_EQ(lines[2], "  MEAN ANNUALIZED NET TRANSPORT (M3/1000) FROM 19980102 TO 19980403");
  EXPECT_EQ(lines[3], "       1.00      -2.50 1234567.00");
  EXPECT_EQ(lines[4],
            "  MEAN ANNUALIZED TRANSPORT TO THE LEFT (M3/1000) FROM 19980102 TO 19980403");
  EXPECT_EQ(lines[6],
            "  MEAN ANNUALIZED TRANSPORT TO THE RIGHT (M3/1000) FROM 19980102 TO 19980403");
  m = coast_at_print_date(kelptest::coast_in_feet(2));
  m.ledgers.QMAX = 250000.0f;
  lines = report_of(m, report_print_date);
  EXPECT_EQ(lines[2], "  MEAN ANNUALIZED NET TRANSPORT (YARDS3/1000) FROM 19980102 TO 19980403");
  EXPECT_EQ(lines[3], "       1.00      -2.50 1234567.00");
}

TEST(print_block, a_step_without_transport_has_full_units) {
  // No year block has been written: QMAX is 0.
  Model m = coast_at_print_date(kelptest::coast_in_metres(2));
  m.ledgers.QMAX = 0.0f;
  EXPECT_EQ(report_of(m, report_print_date)[2],
            "  MEAN ANNUALIZED NET TRANSPORT (M3) FROM 19980102 TO 19980403");
}

/// As the report writes it, by another road.
std::string in_columns(float value) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%11.2f", static_cast<double>(value));
  return text.data();
}

TEST(print_block, the_volume_by_length_is_divided_first) {
  // The table vcx multiplies first; where the two differ in the last digit, the report keeps to
  // its own order.
  Model m = coast_at_print_date(kelptest::coast_in_feet(2));
  int different = 0;
  for (float V = 2000001.0f; different < 3; V += 1.0f) {
    const float divided_first = V / kelptest::YARD3 * 0.3048f;
    const float multiplied_first = V * 0.3048f / kelptest::YARD3;
    if (divided_first == multiplied_first) continue;
    ++different;
    m.ledgers.VOLLEN(2) = V;
    EXPECT_EQ(report_of(m, report_print_date)[11], "       4.00" + in_columns(divided_first));
    EXPECT_NE(in_columns(divided_first), in_columns(multiplied_first));
  }
}

TEST(print_block, the_total_is_free_format_and_single_precision) {
  Model m = coast_at_print_date(kelptest::coast_in_metres(2));
  m.ledgers.VOLTOTAL = -0.1f;
  EXPECT_EQ(report_of(m, report_print_date)[12], " CALCULATED TOTAL VOLUMETRIC CHANGE = -0.1 (M3)");
}

}  // namespace
}  // namespace kelprun
