#include "coast/transport.h"

#include <cmath>
#include <cstdlib>

#include "model/constants.h"
#include "model/surf_zone.h"

namespace kelprun {

namespace {

constexpr float K_SCALE = 2.7f;

bool is_groin(std::int32_t type) { return std::abs(type) == 1 || std::abs(type) == 3; }

/// Cell c lies landward of any breakwater line.
bool open_cell(const Shore& shore, std::int32_t c) { return shore.Y(c) < shore.YBW(c); }

/// Difference of CB squared across wall i, over two cells; one-sided beside structures and at the
/// ends, and 0 where a cell of the stencil has reached a breakwater.
float height_gradient(std::int32_t i, const Grid& grid, const Waves& waves, const Shore& shore,
                      const Groins& groins, const Breakwaters& breakwaters,
                      const PerWall<float>& CB) {
  const auto& ICSTR = groins.ICSTR;
  const auto& IBWST = breakwaters.IBWST;
  const auto square = [&](std::int32_t c) { return CB(c) * CB(c); };
  if (i == 1 || i == grid.NX + 1 || waves.ITOMBOLO(i) == 1 || is_standing_groin(ICSTR(i)) ||
      IBWST(i) == -1)
    return 0.0f;
  float D = 0.0f;
  if (is_groin(ICSTR(i + 1)) || i == grid.NX || IBWST(i + 1) == -1) {
    if (open_cell(shore, i)) D = 2.0f * (square(i) - square(i - 1));
    if (!open_cell(shore, i - 1)) D = 0.0f;
  } else if (is_groin(ICSTR(i - 1)) || i == 2 || IBWST(i - 1) == -1) {
    if (open_cell(shore, i + 1)) D = 2.0f * (square(i + 1) - square(i));
    if (!open_cell(shore, i)) D = 0.0f;
  } else {
    if (open_cell(shore, i + 1)) D = square(i + 1) - square(i - 1);
    if (!open_cell(shore, i - 1)) D = 0.0f;
  }
  return D;
}

/// The transport formula at wall i, in the order in which it is evaluated.
float wall_transport(std::int32_t i, float ALF, float D, float SQ, const Settings& settings,
                     const Grid& grid, const Profile& profile, const Waves& waves,
                     const Transport& transport) {
  const float SINA = std::sin(ALF);
  const float COSA = std::cos(ALF);
  const float CB = transport.CB(i);
  const float HB = waves.HB(i);
  const float K1 = profile.K1CELL(i);
  const float KD = K1 / K_SCALE;
  // The last wall lies beyond the last width and takes that of the cell before it.
  const float DXW = i == grid.NX + 1 ? grid.DX(i - 1) : grid.DX(i);
  const float slope_term = 4.0f * CB * (profile.K2CELL(i) / KD) / settings.GAMMA / G;
  const float TG = 0.5f * D * slope_term / DXW / waves.TANB;
  const float TW = CB * SINA * (K1 / KD) - TG;
  const float TT = TW + transport.TCUR(i);
  return SQ * (std::sqrt(HB) * 4.0f * HB * waves.CGB(i) * profile.K1EFF(i) / K1) * KD * TT * COSA;
}

/// Takes the part off Q that passes a breakwater tip into its lee.
void take_off_at_tip(std::int32_t i, float DLIM, const Settings& settings, const Waves& waves,
                     const Shore& shore, const Breakwaters& breakwaters, Transport& transport) {
  const std::int32_t S1 = std::abs(breakwaters.IBWST(i));
  const std::int32_t S0 = std::abs(breakwaters.IBWST(i - 1));
  double YL;
  if (S1 == 1 && S0 == 0 && transport.Q(i) > 0.0f) {
    YL = shore.YBW(i);
  } else if (S1 == 0 && S0 == 1 && transport.Q(i) < 0.0f) {
    YL = shore.YBW(i - 1);
  } else {
    return;
  }
  const auto DIST = static_cast<float>(YL - (shore.Y(i) + shore.Y(i - 1)) * 0.5);
  const float F = share_landward(DIST, waves.HB(i) * DLIM, settings.ASHAPE);
  transport.QBWTIP(i) = transport.Q(i) * 0.5f * F;
  transport.Q(i) = transport.Q(i) - transport.QBWTIP(i);
}

/// Where the wave has passed the shoreline normal the wall follows its neighbour. On the right Q is
/// still 0 at this moment, so that such a wall ends with 0: the two directions differ, and are
/// meant to.
void guard_high_angle(std::int32_t i, float ALF, float FAC, float HALFPI, const Grid& grid,
                      PerWall<float>& Q) {
  if (ALF > HALFPI && i > 1) Q(i) = FAC * Q(i - 1);
  if (ALF < -HALFPI && i <= grid.NX) Q(i) = FAC * Q(i + 1);
}

}  // namespace

TransportConstants transport_constants(float DT, float GAMMA) {
  return {DT * 3600.0f, 1.27f / GAMMA, std::sqrt((HEIGHT_RATIO / GAMMA) / G), PI * 0.5f};
}

void clear_transport(const TransportConstants& constants, const Settings& settings,
                     const Grid& grid, const Profile& profile, const Waves& waves, Transport& t) {
  for (std::int32_t i = 1; i <= grid.NX; ++i)
    t.RDEN(i) = constants.DTSEC / (profile.DCLOSCELL(i) + profile.BERMHTCELL(i));
  for (std::int32_t i = 1; i <= grid.NX + 1; ++i)
    t.CB(i) = std::sqrt(waves.HB(i) * settings.GAMMA * 0.25f * G / HEIGHT_RATIO);
  for (PerWall<float>* rates : {&t.Q, &t.QBWTIP, &t.QRIGHT, &t.QLEFT, &t.QGROSS}) rates->fill(0.0f);
}

float share_landward(float DIST, float DT1, float ASHAPE) {
  return share_beyond(DIST < 0.0f ? 0.0f : profile_depth(DIST, ASHAPE), DT1);
}

void compute_transport(const TransportConstants& constants, const Settings& settings,
                       const Grid& grid, const Profile& profile, const Waves& waves,
                       const Shore& shore, const Groins& groins, const Breakwaters& breakwaters,
                       Transport& t) {
  std::int32_t k = 1;
  for (std::int32_t i = 1; i <= grid.NX + 1; ++i) {
    const float ALF = waves.ZB(i) - unmarked(shore.ALPHA(i));
    const float D = height_gradient(i, grid, waves, shore, groins, breakwaters, t.CB);
    t.Q(i) = wall_transport(i, ALF, D, constants.SQ, settings, grid, profile, waves, t);

    float FAC = 1.1f;
    if (k <= groins.NGRP && groins.IXGRP(k) == i) {
      const std::int32_t IST = std::abs(groins.ICSTR(i));
      if (IST == 1 || IST == 3) t.Q(i) *= groins.BYPF(k);
      if (IST == 1) FAC = groins.BYPF(k) * 1.1f;
      ++k;
    }
    if (i > 1 && i <= grid.NX && !is_standing_groin(groins.ICSTR(i)))
      take_off_at_tip(i, constants.DLIM, settings, waves, shore, breakwaters, t);
    guard_high_angle(i, ALF, FAC, constants.HALFPI, grid, t.Q);
  }
}

}  // namespace kelprun
