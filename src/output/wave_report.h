#pragma once

#include "model/model.h"
#include "text/report.h"

namespace kelprun {

/// Breaking wave heights, in the length unit of the configuration, and angles, in degrees, at all
/// walls in the last time step.
void report_last_waves(const Settings& settings, const Grid& grid, const Waves& waves,
                       Report& report);

/// Means of the undiffracted breaking waves over the run, a row a wall; nothing without a wave.
void report_undiffracted(const Grid& grid, const UndiffractedSums& sums, Report& report);

}  // namespace kelprun
