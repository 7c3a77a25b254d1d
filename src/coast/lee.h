#pragma once

#include "model/model.h"

namespace kelprun {

/// Keeps Y ahead of the sweep, from which the cells round the lees are computed again.
void keep_base_of_lees(const Grid& grid, const Breakwaters& breakwaters, Shore& shore);

/// Lays the sand that was taken off the transport at the tips of breakwaters down in their lee, up
/// to the line of the structure, after the sweep. A cell that would pass the line stays on it and
/// what is too much goes out at the tip, so that no sand is lost between the tip and the lee. Q is
/// changed where the sand goes; the cell outside a tip gives it or takes it back. An end cell
/// without a groin on its wall keeps its movement: there the sand comes from beyond the grid.
void fill_lees(const Grid& grid, const Boundaries& boundaries, const Groins& groins,
               const Breakwaters& breakwaters, const PerCell<std::int32_t>& INLC, Shore& shore,
               Transport& transport);

}  // namespace kelprun
