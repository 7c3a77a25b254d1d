#include "waves/tip_waves.h"

#include "waves/kernel.h"
#include "waves/spreading.h"

namespace kelprun {

namespace {

TipWave wave_at(const Tip& tip, const Waves& w, float A) {
  constexpr float WKDEEP0 = 0.0f;  // never set, and meant so
  const std::int32_t c = tip.cell;
  TransformedWave t;
  if (tip.D > w.DRF(c)) {
    const float Zr = w.pass.ZZDEG * PI / 180.0f;
    const float Cg0 = G / (2.0f * w.SIGMA);
    t = TRANSFORM(WKDEEP0, w.pass.HZ, Zr, Cg0, A, tip.D, w.WK0, w.SIGMA);
  } else {
    t = TRANSFORM(w.WKRF(c), w.HRF(c), w.ZRF(c), w.CGRF(c), A, tip.D, w.WK0, w.SIGMA);
  }
  const Spreading spreading = SPREADMAX(tip.D, w.SIGMA);
  return {t.k2, t.H2, t.Z2, spreading.SMAX, spreading.AKD, 2.0f * PI / t.k2};
}

}  // namespace

void set_tip_waves(const Tips& tips, const Waves& waves, const PerWall<float>& ALPHAC,
                   Array1<TipWave>& tip_waves) {
  for (std::int32_t j = 1; j <= tips.tips.size(); ++j) {
    const Tip& tip = tips.tips(j);
    if (tip.cell < 1) continue;
    tip_waves(j) = wave_at(tip, waves, ALPHAC(tip.cell));
    // Tips at one wall share the wave length of the first of them, whatever their depths.
    if (j > 1 && tips.tips(j - 1).cell == tip.cell) tip_waves(j).LTIP = tip_waves(j - 1).LTIP;
  }
}

bool has_active_tip(const Tips& tips) {
  for (std::int32_t j = 1; j <= tips.tips.size(); ++j)
    if (tips.tips(j).cell > 0 && tips.TIPOFF(j) != 1) return true;
  return false;
}

}  // namespace kelprun
