#include "run/step_relations.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>
#include <vector>

#include "unit/run/in_process.h"
#include "unit/run/small_model.h"

namespace kelprun {
namespace {

Model with_steps(float DT, float WAVEDT, float DTSAVE) {
  Model m = kelptest::small_model(2);
  m.clock.DT = DT;
  m.clock.SPD = 24.0f / DT;
  m.clock.DTSAVE = DTSAVE;
  m.series.WAVEDT = WAVEDT;
  return m;
}

void accept(Model& m) {
  Report dropped;
  const kelptest::Said said = kelptest::listen([&] { check_step_relations(m, dropped); });
  EXPECT_FALSE(said.status.has_value()) << said.out;
}

void expect_refusal(Model m, const std::vector<std::string>& report, const std::string& console) {
  kelptest::ReadableReport readable;
  const kelptest::Said said = kelptest::listen([&] { check_step_relations(m, readable.report); });
  EXPECT_EQ(said.status, 1);
  EXPECT_EQ(said.out, kelptest::fatal_record(console));
  std::vector<std::string> expected;
  for (const std::string& line : report) expected.push_back(" " + line);
  EXPECT_EQ(readable.lines(), expected);
}

const std::vector<std::string> BAD_SAVE{
    " ERROR. DTSAVE MUST BE A MULTIPLE OF SIMULATION TIME STEP.",
    " PLEASE  REVIEW AND REVISE YOUR .cfg FILE."};
const std::string REVIEW_WAVES =
    " PLEASE REVIEW AND REVISE YOUR .cfg AND INPUT WAVE FILES AS APPROPRIATE.";

TEST(step_relations, a_save_interval_of_7_hours_does_not_go_with_steps_of_3) {
  // 7000 over 3000 leaves 1000.
  expect_refusal(with_steps(3.0f, 6.0f, 7.0f), BAD_SAVE,
                 "ERROR. DTSAVE not a multiple of simulation time step.");
  Model fits = with_steps(3.0f, 6.0f, 9.0f);
  accept(fits);
  EXPECT_EQ(fits.clock.NDTSAVE, 3);
}

TEST(step_relations, a_step_of_a_tenth_of_an_hour_goes_with_hourly_waves) {
  ASSERT_EQ(0.1f * 1000.0f, 100.0f);
  Model m = with_steps(0.1f, 1.0f, 24.0f);
  accept(m);
  EXPECT_EQ(m.clock.NWSTEP, 10);
  EXPECT_EQ(m.clock.NDTSAVE, 240);
}

TEST(step_relations, a_step_of_twenty_minutes_is_refused_though_it_divides_the_hour_by_hand) {
  // 1000/3 in single precision is above a third of 1000.
  Model m = with_steps(1.0f / 3.0f, 1.0f, 1.0f);
  ASSERT_GT(3.0 * static_cast<double>(1000.0f * m.clock.DT), 1000.0);
  expect_refusal(
      m,
      {" ERROR. TIME STEP IN WAVE FILE MUST BE A MULTIPLE OF SIMULATION TIME STEP.", REVIEW_WAVES},
      "ERROR. Wave time step not a multiple of simulation time step");
}

TEST(step_relations, a_step_longer_than_the_wave_step_is_refused_before_all_else) {
  expect_refusal(
      with_steps(4.0f, 3.0f, 7.0f),
      {" ERROR. SIMULATION TIME STEP GREATER THAN TIME STEP IN WAVE FILE.", REVIEW_WAVES},
      "ERROR. Simulation time step greater than wave time step");
}

TEST(step_relations, a_wave_step_that_is_no_multiple_is_refused_before_the_save_interval) {
  expect_refusal(
      with_steps(2.0f, 3.0f, 7.0f),
      {" ERROR. TIME STEP IN WAVE FILE MUST BE A MULTIPLE OF SIMULATION TIME STEP.", REVIEW_WAVES},
      "ERROR. Wave time step not a multiple of simulation time step");
}

TEST(step_relations, steps_between_water_levels_are_counted_where_transmission_is_computed) {
  Model m = with_steps(2.0f, 2.0f, 2.0f);
  m.series.DTWL = 6.0f;
  accept(m);
  EXPECT_EQ(m.clock.NWLSTEP, 0);
  m.settings.KTMETFLAG = 1;
  accept(m);
  EXPECT_EQ(m.clock.NWLSTEP, 3);
}

TEST(step_relations, steps_between_tidal_currents_are_counted_where_files_are_given) {
  Model m = with_steps(2.0f, 2.0f, 2.0f);
  m.series.DTTC = 4.0f;
  accept(m);
  EXPECT_EQ(m.clock.NTCSTEP, 0);
  m.series.TIDEFLAG = 1;
  accept(m);
  EXPECT_EQ(m.clock.NTCSTEP, 2);
}

TEST(step_relations, the_counts_of_steps_are_rounded_with_halves_away_from_zero) {
  Clock c;
  Series s;
  Settings settings;
  settings.KTMETFLAG = 1;
  c.DT = 2.0f;
  c.DTSAVE = 5.0f;
  s.WAVEDT = 3.0f;
  s.DTWL = 2.9f;
  s.TIDEFLAG = 1;
  s.DTTC = 7.0f;
  count_steps(c, settings, s);
  EXPECT_EQ(c.NDTSAVE, 3);
  EXPECT_EQ(c.NWSTEP, 2);
  EXPECT_EQ(c.NWLSTEP, 1);
  EXPECT_EQ(c.NTCSTEP, 4);
}

TEST(step_relations, an_interval_that_rounds_to_no_step_counts_as_one) {
  Clock c;
  Series s;
  Settings settings;
  settings.KTMETFLAG = 1;
  c.DT = 24.0f;
  c.DTSAVE = 1.0f;
  s.WAVEDT = 0.0f;
  s.TIDEFLAG = 1;
  s.DTTC = 6.0f;
  count_steps(c, settings, s);
  EXPECT_EQ(c.NDTSAVE, 1);
  EXPECT_EQ(c.NWSTEP, 1);
  EXPECT_EQ(c.NWLSTEP, 1);
  EXPECT_EQ(c.NTCSTEP, 1);
}

TEST(step_relations, the_day_fraction_and_the_volume_factor_follow_from_the_step) {
  Model m = with_steps(3.0f, 3.0f, 3.0f);
  m.settings.CONVYD3 = 0.75f;
  accept(m);
  EXPECT_EQ(m.clock.DAYSTEP, 0.125f);
  EXPECT_EQ(m.clock.VOLFAC, 14400.0f);
}

void add_fill(Model& m, std::int32_t first, std::int32_t last, float YADD) {
  m.events.NBF += 1;
  m.events.BFDATS.append(first);
  m.events.BFDATE.append(last);
  m.events.YADD.append(YADD);
}

TEST(step_relations, a_fill_dated_in_steps_is_spread_over_its_steps) {
  Model m = with_steps(3.0f, 3.0f, 3.0f);
  add_fill(m, 11, 20, 5.0f);
  add_fill(m, 7, 7, 3.0f);
  accept(m);
  EXPECT_EQ(m.events.YADD(1), 0.5f);
  EXPECT_EQ(m.events.YADD(2), 3.0f);
}

TEST(step_relations, a_dated_fill_is_spread_over_the_steps_of_its_days_without_leap_days) {
  Model m = with_steps(3.0f, 3.0f, 3.0f);
  add_fill(m, 19970101, 19970111, 40.0f);  // 10 days
  add_fill(m, 19960131, 19960301, 29.0f);  // 31 + 28 - 30 days
  add_fill(m, 19961101, 19970201, 92.0f);  // 365 - 273 days
  accept(m);
  EXPECT_EQ(m.events.YADD(1), 0.5f);
  EXPECT_EQ(m.events.YADD(2), 0.125f);
  EXPECT_EQ(m.events.YADD(3), 0.125f);
}

TEST(step_relations, the_days_of_a_fill_are_those_of_a_year_of_365_days_leap_year_or_not) {
  Model m = with_steps(24.0f, 24.0f, 24.0f);
  add_fill(m, 19960228, 19960301, 1.0f);    // 28 of February less 27: the 29th is not counted
  add_fill(m, 19960228, 19960229, 1.0f);    // the 29th itself is a day after the 28th
  add_fill(m, 19960229, 19960301, 3.0f);    // and no day before the 1st of March: 28 - 28
  add_fill(m, 19960101, 19970101, 365.0f);  // a leap year
  add_fill(m, 19960615, 20040615, 2920.0f);
  accept(m);
  EXPECT_EQ(m.events.YADD(1), 1.0f);
  EXPECT_EQ(m.events.YADD(2), 1.0f);
  EXPECT_EQ(m.events.YADD(3), std::numeric_limits<float>::infinity());
  EXPECT_EQ(m.events.YADD(4), 1.0f);
  EXPECT_EQ(m.events.YADD(5), 1.0f);
}

TEST(step_relations, months_count_backwards_where_a_fill_ends_in_an_earlier_one) {
  Model m = with_steps(24.0f, 24.0f, 24.0f);
  add_fill(m, 19971231, 19980101, 5.0f);    // 365 - 30 - 334
  add_fill(m, 19971231, 19990101, 366.0f);  // the same and a year
  add_fill(m, 19970330, 19980228, 335.0f);  // 365 - 2 - 28
  accept(m);
  EXPECT_EQ(m.events.YADD(1), 5.0f);
  EXPECT_EQ(m.events.YADD(2), 1.0f);
  EXPECT_EQ(m.events.YADD(3), 1.0f);
}

TEST(step_relations, a_fill_counts_in_days_or_steps_by_its_own_start_whatever_the_first_one_does) {
  for (const bool steps_first : {true, false}) {
    Model m = with_steps(3.0f, 3.0f, 3.0f);
    if (steps_first) add_fill(m, 11, 20, 5.0f);
    add_fill(m, 19970101, 19970111, 40.0f);
    if (!steps_first) add_fill(m, 11, 20, 5.0f);
    accept(m);
    EXPECT_EQ(m.events.YADD(1), 0.5f);
    EXPECT_EQ(m.events.YADD(2), 0.5f);
  }
}

TEST(step_relations, eighteen_million_is_the_last_step_number_of_a_fill) {
  Model m = with_steps(24.0f, 24.0f, 24.0f);
  add_fill(m, 18000000, 18000003, 8.0f);  // four steps
  add_fill(m, 18000001, 18000003, 8.0f);  // two days of month 0
  accept(m);
  EXPECT_EQ(m.events.YADD(1), 2.0f);
  EXPECT_EQ(m.events.YADD(2), 4.0f);
}

TEST(step_relations, a_start_in_steps_lets_any_end_pass_and_a_dated_one_counts_days_to_any_end) {
  Model m = with_steps(24.0f, 24.0f, 24.0f);
  add_fill(m, 5, 19971399, 19971395.0f);
  add_fill(m, 19970101, 20, 728886.0f);  // day 20 of month and year 0: -1997 years and 19 days
  accept(m);
  EXPECT_EQ(m.events.YADD(1), 1.0f);
  EXPECT_EQ(m.events.YADD(2), -1.0f);
}

TEST(step_relations, a_fill_that_ends_before_it_starts_gets_an_amount_of_the_other_sign) {
  Model m = with_steps(24.0f, 24.0f, 24.0f);
  add_fill(m, 19970111, 19970101, 10.0f);
  add_fill(m, 19980301, 19970301, -365.0f);
  add_fill(m, 20, 11, 16.0f);  // 11 - 20 + 1
  accept(m);
  EXPECT_EQ(m.events.YADD(1), -1.0f);
  EXPECT_EQ(m.events.YADD(2), 1.0f);
  EXPECT_EQ(m.events.YADD(3), -2.0f);
}

TEST(step_relations, a_fill_of_no_days_or_of_minus_one_step_gets_an_infinite_amount) {
  constexpr float INFINITE = std::numeric_limits<float>::infinity();
  Model m = with_steps(24.0f, 24.0f, 24.0f);
  add_fill(m, 19970101, 19970101, 10.0f);
  add_fill(m, 19970101, 19970101, -10.0f);
  add_fill(m, 6, 5, 10.0f);
  add_fill(m, 5, 5, 10.0f);
  accept(m);
  EXPECT_EQ(m.events.YADD(1), INFINITE);
  EXPECT_EQ(m.events.YADD(2), -INFINITE);
  EXPECT_EQ(m.events.YADD(3), INFINITE);
  EXPECT_EQ(m.events.YADD(4), 10.0f) << "one step takes all of it";
}

TEST(step_relations, the_steps_of_a_fill_are_a_single_precision_product) {
  Model m = with_steps(0.7f, 0.7f, 0.7f);
  add_fill(m, 19970101, 19970112, 10.0f);
  accept(m);
  EXPECT_EQ(m.events.YADD(1), 10.0f / (11.0f * (24.0f / 0.7f)));
}

TEST(step_relations, month_12_and_day_31_pass_as_the_last_month_and_day_0_as_the_first) {
  Model m = with_steps(24.0f, 24.0f, 24.0f);
  add_fill(m, 19971231, 19980231, 62.0f);  // 365 less the 303 days of February to November
  add_fill(m, 19970000, 19970100, 1.0f);   // month 0 has no days
  accept(m);
  EXPECT_EQ(m.events.YADD(1), 1.0f);
  EXPECT_EQ(m.events.YADD(2), std::numeric_limits<float>::infinity());
}

TEST(step_relations, a_fill_in_month_13_or_on_day_32_is_refused) {
  for (const std::int32_t date : {19971301, 19970132}) {
    for (const bool at_start : {true, false}) {
      Model m = with_steps(3.0f, 3.0f, 3.0f);
      add_fill(m, at_start ? date : 19970101, at_start ? 19980101 : date, 1.0f);
      expect_refusal(
          m, {" ERROR. INCORRECT FORMAT ON BEACH FILL DATES.", " PLEASE CORRECT YOUR .spd FILE."},
          "ERROR. Incorrect format on beach fill dates.");
    }
  }
}

}  // namespace
}  // namespace kelprun
