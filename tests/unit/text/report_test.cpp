#include "text/report.h"

#include <gtest/gtest.h>

#include <string>

#include "support/program.h"

namespace {

class report : public testing::Test {
 protected:
  void open() { ASSERT_TRUE(written.open((folder.path() / "run.prt").string())); }

  std::string text() {
    written.flush();
    return folder.read("run.prt");
  }

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
  written.flush();
  written.close();
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(report, a_report_in_no_folder_cannot_be_opened) {
  EXPECT_FALSE(written.open((folder.path() / "absent/run.prt").string()));
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

}  // namespace
