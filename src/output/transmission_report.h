#pragma once

#include "model/settings.h"
#include "model/structures.h"
#include "text/report.h"

namespace kelprun {

/// Mean, largest and smallest transmission coefficient of each breakwater over the run, for the end
/// of the report. Nothing where the coefficients are given.
void report_transmission(const Settings& settings, const Breakwaters& breakwaters, Report& report);

}  // namespace kelprun
