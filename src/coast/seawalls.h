#pragma once

#include "model/model.h"

namespace kelprun {

/// Landward limit YSW of each cell, measured like Y (which is relative to YREG by now): along each
/// seawall the line between its two ends, elsewhere about 10 km landward.
void set_seawall_limits(const Settings& settings, const Grid& grid, const Seawalls& seawalls,
                        Shore& shore);

}  // namespace kelprun
