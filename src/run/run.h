#pragma once

#include <string>

#include "input/input_files.h"
#include "input/wave_events.h"
#include "model/model.h"
#include "output/inlet_tables.h"
#include "output/progress.h"
#include "output/tables.h"
#include "text/report.h"

namespace kelprun {

/// One run of the model: what it knows, and its open files.
struct Run {
  Model model;
  InputFiles files;
  WaveEvents wave_events;
  Report report;
  Tables tables;
  InletTables inlet_tables;
  Progress progress;
};

/// Reads everything that the configuration at `path` names and prepares the first step. A
/// configuration that cannot be run ends in stop_run().
void setup(Run& run, const std::string& path);

/// Goes through one time step; false once the run has come to its end.
bool step(Run& run);

/// Takes back what has been written of a record that did not come to its end.
void keep_whole_records(const Run& run);

/// Writes the closing output; gives the exit status.
int finish(Run& run);

}  // namespace kelprun
