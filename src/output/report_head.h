#pragma once

#include "model/model.h"
#include "text/report.h"

/// What the report says ahead of the first step.
namespace kelprun {

/// Banner, run title, units, structures, grid, waves and the parameters along the coast. Positions
/// of structures are as configured, not yet relative to the regional contour.
void report_head(const Model& model, Report& report);

void report_initial_shoreline(const Model& model, Report& report);

}  // namespace kelprun
