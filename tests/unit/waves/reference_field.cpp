#include "unit/waves/reference_field.h"

#include <algorithm>
#include <cmath>

#include "unit/waves/reference_formulas.h"

namespace kelptest {

namespace {

using Int = std::int32_t;

constexpr Int LEFT = -1;   // mark of the coast's open left end
constexpr Int RIGHT = -2;  // mark of its open right end

}  // namespace

template <class Real>
ReferenceField<Real>::ReferenceField(const kelprun::Model& model)
    : m_(model), NX_(model.grid.NX), GAMMA_(static_cast<Real>(model.settings.GAMMA)) {
  const auto places = static_cast<std::size_t>(NX_ + 2);
  for (auto* values : {&HB, &ZB, &HBD, &ZBD, &KDA, &KDB, &ZRAY, &W1, &W2})
    values->assign(places, 0);
  IZONE.assign(places, 0);
  DONE.assign(places, 0);
  KDTAB.assign(static_cast<std::size_t>(m_.tips.tips.size() + 1), std::vector<Real>(places, 0));
}

template <class Real>
bool ReferenceField<Real>::groin(Int wall) const {
  return m_.groins.ICSTR(wall) == 1 || m_.groins.ICSTR(wall) == 3;
}

template <class Real>
Real ReferenceField<Real>::zone_share(Int zone) const {
  return static_cast<Real>(m_.zones.KTZ(zone));
}

template <class Real>
bool ReferenceField<Real>::beyond_has_no_extent(int ID) const {
  const Int n = ID == 1 ? Z - 1 : Z + 1;
  return n >= 1 && n <= m_.tips.NZ && zone_share(n) < 0;
}

template <class Real>
bool ReferenceField<Real>::joined(Int cell) const {
  return cell >= 1 && m_.zones.ITIPJOIN(cell) == 1;
}

template <class Real>
Real ReferenceField<Real>::sum_of_widths(Int from, Int to) const {
  Real sum = 0;
  for (Int j = from; j <= to; ++j) sum += static_cast<Real>(m_.grid.DX(j));
  return sum;
}

template <class Real>
Real ReferenceField<Real>::alongshore(Int cell, Int wall) const {
  if (wall > cell) return sum_of_widths(cell, wall - 1);
  if (wall < cell) return -sum_of_widths(wall, cell - 1);
  return 0;
}

template <class Real>
Real ReferenceField<Real>::shoreline_at(Int wall) const {
  const auto& Y = m_.shore.Y;
  if (wall == 1) return static_cast<Real>(Y(1));
  if (wall == NX_ + 1) return static_cast<Real>(Y(NX_));
  return static_cast<Real>((Y(wall) + Y(wall - 1)) / 2.0);
}

template <class Real>
bool ReferenceField<Real>::passed(Int j) const {
  return m_.tips.tips(j).cell > 0 && m_.tips.TIPOFF(j) == 1;
}

/// The shoreline has passed every tip up to the zone's left one: it begins at the open end.
template <class Real>
bool ReferenceField<Real>::begins_the_coast(Int zone) const {
  for (Int j = 1; j <= zone; ++j)
    if (!passed(j)) return false;
  return !passed(zone + 1);
}

/// The tip of the zone and all that it brings along.
template <class Real>
ReferenceTip<Real> ReferenceField<Real>::tip_of(int ID) const {
  ReferenceTip<Real> tip;
  tip.ITP = Z + ID - 1;
  tip.cell = LEFT;
  if (ID == 2 || !passed(tip.ITP)) {
    while (tip.ITP < m_.tips.tips.size() && passed(tip.ITP)) ++tip.ITP;
    tip.cell = m_.tips.tips(tip.ITP).cell;
  }
  const Int n = ID == 1 ? Z - 1 : Z + 1;
  const Real plain = tip.cell > 0 ? zone_share(n) : zone_share(Z);
  tip.KTn = plain;
  tip.HIGH = zone_share(Z) > plain;
  if (tip.cell < 1) return tip;
  const Int c = tip.cell;
  tip.Y = static_cast<Real>(m_.tips.tips(tip.ITP).Y);
  tip.D = static_cast<Real>(m_.tips.tips(tip.ITP).D);
  const kelprun::TipWave& wave = m_.diffraction.tip_waves(tip.ITP);
  tip.A = static_cast<Real>(wave.Z);
  tip.SMAX = static_cast<Real>(wave.SMAX);
  tip.AKD = static_cast<Real>(wave.AKD);
  tip.L = static_cast<Real>(wave.LTIP);
  tip.k = static_cast<Real>(wave.k);
  tip.H2 = static_cast<Real>(wave.H);
  if (m_.groins.ICSTR(c) == 4 || m_.breakwaters.IBWST(c) == -2) tip.KTn = 1;
  if (m_.groins.ICSTR(c) == 1 && tip.KTn < 0) {
    for (Int g = 1; g <= m_.groins.NGRP; ++g)
      if (m_.groins.IXGRP(g) == c) tip.KTn = -static_cast<Real>(m_.groins.PGR(g));
  }
  if (groin(c)) tip.BYP = bypass_share(tip);
  return tip;
}

/// Share of the moving sand's depth that lies seaward of the groin's tip.
template <class Real>
Real ReferenceField<Real>::bypass_share(const ReferenceTip<Real>& tip) const {
  const Int c = tip.cell;
  const auto& Y = m_.shore.Y;
  const Real Dlt = (static_cast<Real>(1.27f) / GAMMA_) * tip.H2;
  const auto at_tip = static_cast<double>(tip.Y);
  Real lL = static_cast<Real>(m_.boundaries.left.GROINY);
  if (c >= 3) lL = static_cast<Real>((at_tip - Y(c - 1)) - (Y(c - 1) - Y(c - 2)) * 0.5);
  Real lR = static_cast<Real>(m_.boundaries.right.GROINY);
  if (c < NX_) lR = static_cast<Real>((at_tip - Y(c)) - (Y(c) - Y(c + 1)) * 0.5);
  lL = std::max(lL, Real{0});
  lR = std::max(lR, Real{0});
  const Real angle = tip.A - static_cast<Real>(m_.shore.ALPHA(c));
  const auto depth_at = [&](Real length) {
    return std::pow(length, static_cast<Real>(0.667f)) * static_cast<Real>(m_.settings.ASHAPE) +
           static_cast<Real>(m_.series.WL);
  };
  Real dg = 999;
  if (angle > 0) dg = depth_at(lL);
  if (angle < 0) dg = depth_at(lR);
  Real BYP = Dlt > static_cast<Real>(0.01f) ? 1 - dg / Dlt : Real{0};
  if (dg > Dlt) BYP = 0;
  return std::min(BYP, Real{1});
}

template <class Real>
void ReferenceField<Real>::open(Int zone) {
  Z = zone;
  KT = zone_share(zone);
  first = tip_of(1);
  second = tip_of(2);
  for (Int i = 1; i <= NX_ + 1; ++i) {
    const auto n = static_cast<std::size_t>(i);
    HBD[n] = static_cast<Real>(m_.waves.HBU(i));
    ZBD[n] = static_cast<Real>(m_.waves.ZBU(i));
    const bool inside = i >= 2 && i <= NX_ && m_.inlets.INLC(i) == 1 && m_.inlets.INLC(i - 1) == 1;
    if (inside) HBD[n] = 0;
  }
}

template <class Real>
bool ReferenceField<Real>::work(Int zone) {
  open(zone);
  if (!diffract(1) || !diffract(2)) return false;
  merge();
  return true;
}

template <class Real>
bool ReferenceField<Real>::diffract(int ID) {
  ReferenceTip<Real>& tip = ID == 1 ? first : second;
  const Int c = tip.cell;
  (ID == 1 ? W1 : W2).assign(W1.size(), 1);
  if (ID == 1) {
    KDA.assign(KDA.size(), 0);
    KDB.assign(KDB.size(), 0);
    IZONE.assign(IZONE.size(), 0);
    ZTPL = tip.A;
  }

  Htip_ = 0;
  B_ = tip.SMAX / tip.AKD;
  if (c >= 1) {
    const Real Hc = HBD[static_cast<std::size_t>(c)];
    const Real db = Hc / GAMMA_;
    Real f = 1;
    if (tip.D <= db) {  // in the surf zone
      B_ = static_cast<Real>(1.6129032f);
      f = (tip.D / db) * static_cast<Real>(0.9f);
    }
    Htip_ = Hc * f;
  }

  Int a, b;
  if (ID == 1) {
    a = std::max(c, 1);
    const Int next = m_.tips.tips(Z + 1).cell;
    b = next == RIGHT || next == 0 ? NX_ + 1 : next;
    IBEG = 1;
    IEND = NX_ + 1;
    for (Int i = 1; i <= a; ++i)
      if (groin(i)) IBEG = i;
    for (Int i = NX_ + 1; i >= b; --i)
      if (groin(i)) IEND = i;
  } else {
    a = std::max(first.cell, 1);
    b = c == RIGHT || c == 0 ? NX_ + 1 : c;
  }

  if (c == LEFT) {
    for (Int i = 1; i <= IEND; ++i) KDB[static_cast<std::size_t>(i)] = 1;
    ZTPL = -999;
    tip.settled = true;
    return true;
  }
  if (c == RIGHT) {
    for (Int i = IBEG; i <= NX_ + 1; ++i) KDA[static_cast<std::size_t>(i)] = 1;
    tip.A = 999;
  }

  const Int w = ID == 1 ? c - 1 : c;
  const auto stands_on_land = [&] {
    if (w < 1 || w > NX_) return false;
    const Int state = m_.breakwaters.IBWST(w);
    return (state == 1 || state == -1) && m_.shore.YBW(w) - m_.shore.Y(w) < 0.02;
  };
  if (stands_on_land()) {
    if (ID == 1 && tip.A <= 0) {
      for (Int i = c; i <= IEND; ++i) KDB[static_cast<std::size_t>(i)] = 1;
      ZTPL = -999;
      tip.settled = true;
      return true;
    }
    if (ID == 2 && tip.A >= 0)
      for (Int i = IBEG; i <= c; ++i) KDA[static_cast<std::size_t>(i)] = -1;
  }

  Int start = c == 1 ? 2 : c;
  if (start == NX_ + 1 || c == RIGHT) start = NX_;
  if (groin(start) && c != RIGHT) start = ID == 1 ? c + 1 : c - 1;
  const Int up = ID == 1 ? start : start + 1;
  const Int down = ID == 1 ? start - 1 : start;
  if (!walk(ID, 1, up, start, a, b) || !walk(ID, 2, down, start, a, b)) return false;
  if (ID == 2) {
    for (Int i = 1; i < IBEG; ++i) HBD[static_cast<std::size_t>(i)] = 0;
    for (Int i = IEND + 1; i <= NX_ + 1; ++i) HBD[static_cast<std::size_t>(i)] = 0;
  }
  return true;
}

/// Walk 1 goes up to IEND, walk 2 down to IBEG.
template <class Real>
bool ReferenceField<Real>::walk(int ID, int number, Int from, Int start, Int a, Int b) {
  bool open_mark = true;
  const Int step = number == 1 ? 1 : -1;
  for (Int i = from; number == 1 ? i <= IEND : i >= IBEG; i += step)
    if (!work_wall(ID, number, i, start, a, b, open_mark)) return false;
  return true;
}

/// False where the coefficient does not converge.
template <class Real>
bool ReferenceField<Real>::work_wall(int ID, int number, Int i, Int start, Int a, Int b,
                                     bool& open_mark) {
  const auto n = static_cast<std::size_t>(i);
  const ReferenceTip<Real>& tip = ID == 1 ? first : second;
  const Int c = tip.cell;
  const bool arrived_open = open_mark;
  if (groin(i)) {
    open_mark = false;  // nothing gets past it
    const Int code = m_.groins.IGSHAD(i);
    const bool acts = code == 3 || (number == 1 && code == 2) || (number == 2 && code == 1);
    if (acts) {
      if (code == 3 || DONE[n] == 1) {
        HBD[n] = 0;
        KDA[n] = 0;
      } else {
        if (ID == 2) DONE[n] = 1;
        KDA[n] = 1;
        finish(ID, i);
      }
      return true;
    }
  }
  if (!arrived_open) {
    HBD[n] = 0;
    return true;
  }
  if (i != start) {
    const bool behind_left = number == 2 && i <= a && m_.breakwaters.IBWST(i) == -1;
    const bool behind_right = number == 1 && i > 1 && i >= b && m_.breakwaters.IBWST(i - 1) == -1;
    if (behind_left || behind_right) {
      HBD[n] = 0;
      open_mark = false;
      return true;
    }
  }
  if (ID == 2 && KDA[n] == -1) {
    KDA[n] = 1;
    finish(ID, i);
    return true;
  }
  const bool on_groin = c >= 1 && groin(c);
  const bool lit = ID == 1 ? tip.A > -180 && tip.A <= 0 : tip.A >= 0 && tip.A < 180;
  if (on_groin && i != c && lit && beyond_has_no_extent(ID)) {
    KDA[n] = 1;
    finish(ID, i);
    return true;
  }
  if (i >= 2 && i <= NX_ && m_.inlets.INLC(i) == 1 && m_.inlets.INLC(i - 1) == 1) {
    (ID == 1 ? KDB : KDA)[n] = 0;
    if (ID == 2) HBD[n] = 0;
    return true;
  }
  if (groin(i) && i == c && beyond_has_no_extent(ID)) {
    KDA[n] = 1;
    finish(ID, i);
    return true;
  }
  if (c != RIGHT && tip.HIGH && !iterate(ID, number, i)) return false;
  finish(ID, i);
  return true;
}

template <class Real>
bool ReferenceField<Real>::iterate(int ID, int number, Int i) {
  const auto n = static_cast<std::size_t>(i);
  const ReferenceTip<Real>& tip = ID == 1 ? first : second;
  const Int c = tip.cell;
  const Real X = alongshore(c, i);
  const Real Yi = shoreline_at(i);
  Real KDold = 1, KD = 0, P = 0, th = 0;
  for (int round = 0;; ++round) {
    if (round == 75) return false;
    P = at_least_a_centimetre<Real>((tip.Y - Yi) * (1 - ((Htip_ * KDold) / GAMMA_) / tip.D));
    const Real r = ray(ID, X, P);
    th = std::min(ID == 1 ? r - tip.A : -(r - tip.A), Real{6});
    const Real e = std::exp(B_ * th);
    KD = std::sqrt(((e - 1 / e) / (e + 1 / e) + 1) * static_cast<Real>(0.5));
    if (m_.groins.ICSTR(c) == 1) {
      Real X0 = 0;
      if (beyond_has_no_extent(ID)) X0 = (tip.KTn * tip.BYP - tip.KTn) + tip.BYP;
      KD = std::sqrt(KD * KD * (1 - X0) + X0);
    }
    KDA[n] = KD;
    if (std::abs((KDold - KD) * Htip_) <= static_cast<Real>(0.025f)) break;
    KDold = relaxed(KDold, KD, round);
  }

  if (number == ID && tip.L > 0) {
    const double Y = m_.shore.Y(std::min(i, NX_));
    const Real dist = static_cast<Real>(std::max(static_cast<double>(tip.Y) - Y, 0.0));
    const Real half = static_cast<Real>(0.5) * tip.L;
    if (dist <= half) {
      const Real w = dist / half;
      KDA[n] = KD * w + (1 - w);
      (ID == 1 ? W1 : W2)[n] = w;
    }
  }
  overlap(ID, i, KD, P, th);
  return true;
}

/// Behind a breakwater both of its ends bend waves; the share of the other end.
template <class Real>
void ReferenceField<Real>::overlap(int ID, Int i, Real KD, Real P, Real th) {
  const ReferenceTip<Real>& tip = ID == 1 ? first : second;
  const auto n = static_cast<std::size_t>(i);
  if (!(P > 0) || KT != 1 || joined(tip.cell)) return;
  const Int o = ID == 1 ? tip.ITP - 1 : tip.ITP + 1;
  const Int other = o >= 1 && o <= m_.tips.tips.size() ? m_.tips.tips(o).cell : 0;
  if (other < 1 || joined(other)) return;
  const Real D = ID == 1 ? alongshore(other, tip.cell) : alongshore(tip.cell, other);
  if (!(D > 0)) return;
  Real r = ID == 1 ? P * (std::tan(-tip.A) + std::tan(th + tip.A)) / D
                   : P * (std::tan(tip.A) + std::tan(th - tip.A)) / D;
  r = std::clamp(r, Real{-1}, Real{1});
  const auto third = static_cast<Real>(0.33f);
  if (r < 0) {
    const Real g = 1 + r + r + std::pow(-r, third);
    if (g < 1) KDA[n] = KD * g;
  } else if (r > 0) {
    const Real g = (1 - r - r) + std::pow(r, third);
    KDA[n] = std::max(std::sqrt(1 - (1 - KD * KD) * (g * g)), KD);
  }
}

/// What becomes of the coefficient: kept for the other tip, or made a height.
template <class Real>
void ReferenceField<Real>::finish(int ID, Int i) {
  const auto n = static_cast<std::size_t>(i);
  const ReferenceTip<Real>& tip = ID == 1 ? first : second;
  std::vector<Real>& of_tip = KDTAB[static_cast<std::size_t>(tip.ITP)];
  if (ID == 1) {
    KDB[n] = KDA[n];
    if (tip.HIGH) of_tip[n] = KDA[n];
    return;
  }
  const Int c = tip.cell;
  const auto open_beyond = static_cast<Real>(0.99f);
  const auto rest_of_first = [&] {
    return std::sqrt(1 - square(KDTAB[static_cast<std::size_t>(first.ITP)][n]));
  };
  const Real Ha = HBD[n];
  if (tip.HIGH) {
    of_tip[n] = KDA[n];
    if (!(KT > open_beyond) && c >= 1 && m_.groins.ICSTR(c) == 1) KDB[n] = rest_of_first();
  } else {
    if (c >= 1) KDA[n] = std::sqrt(1 - square(of_tip[n]));
    if (c == RIGHT || first.cell < 1) {
      if (!first.HIGH && !first.settled) KDB[n] = rest_of_first();
    } else if (!joined(first.cell)) {
      KDB[n] = rest_of_first();
    }
  }
  Real H = KDA[n] * KDB[n] * Ha;
  const bool dimmed = tip.HIGH ? !(KT > open_beyond) : KT <= open_beyond;
  if (dimmed) H *= KT;
  if (groin(i)) {
    if (i == IBEG && i > 1 && ZTPL > 0) H = 0;
    if (i == IEND && tip.A <= 0) H = 0;
  }
  HBD[n] = H;
  choose_ray(i);
}

template <class Real>
void ReferenceField<Real>::choose_ray(Int i) {
  const auto n = static_cast<std::size_t>(i);
  const Real dh = HBD[n] / GAMMA_;
  const Real Yi = shoreline_at(i);
  Real r1 = 0;
  if (second.cell >= 1) {
    const Real P1 = at_least_a_centimetre<Real>((1 - dh / second.D) * (second.Y - Yi));
    r1 = ray(2, alongshore(second.cell, i), P1);
  }
  const bool right = r1 > second.A;
  bool left = false;
  Real r2 = 0;
  if (first.cell >= 1) {
    const Real P2 = at_least_a_centimetre<Real>((1 - dh / first.D) * (first.Y - Yi));
    r2 = ray(1, alongshore(first.cell, i), P2);
    left = r2 < ZTPL;
  }
  ZRAY[n] = right ? (left ? (r1 + r2) * static_cast<Real>(0.5) : r1) : (left ? r2 : Real{-99});
  IZONE[n] = right ? (left ? 12 : 2) : (left ? 1 : 0);
}

template class ReferenceField<float>;
template class ReferenceField<double>;

}  // namespace kelptest
