#include "unit/waves/structured_coast.h"

#include <algorithm>
#include <array>
#include <numbers>

#include "waves/tip_list.h"
#include "waves/tip_waves.h"
#include "waves/wave_field.h"

namespace kelptest {

using kelprun::Model;
using kelprun::Tip;

std::vector<Tip> merged_tips(const CoastPlan& plan) {
  std::vector<Tip> tips;
  for (const BreakwaterPlan& b : plan.breakwaters) {
    tips.push_back({b.left, b.Y, b.D});
    tips.push_back({b.right, b.Y, b.D});
  }
  bool closed_left = false, closed_right = false;
  for (const GroinPlan& g : plan.groins) {
    tips.push_back({g.wall, g.Y, g.D});
    closed_left = closed_left || g.wall == 1;
    closed_right = closed_right || g.wall == plan.NX + 1;
    if (g.wall != 1 && g.wall != plan.NX + 1) tips.push_back({g.wall, g.Y, g.D});
  }
  std::stable_sort(tips.begin(), tips.end(),
                   [](const Tip& a, const Tip& b) { return a.cell < b.cell; });
  if (!closed_left) tips.insert(tips.begin(), {kelprun::LEFT_END_TIP, 0.0f, 0.0f});
  if (!closed_right) tips.push_back({kelprun::LAST_TIP, 0.0f, 0.0f});
  return tips;
}

namespace {

void set_groins(Model& m, const std::vector<GroinPlan>& groins) {
  for (const GroinPlan& g : groins) {
    ++m.groins.NGRP;
    m.groins.IXGRP.append(g.wall);
    m.groins.YGT.append(g.Y);
    m.groins.PGR.append(g.permeability);
    if (g.wall > 1) m.groins.ICSTR(g.wall - 1) = 2;
    if (g.wall < m.grid.NX + 1) m.groins.ICSTR(g.wall + 1) = 2;
  }
  for (const GroinPlan& g : groins) m.groins.ICSTR(g.wall) = g.type;
}

void set_breakwaters(Model& m, const CoastPlan& plan) {
  for (const BreakwaterPlan& b : plan.breakwaters) {
    ++m.breakwaters.NDB;
    m.breakwaters.DBI1.append(b.left);
    m.breakwaters.DBI2.append(b.right);
    m.breakwaters.TRANDB.append(b.KT);
    std::int32_t attached = 0;
    for (const GroinPlan& g : plan.groins) {
      if (g.wall == b.left) attached += 1, m.groins.IGSHAD(g.wall) += 1;
      if (g.wall == b.right) attached += 2, m.groins.IGSHAD(g.wall) += 2;
    }
    m.breakwaters.attached.append(attached);
    for (std::int32_t i = b.left; i < b.right; ++i) {
      m.breakwaters.IBWST(i) = b.state;
      m.shore.YBWI(i) = static_cast<double>(b.Y);
      m.shore.YBW(i) = b.state == -2 ? 99999.0 : static_cast<double>(b.Y);
    }
  }
}

}  // namespace

Model structured_coast(const CoastPlan& plan) {
  Model m = small_model(plan.NX);
  m.grid.DX.fill(plan.DX);
  m.grid.variable = !plan.widths.empty();
  for (std::size_t n = 0; n < plan.widths.size(); ++n)
    m.grid.DX(static_cast<std::int64_t>(n) + 1) = plan.widths[n];
  m.settings.ASHAPE = 0.1f;
  set_groins(m, plan.groins);
  set_breakwaters(m, plan);
  for (const Tip& tip : merged_tips(plan)) m.tips.tips.append(tip);
  kelprun::TIPLIST(m.grid, m.breakwaters, m.tips, m.zones, m.diffraction);
  for (std::int32_t j = 1; j <= m.tips.tips.size(); ++j) {
    const std::int32_t c = m.tips.tips(j).cell;
    if (c < 1) continue;
    const bool passed = m.groins.ICSTR(c) == 4 || m.breakwaters.IBWST(c) == -2 ||
                        (c > 1 && m.breakwaters.IBWST(c - 1) == -2);
    m.tips.TIPOFF(j) = passed ? 1 : 0;
  }
  return m;
}

void send_waves(Model& m, const OffshoreWave& wave) {
  const auto angle = static_cast<float>(wave.degrees * std::numbers::pi / 180.0);
  m.waves.pass = {wave.H, wave.T, static_cast<float>(wave.degrees),
                  static_cast<float>(wave.degrees)};
  m.waves.HRF.fill(wave.H);
  m.waves.TRF.fill(wave.T);
  m.waves.ZRF.fill(angle);
  m.waves.DRF.fill(wave.depth);
  kelprun::set_step_frequency(m.waves);
  kelprun::break_waves(m.settings, m.grid, m.waves, m.shore.ALPHAC);
  kelprun::set_tip_waves(m.tips, m.waves, m.shore.ALPHAC, m.diffraction.tip_waves);
}

namespace {

template <class T, std::size_t N>
T one_of(Random& random, const std::array<T, N>& values) {
  return values[static_cast<std::size_t>(random.whole(0, static_cast<std::int32_t>(N) - 1))];
}

GroinPlan random_groin(Random& random, std::int32_t wall, float Y, float D) {
  const float permeability = random.whole(0, 1) == 0 ? 0.0f : random.real(0.0, 1.0);
  return {wall, Y, D, permeability, one_of(random, std::array{1, 1, 1, 3, 4})};
}

BreakwaterPlan random_breakwater(Random& random, std::int32_t from, std::int32_t to, float Y,
                                 float D) {
  constexpr std::array SHARES{0.0f, 0.01f, 0.1f, 0.3f, 0.6f, 0.8f, 0.99f, 0.995f, 1.2f};
  const float KT = one_of(random, SHARES);
  return {from, to, Y, D, KT, one_of(random, std::array{1, 1, 1, 1, -2})};
}

/// Structures one after the other along the coast, with room between them.
CoastPlan random_plan(Random& random) {
  CoastPlan plan{random.whole(60, 110), random.real(8.0, 35.0), {}, {}, {}};
  std::int32_t wall = one_of(random, std::array{1, 3, 6, 12});
  while (wall < plan.NX - 18) {
    const float Y = random.real(20.0, 250.0);
    const float D = random.real(0.8, 9.0);
    const std::int32_t middle = wall + random.whole(2, 9);
    const std::int32_t beyond = middle + random.whole(2, 5);
    const auto groin = [&](std::int32_t at) {
      plan.groins.push_back(random_groin(random, at, Y, D));
    };
    const auto breakwater = [&](std::int32_t from, std::int32_t to) {
      plan.breakwaters.push_back(random_breakwater(random, from, to, Y, D));
    };
    const std::int32_t kind = random.whole(0, 6);
    if (kind == 0 || kind == 2 || kind == 6 || wall == 1) groin(wall);
    if (kind >= 1) breakwater(wall, middle);
    if (kind == 3 || kind == 5 || kind == 6) groin(middle);
    if (kind == 4 || kind == 5) breakwater(middle, beyond);
    wall = beyond + random.whole(2, 12);
  }
  if (random.whole(0, 3) == 0)
    plan.groins.push_back({plan.NX + 1, random.real(20.0, 250.0), random.real(0.8, 9.0), 0.0f, 1});
  if (random.whole(0, 2) == 0)
    for (std::int32_t i = 1; i <= plan.NX; ++i) plan.widths.push_back(random.real(8.0, 35.0));
  return plan;
}

/// A winding shoreline that here and there has reached a breakwater, or is about to.
void wind_shoreline(Random& random, Model& m) {
  double Y = random.between(-20.0, 20.0);
  for (std::int32_t i = 1; i <= m.grid.NX; ++i) {
    Y += random.between(-4.0, 4.0);
    m.shore.Y(i) = Y;
    m.shore.ALPHA(i) = random.real(-0.3, 0.3);
    if (m.breakwaters.IBWST(i) != 1) continue;
    const std::int32_t near = random.whole(0, 12);
    if (near == 0) m.breakwaters.IBWST(i) = -1;
    if (near == 0) m.shore.Y(i) = m.shore.YBWI(i);
    if (near == 1) m.shore.Y(i) = m.shore.YBWI(i) - 0.015;
  }
  m.shore.ALPHA(m.grid.NX + 1) = m.shore.ALPHA(m.grid.NX);
}

}  // namespace

Model random_sea(Random& random) {
  Model m = structured_coast(random_plan(random));
  m.settings.ASHAPE = random.real(0.05, 0.2);
  m.boundaries.left.GROINY = random.real(0.0, 100.0);
  m.boundaries.right.GROINY = random.real(0.0, 100.0);
  wind_shoreline(random, m);
  if (random.whole(0, 4) == 0) {
    const std::int32_t from = random.whole(5, m.grid.NX - 8);
    m.inlets.NINL = 1;
    m.inlets.IINLS = list(std::array{from});
    m.inlets.IINLE = list(std::array{from + 3});
    for (std::int32_t i = from; i <= from + 3; ++i) m.inlets.INLC(i) = 1;
  }
  const double degrees = random.whole(0, 5) == 0 ? 0.0 : random.between(-60.0, 60.0);
  send_waves(m, {random.real(0.3, 2.5), random.real(4.0, 12.0), degrees, random.real(6.0, 25.0)});
  return m;
}

}  // namespace kelptest
