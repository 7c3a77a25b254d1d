#include "coast/volumes.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "unit/run/small_model.h"

namespace kelprun {
namespace {

TEST(volumes, a_cells_volume_is_its_width_times_its_height_times_its_advance) {
  Model m = kelptest::small_model(3);
  kelptest::put(m.grid.DX, std::array{100.0f, 50.0f, 200.0f});
  kelptest::put(m.shore.YSTART, std::array{10.0, 20.0, 30.0});
  kelptest::put(m.shore.Y, std::array{10.5, 18.0, 30.0});
  VOLSTEP(m.grid, m.profile, m.shore, m.ledgers);
  EXPECT_EQ(m.ledgers.VOLCELL(1), 400.0f);
  EXPECT_EQ(m.ledgers.VOLCELL(2), -800.0f);
  EXPECT_EQ(m.ledgers.VOLCELL(3), 0.0f);
  EXPECT_EQ(m.ledgers.VOLLEN(1), 4.0f);
  EXPECT_EQ(m.ledgers.VOLLEN(2), -16.0f);
  EXPECT_EQ(m.ledgers.VOLTOTAL, -400.0f);
  EXPECT_EQ(m.ledgers.AREATOTAL, -50.0f);
}

TEST(volumes, a_change_of_nine_hundredths_of_a_millimetre_counts_as_none) {
  Model m = kelptest::small_model(4);
  const auto limit = static_cast<double>(0.0001f);
  kelptest::put(m.shore.Y, std::array{0.00009, -0.00009, limit, std::nextafter(limit, 0.0)});
  VOLSTEP(m.grid, m.profile, m.shore, m.ledgers);
  EXPECT_EQ(m.ledgers.VOLCELL(1), 0.0f);
  EXPECT_EQ(m.ledgers.VOLCELL(2), 0.0f);
  EXPECT_FLOAT_EQ(m.ledgers.VOLCELL(3), 0.08f) << "the limit itself is a change";
  EXPECT_EQ(m.ledgers.VOLCELL(4), 0.0f);
}

TEST(volumes, the_area_leaves_out_what_counts_as_no_change_and_knows_no_heights) {
  Model m = kelptest::small_model(3);
  kelptest::put(m.profile.DCLOSCELL, std::array{3.0f, 5.0f, 9.0f});
  kelptest::put(m.shore.Y, std::array{0.00009, 2.0, 0.5});
  VOLSTEP(m.grid, m.profile, m.shore, m.ledgers);
  EXPECT_EQ(m.ledgers.AREATOTAL, 250.0f);
  VOLSTEP(m.grid, m.profile, m.shore, m.ledgers);
  EXPECT_EQ(m.ledgers.AREATOTAL, 250.0f) << "it is summed anew";
}

TEST(volumes, the_area_is_summed_in_single_precision) {
  // 2^24 m2 and 1 m2 are one step apart where single precision knows even numbers alone.
  Model m = kelptest::small_model(4);
  kelptest::put(m.grid.DX, std::array{128.0f, 1.0f, 1.0f, 2.0f});
  kelptest::put(m.shore.Y, std::array{131072.0, 1.0, 1.0, 1.0});
  VOLSTEP(m.grid, m.profile, m.shore, m.ledgers);
  EXPECT_EQ(m.ledgers.AREATOTAL, 16777218.0f);
}

TEST(volumes, are_rounded_where_the_single_precision_fields_meet_the_shoreline) {
  Model m = kelptest::small_model(100);
  kelptest::Random random(81);
  for (std::int32_t i = 1; i <= 100; ++i) {
    m.grid.DX(i) = random.real(20.0, 200.0);
    m.profile.DCLOSCELL(i) = random.real(4.0, 9.0);
    m.profile.BERMHTCELL(i) = random.real(0.5, 2.0);
    m.shore.YSTART(i) = random.between(0.0, 100.0);
    m.shore.Y(i) = random.between(0.0, 100.0);
  }
  VOLSTEP(m.grid, m.profile, m.shore, m.ledgers);
  float total = 0.0f;
  float area_total = 0.0f;
  for (std::int32_t i = 1; i <= 100; ++i) {
    const double change = m.shore.Y(i) - m.shore.YSTART(i);
    const auto area = static_cast<float>(static_cast<double>(m.grid.DX(i)) * change);
    const float V = area * (m.profile.DCLOSCELL(i) + m.profile.BERMHTCELL(i));
    EXPECT_EQ(m.ledgers.VOLCELL(i), V);
    EXPECT_EQ(m.ledgers.VOLLEN(i), V / m.grid.DX(i));
    total += V;
    area_total += area;
  }
  EXPECT_EQ(m.ledgers.VOLTOTAL, total);
  EXPECT_EQ(m.ledgers.AREATOTAL, area_total);
}

TEST(transport_ledger, adds_the_volumes_of_a_step_to_the_year_and_to_the_run) {
  Model m = kelptest::small_model(2);
  kelptest::put(m.transport.Q, std::array{0.5f, -0.25f, 0.125f});
  kelptest::put(m.transport.QRIGHT, std::array{0.5f, 0.0f, 0.25f});
  kelptest::put(m.transport.QLEFT, std::array{0.0f, -0.25f, -0.125f});
  kelptest::put(m.transport.QGROSS, std::array{0.5f, 0.25f, 0.375f});
  add_transport(m.grid, m.transport, 3600.0f, 1.0f, m.ledgers);
  m.ledgers.QNETYR.fill(0.0f);  // a new year
  add_transport(m.grid, m.transport, 7200.0f, 1.0f, m.ledgers);
  const Ledgers& l = m.ledgers;
  EXPECT_EQ(l.QNETYR(1), 3600.0f);
  EXPECT_EQ(l.QNETYR(2), -1800.0f);
  EXPECT_EQ(l.QNETYR(3), 900.0f);
  EXPECT_EQ(l.QRIGHTYR(3), 2700.0f);
  EXPECT_EQ(l.QLEFTYR(3), -1350.0f);
  EXPECT_EQ(l.QGROSSYR(3), 4050.0f);
  EXPECT_EQ(l.QNETSUM(1), 5400.0f);
  EXPECT_EQ(l.QNETSUM(2), -2700.0f);
  EXPECT_EQ(l.QRIGHTSUM(1), 5400.0f);
  EXPECT_EQ(l.QLEFTSUM(2), -2700.0f);
}

TEST(transport_ledger, annualises_the_rate_of_the_pass_and_not_the_sum) {
  Model m = kelptest::small_model(2);
  kelptest::put(m.transport.Q, std::array{0.5f, -0.25f, 0.0f});
  const float yards = 0.9144f * 0.9144f * 0.9144f;
  add_transport(m.grid, m.transport, 3600.0f / yards, yards, m.ledgers);
  add_transport(m.grid, m.transport, 3600.0f / yards, yards, m.ledgers);
  const double cubic_yards = 31557600.0 / (0.9144 * 0.9144 * 0.9144);
  EXPECT_NEAR(static_cast<double>(m.ledgers.QANNUAL(1)), 0.5 * cubic_yards, 8.0);
  EXPECT_EQ(m.ledgers.QANNUAL(2), -0.25f * 31557600.0f / yards);
  EXPECT_EQ(m.ledgers.QANNUAL(3), 0.0f);
}

}  // namespace
}  // namespace kelprun
