#include "run/bypass_checks.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "unit/coast/event_case.h"
#include "unit/run/in_process.h"
#include "unit/run/small_model.h"

namespace kelprun {
namespace {

using kelptest::Stretch;
using kelptest::Window;
using Lines = std::vector<std::string>;

constexpr Stretch ANYWHERE{1, 1};

/// Six cells of 100 m; a run of January 1997, of 744 hourly steps.
Model january() {
  Model m = kelptest::small_model(6);
  m.clock.SIMDATS = 19970101;
  m.clock.SIMDATE = 19970201;
  m.clock.NTS = 744;
  return m;
}

/// The same start and length, the length told as a number of steps.
Model counted() {
  Model m = january();
  m.clock.SIMDATE = 744;
  return m;
}

void add(Model& m, Window w, Stretch cells = ANYWHERE, double QBP = 1.0) {
  kelptest::add_bypass(m, w, cells, QBP);
}

struct Prepared {
  Lines report;
  kelptest::Said said;
};

Prepared prepare(Model& m) {
  kelptest::ReadableReport readable;
  Prepared p;
  p.said = kelptest::listen(
      [&] { prepare_bypassing(m.settings, m.clock, m.grid, m.events, readable.report); });
  p.report = readable.lines();
  return p;
}

const Lines STARTS_BEFORE{"  WARNING. BYPASS OPERATION STARTS BEFORE THE",
                          "  SIMULATION HAS STARTED.", ""};
const Lines STARTS_AFTER{"  WARNING. BYPASS OPERATION STARTS AFTER THE", "  SIMULATION HAS ENDED.",
                         ""};
const Lines ENDS_BEFORE{"  WARNING. BYPASS OPERATION ENDS BEFORE THE", "  SIMULATION HAS STARTED.",
                        ""};
const Lines ENDS_AFTER{"  WARNING. BYPASS OPERATION ENDS AFTER THE", "  SIMULATION HAS ENDED.", ""};

Lines all_of(std::initializer_list<Lines> parts) {
  Lines lines;
  for (const Lines& part : parts) lines.insert(lines.end(), part.begin(), part.end());
  return lines;
}

/// The report of one operation at these times. A warning neither ends the run nor says a word on
/// the console.
Lines warnings(Model m, Window w) {
  add(m, w);
  const Prepared p = prepare(m);
  EXPECT_FALSE(p.said.status.has_value());
  EXPECT_EQ(p.said.out, "");
  EXPECT_EQ(p.said.err, "");
  EXPECT_EQ(m.events.QBP(1), 0.01) << "1 m3/h over 100 m";
  return p.report;
}

// Warnings.

TEST(bypass_dates, within_the_run_are_not_warned_of) {
  EXPECT_EQ(warnings(january(), {19970110, 19970120}), Lines{});
}

TEST(bypass_dates, equal_to_those_of_the_run_are_not_warned_of) {
  EXPECT_EQ(warnings(january(), {19970101, 19970201}), Lines{});
  EXPECT_EQ(warnings(january(), {19970101, 19970101}), Lines{});
  EXPECT_EQ(warnings(january(), {19970201, 19970201}), Lines{});
}

TEST(bypass_dates, one_day_outside_the_run_are_warned_of) {
  EXPECT_EQ(warnings(january(), {19961231, 19970120}), STARTS_BEFORE);
  EXPECT_EQ(warnings(january(), {19970110, 19970202}), ENDS_AFTER);
  EXPECT_EQ(warnings(january(), {19961231, 19970202}), all_of({STARTS_BEFORE, ENDS_AFTER}));
  EXPECT_EQ(warnings(january(), {19970202, 19970203}), all_of({STARTS_AFTER, ENDS_AFTER}));
  EXPECT_EQ(warnings(january(), {19961230, 19961231}), all_of({STARTS_BEFORE, ENDS_BEFORE}));
}

TEST(bypass_dates, that_end_before_they_start_get_the_warnings_of_each) {
  EXPECT_EQ(warnings(january(), {19970202, 19961231}), all_of({STARTS_AFTER, ENDS_BEFORE}));
}

TEST(bypass_dates, have_no_end_to_be_compared_with_in_a_run_of_a_number_of_steps) {
  EXPECT_EQ(warnings(counted(), {19970101, 20970101}), Lines{});
  EXPECT_EQ(warnings(counted(), {20970101, 20980101}), Lines{});
  EXPECT_EQ(warnings(counted(), {19961231, 20980101}), STARTS_BEFORE);
  EXPECT_EQ(warnings(counted(), {19961230, 19961231}), all_of({STARTS_BEFORE, ENDS_BEFORE}));
}

TEST(bypass_steps, within_the_run_are_not_warned_of) {
  EXPECT_EQ(warnings(january(), {1, 744}), Lines{});
  EXPECT_EQ(warnings(january(), {1, 1}), Lines{});
  EXPECT_EQ(warnings(january(), {744, 744}), Lines{});
}

TEST(bypass_steps, one_step_outside_the_run_are_warned_of) {
  for (const Model& m : {january(), counted()}) {
    EXPECT_EQ(warnings(m, {0, 10}), STARTS_BEFORE);
    EXPECT_EQ(warnings(m, {10, 745}), ENDS_AFTER);
    EXPECT_EQ(warnings(m, {0, 745}), all_of({STARTS_BEFORE, ENDS_AFTER}));
    EXPECT_EQ(warnings(m, {745, 746}), all_of({STARTS_AFTER, ENDS_AFTER}));
    EXPECT_EQ(warnings(m, {-5, 0}), all_of({STARTS_BEFORE, ENDS_BEFORE}));
  }
}

TEST(bypass_steps, reach_up_to_eighteen_million) {
  EXPECT_EQ(warnings(january(), {18000000, 18000000}), all_of({STARTS_AFTER, ENDS_AFTER}));
  EXPECT_EQ(warnings(january(), {18000001, 18000001}), all_of({STARTS_BEFORE, ENDS_BEFORE}))
      << "one more is a date, long before the run";
}

TEST(bypass_operations, the_kind_of_the_first_one_decides_what_all_are_compared_with) {
  Model steps = january();
  add(steps, {5, 7});
  add(steps, {19970110, 19970120});
  EXPECT_EQ(prepare(steps).report, all_of({STARTS_AFTER, ENDS_AFTER}));
  Model dates = january();
  add(dates, {19970110, 19970120});
  add(dates, {5, 7});
  EXPECT_EQ(prepare(dates).report, all_of({STARTS_BEFORE, ENDS_BEFORE}));
}

TEST(bypass_operations, are_warned_of_one_after_the_other) {
  Model m = january();
  add(m, {19970110, 19980101});
  add(m, {19970110, 19970120});
  add(m, {19960110, 19970120});
  EXPECT_EQ(prepare(m).report, all_of({ENDS_AFTER, STARTS_BEFORE}));
}

TEST(bypass_operations, that_are_none_leave_the_report_and_the_lists_alone) {
  Model m = january();
  add(m, {0, 0}, {9, -9}, 5.0);
  m.events.NBP = 0;
  const Prepared p = prepare(m);
  EXPECT_FALSE(p.said.status.has_value());
  EXPECT_EQ(p.report, Lines{});
  EXPECT_EQ(m.events.QBP(1), 5.0);
}

// Refusals.

void expect_refusal(Stretch cells, const Lines& report, const std::string& console) {
  Model m = january();
  add(m, {19970110, 19970120}, cells);
  const Prepared p = prepare(m);
  EXPECT_EQ(p.said.status, 1);
  EXPECT_EQ(p.said.out, kelptest::fatal_record(console));
  EXPECT_EQ(p.said.err, "");
  EXPECT_EQ(p.report, report);
}

const Lines REVERSED{"  BYPASS MATERIAL IS .GT. THE END X-COORDINATE."};
const std::string REVERSED_CONSOLE =
    "ERROR. Bypass start coordinate is greater than end coordinate.";
const Lines OUTSIDE{"  ERROR. BYPASSED MATERIAL IS PLACED OUTSIDE "};
const std::string OUTSIDE_CONSOLE = "ERROR. Bypassed material placed outside calculation grid.";

TEST(bypass_stretch, that_ends_before_it_starts_is_refused_in_one_line) {
  expect_refusal({4, 3}, REVERSED, REVERSED_CONSOLE);
}

TEST(bypass_stretch, beyond_either_end_of_the_grid_is_refused_in_one_line) {
  expect_refusal({0, 3}, OUTSIDE, OUTSIDE_CONSOLE);
  expect_refusal({4, 7}, OUTSIDE, OUTSIDE_CONSOLE);
  expect_refusal({0, 7}, OUTSIDE, OUTSIDE_CONSOLE);
  expect_refusal({-3, 0}, OUTSIDE, OUTSIDE_CONSOLE);
  expect_refusal({7, 9}, OUTSIDE, OUTSIDE_CONSOLE);
}

TEST(bypass_stretch, both_reversed_and_outside_is_called_reversed) {
  expect_refusal({9, 7}, REVERSED, REVERSED_CONSOLE);
  expect_refusal({0, -1}, REVERSED, REVERSED_CONSOLE);
}

TEST(bypass_stretch, may_be_the_whole_grid_or_one_cell_at_its_end) {
  Model m = january();
  for (const Stretch cells : {Stretch{1, 6}, Stretch{1, 1}, Stretch{6, 6}})
    add(m, {19970110, 19970120}, cells);
  EXPECT_FALSE(prepare(m).said.status.has_value());
}

TEST(bypass_stretch, that_is_refused_follows_its_own_warnings_and_stops_those_of_the_next) {
  Model m = january();
  add(m, {19960110, 19970120}, {2, 3});
  add(m, {19970110, 19980101}, {4, 7});
  add(m, {19960110, 19970120}, {2, 3});
  const Prepared p = prepare(m);
  EXPECT_EQ(p.said.status, 1);
  EXPECT_EQ(p.said.out, kelptest::fatal_record(OUTSIDE_CONSOLE));
  EXPECT_EQ(p.report, all_of({STARTS_BEFORE, ENDS_AFTER, OUTSIDE}));
}

// Rates per unit length.

TEST(bypass_rate, is_the_hourly_volume_over_the_length_of_its_stretch) {
  Model m = january();
  kelptest::put(m.grid.DX, std::array{100.0f, 50.0f, 200.0f});
  add(m, {19970110, 19970120}, {1, 3}, 70.0);
  add(m, {19970110, 19970120}, {2, 2}, -10.0);
  add(m, {19970110, 19970120}, {1, 6}, 130.0);
  prepare(m);
  EXPECT_EQ(m.events.QBP(1), 0.2);
  EXPECT_EQ(m.events.QBP(2), -0.2);
  EXPECT_EQ(m.events.QBP(3), 0.2);
}

TEST(bypass_rate, of_cubic_yards_takes_the_single_precision_cube_of_the_yard_widened) {
  Model m = january();
  const float cube = 0.9144f * 0.9144f * 0.9144f;
  m.settings.CONVYD3 = cube;
  m.grid.DX.fill(30.48f);
  add(m, {19970110, 19970120}, {1, 1}, 90.0);
  prepare(m);
  EXPECT_EQ(m.events.QBP(1), 90.0 * static_cast<double>(cube) / static_cast<double>(30.48f));
  // In double throughout it would be another number.
  EXPECT_NE(m.events.QBP(1), 90.0 * (0.9144 * 0.9144 * 0.9144) / 30.48);
  EXPECT_NEAR(m.events.QBP(1), 2.257543872, 1e-6) << "90 cubic yards are 68.80993721856 m3";
}

// 2^24 m, from where on single precision holds the even numbers only, and two cells of 1 m that
// are lost one after the other.
TEST(bypass_rate, adds_the_length_in_single_precision_from_the_first_cell_on) {
  Model m = january();
  kelptest::put(m.grid.DX, std::array{16777216.0f, 1.0f, 1.0f, 1.0f, 1.0f, 16777216.0f});
  add(m, {19970110, 19970120}, {1, 3}, 16777216.0);
  add(m, {19970110, 19970120}, {4, 6}, 16777218.0);
  prepare(m);
  EXPECT_EQ(m.events.QBP(1), 1.0);
  EXPECT_EQ(m.events.QBP(2), 1.0) << "1 + 1 is kept, with the long cell last";
}

TEST(bypass_rate, keeps_a_volume_that_single_precision_cannot_hold) {
  Model m = january();
  m.grid.DX.fill(1.0f);
  add(m, {19970110, 19970120}, {1, 1}, 1.00000001);
  prepare(m);
  EXPECT_EQ(m.events.QBP(1), 1.00000001);
}

}  // namespace
}  // namespace kelprun
