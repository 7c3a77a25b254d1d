#include "text/columns.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

std::string fixed(int width, int decimals, double value) {
  std::string field(static_cast<std::size_t>(width), '?');
  kelprun::put_fixed(field.data(), width, decimals, value);
  return field;
}

std::string whole(int width, std::int64_t value) {
  std::string field(static_cast<std::size_t>(width), '?');
  kelprun::put_integer(field.data(), width, value);
  return field;
}

TEST(columns, a_number_stands_at_the_right_of_its_field) {
  EXPECT_EQ(fixed(8, 2, 12.25), "   12.25");
  EXPECT_EQ(whole(8, -42), "     -42");
  EXPECT_EQ(whole(8, 19970101), "19970101");
}

TEST(columns, a_tie_goes_to_the_even_digit) {
  EXPECT_EQ(fixed(8, 2, 0.125), "    0.12");
  EXPECT_EQ(fixed(8, 2, 0.375), "    0.38");
  EXPECT_EQ(fixed(8, 2, -0.125), "   -0.12");
  EXPECT_EQ(fixed(8, 1, 0.25), "     0.2");
  EXPECT_EQ(fixed(8, 0, 2.5), "      2.");
  EXPECT_EQ(fixed(8, 0, 3.5), "      4.");
}

TEST(columns, only_the_exact_binary_value_decides_what_a_tie_is) {
  // 2.675 is held as 2.67499..., 1.005 as 1.00499..., the float 2.355 as 2.35500001...
  EXPECT_EQ(fixed(8, 2, 2.675), "    2.67");
  EXPECT_EQ(fixed(8, 2, 1.005), "    1.00");
  EXPECT_EQ(fixed(8, 2, static_cast<double>(2.355f)), "    2.36");
  EXPECT_EQ(fixed(8, 2, 2.355), "    2.35");
  EXPECT_EQ(fixed(8, 2, 0.145), "    0.14");
  EXPECT_EQ(fixed(8, 2, 0.155), "    0.15");
}

TEST(columns, a_negative_value_that_rounds_to_zero_keeps_its_sign) {
  EXPECT_EQ(fixed(8, 2, -0.001), "   -0.00");
  EXPECT_EQ(fixed(8, 2, -0.0), "   -0.00");
  EXPECT_EQ(fixed(8, 2, 0.001), "    0.00");
}

TEST(columns, the_decimal_point_stands_even_without_decimals) {
  EXPECT_EQ(fixed(6, 0, 7.0), "    7.");
}

TEST(columns, what_does_not_fit_is_asterisks) {
  EXPECT_EQ(fixed(6, 2, 999.99), "999.99");
  EXPECT_EQ(fixed(6, 2, 999.996), "******");
  EXPECT_EQ(fixed(6, 2, -999.99), "******");
  EXPECT_EQ(fixed(14, 2, 1e300), "**************");
  EXPECT_EQ(whole(3, 999), "999");
  EXPECT_EQ(whole(3, 1000), "***");
  EXPECT_EQ(whole(3, -100), "***");
}

TEST(columns, values_that_are_no_numbers_are_written_as_words) {
  using Limits = std::numeric_limits<double>;
  EXPECT_EQ(fixed(14, 2, Limits::quiet_NaN()), "           NaN");
  EXPECT_EQ(fixed(14, 2, -Limits::quiet_NaN()), "           NaN");
  EXPECT_EQ(fixed(14, 2, Limits::infinity()), "      Infinity");
  EXPECT_EQ(fixed(14, 2, -Limits::infinity()), "     -Infinity");
  EXPECT_EQ(fixed(8, 2, -Limits::infinity()), "********");
  EXPECT_EQ(fixed(2, 0, Limits::quiet_NaN()), "**");
}

TEST(columns, nothing_is_written_outside_the_field) {
  std::string line = "abcdefghij";
  kelprun::put_fixed(line.data() + 2, 5, 1, 3.25);
  EXPECT_EQ(line, "ab  3.2hij");
  kelprun::put_integer(line.data() + 2, 5, 123456);
  EXPECT_EQ(line, "ab*****hij");
}

}  // namespace
