#pragma once

#include "model/inlets.h"

namespace kelprun {

/// Which side of an inlet sand comes from.
enum class InletMouth : std::int32_t { left = 1, right = -1 };

/// Routes the sand that reaches inlet k at one of its mouths, m3/s (positive to the right), through
/// ebb and flood shoal and through the bypass and the attachment bar of the other side, over a step
/// of DTSEC seconds (Kraus 2000, "Reservoir model of ebb-tidal shoal evolution and sand bypassing",
/// J. Waterway Port Coastal Ocean Eng. ASCE 126(6)). Each passes on the share of its inflow that
/// its volume has of its equilibrium volume, and at once whatever would lift it above that. Gives
/// the rate that reaches the beach of the other side.
float SHOALROUTE(InletMouth SIDE, float QIN, std::int32_t k, float DTSEC, Inlets& inlets);

/// Applies the dredging events of inlet k on a date: a shoal or bar loses the event's volume of one
/// step. Nothing keeps a volume from falling below zero.
void dredge(std::int32_t k, std::int32_t CURDATE, Inlets& inlets);

/// The dredging events of all inlets, for a step that routes no sand.
void dredge_all(std::int32_t CURDATE, Inlets& inlets);

}  // namespace kelprun
