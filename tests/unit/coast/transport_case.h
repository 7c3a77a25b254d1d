#pragma once

#include <cstdint>

#include "coast/transport.h"
#include "model/constants.h"
#include "unit/run/small_model.h"

namespace kelptest {

/// A coast under a varied breaking wave, ready for the transport formula; every wall is away from
/// structures unless a test places one.
inline kelprun::Model coast_under_waves(std::int32_t NX, std::uint32_t seed) {
  kelprun::Model m = small_model(NX);
  m.settings.ASHAPE = 0.1f;
  m.waves.TANB = 0.02f;
  Random random(seed);
  for (std::int32_t i = 1; i <= NX + 1; ++i) {
    m.waves.HB(i) = random.real(0.3, 3.0);
    m.waves.ZB(i) = random.real(-0.6, 0.6);
    m.waves.CGB(i) = random.real(2.0, 6.0);
    m.shore.ALPHA(i) = random.real(-0.2, 0.2);
    m.profile.K1CELL(i) = random.real(0.2, 0.9);
    m.profile.K2CELL(i) = random.real(0.1, 0.6);
    // The model leaves the last wall's factor at 0; here it has one, so that its formula shows.
    m.profile.K1EFF(i) = m.profile.K1CELL(i) / kelprun::K1_DIVISOR;
    m.grid.DX(i) = random.real(50.0, 150.0);
  }
  return m;
}

/// Transport of all walls for a step of one hour.
inline void compute(kelprun::Model& m) {
  const auto constants = kelprun::transport_constants(1.0f, m.settings.GAMMA);
  kelprun::clear_transport(constants, m.settings, m.grid, m.profile, m.waves, m.transport);
  kelprun::compute_transport(constants, m.settings, m.grid, m.profile, m.waves, m.shore, m.groins,
                             m.breakwaters, m.transport);
}

/// The formula at wall i once more, float by float, with the gradient D and the width DXW.
inline float formula(const kelprun::Model& m, std::int32_t i, float D, float DXW) {
  const float H = m.waves.HB(i);
  const float GAMMA = m.settings.GAMMA;
  const float CB = std::sqrt(H * GAMMA * 0.25f * 9.806f / 1.416f);
  const float ALF = m.waves.ZB(i) - m.shore.ALPHA(i);
  const float KD = m.profile.K1CELL(i) / 2.7f;
  float slope = 4.0f * CB;
  slope = slope * (m.profile.K2CELL(i) / KD);
  slope = slope / GAMMA;
  slope = slope / 9.806f;
  float TG = 0.5f * D;
  TG = TG * slope;
  TG = TG / DXW;
  TG = TG / m.waves.TANB;
  const float TW = CB * std::sin(ALF) * (m.profile.K1CELL(i) / KD) - TG;
  const float TT = TW + m.transport.TCUR(i);
  float power = std::sqrt(H) * 4.0f;
  power = power * H;
  power = power * m.waves.CGB(i);
  power = power * m.profile.K1EFF(i);
  power = power / m.profile.K1CELL(i);
  const float SQ = std::sqrt((1.416f / GAMMA) / 9.806f);
  float Q = SQ * power;
  Q = Q * KD;
  Q = Q * TT;
  return Q * std::cos(ALF);
}

/// CB squared at a wall, as the gradient takes it.
inline float square(const kelprun::Model& m, std::int32_t i) {
  const float CB = std::sqrt(m.waves.HB(i) * m.settings.GAMMA * 0.25f * 9.806f / 1.416f);
  return CB * CB;
}
inline float central(const kelprun::Model& m, std::int32_t i) {
  return formula(m, i, square(m, i + 1) - square(m, i - 1), m.grid.DX(i));
}
inline float left_sided(const kelprun::Model& m, std::int32_t i) {
  return formula(m, i, 2.0f * (square(m, i) - square(m, i - 1)), m.grid.DX(i));
}
inline float right_sided(const kelprun::Model& m, std::int32_t i) {
  return formula(m, i, 2.0f * (square(m, i + 1) - square(m, i)), m.grid.DX(i));
}
inline float without_gradient(const kelprun::Model& m, std::int32_t i) {
  return formula(m, i, 0.0f, m.grid.DX(i));
}

}  // namespace kelptest
