#include "text/list_read.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "support/program.h"

namespace {

using kelprun::InputFile;
using kelprun::ListReader;
using Item = ListReader::Item;
using Reals = std::vector<float>;

constexpr float untouched = -99.0f;

/// Reads `count` items; null items and those behind the end keep `untouched`.
Reals reals(ListReader list, int count) {
  Reals values(static_cast<std::size_t>(count), untouched);
  for (float& value : values) EXPECT_NE(list.read(value), Item::bad) << list.item_text();
  return values;
}

Reals reals(std::string_view text, int count) { return reals(ListReader(text), count); }

template <class Number>
Item read_one(std::string_view text, Number& value) {
  return ListReader(text).read(value);
}

std::string name(std::string_view text) {
  std::string value = "untouched";
  EXPECT_EQ(ListReader(text).read_name(value), Item::value) << text;
  return value;
}

TEST(list_read, items_are_separated_by_blanks_or_commas) {
  EXPECT_EQ(reals("1 2.5,3 , 4,   5", 5), (Reals{1.0f, 2.5f, 3.0f, 4.0f, 5.0f}));
}

TEST(list_read, too_few_items_leave_the_rest_as_it_was) {
  EXPECT_EQ(reals("1 2", 4), (Reals{1.0f, 2.0f, untouched, untouched}));
  EXPECT_EQ(reals("", 1), (Reals{untouched}));
}

TEST(list_read, a_repeat_count_gives_its_value_that_often) {
  EXPECT_EQ(reals("3*0.5 7", 4), (Reals{0.5f, 0.5f, 0.5f, 7.0f}));
  EXPECT_EQ(reals("1*2,2*-3.", 3), (Reals{2.0f, -3.0f, -3.0f}));
  EXPECT_EQ(reals("9*4", 2), (Reals{4.0f, 4.0f}));
}

TEST(list_read, a_repeat_count_without_a_value_skips_that_many_items) {
  EXPECT_EQ(reals("1 2* 4", 4), (Reals{1.0f, untouched, untouched, 4.0f}));
  EXPECT_EQ(reals("2*,4", 3), (Reals{untouched, untouched, 4.0f}));
}

TEST(list_read, a_repeat_count_must_be_a_whole_number_above_zero) {
  for (const char* text : {"0*5", "-1*5", "1.5*5", "x*5", "*5", "2*x", "2*3*4"}) {
    float value = untouched;
    EXPECT_EQ(read_one(text, value), Item::bad) << text;
    EXPECT_EQ(value, untouched) << text;
  }
}

TEST(list_read, nothing_between_two_commas_leaves_its_element) {
  EXPECT_EQ(reals("1,,3", 3), (Reals{1.0f, untouched, 3.0f}));
  EXPECT_EQ(reals("1, ,3", 3), (Reals{1.0f, untouched, 3.0f}));
  EXPECT_EQ(reals(",2", 2), (Reals{untouched, 2.0f}));
  EXPECT_EQ(reals("1,,,4", 4), (Reals{1.0f, untouched, untouched, 4.0f}));
  float value = untouched;
  EXPECT_EQ(read_one(",5", value), Item::null);
}

TEST(list_read, a_slash_ends_the_list_also_right_behind_an_item) {
  EXPECT_EQ(reals("1 2 / 3", 3), (Reals{1.0f, 2.0f, untouched}));
  EXPECT_EQ(reals("1 2/3 4", 4), (Reals{1.0f, 2.0f, untouched, untouched}));
  EXPECT_EQ(reals("/", 1), (Reals{untouched}));
  EXPECT_EQ(reals("2*5/", 3), (Reals{5.0f, 5.0f, untouched}));
}

TEST(list_read, exponents_may_be_written_with_e_or_d) {
  EXPECT_EQ(reals("1.5d0 1.5D+01 2e2 3E-1 4.d1 5d-1", 6),
            (Reals{1.5f, 15.0f, 200.0f, 0.3f, 40.0f, 0.5f}));
}

TEST(list_read, signs_and_bare_points_make_numbers) {
  EXPECT_EQ(reals("+2 -3 .5 -.25 7. +.125", 6), (Reals{2.0f, -3.0f, 0.5f, -0.25f, 7.0f, 0.125f}));
}

TEST(list_read, a_word_is_no_number) {
  for (const char* text :
       {"abc", "nan", "inf", "-inf", "infinity", "1x",  "1.2.3", "0x10", "1e",    "1e+",
        ".",   "-",   "+",   "--5",  "++5",      "'5'", "\"5\"", "T",    "1e400", "-1e400"}) {
    float value = untouched;
    EXPECT_EQ(read_one(text, value), Item::bad) << text;
    EXPECT_EQ(value, untouched) << text;
  }
}

TEST(list_read, two_signs_make_no_number) {
  for (const char* text : {"+-5", "-+5", "+-.5"}) {
    float value = untouched;
    EXPECT_EQ(read_one(text, value), Item::bad) << text;
    std::int32_t whole = -99;
    EXPECT_EQ(read_one(text, whole), Item::bad) << text;
  }
}

TEST(list_read, a_value_too_small_to_hold_is_zero) {
  for (const char* text : {"1e-60", "-1D-60", "1e-6000", "1E-6000"}) {
    float value = untouched;
    EXPECT_EQ(read_one(text, value), Item::value) << text;
    EXPECT_EQ(value, 0.0f) << text;
  }
}

TEST(list_read, each_target_is_rounded_once_in_its_own_precision) {
  float single = 0.0f;
  double wide = 0.0;
  EXPECT_EQ(read_one("0.1", single), Item::value);
  EXPECT_EQ(read_one("0.1", wide), Item::value);
  EXPECT_EQ(single, 0.1f);
  EXPECT_EQ(wide, 0.1);
  // Just above the middle of 1 and its next float: by way of double it would become a tie.
  EXPECT_EQ(read_one("1.00000005960464477540", single), Item::value);
  EXPECT_EQ(single, 1.0f + 1.0f / 8388608.0f);
}

TEST(list_read, a_whole_number_takes_no_point_no_exponent_and_no_overflow) {
  for (const char* text : {"2.5", "2.", "1e3", "3000000000", "-3000000000", "five"}) {
    std::int32_t value = -99;
    EXPECT_EQ(read_one(text, value), Item::bad) << text;
  }
  std::int32_t value = 0;
  EXPECT_EQ(read_one("+2147483647", value), Item::value);
  EXPECT_EQ(value, 2147483647);
  std::int16_t clock = 0;
  EXPECT_EQ(read_one("2300", clock), Item::value);
  EXPECT_EQ(clock, 2300);
  EXPECT_EQ(read_one("40000", clock), Item::bad);
}

TEST(list_read, a_refused_item_leaves_its_target) {
  for (const char* text : {"2.5", "1e3", "7x"}) {
    std::int32_t whole = -99;
    EXPECT_EQ(read_one(text, whole), Item::bad) << text;
    EXPECT_EQ(whole, -99) << text;
  }
  for (const char* text : {"2.5x", "1e3.", "1.2.3"}) {
    float real = -99.0f;
    EXPECT_EQ(read_one(text, real), Item::bad) << text;
    EXPECT_EQ(real, -99.0f) << text;
  }
}

TEST(list_read, what_follows_the_wanted_items_is_not_looked_at) {
  EXPECT_EQ(reals("20 cells or so", 1), (Reals{20.0f}));
}

TEST(list_read, the_text_of_a_refused_item_can_be_told) {
  ListReader list("1 two 3");
  float value = 0.0f;
  EXPECT_EQ(list.read(value), Item::value);
  EXPECT_EQ(list.read(value), Item::bad);
  EXPECT_EQ(list.item_text(), "two");
}

TEST(list_read, a_name_ends_at_a_blank_or_comma_unless_it_is_quoted) {
  EXPECT_EQ(name("waves.dat rest"), "waves.dat");
  EXPECT_EQ(name("waves.dat,rest"), "waves.dat");
  EXPECT_EQ(name("\"my waves, north.dat\" rest"), "my waves, north.dat");
  EXPECT_EQ(name("'my \"best\" waves.dat'"), "my \"best\" waves.dat");
}

TEST(list_read, a_slash_or_a_star_belongs_to_a_name) {
  EXPECT_EQ(name("../waves/north.dat"), "../waves/north.dat");
  EXPECT_EQ(name("/data/north.dat"), "/data/north.dat");
  EXPECT_EQ(name("2*north.dat"), "2*north.dat");
}

TEST(list_read, a_name_without_its_closing_quote_is_refused) {
  std::string value = "untouched";
  EXPECT_EQ(ListReader("\"my waves.dat").read_name(value), Item::bad);
  EXPECT_EQ(value, "untouched");
}

TEST(list_read, a_missing_name_leaves_its_target) {
  std::string value = "untouched";
  EXPECT_EQ(ListReader("   ").read_name(value), Item::end);
  EXPECT_EQ(ListReader(", other").read_name(value), Item::null);
  EXPECT_EQ(value, "untouched");
}

TEST(list_read, numbers_and_a_name_share_one_line) {
  ListReader list("20,20.5  0 'my waves.dat'");
  std::int32_t cell = 0;
  float depth = 0.0f;
  std::int32_t events = 1;
  std::string file;
  EXPECT_EQ(list.read(cell), Item::value);
  EXPECT_EQ(list.read(depth), Item::value);
  EXPECT_EQ(list.read(events), Item::value);
  EXPECT_EQ(list.read_name(file), Item::value);
  EXPECT_EQ(cell, 20);
  EXPECT_EQ(depth, 20.5f);
  EXPECT_EQ(events, 0);
  EXPECT_EQ(file, "my waves.dat");
}

class list_read_from_file : public testing::Test {
 protected:
  void open(const std::string& text) {
    folder.write("values.dat", text);
    ASSERT_TRUE(file.open((folder.path() / "values.dat").string()));
  }

