#include "coast/seawalls.h"

#include <algorithm>

#include "model/constants.h"

namespace kelprun {

namespace {

void set_one_seawall(const Seawalls& s, std::int32_t k, float CONV, const Grid& grid,
                     Shore& shore) {
  const std::int32_t b = s.ISWBEG(k);
  const std::int32_t e = s.ISWEND(k);
  const auto set_limit = [&](std::int32_t i, float position) {
    shore.YSW(i) = static_cast<double>(position * CONV - shore.YREG(i));
  };
  set_limit(b, s.SWY1(k));
  set_limit(e, s.SWY2(k));
  for (std::int32_t i = b + 1; i < e; ++i) {
    const float part = (grid.XCELL(i) - grid.XCELL(b)) / (grid.XCELL(e) - grid.XCELL(b));
    set_limit(i, s.SWY1(k) + part * (s.SWY2(k) - s.SWY1(k)));
  }
}

}  // namespace

void set_seawall_limits(const Settings& settings, const Grid& grid, const Seawalls& seawalls,
                        Shore& shore) {
  shore.YSW.fill(static_cast<double>(NO_SEAWALL_LINE));
  if (seawalls.NSW < 1) return;
  for (std::int32_t i = 1; i <= grid.NX; ++i) {
    const float far_landward = NO_SEAWALL_LINE * settings.CONV - shore.YREG(i);
    shore.YSW(i) = std::min(shore.Y(i), static_cast<double>(far_landward));
  }
  for (std::int32_t k = 1; k <= seawalls.NSW; ++k)
    set_one_seawall(seawalls, k, settings.CONV, grid, shore);
}

}  // namespace kelprun
