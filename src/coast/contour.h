#pragma once

#include "model/model.h"

namespace kelprun {

/// Offshore contour YCON of the pass: the shoreline YOLD after two passes of a moving mean over
/// ISMOOTH cells, straight lines at both ends, and an offset of 300 m. An even window is lowered
/// by 1, in the setting itself; a window wider than the grid works as the largest odd one that
/// fits; one below 3 leaves the shoreline as it is.
void smooth_contour(const Grid& grid, std::int32_t& ISMOOTH, Shore& shore);

/// Orientation ALPHAC of the offshore contour at the walls, radians.
void set_contour_orientation(const Grid& grid, Shore& shore);

}  // namespace kelprun
