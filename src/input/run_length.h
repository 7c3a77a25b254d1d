#pragma once

#include <cstdint>

#include "model/clock.h"

namespace kelprun {

/// Days between two dates by the model's own calendar: every year divisible by 4 is a leap year.
std::int32_t days_between(std::int32_t start, std::int32_t end);

/// The same without leap days, counting months back where the end month is the earlier one.
std::int32_t days_without_leap(std::int32_t start, std::int32_t end);

/// Refuses a start date whose month or day is out of range, sets the running date to it, and works
/// out NDAYS and NTS from the end date or from the step count that stands in its place.
void set_run_length(Clock& clock);

}  // namespace kelprun
