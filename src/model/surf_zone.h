#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "model/array.h"
#include "model/boundaries.h"

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

/// Distances from the shoreline to a groin's tip, left and right of the groin, m; at least 0.
struct TipDistances {
  float DL, DR;
};

/// The shoreline is drawn on to wall i from the two cells on either side; a side without two cells
/// takes the distance given for the boundary. Y_tip and Y are measured alike; in double, rounded
/// once.
inline TipDistances tip_distances(std::int32_t i, double Y_tip, const PerCell<double>& Y,
                                  std::int32_t NX, const Boundaries& boundaries) {
  const float left = i >= 3 ? static_cast<float>(Y_tip - Y(i - 1) - 0.5 * (Y(i - 1) - Y(i - 2)))
                            : boundaries.left.GROINY;
  const float right =
      i < NX ? static_cast<float>(Y_tip - Y(i) - 0.5 * (Y(i) - Y(i + 1))) : boundaries.right.GROINY;
  return {std::max(left, 0.0f), std::max(right, 0.0f)};
}

}  // namespace kelprun
