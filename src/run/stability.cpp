#include "run/stability.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "input/boundary_checks.h"
#include "input/wave_table.h"
#include "run/held_wave.h"
#include "run/step_relations.h"
#include "text/console.h"
#include "text/standard_error.h"
#include "text/whole.h"

namespace kelprun {

namespace {

/// 3600 DT/(DX^2 D) at cell i.
float step_over_area(const Grid& grid, const Profile& profile, float DT, std::int32_t i) {
  const auto seconds = static_cast<double>(3600.0f * DT);
  const auto DX = static_cast<double>(grid.DX(i));
  const double height =
      static_cast<double>(profile.DCLOSCELL(i)) + static_cast<double>(profile.BERMHTCELL(i));
  return static_cast<float>(seconds / (DX * DX * height));
}

std::int32_t cell_of_largest_flux(const Grid& grid, const Waves& waves) {
  if (grid.NX < 3) return 1;
  const auto flux = [&](std::int32_t i) { return waves.HB(i) * waves.HB(i) * waves.CGB(i); };
  std::int32_t worst = 1;
  float largest = flux(1);
  for (std::int32_t i = 2; i <= grid.NX - 1; ++i) {
    if (flux(i) > largest) {
      largest = flux(i);
      worst = i;
    }
  }
  return worst;
}

float diffusive_term(const Grid& grid, const Profile& profile, const Waves& waves, float DT,
                     std::int32_t i) {
  const auto H = static_cast<double>(waves.HB(i));
  const auto r = static_cast<double>(step_over_area(grid, profile, DT, i));
  return static_cast<float>(2.0 * (H * H) * static_cast<double>(profile.K1EFF(i)) *
                            static_cast<double>(waves.CGB(i)) * r);
}

float gradient_term(const Grid& grid, const Profile& profile, const Waves& waves, float DT) {
  std::int32_t j_worst = 1;
  float largest = 0.0f;
  for (std::int32_t j = 2; j <= grid.NX; ++j) {
    const float rise = waves.HB(j + 1) - waves.HB(j - 1);
    // No sine lifts a product above the height difference, so that most cells need none.
    if (std::abs(rise) <= largest) continue;
    const float t = std::sin(waves.ZB(j)) * rise;
    if (t > largest) {
      largest = t;
      j_worst = j;
    }
  }
  const auto H = static_cast<double>(waves.HB(j_worst));
  const auto r = static_cast<double>(step_over_area(grid, profile, DT, j_worst));
  return static_cast<float>(H * H * static_cast<double>(profile.K2EFF(j_worst)) *
                            static_cast<double>(waves.CGB(j_worst)) * r *
                            static_cast<double>(largest) /
                            (2.0 * static_cast<double>(grid.DX(j_worst))));
}

const std::string STARS(63, '*');
const std::string DASHES(63, '-');

/// Lines that go to the console and to the report alike.
class BothPlaces {
 public:
  explicit BothPlaces(Report& report) : report_(report) {}
  template <class... Items>
  void line(const Items&... items) {
    console_line(items...);
    report_.line(items...);
  }
  void blanks(std::size_t count) { line(std::string(count, ' ')); }

