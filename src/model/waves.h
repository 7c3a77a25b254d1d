#pragma once

#include <cstdint>

#include "model/array.h"

namespace kelprun {

/// The wave of a pass as one number each: the values at the last wall.
struct PassWave {
  float HZ = 0.0f;     ///< height, m
  float T = 0.0f;      ///< period, s
  float ZZ = 0.0f;     ///< working angle, degrees
  float ZZDEG = 0.0f;  ///< angle before the regional turn, degrees; tested against 90
};

/// Waves from the gauges to breaking. Angles in radians unless said, from the baseline normal,
/// positive where a shoreline that advances with the cell number is positive.
struct Waves {
  PassWave pass;            ///< (input/, run/)
  PerWall<float> HAMP;      ///< height amplification factor (input/)
  PerWall<float> THETAAMP;  ///< angle amplification factor (input/)
  PerWall<float> THETADEL;  ///< angle increment, radians (input/)
  PerCell<float> RANG0;     ///< regional angle before averaging (input/)
  PerWall<float> RANG;      ///< regional angle (input/)

  PerWall<float> HRF;  ///< height at the reference depth, m (input/, run/)
  PerWall<float> TRF;  ///< period, s (input/)
  /// Angle at the reference depth. Writers in call order: the wave reader, the restored hold set,
  /// the wave field (0 where a wave would leave the contour).
  PerWall<float> ZRF;
  PerWall<float> ZRFPRTOUT;  ///< angle as interpolated between the gauges, degrees (input/)
  PerWall<float> DRF;        ///< reference depth, m (input/)
  PerWall<float> CGRF;       ///< group speed at the reference depth, m/s (waves/)
  PerWall<float> WKRF;       ///< wave number at the reference depth, 1/m (waves/)
  PerWall<float> NRF;        ///< ratio of group to phase speed there (waves/)

  PerWall<float> HBU, ZBU, WKBU, CGBU;  ///< at breaking, without structures (waves/)
  PerWall<float> HB, ZB, CGB, WKB;      ///< at breaking (waves/)
  PerWall<float> HBS, ZBS;              ///< smoothed field before it replaces HB, ZB (waves/)
  PerWall<float> SWS;                   ///< sum of H^2 sin 2Z over the zones (waves/)
  PerWall<std::int32_t> ITOMBOLO;       ///< 1: the wave of the wall was replaced (waves/)
  PerCell<float> DLTZ;                  ///< depth of active movement, m (waves/)
  float TANB = 0.0f;                    ///< beach slope of the step (waves/)
  float SIGMA = 0.0f;                   ///< angular frequency of the step, 1/s (waves/)
  float WK0 = 0.0f;                     ///< deep-water wave number of the step, 1/m (waves/)

  std::int32_t WAVEWARN = 0;  ///< 0 nothing said yet, 1, 2: a line is due, -1: said (input/, run/)
  std::int32_t NBADANG = 0;   ///< records whose angle was out of range (input/)

  /// The wave kept between two wave records (run/).
  PassWave held;
  PerWall<float> HRF_held, ZRF_held;
};

}  // namespace kelprun
