#pragma once

#include "model/clock.h"

namespace kelprun {

/// Advances the date by one step: CURDATE and NEXTDATE of step ITS. The calendar is the model's
/// own: every year divisible by 4 is a leap year, and NEXTDATE decides on February 29 by the day of
/// the step itself, so that it can show a February 30.
void advance_calendar(Clock& clock);

}  // namespace kelprun
