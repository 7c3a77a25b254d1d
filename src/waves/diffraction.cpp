#include "waves/diffraction.h"

#include <algorithm>
#include <cmath>

#include "waves/spreading.h"

namespace kelprun {

namespace {

constexpr int MOST_ROUNDS = 75;
constexpr float CONVERGED = 0.025f;  ///< change of height that ends the search, m
constexpr float FULL_KT = 0.99f;     ///< zones above lose nothing behind a structure
constexpr float AT_BEACH = 0.02f;    ///< a structure this near to the shoreline has reached it, m
constexpr float GROWN_TO = -1.0f;    ///< mark of walls behind a structure that reaches the beach
constexpr std::int32_t JOINED_LEFT = 1, JOINED_RIGHT = 2, JOINED_BOTH = 3;

/// The work of one tip along the coast. A walk passes the walls one by one; nothing of the zone
/// gets past a groin.
class TipWalk {
 public:
  TipWalk(std::int32_t ID, const DiffractingCoast& coast, WorkedZone& zone, Diffraction& d)
      : ID_(ID), NX_(coast.grid.NX), coast_(coast), zone_(zone), d_(d), tip_(own_tip()) {}

  /// False where a coefficient did not converge.
  bool run() {
    if (settle_at_end() || settle_at_beach()) return true;
    set_tip_height();
    set_share_past_groin();
    const std::int32_t start = starting_wall();
    // Each walk begins beside the starting wall but for the one of this tip.
    return walk_up(ID_ == 1 ? start : start + 1, start) &&
           walk_down(ID_ == 2 ? start : start - 1, start);
  }

 private:
  enum class Walk { up, down };

  ZoneTip& own_tip() const { return ID_ == 1 ? zone_.first : zone_.second; }
  bool at_right_end() const { return tip_.cell == LAST_TIP; }
  const Tip& tip_of(const ZoneTip& t) const { return coast_.tips.tips(t.ITP); }
  /// The zone beyond this tip.
  std::int32_t neighbour() const { return ID_ == 1 ? zone_.Z - 1 : zone_.Z + 1; }

  /// An end of the coast bends nothing. True where the walks are left out.
  bool settle_at_end() {
    if (tip_.cell < 1) tip_.settled = true;
    if (tip_.cell == LEFT_END_TIP) {
      for (std::int32_t i = 1; i <= zone_.IEND; ++i) d_.KDB(i) = 1.0f;
      zone_.ZTPL = LEFT_SETTLED;
      return true;
    }
    if (at_right_end()) {
      for (std::int32_t i = zone_.IBEG; i <= NX_ + 1; ++i) d_.KDA(i) = 1.0f;
      angle_ = RIGHT_SETTLED;
    } else {
      angle_ = d_.tip_waves(tip_.ITP).Z;
      if (ID_ == 1) zone_.ZTPL = angle_;
    }
    return false;
  }

  /// Waves from the side of a breakwater that touches the beach do not bend round its tip. True
  /// where the walks are left out.
  bool settle_at_beach() {
    const std::int32_t w = ID_ == 1 ? tip_.cell - 1 : tip_.cell;
    if (w < 1 || std::abs(coast_.breakwaters.IBWST(w)) != 1) return false;
    if (!(coast_.shore.YBW(w) - coast_.shore.Y(w) < static_cast<double>(AT_BEACH))) return false;
    if (ID_ == 1 && angle_ <= 0.0f) {
      for (std::int32_t i = tip_.cell; i <= zone_.IEND; ++i) d_.KDB(i) = 1.0f;
      zone_.ZTPL = LEFT_SETTLED;
      tip_.settled = true;
      return true;
    }
    if (ID_ == 2 && angle_ >= 0.0f)
      for (std::int32_t i = zone_.IBEG; i <= tip_.cell; ++i) d_.KDA(i) = GROWN_TO;
    return false;
  }

  /// A tip inside the surf zone sees broken waves, of broad spreading.
  void set_tip_height() {
    if (at_right_end()) return;
    const TipWave& wave = d_.tip_waves(tip_.ITP);
    const Tip& tip = tip_of(tip_);
    const float Hc = d_.HBD(tip_.cell);
    const float db = Hc / coast_.settings.GAMMA;
    YTIP_ = tip.Y;
    DTP_ = tip.D;
    if (DTP_ <= db) {
      constexpr float SURF_SMAX = 15.0f, SURF_AKD = 9.3f;
      B_ = SURF_SMAX / SURF_AKD;
      Htip_ = Hc * ((DTP_ / db) * 0.9f);
    } else {
      B_ = wave.SMAX / wave.AKD;
      Htip_ = Hc;
    }
    tan_tip_ = ID_ == 1 ? std::tan(-angle_) : std::tan(angle_);
  }

