#include <algorithm>

#include "runs/case.h"

/// What the run tells of its waves: cycling, steepness, angles from behind, DLTZ, instability.
namespace kelptest {
namespace {

const std::string STARS(63, '*');

Lines cycling_block(int WAVEID, int date, int first_date) {
  return free_lines(
      {std::string(44, ' '), STARS,
       " WARNING: Current wave event exceeds maximum number of wave    ",
       "          events as specified in control file(*.kel).          ",
       "          Cycling back to first wave event.                    ",
       "          Specified maximum number of wave events: " + std::to_string(WAVEID), " ",
       "          Current simulation date is:             " + std::to_string(date),
       "          Newly cycled wave event date is:        " + std::to_string(first_date), STARS});
}

/// The numbers behind every occurrence of the text.
std::vector<double> values_behind(const std::string& report, const std::string& text) {
  std::vector<double> values;
  for (auto at = report.find(text); at != std::string::npos; at = report.find(text, at + 1))
    values.push_back(std::stod(report.substr(at + text.size(), 20)));
  return values;
}

TEST(cycling, is_told_at_each_wrap_of_the_event_index_while_the_file_is_read_on) {
  // Three events in the table, nine in the file: the index wraps in steps 3 and 6.
  Case cycled(Changes{{"WAVEID", "20 20.0 3 waves.dat"}, {"SIMDATE", "8"}, {"PRWARN", "T"}});
  cycled.with("waves.dat", hourly_waves(19970101, 9, "1.0 8.0 10.0")).run();
  EXPECT_EQ(cycled.outcome.status, 0);
  const std::string block = text_of({cycling_block(3, 19970101, 19970101)});
  EXPECT_EQ(occurrences(cycled.report(), block), 2) << cycled.report();
  EXPECT_EQ(occurrences(cycled.report(), "Cycling back"), 2);
  EXPECT_TRUE(text_of({cycled.behind_head()}).starts_with(block + block)) << cycled.report();
  EXPECT_EQ(occurrences(cycled.outcome.out, "Cycling"), 0);

  Case all(Changes{{"WAVEID", "20 20.0 9 waves.dat"}, {"SIMDATE", "8"}, {"PRWARN", "T"}});
  all.with("waves.dat", hourly_waves(19970101, 9, "1.0 8.0 10.0")).run();
  EXPECT_EQ(occurrences(all.report(), "Cycling back"), 0);
  for (const char* table : {"run.slo", "run.qtr", "run.mqn"})
    EXPECT_EQ(cycled.folder.read(table), all.folder.read(table)) << table;
}

TEST(cycling, is_told_once_without_repeated_warnings) {
  Changes changes{{"WAVEID", "20 20.0 3 waves.dat"}, {"SIMDATE", "8"}, {"PRWARN", "F"}};
  Case cycled(changes);
  cycled.with("waves.dat", hourly_waves(19970101, 9, "1.0 8.0 10.0")).run();
  const std::string block = text_of({cycling_block(3, 19970101, 19970101)});
  EXPECT_EQ(occurrences(cycled.report(), block), 1);
  EXPECT_EQ(occurrences(cycled.report(), "Cycling back"), 1);
  changes["PRTOUT"] = "F";
  Case warnings_alone(changes);
  warnings_alone.with("waves.dat", hourly_waves(19970101, 9, "1.0 8.0 10.0")).run();
  EXPECT_EQ(warnings_alone.report(), block);
}

TEST(cycling, holds_for_a_steady_wave_at_every_reading) {
  for (const bool repeated : {true, false}) {
    Case steady(Changes{{"SIMDATE", "5"}, {"PRWARN", repeated ? "T" : "F"}, {"PRTOUT", "F"}});
    steady.run();
    expect_completed(steady);
    const Lines block = cycling_block(0, 19970101, 0);
    EXPECT_EQ(lines(steady.report()), repeated ? all({block, block, block, block, block}) : block);
  }
}

/// Daily records on 1, 2 and 6 January and later; the table holds the first three of them.
std::string records_with_a_gap() {
  std::string text;
  for (const int day : {1, 2, 6, 7, 8, 9, 10})
    text += std::to_string(19970100 + day) + " 0 1.0 8.0 10.0\n";
  return text;
}

TEST(first_wave, a_start_date_absent_from_the_table_keeps_the_index_at_0) {
  Case run(Changes{{"WAVEID", "20 20.0 3 waves.dat"},
                   {"SIMDATS", "19970105"},
                   {"SIMDATE", "4"},
                   {"DT", "24"},
                   {"DTSAVE", "24"},
                   {"PRWARN", "T"}});
  run.with("waves.dat", records_with_a_gap()).run();
  EXPECT_EQ(run.outcome.status, 0);
  // 0 at the start, so that the fourth reading passes 3: in step 4, dated 9 January.
  EXPECT_EQ(occurrences(run.report(), text_of({cycling_block(3, 19970110, 19970101)})), 1);
  EXPECT_EQ(occurrences(run.report(), "Cycling back"), 1);
}

TEST(first_wave, is_the_first_of_the_table_with_the_month_and_day_of_the_start) {
  Case run(Changes{{"WAVEID", "20 20.0 3 waves.dat"},
                   {"SIMDATS", "19970106"},
                   {"SIMDATE", "3"},
                   {"DT", "24"},
                   {"DTSAVE", "24"},
                   {"PRWARN", "T"}});
  run.with("waves.dat", records_with_a_gap()).run();
  // The third entry: the first reading already passes the table's end, in step 1.
  EXPECT_EQ(occurrences(run.report(), text_of({cycling_block(3, 19970108, 19970101)})), 1);
  EXPECT_EQ(occurrences(run.report(), "Cycling back"), 1);
}

TEST(wave_file, records_before_the_start_date_are_thrown_away) {
  const std::string waves = hourly_waves(19970101, 10, "1.0 8.0 10.0");
  const std::string earlier = hourly_waves(19961201, 30, "4.0 12.0 -40.0");
  Case plain(Changes{{"WAVEID", "20 20.0 10 waves.dat"}});
  plain.with("waves.dat", waves).run();
  expect_completed(plain);
  Case skipping(Changes{{"WAVEID", "20 20.0 40 waves.dat"}});
  skipping.with("waves.dat", earlier + waves).run();
  expect_completed(skipping);
  for (const char* table : {"run.slo", "run.qtr", "run.off", "run.mqn"})
    EXPECT_EQ(skipping.folder.read(table), plain.folder.read(table)) << table;
}

TEST(steepness, is_told_for_every_wall_with_repeated_warnings) {
  Case steep(Changes{{"SIMDATE", "2"}, {"PRWARN", "T"}});
  steep.with("waves.dat", "3 3 10\n").run();
  expect_completed(steep);
  const std::string report = steep.report();
  EXPECT_EQ(occurrences(report,
                        " WARNING. UNPHYSICAL DEEPWATER WAVE STEEPNESS.\n"
                        "  WAVE HEIGHT REDUCED TO MATCH HZ/LZ = 0.142\n"
                        "  GIVING HZ = "),
            2 * 21);
  // 0.142 times the deep-water length of 1.56 T^2.
  for (const double HZ : values_behind(report, "GIVING HZ = "))
    EXPECT_NEAR(HZ, 0.142 * 1.56 * 9.0, 1e-6);
  EXPECT_EQ(occurrences(report, "  DATE IS 19970101.  TIME STEP IS 1\n"), 1) << report;
  EXPECT_EQ(occurrences(report, "  DATE IS 19970101.  TIME STEP IS 2\n"), 1);
}

TEST(steepness, is_told_once_without_repeated_warnings) {
  Case steep(Changes{{"SIMDATE", "4"}});
  steep.with("waves.dat", "3 3 10\n").run();
  const Lines report = lines(steep.report());
  const auto begin =
      std::find(report.begin(), report.end(), " WARNING. UNPHYSICAL DEEPWATER WAVE STEEPNESS.");
  ASSERT_GE(report.end() - begin, 4);
  EXPECT_EQ(begin[1], "  WAVE HEIGHT REDUCED TO MATCH HZ/LZ = 0.142");
  EXPECT_TRUE(begin[2].starts_with("  GIVING HZ = 1.9936"));
  EXPECT_EQ(begin[3], "");
  EXPECT_EQ(occurrences(steep.report(), "UNPHYSICAL"), 1);
  EXPECT_EQ(occurrences(steep.report(), "TIME STEP IS"), 1);
}

TEST(steepness, reports_the_height_in_the_length_unit_of_the_configuration) {
  Case steep(Changes{{"SIMDATE", "1"}, {"KELUNITS", "(ft)"}, {"WAVEID", "20 65.6168 0 waves.dat"}});
  steep.with("waves.dat", "3 3 10\n").run();
  const auto heights = values_behind(steep.report(), "GIVING HZ = ");
  ASSERT_EQ(heights.size(), 1u);
  EXPECT_NEAR(heights.front(), 0.142 * 1.56 * 9.0 / 0.3048, 1e-5);
}

TEST(steepness, caps_the_height_so_that_any_steeper_wave_moves_the_same_sand) {
  Case steep(Changes{{"SIMDATE", "3"}});
  steep.with("waves.dat", "3 3 10\n").run();
  Case steeper(Changes{{"SIMDATE", "3"}});
  steeper.with("waves.dat", "9 3 10\n").run();
  EXPECT_EQ(steep.folder.read("run.qtr"), steeper.folder.read("run.qtr"));
  EXPECT_NE(steep.table("qtr").rows.back().front(), 0.0);
}

TEST(several_wave_files, give_heights_and_periods_in_between_a_calm_and_a_stormy_one) {
  // File 1 reaches wall 10, file 2 wall 20. Between them height and period rise with the share f
  // of the way: 2 f and 0.1 + 3.9 f. The steepness cap shows both where 2 f > 0.142*1.56 T^2.
  Case mixed(
      Changes{
          {"NUMWAVES", "2"}, {"WAVEID", "10 20.0 0 calm.dat"}, {"SIMDATE", "1"}, {"PRWARN", "T"}},
      {"WAVEID: 20 20.0 0 storm.dat"});
  mixed.with("calm.dat", "0.05 6 30\n").with("storm.dat", "2 4 30\n").run();
  expect_completed(mixed);
  std::vector<double> capped;
  for (int wall = 11; wall <= 20; ++wall) {
    const double f = (wall - 10) / 10.0;
    const double T = 0.1 + 3.9 * f;
    const double most = 0.142 * 1.56 * T * T;
    if (2.0 * f > most) capped.push_back(most);
  }
  ASSERT_EQ(capped.size(), 5u);
  const auto told = values_behind(mixed.report(), "GIVING HZ = ");
  ASSERT_EQ(told.size(), capped.size());
  for (std::size_t k = 0; k < told.size(); ++k) EXPECT_NEAR(told[k], capped[k], 1e-5);
  // One cell without waves makes the pass calm.
  EXPECT_EQ(mixed.table("qtr").rows.back(), std::vector<double>(21, 0.0));
}

TEST(several_wave_files, with_the_same_wave_equal_one_file) {
  Case one(Changes{{"SIMDATE", "5"}});
  one.run();
  Case two(Changes{{"SIMDATE", "5"}, {"NUMWAVES", "2"}, {"WAVEID", "7 20.0 0 waves.dat"}},
           {"WAVEID: 20 20.0 0 waves.dat"});
  two.run();
  expect_completed(two);
  for (const char* table : {"run.slo", "run.qtr", "run.mqn"})
    EXPECT_EQ(two.folder.read(table), one.folder.read(table)) << table;
}

TEST(several_wave_files, serve_the_walls_up_to_the_first_end_cell_with_the_first_file_alone) {
  const Changes flat{{"SIMDATE", "1"}, {"K2", "0"}};
  Case one(flat);
  one.run();
  Changes split = flat;
  split["NUMWAVES"] = "2";
  split["WAVEID"] = "10 20.0 0 waves.dat";
  Case two(split, {"WAVEID: 20 20.0 0 higher.dat"});
  two.with("higher.dat", "2.0 8.0 10.0\n").run();
  const auto alone = one.table("qtr").rows.back();
  const auto both = two.table("qtr").rows.back();
  // Wall 10 still has the wave of file 1, and the smoothing of the field carries over one wall.
  for (std::size_t wall = 1; wall <= 9; ++wall) EXPECT_EQ(both[wall - 1], alone[wall - 1]);
  for (std::size_t wall = 10; wall <= 19; ++wall) EXPECT_GT(both[wall], both[wall - 1]) << wall;
}

TEST(wave_angles, beyond_90_degrees_are_counted_and_told_at_the_end) {
  Case behind(Changes{{"WAVEID", "20 20.0 6 waves.dat"}, {"SIMDATE", "6"}, {"PRTOUT", "F"}});
  behind
      .with("waves.dat",
            "19970101 0 1 8 95\n19970101 100 1 8 -90.5\n19970101 200 1 8 90\n"
            "19970101 300 1 8 -90\n19970101 400 1 8 10\n19970101 500 1 8 180\n")
      .run();
  expect_completed(behind);
  EXPECT_EQ(behind.outcome.out,
            text_of({opening(), banner(), begins(), year_block(0, 6, 19970101),
                     free_lines({"WARNING: Wave Angle is greater than 90 deg         or less "
                                 "than -90 deg.",
                                 "Number of Occurrences : 3"}),
                     closing()}));
  EXPECT_EQ(lines(behind.report()),
            all({cycling_block(6, 19970101, 19970101),
                 free_lines({"WARNING: Wave Angle is greater than 90 deg   or less than -90 deg.",
                             "Number of Occurrences : 3"})}));
}

TEST(wave_angles, of_exactly_90_degrees_are_no_bad_angles_but_move_nothing) {
  Case along(Changes{{"LBCTYPE", "3"}, {"LMOVPER", "3"}, {"LMOVY", "1"}});
  along.with("waves.dat", "1 8 90\n").run();
  expect_completed(along);
  EXPECT_EQ(occurrences(along.outcome.out, "Occurrences"), 0);
  const auto rows = along.table("slo").rows;
  EXPECT_EQ(rows, std::vector(rows.size(), std::vector<double>(20, 100.0)));
}

/// Whether one record, of a steady file, moves any sand.
bool moves_sand(const std::string& wave) {
  Case run(Changes{{"SIMDATE", "1"}, {"WAVEID", "20 500.0 0 waves.dat"}});
  run.with("waves.dat", wave + "\n").run();
  EXPECT_EQ(run.outcome.status, 0);
  return run.table("qtr").rows.back()[5] != 0.0;
}

TEST(screening, has_its_limits_at_exactly_0_1_and_98) {
  EXPECT_TRUE(moves_sand("0.1 8 10"));
  EXPECT_FALSE(moves_sand("0.0999 8 10"));
  EXPECT_FALSE(moves_sand("1 0.0999 10"));
  EXPECT_TRUE(moves_sand("98 20 10"));
  EXPECT_FALSE(moves_sand("98.001 20 10"));
  EXPECT_TRUE(moves_sand("1 98 10"));
  EXPECT_FALSE(moves_sand("1 98.001 10"));
}

TEST(depth_of_active_movement, that_is_not_above_0_ends_the_run) {
  // A height factor of -1 is the one way to a negative depth: steep waves are capped before.
  Case bad(Changes{{"NX", "12"},
                   {"HAMP", "1 -1"},
                   {"IHAMPEND", "3 12"},
                   {"IK1END", "12"},
                   {"IK2END", "12"},
                   {"ITHETAAMPEND", "12"},
                   {"ITHETADELEND", "12"},
                   {"IBERMHTEND", "12"},
                   {"IDCLOSEND", "12"},
                   {"WAVEID", "12 20.0 0 waves.dat"}});
  bad.run();
  expect_fatal(bad, {opening(), banner(), begins()},
               "ERROR. DLTZ is negative. Please check input wave parameters.");
  const std::string tens = "   8.00   8.00   8.00   8.00   8.00   8.00   8.00   8.00   8.00   8.00";
  const std::string angles =
      "  10.00  10.00  10.00  10.00  10.00  10.00  10.00  10.00  10.00  10.00";
  const Lines reported{"  ERROR. BAD BALANCE IN WAVE INPUT PARAMETERS",
                       "  CAUSING DLTZ TO BE ZERO OR NEGATIVE.",
                       "  PLEASE CHECK YOUR WAVE INPUT PARAMETERS.",
                       "  CURRENT TIME STEP: 1",
                       "  CURRENT INDEX: 4",
                       "  HRF:",
                       "   1.00   1.00   1.00  -1.00  -1.00  -1.00  -1.00  -1.00  -1.00  -1.00",
                       "  -1.00  -1.00",
                       "  TRF:",
                       tens,
                       "   8.00   8.00",
                       "  ZRFPRTOUT:",
                       angles,
                       "  10.00  10.00"};
  EXPECT_EQ(bad.behind_head(), all({cycling_block(0, 19970101, 0), reported}));
}

TEST(instability, is_told_on_the_console_in_every_pass_and_in_the_report_once) {
  // Three metre waves and steps of a day on cells of 100 m.
  const Lines told =
      free_lines({"WARNING!  Solution is unstable.", "Check printable output file for details."});
  for (const bool repeated : {false, true}) {
    Case unstable(Changes{
        {"DT", "24"}, {"DTSAVE", "24"}, {"SIMDATE", "2"}, {"PRWARN", repeated ? "T" : "F"}});
    unstable.with("waves.dat", "3 8 10\n").run();
    expect_completed(unstable);
    EXPECT_EQ(unstable.outcome.out, text_of({opening(), banner(), begins(), told, told,
                                             year_block(0, 2, 19970104), closing()}));
    const std::string report = unstable.report();
    EXPECT_EQ(occurrences(report,
                          "  WARNING!  CALCULATION SCHEME UNSTABLE.\n"
                          "  STABILITY PARAMETER = "),
              repeated ? 2 : 1);
    EXPECT_EQ(occurrences(report,
                          "\n  PLEASE CONSULT YOUR MANUAL.\n"
                          " date is 19970102 wave date is 0hours is 0\n hz is 3.zzdeg is "),
              1)
        << report;
    for (const double S : values_behind(report, "STABILITY PARAMETER = ")) EXPECT_GT(S, 0.5);
  }
}

TEST(instability, names_the_record_behind_which_the_event_index_stands) {
  Case unstable(Changes{{"DT", "24"},
                        {"DTSAVE", "24"},
                        {"SIMDATE", "3"},
                        {"PRWARN", "T"},
                        {"WAVEID", "20 20.0 2 waves.dat"}});
  unstable
      .with("waves.dat",
            "19970101 300 3 8 10\n19970102 300 3 8 10\n19970103 300 3 8 10\n"
            "19970104 300 3 8 10\n")
      .run();
  const std::string report = unstable.report();
  // Read with the index at 1, at 2, which wraps to 1, and at 1 again: the entry before the wrapped
  // index is the last one of the table.
  EXPECT_EQ(occurrences(report, " date is 19970102 wave date is 19970101hours is 300\n"), 1);
  EXPECT_EQ(occurrences(report, " date is 19970103 wave date is 19970102hours is 300\n"), 1);
  EXPECT_EQ(occurrences(report, " date is 19970104 wave date is 19970101hours is 300\n"), 1);
}

TEST(adaptive_step, is_told_on_console_and_report_alike_when_it_is_cut_and_when_it_grows) {
  // One storm on cells of 30 m needs steps of 0.75 hours instead of 6 (S 3.3, 1.6, 0.8, 0.4); six
  // quiet hours later the step doubles, and so on up to its first length.
  std::string waves = "19970101 0 3 8 10\n19970101 600 0.3 6 10\n";
  for (int record = 2; record < 60; ++record)
    waves += std::to_string(19970101 + record / 4) + " " + std::to_string(record % 4 * 600) +
             " 0.3 6 10\n";
  Case run(Changes{{"DX", "30"},
                   {"DT", "6"},
                   {"DTSAVE", "6"},
                   {"DTADAPT", "1"},
                   {"NSTABDTMIN", "0.25"},
                   {"SIMDATE", "19970111"},
                   {"WAVEID", "20 20.0 60 waves.dat"}});
  run.with("waves.dat", waves).run();
  const std::string report = run.report();
  for (const std::string* text :
       std::initializer_list<const std::string*>{&run.outcome.out, &report}) {
    EXPECT_EQ(occurrences(*text, " " + std::string(44, ' ') + "\n " + STARS +
                                     "\n  WARNING: Solution is unstable......................."
                                     "          \n"),
              1);
    EXPECT_EQ(occurrences(*text,
                          "\n  ACTION:  Commence adaptive time-step (DT) reduction!!!    "
                          "    \n " +
                              std::string(63, '-') + "\n " + std::string(40, ' ') + "\n"),
              1);
    EXPECT_EQ(occurrences(*text,
                          "           Current wave event date is:           19970101\n"
                          "           Current wave event hour is:            0\n"
                          "           Current wave Height (HZ)is:            3.\n"
                          "           Current wave Period (T)is:             8.\n"),
              1);
    EXPECT_EQ(occurrences(*text, " " + std::string(40, ' ') + "\n " + STARS +
                                     "\n  NOTICE: Computational efficiency can be improved...    "
                                     "       \n " +
                                     std::string(63, '-') +
                                     "\n  ACTION:  Commence adaptive time-step (DT) increase!!!  "
                                     "       \n           Current simulation date is:           "
                                     "     "),
              3);
    EXPECT_EQ(values_behind(*text, "NEW DT = "), (std::vector<double>{0.75, 1.5, 3.0, 6.0}));
    EXPECT_EQ(values_behind(*text, ".NEW STABILITY PARAMETER = ").size(), 4u);
    EXPECT_EQ(occurrences(*text, "\n " + STARS + "\n " + std::string(63, ' ') + "\n"), 4);
    for (const double S : values_behind(*text, ".NEW STABILITY PARAMETER = ")) EXPECT_LE(S, 0.5);
  }
}

}  // namespace
}  // namespace kelptest
