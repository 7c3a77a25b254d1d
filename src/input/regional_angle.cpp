#include "input/regional_angle.h"

#include <cmath>

namespace kelprun {

namespace {

enum AngleMode { FIXED_WINDOWS = 0, ONE_MEAN = 1, BETWEEN_GAUGES = 2 };

float contour_angle(const Grid& grid, const PerCell<float>& YREG, std::int32_t i) {
  const std::int32_t right = i == 1 ? 2 : i;
  return std::atan((YREG(right) - YREG(right - 1)) /
                   ((grid.DX(right) + grid.DX(right - 1)) * 0.5f));
}

/// Last cell of the window between gauge k and the next one.
std::int32_t gauge_window_end(const Series& series, std::int32_t k, std::int32_t NX) {
  if (k + 1 > series.IWEND.size()) return NX;
  return (series.IWEND(k) + series.IWEND(k + 1)) / 2;
}

}  // namespace

void set_regional_angle(const Settings& settings, const Grid& grid, const Series& series,
                        const PerCell<float>& YREG, Waves& waves) {
  const std::int32_t NX = grid.NX;
  std::int32_t window = settings.IWAVREGSMOOTH;
  if (window == 0 || window > NX) window = NX;
  std::int32_t gauge = 1;
  std::int32_t b = 1;
  std::int32_t e = settings.WAVREGANG == BETWEEN_GAUGES ? gauge_window_end(series, 1, NX) : window;

  float sum = 0.0f;
  for (std::int32_t i = 1; i <= NX; ++i) {
    const float angle = contour_angle(grid, YREG, i);
    waves.RANG0(i) = angle;
    waves.RANG(i) = angle;
    sum += angle;
    if (settings.WAVREGANG == FIXED_WINDOWS && i == e) {
      // A window that ends at cell 1 moves on, but neither assigns nor clears its sum.
      if (i > 1) {
        for (std::int32_t j = b; j <= e; ++j) waves.RANG(j) = sum / static_cast<float>(window);
        sum = 0.0f;
      }
      b = e + 1;
      e += window;
    } else if (settings.WAVREGANG == BETWEEN_GAUGES && i == e && i > 1) {
      // One less than the number of cells, and meant so.
      for (std::int32_t j = b; j <= e; ++j) waves.RANG(j) = sum / static_cast<float>(e - b);
      b = e + 1;
      e = gauge_window_end(series, ++gauge, NX);
      sum = 0.0f;
    }
  }
  if (settings.WAVREGANG == ONE_MEAN)
    for (std::int32_t i = 1; i <= NX; ++i) waves.RANG(i) = sum / static_cast<float>(NX);
  waves.RANG(NX + 1) = waves.RANG(NX);
}

}  // namespace kelprun
