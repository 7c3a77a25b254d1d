#pragma once

#include <array>
#include <string_view>

namespace kelprun {

/// Suffixes of the result tables, in the order in which they are opened.
inline constexpr std::array<std::string_view, 8> TABLE_SUFFIXES = {"slo", "qtr", "off", "mqn",
                                                                   "mqr", "mql", "vcc", "vcx"};

}  // namespace kelprun
