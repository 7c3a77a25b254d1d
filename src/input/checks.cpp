#include "input/checks.h"

#include "input/boundary_checks.h"
#include "input/configuration.h"
#include "input/nonsense.h"
#include "input/refusal.h"
#include "input/run_length.h"
#include "input/structure_lists.h"
#include "model/capacities.h"
#include "model/constants.h"

namespace kelprun {

namespace {

void set_unit_factors(Settings& s) {
  switch (s.IUNITS) {
    case 1:
      s.CONV = 1.0f;
      s.CONVYD = 1.0f;
      break;
    case 2:
      s.CONV = 0.3048f;
      s.CONVYD = 0.9144f;
      break;
    default:
      refuse({" ERROR. WRONG VALUE ON \"KELUNITS\".", " MUST BE \"ft\" OR \"m\".",
              " PLEASE CORRECT YOUR .cfg FILE."});
  }
  s.CONVYD3 = s.CONVYD * s.CONVYD * s.CONVYD;
}

void convert_inlet_volumes(Inlets& n, float CONVYD3) {
  for (Array1<float>* volumes : {&n.VVSE, &n.VVSF, &n.VVSBL, &n.VVSBR, &n.VVSAL, &n.VVSAR, &n.VVSEQ,
                                 &n.VVSFQ, &n.VVSBQL, &n.VVSBQR, &n.VVSAQL, &n.VVSAQR})
    for (float& volume : *volumes) volume *= CONVYD3;
  for (Dredging& dredging : n.dredgings) dredging.DREDQ *= CONVYD3;
}

void set_adaptive_defaults(Settings& s, Clock& clock) {
  if (s.DTADAPT != 1) return;
  if (s.DTMIN == 0.0) s.DTMIN = 0.0001;
  if (s.DTMAX == 0.0f) s.DTMAX = clock.DT;
  if (s.NSTABDTMIN == 0.0f) s.NSTABDTMIN = 28.0f;
  clock.NSTABSTEPS = s.NSTABDTMIN * clock.SPD;
}

void check_print_dates(const Settings& s) {
  if (s.NOUT > capacity::PRINT_DATES)
    refuse_limit({" ERROR. TOO MANY INTERMEDIATE PRINT-OUTS REQUESTED.",
                  " PLEASE CHANGE VALUE OF \"NOUT\" IN START FILE."},
                 capacity::PRINT_DATES);
}

void convert_profile(Profile& p, float CONV) {
  for (PerWall<float>* heights : {&p.BERMHTCELL, &p.DCLOSCELL})
    for (float& height : *heights) height *= CONV;
}

/// The width of the first cell stands for all cells; -1 announces a file of widths.
void set_uniform_grid(Grid& g, float CONV) {
  float DX = g.DX(1);
  g.variable = DX == -1.0f;
  if (g.NX > capacity::CELLS)
    refuse_limit(
        {" ERROR. TOO MANY SHORELINE CELLS.", " PLEASE CHANGE VALUE OF \"nx\" IN YOUR .spd FILE."},
        capacity::CELLS);
  refuse_empty_grid(g.NX);
  g.DX.take(g.NX);
  if (g.variable) return;
  DX *= CONV;
  for (std::int32_t i = 1; i <= g.NX; ++i) g.DX(i) = DX;
}

void check_fills(Events& e, const Grid& grid, float CONV) {
  for (std::int32_t k = 1; k <= e.IBFS.size(); ++k) {
    // Only both at once fail: a fill that reaches past one end acts on the cells inside the grid.
    if (e.IBFS(k) < 1 && e.IBFE(k) > grid.NX)
      refuse(
          {" ERROR. BEACH FILL IS OUTSIDE CALCULATION GRID.", " PLEASE CORRECT YOUR .spd FILE."});
    if (e.IBFE(k) < e.IBFS(k))
      refuse({" START X-COORDINATE OF BEACH FILL IS .GT. END X-COORDINATE.",
              " PLEASE CORRECT YOUR .spd FILE."});
  }
  for (float& YADD : e.YADD) YADD *= CONV;
}

}  // namespace

bool read_and_check(const std::string& name, Model& m, InputFiles& files, Report& report) {
  if (!read_configuration(name, m, files, report)) return false;
  set_unit_factors(m.settings);
  convert_inlet_volumes(m.inlets, m.settings.CONVYD3);
  m.clock.SPD = 24.0f / m.clock.DT;
  set_adaptive_defaults(m.settings, m.clock);
  set_run_length(m.clock);
  check_print_dates(m.settings);
  convert_profile(m.profile, m.settings.CONV);
  set_uniform_grid(m.grid, m.settings.CONV);
  check_groins(m);
  check_breakwaters(m);
  check_left_boundary(m);
  check_right_boundary(m);
  refuse_tips(m.breakwaters, m.grid.NX);
  merge_tips(m);
  check_fills(m.events, m.grid, m.settings.CONV);
  refuse_nonsense(m);
  warn_of_oddities(m);
  return true;
}

}  // namespace kelprun