  kelptest::WorkFolder folder;
  InputFile file;
};

TEST_F(list_read_from_file, a_list_goes_on_over_as_many_lines_as_it_needs) {
  open("1 2\n\n   \n3,\n4\n5 6\n");
  EXPECT_EQ(reals(ListReader(file), 5), (Reals{1.0f, 2.0f, 3.0f, 4.0f, 5.0f}));
}

TEST_F(list_read_from_file, what_is_left_on_the_last_line_is_lost) {
  open("1 2 3\n4 5 6\n");
  EXPECT_EQ(reals(ListReader(file), 2), (Reals{1.0f, 2.0f}));
  EXPECT_EQ(reals(ListReader(file), 2), (Reals{4.0f, 5.0f}));
}

TEST_F(list_read_from_file, repeats_that_are_left_over_are_lost_with_their_line) {
  open("5*1\n2 3\n");
  EXPECT_EQ(reals(ListReader(file), 2), (Reals{1.0f, 1.0f}));
  EXPECT_EQ(reals(ListReader(file), 2), (Reals{2.0f, 3.0f}));
}

TEST_F(list_read_from_file, a_slash_ends_the_list_and_the_next_one_takes_the_next_line) {
  open("1 / 9\n2 3\n");
  EXPECT_EQ(reals(ListReader(file), 3), (Reals{1.0f, untouched, untouched}));
  EXPECT_EQ(reals(ListReader(file), 2), (Reals{2.0f, 3.0f}));
}

TEST_F(list_read_from_file, tabs_carriage_returns_and_the_byte_order_mark_do_no_harm) {
  open("\xEF\xBB\xBF\t1\t2\r\n3,\t4\r\n");
  EXPECT_EQ(reals(ListReader(file), 4), (Reals{1.0f, 2.0f, 3.0f, 4.0f}));
}

TEST_F(list_read_from_file, the_end_of_the_file_is_told_from_the_end_of_a_list) {
  open("1\n");
  ListReader list(file);
  float value = untouched;
  EXPECT_EQ(list.read(value), Item::value);
  EXPECT_EQ(list.read(value), Item::end_of_file);
  EXPECT_EQ(value, 1.0f);
}

}  // namespace
