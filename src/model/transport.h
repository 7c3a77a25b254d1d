#pragma once

#include "model/array.h"

namespace kelprun {

/// Longshore transport of the last pass, m3/s, positive to the right. Owner: coast/; Q at the
/// mouths of inlets: inlets/.
struct Transport {
  PerWall<float> Q;       ///< net
  PerWall<float> QRIGHT;  ///< positive part
  PerWall<float> QLEFT;   ///< non-positive part
  PerWall<float> QGROSS;  ///< magnitude
  /// Part taken off Q at a breakwater tip. Writers in call order: the groin factors, the sediment
  /// step (which clears it and sets it at the tips).
  PerWall<float> QBWTIP;
  PerWall<float> QLEE;    ///< transport laid down in the lee of breakwaters
  PerWall<float> QSWEPT;  ///< Q in the lee of breakwaters as the sweep left it
  PerWall<float> TCUR;    ///< tidal current term, 0 without tidal current files
  PerWall<float> CB;      ///< sqrt(G GAMMA HB/(4 1.416)), m/s
  PerWall<float> RDEN;    ///< DT 3600/(DCLOS + BERMHT), s/m, cells 1 to NX
};

/// Volumes since the start or since the last year block. Owner: run/ but where said.
struct Ledgers {
  PerWall<float> QNETYR, QLEFTYR, QRIGHTYR, QGROSSYR;  ///< since the last year block
  PerWall<float> QNETSUM, QLEFTSUM, QRIGHTSUM;         ///< since the start
  PerWall<float> QANNUAL;                              ///< annualised net rate of the last pass
  PerWall<double> QNETMEAN, QLEFTMEAN, QRIGHTMEAN;     ///< mean annual rates, at the end
  float QMAX = 0.0f;              ///< largest gross volume of the last year block
  PerCell<float> VOLCELL;         ///< volume change of the cell since the start, m3 (coast/)
  PerCell<float> VOLLEN;          ///< the same per unit length, m2 (coast/)
  float VOLTOTAL = 0.0f;          ///< sum of VOLCELL, m3 (coast/)
  float AREATOTAL = 0.0f;         ///< sum of width times shoreline change, m2 (coast/)
  PerCell<float> VFILLP, VFILLN;  ///< placed and removed by beach fills, m3 (coast/)
  PerCell<float> VBYPP, VBYPN;    ///< placed and removed by bypassing, m3 (coast/)
};

}  // namespace kelprun