  /// Share of the energy that passes over or through the groin at the tip.
  void set_share_past_groin() {
    tip_on_groin_ = tip_.cell >= 1 && coast_.groins.ICSTR(tip_.cell) == 1;
    if (tip_on_groin_ && coast_.no_extent(neighbour()))
      X0_ = (tip_.KTn * tip_.BYP - tip_.KTn) + tip_.BYP;
  }

  std::int32_t starting_wall() const {
    if (at_right_end()) return NX_;
    std::int32_t start = tip_.cell == ISSTART ? ISSTART + 1 : tip_.cell;
    if (start == NX_ + 1) start = NX_;
    if (coast_.groin_at(start)) start = ID_ == 1 ? tip_.cell + 1 : tip_.cell - 1;
    return start;
  }

  bool walk_up(std::int32_t from, std::int32_t start) {
    bool OPEN = true;
    for (std::int32_t i = from; i <= zone_.IEND; ++i)
      if (!pass_wall(i, Walk::up, start, OPEN)) return false;
    return true;
  }

  bool walk_down(std::int32_t from, std::int32_t start) {
    bool OPEN = true;
    for (std::int32_t i = from; i >= zone_.IBEG; --i)
      if (!pass_wall(i, Walk::down, start, OPEN)) return false;
    return true;
  }

  /// The work at one wall.
  bool pass_wall(std::int32_t i, Walk walk, std::int32_t start, bool& OPEN) {
    const bool groin = coast_.groin_at(i);
    const bool arrived_open = OPEN;
    if (groin) {
      OPEN = false;
      if (side_code_acts(i, walk)) return true;
    }
    if (!arrived_open) {
      d_.HBD(i) = 0.0f;
      return true;
    }
    if (i != start && behind_grown_breakwater(i, walk)) {
      d_.HBD(i) = 0.0f;
      OPEN = false;
      return true;
    }
    if (ID_ == 2 && d_.KDA(i) == GROWN_TO) {
      d_.KDA(i) = 1.0f;
      finish_wall(i);
      return true;
    }
    const bool lit = lit_past_groin(i, groin);
    if (!lit && coast_.inside_inlet(i)) {
      (ID_ == 1 ? d_.KDB : d_.HBD)(i) = 0.0f;
      return true;
    }
    if (lit) {
      d_.KDA(i) = 1.0f;
    } else if (!at_right_end() && tip_.HIGH && !set_coefficient(i, walk)) {
      return false;
    }
    finish_wall(i);
    return true;
  }

  /// A groin at the end of a breakwater: the first zone whose walk arrives behind the breakwater
  /// has the groin's wall, once a step.
  bool side_code_acts(std::int32_t i, Walk walk) {
    const std::int32_t code = coast_.groins.IGSHAD(i);
    const bool from_lee = code == (walk == Walk::up ? JOINED_RIGHT : JOINED_LEFT);
    if (code != JOINED_BOTH && !from_lee) return false;
    if (from_lee && d_.DONE(i) == 0) {
      if (ID_ == 2) d_.DONE(i) = 1;
      d_.KDA(i) = 1.0f;
      finish_wall(i);
    } else {
      d_.HBD(i) = 0.0f;
      d_.KDA(i) = 0.0f;
    }
    return true;
  }

  /// Beyond the other tip the shoreline has grown to the breakwater.
  bool behind_grown_breakwater(std::int32_t i, Walk walk) const {
    const auto& IBWST = coast_.breakwaters.IBWST;
    if (walk == Walk::down) return IBWST(i) == -1 && i <= left_limit();
    return i > 1 && i >= right_limit() && IBWST(i - 1) == -1;
  }

  std::int32_t left_limit() const { return std::max(zone_.first.cell, 1); }
  std::int32_t right_limit() const {
    const std::int32_t cell = ID_ == 1 ? right_tip_in_list() : tip_.cell;
    return cell == LAST_TIP || cell == 0 ? NX_ + 1 : cell;
  }
  std::int32_t right_tip_in_list() const { return coast_.tips.tips(zone_.Z + 1).cell; }

