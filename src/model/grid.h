#pragma once

#include <cstdint>

#include "model/array.h"

namespace kelprun {

/// Cells and walls. Owner: input/.
struct Grid {
  std::int32_t NX = 0;    ///< number of cells
  PerWall<float> DX;      ///< cell widths, m; entry NX+1 is set on a variable grid only
  bool variable = false;  ///< the widths come from a file
  PerWall<float> XCELL;   ///< position of the right wall of the cell, m; NX+1 one width on
  float X0 = 0.0f;        ///< position of the left end of the grid
  float AZIMUTH = 0.0f;   ///< orientation of the baseline, degrees
  float AZIM90 = -90.0f;  ///< AZIMUTH less 90, degrees
};

/// Sand and profile along the coast. Owner: input/; K1EFF, K2EFF: coast/.
struct Profile {
  PerWall<float> DCLOSCELL;   ///< depth of closure, m
  PerWall<float> BERMHTCELL;  ///< berm height, m
  PerWall<float> K1CELL;      ///< longshore transport coefficient
  PerWall<float> K2CELL;      ///< longshore transport coefficient of the height gradient
  PerWall<float> K1EFF;       ///< K1CELL/37.793171 in cells 1 to NX, 0 at wall NX+1
  PerWall<float> K2EFF;       ///< K2CELL/(18.896585 TANB) in cells 1 to NX, 0 at wall NX+1
};

}  // namespace kelprun
