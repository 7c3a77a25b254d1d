#include "input/run_length.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "unit/text/stops.h"

namespace {

using kelprun::days_between;
using kelprun::days_without_leap;

/// Days from year 0 on by counting one day after the other, every fourth year a leap year.
std::int32_t counted_days(std::int32_t from, std::int32_t to) {
  const std::int32_t months[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  std::int32_t year = from / 10000;
  std::int32_t month = from / 100 % 100;
  std::int32_t day = from % 100;
  std::int32_t days = 0;
  while (year * 10000 + month * 100 + day != to) {
    ++days;
    const std::int32_t last = months[month - 1] + (month == 2 && year % 4 == 0 ? 1 : 0);
    if (++day <= last) continue;
    day = 1;
    if (++month <= 12) continue;
    month = 1;
    ++year;
  }
  return days;
}

kelprun::Clock run(std::int32_t SIMDATS, std::int32_t SIMDATE, float SPD = 24.0f) {
  kelprun::Clock clock;
  clock.SIMDATS = SIMDATS;
  clock.SIMDATE = SIMDATE;
  clock.SPD = SPD;
  kelprun::set_run_length(clock);
  return clock;
}

std::string refusal(std::int32_t SIMDATS, std::int32_t SIMDATE) {
  const kelptest::Said said = kelptest::listen([&] { run(SIMDATS, SIMDATE); });
  EXPECT_EQ(said.status, 1) << SIMDATS << " " << SIMDATE;
  return said.out;
}

TEST(run_length, days_agree_with_counting_one_by_one) {
  for (const std::int32_t from :
       {19950101, 19950228, 19950301, 19951231, 19960101, 19960228, 19960229, 19960301, 19961130})
    for (const std::int32_t to :
         {19970101, 19970228, 19970301, 19971231, 20000101, 20000228, 20000229, 20000301, 20000831})
      EXPECT_EQ(days_between(from, to), counted_days(from, to)) << from << " to " << to;
}

TEST(run_length, days_within_one_year_agree_with_counting_too) {
  for (const std::int32_t year : {19960000, 19970000})
    for (const std::int32_t from : {101, 131, 228, 301, 1015})
      for (const std::int32_t to : {102, 201, 229, 301, 331, 1031, 1231})
        if (from < to && !(to == 229 && year == 19970000)) {
          EXPECT_EQ(days_between(year + from, year + to), counted_days(year + from, year + to))
              << year + from << " to " << year + to;
        }
}

TEST(run_length, every_year_divisible_by_four_is_a_leap_year) {
  EXPECT_EQ(days_between(20000101, 20010101), 366);
  EXPECT_EQ(days_between(19000101, 19010101), 366);
  EXPECT_EQ(days_between(21000101, 21010101), 366);
  EXPECT_EQ(days_between(19010101, 19020101), 365);
}

TEST(run_length, january_31_to_march_1_is_29_days_in_a_common_year) {
  EXPECT_EQ(days_between(19970131, 19970301), 29);
  EXPECT_EQ(days_between(19960131, 19960301), 30);
}

TEST(run_length, a_whole_year_has_its_leap_day_only_with_its_own_february) {
  EXPECT_EQ(days_between(19970101, 19980101), 365);
  EXPECT_EQ(days_between(19960101, 19970101), 366);
  EXPECT_EQ(days_between(19960301, 19970301), 365);
  EXPECT_EQ(days_between(19950301, 19960301), 366);
}

TEST(run_length, days_without_leap_days_ignore_every_february_29) {
  EXPECT_EQ(days_without_leap(19960101, 19970101), 365);
  EXPECT_EQ(days_without_leap(19960228, 19960301), 1 + 0);
  EXPECT_EQ(days_without_leap(19951115, 19960210), 87);
  EXPECT_EQ(days_without_leap(19970310, 19970310), 0);
}

TEST(run_length, steps_are_days_times_steps_per_day) {
  const kelprun::Clock clock = run(19970101, 19980101);
  EXPECT_EQ(clock.NDAYS, 365);
  EXPECT_EQ(clock.NTS, 8760);
}

TEST(run_length, half_a_step_counts_as_a_whole_one) {
  EXPECT_EQ(run(19970101, 19970102, 24.0f / 16.0f).NTS, 2);
  EXPECT_EQ(run(19970101, 19970104, 24.0f / 16.0f).NTS, 5);
  EXPECT_EQ(run(19970101, 19970102, 24.0f / 7.0f).NTS, 3);
}

TEST(run_length, an_end_that_is_no_later_date_is_a_number_of_steps) {
  const kelprun::Clock clock = run(19970101, 60);
  EXPECT_EQ(clock.NTS, 60);
  EXPECT_EQ(clock.NDAYS, 0);
  EXPECT_EQ(run(19970101, 17999999).NTS, 17999999);
}

TEST(run_length, a_step_count_equal_to_the_start_is_a_step_count) {
  const kelprun::Clock clock = run(101, 101);
  EXPECT_EQ(clock.NTS, 101);
  EXPECT_EQ(clock.NDAYS, 0);
}

TEST(run_length, an_end_date_must_be_later_than_the_start) {
  const std::string message = " ERROR. SIMULATION ENDING DATE MUST BE LATER THAN";
  EXPECT_EQ(refusal(19970101, 19970101),
            " " + message + "\n  THE STARTING DATE. PLEASE CORRECT YOUR .cfg FILE.\n" +
                kelptest::fatal_record(message));
  EXPECT_NE(refusal(19970101, 18000000).find(message), std::string::npos);
}

TEST(run_length, the_running_date_begins_at_the_start_date) {
  const kelprun::Clock clock = run(19970203, 60);
  EXPECT_EQ(clock.IYEAR, 1997);
  EXPECT_EQ(clock.IMONTH, 2);
  EXPECT_EQ(clock.DAYF, 3.0f);
}

TEST(run_length, a_start_date_with_a_month_above_12_or_a_day_above_31_is_refused) {
  const std::string message = " ERROR. INCORRECT FORMAT ON SIMULATION START DATE.";
  for (const std::int32_t date : {19971301, 19970132, 19979999})
    EXPECT_EQ(refusal(date, 60), " " + message + "\n  PLEASE CORRECT YOUR .cfg FILE.\n" +
                                     kelptest::fatal_record(message));
}

TEST(run_length, a_month_or_day_of_zero_passes) {
  EXPECT_EQ(run(19970000, 60).IMONTH, 0);
  EXPECT_EQ(run(19971200, 60).DAYF, 0.0f);
  EXPECT_EQ(run(19971231, 60).DAYF, 31.0f);
}

TEST(run_length, an_end_date_has_no_such_test) {
  // The months 1 to 14 of one year: the two that do not exist count no days.
  EXPECT_EQ(run(19970101, 19971501).NDAYS, 365);
}

TEST(run_length, more_steps_than_an_integer_holds_end_the_run) {
  const kelptest::Said said = kelptest::listen([] { run(101, 99991231, 24e4f); });
  EXPECT_EQ(said.status, 1);
  EXPECT_NE(said.err.find("number of time steps"), std::string::npos);
}

}  // namespace
