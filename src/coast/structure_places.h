#pragma once

#include "model/model.h"

/// Where the structures stand against each other, worked out once before the time loop.
namespace kelprun {

/// Makes the positions of groins, breakwaters and tips relative to the regional contour at their
/// walls, with IREG 1 or 2. Virtual tips stay as they are.
void subtract_regional_contour(const Settings& settings, const Grid& grid,
                               const PerCell<float>& YREG, Groins& groins, Breakwaters& breakwaters,
                               Tips& tips);

/// Types ICSTR of the walls at the start of the run.
void set_wall_types(const Grid& grid, Groins& groins);

/// Which groins stand at ends of breakwaters, by wall alone: IGCONN, IGSHAD and attached. Takes the
/// storage of IGCONN, BYPF, QGR and attached.
void connect_groins_and_breakwaters(Groins& groins, Breakwaters& breakwaters);

/// Groups of breakwaters that touch: the cells behind them are one lee.
void group_breakwaters(Breakwaters& breakwaters);

/// Breakwater lines YBWI as built: at mid-cell, straight between the tips along the coast.
void set_breakwater_lines(const Grid& grid, const Breakwaters& breakwaters, Shore& shore);

}  // namespace kelprun