  /// Waves that come from the groin's other side do not bend round its tip, and the groin's own
  /// wall belongs to the lit side.
  bool lit_past_groin(std::int32_t i, bool groin) const {
    if (tip_.cell < 1 || !coast_.no_extent(neighbour())) return false;
    if (i == tip_.cell) return groin;
    const bool from_beyond =
        ID_ == 1 ? angle_ > -180.0f && angle_ <= 0.0f : angle_ >= 0.0f && angle_ < 180.0f;
    return from_beyond && coast_.groin_at(tip_.cell);
  }

  /// Shoreline at a wall, in double, rounded once.
  float shoreline_at(std::int32_t i) const {
    const PerCell<double>& Y = coast_.shore.Y;
    if (i == ISSTART) return static_cast<float>(Y(i));
    if (i == NX_ + 1) return static_cast<float>(Y(i - 1));
    return static_cast<float>((Y(i) + Y(i - 1)) / 2.0);
  }

  /// Diffraction coefficient of this tip at a wall.
  bool set_coefficient(std::int32_t i, Walk walk) {
    const float X = coast_.zones.XTIP(tip_.ITP)(i);
    const float seaward = YTIP_ - shoreline_at(i);
    float KDold = 1.0f;
    for (int round = 0; round < MOST_ROUNDS; ++round) {
      // The depth rises linearly from the shoreline to the tip.
      const float P =
          kept_from_zero(seaward * (1.0f - ((Htip_ * KDold) / coast_.settings.GAMMA) / DTP_));
      const float th = std::min(
          ID_ == 1 ? first_tip_ray(X, P) - angle_ : -(second_tip_ray(X, P) - angle_), WIDEST_ANGLE);
      float KD = open_share(B_, th);
      if (tip_on_groin_) KD = std::sqrt(KD * KD * (1.0f - X0_) + X0_);
      d_.KDA(i) = KD;
      if (std::abs((KDold - KD) * Htip_) <= CONVERGED) {
        if (ID_ == (walk == Walk::up ? 1 : 2)) blend_behind_tip(i, KD);
        if (zone_.KT == 1.0f && P > 0.0f) widen_for_other_tip(i, KD, th, P);
        return true;
      }
      KDold = damped(KDold, KD, round);
    }
    return false;
  }

  /// Within half a wave length landward of the tip the shadow sets in gradually.
  void blend_behind_tip(std::int32_t i, float KD) {
    const double Y = coast_.shore.Y(std::min(i, NX_));
    const float dist = std::max(static_cast<float>(static_cast<double>(YTIP_) - Y), 0.0f);
    const float half = 0.5f * d_.tip_waves(tip_.ITP).LTIP;
    if (!(half > 0.0f) || dist > half) return;
    const float w = dist / half;
    d_.KDA(i) = KD * w + (1.0f - w);
    (ID_ == 1 ? d_.WRAMP1 : d_.WRAMP2)(i) = w;
  }

  /// In a gap: the waves behind the breakwater beyond this tip are those of its two tips together.
  /// It works with the coefficient before the blend, and meant so.
  void widen_for_other_tip(std::int32_t i, float KD, float th, float P) {
    const std::int32_t other = ID_ == 1 ? tip_.ITP - 1 : tip_.ITP + 1;
    if (other < 1 || other > coast_.tips.tips.size() || joined(tip_.cell)) return;
    const float D = coast_.zones.DXTIPS(std::min(other, tip_.ITP));
    if (!(D > 0.0f) || joined(coast_.tips.tips(other).cell)) return;
    const float turned = ID_ == 1 ? th + angle_ : th - angle_;
    const float r = std::clamp(P * (tan_tip_ + std::tan(turned)) / D, -1.0f, 1.0f);
    if (r < 0.0f) {
      const float g = 1.0f + r + r + std::pow(-r, 0.33f);
      if (g < 1.0f) d_.KDA(i) = KD * g;
    } else if (r > 0.0f) {
      const float g = (1.0f - r - r) + std::pow(r, 0.33f);
      d_.KDA(i) = std::max(KD, std::sqrt(1.0f - (1.0f - KD * KD) * (g * g)));
    }
  }

  bool joined(std::int32_t wall) const { return wall >= 1 && coast_.zones.ITIPJOIN(wall) == 1; }

  /// Result of this tip at the wall: the left one's is stored, the right one's gives the height.
  void finish_wall(std::int32_t i) {
    if (ID_ == 1) {
      d_.KDB(i) = d_.KDA(i);
      if (tip_.HIGH) d_.KDTAB(tip_.ITP)(i) = d_.KDA(i);
      return;
    }
    set_height(i);
    choose_ray(i);
  }

