#include "input/stations.h"

namespace kelprun {

PerWall<StationPlace> place_walls_between(const Grid& grid, const Array1<std::int32_t>& end_cells) {
  const std::int32_t stations = end_cells.size();
  PerWall<StationPlace> places;
  places.take(grid.NX);
  std::int32_t p = 1;
  for (std::int32_t i = 1; i <= grid.NX + 1; ++i) {
    const std::int32_t s = end_cells(p) <= i ? p + 1 : p;
    StationPlace& place = places(i);
    std::int32_t lower_wall = 1;
    std::int32_t upper_wall = grid.NX + 1;
    if (s > 1) {
      place.lower = s - 1;
      lower_wall = end_cells(s - 1);
    }
    if (s <= stations) {
      place.upper = s;
      upper_wall = end_cells(s);
      p = s;
    } else {
      place.upper = stations;
      p = stations;
    }
    const float distance = grid.XCELL(upper_wall) - grid.XCELL(lower_wall);
    if (distance != 0.0f) place.fraction = (grid.XCELL(i) - grid.XCELL(lower_wall)) / distance;
  }
  return places;
}

}  // namespace kelprun
