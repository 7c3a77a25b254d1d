#pragma once

#include <cstdint>
#include <string_view>

namespace kelprun {

/// Nearest whole number, halves away from zero. A value that no 32-bit integer holds ends the run
/// with a run-time message that names `what`.
std::int32_t nearest_integer(double value, std::string_view what);

/// Whole number toward zero; the same failure.
std::int32_t truncated(double value, std::string_view what);

}  // namespace kelprun
