#include "verification/reference_physics.h"

#include <cmath>
#include <numbers>

namespace kelptest {

namespace {

constexpr double degree = std::numbers::pi / 180.0;
/// Step of the central differences, radians: error of the square, rounding far below.
constexpr double turn = 1e-4;

double phase_speed(double T, double depth) {
  return 2.0 * std::numbers::pi / (T * wave_number(T, depth));
}

/// c^4 gamma^2/(g^2 H^2 n) at the gauge.
double depth_measure(const OffshoreWave& wave) {
  const double c = phase_speed(wave.T, wave.depth);
  const double n = group_ratio(wave_number(wave.T, wave.depth), wave.depth);
  return std::pow(c, 4) * std::pow(breaker_index, 2) / (std::pow(gravity * wave.H, 2) * n);
}

/// The breaking wave whose depth is ratio c^2/g, c the phase speed at the gauge.
BrokenWave broken_at(const OffshoreWave& wave, double contour, double ratio) {
  const double c = phase_speed(wave.T, wave.depth);
  const double depth = c * c * ratio / gravity;
  const double relative = wave.degrees * degree - contour;
  return {breaker_index * depth, contour + std::asin(std::sin(relative) * std::sqrt(ratio)),
          group_speed(wave.T, depth)};
}

/// Beach slope from the equilibrium profile of fine sand (D50 below 0.4 mm) and the depth of active
/// movement under the wave of the gauge.
double beach_slope(const OffshoreWave& wave, double D50) {
  const double A = 0.41 * std::pow(D50, 0.94);
  const double depth = 2.28 * wave.H - 68.5 * std::pow(wave.H / wave.T, 2) / gravity;
  return std::sqrt(std::pow(A, 3) / depth);
}

}  // namespace

double wave_number(double T, double depth) {
  const double sigma = 2.0 * std::numbers::pi / T;
  const double x = sigma * sigma * depth / gravity;
  double kd = x > 1.0 ? x : std::sqrt(x);
  for (int round = 0; round < 50; ++round) {
    const double t = std::tanh(kd);
    kd -= (kd * t - x) / (t + kd * (1.0 - t * t));
  }
  return kd / depth;
}

double group_ratio(double wave_number, double depth) {
  const double X = 2.0 * wave_number * depth;
  return X > 500.0 ? 0.5 : 0.5 * (1.0 + X / std::sinh(X));
}

double group_speed(double T, double depth) {
  const double k = wave_number(T, depth);
  return group_ratio(k, depth) * 2.0 * std::numbers::pi / (T * k);
}

BrokenWave closed_form(const OffshoreWave& wave, double contour) {
  const double relative = wave.degrees * degree - contour;
  const double Lambda = std::pow(std::cos(relative) / depth_measure(wave), 0.4);
  const double xi = std::pow(std::sin(relative), 2) * Lambda;
  const double delta = 1.0 + 0.1649 * xi + 0.5948 * std::pow(xi, 2) - 1.6787 * std::pow(xi, 3) +
                       2.8573 * std::pow(xi, 4);
  return broken_at(wave, contour, Lambda * delta);
}

BrokenWave shallow_water(const OffshoreWave& wave, double contour) {
  const double relative = wave.degrees * degree - contour;
  const double flux = std::cos(relative) / depth_measure(wave);
  double ratio = 0.0;
  for (int round = 0; round < 200; ++round)
    ratio = std::pow(flux / std::sqrt(1.0 - std::pow(std::sin(relative), 2) * ratio), 0.4);
  return broken_at(wave, contour, ratio);
}

BrokenWave linear_theory(const OffshoreWave& wave, double contour) {
  const double relative = wave.degrees * degree - contour;
  const double k = wave_number(wave.T, wave.depth);
  const double flux = wave.H * wave.H * group_speed(wave.T, wave.depth) * std::cos(relative);
  // The flux of a wave that breaks at depth d rises with d.
  double low = 0.0;
  double high = wave.depth;
  double sine = 0.0;
  for (int round = 0; round < 100; ++round) {
    const double d = 0.5 * (low + high);
    sine = std::sin(relative) * k / wave_number(wave.T, d);
    const double H = breaker_index * d;
    (H * H * group_speed(wave.T, d) * std::sqrt(1.0 - sine * sine) < flux ? low : high) = d;
  }
  return {breaker_index * low, contour + std::asin(sine), group_speed(wave.T, low)};
}

double transport_divisor() { return 16.0 * (2.65 - 1.0) * (1.0 - 0.4) * std::pow(1.416, 2.5); }

double transport(const BrokenWave& wave, double shoreline, double K1) {
  return K1 / transport_divisor() * wave.H * wave.H * wave.Cg *
         std::sin(2.0 * (wave.angle - shoreline));
}

double tidal_transport(const BrokenWave& wave, double shoreline, double K1, double current) {
  const double speed = std::sqrt(breaker_index * gravity * wave.H / (4.0 * 1.416));
  const double sine = current / (2.7 * speed);
  return K1 / transport_divisor() * wave.H * wave.H * wave.Cg * 2.0 * sine *
         std::cos(wave.angle - shoreline);
}

double transport_along(const OffshoreWave& wave, double shoreline, double K1, Contour contour,
                       BreakingTheory breaking) {
  return transport(breaking(wave, contour == Contour::stays_straight ? 0.0 : shoreline), shoreline,
                   K1);
}

double effective_diffusivity(const OffshoreWave& wave, double K1, double D, Contour contour,
                             BreakingTheory breaking) {
  const auto Q = [&](double shoreline) {
    return transport_along(wave, shoreline, K1, contour, breaking);
  };
  return -(Q(turn) - Q(-turn)) / (2.0 * turn * D);
}

double drift_speed(const OffshoreWave& wave, double K2, double D50, double D, double k) {
  const BrokenWave b = closed_form(wave, 0.0);
  const double height_by_angle =
      -(closed_form(wave, turn).H - closed_form(wave, -turn).H) / (2.0 * turn);
  const double weight = 2.0 * K2 / (transport_divisor() * 1.416 * beach_slope(wave, D50)) * b.H *
                        b.H * b.Cg * std::cos(b.angle);
  return -k * k * weight * height_by_angle / D;
}

}  // namespace kelptest
