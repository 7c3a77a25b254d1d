#include "run/numerics.h"

#include <gtest/gtest.h>

#include <limits>

namespace kelprun {
namespace {

/// Half of the smallest number of full precision, and the smallest number of all times a large one:
/// without flushing, neither is zero on any processor. The compiler must not know the values.
template <class Number>
void expect_flushed() {
  using Limits = std::numeric_limits<Number>;
  volatile Number smallest = Limits::min();
  volatile Number half = Number{1} / 2;
  EXPECT_EQ(smallest * half, Number{0}) << "a result";
  EXPECT_EQ(-smallest * half, Number{0}) << "a negative result";
  volatile Number denormal = Limits::denorm_min();
  volatile Number large = Limits::max();
  EXPECT_EQ(denormal * large, Number{0}) << "an operand";
  EXPECT_EQ(smallest * large, Limits::min() * Limits::max()) << "the smallest number that stays";
}

TEST(numerics, floats_too_small_for_full_precision_are_zero) {
  flush_denormals();
  expect_flushed<float>();
}

TEST(numerics, doubles_too_small_for_full_precision_are_zero) {
  flush_denormals();
  expect_flushed<double>();
}

}  // namespace
}  // namespace kelprun
