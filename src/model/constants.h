#pragma once

#include <array>
#include <cstdint>
#include <limits>

namespace kelprun {

// Single and double precision are IEEE 754 here: an overflow in rounding to single is infinity, and
// a comparison with what is no number is false.
static_assert(std::numeric_limits<float>::is_iec559 && std::numeric_limits<double>::is_iec559);

/// Acceleration of gravity, m/s2, everywhere but in the dispersion relation, which has its own.
inline constexpr float G = 9.806f;

/// Pi as the model holds it: one step above the nearest single-precision value, and meant so.
inline constexpr float PI = 3.141593f;

/// Coefficients c1 to c9 of the Pade form of the linear dispersion relation (Hunt, J. N. 1979,
/// "Direct solution of wave dispersion equation", J. Waterway Port Coastal Ocean Div. ASCE 105(4)).
inline constexpr std::array<float, 9> PADE = {0.66667f, 0.35555f, 0.16084f, 0.0632f, 0.02174f,
                                              0.00654f, 0.00171f, 0.00039f, 0.00011f};

/// Ratio of significant to root-mean-square wave height.
inline constexpr float HEIGHT_RATIO = 1.416f;

/// 16 (s-1) (1-p) 1.416^(5/2) with s = 2.65 and p = 0.4: turns K1 into a transport coefficient.
inline constexpr float K1_DIVISOR = 37.793171f;
/// Half of K1_DIVISOR: turns K2 into a transport coefficient.
inline constexpr float K2_DIVISOR = 18.896585f;

/// Seconds in a year of 365.25 days.
inline constexpr float SECONDS_PER_YEAR = 31557600.0f;

/// What a bar keeps to grow again from, and an equilibrium volume of 0 becomes, m3 or cubic yards.
inline constexpr float LEAST_VOLUME = 0.00001f;

/// Factor from degrees to radians for THETADEL; it differs from PI/180 in the last places.
inline constexpr float RADIANS_PER_DEGREE = 0.017453294f;

/// What a breakwater line holds where no breakwater stands ahead of the shoreline, m.
inline constexpr double NO_BREAKWATER_LINE = 99999.0;
/// What a landward limit holds where no seawall stands, m.
inline constexpr float NO_SEAWALL_LINE = -9999.0f;

/// Time stamps above this value are calendar dates YYYYMMDD, all others are step numbers.
inline constexpr std::int32_t LAST_STEP_NUMBER = 18000000;

/// First cell and first wall of every run.
inline constexpr std::int32_t ISSTART = 1;

}  // namespace kelprun
