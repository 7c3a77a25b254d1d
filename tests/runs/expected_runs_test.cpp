#include <filesystem>
#include <fstream>
#include <iterator>

#include "runs/case.h"

/// Whole runs against the files that were worked out without the program: see expected_files.py
/// and the README of each case. A case holds its inputs, and in expected/ the console, the report,
/// the tables, and standard_error where the run says something there.
namespace kelptest {
namespace {

const std::filesystem::path CASES = std::filesystem::path(KELPRUN_SOURCE_DIR) / "tests/runs";

constexpr int REPORT_CONSOLE_AND_TABLES = 10;

struct ExpectedRun {
  const char* folder;
  int more_files = 0;  ///< standard_error and tables of inlets
};

std::ostream& operator<<(std::ostream& out, const ExpectedRun& row) { return out << row.folder; }

/// Copies run.cfg and all the data files of the case.
void copy_inputs(const std::filesystem::path& origin, const WorkFolder& folder) {
  for (const auto& entry : std::filesystem::directory_iterator(origin))
    if (entry.is_regular_file() && entry.path().extension() != ".md")
      std::filesystem::copy_file(entry.path(), folder.path() / entry.path().filename(),
                                 std::filesystem::copy_options::overwrite_existing);
}

std::string text_of_file(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class expected_run : public testing::TestWithParam<ExpectedRun> {};

TEST_P(expected_run, gives_its_console_report_and_tables_byte_for_byte) {
  const std::filesystem::path origin = CASES / GetParam().folder;
  Case run;
  copy_inputs(origin, run.folder);
  run.run();
  EXPECT_EQ(run.outcome.status, 0);
  EXPECT_EQ(run.outcome.err, text_of_file(origin / "expected/standard_error"));
  run.with("console", run.outcome.out).with("standard_error", run.outcome.err);
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(origin / "expected")) {
    const std::string name = entry.path().filename().string();
    ASSERT_TRUE(run.folder.exists(name)) << name;
    EXPECT_EQ(run.folder.read(name), text_of_file(entry.path())) << name;
    ++files;
  }
  EXPECT_EQ(files, REPORT_CONSOLE_AND_TABLES + GetParam().more_files);
}

INSTANTIATE_TEST_SUITE_P(of, expected_run,
                         testing::Values(ExpectedRun{"straight_beach"}, ExpectedRun{"print_dates"},
                                         ExpectedRun{"two_new_years"}, ExpectedRun{"moving_ends"},
                                         ExpectedRun{"moving_ends_in_feet"},
                                         ExpectedRun{"adaptive_step"},
                                         ExpectedRun{"structures_in_a_calm"},
                                         ExpectedRun{"thousands"}, ExpectedRun{"no_printout", 1},
                                         ExpectedRun{"stopped", 1}, ExpectedRun{"budget_of_events"},
                                         ExpectedRun{"budget_of_an_inlet", 1}),
                         [](const auto& row) { return std::string(row.param.folder); });

}  // namespace
}  // namespace kelptest
