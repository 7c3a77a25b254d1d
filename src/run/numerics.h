#pragma once

namespace kelprun {

/// From here on results that would be denormal are zero, and denormal inputs are read as zero.
void flush_denormals();

}  // namespace kelprun
