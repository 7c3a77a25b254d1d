#include "verification/reference_shoreline.h"

#include <cmath>
#include <numbers>

namespace kelptest {

double groin_accretion(double x, double seconds, double eps, double angle) {
  const double reach = std::sqrt(4.0 * eps * seconds);
  const double u = x / reach;
  return std::tan(angle) *
         (reach / std::sqrt(std::numbers::pi) * std::exp(-u * u) - x * std::erfc(u));
}

double between_groins(double x, double seconds, double length, double eps, double angle) {
  double sum = 0.0;
  for (int n = 1; n < 400; n += 2) {
    const double k = n * std::numbers::pi / length;
    sum += std::cos(k * x) * std::exp(-eps * k * k * seconds) / (n * n);
  }
  const double pi_squared = std::numbers::pi * std::numbers::pi;
  return std::tan(angle) * (x - 0.5 * length + 4.0 * length / pi_squared * sum);
}

}  // namespace kelptest
