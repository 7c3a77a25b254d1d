#include "text/column_record.h"

#include "text/columns.h"

namespace kelprun {

ColumnRecord& ColumnRecord::text(std::string_view text) {
  record_ += text;
  return *this;
}

ColumnRecord& ColumnRecord::blanks(int count) {
  field(count);
  return *this;
}

ColumnRecord& ColumnRecord::integer(int width, std::int64_t value) {
  put_integer(field(width), width, value);
  return *this;
}

ColumnRecord& ColumnRecord::real(int width, int decimals, double value) {
  put_fixed(field(width), width, decimals, value);
  return *this;
}

char* ColumnRecord::field(int width) {
  const std::size_t start = record_.size();
  record_.resize(start + static_cast<std::size_t>(width), ' ');
  return record_.data() + start;
}

}  // namespace kelprun
