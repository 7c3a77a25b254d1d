#pragma once

#include "input/input_files.h"
#include "model/model.h"
#include "text/report.h"

namespace kelprun {

/// Cell widths of a variable grid from DXFILE, in metres; widths that are not positive are
/// refused. Then the alongshore coordinates.
void read_cell_widths(const Settings& settings, Grid& grid, Report& report);

/// Initial shoreline Y and, with IREG 1 or 3, the regional contour, in step with each other and in
/// metres. With IREG 3 the contour becomes the offshore contour YCON, in the file's own unit.
void read_shorelines(const Settings& settings, const Grid& grid, InputFiles& files, Shore& shore,
                     Report& report);

}  // namespace kelprun
