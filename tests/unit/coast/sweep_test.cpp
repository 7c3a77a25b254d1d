#include "coast/sweep.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "unit/coast/sweep_case.h"

namespace kelprun {
namespace {

using kelptest::exact_coast;
using kelptest::expect_shoreline;
using kelptest::expect_transport;
using kelptest::sweep;

using Walls4 = std::array<float, 4>;
using Walls5 = std::array<float, 5>;
using Cells3 = std::array<double, 3>;
using Cells4 = std::array<double, 4>;

TEST(sweep, without_a_seawall_every_cell_moves_once_by_the_difference_of_its_walls) {
  // All orders of signs, zeros among them: the order of the sweep must not show.
  kelptest::Random random(41);
  for (int n = 0; n < 2000; ++n) {
    const std::int32_t NX = random.whole(1, 12);
    Model m = kelptest::small_model(NX);
    m.shore.YSW.fill(-9999.0);
    for (std::int32_t i = 1; i <= NX + 1; ++i) {
      m.transport.Q(i) = static_cast<float>(random.whole(-1, 1)) * random.real(0.001, 0.2);
      m.transport.RDEN(i) = random.real(100.0, 2000.0);
      m.grid.DX(i) = random.real(20.0, 200.0);
      m.shore.DYSRC(i) = random.whole(0, 3) == 0 ? random.between(-1e-4, 1e-4) : 0.0;
    }
    for (std::int32_t i = 1; i <= NX; ++i) m.shore.Y(i) = random.between(50.0, 150.0);
    const PerCell<double> Y = m.shore.Y;
    const PerWall<float> Q = m.transport.Q;
    sweep(m);
    for (std::int32_t i = 1; i <= NX; ++i) {
      const float ratio = m.transport.RDEN(i) / m.grid.DX(i);
      const float retreat = ratio * (Q(i + 1) - Q(i));
      const double placed = static_cast<double>(m.transport.RDEN(i)) * m.shore.DYSRC(i);
      ASSERT_EQ(m.shore.Y(i), Y(i) - static_cast<double>(retreat) + placed) << n;
    }
    for (std::int32_t i = 1; i <= NX + 1; ++i) ASSERT_EQ(m.transport.Q(i), Q(i)) << n;
  }
}

TEST(sweep, the_line_of_no_seawall_never_binds) {
  Model m = exact_coast(Walls4{0, 0, 19000, 19000});
  sweep(m);
  expect_shoreline(m, Cells3{0, -9500, 0});
}

TEST(sweep, a_right_going_cell_at_its_seawall_passes_on_only_the_sand_it_has) {
  // Cell 2 would retreat by 2 m and may by 0.5 m: 1 m3/s of its own joins the 1 that comes in.
  Model m = exact_coast(Walls4{1, 1, 5, 5});
  m.shore.YSW(2) = -0.5;
  sweep(m);
  expect_transport(m, Walls4{1, 1, 2, 5});
  expect_shoreline(m, Cells3{0, -0.5, -1.5});
}

TEST(sweep, a_cut_runs_on_to_the_right_along_a_seawall_of_many_cells) {
  Model m = exact_coast(Walls5{0, 4, 4, 4, 4});
  for (std::int32_t i = 1; i <= 3; ++i) m.shore.YSW(i) = 0.0;
  sweep(m);
  expect_transport(m, Walls5{0, 0, 0, 0, 4});
  expect_shoreline(m, Cells4{0, 0, 0, -2});
}

TEST(sweep, a_left_going_cell_at_its_seawall_passes_on_only_the_sand_it_has) {
  Model m = exact_coast(Walls4{-5, -5, -1, -1});
  m.shore.YSW(2) = -0.5;
  sweep(m);
  expect_transport(m, Walls4{-5, -2, -1, -1});
  expect_shoreline(m, Cells3{-1.5, -0.5, 0});
}

TEST(sweep, a_cut_runs_on_to_the_left_along_a_seawall_of_many_cells) {
  Model m = exact_coast(Walls5{-4, -4, -4, -4, 0});
  for (std::int32_t i = 2; i <= 4; ++i) m.shore.YSW(i) = 0.0;
  sweep(m);
  expect_transport(m, Walls5{-4, 0, 0, 0, 0});
  expect_shoreline(m, Cells4{-2, 0, 0, 0});
}

TEST(sweep, a_diverging_cell_at_its_seawall_scales_both_outflows_alike) {
  // Cell 2 loses 3 to the left and 1 to the right and may lose a quarter of it.
  Model m = exact_coast(Walls4{-3, -3, 1, 1});
  m.shore.YSW(2) = -0.5;
  sweep(m);
  expect_transport(m, Walls4{-3, -0.75f, 0.25f, 1});
  expect_shoreline(m, Cells3{-1.125, -0.5, -0.375});
}

TEST(sweep, a_diverging_cell_without_sand_left_moves_nothing) {
  Model m = exact_coast(Walls4{-3, -3, 1, 1});
  m.shore.YSW(2) = 0.0;
  sweep(m);
  expect_transport(m, Walls4{-3, 0, 0, 1});
  expect_shoreline(m, Cells3{-1.5, 0, -0.5});
}

TEST(sweep, a_converging_cell_receives_what_the_left_going_run_really_brings) {
  // The seawall at cell 3 cuts wall 3 from -6 to -3.
  Model m = exact_coast(Walls5{2, 2, -6, -2, -2});
  m.shore.YSW(3) = -0.5;
  sweep(m);
  expect_transport(m, Walls5{2, 2, -3, -2, -2});
  expect_shoreline(m, Cells4{0, 2.5, -0.5, 0});
}

TEST(sweep, a_converging_cell_receives_what_the_right_going_stretch_really_brings) {
  Model m = exact_coast(Walls5{0, 6, 6, -2, -2});
  m.shore.YSW(1) = -0.5;
  m.shore.YSW(2) = 0.0;
  sweep(m);
  expect_transport(m, Walls5{0, 1, 1, -2, -2});
  expect_shoreline(m, Cells4{-0.5, 0, 1.5, 0});
}

TEST(sweep, a_converging_last_cell_but_one_receives_what_the_last_cell_really_brings) {
  Model m = exact_coast(Walls5{2, 2, 2, -6, -2});
  m.shore.YSW(4) = -0.5;
  sweep(m);
  expect_transport(m, Walls5{2, 2, 2, -3, -2});
  expect_shoreline(m, Cells4{0, 0, 2.5, -0.5});
}

TEST(sweep, behind_a_converging_last_cell_but_one_a_diverging_last_cell_is_cut_on_its_left_alone) {
  // Cell 4 loses sand on both sides, and is still treated as one that sand leaves to the left:
  // wall 4 becomes 3 + 2 (-0.5) = 2, so that nothing converges in cell 3 any more.
  Model m = exact_coast(Walls5{2, 2, 2, -1, 3});
  m.shore.YSW(4) = -0.5;
  sweep(m);
  expect_transport(m, Walls5{2, 2, 2, 2, 3});
  expect_shoreline(m, Cells4{0, 0, 0, -0.5});
}

TEST(sweep, a_converging_last_cell_moves_without_looking_at_its_seawall) {
  Model m = exact_coast(Walls4{2, 2, 2, -4});
  m.shore.YSW(3) = 10.0;
  sweep(m);
  expect_transport(m, Walls4{2, 2, 2, -4});
  expect_shoreline(m, Cells3{0, 0, 3});
}

TEST(sweep, a_converging_cell_behind_its_seawall_is_lifted_and_draws_the_sand_from_its_left_wall) {
  // It is the last of the walk down: wall 2 becomes -2 + 2 (10 - 0) = 18.
  Model m = exact_coast(Walls5{2, 2, -2, -2, -2});
  m.shore.YSW(2) = 10.0;
  sweep(m);
  expect_transport(m, Walls5{2, 18, -2, -2, -2});
  expect_shoreline(m, Cells4{0, 10, 0, 0});
}

TEST(sweep, a_left_going_run_that_reaches_the_last_cell_keeps_the_outer_wall) {
  Model m = exact_coast(Walls4{-5, -5, -5, -1});
  m.shore.YSW(3) = -0.5;
  sweep(m);
  expect_transport(m, Walls4{-5, -5, -2, -1});
  expect_shoreline(m, Cells3{0, -1.5, -0.5});
  Model closed = exact_coast(Walls4{-5, -5, -5, 0});
  closed.shore.YSW(3) = -0.5;
  sweep(closed);
  expect_transport(closed, Walls4{-5, -5, -1, 0});
}

TEST(sweep, an_outer_wall_without_transport_still_counts_as_left_going) {
  // The inner wall becomes exactly what the cell may lose; sharing it out would round it otherwise.
  kelptest::Random random(43);
  for (int n = 0; n < 200; ++n) {
    Model m = kelptest::small_model(2);
    m.shore.YSW.fill(-9999.0);
    m.grid.DX(2) = random.real(20.0, 200.0);
    m.transport.RDEN.fill(random.real(100.0, 2000.0));
    kelptest::put(m.transport.Q, std::array{-0.5f, random.real(-0.6, -0.4), 0.0f});
    const float retreat = random.real(-0.05, -0.01);
    m.shore.YSW(2) = static_cast<double>(retreat);
    const float cut = m.grid.DX(2) * (retreat / m.transport.RDEN(2));
    sweep(m);
    EXPECT_EQ(m.shore.Y(2), static_cast<double>(retreat));
    EXPECT_EQ(m.transport.Q(2), cut);
    EXPECT_EQ(m.transport.Q(3), 0.0f);
  }
}

TEST(sweep, a_wall_without_transport_ends_a_left_going_run) {
  // Cell 2 is the top of the first run. Cell 3 comes later, is lifted to its seawall and draws
  // 18 m3/s through the wall between them: cell 2 has moved already.
  Model m = exact_coast(std::array<float, 6>{-2, -2, 0, -2, -2, -2});
  m.shore.YSW(3) = 10.0;
  sweep(m);
  expect_transport(m, std::array<float, 6>{-2, -2, 18, -2, -2, -2});
  expect_shoreline(m, std::array<double, 5>{0, -1, 10, 0, 0});
}

TEST(sweep, a_last_cell_that_loses_sand_through_both_walls_is_diverging) {
  Model m = exact_coast(Walls4{-3, -3, -3, 1});
  m.shore.YSW(3) = -0.5;
  sweep(m);
  expect_transport(m, Walls4{-3, -3, -0.75f, 0.25f});
  expect_shoreline(m, Cells3{0, -1.125, -0.5});
}

TEST(sweep, a_run_that_starts_at_the_last_cell_counts_as_reaching_it) {
  // A coast of one cell, and a run that a repair creates: cell 1 is lifted by 1.5 m and draws the
  // 3 m3/s for it from its right wall, which thereby turns to -2.
  Model one = exact_coast(std::array<float, 2>{-4, 0});
  one.shore.YSW(1) = -0.5;
  sweep(one);
  EXPECT_EQ(one.transport.Q(1), -1.0f);
  EXPECT_EQ(one.transport.Q(2), 0.0f);
  EXPECT_EQ(one.shore.Y(1), -0.5);

  Model two = exact_coast(std::array<float, 3>{1, 1, 0});
  two.shore.Y(1) = -1.5;
  two.shore.YSW(1) = 0.0;
  two.shore.YSW(2) = -0.25;
  sweep(two);
  EXPECT_EQ(two.shore.Y(1), 0.0);
  EXPECT_EQ(two.shore.Y(2), -0.25);
  EXPECT_EQ(two.transport.Q(2), -0.5f) << "cut to what cell 2 may lose";
}

TEST(sweep, a_shoreline_behind_its_seawall_is_lifted_to_it_when_it_erodes) {
  Model m = exact_coast(Walls4{1, 1, 2, 2});
  m.shore.Y.fill(-3.0);
  m.shore.YSW(2) = -1.0;
  sweep(m);
  // The lift of 2 m takes 4 m3/s: wall 3 turns to 1 - 4, and cell 3 gives them.
  EXPECT_EQ(m.shore.Y(2), -1.0);
  EXPECT_EQ(m.transport.Q(3), -3.0f);
  EXPECT_EQ(m.shore.Y(3), -3.0 - 0.5 * (2.0 + 3.0));
  EXPECT_EQ(m.shore.Y(1), -3.0) << "outside the seawall nothing is lifted";
}

TEST(sweep, inlet_cells_are_skipped_and_their_walls_are_not_repaired) {
  for (const float direction : {1.0f, -1.0f}) {
    Model m = exact_coast(Walls5{0, direction, 3.0f * direction, 7.0f * direction, 0});
    m.shore.YSW(2) = 0.0;
    m.shore.YSW(3) = 0.0;
    m.inlets.INLC(2) = 1;
    m.inlets.INLC(3) = 1;
    sweep(m);
    expect_transport(m, Walls5{0, direction, 3.0f * direction, 7.0f * direction, 0});
    EXPECT_EQ(m.shore.Y(2), 0.0);
    EXPECT_EQ(m.shore.Y(3), 0.0);
    EXPECT_EQ(m.shore.Y(1), -0.5 * static_cast<double>(direction));
    EXPECT_EQ(m.shore.Y(4), 3.5 * static_cast<double>(direction));
  }
}

TEST(sweep, a_diverging_or_converging_inlet_cell_is_skipped_too) {
  Model diverging = exact_coast(Walls4{-1, -1, 1, 1});
  diverging.inlets.INLC(2) = 1;
  diverging.shore.YSW(2) = 0.0;
  sweep(diverging);
  expect_transport(diverging, Walls4{-1, -1, 1, 1});
  expect_shoreline(diverging, Cells3{0, 0, 0});
  Model converging = exact_coast(Walls4{1, 1, 1, -1});
  converging.inlets.INLC(3) = 1;
  sweep(converging);
  expect_shoreline(converging, Cells3{0, 0, 0});
}

TEST(sweep, a_source_moves_the_cell_and_the_repair_of_its_wall_leaves_it_out) {
  // YN = 0 - 2 + 1 = -1 lies behind -0.5; the wall still becomes 1 + 2 0.5.
  Model m = exact_coast(Walls4{1, 1, 5, 5});
  m.shore.DYSRC(2) = 1.0;
  m.shore.YSW(2) = -0.5;
  sweep(m);
  expect_transport(m, Walls4{1, 1, 2, 5});
  EXPECT_EQ(m.shore.Y(2), -0.5);
  Model enough = exact_coast(Walls4{1, 1, 5, 5});
  enough.shore.DYSRC(2) = 1.75;
  enough.shore.YSW(2) = -0.5;
  sweep(enough);
  expect_transport(enough, Walls4{1, 1, 5, 5});
  EXPECT_EQ(enough.shore.Y(2), -0.25);
}

TEST(sweep, a_cell_that_comes_to_stand_exactly_on_its_seawall_is_not_repaired) {
  Model m = exact_coast(Walls4{1, 1, 5, 5});
  m.shore.YSW(2) = -2.0;
  sweep(m);
  expect_transport(m, Walls4{1, 1, 5, 5});
  expect_shoreline(m, Cells3{0, -2, 0});
  // With a source of 1 m: a repair would leave it out and change the wall.
  Model fed = exact_coast(Walls4{1, 1, 5, 5});
  fed.shore.DYSRC(2) = 1.0;
  fed.shore.YSW(2) = -1.0;
  sweep(fed);
  expect_transport(fed, Walls4{1, 1, 5, 5});
  expect_shoreline(fed, Cells3{0, -1, 0});
}

TEST(sweep, the_retreat_to_a_seawall_counts_from_the_shoreline_in_single_precision) {
  const double Y = 100.0 + 1e-6;  // 100 in single precision
  const double limit = 99.5;
  Model right = exact_coast(Walls4{1, 1, 5, 5});
  right.shore.Y(2) = Y;
  right.shore.YSW(2) = limit;
  sweep(right);
  EXPECT_EQ(right.transport.Q(3), 2.0f);
  Model diverging = exact_coast(Walls4{-3, -3, 1, 1});
  diverging.shore.Y(2) = Y;
  diverging.shore.YSW(2) = limit;
  sweep(diverging);
  EXPECT_EQ(diverging.transport.Q(2), -0.75f);
}

TEST(sweep, the_sand_balance_of_every_cell_stands_whatever_seawalls_bind) {
  // Pinned ends, and no shoreline behind its seawall: what the cells gain is what the walls, as
  // they stand afterwards, bring in.
  kelptest::Random random(42);
  std::int32_t bound = 0;
  for (int n = 0; n < 2000; ++n) {
    const std::int32_t NX = random.whole(4, 30);
    Model m = kelptest::small_model(NX);
    m.shore.YSW.fill(-9999.0);
    for (std::int32_t i = 1; i <= NX + 1; ++i) {
      m.transport.Q(i) = random.real(-0.2, 0.2);
      m.transport.RDEN(i) = random.real(100.0, 2000.0);
      m.grid.DX(i) = random.real(20.0, 200.0);
    }
    m.transport.Q(1) = m.transport.Q(2);
    m.transport.Q(NX + 1) = m.transport.Q(NX);
    for (std::int32_t i = 1; i <= NX; ++i) {
      m.shore.Y(i) = random.between(50.0, 150.0);
      if (random.whole(0, 1) == 0)
        m.shore.YSW(i) =
            static_cast<double>(static_cast<float>(m.shore.Y(i))) - random.between(0.001, 1.0);
    }
    const PerCell<double> Y = m.shore.Y;
    sweep(m);
    double gained = 0.0;
    for (std::int32_t i = 1; i <= NX; ++i) {
      ASSERT_GE(m.shore.Y(i), m.shore.YSW(i));
      bound += m.shore.Y(i) == m.shore.YSW(i) ? 1 : 0;
      const double gain = (m.shore.Y(i) - Y(i)) * static_cast<double>(m.grid.DX(i)) /
                          static_cast<double>(m.transport.RDEN(i));
      const double supply =
          static_cast<double>(m.transport.Q(i)) - static_cast<double>(m.transport.Q(i + 1));
      // A position of 150 m has its last single-precision digit at 8e-6 m, which is up to
      // 8e-6 200/100 m3/s.
      ASSERT_NEAR(gain, supply, 2e-5) << "row " << n << " cell " << i;
      gained += gain;
    }
    const double brought =
        static_cast<double>(m.transport.Q(1)) - static_cast<double>(m.transport.Q(NX + 1));
    ASSERT_NEAR(gained, brought, 1e-4);
  }
  EXPECT_GT(bound, 5000) << "the seawalls were really at work";
}

}  // namespace
}  // namespace kelprun
