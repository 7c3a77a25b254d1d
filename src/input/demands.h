#pragma once

#include <string>

#include "text/free_format.h"
#include "text/stop.h"

namespace kelprun {

/// Ends the run where the value is not above 0; `what` names it.
inline void demand_positive(const std::string& what, float value) {
  if (!(value > 0.0f)) fatal(what + " must be above 0, it is " + free_number(value));
}

}  // namespace kelprun
