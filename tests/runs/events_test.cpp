#include <algorithm>
#include <numeric>

#include "runs/case.h"

/// Beach fills and bypassing in whole runs: when they act, what they place, and what the waves and
/// the seawalls leave of it. The coast of most cases is calm, so that the shoreline can be foretold
/// by hand: 20 cells of 100 at a distance of 100, with an active height of 9.
namespace kelptest {
namespace {

using Row = std::vector<double>;

constexpr const char* CALM = "0 8 0\n";
/// Waves straight onto a straight coast: they move no sand along it.
constexpr const char* STRAIGHT_ON = "1 8 0\n";

struct Window {
  std::string start, end;
};

struct Stretch {
  int first, last;
};

Lines fill(const Window& w, Stretch cells, const std::string& YADD) {
  return {"BFDATS: " + w.start, "BFDATE: " + w.end, "IBFS: " + std::to_string(cells.first),
          "IBFE: " + std::to_string(cells.last), "YADD: " + YADD};
}

Lines bypass(const Window& w, Stretch cells, const std::string& QBP) {
  return {"BPDATS: " + w.start, "BPDATE: " + w.end, "IBPS: " + std::to_string(cells.first),
          "IBPE: " + std::to_string(cells.last), "QBP: " + QBP};
}

Lines operator+(Lines first, const Lines& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

/// A case that has run to its end.
class Finished : public Case {
 public:
  Finished(const Changes& changes, const Lines& events, const std::string& waves)
      : Case(changes, events) {
    with("waves.dat", waves).run();
    expect_completed(*this);
  }
};

/// Calm weather and hourly steps, a row a step.
Finished hourly(const Lines& events, const Changes& changes = {}) {
  return Finished(changes, events, CALM);
}

/// Daily steps from New Year 1997: step k is dated k days after it, its row one day later.
Finished daily(const Lines& events, Changes changes = {}) {
  changes.insert({{"DT", "24"}, {"DTSAVE", "24"}});
  return hourly(events, changes);
}

/// The positions of one cell, the first one before step 1, then one behind each step.
Row course_of(const Case& run, std::size_t cell) {
  Row course;
  for (const Row& row : run.table("slo").rows) course.push_back(row[cell - 1]);
  return course;
}

Row last_row(const Case& run, const std::string& suffix) { return run.table(suffix).rows.back(); }

/// A row of 20 cells that all hold `value` but for a stretch.
Row row_of(double value, Stretch cells, double there) {
  Row row(20, value);
  for (int i = std::max(cells.first, 1); i <= std::min(cells.last, 20); ++i)
    row[static_cast<std::size_t>(i - 1)] = there;
  return row;
}

double sum(const Row& row) { return std::accumulate(row.begin(), row.end(), 0.0); }

// Fills by step number: 8 m over steps 3 to 6 are four parts of 2 m, of which the last is never
// placed, as the last step of a fill does not count.

TEST(fill_by_steps,
     advances_its_cells_in_calm_weather_from_its_start_up_to_the_step_before_its_end) {
  const Finished run = hourly(fill({"3", "6"}, {5, 8}, "8"));
  EXPECT_EQ(course_of(run, 5), (Row{100, 100, 100, 102, 104, 106, 106, 106, 106, 106, 106}));
  EXPECT_EQ(last_row(run, "slo"), row_of(100, {5, 8}, 106));
  // 100 m times 9 m times 6 m, and the same per metre of beach.
  EXPECT_EQ(last_row(run, "vcc"), row_of(0, {5, 8}, 5400));
  EXPECT_EQ(last_row(run, "vcx"), row_of(0, {5, 8}, 54));
}

TEST(fill_by_steps, in_feet_is_told_in_feet_and_cubic_yards) {
  const Finished run = hourly(fill({"3", "6"}, {5, 8}, "8"), {{"KELUNITS", "(ft)"}});
  EXPECT_EQ(course_of(run, 5), (Row{100, 100, 100, 102, 104, 106, 106, 106, 106, 106, 106}));
  EXPECT_EQ(last_row(run, "slo"), row_of(100, {5, 8}, 106));
  // 5400 cubic feet are 200 cubic yards.
  EXPECT_EQ(last_row(run, "vcc"), row_of(0, {5, 8}, 200));
  EXPECT_EQ(last_row(run, "vcx"), row_of(0, {5, 8}, 2));
}

TEST(fill_by_steps, at_the_first_step_stands_in_the_second_row) {
  const Finished run = hourly(fill({"1", "2"}, {1, 20}, "8"));
  EXPECT_EQ(course_of(run, 1), (Row{100, 104, 104, 104, 104, 104, 104, 104, 104, 104, 104}));
  EXPECT_EQ(course_of(run, 20), course_of(run, 1)) << "pinned ends hold no fill back";
}

TEST(fill_by_steps, at_the_last_step_stands_in_the_last_row) {
  const Finished run = hourly(fill({"10", "11"}, {5, 8}, "8"));
  EXPECT_EQ(course_of(run, 5), (Row{100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 104}));
}

TEST(fill_by_steps, of_zero_length_or_outside_the_run_does_nothing) {
  for (const Window& w :
       {Window{"5", "5"}, Window{"10", "10"}, Window{"11", "20"}, Window{"-9", "1"}}) {
    const Finished run = hourly(fill(w, {5, 8}, "8"));
    EXPECT_EQ(last_row(run, "slo"), Row(20, 100.0)) << w.start << " to " << w.end;
  }
}

/// Runs in a calm, moves nothing and says so in one line.
void expect_idle(const Lines& event, const Changes& changes, const std::string& warning) {
  Case run(changes, event);
  run.with("waves.dat", CALM).run();
  EXPECT_EQ(run.outcome.status, 0);
  EXPECT_EQ(run.outcome.err, "kelprun: warning: " + warning + "\n");
  EXPECT_EQ(last_row(run, "slo"), Row(20, 100.0));
}

TEST(events, that_can_never_act_are_warned_of) {
  expect_idle(fill({"7", "6"}, {5, 8}, "8"), {},
              "fill 1 never acts: BFDATE 6 lies before its BFDATS 7");
  expect_idle(fill({"7", "4"}, {5, 8}, "8"), {},
              "fill 1 never acts: BFDATE 4 lies before its BFDATS 7");
  expect_idle(fill({"19970120", "19970105"}, {5, 8}, "12"), {{"DT", "24"}, {"DTSAVE", "24"}},
              "fill 1 never acts: BFDATE 19970105 lies before its BFDATS 19970120");
  expect_idle(fill({"3", "6"}, {21, 30}, "8"), {},
              "fill 1 has no cell in the grid: IBFS 21, IBFE 30");
  expect_idle(fill({"3", "6"}, {-5, 0}, "8"), {},
              "fill 1 has no cell in the grid: IBFS -5, IBFE 0");
  expect_idle(bypass({"6", "5"}, {5, 7}, "2700"), {},
              "bypass operation 1 never acts: BPDATE 5 lies before its BPDATS 6");
}

TEST(fill_by_steps, that_is_under_way_at_the_start_places_what_is_left_of_it) {
  // Ten parts of 1 m; steps 1 to 4 see one each.
  const Finished run = hourly(fill({"-4", "5"}, {5, 8}, "10"));
  EXPECT_EQ(last_row(run, "slo"), row_of(100, {5, 8}, 104));
}

TEST(fill_by_steps, partly_outside_the_grid_acts_on_its_cells_inside) {
  const Finished run = hourly(fill({"3", "6"}, {-2, 3}, "8") + fill({"3", "6"}, {18, 40}, "4"));
  Row expected = row_of(100, {1, 3}, 106);
  for (std::size_t k = 17; k < 20; ++k) expected[k] = 103;
  EXPECT_EQ(last_row(run, "slo"), expected);
}

TEST(fill_by_steps, that_takes_sand_away_retreats_its_cells) {
  const Finished run = hourly(fill({"3", "6"}, {5, 8}, "-8") + fill({"3", "6"}, {8, 9}, "4"));
  Row expected = row_of(100, {5, 7}, 94);
  expected[7] = 97;
  expected[8] = 103;
  EXPECT_EQ(last_row(run, "slo"), expected);
  EXPECT_EQ(sum(last_row(run, "vcc")), 900.0 * (3 * -6 - 3 + 3));
}

// Fills by date: 12 m from the 3rd to the 7th are four days of 3 m, and with one step a day all of
// it is placed on the 3rd, 4th, 5th and 6th.

TEST(fill_by_date, places_its_whole_amount_on_the_days_from_its_first_to_the_one_before_its_last) {
  const Finished run = daily(fill({"19970103", "19970107"}, {5, 8}, "12"));
  EXPECT_EQ(course_of(run, 5), (Row{100, 100, 103, 106, 109, 112, 112, 112, 112, 112, 112}));
  EXPECT_EQ(last_row(run, "vcc"), row_of(0, {5, 8}, 10800));
}

TEST(fill_by_date, in_feet_places_the_same_number_of_feet) {
  const Finished run = daily(fill({"19970103", "19970107"}, {5, 8}, "12"), {{"KELUNITS", "(ft)"}});
  EXPECT_EQ(last_row(run, "slo"), row_of(100, {5, 8}, 112));
  EXPECT_EQ(last_row(run, "vcc"), row_of(0, {5, 8}, 400));
}

TEST(fill_by_date, is_spread_over_the_steps_of_its_days) {
  // Eight steps a day, exact in binary: 32 parts of 0.375 m.
  const Finished run = hourly(fill({"19970103", "19970107"}, {5, 8}, "12"),
                              {{"DT", "3"}, {"DTSAVE", "24"}, {"SIMDATE", "80"}});
  // The rows behind the last steps of the days: step 8 is the first one of 2 January.
  EXPECT_EQ(course_of(run, 5),
            (Row{100, 100, 100.38, 103.38, 106.38, 109.38, 112, 112, 112, 112, 112}));
}

TEST(fill_by_date, from_the_start_of_the_run_loses_the_step_that_the_first_date_lies_ahead_by) {
  // Step 1 is already dated one step after the start.
  EXPECT_EQ(course_of(daily(fill({"19970101", "19970105"}, {5, 8}, "12")), 5),
            (Row{100, 103, 106, 109, 109, 109, 109, 109, 109, 109, 109}));
}

TEST(fill_by_date, of_one_day_and_of_none) {
  EXPECT_EQ(course_of(daily(fill({"19970111", "19970112"}, {5, 8}, "12")), 5).back(), 112.0)
      << "on the last day";
  EXPECT_EQ(course_of(daily(fill({"19970102", "19970103"}, {5, 8}, "12")), 5)[1], 112.0)
      << "on the first";
  for (const std::string date : {"19970102", "19970105", "19970111"})
    EXPECT_EQ(last_row(daily(fill({date, date}, {5, 8}, "12")), "slo"), Row(20, 100.0)) << date;
}

TEST(fill_by_date, outside_the_run_does_nothing) {
  for (const Window& w : {Window{"19960101", "19970102"}, Window{"19970112", "19970120"}})
    EXPECT_EQ(last_row(daily(fill(w, {5, 8}, "12")), "slo"), Row(20, 100.0)) << w.start;
}

TEST(fill_by_date, on_a_leap_day_places_more_than_its_amount) {
  // 26 February to 2 March 1996 counts as 4 days, but the run sees the 29th as a fifth.
  const Finished run = daily(fill({"19960226", "19960302"}, {5, 8}, "12"),
                             {{"SIMDATS", "19960220"}, {"SIMDATE", "15"}});
  EXPECT_EQ(last_row(run, "slo"), row_of(100, {5, 8}, 115));
}

TEST(fill_by_date, on_a_print_date_and_on_the_anniversary_stands_in_the_row_of_that_step) {
  // Step 365 is dated 1 January 1998, its row 2 January; print date and anniversary say so.
  const Finished run = daily(fill({"19980101", "19980103"}, {5, 8}, "12"),
                             {{"SIMDATE", "370"}, {"PRDATE", "19980102"}});
  const Table slo = run.table("slo");
  const auto row_dated = [&](int date) {
    for (std::size_t k = 1; k < slo.dates.size(); ++k)
      if (slo.dates[k] == date) return slo.rows[k];
    return Row{};
  };
  EXPECT_EQ(row_dated(19980101), Row(20, 100.0));
  EXPECT_EQ(row_dated(19980102), row_of(100, {5, 8}, 106));
  EXPECT_EQ(row_dated(19980103), row_of(100, {5, 8}, 112));
  EXPECT_EQ(row_dated(19980104), row_of(100, {5, 8}, 112));
  EXPECT_EQ(occurrences(run.outcome.out, text_of({year_block(1, 365, 19980102)})), 1);
  // Anniversary, print date, end of the run, means; but the last block counts no year.
  EXPECT_EQ(run.table("mqn").dates, (std::vector<int>{19980102, 19980103, 19980107, 19980107}));
}

TEST(fills, of_one_list_share_the_clock_of_the_first_but_not_its_kind_of_amount) {
  // The dated fill has 3 m a day, yet the clock counts steps: no step reaches its first date.
  EXPECT_EQ(last_row(daily(fill({"3", "6"}, {5, 8}, "8") +
                           fill({"19970103", "19970107"}, {10, 11}, "12")),
                     "slo"),
            row_of(100, {5, 8}, 106));
  EXPECT_EQ(last_row(daily(fill({"19970103", "19970107"}, {10, 11}, "12") +
                           fill({"3", "6"}, {5, 8}, "8")),
                     "slo"),
            row_of(100, {10, 11}, 112));
}

// Bypassing in calm weather: 2700 m3/h on three cells of 100 m and an active height of 9 m are 1 m
// an hour.

TEST(bypassing, advances_its_cells_in_calm_weather_by_volume_over_length_and_height) {
  const Finished run = hourly(bypass({"3", "6"}, {5, 7}, "2700"));
  EXPECT_EQ(course_of(run, 5), (Row{100, 100, 100, 101, 102, 103, 103, 103, 103, 103, 103}));
  EXPECT_EQ(last_row(run, "slo"), row_of(100, {5, 7}, 103));
  EXPECT_EQ(last_row(run, "vcc"), row_of(0, {5, 7}, 2700));
  EXPECT_EQ(sum(last_row(run, "vcc")), 3 * 2700.0) << "three hours";
}

TEST(bypassing, in_feet_takes_cubic_yards_an_hour) {
  // 100 cubic yards are 2700 cubic feet.
  const Finished run = hourly(bypass({"3", "6"}, {5, 7}, "100"), {{"KELUNITS", "(ft)"}});
  EXPECT_EQ(course_of(run, 5), (Row{100, 100, 100, 101, 102, 103, 103, 103, 103, 103, 103}));
  EXPECT_EQ(sum(last_row(run, "vcc")), 300.0);
}

TEST(bypassing, places_its_hourly_volume_whatever_the_step_length) {
  const Finished run =
      hourly(bypass({"3", "6"}, {5, 7}, "2700"), {{"DT", "0.5"}, {"DTSAVE", "0.5"}});
  EXPECT_EQ(last_row(run, "slo"), row_of(100, {5, 7}, 101.5)) << "three steps of half an hour";
}

TEST(bypassing, by_date_runs_through_its_days) {
  // 112.5 m3/h are 2700 m3 a day.
  const Finished run = daily(bypass({"19970103", "19970107"}, {5, 7}, "112.5"));
  EXPECT_EQ(course_of(run, 5), (Row{100, 100, 101, 102, 103, 104, 104, 104, 104, 104, 104}));
}

TEST(bypassing, from_a_sink_to_a_source_leaves_the_total_volume_unchanged) {
  const Finished run =
      hourly(bypass({"3", "6"}, {5, 7}, "-2700") + bypass({"3", "6"}, {12, 17}, "2700"));
  Row expected = row_of(100, {5, 7}, 97);
  for (std::size_t k = 11; k < 17; ++k) expected[k] = 101.5;
  EXPECT_EQ(last_row(run, "slo"), expected);
  EXPECT_EQ(sum(last_row(run, "vcc")), 0.0);
}

TEST(bypassing, at_the_first_step_at_the_last_of_no_length_and_outside_the_run) {
  EXPECT_EQ(course_of(hourly(bypass({"1", "2"}, {1, 3}, "2700")), 1)[1], 101.0);
  EXPECT_EQ(last_row(hourly(bypass({"10", "11"}, {18, 20}, "2700")), "slo"),
            row_of(100, {18, 20}, 101));
  for (const Window& w : {Window{"5", "5"}, Window{"11", "20"}, Window{"-5", "1"}})
    EXPECT_EQ(last_row(hourly(bypass(w, {5, 7}, "2700")), "slo"), Row(20, 100.0)) << w.start;
}

TEST(bypassing, its_second_names_move_the_first_operation_and_alone_make_none) {
  const Finished moved = hourly(bypass({"3", "6"}, {5, 7}, "2700") +
                                Lines{"QQDATS: 2", "QQDATE: 4", "IQQS: 8", "IQQE: 10"});
  EXPECT_EQ(last_row(moved, "slo"), row_of(100, {8, 10}, 102));
  const Finished alone = hourly({"QQDATS: 2", "QQDATE: 4", "IQQS: 8", "IQQE: 10", "QBP: 2700"});
  EXPECT_EQ(last_row(alone, "slo"), Row(20, 100.0));
}

TEST(bypassing, takes_nothing_from_the_file_that_it_may_name) {
  Case run(Changes{{"BYPFILE", "bypass.dat"}}, bypass({"3", "6"}, {5, 7}, "2700"));
  run.with("bypass.dat", "1 10 1 20 99999\n\xff not a number").with("waves.dat", CALM).run();
  expect_completed(run);
  EXPECT_EQ(last_row(run, "slo"), row_of(100, {5, 7}, 103));
}

TEST(bypassing, warnings_stand_in_the_report_of_a_run_that_goes_on) {
  const Finished run =
      hourly(bypass({"0", "12"}, {5, 7}, "2700") + bypass({"11", "12"}, {5, 7}, "2700") +
             bypass({"-2", "0"}, {5, 7}, "2700"));
  const auto warning = [](const std::string& what, const std::string& when) {
    return "  WARNING. BYPASS OPERATION " + what + " THE\n  SIMULATION HAS " + when + ".\n\n";
  };
  EXPECT_EQ(
      occurrences(run.report(),
                  warning("STARTS BEFORE", "STARTED") + warning("ENDS AFTER", "ENDED") +
                      warning("STARTS AFTER", "ENDED") + warning("ENDS AFTER", "ENDED") +
                      warning("STARTS BEFORE", "STARTED") + warning("ENDS BEFORE", "STARTED")),
      1)
      << run.report();
  EXPECT_EQ(last_row(run, "slo"), row_of(100, {5, 7}, 110));
}

TEST(bypassing, on_cells_in_the_wrong_order_or_outside_the_grid_is_refused) {
  const auto expect_refused = [](Stretch cells, const std::string& reported,
                                 const std::string& message) {
    Case ended({}, bypass({"3", "6"}, cells, "2700"));
    ended.run();
    expect_fatal(ended, {opening(), banner()}, message);
    EXPECT_EQ(ended.behind_head(), free_lines({reported}));
  };
  expect_refused({7, 5}, " BYPASS MATERIAL IS .GT. THE END X-COORDINATE.",
                 "ERROR. Bypass start coordinate is greater than end coordinate.");
  expect_refused({0, 5}, " ERROR. BYPASSED MATERIAL IS PLACED OUTSIDE ",
                 "ERROR. Bypassed material placed outside calculation grid.");
  expect_refused({7, 21}, " ERROR. BYPASSED MATERIAL IS PLACED OUTSIDE ",
                 "ERROR. Bypassed material placed outside calculation grid.");
}

// Under waves.

TEST(waves_from_behind, leave_the_sources_out_but_not_the_fills) {
  for (const char* wave : {"1 8 90\n", "1 8 -90\n"}) {
    Case run({}, fill({"3", "6"}, {5, 8}, "8") + bypass({"3", "6"}, {12, 14}, "2700"));
    run.with("waves.dat", wave).run();
    EXPECT_EQ(run.outcome.status, 0);
    EXPECT_EQ(last_row(run, "slo"), row_of(100, {5, 8}, 106)) << wave;
  }
}

TEST(waves_straight_on, add_fills_and_sources_that_are_the_same_along_the_whole_coast) {
  // The coast stays straight, so that the waves have nothing to move.
  Case run({}, fill({"3", "6"}, {1, 20}, "8") + bypass({"4", "8"}, {1, 20}, "18000"));
  run.with("waves.dat", STRAIGHT_ON).run();
  expect_completed(run);
  EXPECT_EQ(course_of(run, 10), (Row{100, 100, 100, 102, 105, 108, 109, 110, 110, 110, 110}));
  EXPECT_EQ(last_row(run, "slo"), Row(20, 110.0));
}

TEST(waves, carry_sand_away_from_a_fill_within_the_step_that_places_it) {
  Case run({{"SIMDATE", "1"}}, fill({"1", "2"}, {8, 12}, "20"));
  run.with("waves.dat", STRAIGHT_ON).run();
  expect_completed(run);
  const Row shoreline = last_row(run, "slo");
  EXPECT_LT(shoreline[7], 110.0);
  EXPECT_GT(shoreline[6], 100.0);
  EXPECT_EQ(shoreline[9], 110.0) << "the middle is flat";
  EXPECT_NEAR(sum(last_row(run, "vcc")), 5 * 900.0 * 10, 0.1) << "and nothing is lost";
}

TEST(sink, draws_the_shoreline_down_to_its_seawall_and_no_farther) {
  const Lines wall{"ISWBEG: 1", "ISWEND: 20", "SWY1: 95.5", "SWY2: 95.5"};
  Case run({}, bypass({"1", "11"}, {1, 20}, "-18000") + wall);
  run.with("waves.dat", STRAIGHT_ON).run();
  expect_completed(run);
  for (const std::size_t cell : {1u, 2u, 10u, 19u, 20u})
    EXPECT_EQ(course_of(run, cell), (Row{100, 99, 98, 97, 96, 95.5, 95.5, 95.5, 95.5, 95.5, 95.5}))
        << "cell " << cell;
}

TEST(sink, on_a_wavy_coast_stops_at_its_seawall_and_lets_the_sand_of_its_neighbours_in) {
  const Lines wall{"ISWBEG: 8", "ISWEND: 13", "SWY1: 95", "SWY2: 95"};
  const Lines sink = bypass({"1", "201"}, {9, 12}, "-360");
  const Changes long_run{{"SIMDATE", "200"}, {"DTSAVE", "1"}};
  Case walled(long_run, sink + wall);
  walled.run();
  expect_completed(walled);
  Case open(long_run, sink);
  open.run();
  expect_completed(open);
  EXPECT_LT(last_row(open, "slo")[10], 95.0) << "the sink must be able to pass the wall";
  EXPECT_EQ(last_row(walled, "slo")[10], 95.0);
  for (const Row& row : walled.table("slo").rows)
    for (std::size_t cell = 8; cell <= 13; ++cell) EXPECT_GE(row[cell - 1], 95.0);
  EXPECT_LT(last_row(walled, "slo")[6], 100.0) << "the neighbours feed the hole";
}

TEST(sink, in_a_calm_passes_its_seawall_until_the_next_waves_lift_the_shoreline_back) {
  // A calm looks at no seawall.
  Case run({{"WAVEID", "20 20.0 4 waves.dat"}, {"SIMDATE", "4"}},
           bypass({"1", "4"}, {1, 20}, "-18000") +
               Lines{"ISWBEG: 1", "ISWEND: 20", "SWY1: 98.5", "SWY2: 98.5"});
  run.with("waves.dat",
           "19970101 0 0 8 0\n19970101 100 0 8 0\n19970101 200 0 8 0\n19970101 300 1 8 0\n")
      .run();
  EXPECT_EQ(run.outcome.status, 0);
  EXPECT_EQ(course_of(run, 10), (Row{100, 99, 98, 97, 98.5}));
}

// The adaptive step. The fill lies on all cells under waves straight on, so that nothing but the
// fill moves the shoreline. A step of 3 h is an eighth of a day, exact in binary, and so are its
// halves.

/// Three-hourly records of five days: calm until the given step, waves from it on.
std::string calm_until(int step) {
  std::string text;
  for (int n = 1; n <= 40; ++n)
    text += std::to_string(19970101 + (n - 1) / 8) + " " + std::to_string(300 * ((n - 1) % 8)) +
            (n < step ? " 0 8 0\n" : " 1 8 0\n");
  return text;
}

/// Cells so narrow that a step of 3 h must become one of 0.75 h as soon as there are waves, from
/// this step on; never with a step above 40. Gives the last shoreline.
Row adaptive(const Lines& events, int first_waves) {
  Case run({{"DX", "12"},
            {"DT", "3"},
            {"DTSAVE", "24"},
            {"SIMDATE", "19970106"},
            {"DTADAPT", "1"},
            {"WAVEID", "20 20.0 40 waves.dat"}},
           events);
  run.with("waves.dat", calm_until(first_waves)).run();
  EXPECT_EQ(run.outcome.status, 0);
  EXPECT_EQ(occurrences(run.outcome.out, "NEW DT = "), first_waves > 40 ? 0 : 1);
  EXPECT_EQ(occurrences(run.outcome.out, "NEW DT = 0.75\n"), first_waves > 40 ? 0 : 1);
  return last_row(run, "slo");
}

/// 16 m over two days: 16 steps of 1 m, or 64 of 0.25 m.
const Lines TWO_DAYS = fill({"19970102", "19970104"}, {1, 20}, "16");

TEST(fill_under_an_adaptive_step, keeps_its_total_where_the_step_changes_before_or_after_it) {
  for (const int first_waves : {41, 1, 5, 26})
    EXPECT_EQ(adaptive(TWO_DAYS, first_waves), Row(20, 116.0)) << first_waves;
}

// The calendar of the step that is cut goes back to the end of the shorter one, but its part of the
// fill has been placed by then. Steps 8, 9, ... of 3 h place 1 m each, step 8 being the first of 2
// January. In units of 0.75 h, 32 to the day, step k stands at 4 k after New Year, and once cut at
// 4 k - 3. A quarter of a metre follows at each unit after that from 2 January, 32, to the one
// before 4 January, 96. A cut at step 8 goes back into 1 January.
TEST(fill_under_an_adaptive_step, gains_the_part_that_the_calendar_of_the_cut_step_goes_back_by) {
  for (const int k : {8, 12, 23}) {
    const double before = k - 7;
    const double after = 0.25 * (96 - std::max(32, 4 * k - 2));
    EXPECT_EQ(adaptive(TWO_DAYS, k), Row(20, 100.0 + before + after)) << "cut at step " << k;
  }
}

TEST(fill_under_an_adaptive_step, by_step_number_ends_early_as_the_numbers_run_ahead) {
  // 16 parts of 1 m from step 8 on. After the cut at step 4 the parts are quarters, and the step
  // numbers those of steps of 0.75 h: 4 steps of 3 h and one more are 12.75 h, step 17.
  const Lines by_number = fill({"8", "23"}, {1, 20}, "16");
  EXPECT_EQ(adaptive(by_number, 41), Row(20, 115.0));
  EXPECT_EQ(adaptive(by_number, 4), Row(20, 100.0 + 0.25 * (23 - 17)));
}

TEST(bypassing_under_an_adaptive_step, keeps_its_hourly_rate) {
  // 20 cells of 12 m and 9 m height: 2160 m3/h are 1 m an hour, 48 m in two days. The cut at step
  // 2, long before, changes nothing.
  const Lines source = bypass({"19970102", "19970104"}, {1, 20}, "2160");
  EXPECT_EQ(adaptive(source, 41), Row(20, 148.0));
  EXPECT_EQ(adaptive(source, 2), Row(20, 148.0));
}

}  // namespace
}  // namespace kelptest
