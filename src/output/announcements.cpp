#include "output/announcements.h"

#include <string>

#include "text/column_record.h"
#include "text/console.h"

namespace kelprun {

void announce_program() {
  console_line("+-------------------------------------+");
  console_line("              KelpRun                  ");
  console_line("+-------------------------------------+");
  console_line("     Version 1.1 release 8, JAN 2020");
  console_line("             KelpRun_v1p1r8.exe          ");
}

void announce_years(const Clock& clock) {
  const std::string ORNAMENT(65, '*');
  console_record("");
  for (int line = 1; line <= 3; ++line) console_line(ORNAMENT);
  console_record(ColumnRecord()
                     .text("CALCULATED ")
                     .integer(3, completed_years(clock))
                     .text(" YEARS  =")
                     .integer(8, clock.ITS)
                     .text(" TIME STEPS.  DATE IS ")
                     .integer(8, clock.NEXTDATE)
                     .record());
  for (int line = 1; line <= 4; ++line) console_line(ORNAMENT);
}

void report_cycling(const Clock& clock, const Series& series, Report& report) {
  const std::string STARS(63, '*');
  const std::int32_t first_date = series.WAVEDATE.empty() ? 0 : series.WAVEDATE(1);
  report.line(std::string(44, ' '));
  report.line(STARS);
  report.line(" WARNING: Current wave event exceeds maximum number of wave    ");
  report.line("          events as specified in control file(*.kel).          ");
  report.line("          Cycling back to first wave event.                    ");
  report.line("          Specified maximum number of wave events: ", series.WAVEID);
  report.line(" ");
  report.line("          Current simulation date is:             ", clock.NEXTDATE);
  report.line("          Newly cycled wave event date is:        ", first_date);
  report.line(STARS);
}

void report_date(const Clock& clock, Report& report) {
  report.line(" DATE IS ", clock.CURDATE, ".  TIME STEP IS ", clock.ITS);
}

void announce_bad_angles(std::int32_t NBADANG, Report& report) {
  if (NBADANG == 0) return;
  // Console and report differ in their blanks, and are meant to.
  console_line("WARNING: Wave Angle is greater than 90 deg         or less than -90 deg.");
  console_line("Number of Occurrences : ", NBADANG);
  report.line("WARNING: Wave Angle is greater than 90 deg   or less than -90 deg.");
  report.line("Number of Occurrences : ", NBADANG);
}

}  // namespace kelprun
