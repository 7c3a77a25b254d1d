#pragma once

#include <cstdint>
#include <string_view>

#include "model/array.h"
#include "model/capacities.h"
#include "text/report.h"

namespace kelprun {

/// A value along the coast as the configuration gives it: value n runs to end cell n, and the last
/// value runs on through cell NX+1.
struct Spans {
  std::string_view value_keyword;
  std::string_view end_keyword;
  Array1<float> values{capacity::SPANS};
  Array1<std::int32_t> ends{capacity::SPANS};
};

/// Spreads the spans over cells 1 to NX+1, each value times `factor`. Says on console and report
/// where no end cell is given; warns of end cells beyond NX; refuses negative ones.
void expand_spans(const Spans& spans, std::int32_t NX, float factor, PerWall<float>& cells,
                  Report& report);

}  // namespace kelprun
