#pragma once

#include <string>

#include "input/input_files.h"
#include "model/model.h"
#include "text/report.h"

namespace kelprun {

/// Reads the configuration file: a flat list of "KEYWORD: value" lines. Fills the records, opens
/// the files that it names (they stay open at their start), echoes them on the console, spreads
/// the values along the coast over cells 1 to NX+1, and empties the report. Lengths stay in the
/// file's unit. What cannot be stored ends the run with a fatal message; false: the run ends
/// without further words.
bool read_configuration(const std::string& name, Model& model, InputFiles& files, Report& report);

}  // namespace kelprun
