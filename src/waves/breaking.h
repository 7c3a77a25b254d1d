#pragma once

#include "waves/kernel.h"

namespace kelprun {

/// A wave at incipient breaking: wave number, height (m), angle (radians), group speed (m/s).
struct BreakingWave {
  float kb;
  float Hb;
  float Zb;
  float Cgb;
};

/// Breaking wave in closed form (Larson, Hoan and Hanson 2010, "Direct formula to compute wave
/// height and angle at incipient breaking", J. Waterway Port Coastal Ocean Eng. ASCE 136(2)), from
/// the wave at the reference depth: wave number k, height H > 0, period T, angle Z, ratio of group
/// to phase speed n. A is the orientation of the contour, gamma the breaker index. An angle beyond
/// the reach of the formula gives a value that is not a number.
inline BreakingWave BREAKDIRECT(float k, float H, float T, float Z, float n, float A, float gamma) {
  const float c = ((PI + PI) / k) / T;
  const float a = c / std::sqrt(G * H);
  const float a2 = a * a;
  const float E = ((a2 * a2) * (gamma * gamma)) / n;
  const float r = Z - A;
  const float sr = std::sin(r);
  float cr = std::cos(r);
  if (std::abs(cr) < 1e-7f) cr = 0.0f;
  const float Lambda = std::pow(std::abs(cr) / E, 0.4f);
  const float xi = (sr * sr) * Lambda;
  const float xi2 = xi * xi;
  const float P = ((0.5948f - 1.6787f * xi) * xi + 0.1649f) * xi + (2.8573f * (xi2 * xi2) + 1.0f);
  const float lam = Lambda * P;
  const float db = (c * c * lam) / G;
  const Dispersion at_breaking = DISPERSE(T, db);
  return {at_breaking.k, db * gamma, A + std::asin(sr * std::sqrt(lam)), at_breaking.Cg};
}

}  // namespace kelprun
