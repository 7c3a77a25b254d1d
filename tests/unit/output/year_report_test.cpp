#include "output/year_report.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "unit/output/report_case.h"

namespace kelprun {
namespace {

using kelptest::put;
using kelptest::report_of;
using Lines = std::vector<std::string>;

/// Two cells at the second anniversary; the last year block was at the first one.
Model coast_at_year_end(Model m) {
  const float CONV = m.settings.CONV;
  const float WAVCONV = m.settings.WAVCONV;
  m.clock.ITS = 17520;
  m.clock.SIMDATS = 19970101;
  m.clock.FROMDATE = 19980102;
  m.clock.NEXTDATE = 19990102;
  kelptest::put_shoreline(m);
  put(m.shore.YDIFF, std::array{2.5f * CONV, -0.75f * CONV});
  const float degree = 3.141593f / 180.0f;
  put(m.waves.ZB, std::array{-5.0f * degree, 0.5f * degree, 7.25f * degree});
  put(m.waves.ZRFPRTOUT, std::array{-20.0f, 30.0f, -89.75f});
  put(m.waves.HB, std::array{1.25f * WAVCONV, 1.5f * WAVCONV, 1.75f * WAVCONV});
  put(m.waves.HRF, std::array{2.0f * WAVCONV, 2.25f * WAVCONV, 2.5f * WAVCONV});
  put(m.ledgers.QGROSSYR, std::array{10.0f, 11.0f, 12.5f});
  put(m.ledgers.QNETYR, std::array{-1.0f, 2.0f, 3.25f});
  put(m.ledgers.QLEFTYR, std::array{-4.0f, -5.0f, -6.75f});
  put(m.ledgers.QRIGHTYR, std::array{7.0f, 8.0f, 9.5f});
  m.ledgers.QMAX = 100000.0f;
  return m;
}

TEST(year_report, the_shoreline_and_its_change_in_metres) {
  const Model m = coast_at_year_end(kelptest::coast_in_metres(2));
  EXPECT_EQ(
      report_of(m, report_year_shoreline),
      (Lines{" SHORELINE POSITION (m)    AFTER 2 YEARS  = 17520 TIME STEPS.  DATE IS 19990102",
             "     112.50     192.75",
             " SHORELINE CHANGE (m)    AFTER 2 YEARS  = 17520 TIME STEPS.  DATE IS 19990102",
             "       2.50      -0.75"}));
}

TEST(year_report, the_shoreline_and_its_change_in_feet) {
  const Model m = coast_at_year_end(kelptest::coast_in_feet(2));
  EXPECT_EQ(
      report_of(m, report_year_shoreline),
      (Lines{" SHORELINE POSITION (ft)   AFTER 2 YEARS  = 17520 TIME STEPS.  DATE IS 19990102",
             "     112.50     192.75",
             " SHORELINE CHANGE (ft)   AFTER 2 YEARS  = 17520 TIME STEPS.  DATE IS 19990102",
             "       2.50      -0.75"}));
}

TEST(year_report, the_unit_stands_as_it_was_written_in_six_characters) {
  Model m = coast_at_year_end(kelptest::coast_in_metres(2));
  m.settings.KELUNITS = "(meter";
  EXPECT_EQ(report_of(m, report_year_shoreline)[2],
            " SHORELINE CHANGE (meter AFTER 2 YEARS  = 17520 TIME STEPS.  DATE IS 19990102");
}

TEST(year_report, a_run_shorter_than_a_year_has_completed_none) {
  Model m = coast_at_year_end(kelptest::coast_in_metres(2));
  m.clock.NEXTDATE = 19971231;
  m.clock.ITS = 10;
  EXPECT_EQ(report_of(m, report_year_shoreline)[0],
            " SHORELINE POSITION (m)    AFTER 0 YEARS  = 10 TIME STEPS.  DATE IS 19971231");
}

TEST(year_report, the_waves_of_the_last_pass) {
  const Model m = coast_at_year_end(kelptest::coast_in_feet(2));
  EXPECT_EQ(
      report_of(m, report_year_waves),
      (Lines{" BREAKING WAVE ANGLE TO X-AXIS (Deg). DATE IS 19990102", "  -5.00   0.50   7.25",
             " OFFSHORE WAVE ANGLE TO X-AXIS (Deg). DATE IS 19990102", " -20.00  30.00 -89.75",
             " BREAKING WAVE HEIGHT (m)    DATE IS 19990102", "   1.25   1.50   1.75",
             " OFFSHORE WAVE HEIGHT (m)    DATE IS 19990102", "   2.00   2.25   2.50"}))
      << "wave heights have a unit of their own";
}

TEST(year_report, wave_heights_in_feet_on_a_coast_in_metres) {
  Model m = kelptest::coast_in_metres(2);
  m.settings.WAVUNITS = "(ft)";
  m.settings.WAVCONV = 0.3048f;
  const Lines lines = report_of(coast_at_year_end(m), report_year_waves);
  EXPECT_EQ(lines[4], " BREAKING WAVE HEIGHT (ft)   DATE IS 19990102");
  EXPECT_EQ(lines[5], "   1.25   1.50   1.75");
  EXPECT_EQ(lines[6], " OFFSHORE WAVE HEIGHT (ft)   DATE IS 19990102");
  EXPECT_EQ(lines[7], "   2.00   2.25   2.50");
}

TEST(year_report, the_volumes_of_the_year_in_metres) {
  const Model m = coast_at_year_end(kelptest::coast_in_metres(2));
  EXPECT_EQ(
      report_of(m, report_year_volumes),
      (Lines{" ********************", "  GROSS TRANSPORT VOLUME (M3) FROM 19980102 TO 19990102",
             "      10.00      11.00      12.50",
             "  NET TRANSPORT VOLUME (M3) FROM 19980102 TO 19990102",
             "      -1.00       2.00       3.25",
             "  TRANSPORT VOLUME TO THE LEFT (M3) FROM 19980102 TO 19990102",
             "      -4.00      -5.00      -6.75",
             "  TRANSPORT VOLUME TO THE RIGHT (M3) FROM 19980102 TO 19990102",
             "       7.00       8.00       9.50"}));
}

TEST(year_report, the_volumes_of_the_year_in_cubic_yards_as_they_stand) {
  const Model m = coast_at_year_end(kelptest::coast_in_feet(2));
  const Lines lines = report_of(m, report_year_volumes);
  ASSERT_EQ(lines.size(), 9u);
  EXPECT_EQ(lines[1], "  GROSS TRANSPORT VOLUME (YARDS3) FROM 19980102 TO 19990102");
  EXPECT_EQ(lines[2], "      10.00      11.00      12.50");
  EXPECT_EQ(lines[7], "  TRANSPORT VOLUME TO THE RIGHT (YARDS3) FROM 19980102 TO 19990102");
}

TEST(year_report, above_100000_the_words_say_thousands) {
  Model m = coast_at_year_end(kelptest::coast_in_metres(2));
  m.ledgers.QMAX = std::nextafter(100000.0f, 2e5f);
  const Lines lines = report_of(m, report_year_volumes);
  EXPECT_EQ(lines[1], "  GROSS TRANSPORT VOLUME (M3/1000) FROM 19980102 TO 19990102");
  EXPECT_EQ(lines[3], "  NET TRANSPORT VOLUME (M3/1000) FROM 19980102 TO 19990102");
  EXPECT_EQ(lines[5], "  TRANSPORT VOLUME TO THE LEFT (M3/1000) FROM 19980102 TO 19990102");
  EXPECT_EQ(lines[7], "  TRANSPORT VOLUME TO THE RIGHT (M3/1000) FROM 19980102 TO 19990102");
  m = coast_at_year_end(kelptest::coast_in_feet(2));
  m.ledgers.QMAX = 1e6f;
  EXPECT_EQ(report_of(m, report_year_volumes)[1],
            "  GROSS TRANSPORT VOLUME (YARDS3/1000) FROM 19980102 TO 19990102");
}

}  // namespace
}  // namespace kelprun
