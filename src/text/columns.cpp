#include "text/columns.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace kelprun {

namespace {

void put_text(char* field, int width, std::string_view text) {
  const auto room = static_cast<std::size_t>(width);
  if (text.size() > room) {
    std::fill_n(field, room, '*');
    return;
  }
  std::fill_n(field, room - text.size(), ' ');
  std::copy(text.begin(), text.end(), field + (room - text.size()));
}

}  // namespace

void put_integer(char* field, int width, std::int64_t value) {
  std::array<char, 24> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  put_text(field, width, {digits.data(), static_cast<std::size_t>(end.ptr - digits.data())});
}

void put_fixed(char* field, int width, int decimals, double value) {
  if (std::isnan(value)) return put_text(field, width, "NaN");
  if (std::isinf(value)) return put_text(field, width, value < 0 ? "-Infinity" : "Infinity");
  // The longest double has 309 digits before its point.
  std::array<char, 340> digits;
  auto end = std::to_chars(digits.data(), digits.data() + digits.size() - 1, value,
                           std::chars_format::fixed, decimals);
  if (decimals == 0) *end.ptr++ = '.';
  put_text(field, width, {digits.data(), static_cast<std::size_t>(end.ptr - digits.data())});
}

}  // namespace kelprun
