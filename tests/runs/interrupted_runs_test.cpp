#include <algorithm>
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include "runs/case.h"

/// Runs that somebody ends from outside, or whose disk goes: nothing that was written is lost.
namespace kelptest {
namespace {

constexpr int STEPS = 200000;

/// A run that takes far longer than any test waits for it, with a table row at every step.
Changes endless() { return {{"SIMDATE", std::to_string(STEPS)}}; }

/// True once the table has so many bytes.
bool holds(const WorkFolder& folder, const std::string& name, std::uintmax_t bytes) {
  std::error_code absent;
  const std::uintmax_t size = std::filesystem::file_size(folder.path() / name, absent);
  return !absent && size >= bytes;
}

constexpr std::uintmax_t SOME_ROWS = 20000;

/// Sends the signal once, as soon as the table has some rows.
void run_until_signalled(Case& run, int signal) {
  bool sent = false;
  run.outcome = run_watched(run.folder, {"run.cfg"}, [&](pid_t pid) {
    if (!sent && holds(run.folder, "run.slo", SOME_ROWS)) {
      kill(pid, signal);
      sent = true;
    }
  });
  EXPECT_FALSE(run.outcome.timed_out);
}

struct Interruption {
  int signal;
  int status;
  std::string name;
};

class interrupted_run : public testing::TestWithParam<Interruption> {};

TEST_P(interrupted_run, ends_behind_its_step_and_tells_the_signal) {
  const Interruption& row = GetParam();
  Case run(endless());
  run_until_signalled(run, row.signal);
  EXPECT_EQ(run.outcome.status, row.status);
  const Lines told = lines(run.outcome.err);
  ASSERT_EQ(told.size(), 1u) << run.outcome.err;
  const auto last_step = run.table("slo").dates.size() - 1;
  EXPECT_EQ(told[0], "kelprun: warning: " + row.name + " ended the run behind time step " +
                         std::to_string(last_step) + " of " + std::to_string(STEPS));
}

TEST_P(interrupted_run, goes_through_the_way_out_that_writes_what_there_is) {
  Case run(endless());
  run_until_signalled(run, GetParam().signal);
  const auto last_step = std::to_string(run.table("slo").dates.size() - 1);
  EXPECT_TRUE(run.outcome.out.ends_with(text_of({closing()}))) << run.outcome.out;
  const Lines report = lines(run.report());
  EXPECT_EQ(
      std::count(report.begin(), report.end(), "  EXECUTION STOPPED DURING TIME STEP " + last_step),
      1);
  // The mean annual rates are written at the end alone.
  for (const char* means : {"mqn", "mqr", "mql"}) EXPECT_EQ(run.table(means).rows.size(), 1u);
}

TEST_P(interrupted_run, has_the_rows_of_one_that_was_meant_to_be_so_short) {
  Case run(endless());
  run_until_signalled(run, GetParam().signal);
  Case meant({{"SIMDATE", std::to_string(run.table("slo").dates.size() - 1)}});
  meant.run();
  for (const char* table : {"run.slo", "run.qtr", "run.off", "run.vcc", "run.vcx"})
    EXPECT_EQ(run.folder.read(table), meant.folder.read(table)) << table;
}

INSTANTIATE_TEST_SUITE_P(signals, interrupted_run,
                         testing::Values(Interruption{SIGINT, 130, "SIGINT"},
                                         Interruption{SIGTERM, 143, "SIGTERM"}),
                         [](const auto& row) { return row.param.name; });

TEST(second_signal, ends_a_run_at_once_that_does_not_come_to_the_end_of_its_step) {
  // The standard output is a pipe that nobody reads: the run waits to write into it.
  Case run;
  run.outcome = run_shell(run.folder,
                          "mkfifo full; exec 3<>full; head -c 100000 /dev/zero >&3 & sleep 0.2;"
                          "\"$0\" run.cfg >&3 & run=$!; sleep 0.3; kill -TERM $run; sleep 0.1;"
                          "kill -TERM $run; wait $run");
  EXPECT_EQ(run.outcome.status, 128 + SIGTERM);
  EXPECT_FALSE(run.outcome.timed_out);
}

TEST(ignored_signal, stays_ignored) {
  Case run;
  run.outcome = run_shell(run.folder, "trap '' INT; \"$0\" run.cfg & kill -INT $!; wait $!");
  EXPECT_EQ(run.outcome.status, 0);
  EXPECT_EQ(run.outcome.err, "");
}

/// A coast of so many cells that a row is larger than any buffer on its way to the disk.
Case wide_run(int cells) {
  Changes changes{{"NX", std::to_string(cells)}, {"SIMDATE", std::to_string(STEPS)}};
  for (const char* end :
       {"IK1END", "IK2END", "IHAMPEND", "ITHETAAMPEND", "ITHETADELEND", "IBERMHTEND", "IDCLOSEND"})
    changes[end] = std::to_string(cells);
  return Case(changes);
}

bool ends_whole(const WorkFolder& folder, const std::string& name) {
  if (!folder.exists(name)) return true;
  const std::string text = folder.read(name);
  return text.empty() || text.ends_with('\n');
}

/// A part of a record is taken back right after the end of the process, hence the patience.
bool comes_to_end_whole(const WorkFolder& folder, const std::string& name) {
  for (int wait = 1; wait <= 1000 && !ends_whole(folder, name); ++wait)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  return ends_whole(folder, name);
}

TEST(killed_run, leaves_whole_records_at_whatever_moment) {
  constexpr int CELLS = 1000;
  constexpr int KILLS = 20;
  std::mt19937 draw(1);
  for (int k = 1; k <= KILLS; ++k) {
    Case run = wide_run(CELLS);
    write_basic_inputs(run.folder, CELLS, 100.0);
    auto moments = std::uniform_int_distribution<int>(1, 60)(draw);
    run.outcome = run_watched(run.folder, {"run.cfg"}, [&](pid_t pid) {
      if (--moments == 0) kill(pid, SIGKILL);
    });
    EXPECT_EQ(run.outcome.status, 128 + SIGKILL);
    for (const char* table : {"run.slo", "run.qtr", "run.off", "run.vcc", "run.vcx", "run.prt"})
      EXPECT_TRUE(comes_to_end_whole(run.folder, table)) << table << ", kill " << k;
    if (!run.folder.exists("run.slo") || run.folder.read("run.slo").empty()) continue;
    // A row that is not whole would throw.
    for (const auto& row : run.table("slo").rows) EXPECT_EQ(row.size(), std::size_t{CELLS});
  }
}

TEST(vanished_folder, is_told_in_one_line_with_the_first_table_that_has_gone) {
  Changes changes = endless();
  changes["PRFILE"] = "results/run.prt";
  Case run(changes);
  std::filesystem::create_directory(run.folder.path() / "results");
  bool removed = false;
  run.outcome = run_watched(run.folder, {"run.cfg"}, [&](pid_t) {
    if (removed || !holds(run.folder, "results/run.slo", SOME_ROWS)) return;
    std::filesystem::remove_all(run.folder.path() / "results");
    removed = true;
  });
  EXPECT_EQ(run.outcome.status, 1);
  const Lines told = lines(run.outcome.err);
  ASSERT_EQ(told.size(), 1u) << run.outcome.err;
  EXPECT_TRUE(told[0].starts_with("kelprun: results/run.")) << told[0];
  EXPECT_TRUE(told[0].ends_with("cannot be written: the file has been removed")) << told[0];
}

TEST(results_folder, that_does_not_exist_is_told_and_nothing_is_made) {
  Case run(Changes{{"PRFILE", "absent/run.prt"}});
  run.run();
  EXPECT_EQ(run.outcome.status, 1);
  EXPECT_TRUE(run.outcome.out.ends_with(fatal_record("Cannot not open prtfil file") + "\n"));
  EXPECT_FALSE(run.folder.exists("absent"));
}

/// Runs as somebody who may not write into the folder; whoever is root becomes nobody for it.
void run_read_only(Case& run) {
  namespace fs = std::filesystem;
  fs::copy_file(KELPRUN_PROGRAM, run.folder.path() / "program");
  fs::permissions(run.folder.path(), fs::perms::owner_read | fs::perms::owner_exec |
                                         fs::perms::others_read | fs::perms::others_exec);
  run.outcome =
      run_shell(run.folder,
                "as=; test $(id -u) = 0 && as='setpriv --reuid 65534 --regid 65534 --clear-groups';"
                "exec $as ./program run.cfg");
  fs::permissions(run.folder.path(), fs::perms::owner_all);
}

TEST(read_only_folder, is_told_and_keeps_the_results_of_an_earlier_run) {
  Case run;
  run.with("run.prt", "earlier\n").with("run.slo", "earlier\n");
  run_read_only(run);
  EXPECT_EQ(run.outcome.status, 1);
  EXPECT_TRUE(run.outcome.out.ends_with(fatal_record("Cannot not open prtfil file") + "\n"))
      << run.outcome.out;
  EXPECT_EQ(run.folder.read("run.prt"), "earlier\n");
  EXPECT_EQ(run.folder.read("run.slo"), "earlier\n");
}

TEST(full_device, is_told_with_the_first_table_that_it_would_hold) {
  Case run;
  std::filesystem::create_symlink("/dev/full", run.folder.path() / "run.qtr");
  run.run();
  EXPECT_EQ(run.outcome.status, 1);
  EXPECT_EQ(run.outcome.err,
            "kelprun: run.qtr: record 1 (line 1): cannot be written: No space left on device\n");
  EXPECT_TRUE(run.report().ends_with('\n'));
}

TEST(refused_run, leaves_all_results_of_an_earlier_one_alone_and_opens_no_table) {
  Case run(Changes{{"PRFILE", "run.prt"}, {"INIFILE", "run.slo"}});
  run.with("run.slo", run.folder.read("shore.dat")).with("run.prt", "earlier\n");
  run.run();
  EXPECT_EQ(run.outcome.status, 1);
  EXPECT_EQ(run.outcome.err,
            "kelprun: run.slo: this output would overwrite the input file run.slo\n");
  EXPECT_EQ(run.report(), "earlier\n");
  EXPECT_EQ(run.folder.read("run.slo"), run.folder.read("shore.dat"));
  for (const char* output : {"run.qtr", "run.mqn"})
    EXPECT_FALSE(run.folder.exists(output)) << output;
}

TEST(outputs, that_are_links_to_one_file_not_yet_there_are_refused) {
  Case run;
  std::filesystem::create_symlink("new.dat", run.folder.path() / "run.slo");
  std::filesystem::create_symlink("new.dat", run.folder.path() / "run.qtr");
  run.run();
  EXPECT_EQ(run.outcome.status, 1);
  EXPECT_EQ(run.outcome.err, "kelprun: run.slo: this output and run.qtr are the same file\n");
  EXPECT_FALSE(run.folder.exists("new.dat"));
}

}  // namespace
}  // namespace kelptest
