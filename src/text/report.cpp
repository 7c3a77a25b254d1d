#include "text/report.h"

#include <algorithm>

#include "text/columns.h"
#include "text/stop.h"

namespace kelprun {

void Report::begin() {
  begun_ = true;
  if (!file_.is_open()) return;
  const std::string name = file_.name();
  if (!file_.open(name, true)) run_time_message(name + ": cannot be emptied");
  for (std::size_t start = 0; start < kept_.size();) {
    const auto end = kept_.find('\n', start);
    file_.record(std::string_view(kept_).substr(start, end - start));
    start = end + 1;
  }
  kept_.clear();
}

void Report::record(std::string_view text) {
  if (!begun_) {
    kept_ += text;
    kept_ += '\n';
  } else if (file_.is_open()) {
    file_.record(text);
  }
}

void Report::array(const Array1<float>& values, std::int32_t count, int width) {
  constexpr std::int32_t VALUES_PER_LINE = 10;
  std::string text;
  for (std::int32_t first = 1; first <= count; first += VALUES_PER_LINE) {
    const std::int32_t last = std::min(first + VALUES_PER_LINE - 1, count);
    text.resize(static_cast<std::size_t>((last - first + 1) * width));
    for (std::int32_t i = first; i <= last; ++i)
      put_fixed(text.data() + (i - first) * width, width, 2, static_cast<double>(values(i)));
    record(text);
  }
}

}  // namespace kelprun
