#pragma once

#include "verification/coast.h"
#include "verification/reference_physics.h"

namespace kelptest {

/// Two wave lengths of a shoreline sinusoid between pinned ends under a steady wave. The ends stand
/// at nodes, so that A exp(-eps k^2 t) sin(k x) is the exact solution of the diffusion equation.
struct Sinusoid {
  OffshoreWave wave;
  Contour contour;
  int days;
  double amplitude = 1.0;  ///< m: slopes of 0.003, so that the solution is that of a small bump

  static constexpr double length = 2000.0;  ///< m
  static double wave_number();
  double diffusivity() const;
  /// eps k^2 t at the end of the run.
  double decay() const;
  double exact_ratio() const;
  /// Relative error of the amplitude to leading order. The three-point difference and the step in
  /// time give (k DX)^2 (1/12 + r/2), r = eps DT/DX^2. The smoothing of the breaking field over
  /// three walls keeps 1 - (k DX)^2/4 of what the waves follow of the shoreline; a wave that does
  /// not follow would spread it with the diffusivity of a straight contour.
  double leading_error(int cells) const;
};

/// The model takes celerities from a Pade form (0.1 %) and a gravity of 9.81 for 9.806: 0.3 % of
/// the diffusivity.
inline constexpr double error_of_diffusivity = 0.003;

/// What is left at the end.
struct Decayed {
  double ratio;      ///< amplitude of the sine over the initial one
  double deviation;  ///< largest distance from the exact solution, over the initial amplitude
};

/// The coast of the sinusoid with so many cells a wave length. A day-long step at 20 cells, and
/// steps as the square of the cell width, so that time and space converge together.
Coast sinusoid_coast(const Sinusoid& sinusoid, int cells);
Decayed decay(const Sinusoid& sinusoid, int cells);

}  // namespace kelptest
