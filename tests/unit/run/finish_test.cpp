#include <gtest/gtest.h>

#include <array>

#include "run/run.h"
#include "support/program.h"
#include "unit/run/small_model.h"
#include "unit/text/stops.h"

namespace kelprun {
namespace {

/// A run of two cells that stands behind its last step.
class FinishTest : public testing::Test {
 protected:
  FinishTest() {
    run.model = kelptest::small_model(2);
    run.tables.open((folder_.path() / "run.").string(), 2);
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
