#pragma once

#include <cstdint>

#include "model/array.h"
#include "model/grid.h"

namespace kelprun {

/// Where a wall lies between two of the stations that measure along the coast.
struct StationPlace {
  std::int32_t lower = 1;  ///< station on the left
  std::int32_t upper = 1;  ///< station on the right
  float fraction = 0.0f;   ///< of the way from the left to the right one
};

/// Places walls 1 to NX+1 between stations with these end cells, linear in XCELL. Ahead of the
/// first and behind the last station a wall has that station alone, and two stations without a
/// distance between them leave it to the lower one.
PerWall<StationPlace> place_walls_between(const Grid& grid, const Array1<std::int32_t>& end_cells);

/// The value at `fraction` of the way from the lower to the upper value.
inline float interpolated(float lower, float upper, float fraction) {
  return lower + (upper - lower) * fraction;
}

}  // namespace kelprun
