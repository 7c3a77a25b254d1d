#pragma once

#include <string>
#include <vector>

#include "runs/case.h"

/// What the tests of limits share. They look at the end of the console alone: what else a refusal
/// says is told elsewhere.
namespace kelptest {

/// The changes that make the basic configuration one of `NX` cells.
inline Changes wide(int NX, const Changes& more = {}) {
  const std::string cells = std::to_string(NX);
  Changes changes{{"NX", cells}, {"WAVEID", cells + " 20.0 0 waves.dat"}};
  for (const char* list :
       {"IK1END", "IK2END", "IHAMPEND", "ITHETAAMPEND", "ITHETADELEND", "IBERMHTEND", "IDCLOSEND"})
    changes[list] = cells;
  for (const auto& [keyword, value] : more) changes[keyword] = value;
  return changes;
}

/// The same lines again and again.
inline Lines times(int count, const Lines& lines) {
  Lines result;
  for (int k = 1; k <= count; ++k) result.insert(result.end(), lines.begin(), lines.end());
  return result;
}

/// Ended well, whatever it warned of.
inline void expect_run(const Case& ended) {
  EXPECT_EQ(ended.outcome.status, 0) << ended.outcome.err;
  EXPECT_TRUE(ended.outcome.out.ends_with(text_of({closing()}))) << ended.outcome.out;
}

/// Ended with the status 1 and these lines last on the console, the fatal record behind them.
inline void expect_refusal(const Case& ended, const Lines& printed, const std::string& message) {
  EXPECT_EQ(ended.outcome.status, 1);
  EXPECT_TRUE(ended.outcome.out.ends_with(text_of({printed, {fatal_record(message)}})))
      << ended.outcome.out;
}

/// Ended with the status 1 and this line last on standard error.
inline void expect_told(const Case& ended, const std::string& text) {
  EXPECT_EQ(ended.outcome.status, 1);
  ASSERT_FALSE(ended.outcome.err.empty());
  const std::string line = lines(ended.outcome.err).back();
  EXPECT_TRUE(line.starts_with("kelprun: " + text)) << line;
}

}  // namespace kelptest
