#pragma once

#include "model/model.h"

/// From the wave at the reference depth to the breaking wave at every wall.
namespace kelprun {

/// Whether any cell is without waves, which makes the whole pass calm.
bool is_calm(const Grid& grid, const Waves& waves);

/// Breaking wave of each wall without structures: HBU, ZBU, WKBU, CGBU from HRF, TRF, ZRF, DRF
/// over the contour ALPHAC. Where the wave of the pass would leave the contour, the wall's ZRF and
/// ALPHAC become 0 for this step.
void break_waves(const Settings& settings, const Grid& grid, Waves& waves, PerWall<float>& ALPHAC);

/// SIGMA and WK0 of the step, from the one period of the pass.
void set_step_frequency(Waves& waves);

/// CGB and WKB at the breaking depth HB/GAMMA; 0 without a wave. All walls take the one period of
/// the pass, also where the period varies along the coast.
void set_group_speed(const Settings& settings, const Grid& grid, Waves& waves);

}  // namespace kelprun
