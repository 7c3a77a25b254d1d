#pragma once

#include "model/model.h"
#include "output/tables.h"
#include "text/report.h"

namespace kelprun {

/// Whether the step is an anniversary of the start date or the last step. There is no memory: with
/// several steps to the day every step of the anniversary date is one.
bool is_year_end(const Clock& clock);

/// Results of the year: shoreline change so far, console lines, report, the rows of the mean annual
/// tables; then the sums of the year start again.
void close_year(Model& model, Tables& tables, Report& report);

}  // namespace kelprun
