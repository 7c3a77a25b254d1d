#include <string>

#include "coast/profile_shape.h"
#include "coast/seawalls.h"
#include "coast/structure_places.h"
#include "inlets/inlet_places.h"
#include "input/checks.h"
#include "input/regional_angle.h"
#include "input/shoreline_files.h"
#include "input/structure_lists.h"
#include "input/tidal_currents.h"
#include "input/water_levels.h"
#include "input/wave_table.h"
#include "model/constants.h"
#include "output/announcements.h"
#include "output/report_head.h"
#include "run/bypass_checks.h"
#include "run/numerics.h"
#include "run/run.h"
#include "run/series_steps.h"
#include "run/step_relations.h"
#include "run/storage.h"
#include "text/console.h"
#include "text/stop.h"
#include "waves/tip_list.h"
#include "waves/transmission.h"

namespace kelprun {

namespace {

/// A failure that these find does not end the set-up: the first step looks at IERR before all else
/// and leads to the common stop point, with report and tables opened by then.
void read_series(Run& run) {
  Model& m = run.model;
  if (m.settings.KTMETFLAG == 1)
    read_water_levels(m.settings, m.clock.DT, run.files, m.series, run.report);
  if (m.series.TIDEFLAG == 0) return;
  read_tidal_currents(m.grid, m.clock.DT, run.files, m.series, run.report);
  check_tidal_points(m.grid, m.series, m.clock, run.report);
}

void prepare_waves(Run& run) {
  Model& m = run.model;
  read_wave_dates(m.series, run.files);
  set_wave_step(m.series, m.clock.DT, run.report);
  for (float& WMDEP : m.series.WMDEP) WMDEP *= m.settings.CONV;
  run.wave_events.place_walls(m.grid, m.series);
}

/// An end without a groin derives the transport of its wall from its movement.
void prepare_boundaries(Model& m) {
  m.boundaries.left.QBC = !has_groin_at(m.groins, 1);
  m.boundaries.right.QBC = !has_groin_at(m.groins, m.grid.NX + 1);
  for (Boundary* end : {&m.boundaries.left, &m.boundaries.right})
    if (end->QBC) end->GROINY = 0.0f;
}

void prepare_shoreline(Model& m) {
  Shore& s = m.shore;
  for (std::int32_t i = 1; i <= m.grid.NX; ++i) {
    s.Y(i) -= static_cast<double>(s.YREG(i));
    s.YSTART(i) = s.Y(i);
    s.YMAX(i) = static_cast<float>(s.Y(i));
    s.YMIN(i) = s.YMAX(i);
  }
  set_seawall_limits(m.settings, m.grid, m.seawalls, s);
  s.YSWI = s.YSW;
}

/// Who stands beside whom, and the lines that the shoreline may not pass.
void place_structures(Model& m) {
  connect_groins_and_breakwaters(m.groins, m.breakwaters);
  group_breakwaters(m.breakwaters);
  set_breakwater_lines(m.grid, m.breakwaters, m.shore);
}

void prepare_sand(Model& m) {
  m.settings.ASHAPE = profile_shape_factor(m.settings.D50);
  m.settings.ASHAPE_GAMMA = m.settings.ASHAPE * m.settings.GAMMA;
  for (std::int32_t i = 1; i <= m.grid.NX; ++i)
    m.profile.K1EFF(i) = m.profile.K1CELL(i) / K1_DIVISOR;
}

/// The first entry of the date table with the month and day of the start date; none leaves it.
void find_first_wave(Series& series, std::int32_t SIMDATS) {
  for (std::int32_t i = 1; i <= series.WAVEDATE.size(); ++i) {
    if (series.WAVEDATE(i) % 10000 != SIMDATS % 10000) continue;
    series.IWEVENT = i;
    return;
  }
}

}  // namespace

void setup(Run& run, const std::string& path) {
  Model& m = run.model;
  flush_denormals();
  if (!read_and_check(path, m, run.files, run.report)) stop_run(1);
  take_storage(m);
  read_cell_widths(m.settings, m.grid, run.report);
  read_shorelines(m.settings, m.grid, run.files, m.shore, run.report);
  set_regional_angle(m.settings, m.grid, m.series, m.shore.YREG, m.waves);
  read_series(run);
  prepare_transmission(m.settings, m.grid, m.groins, m.tips, m.breakwaters);
  prepare_waves(run);
  announce_program();
  if (m.settings.PRTOUT) report_head(m, run.report);
  set_wall_types(m.grid, m.groins);
  set_inlet_shorelines(m.groins, m.inlets, m.shore, run.report);
  set_placements(m.grid, m.inlets);
  subtract_regional_contour(m.settings, m.grid, m.shore.YREG, m.groins, m.breakwaters, m.tips);
  run.tables.open(m.settings.STEM, m.grid.NX);
  run.inlet_tables.open(m.inlets);
  prepare_boundaries(m);
  prepare_shoreline(m);
  prepare_sand(m);
  TIPLIST(m.grid, m.breakwaters, m.tips, m.zones, m.diffraction);
  if (m.settings.PRTOUT) report_initial_shoreline(m, run.report);
  find_first_wave(m.series, m.clock.SIMDATS);
  check_step_relations(m, run.report);
  prepare_bypassing(m.settings, m.clock, m.grid, m.events, run.report);
  check_groins_on_breakwaters(m.groins, m.breakwaters, run.report);
  place_structures(m);
  m.clock.FROMDATE = m.clock.SIMDATS;
  warn_of_short_waves(m.series, m.clock);
  console_line("Time Simulation begins ...");
  run.progress.start();
}

}  // namespace kelprun
