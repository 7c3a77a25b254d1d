#pragma once

#include "model/array.h"

namespace kelprun {

/// The shoreline and the lines that bound it. Lengths in metres, orientations in radians.
struct Shore {
  /// Shoreline position, positive seaward, measured from YREG once the run has begun. Writers in
  /// call order: the file reader, set-up, beach fills, the calm step, inlet placement, the sweep,
  /// the lee of breakwaters.
  PerCell<double> Y;
  PerCell<double> YOLD;    ///< Y at the start of the pass, inlets bridged (run/)
  PerCell<double> YPREV;   ///< Y at entry of the sediment step (coast/)
  PerCell<double> YBASE;   ///< Y ahead of the sweep, inlet placements included (coast/)
  PerCell<double> YSTART;  ///< initial Y (run/)
  PerCell<float> YMAX;     ///< seawardmost position so far (run/)
  PerCell<float> YMIN;     ///< landwardmost position so far (run/)
  PerCell<float> YDIFF;    ///< Y less YSTART at the year block (run/)
  PerCell<float> YREG;     ///< regional contour (input/)
  /// Offshore contour that the waves refract over. Writers: the contour file with IREG 3, else the
  /// contour smoothing of each pass. It carries an offset of 300 m in the second case.
  PerCell<float> YCON;
  PerCell<float> WORK, SM;  ///< working arrays of the contour smoothing (coast/)
  /// Orientation of the offshore contour at the walls. Writers in call order: the contour
  /// orientation of each pass, the wave field (0 where a wave would leave the contour).
  PerWall<float> ALPHAC;
  /// Orientation of the live shoreline at the walls. Writers in call order: the shoreline
  /// orientation of each pass, the groin factors (limit of a quarter of pi).
  PerWall<float> ALPHA;
  PerCell<double> YSWI;  ///< landward limit as built, -9999 without a seawall (coast/)
  /// Landward limit of the step: YSWI, or YBWI where the shoreline has passed a breakwater (coast/)
  PerCell<double> YSW;
  PerCell<double> YBWI;   ///< breakwater line as built; read behind breakwaters alone (coast/)
  PerCell<double> YBW;    ///< breakwater line ahead of the shoreline, 99999 without one (coast/)
  PerWall<double> DYSRC;  ///< source rate of bypass material, m2/s (coast/)
};

/// An orientation above 900 carries a marker of 999, though nothing sets one at present.
inline float unmarked(float ALPHA) { return ALPHA > 900.0f ? ALPHA - 999.0f : ALPHA; }

}  // namespace kelprun
