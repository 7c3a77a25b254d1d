#include "coast/groin_factors.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "model/constants.h"
#include "model/surf_zone.h"

namespace kelprun {

namespace {

/// Distances from the shoreline to a tip at which a groin changes its type, m.
constexpr float STANDS_OUT = 2.0f;
constexpr float SUNK = 1.0f;
constexpr float LEVEL = 0.2f;

/// What a groin lets past.
struct Passage {
  float QG = 0.0f;    ///< transport that the groin would see, m3/s
  float BYP = 0.0f;   ///< factor on the transport of the wall
  float BYPT = 0.0f;  ///< its bypassing part
};

/// One walk over the groins, ascending by wall.
class GroinPass {
 public:
  GroinPass(const Settings& settings, float WL, const Grid& grid, const Profile& profile,
            const Boundaries& boundaries, const Waves& waves, const PerCell<std::int32_t>& INLC,
            Shore& shore, Groins& groins, Transport& transport)
      : NX_(grid.NX),
        WL_(WL),
        settings_(settings),
        grid_(grid),
        profile_(profile),
        boundaries_(boundaries),
        waves_(waves),
        INLC_(INLC),
        shore_(shore),
        groins_(groins),
        QBWTIP_(transport.QBWTIP) {}

  void run() {
    for (std::int32_t k = 1; k <= groins_.NGRP; ++k) pass_groin(k);
  }

 private:
  void pass_groin(std::int32_t k) {
    const std::int32_t i = groins_.IXGRP(k);
    const TipDistances tip =
        tip_distances(i, static_cast<double>(groins_.YGT(k)), shore_.Y, NX_, boundaries_);
    set_type(k, i, std::max(tip.DL, tip.DR));
    const std::int32_t type = groins_.ICSTR(i);
    // Where the groin does not act its factor of an earlier pass stays, and nothing bypasses.
    float BYPT = 0.0f;
    if (std::abs(type) == 1 || type == 3) {
      const Passage passage = GROINFAC(i, tip, groins_.PGR(k));
      groins_.QGR(k) = type == 3 ? 1.0f : passage.QG;
      groins_.BYPF(k) = type == 3 ? 1.0f : passage.BYP;
      BYPT = passage.BYPT;
    }
    if (groins_.IGCONN(k) != 0) hand_to_breakwater(k, i, BYPT);
  }

  /// Types by the larger distance to the tip. Between SUNK and STANDS_OUT a non-diffracting groin
  /// keeps its type, and the groin of an end wall never goes out of sight.
  void set_type(std::int32_t k, std::int32_t i, float DM) {
    std::int32_t& type = groins_.ICSTR(i);
    const bool end_wall = i == 1 || i == NX_ + 1;
    if (type < 0) {
      if (DM >= STANDS_OUT) type = -1;
      if (DM < SUNK) {
        type = end_wall ? -1 : -2;
        if (!end_wall) groins_.BYPF(k) = 1.0f;
      }
    } else if (type == 1 && DM < LEVEL && !end_wall) {
      type = 3;
    }
  }

  /// The groin at wall i. The limit of the shoreline angle stays for the transport.
  Passage GROINFAC(std::int32_t i, const TipDistances& tip, float PERM) {
    float& ALPHA = shore_.ALPHA(i);
    ALPHA = std::clamp(ALPHA, -(PI * 0.25f), PI * 0.25f);
    const float ALF = waves_.ZB(i) - ALPHA;
    if (ALF == 0.0f) return {0.0f, PERM, 0.0f};
    const float DIST = ALF > 0.0f ? tip.DL : tip.DR;
    const float DG = profile_depth(DIST, settings_.ASHAPE) + WL_;
    const float DLIMT = limit_depth(waves_.HB(i), settings_.GAMMA);
    Passage passage;
    passage.QG = transport_measure(i, ALF);
    // No sand comes past the groin out of an inlet beside it: the mouths route it.
    if (comes_from_inlet(i, ALF)) return passage;
    passage.BYPT = share_beyond(DG, DLIMT);
    passage.BYP = passage.BYPT + (PERM - PERM * passage.BYPT);
    return passage;
  }

  bool comes_from_inlet(std::int32_t i, float ALF) const {
    if (ALF > 0.0f) return i > 2 && INLC_(i - 1) == 1;
    return ALF < 0.0f && i < NX_ && INLC_(i) == 1;
  }

  /// Doubled height difference on the side that the sand comes from; 0 at the ends.
  float height_gradient(std::int32_t i, float ALF) const {
    const auto& HB = waves_.HB;
    if (ALF > 0.0f) return i == 1 ? 0.0f : 2.0f * (HB(i) - HB(i - 1));
    return i == NX_ + 1 ? 0.0f : 2.0f * (HB(i + 1) - HB(i));
  }

  /// The factor of the gradient term is cut to a whole number, and meant so: with the usual
  /// coefficients the term is absent. Wall NX+1 has no cell, so that its measure is 0.
  float transport_measure(std::int32_t i, float ALF) const {
    const float HALFPI = PI * 0.5f;
    const float AC = std::clamp(ALF, -HALFPI, HALFPI);
    const float DXG = i > NX_ ? grid_.DX(i - 1) : grid_.DX(i);
    const float NT = std::trunc(profile_.K2EFF(i) / (2.0f * DXG));
    const float GR = height_gradient(i, ALF);
    return waves_.HB(i) * waves_.HB(i) * waves_.CGB(i) *
           (profile_.K1EFF(i) * std::sin(2.0f * AC) - NT * GR * std::cos(AC));
  }

  /// What bypasses a groin at a breakwater's end goes into the lee of the breakwater. The sediment
  /// step clears QBWTIP before it would be read, and is meant to; the factor keeps the cut.
  void hand_to_breakwater(std::int32_t k, std::int32_t i, float BYPT) {
    const std::int32_t connection = groins_.IGCONN(k);
    const bool to_left = groins_.QGR(k) < 0.0f;
    if (connection == 3 || connection == (to_left ? 1 : 2)) {
      QBWTIP_(i) = 0.0f;
    } else if (to_left || (i > 1 && static_cast<double>(groins_.YGT(k)) == shore_.YBW(i - 1))) {
      QBWTIP_(i) = groins_.QGR(k) * BYPT;
    } else {
      return;
    }
    groins_.BYPF(k) -= BYPT;
  }

  const std::int32_t NX_;
  const float WL_;
  const Settings& settings_;
  const Grid& grid_;
  const Profile& profile_;
  const Boundaries& boundaries_;
  const Waves& waves_;
  const PerCell<std::int32_t>& INLC_;
  Shore& shore_;
  Groins& groins_;
  PerWall<float>& QBWTIP_;
};

}  // namespace

void GROINPASS(const Settings& settings, float WL, const Grid& grid, const Profile& profile,
               const Boundaries& boundaries, const Waves& waves, const PerCell<std::int32_t>& INLC,
               Shore& shore, Groins& groins, Transport& transport) {
  GroinPass(settings, WL, grid, profile, boundaries, waves, INLC, shore, groins, transport).run();
}

}  // namespace kelprun
