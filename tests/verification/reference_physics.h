#pragma once

/// The physics of the model once more, in double precision and by another route where there is one:
/// what the verification cases compare the program with. It shares no code with the program.
namespace kelptest {

inline constexpr double gravity = 9.806;

/// A wave at its gauge: height (m), period (s), angle from the baseline normal (degrees), depth
/// (m).
struct OffshoreWave {
  double H;
  double T;
  double degrees;
  double depth;
};

/// A breaking wave: height (m), angle from the baseline normal (radians), group speed (m/s).
struct BrokenWave {
  double H;
  double angle;
  double Cg;
};

/// Wave number, 1/m: the root of sigma^2 = g k tanh(k d), by Newton's method.
double wave_number(double T, double depth);
/// Ratio of group to phase speed.
double group_ratio(double wave_number, double depth);
double group_speed(double T, double depth);

/// Breaking over contours of orientation `contour` (radians). All three conserve energy flux and
/// Snell's invariant from the gauge to the depth H/gamma; the first two hold the wave there to be a
/// shallow-water wave, c = Cg = sqrt(g d).
using BreakingTheory = BrokenWave (*)(const OffshoreWave& wave, double contour);
/// The polynomial of Larson, Hoan and Hanson (2010).
BrokenWave closed_form(const OffshoreWave& wave, double contour);
/// The equation that the polynomial solves, solved by iteration.
BrokenWave shallow_water(const OffshoreWave& wave, double contour);
/// Linear theory throughout.
BrokenWave linear_theory(const OffshoreWave& wave, double contour);

inline constexpr double breaker_index = 0.78;
/// 16 (s - 1) (1 - p) 1.416^(5/2) with s = 2.65 and p = 0.4.
double transport_divisor();
/// The CERC formula (m3/s) for significant breaking height, the shoreline at `shoreline` radians.
double transport(const BrokenWave& wave, double shoreline, double K1);

/// What a tidal current (m/s) along the coast adds to it, m3/s: the same formula with the current
/// in the place of 2.7 sqrt(gamma g Hb/(4 1.416)) sin(angle).
double tidal_transport(const BrokenWave& wave, double shoreline, double K1, double current);

/// What turns with the shoreline: the contour that the waves refract over, or nothing.
enum class Contour { turns_with_the_shoreline, stays_straight };

/// Hb^2 Cgb K1 sin(2 alpha)/divisor over a coast turned by `shoreline` radians, m3/s.
double transport_along(const OffshoreWave& wave, double shoreline, double K1, Contour contour,
                       BreakingTheory breaking = closed_form);

/// Effective diffusivity of the one-line model, m2/s: -(1/D) dQ/d(shoreline angle) on the straight
/// coast, D the height of the moving profile. A central difference of exact values.
double effective_diffusivity(const OffshoreWave& wave, double K1, double D, Contour contour,
                             BreakingTheory breaking = closed_form);

/// Speed (m/s, positive to the right) at which the term in K2 carries a sinusoid of wave number k
/// along the coast, with the contour turning: see docs/verification.md.
double drift_speed(const OffshoreWave& wave, double K2, double D50, double D, double k);

}  // namespace kelptest
