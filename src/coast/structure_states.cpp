#include "coast/structure_states.h"

#include <algorithm>

#include "model/constants.h"

namespace kelprun {

namespace {

/// The shoreline counts as level with a structure within this distance, m.
constexpr double EPS = static_cast<double>(0.001f);

/// Where a structure stands, seen from the shoreline.
enum class Standing { passed, level, ahead };

/// A distance of exactly EPS is ahead, one of exactly -EPS is level.
Standing standing(double structure, double shoreline) {
  const double DIF = structure - shoreline;
  if (DIF < -EPS) return Standing::passed;
  return DIF < EPS ? Standing::level : Standing::ahead;
}

double shoreline_at_groin(std::int32_t i, std::int32_t NX, const PerCell<double>& Y) {
  if (i == 1) return Y(1);
  return i == NX + 1 ? Y(NX) : std::max(Y(i - 1), Y(i));
}

std::int32_t groin_type(Standing tip) {
  if (tip == Standing::passed) return 4;
  return tip == Standing::level ? 3 : 1;
}

void set_groin_types(const Grid& grid, const PerCell<double>& Y, Groins& groins) {
  for (std::int32_t g = 1; g <= groins.NDG; ++g) {
    const std::int32_t i = groins.IXDG(g);
    const auto tip = static_cast<double>(groins.YDG(g));
    groins.ICSTR(i) = groin_type(standing(tip, shoreline_at_groin(i, grid.NX, Y)));
  }
}

/// A shoreline that has grown through the breakwater holds on to it as a seawall; behind all other
/// cells of breakwaters the seawall as built stays.
std::int32_t set_cell_state(std::int32_t c, Shore& shore) {
  const Standing line = standing(shore.YBWI(c), shore.Y(c));
  const bool passed = line == Standing::passed;
  shore.YBW(c) = passed ? NO_BREAKWATER_LINE : shore.YBWI(c);
  shore.YSW(c) = passed ? shore.YBWI(c) : shore.YSWI(c);
  if (passed) return -2;
  return line == Standing::level ? -1 : 1;
}

/// One passed cell makes the whole breakwater count as passed; the lines stay each cell's own.
void set_breakwater_state(std::int32_t first, std::int32_t last, PerWall<std::int32_t>& IBWST,
                          Shore& shore) {
  bool passed = false;
  for (std::int32_t c = first; c <= last; ++c) {
    IBWST(c) = set_cell_state(c, shore);
    passed = passed || IBWST(c) == -2;
  }
  if (!passed) return;
  for (std::int32_t c = first; c <= last; ++c) IBWST(c) = -2;
}

/// A tip stands at an end of a breakwater and never behind one, so that a passed cell on either
/// side of its wall belongs to a breakwater that ends there.
bool is_passed(std::int32_t wall, const Groins& groins, const Breakwaters& breakwaters) {
  return groins.ICSTR(wall) == 4 || breakwaters.IBWST(wall) == -2 ||
         (wall > 1 && breakwaters.IBWST(wall - 1) == -2);
}

}  // namespace

void set_structure_states(const Grid& grid, Groins& groins, Breakwaters& breakwaters, Shore& shore,
                          Tips& tips) {
  set_groin_types(grid, shore.Y, groins);
  for (std::int32_t k = 1; k <= breakwaters.NDB; ++k)
    set_breakwater_state(breakwaters.DBI1(k), breakwaters.DBI2(k) - 1, breakwaters.IBWST, shore);
  for (std::int32_t j = 1; j <= tips.tips.size(); ++j) {
    const std::int32_t wall = tips.tips(j).cell;
    const bool virtual_tip = wall < 1 || wall > grid.NX + 1;
    tips.TIPOFF(j) = !virtual_tip && is_passed(wall, groins, breakwaters) ? 1 : 0;
  }
}

}  // namespace kelprun
