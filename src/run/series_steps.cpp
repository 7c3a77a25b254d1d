#include "run/series_steps.h"

#include "output/announcements.h"

namespace kelprun {

namespace {

bool begins_record(const Clock& clock, std::int32_t steps) { return (clock.ITS - 1) % steps == 0; }

void end_tidal_series(const Clock& clock, Series& series, Transport& transport, Report& report) {
  if (series.TCENDED) return;
  series.TCENDED = true;
  transport.TCUR.fill(0.0f);
  report.line(" WARNING. TIDAL CURRENT SERIES HAS ENDED.");
  report_date(clock, report);
}

}  // namespace

void check_tidal_points(const Grid& grid, const Series& series, Clock& clock, Report& report) {
  if (series.TIDEFLAG == 0 || series.NTCPOINTS > grid.NX) return;
  report.line(" Not enough tidal current data", series.NTCPOINTS, " points provided", grid.NX + 1,
              " points needed");
  clock.IERR = 1;
}

void take_water_level(const Settings& settings, const Clock& clock, Series& series) {
  if (settings.KTMETFLAG != 1 || !begins_record(clock, clock.NWLSTEP)) return;
  ++series.IWLREC;
  if (series.IWLREC > series.NWLREC + 1) series.IWLREC = 2;
  series.WL = series.WLFILE(series.IWLREC - 1);
}

void take_tidal_currents(const Grid& grid, const Clock& clock, Series& series, Transport& transport,
                         Report& report) {
  if (series.TIDEFLAG != 1 || !begins_record(clock, clock.NTCSTEP)) return;
  if (series.ITCREC > series.NTCRNTREC) {
    end_tidal_series(clock, series, transport, report);
    return;
  }
  const std::int64_t row = static_cast<std::int64_t>(series.ITCREC - 1) * series.NTCPOINTS;
  for (std::int32_t i = 1; i <= grid.NX + 1; ++i)
    transport.TCUR(i) = series.TCRNT(row + i) * series.KTIDE;
  ++series.ITCREC;
}

}  // namespace kelprun
