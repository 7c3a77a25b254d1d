#pragma once

#include "model/model.h"

namespace kelprun {

/// Advances the shoreline by the beach fills that act at this moment, once a step, and keeps the
/// volumes in the ledgers. The last date or step of a fill does not count.
void fill_beaches(const Grid& grid, const Profile& profile, const Events& events,
                  const Clock& clock, Shore& shore, Ledgers& ledgers);

/// Adds the bypass operations that act at this moment to the sources DYSRC of the step, and keeps
/// the volumes in the ledgers.
void run_bypassing(const Grid& grid, const Events& events, const Clock& clock, Shore& shore,
                   Ledgers& ledgers);

}  // namespace kelprun
