#pragma once

#include <cstdint>

#include "model/array.h"

namespace kelprun {

/// What a zone of open water holds for a transmission coefficient.
inline constexpr float OPEN_WATER = 1.0f;
/// What a zone without extent holds for a transmission coefficient: two tips coincide.
inline constexpr float NO_EXTENT = -1.0f;
/// What a breakwater's transmission coefficient of exactly 1.0 is held as, so that its zone is not
/// taken for open water.
inline constexpr float NEARLY_OPEN = 0.99f;

/// The row of zones along the coast; zone z lies between tips z and z+1. Owner: waves/.
struct Zones {
  std::int32_t NZACT = 0;  ///< zones with KTZ of at least 0.01
  /// Share of the wave height that a zone lets through: 1.0 open water, NO_EXTENT, else the
  /// transmission coefficient of a breakwater.
  Array1<float> KTZ;
  Array1<std::int32_t> ZORDER;     ///< order of the work, open zones first; 0 behind the last one
  PerWall<std::int32_t> ITIPJOIN;  ///< 1: a doubled tip was dropped from the list at this wall
  Array1<PerWall<float>> XTIP;     ///< by tip: distance of each wall from the tip, m
  Array1<float> DXTIPS;            ///< distance from tip j to tip j+1, m; 0 beyond the coast
};

/// A wave at a tip.
struct TipWave {
  float k = 0.0f;     ///< wave number, 1/m
  float H = 0.0f;     ///< height, m
  float Z = 0.0f;     ///< angle, radians
  float SMAX = 1.0f;  ///< concentration of the directional spreading
  float AKD = 1.0f;   ///< divisor of SMAX in the diffraction coefficient
  float LTIP = 0.0f;  ///< wave length for the blend behind the tip, m
};

/// Working arrays of the diffraction, kept from step to step to save storage work. Owner: waves/.
struct Diffraction {
  Array1<TipWave> tip_waves;      ///< by tip
  PerWall<float> HBD, ZBD;        ///< breaking wave of the zone: height, m, and angle
  PerWall<float> KDA;             ///< diffraction coefficient of the tip being worked on
  PerWall<float> KDB;             ///< that of the zone's first tip
  Array1<PerWall<float>> KDTAB;   ///< by tip: the coefficients of its brighter zone; never cleared
  PerWall<float> ZRAY;            ///< ray angle chosen for the wall
  PerWall<std::int32_t> IZONE;    ///< tip that acts: 0 none, 1 first, 2 second, 12 both
  PerWall<float> WRAMP1, WRAMP2;  ///< weights of the blend behind the first and second tip
  PerWall<std::int32_t> DONE;     ///< 1: the groin at this wall has had its wave in this step
};

/// Sums of the undiffracted breaking wave over the steps of the run. Owner: waves/.
struct UndiffractedSums {
  std::int32_t steps = 0;
  PerWall<float> H, H52, ZBS, ZB, QZ;  ///< by column of the closing report
};

}  // namespace kelprun
