#include <gtest/gtest.h>

#include "run/calendar.h"

namespace kelprun {
namespace {

/// The date of the last of so many steps of DT hours from New Year 1997 on.
std::int32_t date_after(int steps, float DT) {
  Clock c;
  c.SIMDATS = 19970101;
  c.IYEAR = 1997;
  c.IMONTH = 1;
  c.DAYF = 1.0f;
  c.SPD = 24.0f / DT;
  c.DAYSTEP = 1.0f / c.SPD;
  for (c.ITS = 1; c.ITS <= steps; ++c.ITS) advance_calendar(c);
  return c.CURDATE;
}

constexpr int TEN_YEARS = 3652;  ///< days from New Year 1997 to New Year 2007

TEST(calendar_over_ten_years, is_right_in_steps_that_divide_a_day_exactly_in_binary) {
  for (const float DT : {24.0f, 12.0f, 6.0f, 3.0f, 1.5f, 0.75f})
    EXPECT_EQ(date_after(static_cast<int>(TEN_YEARS * 24.0f / DT), DT), 20070101) << DT;
}

TEST(calendar_over_ten_years, is_up_to_a_step_a_month_late_in_others) {
  // Where the rounded steps of a month fall short of its end, the month takes a step more: at most
  // 120 hours in steps of one hour, and 20 days in steps of four.
  const std::int32_t hourly = date_after(TEN_YEARS * 24, 1.0f);
  EXPECT_LE(hourly, 20061231);
  EXPECT_GE(hourly, 20061227);
  const std::int32_t four_hourly = date_after(TEN_YEARS * 6, 4.0f);
  EXPECT_LE(four_hourly, 20061220);
  EXPECT_GE(four_hourly, 20061212);
}

TEST(calendar_in_tiny_steps, stands_still_from_the_16th_on) {
  // From 16 on single precision keeps 1.9 millionths of a day: half of that is 0.000023 hours.
  const auto day_after = [](float DT) {
    Clock c;
    c.IYEAR = 1997;
    c.IMONTH = 1;
    c.DAYF = 16.0f;
    c.DAYSTEP = DT / 24.0f;
    advance_calendar(c);
    return c.DAYF;
  };
  EXPECT_EQ(day_after(0.00002f), 16.0f);
  EXPECT_GT(day_after(0.00003f), 16.0f);
}

}  // namespace
}  // namespace kelprun
