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

/// Of its angle modes and contour modes the model has no others; windows are counted in cells.
void check_modes(const Settings& s) {
  if (s.IREG < 0 || s.IREG > 3) fatal("IREG " + std::to_string(s.IREG) + " lies outside 0 to 3");
  if (s.IWAVREGSMOOTH < 0)
    fatal("IWAVREGSMOOTH must not be below 0, it is " + std::to_string(s.IWAVREGSMOOTH));
}

void check_times(const Settings& s, const Clock& c) {
  if (c.SIMDATS < 0) fatal("SIMDATS must not be below 0, it is " + std::to_string(c.SIMDATS));
  if (c.NTS < 1)
    fatal("SIMDATE " + std::to_string(c.SIMDATE) + " gives a run of " + std::to_string(c.NTS) +
          " time steps");
  // No step is short enough for a ceiling of 0.
  if (s.DTADAPT == 1) demand_positive("STABMIN", s.STABMIN);
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
  if (s.WAVEID == 1) fatal("WAVEID: 1 wave event gives no wave step, 0 or at least 2 do");
  for (std::int32_t n = 1; n <= s.WMDEP.size(); ++n)
    demand_positive("WAVEID: depth of wave gauge " + std::to_string(n), s.WMDEP(n));
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

/// More than everything cannot pass, though a permeability in percent reads as if it could.
void check_permeability(const std::string& keyword, const Array1<std::int32_t>& walls,
                        const Array1<float>& permeabilities) {
  for (std::int32_t k = 1; k <= permeabilities.size(); ++k)
    if (permeabilities(k) > 1.0f)
      fatal(keyword + " of the groin at wall " + std::to_string(walls(k)) +
            " must not be above 1, it is " + free_number(permeabilities(k)));
}

void check_seawalls(const Seawalls& s, std::int32_t NX) {
  demand_capacity("ISWBEG", s.NSW, capacity::SEAWALLS);
  demand_indices("ISWBEG", s.ISWBEG, NX);
  demand_indices("ISWEND", s.ISWEND, NX);
  for (std::int32_t k = 1; k <= s.NSW; ++k)
    if (s.ISWEND(k) < s.ISWBEG(k))
      fatal("ISWEND " + std::to_string(s.ISWEND(k)) + " of seawall " + std::to_string(k) +
            " lies before its ISWBEG " + std::to_string(s.ISWBEG(k)));
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
  check_permeability("PNDG", m.groins.IXNDG, m.groins.PNDG);
  check_permeability("PDG", m.groins.IXDG, m.groins.PDG);
  check_seawalls(m.seawalls, NX);
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

/// A wave then gains energy at the groin instead of losing it, and the search for where it breaks
/// can end without a result, which stops the run.
void warn_of_permeability(const std::string& keyword, const Array1<std::int32_t>& walls,
                          const Array1<float>& permeabilities) {
  for (std::int32_t k = 1; k <= permeabilities.size(); ++k)
    if (permeabilities(k) < 0.0f)
      warning_line(keyword + " of the groin at wall " + std::to_string(walls(k)) +
                   " should not be below 0, it is " + free_number(permeabilities(k)));
}

/// What never acts is a slip more often than a wish.
void warn_of_idle_fills(const Events& e, std::int32_t NX) {
  for (std::int32_t k = 1; k <= e.IBFS.size(); ++k) {
    const std::string fill = "fill " + std::to_string(k);
    if (e.IBFE(k) < 1 || e.IBFS(k) > NX)
      warning_line(fill + " has no cell in the grid: IBFS " + std::to_string(e.IBFS(k)) +
                   ", IBFE " + std::to_string(e.IBFE(k)));
    if (e.BFDATE(k) != 0 && e.BFDATE(k) < e.BFDATS(k))
      warning_line(fill + " never acts: BFDATE " + std::to_string(e.BFDATE(k)) +
                   " lies before its BFDATS " + std::to_string(e.BFDATS(k)));
  }
}

void warn_of_idle_bypassing(const Events& e) {
  for (std::int32_t k = 1; k <= e.BPDATS.size(); ++k)
    if (e.BPDATE(k) != 0 && e.BPDATE(k) < e.BPDATS(k))
      warning_line("bypass operation " + std::to_string(k) + " never acts: BPDATE " +
                   std::to_string(e.BPDATE(k)) + " lies before its BPDATS " +
                   std::to_string(e.BPDATS(k)));
}

bool zero_everywhere(const PerWall<float>& values) {
  return std::all_of(values.begin(), values.end(), [](float value) { return value == 0.0f; });
}

/// One cell without waves makes all cells calm.
void warn_of_calm(const PerWall<float>& HAMP, std::int32_t NX) {
  if (zero_everywhere(HAMP)) {
    warning_line("HAMP is 0 in every cell (a list left out is 0): the whole run is calm");
    return;
  }
  for (std::int32_t i = 1; i <= NX; ++i) {
    if (HAMP(i) != 0.0f) continue;
    warning_line("HAMP is 0 at cell " + std::to_string(i) +
                 ": a cell without waves makes the whole run calm");
    return;
  }
}

}  // namespace

void refuse_empty_grid(std::int32_t NX) {
  if (NX < 1) fatal("NX is " + std::to_string(NX) + ", at least 1 cell is needed");
}

void refuse_nonsense(const Model& m) {
  if (!m.grid.variable) refuse_widths(m.grid);
  check_modes(m.settings);
  check_sand(m);
  check_wave_files(m.series, m.grid.NX);
  check_series(m.series, m.grid.NX);
  check_structures(m);
  check_budget(m.budget, m.grid.NX);
  check_times(m.settings, m.clock);
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
  warn_of_calm(m.waves.HAMP, m.grid.NX);
  if (zero_everywhere(m.waves.THETAAMP))
    warning_line("THETAAMP is 0 in every cell (a list left out is 0): all waves come straight in");
  warn_of_stations_out_of_order(m.series.ITCEND);
  warn_of_permeability("PNDG", m.groins.IXNDG, m.groins.PNDG);
  warn_of_permeability("PDG", m.groins.IXDG, m.groins.PDG);
  warn_of_idle_fills(m.events, m.grid.NX);
  warn_of_idle_bypassing(m.events);
  warn_of_inlets(m.inlets, m.grid.NX);
}

}  // namespace kelprun
