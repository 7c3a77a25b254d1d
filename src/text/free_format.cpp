#include "text/free_format.h"

#include <array>
#include <charconv>
#include <cmath>

namespace kelprun {

namespace {

template <class Real>
std::string real_text(Real value) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value < 0 ? "-Infinity" : "Infinity";
  const Real size = std::abs(value);
  const bool fixed =
      size == 0 || (size >= static_cast<Real>(1e-4) && size <= static_cast<Real>(1e9));
  std::array<char, 64> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                 fixed ? std::chars_format::fixed : std::chars_format::scientific);
  std::string text(digits.data(), end.ptr);
  if (text.find('.') == std::string::npos) {
    const auto exponent = text.find('e');
    text.insert(exponent == std::string::npos ? text.size() : exponent, ".");
  }
  return text;
}

}  // namespace

std::string free_number(std::int64_t value) { return std::to_string(value); }
std::string free_number(float value) { return real_text(value); }
std::string free_number(double value) { return real_text(value); }

void FreeLine::add_number(const std::string& number) {
  if (line_.back() != ' ') line_ += ' ';
  line_ += number;
}

}  // namespace kelprun
