#include "output/report_head.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "unit/output/report_case.h"

namespace kelprun {
namespace {

using kelptest::count_up;
using kelptest::list;
using kelptest::put;
using kelptest::report_of;
using Lines = std::vector<std::string>;

/// Two cells: every parameter has values of its own, so that a mix-up shows.
Model described_coast(Model m) {
  const float CONV = m.settings.CONV;
  m.settings.TITLE = "Duck";
  m.settings.D50 = 0.31f;
  m.clock.DT = 1.5f;
  m.clock.NTS = 2920;
  m.grid.DX.fill(100.0f * CONV);
  m.series.NWFIL = 2;
  m.series.WMDEP = list(std::array{12.5f * CONV, 99.0f * CONV});
  for (auto* factor : {&m.waves.HAMP, &m.waves.THETAAMP, &m.waves.THETADEL}) factor->take(2);
  put(m.waves.HAMP, std::array{1.0f, 1.25f, 1.5f});
  put(m.waves.THETAAMP, std::array{0.5f, 0.75f, 0.875f});
  const float degree = 3.141593f / 180.0f;
  put(m.waves.THETADEL, std::array{-5.0f * degree, 0.0f, 12.0f * degree});
  put(m.profile.K1CELL, std::array{0.25f, 0.5f, 0.75f});
  put(m.profile.K2CELL, std::array{0.125f, 0.375f, 0.625f});
  put(m.profile.DCLOSCELL, std::array{6.0f * CONV, 7.0f * CONV, 8.0f * CONV});
  put(m.profile.BERMHTCELL, std::array{1.0f * CONV, 1.5f * CONV, 2.0f * CONV});
  return m;
}

Model coast_in_metres() { return described_coast(kelptest::coast_in_metres(2)); }
Model coast_in_feet() { return described_coast(kelptest::coast_in_feet(2)); }

/// The head behind its banner.
Lines head_of(const Model& m) {
  const Lines all = report_of(m, report_head);
  const auto executable =
      std::find(all.begin(), all.end(), "                          KelpRun_v1p1r8.exe     ");
  EXPECT_GE(all.end() - executable, 5);
  return {std::min(executable + 5, all.end()), all.end()};
}

const std::string FREE_TITLE = "  RUN       Duck" + std::string(60, ' ');

/// What the parameters look like, in files' units, whatever these are.
const Lines PARAMETERS{"",
                       "  Wave Height Amplification Factor (HAMP or HCNGF) =",
                       "       1.00       1.25       1.50",
                       "",
                       "  Wave Angle Amplification Factor (THETAAMP or ZCNGF) =",
                       "       0.50       0.75       0.88",
                       "",
                       "  Wave Angle Incremental Adjustment Term (THETADEL or ZCNGA) =",
                       "      -5.00       0.00      12.00",
                       "",
                       "  Longshore Sediment Transport Coefficient (K1) =",
                       "       0.25       0.50       0.75",
                       "",
                       "  Longshore Sediment Transport Coefficient 2 (K2) =",
                       "       0.12       0.38       0.62",  // ties go to the even digit
                       "",
                       "  Depth of Closure (DCLOS) =",
                       "       6.00       7.00       8.00",
                       "",
                       "  Average Berm Height (ABH) =",
                       "       1.00       1.50       2.00"};

const std::string GRID_LINE =
    " DX =  100.0    DT =    1.50    ISSTART =  1    NX =       2    NTS =   2920";
const std::string WAVE_LINE = " NWAVES =  1    NWFIL =  2.0   D50 =    0.3    WMDEP  =   12.5";

TEST(report_head, begins_with_a_banner_in_plain_characters_of_at_most_eight_lines) {
  const Lines all = report_of(coast_in_metres(), report_head);
  const auto box = std::find(all.begin(), all.end(), "                              +---------+");
  ASSERT_GE(all.end() - box, 9);
  EXPECT_EQ(box[1], "                              | KelpRun |");
  EXPECT_EQ(box[2], box[0]);
  EXPECT_NE(box[3].find("Version 1.1 release 8"), std::string::npos);
  EXPECT_EQ(box[4], "                          KelpRun_v1p1r8.exe     ");
  for (int k = 5; k <= 8; ++k) EXPECT_EQ(box[k], "");
  EXPECT_EQ(all[0], "");
  const auto figure =
      std::find_if(all.begin(), box, [](const std::string& s) { return !s.empty(); });
  EXPECT_GE(box - figure, 1);
  EXPECT_LE(box - figure, 8);
  for (auto line = figure; line != box; ++line)
    for (const char c : *line) EXPECT_TRUE(c >= ' ' && c <= '~') << *line;
}

TEST(report_head, echoes_a_coast_without_structures_in_metres) {
  Lines expected{FREE_TITLE,
                 "",
                 "",
                 "  METRIC UNITS",
                 "  Wave heights input and reported in meters",
                 "  Median Grain Size (D50) input and reported in     millimeters",
                 GRID_LINE,
                 WAVE_LINE};
  expected.insert(expected.end(), PARAMETERS.begin(), PARAMETERS.end());
  EXPECT_EQ(head_of(coast_in_metres()), expected);
}

TEST(report_head, shows_lengths_in_feet_as_they_were_given) {
  Lines expected{FREE_TITLE,
                 "",
                 "",
                 "  AMERICAN CUSTOMARY UNITS",
                 "  Wave heights input and reported in meters",
                 "  Median Grain Size (D50) input and reported in     millimeters",
                 GRID_LINE,
                 WAVE_LINE};
  expected.insert(expected.end(), PARAMETERS.begin(), PARAMETERS.end());
  EXPECT_EQ(head_of(coast_in_feet()), expected);
}

TEST(report_head, wave_heights_have_a_unit_of_their_own) {
  Model m = coast_in_metres();
  m.settings.WAVCONV = 0.3048f;
  const Lines head = head_of(m);
  EXPECT_EQ(head[3], "  METRIC UNITS");
  EXPECT_EQ(head[4], "  Wave heights input and reported in feet");
  EXPECT_EQ(head[7], WAVE_LINE) << "the depth of the gauge is a length";
}

TEST(report_head, a_title_of_64_characters_fills_its_field) {
  Model m = coast_in_metres();
  m.settings.TITLE.clear();
  for (int k = 0; k < 8; ++k) m.settings.TITLE += "12345678";
  const std::string line = head_of(m)[0];
  EXPECT_EQ(line, "  RUN       " + m.settings.TITLE);
  EXPECT_EQ(line.size(), 76u);
  m.settings.TITLE = "";
  EXPECT_EQ(head_of(m)[0], "  RUN       " + std::string(64, ' '));
}

TEST(report_head, a_grid_of_many_widths_shows_none) {
  Model m = coast_in_metres();
  m.grid.variable = true;
  EXPECT_EQ(head_of(m)[6],
            " DX = VARIES    DT =    1.50    ISSTART =  1    NX =       2    NTS =   2920");
}

void add_groins(Model& m) {
  const float CONV = m.settings.CONV;
  m.groins.NGRP = 2;
  m.groins.IXGRP = list(std::array{5, 12});
  m.groins.YGT = list(std::array{100.0f * CONV, 150.5f * CONV});
  m.groins.PGR = list(std::array{0.1f, 0.25f});
}

void add_breakwaters(Model& m) {
  const float CONV = m.settings.CONV;
  Breakwaters& b = m.breakwaters;
  b.NDB = 2;
  b.DBI1 = list(std::array{3, 20});
  b.DBI2 = list(std::array{8, 25});
  b.DBY1 = list(std::array{200.0f * CONV, 210.0f * CONV});
  b.DBY2 = list(std::array{205.0f * CONV, 215.0f * CONV});
  b.DBDEP1 = list(std::array{3.0f * CONV, 4.0f * CONV});
  b.DBDEP2 = list(std::array{5.0f * CONV, 6.0f * CONV});
  b.TRANDB = list(std::array{0.3f, 0.99f});
}

const Lines GROINS{
    "  GROIN X-COORDINATES",  "      5     12",         "  DISTANCE TO GROIN TIPS FROM X-AXIS",
    "     100.00     150.50", "  GROIN PERMEABILITIES", "       0.10       0.25"};
const Lines BREAKWATERS{"  X-COORDINATES OF DETACHED BREAKWATER TIPS",
                        "      3      8     20     25",
                        "  DISTANCE TO BREAKWATER TIPS FROM X-AXIS",
                        "     200.00     205.00     210.00     215.00",
                        "  DETACHED BREAKWATER TRANSMISSION COEFFICIENTS",
                        "       0.30       0.99"};

/// The lines between the units and the grid.
Lines structures_of(const Model& m) {
  const Lines head = head_of(m);
  const auto grid = std::find(head.begin(), head.end(), GRID_LINE);
  EXPECT_NE(grid, head.end());
  return {head.begin() + 6, grid};
}

TEST(report_head, structures_stand_between_the_units_and_the_grid) {
  for (Model m : {coast_in_metres(), coast_in_feet()}) {
    EXPECT_EQ(structures_of(m), Lines{});
    add_groins(m);
    EXPECT_EQ(structures_of(m), GROINS);
    add_breakwaters(m);
    Lines both = GROINS;
    both.insert(both.end(), BREAKWATERS.begin(), BREAKWATERS.end());
    EXPECT_EQ(structures_of(m), both);
    m.groins = {};
    EXPECT_EQ(structures_of(m), BREAKWATERS);
  }
}

TEST(report_head, the_open_ends_of_the_coast_are_no_breakwater_tips) {
  Model m = coast_in_metres();
  add_breakwaters(m);
  for (const std::int32_t cell : {LEFT_END_TIP, 3, 8, 20, 25, RIGHT_END_TIP})
    m.tips.breakwater_tips.append({cell, 77.0f, 3.0f});
  EXPECT_EQ(structures_of(m), BREAKWATERS);
}

/// Sizes of the lines that `count` values of `width` columns take.
std::vector<std::size_t> line_sizes(std::size_t count, std::size_t width) {
  std::vector<std::size_t> sizes(count / 10, 10 * width);
  if (count % 10 > 0) sizes.push_back(count % 10 * width);
  return sizes;
}

/// Sizes of the lines behind a title, up to the next line that is empty or begins with a letter.
std::vector<std::size_t> sizes_behind(const Lines& head, const std::string& title) {
  auto line = std::find(head.begin(), head.end(), title);
  EXPECT_NE(line, head.end()) << title;
  std::vector<std::size_t> sizes;
  for (++line; line < head.end() && line->find_first_not_of(" 0123456789.") == std::string::npos &&
               !line->empty();
       ++line)
    sizes.push_back(line->size());
  return sizes;
}

TEST(report_head, structures_fill_lines_of_ten) {
  for (const std::int32_t count : {1, 10, 11, 21}) {
    Model m = coast_in_metres();
    const auto places = static_cast<std::size_t>(count);
    m.groins.NGRP = count;
    m.groins.IXGRP.allocate(places, 7);
    for (auto* values : {&m.groins.YGT, &m.groins.PGR}) values->allocate(places, 0.5f);
    m.breakwaters.NDB = count;
    for (auto* cells : {&m.breakwaters.DBI1, &m.breakwaters.DBI2}) cells->allocate(places, 7);
    for (auto* values : {&m.breakwaters.DBY1, &m.breakwaters.DBY2, &m.breakwaters.TRANDB})
      values->allocate(places, 0.5f);
    const Lines head = head_of(m);
    EXPECT_EQ(sizes_behind(head, "  GROIN X-COORDINATES"), line_sizes(places, 7));
    EXPECT_EQ(sizes_behind(head, "  DISTANCE TO GROIN TIPS FROM X-AXIS"), line_sizes(places, 11));
    EXPECT_EQ(sizes_behind(head, "  GROIN PERMEABILITIES"), line_sizes(places, 11));
    EXPECT_EQ(sizes_behind(head, "  X-COORDINATES OF DETACHED BREAKWATER TIPS"),
              line_sizes(2 * places, 7));
    EXPECT_EQ(sizes_behind(head, "  DISTANCE TO BREAKWATER TIPS FROM X-AXIS"),
              line_sizes(2 * places, 11));
    EXPECT_EQ(sizes_behind(head, "  DETACHED BREAKWATER TRANSMISSION COEFFICIENTS"),
              line_sizes(places, 11));
  }
}

TEST(report_head, parameters_have_a_value_a_wall_and_ten_a_line) {
  for (const std::int32_t walls : {10, 11, 21}) {
    Model m = kelptest::coast_in_metres(walls - 1);
    m.series.WMDEP = list(std::array{20.0f});
    for (auto* factor : {&m.waves.HAMP, &m.waves.THETAAMP, &m.waves.THETADEL})
      factor->take(walls - 1);
    count_up(m.profile.K1CELL, 1.0f);
    const Lines head = head_of(m);
    for (const char* title :
         {"  Wave Height Amplification Factor (HAMP or HCNGF) =",
          "  Longshore Sediment Transport Coefficient (K1) =", "  Average Berm Height (ABH) ="})
      EXPECT_EQ(sizes_behind(head, title), line_sizes(static_cast<std::size_t>(walls), 11))
          << title;
    const auto title =
        std::find(head.begin(), head.end(), "  Longshore Sediment Transport Coefficient (K1) =");
    EXPECT_EQ(title[1],
              "       1.00       2.00       3.00       4.00       5.00       6.00       7.00"
              "       8.00       9.00      10.00");
    EXPECT_EQ(title[2].substr(0, 11), walls > 10 ? "      11.00" : "");
  }
}

TEST(initial_shoreline, counts_from_the_baseline_in_the_files_unit) {
  Model m = kelptest::coast_in_feet(2);
  put(m.shore.YREG, std::array{30.48f, 60.96f});
  put(m.shore.Y, std::array{30.48, -15.24});
  EXPECT_EQ(report_of(m, report_initial_shoreline),
            (Lines{"  INITIAL SHORELINE POSITION (FT)", "     200.00     150.00"}));
}

TEST(initial_shoreline, is_formed_in_double_precision) {
  // Single precision has steps of 0.03 m at 300 km.
  Model m = kelptest::coast_in_metres(1);
  m.shore.Y(1) = 299000.13;
  m.shore.YREG(1) = 1000.0f;
  EXPECT_EQ(report_of(m, report_initial_shoreline),
            (Lines{"  INITIAL SHORELINE POSITION (M)", "  300000.13"}));
}

TEST(initial_shoreline, has_ten_cells_a_line) {
  for (const std::int32_t cells : {1, 10, 11, 21}) {
    const Lines lines = report_of(kelptest::coast_in_metres(cells), report_initial_shoreline);
    EXPECT_EQ(sizes_behind(lines, "  INITIAL SHORELINE POSITION (M)"),
              line_sizes(static_cast<std::size_t>(cells), 11));
    EXPECT_EQ(lines.size(), 1u + static_cast<std::size_t>((cells + 9) / 10));
  }
}

}  // namespace
}  // namespace kelprun
