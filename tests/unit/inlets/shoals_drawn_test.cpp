#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "unit/inlets/shoal_case.h"
#include "unit/run/small_model.h"

// The shoals under drawn volumes and rates, the order of evaluation and the balance of sand.

namespace kelprun {
namespace {

/// The balances of one call written down once more, in any precision.
template <class Real>
struct Chain {
  Real VE, VEQ, VF, VFQ, VB, VBQ, VA, VAQ;
  Real Qie, Qc, Qce, Qfe, Qeb, Qba, Qout;

  void route(Real QI, Real DT) {
    const Real one = 1;
    const Real trace = static_cast<Real>(0.00001f);
    if (VB < trace) VB = trace;
    if (VA < trace) VA = trace;
    const Real RE = VE / VEQ;
    const Real RF = VF / VFQ;
    const Real RT = (VE + VF) / (VEQ + VFQ);
    Real FRC = one;
    if (RE != one || RF != one) FRC = (one - RE) / ((2 * one - RF) - RE);
    Qc = (one - RT) * QI;
    Qie = RT * QI;
    VF = VF + ((one - FRC) * DT) * Qc;
    Qfe = 0;
    if (VF > VFQ) {
      Qfe = (VF - VFQ) / DT;
      VF = VFQ;
    }
    Qce = FRC * Qc;
    const Real QE = (Qfe + Qie) + Qce;
    Qeb = RE * QE;
    VE = VE + (QE - Qeb) * DT;
    if (VE > VEQ) {
      Qeb = Qeb + (VE - VEQ) / DT;
      VE = VEQ;
    }
    Qba = (VB * Qeb) / VBQ;
    VB = VB + (Qeb - Qba) * DT;
    if (VB > VBQ) {
      Qba = Qba + (VB - VBQ) / DT;
      VB = VBQ;
    }
    Qout = (VA * Qba) / VAQ;
    VA = VA + (Qba - Qout) * DT;
    if (VA > VAQ) {
      Qout = Qout + (VA - VAQ) / DT;
      VA = VAQ;
    }
  }
};

/// What the inlet's side has before a call.
template <class Real>
Chain<Real> chain_of(const Inlets& n, bool to_right) {
  const auto r = [](float volume) { return static_cast<Real>(volume); };
  Chain<Real> chain{};
  chain.VE = r(n.VVSE(1));
  chain.VEQ = r(n.VVSEQ(1));
  chain.VF = r(n.VVSF(1));
  chain.VFQ = r(n.VVSFQ(1));
  chain.VB = r(to_right ? n.VVSBR(1) : n.VVSBL(1));
  chain.VBQ = r(to_right ? n.VVSBQR(1) : n.VVSBQL(1));
  chain.VA = r(to_right ? n.VVSAR(1) : n.VVSAL(1));
  chain.VAQ = r(to_right ? n.VVSAQR(1) : n.VVSAQL(1));
  return chain;
}

/// Equilibrium volumes of 1000 to 10^7 m3, filled from -1/2 to 3/2; one in eight is just full.
Inlets drawn(kelptest::Random& random) {
  Inlets n = kelptest::empty_inlets(1);
  for (const auto& [volume, equilibrium] :
       {std::pair{&n.VVSE, &n.VVSEQ}, std::pair{&n.VVSF, &n.VVSFQ}, std::pair{&n.VVSBL, &n.VVSBQL},
        std::pair{&n.VVSBR, &n.VVSBQR}, std::pair{&n.VVSAL, &n.VVSAQL},
        std::pair{&n.VVSAR, &n.VVSAQR}}) {
    (*equilibrium)(1) = static_cast<float>(std::exp(random.between(6.9, 16.1)));
    const float filled = random.whole(1, 8) == 1 ? 1.0f : random.real(-0.5, 1.5);
    (*volume)(1) = filled * (*equilibrium)(1);
  }
  return n;
}

struct Call {
  InletMouth mouth;
  float QIN;
  float DTSEC;
  bool to_right() const { return mouth == InletMouth::left; }
  float QI() const { return to_right() ? QIN : -QIN; }
};

/// Up to 1.5 million m3 a year in steps of a quarter of an hour to ten days.
Call drawn_call(kelptest::Random& random) {
  return {random.whole(0, 1) == 1 ? InletMouth::left : InletMouth::right, random.real(-0.05, 0.05),
          random.real(900.0, 864000.0)};
}

double wide(float value) { return static_cast<double>(value); }

/// Sum of the magnitudes that a call handles, m3: what its roundings are measured by.
double handled(const Inlets& n, const Chain<double>& before, const Call& call) {
  const InletSide& side = call.to_right() ? n.flows(1).right : n.flows(1).left;
  const InletFlow& flow = n.flows(1);
  double sum = std::abs(before.VE) + std::abs(before.VF) + std::abs(before.VB) +
               std::abs(before.VA) + wide(call.DTSEC * std::abs(call.QIN));
  for (const float rate : {side.Qie, side.Qc, flow.Qce, flow.Qfe, side.Qeb, side.Qba, side.Qout})
    sum += wide(call.DTSEC) * std::abs(wide(rate));
  return sum;
}

}  // namespace

TEST(drawn_shoals, every_rate_and_volume_is_rounded_in_the_order_of_its_formula) {
  kelptest::Random random(511);
  for (int trial = 0; trial < 4000; ++trial) {
    Inlets n = drawn(random);
    for (int repeat = 0; repeat < 3; ++repeat) {
      const Call call = drawn_call(random);
      Chain<float> c = chain_of<float>(n, call.to_right());
      c.route(call.QI(), call.DTSEC);
      ASSERT_EQ(SHOALROUTE(call.mouth, call.QIN, 1, call.DTSEC, n), c.Qout);
      const InletFlow& flow = n.flows(1);
      const InletSide& side = call.to_right() ? flow.right : flow.left;
      EXPECT_EQ(side.Qie, c.Qie);
      EXPECT_EQ(side.Qc, c.Qc);
      EXPECT_EQ(flow.Qce, c.Qce);
      EXPECT_EQ(flow.Qfe, c.Qfe);
      EXPECT_EQ(side.Qeb, c.Qeb);
      EXPECT_EQ(side.Qba, c.Qba);
      EXPECT_EQ(side.Qout, c.Qout);
      const Chain<float> left_behind = chain_of<float>(n, call.to_right());
      EXPECT_EQ(left_behind.VE, c.VE);
      EXPECT_EQ(left_behind.VF, c.VF);
      EXPECT_EQ(left_behind.VB, c.VB);
      EXPECT_EQ(left_behind.VA, c.VA);
    }
  }
}

// Where the two deficits nearly cancel, their difference is rounding; those states are left to the
// balance of sand.
TEST(drawn_shoals, agree_with_double_precision) {
  kelptest::Random random(512);
  int compared = 0;
  for (int trial = 0; trial < 4000; ++trial) {
    Inlets n = drawn(random);
    const Call call = drawn_call(random);
    Chain<double> c = chain_of<double>(n, call.to_right());
    const Chain<double> before = c;
    if (std::abs(2.0 - c.VF / c.VFQ - c.VE / c.VEQ) < 0.01) continue;
    ++compared;
    c.route(wide(call.QI()), wide(call.DTSEC));
    const double Qout = wide(SHOALROUTE(call.mouth, call.QIN, 1, call.DTSEC, n));
    const Chain<double> left_behind = chain_of<double>(n, call.to_right());
    // The quotient of deficits of 0.01 loses two digits of seven.
    const double allowance = 2e-5 * handled(n, before, call);
    EXPECT_NEAR(left_behind.VE, c.VE, allowance);
    EXPECT_NEAR(left_behind.VF, c.VF, allowance);
    EXPECT_NEAR(left_behind.VB, c.VB, allowance);
    EXPECT_NEAR(left_behind.VA, c.VA, allowance);
    EXPECT_NEAR(Qout * wide(call.DTSEC), c.Qout * wide(call.DTSEC), allowance);
  }
  EXPECT_GT(compared, 3500);
}

// The volumes of a call change by what came in less what went out, whatever the state, but for the
// trace that an emptied bar is lifted to ahead of it.
TEST(drawn_shoals, conserve_sand_in_every_call) {
  kelptest::Random random(513);
  for (int trial = 0; trial < 20000; ++trial) {
    Inlets n = drawn(random);
    // One in ten stands where the two deficits nearly or wholly cancel and shares are huge.
    if (trial % 10 == 0)
      n.VVSF(1) = (2.0f - n.VVSE(1) / n.VVSEQ(1)) * n.VVSFQ(1) * random.real(0.999999, 1.000001);
    const Call call = drawn_call(random);
    Chain<double> before = chain_of<double>(n, call.to_right());
    before.VB = std::max(before.VB, wide(0.00001f));
    before.VA = std::max(before.VA, wide(0.00001f));
    const float Qout = SHOALROUTE(call.mouth, call.QIN, 1, call.DTSEC, n);
    const Chain<double> after = chain_of<double>(n, call.to_right());
    const double change = ((after.VE - before.VE) + (after.VF - before.VF)) +
                          ((after.VB - before.VB) + (after.VA - before.VA));
    const double moved = (wide(call.QI()) - wide(Qout)) * wide(call.DTSEC);
    // Each of the magnitudes handled is rounded at most five times on its way, by half a bit.
    const double allowance =
        5.0 * 0.5 * wide(std::numeric_limits<float>::epsilon()) * handled(n, before, call);
    ASSERT_NEAR(change, moved, allowance) << "trial " << trial;
  }
}

// Shoals and bars between empty and three quarters full give no more than arrives, and no less than
// nothing.
TEST(drawn_shoals, with_room_give_back_no_more_than_arrives) {
  kelptest::Random random(514);
  for (int trial = 0; trial < 4000; ++trial) {
    Inlets n = drawn(random);
    for (auto* volume : {&n.VVSE, &n.VVSF, &n.VVSBL, &n.VVSBR, &n.VVSAL, &n.VVSAR})
      (*volume)(1) = std::abs((*volume)(1)) * 0.5f;
    const float QI = random.real(0.0, 0.05);
    const float Qout = SHOALROUTE(InletMouth::left, QI, 1, 900.0f, n);
    EXPECT_GE(Qout, 0.0f);
    EXPECT_LE(Qout, QI);
  }
}

// What arrives from the right is routed as what arrives from the left of the mirrored inlet.
TEST(drawn_shoals, mirror_left_and_right_to_the_last_bit) {
  kelptest::Random random(515);
  for (int trial = 0; trial < 1000; ++trial) {
    Inlets n = drawn(random);
    Inlets mirrored = n;
    std::swap(mirrored.VVSBL, mirrored.VVSBR);
    std::swap(mirrored.VVSBQL, mirrored.VVSBQR);
    std::swap(mirrored.VVSAL, mirrored.VVSAR);
    std::swap(mirrored.VVSAQL, mirrored.VVSAQR);
    const Call call = drawn_call(random);
    const InletMouth other = call.to_right() ? InletMouth::right : InletMouth::left;
    EXPECT_EQ(SHOALROUTE(call.mouth, call.QIN, 1, call.DTSEC, n),
              SHOALROUTE(other, -call.QIN, 1, call.DTSEC, mirrored));
    const auto volumes = kelptest::volumes_of(n, 1);
    auto back = kelptest::volumes_of(mirrored, 1);
    std::swap(back[0], back[5]);
    std::swap(back[1], back[4]);
    EXPECT_EQ(volumes, back);
    EXPECT_EQ(n.flows(1).left.VQOUT, mirrored.flows(1).right.VQOUT);
    EXPECT_EQ(n.flows(1).right.VQC, mirrored.flows(1).left.VQC);
  }
}

}  // namespace kelprun
