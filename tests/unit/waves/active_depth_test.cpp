#include "waves/active_depth.h"

#include <gtest/gtest.h>

#include <array>

#include "unit/run/in_process.h"
#include "unit/run/small_model.h"

namespace kelprun {
namespace {

TEST(active_depth, follows_height_and_steepness_of_each_cells_wave) {
  Model m = kelptest::small_model(3);
  kelptest::put(m.waves.HRF, std::array{1.0f, 2.0f, 0.5f});
  kelptest::put(m.waves.TRF, std::array{8.0f, 10.0f, 4.0f});
  Report report;
  set_active_depth(m.grid, m.clock, m.waves, report);
  // 2.28 - 68.5/64/9.806; 4.56 - 68.5 0.04/9.806; 1.14 - 68.5/64/9.806.
  EXPECT_NEAR(static_cast<double>(m.waves.DLTZ(1)), 2.170851, 1e-6);
  EXPECT_NEAR(static_cast<double>(m.waves.DLTZ(2)), 4.280579, 1e-6);
  EXPECT_NEAR(static_cast<double>(m.waves.DLTZ(3)), 1.030851, 1e-6);
}

TEST(active_depth, is_evaluated_float_by_float_in_one_order) {
  Model m = kelptest::small_model(200);
  kelptest::Random random(31);
  for (std::int32_t i = 1; i <= 200; ++i) {
    m.waves.HRF(i) = random.real(0.1, 4.0);
    m.waves.TRF(i) = random.real(5.0, 15.0);
  }
  Report report;
  set_active_depth(m.grid, m.clock, m.waves, report);
  for (std::int32_t i = 1; i <= 200; ++i) {
    const float ratio = m.waves.HRF(i) / m.waves.TRF(i);
    const float square = ratio * ratio;
    const float second = (68.5f * square) / 9.806f;
    EXPECT_EQ(m.waves.DLTZ(i), 2.28f * m.waves.HRF(i) - second);
  }
}

TEST(active_depth, a_wave_too_steep_for_it_ends_the_run_and_names_the_first_such_cell) {
  Model m = kelptest::small_model(4);
  m.clock.ITS = 17;
  // At 2 s the depth is positive below 2.28 9.806 4/68.5 = 1.3056 m.
  kelptest::put(m.waves.HRF, std::array{1.0f, 1.3f, 1.31f, 1.5f, 0.0f});
  m.waves.TRF.fill(2.0f);
  m.waves.ZRFPRTOUT.fill(5.0f);
  kelptest::ReadableReport readable;
  const kelptest::Said said =
      kelptest::listen([&] { set_active_depth(m.grid, m.clock, m.waves, readable.report); });
  EXPECT_EQ(said.status, 1);
  EXPECT_EQ(said.out,
            kelptest::fatal_record("ERROR. DLTZ is negative. Please check input wave parameters."));
  const auto lines = readable.lines();
  ASSERT_EQ(lines.size(), 11u);
  // Each line is free-format and begins with an added blank.
  EXPECT_EQ(lines[0], "  ERROR. BAD BALANCE IN WAVE INPUT PARAMETERS");
  EXPECT_EQ(lines[1], "  CAUSING DLTZ TO BE ZERO OR NEGATIVE.");
  EXPECT_EQ(lines[2], "  PLEASE CHECK YOUR WAVE INPUT PARAMETERS.");
  EXPECT_EQ(lines[3], "  CURRENT TIME STEP: 17");
  EXPECT_EQ(lines[4], "  CURRENT INDEX: 3");
  EXPECT_EQ(lines[5], "  HRF:");
  EXPECT_EQ(lines[7], "  TRF:");
  EXPECT_EQ(lines[9], "  ZRFPRTOUT:");
  for (const char* height : {"1.00", "1.30", "1.31", "1.50"})
    EXPECT_NE(lines[6].find(height), std::string::npos) << lines[6];
}

TEST(active_depth, the_last_cell_alone_ends_the_run_too) {
  Model m = kelptest::small_model(4);
  m.waves.HRF.fill(1.0f);
  m.waves.HRF(4) = 1.5f;
  m.waves.TRF.fill(2.0f);
  kelptest::ReadableReport readable;
  const kelptest::Said said =
      kelptest::listen([&] { set_active_depth(m.grid, m.clock, m.waves, readable.report); });
  EXPECT_EQ(said.status, 1);
  EXPECT_EQ(readable.lines().at(4), "  CURRENT INDEX: 4");
}

TEST(active_depth, of_exactly_zero_ends_the_run_as_well) {
  Model m = kelptest::small_model(2);
  m.waves.HRF.fill(0.0f);
  m.waves.TRF.fill(8.0f);
  Report report;
  const kelptest::Said said =
      kelptest::listen([&] { set_active_depth(m.grid, m.clock, m.waves, report); });
  EXPECT_EQ(said.status, 1);
}

}  // namespace
}  // namespace kelprun
