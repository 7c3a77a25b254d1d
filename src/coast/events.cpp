#include "coast/events.h"

#include <algorithm>
#include <cmath>

#include "model/constants.h"

namespace kelprun {

namespace {

/// The first entry of a list decides for all whether its times are dates or step numbers.
std::int32_t event_clock(const Array1<std::int32_t>& starts, const Clock& clock) {
  return starts(1) > LAST_STEP_NUMBER ? clock.CURDATE : clock.ITS;
}

}  // namespace

void fill_beaches(const Grid& grid, const Profile& profile, const Events& e, const Clock& clock,
                  Shore& shore, Ledgers& l) {
  if (e.NBF < 1) return;
  const std::int32_t D = event_clock(e.BFDATS, clock);
  for (std::int32_t k = 1; k <= e.NBF; ++k) {
    if (D < e.BFDATS(k) || D >= e.BFDATE(k)) continue;
    const float YADD = e.YADD(k);
    // A fill of zero days has no finite amount; around a leap day it still has a time to act in.
    if (!std::isfinite(YADD)) continue;
    PerCell<float>& ledger = YADD > 0.0f ? l.VFILLP : l.VFILLN;
    for (std::int32_t i = std::max(e.IBFS(k), 1); i <= std::min(e.IBFE(k), grid.NX); ++i) {
      shore.Y(i) += static_cast<double>(YADD);
      ledger(i) += (profile.DCLOSCELL(i) + profile.BERMHTCELL(i)) * (grid.DX(i) * YADD);
    }
  }
}

void run_bypassing(const Grid& grid, const Events& e, const Clock& clock, Shore& shore,
                   Ledgers& l) {
  if (e.NBP < 1) return;
  const std::int32_t D = event_clock(e.BPDATS, clock);
  for (std::int32_t k = 1; k <= e.NBP; ++k) {
    if (D < e.BPDATS(k) || D >= e.BPDATE(k)) continue;
    const double QBP = e.QBP(k);
    PerCell<float>& ledger = QBP > 0.0 ? l.VBYPP : l.VBYPN;
    for (std::int32_t i = e.IBPS(k); i <= e.IBPE(k); ++i) {
      shore.DYSRC(i) += QBP / 3600.0;
      const double V = static_cast<double>(grid.DX(i)) * (static_cast<double>(clock.DT) * QBP);
      ledger(i) = static_cast<float>(static_cast<double>(ledger(i)) + V);
    }
  }
}

}  // namespace kelprun
