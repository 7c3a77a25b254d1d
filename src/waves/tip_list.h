#pragma once

#include "model/model.h"

namespace kelprun {

/// Lays out the zones between the tips once, before the time loop: completes the list of tips at
/// both ends of the coast, drops tips that double where a breakwater ends at another structure,
/// gives every zone its share of the wave, and sets the order in which the zones are worked, those
/// behind breakwaters last. Takes the storage that depends on the number of tips.
void TIPLIST(const Grid& grid, const Breakwaters& breakwaters, Tips& tips, Zones& zones,
             Diffraction& diffraction);

}  // namespace kelprun
