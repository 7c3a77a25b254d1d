#pragma once

#include <algorithm>
#include <cmath>

namespace kelprun {

/// Depth of the equilibrium profile at distance y from the shoreline, m (Dean 1991, "Equilibrium
/// beach profiles", J. Coastal Research 7(1), with the exponent rounded to 0.667).
inline float profile_depth(float y, float ASHAPE) { return std::pow(y, 0.667f) * ASHAPE; }

/// Limit depth of longshore sand movement under a breaking wave of height H, m.
inline float limit_depth(float H, float GAMMA) { return (1.27f / GAMMA) * H; }

/// Share of the longshore transport that passes seaward of a depth, from 0 to 1, with the limit
/// depth of the movement; a limit up to 0.01 m moves nothing. An infinite depth passes nothing.
inline float share_beyond(float depth, float limit) {
  float share = limit > 0.01f ? 1.0f - depth / limit : 0.0f;
  if (depth > limit) share = 0.0f;
  return std::min(1.0f, share);
}

}  // namespace kelprun
