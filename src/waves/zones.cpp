#include "waves/zones.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "model/surf_zone.h"
#include "waves/kernel.h"
#include "waves/tip_waves.h"

namespace kelprun {

namespace {

constexpr float DARK = 0.01f;          ///< zones up to here are not worked
constexpr float LEAST_HEIGHT = 0.01f;  ///< diffracted waves up to here are none, m

/// Adds up the energies of the zones: squares of the heights, and the angles through the sines of
/// their doubles, weighted with the squares.
class EnergySum {
 public:
  EnergySum(std::int32_t NX, Waves& waves) : NX_(NX), w_(waves) {
    w_.HB.fill(0.0f);
    w_.SWS.fill(0.0f);
  }

  void add(std::int32_t IBEG, std::int32_t IEND, const Diffraction& d) {
    for (std::int32_t i = IBEG; i <= IEND; ++i) {
      const float h = d.HBD(i) * d.HBD(i);
      w_.HB(i) += h;
      w_.SWS(i) += std::sin(2.0f * d.ZBD(i)) * h;
    }
  }

  void finish() {
    for (std::int32_t i = 1; i <= NX_ + 1; ++i) {
      w_.ZB(i) = w_.HB(i) > 0.0f ? 0.5f * std::asin(w_.SWS(i) / w_.HB(i)) : 0.0f;
      w_.HB(i) = std::sqrt(w_.HB(i));
    }
  }

