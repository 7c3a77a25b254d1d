#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "unit/waves/diffracting_coast.h"
#include "unit/waves/reference_field.h"
#include "unit/waves/structured_coast.h"
#include "waves/diffraction.h"

namespace kelptest {

/// Coefficient at a left tip by plain repetition from its definition, for a straight shoreline at 0
/// that lies far enough inside the tip, and waves of angle A.
inline double settled_coefficient(double B, double X, double Y, double D, double Htip,
                                  double A = 0.0) {
  double KD = 1.0;
  for (int n = 0; n < 200; ++n) {
    const double P = Y * (1.0 - Htip * KD / 0.78 / D);
    KD = std::sqrt(0.5 * (1.0 + std::tanh(B * (std::atan(X / P) - A))));
  }
  return KD;
}

/// B of the hyperbolic tangent at a tip.
inline double spreading_of(const kelprun::TipWave& wave) {
  return static_cast<double>(wave.SMAX) / static_cast<double>(wave.AKD);
}

/// Works the zones of a coast one by one, each beside the same zone of both references.
class ZoneByZone {
 public:
  explicit ZoneByZone(kelprun::Model& m) : m_(m), same_(m), exact_(m) {}

  /// Both tips of one zone. Loads and clears what the two calls expect.
  bool work(std::int32_t Z) {
    prepare(Z);
    const kelprun::DiffractingCoast coast = diffracting_coast(m_);
    kelprun::Diffraction& d = m_.diffraction;
    const bool worked =
        kelprun::KDGODA(1, coast, zone, d, report) && kelprun::KDGODA(2, coast, zone, d, report);
    EXPECT_EQ(worked, same_.diffract(1) && same_.diffract(2)) << "zone " << Z;
    exact_.open(Z);
    exact_converged_ = exact_.diffract(1) && exact_.diffract(2);
    return worked;
  }

  /// The zone worked last, at every wall of its reach: height, ray, acting tip and blends are bit
  /// by bit those of the single-precision reference.
  void expect_same() const {
    ASSERT_EQ(zone.IBEG, same_.IBEG);
    ASSERT_EQ(zone.IEND, same_.IEND);
    EXPECT_EQ(zone.ZTPL, same_.ZTPL);
    const kelprun::Diffraction& d = m_.diffraction;
    for (std::int32_t i = zone.IBEG; i <= zone.IEND; ++i) {
      const auto n = static_cast<std::size_t>(i);
      SCOPED_TRACE("wall " + std::to_string(i));
      EXPECT_EQ(d.HBD(i), same_.HBD[n]);
      if (d.HBD(i) > 0.0f) {  // a ray without a wave is never read
        EXPECT_EQ(d.IZONE(i), same_.IZONE[n]);
        EXPECT_TRUE(d.IZONE(i) == 0 || d.ZRAY(i) == same_.ZRAY[n]) << d.ZRAY(i);
      }
      EXPECT_EQ(d.WRAMP1(i), same_.W1[n]);
      EXPECT_EQ(d.WRAMP2(i), same_.W2[n]);
      EXPECT_EQ(d.DONE(i), same_.DONE[n]);
    }
  }

  /// Works the zone and compares with both references, with the double-precision one to rounding.
  void compare(std::int32_t Z) {
    // Deep in the shadow the share is the root of a difference of two ones.
    constexpr double ROUNDING = 3e-4;
    SCOPED_TRACE("zone " + std::to_string(Z));
    ASSERT_TRUE(work(Z));
    ASSERT_TRUE(exact_converged_);
    expect_same();
    for (std::int32_t i = zone.IBEG; i <= zone.IEND; ++i)
      EXPECT_NEAR(static_cast<double>(m_.diffraction.HBD(i)),
                  exact_.HBD[static_cast<std::size_t>(i)], ROUNDING)
          << "wall " << i;
  }

  /// All zones in their order.
  void compare_all() {
    for (std::int32_t m = 1; m <= m_.zones.NZACT; ++m) {
      const std::int32_t Z = m_.zones.ZORDER(m);
      if (m_.zones.KTZ(Z) > 0.01f) compare(Z);
    }
  }

  /// Height of the zone worked last over the undiffracted one.
  double share(std::int32_t i) const {
    return static_cast<double>(m_.diffraction.HBD(i)) / static_cast<double>(m_.waves.HBU(i));
  }

  kelprun::WorkedZone zone;
  kelprun::Report report;

 private:
  void prepare(std::int32_t Z) {
    same_.open(Z);
    kelprun::Diffraction& d = m_.diffraction;
    zone = {};
    zone.Z = Z;
    zone.KT = m_.zones.KTZ(Z);
    zone.first = tip(same_.first);
    zone.second = tip(same_.second);
    kelprun::find_reach(diffracting_coast(m_), zone);
    for (std::int32_t i = 1; i <= m_.grid.NX + 1; ++i) {
      d.HBD(i) = same_.HBD[static_cast<std::size_t>(i)];
      d.ZBD(i) = m_.waves.ZBU(i);
    }
    d.KDA.fill(0.0f);
    d.KDB.fill(0.0f);
    d.IZONE.fill(0);
    d.WRAMP1.fill(1.0f);
    d.WRAMP2.fill(1.0f);
  }

  static kelprun::ZoneTip tip(const ReferenceTip<float>& t) {
    kelprun::ZoneTip tip;
    tip.ITP = t.ITP;
    tip.cell = t.cell;
    tip.KTn = t.KTn;
    tip.BYP = t.BYP;
    tip.HIGH = t.HIGH;
    tip.k = t.k;
    return tip;
  }

  kelprun::Model& m_;
  ReferenceField<float> same_;
  ReferenceField<double> exact_;
  bool exact_converged_ = false;
};

}  // namespace kelptest
