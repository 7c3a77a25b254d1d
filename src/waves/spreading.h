#pragma once

#include <algorithm>
#include <cmath>

#include "model/constants.h"

/// Diffraction of wind waves at the tip of a structure by the spreading of their energy over
/// directions: the share of the energy that comes from bearings which the structure leaves open
/// (Goda, Takayama and Suzuki 1978, "Diffraction diagrams for directional random waves", Proc. 16th
/// Coastal Eng. Conf.; Kraus 1984, "Estimate of breaking wave height behind structures", J.
/// Waterway Port Coastal Ocean Eng. ASCE 110(2)).
namespace kelprun {

/// Concentration of the energy over directions, and the divisor that turns it into a slope of the
/// cumulative energy at the shadow line.
struct Spreading {
  float SMAX;
  float AKD;
};

/// Spreading at a tip in depth d, m, of waves of angular frequency SIGMA; from 10 to 100.
inline Spreading SPREADMAX(float d, float SIGMA) {
  const float L0 = ((G / SIGMA) * PI * 2.0f) / SIGMA;
  const float x = d / L0;
  float v = x > 0.2f ? 9.609375f * std::pow(x, -0.27181286f) : 2.923f * std::pow(x, -1.027f);
  v = std::min(v, 100.0f);
  v = std::max(v, 10.0f);
  return {v, (-0.000103f * v + 0.27f) * v + 5.31f};
}

/// Angles from the shadow line beyond this one, radians, count as this one.
inline constexpr float WIDEST_ANGLE = 6.0f;

/// Diffraction coefficient at angle th from the shadow line, radians, positive in the open and at
/// most WIDEST_ANGLE, with B = SMAX/AKD: sqrt(1/2) on the shadow line, 1 in the open, 0 deep in the
/// shadow.
inline float open_share(float B, float th) {
  const float e = std::exp(B * th);
  return std::sqrt(((e - 1.0f / e) / (e + 1.0f / e) + 1.0f) * 0.5f);
}

/// Angle of the ray from a zone's first (left) tip to a point at distance X along the coast and P
/// landward of the tip. A tip landward of the point turns the ray along the coast; the sums that
/// then stand here are meant so.
inline float first_tip_ray(float X, float P) {
  constexpr float HALF = PI * 0.5f;
  const float r = std::atan(X / P);
  if (r < 0.0f && X > 0.0f) return HALF - r;
  if (r > 0.0f && X < 0.0f) return -HALF;
  return r;
}

/// The same from a zone's second (right) tip.
inline float second_tip_ray(float X, float P) {
  constexpr float HALF = PI * 0.5f;
  const float r = std::atan(X / P);
  if (r < 0.0f && X > 0.0f) return HALF;
  if (r > 0.0f && X < 0.0f) return -(HALF + r);
  return r;
}

/// Offshore distances below a centimetre count as a centimetre, on either side of the tip.
inline float kept_from_zero(float P) { return std::abs(P) < 0.01f ? 0.01f : P; }

/// Next estimate in the search for the diffraction coefficient: the later the round (from 0), the
/// less of the new value is taken.
inline float damped(float KDold, float KD, int round) {
  if (round < 4) return KD;
  const auto weight = static_cast<float>(round <= 8 ? 3 : 4 + (round - 9) / 10);
  return (weight * KDold + KD) / (weight + 1.0f);
}

}  // namespace kelprun
