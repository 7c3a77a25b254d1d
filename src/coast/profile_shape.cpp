#include "coast/profile_shape.h"

#include <cmath>

namespace kelprun {

float profile_shape_factor(float D50) {
  if (D50 < 0.4f) return 0.41f * std::pow(D50, 0.94f);
  if (D50 < 10.0f) return 0.23f * std::pow(D50, 0.32f);
  if (D50 < 40.0f) return 0.23f * std::pow(D50, 0.28f);
  return 0.46f * std::pow(D50, 0.11f);
}

float beach_slope(float ASHAPE, float DLTZ) { return std::sqrt(ASHAPE * ASHAPE * ASHAPE / DLTZ); }

}  // namespace kelprun
