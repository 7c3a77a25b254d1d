#pragma once

#include "model/model.h"

namespace kelprun {

/// Adds the undiffracted breaking wave of the pass to its sums: height, height to the power 2.5,
/// angle to the shoreline, angle, and the transport that it would drive without structures.
void UNDIFFSTAT(const Settings& settings, const Grid& grid, const Profile& profile,
                const Waves& waves, const PerWall<float>& ALPHA, UndiffractedSums& sums);

}  // namespace kelprun
