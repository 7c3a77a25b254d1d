#include "input/shoreline_files.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/program.h"
#include "unit/input/reading.h"

namespace {

using kelptest::Said;
using Reals = std::vector<double>;

constexpr const char* header = "1\n2 3\n/\nunits, whatever\n";

class shoreline_files : public testing::Test {
 protected:
  std::string path(const std::string& name) const { return (folder.path() / name).string(); }

  /// Reads a shoreline and, with IREG 1 or 3, a contour for NX cells.
  Said read(std::int32_t NX, const std::string& shoreline, const std::string& contour = "") {
    grid.NX = NX;
    for (kelprun::PerCell<float>* line : {&shore.YREG, &shore.YCON}) line->take(NX);
    shore.Y.take(NX);
    folder.write("shore.dat", shoreline);
    EXPECT_TRUE(files.initial_shoreline.open(path("shore.dat")));
    if (!contour.empty()) {
      folder.write("contour.dat", contour);
      EXPECT_TRUE(files.regional_contour.open(path("contour.dat")));
    }
    return kelptest::listen(
        [&] { kelprun::read_shorelines(settings, grid, files, shore, report); });
  }

  Said read_widths(std::int32_t NX, const std::string& widths) {
    grid.NX = NX;
    grid.DX.take(NX);
    grid.variable = true;
    folder.write("widths.dat", widths);
    settings.DXIN = path("widths.dat");
    return kelptest::listen([&] { kelprun::read_cell_widths(settings, grid, report); });
  }

  template <class Line>
  Reals first(const Line& line, std::int32_t NX) const {
    Reals values;
    for (std::int32_t i = 1; i <= NX; ++i) values.push_back(static_cast<double>(line(i)));
    return values;
  }

  void open_report() {
    ASSERT_TRUE(report.set_name(path("run.prt")));
    report.begin();
  }

  std::string report_text() {
    report.close();
    return folder.read("run.prt");
  }

