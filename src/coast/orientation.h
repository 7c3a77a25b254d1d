#pragma once

#include "model/model.h"

namespace kelprun {

/// Orientation ALPHA of the live shoreline at the walls, radians; 0 along the baseline. Groin walls
/// take the mean of three walls, and the walls of boundary groins look at the shoreline outside.
void set_shoreline_orientation(const Grid& grid, const Boundaries& boundaries, const Groins& groins,
                               Shore& shore);

}  // namespace kelprun
