#include "coast/sediment_step.h"

#include <cmath>

#include "coast/lee.h"
#include "coast/relaxation.h"
#include "coast/sweep.h"
#include "coast/transport.h"
#include "inlets/mouths.h"

namespace kelprun {

namespace {

void sum_step(const Grid& grid, Transport& t) {
  for (std::int32_t i = 1; i <= grid.NX + 1; ++i) {
    const bool right = t.Q(i) > 0.0f;
    t.QRIGHT(i) += right ? t.Q(i) : 0.0f;
    t.QLEFT(i) += right ? 0.0f : t.Q(i);
    t.QGROSS(i) += std::abs(t.Q(i));
  }
}

}  // namespace

void set_boundary_walls(const Grid& grid, const Boundaries& b, Transport& t) {
  const std::int32_t NX = grid.NX;
  if (b.left.QBC) t.Q(1) = (grid.DX(1) * b.left.MOVSTEP) / t.RDEN(1) + t.Q(2);
  if (b.right.QBC) t.Q(NX + 1) = t.Q(NX) - (b.right.MOVSTEP * grid.DX(NX)) / t.RDEN(NX);
}

void SEDSTEP(const Settings& settings, float DT, std::int32_t CURDATE, const Grid& grid,
             const Profile& profile, const Boundaries& boundaries, const Waves& waves,
             const Groins& groins, const Breakwaters& breakwaters, Inlets& inlets, Shore& shore,
             Transport& transport) {
  const TransportConstants constants = transport_constants(DT, settings.GAMMA);
  clear_transport(constants, settings, grid, profile, waves, transport);
  for (std::int32_t i = 1; i <= grid.NX; ++i) shore.YPREV(i) = shore.Y(i);
  compute_transport(constants, settings, grid, profile, waves, shore, groins, breakwaters,
                    transport);
  // The relaxation follows, so that it may change the wall next to a pinned or moving end.
  set_boundary_walls(grid, boundaries, transport);
  route_inlets(CURDATE, constants.DTSEC, groins, inlets, shore, transport);
  relax_nodal_points(grid, transport.Q);
  keep_base_of_lees(grid, breakwaters, shore);
  move_shoreline(grid, inlets.INLC, shore, transport);
  fill_lees(grid, boundaries, groins, breakwaters, inlets.INLC, shore, transport);
  reset_mouths(inlets, transport);
  sum_step(grid, transport);
}

void CALMSTEP(const Grid& grid, const Profile& profile, const Boundaries& boundaries, float DT,
              Shore& shore) {
  const auto seconds = static_cast<double>(DT * 3600.0f);
  for (std::int32_t i = 1; i <= grid.NX; ++i) {
    const float height = profile.DCLOSCELL(i) + profile.BERMHTCELL(i);
    shore.Y(i) += shore.DYSRC(i) * seconds / static_cast<double>(height);
  }
  shore.Y(1) += static_cast<double>(boundaries.left.MOVSTEP);
  shore.Y(grid.NX) += static_cast<double>(boundaries.right.MOVSTEP);
}

}  // namespace kelprun
