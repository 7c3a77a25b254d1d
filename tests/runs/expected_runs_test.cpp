#include <filesystem>

#include "runs/case.h"

/// Whole runs against the files that were worked out without the program: see expected_files.py
/// and the README of each case.
namespace kelptest {
namespace {

const std::filesystem::path CASES = std::filesystem::path(KELPRUN_SOURCE_DIR) / "tests/runs";

class expected_run : public testing::TestWithParam<const char*> {};

TEST_P(expected_run, gives_its_console_report_and_tables_byte_for_byte) {
  const std::filesystem::path origin = CASES / GetParam();
  Case run;
  for (const char* input : {"run.cfg", "shore.dat", "waves.dat"})
    std::filesystem::copy_file(origin / input, run.folder.path() / input,
                               std::filesystem::copy_options::overwrite_existing);
  run.run();
  expect_completed(run);
  run.with("console", run.outcome.out);
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(origin / "expected")) {
    const std::string name = entry.path().filename().string();
    std::filesystem::copy_file(entry.path(), run.folder.path() / "expected file",
                               std::filesystem::copy_options::overwrite_existing);
    ASSERT_TRUE(run.folder.exists(name)) << name;
    EXPECT_EQ(run.folder.read(name), run.folder.read("expected file")) << name;
    ++files;
  }
  EXPECT_EQ(files, 10);
}

INSTANTIATE_TEST_SUITE_P(of, expected_run,
                         testing::Values("straight_beach", "print_dates", "two_new_years",
                                         "moving_ends", "moving_ends_in_feet", "adaptive_step"),
                         [](const auto& row) { return std::string(row.param); });

}  // namespace
}  // namespace kelptest
