#pragma once

#include "input/input_files.h"
#include "model/grid.h"
#include "model/series.h"
#include "text/report.h"

namespace kelprun {

/// Reads all tidal current files and spreads each record along the coast: TCRNT, a row of NX+1
/// walls a record, in the files' own unit, and the files' time step into DTTC, which must go with a
/// step of DT hours. A short file, an item that is no number and a step that does not fit end the
/// run.
void read_tidal_currents(const Grid& grid, float DT, InputFiles& files, Series& series,
                         Report& report);

}  // namespace kelprun
