#include "text/report.h"

#include <gtest/gtest.h>

#include <string>

#include "support/program.h"

namespace {

class report : public testing::Test {
 protected:
  void open() { ASSERT_TRUE(written.set_name((folder.path() / "run.prt").string())); }

  std::string text() { return folder.read("run.prt"); }

  kelptest::WorkFolder folder;
  kelprun::Report written;
};

TEST_F(report, opening_leaves_what_the_file_holds) {
  folder.write("run.prt", "the former run\n");
  open();
  written.line("kept for later");
  EXPECT_EQ(text(), "the former run\n");
  written.close();
  EXPECT_EQ(folder.read("run.prt"), "the former run\n");
}

TEST_F(report, beginning_empties_the_file_and_writes_the_lines_kept_so_far) {
  folder.write("run.prt", "the former run\n");
  open();
  written.line("first");
  written.record("second");
  written.record("");
  written.begin();
  EXPECT_EQ(text(), " first\nsecond\n\n");
}

TEST_F(report, lines_behind_the_beginning_follow_the_kept_ones) {
  open();
  written.line("early");
  written.begin();
  written.line("late ", 3);
  EXPECT_EQ(text(), " early\n late 3\n");
}

TEST_F(report, lines_from_before_the_file_had_a_name_are_kept_for_it) {
  written.line("ahead of its name");
  open();
  written.begin();
  EXPECT_EQ(text(), " ahead of its name\n");
}

TEST_F(report, without_a_file_all_lines_are_dropped) {
  written.line("early");
  written.begin();
  written.line("late");
  written.close();
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(report, a_report_in_no_folder_cannot_be_opened) {
  EXPECT_FALSE(written.set_name((folder.path() / "absent/run.prt").string()));
}

TEST_F(report, an_array_stands_ten_to_a_line) {
  open();
  written.begin();
  kelprun::Array1<float> values(13);
  for (int i = 1; i <= 13; ++i) values(i) = static_cast<float>(i) + 0.25f;
  written.array(values, 12, 7);
  EXPECT_EQ(text(),
            "   1.25   2.25   3.25   4.25   5.25   6.25   7.25   8.25   9.25  10.25\n"
            "  11.25  12.25\n");
}

TEST_F(report, an_array_of_ten_fills_one_line_and_an_empty_one_none) {
  open();
  written.begin();
  const kelprun::Array1<float> values(10, 0.5f);
  written.array(values, 10, 5);
  written.array(values, 0, 5);
  EXPECT_EQ(text(), " 0.50 0.50 0.50 0.50 0.50 0.50 0.50 0.50 0.50 0.50\n");
}

TEST_F(report, an_array_may_be_formed_value_by_value) {
  open();
  written.begin();
  written.array(11, 11, [](std::int32_t i) { return 1.5 * i; });
  EXPECT_EQ(text(),
            "       1.50       3.00       4.50       6.00       7.50       9.00      10.50"
            "      12.00      13.50      15.00\n"
            "      16.50\n");
}

TEST_F(report, a_double_keeps_its_digits_and_what_does_not_fit_is_asterisks) {
  open();
  written.begin();
  const double values[] = {300000.13, 99999999.994, 99999999.996, -9999999.99, -10000000.0};
  written.array(5, 11, [&](std::int32_t i) { return values[i - 1]; });
  EXPECT_EQ(text(), "  300000.1399999999.99***********-9999999.99***********\n");
}

TEST_F(report, no_value_asked_for_is_no_line) {
  open();
  written.begin();
  int asked = 0;
  written.array(0, 11, [&](std::int32_t) { return static_cast<double>(++asked); });
  written.numbers({});
  EXPECT_EQ(text(), "");
  EXPECT_EQ(asked, 0);
}

TEST_F(report, every_value_is_asked_for_once_and_in_order) {
  open();
  written.begin();
  std::vector<std::int32_t> asked;
  written.array(21, 7, [&](std::int32_t i) {
    asked.push_back(i);
    return 0.0;
  });
  ASSERT_EQ(asked.size(), 21u);
  for (std::int32_t i = 1; i <= 21; ++i) EXPECT_EQ(asked[static_cast<std::size_t>(i - 1)], i);
  EXPECT_EQ(kelptest::lines(text()).size(), 3u);
}

TEST_F(report, cell_numbers_take_seven_columns_ten_to_a_line) {
  open();
  written.begin();
  kelprun::Array1<std::int32_t> cells;
  for (std::int32_t i = 1; i <= 11; ++i) cells.append(i == 3 ? 4001 : i == 5 ? -1 : i);
  written.numbers(cells);
  EXPECT_EQ(text(),
            "      1      2   4001      4     -1      6      7      8      9     10\n"
            "     11\n");
}

TEST_F(report, a_cell_number_alone_and_one_too_long_for_its_columns) {
  open();
  written.begin();
  kelprun::Array1<std::int32_t> cells;
  cells.append(9999999);
  written.numbers(cells);
  cells.append(10000000);
  written.numbers(cells);
  EXPECT_EQ(text(), "9999999\n9999999*******\n");
}

}  // namespace
