#pragma once

#include "model/clock.h"
#include "model/series.h"
#include "text/report.h"

/// What a run says of itself on the console and in the report while it goes on.
namespace kelprun {

/// The boxed name and version on the console.
void announce_program();

/// The year line on the console, between its ornaments.
void announce_years(const Clock& clock);

/// The report's warning that the wave events start over.
void report_cycling(const Clock& clock, const Series& series, Report& report);

/// The report's date line behind a warning: date and number of the step.
void report_date(const Clock& clock, Report& report);

/// The count of records with a wave angle beyond 90 degrees, at the end of the run.
void announce_bad_angles(std::int32_t NBADANG, Report& report);

}  // namespace kelprun
