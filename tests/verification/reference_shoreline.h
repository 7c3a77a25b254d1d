#pragma once

/// Exact shorelines of the one-line model for small angles, in double precision: the breaking wave
/// is held fixed at `angle` (radians) from the normal of a shoreline that starts straight, the sand
/// spreads with the diffusivity `eps` (m2/s).
namespace kelptest {

/// Advance (m) at the distance `x` (m) updrift of a groin that lets nothing past, after `seconds`
/// (Pelnard-Considere 1956).
double groin_accretion(double x, double seconds, double eps, double angle);

/// The shoreline between two groins that let nothing past, `length` apart, at the distance `x` from
/// the updrift one, m: it turns to the wave crests.
double between_groins(double x, double seconds, double length, double eps, double angle);

}  // namespace kelptest
