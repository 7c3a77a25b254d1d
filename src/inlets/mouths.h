#pragma once

#include "model/inlets.h"
#include "model/shore.h"
#include "model/structures.h"
#include "model/transport.h"

namespace kelprun {

/// Takes the sand that arrives at the mouths of all inlets off their walls, in the order of the
/// inlets, the left mouth first; routes it through the shoals and places what comes out on the
/// beach of the other side. Dredging of the date comes ahead of each inlet's routing. Writes Y, Q
/// and the shoals.
void route_inlets(std::int32_t CURDATE, float DTSEC, const Groins& groins, Inlets& inlets,
                  Shore& shore, Transport& transport);

/// Clears the walls at the mouths after the update, so that tables and ledgers show a smooth
/// approach and nothing at the mouths.
void reset_mouths(const Inlets& inlets, Transport& transport);

}  // namespace kelprun
