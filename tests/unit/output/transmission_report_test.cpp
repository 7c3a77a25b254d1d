#include "output/transmission_report.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "unit/run/in_process.h"
#include "unit/run/small_model.h"

namespace kelprun {
namespace {

using Lines = std::vector<std::string>;

class transmission_report : public testing::Test {
 protected:
  transmission_report() {
    settings.KTMETFLAG = 1;
    b.NDB = 3;
    b.kt.KTMAX = kelptest::list(std::array{0.8f, 0.5f, 1.5f});
    b.kt.KTMIN = kelptest::list(std::array{0.25f, 0.5f, 0.0f});
    b.kt.KTSUM = kelptest::list(std::array{2.0f, 2.0f, 4.25f});
    b.kt.KTCOUNT = 4;
  }
  Lines lines() {
    kelptest::ReadableReport readable;
    report_transmission(settings, b, readable.report);
    return readable.lines();
  }

  Settings settings;
  Breakwaters b;
};

TEST_F(transmission_report, mean_and_extremes_stand_in_columns_of_11_one_for_each_breakwater) {
  // Each title is a free-format line, which adds a blank. 4.25/4 = 1.0625.
  EXPECT_EQ(lines(), (Lines{"  DETACHED BREAKWATER KT STATISTICS: ", "  AVG KT VALUE(S)  = ",
                            "       0.50       0.50       1.06",
                            "  MAX KT VALUE(S)  = ", "       0.80       0.50       1.50",
                            "  MIN KT VALUE(S)  = ", "       0.25       0.50       0.00"}));
}

TEST_F(transmission_report, ten_values_fill_a_line) {
  b.NDB = 12;
  for (auto* values : {&b.kt.KTMAX, &b.kt.KTMIN, &b.kt.KTSUM}) values->allocate(12, 0.5f);
  const Lines all = lines();
  ASSERT_EQ(all.size(), 10u);
  EXPECT_EQ(all[2].size(), 110u);
  EXPECT_EQ(all[3].size(), 22u);
}

TEST_F(transmission_report, a_run_without_a_single_value_has_means_of_0) {
  for (auto* values : {&b.kt.KTMAX, &b.kt.KTMIN, &b.kt.KTSUM}) values->fill(0.0f);
  b.kt.KTCOUNT = 0;
  const Lines all = lines();
  ASSERT_EQ(all.size(), 7u);
  for (const std::size_t row : {2u, 4u, 6u})
    EXPECT_EQ(all[row], "       0.00       0.00       0.00");
}

TEST_F(transmission_report, given_coefficients_have_no_statistics) {
  settings.KTMETFLAG = 0;
  EXPECT_TRUE(lines().empty());
}

}  // namespace
}  // namespace kelprun
