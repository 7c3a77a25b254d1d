#pragma once

#include "model/model.h"

namespace kelprun {

/// Movement of a moving end per step, m: its distance over the steps of its period. Other types of
/// boundary have none.
float boundary_movement(const Boundary& boundary, float CONV, std::int32_t NTS, float SPD);

/// Checks the boundary type and what belongs to it at the left and at the right end, converts
/// their lengths to metres, and adds the virtual tips of open ends to the breakwater tips.
void check_left_boundary(Model& model);
void check_right_boundary(Model& model);

}  // namespace kelprun
