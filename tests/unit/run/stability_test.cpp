#include "run/stability.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "unit/run/in_process.h"
#include "unit/run/small_model.h"

namespace kelprun {
namespace {

float parameter(const Model& m) {
  return stability_parameter(m.grid, m.profile, m.waves, m.clock.DT);
}

/// A coast on which the stability parameter of a uniform wave of 1 m is the step length in hours:
/// 2 H^2 K1EFF Cg 3600 DT/(DX^2 D) with K1EFF 0.5, Cg 1, DX 60 and D 1.
Model plain_coast(std::int32_t NX) {
  Model m = kelptest::small_model(NX);
  m.clock.DT = 1.0f;
  m.grid.DX.fill(60.0f);
  m.profile.DCLOSCELL.fill(0.5f);
  m.profile.BERMHTCELL.fill(0.5f);
  m.profile.K1EFF.fill(0.5f);
  m.waves.HB.fill(1.0f);
  m.waves.CGB.fill(1.0f);
  return m;
}

TEST(stability, a_uniform_wave_on_a_uniform_coast_has_twice_its_diffusive_number) {
  for (const float DT : {0.25f, 1.0f, 6.0f}) {
    Model m = plain_coast(10);
    m.clock.DT = DT;
    EXPECT_EQ(parameter(m), DT);
  }
}

/// S evaluated in double over all cells, without any short cut.
double brute_force(const Model& m) {
  const auto H = [&](std::int32_t i) { return static_cast<double>(m.waves.HB(i)); };
  const auto Cg = [&](std::int32_t i) { return static_cast<double>(m.waves.CGB(i)); };
  const auto r = [&](std::int32_t i) {
    const auto DX = static_cast<double>(m.grid.DX(i));
    const double D =
        static_cast<double>(m.profile.DCLOSCELL(i)) + static_cast<double>(m.profile.BERMHTCELL(i));
    return 3600.0 * static_cast<double>(m.clock.DT) / (DX * DX * D);
  };
  std::int32_t i = 1;
  if (m.grid.NX >= 3)
    for (std::int32_t c = m.grid.NX - 1; c >= 1; --c)
      if (m.waves.HB(c) * m.waves.HB(c) * m.waves.CGB(c) >=
          m.waves.HB(i) * m.waves.HB(i) * m.waves.CGB(i))
        i = c;
  // Going down with "not below" ends at the first of the largest, but cell 1 began as a candidate.
  const double S1 = 2.0 * H(i) * H(i) * static_cast<double>(m.profile.K1EFF(i)) * Cg(i) * r(i);
  if (m.profile.K2EFF(i) < 0.001f) return S1;
  std::int32_t j = 1;
  float t = 0.0f;
  for (std::int32_t c = 2; c <= m.grid.NX; ++c) {
    const float here = std::sin(m.waves.ZB(c)) * (m.waves.HB(c + 1) - m.waves.HB(c - 1));
    if (here > t) {
      t = here;
      j = c;
    }
  }
  return S1 + H(j) * H(j) * static_cast<double>(m.profile.K2EFF(j)) * Cg(j) * r(j) *
                  static_cast<double>(t) / (2.0 * static_cast<double>(m.grid.DX(j)));
}

TEST(stability, agrees_with_a_search_over_all_cells_on_random_fields) {
  kelptest::Random random(101);
  std::int32_t with_gradient = 0;
  for (int n = 0; n < 3000; ++n) {
    const std::int32_t NX = random.whole(1, 25);
    Model m = kelptest::small_model(NX);
    m.clock.DT = random.real(0.01, 6.0);
    // Few different heights, so that ties are frequent.
    const bool coarse = random.whole(0, 1) == 0;
    const float K2EFF = random.whole(0, 3) == 0 ? 0.0009f : 0.3f;
    for (std::int32_t i = 1; i <= NX + 1; ++i) {
      m.waves.HB(i) =
          coarse ? 0.5f * static_cast<float>(random.whole(0, 4)) : random.real(0.0, 3.0);
      m.waves.CGB(i) = coarse ? 2.0f : random.real(1.0, 6.0);
      m.waves.ZB(i) = random.real(-1.5, 1.5);
      m.grid.DX(i) = random.real(20.0, 200.0);
      m.profile.DCLOSCELL(i) = random.real(3.0, 10.0);
      m.profile.K1EFF(i) = random.real(0.005, 0.03);
      m.profile.K2EFF(i) = K2EFF * random.real(0.9, 1.0);
    }
    const double S = brute_force(m);
    ASSERT_NEAR(static_cast<double>(parameter(m)), S, 1e-6 * S) << n;
    with_gradient += K2EFF > 0.1f ? 1 : 0;
  }
  EXPECT_GT(with_gradient, 1000);
}

TEST(stability, among_equal_fluxes_the_first_cell_counts) {
  Model m = plain_coast(6);
  kelptest::put(m.waves.HB, std::array{0.5f, 1.0f, 0.5f, 1.0f, 0.5f, 0.5f, 0.5f});
  m.grid.DX(2) = 120.0f;  // a quarter of the number of the others
  EXPECT_EQ(parameter(m), 0.25f);
}

TEST(stability, the_last_cell_and_the_last_wall_are_not_looked_at_for_the_flux) {
  Model m = plain_coast(4);
  kelptest::put(m.waves.HB, std::array{1.0f, 1.0f, 1.0f, 5.0f, 9.0f});
  EXPECT_EQ(parameter(m), 1.0f);
}

TEST(stability, a_coast_of_fewer_than_three_cells_looks_at_the_first) {
  for (const std::int32_t NX : {1, 2}) {
    Model m = plain_coast(NX);
    m.waves.HB(2) = 3.0f;
    m.waves.HB(1) = 0.5f;
    EXPECT_EQ(parameter(m), 0.25f);
  }
}

/// Five cells with heights that rise to the right by 0.5 m over cell 3, where the wave comes in at
/// an angle.
Model sloping_coast() {
  Model m = plain_coast(5);
  kelptest::put(m.waves.HB, std::array{1.0f, 1.0f, 1.0f, 1.5f, 1.0f, 1.0f});
  kelptest::put(m.waves.ZB, std::array{0.0f, 0.0f, 0.5f, 0.0f, 0.0f, 0.0f});
  m.profile.K2EFF.fill(0.5f);
  return m;
}

TEST(stability, the_gradient_term_adds_its_own_worst_cell) {
  // S1 from cell 4: 1.5^2. S2 from cell 3: 0.5 1 3600/3600 sin(0.5) 0.5/(2 60).
  const double S2 = 0.5 * std::sin(0.5) * 0.5 / 120.0;
  EXPECT_NEAR(static_cast<double>(parameter(sloping_coast())), 2.25 + S2, 1e-6);
}

TEST(stability, waves_that_come_from_their_higher_side_add_nothing) {
  Model m = sloping_coast();
  m.waves.ZB(3) = -0.5f;
  EXPECT_EQ(parameter(m), 2.25f);
  m.waves.ZB(5) = -0.5f;  // falling heights and a negative angle: positive again
  EXPECT_GT(parameter(m), 2.25f);
}

TEST(stability, a_gradient_coefficient_below_a_thousandth_at_the_worst_flux_switches_it_off) {
  Model m = sloping_coast();
  m.profile.K2EFF(4) = std::nextafter(0.001f, 0.0f);
  EXPECT_EQ(parameter(m), 2.25f);
  m.profile.K2EFF(4) = 0.001f;
  EXPECT_GT(parameter(m), 2.25f) << "the cell of the gradient has its full coefficient";
}

Series dated_waves() {
  Series s;
  s.WAVEID = 3;
  s.WAVEDATE = kelptest::list(std::array{19970101, 19970102, 19970103});
  s.WAVEHOUR = kelptest::list(std::array<std::int16_t, 3>{0, 600, 1200});
  s.IWEVENT = 3;  // the reading of the pass has moved it on from the second entry
  return s;
}

std::vector<std::string> warned(Settings settings, float S, Clock& c, std::string& console) {
  Waves waves;
  waves.pass = {.HZ = 1.5f, .T = 8.0f, .ZZ = 30.0f, .ZZDEG = 25.0f};
  kelptest::ReadableReport readable;
  console = kelptest::listen([&] {
              warn_of_instability(settings, dated_waves(), waves, S, c, readable.report);
            }).out;
  return readable.lines();
}

TEST(instability_warning, a_parameter_of_exactly_a_half_is_stable) {
  Settings settings;
  Clock c;
  std::string console;
  EXPECT_TRUE(warned(settings, 0.5f, c, console).empty());
  EXPECT_TRUE(console.empty());
  EXPECT_TRUE(c.FIRSTWARN);
}

TEST(instability_warning, tells_the_console_and_the_report_with_the_wave_of_the_pass) {
  Settings settings;
  Clock c;
  c.CURDATE = 19970104;
  std::string console;
  const auto report = warned(settings, 0.75f, c, console);
  EXPECT_EQ(console,
            " WARNING!  Solution is unstable.\n Check printable output file for details.\n");
  EXPECT_EQ(report, (std::vector<std::string>{"  WARNING!  CALCULATION SCHEME UNSTABLE.",
                                              "  STABILITY PARAMETER = 0.75",
                                              "  PLEASE CONSULT YOUR MANUAL.",
                                              " date is 19970104 wave date is 19970102hours is 600",
                                              " hz is 1.5zzdeg is 25.t is 8."}));
  EXPECT_FALSE(c.FIRSTWARN);
}

TEST(instability_warning, with_repeated_warnings_held_back_the_report_is_told_once) {
  Settings settings;
  settings.PRWARN = false;
  Clock c;
  std::string console;
  EXPECT_EQ(warned(settings, 0.75f, c, console).size(), 5u);
  EXPECT_TRUE(warned(settings, 0.75f, c, console).empty());
  EXPECT_FALSE(console.empty()) << "the console is always told";
  settings.PRWARN = true;
  EXPECT_EQ(warned(settings, 0.75f, c, console).size(), 5u);
}

TEST(instability_warning, its_limit_follows_neither_configured_bound) {
  Settings settings;
  settings.STABMIN = 2.0f;
  settings.STABMAX = 2.0f;
  Clock c;
  std::string console;
  EXPECT_EQ(warned(settings, 0.75f, c, console).size(), 5u);
}

}  // namespace
}  // namespace kelprun
