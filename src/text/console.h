#pragma once

#include <string_view>

#include "text/free_format.h"

namespace kelprun {

/// Writes one line on the console (standard output) as it stands; it is visible at once.
void console_record(std::string_view text);

/// Writes one free-format line on the console.
template <class... Items>
void console_line(const Items&... items) {
  console_record(free_format(items...));
}

}  // namespace kelprun
