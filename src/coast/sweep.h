#pragma once

#include "model/model.h"

namespace kelprun {

/// Moves the shoreline by the transports of its walls and the sources, cell by cell in the order of
/// the sand's travel: right-going stretches from left to right, left-going ones from right to
/// left, from the diverging cell on. Where a cell would retreat behind its seawall it stays on it,
/// and the walls that take sand out of it are cut, so that the sand balance stands and the next
/// cell sees the cut. Inlet cells are skipped.
void move_shoreline(const Grid& grid, const PerCell<std::int32_t>& INLC, Shore& shore,
                    Transport& transport);

}  // namespace kelprun
