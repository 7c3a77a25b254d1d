#include "waves/wave_field.h"

#include <cmath>

#include "model/constants.h"
#include "waves/breaking.h"
#include "waves/kernel.h"

namespace kelprun {

bool is_calm(const Grid& grid, const Waves& waves) {
  bool calm = false;
  for (std::int32_t i = 1; i <= grid.NX; ++i)
    calm |= !(waves.TRF(i) > 0.0f) || waves.HRF(i) == 0.0f;
  return calm;
}

namespace {

/// Wave at the reference depth of each wall; neighbours with the same period and depth share it.
void set_reference_wave(const Grid& grid, Waves& w) {
  Dispersion reference{};
  for (std::int32_t i = 1; i <= grid.NX + 1; ++i) {
    if (i == 1 || w.TRF(i) != w.TRF(i - 1) || w.DRF(i) != w.DRF(i - 1))
      reference = DISPERSE(w.TRF(i), w.DRF(i));
    w.CGRF(i) = reference.Cg;
    w.NRF(i) = reference.n;
    w.WKRF(i) = reference.k;
  }
}

}  // namespace

void break_waves(const Settings& settings, const Grid& grid, Waves& w, PerWall<float>& ALPHAC) {
  set_reference_wave(grid, w);
  for (std::int32_t i = 1; i <= grid.NX + 1; ++i) {
    // The one angle of the pass decides, not the wall's own.
    const float to_contour = w.pass.ZZDEG - ALPHAC(i) * 180.0f / PI;
    if (to_contour >= 90.0f || to_contour <= -90.0f) {
      w.ZRF(i) = 0.0f;
      ALPHAC(i) = 0.0f;
    }
    const BreakingWave wave =
        BREAKDIRECT(w.WKRF(i), w.HRF(i), w.TRF(i), w.ZRF(i), w.NRF(i), ALPHAC(i), settings.GAMMA);
    w.HBU(i) = wave.Hb;
    w.ZBU(i) = wave.Zb;
    w.WKBU(i) = wave.kb;
    w.CGBU(i) = wave.Cgb;
  }
}

void set_step_frequency(Waves& w) {
  w.SIGMA = 2.0f * PI / w.pass.T;
  w.WK0 = w.SIGMA * w.SIGMA / G;
}

void set_group_speed(const Settings& settings, const Grid& grid, Waves& w) {
  for (std::int32_t i = 1; i <= grid.NX + 1; ++i) {
    const float db = w.HB(i) / settings.GAMMA;
    if (db > 0.0f) {
      const Dispersion at_breaking = DISPERSE(w.pass.T, db);
      w.CGB(i) = at_breaking.Cg;
      w.WKB(i) = at_breaking.k;
    } else {
      w.CGB(i) = 0.0f;
      w.WKB(i) = 0.0f;
    }
  }
}

}  // namespace kelprun
