#include "runs/limits_case.h"

/// The first and last dates, the greatest numbers of steps, the longest and the shortest step.
namespace kelptest {
namespace {

constexpr const char* CALM = "0 8 0\n";

Changes daily(const std::string& SIMDATS, const std::string& SIMDATE) {
  return {{"DT", "24"}, {"DTSAVE", "24"}, {"SIMDATS", SIMDATS}, {"SIMDATE", SIMDATE}};
}

TEST(dates, end_with_the_year_9999_and_are_asterisks_behind_it) {
  Case run(daily("99991229", "5"));
  run.with("waves.dat", CALM).run();
  expect_run(run);
  Lines written;
  for (const std::string& row : lines(run.folder.read("run.slo")))
    written.push_back(row.substr(0, 8));
  // Rows carry the day behind that of their step, which is a day ahead already.
  const std::string none(8, '*');
  EXPECT_EQ(written, (Lines{"Shorelin", "99991231", "99991231", none, none, none, none}));
  EXPECT_GT(occurrences(run.report(), "DATE IS 100000104"), 0) << run.report();
}

TEST(dates, of_the_last_day_can_end_a_run) {
  Case run(daily("99991201", "99991231"));
  run.with("waves.dat", CALM).run();
  expect_run(run);
  // Title, first row, 30 days.
  EXPECT_EQ(lines(run.folder.read("run.vcc")).size(), 2u + 30u);
}

TEST(number_of_steps, is_told_by_an_end_below_18000000) {
  Case last(Changes{{"SIMDATE", "18000000"}});
  last.run();
  expect_refusal(last,
                 free_lines({" ERROR. SIMULATION ENDING DATE MUST BE LATER THAN",
                             " THE STARTING DATE. PLEASE CORRECT YOUR .cfg FILE."}),
                 " ERROR. SIMULATION ENDING DATE MUST BE LATER THAN");
  Case date(Changes{{"SIMDATE", "18000001"}});
  date.run();
  expect_refusal(date, {}, "SIMDATE must be >= SIMDATS");
}

TEST(number_of_steps, without_a_start_date_is_read_as_an_end_date) {
  // From day 0 to day 10 of month 0 in the year 0 there are ten days of hourly steps.
  for (const char* start : {"", "0", "5"}) {
    Case run(Changes{{"SIMDATS", start}, {"SIMDATE", "10"}});
    run.with("waves.dat", CALM).run();
    expect_run(run);
    const std::size_t days = start == std::string("5") ? 5 : 10;
    EXPECT_EQ(run.table("slo").rows.size(), 1u + 24u * days) << start;
  }
}

TEST(number_of_steps, that_no_whole_number_holds_ends_the_run) {
  Case run(
      Changes{{"SIMDATS", "19000101"}, {"SIMDATE", "99991231"}, {"DT", "0.01"}, {"DTSAVE", "1"}});
  run.run();
  expect_told(run, "number of time steps: ");
  EXPECT_EQ(occurrences(run.outcome.err, "is out of range"), 1);
}

TEST(longest_step, that_keeps_the_calendar_is_a_day) {
  // A step into the next month ends on its first day. From January on 4, 3, 4, 3, 4, 3, 4, 4, 3, 4,
  // 3 steps of ten days lead into the next month; the 36th into November, the 37th to the 11th.
  Case run(Changes{{"DT", "240"}, {"DTSAVE", "240"}, {"SIMDATE", "19980101"}});
  run.with("waves.dat", CALM).run();
  expect_run(run);
  // 365 days are 37 steps; the table shows the date of a 38th.
  const Table slo = run.table("slo");
  EXPECT_EQ(slo.rows.size(), 1u + 37u);
  EXPECT_EQ(slo.dates.back(), 19971121);
}

TEST(shortest_adaptive_step, of_a_ten_thousandth_of_an_hour_gets_lost_after_85_days) {
  // From 2048 hours on, 85.3 days, single precision has 4096 steps to the hour: what is less than
  // half of one is lost. Cells are so narrow that the first waves, after 87 calm days, ask for the
  // shortest step.
  const auto outcome = [](const std::string& DTMIN) {
    std::string waves;
    for (int day = 1; day <= 31 + 28 + 31; ++day) {
      const int date = day <= 31 ? 19970100 + day : day <= 59 ? 19970169 + day : 19970241 + day;
      waves += std::to_string(date) + " 0 " + (day <= 87 ? "0 8 0\n" : "3 10 10\n");
    }
    Changes changes = daily("19970101", "88");
    changes.insert({{"DTADAPT", "1"}, {"DX", "0.05"}, {"WAVEID", "20 20 90 waves.dat"}});
    if (!DTMIN.empty()) changes["DTMIN"] = DTMIN;
    Case run(changes);
    run.with("waves.dat", waves).run();
    return run.outcome;
  };
  const Outcome lost = outcome("");
  EXPECT_EQ(lost.status, 1);
  EXPECT_TRUE(
      lost.err.ends_with("kelprun: time step of 0.000100 h is too short to add to the "
                         "elapsed 2112.000000 h\n"))
      << lost.err;
  EXPECT_EQ(occurrences(outcome("0.1").err, "too short to add"), 0);
}

}  // namespace
}  // namespace kelptest
