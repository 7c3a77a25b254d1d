#pragma once

#include "model/inlets.h"

/// What the model cannot run of inlets, and what a user would not have meant.
namespace kelprun {

/// Ends the run where an inlet lacks beach or an equilibrium volume, lies on another one, or where
/// the rate of a dredging event is no number.
void refuse_inlets(const Inlets& inlets, std::int32_t NX);

/// Tells of sand that would be lost and of dredging that would move nothing.
void warn_of_inlets(const Inlets& inlets, std::int32_t NX);

}  // namespace kelprun
