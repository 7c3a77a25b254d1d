#include "runs/case.h"

/// Names, first lines, dates and number fields of the result tables, limits of the grid, units.
namespace kelptest {
namespace {

const std::map<std::string, std::string> TITLES{
    {"slo", "Shoreline Position Output"},
    {"qtr", "Net Transport Rate"},
    {"off", "Calculated Offshore Contour"},
    {"mqn", "Mean Annual Net Transport Rate"},
    {"mqr", "Mean Annual Transport Rate to the Right"},
    {"mql", "Mean Annual Transport Rate to the Left"},
    {"vcc", "Volume Change Per Cell"},
    {"vcx", "Volume Change Per Linear Distance Unit Alongshore"}};

void expect_tables(const Case& run, const std::string& stem) {
  for (const auto& [suffix, title] : TITLES) {
    ASSERT_TRUE(run.folder.exists(stem + suffix)) << stem + suffix;
    EXPECT_EQ(lines(run.folder.read(stem + suffix)).front(), title);
  }
}

TEST(tables, take_their_names_from_the_report_up_to_its_first_full_stop) {
  for (const auto& [report, stem] :
       Changes{{"run.prt", "run."}, {"a.b.prt", "a."}, {"out/run.prt", "out/run."}}) {
    Case run(Changes{{"PRFILE", report}, {"SIMDATE", "1"}});
    run.with("out/keep", "").run();
    expect_completed(run);
    expect_tables(run, stem);
  }
}

TEST(tables, of_a_report_without_a_full_stop_follow_its_whole_name) {
  Case run(Changes{{"PRFILE", "report"}, {"SIMDATE", "1"}});
  run.run();
  expect_completed(run);
  expect_tables(run, "report");
}

TEST(tables, of_a_report_in_a_folder_with_a_full_stop_end_at_that_stop_and_are_told) {
  Case run(Changes{{"PRFILE", "./out/run.prt"}, {"SIMDATE", "1"}});
  run.with("out/keep", "").run();
  EXPECT_EQ(run.outcome.status, 0);
  EXPECT_EQ(lines(run.outcome.err).size(), 1u);
  EXPECT_TRUE(run.outcome.err.starts_with("kelprun: warning: PRFILE ./out/run.prt "))
      << run.outcome.err;
  EXPECT_TRUE(run.folder.exists("out/run.prt"));
  expect_tables(run, ".");
}

TEST(tables, of_a_report_in_the_folder_above_end_at_its_first_full_stop) {
  Case run(Changes{{"PRFILE", "../below/run.prt"}, {"SIMDATE", "1"}});
  run.with("below/keep", "");
  // The run starts in a folder beside that of the report.
  run.outcome = run_shell(run.folder,
                          "cd below && cp ../shore.dat ../waves.dat . && \"$0\" "
                          "../run.cfg");
  EXPECT_EQ(run.outcome.status, 0);
  EXPECT_TRUE(run.folder.exists("below/run.prt"));
  expect_tables(run, "below/.");
}

TEST(tables, of_a_run_without_report_have_no_stem) {
  Case run(Changes{{"PRFILE", ""}, {"PRTOUT", "F"}, {"SIMDATE", "2"}});
  run.run();
  expect_completed(run);
  expect_tables(run, "");
  EXPECT_EQ(run.table("slo", "").rows.size(), 3u);
}

TEST(tables, replace_those_of_an_earlier_run_from_the_start) {
  Case run(Changes{{"SIMDATE", "1"}});
  for (const auto& [suffix, title] : TITLES)
    run.with("run." + suffix, std::string(100000, 'x') + "\n");
  run.with("run.prt", std::string(100000, 'x') + "\n").run();
  expect_completed(run);
  for (const auto& [suffix, title] : TITLES)
    EXPECT_EQ(occurrences(run.folder.read("run." + suffix), "xx"), 0) << suffix;
  EXPECT_EQ(occurrences(run.report(), "xx"), 0);
}

TEST(tables, of_one_step_have_two_rows_with_the_same_date) {
  // The second row is due at the step in the first case, and is the closing one in the second.
  for (const char* interval : {"24", "48"}) {
    Case run(Changes{{"SIMDATE", "1"}, {"DT", "24"}, {"DTSAVE", interval}});
    run.run();
    expect_completed(run);
    for (const char* suffix : {"slo", "qtr", "off", "vcc", "vcx"})
      EXPECT_EQ(run.table(suffix).dates, (std::vector<int>{19970103, 19970103})) << suffix;
  }
}

TEST(tables, have_a_closing_row_only_where_the_interval_leaves_the_last_step_out) {
  Case divided(Changes{{"SIMDATE", "8"}, {"DTSAVE", "4"}});
  divided.run();
  EXPECT_EQ(divided.table("slo").rows.size(), 3u);
  Case undivided(Changes{{"SIMDATE", "10"}, {"DTSAVE", "4"}});
  undivided.run();
  EXPECT_EQ(undivided.table("slo").rows.size(), 4u);
  Case longer(Changes{{"SIMDATE", "3"}, {"DTSAVE", "4"}});
  longer.run();
  EXPECT_EQ(longer.table("slo").rows.size(), 2u);
}

TEST(tables, write_dates_in_8_columns_and_values_in_14_and_16) {
  Case run(
      Changes{{"NX", "3"}, {"WAVEID", "3 20.0 0 waves.dat"}, {"SIMDATE", "1"}, {"ISMOOTH", "1"}});
  run.with("waves.dat", "0 8 0\n").with("shore.dat", values_file({1234.565, -0.5, 12})).run();
  EXPECT_EQ(lines(run.folder.read("run.slo"))[1],
            "19970101"
            "       1234.57"  // in binary a little above the half
            "         -0.50"
            "         12.00");
  EXPECT_EQ(lines(run.folder.read("run.off"))[2],
            "19970101"
            "       1534.56"  // in single precision a little below it
            "        299.50"
            "        312.00");
  EXPECT_EQ(lines(run.folder.read("run.qtr"))[1],
            "19970101"
            "              0."
            "              0."
            "              0."
            "              0.");
}

TEST(tables, fill_a_field_with_asterisks_where_the_value_does_not_fit) {
  Case run(Changes{{"NX", "3"}, {"WAVEID", "3 20.0 0 waves.dat"}, {"SIMDATE", "1"}});
  run.with("waves.dat", "0 8 0\n")
      .with("shore.dat", "1\n2\n3\n4\n99999999999.99 1e11 -9999999999.99\n")
      .run();
  EXPECT_EQ(lines(run.folder.read("run.slo"))[1],
            "19970101"
            "99999999999.99"
            "**************"
            "-9999999999.99");
}

TEST(grid, of_4000_cells_is_run_and_its_last_wall_has_a_column) {
  Changes changes{{"NX", "4000"}, {"WAVEID", "4000 20.0 0 waves.dat"}, {"SIMDATE", "2"}};
  for (const char* list :
       {"IK1END", "IK2END", "IHAMPEND", "ITHETAAMPEND", "ITHETADELEND", "IBERMHTEND", "IDCLOSEND"})
    changes[list] = "4000";
  Case run(changes);
  run.with("shore.dat", values_file(std::vector<double>(4000, 100.0))).run();
  expect_completed(run);
  const auto rows = run.table("qtr").rows;
  ASSERT_EQ(rows.back().size(), 4001u);
  EXPECT_GT(rows.back()[4000], 0.0);
  EXPECT_EQ(rows.back()[4000], rows.back()[0]);
  EXPECT_EQ(run.table("slo").rows.back(), std::vector<double>(4000, 100.0));
}

TEST(units, feet_convert_lengths_but_not_wave_heights_in_metres) {
  Case metres(Changes{{"WAVEID", "20 20.0 0 waves.dat"}});
  metres.run();
  // The same numbers in feet but for the depth of the gauge, which stays 20 m.
  Case feet(Changes{{"WAVEID", "20 65.6168 0 waves.dat"}, {"KELUNITS", "(ft)"}});
  feet.run();
  expect_completed(feet);
  EXPECT_EQ(feet.table("slo").rows, metres.table("slo").rows);
  // The transport on a straight coast depends on the wave alone; 1 yard is 0.9144 m.
  const double per_yard = 0.9144 * 0.9144 * 0.9144;
  const auto m3 = metres.table("qtr").rows.back();
  const auto yards = feet.table("qtr").rows.back();
  for (std::size_t wall = 0; wall < m3.size(); ++wall)
    EXPECT_NEAR(yards[wall] * per_yard / m3[wall], 1.0, 1e-5);
}

TEST(units, wave_heights_in_feet_move_less_sand) {
  Case high(Changes{{"WAVUNITS", "(m)"}});
  high.with("waves.dat", "0.3048 8 10\n").run();
  Case low(Changes{{"WAVUNITS", "(ft)"}});
  low.with("waves.dat", "1 8 10\n").run();
  expect_completed(low);
  EXPECT_EQ(low.folder.read("run.qtr"), high.folder.read("run.qtr"));
}

TEST(configuration, spans_of_two_coefficients_meet_where_their_first_end_cell_says) {
  // Transport is in proportion to K1: 0.1 in cells 1 to 10 and 0.2 beyond.
  Case run(Changes{{"K1", "0.1 0.2"}, {"IK1END", "10"}, {"K2", "0"}, {"SIMDATE", "1"}});
  run.run();
  const auto Q = run.table("qtr").rows.back();
  for (std::size_t wall = 2; wall <= 10; ++wall) EXPECT_EQ(Q[wall - 1], Q[1]);
  for (std::size_t wall = 11; wall <= 20; ++wall) EXPECT_NEAR(Q[wall - 1] / Q[1], 2.0, 1e-4);
}

TEST(configuration, an_end_cell_equal_to_the_grid_ends_the_list) {
  Case ended(Changes{{"K1", "0.1 0.2 0.3"}, {"IK1END", "10 20 15"}});
  ended.run();
  Case plain(Changes{{"K1", "0.1 0.2"}, {"IK1END", "10 20"}});
  plain.run();
  EXPECT_EQ(ended.folder.read("run.qtr"), plain.folder.read("run.qtr"));
}

TEST(configuration, forms_that_mean_the_same_give_the_same_tables) {
  Case plain;
  plain.run();
  const std::vector<Changes> forms{
      {{"DX", "100 200 300"}},
      {{"SIMDATS", "199701019"}},
      {{"DX", ""}, {"dx ", " 100"}},
      {{"NX", "20 behind it"}},
      {{"K1", "0.4,"}},
      {{"DT", "1.d0"}},
      {{"PRWARN", ".false."}},
      {{"INIFILE", "\"shore.dat\""}},
      {{"WAVEID", "20,20.0,0,'waves.dat'"}},
      {{"SIMDATE", "3"}, {"simdate", "10"}},
      {{"SIMDATE", "1 0"}},
      {{"DX", "3*100"}},
      {{"K1", "0.4 / ten more"}},
  };
  for (const Changes& form : forms) {
    Case other(form, {"", "A line without a colon", " DT: 7", "NOKEYWORD: 7", "DT:"});
    other.run();
    expect_completed(other);
    for (const char* table : {"run.slo", "run.qtr", "run.mqn"})
      EXPECT_EQ(other.folder.read(table), plain.folder.read(table))
          << form.begin()->first << ": " << form.begin()->second;
  }
}

}  // namespace
}  // namespace kelptest
