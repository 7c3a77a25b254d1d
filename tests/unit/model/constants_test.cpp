#include "model/constants.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "model/capacities.h"
#include "model/months.h"

namespace {

using namespace kelprun;

TEST(constants, the_first_transport_divisor_follows_from_sand_porosity_and_height_ratio) {
  const double divisor = 16.0 * (2.65 - 1.0) * (1.0 - 0.4) * std::pow(1.416, 2.5);
  EXPECT_NEAR(K1_DIVISOR, divisor, 1e-4);
  EXPECT_EQ(K1_DIVISOR, 37.793171f);
}

TEST(constants, the_second_transport_divisor_is_half_the_first) {
  EXPECT_NEAR(K2_DIVISOR, 0.5 * 37.793171, 2e-6);
}

TEST(constants, pi_is_held_one_step_above_the_nearest_single) {
  EXPECT_EQ(PI, std::nextafter(static_cast<float>(std::acos(-1.0)), 4.0f));
}

TEST(constants, angles_of_the_configuration_have_a_factor_of_their_own) {
  EXPECT_EQ(RADIANS_PER_DEGREE, 0.017453294f);
  EXPECT_NEAR(RADIANS_PER_DEGREE, std::acos(-1.0) / 180.0, 2e-9);
}

TEST(constants, a_year_has_365_days_and_a_quarter) {
  EXPECT_EQ(SECONDS_PER_YEAR, 365.25 * 86400.0);
}

TEST(constants, gravity_is_not_that_of_the_dispersion_relation) {
  EXPECT_EQ(G, 9.806f);
  EXPECT_NE(G, 9.81f);
}

TEST(constants, the_series_of_the_dispersion_relation_falls_off) {
  EXPECT_EQ(PADE[0], 0.66667f);
  EXPECT_EQ(PADE[8], 0.00011f);
  for (std::size_t n = 1; n < PADE.size(); ++n) EXPECT_LT(PADE[n], PADE[n - 1]);
}

TEST(constants, dates_and_step_numbers_part_at_18_million) {
  EXPECT_EQ(LAST_STEP_NUMBER, 18000000);
}

TEST(capacities, every_limit_of_a_run_is_as_users_know_it) {
  EXPECT_EQ(capacity::CELLS, 4000);
  EXPECT_EQ(capacity::SPANS, 4001);
  EXPECT_EQ(capacity::NON_DIFFRACTING_GROINS, 250);
  EXPECT_EQ(capacity::DIFFRACTING_GROINS, 250);
  EXPECT_EQ(capacity::BREAKWATERS, 125);
  EXPECT_EQ(capacity::BYPASS_OPERATIONS, 250);
  EXPECT_EQ(capacity::FILLS, 250);
  EXPECT_EQ(capacity::SEAWALLS, 4000);
  EXPECT_EQ(capacity::PRINT_DATES, 500);
  EXPECT_EQ(capacity::WAVE_EVENTS, 2000000);
  EXPECT_EQ(capacity::WATER_LEVELS, 100000);
  EXPECT_EQ(capacity::TIDAL_RECORDS, 100000);
  EXPECT_EQ(capacity::TIDAL_FILES, 4000);
  EXPECT_EQ(capacity::INLETS, 250);
  EXPECT_EQ(capacity::DREDGE_EVENTS, 25000);
  EXPECT_EQ(capacity::BUDGET_ITEMS, 500);
  EXPECT_EQ(capacity::CONFIGURATION_LINE, 255);
  EXPECT_EQ(capacity::FILE_NAME, 255);
  EXPECT_EQ(capacity::TITLE, 64);
}

TEST(months, a_common_year_has_365_days) {
  std::int32_t days = 0;
  for (std::int32_t month = 1; month <= 12; ++month) days += days_of_month(month);
  EXPECT_EQ(days, 365);
  EXPECT_EQ(days_of_month(2), 28);
  EXPECT_EQ(days_of_month(7), 31);
  EXPECT_EQ(days_of_month(8), 31);
  EXPECT_EQ(days_of_month(9), 30);
}

TEST(months, a_month_that_does_not_exist_has_no_days) {
  for (const std::int32_t month : {0, 13, -1, 99, std::numeric_limits<std::int32_t>::min()})
    EXPECT_EQ(days_of_month(month), 0);
}

TEST(months, a_date_falls_into_year_month_and_day) {
  const DateParts date = date_parts(19970203);
  EXPECT_EQ(date.year, 1997);
  EXPECT_EQ(date.month, 2);
  EXPECT_EQ(date.day, 3);
  const DateParts short_date = date_parts(60);
  EXPECT_EQ(short_date.year, 0);
  EXPECT_EQ(short_date.month, 0);
  EXPECT_EQ(short_date.day, 60);
}

}  // namespace
