#pragma once

#include "model/model.h"

namespace kelprun {

/// Last changes to the breaking wave field HB, ZB at walls 2 to NX: three-point smoothing that does
/// not reach across groins and grown-out breakwaters, no waves inside inlets, and a mean or no wave
/// where the shoreline has reached a breakwater (ITOMBOLO is 1 there).
void finish_field(const Grid& grid, const Groins& groins, const Breakwaters& breakwaters,
                  const Inlets& inlets, Waves& waves);

}  // namespace kelprun
