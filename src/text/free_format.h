#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

namespace kelprun {

/// A number as free-format output writes it: integers plain; reals with the fewest digits that
/// read back to the same value, always with a decimal point, in fixed notation from 1e-4 to 1e9.
std::string free_number(std::int64_t value);
std::string free_number(float value);
std::string free_number(double value);

/// A free-format line: one blank, then the items. A text stands as it is; a number is preceded by
/// one blank unless the text before it ends in one.
class FreeLine {
 public:
  void add(std::string_view text) { line_ += text; }
  void add(std::integral auto value) { add_number(free_number(static_cast<std::int64_t>(value))); }
  void add(std::floating_point auto value) { add_number(free_number(value)); }
  const std::string& text() const { return line_; }

 private:
  void add_number(const std::string& number);
  std::string line_ = " ";
};

template <class... Items>
std::string free_format(const Items&... items) {
  FreeLine line;
  (line.add(items), ...);
  return line.text();
}

}  // namespace kelprun
