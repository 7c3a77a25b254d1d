#include "waves/undiffracted.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "unit/run/small_model.h"

namespace kelprun {
namespace {

double of(float x) { return static_cast<double>(x); }

void add(Model& m) {
  UNDIFFSTAT(m.settings, m.grid, m.profile, m.waves, m.shore.ALPHA, m.undiffracted);
}

TEST(undiffracted, sums_heights_angles_and_the_transport_without_structures_at_every_wall) {
  Model m = kelptest::small_model(2);
  m.profile.K1EFF.take(2);
  kelptest::put(m.profile.K1EFF, std::array{0.02f, 0.01f, 0.0f});
  kelptest::put(m.waves.HBU, std::array{1.0f, 4.0f, 2.0f});
  kelptest::put(m.waves.ZBU, std::array{0.3f, -0.1f, 0.2f});
  kelptest::put(m.waves.CGBU, std::array{3.0f, 6.0f, 4.0f});
  kelptest::put(m.shore.ALPHA, std::array{0.1f, 0.1f, 0.05f});
  add(m);
  kelptest::put(m.waves.HBU, std::array{2.25f, 1.0f, 2.0f});
  add(m);
  const UndiffractedSums& s = m.undiffracted;
  EXPECT_EQ(s.steps, 2);
  EXPECT_FLOAT_EQ(s.H(1), 3.25f);
  EXPECT_FLOAT_EQ(s.H(2), 5.0f);
  EXPECT_FLOAT_EQ(s.H(3), 4.0f);
  EXPECT_FLOAT_EQ(s.H52(1), 1.0f + 7.59375f);  // 2.25^2.5 = 1.5^5
  EXPECT_FLOAT_EQ(s.H52(2), 32.0f + 1.0f);
  EXPECT_NEAR(of(s.ZBS(1)), 2.0 * 0.2, 1e-6);
  EXPECT_NEAR(of(s.ZBS(2)), 2.0 * -0.2, 1e-6);
  EXPECT_NEAR(of(s.ZB(1)), 2.0 * 0.3, 1e-6);
  EXPECT_NEAR(of(s.ZB(2)), 2.0 * -0.1, 1e-6);
  EXPECT_NEAR(of(s.QZ(1)), 3.0 * 0.02 * (1.0 + 2.25 * 2.25) * std::sin(0.4), 1e-6);
  EXPECT_NEAR(of(s.QZ(2)), 6.0 * 0.01 * (16.0 + 1.0) * std::sin(-0.4), 1e-6);
  EXPECT_EQ(s.QZ(3), 0.0f);
}

TEST(undiffracted, heights_are_summed_in_the_length_unit_and_the_transport_in_metres) {
  Model m = kelptest::small_model(1);
  m.settings.CONV = 0.3048f;
  m.profile.K1EFF.fill(0.02f);
  m.waves.HBU.fill(1.2192f);  // 4 ft
  m.waves.ZBU.fill(0.2f);
  m.waves.CGBU.fill(3.0f);
  add(m);
  EXPECT_NEAR(of(m.undiffracted.H(1)), 4.0, 1e-5);
  EXPECT_NEAR(of(m.undiffracted.H52(1)), 32.0, 1e-4);
  EXPECT_NEAR(of(m.undiffracted.QZ(1)), 3.0 * 0.02 * 1.2192 * 1.2192 * std::sin(0.4), 1e-6);
}

TEST(undiffracted, a_marked_orientation_counts_without_its_mark) {
  Model m = kelptest::small_model(1);
  m.waves.HBU.fill(1.0f);
  m.waves.ZBU.fill(0.2f);
  kelptest::put(m.shore.ALPHA, std::array{999.1f, 900.0f});
  add(m);
  EXPECT_NEAR(of(m.undiffracted.ZBS(1)), 0.2 - 0.1, 1e-4);
  EXPECT_NEAR(of(m.undiffracted.ZBS(2)), 0.2 - 900.0, 1e-4) << "900 itself is no mark here";
}

}  // namespace
}  // namespace kelprun