  /// What the brighter neighbour beyond a tip has left: the energies add up to the whole.
  float left_by(const ZoneTip& t, std::int32_t i) const {
    const float KD = t.cell < 1 ? 0.0f : d_.KDTAB(t.ITP)(i);
    return std::sqrt(1.0f - KD * KD);
  }

  void set_height(std::int32_t i) {
    const bool behind_structure = !(zone_.KT > FULL_KT);
    if (tip_.HIGH) {
      d_.KDTAB(tip_.ITP)(i) = d_.KDA(i);
      if (behind_structure && tip_on_groin_) d_.KDB(i) = left_by(zone_.first, i);
    } else {
      take_complements(i);
    }
    float H = d_.KDA(i) * d_.KDB(i) * d_.HBD(i);
    if (behind_structure) H = H * zone_.KT;
    const bool shaded_by_groin =
        coast_.groin_at(i) &&
        ((i == zone_.IBEG && i > 1 && zone_.ZTPL > 0.0f) || (i == zone_.IEND && angle_ <= 0.0f));
    d_.HBD(i) = shaded_by_groin ? 0.0f : H;
  }

  void take_complements(std::int32_t i) {
    if (tip_.cell >= 1) d_.KDA(i) = left_by(tip_, i);
    const ZoneTip& first = zone_.first;
    const bool stands =
        at_right_end() || first.cell < 1 ? first.HIGH || first.settled : joined(first.cell);
    if (!stands) d_.KDB(i) = left_by(first, i);
  }

  /// The tip whose ray reaches the wall, by the shadow lines of both.
  void choose_ray(std::int32_t i) {
    const float dh = d_.HBD(i) / coast_.settings.GAMMA;
    const float Yi = shoreline_at(i);
    const float r1 = at_right_end() ? 0.0f : ray_from(tip_, i, dh, Yi, second_tip_ray);
    const bool second_acts = r1 > angle_;
    bool first_acts = false;
    float r2 = 0.0f;
    if (zone_.first.cell >= 1) {
      r2 = ray_from(zone_.first, i, dh, Yi, first_tip_ray);
      first_acts = r2 < zone_.ZTPL;
    }
    if (second_acts) {
      d_.ZRAY(i) = first_acts ? (r1 + r2) * 0.5f : r1;
      d_.IZONE(i) = first_acts ? 12 : 2;
    } else {
      d_.ZRAY(i) = first_acts ? r2 : -99.0f;
      d_.IZONE(i) = first_acts ? 1 : 0;
    }
  }

  template <class Ray>
  float ray_from(const ZoneTip& t, std::int32_t i, float dh, float Yi, Ray ray) const {
    const Tip& tip = tip_of(t);
    return ray(coast_.zones.XTIP(t.ITP)(i), kept_from_zero((1.0f - dh / tip.D) * (tip.Y - Yi)));
  }

  const std::int32_t ID_;
  const std::int32_t NX_;
  const DiffractingCoast& coast_;
  WorkedZone& zone_;
  Diffraction& d_;
  ZoneTip& tip_;
  float angle_ = 0.0f;  ///< wave angle at this tip, or the mark of a right end
  float YTIP_ = 0.0f, DTP_ = 0.0f, Htip_ = 0.0f, B_ = 0.0f;
  float tan_tip_ = 0.0f;
  bool tip_on_groin_ = false;
  float X0_ = 0.0f;
};

}  // namespace

void find_reach(const DiffractingCoast& coast, WorkedZone& zone) {
  const std::int32_t NX = coast.grid.NX;
  const std::int32_t right = coast.tips.tips(zone.Z + 1).cell;
  const std::int32_t a = std::max(zone.first.cell, 1);
  const std::int32_t b = right == LAST_TIP || right == 0 ? NX + 1 : right;
  zone.IBEG = ISSTART;
  for (std::int32_t i = a; i >= 1; --i) {
    if (!coast.groin_at(i)) continue;
    zone.IBEG = i;
    break;
  }
  zone.IEND = NX + 1;
  for (std::int32_t i = b; i <= NX + 1; ++i) {
    if (!coast.groin_at(i)) continue;
    zone.IEND = i;
    break;
  }
}

bool KDGODA(std::int32_t ID, const DiffractingCoast& coast, WorkedZone& zone,
            Diffraction& diffraction, Report& report) {
  if (TipWalk(ID, coast, zone, diffraction).run()) return true;
  report.line(" ERROR IN \"KDGODA\".");
  report.line(" KD CALCULATION DID NOT CONVERGE");
  return false;
}

}  // namespace kelprun
