#pragma once

#include "model/grid.h"
#include "model/inlets.h"
#include "model/shore.h"
#include "model/structures.h"
#include "text/report.h"

/// Where the inlets lie in the coast, worked out once ahead of the time loop.
namespace kelprun {

/// Marks the inlet cells, derives the shoreline at the sides where it is not given, and draws the
/// shoreline straight across each inlet. Groin tips and Y are as read, in metres, not yet relative
/// to the regional contour.
void set_inlet_shorelines(const Groins& groins, Inlets& inlets, Shore& shore, Report& report);

/// Weights of the cells on which the sand of the attachment bars is placed: a triangle about the
/// middle of each stretch. Cells outside the grid take nothing.
void set_placements(const Grid& grid, Inlets& inlets);

/// Replaces YOLD inside the inlets by the straight line between the cells beside them, so that the
/// offshore contour passes over the inlets.
void bridge_inlets(const Grid& grid, const Inlets& inlets, PerCell<double>& YOLD);

}  // namespace kelprun
