#pragma once

#include <cstdint>

/// The most that a run may hold of each thing. Exceeding one is refused after the configuration
/// has been read; storage itself is sized by what the configuration asks for.
namespace kelprun::capacity {

inline constexpr std::int32_t CELLS = 4000;
inline constexpr std::int32_t SPANS = CELLS + 1;
inline constexpr std::int32_t NON_DIFFRACTING_GROINS = 250;
inline constexpr std::int32_t DIFFRACTING_GROINS = 250;
inline constexpr std::int32_t BREAKWATERS = 125;
inline constexpr std::int32_t BYPASS_OPERATIONS = 250;
inline constexpr std::int32_t FILLS = 250;
inline constexpr std::int32_t SEAWALLS = 4000;
inline constexpr std::int32_t PRINT_DATES = 500;
inline constexpr std::int32_t WAVE_EVENTS = 2000000;
inline constexpr std::int32_t WAVE_FILES = 4000;
inline constexpr std::int32_t WATER_LEVELS = 100000;
inline constexpr std::int32_t TIDAL_RECORDS = 100000;
inline constexpr std::int32_t TIDAL_FILES = 4000;
inline constexpr std::int32_t INLETS = 250;
inline constexpr std::int32_t DREDGE_EVENTS = 25000;
inline constexpr std::int32_t BUDGET_ITEMS = 500;

inline constexpr int CONFIGURATION_LINE = 255;
inline constexpr int FILE_NAME = 255;
inline constexpr int ARGUMENT = 256;
inline constexpr int TITLE = 64;
inline constexpr int KEYWORD = 15;
inline constexpr int UNIT_TEXT = 6;

}  // namespace kelprun::capacity
