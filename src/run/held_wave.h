#pragma once

#include "model/waves.h"

namespace kelprun {

/// Keeps the wave now in force, for the steps until the next wave record.
void hold_wave(Waves& waves);

/// Puts the kept wave back in force.
void restore_wave(Waves& waves);

}  // namespace kelprun
