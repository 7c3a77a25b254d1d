#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/array.h"

namespace kelprun {

/// One dredging event of one inlet; the event number counts through all inlets.
struct Dredging {
  std::int32_t inlet = 0;
  std::int32_t event = 0;
  std::int32_t IMOR = 0;                ///< reservoir touched, 1 to 6
  std::int32_t IDREDS = 0, IDREDE = 0;  ///< first and last date
  float DREDQ = 0.0f;                   ///< volume of one step, m3
};

/// Tidal inlets as configured. Owner: input/.
struct Inlets {
  std::int32_t NINL = 0;
  Array1<std::int32_t> IINLS, IINLE;  ///< first and last cell
  Array1<std::string> INLNAME;
  Array1<std::int32_t> IBYPL1, IBYPL2, IBYPR1, IBYPR2;  ///< placement cells left and right
  /// Present volumes, m3: ebb and flood shoal, left and right bypass bar, attachment bars.
  Array1<float> VVSE, VVSF, VVSBL, VVSBR, VVSAL, VVSAR;
  /// Equilibrium volumes of the same six, m3.
  Array1<float> VVSEQ, VVSFQ, VVSBQL, VVSBQR, VVSAQL, VVSAQR;
  Array1<float> YINLL, YINLR;  ///< shoreline at the sides, as given
  Array1<float> JBCL, JBCR;    ///< boundary values at the sides
  std::int32_t DREDFLAG = 0;   ///< 1: dredging events exist
  Array1<std::int32_t> NDRED;  ///< event slots that the inlet looks at
  std::vector<Dredging> dredgings;
  PerCell<std::int32_t> INLC;  ///< 1: the cell lies inside an inlet
};

}  // namespace kelprun
