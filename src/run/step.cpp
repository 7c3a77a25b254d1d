#include <algorithm>
#include <cmath>
#include <string>

#include "coast/contour.h"
#include "coast/events.h"
#include "coast/groin_factors.h"
#include "coast/orientation.h"
#include "coast/profile_shape.h"
#include "coast/sediment_step.h"
#include "coast/structure_states.h"
#include "coast/volumes.h"
#include "inlets/inlet_places.h"
#include "inlets/shoals.h"
#include "model/constants.h"
#include "output/announcements.h"
#include "output/print_block.h"
#include "output/wave_report.h"
#include "run/calendar.h"
#include "run/held_wave.h"
#include "run/interrupt.h"
#include "run/run.h"
#include "run/series_steps.h"
#include "run/stability.h"
#include "run/year_block.h"
#include "text/standard_error.h"
#include "text/stop.h"
#include "text/whole.h"
#include "waves/active_depth.h"
#include "waves/final_field.h"
#include "waves/tip_waves.h"
#include "waves/transmission.h"
#include "waves/undiffracted.h"
#include "waves/wave_field.h"
#include "waves/zones.h"

namespace kelprun {

namespace {

/// A step number that a change of the step length has carried past the last one does not end the
/// run; far past it the run would never end.
void watch_overshoot(Clock& c) {
  if (c.ITS <= c.NTS) return;
  if (static_cast<double>(c.ITS) > 1.1 * static_cast<double>(c.NTS))
    run_time_message("time step " + std::to_string(c.ITS) + " has passed the last step " +
                     std::to_string(c.NTS) + " without meeting it");
  if (!c.OVERSHOT)
    warning_line("time step " + std::to_string(c.ITS) + " has been carried past the last step " +
                 std::to_string(c.NTS) + "; the run goes on");
  c.OVERSHOT = true;
}

/// While the step length changes, the step number follows the elapsed time.
void advance_step_number(Clock& c) {
  const float before = c.ELAPSED;
  c.ELAPSED += c.DT;
  if (!c.DTCHANGED) {
    ++c.ITS;
  } else {
    if (c.ELAPSED == before)
      run_time_message("time step of " + std::to_string(c.DT) +
                       " h is too short to add to the elapsed " + std::to_string(before) + " h");
    c.ITS = truncated(static_cast<double>(c.ELAPSED / c.DT), "step number");
  }
  watch_overshoot(c);
}

void count_wave_event(Run& run) {
  Model& m = run.model;
  ++m.series.IWEVENT;
  if (m.series.IWEVENT <= m.series.WAVEID) return;
  m.series.IWEVENT = 1;
  if (m.settings.PRWARN || !m.clock.CYCLED) report_cycling(m.clock, m.series, run.report);
  m.clock.CYCLED = true;
}

void date_wave_warning(Model& m, Report& report) {
  if (m.waves.WAVEWARN != 1 && !(m.waves.WAVEWARN == 2 && m.settings.PRWARN)) return;
  report_date(m.clock, report);
  m.waves.WAVEWARN = -1;
}

/// A new wave record, or the one in force; false where the run stops.
bool take_wave(Run& run) {
  Model& m = run.model;
  if ((m.clock.ITS - 1) % m.clock.NWSTEP != 0) {
    restore_wave(m.waves);
  } else {
    run.wave_events.read(run.files, m.settings, m.grid, m.series, m.clock, m.waves, run.report);
    count_wave_event(run);
    if (m.clock.IERR == 1) return false;
    date_wave_warning(m, run.report);
    if (m.clock.NWSTEP != 1) hold_wave(m.waves);
  }
  return true;
}

void set_contour(Model& m) {
  bridge_inlets(m.grid, m.inlets, m.shore.YOLD);
  if (m.settings.IREG != 3) smooth_contour(m.grid, m.settings.ISMOOTH, m.shore);
  set_contour_orientation(m.grid, m.shore);
}

/// Diffracts the undiffracted waves behind structures; false where the run stops.
bool diffract(Run& run) {
  Model& m = run.model;
  const DiffractingCoast coast{m.settings, m.grid,  m.boundaries, m.groins, m.breakwaters,
                               m.tips,     m.zones, m.inlets,     m.shore};
  set_tip_waves(m.tips, m.waves, m.shore.ALPHAC, m.diffraction.tip_waves);
  if (combine_zones(coast, m.series.WL, m.waves, m.diffraction, run.report)) return true;
  m.clock.IERR = 1;
  return false;
}

/// The slope of the step and the coefficients that go with it; only the first cell's depth enters.
void set_slope(Model& m) {
  m.waves.TANB = beach_slope(m.settings.ASHAPE, m.waves.DLTZ(1));
  for (std::int32_t i = 1; i <= m.grid.NX; ++i)
    m.profile.K2EFF(i) = m.profile.K2CELL(i) / (K2_DIVISOR * m.waves.TANB);
}

/// From the wave at the reference depth to the breaking wave at every wall and what gets past the
/// groins; false where the run stops.
bool bring_waves_to_breaking(Run& run) {
  Model& m = run.model;
  set_step_frequency(m.waves);
  update_transmission(m.settings, m.clock, m.series, m.waves, m.shore.ALPHAC, m.breakwaters,
                      m.zones, run.report);
  set_shoreline_orientation(m.grid, m.boundaries, m.groins, m.shore);
  set_active_depth(m.grid, m.clock, m.waves, run.report);
  set_slope(m);
  set_structure_states(m.grid, m.groins, m.breakwaters, m.shore, m.tips);
  break_waves(m.settings, m.grid, m.waves, m.shore.ALPHAC);
  if (m.settings.PRTOUT && m.clock.ITS < m.clock.NTS)
    UNDIFFSTAT(m.settings, m.grid, m.profile, m.waves, m.shore.ALPHA, m.undiffracted);
  if (!diffract(run)) return false;
  finish_field(m.grid, m.groins, m.breakwaters, m.inlets, m.waves);
  if (m.settings.PRTOUT && m.clock.ITS == m.clock.NTS)
    report_last_waves(m.settings, m.grid, m.waves, run.report);
  set_group_speed(m.settings, m.grid, m.waves);
  GROINPASS(m.settings, m.series.WL, m.grid, m.profile, m.boundaries, m.waves, m.inlets.INLC,
            m.shore, m.groins, m.transport);
  return true;
}

void check_stability(Run& run) {
  Model& m = run.model;
  const float S = stability_parameter(m.grid, m.profile, m.waves, m.clock.DT);
  warn_of_instability(m.settings, m.series, m.waves, S, m.clock, run.report);
  adapt_step(m, S, run.report);
}

/// Waves, transport and the new shoreline; false where the run stops.
bool move_sand(Run& run) {
  Model& m = run.model;
  if (!bring_waves_to_breaking(run)) return false;
  check_stability(run);
  SEDSTEP(m.settings, m.clock.DT, m.clock.CURDATE, m.grid, m.profile, m.boundaries, m.waves,
          m.groins, m.breakwaters, m.inlets, m.shore, m.transport);
  if (m.clock.ITS % m.clock.NDTSAVE == 0)
    run.inlet_tables.write(m.clock, m.settings.CONVYD3, m.inlets);
  add_transport(m.grid, m.transport, m.clock.VOLFAC, m.settings.CONVYD3, m.ledgers);
  return true;
}

bool waves_come_from_behind(const PassWave& wave) {
  return wave.ZZDEG >= 90.0f || wave.ZZDEG <= -90.0f;
}

/// Says once where the shoreline has become a value that is no number.
void watch_shoreline(Model& m) {
  if (m.clock.NONFINITE || std::isfinite(m.ledgers.VOLTOTAL)) return;
  for (std::int32_t i = 1; i <= m.grid.NX; ++i) {
    if (std::isfinite(m.shore.Y(i))) continue;
    m.clock.NONFINITE = true;
    warning_line("the shoreline is no number any more: date " + std::to_string(m.clock.CURDATE) +
                 ", step " + std::to_string(m.clock.ITS) + ", wall " + std::to_string(i) +
                 ", wave height " + std::to_string(m.waves.pass.HZ) + " m, period " +
                 std::to_string(m.waves.pass.T) + " s, angle " +
                 std::to_string(m.waves.pass.ZZDEG) + " degrees");
    return;
  }
}

/// One pass: wave, contour, events, transport, shoreline, table rows; false where the run stops.
bool wave_pass(Run& run) {
  Model& m = run.model;
  if (!take_wave(run)) return false;
  std::copy(m.shore.Y.begin(), m.shore.Y.end(), m.shore.YOLD.begin());
  if (m.clock.ITS == 1) run.tables.write_state(m);
  set_contour(m);
  fill_beaches(m.grid, m.profile, m.events, m.clock, m.shore, m.ledgers);
  if (is_calm(m.grid, m.waves)) {
    CALMSTEP(m.grid, m.profile, m.boundaries, m.clock.DT, m.shore);
    dredge_all(m.clock.CURDATE, m.inlets);
  } else if (!waves_come_from_behind(m.waves.pass) && !move_sand(run)) {
    return false;
  }
  VOLSTEP(m.grid, m.profile, m.shore, m.ledgers);
  watch_shoreline(m);
  if (m.clock.ITS % m.clock.NDTSAVE == 0) run.tables.write_state(m);
  return true;
}

/// Only a match moves on to the next print date: a date that has passed stays the next one.
void print_intermediate(Run& run) {
  Clock& c = run.model.clock;
  const Settings& s = run.model.settings;
  if (s.NOUT < 1 || c.IPRINT > s.NOUT || c.ITS == c.NTS) return;
  const std::int32_t due = s.PRDATE(c.IPRINT);
  if (c.ITS != due && c.CURDATE != due) return;
  if (s.PRTOUT) report_print_date(run.model, run.report);
  run.tables.write_year_sums(run.model.ledgers, c.NEXTDATE, 1.0f);
  ++c.IPRINT;
}

void keep_extremes(const Grid& grid, Shore& s) {
  for (std::int32_t i = 1; i <= grid.NX; ++i) {
    const auto Y = static_cast<float>(s.Y(i));
    s.YMAX(i) = std::max(s.YMAX(i), Y);
    s.YMIN(i) = std::min(s.YMIN(i), Y);
  }
}

bool stop_at_common_point(Clock& c) {
  c.STOPPED = true;
  return false;
}

}  // namespace

bool step(Run& run) {
  Model& m = run.model;
  Clock& c = m.clock;
  if (c.IERR == 1 || interrupting_signal() != 0) return stop_at_common_point(c);
  advance_step_number(c);
  advance_calendar(c);
  m.shore.DYSRC.fill(0.0);
  run_bypassing(m.grid, m.events, c, m.shore, m.ledgers);
  take_water_level(m.settings, c, m.series);
  take_tidal_currents(m.grid, c, m.series, m.transport, run.report);
  if (!wave_pass(run)) return stop_at_common_point(c);
  print_intermediate(run);
  keep_extremes(m.grid, m.shore);
  if (is_year_end(c)) close_year(m, run.tables, run.report);
  if (c.ITS == c.NTS) return false;
  run.progress.update(c);
  return true;
}

}  // namespace kelprun
