#include <gtest/gtest.h>

#include <cmath>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "unit/run/in_process.h"

/// The place of beach fills and bypassing within a step, on the straight coast of the basic
/// configuration: 20 cells of 100 m at a distance of 100 m, with an active height of 9 m.
namespace kelprun {
namespace {

using kelptest::WatchedRun;
using Changes = std::map<std::string, std::string>;
using Lines = std::vector<std::string>;

/// 10 m in step 3 on cells 8 to 12; the other half belongs to step 4, which does not count.
const Lines FILL_IN_STEP_3{"BFDATS: 3", "BFDATE: 4", "IBFS: 8", "IBFE: 12", "YADD: 20"};
/// A cubic metre a second, in steps 3 and 4 on cells 8 to 12.
const Lines SOURCE_IN_STEPS_3_AND_4{"BPDATS: 3", "BPDATE: 5", "IBPS: 8", "IBPE: 12", "QBP: 3600"};

template <class Routine>
void quietly(Routine routine) {
  const kelptest::Said said = kelptest::listen(routine);
  EXPECT_FALSE(said.status.has_value());
  if (testing::Test::HasFailure()) std::cout << said.out << said.err;
}

std::string with_events(const Lines& events, const Changes& changes = {}) {
  return kelptest::basic_configuration(changes, events);
}

void steps(WatchedRun& run, int count) {
  for (int n = 1; n <= count; ++n) ASSERT_TRUE(run.step());
}

TEST(step, a_fill_turns_the_shoreline_but_not_yet_the_contour) {
  quietly([&] {
    WatchedRun run(with_events(FILL_IN_STEP_3), "1 8 0\n");
    steps(run, 3);
    const Shore& s = run.model().shore;
    for (std::int32_t i = 1; i <= 20; ++i) {
      EXPECT_EQ(s.YOLD(i), 100.0) << "cell " << i;
      EXPECT_EQ(s.ALPHAC(i), 0.0f) << "wall " << i;
    }
    const auto turn = static_cast<float>(std::atan(0.1));
    EXPECT_EQ(s.ALPHA(8), turn);
    EXPECT_EQ(s.ALPHA(13), -turn);
    EXPECT_EQ(s.ALPHA(10), 0.0f);
    EXPECT_LT(run.model().transport.Q(8), 0.0f) << "sand leaves the fill on both sides";
    EXPECT_GT(run.model().transport.Q(13), 0.0f);
    steps(run, 1);
    EXPECT_NE(s.YOLD(8), 100.0);
    EXPECT_NE(s.ALPHAC(8), 0.0f);
  });
}

TEST(step, a_fill_counts_for_the_extremes_of_its_step) {
  quietly([&] {
    WatchedRun run(with_events(FILL_IN_STEP_3), "0 8 0\n");
    steps(run, 2);
    EXPECT_EQ(run.model().shore.YMAX(10), 100.0f);
    steps(run, 1);
    EXPECT_EQ(run.model().shore.YMAX(10), 110.0f);
    EXPECT_EQ(run.model().shore.YMIN(10), 100.0f);
  });
}

TEST(step, a_fill_on_the_anniversary_counts_for_the_change_of_the_year) {
  quietly([&] {
    WatchedRun run(
        with_events({"BFDATS: 19980101", "BFDATE: 19980102", "IBFS: 8", "IBFE: 12", "YADD: 10"},
                    {{"DT", "24"}, {"DTSAVE", "24"}, {"SIMDATE", "370"}}),
        "0 8 0\n");
    steps(run, 364);
    EXPECT_EQ(run.model().shore.YDIFF(10), 0.0f);
    steps(run, 1);
    EXPECT_EQ(run.model().clock.CURDATE, 19980101);
    EXPECT_EQ(run.model().shore.YDIFF(10), 10.0f);
    EXPECT_EQ(run.model().shore.YDIFF(7), 0.0f);
  });
}

TEST(step, the_sources_of_bypassing_last_for_their_steps_only) {
  quietly([&] {
    WatchedRun run(with_events(SOURCE_IN_STEPS_3_AND_4), "0 8 0\n");
    // A cubic metre a second over 500 m, divided by an hour's seconds.
    const std::vector<double> rates{0, 0, 0.002, 0.002, 0, 0};
    for (const double rate : rates) {
      steps(run, 1);
      EXPECT_DOUBLE_EQ(run.model().shore.DYSRC(10), rate) << run.model().clock.ITS;
      EXPECT_EQ(run.model().shore.DYSRC(7), 0.0);
      EXPECT_EQ(run.model().shore.DYSRC(13), 0.0);
    }
  });
}

TEST(step, what_calm_weather_places_is_what_the_ledgers_hold) {
  quietly([&] {
    for (const std::string units : {"(m)", "(ft)"}) {
      Lines events = FILL_IN_STEP_3;
      events.insert(events.end(), SOURCE_IN_STEPS_3_AND_4.begin(), SOURCE_IN_STEPS_3_AND_4.end());
      events.insert(events.end(), {"BPDATS: 2", "BPDATE: 6", "IBPS: 3", "IBPE: 5", "QBP: -100"});
      events.insert(events.end(), {"BFDATS: 6", "BFDATE: 8", "IBFS: 5", "IBFE: 9", "YADD: -3"});
      WatchedRun run(with_events(events, {{"KELUNITS", units}}), "0 8 0\n");
      run.complete();
      const Ledgers& l = run.model().ledgers;
      double placed = 0.0;
      double removed = 0.0;
      for (std::int32_t i = 1; i <= 20; ++i) {
        const double of_cell = static_cast<double>(l.VFILLP(i)) + static_cast<double>(l.VBYPP(i)) +
                               static_cast<double>(l.VFILLN(i)) + static_cast<double>(l.VBYPN(i));
        EXPECT_NEAR(static_cast<double>(l.VOLCELL(i)), of_cell, 0.01) << "cell " << i;
        placed += static_cast<double>(l.VFILLP(i)) + static_cast<double>(l.VBYPP(i));
        removed += static_cast<double>(l.VFILLN(i)) + static_cast<double>(l.VBYPN(i));
      }
      // Fills: 5 cells of 100 by 9 by 10, and 2 steps of 1 in 3; in feet these are cubic feet, 27
      // to the cubic yard. Bypassing: two hours and four.
      const double yard = units == "(m)" ? 1.0 : 0.9144 * 0.9144 * 0.9144;
      const double per_yard = units == "(m)" ? 1.0 : 27.0;
      EXPECT_NEAR(placed, yard * (45000.0 / per_yard + 7200.0), 0.05) << units;
      EXPECT_NEAR(removed, -yard * (9000.0 / per_yard + 400.0), 0.05) << units;
    }
  });
}

TEST(step, waves_from_behind_keep_sources_off_the_beach_though_the_ledgers_count_them) {
  quietly([&] {
    WatchedRun run(with_events(SOURCE_IN_STEPS_3_AND_4), "1 8 90\n");
    run.complete();
    EXPECT_EQ(run.model().shore.Y(10), 100.0);
    EXPECT_FLOAT_EQ(run.model().ledgers.VBYPP(10), 1440.0f) << "a fifth of 7200 m3";
    EXPECT_EQ(run.model().ledgers.VOLTOTAL, 0.0f);
  });
}

TEST(step, waves_from_behind_let_fills_reach_the_beach_and_its_volume) {
  quietly([&] {
    WatchedRun run(with_events(FILL_IN_STEP_3), "1 8 -90\n");
    steps(run, 3);
    EXPECT_EQ(run.model().shore.Y(10), 110.0);
    EXPECT_EQ(run.model().ledgers.VFILLP(10), 9000.0f);
    EXPECT_EQ(run.model().ledgers.VOLTOTAL, 45000.0f);
  });
}

// The sources are booked at the start of a step with the length that it then has; the beach gets
// them with the length that the stability of the waves leaves of it.
TEST(step, a_step_that_is_cut_brings_less_to_the_beach_than_the_ledgers_count) {
  quietly([&] {
    WatchedRun run(with_events({"BPDATS: 1", "BPDATE: 99", "IBPS: 1", "IBPE: 20", "QBP: 900"},
                               {{"DX", "5"}, {"DTADAPT", "1"}, {"SIMDATE", "19970102"}}),
                   "1 8 0\n");
    // 900 m3/h over 100 m and 9 m of height: 1 m an hour.
    steps(run, 1);
    const auto DT = static_cast<double>(run.model().clock.DT);
    ASSERT_LT(DT, 1.0);
    EXPECT_NEAR(run.model().shore.Y(10), 100.0 + DT, 1e-6);
    EXPECT_FLOAT_EQ(run.model().ledgers.VBYPP(10), 45.0f) << "5 m by 9 m by 1 m, a whole hour's";
    steps(run, 1);
    EXPECT_NEAR(run.model().shore.Y(10), 100.0 + 2.0 * DT, 1e-6);
    EXPECT_NEAR(static_cast<double>(run.model().ledgers.VBYPP(10)), 45.0 * (1.0 + DT), 1e-4);
  });
}

}  // namespace
}  // namespace kelprun
