#include "text/report.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "text/column_record.h"
#include "text/stop.h"

namespace kelprun {

void Report::begin() {
  begun_ = true;
  if (name_.empty()) return;
  if (!file_.open(name_)) run_time_message(name_ + ": cannot be opened: " + std::strerror(errno));
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

namespace {

/// Writes records of 10 fields or fewer; put(record, i) adds the i-th field.
template <class Put>
void write_fields(Report& report, std::int32_t count, Put put) {
  constexpr std::int32_t FIELDS_PER_LINE = 10;
  for (std::int32_t first = 1; first <= count; first += FIELDS_PER_LINE) {
    ColumnRecord line;
    for (std::int32_t i = first; i <= std::min(first + FIELDS_PER_LINE - 1, count); ++i)
      put(line, i);
    report.record(line.record());
  }
}

}  // namespace

void Report::array(std::int32_t count, int width,
                   const std::function<double(std::int32_t)>& value) {
  constexpr int DECIMALS = 2;
  write_fields(*this, count,
               [&](ColumnRecord& line, std::int32_t i) { line.real(width, DECIMALS, value(i)); });
}

void Report::array(const Array1<float>& values, std::int32_t count, int width) {
  array(count, width, [&](std::int32_t i) { return values(i); });
}

void Report::numbers(const Array1<std::int32_t>& values) {
  constexpr int WIDTH = 7;
  write_fields(*this, values.size(),
               [&](ColumnRecord& line, std::int32_t i) { line.integer(WIDTH, values(i)); });
}

}  // namespace kelprun
