#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "support/program.h"

namespace {

constexpr int RECORDS = 340;

/// Three-hourly waves of forty days and some more, low but for one on January 21, halfway through
/// the run.
std::string waves_with_one_storm() {
  std::string text;
  for (int record = 0; record < RECORDS; ++record) {
    const int day = record / 8;
    const int date = day < 31 ? 19970101 + day : 19970201 + day - 31;
    char line[64];
    std::snprintf(line, sizeof line, "%d %d %s 8.0 5.0\n", date, record % 8 * 300,
                  record == 20 * 8 ? "3.5" : "0.5");
    text += line;
  }
  return text;
}

// The guard against a step number past the last one once compared the number of the old step length
// with the last step of the new one, and ended every run whose step grew in its second half.
TEST(adaptive_run, a_step_that_grows_again_late_in_the_run_reaches_the_end) {
  kelptest::WorkFolder folder;
  kelptest::write_basic_inputs(folder, 20, 100.0);
  folder.write("waves.dat", waves_with_one_storm());
  folder.write("run.cfg", kelptest::basic_configuration({{"WAVEID", "20 20.0 340 waves.dat"},
                                                         {"SIMDATE", "19970210"},
                                                         {"DX", "60"},
                                                         {"DT", "3"},
                                                         {"DTSAVE", "24"},
                                                         {"K1", "0.77"},
                                                         {"DTADAPT", "1"},
                                                         {"NSTABDTMIN", "1"}}));
  const auto outcome = kelptest::run_program(folder, {"run.cfg"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
  EXPECT_NE(outcome.out.find("NEW DT = 0.75\n"), std::string::npos);
  EXPECT_NE(outcome.out.find("NEW DT = 3.\n"), std::string::npos);
  // 40 days of 8 steps: the step number has come back to that of the configured step length.
  EXPECT_NE(outcome.out.find("CALCULATED   0 YEARS  =     320 TIME STEPS.  DATE IS 19970210"),
            std::string::npos);
}

}  // namespace
