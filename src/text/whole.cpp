#include "text/whole.h"

#include <cmath>
#include <limits>
#include <string>

#include "text/free_format.h"
#include "text/stop.h"

namespace kelprun {

namespace {

std::int32_t whole(double value, std::string_view what) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (!(value >= Limits::min() && value <= Limits::max()))
    run_time_message(std::string(what) + ": " + free_number(value) + " is out of range");
  return static_cast<std::int32_t>(value);
}

}  // namespace

std::int32_t nearest_integer(double value, std::string_view what) {
  return whole(std::round(value), what);
}

std::int32_t truncated(double value, std::string_view what) {
  return whole(std::trunc(value), what);
}

}  // namespace kelprun
