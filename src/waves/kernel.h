#pragma once

#include <algorithm>
#include <cmath>

#include "model/constants.h"

/// Linear wave theory in closed form, single precision: the dispersion relation, group speed, and
/// refraction and shoaling over straight parallel contours. Metres, seconds, radians.
namespace kelprun {

/// Denominator polynomial of the Pade form of the dispersion relation (Hunt 1979), for the
/// dimensionless depth x = sigma^2 d/g.
inline float pade_polynomial(float x) {
  float P = PADE[8];
  for (std::size_t power = 8; power-- > 0;) P = PADE[power] + x * P;
  return 1.0f + x * P;
}

/// A wave at one depth: group speed, ratio of group to phase speed, wave number.
struct Dispersion {
  float Cg;
  float n;
  float k;
};

/// Wave of period T at depth d (Hunt 1979; the error of k is below 0.1 %). Depths below 0.01 m get
/// a wave length of 0.1 m. Its gravity is 9.81 and its 2 pi 6.28318, apart from G and PI elsewhere:
/// the differences are part of the model's numbers.
inline Dispersion DISPERSE(float T, float d) {
  constexpr float TWO_PI = 6.28318f;
  constexpr float FOUR_PI = 12.56636f;
  constexpr float GRAVITY = 9.81f;
  constexpr float LEAST_DEPTH = 0.01f;
  constexpr float LEAST_LENGTH = 0.1f;
  constexpr float DEEP = 15.0f;

  const float sigma = TWO_PI / T;
  const float x = ((sigma * sigma) / GRAVITY) * d;
  float L = LEAST_LENGTH;
  if (!(d < LEAST_DEPTH || x == 0.0f)) {
    const float q = x * (x + 1.0f / pade_polynomial(x)) / (d * d);
    L = TWO_PI / std::sqrt(q);
  }
  const float k = TWO_PI / L;
  const float X = FOUR_PI * d / L;
  const float n = (X >= DEEP || X == 0.0f) ? 0.5f : (1.0f + X / std::sinh(X)) * 0.5f;
  return {n * L / T, n, k};
}

/// Wave number at depth d > 0 of waves with deep-water wave number WK0 (Hunt 1979).
inline float wave_number(float WK0, float d) {
  const float x = WK0 * d;
  return std::sqrt(WK0 * (x + 1.0f / pade_polynomial(x)) / d);
}

/// A wave after refraction and shoaling.
struct TransformedWave {
  float k2;
  float H2;
  float Z2;
  float Cg2;
};

/// Takes a wave (wave number k1, height H1, angle Z1, group speed Cg1) over contours of orientation
/// A to depth d2 > 0, by Snell's law and conservation of energy flux (Dean and Dalrymple 1991,
/// chapter 4). SIGMA is the angular frequency of the step, WK0 its deep-water wave number.
inline TransformedWave TRANSFORM(float k1, float H1, float Z1, float Cg1, float A, float d2,
                                 float WK0, float SIGMA) {
  constexpr float DEEP = 10.0f;  // not the limit that DISPERSE has, and meant so
  const float k2 = wave_number(WK0, d2);
  const float s1 = std::sin(Z1 - A);
  const float c1 = std::cos(Z1 - A);
  const float r = std::clamp(s1 * k1 / k2, -1.0f, 1.0f);
  const float turned = std::asin(r);
  const float c2 = std::cos(turned);
  const float X = std::min(2.0f * k2 * d2, DEEP);
  const float e = std::exp(X);
  const float sinh_X = (e - 1.0f / e) * 0.5f;
  const float n2 = (X / sinh_X + 1.0f) * 0.5f;
  const float Cg2 = n2 * SIGMA / k2;
  const float Ks = std::sqrt(Cg1 / Cg2);
  // The magnitude lets a wave that moves away from the shore keep a real height.
  const float Kr = std::sqrt(std::abs(c1 / c2));
  return {k2, (Kr * H1) * Ks, A + turned, Cg2};
}

}  // namespace kelprun
