// Cost of the single pieces of a step. Read the figures as ratios: to one dispersion relation, or
// to one wall and step of a whole run (bench/whole_runs).

#include <benchmark/benchmark.h>

#include <cmath>

#include "coast/contour.h"
#include "coast/orientation.h"
#include "coast/relaxation.h"
#include "coast/sweep.h"
#include "coast/transport.h"
#include "coast/volumes.h"
#include "model/model.h"
#include "run/storage.h"
#include "waves/breaking.h"
#include "waves/final_field.h"
#include "waves/kernel.h"
#include "waves/wave_field.h"
#include "waves/zones.h"

namespace kelprun {
namespace {

constexpr std::int32_t CELLS = 1000;

/// The energy sum of a coast without structures and the smoothing.
void sum_and_smooth(Model& m) {
  const DiffractingCoast coast{m.settings, m.grid,  m.boundaries, m.groins, m.breakwaters,
                               m.tips,     m.zones, m.inlets,     m.shore};
  Report report;
  combine_zones(coast, m.series.WL, m.waves, m.diffraction, report);
  finish_field(m.grid, m.groins, m.breakwaters, m.inlets, m.waves);
}

/// A gently curved coast under an oblique wave of 1 m and 8 s, ready for each stage of a step.
Model curved_coast() {
  Model m;
  m.grid.NX = CELLS;
  m.grid.DX.take(CELLS, 100.0f);
  for (PerWall<float>* array : {&m.profile.DCLOSCELL, &m.profile.BERMHTCELL, &m.profile.K1CELL,
                                &m.profile.K2CELL, &m.waves.HAMP, &m.waves.THETAAMP})
    array->take(CELLS, 1.0f);
  take_storage(m);
  m.settings.ASHAPE = 0.1f;
  m.waves.TANB = 0.02f;
  m.waves.pass = {1.0f, 8.0f, 15.0f, 15.0f};
  for (std::int32_t i = 1; i <= CELLS; ++i) m.shore.Y(i) = 10.0 * std::sin(0.02 * i);
  m.shore.YOLD = m.shore.Y;
  m.shore.YSTART = m.shore.Y;
  m.waves.HRF.fill(1.0f);
  m.waves.TRF.fill(8.0f);
  m.waves.ZRF.fill(0.26f);
  m.waves.DRF.fill(20.0f);
  for (std::int32_t i = 1; i <= CELLS; ++i) m.profile.K1EFF(i) = 0.02f;
  smooth_contour(m.grid, m.settings.ISMOOTH, m.shore);
  set_contour_orientation(m.grid, m.shore);
  set_shoreline_orientation(m.grid, m.boundaries, m.groins, m.shore);
  break_waves(m.settings, m.grid, m.waves, m.shore.ALPHAC);
  sum_and_smooth(m);
  set_group_speed(m.settings, m.grid, m.waves);
  const TransportConstants constants = transport_constants(1.0f, m.settings.GAMMA);
  clear_transport(constants, m.settings, m.grid, m.profile, m.waves, m.transport);
  compute_transport(constants, m.settings, m.grid, m.profile, m.waves, m.shore, m.groins,
                    m.breakwaters, m.transport);
  return m;
}

/// Time for one pass of `stage` along the coast, counted a wall.
template <class Stage>
void along_the_coast(benchmark::State& state, Stage stage) {
  Model m = curved_coast();
  for (auto _ : state) {
    stage(m);
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * (CELLS + 1));
}

void dispersion(benchmark::State& state) {
  float depth = 2.0f;
  for (auto _ : state) {
    benchmark::DoNotOptimize(depth);
    benchmark::DoNotOptimize(DISPERSE(8.0f, depth));
  }
}
BENCHMARK(dispersion);

void refraction_to_a_depth(benchmark::State& state) {
  float angle = 0.3f;
  for (auto _ : state) {
    benchmark::DoNotOptimize(angle);
    benchmark::DoNotOptimize(TRANSFORM(0.06f, 1.0f, angle, 8.0f, 0.0f, 3.0f, 0.063f, 0.785f));
  }
}
BENCHMARK(refraction_to_a_depth);

void breaking(benchmark::State& state) {
  float angle = 0.3f;
  for (auto _ : state) {
    benchmark::DoNotOptimize(angle);
    benchmark::DoNotOptimize(BREAKDIRECT(0.07f, 1.0f, 8.0f, angle, 0.7f, 0.0f, 0.78f));
  }
}
BENCHMARK(breaking);

void undiffracted_field(benchmark::State& state) {
  along_the_coast(state,
                  [](Model& m) { break_waves(m.settings, m.grid, m.waves, m.shore.ALPHAC); });
}
BENCHMARK(undiffracted_field);

void sum_and_smoothing(benchmark::State& state) { along_the_coast(state, sum_and_smooth); }
BENCHMARK(sum_and_smoothing);

void group_speed(benchmark::State& state) {
  along_the_coast(state, [](Model& m) { set_group_speed(m.settings, m.grid, m.waves); });
}
BENCHMARK(group_speed);

void contour(benchmark::State& state) {
  along_the_coast(state, [](Model& m) {
    smooth_contour(m.grid, m.settings.ISMOOTH, m.shore);
    set_contour_orientation(m.grid, m.shore);
  });
}
BENCHMARK(contour);

void shoreline_orientation(benchmark::State& state) {
  along_the_coast(
      state, [](Model& m) { set_shoreline_orientation(m.grid, m.boundaries, m.groins, m.shore); });
}
BENCHMARK(shoreline_orientation);

void transport(benchmark::State& state) {
  along_the_coast(state, [](Model& m) {
    const TransportConstants constants = transport_constants(1.0f, m.settings.GAMMA);
    clear_transport(constants, m.settings, m.grid, m.profile, m.waves, m.transport);
    compute_transport(constants, m.settings, m.grid, m.profile, m.waves, m.shore, m.groins,
                      m.breakwaters, m.transport);
  });
}
BENCHMARK(transport);

void shoreline_update(benchmark::State& state) {
  along_the_coast(state, [](Model& m) {
    relax_nodal_points(m.grid, m.transport.Q);
    move_shoreline(m.grid, m.inlets.INLC, m.shore, m.transport);
  });
}
BENCHMARK(shoreline_update);

void ledgers(benchmark::State& state) {
  along_the_coast(state, [](Model& m) {
    add_transport(m.grid, m.transport, 1.0f, 1.0f, m.ledgers);
    VOLSTEP(m.grid, m.profile, m.shore, m.ledgers);
  });
}
BENCHMARK(ledgers);

}  // namespace
}  // namespace kelprun

BENCHMARK_MAIN();
