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

/// Energy sum over the zones of the coast, HB and ZB. Without structures the coast is one zone
/// whose wave is the undiffracted one.
void sum_zones(const Grid& grid, Waves& waves);

/// Three-point smoothing of HB and ZB at the inner walls, weights a quarter, a half, a quarter.
void smooth_field(const Grid& grid, Waves& waves);

/// CGB and WKB at the breaking depth HB/GAMMA; 0 without a wave. All walls take the one period of
/// the pass, also where the period varies along the coast.
void set_group_speed(const Settings& settings, const Grid& grid, Waves& waves);

}  // namespace kelprun
