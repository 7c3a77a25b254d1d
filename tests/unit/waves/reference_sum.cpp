// What the reference makes of the zones after both tips: angles at breaking, and the energy sum.
#include <cmath>

#include "unit/waves/reference_field.h"
#include "unit/waves/reference_formulas.h"

namespace kelptest {

using Int = std::int32_t;

template <class Real>
void ReferenceField<Real>::merge() {
  const auto WK0 = static_cast<Real>(m_.waves.WK0);
  for (Int i = 1; i <= NX_ + 1; ++i) {
    const auto n = static_cast<std::size_t>(i);
    if (HBD[n] <= static_cast<Real>(0.01f)) {
      HBD[n] = 0;
      ZBD[n] = 0;
      continue;
    }
    const auto WKBU = static_cast<Real>(m_.waves.WKBU(i));
    Real a = ZBD[n], kk = WKBU;
    if (IZONE[n] == 1 || IZONE[n] == 2) {
      const int ID = IZONE[n];
      const ReferenceTip<Real>& tip = ID == 1 ? first : second;
      const Real w = (ID == 1 ? W1 : W2)[n];
      a = ZRAY[n] * w + ZBD[n] * (1 - w);
      ZRAY[n] = a;
      kk = w * tip.k + (1 - w) * WKBU;
      if (beyond_has_no_extent(ID) && tip.KTn < 0) {
        const Real w2 = std::pow(-tip.KTn, static_cast<Real>(0.2f));
        a = a * (1 - w2) + ZBD[n] * w2;
        kk = w2 * WKBU + (1 - w2) * tip.k;
      }
    } else if (IZONE[n] == 12) {
      a = ZRAY[n];
      kk = (first.k + second.k) * static_cast<Real>(0.5);
    }
    Real A = static_cast<Real>(m_.shore.ALPHA(i));
    if (A >= 900) A -= 999;
    const Real kb = breaking_wave_number<Real>(WK0, HBD[n] * (1 / GAMMA_));
    const bool on_groin = m_.groins.ICSTR(i) == 1;
    const bool kept = on_groin && ((i == IBEG && IZONE[n] == 1) || (i == IEND && IZONE[n] == 2));
    if (!kept && !(kk > kb)) ZBD[n] = A + std::asin(kk * std::sin(a - A) / kb);
  }
}

template <class Real>
bool ReferenceField<Real>::combine() {
  std::vector<Real> SWS(HB.size(), 0);
  HB.assign(HB.size(), 0);
  ZB.assign(ZB.size(), 0);
  DONE.assign(DONE.size(), 0);
  const auto add = [&](Int from, Int to) {
    for (auto n = static_cast<std::size_t>(from); n <= static_cast<std::size_t>(to); ++n) {
      const Real h = HBD[n] * HBD[n];
      HB[n] += h;
      SWS[n] += std::sin(2 * ZBD[n]) * h;
    }
  };
  bool any = false;
  for (Int j = 1; j <= m_.tips.tips.size(); ++j)
    any = any || (m_.tips.tips(j).cell > 0 && m_.tips.TIPOFF(j) == 0);
  if (!any) {
    for (Int i = 1; i <= NX_ + 1; ++i) {
      HBD[static_cast<std::size_t>(i)] = static_cast<Real>(m_.waves.HBU(i));
      ZBD[static_cast<std::size_t>(i)] = static_cast<Real>(m_.waves.ZBU(i));
      if (i >= 2 && i <= NX_ && m_.inlets.INLC(i) == 1 && m_.inlets.INLC(i - 1) == 1)
        HBD[static_cast<std::size_t>(i)] = 0;
    }
    add(1, NX_ + 1);
  } else {
    for (const Int zone : m_.zones.ZORDER) {
      if (zone == 0 || zone_share(zone) <= static_cast<Real>(0.01f)) continue;
      if (passed(zone) && !begins_the_coast(zone)) continue;
      if (!work(zone)) return false;
      add(IBEG, IEND);
    }
  }
  for (std::size_t n = 1; n < HB.size(); ++n) {
    ZB[n] = HB[n] > 0 ? static_cast<Real>(0.5) * std::asin(SWS[n] / HB[n]) : Real{0};
    HB[n] = std::sqrt(HB[n]);
  }
  return true;
}

template void ReferenceField<float>::merge();
template void ReferenceField<double>::merge();
template bool ReferenceField<float>::combine();
template bool ReferenceField<double>::combine();

}  // namespace kelptest