 private:
  const std::int32_t NX_;
  Waves& w_;
};

/// Undiffracted waves of walls `from` to `to`, none inside inlets.
void load_waves(const DiffractingCoast& coast, std::int32_t from, std::int32_t to, const Waves& w,
                Diffraction& d) {
  for (std::int32_t i = from; i <= to; ++i) {
    d.HBD(i) = w.HBU(i);
    d.ZBD(i) = w.ZBU(i);
  }
  if (coast.inlets.NINL == 0) return;
  for (std::int32_t i = from; i <= to; ++i)
    if (coast.inside_inlet(i)) d.HBD(i) = 0.0f;
}

/// Share of the surf zone that lies beyond a groin's tip, on the side that the waves come from.
float share_past_tip(const DiffractingCoast& coast, float WL, const Tip& tip, const TipWave& wave) {
  constexpr float OUT_OF_REACH = 999.0f;
  if (!coast.groin_at(tip.cell)) return 0.0f;
  const Settings& s = coast.settings;
  const TipDistances distance = tip_distances(tip.cell, static_cast<double>(tip.Y), coast.shore.Y,
                                              coast.grid.NX, coast.boundaries);
  const float ALF = wave.Z - coast.shore.ALPHA(tip.cell);
  float dg = OUT_OF_REACH;
  if (ALF > 0.0f) dg = profile_depth(distance.DL, s.ASHAPE) + WL;
  if (ALF < 0.0f) dg = profile_depth(distance.DR, s.ASHAPE) + WL;
  return share_beyond(dg, limit_depth(wave.H, s.GAMMA));
}

float permeability_at(const Groins& g, std::int32_t wall) {
  const auto* const end = g.IXGRP.data() + g.NGRP;
  const auto* const found = std::lower_bound(g.IXGRP.data(), end, wall);
  return found != end && *found == wall
             ? g.PGR(static_cast<std::int32_t>(found - g.IXGRP.data()) + 1)
             : 0.0f;
}

/// The tip as this zone sees it: what lies beyond, and what gets past it.
ZoneTip zone_tip(const DiffractingCoast& coast, float WL, std::int32_t Z, std::int32_t ITP,
                 std::int32_t neighbour, const Diffraction& d) {
  ZoneTip t;
  t.ITP = ITP;
  t.cell = ITP == 0 ? LEFT_END_TIP : coast.tips.tips(ITP).cell;
  const auto& KTZ = coast.zones.KTZ;
  // At an end of the coast the zone is its own neighbour.
  if (t.cell < 1) {
    t.KTn = KTZ(Z);
    return t;
  }
  const TipWave& wave = d.tip_waves(ITP);
  t.k = wave.k;
  t.BYP = share_past_tip(coast, WL, coast.tips.tips(ITP), wave);
  t.KTn = neighbour >= 1 && neighbour <= KTZ.size() ? KTZ(neighbour) : KTZ(Z);
  t.HIGH = KTZ(Z) > t.KTn;
  const std::int32_t type = coast.groins.ICSTR(t.cell);
  if (coast.tips.TIPOFF(ITP) == 1 || type == 4 || coast.breakwaters.IBWST(t.cell) == -2)
    t.KTn = 1.0f;
  if (type == 1 && t.KTn < 0.0f) t.KTn = -permeability_at(coast.groins, t.cell);
  return t;
}

/// Whether tips 1 to ITP are all inactive.
bool passed_up_to(const Tips& tips, std::int32_t ITP) {
  for (std::int32_t j = 1; j <= ITP; ++j)
    if (tips.TIPOFF(j) != 1) return false;
  return true;
}

std::int32_t active_tip_from(const Tips& tips, std::int32_t ITP) {
  while (tips.TIPOFF(ITP) == 1 && ITP < tips.tips.size()) ++ITP;
  return ITP;
}

/// Entry of the tip at which the zone begins, 0 for the open end of the coast; -1 where the zone is
/// part of the one on its left, because the shoreline has passed the tip between them.
std::int32_t first_tip_of(const Tips& tips, std::int32_t Z) {
  if (tips.TIPOFF(Z) != 1) return Z;
  return tips.TIPOFF(Z + 1) != 1 && passed_up_to(tips, Z) ? 0 : -1;
}

/// Clears the arrays that the two calls of the zone fill, and loads its waves.
void begin_zone(const DiffractingCoast& coast, const WorkedZone& zone, const Waves& waves,
                Diffraction& d) {
  if (zone.first.ITP == 1) d.DONE.fill(0);
  // A right tip beyond the next one may lie outside the reach.
  const bool moved_on = zone.second.ITP != zone.Z + 1;
  const std::int32_t last = moved_on ? coast.grid.NX + 1 : zone.IEND;
  load_waves(coast, zone.IBEG, last, waves, d);
  for (std::int32_t i = zone.IBEG; i <= last; ++i) {
    d.KDA(i) = 0.0f;
    d.KDB(i) = 0.0f;
    d.IZONE(i) = 0;
    d.WRAMP1(i) = 1.0f;
    d.WRAMP2(i) = 1.0f;
  }
}

/// The sea bed lets the wave number and angle of a ray follow Snell's law to the depth of breaking.
float refracted_ray(float a, float kk, float A, float kb, float stands) {
  return kk > kb ? stands : A + std::asin(kk * std::sin(a - A) / kb);
}

/// Share of the undiffracted wave that reaches past a groin at the tip; none without a groin.
std::optional<float> undiffracted_share(const DiffractingCoast& coast, std::int32_t neighbour,
                                        const ZoneTip& t) {
  if (!coast.no_extent(neighbour) || !(t.KTn < 0.0f)) return std::nullopt;
  return std::pow(-t.KTn, 0.2f);
}

}  // namespace

void MERGEDIFF(const DiffractingCoast& coast, const WorkedZone& zone, const Waves& w,
               Diffraction& d) {
  constexpr float MARK = 900.0f;
  const std::optional<float> past_first = undiffracted_share(coast, zone.Z - 1, zone.first);
  const std::optional<float> past_second = undiffracted_share(coast, zone.Z + 1, zone.second);
  const float per_GAMMA = 1.0f / coast.settings.GAMMA;
  for (std::int32_t i = zone.IBEG; i <= zone.IEND; ++i) {
    if (d.HBD(i) <= LEAST_HEIGHT) {
      d.HBD(i) = 0.0f;
      d.ZBD(i) = 0.0f;
      continue;
    }
    float a = d.ZBD(i);
    float kk = w.WKBU(i);
    const auto blend = [&](float ramp, float k, const std::optional<float>& past) {
      a = d.ZRAY(i) * ramp + d.ZBD(i) * (1.0f - ramp);
      kk = ramp * k + (1.0f - ramp) * w.WKBU(i);
      if (!past) return;
      a = a * (1.0f - *past) + d.ZBD(i) * *past;
      kk = *past * w.WKBU(i) + (1.0f - *past) * k;
    };
    if (d.IZONE(i) == 1) {
      blend(d.WRAMP1(i), zone.first.k, past_first);
    } else if (d.IZONE(i) == 2) {
      blend(d.WRAMP2(i), zone.second.k, past_second);
    } else if (d.IZONE(i) != 0) {
      a = d.ZRAY(i);
      kk = (zone.first.k + zone.second.k) * 0.5f;
    }
    const bool on_own_groin = coast.groins.ICSTR(i) == 1 && ((i == zone.IBEG && d.IZONE(i) == 1) ||
                                                             (i == zone.IEND && d.IZONE(i) == 2));
    if (on_own_groin) continue;
    const float ALPHA = coast.shore.ALPHA(i);
    const float A = ALPHA >= MARK ? ALPHA - 999.0f : ALPHA;
    const float kb = wave_number(w.WK0, d.HBD(i) * per_GAMMA);
    d.ZBD(i) = refracted_ray(a, kk, A, kb, d.ZBD(i));
  }
}

bool combine_zones(const DiffractingCoast& coast, float WL, Waves& waves, Diffraction& d,
                   Report& report) {
  const std::int32_t NX = coast.grid.NX;
  EnergySum sum(NX, waves);
  if (!has_active_tip(coast.tips)) {
    load_waves(coast, 1, NX + 1, waves, d);
    sum.add(1, NX + 1, d);
    sum.finish();
    return true;
  }
  d.DONE.fill(0);
  for (std::int32_t m = 1; m <= coast.zones.NZACT; ++m) {
    WorkedZone zone;
    zone.Z = coast.zones.ZORDER(m);
    zone.KT = coast.zones.KTZ(zone.Z);
    const std::int32_t first = first_tip_of(coast.tips, zone.Z);
    if (zone.KT <= DARK || first < 0) continue;
    const std::int32_t second = active_tip_from(coast.tips, zone.Z + 1);
    zone.first = zone_tip(coast, WL, zone.Z, first, zone.Z - 1, d);
    zone.second = zone_tip(coast, WL, zone.Z, second, zone.Z + 1, d);
    find_reach(coast, zone);
    begin_zone(coast, zone, waves, d);
    if (!KDGODA(1, coast, zone, d, report) || !KDGODA(2, coast, zone, d, report)) return false;
    MERGEDIFF(coast, zone, waves, d);
    sum.add(zone.IBEG, zone.IEND, d);
  }
  sum.finish();
  return true;
}

}  // namespace kelprun
