#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "run/run.h"
#include "support/program.h"
#include "unit/output/report_case.h"
#include "unit/text/stops.h"

namespace kelprun {
namespace {

using Lines = std::vector<std::string>;

/// A run of two cells that stands behind its last step.
class FinishTest : public testing::Test {
 protected:
  FinishTest() {
    run.model = kelptest::coast_in_metres(2);
    run.tables.open((folder_.path() / "run.").string(), 2);
    run.report.set_name((folder_.path() / "run.prt").string());
    run.report.begin();
    Clock& c = run.model.clock;
    c.SPD = 8.0f;
    c.NTS = 1000;
    c.ITS = 1000;
    c.NDTSAVE = 300;
    c.NEXTDATE = 19970506;
    Ledgers& l = run.model.ledgers;
    kelptest::put(l.QNETSUM, std::array{5000.0f, -12345.678f, 0.0f});
    kelptest::put(l.QLEFTSUM, std::array{-1000.0f, -20000.0f, 0.0f});
    kelptest::put(l.QRIGHTSUM, std::array{6000.0f, 7654.322f, 0.0f});
  }
  kelptest::Said finish() {
    return kelptest::listen([&] { status = kelprun::finish(run); });
  }
  Lines report() { return kelptest::lines(folder_.read("run.prt")); }
  kelptest::Table table(const std::string& suffix, int width) {
    return kelptest::read_table(folder_.read("run." + suffix), width);
  }

  kelprun::Run run;
  int status = -1;

