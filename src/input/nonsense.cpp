#include "input/nonsense.h"

#include <algorithm>
#include <string>

#include "input/demands.h"
#include "input/inlet_checks.h"
#include "model/capacities.h"
#include "text/free_format.h"
#include "text/standard_error.h"
#include "text/stop.h"

namespace kelprun {

namespace {

void demand_index(const std::string& keyword, std::int32_t value, std::int32_t last) {
  if (value < 1 || value > last)
    fatal(keyword + " " + std::to_string(value) + " lies outside 1 to " + std::to_string(last));
}

void demand_indices(const std::string& keyword, const Array1<std::int32_t>& values,
                    std::int32_t last) {
  for (const std::int32_t value : values) demand_index(keyword, value, last);
}

void demand_capacity(const std::string& keyword, std::int32_t count, std::int32_t most) {
  if (count > most)
    fatal(keyword + ": " + std::to_string(count) + " lines, at most " + std::to_string(most) +
          " are possible");
}

void check_sand(const Model& m) {
  demand_positive("D50", m.settings.D50);
  demand_positive("GAMMA", m.settings.GAMMA);
  for (std::int32_t i = 1; i <= m.grid.NX + 1; ++i)
    demand_positive("K1 at cell " + std::to_string(i), m.profile.K1CELL(i));
  for (std::int32_t i = 1; i <= m.grid.NX; ++i)
    demand_positive("DCLOS + BERMHT at cell " + std::to_string(i),
                    m.profile.DCLOSCELL(i) + m.profile.BERMHTCELL(i));
}

void check_wave_files(const Series& s, std::int32_t NX) {
  if (s.NWFIL != s.IWEND.size())
    fatal("NUMWAVES is " + std::to_string(s.NWFIL) + ", but there are " +
          std::to_string(s.IWEND.size()) + " WAVEID lines");
  demand_indices("WAVEID end cell", s.IWEND, NX + 1);
  for (std::int32_t n = 2; n <= s.IWEND.size(); ++n)
    if (s.IWEND(n) <= s.IWEND(n - 1))
      fatal("WAVEID end cells must ascend, " + std::to_string(s.IWEND(n)) + " follows " +
            std::to_string(s.IWEND(n - 1)));
  if (s.WAVEID < 0 || s.WAVEID > capacity::WAVE_EVENTS)
    fatal("WAVEID: " + std::to_string(s.WAVEID) + " wave events lie outside 0 to " +
          std::to_string(capacity::WAVE_EVENTS));
}

void check_record_count(const std::string& keyword, std::int32_t count, std::int32_t most) {
  if (count < 2 || count > most)
    fatal(keyword + ": " + std::to_string(count) + " records lie outside 2 to " +
          std::to_string(most));
}

void check_series(const Series& s, std::int32_t NX) {
  if (!s.WTRELFILE.empty()) check_record_count("WLFILE", s.NWLREC, capacity::WATER_LEVELS);
  if (s.TIDEFLAG == 0) return;
  check_record_count("TIDEFILE", s.NTCRNTREC, capacity::TIDAL_RECORDS);
  demand_indices("TIDEFILE end cell", s.ITCEND, NX + 1);
}

/// A wave that bends around a tip, or meets a breakwater, needs water under it.
void check_depths(const Groins& g, const Breakwaters& b) {
  for (std::int32_t k = 1; k <= g.NDG; ++k)
    demand_positive("DDG of the groin at wall " + std::to_string(g.IXDG(k)), g.DDG(k));
  for (std::int32_t k = 1; k <= b.NDB; ++k) {
    const std::string breakwater = " of breakwater " + std::to_string(k);
    demand_positive("DBDEP1" + breakwater, b.DBDEP1(k));
    demand_positive("DBDEP2" + breakwater, b.DBDEP2(k));
  }
}

void check_transmission(const Array1<float>& TRANDB) {
  for (std::int32_t k = 1; k <= TRANDB.size(); ++k)
    if (!(TRANDB(k) >= 0.0f))
      fatal("TRANDB of breakwater " + std::to_string(k) + " must not be below 0, it is " +
            free_number(TRANDB(k)));
}

/// The zones between the tips would be counted wrong: a breakwater without cells has no zone, and
/// behind the left tip of a breakwater a shorter groin opens a gap that is not there.
void check_breakwater_places(const Groins& g, const Breakwaters& b) {
  for (std::int32_t k = 1; k <= b.NDB; ++k) {
    const std::string breakwater = "breakwater " + std::to_string(k);
    if (b.DBI2(k) <= b.DBI1(k))
      fatal("DBI2 of " + breakwater + " must be above its DBI1, which is " +
            std::to_string(b.DBI1(k)));
    for (std::int32_t j = 1; j <= g.NDG; ++j)
      if (g.IXDG(j) == b.DBI1(k) && g.YDG(j) < b.DBY1(k))
        fatal("groin at wall " + std::to_string(g.IXDG(j)) + " ends behind the left tip of " +
              breakwater + ": move it");
  }
}

void check_structures(const Model& m) {
  const std::int32_t NX = m.grid.NX;
  check_depths(m.groins, m.breakwaters);
  check_breakwater_places(m.groins, m.breakwaters);
  check_transmission(m.breakwaters.TRANDB);
  demand_capacity("ISWBEG", m.seawalls.NSW, capacity::SEAWALLS);
  demand_indices("ISWBEG", m.seawalls.ISWBEG, NX);
  demand_indices("ISWEND", m.seawalls.ISWEND, NX);
  demand_capacity("BFDATS", m.events.NBF, capacity::FILLS);
  demand_capacity("IINLS", m.inlets.NINL, capacity::INLETS);
  demand_indices("IINLS", m.inlets.IINLS, NX);
  demand_indices("IINLE", m.inlets.IINLE, NX);
  refuse_inlets(m.inlets, NX);
}

void check_budget(const Budget& b, std::int32_t NX) {
  demand_capacity("ILEDGV1", b.NLEDGV, capacity::BUDGET_ITEMS);
  demand_indices("ILEDGV1", b.ILEDGV1, NX);
  demand_indices("ILEDGV2", b.ILEDGV2, NX);
  demand_capacity("ILEDGQ1", b.NLEDGQ, capacity::BUDGET_ITEMS);
  demand_indices("ILEDGQ1", b.ILEDGQ1, NX + 1);
  demand_indices("ILEDGQ2", b.ILEDGQ2, NX + 1);
}

/// Currents can be spread over stations out of their order, but mean nothing then.
void warn_of_stations_out_of_order(const Array1<std::int32_t>& ITCEND) {
  for (std::int32_t k = 2; k <= ITCEND.size(); ++k) {
    if (ITCEND(k) > ITCEND(k - 1)) continue;
    warning_line("TIDEFILE end cells do not ascend, " + std::to_string(ITCEND(k)) + " follows " +
                 std::to_string(ITCEND(k - 1)));
    return;
  }
}

bool zero_everywhere(const PerWall<float>& values) {
  return std::all_of(values.begin(), values.end(), [](float value) { return value == 0.0f; });
}

}  // namespace

void refuse_empty_grid(std::int32_t NX) {
  if (NX < 1) fatal("NX is " + std::to_string(NX) + ", at least 1 cell is needed");
}

void refuse_nonsense(const Model& m) {
  if (!m.grid.variable) refuse_widths(m.grid);
  check_sand(m);
  check_wave_files(m.series, m.grid.NX);
  check_series(m.series, m.grid.NX);
  check_structures(m);
  check_budget(m.budget, m.grid.NX);
  if (m.clock.NTS < 1)
    fatal("SIMDATE " + std::to_string(m.clock.SIMDATE) + " gives a run of " +
          std::to_string(m.clock.NTS) + " time steps");
}

void refuse_tips(const Breakwaters& b, std::int32_t NX) {
  demand_indices("DBI1", b.DBI1, NX + 1);
  demand_indices("DBI2", b.DBI2, NX + 1);
}

void refuse_widths(const Grid& grid) {
  for (std::int32_t i = 1; i <= grid.NX; ++i) {
    const std::string cell = grid.variable ? " of cell " + std::to_string(i) : "";
    demand_positive("DX" + cell, grid.DX(i));
  }
}

void warn_of_oddities(const Model& m) {
  if (zero_everywhere(m.waves.HAMP))
    warning_line("HAMP is 0 in every cell (a list left out is 0): the whole run is calm");
  if (zero_everywhere(m.waves.THETAAMP))
    warning_line("THETAAMP is 0 in every cell (a list left out is 0): all waves come straight in");
  warn_of_stations_out_of_order(m.series.ITCEND);
  warn_of_inlets(m.inlets, m.grid.NX);
}

}  // namespace kelprun
