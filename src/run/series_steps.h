#pragma once

#include "model/clock.h"
#include "model/grid.h"
#include "model/series.h"
#include "model/settings.h"
#include "model/transport.h"
#include "text/report.h"

/// Water levels and tidal currents at the head of a time step.
namespace kelprun {

/// Sets IERR and tells the report where the tidal currents leave walls without a value.
void check_tidal_points(const Grid& grid, const Series& series, Clock& clock, Report& report);

/// Takes the next water level into WL in the steps that begin a record. The first step takes
/// record 2, and behind the last record the file begins again with record 1: meant so.
void take_water_level(const Settings& settings, const Clock& clock, Series& series);

/// Takes the next row of currents times KTIDE into TCUR in the steps that begin a record. Behind
/// the last record there is no current, and the report says so once.
void take_tidal_currents(const Grid& grid, const Clock& clock, Series& series, Transport& transport,
                         Report& report);

}  // namespace kelprun
