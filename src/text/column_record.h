#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kelprun {

/// A record of fixed columns, built from left to right.
class ColumnRecord {
 public:
  ColumnRecord& text(std::string_view text);
  ColumnRecord& blanks(int count);
  /// A whole number, right-justified in `width` columns.
  ColumnRecord& integer(int width, std::int64_t value);
  /// A real with `decimals` digits behind its point, right-justified in `width` columns.
  ColumnRecord& real(int width, int decimals, double value);

  const std::string& record() const { return record_; }

 private:
  char* field(int width);
  std::string record_;
};

}  // namespace kelprun
