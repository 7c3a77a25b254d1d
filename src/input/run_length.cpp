#include "input/run_length.h"

#include <algorithm>

#include "input/refusal.h"
#include "model/constants.h"
#include "model/months.h"
#include "text/whole.h"

namespace kelprun {

namespace {

/// Days of the months from the first up to the one before the last.
std::int32_t days_of_months(std::int32_t first, std::int32_t last) {
  std::int32_t days = 0;
  for (std::int32_t month = first; month < last; ++month) days += days_of_month(month);
  return days;
}

/// Leap days: February lies in the range of a year only if the range begins before its end.
std::int32_t leap_days(const DateParts& start, const DateParts& end) {
  const std::int32_t first = start.month <= 2 ? start.year : start.year + 1;
  const std::int32_t last = end.month <= 2 ? end.year - 1 : end.year;
  std::int32_t days = 0;
  for (std::int32_t year = first; year <= last; ++year)
    if (year % 4 == 0) ++days;
  return days;
}

}  // namespace

std::int32_t days_without_leap(std::int32_t start, std::int32_t end) {
  const DateParts s = date_parts(start);
  const DateParts e = date_parts(end);
  const std::int32_t months =
      days_of_months(std::min(s.month, e.month), std::max(s.month, e.month));
  return 365 * (e.year - s.year) + (e.day - s.day) + (s.month > e.month ? -months : months);
}

std::int32_t days_between(std::int32_t start, std::int32_t end) {
  return days_without_leap(start, end) + leap_days(date_parts(start), date_parts(end));
}

void set_run_length(Clock& clock) {
  const DateParts start = date_parts(clock.SIMDATS);
  if (start.month > 12 || start.day > 31)
    refuse(
        {" ERROR. INCORRECT FORMAT ON SIMULATION START DATE.", " PLEASE CORRECT YOUR .cfg FILE."});
  clock.IYEAR = start.year;
  clock.IMONTH = start.month;
  clock.DAYF = static_cast<float>(start.day);

  if (clock.SIMDATS < clock.SIMDATE) {
    clock.NDAYS = days_between(clock.SIMDATS, clock.SIMDATE);
    clock.NTS = nearest_integer(static_cast<double>(static_cast<float>(clock.NDAYS) * clock.SPD),
                                "number of time steps");
  } else if (clock.SIMDATE >= LAST_STEP_NUMBER) {
    refuse({" ERROR. SIMULATION ENDING DATE MUST BE LATER THAN",
            " THE STARTING DATE. PLEASE CORRECT YOUR .cfg FILE."});
  } else {
    clock.NTS = clock.SIMDATE;
  }
}

}  // namespace kelprun
