#pragma once

#include "model/model.h"
#include "text/report.h"

namespace kelprun {

/// Refuses bypass operations that are too many or lie outside the grid, warns of those outside the
/// run, and turns the volume per hour of each into a rate per unit length, m2/h.
void prepare_bypassing(const Settings& settings, const Clock& clock, const Grid& grid,
                       Events& events, Report& report);

}  // namespace kelprun
