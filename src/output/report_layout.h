#pragma once

#include <string_view>

#include "model/constants.h"
#include "model/settings.h"

/// Widths and unit words that the blocks of the report share.
namespace kelprun {

/// Columns of a value in the arrays of the report: heights and angles, and all else.
inline constexpr int HEIGHT_WIDTH = 7;
inline constexpr int POSITION_WIDTH = 11;

/// An angle of the model as the report writes it.
inline float degrees(float angle) { return angle * 180.0f / PI; }

inline constexpr std::string_view SIGN_CONVENTION = " SIGN CONVENTION:  EROSION (-), ACCRETION (+)";

/// The year block shows volumes in thousands where the largest gross volume is above a limit.
inline bool in_thousands(float QMAX) { return QMAX > 100000.0f; }

inline bool in_feet(const Settings& s) { return s.IUNITS == 2; }

inline std::string_view length_unit(const Settings& s) { return in_feet(s) ? "(FT)" : "(M)"; }

inline std::string_view volume_unit(const Settings& s) { return in_feet(s) ? "YARDS3" : "M3"; }

}  // namespace kelprun
