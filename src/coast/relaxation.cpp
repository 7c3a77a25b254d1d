#include "coast/relaxation.h"

#include <algorithm>

namespace kelprun {

void relax_nodal_points(const Grid& grid, PerWall<float>& Q) {
  constexpr float EPSQ = 1e-06f;
  constexpr std::int32_t WALLS_DOWN = 11;
  constexpr std::int32_t WALLS_UP = 10;
  const std::int32_t NX = grid.NX;
  for (std::int32_t i = 3; i <= NX - 1; ++i) {
    if (!(Q(i) < EPSQ)) continue;
    // A later wall sees the sweeps of the earlier ones, and each sweep the old value of the next.
    for (std::int32_t c = i - 1; c >= std::max(i - WALLS_DOWN, 1); --c) {
      if (Q(c) < EPSQ) break;
      if (c > 1) Q(c) = (2.0f * Q(c) + 6.0f * Q(c - 1)) * 0.125f;
    }
    for (std::int32_t c = i + 1; c <= std::min(i + WALLS_UP, NX + 1); ++c) {
      if (Q(c) < EPSQ) break;
      if (c < NX - 1) Q(c) = (2.0f * Q(c) + 6.0f * Q(c + 1)) * 0.125f;
    }
  }
}

}  // namespace kelprun
