#include <functional>

#include "runs/limits_case.h"

/// The greatest number of everything that a run may hold: so many are run, and one more is refused.
namespace kelptest {
namespace {

/// Something that is counted: the lines of so many of it, and what is said of one more.
struct Count {
  std::string name;
  int most;
  int cells;  ///< of a coast that has room for them
  std::function<Lines(int)> lines;
  Lines printed;
  std::string message;
};

std::ostream& operator<<(std::ostream& out, const Count& row) { return out << row.name; }

std::string line(const std::string& keyword, int value) {
  return keyword + ": " + std::to_string(value);
}

/// Groins every `step` walls from the first wall on.
Lines groins(const std::string& kind, int count, int first, int step) {
  Lines result;
  for (int k = 0; k < count; ++k) {
    result.insert(result.end(), {line("IX" + kind, first + step * k), "Y" + kind + ": 150"});
    if (kind == "DG") result.emplace_back("DDG: 2");
  }
  return result;
}

Lines breakwaters(int count) {
  Lines result;
  for (int k = 0; k < count; ++k)
    result.insert(result.end(), {line("DBI1", 3 + 4 * k), line("DBI2", 5 + 4 * k), "DBY1: 300",
                                 "DBY2: 300", "DBDEP1: 3", "DBDEP2: 3"});
  return result;
}

Lines inlets(int count) {
  Lines result;
  for (int k = 0; k < count; ++k) {
    const int first = 5 + 6 * k;
    result = all({result, inlet(first, first + 1), placement(first - 1, first + 2)});
  }
  return result;
}

Lines dredgings(int count) {
  return all(
      {inlet(9, 11), placement(7, 13),
       times(count, {"IMOR: 3", "IDREDS: 19970101", "IDREDE: 19970101", "DRDAY: 1", "DREDV: 24"})});
}

Count counted(const std::string& name, const std::string& keyword, int most, const Lines& lines) {
  return {name,
          most,
          20,
          [lines](int count) { return times(count, lines); },
          {},
          keyword + ": " + std::to_string(most + 1) + " lines, at most " + std::to_string(most) +
              " are possible"};
}

const std::vector<Count> COUNTS{
    {"non_diffracting_groins", 250, 1000, [](int count) { return groins("NDG", count, 3, 3); },
     free_lines({" ERROR. TOO MANY NON-DIFFRACTING GROINS. PLEASE",
                 " CHANGE VALUE OF \"NNDG\" IN YOUR .spd FILE.", " MAXIMUM NUMBER IS 250"}),
     " ERROR. TOO MANY NON-DIFFRACTING GROINS. PLEASE"},
    {"diffracting_groins", 250, 1000, [](int count) { return groins("DG", count, 3, 3); },
     free_lines({" ERROR. TOO MANY DIFFRACTING GROINS. PLEASE CHANGE",
                 " VALUE OF \"NDG\" IN YOUR .spd FILE.", " MAXIMUM NUMBER IS 250"}),
     " ERROR. TOO MANY DIFFRACTING GROINS. PLEASE CHANGE"},
    {"breakwaters", 125, 600, breakwaters,
     free_lines({" ERROR. TOO MANY DETACHED BREAKWATERS. PLEASE",
                 " CHANGE VALUE OF \"NDB\" IN YOUR .spd FILE.", " MAXIMUM NUMBER IS 125"}),
     " ERROR. TOO MANY DETACHED BREAKWATERS. PLEASE"},
    counted("seawalls", "ISWBEG", 4000, {"ISWBEG: 5", "ISWEND: 5", "SWY1: 50", "SWY2: 50"}),
    counted("fills", "BFDATS", 250, {"BFDATS: 1", "BFDATE: 3", "IBFS: 5", "IBFE: 6", "YADD: 0.01"}),
    {"bypass_operations",
     250,
     20,
     [](int count) {
       return times(count, {"BPDATS: 1", "BPDATE: 3", "IBPS: 5", "IBPE: 6", "QBP: 0.01"});
     },
     {},
     "ERROR. Too many bypassing operations."},
    {"inlets", 250, 1600, inlets, {}, "IINLS: 251 lines, at most 250 are possible"},
    {"dredging_events", 25000, 20, dredgings, {}, "IMOR: more than 25000 dredging events"},
    counted("budget_cells", "ILEDGV1", 500, {"ILEDGV1: 5", "ILEDGV2: 6"}),
    counted("flux_arrows", "ILEDGQ1", 500, {"ILEDGQ1: 5", "ILEDGQ2: 6"}),
    {"print_dates", 500, 20, [](int count) { return times(count, {"PRDATE: 3"}); },
     free_lines({" ERROR. TOO MANY INTERMEDIATE PRINT-OUTS REQUESTED.",
                 " PLEASE CHANGE VALUE OF \"NOUT\" IN START FILE.", " MAXIMUM NUMBER IS 500"}),
     " ERROR. TOO MANY INTERMEDIATE PRINT-OUTS REQUESTED."},
    {"placement_cells",
     4000,
     20,
     [](int count) {
       return all(
           {inlet(9, 11), {line("IBYPL1", 8 - count), "IBYPL2: 7", "IBYPR1: 13", "IBYPR2: 13"}});
     },
     {},
     "inlet 1: placement cells -3993 to 7 are more than a coast has"},
};

class limit_of : public testing::TestWithParam<Count> {};

TEST_P(limit_of, is_run_and_one_more_is_refused) {
  const Count& row = GetParam();
  const std::vector<double> shoreline(static_cast<std::size_t>(row.cells), 100.0);
  const auto run_with = [&](int count) {
    Case run(wide(row.cells), row.lines(count));
    run.with("shore.dat", values_file(shoreline)).run();
    return run.outcome;
  };
  const Outcome accepted = run_with(row.most);
  EXPECT_EQ(accepted.status, 0) << accepted.err;
  EXPECT_TRUE(accepted.out.ends_with(text_of({closing()}))) << accepted.out;
  const Outcome refused = run_with(row.most + 1);
  EXPECT_EQ(refused.status, 1);
  EXPECT_TRUE(refused.out.ends_with(text_of({row.printed, {fatal_record(row.message)}})))
      << refused.out;
}

INSTANTIATE_TEST_SUITE_P(the, limit_of, testing::ValuesIn(COUNTS),
                         [](const auto& row) { return row.param.name; });

TEST(limits, groins_of_both_kinds_are_500_together) {
  Case run(wide(2000), all({groins("NDG", 250, 6, 6), groins("DG", 250, 3, 6)}));
  run.with("shore.dat", values_file(std::vector<double>(2000, 100.0))).run();
  expect_run(run);
}

TEST(limits, a_coast_of_one_cell_is_run_and_one_of_none_is_refused) {
  Case one(wide(1));
  one.with("shore.dat", values_file({100.0})).run();
  expect_run(one);
  EXPECT_EQ(one.table("slo").rows.back(), std::vector<double>{100.0});
  Case none(Changes{{"NX", "0"}});
  none.run();
  expect_refusal(none, {}, "NX is 0, at least 1 cell is needed");
}

// Records. The clock times of the first two make an hour; all are 0.1.
std::string hourly_records(int count) {
  std::string text = "19970101 0 .1\n";
  for (int k = 2; k <= count; ++k) text += "19970101 100 .1\n";
  return text;
}

const Lines COMPUTED_TRANSMISSION{"DBI1: 5",   "DBI2: 9",   "DBY1: 300",  "DBY2: 300",
                                  "DBDEP1: 3", "DBDEP2: 3", "KTMETDB: 0", "HDB: 3",
                                  "BDB: 5",    "SSDB: 0.5", "SHSDB: 0.5", "D50DB: 1"};

TEST(limits, water_levels_are_2_to_100000) {
  const std::string records = hourly_records(100000);
  for (const int count : {2, 100000}) {
    Case run({}, all({COMPUTED_TRANSMISSION, {"WLFILE: " + std::to_string(count) + " level.dat"}}));
    run.with("level.dat", records).run();
    expect_run(run);
  }
  for (const int count : {1, 100001}) {
    Case refused({},
                 all({COMPUTED_TRANSMISSION, {"WLFILE: " + std::to_string(count) + " level.dat"}}));
    refused.with("level.dat", records).run();
    expect_refusal(refused, {},
                   "WLFILE: " + std::to_string(count) + " records lie outside 2 to 100000");
  }
}

TEST(limits, tidal_currents_are_2_to_100000) {
  const std::string records = hourly_records(100000);
  for (const int count : {2, 100000}) {
    Case run({}, {"TIDEFILE: 20 " + std::to_string(count) + " tide.dat"});
    run.with("tide.dat", records).run();
    expect_run(run);
  }
  for (const int count : {1, 100001}) {
    Case refused({}, {"TIDEFILE: 20 " + std::to_string(count) + " tide.dat"});
    refused.with("tide.dat", records).run();
    expect_refusal(refused, {},
                   "TIDEFILE: " + std::to_string(count) + " records lie outside 2 to 100000");
  }
}

TEST(limits, wave_records_are_at_most_2_million) {
  std::string records = hourly_waves(19970101, 10, "1 8 10");
  for (int k = 11; k <= 2000000; ++k) records += "19970102 0\n";
  Case run(Changes{{"WAVEID", "20 20.0 2000000 waves.dat"}});
  run.with("waves.dat", records);
  run.outcome = run_program(run.folder, {"run.cfg"}, 50);
  expect_run(run);
  Case refused(Changes{{"WAVEID", "20 20.0 2000001 waves.dat"}});
  refused.run();
  expect_refusal(refused, {}, "WAVEID: 2000001 wave events lie outside 0 to 2000000");
}

/// The program with so many open files. The search for leaks of a sanitizer needs one more at the
/// end, which is not there.
Outcome run_with_open_files(const Case& run, int most) {
  return run_shell(run.folder, "ulimit -n " + std::to_string(most) +
                                   "; ASAN_OPTIONS=exitcode=99:detect_leaks=0 exec \"$0\" run.cfg");
}

TEST(limits, files_are_as_many_as_the_system_lets_a_program_have_open) {
  Lines waves;
  for (int k = 2; k <= 100; ++k)
    waves.push_back("WAVEID: " + std::to_string(k) + " 20 0 waves.dat");
  Case run(wide(200, {{"NUMWAVES", "100"}, {"WAVEID", "1 20 0 waves.dat"}}), waves);
  run.with("shore.dat", values_file(std::vector<double>(200, 100.0)));
  run.outcome = run_with_open_files(run, 64);
  expect_refusal(run, {}, "Cannot not open wave file");
  run.outcome = run_with_open_files(run, 128);
  expect_run(run);
  Case tables(wide(400), inlets(60));
  tables.with("shore.dat", values_file(std::vector<double>(400, 100.0)));
  tables.outcome = run_with_open_files(tables, 64);
  EXPECT_EQ(tables.outcome.status, 1);
  EXPECT_TRUE(tables.outcome.err.ends_with(".irv: cannot be opened: Too many open files\n"))
      << tables.outcome.err;
}

}  // namespace
}  // namespace kelptest
