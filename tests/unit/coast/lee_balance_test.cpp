#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "coast/cell_update.h"
#include "coast/lee.h"
#include "coast/sediment_step.h"
#include "coast/structure_places.h"
#include "coast/structure_states.h"
#include "coast/sweep.h"
#include "unit/coast/lee_case.h"
#include "unit/coast/transport_case.h"

namespace kelprun {
namespace {

using kelptest::Random;

/// One or two breakwaters, or three that touch, with cells on both sides.
void place_breakwaters(Random& random, Model& m) {
  Breakwaters& b = m.breakwaters;
  std::int32_t cell = random.whole(2, 5);
  const bool touching = random.whole(0, 1) == 1;
  for (std::int32_t k = random.whole(1, 3); k >= 1; --k) {
    const std::int32_t end = cell + random.whole(1, 8);
    if (end > m.grid.NX) break;
    b.NDB += 1;
    b.DBI1.append(cell);
    b.DBI2.append(end);
    // One in four may be passed already; the others stand just ahead of the shoreline.
    const double nearest = random.whole(0, 3) == 0 ? 3.5 : 4.0;
    b.DBY1.append(random.real(nearest, 4.5));
    b.DBY2.append(random.real(nearest, 4.5));
    cell = touching ? end : end + random.whole(1, 3);
  }
}

/// Groins where breakwaters begin or end, and non-diffracting ones anywhere.
void place_groins(Random& random, Model& m) {
  for (std::int32_t k = 1; k <= m.breakwaters.NDB; ++k) {
    const std::int32_t wall =
        random.whole(0, 1) == 1 ? m.breakwaters.DBI1(k) : m.breakwaters.DBI2(k);
    if (random.whole(0, 2) != 0) continue;
    m.groins.ICSTR(wall - 1) = 2;
    m.groins.ICSTR(wall + 1) = 2;
    m.groins.ICSTR(wall) = random.whole(0, 1) == 1 ? 1 : 3 + random.whole(0, 1);
  }
  if (random.whole(0, 3) == 0) m.groins.ICSTR(random.whole(3, m.grid.NX - 1)) = -1;
}

void place_inlet(Random& random, Model& m) {
  if (random.whole(0, 3) != 0) return;
  const std::int32_t first = random.whole(3, m.grid.NX - 3);
  for (std::int32_t c = first; c <= first + random.whole(0, 1); ++c) m.inlets.INLC(c) = 1;
}

/// The share taken off at a tip, as the transport takes it where the next cell is in a lee.
void take_off(Random& random, Model& m) {
  Transport& t = m.transport;
  for (const LeeGroup& group : m.breakwaters.lee_groups)
    for (const std::int32_t wall : {group.I1, group.I2 + 1}) {
      const bool left = wall == group.I1;
      const std::int32_t state = m.breakwaters.IBWST(left ? wall : wall - 1);
      if (std::abs(state) != 1 || m.groins.ICSTR(wall) == 1 || m.groins.ICSTR(wall) == 3) continue;
      if (left ? t.Q(wall) <= 0.0f : t.Q(wall) >= 0.0f) continue;
      t.QBWTIP(wall) = t.Q(wall) * random.real(0.0, 0.5);
      t.Q(wall) -= t.QBWTIP(wall);
    }
}

/// A small coast with structures of every kind before its sweep; the shoreline lies close to the
/// breakwaters, so that many cells reach them.
Model random_coast(std::uint32_t seed) {
  Random random(seed);
  const std::int32_t NX = random.whole(10, 28);
  Model m = kelptest::small_model(NX);
  for (std::int32_t i = 1; i <= NX; ++i) {
    m.grid.DX(i) = random.real(20.0, 120.0);
    m.transport.RDEN(i) = random.real(300.0, 1000.0);
    m.shore.Y(i) = random.between(3.0, 4.0);
    const bool seawall = random.whole(0, 3) == 0;
    m.shore.YSWI(i) = seawall ? m.shore.Y(i) - random.between(0.0, 0.5) : -9999.0;
    // The sweep leaves the sources of a cell on its seawall out of its balance.
    if (!seawall && random.whole(0, 3) == 0) m.shore.DYSRC(i) = random.between(0.0, 0.001);
  }
  m.shore.YSW = m.shore.YSWI;
  place_breakwaters(random, m);
  place_groins(random, m);
  place_inlet(random, m);
  group_breakwaters(m.breakwaters);
  set_breakwater_lines(m.grid, m.breakwaters, m.shore);
  set_structure_states(m.grid, m.groins, m.breakwaters, m.shore, m.tips);
  const double drift = random.between(-0.1, 0.1);
  for (std::int32_t i = 1; i <= NX + 1; ++i)
    m.transport.Q(i) = random.real(drift - 0.05, drift + 0.05);
  take_off(random, m);
  for (std::int32_t i = 1; i <= NX; ++i) m.shore.YPREV(i) = m.shore.Y(i);
  // A placement beside an inlet, between the entry of the step and the sweep.
  m.shore.Y(random.whole(1, NX)) += 0.125;
  keep_base_of_lees(m.grid, m.breakwaters, m.shore);
  return m;
}

double rate_of(const Model& m, std::int32_t c, double distance) {
  return distance * static_cast<double>(m.grid.DX(c)) / static_cast<double>(m.transport.RDEN(c));
}

double brought(const Transport& t, std::int32_t c) {
  return static_cast<double>(t.Q(c)) - static_cast<double>(t.Q(c + 1));
}

bool takes_no_sand(const Model& m, std::int32_t c) {
  return m.inlets.INLC(c) == 1 || m.breakwaters.IBWST(c) == -2;
}

/// Rounding of the single-precision walls, m3/s; they carry up to about 0.3.
constexpr double ROUNDING = 3e-7;
constexpr std::uint32_t COASTS = 2000;

TEST(lee_balance, every_cell_holds_the_sand_that_its_walls_and_sources_brought) {
  std::int32_t moved_by_lee = 0;
  for (std::uint32_t seed = 1; seed <= COASTS; ++seed) {
    Model m = random_coast(seed);
    move_shoreline(m.grid, m.inlets.INLC, m.shore, m.transport);
    const Model swept = m;
    kelptest::fill(m);
    for (std::int32_t c = 1; c <= m.grid.NX; ++c) {
      const double gained = brought(m.transport, c) - brought(swept.transport, c);
      const double moved = rate_of(m, c, m.shore.Y(c) - swept.shore.Y(c));
      if (takes_no_sand(m, c)) {
        EXPECT_EQ(m.shore.Y(c), swept.shore.Y(c)) << "coast " << seed << " cell " << c;
        EXPECT_NEAR(gained, 0.0, ROUNDING) << "coast " << seed << " cell " << c;
      } else {
        EXPECT_NEAR(gained, moved, ROUNDING) << "coast " << seed << " cell " << c;
      }
      if (m.shore.Y(c) != swept.shore.Y(c)) ++moved_by_lee;
    }
  }
  EXPECT_GT(moved_by_lee, 2000);  // the coasts are worth the check
}

TEST(lee_balance, no_cell_passes_the_line_or_falls_behind_its_seawall) {
  std::int32_t on_line = 0;
  for (std::uint32_t seed = 1; seed <= COASTS; ++seed) {
    Model m = random_coast(seed);
    move_shoreline(m.grid, m.inlets.INLC, m.shore, m.transport);
    const Model swept = m;
    kelptest::fill(m);
    for (std::int32_t c = 1; c <= m.grid.NX; ++c) {
      if (swept.shore.Y(c) >= m.shore.YSW(c)) {
        EXPECT_GE(m.shore.Y(c), m.shore.YSW(c)) << "coast " << seed << " cell " << c;
      }
      if (m.breakwaters.IBWST(c) == 0 || takes_no_sand(m, c)) continue;
      EXPECT_LE(m.shore.Y(c), m.shore.YBW(c)) << "coast " << seed << " cell " << c;
      if (m.shore.Y(c) == m.shore.YBW(c)) ++on_line;
    }
  }
  EXPECT_GT(on_line, 500);
}

TEST(lee_balance, a_lee_gives_back_what_it_was_not_asked_for) {
  // What the lee and the two cells outside hold in the end is what their outer walls brought: the
  // sand between a tip and its lee is neither lost nor doubled.
  for (std::uint32_t seed = 1; seed <= COASTS; ++seed) {
    Model m = random_coast(seed);
    move_shoreline(m.grid, m.inlets.INLC, m.shore, m.transport);
    const Model swept = m;
    kelptest::fill(m);
    double moved = 0.0;
    for (std::int32_t c = 1; c <= m.grid.NX; ++c)
      moved += rate_of(m, c, m.shore.Y(c) - swept.shore.Y(c));
    const auto change = [&](std::int32_t wall) {
      return static_cast<double>(m.transport.Q(wall)) -
             static_cast<double>(swept.transport.Q(wall));
    };
    EXPECT_NEAR(moved, change(1) - change(m.grid.NX + 1), 28.0 * ROUNDING) << "coast " << seed;
  }
}

/// The position of each cell by the scheme, without the limits of the sweep, which knows left from
/// right.
void move_all(Model& m) {
  for (std::int32_t c = 1; c <= m.grid.NX; ++c)
    if (m.inlets.INLC(c) != 1)
      m.shore.Y(c) = moved_position(m.shore.YBASE(c), m.transport.RDEN(c), m.grid.DX(c),
                                    m.transport.Q(c), m.transport.Q(c + 1), m.shore.DYSRC(c));
}

bool has_mirror_image(const Model& m) {
  if (m.breakwaters.lee_groups.size() != 1) return false;
  const LeeGroup& group = m.breakwaters.lee_groups(1);
  for (std::int32_t i = group.I1 + 1; i <= group.I2; ++i)
    if (m.groins.ICSTR(i) == 1 || m.groins.ICSTR(i) == 3) return false;
  return (group.I2 - group.I1) % 2 == 1;
}

TEST(lee_balance, a_mirrored_lee_has_the_mirrored_shoreline) {
  std::int32_t compared = 0;
  for (std::uint32_t seed = 1; seed <= COASTS; ++seed) {
    Model m = random_coast(seed);
    if (!has_mirror_image(m)) continue;
    ++compared;
    move_all(m);
    Model r = kelptest::mirrored(m);
    kelptest::fill(m);
    kelptest::fill(r);
    const std::int32_t NX = m.grid.NX;
    for (std::int32_t c = 1; c <= NX; ++c)
      EXPECT_EQ(m.shore.Y(c), r.shore.Y(NX + 1 - c)) << "coast " << seed << " cell " << c;
    for (std::int32_t i = 1; i <= NX + 1; ++i)
      EXPECT_EQ(m.transport.Q(i), -r.transport.Q(NX + 2 - i)) << "coast " << seed << " wall " << i;
  }
  EXPECT_GT(compared, 200);
}

/// A breakwater on cells 8 to 15 of 22 under waves that drive sand to the right.
Model coast_with_breakwater() {
  Model m = kelptest::coast_under_waves(22, 5);
  m.waves.ZB.fill(0.3f);
  m.waves.HB.fill(1.5f);
  m.shore.ALPHA.fill(0.0f);
  m.profile.K1EFF(23) = 0.0f;
  m.shore.YSW.fill(-9999.0);
  m.shore.YSWI.fill(-9999.0);
  m.breakwaters.NDB = 1;
  m.breakwaters.DBI1.append(8);
  m.breakwaters.DBI2.append(16);
  m.breakwaters.DBY1.append(40.0f);
  m.breakwaters.DBY2.append(40.0f);
  group_breakwaters(m.breakwaters);
  set_breakwater_lines(m.grid, m.breakwaters, m.shore);
  return m;
}

void sediment_step(Model& m) {
  set_structure_states(m.grid, m.groins, m.breakwaters, m.shore, m.tips);
  SEDSTEP(m.settings, 1.0f, 0, m.grid, m.profile, m.boundaries, m.waves, m.groins, m.breakwaters,
          m.inlets, m.shore, m.transport);
}

TEST(lee_balance, a_sediment_step_fills_the_lee_before_it_adds_up_the_transport) {
  Model m = coast_with_breakwater();
  sediment_step(m);
  EXPECT_GT(m.transport.QBWTIP(8), 0.0f);
  EXPECT_GT(m.transport.QLEE(8), 0.0f);
  EXPECT_LT(m.transport.QLEE(8), m.transport.QBWTIP(8));
  EXPECT_EQ(m.transport.Q(8), m.transport.QSWEPT(8) + m.transport.QLEE(8));
  for (std::int32_t i = 1; i <= 23; ++i)
    EXPECT_EQ(m.transport.QRIGHT(i) + m.transport.QLEFT(i), m.transport.Q(i)) << i;
}

TEST(lee_balance, a_lee_builds_out_to_its_breakwater_and_no_farther) {
  // Waves in the lee are low, so that sand settles there.
  Model m = coast_with_breakwater();
  for (std::int32_t i = 9; i <= 16; ++i) m.waves.HB(i) = 0.05f;
  m.waves.CGB.fill(2.0f);
  double sand = 0.0;
  for (int n = 1; n <= 400; ++n) {
    sediment_step(m);
    sand += static_cast<double>(m.transport.Q(1)) - static_cast<double>(m.transport.Q(23));
    for (std::int32_t c = 8; c <= 15; ++c) EXPECT_LE(m.shore.Y(c), m.shore.YBWI(c)) << n;
  }
  EXPECT_EQ(m.shore.Y(8), m.shore.YBWI(8));
  EXPECT_EQ(m.breakwaters.IBWST(8), -1);
  double held = 0.0;
  for (std::int32_t c = 1; c <= 22; ++c) held += rate_of(m, c, m.shore.Y(c));
  EXPECT_NEAR(held, sand, 400 * 22 * ROUNDING);
}

}  // namespace
}  // namespace kelprun
