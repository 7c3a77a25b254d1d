#include <filesystem>

#include "runs/case.h"

/// Files that fail while the model runs, names that collide, and results that are no numbers.
namespace kelptest {
namespace {

/// Every line ends, and every row but the title has the same length.
void expect_whole_records(const std::string& text) {
  ASSERT_FALSE(text.empty());
  EXPECT_TRUE(text.ends_with("\n"));
  const Lines all = lines(text);
  for (std::size_t k = 2; k < all.size(); ++k) EXPECT_EQ(all[k].size(), all[1].size()) << k;
}

TEST(wave_file, that_ends_early_names_the_record_and_what_the_run_needed) {
  Case ended(Changes{{"WAVEID", "20 20.0 5 waves.dat"}});
  ended.with("waves.dat", hourly_waves(19970101, 5, "1.0 8.0 10.0")).run();
  EXPECT_EQ(ended.outcome.status, 1);
  const Lines told = lines(ended.outcome.err);
  ASSERT_EQ(told.size(), 2u) << ended.outcome.err;
  EXPECT_TRUE(told[0].starts_with("kelprun: warning: ")) << told[0];
  EXPECT_GT(occurrences(told[0], "10"), 0);
  EXPECT_TRUE(told[1].starts_with("kelprun: waves.dat: record 6 (line 5): ")) << told[1];
  EXPECT_GT(occurrences(told[1], "6 wave records"), 0) << told[1];
  // The row before the first step and those of five steps stand.
  EXPECT_EQ(ended.table("slo").rows.size(), 6u);
  for (const char* table : {"run.slo", "run.qtr", "run.off", "run.vcc", "run.vcx"})
    expect_whole_records(ended.folder.read(table));
  EXPECT_EQ(occurrences(ended.outcome.out, "Simulation finished"), 0);
}

TEST(wave_file, shorter_than_its_announced_number_of_events_is_told_before_the_first_step) {
  Case ended(Changes{{"WAVEID", "20 20.0 12 waves.dat"}});
  ended.with("waves.dat", hourly_waves(19970101, 5, "1.0 8.0 10.0")).run();
  expect_run_time_message(ended, "kelprun: waves.dat: record 6 (line 5): ");
  EXPECT_EQ(occurrences(ended.outcome.out, "Time Simulation begins"), 0);
}

TEST(wave_file, that_is_empty_is_told_in_the_first_step) {
  Case ended;
  ended.with("waves.dat", "").run();
  expect_run_time_message(ended, "kelprun: waves.dat: record 1 (line 0): ");
}

TEST(wave_file, word_in_a_date_is_told_with_record_line_and_word) {
  Case ended(Changes{{"WAVEID", "20 20.0 4 waves.dat"}});
  ended.with("waves.dat", "19970101 0 1 8 10\n\n19970101 noon 1 8 10\n").run();
  expect_run_time_message(ended, "kelprun: waves.dat: record 2 (line 3): ");
  EXPECT_EQ(occurrences(ended.outcome.err, "'noon'"), 1);
}

TEST(wave_file, word_in_a_height_is_told_when_its_record_is_due) {
  Case ended(Changes{{"WAVEID", "20 20.0 10 waves.dat"}});
  const std::string good = hourly_waves(19970101, 3, "1.0 8.0 10.0");
  std::string text = good + "19970101 300 calm 8 10\n";
  for (int hour = 4; hour <= 9; ++hour)
    text += "19970101 " + std::to_string(100 * hour) + " 1 8 10\n";
  ended.with("waves.dat", text).run();
  expect_run_time_message(ended, "kelprun: waves.dat: record 4 (line 4): ");
  EXPECT_EQ(occurrences(ended.outcome.err, "'calm'"), 1);
  EXPECT_EQ(ended.table("slo").rows.size(), 4u);
}

TEST(shoreline_file, word_is_told_with_group_and_line) {
  Case ended;
  ended.with("shore.dat", "1\n2\n3\n4\n9 9 9 9 9 9 9 9 9 9\n9 9 9 9 groin 9 9 9 9 9\n").run();
  expect_run_time_message(ended, "kelprun: shore.dat: record 2 (line 6): ");
  EXPECT_EQ(occurrences(ended.outcome.err, "'groin'"), 1);
}

TEST(width_file, that_holds_a_width_of_0_is_refused_by_its_cell) {
  Case ended(Changes{{"DX", "-1"}, {"DXFILE", "dx.dat"}});
  std::vector<double> widths(20, 100.0);
  widths[6] = 0.0;
  ended.with("dx.dat", values_file(widths)).run();
  EXPECT_EQ(ended.outcome.status, 1);
  const std::string record = lines(ended.outcome.out).back();
  EXPECT_TRUE(record.starts_with("ERROR: ")) << record;
  EXPECT_GT(occurrences(record, "DX"), 0);
  EXPECT_GT(occurrences(record, "7"), 0);
}

TEST(tables, that_cannot_be_opened_are_named) {
  // The report lies in the folder itself, and the stem up to its first full stop names another.
  Case ended(Changes{{"PRFILE", "run.d/run.prt"}});
  std::filesystem::create_directory(ended.folder.path() / "run.d");
  std::filesystem::create_directory(ended.folder.path() / "run.slo");
  ended.run();
  expect_run_time_message(ended, "kelprun: run.slo: ");
}

TEST(tables, on_a_full_disk_keep_their_earlier_records_whole) {
  Case whole(Changes{{"SIMDATE", "400"}});
  whole.run();
  Case full(Changes{{"SIMDATE", "400"}});
  // No file may grow beyond 16 KiB; the signal of that limit is held back.
  full.outcome = run_shell(full.folder, "trap '' XFSZ; ulimit -f 32; exec \"$0\" run.cfg");
  EXPECT_EQ(full.outcome.status, 1);
  const Lines told = lines(full.outcome.err);
  ASSERT_EQ(told.size(), 1u) << full.outcome.err;
  EXPECT_TRUE(told[0].starts_with("kelprun: run.qtr: record ")) << told[0];
  for (const char* table : {"run.slo", "run.qtr", "run.off", "run.vcc", "run.vcx"}) {
    const std::string text = full.folder.read(table);
    expect_whole_records(text);
    EXPECT_LE(text.size(), 16384u);
    EXPECT_TRUE(whole.folder.read(table).starts_with(text)) << table;
  }
  // A row of 21 walls has 8 + 21*16 + 1 characters behind the title of 19.
  EXPECT_EQ(lines(full.folder.read("run.qtr")).size(), 1 + (16384 - 19) / 345);
}

TEST(report, on_a_full_disk_keeps_its_earlier_lines_whole) {
  Case full(Changes{{"SIMDATE", "400"}, {"PRWARN", "T"}, {"DTSAVE", "400"}});
  full.outcome = run_shell(full.folder, "trap '' XFSZ; ulimit -f 32; exec \"$0\" run.cfg");
  EXPECT_EQ(full.outcome.status, 1);
  EXPECT_TRUE(full.outcome.err.starts_with("kelprun: run.prt: record ")) << full.outcome.err;
  EXPECT_EQ(lines(full.outcome.err).size(), 1u);
  Case whole(Changes{{"SIMDATE", "400"}, {"PRWARN", "T"}, {"DTSAVE", "400"}});
  whole.run();
  const std::string kept = full.report();
  EXPECT_FALSE(kept.empty());
  EXPECT_TRUE(whole.report().starts_with(kept));
  EXPECT_TRUE(kept.empty() || kept.ends_with("\n"));
}

struct Collision {
  std::string name;
  Changes changes;
  std::string input;
};

std::ostream& operator<<(std::ostream& out, const Collision& row) { return out << row.name; }

const std::vector<Collision> COLLISIONS{
    {"report_over_the_shoreline", {{"PRFILE", "shore.dat"}}, "shore.dat"},
    {"report_over_the_configuration", {{"PRFILE", "run.cfg"}}, "run.cfg"},
    {"table_over_the_shoreline", {{"INIFILE", "run.slo"}}, "run.slo"},
    {"table_over_the_waves", {{"WAVEID", "20 20 0 ./run.qtr"}}, "run.qtr"},
    {"report_through_a_link", {{"PRFILE", "link.prt"}}, "shore.dat"},
    {"table_through_a_hard_link", {{"PRFILE", "hard.prt"}}, "shore.dat"},
    {"table_over_widths_not_yet_opened", {{"DX", "-1"}, {"DXFILE", "run.vcx"}}, "run.vcx"},
};

class outputs : public testing::TestWithParam<Collision> {};

TEST_P(outputs, that_would_overwrite_an_input_are_refused_and_the_input_stays) {
  const Collision& row = GetParam();
  Case refused(row.changes);
  refused.with("run.slo", refused.folder.read("shore.dat"))
      .with("run.qtr", refused.folder.read("waves.dat"))
      .with("run.vcx", values_file(std::vector<double>(20, 50.0)));
  std::filesystem::create_symlink("shore.dat", refused.folder.path() / "link.prt");
  std::filesystem::create_hard_link(refused.folder.path() / "shore.dat",
                                    refused.folder.path() / "hard.off");
  const std::string before = refused.folder.read(row.input);
  refused.run();
  expect_run_time_message(refused, "kelprun: ");
  EXPECT_GT(occurrences(refused.outcome.err, "overwrite"), 0);
  EXPECT_EQ(refused.folder.read(row.input), before);
}

INSTANTIATE_TEST_SUITE_P(rows, outputs, testing::ValuesIn(COLLISIONS),
                         [](const auto& row) { return row.param.name; });

TEST(output_names, that_share_one_name_are_refused) {
  Case refused(Changes{{"PRFILE", "run.slo"}});
  refused.run();
  expect_run_time_message(refused, "kelprun: run.slo: ");
}

TEST(shoreline, that_is_no_number_any_more_is_told_once_and_the_run_ends_with_status_1) {
  // Three metre waves at a gauge in 1 m of water have broken long ago: the breaking angle from
  // such a wave does not exist.
  Case lost(Changes{{"WAVEID", "20 1.0 0 waves.dat"}});
  lost.with("waves.dat", "3 8 60\n").run();
  EXPECT_EQ(lost.outcome.status, 1);
  const Lines told = lines(lost.outcome.err);
  ASSERT_EQ(told.size(), 1u) << lost.outcome.err;
  for (const char* part : {"kelprun: warning: ", "19970101", "step 1", "wall 1", "3.0", "8.0"})
    EXPECT_GT(occurrences(told[0], part), 0) << part;
  EXPECT_TRUE(lost.outcome.out.ends_with(text_of({closing()})));
  EXPECT_EQ(occurrences(lost.folder.read("run.slo"), "           NaN"), 10 * 20);
}

TEST(short_wave_table, is_told_before_a_run_that_the_file_can_serve_though) {
  Case warned(Changes{{"WAVEID", "20 20.0 3 waves.dat"}});
  warned.with("waves.dat", hourly_waves(19970101, 10, "1.0 8.0 10.0")).run();
  EXPECT_EQ(warned.outcome.status, 0);
  EXPECT_EQ(lines(warned.outcome.err).size(), 1u);
  EXPECT_TRUE(warned.outcome.err.starts_with("kelprun: warning: ")) << warned.outcome.err;
}

}  // namespace
}  // namespace kelptest
