#include "runs/wrong_input/family.h"

/// Grids, times, counts and physics that no run can have.
namespace kelptest {
namespace {

Wrong checked(const std::string& name, const Changes& changes, const Lines& told) {
  return {.name = name, .changes = changes, .told = told};
}

/// Refused while the configuration is being read or at its end.
Wrong read(const std::string& name, const Changes& changes, const Lines& told) {
  return {.name = name, .changes = changes, .told = told, .kept = Kept::report_and_tables};
}

/// Refused behind the opening of the tables.
Wrong late(const std::string& name, const Changes& changes, const Lines& told) {
  return {.name = name, .changes = changes, .told = told, .kept = Kept::nothing};
}

TEST(wrong_grids, are_refused) {
  Family rows("grids");
  for (const std::string NX : {"0", "-1", "-2147483648"})
    rows.refuse(checked("NX " + NX, {{"NX", NX}}, {"NX is " + NX, "at least 1"}));
  for (const std::string NX : {"4001", "99999999", "2147483647"})
    rows.refuse(checked("NX " + NX, {{"NX", NX}}, {"TOO MANY SHORELINE CELLS", "4000"}));
  // What stands for 20 cells leaves the others without a value.
  rows.refuse(checked("NX beyond its lists", {{"NX", "30"}}, {"K1 at cell 21"}));
  for (const std::string DX : {"0", "-2", "-1e30", "-0"})
    rows.refuse(checked("DX " + DX, {{"DX", DX}}, {"DX must be above 0"}));
  rows.refuse(checked("DX -1 without a file", {{"DX", "-1"}}, {"DXFILE", "DX is -1"}));
  for (const std::string width : {"0", "-100", "-1"}) {
    std::string text = values_file(std::vector<double>(20, 100.5));
    text.replace(text.rfind("100.5"), 5, width);
    rows.refuse(Wrong{.name = "last width " + width,
                      .changes = {{"DX", "-1"}, {"DXFILE", "dx.dat"}},
                      .files = {{"dx.dat", text}},
                      .told = {"DX of cell 20 must be above 0"}});
  }
  for (const std::string IREG : {"-1", "4", "99999999"})
    rows.refuse(checked("IREG " + IREG, {{"IREG", IREG}}, {"IREG " + IREG, "0 to 3"}));
  for (const std::string IREG : {"1", "3"})
    rows.refuse(checked("IREG " + IREG + " without a file", {{"IREG", IREG}},
                        {"REGFILE", "IREG is " + IREG}));
  rows.refuse(checked("window below 0", {{"IWAVREGSMOOTH", "-1"}}, {"IWAVREGSMOOTH", "-1"}));
}

TEST(wrong_lists_along_the_coast, are_refused) {
  Family rows("lists along the coast");
  for (const std::string K1 : {"0", "-0.4"})
    rows.refuse(checked("K1 " + K1, {{"K1", K1}}, {"K1 at cell 1 must be above 0"}));
  rows.refuse(checked("more ends than values", {{"IK1END", "10 20"}}, {"K1 at cell 11"}));
  rows.refuse(checked("end below 0", {{"IDCLOSEND", "-3"}}, {"IDCLOSEND holds -3"}));
  rows.refuse(checked("second end below 0", {{"IHAMPEND", "5 -3"}}, {"IHAMPEND holds -3"}));
  rows.refuse(checked("profile of no height", {{"BERMHT", "-8"}}, {"DCLOS + BERMHT at cell 1"}));
  rows.refuse(checked("profile of no height from cell 6",
                      {{"DCLOS", "8 -2"}, {"IDCLOSEND", "5 20"}}, {"DCLOS + BERMHT at cell 6"}));
  for (const std::string value : {"0", "-0.3"}) {
    rows.refuse(checked("D50 " + value, {{"D50", value}}, {"D50 must be above 0"}));
    rows.refuse(checked("GAMMA " + value, {{"GAMMA", value}}, {"GAMMA must be above 0"}));
  }
  rows.refuse(late("HAMP below 0", {{"HAMP", "-1"}}, {"check input wave parameters"}));
}

TEST(wrong_times, are_refused) {
  Family rows("times");
  const Lines start{"INCORRECT FORMAT ON SIMULATION START DATE"};
  for (const std::string date : {"19971301", "19979901", "19970132", "19970199"})
    rows.refuse(checked("start " + date, {{"SIMDATS", date}}, start));
  for (const std::string date : {"-1", "-9970101"})
    rows.refuse(checked("start " + date, {{"SIMDATS", date}}, {"SIMDATS", date}));
  for (const std::string date : {"19961231", "18000001"})
    rows.refuse(read("end " + date, {{"SIMDATE", date}}, {"SIMDATE must be >= SIMDATS"}));
  rows.refuse(checked("end at the start", {{"SIMDATE", "19970101"}},
                      {"ENDING DATE MUST BE LATER", "STARTING DATE"}));
  for (const std::string steps : {"0", "-5", "-9999999"})
    rows.refuse(checked(steps + " steps", {{"SIMDATE", steps}}, {"SIMDATE " + steps}));
  for (const std::string DT : {"0", "-1", "-0", "1e-50"})
    rows.refuse(read("DT " + DT, {{"DT", DT}}, {"DT must be > 0."}));
  for (const std::string DTSAVE : {"0", "-1", "1e-50"})
    rows.refuse(read("DTSAVE " + DTSAVE, {{"DTSAVE", DTSAVE}}, {"DTSAVE must be > 0."}));
  rows.refuse(checked("more steps than a number counts", {{"DT", "1e-9"}, {"SIMDATE", "19970201"}},
                      {"number of time steps"}));
  rows.refuse(checked("no step in the whole run", {{"DT", "1000000"}, {"SIMDATE", "19970102"}},
                      {"SIMDATE 19970102", "0 time steps"}));
  rows.refuse(late("steps beyond the calendar", {{"DT", "1e30"}, {"DTSAVE", "1e30"}},
                   {"day number", "DT"}));
  for (const auto& [DT, DTSAVE] : std::vector<std::pair<std::string, std::string>>{
           {"3", "7"}, {"3", "1"}, {"1", "1e30"}, {"1", "0.5"}})
    rows.refuse(late("DTSAVE " + DTSAVE + " of " + DT, {{"DT", DT}, {"DTSAVE", DTSAVE}},
                     {"DTSAVE not a multiple of simulation time step"}));
  for (const std::string STABMIN : {"0", "-1"})
    rows.refuse(checked("STABMIN " + STABMIN, {{"DTADAPT", "1"}, {"STABMIN", STABMIN}},
                        {"STABMIN must be above 0"}));
  Lines dates(501, "PRDATE: 3");
  rows.refuse(Wrong{.name = "501 print dates",
                    .more_lines = dates,
                    .told = {"TOO MANY INTERMEDIATE PRINT-OUTS", "500"}});
}

TEST(wrong_wave_gauges, are_refused) {
  Family rows("wave gauges");
  for (const std::string count : {"0", "2", "-1", "99999999", "-9999999"})
    rows.refuse(checked("NUMWAVES " + count, {{"NUMWAVES", count}}, {"NUMWAVES is " + count}));
  const auto gauge = [&](const std::string& line, const Lines& told) {
    rows.refuse(checked("WAVEID " + line, {{"WAVEID", line + " waves.dat"}}, told));
  };
  for (const std::string cell : {"0", "-1", "22", "2147483647", "-2147483648"})
    gauge(cell + " 20 0", {"WAVEID end cell " + cell, "1 to 21"});
  for (const std::string depth : {"0", "-20"})
    gauge("20 " + depth + " 0", {"WAVEID", "depth", "above 0"});
  for (const std::string events : {"-1", "2000001", "2147483647"})
    gauge("20 20 " + events, {"WAVEID", events, "2000000"});
  gauge("20 20 1", {"WAVEID", "1 wave event"});
  for (const std::string second : {"15", "10"})
    rows.refuse(Wrong{.name = "second gauge at " + second,
                      .changes = {{"NUMWAVES", "2"}, {"WAVEID", "15 20 0 waves.dat"}},
                      .more_lines = {"WAVEID: " + second + " 20 0 waves.dat"},
                      .told = {"WAVEID", "ascend", second, "15"}});
}

TEST(wrong_counts_of_records, are_refused) {
  Family rows("counts of records");
  for (const std::string count : {"0", "1", "-1", "100001", "2147483647", "-2147483648"}) {
    rows.refuse(Wrong{.name = "WLFILE " + count,
                      .more_lines = {"WLFILE: " + count + " waves.dat"},
                      .told = {"WLFILE", count, "2 to 100000"}});
    rows.refuse(Wrong{.name = "TIDEFILE " + count,
                      .more_lines = {"TIDEFILE: 20 " + count + " waves.dat"},
                      .told = {"TIDEFILE", count, "2 to 100000"}});
  }
  for (const std::string cell : {"0", "-1", "22", "2147483647"})
    rows.refuse(Wrong{.name = "TIDEFILE at " + cell,
                      .more_lines = {"TIDEFILE: " + cell + " 2 waves.dat"},
                      .told = {"TIDEFILE end cell " + cell, "1 to 21"}});
  // The largest counts that are possible, of files that hold three records.
  const std::string three = hourly_waves(19970101, 3, "0.5 8 10");
  const auto short_file = [&](const std::string& name, const Changes& changes, const Lines& lines) {
    rows.refuse(Wrong{.name = name,
                      .changes = changes,
                      .more_lines = lines,
                      .files = {{"three.dat", three}},
                      .place = "three.dat: record 4 (line 3): ",
                      .told = {"ends after 3 records"}});
  };
  short_file("2000000 wave events", {{"WAVEID", "20 20 2000000 three.dat"}}, {});
  short_file("100000 water levels", {}, {"KTMETDB: 2", "WLFILE: 100000 three.dat"});
  short_file("100000 currents", {}, {"TIDEFILE: 20 100000 three.dat"});
}

/// Two clock times in files of waves, levels and currents.
TEST(wrong_steps_of_series, are_refused) {
  Family rows("steps of series");
  const auto two = [](const std::string& first, const std::string& second) {
    return "19970101 " + first + " 0.5 8 10\n19970101 " + second + " 0.5 8 10\n";
  };
  const auto series = [&](const std::string& first, const std::string& second,
                          const std::string& told) {
    const std::string text = two(first, second);
    rows.refuse(Wrong{.name = "levels " + second,
                      .more_lines = {"KTMETDB: 2", "WLFILE: 2 two.dat"},
                      .files = {{"two.dat", text}},
                      .told = {told, "ater level"}});
    rows.refuse(Wrong{.name = "currents " + second,
                      .more_lines = {"TIDEFILE: 20 2 two.dat"},
                      .files = {{"two.dat", text}},
                      .told = {told, "idal current"}});
  };
  series("0", "601", "exceeds 6 hours");
  series("0", "30", "Simulation time step greater");
  series("2300", "0", "Simulation time step greater");
  series("600", "600", "Simulation time step greater");
  series("0", "130", "not a multiple of simulation time step");
  const auto waves = [&](const std::string& first, const std::string& second,
                         const std::string& told, Kept kept) {
    rows.refuse(Wrong{.name = "waves " + second,
                      .changes = {{"WAVEID", "20 20 2 two.dat"}},
                      .files = {{"two.dat", two(first, second)}},
                      .told = {told},
                      .kept = kept});
  };
  waves("0", "30", "Simulation time step greater than wave time step", Kept::nothing);
  waves("600", "600", "Simulation time step greater than wave time step", Kept::nothing);
  waves("600", "0", "Simulation time step greater than wave time step", Kept::nothing);
  waves("0", "130", "Wave time step not a multiple", Kept::nothing);
  for (const auto& [date, told] : std::vector<std::pair<std::string, std::string>>{
           {"19970201", "Wave time step exceeds one month"},
           {"19980101", "Wave time step exceeds one year"},
           {"-19970101", "Wave time step exceeds one year"}})
    rows.refuse(Wrong{.name = "second wave on " + date,
                      .changes = {{"WAVEID", "20 20 2 two.dat"}},
                      .files = {{"two.dat", "19970101 0 1 8 10\n" + date + " 0 1 8 10\n"}},
                      .told = {told}});
}

TEST(numbers_that_no_computer_holds, end_in_a_warning_and_status_1) {
  for (const auto& [changes, lines] : std::vector<std::pair<Changes, Lines>>{
           {{}, {"BPDATS: 1", "BPDATE: 5", "IBPS: 3", "IBPE: 9", "QBP: 1e308"}},
           {{{"WAVEID", "20 1e38 0 waves.dat"}}, {}},
           {{{"WAVEID", "20 1e-30 0 waves.dat"}}, {}}}) {
    Case run(changes, lines);
    run.run();
    EXPECT_EQ(run.outcome.status, 1);
    EXPECT_EQ(occurrences(run.outcome.err, "the shoreline is no number any more: date 19970101"), 1)
        << run.outcome.err;
  }
}

TEST(input_that_is_tolerated, is_warned_of) {
  struct Slip {
    Changes changes;
    Lines lines;
    std::string warning;
  };
  for (const auto& [changes, lines, warning] : std::vector<Slip>{
           {{}, {"IXNDG: 8", "YNDG: 200", "PNDG: -0.5"}, "PNDG of the groin at wall 8"},
           {{}, {"IXDG: 8", "YDG: 200", "DDG: 4", "PDG: -0.5"}, "PDG of the groin at wall 8"},
           {{{"K1", "0.4 0.5 0.6"}, {"IK1END", "10 5 20"}}, {}, "IK1END holds end cells out of"},
           {{{"IHAMPEND", "10 20"}}, {}, "HAMP is 0 at cell 11"},
           {{{"HAMP", ""}}, {}, "HAMP is 0 in every cell"},
           {{{"THETAAMP", ""}}, {}, "THETAAMP is 0 in every cell"},
           {{{"IK2END", "25"}}, {}, "IK2END holds end cells beyond NX = 20"},
           {{}, {"BFDATS: 1", "BFDATE: 5", "IBFS: 30", "IBFE: 40", "YADD: 1"}, "no cell in the"},
           {{}, {"BFDATS: 5", "BFDATE: 1", "IBFS: 3", "IBFE: 4", "YADD: 1"}, "never acts"},
           {{}, {"BPDATS: 5", "BPDATE: 1", "IBPS: 3", "IBPE: 4", "QBP: 1"}, "never acts"}}) {
    Case run(changes, lines);
    run.run();
    EXPECT_EQ(run.outcome.status, 0) << warning;
    EXPECT_TRUE(run.outcome.err.starts_with("kelprun: warning: ")) << run.outcome.err;
    EXPECT_EQ(kelptest::lines(run.outcome.err).size(), 1u) << run.outcome.err;
    EXPECT_GT(occurrences(run.outcome.err, warning), 0) << run.outcome.err;
  }
}

}  // namespace
}  // namespace kelptest
