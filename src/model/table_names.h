#pragma once

#include <array>
#include <string>
#include <string_view>

#include "model/inlets.h"

namespace kelprun {

/// Suffixes of the result tables, in the order in which they are opened.
inline constexpr std::array<std::string_view, 8> TABLE_SUFFIXES = {"slo", "qtr", "off", "mqn",
                                                                   "mqr", "mql", "vcc", "vcx"};

/// Name of inlet k: as given, without blanks at its ends, else its number.
inline std::string inlet_name(const Inlets& inlets, std::int32_t k) {
  const std::string& given = inlets.INLNAME(k);
  const std::size_t first = given.find_first_not_of(' ');
  if (first == std::string::npos) return "Inlet" + std::to_string(k);
  return given.substr(first, given.find_last_not_of(' ') - first + 1);
}

/// File of the table of inlet k.
inline std::string inlet_table_name(const Inlets& inlets, std::int32_t k) {
  return inlet_name(inlets, k) + ".irv";
}

}  // namespace kelprun
