#include "text/free_format.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <string>

namespace {

using kelprun::free_format;
using kelprun::free_number;

TEST(free_format, a_line_begins_with_one_blank) {
  EXPECT_EQ(free_format("text"), " text");
  EXPECT_EQ(free_format(""), " ");
  EXPECT_EQ(free_format(5), " 5");
}

TEST(free_format, a_number_is_set_off_by_one_blank_unless_the_text_ends_in_one) {
  EXPECT_EQ(free_format("DATE IS", 7), " DATE IS 7");
  EXPECT_EQ(free_format("DATE IS ", 7), " DATE IS 7");
  EXPECT_EQ(free_format("DATE IS  ", 7), " DATE IS  7");
  EXPECT_EQ(free_format(1, 2), " 1 2");
  EXPECT_EQ(free_format(" DATE IS ", 19970101, ".  TIME STEP IS ", 24),
            "  DATE IS 19970101.  TIME STEP IS 24");
}

TEST(free_format, texts_stand_side_by_side_as_they_are) {
  EXPECT_EQ(free_format("a ", " b", "c"), " a  bc");
  EXPECT_EQ(free_format(3, "m"), " 3m");
}

TEST(free_format, integers_are_plain) {
  EXPECT_EQ(free_number(std::int64_t{0}), "0");
  EXPECT_EQ(free_number(std::int64_t{-12}), "-12");
  EXPECT_EQ(free_number(std::int64_t{2147483648}), "2147483648");
}

TEST(free_format, a_real_always_has_a_decimal_point) {
  EXPECT_EQ(free_number(1.0f), "1.");
  EXPECT_EQ(free_number(0.0f), "0.");
  EXPECT_EQ(free_number(-0.0f), "-0.");
  EXPECT_EQ(free_number(-250.0), "-250.");
  EXPECT_EQ(free_number(1e10f), "1.e+10");
}

TEST(free_format, a_real_takes_the_fewest_digits_of_its_own_precision) {
  EXPECT_EQ(free_number(0.1f), "0.1");
  EXPECT_EQ(free_number(0.1), "0.1");
  EXPECT_EQ(free_number(static_cast<double>(0.1f)), "0.10000000149011612");
  EXPECT_EQ(free_number(1.0f / 3.0f), "0.33333334");
  EXPECT_EQ(free_number(1.0 / 3.0), "0.3333333333333333");
  EXPECT_EQ(free_number(5.538f), "5.538");
}

TEST(free_format, every_real_reads_back_to_itself) {
  for (float value = 1.7e-9f; value < 1e12f; value *= 3.1f) {
    EXPECT_EQ(std::strtof(free_number(value).c_str(), nullptr), value);
    EXPECT_EQ(std::strtof(free_number(-value).c_str(), nullptr), -value);
  }
}

TEST(free_format, fixed_notation_holds_from_a_ten_thousandth_to_a_thousand_million) {
  EXPECT_EQ(free_number(1e-4), "0.0001");
  EXPECT_EQ(free_number(1e-4f), "0.0001");
  EXPECT_EQ(free_number(1e9), "1000000000.");
  EXPECT_EQ(free_number(999999999.5), "999999999.5");
  EXPECT_EQ(free_number(-123456.0), "-123456.");
}

TEST(free_format, scientific_notation_stands_outside_those_limits) {
  EXPECT_EQ(free_number(9.9e-5), "9.9e-05");
  EXPECT_EQ(free_number(1e-5f), "1.e-05");
  EXPECT_EQ(free_number(1000000001.5), "1.0000000015e+09");
  EXPECT_EQ(free_number(-2.5e12), "-2.5e+12");
}

TEST(free_format, values_that_are_no_numbers_are_written_as_words) {
  EXPECT_EQ(free_number(std::numeric_limits<float>::quiet_NaN()), "NaN");
  EXPECT_EQ(free_number(std::numeric_limits<double>::infinity()), "Infinity");
  EXPECT_EQ(free_number(-std::numeric_limits<float>::infinity()), "-Infinity");
}

}  // namespace
