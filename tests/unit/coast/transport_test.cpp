#include "coast/transport.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>

#include "unit/coast/transport_case.h"

namespace kelprun {
namespace {

using kelptest::central;
using kelptest::compute;
using kelptest::left_sided;
using kelptest::right_sided;
using kelptest::without_gradient;

constexpr float BEYOND = 1.5708f;  ///< just above half of pi

/// A uniform coast of 8 cells: 1 m waves at 5 m/s, straight on, K1 0.5 and K2 0.25.
Model uniform_coast() {
  Model m = kelptest::coast_under_waves(8, 1);
  m.waves.HB.fill(1.0f);
  m.waves.ZB.fill(0.0f);
  m.waves.CGB.fill(5.0f);
  m.shore.ALPHA.fill(0.0f);
  m.profile.K1CELL.fill(0.5f);
  m.profile.K2CELL.fill(0.25f);
  m.profile.K1EFF.fill(0.5f / K1_DIVISOR);
  m.grid.DX.fill(100.0f);
  return m;
}

TEST(transport, the_constants_of_a_step_follow_from_its_length_and_the_breaker_index) {
  const TransportConstants constants = transport_constants(3.0f, 0.78f);
  EXPECT_EQ(constants.DTSEC, 10800.0f);
  EXPECT_FLOAT_EQ(constants.DLIM, 1.6282052f);
  EXPECT_FLOAT_EQ(constants.SQ, static_cast<float>(std::sqrt(1.416 / 0.78 / 9.806)));
  EXPECT_FLOAT_EQ(constants.HALFPI, 1.5707965f);
}

TEST(transport, a_step_begins_with_clear_rates_and_its_factors_by_cell_and_wall) {
  Model m = kelptest::coast_under_waves(3, 2);
  kelptest::put(m.profile.DCLOSCELL, std::array{7.0f, 8.0f, 5.5f});
  kelptest::put(m.profile.BERMHTCELL, std::array{1.0f, 2.0f, 0.5f});
  kelptest::put(m.waves.HB, std::array{1.0f, 0.0f, 2.0f, 4.0f});
  Transport& t = m.transport;
  for (auto* rates : {&t.Q, &t.QBWTIP, &t.QRIGHT, &t.QLEFT, &t.QGROSS}) rates->fill(7.0f);
  clear_transport(transport_constants(2.0f, 0.78f), m.settings, m.grid, m.profile, m.waves, t);
  EXPECT_EQ(t.RDEN(1), 900.0f);
  EXPECT_EQ(t.RDEN(2), 720.0f);
  EXPECT_EQ(t.RDEN(3), 1200.0f);
  // CB = sqrt(G gamma H/(4 1.416)), 1.1621 m/s for 1 m.
  EXPECT_NEAR(static_cast<double>(t.CB(1)), std::sqrt(9.806 * 0.78 / (4.0 * 1.416)), 1e-6);
  EXPECT_EQ(t.CB(2), 0.0f);
  EXPECT_NEAR(static_cast<double>(t.CB(4)), 2.0 * static_cast<double>(t.CB(1)), 1e-6);
  for (auto* rates : {&t.Q, &t.QBWTIP, &t.QRIGHT, &t.QLEFT, &t.QGROSS})
    for (std::int32_t i = 1; i <= 4; ++i) EXPECT_EQ((*rates)(i), 0.0f);
}

TEST(transport, the_formula_is_evaluated_float_by_float_in_one_order) {
  Model m = kelptest::coast_under_waves(60, 3);
  kelptest::Random random(4);
  for (std::int32_t i = 1; i <= 61; ++i) m.transport.TCUR(i) = random.real(-0.5, 0.5);
  compute(m);
  EXPECT_EQ(m.transport.Q(1), without_gradient(m, 1));
  EXPECT_EQ(m.transport.Q(2), right_sided(m, 2));
  for (std::int32_t i = 3; i <= 59; ++i) EXPECT_EQ(m.transport.Q(i), central(m, i)) << i;
  EXPECT_EQ(m.transport.Q(60), left_sided(m, 60));
  EXPECT_EQ(m.transport.Q(61), without_gradient(m, 61));
}

TEST(transport, the_formula_is_the_sum_of_the_wave_term_the_gradient_term_and_the_current_term) {
  Model m = kelptest::coast_under_waves(30, 5);
  m.transport.TCUR.fill(0.3f);
  compute(m);
  for (std::int32_t i = 3; i <= 29; ++i) {
    const auto H = static_cast<double>(m.waves.HB(i));
    const auto Cg = static_cast<double>(m.waves.CGB(i));
    const double ALF = static_cast<double>(m.waves.ZB(i)) - static_cast<double>(m.shore.ALPHA(i));
    const auto K1EFF = static_cast<double>(m.profile.K1EFF(i));
    const double dH =
        static_cast<double>(m.waves.HB(i + 1)) - static_cast<double>(m.waves.HB(i - 1));
    const double wave = H * H * Cg * K1EFF * std::sin(2.0 * ALF);
    const double gradient = H * H * Cg * static_cast<double>(m.profile.K2CELL(i)) / 37.793171 *
                            std::cos(ALF) * dH / static_cast<double>(m.grid.DX(i)) / (1.416 * 0.02);
    const double current = std::sqrt(1.416 / 0.78 / 9.806) * (4.0 / 2.7) * std::pow(H, 1.5) * Cg *
                           K1EFF * 0.3 * std::cos(ALF);
    const double scale = std::abs(wave) + std::abs(gradient) + current;
    EXPECT_NEAR(static_cast<double>(m.transport.Q(i)), wave - gradient + current, 2e-6 * scale);
  }
}

TEST(transport, breaking_waves_move_the_published_volumes) {
  // Computed with K1 0.77, s 2.65, p 0.4 and significant heights.
  struct Case {
    float H, Cg;
    double degrees, Q;
  };
  constexpr std::array cases{
      Case{0.5f, 2.50768051f, 1, 0.0004457679}, Case{0.5f, 2.50768051f, 20, 0.00821026405},
      Case{1, 3.54639579f, 2, 0.00504021585},   Case{1, 3.54639579f, 10, 0.0247124783},
      Case{1, 3.54639579f, 45, 0.0722544529},   Case{1.5f, 4.34343005f, 5, 0.0345750641},
      Case{2, 5.01536102f, 10, 0.139794888},    Case{3, 6.14253769f, 1, 0.0393085404},
      Case{3, 6.14253769f, 45, 1.12633545}};
  for (const Case& c : cases) {
    Model m = uniform_coast();
    m.profile.K1CELL.fill(0.77f);
    m.profile.K1EFF.fill(0.77f / K1_DIVISOR);
    m.waves.HB.fill(c.H);
    m.waves.CGB.fill(c.Cg);
    m.waves.ZB.fill(static_cast<float>(c.degrees * std::numbers::pi / 180.0));
    compute(m);
    // Single precision, and the factor 37.793171 rounded to its 8 digits.
    EXPECT_NEAR(static_cast<double>(m.transport.Q(4)), c.Q, 2e-6 * c.Q) << c.degrees;
    EXPECT_NEAR(static_cast<double>(m.transport.Q(1)), c.Q, 2e-6 * c.Q) << c.degrees;
  }
}

TEST(transport, waves_straight_on_move_nothing_by_their_angle) {
  Model m = uniform_coast();
  m.waves.ZB.fill(0.125f);
  m.shore.ALPHA.fill(0.125f);
  compute(m);
  for (std::int32_t i = 1; i <= 9; ++i) EXPECT_EQ(m.transport.Q(i), 0.0f);
}

TEST(transport, waves_straight_on_move_sand_down_a_height_gradient_and_with_the_current) {
  Model m = uniform_coast();
  kelptest::put(m.waves.HB, std::array{1.0f, 1.0f, 1.0f, 1.0f, 1.2f, 1.0f, 1.0f, 1.0f, 1.0f});
  compute(m);
  EXPECT_LT(m.transport.Q(4), 0.0f) << "higher on the right: sand goes left";
  EXPECT_GT(m.transport.Q(6), 0.0f) << "higher on the left: sand goes right";
  EXPECT_EQ(m.transport.Q(5), 0.0f) << "the top of the hump sees the same height on both sides";
  m.transport.TCUR.fill(0.4f);
  compute(m);
  const double current =
      std::sqrt(1.416 / 0.78 / 9.806) * (4.0 / 2.7) * 5.0 * (0.5 / 37.793171) * 0.4;
  EXPECT_NEAR(static_cast<double>(m.transport.Q(2)), current, 1e-6 * current);
}

TEST(transport, positive_angles_move_sand_to_the_right_and_mirrored_ones_as_much_to_the_left) {
  Model m = uniform_coast();
  m.waves.ZB.fill(0.2f);
  compute(m);
  const float right = m.transport.Q(5);
  EXPECT_GT(right, 0.0f);
  m.waves.ZB.fill(-0.2f);
  compute(m);
  EXPECT_EQ(m.transport.Q(5), -right);
}

TEST(transport, an_orientation_with_the_marker_of_999_counts_without_it) {
  Model m = uniform_coast();
  m.waves.ZB.fill(0.25f);
  m.shore.ALPHA(4) = 999.125f;
  m.shore.ALPHA(6) = 0.125f;
  compute(m);
  EXPECT_EQ(m.transport.Q(4), m.transport.Q(6));
  EXPECT_NE(m.transport.Q(4), m.transport.Q(5));
}

TEST(transport, a_wall_without_wave_height_moves_nothing_whatever_the_angle) {
  for (const float angle : {-0.7f, 0.0f, 0.3f, 1.2f}) {
    Model m = uniform_coast();
    m.waves.ZB.fill(angle);
    m.transport.TCUR.fill(0.4f);
    m.waves.HB(5) = 0.0f;
    m.waves.CGB(5) = 0.0f;
    compute(m);
    EXPECT_EQ(m.transport.Q(5), 0.0f) << angle;
  }
}

TEST(transport, the_last_wall_takes_the_width_of_the_last_cell) {
  // A constant grid has no width behind the last cell; it must not enter, even times nothing.
  Model m = uniform_coast();
  m.waves.ZB.fill(0.2f);
  m.grid.DX(9) = 0.0f;
  compute(m);
  EXPECT_EQ(m.transport.Q(9), without_gradient(m, 1));
}

TEST(transport, each_inner_wall_takes_the_width_of_the_cell_on_its_right) {
  Model m = kelptest::coast_under_waves(8, 6);
  compute(m);
  const float before = m.transport.Q(5);
  m.grid.DX(4) *= 2.0f;
  compute(m);
  EXPECT_EQ(m.transport.Q(5), before);
  m.grid.DX(5) *= 2.0f;
  compute(m);
  EXPECT_NE(m.transport.Q(5), before);
  EXPECT_EQ(m.transport.Q(5), central(m, 5));
}

TEST(transport, a_wave_just_beyond_the_normal_carries_on_with_eleven_tenths_of_its_neighbour) {
  Model m = uniform_coast();
  m.waves.ZB.fill(0.2f);
  m.waves.ZB(5) = BEYOND;
  m.waves.ZB(6) = BEYOND;
  compute(m);
  EXPECT_EQ(m.transport.Q(5), 1.1f * m.transport.Q(4));
  EXPECT_EQ(m.transport.Q(6), 1.1f * m.transport.Q(5));
  EXPECT_EQ(m.transport.Q(7), m.transport.Q(4));
}

TEST(transport, a_wave_just_beyond_the_other_normal_moves_nothing) {
  Model m = uniform_coast();
  m.waves.ZB.fill(-0.2f);
  m.waves.ZB(5) = -BEYOND;
  m.waves.ZB(6) = -BEYOND;
  compute(m);
  EXPECT_EQ(m.transport.Q(5), 0.0f) << "the wall on its right is not computed yet";
  EXPECT_EQ(m.transport.Q(6), 0.0f);
  EXPECT_LT(m.transport.Q(7), 0.0f);
}

TEST(transport, a_wave_beyond_the_other_normal_moves_nothing_at_the_last_wall_but_one) {
  Model m = uniform_coast();
  m.waves.ZB.fill(-0.2f);
  m.waves.ZB(8) = -BEYOND;
  compute(m);
  EXPECT_EQ(m.transport.Q(8), 0.0f);
}

TEST(transport, half_of_pi_itself_is_not_beyond_the_normal) {
  Model m = uniform_coast();
  m.waves.ZB.fill(0.2f);
  m.waves.ZB(5) = 3.141593f * 0.5f;
  m.waves.ZB(6) = -3.141593f * 0.5f;
  compute(m);
  EXPECT_EQ(m.transport.Q(5), without_gradient(m, 5));
  EXPECT_EQ(m.transport.Q(6), without_gradient(m, 6));
}

TEST(transport, at_the_ends_a_wave_beyond_the_normal_that_has_no_neighbour_keeps_its_formula) {
  Model m = uniform_coast();
  m.waves.ZB.fill(0.2f);
  m.waves.ZB(1) = BEYOND;
  m.waves.ZB(9) = -BEYOND;
  compute(m);
  EXPECT_EQ(m.transport.Q(1), without_gradient(m, 1));
  EXPECT_EQ(m.transport.Q(9), without_gradient(m, 9));
  m.waves.ZB(1) = -BEYOND;
  m.waves.ZB(9) = BEYOND;
  compute(m);
  EXPECT_EQ(m.transport.Q(1), 0.0f);
  EXPECT_EQ(m.transport.Q(9), 1.1f * m.transport.Q(8));
}

}  // namespace
}  // namespace kelprun
