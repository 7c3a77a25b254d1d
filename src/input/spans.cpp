#include "input/spans.h"

#include <algorithm>
#include <string>

#include "text/console.h"
#include "text/standard_error.h"
#include "text/stop.h"

namespace kelprun {

void expand_spans(const Spans& spans, std::int32_t NX, float factor, PerWall<float>& cells,
                  Report& report) {
  // NX itself is tested behind the expansion: too many cells are cut here and refused there.
  const std::int32_t held = std::clamp(NX, 0, capacity::CELLS);
  cells.take(held);
  const auto fill = [&](std::int64_t first, std::int32_t last, float value) {
    for (std::int64_t i = first; i <= std::min(last, held + 1); ++i) cells(i) = value * factor;
  };

  if (spans.ends(1) == 0) {
    const std::string message = "No " + std::string(spans.end_keyword) + " specified. " +
                                std::string(spans.value_keyword) + " is constant alongshore";
    console_line(message);
    report.line(message);
    fill(1, held + 1, spans.values(1));
    return;
  }
  bool beyond = false;
  bool ascending = true;
  std::int64_t begin = 1;
  for (std::int32_t i = 1; i <= held + 1; ++i) {
    const std::int32_t end = spans.ends(i);
    if (end < 0)
      fatal(std::string(spans.end_keyword) + " holds " + std::to_string(end) +
            ", which is no cell of the grid");
    if (end > NX) beyond = true;
    if (end != 0 && end < begin) ascending = false;
    if (end == 0 || end == NX) {
      fill(begin, held + 1, spans.values(i));
      break;
    }
    fill(begin, end, spans.values(i));
    begin = std::int64_t{end} + 1;
  }
  // Without a grid every end lies beyond it; that there is none is told elsewhere.
  if (NX < 1) return;
  if (!ascending) warning_line(std::string(spans.end_keyword) + " holds end cells out of order");
  if (beyond)
    warning_line(std::string(spans.end_keyword) +
                 " holds end cells beyond NX = " + std::to_string(NX));
}

}  // namespace kelprun
