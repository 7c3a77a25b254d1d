#include "run/calendar.h"

#include <algorithm>
#include <limits>

#include "model/months.h"
#include "text/stop.h"
#include "text/whole.h"

namespace kelprun {

namespace {

std::int32_t date_of(std::int32_t year, std::int32_t month, std::int32_t day) {
  constexpr std::int32_t LAST_YEAR = std::numeric_limits<std::int32_t>::max() / 10000 - 1;
  if (year > LAST_YEAR) run_time_message("calendar: the run goes beyond the last possible year");
  return 10000 * year + 100 * month + day;
}

std::int32_t day_number(float day) {
  return truncated(static_cast<double>(day), "day number, which DT moves on");
}

/// February 29 is kept where the day is exactly 29 in a leap year.
bool is_leap_day(std::int32_t year, std::int32_t day) { return year % 4 == 0 && day == 29; }

}  // namespace

void advance_calendar(Clock& c) {
  if (c.FIRSTDAY == 1)
    c.DAY0 = c.ITS == 1
                 ? nearest_integer(static_cast<double>(c.DAYF), "day number, which DT moves on")
                 : day_number(c.DAYF);
  const float x = std::max(c.DAYF + c.DAYSTEP, 1.0f);
  std::int32_t n = day_number(x);
  if (c.FIRSTDAY == 1 && n != c.DAY0) c.FIRSTDAY = 0;

  const std::int32_t L = days_of_month(c.IMONTH);
  if (n > L && !is_leap_day(c.IYEAR, n)) {
    n = 1;
    c.DAYF = 1.0f;
    ++c.IMONTH;
  } else {
    c.DAYF = x;
  }
  if (c.IMONTH == 13) {
    c.IMONTH = 1;
    ++c.IYEAR;
    ++c.NYEARS;
  }
  c.CURDATE = date_of(c.IYEAR, c.IMONTH, n);

  std::int32_t n2 = day_number(c.DAYF + c.DAYSTEP);
  std::int32_t month = c.IMONTH;
  std::int32_t year = c.IYEAR;
  // The day of the step decides here, not the next day: the told date can run ahead in February.
  if (n2 > L && !is_leap_day(c.IYEAR, n)) {
    n2 = 1;
    if (++month == 13) {
      month = 1;
      ++year;
    }
  }
  c.NEXTDATE = date_of(year, month, n2);
}

}  // namespace kelprun
