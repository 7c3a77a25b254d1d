#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "run/series_steps.h"
#include "support/program.h"
#include "unit/run/in_process.h"
#include "unit/text/stops.h"

namespace {

const std::string STEADY = "1.0 8.0 10.0\n";

// A failure that is found in mid-course leads through the whole closing output.
TEST(stop_point, a_run_that_failed_still_writes_its_closing_output) {
  kelptest::WatchedRun watched(kelptest::basic_configuration({}), STEADY);
  for (int n = 1; n <= 3; ++n) ASSERT_TRUE(watched.step());
  watched.model().clock.IERR = 1;
  EXPECT_FALSE(watched.step());
  EXPECT_EQ(watched.model().clock.ITS, 3);

  int status = -1;
  const kelptest::Said said = kelptest::listen([&] { status = watched.finish(); });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(said.out, " <<<Simulation finished>>>\n Model run completed\n");
  EXPECT_NE(said.err.find("stopped during time step 3"), std::string::npos) << said.err;
  const auto report = kelptest::lines(watched.folder().read("run.prt"));
  const auto stopped =
      std::find(report.begin(), report.end(), "  EXECUTION STOPPED DURING TIME STEP 3");
  ASSERT_NE(stopped, report.end());
  EXPECT_EQ(*(stopped + 1), "  MEAN NET ANNUAL TRANSPORT (M3/1000) ");
  EXPECT_NE(std::find(stopped, report.end(), "  OUTPUT OF UNDIFFRACTED BREAKING WAVE STATISITCS"),
            report.end());
  EXPECT_EQ(report.back(), "  SIGN CONVENTION:  EROSION (-), ACCRETION (+)");
  // The mean rates are written; the row due after the last step is not.
  EXPECT_EQ(kelptest::read_table(watched.folder().read("run.mqn"), 16).rows.size(), 1u);
  EXPECT_EQ(kelptest::read_table(watched.folder().read("run.slo"), 14).rows.size(), 4u);
}

TEST(stop_point, a_failure_found_before_the_first_step_ends_the_run_there) {
  kelptest::WatchedRun watched(kelptest::basic_configuration({}), STEADY);
  watched.model().clock.IERR = 1;
  EXPECT_FALSE(watched.step());
  EXPECT_EQ(watched.model().clock.ITS, 0);
  EXPECT_TRUE(watched.model().clock.STOPPED);
}

// A record with too few walls stops the run behind its set-up, ahead of the first step.
TEST(stop_point, a_run_that_lacks_tidal_points_closes_with_the_values_it_has) {
  kelptest::WatchedRun watched(kelptest::basic_configuration({}), STEADY);
  kelprun::Model& m = watched.model();
  m.series.TIDEFLAG = 1;
  m.series.NTCPOINTS = 20;
  kelprun::check_tidal_points(m.grid, m.series, m.clock, watched.run.report);
  EXPECT_FALSE(watched.step());
  int status = -1;
  const kelptest::Said said = kelptest::listen([&] { status = watched.finish(); });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(said.out, " <<<Simulation finished>>>\n Model run completed\n");
  const auto report = kelptest::lines(watched.folder().read("run.prt"));
  const auto stopped =
      std::find(report.begin(), report.end(), "  EXECUTION STOPPED DURING TIME STEP 0");
  ASSERT_GE(report.end() - stopped, 2);
  EXPECT_EQ(*(stopped - 1), "  Not enough tidal current data 20 points provided 21 points needed");
  EXPECT_EQ(*(stopped + 1), "  MEAN NET ANNUAL TRANSPORT (M3/1000) ");
  EXPECT_EQ(report.back(), "  SIGN CONVENTION:  EROSION (-), ACCRETION (+)");
  EXPECT_EQ(kelptest::read_table(watched.folder().read("run.mqn"), 16).rows.size(), 1u);
  EXPECT_EQ(kelptest::read_table(watched.folder().read("run.slo"), 14).rows.size(), 0u);
}

}  // namespace
