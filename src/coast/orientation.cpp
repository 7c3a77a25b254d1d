#include "coast/orientation.h"

#include <cmath>

namespace kelprun {

namespace {

constexpr std::int32_t GATED_GROIN = 2;
/// Shoreline angle at a gated groin: the end wall sees a straight shoreline.
constexpr float GATE_ANGLE = 0.0f;

bool stands_out(std::int32_t ICSTR) { return ICSTR == 1 || ICSTR == -1; }

/// The argument and the arctangent are double, rounded once.
float angle_between(const Grid& grid, const PerCell<double>& Y, std::int32_t right) {
  const double spacing =
      (static_cast<double>(grid.DX(right)) + static_cast<double>(grid.DX(right - 1))) * 0.5;
  return static_cast<float>(std::atan((Y(right) - Y(right - 1)) / spacing));
}

}  // namespace

void set_shoreline_orientation(const Grid& grid, const Boundaries& boundaries, const Groins& groins,
                               Shore& shore) {
  const std::int32_t NX = grid.NX;
  PerWall<float>& ALPHA = shore.ALPHA;
  std::int32_t k = 1;
  for (std::int32_t i = 1; i <= NX; ++i) {
    ALPHA(i) = angle_between(grid, shore.Y, i == 1 ? 2 : i);
    if (k > groins.NGRP || groins.IXGRP(k) != i) continue;
    ++k;
    // ALPHA(i+1) is still the value of the last step, and meant so.
    if (groins.ICSTR(i) != -2 && groins.ICSTR(i) != 3 && i != 1)
      ALPHA(i) = (ALPHA(i) + ALPHA(i - 1) + ALPHA(i + 1)) / 3.0f;
  }
  ALPHA(NX + 1) = ALPHA(NX);

  if (groins.NGRP == 0) return;
  if (stands_out(groins.ICSTR(1))) {
    const double outside =
        static_cast<double>(groins.YGT(1)) - static_cast<double>(boundaries.left.GROINY);
    ALPHA(1) = boundaries.left.BCTYPE == GATED_GROIN
                   ? GATE_ANGLE
                   : static_cast<float>(
                         std::atan((shore.Y(1) - outside) / static_cast<double>(grid.DX(1))));
  }
  if (stands_out(groins.ICSTR(NX + 1))) {
    const double outside =
        static_cast<double>(groins.YGT(groins.NGRP)) - static_cast<double>(boundaries.right.GROINY);
    ALPHA(NX + 1) = boundaries.right.BCTYPE == GATED_GROIN
                        ? GATE_ANGLE
                        : static_cast<float>(std::atan((outside - shore.Y(NX)) /
                                                       static_cast<double>(grid.DX(NX))));
  }
}

}  // namespace kelprun
