#pragma once

#include <cstdint>

namespace kelprun {

/// Where the run stands in time. Owner: run/ (input/ sets the configured values).
struct Clock {
  std::int32_t SIMDATS = 0;  ///< start date YYYYMMDD
  std::int32_t SIMDATE = 0;  ///< end date YYYYMMDD, or the number of steps
  float DT = 0.0f;           ///< step length, h
  float DTSAVE = 0.0f;       ///< interval of the result tables, h

  std::int32_t ITS = 0;    ///< number of the current step
  std::int32_t NTS = 0;    ///< number of the last step
  float ELAPSED = 0.0f;    ///< sum of all step lengths so far, h
  bool DTCHANGED = false;  ///< the step length changed since S was last evaluated

  float SPD = 0.0f;           ///< steps per day, 24/DT
  float DAYSTEP = 0.0f;       ///< day fraction of a step, 1/SPD
  std::int32_t NDAYS = 0;     ///< days from SIMDATS to SIMDATE; 0 with a step count
  std::int32_t IYEAR = 0;     ///< running year
  std::int32_t IMONTH = 0;    ///< running month
  float DAYF = 0.0f;          ///< running day of the month with its fraction
  std::int32_t NYEARS = 0;    ///< New Years passed since the start
  std::int32_t FIRSTDAY = 1;  ///< 1 until the day number changes for the first time
  std::int32_t DAY0 = 0;      ///< the day number compared with while FIRSTDAY is 1
  std::int32_t CURDATE = 0;   ///< date of the step: events, print dates, anniversaries
  std::int32_t NEXTDATE = 0;  ///< date of the following step: tables and report

  std::int32_t FROMDATE = 0;  ///< date of the last year block, SIMDATS before the first

  std::int32_t NDTSAVE = 0;  ///< steps between table records
  std::int32_t NWSTEP = 0;   ///< steps between wave records
  std::int32_t NWLSTEP = 0;  ///< steps between water level records
  std::int32_t NTCSTEP = 0;  ///< steps between tidal current records
  float VOLFAC = 0.0f;       ///< from m3/s to a reported volume per step

  std::int32_t IPRINT = 1;   ///< next entry of the print date list
  std::int32_t NSTABLE = 0;  ///< quiet steps in a row
  float NSTABSTEPS = 0.0f;   ///< quiet steps wanted before an increase of DT
  bool FIRSTWARN = true;     ///< no unstable block has been written yet
  bool CYCLED = false;       ///< the wave cycling block has been written
  bool SHORTEST = false;     ///< the step cannot shrink any more, and this has been said
  bool OVERSHOT = false;     ///< ITS has been carried past NTS, and this has been said
  bool NONFINITE = false;    ///< the shoreline holds a value that is not a number
  std::int32_t IERR = 0;     ///< 1 once a failure stops the run at the common stop point
  bool STOPPED = false;      ///< the run went through the common stop point
};

/// Years completed since the start, by the difference of the dates in years.
inline std::int64_t completed_years(const Clock& clock) {
  return (std::int64_t{clock.NEXTDATE} - clock.SIMDATS) / 10000;
}

}  // namespace kelprun
