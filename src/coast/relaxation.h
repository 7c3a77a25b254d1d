#pragma once

#include "model/model.h"

namespace kelprun {

/// Relaxes positive transports beside each wall whose transport is not positive, eleven walls to
/// the left and ten to the right. It steepens the transport at nodal points: an isolated positive
/// wall between negative ones takes on their sign. This is how the model works.
void relax_nodal_points(const Grid& grid, PerWall<float>& Q);

}  // namespace kelprun