  kelptest::WorkFolder folder;
  kelprun::Settings settings = [] {
    kelprun::Settings metres;
    metres.CONV = 1.0f;
    return metres;
  }();
  kelprun::Grid grid;
  kelprun::Shore shore;
  kelprun::InputFiles files;
  kelprun::Report report;
};

std::string head() { return header; }

TEST_F(shoreline_files, four_lines_are_skipped_whatever_they_hold) {
  read(3, head() + "1 2 3\n");
  EXPECT_EQ(first(shore.Y, 3), (Reals{1, 2, 3}));
}

TEST_F(shoreline_files, up_to_ten_cells_are_one_group) {
  for (std::int32_t NX = 1; NX <= 10; ++NX) {
    read(NX, head() + "1 2 3 4 5 6 7 8 9 10 11\n");
    for (std::int32_t i = 1; i <= NX; ++i) EXPECT_EQ(shore.Y(i), i);
  }
}

TEST_F(shoreline_files, eleven_cells_are_a_group_of_ten_and_one_of_one) {
  read(11, head() + "1 2 3 4 5 6 7 8 9 10 99\n11 98\n");
  EXPECT_EQ(first(shore.Y, 11), (Reals{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
}

TEST_F(shoreline_files, a_group_goes_on_over_lines_and_its_last_line_loses_the_surplus) {
  read(12, head() + "1 2 3\n4 5 6 7\n\n8 9 10 99 98\n11 12\n");
  EXPECT_EQ(first(shore.Y, 12), (Reals{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
}

TEST_F(shoreline_files, values_take_repeats_commas_and_d_exponents) {
  read(12, head() + "3*1.5, 2d1,, 5*7\r\n\t-4.\t.5\r\n");
  EXPECT_EQ(first(shore.Y, 12), (Reals{1.5, 1.5, 1.5, 20, 0, 7, 7, 7, 7, 7, -4, 0.5}));
}

TEST_F(shoreline_files, a_slash_leaves_the_rest_of_its_group_at_zero) {
  read(12, head() + "1 2 / 3\n11 12\n");
  EXPECT_EQ(first(shore.Y, 12), (Reals{1, 2, 0, 0, 0, 0, 0, 0, 0, 0, 11, 12}));
}

TEST_F(shoreline_files, too_many_values_are_not_noticed) {
  const Said said = read(2, head() + "1 2\n3 4\n5 6\n");
  EXPECT_FALSE(said.status.has_value());
  EXPECT_EQ(first(shore.Y, 2), (Reals{1, 2}));
}

TEST_F(shoreline_files, a_position_keeps_double_precision) {
  read(1, head() + "0.1\n");
  EXPECT_EQ(shore.Y(1), 0.1);
}

TEST_F(shoreline_files, the_contour_is_read_in_step_with_the_shoreline) {
  settings.IREG = 1;
  read(11, head() + "1 2 3 4 5 6 7 8 9 10\n11\n", head() + "10*20 5\n30\n");
  EXPECT_EQ(shore.Y(11), 11.0);
  EXPECT_EQ(shore.YREG(1), 20.0f);
  EXPECT_EQ(shore.YREG(11), 30.0f);
  EXPECT_EQ(shore.YCON(11), 0.0f);
}

TEST_F(shoreline_files, without_the_modes_that_want_one_a_contour_stays_zero) {
  for (const std::int32_t mode : {0, 2}) {
    settings.IREG = mode;
    read(2, head() + "1 2\n", head() + "5 6\n");
    EXPECT_EQ(first(shore.YREG, 2), (Reals{0, 0}));
    EXPECT_EQ(files.regional_contour.line_number(), 0) << "not touched";
  }
}

TEST_F(shoreline_files, mode_3_makes_the_contour_the_offshore_one) {
  settings.IREG = 3;
  read(3, head() + "1 2 3\n", head() + "5 6 7\n");
  EXPECT_EQ(first(shore.YCON, 3), (Reals{5, 6, 7}));
  EXPECT_EQ(first(shore.YREG, 3), (Reals{0, 0, 0}));
}

TEST_F(shoreline_files, feet_become_metres_by_the_single_precision_factor) {
  settings.CONV = 0.3048f;
  settings.IREG = 1;
  read(2, head() + "100 0.1\n", head() + "200 300\n");
  EXPECT_EQ(shore.Y(1), 100.0 * static_cast<double>(0.3048f));
  EXPECT_EQ(shore.Y(2), 0.1 * static_cast<double>(0.3048f));
  EXPECT_EQ(shore.YREG(1), 200.0f * 0.3048f);
  EXPECT_EQ(shore.YREG(2), 300.0f * 0.3048f);
}

TEST_F(shoreline_files, the_offshore_contour_has_left_before_feet_become_metres) {
  settings.CONV = 0.3048f;
  settings.IREG = 3;
  read(2, head() + "100 100\n", head() + "200 300\n");
  EXPECT_EQ(first(shore.YCON, 2), (Reals{200, 300}));
}

TEST_F(shoreline_files, a_short_shoreline_ends_the_run_in_its_own_words) {
  for (const std::string& text : {head(), head() + "1 2\n", std::string(), std::string("1\n2\n")}) {
    open_report();
    const Said said = read(3, text);
    EXPECT_EQ(said.status, 1);
    EXPECT_EQ(said.out,
              "  ERROR FOUND IN \"SHOIN\".\n  FILE \"SHORL\" CONTAINS TOO FEW VALUES\n"
              "  PLEASE CHANGE IN DATA FILE(S)\n\n" +
                  kelptest::fatal_record("INITIAL SHORELINE FILE CONTAINS TOO FEW VALUES"));
    EXPECT_EQ(report_text(),
              "  ERROR FOUND IN \"SHOIN\".\n  FILE \"SHORL\" CONTAINS TOO FEW VALUES\n"
              "  PLEASE CHANGE IN DATA FILE(S)\n");
  }
}

TEST_F(shoreline_files, a_short_contour_ends_the_run_in_its_own_words) {
  settings.IREG = 1;
  const Said said = read(3, head() + "1 2 3\n", head() + "1 2\n");
  EXPECT_NE(said.out.find("  FILE \"SHORM\" CONTAINS TOO FEW VALUES\n"), std::string::npos);
  EXPECT_NE(said.out.find(kelptest::fatal_record("REGIONAL CONTOUR FILE CONTAINS TOO FEW VALUES")),
            std::string::npos);
}

TEST_F(shoreline_files, short_widths_end_the_run_in_their_own_words) {
  const Said said = read_widths(3, head() + "100 200\n");
  EXPECT_EQ(said.out,
            "  ERROR FOUND IN \"DXIN\".\n  FILE \"DXDAT\" CONTAINS TOO FEW VALUES\n"
            "  PLEASE CHANGE IN DATA FILE\n\n" +
                kelptest::fatal_record("VARIABLE DX FILE CONTAINS TOO FEW VALUES"));
}

TEST_F(shoreline_files, a_word_among_the_values_ends_the_run_with_file_record_and_line) {
  const Said said = read(12, head() + "1 2 3 4 5 6 7 8 9 10\n11 twelve\n");
  EXPECT_EQ(said.status, 1);
  EXPECT_EQ(said.err,
            "kelprun: " + path("shore.dat") + ": record 2 (line 6): 'twelve' is no number\n");
}

TEST_F(shoreline_files, a_wanted_contour_without_a_file_ends_the_run) {
  settings.IREG = 3;
  const Said said = read(2, head() + "1 2\n");
  EXPECT_EQ(said.status, 1);
  EXPECT_NE(said.err.find("REGFILE"), std::string::npos) << said.err;
}

TEST_F(shoreline_files, widths_of_a_variable_grid_come_from_their_file) {
  read_widths(11, head() + "10 20 30 40 50 60 70 80 90 100 999\n110\n");
  EXPECT_EQ(grid.DX(1), 10.0f);
  EXPECT_EQ(grid.DX(10), 100.0f);
  EXPECT_EQ(grid.DX(11), 110.0f);
  EXPECT_EQ(grid.DX(12), 110.0f) << "the last width serves the wall beyond";
}

TEST_F(shoreline_files, widths_in_feet_become_metres) {
  settings.CONV = 0.3048f;
  read_widths(2, head() + "100 200\n");
  EXPECT_EQ(grid.DX(1), 100.0f * 0.3048f);
  EXPECT_EQ(grid.DX(2), 200.0f * 0.3048f);
  EXPECT_EQ(grid.DX(3), 200.0f * 0.3048f);
}

TEST_F(shoreline_files, a_width_that_is_not_positive_is_refused_with_its_cell) {
  for (const char* widths : {"100 0 100\n", "100 -5 100\n"}) {
    const Said said = read_widths(3, head() + widths);
    EXPECT_EQ(said.status, 1);
    EXPECT_NE(said.out.find("DX of cell 2"), std::string::npos) << said.out;
  }
}

TEST_F(shoreline_files, a_variable_grid_without_a_file_of_widths_ends_the_run) {
  grid.NX = 2;
  grid.DX.take(2);
  grid.variable = true;
  for (const std::string& name : {std::string(), path("absent.dat")}) {
    settings.DXIN = name;
    const Said said = kelptest::listen([&] { kelprun::read_cell_widths(settings, grid, report); });
    EXPECT_EQ(said.status, 1);
    EXPECT_EQ(said.err.find("kelprun: "), 0u);
  }
}

TEST_F(shoreline_files, a_coordinate_is_that_of_the_right_wall_of_its_cell) {
  grid.X0 = 1000.0f;
  read_widths(3, head() + "10 20 40\n");
  EXPECT_EQ(grid.XCELL(1), 1010.0f);
  EXPECT_EQ(grid.XCELL(2), 1030.0f);
  EXPECT_EQ(grid.XCELL(3), 1070.0f);
  EXPECT_EQ(grid.XCELL(4), 1110.0f) << "one last width further on";
}

TEST_F(shoreline_files, a_uniform_grid_needs_no_file) {
  grid.NX = 2;
  grid.DX.take(2);
  grid.DX(1) = grid.DX(2) = 50.0f;
  const Said said = kelptest::listen([&] { kelprun::read_cell_widths(settings, grid, report); });
  EXPECT_FALSE(said.status.has_value());
  EXPECT_EQ(grid.XCELL(2), 100.0f);
  EXPECT_EQ(grid.XCELL(3), 150.0f);
}

}  // namespace
