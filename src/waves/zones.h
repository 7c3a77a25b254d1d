#pragma once

#include "model/model.h"
#include "text/report.h"
#include "waves/diffraction.h"

namespace kelprun {

/// The breaking wave field HB, ZB of all walls: works the zones one by one, the waves of each bent
/// at its two tips, and adds up their energies. Where no tip is active in this step the field is
/// the undiffracted one. Reads the undiffracted breaking waves, writes HB, ZB, SWS and the working
/// arrays. False where a diffraction coefficient does not converge.
bool combine_zones(const DiffractingCoast& coast, float WL, Waves& waves, Diffraction& diffraction,
                   Report& report);

/// Angle and height of the diffracted wave of a zone at each wall that it reaches: the ray from the
/// tip that acts is refracted to the depth of breaking.
void MERGEDIFF(const DiffractingCoast& coast, const WorkedZone& zone, const Waves& waves,
               Diffraction& diffraction);

}  // namespace kelprun
