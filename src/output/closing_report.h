#pragma once

#include "model/model.h"
#include "text/report.h"

/// What the report says at the end of the run, in its order.
namespace kelprun {

/// Mean annual transports, in thousands.
void report_means(const Model& model, Report& report);

/// Last wave, wave statistics, last transports, final shorelines, transmission.
void report_end(const Model& model, Report& report);

/// Volume changes, sediment budget, total change.
void report_closing_volumes(const Model& model, Report& report);

}  // namespace kelprun
