#include "inlets/shoals.h"

#include <gtest/gtest.h>

#include "unit/inlets/shoal_case.h"

// Volumes, rates and steps are chosen so that every intermediate number is a short binary fraction,
// but where a trace is left in a bar: the expected values are worked by hand and hold to the last
// bit.

namespace kelprun {
namespace {

using kelptest::volumes_of;
using Volumes = std::array<float, 6>;

constexpr float STEP = 1000.0f;  // s
constexpr float LEAST_BAR = 0.00001f;

/// One inlet: ebb and flood shoal with their equilibrium volumes; a quarter of the bypass bars of
/// 200 000 m3 and a half of the attachment bars of 100 000 m3 is filled.
Inlets shoals(float VE, float VEQ, float VF, float VFQ) {
  Inlets n = kelptest::empty_inlets(1);
  n.VVSE(1) = VE;
  n.VVSEQ(1) = VEQ;
  n.VVSF(1) = VF;
  n.VVSFQ(1) = VFQ;
  n.VVSBL(1) = n.VVSBR(1) = 50000.0f;
  n.VVSBQL(1) = n.VVSBQR(1) = 200000.0f;
  n.VVSAL(1) = n.VVSAR(1) = 50000.0f;
  n.VVSAQL(1) = n.VVSAQR(1) = 100000.0f;
  return n;
}

/// A quarter of the ebb shoal and three quarters of the flood shoal, 3/8 of both.
Inlets partly_filled() { return shoals(750000.0f, 3000000.0f, 750000.0f, 1000000.0f); }

float route(Inlets& n, float QIN, InletMouth mouth = InletMouth::left) {
  return SHOALROUTE(mouth, QIN, 1, STEP, n);
}

void expect_same(const InletSide& side, const InletSide& other) {
  EXPECT_EQ(side.Qie, other.Qie);
  EXPECT_EQ(side.Qc, other.Qc);
  EXPECT_EQ(side.Qeb, other.Qeb);
  EXPECT_EQ(side.Qba, other.Qba);
  EXPECT_EQ(side.Qout, other.Qout);
  EXPECT_EQ(side.VQIE, other.VQIE);
  EXPECT_EQ(side.VQC, other.VQC);
  EXPECT_EQ(side.VQOUT, other.VQOUT);
}

/// What 1 m3/s for 1000 s does to the partly filled inlet. 3/8 of the sand passes the channel, 5/8
/// falls into it; the deficits are 3/4 and 1/4, so that the ebb shoal gets 3/4 of the channel's.
void expect_partly_filled_side(const InletSide& side) {
  EXPECT_EQ(side.Qie, 0.375f);
  EXPECT_EQ(side.Qc, 0.625f);
  EXPECT_EQ(side.Qeb, 0.2109375f);      // 1/4 of 0.375 + 0.46875
  EXPECT_EQ(side.Qba, 0.052734375f);    // 1/4 of that
  EXPECT_EQ(side.Qout, 0.0263671875f);  // 1/2 of that
  EXPECT_EQ(side.VQIE, 375.0f);
  EXPECT_EQ(side.VQC, 625.0f);
  EXPECT_EQ(side.VQOUT, 26.3671875f);
}

}  // namespace

TEST(shoals, each_reservoir_passes_on_the_share_that_is_filled_and_keeps_the_rest) {
  Inlets n = partly_filled();
  EXPECT_EQ(route(n, 1.0f), 0.0263671875f);
  const InletFlow& flow = n.flows(1);
  expect_partly_filled_side(flow.right);
  EXPECT_EQ(flow.Qce, 0.46875f);
  EXPECT_EQ(flow.Qfe, 0.0f);
  EXPECT_EQ(flow.VQIN, 1000.0f);
  EXPECT_EQ(flow.VQOUT, 26.3671875f);
  EXPECT_EQ(volumes_of(n, 1),
            (Volumes{50000.0f, 50000.0f, 750632.8125f, 750156.25f, 50158.203125f, 50026.3671875f}));
}

TEST(shoals, sand_from_the_left_leaves_the_bars_and_the_record_of_the_left_alone) {
  Inlets n = partly_filled();
  route(n, 1.0f);
  expect_same(n.flows(1).left, InletSide{});
  EXPECT_EQ(n.VVSBL(1), 50000.0f);
  EXPECT_EQ(n.VVSAL(1), 50000.0f);
}

TEST(shoals, sand_from_the_right_is_negative_and_comes_out_on_the_left) {
  Inlets n = partly_filled();
  EXPECT_EQ(route(n, -1.0f, InletMouth::right), 0.0263671875f);
  const InletFlow& flow = n.flows(1);
  expect_partly_filled_side(flow.left);
  expect_same(flow.right, InletSide{});
  EXPECT_EQ(flow.Qce, 0.46875f);
  EXPECT_EQ(flow.VQIN, 1000.0f);
  EXPECT_EQ(flow.VQOUT, 26.3671875f);
  EXPECT_EQ(volumes_of(n, 1),
            (Volumes{50026.3671875f, 50158.203125f, 750632.8125f, 750156.25f, 50000.0f, 50000.0f}));
}

TEST(shoals, bars_of_one_side_may_differ_from_those_of_the_other) {
  Inlets n = partly_filled();
  n.VVSBL(1) = 100000.0f;   // a half
  n.VVSAQL(1) = 400000.0f;  // an eighth is filled
  route(n, -1.0f, InletMouth::right);
  EXPECT_EQ(n.flows(1).left.Qba, 0.10546875f);
  EXPECT_EQ(n.flows(1).left.Qout, 0.01318359375f);
}

TEST(shoals, only_the_routed_inlet_moves) {
  Inlets n = kelptest::empty_inlets(3);
  for (std::int32_t k = 1; k <= 3; ++k) n.VVSE(k) = 500000.0f;
  const Volumes before = volumes_of(n, 1);
  SHOALROUTE(InletMouth::left, 1.0f, 2, STEP, n);
  EXPECT_GT(n.VVSE(2), 500000.0f);
  EXPECT_EQ(n.flows(2).VQIN, 1000.0f);
  for (const std::int32_t k : {1, 3}) {
    EXPECT_EQ(volumes_of(n, k), before);
    EXPECT_EQ(n.flows(k).VQIN, 0.0f);
    expect_same(n.flows(k).right, InletSide{});
  }
}

TEST(shoals, of_both_sides_share_ebb_and_flood_shoal_so_that_the_second_sees_what_the_first_left) {
  // All that arrives falls into the channel of an empty inlet, half for each shoal.
  Inlets n = shoals(0.0f, 1024.0f, 0.0f, 1024.0f);
  SHOALROUTE(InletMouth::left, 1.0f, 1, 1024.0f, n);
  EXPECT_EQ(n.VVSE(1), 512.0f);
  EXPECT_EQ(n.VVSF(1), 512.0f);
  // Now both are half full: half of the sand falls into the channel, a quarter for each shoal; the
  // ebb shoal passes on half of its 3/4.
  SHOALROUTE(InletMouth::right, -1.0f, 1, 1024.0f, n);
  EXPECT_EQ(n.flows(1).left.Qie, 0.5f);
  EXPECT_EQ(n.flows(1).left.Qc, 0.5f);
  EXPECT_EQ(n.flows(1).left.Qeb, 0.375f);
  EXPECT_EQ(n.VVSF(1), 768.0f);
  EXPECT_EQ(n.VVSE(1), 896.0f);
}

TEST(shoals, a_side_without_sand_keeps_its_rates_and_the_common_rates_are_those_of_the_last_side) {
  Inlets n = partly_filled();
  route(n, 1.0f);
  const InletSide right = n.flows(1).right;
  n.VVSE(1) = 1500000.0f;  // half
  n.VVSF(1) = 1500000.0f;  // one and a half
  n.VVSAL(1) = 100000.0f;  // full
  n.VVSBL(1) = 200000.0f;  // full
  route(n, -1.0f, InletMouth::right);
  expect_same(n.flows(1).right, right);
  EXPECT_EQ(n.flows(1).Qce, 0.25f);   // a quarter into the channel, all of it for the ebb shoal
  EXPECT_EQ(n.flows(1).Qfe, 500.0f);  // 500 000 m3 in 1000 s
}

TEST(shoals, moved_volumes_add_up_over_the_calls) {
  Inlets n = partly_filled();
  double VQIN = 0.0;
  double right_out = 0.0;
  double left_out = 0.0;
  double left_in = 0.0;
  for (int step = 1; step <= 40; ++step) {
    right_out += static_cast<double>(route(n, 2.0f)) * 1000.0;
    left_out += static_cast<double>(route(n, -1.0f, InletMouth::right)) * 1000.0;
    left_in += 1000.0;
    VQIN += 3000.0;
  }
  const InletFlow& flow = n.flows(1);
  EXPECT_EQ(flow.VQIN, static_cast<float>(VQIN));
  EXPECT_NEAR(static_cast<double>(flow.right.VQOUT), right_out, 1e-6 * right_out);
  EXPECT_NEAR(static_cast<double>(flow.left.VQOUT), left_out, 1e-6 * left_out);
  EXPECT_NEAR(static_cast<double>(flow.VQOUT), right_out + left_out, 1e-6 * right_out);
  EXPECT_NEAR(static_cast<double>(flow.left.VQIE + flow.left.VQC), left_in, 1e-6 * left_in);
  EXPECT_NEAR(static_cast<double>(flow.right.VQIE + flow.right.VQC), 80000.0, 0.08);
}

TEST(shoals, empty_shoals_share_all_sand_in_halves) {
  Inlets n = shoals(0.0f, 3000000.0f, 0.0f, 1000000.0f);
  EXPECT_EQ(route(n, 1.0f), 0.0f);
  EXPECT_EQ(n.flows(1).right.Qie, 0.0f);
  EXPECT_EQ(n.flows(1).right.Qc, 1.0f);
  EXPECT_EQ(n.flows(1).Qce, 0.5f);
  EXPECT_EQ(n.VVSE(1), 500.0f);
  EXPECT_EQ(n.VVSF(1), 500.0f);
}

TEST(shoals, full_ones_pass_all_sand_on_at_once_past_the_channel) {
  Inlets n = shoals(3000000.0f, 3000000.0f, 1000000.0f, 1000000.0f);
  route(n, 1.0f);
  const InletFlow& flow = n.flows(1);
  EXPECT_EQ(flow.right.Qie, 1.0f);
  EXPECT_EQ(flow.right.Qc, 0.0f);
  EXPECT_EQ(flow.Qce, 0.0f);
  EXPECT_EQ(flow.Qfe, 0.0f);
  EXPECT_EQ(flow.right.Qeb, 1.0f);
  EXPECT_EQ(n.VVSE(1), 3000000.0f);
  EXPECT_EQ(n.VVSF(1), 1000000.0f);
}

TEST(shoals, a_chain_that_is_full_gives_back_what_arrives) {
  Inlets n = shoals(3000000.0f, 3000000.0f, 1000000.0f, 1000000.0f);
  n.VVSBR(1) = 200000.0f;
  n.VVSAR(1) = 100000.0f;
  const Volumes before = volumes_of(n, 1);
  EXPECT_EQ(route(n, 1.0f), 1.0f);
  EXPECT_EQ(n.flows(1).right.Qba, 1.0f);
  EXPECT_EQ(n.flows(1).VQOUT, n.flows(1).VQIN);
  EXPECT_EQ(volumes_of(n, 1), before);
}

// A deficit and a surplus of the same share leave nothing to divide by: all of the channel's sand
// goes to the ebb shoal.
TEST(shoals, the_ebb_shoal_gets_the_channels_sand_where_a_surplus_of_the_other_fills_its_deficit) {
  Inlets n = shoals(1500000.0f, 3000000.0f, 1500000.0f, 1000000.0f);  // 1/2 and 3/2, 3/4 in sum
  route(n, 1.0f);
  EXPECT_EQ(n.flows(1).right.Qc, 0.25f);
  EXPECT_EQ(n.flows(1).Qce, 0.25f);
  EXPECT_EQ(n.flows(1).Qfe, 500.0f);  // the surplus alone
  EXPECT_EQ(n.flows(1).right.Qeb, 250.5f);
  EXPECT_EQ(n.VVSF(1), 1000000.0f);
  EXPECT_EQ(n.VVSE(1), 1750500.0f);
}

TEST(shoals, the_ebb_shoal_gets_the_channels_sand_where_its_own_surplus_is_the_others_deficit) {
  Inlets n = shoals(1500000.0f, 1000000.0f, 1500000.0f, 3000000.0f);  // 3/2 and 1/2, 3/4 in sum
  route(n, 1.0f);
  EXPECT_EQ(n.flows(1).Qce, 0.25f);
  EXPECT_EQ(n.VVSF(1), 1500000.0f);
  // It passes on 3/2 of the sand, which leaves 1 499 500 m3; the surplus follows at once.
  EXPECT_EQ(n.flows(1).right.Qeb, 1.5f + 499.5f);
  EXPECT_EQ(n.VVSE(1), 1000000.0f);
}

TEST(shoals, an_ebb_shoal_with_a_surplus_gives_channel_sand_to_the_flood_shoal) {
  Inlets n = shoals(1250000.0f, 1000000.0f, 500000.0f, 1000000.0f);  // 5/4 and 1/2, 7/8 in sum
  route(n, 1.0f);
  EXPECT_EQ(n.flows(1).right.Qc, 0.125f);
  EXPECT_EQ(n.flows(1).Qce, -0.125f);  // its share is -1/4 over 1/4
  EXPECT_EQ(n.VVSF(1), 500250.0f);     // twice what falls into the channel
  // 5/4 of 0.75 m3/s, and all above equilibrium after it: 1 250 000 - 187.5 m3.
  EXPECT_EQ(n.flows(1).right.Qeb, 0.9375f + 249.8125f);
  EXPECT_EQ(n.VVSE(1), 1000000.0f);
}

TEST(shoals, a_flood_shoal_with_a_surplus_gives_channel_sand_and_its_surplus_to_the_ebb_shoal) {
  Inlets n = shoals(500000.0f, 1000000.0f, 1250000.0f, 1000000.0f);  // 1/2 and 5/4
  route(n, 1.0f);
  EXPECT_EQ(n.flows(1).Qce, 0.25f);     // twice what falls into the channel
  EXPECT_EQ(n.flows(1).Qfe, 249.875f);  // 125 m3 of 250 000 went with it
  EXPECT_EQ(n.flows(1).right.Qeb, 125.5f);
  EXPECT_EQ(n.VVSF(1), 1000000.0f);
  EXPECT_EQ(n.VVSE(1), 625500.0f);
}

TEST(shoals, a_flood_shoal_that_starts_above_equilibrium_spills_its_surplus_once) {
  Inlets n = shoals(0.0f, 1000000.0f, 1002000.0f, 1000000.0f);
  route(n, 0.0f);
  EXPECT_EQ(n.flows(1).Qfe, 2.0f);  // 2000 m3 in 1000 s
  EXPECT_EQ(n.VVSF(1), 1000000.0f);
  EXPECT_EQ(n.VVSE(1), 2000.0f);
  route(n, 0.0f);
  EXPECT_EQ(n.flows(1).Qfe, 0.0f);
  EXPECT_EQ(n.VVSF(1), 1000000.0f);
}

TEST(shoals, what_would_lift_shoal_or_bar_above_equilibrium_goes_on_within_the_step) {
  Inlets n = shoals(512.0f, 1024.0f, 1024.0f, 1024.0f);
  n.VVSBR(1) = 512.0f;
  n.VVSBQR(1) = 1024.0f;
  n.VVSAR(1) = 256.0f;
  n.VVSAQR(1) = 512.0f;
  // In 2048 s each takes more than it has room for.
  EXPECT_EQ(SHOALROUTE(InletMouth::left, 1.0f, 1, 2048.0f, n), 0.375f);
  EXPECT_EQ(n.flows(1).right.Qeb, 0.75f);     // 1/2, and 512 m3 in 2048 s
  EXPECT_EQ(n.flows(1).right.Qba, 0.5f);      // half of that, and 256 m3
  EXPECT_EQ(n.flows(1).right.VQOUT, 768.0f);  // half of that, and 256 m3 again
  EXPECT_EQ(n.VVSE(1), 1024.0f);
  EXPECT_EQ(n.VVSBR(1), 1024.0f);
  EXPECT_EQ(n.VVSAR(1), 512.0f);
}

TEST(shoals, one_that_just_reaches_equilibrium_spills_nothing) {
  Inlets n = shoals(512.0f, 1024.0f, 1024.0f, 1024.0f);
  SHOALROUTE(InletMouth::left, 1.0f, 1, 1024.0f, n);  // takes in half of 1024 m3
  EXPECT_EQ(n.VVSE(1), 1024.0f);
  EXPECT_EQ(n.flows(1).right.Qeb, 0.5f);
}

TEST(shoals, an_empty_bar_starts_from_a_trace_and_fills) {
  Inlets n = partly_filled();
  n.VVSBR(1) = 0.0f;
  n.VVSAR(1) = 0.0f;
  route(n, 1.0f);
  const InletSide& side = n.flows(1).right;
  EXPECT_GT(side.Qba, 0.0f);
  EXPECT_FLOAT_EQ(side.Qba, 0.2109375f * 5e-11f);  // a trace of 0.00001 m3 in 200 000
  EXPECT_FLOAT_EQ(side.Qout, 0.2109375f * 5e-11f * 1e-10f);
  EXPECT_FLOAT_EQ(n.VVSBR(1), 210.9375f);
  EXPECT_FLOAT_EQ(n.VVSAR(1), 0.00001f + 0.2109375f * 5e-8f);
  for (int step = 2; step <= 100; ++step) route(n, 1.0f);
  EXPECT_GT(n.VVSBR(1), 99 * 210.0f);
  EXPECT_GT(side.Qba, 0.02f) << "a tenth of the bar, a quarter of 0.85 m3/s";
  EXPECT_GT(n.VVSAR(1), 900.0f);
}

TEST(shoals, a_bar_that_was_dredged_below_zero_grows_again_from_a_trace) {
  Inlets n = partly_filled();
  n.VVSBR(1) = -3000.0f;
  n.VVSAR(1) = -1.0f;
  n.VVSBL(1) = -500.0f;
  n.VVSAL(1) = -600.0f;
  route(n, 0.0f);
  EXPECT_EQ(n.VVSBR(1), LEAST_BAR);
  EXPECT_EQ(n.VVSAR(1), LEAST_BAR);
  EXPECT_EQ(n.VVSBL(1), -500.0f) << "the other side's bars wait for their own sand";
  EXPECT_EQ(n.VVSAL(1), -600.0f);
  route(n, 0.0f, InletMouth::right);
  EXPECT_EQ(n.VVSBL(1), LEAST_BAR);
  EXPECT_EQ(n.VVSAL(1), LEAST_BAR);
}

TEST(shoals, an_ebb_shoal_below_zero_draws_sand_back_from_its_bars) {
  Inlets n = shoals(-250000.0f, 1000000.0f, 250000.0f, 1000000.0f);  // -1/4 and 1/4, 0 in sum
  EXPECT_EQ(route(n, 1.0f), -0.01953125f);
  const InletFlow& flow = n.flows(1);
  EXPECT_EQ(flow.right.Qie, 0.0f);
  EXPECT_EQ(flow.right.Qc, 1.0f);
  EXPECT_EQ(flow.Qce, 0.625f);  // deficits 5/4 and 3/4
  EXPECT_EQ(flow.right.Qeb, -0.15625f);
  EXPECT_EQ(flow.right.Qba, -0.0390625f);
  EXPECT_EQ(flow.right.VQOUT, -19.53125f);
  EXPECT_EQ(volumes_of(n, 1),
            (Volumes{50000.0f, 50000.0f, -249218.75f, 250375.0f, 49882.8125f, 49980.46875f}));
}

TEST(shoals, a_flood_shoal_below_zero_takes_the_greater_share) {
  Inlets n = shoals(500000.0f, 1000000.0f, -500000.0f, 1000000.0f);  // deficits 1/2 and 3/2
  route(n, 1.0f);
  EXPECT_EQ(n.flows(1).Qce, 0.25f);
  EXPECT_EQ(n.flows(1).right.Qeb, 0.125f);
  EXPECT_EQ(n.VVSF(1), -499250.0f);
  EXPECT_EQ(n.VVSE(1), 500125.0f);
}

TEST(shoals, more_sand_than_arrives_falls_into_the_channel_where_both_are_below_zero_in_sum) {
  Inlets n = shoals(-500000.0f, 1000000.0f, -500000.0f, 1000000.0f);
  route(n, 1.0f);
  EXPECT_EQ(n.flows(1).right.Qc, 1.5f);
  EXPECT_EQ(n.flows(1).right.Qie, -0.5f);
  EXPECT_EQ(n.VVSF(1), -499250.0f);
  EXPECT_EQ(n.flows(1).right.Qeb, -0.125f);  // -1/2 of -0.5 + 0.75
}

// At a groin the wall's own rate is routed, which may run away from the inlet.
TEST(shoals, sand_that_runs_away_from_the_inlet_is_taken_out_of_it) {
  Inlets n = partly_filled();
  EXPECT_EQ(route(n, -1.0f), -0.0263671875f);
  EXPECT_EQ(n.flows(1).VQIN, -1000.0f);
  EXPECT_EQ(n.flows(1).right.Qc, -0.625f);
  EXPECT_EQ(volumes_of(n, 1),
            (Volumes{50000.0f, 50000.0f, 749367.1875f, 749843.75f, 49841.796875f, 49973.6328125f}));
}

TEST(shoals, no_sand_clears_the_rates_of_the_side) {
  Inlets n = partly_filled();
  route(n, 1.0f);
  const Volumes before = volumes_of(n, 1);
  EXPECT_EQ(route(n, 0.0f), 0.0f);
  const InletSide& side = n.flows(1).right;
  for (const float rate : {side.Qie, side.Qc, side.Qeb, side.Qba, side.Qout, n.flows(1).Qce})
    EXPECT_EQ(rate, 0.0f);
  EXPECT_EQ(volumes_of(n, 1), before);
  EXPECT_EQ(n.flows(1).VQIN, 1000.0f);
}

TEST(shoals, an_inlet_without_a_flood_shoal_gives_all_sand_to_the_ebb_shoal) {
  Inlets n = shoals(500000.0f, 1000000.0f, 0.00001f, 0.00001f);
  route(n, 1.0f);
  EXPECT_EQ(n.flows(1).Qce, 0.5f);
  EXPECT_EQ(n.flows(1).right.Qeb, 0.5f);
  EXPECT_EQ(n.VVSE(1), 500500.0f);
  EXPECT_EQ(n.VVSF(1), 0.00001f);
}

}  // namespace kelprun
