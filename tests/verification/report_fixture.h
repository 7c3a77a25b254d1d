#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>
#include <string>
#include <vector>

#include "verification/reported_coast.h"

/// The coasts whose reports are checked, and what the checks share.
namespace kelptest {

/// In metres with computed transmission, in feet, and with so much sand that the year blocks show
/// thousands.
inline const std::vector<Reported> REPORTED{
    {.name = "metres",
     .start = 19970615,
     .end = 19990920,
     .wave_step = 12.0,
     .highest = 0.5,
     .computed = true,
     .K1 = 0.2,
     // The run ends on the last of these, which the closing shows instead.
     .PRDATE = {300, 19980420, 19990101, 19990920}},
    {.name = "feet",
     .unit = 0.3048,
     .start = 19961101,
     .end = 19990310,
     .wave_step = 6.0,
     .highest = 0.5,
     .wave_feet = true,
     .computed = true,
     .K1 = 0.2,
     .PRDATE = {19970704, 19990305}},
    {.name = "scaled",
     .start = 19970301,
     .end = 19990401,
     .DT = 12.0,
     .wave_step = 24.0,
     .highest = 1.1,
     .PRDATE = {19971224, 19980815, 19990228}}};

inline std::string name_of_coast(const testing::TestParamInfo<Reported>& which) {
  return which.param.name;
}

class ReportTest : public testing::TestWithParam<Reported> {
 protected:
  ReportTest() : run(reported_run(GetParam())), m(run.model()) {}

  std::vector<Block> all(const std::string& beginning) const {
    std::vector<Block> blocks = run.report.all(beginning);
    EXPECT_FALSE(blocks.empty()) << beginning;
    return blocks;
  }
  /// The words for a length and a volume, as titles bear them.
  std::string L() const { return run.feet() ? "(FT)" : "(M)"; }
  std::string V() const { return run.feet() ? "YARDS3" : "M3"; }
  std::string label() const { return run.feet() ? "CY" : "M3"; }

  const ReportedRun& run;
  const kelprun::Model& m;
};

/// Half of the last of two decimals on either side.
inline constexpr double half = 0.005 + 1e-9;

/// `relative` is that of single precision.
inline void expect_values(const Block& block, const std::vector<double>& expected, double tolerance,
                          double relative = 3e-7) {
  const std::vector<double> values = block.values();
  ASSERT_EQ(values.size(), expected.size()) << block.title;
  for (std::size_t k = 0; k < values.size(); ++k)
    EXPECT_NEAR(values[k], expected[k], tolerance + relative * std::abs(expected[k]))
        << block.title << ", value " << k + 1;
}

/// The same number to the last digit that both print.
inline void expect_same(const Block& block, const Row& row) { expect_values(block, row, 0.0, 0.0); }

template <class Value>
std::vector<double> row_of(int count, Value value) {
  std::vector<double> values;
  for (int i = 1; i <= count; ++i) values.push_back(static_cast<double>(value(i)));
  return values;
}

inline std::vector<double> scaled(std::vector<double> values, double factor) {
  for (double& value : values) value *= factor;
  return values;
}

inline double sum(const std::vector<double>& values) {
  return std::accumulate(values.begin(), values.end(), 0.0);
}

}  // namespace kelptest
