#pragma once

#include "model/model.h"
#include "text/report.h"

namespace kelprun {

/// The sediment budget of the budget cells and flux arrows; nothing where none is configured.
/// With a number of steps as the end of the run the rates per year divide by zero and print as
/// such.
void report_budget(const Model& model, Report& report);

}  // namespace kelprun
