#pragma once

#include <cmath>
#include <cstddef>

#include "model/constants.h"

/// The formulas of the diffraction in any precision, written down a second time for the tests.
namespace kelptest {

template <class Real>
Real square(Real x) {
  return x * x;
}

template <class Real>
Real half_circle() {
  return static_cast<Real>(3.141593) * static_cast<Real>(0.5);
}

/// The ray from a tip to a point at X along the coast and P landward; ID says which tip it is.
template <class Real>
Real ray(int ID, Real X, Real P) {
  const Real HALF = half_circle<Real>();
  const Real r = std::atan(X / P);
  if (r < 0 && X > 0) return ID == 1 ? HALF - r : HALF;
  if (r > 0 && X < 0) return ID == 1 ? -HALF : -(HALF + r);
  return r;
}

template <class Real>
Real at_least_a_centimetre(Real P) {
  const auto centimetre = static_cast<Real>(0.01);
  return std::abs(P) < centimetre ? centimetre : P;
}

/// Mean of n old values and one new one, n growing with the rounds done.
template <class Real>
Real relaxed(Real KDold, Real KD, int n) {
  struct Range {
    int last;
    Real weight;
  };
  if (n < 4) return KD;
  for (const Range& range : {Range{8, 3}, {18, 4}, {28, 5}, {38, 6}, {48, 7}, {58, 8}, {68, 9}})
    if (n <= range.last) return (range.weight * KDold + KD) / (range.weight + 1);
  return (10 * KDold + KD) / 11;
}

/// Wave number in depth d of waves of deep-water wave number WK0.
template <class Real>
Real breaking_wave_number(Real WK0, Real d) {
  const Real x = WK0 * d;
  Real P = static_cast<Real>(kelprun::PADE[8]);
  for (std::size_t n = 8; n-- > 0;) P = static_cast<Real>(kelprun::PADE[n]) + x * P;
  P = 1 + x * P;
  return std::sqrt(WK0 * (x + 1 / P) / d);
}

}  // namespace kelptest
