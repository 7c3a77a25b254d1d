#pragma once

#include <array>
#include <cstdint>

namespace kelprun {

/// Days of the months; February stays 28 here in all years, the calendar adds its leap days.
inline constexpr std::array<float, 12> MONTHDAYS = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

/// Days of a month, truncated; a month outside 1 to 12 has none.
constexpr std::int32_t days_of_month(std::int32_t month) {
  if (month < 1 || month > 12) return 0;
  return static_cast<std::int32_t>(MONTHDAYS[static_cast<std::size_t>(month - 1)]);
}

/// Year, month and day of a date YYYYMMDD.
struct DateParts {
  std::int32_t year, month, day;
};

constexpr DateParts date_parts(std::int32_t date) {
  const std::int32_t year = date / 10000;
  const std::int32_t month = date / 100 - 100 * year;
  return {year, month, date - 10000 * year - 100 * month};
}

}  // namespace kelprun
