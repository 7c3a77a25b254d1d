#pragma once

#include <cstdint>

namespace kelprun {

/// One lateral end of the grid. Owner: input/; QBC, LMOVSTEP: run/.
struct Boundary {
  std::int32_t BCTYPE = 0;  ///< 0 pinned, 1 groin, 2 gated groin, 3 moving
  float MOVY = 0.0f;        ///< movement of the shoreline, file's unit
  std::int32_t MOVPER = 0;  ///< its period: 1 the run, 2 a day, 3 a step
  float GROINY = 0.0f;      ///< groin tip to the shoreline outside the grid, m
  float MOVSTEP = 0.0f;     ///< movement per step, m
  bool QBC = true;          ///< the end wall has no groin: its transport follows the movement
};

/// The two ends: LBCTYPE, LMOVY, ... and RBCTYPE, RMOVY, ... of the configuration.
struct Boundaries {
  Boundary left, right;
};

}  // namespace kelprun
