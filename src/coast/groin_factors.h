#pragma once

#include "model/model.h"

namespace kelprun {

/// Factor BYPF of each groin on the transport of its wall, once a wave pass: sand bypasses the tip
/// where the surf zone reaches past it, and the rest passes at the rate of the permeability. Also
/// the transport QGR that the groin would see, m3/s, the types ICSTR of groins whose tips the
/// shoreline comes near to, and the limit of a quarter of pi on ALPHA at groins. WL is the water
/// level in force, m.
void GROINPASS(const Settings& settings, float WL, const Grid& grid, const Profile& profile,
               const Boundaries& boundaries, const Waves& waves, const PerCell<std::int32_t>& INLC,
               Shore& shore, Groins& groins, Transport& transport);

}  // namespace kelprun
