#pragma once

#include <cstdint>

namespace kelprun {

/// Right-justifies a whole number in the `width` characters at `field`; asterisks where it does
/// not fit.
void put_integer(char* field, int width, std::int64_t value);

/// Right-justifies a real with `decimals` digits behind its decimal point: the exact binary value
/// rounded to nearest, ties to even. A negative value that rounds to zero keeps its minus sign;
/// "NaN", "Infinity" and "-Infinity" are written as such; what does not fit is asterisks.
void put_fixed(char* field, int width, int decimals, double value);

}  // namespace kelprun
