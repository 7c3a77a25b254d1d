#pragma once

#include <string>

#include "input/input_files.h"
#include "model/model.h"
#include "text/report.h"

namespace kelprun {

/// Reads the configuration, converts it to metres, works out the length of the run, builds the
/// ordered lists of structures, and refuses any combination of values that the model cannot run.
/// A failing check ends the run by its own words on the console; false ends it without further.
bool read_and_check(const std::string& name, Model& model, InputFiles& files, Report& report);

}  // namespace kelprun
