#pragma once

#include "model/model.h"

namespace kelprun {

/// Regional angle RANG of each cell from the regional contour, radians, averaged as WAVREGANG
/// says: 0 in windows of IWAVREGSMOOTH cells, 1 over all cells, 2 between the wave gauges.
void set_regional_angle(const Settings& settings, const Grid& grid, const Series& series,
                        const PerCell<float>& YREG, Waves& waves);

}  // namespace kelprun
