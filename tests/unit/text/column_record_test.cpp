#include "text/column_record.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

using kelprun::ColumnRecord;

TEST(column_record, begins_empty_and_grows_to_the_right) {
  ColumnRecord line;
  EXPECT_EQ(line.record(), "");
  EXPECT_EQ(line.text(" DX =").record(), " DX =");
  EXPECT_EQ(line.real(7, 1, 100.0).record(), " DX =  100.0");
  EXPECT_EQ(line.integer(3, 7).record(), " DX =  100.0  7");
}

TEST(column_record, text_stands_as_it_is_with_the_blanks_at_its_ends) {
  EXPECT_EQ(ColumnRecord().text("  a ").text("").text(" b ").record(), "  a  b ");
}

TEST(column_record, blanks_are_as_many_as_asked_for) {
  EXPECT_EQ(ColumnRecord().blanks(3).text("x").blanks(0).text("y").blanks(1).record(), "   xy ");
}

TEST(column_record, numbers_stand_at_the_right_of_their_columns) {
  EXPECT_EQ(ColumnRecord().integer(5, 42).integer(5, -42).record(), "   42  -42");
  EXPECT_EQ(ColumnRecord().real(8, 2, 1.5).real(8, 0, -2.0).record(), "    1.50     -2.");
  EXPECT_EQ(ColumnRecord().integer(3, 123).integer(3, 456).record(), "123456");
}

TEST(column_record, what_does_not_fit_leaves_the_other_columns_in_place) {
  EXPECT_EQ(ColumnRecord().integer(3, 1000).integer(3, 7).record(), "***  7");
  EXPECT_EQ(ColumnRecord().real(5, 1, -1000.0).real(5, 1, 1.0).record(), "*****  1.0");
  EXPECT_EQ(ColumnRecord().integer(11, std::numeric_limits<std::int64_t>::max()).text("|").record(),
            "***********|");
}

TEST(column_record, a_whole_number_beyond_32_bits_is_written_out) {
  EXPECT_EQ(ColumnRecord().integer(20, std::int64_t{3000000000}).record(), "          3000000000");
}

}  // namespace
