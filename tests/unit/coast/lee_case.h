#pragma once

#include <array>
#include <cstdint>

#include "coast/lee.h"
#include "unit/run/small_model.h"

namespace kelptest {

/// A coast whose numbers stay exact: cells 2 m wide, RDEN 1 s/m, so that a cell moves by half of
/// what its walls bring. The shoreline at 0, the transport 0, the lee of one group of breakwaters
/// on cells I1 to I2 with its line 100 m ahead. The end cells move freely.
inline kelprun::Model exact_lee(std::int32_t NX, std::int32_t I1, std::int32_t I2) {
  kelprun::Model m = small_model(NX);
  m.grid.DX.fill(2.0f);
  m.transport.RDEN.fill(1.0f);
  m.shore.YSW.fill(-9999.0);
  m.boundaries.left.QBC = m.boundaries.right.QBC = false;
  m.breakwaters.lee_groups.append({I1, I2});
  for (std::int32_t c = I1; c <= I2; ++c) {
    m.breakwaters.IBWST(c) = 1;
    m.shore.YBW(c) = 100.0;
  }
  return m;
}

/// The lees after a sweep that found the shoreline and the transport of the model.
inline void fill(kelprun::Model& m) {
  kelprun::fill_lees(m.grid, m.boundaries, m.groins, m.breakwaters, m.inlets.INLC, m.shore,
                     m.transport);
}

/// The same coast seen from the sea's other side: cells and walls in reverse, sand the other way.
inline kelprun::Model mirrored(const kelprun::Model& m) {
  kelprun::Model r = m;
  const std::int32_t NX = m.grid.NX;
  for (std::int32_t i = 1; i <= NX; ++i) {
    const std::int32_t c = NX + 1 - i;
    r.grid.DX(i) = m.grid.DX(c);
    r.transport.RDEN(i) = m.transport.RDEN(c);
    r.breakwaters.IBWST(i) = m.breakwaters.IBWST(c);
    r.inlets.INLC(i) = m.inlets.INLC(c);
    r.shore.Y(i) = m.shore.Y(c);
    r.shore.YBASE(i) = m.shore.YBASE(c);
    r.shore.YPREV(i) = m.shore.YPREV(c);
    r.shore.YBW(i) = m.shore.YBW(c);
    r.shore.YSW(i) = m.shore.YSW(c);
    r.shore.DYSRC(i) = m.shore.DYSRC(c);
  }
  for (std::int32_t i = 1; i <= NX + 1; ++i) {
    const std::int32_t wall = NX + 2 - i;
    r.transport.Q(i) = -m.transport.Q(wall);
    r.transport.QBWTIP(i) = -m.transport.QBWTIP(wall);
    r.groins.ICSTR(i) = m.groins.ICSTR(wall);
  }
  r.breakwaters.lee_groups = {};
  for (std::int32_t j = m.breakwaters.lee_groups.size(); j >= 1; --j) {
    const kelprun::LeeGroup& group = m.breakwaters.lee_groups(j);
    r.breakwaters.lee_groups.append({NX + 1 - group.I2, NX + 1 - group.I1});
  }
  return r;
}

}  // namespace kelptest
