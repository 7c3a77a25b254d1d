#pragma once

#include "model/model.h"
#include "text/report.h"

namespace kelprun {

/// Refuses intervals of waves and tables that do not go with the step length, turns the amounts of
/// beach fills into amounts per step, and counts the steps of each interval. Water levels and tidal
/// currents have been checked by their readers.
void check_step_relations(Model& model, Report& report);

/// Steps between the records of each interval, nearest integers; an interval that rounds to 0
/// steps counts as 1.
void count_steps(Clock& clock, const Settings& settings, const Series& series);

/// From a rate per second to a reported volume per step.
float volume_factor(float DT, float CONVYD3);

}  // namespace kelprun
