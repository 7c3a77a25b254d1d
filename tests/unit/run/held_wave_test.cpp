#include "run/held_wave.h"

#include <gtest/gtest.h>

#include <array>

#include "unit/run/small_model.h"

namespace kelprun {
namespace {

TEST(held_wave, gives_back_the_wave_of_the_pass_and_of_every_wall) {
  Model m = kelptest::small_model(2);
  Waves& w = m.waves;
  w.pass = {.HZ = 1.5f, .T = 8.0f, .ZZ = 12.0f, .ZZDEG = 10.0f};
  kelptest::put(w.HRF, std::array{1.0f, 1.25f, 1.5f});
  kelptest::put(w.ZRF, std::array{0.1f, 0.2f, 0.3f});
  hold_wave(w);
  // The wave field clears angles and a later record may lie in between.
  w.pass = {.HZ = 9.0f, .T = 9.0f, .ZZ = 9.0f, .ZZDEG = 9.0f};
  w.HRF.fill(9.0f);
  w.ZRF.fill(0.0f);
  restore_wave(w);
  EXPECT_EQ(w.pass.HZ, 1.5f);
  EXPECT_EQ(w.pass.T, 8.0f);
  EXPECT_EQ(w.pass.ZZ, 12.0f);
  EXPECT_EQ(w.pass.ZZDEG, 10.0f);
  EXPECT_EQ(w.HRF(1), 1.0f);
  EXPECT_EQ(w.HRF(2), 1.25f);
  EXPECT_EQ(w.HRF(3), 1.5f);
  EXPECT_EQ(w.ZRF(1), 0.1f);
  EXPECT_EQ(w.ZRF(3), 0.3f);
}

TEST(held_wave, can_be_given_back_any_number_of_times) {
  Model m = kelptest::small_model(1);
  m.waves.HRF.fill(2.0f);
  hold_wave(m.waves);
  for (int n = 0; n < 3; ++n) {
    m.waves.HRF.fill(0.0f);
    restore_wave(m.waves);
    EXPECT_EQ(m.waves.HRF(2), 2.0f);
  }
}

TEST(held_wave, the_periods_and_depths_of_the_walls_are_not_part_of_it) {
  Model m = kelptest::small_model(1);
  m.waves.TRF.fill(8.0f);
  m.waves.DRF.fill(10.0f);
  hold_wave(m.waves);
  m.waves.TRF.fill(9.0f);
  m.waves.DRF.fill(11.0f);
  restore_wave(m.waves);
  EXPECT_EQ(m.waves.TRF(1), 9.0f);
  EXPECT_EQ(m.waves.DRF(1), 11.0f);
}

}  // namespace
}  // namespace kelprun
