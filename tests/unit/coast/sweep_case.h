#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "coast/sweep.h"
#include "unit/run/small_model.h"

namespace kelptest {

/// A coast whose numbers stay exact: cells 2 m wide, RDEN 1 s/m, so that a cell moves by half of
/// the difference of its walls; the shoreline at 0 and no seawall.
template <std::size_t WALLS>
kelprun::Model exact_coast(const std::array<float, WALLS>& Q) {
  kelprun::Model m = small_model(static_cast<std::int32_t>(WALLS) - 1);
  m.grid.DX.fill(2.0f);
  m.transport.RDEN.fill(1.0f);
  m.shore.YSW.fill(-9999.0);
  put(m.transport.Q, Q);
  return m;
}

inline void sweep(kelprun::Model& m) {
  kelprun::move_shoreline(m.grid, m.inlets.INLC, m.shore, m.transport);
}

template <std::size_t CELLS>
void expect_shoreline(const kelprun::Model& m, const std::array<double, CELLS>& Y) {
  for (std::size_t k = 0; k < CELLS; ++k)
    EXPECT_EQ(m.shore.Y(static_cast<std::int64_t>(k) + 1), Y[k]) << "cell " << k + 1;
}

template <std::size_t WALLS>
void expect_transport(const kelprun::Model& m, const std::array<float, WALLS>& Q) {
  for (std::size_t k = 0; k < WALLS; ++k)
    EXPECT_EQ(m.transport.Q(static_cast<std::int64_t>(k) + 1), Q[k]) << "wall " << k + 1;
}

}  // namespace kelptest
