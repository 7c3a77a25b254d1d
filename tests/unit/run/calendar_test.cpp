#include "run/calendar.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>
#include <vector>

#include "unit/text/stops.h"

namespace kelprun {
namespace {

using Dates = std::pair<std::int32_t, std::int32_t>;

Clock start(std::int32_t SIMDATS, float DT) {
  Clock c;
  c.SIMDATS = SIMDATS;
  c.IYEAR = SIMDATS / 10000;
  c.IMONTH = SIMDATS / 100 % 100;
  c.DAYF = static_cast<float>(SIMDATS % 100);
  c.DT = DT;
  c.SPD = 24.0f / DT;
  c.DAYSTEP = 1.0f / c.SPD;
  return c;
}

/// One step on: CURDATE and NEXTDATE.
Dates tick(Clock& c) {
  ++c.ITS;
  advance_calendar(c);
  return {c.CURDATE, c.NEXTDATE};
}

TEST(calendar, the_first_step_is_dated_one_step_after_the_start_and_shown_two) {
  Clock daily = start(19970101, 24.0f);
  EXPECT_EQ(tick(daily), Dates(19970102, 19970103));
  Clock half_daily = start(19970101, 12.0f);
  EXPECT_EQ(tick(half_daily), Dates(19970101, 19970102));
  EXPECT_EQ(tick(half_daily), Dates(19970102, 19970102));
}

TEST(calendar, every_year_divisible_by_four_is_a_leap_year) {
  for (const std::int32_t year : {1996, 2000, 1900, 2100, 1904}) {
    Clock c = start(year * 10000 + 228, 24.0f);
    EXPECT_EQ(tick(c).first, year * 10000 + 229);
    EXPECT_EQ(tick(c).first, year * 10000 + 301);
  }
  for (const std::int32_t year : {1997, 1998, 2001, 2101}) {
    Clock c = start(year * 10000 + 228, 24.0f);
    EXPECT_EQ(tick(c).first, year * 10000 + 301);
  }
}

TEST(calendar, a_year_of_daily_steps_goes_through_every_month) {
  Clock c = start(19970101, 24.0f);
  std::vector<std::int32_t> dates;
  for (int day = 1; day <= 364; ++day) dates.push_back(tick(c).first);
  EXPECT_EQ(dates[30], 19970201);
  EXPECT_EQ(dates[58], 19970301);
  EXPECT_EQ(dates[119], 19970501);
  EXPECT_EQ(dates[211], 19970801);
  EXPECT_EQ(dates[363], 19971231);
  EXPECT_EQ(c.NYEARS, 0);
  EXPECT_EQ(tick(c).first, 19980101);
  EXPECT_EQ(c.NYEARS, 1);
  EXPECT_EQ(c.IYEAR, 1998);
  EXPECT_EQ(c.IMONTH, 1);
}

TEST(calendar, at_new_year_the_shown_date_moves_into_january_first) {
  Clock c = start(19971230, 24.0f);
  EXPECT_EQ(tick(c), Dates(19971231, 19980101));
  EXPECT_EQ(c.NYEARS, 0);
  EXPECT_EQ(tick(c), Dates(19980101, 19980102));
  EXPECT_EQ(c.NYEARS, 1);
}

TEST(calendar, outside_leap_year_februaries_the_shown_date_is_the_next_steps_date) {
  for (const float DT : {1.0f, 3.0f, 24.0f, 10.0f}) {
    Clock c = start(19970101, DT);
    std::int32_t shown = tick(c).second;
    while (c.CURDATE < 19991231) {
      tick(c);
      ASSERT_EQ(c.CURDATE, shown) << DT;
      shown = c.NEXTDATE;
    }
  }
}

TEST(calendar, in_a_leap_year_february_the_shown_date_runs_ahead_and_reads_february_30) {
  Clock c = start(19960228, 3.0f);
  std::vector<Dates> dates;
  for (int step = 1; step <= 16; ++step) dates.push_back(tick(c));
  const std::vector<Dates> expected{
      {19960228, 19960228}, {19960228, 19960228}, {19960228, 19960228}, {19960228, 19960228},
      {19960228, 19960228}, {19960228, 19960228}, {19960228, 19960301}, {19960229, 19960229},
      {19960229, 19960229}, {19960229, 19960229}, {19960229, 19960229}, {19960229, 19960229},
      {19960229, 19960229}, {19960229, 19960229}, {19960229, 19960230}, {19960301, 19960301}};
  EXPECT_EQ(dates, expected);
}

TEST(calendar, with_hourly_steps_each_oddity_of_a_leap_year_february_shows_once) {
  Clock c = start(19960227, 1.0f);
  std::vector<Dates> changes;
  while (c.CURDATE < 19960302) {
    const Dates dates = tick(c);
    if (changes.empty() || changes.back() != dates) changes.push_back(dates);
  }
  const std::vector<Dates> expected{
      {19960227, 19960227}, {19960227, 19960228}, {19960228, 19960228},
      {19960228, 19960301}, {19960229, 19960229}, {19960229, 19960230},
      {19960301, 19960301}, {19960301, 19960302}, {19960302, 19960302}};
  EXPECT_EQ(changes, expected);
}

TEST(calendar, with_daily_steps_the_shown_date_skips_february_29) {
  Clock c = start(19960226, 24.0f);
  EXPECT_EQ(tick(c), Dates(19960227, 19960228));
  EXPECT_EQ(tick(c), Dates(19960228, 19960301));
  EXPECT_EQ(tick(c), Dates(19960229, 19960230));
  EXPECT_EQ(tick(c), Dates(19960301, 19960302));
}

TEST(calendar, the_fraction_of_the_day_is_dropped_at_the_end_of_a_month) {
  Clock c = start(19970130, 15.0f);
  tick(c);                                        // 30.625
  tick(c);                                        // 31.25
  EXPECT_EQ(tick(c), Dates(19970131, 19970201));  // 31.875
  EXPECT_EQ(tick(c), Dates(19970201, 19970201));  // 32.5 would be February 1, 12 o'clock
  EXPECT_EQ(c.DAYF, 1.0f);
  EXPECT_EQ(tick(c), Dates(19970202 - 1, 19970202));  // 1.625
  EXPECT_EQ(c.DAYF, 1.625f);
}

TEST(calendar, a_step_into_march_measures_the_shown_date_by_the_length_of_february) {
  // 29 days on from February 1 is beyond its end: March 1. 29 days on from that would be March 30,
  // which is beyond the 28 days that still count.
  Clock c = start(19970201, 24.0f);
  c.DAYSTEP = 29.0f;
  EXPECT_EQ(tick(c), Dates(19970301, 19970401));
  Clock december = start(19971103, 24.0f);
  december.DAYSTEP = 28.0f;
  EXPECT_EQ(tick(december), Dates(19971201, 19971229));
}

TEST(calendar, the_first_day_ends_when_the_day_number_changes) {
  Clock c = start(19970105, 6.0f);
  for (int step = 1; step <= 3; ++step) {
    tick(c);
    EXPECT_EQ(c.CURDATE, 19970105);
    EXPECT_EQ(c.FIRSTDAY, 1);
  }
  tick(c);
  EXPECT_EQ(c.CURDATE, 19970106);
  EXPECT_EQ(c.FIRSTDAY, 0);
  tick(c);
  EXPECT_EQ(c.FIRSTDAY, 0);
}

TEST(calendar, a_start_on_day_zero_begins_on_day_one) {
  Clock c = start(19970100, 3.0f);
  EXPECT_EQ(tick(c), Dates(19970101, 19970101));
  EXPECT_EQ(c.DAYF, 1.0f);
}

TEST(calendar, a_month_of_no_such_number_has_no_days) {
  Clock c = start(19970015, 24.0f);
  EXPECT_EQ(tick(c).first, 19970101);
}

TEST(calendar, a_year_that_no_date_can_hold_ends_the_run) {
  Clock c = start(19970101, 24.0f);
  c.IYEAR = 214748;
  const kelptest::Said said = kelptest::listen([&] { tick(c); });
  EXPECT_EQ(said.status, 1);
  EXPECT_NE(said.err.find("calendar"), std::string::npos);
}

}  // namespace
}  // namespace kelprun
