#pragma once

#include <array>
#include <initializer_list>
#include <string_view>

#include "text/console.h"
#include "text/stop.h"

namespace kelprun {

/// A check that fails: its lines go to the console, the first once more as the fatal message.
[[noreturn]] inline void refuse(std::initializer_list<std::string_view> lines) {
  for (const std::string_view line : lines) console_line(line);
  fatal(*lines.begin());
}

/// The same where the last line ends in the limit that was passed.
[[noreturn]] inline void refuse_limit(std::initializer_list<std::string_view> lines,
                                      std::int32_t limit) {
  for (const std::string_view line : lines) console_line(line);
  console_line(" MAXIMUM NUMBER IS ", limit);
  fatal(*lines.begin());
}

/// A warning: its lines go to the console and the run goes on.
inline void warn(std::initializer_list<std::string_view> lines) {
  for (const std::string_view line : lines) console_line(line);
}

}  // namespace kelprun
