#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "verification/report_fixture.h"

// The transports of a report: against the rows of the three mean annual tables, and summed anew
// from the table of rates, which has a row a step.

namespace {

using namespace kelptest;

constexpr int NX = reported_cells;

class report_transports : public ReportTest {
 protected:
  /// What the printed rates of some steps leave open in their sum: half a unit of a rate each, and
  /// the rounding of single precision, at most half of the last place of the sum a step.
  double open(const Sums& sums) const {
    return sums.steps * (0.5 * run.one.DT / 8766.0 + 6e-8 * sums.largest_gross());
  }
  /// The place of the block of a step in the mean annual tables.
  const Row& mean_row(const std::string& table, int block) const { return run.row(table, block); }

  void expect_transport(const Block& block, const Row& summed, double open, double factor) const {
    expect_values(block, scaled(summed, factor), half + factor * open);
  }
  /// The table has no decimals, and full units throughout.
  void expect_table_row(const Block& block, const std::string& table, int place,
                        double factor) const {
    expect_values(block, scaled(mean_row(table, place), factor), half + factor * 0.5);
  }
};

INSTANTIATE_TEST_SUITE_P(of, report_transports, testing::ValuesIn(REPORTED), name_of_coast);

/// The blocks of a kind and where each stands among the print and year blocks, by its step.
std::vector<int> places(const ReportedRun& run, const std::vector<int>& steps) {
  std::vector<int> all_steps = run.print_steps;
  all_steps.insert(all_steps.end(), run.year_steps.begin(), run.year_steps.end());
  std::sort(all_steps.begin(), all_steps.end());
  std::vector<int> result;
  for (const int step : steps)
    result.push_back(
        static_cast<int>(std::find(all_steps.begin(), all_steps.end(), step) - all_steps.begin()));
  return result;
}

/// The last step of a year block ahead of a step; 0 where there is none.
int year_before(const ReportedRun& run, int step) {
  int last = 0;
  for (const int n : run.year_steps)
    if (n < step) last = n;
  return last;
}

TEST_P(report_transports, at_print_dates_are_the_sums_since_the_last_year_block_in_full_units) {
  const auto net = all("  MEAN ANNUALIZED NET TRANSPORT");
  const auto left = all("  MEAN ANNUALIZED TRANSPORT TO THE LEFT");
  const auto right = all("  MEAN ANNUALIZED TRANSPORT TO THE RIGHT");
  const std::vector<int> place = places(run, run.print_steps);
  for (const auto* blocks : {&net, &left, &right}) ASSERT_EQ(blocks->size(), place.size());
  for (std::size_t k = 0; k < place.size(); ++k) {
    const int n = run.print_steps[k];
    const Sums sums = run.sums(year_before(run, n) + 1, n);
    expect_transport(net[k], sums.net, open(sums), 1.0);
    expect_transport(left[k], sums.left, open(sums), 1.0);
    expect_transport(right[k], sums.right, open(sums), 1.0);
    expect_table_row(net[k], "mqn", place[k], 1.0);
    expect_table_row(left[k], "mql", place[k], 1.0);
    expect_table_row(right[k], "mqr", place[k], 1.0);
    for (const char* table : {"mqn", "mql", "mqr"})
      EXPECT_EQ(run.tables.at(table).dates.at(static_cast<std::size_t>(place[k])),
                run.record(n).NEXTDATE);
  }
}

TEST_P(report_transports, of_year_blocks_are_the_sums_since_the_last_one_and_may_be_in_thousands) {
  const auto gross = all("  GROSS TRANSPORT VOLUME");
  const auto net = all("  NET TRANSPORT VOLUME");
  const auto left = all("  TRANSPORT VOLUME TO THE LEFT");
  const auto right = all("  TRANSPORT VOLUME TO THE RIGHT");
  const std::vector<int> place = places(run, run.year_steps);
  for (const auto* blocks : {&gross, &net, &left, &right}) ASSERT_EQ(blocks->size(), place.size());
  int blocks_in_thousands = 0;
  for (std::size_t k = 0; k < place.size(); ++k) {
    const int n = run.year_steps[k];
    const Sums sums = run.sums(year_before(run, n) + 1, n);
    const bool thousands = sums.largest_gross() > 100000.0;
    blocks_in_thousands += thousands;
    const double factor = thousands ? 0.001 : 1.0;
    expect_transport(gross[k], sums.gross, open(sums), factor);
    expect_transport(net[k], sums.net, open(sums), factor);
    expect_transport(left[k], sums.left, open(sums), factor);
    expect_transport(right[k], sums.right, open(sums), factor);
    expect_table_row(net[k], "mqn", place[k], factor);
    expect_table_row(left[k], "mql", place[k], factor);
    expect_table_row(right[k], "mqr", place[k], factor);
    EXPECT_EQ(net[k].title.find("/1000)") != std::string::npos, thousands) << net[k].title;
    for (const char* table : {"mqn", "mql", "mqr"})
      EXPECT_EQ(run.tables.at(table).dates.at(static_cast<std::size_t>(place[k])),
                run.record(n).NEXTDATE);
  }
  // The two years; of the last weeks and of the other steps of an anniversary none has so much.
  EXPECT_EQ(blocks_in_thousands, run.one.name == "scaled" ? 2 : 0);
}

TEST_P(report_transports, of_the_closing_are_means_of_all_steps_in_thousands) {
  const Sums sums = run.sums(1, run.steps());
  const double a_year = 365.25 * 24.0 / run.one.DT / run.steps();
  const int last = static_cast<int>(run.print_steps.size() + run.year_steps.size());
  const auto expect_mean = [&](const std::string& title, const Row& summed, const char* table) {
    const Block block = run.report.only(title);
    expect_transport(block, summed, open(sums), a_year / 1000.0);
    expect_table_row(block, table, last, 0.001);
    EXPECT_EQ(run.tables.at(table).rows.size(), static_cast<std::size_t>(last + 1));
  };
  expect_mean("  MEAN NET ANNUAL TRANSPORT ", sums.net, "mqn");
  expect_mean("  MEAN ANNUAL TRANSPORT TO THE LEFT ", sums.left, "mql");
  expect_mean("  MEAN ANNUAL TRANSPORT TO THE RIGHT ", sums.right, "mqr");
  EXPECT_GT(*std::max_element(sums.right.begin(), sums.right.end()), 20000.0);
  EXPECT_LT(*std::min_element(sums.left.begin(), sums.left.end()), -20000.0);
}

TEST_P(report_transports, of_the_last_step_are_a_hundred_times_its_rate_a_second) {
  const Block block = run.report.only(" LONGSHORE TRANSPORT FOR LAST TIME STEP *100");
  expect_values(block, scaled(run.row("qtr", run.steps()), 100.0 / 31557600.0), half + 1e-5);
  expect_values(
      block,
      row_of(NX + 1,
             [&](int i) { return 100.0 * static_cast<double>(m.transport.Q(i)) / run.U(); }),
      half);
  double largest = 0.0;
  for (const double value : block.values()) largest = std::max(largest, std::abs(value));
  EXPECT_GT(largest, 0.02) << "there must be something to see";
}

}  // namespace
