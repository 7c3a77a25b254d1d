#include "text/fields.h"

#include <gtest/gtest.h>

namespace {

using namespace kelprun;

TEST(fields, trailing_and_leading_blanks_are_dropped_and_inner_ones_kept) {
  EXPECT_EQ(without_trailing_blanks("  a b  "), "  a b");
  EXPECT_EQ(left_justified("  a b  "), "a b  ");
  EXPECT_EQ(without_trailing_blanks("   "), "");
  EXPECT_EQ(left_justified("   "), "");
  EXPECT_EQ(left_justified(""), "");
}

TEST(fields, folding_touches_letters_only) {
  EXPECT_EQ(upper_case("k1_End 2z"), "K1_END 2Z");
  EXPECT_EQ(lower_case("(FT) 2Z"), "(ft) 2z");
  EXPECT_EQ(upper_case("[`{@\xC3\xA4"), "[`{@\xC3\xA4");
}

TEST(fields, a_text_is_cut_to_its_width_and_a_shorter_one_stays) {
  EXPECT_EQ(cut("abcdef", 4), "abcd");
  EXPECT_EQ(cut("abc", 4), "abc");
}

TEST(fields, a_quoted_name_loses_its_quotes_and_keeps_its_blanks) {
  EXPECT_EQ(unquoted("\"my waves.dat\""), "my waves.dat");
  EXPECT_EQ(unquoted("plain.dat"), "plain.dat");
  EXPECT_EQ(unquoted(""), "");
}

TEST(fields, the_closing_quote_becomes_a_blank_between_what_stands_around_it) {
  EXPECT_EQ(unquoted("\"a\"b"), "a b");
  EXPECT_EQ(unquoted("\"a\"b\"c"), "a b\"c");
}

TEST(fields, a_quote_that_does_not_open_the_name_belongs_to_it) {
  EXPECT_EQ(unquoted("it\"s"), "it\"s");
}

TEST(fields, an_opening_quote_wants_a_closing_one) {
  EXPECT_FALSE(unquoted("\"my waves.dat").has_value());
  EXPECT_FALSE(unquoted("\"").has_value());
}

TEST(printable, keeps_letters_of_all_languages_and_no_control_character) {
  EXPECT_EQ(kelprun::printable("Plage d'\xC3\x89t\xC3\xA9, 100 %"),
            "Plage d'\xC3\x89t\xC3\xA9, 100 %");
  EXPECT_EQ(kelprun::printable(std::string_view("a\0b\tc\x1B[2J\x7F\n", 11)), "a?b?c?[2J??");
  EXPECT_EQ(kelprun::printable(""), "");
}

TEST(shown, is_in_quotes_and_cut_behind_40_characters) {
  EXPECT_EQ(kelprun::shown("12x"), "'12x'");
  EXPECT_EQ(kelprun::shown(""), "''");
  EXPECT_EQ(kelprun::shown(std::string(40, 'x')), "'" + std::string(40, 'x') + "'");
  EXPECT_EQ(kelprun::shown(std::string(41, 'x')), "'" + std::string(40, 'x') + "...'");
  EXPECT_EQ(kelprun::shown("1\x07"), "'1?'");
}

}  // namespace
