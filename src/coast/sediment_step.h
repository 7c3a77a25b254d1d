#pragma once

#include "model/model.h"

namespace kelprun {

/// Walls at the two ends: without a groin their transport is what moves the end cell by exactly
/// its movement per step (a pinned end does not move).
void set_boundary_walls(const Grid& grid, const Boundaries& boundaries, Transport& transport);

/// One sediment step: transport at every wall, boundary walls, inlets, relaxation, shoreline, lee
/// of the breakwaters, sums of the step. Reads the breaking wave field and the groin factors,
/// writes Y, YPREV, the transport and the shoals of inlets, from which the dredging of CURDATE
/// takes.
void SEDSTEP(const Settings& settings, float DT, std::int32_t CURDATE, const Grid& grid,
             const Profile& profile, const Boundaries& boundaries, const Waves& waves,
             const Groins& groins, const Breakwaters& breakwaters, Inlets& inlets, Shore& shore,
             Transport& transport);

/// A step without waves: sources and the movement of the ends alone.
void CALMSTEP(const Grid& grid, const Profile& profile, const Boundaries& boundaries, float DT,
              Shore& shore);

}  // namespace kelprun
