#include "runs/case.h"

/// The order of a run: first rows, calm passes, print dates, anniversaries, the last step, and the
/// calendar as far as whole runs show it.
namespace kelptest {
namespace {

Changes daily(const std::string& start, const std::string& end) {
  return {{"DT", "24"}, {"DTSAVE", "24"}, {"SIMDATS", start}, {"SIMDATE", end}};
}

constexpr const char* CALM = "0 8 0\n";
constexpr const char* SMALL = "0.2 5 10\n";

TEST(first_row, carries_the_date_one_step_beyond_that_of_step_1) {
  // The first step is dated 2 January, the date that tables show is the one after it.
  Case run(daily("19970101", "3"));
  run.with("waves.dat", CALM).run();
  expect_completed(run);
  EXPECT_EQ(run.table("slo").dates, (std::vector<int>{19970103, 19970103, 19970104, 19970105}));
}

TEST(first_row, stands_before_any_change_of_the_pass) {
  Case run(Changes{{"LBCTYPE", "3"}, {"LMOVPER", "3"}, {"LMOVY", "-2"}, {"SIMDATE", "2"}});
  run.with("waves.dat", CALM).run();
  const auto rows = run.table("slo").rows;
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[0][0], 100.0);
  EXPECT_EQ(rows[1][0], 98.0);
  EXPECT_EQ(rows[2][0], 96.0);
}

TEST(calm_pass, at_step_1_writes_the_first_and_the_due_rows) {
  Case run(Changes{{"SIMDATE", "4"}, {"DTSAVE", "2"}});
  run.with("waves.dat", CALM).run();
  expect_completed(run);
  for (const char* suffix : {"slo", "qtr", "off", "vcc", "vcx"})
    EXPECT_EQ(run.table(suffix).rows.size(), 3u) << suffix;
}

TEST(calm_pass, leaves_the_tests_of_the_angle_out) {
  // An angle of 95 degrees stops everything in a pass with waves, but not in a calm one.
  const Changes from_behind{
      {"THETADEL", "95"}, {"LBCTYPE", "3"}, {"LMOVPER", "3"}, {"LMOVY", "1"}, {"SIMDATE", "3"}};
  Case calm(from_behind);
  calm.with("waves.dat", CALM).run();
  EXPECT_EQ(calm.table("slo").rows.back()[0], 103.0);
  Case waves(from_behind);
  waves.with("waves.dat", "1 8 0\n").run();
  EXPECT_EQ(waves.table("slo").rows.back()[0], 100.0);
}

TEST(calm_pass, repeats_the_transport_row_of_the_last_pass_with_waves) {
  Case run(Changes{{"WAVEID", "20 20.0 3 waves.dat"}, {"SIMDATE", "3"}});
  run.with("waves.dat", "19970101 0 1 8 10\n19970101 100 0 8 0\n19970101 200 1 8 100\n").run();
  const auto rows = run.table("qtr").rows;
  ASSERT_EQ(rows.size(), 4u);
  EXPECT_EQ(rows[0][4], 0.0);
  EXPECT_GT(rows[1][4], 0.0);
  EXPECT_EQ(rows[2], rows[1]);
  EXPECT_EQ(rows[3], rows[1]);
}

/// Rows of the table of net year sums: print blocks, year blocks, and the closing means.
std::size_t sum_rows(const Case& run) { return run.table("mqn").rows.size(); }

Case& with_small_waves(Case& run) { return run.with("waves.dat", SMALL); }

TEST(print_dates, match_step_numbers_and_dates) {
  Case run(daily("19970101", "6"), {"PRDATE: 2", "PRDATE: 19970105"});
  with_small_waves(run).run();
  expect_completed(run);
  const Table sums = run.table("mqn");
  // Step 2 and the step of 5 January, which is the fourth; then the year block and the means.
  EXPECT_EQ(sums.dates, (std::vector<int>{19970104, 19970106, 19970108, 19970108}));
  for (const char* suffix : {"mql", "mqr"}) EXPECT_EQ(run.table(suffix).dates, sums.dates);
  // The sums stand as they are and are not cleared by a print block.
  const double two_steps = sums.rows[0][7];
  EXPECT_GT(two_steps, 0.0);
  EXPECT_NEAR(sums.rows[1][7], 2.0 * two_steps, 1.5);
  EXPECT_NEAR(sums.rows[2][7], 3.0 * two_steps, 2.0);
}

TEST(print_dates, that_equal_the_last_step_are_left_to_the_closing_rows) {
  for (const char* last : {"6", "19970107"}) {
    Case run(daily("19970101", "6"), {"PRDATE: " + std::string(last)});
    with_small_waves(run).run();
    expect_completed(run);
    EXPECT_EQ(sum_rows(run), 2u) << last;
  }
}

TEST(print_dates, that_have_passed_hold_back_all_later_ones) {
  Case run(daily("19970101", "6"), {"PRDATE: 19961231", "PRDATE: 2", "PRDATE: 4"});
  with_small_waves(run).run();
  EXPECT_EQ(sum_rows(run), 2u);
  Case descending(daily("19970101", "6"), {"PRDATE: 4", "PRDATE: 2"});
  with_small_waves(descending).run();
  EXPECT_EQ(sum_rows(descending), 3u);
}

TEST(print_dates, are_met_once_a_step_and_one_at_a_time) {
  Case run(daily("19970101", "6"), {"PRDATE: 2", "PRDATE: 2", "PRDATE: 3"});
  with_small_waves(run).run();
  // The second 2 is never met again and holds back the 3.
  EXPECT_EQ(sum_rows(run), 3u);
}

TEST(anniversaries, close_the_year_at_every_step_of_their_date) {
  Case run(
      Changes{{"DT", "12"}, {"DTSAVE", "12"}, {"SIMDATS", "19970101"}, {"SIMDATE", "19980103"}});
  with_small_waves(run).run();
  expect_completed(run);
  // 1 January 1998 begins with step 730; step 731 ends the date with a year of one step.
  EXPECT_EQ(run.outcome.out,
            text_of({opening(), banner(), begins(), year_block(1, 730, 19980101),
                     year_block(1, 731, 19980102), year_block(1, 734, 19980103), closing()}));
  const Table sums = run.table("mqn");
  EXPECT_EQ(sums.dates, (std::vector<int>{19980101, 19980102, 19980103, 19980103}));
  const double step = run.table("qtr").rows.back()[5] / 365.25 / 2.0;
  EXPECT_NEAR(sums.rows[0][5] / (730.0 * step), 1.0, 1e-3);
  EXPECT_NEAR(sums.rows[1][5], step, 0.6);
  EXPECT_NEAR(sums.rows[2][5], 3.0 * step, 0.6);
}

TEST(anniversaries, leave_out_the_first_day_though_its_date_is_the_start_date) {
  Case run(Changes{{"SIMDATS", "19970101"}, {"SIMDATE", "40"}});
  with_small_waves(run).run();
  // Steps 1 to 23 are dated 1 January.
  EXPECT_EQ(run.outcome.out,
            text_of({opening(), banner(), begins(), year_block(0, 40, 19970102), closing()}));
}

TEST(last_step, is_met_by_equality_and_a_number_carried_past_it_goes_on_and_is_stopped) {
  // Two daily steps. In the second one a high wave divides the step by 8 or more, so that the next
  // step number, 51 hours by 3 or a like one, lies beyond the new last step.
  Case run(Changes{{"DT", "24"},
                   {"DTSAVE", "24"},
                   {"SIMDATE", "19970103"},
                   {"DTADAPT", "1"},
                   {"WAVEID", "20 20.0 3 waves.dat"}});
  run.with("waves.dat",
           "19970101 0 0.2 5 10\n19970102 0 4 9 10\n19970103 0 4 9 10\n19970104 0 4 9 10\n")
      .run();
  EXPECT_EQ(run.outcome.status, 1);
  const Lines told = lines(run.outcome.err);
  ASSERT_EQ(told.size(), 2u) << run.outcome.err;
  EXPECT_TRUE(told[0].starts_with("kelprun: warning: time step ")) << told[0];
  EXPECT_TRUE(told[1].starts_with("kelprun: time step ")) << told[1];
  EXPECT_EQ(occurrences(run.outcome.out, "Simulation finished"), 0);
}

/// The end of the run as the console tells it: steps and the date after the last one.
struct Length {
  std::string name;
  Changes changes;
  int steps;
  int next_date;
  int years;
};

std::ostream& operator<<(std::ostream& out, const Length& row) { return out << row.name; }

const std::vector<Length> LENGTHS{
    {"step_count_below_the_dates", {{"SIMDATS", "19970101"}, {"SIMDATE", "60"}}, 60, 19970103, 0},
    {"january_31_to_march_1", daily("19970131", "19970301"), 29, 19970302, 0},
    {"january_31_to_march_1_in_a_leap_year", daily("19960131", "19960301"), 30, 19960302, 0},
    {"february_of_1900_has_29_days", daily("19000201", "19000301"), 29, 19000302, 0},
    {"february_of_2100_has_29_days", daily("21000201", "21000301"), 29, 21000302, 0},
    {"february_of_2000_has_29_days", daily("20000201", "20000301"), 29, 20000302, 0},
    {"february_of_1999_has_28_days", daily("19990201", "19990301"), 28, 19990302, 0},
    {"one_day_over_february_29", daily("19960228", "19960229"), 1, 19960230, 0},
    {"into_february_28_of_a_leap_year", daily("19960227", "19960228"), 1, 19960301, 0},
    {"days_into_the_month_before", daily("19971220", "19980110"), 21, 19980111, 0},
};

class run_length : public testing::TestWithParam<Length> {};

TEST_P(run_length, ends_at_the_date_of_the_models_own_calendar) {
  const Length& row = GetParam();
  Case run(row.changes);
  run.with("waves.dat", CALM).run();
  expect_completed(run);
  EXPECT_EQ(run.outcome.out, text_of({opening(), banner(), begins(),
                                      year_block(row.years, row.steps, row.next_date), closing()}));
}

INSTANTIATE_TEST_SUITE_P(rows, run_length, testing::ValuesIn(LENGTHS),
                         [](const auto& row) { return row.param.name; });

TEST(run_length_in_years, counts_365_and_366_days) {
  Case common(daily("19970101", "19980101"));
  common.with("waves.dat", CALM).run();
  // The last step is the anniversary too, and closes the year once.
  EXPECT_EQ(common.outcome.out,
            text_of({opening(), banner(), begins(), year_block(1, 365, 19980102), closing()}));
  Case leap(daily("19960101", "19970101"));
  leap.with("waves.dat", CALM).run();
  EXPECT_EQ(leap.outcome.out,
            text_of({opening(), banner(), begins(), year_block(1, 366, 19970102), closing()}));
}

TEST(wave_step, of_two_entries_one_hour_apart_is_one_hour) {
  for (const char* second : {"1300", "1360"}) {
    Case run(Changes{{"WAVEID", "20 20.0 2 waves.dat"}, {"SIMDATE", "2"}, {"DT", "1"}});
    run.with("waves.dat", "19970101 1200 1 8 10\n19970101 " + std::string(second) + " 1 8 -10\n")
        .run();
    // 1360 would be two hours by its digits: (60 + 100) - 40 minutes.
    const auto rows = run.table("qtr").rows;
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_GT(rows[1][5], 0.0);
    EXPECT_EQ(rows[2][5] < 0.0, second == std::string("1300"));
  }
}

TEST(wave_step, lets_a_tenth_of_an_hour_divide_an_hour) {
  Case run(Changes{
      {"WAVEID", "20 20.0 2 waves.dat"}, {"SIMDATE", "20"}, {"DT", "0.1"}, {"DTSAVE", "0.1"}});
  run.with("waves.dat", hourly_waves(19970101, 1, "1 8 10") + "19970101 100 1 8 -10\n").run();
  expect_completed(run);
  // Ten steps a record: the sign of the transport turns with the eleventh step.
  const auto rows = run.table("qtr").rows;
  ASSERT_EQ(rows.size(), 21u);
  EXPECT_GT(rows[10][5], 0.0);
  EXPECT_LT(rows[11][5], 0.0);
  EXPECT_LT(rows[20][5], 0.0);
}

TEST(runs, repeated_in_one_folder_give_the_same_bytes) {
  Case run(Changes{{"WAVEID", "20 20.0 10 waves.dat"},
                   {"LBCTYPE", "3"},
                   {"LMOVPER", "2"},
                   {"LMOVY", "3"},
                   {"SIMDATE", "8"}});
  std::vector<double> shoreline;
  for (int i = 1; i <= 20; ++i) shoreline.push_back(100.0 + 5.0 * (i % 3));
  run.with("waves.dat", hourly_waves(19970101, 10, "1.3 7.0 -12.0"))
      .with("shore.dat", values_file(shoreline))
      .run();
  expect_completed(run);
  std::map<std::string, std::string> first;
  for (const char* suffix : {"prt", "slo", "qtr", "off", "mqn", "mqr", "mql", "vcc", "vcx"})
    first["run." + std::string(suffix)] = run.folder.read("run." + std::string(suffix));
  const std::string console = run.outcome.out;
  run.run();
  EXPECT_EQ(run.outcome.out, console);
  for (const auto& [name, text] : first) EXPECT_EQ(run.folder.read(name), text) << name;
}

}  // namespace
}  // namespace kelptest
