#pragma once

#include "input/input_files.h"
#include "model/series.h"
#include "model/settings.h"
#include "text/report.h"

namespace kelprun {

/// Reads the whole water level file: WLFILE in metres, and the file's own time step into DTWL,
/// which must go with a step of DT hours. A missing or short file, an item that is no number and a
/// step that does not fit end the run.
void read_water_levels(const Settings& settings, float DT, InputFiles& files, Series& series,
                       Report& report);

}  // namespace kelprun
