#include "run/year_block.h"

#include <gtest/gtest.h>

#include <array>

#include "support/program.h"
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
  Model m = kelptest::small_model(2);
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
