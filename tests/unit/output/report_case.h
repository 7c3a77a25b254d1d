#pragma once

#include <array>
#include <string>
#include <vector>

#include "unit/run/in_process.h"
#include "unit/run/small_model.h"

/// What the tests of the report's blocks share.
namespace kelptest {

/// Cubic metres in a cubic yard, in single precision.
inline constexpr float YARD3 = 0.9144f * 0.9144f * 0.9144f;

/// A small coast with all units in metres, or with lengths in feet and volumes in cubic yards.
inline kelprun::Model coast_in_metres(std::int32_t NX) {
  kelprun::Model m = small_model(NX);
  m.settings.IUNITS = 1;
  m.settings.KELUNITS = "(m)";
  m.settings.VOLUME_LABEL = "M3";
  return m;
}
inline kelprun::Model coast_in_feet(std::int32_t NX) {
  kelprun::Model m = small_model(NX);
  m.settings.IUNITS = 2;
  m.settings.KELUNITS = "(ft)";
  m.settings.VOLUME_LABEL = "CY";
  m.settings.CONV = 0.3048f;
  m.settings.CONVYD = 0.9144f;
  m.settings.CONVYD3 = YARD3;
  return m;
}

/// Two cells at 112.5 and 192.75 from the baseline, in the unit of the coast.
inline void put_shoreline(kelprun::Model& m) {
  const float CONV = m.settings.CONV;
  const auto length = static_cast<double>(CONV);
  put(m.shore.YREG, std::array{100.0f * CONV, 200.0f * CONV});
  put(m.shore.Y, std::array{12.5 * length, -7.25 * length});
}

/// The lines that a block writes.
template <class Block>
std::vector<std::string> report_of(const kelprun::Model& m, Block block) {
  ReadableReport readable;
  block(m, readable.report);
  return readable.lines();
}

/// Puts factor * (first, first + 1, ...) into the places of the array.
template <class T>
void count_up(kelprun::Array1<T>& values, T first, T factor = T{1}) {
  for (T& value : values) value = factor * first++;
}

}  // namespace kelptest
