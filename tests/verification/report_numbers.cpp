#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "verification/report_fixture.h"

// Every number of a report against the tables and records that it comes from, on a coast with all
// structures over several years: in metres with computed transmission, in feet, and with so much
// sand that the year blocks show thousands.

namespace {

using namespace kelptest;

constexpr int NX = reported_cells;

class report_numbers : public ReportTest {};

INSTANTIATE_TEST_SUITE_P(of, report_numbers, testing::ValuesIn(REPORTED), name_of_coast);

TEST_P(report_numbers, of_the_dates_follow_the_calendar) {
  EXPECT_EQ(run.steps() * run.one.DT, 24.0 * days_between(run.one.start, run.one.end));
  for (int n = 1; n <= run.steps(); ++n)
    ASSERT_EQ(run.record(n).CURDATE,
              date_after(run.one.start, static_cast<int>(n * run.one.DT / 24)));
  // Each anniversary is closed at every step of its day.
  const auto steps_a_day = static_cast<std::size_t>(24.0 / run.one.DT);
  EXPECT_EQ(run.year_steps.size(), 2 * steps_a_day + 1);
  EXPECT_GE(run.print_steps.size(), 2u);
  for (const char* table : {"slo", "qtr", "off", "vcc", "vcx"})
    EXPECT_EQ(run.tables.at(table).rows.size(), static_cast<std::size_t>(run.steps() + 1)) << table;
  for (const char* table : {"mqn", "mql", "mqr"})
    EXPECT_EQ(run.tables.at(table).rows.size(), run.print_steps.size() + run.year_steps.size() + 1);
}

// The head, in the length unit of the coast.

TEST_P(report_numbers, of_the_head_are_those_of_the_configuration) {
  const auto length = [&](double metres) { return std::round(10.0 * run.in_unit(metres)) / 10.0; };
  const auto expect = [&](const std::string& title, const std::vector<double>& values) {
    expect_values(run.report.only(title), values, half);
  };
  /// One value up to a cell, another one from there to the last wall.
  const auto two_spans = [](double first, int end, double second) {
    Row row(NX + 1, second);
    std::fill_n(row.begin(), end, first);
    return row;
  };
  expect("  GROIN X-COORDINATES", {6, 10});
  expect("  DISTANCE TO GROIN TIPS FROM X-AXIS", {length(120), length(150)});
  expect("  GROIN PERMEABILITIES", {0.3, 0.15});
  expect("  X-COORDINATES OF DETACHED BREAKWATER TIPS", {13, 16, 26, 28});
  expect("  DISTANCE TO BREAKWATER TIPS FROM X-AXIS",
         {length(220), length(230), length(240), length(240)});
  // Where it is computed, transmission starts from one half.
  expect("  DETACHED BREAKWATER TRANSMISSION COEFFICIENTS",
         run.one.computed ? Row{0.5, 0.5} : Row{0.4, 0.25});
  expect("  Wave Height Amplification Factor", Row(NX + 1, 1.0));
  expect("  Wave Angle Amplification Factor", Row(NX + 1, 1.0));
  expect("  Wave Angle Incremental Adjustment Term", two_spans(1.5, 12, -2.0));
  expect("  Longshore Sediment Transport Coefficient (K1)", Row(NX + 1, run.one.K1));
  expect("  Longshore Sediment Transport Coefficient 2 (K2)", Row(NX + 1, 0.5 * run.one.K1));
  expect("  Depth of Closure (DCLOS)", two_spans(length(7), 14, length(5.5)));
  expect("  Average Berm Height (ABH)", Row(NX + 1, length(1)));
  const std::string grid = run.report.only(" DX =").title;
  EXPECT_EQ(integer_behind(grid, "DT ="), static_cast<int>(run.one.DT));
  EXPECT_EQ(integer_behind(grid, "ISSTART ="), 1);
  EXPECT_EQ(integer_behind(grid, "NX ="), NX);
  EXPECT_EQ(integer_behind(grid, "NTS ="), run.steps());
}

// Shorelines.

TEST_P(report_numbers, of_shorelines_are_those_of_the_table_at_the_same_step) {
  expect_same(run.report.only("  INITIAL SHORELINE POSITION "), run.row("slo", 0));
  const auto prints = all("  SHORELINE POSITION ");
  ASSERT_EQ(prints.size(), run.print_steps.size());
  for (std::size_t k = 0; k < prints.size(); ++k)
    expect_same(prints[k], run.row("slo", run.print_steps[k]));
  const auto years = all(" SHORELINE POSITION ");
  ASSERT_EQ(years.size(), run.year_steps.size());
  for (std::size_t k = 0; k < years.size(); ++k)
    expect_same(years[k], run.row("slo", run.year_steps[k]));
  expect_same(run.report.only("  CALCULATED FINAL SHORELINE POSITION "),
              run.row("slo", run.steps()));
  expect_same(run.report.only("  CALCULATED REPRESENTATIVE OFFSHORE CONTOUR"),
              run.row("off", run.steps()));
}

TEST_P(report_numbers, of_shoreline_changes_are_differences_of_the_table) {
  const auto blocks = all(" SHORELINE CHANGE ");
  ASSERT_EQ(blocks.size(), run.year_steps.size());
  for (std::size_t k = 0; k < blocks.size(); ++k)
    expect_values(blocks[k],
                  row_of(NX,
                         [&](int i) {
                           const auto c = static_cast<std::size_t>(i - 1);
                           return run.row("slo", run.year_steps[k])[c] - run.row("slo", 0)[c];
                         }),
                  3 * half);
}

TEST_P(report_numbers, of_extremes_are_the_extremes_of_all_rows) {
  Row seaward = run.row("slo", 0);
  Row landward = seaward;
  for (int n = 1; n <= run.steps(); ++n)
    for (std::size_t c = 0; c < NX; ++c) {
      seaward[c] = std::max(seaward[c], run.row("slo", n)[c]);
      landward[c] = std::min(landward[c], run.row("slo", n)[c]);
    }
  // Kept in single precision, so that the last decimal may turn.
  expect_values(run.report.only("  CALCULATED SEAWARDMOST SHORELINE"), seaward, 2 * half);
  expect_values(run.report.only("  CALCULATED LANDWARDMOST SHORELINE"), landward, 2 * half);
  EXPECT_GT(sum(seaward) - sum(landward), NX * run.in_unit(1.0)) << "the coast must move";
}

// Volumes.

TEST_P(report_numbers, of_volume_changes_are_those_of_the_tables) {
  std::vector<int> steps = run.print_steps;
  steps.push_back(run.steps());
  const auto cells = all("  CALCULATED VOLUME CHANGE (" + label() + " PER GRID CELL) ");
  const auto lengths = all("  CALCULATED VOLUME CHANGE (" + label() + " PER LINEAR ");
  ASSERT_EQ(cells.size(), steps.size());
  ASSERT_EQ(lengths.size(), steps.size());
  for (std::size_t k = 0; k < steps.size(); ++k) {
    expect_same(cells[k], run.row("vcc", steps[k]));
    // In feet the table and the report take their factors in another order.
    expect_values(lengths[k], run.row("vcx", steps[k]), run.feet() ? 2 * half : 0.0);
  }
}

TEST_P(report_numbers, of_totals_at_print_dates_are_the_sums_of_the_cells) {
  const auto totals = all(" CALCULATED TOTAL VOLUMETRIC CHANGE = ");
  ASSERT_EQ(totals.size(), run.print_steps.size() + 1);
  for (std::size_t k = 0; k < run.print_steps.size(); ++k) {
    const Row& cells = run.row("vcc", run.print_steps[k]);
    double gross = 0.0;
    for (const double V : cells) gross += std::abs(V);
    EXPECT_NEAR(number_behind(totals[k].title, " CALCULATED TOTAL VOLUMETRIC CHANGE = "),
                sum(cells), NX * (half + 1e-7 * gross));
    EXPECT_TRUE(totals[k].title.ends_with(" (" + V() + ")")) << totals[k].title;
  }
}

// The height of the last cell, 6.5 m, stands for that of the cells up to 14, 8 m.
TEST_P(report_numbers, of_the_closing_total_take_the_height_of_the_last_cell_for_all) {
  const Block total = all(" CALCULATED TOTAL VOLUMETRIC CHANGE = ").back();
  double area = 0.0;
  double gross = 0.0;
  double volume = 0.0;
  for (int i = 1; i <= NX; ++i) {
    double d = m.shore.Y(i) - m.shore.YSTART(i);
    if (std::abs(d) < 0.0001) d = 0.0;
    area += static_cast<double>(m.grid.DX(i)) * d;
    gross += static_cast<double>(m.grid.DX(i)) * std::abs(d);
    volume += static_cast<double>(m.grid.DX(i)) * d *
              static_cast<double>(m.profile.DCLOSCELL(i) + m.profile.BERMHTCELL(i));
  }
  const double height =
      static_cast<double>(m.profile.DCLOSCELL(NX)) + static_cast<double>(m.profile.BERMHTCELL(NX));
  const double told = number_behind(total.title, " CALCULATED TOTAL VOLUMETRIC CHANGE = ");
  EXPECT_NEAR(told, height * area / run.U(), NX * 1e-7 * height * gross / run.U());
  EXPECT_GT(std::abs(told - volume / run.U()), 0.01 * std::abs(told))
      << "the two totals must differ";
  EXPECT_TRUE(total.title.ends_with(" (" + V() + ")"));
}

// Waves.

TEST_P(report_numbers, of_year_blocks_show_the_waves_of_their_step) {
  constexpr double degrees = 180.0 / 3.141592653589793;
  const double foot = run.one.wave_feet ? 0.3048 : 1.0;
  const auto ZB = all(" BREAKING WAVE ANGLE TO X-AXIS ");
  const auto ZRF = all(" OFFSHORE WAVE ANGLE TO X-AXIS ");
  const auto HB = all(" BREAKING WAVE HEIGHT ");
  const auto HRF = all(" OFFSHORE WAVE HEIGHT ");
  for (const auto* blocks : {&ZB, &ZRF, &HB, &HRF})
    ASSERT_EQ(blocks->size(), run.year_steps.size());
  for (std::size_t k = 0; k < run.year_steps.size(); ++k) {
    const StepRecord& now = run.record(run.year_steps[k]);
    const WaveRecord& wave = run.wave(run.year_steps[k]);
    expect_values(ZB[k], scaled(now.ZB, degrees), half, 1e-6);
    expect_values(HB[k], scaled(now.HB, 1.0 / foot), half);
    expect_values(HRF[k], Row(NX + 1, wave.H), half, 1e-6);
    expect_values(HRF[k], scaled(now.HRF, 1.0 / foot), half);
    expect_values(ZRF[k], now.ZRFPRTOUT, half);
  }
}

TEST_P(report_numbers, of_the_last_step_show_its_waves) {
  constexpr double degrees = 180.0 / 3.141592653589793;
  const StepRecord& last = run.record(run.steps());
  const WaveRecord& wave = run.wave(run.steps());
  std::vector<double> diffracted = scaled(last.HB, 1.0 / run.one.unit);
  const std::vector<double> angles = scaled(last.ZB, degrees);
  diffracted.insert(diffracted.end(), angles.begin(), angles.end());
  expect_values(run.report.only("  LAST TIME STEP. DIFFRACTED WAVES ALONGSHORE"), diffracted, half,
                1e-6);
  const std::string line = run.report.only("   HZ =").title;
  EXPECT_NEAR(number_behind(line, "   HZ ="), wave.H, 1e-6 * wave.H);
  EXPECT_NEAR(std::stod(line.substr(line.find(" T =") + 4)), wave.T, 1e-6 * wave.T);
  // The angle at the last wall, turned by its THETADEL of -2 degrees.
  EXPECT_NEAR(std::stod(line.substr(line.find("    ZZ =") + 8)), wave.angle - 2.0, 1e-4);
}

// Means of all steps with waves but the last, each column of its own.
TEST_P(report_numbers, of_undiffracted_waves_are_means_of_all_steps_before_the_last) {
  const auto walls = static_cast<std::size_t>(NX + 1);
  constexpr double degrees = 180.0 / 3.141592653589793;
  Row H(walls, 0.0), H52 = H, ZBS = H, ZB = H, QZ = H;
  int steps = 0;
  for (int n = 1; n < run.steps(); ++n) {
    const StepRecord& now = run.record(n);
    if (now.calm) continue;
    ++steps;
    for (std::size_t w = 0; w < walls; ++w) {
      const double height = run.in_unit(now.HBU[w]);
      const double angle = now.ZBU[w] - now.ALPHA[w];
      H[w] += height;
      H52[w] += std::pow(height, 2.5);
      ZBS[w] += angle * degrees;
      ZB[w] += now.ZBU[w] * degrees;
      const auto i = static_cast<std::int32_t>(w + 1);
      QZ[w] += now.CGBU[w] * static_cast<double>(m.profile.K1EFF(i)) * now.HBU[w] * now.HBU[w] *
               std::sin(2.0 * angle);
    }
  }
  const std::vector<double> rows = run.report.only("   X-COORD.").values();
  ASSERT_EQ(rows.size(), 6 * walls);
  for (std::size_t w = 0; w < walls; ++w) {
    const double* row = &rows[6 * w];
    EXPECT_EQ(row[0], static_cast<double>(w + 1));
    EXPECT_NEAR(row[1], H[w] / steps, half + 1e-4) << w + 1;
    EXPECT_NEAR(row[2], H52[w] / steps, half + 1e-4) << w + 1;
    EXPECT_NEAR(row[3], ZBS[w] / steps, 0.05 + 1e-3) << w + 1;
    EXPECT_NEAR(row[4], ZB[w] / steps, 0.05 + 1e-3) << w + 1;
    EXPECT_NEAR(row[5], QZ[w] / steps, 0.00005 + 1e-5) << w + 1;
  }
}

TEST_P(report_numbers, of_transmission_are_mean_and_extremes_of_all_steps_with_waves) {
  if (!run.one.computed) {
    EXPECT_TRUE(run.report.all("  DETACHED BREAKWATER KT STATISTICS: ").empty());
    return;
  }
  Row total(2, 0.0), most(2, 0.0), least(2, 2.0);
  int steps = 0;
  for (const StepRecord& now : run.records) {
    if (now.calm) continue;
    ++steps;
    ASSERT_EQ(now.KT.size(), 2u);
    for (std::size_t k = 0; k < 2; ++k) {
      total[k] += now.KT[k];
      most[k] = std::max(most[k], now.KT[k]);
      least[k] = std::min(least[k], now.KT[k]);
    }
  }
  expect_values(run.report.only("  AVG KT VALUE(S)  = "), scaled(total, 1.0 / steps), half, 1e-4);
  expect_values(run.report.only("  MAX KT VALUE(S)  = "), most, half);
  expect_values(run.report.only("  MIN KT VALUE(S)  = "), least, half);
  for (std::size_t k = 0; k < 2; ++k) EXPECT_GT(most[k] - least[k], 0.05) << "KT must change";
}

}  // namespace
