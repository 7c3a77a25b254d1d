#pragma once

#include "model/model.h"

namespace kelprun {

/// The wave at every tip and its directional spreading. The wave of the wall at the tip is
/// refracted and shoaled to the depth of the tip. A tip deeper than the reference depth gets a wave
/// normal to the contour, because no deep-water wave number is known there: this is meant.
void set_tip_waves(const Tips& tips, const Waves& waves, const PerWall<float>& ALPHAC,
                   Array1<TipWave>& tip_waves);

/// Whether any structure bends the waves in this step.
bool has_active_tip(const Tips& tips);

}  // namespace kelprun
