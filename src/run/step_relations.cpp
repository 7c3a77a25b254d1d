#include "run/step_relations.h"

#include <algorithm>
#include <cmath>

#include "input/run_length.h"
#include "input/timed_records.h"
#include "model/constants.h"
#include "model/months.h"
#include "text/stop.h"
#include "text/whole.h"

namespace kelprun {

namespace {

void check_wave_step(float WAVEDT, float DT, Report& report) {
  if (DT > WAVEDT) {
    report.line(" ERROR. SIMULATION TIME STEP GREATER THAN TIME STEP IN WAVE FILE.");
    report.line(" PLEASE REVIEW AND REVISE YOUR .cfg AND INPUT WAVE FILES AS APPROPRIATE.");
    fatal("ERROR. Simulation time step greater than wave time step");
  }
  if (!is_multiple(WAVEDT, DT)) {
    report.line(" ERROR. TIME STEP IN WAVE FILE MUST BE A MULTIPLE OF SIMULATION TIME STEP.");
    report.line(" PLEASE REVIEW AND REVISE YOUR .cfg AND INPUT WAVE FILES AS APPROPRIATE.");
    fatal("ERROR. Wave time step not a multiple of simulation time step");
  }
}

void check_save_interval(float DTSAVE, float DT, Report& report) {
  if (is_multiple(DTSAVE, DT)) return;
  report.line(" ERROR. DTSAVE MUST BE A MULTIPLE OF SIMULATION TIME STEP.");
  report.line(" PLEASE  REVIEW AND REVISE YOUR .cfg FILE.");
  fatal("ERROR. DTSAVE not a multiple of simulation time step.");
}

bool is_wrong_date(std::int32_t date) {
  const DateParts parts = date_parts(date);
  return parts.month > 12 || parts.day > 31;
}

/// A fill's amount over its whole time becomes an amount per step; its own first date decides
/// whether it counts in days or in steps. A fill of zero days gets an amount that is not finite.
void spread_fills(Events& e, float SPD, Report& report) {
  for (std::int32_t k = 1; k <= e.NBF; ++k) {
    if (e.BFDATS(k) <= LAST_STEP_NUMBER) {
      e.YADD(k) /= static_cast<float>(static_cast<std::int64_t>(e.BFDATE(k)) - e.BFDATS(k) + 1);
      continue;
    }
    if (is_wrong_date(e.BFDATS(k)) || is_wrong_date(e.BFDATE(k))) {
      report.line(" ERROR. INCORRECT FORMAT ON BEACH FILL DATES.");
      report.line(" PLEASE CORRECT YOUR .spd FILE.");
      fatal("ERROR. Incorrect format on beach fill dates.");
    }
    e.YADD(k) /= static_cast<float>(days_without_leap(e.BFDATS(k), e.BFDATE(k))) * SPD;
  }
}

std::int32_t steps_in(float interval, float DT) {
  return std::max(nearest_integer(static_cast<double>(interval / DT), "steps of an interval"), 1);
}

}  // namespace

void check_step_relations(Model& m, Report& report) {
  const float DT = m.clock.DT;
  check_wave_step(m.series.WAVEDT, DT, report);
  check_save_interval(m.clock.DTSAVE, DT, report);
  spread_fills(m.events, m.clock.SPD, report);
  m.clock.DAYSTEP = 1.0f / m.clock.SPD;
  count_steps(m.clock, m.settings, m.series);
  m.clock.VOLFAC = volume_factor(DT, m.settings.CONVYD3);
}

void count_steps(Clock& c, const Settings& settings, const Series& series) {
  c.NDTSAVE = steps_in(c.DTSAVE, c.DT);
  c.NWSTEP = steps_in(series.WAVEDT, c.DT);
  // Water levels serve computed transmission alone.
  if (settings.KTMETFLAG == 1) c.NWLSTEP = steps_in(series.DTWL, c.DT);
  if (series.TIDEFLAG == 1) c.NTCSTEP = steps_in(series.DTTC, c.DT);
}

float volume_factor(float DT, float CONVYD3) { return 3600.0f * DT / CONVYD3; }

}  // namespace kelprun
