#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "run/stability.h"
#include "run/step_relations.h"
#include "unit/run/in_process.h"
#include "unit/run/small_model.h"

namespace kelprun {
namespace {

/// A coast whose stability parameter is its step length in hours, adapting, with a ceiling and a
/// quiet limit of 0.5.
Model adaptive_coast(float DT) {
  Model m = kelptest::small_model(4);
  m.grid.DX.fill(60.0f);
  m.profile.DCLOSCELL.fill(0.5f);
  m.profile.BERMHTCELL.fill(0.5f);
  m.profile.K1EFF.fill(0.5f);
  m.waves.HB.fill(1.0f);
  m.waves.CGB.fill(1.0f);
  m.settings.DTADAPT = 1;
  m.settings.DTMIN = 0.0001;
  m.settings.DTMAX = 4.0f;
  m.clock.DT = DT;
  m.clock.SPD = 24.0f / DT;
  m.clock.DAYSTEP = 1.0f / m.clock.SPD;
  m.clock.NDAYS = 10;
  m.clock.NTS = static_cast<std::int32_t>(10.0f * m.clock.SPD);
  m.clock.DAYF = 10.5f;
  m.clock.DTSAVE = 24.0f;
  m.clock.NSTABSTEPS = 3.0f;
  m.series.WAVEDT = 4.0f;
  m.series.DTWL = 8.0f;
  m.settings.KTMETFLAG = 1;  // so that water levels count
  m.series.DTTC = 2.0f;
  m.series.TIDEFLAG = 1;
  count_steps(m.clock, m.settings, m.series);
  m.clock.VOLFAC = volume_factor(DT, 1.0f);
  return m;
}

/// One evaluation with the parameter of the coast as it stands; gives what was said.
kelptest::Said adapt(Model& m) {
  Report dropped;
  return kelptest::listen([&] { adapt_step(m, m.clock.DT, dropped); });
}

TEST(adaptive_step, one_pass_halves_the_step_as_often_as_it_must) {
  Model m = adaptive_coast(4.0f);
  const std::string console = adapt(m).out;
  EXPECT_EQ(m.clock.DT, 0.5f) << "at exactly 0.5 the parameter is not above the ceiling";
  EXPECT_TRUE(m.clock.DTCHANGED);
  // The messages appear once, the first with the old parameter, the second with the new.
  const auto lines = kelptest::lines(console);
  std::int32_t heads = 0;
  std::int32_t tails = 0;
  for (const std::string& line : lines) {
    heads += line == "           Current simulation STABILITY PARAMETER is: 4." ? 1 : 0;
    tails += line == "           .................NEW STABILITY PARAMETER = 0.5" ? 1 : 0;
  }
  EXPECT_EQ(heads, 1);
  EXPECT_EQ(tails, 1);
}

TEST(adaptive_step, a_parameter_of_exactly_a_half_is_quiet_and_changes_nothing) {
  Model m = adaptive_coast(0.5f);
  m.settings.DTMAX = 0.5f;
  EXPECT_TRUE(adapt(m).out.empty());
  EXPECT_EQ(m.clock.DT, 0.5f);
  EXPECT_EQ(m.clock.NSTABLE, 1);
  EXPECT_FALSE(m.clock.DTCHANGED);
}

TEST(adaptive_step, a_reduction_ends_at_the_least_step_and_is_accepted_if_that_is_stable) {
  Model m = adaptive_coast(4.0f);
  m.settings.STABMIN = 0.75f;
  m.settings.DTMIN = 0.75;
  const kelptest::Said said = adapt(m);
  EXPECT_EQ(m.clock.DT, 0.75f) << "4, 2, 1, and 0.75 in the place of 0.5";
  EXPECT_TRUE(said.err.empty());
  EXPECT_EQ(m.clock.NTS, 320);
}

TEST(adaptive_step, an_unstable_least_step_is_kept_with_one_word_on_standard_error) {
  Model m = adaptive_coast(4.0f);
  m.settings.DTMIN = 0.75;
  const kelptest::Said said = adapt(m);
  EXPECT_EQ(m.clock.DT, 0.75f);
  EXPECT_EQ(kelptest::lines(said.err).size(), 1u);
  EXPECT_NE(said.err.find("DTMIN"), std::string::npos);
  EXPECT_NE(said.out.find("NEW DT = 0.75\n"), std::string::npos);
  EXPECT_EQ(m.clock.SPD, 32.0f) << "everything is rescaled all the same";
  EXPECT_FALSE(said.status.has_value());
}

TEST(adaptive_step, a_least_step_above_the_present_one_lengthens_it) {
  // The bound holds over the halving even where it points upwards.
  Model m = adaptive_coast(2.0f);
  m.settings.STABMIN = 1.0f;
  m.settings.DTMIN = 3.0;
  adapt(m);
  EXPECT_EQ(m.clock.DT, 3.0f);
}

TEST(adaptive_step, a_reduction_leaves_the_quiet_count) {
  Model m = adaptive_coast(1.0f);
  m.clock.NSTABLE = 2;
  adapt(m);
  EXPECT_EQ(m.clock.DT, 0.5f);
  EXPECT_EQ(m.clock.NSTABLE, 2);
}

TEST(adaptive_step, between_the_two_limits_a_pass_neither_counts_nor_reduces) {
  Model m = adaptive_coast(0.25f);
  m.settings.STABMAX = 0.125f;
  m.clock.NSTABLE = 2;
  EXPECT_TRUE(adapt(m).out.empty());
  EXPECT_EQ(m.clock.NSTABLE, 0);
  EXPECT_EQ(m.clock.DT, 0.25f);
  m.settings.STABMAX = 0.25f;
  adapt(m);
  EXPECT_EQ(m.clock.NSTABLE, 1) << "at the quiet limit itself";
}

TEST(adaptive_step, a_long_enough_quiet_spell_doubles_the_step) {
  Model m = adaptive_coast(0.25f);
  for (int pass = 1; pass <= 3; ++pass) {
    EXPECT_TRUE(adapt(m).out.empty());
    EXPECT_EQ(m.clock.NSTABLE, pass);
    EXPECT_EQ(m.clock.DT, 0.25f);
  }
  EXPECT_NE(adapt(m).out.find("increase"), std::string::npos);
  EXPECT_EQ(m.clock.DT, 0.5f);
  EXPECT_EQ(m.clock.NSTABLE, 0);
  EXPECT_TRUE(m.clock.DTCHANGED);
  EXPECT_EQ(m.clock.SPD, 48.0f);
  EXPECT_EQ(m.clock.NTS, 480);
  EXPECT_EQ(m.clock.NSTABSTEPS, 1.5f) << "the same quiet days in fewer steps";
  adapt(m);
  EXPECT_FALSE(m.clock.DTCHANGED) << "the next evaluation clears the mark";
}

TEST(adaptive_step, an_increase_that_leads_above_the_ceiling_is_taken_back) {
  Model m = adaptive_coast(0.5f);
  m.clock.NSTABLE = 3;
  EXPECT_TRUE(adapt(m).out.empty());
  EXPECT_EQ(m.clock.DT, 0.5f);
  EXPECT_EQ(m.clock.NSTABLE, 0);
  EXPECT_FALSE(m.clock.DTCHANGED);
}

TEST(adaptive_step, a_refused_increase_to_the_largest_step_leaves_half_of_that_and_no_rescaling) {
  Model m = adaptive_coast(0.5f);
  m.settings.DTMAX = 0.75f;
  m.clock.NSTABLE = 3;
  EXPECT_TRUE(adapt(m).out.empty());
  EXPECT_EQ(m.clock.DT, 0.375f);
  EXPECT_EQ(m.clock.NSTABLE, 0);
  EXPECT_FALSE(m.clock.DTCHANGED);
  EXPECT_EQ(m.clock.SPD, 48.0f);
  EXPECT_EQ(m.clock.NTS, 480);
  EXPECT_EQ(m.clock.NDTSAVE, 48);
  EXPECT_EQ(m.clock.VOLFAC, 1800.0f);
  EXPECT_EQ(m.clock.NSTABSTEPS, 3.0f);
}

TEST(adaptive_step, an_increase_stops_at_the_largest_step) {
  Model m = adaptive_coast(0.25f);
  m.settings.DTMAX = 0.375f;
  m.clock.NSTABLE = 3;
  adapt(m);
  EXPECT_EQ(m.clock.DT, 0.375f);
  m.clock.NSTABLE = 100;
  EXPECT_TRUE(adapt(m).out.empty());
  EXPECT_EQ(m.clock.DT, 0.375f);
  EXPECT_EQ(m.clock.NSTABLE, 101) << "at the largest step the count goes on";
}

TEST(adaptive_step, a_step_that_shrank_grows_back_to_its_first_length_and_not_beyond) {
  Model m = adaptive_coast(1.0f);
  m.settings.DTMAX = 1.0f;  // what an adapting configuration takes as its default
  m.waves.HB.fill(2.0f);    // S = 4 DT
  Report dropped;
  const auto pass = [&] {
    kelptest::listen([&] {
      adapt_step(m, stability_parameter(m.grid, m.profile, m.waves, m.clock.DT), dropped);
    });
  };
  pass();
  EXPECT_EQ(m.clock.DT, 0.125f);
  EXPECT_EQ(m.clock.NTS, 1920);
  m.waves.HB.fill(0.125f);  // S = DT/64
  for (int n = 0; n < 200; ++n) pass();
  EXPECT_EQ(m.clock.DT, 1.0f);
  EXPECT_EQ(m.clock.NTS, 240);
  EXPECT_EQ(m.clock.NSTABSTEPS, 3.0f);
}

TEST(adaptive_step, everything_that_follows_from_the_step_is_rescaled) {
  Model m = adaptive_coast(4.0f);
  m.settings.CONVYD3 = 0.5f;
  m.settings.CONV = 0.5f;
  m.events.YADD = kelptest::list(std::array{8.0f, -0.8f});
  m.clock.NSTABSTEPS = 168.0f;
  m.boundaries.left = {.BCTYPE = 3, .MOVY = 96.0f, .MOVPER = 1};
  m.boundaries.right = {.BCTYPE = 3, .MOVY = 12.0f, .MOVPER = 2};
  adapt(m);
  ASSERT_EQ(m.clock.DT, 0.5f);
  const Clock& c = m.clock;
  EXPECT_EQ(c.SPD, 48.0f);
  EXPECT_EQ(c.DAYSTEP, 1.0f / 48.0f);
  EXPECT_EQ(c.DAYF, 10.5f - 1.0f / 6.0f + 1.0f / 48.0f);
  EXPECT_EQ(c.NTS, 480);
  EXPECT_EQ(c.VOLFAC, 3600.0f);
  EXPECT_EQ(c.NDTSAVE, 48);
  EXPECT_EQ(c.NWSTEP, 8);
  EXPECT_EQ(c.NWLSTEP, 16);
  EXPECT_EQ(c.NTCSTEP, 4);
  EXPECT_EQ(c.NSTABSTEPS, 1344.0f);
  EXPECT_EQ(m.events.YADD(1), 1.0f);
  EXPECT_EQ(m.events.YADD(2), -0.8f * 6.0f / 48.0f);
  EXPECT_EQ(m.boundaries.left.MOVSTEP, 0.1f);     // 48 m over 480 steps
  EXPECT_EQ(m.boundaries.right.MOVSTEP, 0.125f);  // 6 m over 48 steps
}

TEST(adaptive_step, a_movement_per_step_keeps_its_distance_and_a_pinned_end_stays) {
  Model m = adaptive_coast(4.0f);
  m.boundaries.left = {.BCTYPE = 3, .MOVY = 0.25f, .MOVPER = 3};
  m.boundaries.right = {.BCTYPE = 0, .MOVY = 5.0f, .MOVPER = 1};
  adapt(m);
  EXPECT_EQ(m.boundaries.left.MOVSTEP, 0.25f);
  EXPECT_EQ(m.boundaries.right.MOVSTEP, 0.0f);
}

TEST(adaptive_step, a_run_that_ends_by_its_step_count_keeps_its_hours) {
  Model m = adaptive_coast(4.0f);
  m.clock.NDAYS = 0;
  m.clock.NTS = 61;
  adapt(m);
  ASSERT_EQ(m.clock.DT, 0.5f);
  EXPECT_EQ(m.clock.NTS, 488);
}

TEST(adaptive_step, counts_of_steps_are_rounded_and_never_nothing) {
  Model m = adaptive_coast(4.0f);
  m.settings.STABMIN = 3.0f;  // one halving, to 2 h
  m.clock.DTSAVE = 5.0f;
  m.series.WAVEDT = 0.0f;
  adapt(m);
  ASSERT_EQ(m.clock.DT, 2.0f);
  EXPECT_EQ(m.clock.NDTSAVE, 3) << "2.5 steps";
  EXPECT_EQ(m.clock.NWSTEP, 1);
}

TEST(adaptive_step, the_wave_in_force_is_kept_where_it_must_now_last_for_several_steps) {
  for (const bool several : {true, false}) {
    Model m = adaptive_coast(4.0f);
    m.series.WAVEDT = several ? 4.0f : 0.5f;
    m.waves.held.HZ = 7.0f;
    m.waves.HRF_held.fill(7.0f);
    m.waves.pass.HZ = 2.0f;
    m.waves.HRF.fill(2.0f);
    adapt(m);
    ASSERT_EQ(m.clock.DT, 0.5f);
    EXPECT_EQ(m.clock.NWSTEP, several ? 8 : 1);
    EXPECT_EQ(m.waves.held.HZ, several ? 2.0f : 7.0f);
    EXPECT_EQ(m.waves.HRF_held(3), several ? 2.0f : 7.0f);
  }
}

TEST(adaptive_step, without_its_switch_an_unstable_step_stands) {
  for (const std::int32_t DTADAPT : {0, 2, -1}) {
    Model m = adaptive_coast(4.0f);
    m.settings.DTADAPT = DTADAPT;
    m.clock.DTCHANGED = true;
    EXPECT_TRUE(adapt(m).out.empty());
    EXPECT_EQ(m.clock.DT, 4.0f);
    EXPECT_EQ(m.clock.NSTABLE, 0);
    EXPECT_TRUE(m.clock.DTCHANGED) << "the mark is cleared only while the step adapts";
  }
}

/// The same lines on the console and in the report.
void expect_both(Model& m, const std::vector<std::string>& expected) {
  kelptest::ReadableReport readable;
  const kelptest::Said said = kelptest::listen([&] { adapt_step(m, m.clock.DT, readable.report); });
  std::vector<std::string> lines;
  for (const std::string& line : expected) lines.push_back(" " + line);
  EXPECT_EQ(kelptest::lines(said.out), lines);
  EXPECT_EQ(readable.lines(), lines);
}

void date_waves(Model& m) {
  m.clock.NEXTDATE = 19970105;
  m.series.WAVEID = 2;
  m.series.WAVEDATE = kelptest::list(std::array{19970103, 19970104});
  m.series.WAVEHOUR = kelptest::list(std::array<std::int16_t, 2>{600, 1200});
  m.series.IWEVENT = 2;
  m.waves.pass = {.HZ = 1.25f, .T = 8.0f, .ZZ = 20.0f, .ZZDEG = 15.5f};
}

const std::string STARS(63, '*');
const std::string DASHES(63, '-');

TEST(adaptive_step, a_reduction_is_told_on_the_console_and_in_the_report) {
  Model m = adaptive_coast(1.0f);
  date_waves(m);
  expect_both(
      m, {std::string(44, ' '), STARS,
          " WARNING: Solution is unstable.......................          ",
          "          Current simulation STABILITY PARAMETER is: 1.",
          "          Current simulation date is:                19970105",
          "          Current wave event date is:           19970103",
          "          Current wave event hour is:            600",
          "          Current wave Height (HZ)is:            1.25",
          "          Current wave Period (T)is:             8.",
          "          Current wave Direction(zzdeg) is:      15.5",
          " ACTION:  Commence adaptive time-step (DT) reduction!!!        ", DASHES,
          std::string(40, ' '), "          ..................................NEW DT = 0.5",
          "          .................NEW STABILITY PARAMETER = 0.5", STARS, std::string(63, ' ')});
}

TEST(adaptive_step, an_increase_is_told_on_the_console_and_in_the_report) {
  Model m = adaptive_coast(0.25f);
  date_waves(m);
  m.clock.NSTABLE = 3;
  expect_both(
      m, {std::string(40, ' '), STARS,
          " NOTICE: Computational efficiency can be improved...           ", DASHES,
          " ACTION:  Commence adaptive time-step (DT) increase!!!         ",
          "          Current simulation date is:                19970105",
          "          ..................................NEW DT = 0.5",
          "          .................NEW STABILITY PARAMETER = 0.5", STARS, std::string(63, ' ')});
}

TEST(adaptive_step, before_the_first_dated_wave_the_messages_show_zero) {
  Model m = adaptive_coast(1.0f);
  date_waves(m);
  m.series.IWEVENT = 1;
  EXPECT_NE(adapt(m).out.find("Current wave event date is:           0\n"), std::string::npos);
  Model wrapped = adaptive_coast(1.0f);
  date_waves(wrapped);
  wrapped.series.IWEVENT = 1;
  wrapped.clock.CYCLED = true;
  EXPECT_NE(adapt(wrapped).out.find("Current wave event date is:           19970104\n"),
            std::string::npos);
}

}  // namespace
}  // namespace kelprun
