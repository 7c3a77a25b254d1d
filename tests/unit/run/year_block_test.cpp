#include "run/year_block.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

#include "support/program.h"
#include "unit/output/report_case.h"
#include "unit/run/in_process.h"
#include "unit/run/small_model.h"
#include "unit/text/stops.h"

namespace kelprun {
namespace {

Clock clock_at(std::int32_t CURDATE, std::int32_t NYEARS) {
  Clock c;
  c.SIMDATS = 19970315;
  c.CURDATE = CURDATE;
  c.NYEARS = NYEARS;
  c.FIRSTDAY = 0;
  c.ITS = 5;
  c.NTS = 100;
  return c;
}

TEST(year_end, is_the_anniversary_of_the_start_date) {
  EXPECT_TRUE(is_year_end(clock_at(19980315, 1)));
  EXPECT_FALSE(is_year_end(clock_at(19980314, 1)));
  EXPECT_FALSE(is_year_end(clock_at(19980316, 1)));
  EXPECT_TRUE(is_year_end(clock_at(20010315, 4)));
}

TEST(year_end, the_first_day_of_a_run_never_counts) {
  Clock c = clock_at(19970315, 0);
  c.FIRSTDAY = 1;
  EXPECT_FALSE(is_year_end(c));
}

TEST(year_end, has_no_memory_so_that_every_step_of_the_day_is_one) {
  Clock c = clock_at(19980315, 1);
  for (c.ITS = 5; c.ITS < 10; ++c.ITS) EXPECT_TRUE(is_year_end(c));
}

TEST(year_end, is_the_last_step_on_any_date) {
  Clock c = clock_at(19970512, 0);
  EXPECT_FALSE(is_year_end(c));
  c.ITS = c.NTS;
  EXPECT_TRUE(is_year_end(c));
}

TEST(year_end, a_start_date_of_zero_has_no_anniversary) {
  Clock c = clock_at(19980101, 0);
  c.SIMDATS = 0;
  EXPECT_FALSE(is_year_end(c));
}

/// Two cells that have moved, and transports of a year.
Model year_of_two_cells(float gross) {
  Model m = kelptest::coast_in_metres(2);
  m.clock.FROMDATE = 19970101;
  m.clock.NEXTDATE = 19980102;
  m.clock.SIMDATS = 19970101;
  m.clock.ITS = 365;
  kelptest::put(m.shore.YSTART, std::array{10.0, 20.0});
  kelptest::put(m.shore.Y, std::array{12.5, 19.0});
  kelptest::put(m.ledgers.QGROSSYR, std::array{5.0f, gross, 1.0f});
  kelptest::put(m.ledgers.QNETYR, std::array{1.0f, -80000.0f, 64123.0f});
  kelptest::put(m.ledgers.QLEFTYR, std::array{-2.0f, -90000.0f, 0.0f});
  kelptest::put(m.ledgers.QRIGHTYR, std::array{3.0f, 10000.0f, 64123.0f});
  m.ledgers.QNETSUM.fill(7.0f);
  return m;
}

struct Closed {
  kelptest::Table mqn, mql, mqr;
  std::string console;
  std::vector<std::string> report;
};

Closed close(Model& m) {
  kelptest::WorkFolder folder;
  Tables tables;
  tables.open((folder.path() / "run.").string(), 2);
  Closed closed;
  kelptest::ReadableReport readable;
  closed.console = kelptest::listen([&] { close_year(m, tables, readable.report); }).out;
  closed.report = readable.lines();
  tables.close();
  closed.mqn = kelptest::read_table(folder.read("run.mqn"), 16);
  closed.mql = kelptest::read_table(folder.read("run.mql"), 16);
  closed.mqr = kelptest::read_table(folder.read("run.mqr"), 16);
  return closed;
}

using Row = std::vector<double>;

TEST(year_block, writes_the_volumes_of_the_year_under_the_shown_date) {
  Model m = year_of_two_cells(95000.0f);
  const Closed closed = close(m);
  ASSERT_EQ(closed.mqn.rows.size(), 1u);
  EXPECT_EQ(closed.mqn.dates.front(), 19980102);
  EXPECT_EQ(closed.mqn.rows.front(), (Row{1, -80000, 64123}));
  EXPECT_EQ(closed.mql.rows.front(), (Row{-2, -90000, 0}));
  EXPECT_EQ(closed.mqr.rows.front(), (Row{3, 10000, 64123}));
  EXPECT_EQ(m.ledgers.QMAX, 95000.0f);
}

TEST(year_block, the_tables_hold_full_units_even_where_the_report_shows_thousands) {
  Model m = year_of_two_cells(250000.0f);
  const Closed closed = close(m);
  EXPECT_EQ(m.ledgers.QMAX, 250000.0f);
  EXPECT_EQ(closed.mqn.rows.front(), (Row{1, -80000, 64123}));
  EXPECT_EQ(closed.mql.rows.front(), (Row{-2, -90000, 0}));
  EXPECT_EQ(closed.mqr.rows.front(), (Row{3, 10000, 64123}));
}

TEST(year_block, thousands_begin_above_a_gross_volume_of_100000) {
  // Scaled sums come back through a factor of 0.001 and one of 1000 in single precision, which
  // moves large values in their last digit: that tells the two apart.
  const float sum = 8388629.0f;
  const float through = sum * 0.001f * 1000.0f;
  ASSERT_NE(through, sum);
  for (const bool above : {false, true}) {
    Model m = year_of_two_cells(above ? std::nextafter(100000.0f, 2e5f) : 100000.0f);
    m.ledgers.QNETYR(3) = sum;
    const Closed closed = close(m);
    EXPECT_EQ(closed.mqn.rows.front()[2], static_cast<double>(above ? through : sum));
  }
}

/// What stands under a title of the report.
std::string under(const std::vector<std::string>& report, const std::string& title) {
  for (std::size_t k = 0; k + 1 < report.size(); ++k)
    if (report[k] == title) return report[k + 1];
  return "no such title";
}

TEST(year_block, the_report_shows_full_units_at_a_gross_volume_of_100000) {
  Model m = year_of_two_cells(100000.0f);
  const Closed closed = close(m);
  EXPECT_EQ(under(closed.report, "  GROSS TRANSPORT VOLUME (M3) FROM 19970101 TO 19980102"),
            "       5.00  100000.00       1.00");
  EXPECT_EQ(under(closed.report, "  NET TRANSPORT VOLUME (M3) FROM 19970101 TO 19980102"),
            "       1.00  -80000.00   64123.00");
  EXPECT_EQ(under(closed.report, "  TRANSPORT VOLUME TO THE LEFT (M3) FROM 19970101 TO 19980102"),
            "      -2.00  -90000.00       0.00");
  EXPECT_EQ(under(closed.report, "  TRANSPORT VOLUME TO THE RIGHT (M3) FROM 19970101 TO 19980102"),
            "       3.00   10000.00   64123.00");
}

TEST(year_block, the_report_shows_thousands_above_it) {
  Model m = year_of_two_cells(std::nextafter(100000.0f, 2e5f));
  const Closed closed = close(m);
  EXPECT_EQ(under(closed.report, "  GROSS TRANSPORT VOLUME (M3/1000) FROM 19970101 TO 19980102"),
            "       0.01     100.00       0.00")
      << "5 times the single-precision 0.001 lies just above 0.005";
  EXPECT_EQ(under(closed.report, "  NET TRANSPORT VOLUME (M3/1000) FROM 19970101 TO 19980102"),
            "       0.00     -80.00      64.12");
  EXPECT_EQ(
      under(closed.report, "  TRANSPORT VOLUME TO THE LEFT (M3/1000) FROM 19970101 TO 19980102"),
      "      -0.00     -90.00       0.00");
  EXPECT_EQ(
      under(closed.report, "  TRANSPORT VOLUME TO THE RIGHT (M3/1000) FROM 19970101 TO 19980102"),
      "       0.00      10.00      64.12");
}

TEST(year_block, a_volume_that_is_no_number_does_not_hide_the_other_walls) {
  Model m = year_of_two_cells(250000.0f);
  m.ledgers.QGROSSYR(1) = std::numeric_limits<float>::quiet_NaN();
  close(m);
  EXPECT_EQ(m.ledgers.QMAX, 250000.0f);
  m.ledgers.QGROSSYR(3) = std::numeric_limits<float>::quiet_NaN();
  close(m);
  EXPECT_EQ(m.ledgers.QMAX, 0.0f) << "no wall with a volume is left";
}

TEST(year_block, the_largest_gross_volume_is_not_below_zero) {
  Model m = year_of_two_cells(-3.0f);
  m.ledgers.QGROSSYR.fill(-3.0f);
  close(m);
  EXPECT_EQ(m.ledgers.QMAX, 0.0f);
}

TEST(year_block, the_next_one_counts_from_this_ones_date) {
  Model m = year_of_two_cells(1.0f);
  close(m);
  EXPECT_EQ(m.clock.FROMDATE, 19980102);
  m.clock.NEXTDATE = 19990102;
  const Closed closed = close(m);
  EXPECT_EQ(under(closed.report, "  GROSS TRANSPORT VOLUME (M3) FROM 19980102 TO 19990102"),
            "       0.00       0.00       0.00");
}

TEST(year_block, the_report_takes_shoreline_waves_and_volumes_in_this_order) {
  Model m = year_of_two_cells(1.0f);
  std::vector<std::string> titles;
  for (const std::string& line : close(m).report)
    if (line.find_first_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ*") != std::string::npos)
      titles.push_back(line.substr(0, 21));
  EXPECT_EQ(titles, (std::vector<std::string>{
                        " SHORELINE POSITION (", " SHORELINE CHANGE (m)", " BREAKING WAVE ANGLE ",
                        " OFFSHORE WAVE ANGLE ", " BREAKING WAVE HEIGHT", " OFFSHORE WAVE HEIGHT",
                        " ********************", "  GROSS TRANSPORT VOL", "  NET TRANSPORT VOLUM",
                        "  TRANSPORT VOLUME TO", "  TRANSPORT VOLUME TO"}));
}

TEST(year_block, without_result_blocks_console_tables_and_the_largest_volume_go_on) {
  Model m = year_of_two_cells(250000.0f);
  m.settings.PRTOUT = false;
  const Closed closed = close(m);
  EXPECT_TRUE(closed.report.empty());
  EXPECT_EQ(kelptest::lines(closed.console).size(), 9u);
  EXPECT_EQ(closed.mqn.rows.front(), (Row{1, -80000, 64123}));
  EXPECT_EQ(closed.mqr.rows.front(), (Row{3, 10000, 64123}));
  EXPECT_EQ(m.ledgers.QMAX, 250000.0f);
  EXPECT_EQ(m.clock.FROMDATE, 19980102);
  EXPECT_EQ(m.ledgers.QNETYR(2), 0.0f);
}

TEST(year_block, begins_the_year_sums_again_and_leaves_those_of_the_run) {
  Model m = year_of_two_cells(250000.0f);
  close(m);
  for (std::int32_t i = 1; i <= 3; ++i) {
    EXPECT_EQ(m.ledgers.QNETYR(i), 0.0f);
    EXPECT_EQ(m.ledgers.QLEFTYR(i), 0.0f);
    EXPECT_EQ(m.ledgers.QRIGHTYR(i), 0.0f);
    EXPECT_EQ(m.ledgers.QGROSSYR(i), 0.0f);
    EXPECT_EQ(m.ledgers.QNETSUM(i), 7.0f);
  }
}

TEST(year_block, keeps_how_far_each_cell_has_moved_since_the_start) {
  Model m = year_of_two_cells(1.0f);
  close(m);
  EXPECT_EQ(m.shore.YDIFF(1), 2.5f);
  EXPECT_EQ(m.shore.YDIFF(2), -1.0f);
}

TEST(year_block, tells_the_console_the_years_between_the_start_and_the_shown_date) {
  Model m = year_of_two_cells(1.0f);
  const auto console = kelptest::lines(close(m).console);
  ASSERT_EQ(console.size(), 9u);
  EXPECT_EQ(console[4], "CALCULATED   1 YEARS  =     365 TIME STEPS.  DATE IS 19980102");
}

}  // namespace
}  // namespace kelprun
