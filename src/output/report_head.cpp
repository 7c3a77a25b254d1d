#include "output/report_head.h"

#include <array>
#include <functional>
#include <string>
#include <string_view>

#include "output/report_layout.h"
#include "output/result_blocks.h"
#include "text/column_record.h"

namespace kelprun {

namespace {

constexpr std::array<std::string_view, 6> FIGURE = {
    R"( _  __    _       ____              )", R"(| |/ /___| |_ __ |  _ \ _   _ _ __  )",
    R"(| ' // _ \ | '_ \| |_) | | | | '_ \ )", R"(| . \  __/ | |_) |  _ <| |_| | | | |)",
    R"(|_|\_\___|_| .__/|_| \_\\__,_|_| |_|)", R"(           |_|                      )"};

void write_blank_lines(Report& report, int count) {
  for (int line = 1; line <= count; ++line) report.record("");
}

void write_banner(Report& report) {
  write_blank_lines(report, 2);
  for (const std::string_view line : FIGURE) report.line("                ", line);
  report.line("                             +---------+");
  report.line("                             | KelpRun |");
  report.line("                             +---------+");
  report.line("                   Version 1.1 release 8, JAN 2020");
  report.line("                         KelpRun_v1p1r8.exe     ");
  write_blank_lines(report, 4);
}

void write_run_title(const Settings& s, Report& report) {
  std::string title = s.TITLE;
  title.resize(64, ' ');
  report.record("  RUN       " + title);
  write_blank_lines(report, 2);
}

void write_units(const Settings& s, Report& report) {
  report.line(in_feet(s) ? " AMERICAN CUSTOMARY UNITS" : " METRIC UNITS");
  report.line(" Wave heights input and reported in ", s.WAVCONV == 1.0f ? "meters" : "feet");
  report.line(" Median Grain Size (D50) input and reported in     millimeters");
}

void write_groins(const Groins& g, float CONV, Report& report) {
  if (g.NGRP < 1) return;
  report.line(" GROIN X-COORDINATES");
  report.numbers(g.IXGRP);
  report.line(" DISTANCE TO GROIN TIPS FROM X-AXIS");
  report.array(g.NGRP, POSITION_WIDTH, [&](std::int32_t k) { return g.YGT(k) / CONV; });
  report.line(" GROIN PERMEABILITIES");
  report.array(g.PGR, g.NGRP, POSITION_WIDTH);
}

void write_breakwaters(const Breakwaters& b, float CONV, Report& report) {
  if (b.NDB < 1) return;
  Array1<std::int32_t> cells;
  Array1<float> distances;
  for (std::int32_t k = 1; k <= b.NDB; ++k) {
    cells.append(b.DBI1(k));
    cells.append(b.DBI2(k));
    distances.append(b.DBY1(k) / CONV);
    distances.append(b.DBY2(k) / CONV);
  }
  report.line(" X-COORDINATES OF DETACHED BREAKWATER TIPS");
  report.numbers(cells);
  report.line(" DISTANCE TO BREAKWATER TIPS FROM X-AXIS");
  report.array(distances, distances.size(), POSITION_WIDTH);
  report.line(" DETACHED BREAKWATER TRANSMISSION COEFFICIENTS");
  report.array(b.TRANDB, b.NDB, POSITION_WIDTH);
}

void write_grid(const Grid& grid, const Clock& c, float CONV, Report& report) {
  ColumnRecord line;
  if (grid.variable) {
    line.text(" DX = VARIES");
  } else {
    line.text(" DX =").real(7, 1, static_cast<double>(grid.DX(1) / CONV));
  }
  line.text("    DT =").real(8, 2, static_cast<double>(c.DT));
  line.text("    ISSTART =").integer(3, ISSTART);
  line.text("    NX =").integer(8, grid.NX);
  line.text("    NTS =").integer(7, c.NTS);
  report.record(line.record());
}

void write_waves(const Settings& s, const Series& series, Report& report) {
  constexpr int NWAVES = 1;
  ColumnRecord line;
  line.text(" NWAVES =").integer(3, NWAVES);
  line.text("    NWFIL =").real(5, 1, series.NWFIL);
  line.text("   D50 =").real(7, 1, static_cast<double>(s.D50));
  line.text("    WMDEP  = ").real(6, 1, static_cast<double>(series.WMDEP(1) / s.CONV));
  report.record(line.record());
}

void write_parameters(const Model& m, Report& report) {
  const float CONV = m.settings.CONV;
  const auto parameter = [&](std::string_view title,
                             const std::function<double(std::int32_t)>& value) {
    report.record("");
    report.line(title);
    report.array(m.grid.NX + 1, POSITION_WIDTH, value);
  };
  parameter(" Wave Height Amplification Factor (HAMP or HCNGF) =",
            [&](std::int32_t i) { return m.waves.HAMP(i); });
  parameter(" Wave Angle Amplification Factor (THETAAMP or ZCNGF) =",
            [&](std::int32_t i) { return m.waves.THETAAMP(i); });
  parameter(" Wave Angle Incremental Adjustment Term (THETADEL or ZCNGA) =",
            [&](std::int32_t i) { return degrees(m.waves.THETADEL(i)); });
  parameter(" Longshore Sediment Transport Coefficient (K1) =",
            [&](std::int32_t i) { return m.profile.K1CELL(i); });
  parameter(" Longshore Sediment Transport Coefficient 2 (K2) =",
            [&](std::int32_t i) { return m.profile.K2CELL(i); });
  parameter(" Depth of Closure (DCLOS) =",
            [&](std::int32_t i) { return m.profile.DCLOSCELL(i) / CONV; });
  parameter(" Average Berm Height (ABH) =",
            [&](std::int32_t i) { return m.profile.BERMHTCELL(i) / CONV; });
}

}  // namespace

void report_head(const Model& m, Report& report) {
  write_banner(report);
  write_run_title(m.settings, report);
  write_units(m.settings, report);
  write_groins(m.groins, m.settings.CONV, report);
  write_breakwaters(m.breakwaters, m.settings.CONV, report);
  write_grid(m.grid, m.clock, m.settings.CONV, report);
  write_waves(m.settings, m.series, report);
  write_parameters(m, report);
}

void report_initial_shoreline(const Model& m, Report& report) {
  report.line(" INITIAL SHORELINE POSITION ", length_unit(m.settings));
  report_shoreline(m, report);
}

}  // namespace kelprun