 private:
  Report& report_;
};

void write_reduction_head(const Model& m, float S, BothPlaces out) {
  const WaveStamp stamp = wave_stamp(m.series, m.series.IWEVENT - 1, m.clock.CYCLED);
  out.blanks(44);
  out.line(STARS);
  out.line(" WARNING: Solution is unstable.......................          ");
  out.line("          Current simulation STABILITY PARAMETER is: ", S);
  out.line("          Current simulation date is:                ", m.clock.NEXTDATE);
  out.line("          Current wave event date is:           ", stamp.date);
  out.line("          Current wave event hour is:            ", stamp.hour);
  out.line("          Current wave Height (HZ)is:            ", m.waves.pass.HZ);
  out.line("          Current wave Period (T)is:             ", m.waves.pass.T);
  out.line("          Current wave Direction(zzdeg) is:      ", m.waves.pass.ZZDEG);
  out.line(" ACTION:  Commence adaptive time-step (DT) reduction!!!        ");
  out.line(DASHES);
}

void write_new_step(float DT, float S, BothPlaces out) {
  out.line("          ..................................NEW DT = ", DT);
  out.line("          .................NEW STABILITY PARAMETER = ", S);
  out.line(STARS);
  out.blanks(63);
}

void write_increase(const Model& m, float S, BothPlaces out) {
  out.blanks(40);
  out.line(STARS);
  out.line(" NOTICE: Computational efficiency can be improved...           ");
  out.line(DASHES);
  out.line(" ACTION:  Commence adaptive time-step (DT) increase!!!         ");
  out.line("          Current simulation date is:                ", m.clock.NEXTDATE);
  write_new_step(m.clock.DT, S, out);
}

/// Everything that follows from the step length, after a change of it.
void rescale(Model& m) {
  Clock& c = m.clock;
  const float old_SPD = c.SPD;
  const float new_SPD = 24.0f / c.DT;
  c.DTCHANGED = true;
  for (float& YADD : m.events.YADD) YADD = YADD * old_SPD / new_SPD;
  c.NSTABSTEPS = c.NSTABSTEPS / old_SPD * new_SPD;
  c.SPD = new_SPD;
  c.DAYF = c.DAYF - c.DAYSTEP + 1.0f / c.SPD;
  c.DAYSTEP = 1.0f / c.SPD;
  // With a step count as its end the run keeps its simulated hours.
  const double steps = c.NDAYS == 0
                           ? c.NTS * (static_cast<double>(new_SPD) / static_cast<double>(old_SPD))
                           : static_cast<double>(static_cast<float>(c.NDAYS) * c.SPD);
  c.NTS = nearest_integer(steps, "number of time steps");
  c.VOLFAC = volume_factor(c.DT, m.settings.CONVYD3);
  count_steps(c, m.settings, m.series);
  if (c.NWSTEP != 1) hold_wave(m.waves);
  for (Boundary* b : {&m.boundaries.left, &m.boundaries.right})
    b->MOVSTEP = boundary_movement(*b, m.settings.CONV, c.NTS, c.SPD);
}

float current_stability(const Model& m) {
  return stability_parameter(m.grid, m.profile, m.waves, m.clock.DT);
}

void reduce_step(Model& m, float S, Report& report) {
  Clock& c = m.clock;
  write_reduction_head(m, S, BothPlaces(report));
  for (;;) {
    const float before = c.DT;
    const float half = 0.5f * c.DT;
    c.DT =
        m.settings.DTMIN > static_cast<double>(half) ? static_cast<float>(m.settings.DTMIN) : half;
    S = current_stability(m);
    if (!(S > m.settings.STABMIN)) break;
    if (c.DT == before) {
      if (!c.SHORTEST)
        warning_line("step " + std::to_string(c.ITS) +
                     ": the solution stays unstable at the smallest time step DTMIN");
      c.SHORTEST = true;
      break;
    }
  }
  BothPlaces out(report);
  out.blanks(40);
  write_new_step(c.DT, S, out);
  rescale(m);
}

void try_longer_step(Model& m, Report& report) {
  Clock& c = m.clock;
  c.DT = std::min(m.settings.DTMAX, 2.0f * c.DT);
  const float S = current_stability(m);
  if (S > m.settings.STABMIN) {
    // A step that DTMAX had capped comes back shorter than it was, without rescaling: meant so.
    c.DT = 0.5f * c.DT;
  } else {
    write_increase(m, S, BothPlaces(report));
    rescale(m);
  }
  c.NSTABLE = 0;
}

}  // namespace

float stability_parameter(const Grid& grid, const Profile& profile, const Waves& waves, float DT) {
  constexpr auto LEAST_K2EFF = static_cast<double>(0.001f);
  const std::int32_t i = cell_of_largest_flux(grid, waves);
  const float S1 = diffusive_term(grid, profile, waves, DT, i);
  const float S2 = static_cast<double>(profile.K2EFF(i)) < LEAST_K2EFF
                       ? 0.0f
                       : gradient_term(grid, profile, waves, DT);
  return S1 + S2;
}

void warn_of_instability(const Settings& settings, const Series& series, const Waves& waves,
                         float S, Clock& clock, Report& report) {
  constexpr float UNSTABLE = 0.5f;  // follows neither STABMIN nor STABMAX
  if (!(S > UNSTABLE)) return;
  console_line("WARNING!  Solution is unstable.");
  console_line("Check printable output file for details.");
  if (!settings.PRWARN && !clock.FIRSTWARN) return;
  clock.FIRSTWARN = false;
  const WaveStamp stamp = wave_stamp(series, series.IWEVENT - 1, clock.CYCLED);
  report.line(" WARNING!  CALCULATION SCHEME UNSTABLE.");
  report.line(" STABILITY PARAMETER =", S);
  report.line(" PLEASE CONSULT YOUR MANUAL.");
  report.line("date is", clock.CURDATE, " wave date is", stamp.date, "hours is", stamp.hour);
  report.line("hz is", waves.pass.HZ, "zzdeg is", waves.pass.ZZDEG, "t is", waves.pass.T);
}

void adapt_step(Model& m, float S, Report& report) {
  if (m.settings.DTADAPT != 1) return;
  Clock& c = m.clock;
  c.DTCHANGED = false;
  if (S > m.settings.STABMIN) {
    reduce_step(m, S, report);
    return;
  }
  c.NSTABLE = S <= m.settings.STABMAX ? c.NSTABLE + 1 : 0;
  if (m.settings.DTMAX > c.DT && static_cast<float>(c.NSTABLE) > c.NSTABSTEPS)
    try_longer_step(m, report);
}

}  // namespace kelprun
