#pragma once

#include "model/model.h"
#include "text/report.h"

namespace kelprun {

/// Depth of active longshore movement DLTZ of each cell, m (Hallermeier 1981, "A profile zonation
/// for seasonal sand beaches from wave climate", Coastal Engineering 4), from the wave at the
/// reference depth. A value that is not positive ends the run.
void set_active_depth(const Grid& grid, const Clock& clock, Waves& waves, Report& report);

}  // namespace kelprun
