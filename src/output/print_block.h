#pragma once

#include "model/model.h"
#include "text/report.h"

namespace kelprun {

/// The shoreline, the transports and the volume changes at a print date.
void report_print_date(const Model& model, Report& report);

}  // namespace kelprun
