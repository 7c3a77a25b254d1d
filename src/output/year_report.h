#pragma once

#include "model/model.h"
#include "text/report.h"

/// The year results in the report.
namespace kelprun {

/// The shoreline and its change since the start, YDIFF.
void report_year_shoreline(const Model& model, Report& report);

/// The waves of the last pass at breaking and at the reference depth.
void report_year_waves(const Model& model, Report& report);

/// The volumes of the year, scaled as QMAX asks for.
void report_year_volumes(const Model& model, Report& report);

}  // namespace kelprun
