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
  std::int32_t IMOR = 0;                ///< reservoir touched, 1 to 6; others touch none
  std::int32_t IDREDS = 0, IDREDE = 0;  ///< first and last date
  float DREDQ = 0.0f;                   ///< volume of one step, m3
};

/// What the last routing of one side moved, m3/s, and what all of them have moved, m3. A side that
/// got no sand in a step keeps its rates.
struct InletSide {
  float Qie = 0.0f;   ///< from the beach onto the ebb shoal, past the channel
  float Qc = 0.0f;    ///< into the channel
  float Qeb = 0.0f;   ///< ebb shoal to bypass bar
  float Qba = 0.0f;   ///< bypass bar to attachment bar
  float Qout = 0.0f;  ///< attachment bar to the beach
  float VQIE = 0.0f, VQC = 0.0f, VQOUT = 0.0f;
};

/// The sand of one inlet in motion.
struct InletFlow {
  InletSide left, right;  ///< by the side that the sand comes out on: QIEL, ... and QIER, ...
  float Qce = 0.0f;       ///< the channel's share for the ebb shoal, m3/s
  float Qfe = 0.0f;       ///< from the full flood shoal onto the ebb shoal, m3/s
  float VQIN = 0.0f, VQOUT = 0.0f;     ///< reached the inlet and was given back, m3
  float VDREDR = 0.0f, VDREDP = 0.0f;  ///< dredged and placed, m3, both negative
};

/// Where the sand of an attachment bar reaches the beach: weights of the cells that lie in the
/// grid.
struct Placement {
  std::int32_t first = 1;  ///< first cell in the grid
  std::int32_t last = 0;   ///< last cell in the grid; below `first`: nothing is placed
  float SUMDX = 0.0f;      ///< sum of their widths, m
  Array1<float> WPLACE;    ///< share of each cell, from `first` on
};

/// Tidal inlets. Owner: input/ until the set-up, then inlets/.
struct Inlets {
  std::int32_t NINL = 0;
  Array1<std::int32_t> IINLS, IINLE;  ///< first and last cell
  Array1<std::string> INLNAME;
  Array1<std::int32_t> IBYPL1, IBYPL2, IBYPR1, IBYPR2;  ///< placement cells left and right
  /// Present volumes, m3: ebb and flood shoal, left and right bypass bar, attachment bars.
  Array1<float> VVSE, VVSF, VVSBL, VVSBR, VVSAL, VVSAR;
  /// Equilibrium volumes of the same six, m3.
  Array1<float> VVSEQ, VVSFQ, VVSBQL, VVSBQR, VVSAQL, VVSAQR;
  Array1<float> YINLL, YINLR;  ///< shoreline at the sides, m; 0: derived at set-up
  Array1<float> JBCL, JBCR;    ///< boundary values at the sides
  std::int32_t DREDFLAG = 0;   ///< 1: dredging events exist
  Array1<std::int32_t> NDRED;  ///< event slots that the inlet looks at
  std::vector<Dredging> dredgings;
  PerCell<std::int32_t> INLC;  ///< 1: the cell lies inside an inlet
  Array1<InletFlow> flows;
  Array1<Placement> left_placement, right_placement;
};

}  // namespace kelprun