 private:
  kelptest::WorkFolder folder_;
};

TEST_F(FinishTest, mean_rates_are_the_sums_of_the_run_over_its_years) {
  // 1000 steps of 3 h are 125 days: 5000 m3 make 14610 m3 a year of 365.25 days.
  finish();
  EXPECT_NEAR(run.model.ledgers.QNETMEAN(1), 14610.0, 1e-2);
  EXPECT_NEAR(run.model.ledgers.QLEFTMEAN(2), -20000.0 * 365.25 / 125.0, 1e-2);
  EXPECT_NEAR(run.model.ledgers.QRIGHTMEAN(2), 7654.322 * 365.25 / 125.0, 1e-2);
  const float per_step = -12345.678f / 1000.0f;
  const float mean = (per_step * 365.25f) * 8.0f;
  EXPECT_EQ(run.model.ledgers.QNETMEAN(2), static_cast<double>(mean));
}

TEST_F(FinishTest, mean_rates_go_to_the_mean_annual_tables_under_the_shown_date) {
  finish();
  const kelptest::Table mqn = table("mqn", 16);
  ASSERT_EQ(mqn.rows.size(), 1u);
  EXPECT_EQ(mqn.dates.front(), 19970506);
  EXPECT_EQ(mqn.rows.front(), (std::vector<double>{14610, -36074, 0}));
  EXPECT_EQ(table("mql", 16).rows.front(), (std::vector<double>{-2922, -58440, 0}));
  EXPECT_EQ(table("mqr", 16).rows.front(), (std::vector<double>{17532, 22366, 0}));
}

TEST_F(FinishTest, the_last_state_is_written_unless_its_step_was_a_save_step) {
  finish();
  EXPECT_EQ(table("slo", 14).rows.size(), 1u);
}

TEST_F(FinishTest, a_save_step_at_the_end_is_not_written_twice) {
  run.model.clock.NDTSAVE = 250;
  finish();
  EXPECT_TRUE(table("slo", 14).rows.empty());
}

TEST_F(FinishTest, a_run_stopped_before_its_last_step_writes_no_last_state_but_its_means) {
  run.model.clock.ITS = 437;
  run.model.clock.STOPPED = true;
  const kelptest::Said said = finish();
  EXPECT_TRUE(table("slo", 14).rows.empty());
  EXPECT_EQ(table("mqn", 16).rows.size(), 1u);
  EXPECT_NE(said.out.find(" Model run completed\n"), std::string::npos);
  EXPECT_EQ(status, 0);
}

TEST_F(FinishTest, a_run_stopped_in_its_last_step_writes_no_last_state_either) {
  run.model.clock.STOPPED = true;
  finish();
  EXPECT_TRUE(table("slo", 14).rows.empty());
}

/// What makes every closing block appear.
void fill_every_block(Model& m) {
  m.undiffracted.steps = 1;
  m.settings.KTMETFLAG = 1;
  m.breakwaters.NDB = 1;
  for (auto* values : {&m.breakwaters.kt.KTSUM, &m.breakwaters.kt.KTMAX, &m.breakwaters.kt.KTMIN})
    *values = kelptest::list(std::array{0.5f});
  m.waves.NBADANG = 3;
  m.budget.NLEDGV = 1;
  m.budget.ILEDGV1 = kelptest::list(std::array{1});
  m.budget.ILEDGV2 = kelptest::list(std::array{2});
  m.clock.NDAYS = 365;
}

/// The first words of the titles that each block of the closing begins with, in their order.
const std::vector<std::string> BLOCKS{"  MEAN NET ANNUAL TRANSPORT ",
                                      "  MEAN ANNUAL TRANSPORT TO THE LEFT ",
                                      "  MEAN ANNUAL TRANSPORT TO THE RIGHT ",
                                      " OUTPUT LAST TIMESTEP NO. 1000 DATE IS 19970506",
                                      "  OFFSHORE WAVE DATA INPUT:",
                                      "   HZ = ",
                                      "  OUTPUT OF UNDIFFRACTED BREAKING WAVE STATISITCS",
                                      " LONGSHORE TRANSPORT FOR LAST TIME STEP *100 ",
                                      "  CALCULATED FINAL SHORELINE POSITION (M)",
                                      "  CALCULATED SEAWARDMOST SHORELINE POSITION (M)",
                                      "  CALCULATED LANDWARDMOST SHORELINE POSITION (M)",
                                      "  CALCULATED REPRESENTATIVE OFFSHORE CONTOUR POSITION (M)",
                                      "  DETACHED BREAKWATER KT STATISTICS: ",
                                      " WARNING: Wave Angle is greater than 90 deg   or less than",
                                      " Number of Occurrences : 3",
                                      "  CALCULATED VOLUME CHANGE (M3 PER GRID CELL) ",
                                      "  CALCULATED VOLUME CHANGE (M3 PER LINEAR M) ",
                                      " *                         LEDG OUTPUT ",
                                      "  LEDG CELL 1",
                                      " CALCULATED TOTAL VOLUMETRIC CHANGE = ",
                                      "  SIGN CONVENTION:  EROSION (-), ACCRETION (+)"};

TEST_F(FinishTest, the_closing_blocks_follow_each_other_in_their_order) {
  fill_every_block(run.model);
  finish();
  std::size_t next = 0;
  const Lines lines = report();
  for (const std::string& line : lines)
    if (next < BLOCKS.size() && line.starts_with(BLOCKS[next])) ++next;
  EXPECT_EQ(next, BLOCKS.size()) << "missing or out of its place: " << BLOCKS[next];
  EXPECT_EQ(lines.front(), "  MEAN NET ANNUAL TRANSPORT (M3/1000) ");
  EXPECT_EQ(lines.back(), BLOCKS.back());
}

TEST_F(FinishTest, a_stop_is_told_ahead_of_all_closing_blocks) {
  run.model.clock.ITS = 437;
  run.model.clock.STOPPED = true;
  finish();
  const Lines lines = report();
  EXPECT_EQ(lines[0], "  EXECUTION STOPPED DURING TIME STEP 437");
  EXPECT_EQ(lines[1], "  MEAN NET ANNUAL TRANSPORT (M3/1000) ");
}

TEST_F(FinishTest, without_result_blocks_the_report_keeps_its_error_line_and_warnings) {
  fill_every_block(run.model);
  run.model.settings.PRTOUT = false;
  run.model.clock.STOPPED = true;
  const kelptest::Said said = finish();
  EXPECT_EQ(report(), (Lines{"  EXECUTION STOPPED DURING TIME STEP 1000",
                             " WARNING: Wave Angle is greater than 90 deg   or less than -90 deg.",
                             " Number of Occurrences : 3"}));
  EXPECT_EQ(said.out,
            " WARNING: Wave Angle is greater than 90 deg         or less than -90 deg.\n"
            " Number of Occurrences : 3\n"
            " <<<Simulation finished>>>\n Model run completed\n");
  EXPECT_EQ(table("mqn", 16).rows.size(), 1u);
}

TEST_F(FinishTest, without_result_blocks_the_last_state_still_goes_to_the_tables) {
  run.model.settings.PRTOUT = false;
  finish();
  EXPECT_TRUE(report().empty());
  EXPECT_EQ(table("slo", 14).rows.size(), 1u);
  EXPECT_EQ(table("mqr", 16).rows.front(), (std::vector<double>{17532, 22366, 0}));
}

TEST_F(FinishTest, volume_changes_are_computed_once_more_behind_the_last_row) {
  // Fills and movements of a step that was stopped on its way are in the shoreline alone.
  kelptest::put(run.model.shore.Y, std::array{0.5, -0.25});
  run.model.ledgers.VOLCELL.fill(77.0f);
  finish();
  EXPECT_EQ(table("vcc", 14).rows.front(), (std::vector<double>{77, 77}));
  const Lines lines = report();
  const auto title =
      std::find(lines.begin(), lines.end(), "  CALCULATED VOLUME CHANGE (M3 PER GRID CELL) ");
  ASSERT_GE(lines.end() - title, 2);
  EXPECT_EQ(title[1], "     400.00    -200.00");
  EXPECT_EQ(lines[lines.size() - 2], " CALCULATED TOTAL VOLUMETRIC CHANGE = 200. (M3)");
}

TEST_F(FinishTest, the_console_ends_with_two_lines) {
  EXPECT_EQ(finish().out, " <<<Simulation finished>>>\n Model run completed\n");
  EXPECT_EQ(status, 0);
}

TEST_F(FinishTest, a_shoreline_that_is_no_number_shows_in_the_exit_status) {
  run.model.clock.NONFINITE = true;
  finish();
  EXPECT_EQ(status, 1);
}

}  // namespace
}  // namespace kelprun
