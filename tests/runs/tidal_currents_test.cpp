#include <algorithm>

#include "runs/case.h"

/// Runs with tidal currents: what they do to the transport, and where their series ends.
namespace kelptest {
namespace {

/// Waves along the shore normal, which move no sand by themselves.
constexpr const char* NORMAL = "1.0 8.0 0.0\n";

/// Hourly records from midnight on.
std::string hourly_currents(const std::vector<double>& currents) {
  std::string text;
  for (std::size_t n = 0; n < currents.size(); ++n)
    text += "19970101 " + std::to_string(100 * n) + " " + std::to_string(currents[n]) + "\n";
  return text;
}

/// The transport half way along the coast: the row ahead of step 1, then one a step.
std::vector<double> transports(const Case& run) {
  std::vector<double> Q;
  for (const auto& row : run.table("qtr").rows) Q.push_back(row[10]);
  return Q;
}

TEST(tidal_currents, move_the_sand_in_their_own_direction_and_in_proportion) {
  Case run(Changes{{"SIMDATE", "4"}, {"TIDEFILE", "20 4 tide.dat"}});
  run.with("waves.dat", NORMAL).with("tide.dat", hourly_currents({0.25, 0.5, -0.25, 0.0})).run();
  expect_completed(run);
  EXPECT_EQ(
      run.outcome.out,
      text_of({opening(),
               free_lines({"Opening Tidal Current Input File: tide.dat", "Reading TCRNTFILE: "}),
               banner(), begins(), year_block(0, 4, 19970101), closing()}));
  EXPECT_EQ(occurrences(run.report(), "TIDAL"), 0);
  const auto Q = transports(run);
  ASSERT_EQ(Q.size(), 5u);
  const double unit = Q[1];
  EXPECT_GT(unit, 1000.0);
  EXPECT_EQ(Q[0], 0.0);
  EXPECT_NEAR(Q[2] / unit, 2.0, 1e-3);
  EXPECT_NEAR(Q[3] / unit, -1.0, 1e-3);
  EXPECT_EQ(Q[4], 0.0);
}

TEST(tidal_currents, are_multiplied_by_the_tidal_factor) {
  Case plain(Changes{{"SIMDATE", "1"}, {"TIDEFILE", "20 2 tide.dat"}});
  plain.with("waves.dat", NORMAL).with("tide.dat", hourly_currents({0.5, 0.5})).run();
  Case scaled(Changes{{"SIMDATE", "1"}, {"TIDEFILE", "20 2 tide.dat"}, {"KTIDE", "2.5"}});
  scaled.with("waves.dat", NORMAL).with("tide.dat", hourly_currents({0.2, 0.2})).run();
  EXPECT_GT(transports(plain).back(), 1000.0);
  EXPECT_NEAR(transports(scaled).back() / transports(plain).back(), 1.0, 1e-3);
}

TEST(tidal_currents, vary_between_two_stations) {
  // 0.2 up to wall 5 and 0.6 from wall 15 on; currents of one sign, so that no wall is relaxed.
  Case run(Changes{{"SIMDATE", "1"}},
           {"TIDEFILE: 5 2 left.dat", "TIDEFILE: 15 2 right.dat", "KTIDE: 1"});
  run.with("waves.dat", NORMAL)
      .with("left.dat", hourly_currents({0.2, 0.2}))
      .with("right.dat", hourly_currents({0.6, 0.6}))
      .run();
  expect_completed(run);
  const auto Q = run.table("qtr").rows.back();
  const double unit = Q[0] / 0.2;
  EXPECT_GT(unit, 1000.0);
  for (std::size_t wall = 1; wall <= 21; ++wall) {
    const double along = std::clamp(0.1 * (static_cast<double>(wall) - 5.0), 0.0, 1.0);
    EXPECT_NEAR(Q[wall - 1] / unit, 0.2 + 0.4 * along, 1e-3) << wall;
  }
}

TEST(tidal_currents, behind_their_last_record_leave_the_waves_alone_and_the_report_says_so_once) {
  Case run(Changes{{"SIMDATE", "6"}, {"TIDEFILE", "20 2 tide.dat"}});
  run.with("waves.dat", NORMAL).with("tide.dat", hourly_currents({0.5, 0.5})).run();
  expect_completed(run);
  const auto Q = transports(run);
  EXPECT_GT(Q[2], 1000.0);
  for (std::size_t n = 3; n <= 6; ++n) EXPECT_EQ(Q[n], 0.0) << n;
  const std::string warning = text_of({free_lines(
      {" WARNING. TIDAL CURRENT SERIES HAS ENDED.", " DATE IS 19970101.  TIME STEP IS 3"})});
  EXPECT_EQ(occurrences(run.report(), warning), 1) << run.report();
  EXPECT_EQ(occurrences(run.report(), "TIDAL"), 1);
}

TEST(tidal_currents, with_a_factor_of_zero_are_as_none_at_all) {
  Case without(Changes{{"SIMDATE", "4"}});
  without.run();
  Case with_none(Changes{{"SIMDATE", "4"}, {"TIDEFILE", "20 4 tide.dat"}, {"KTIDE", "0"}});
  with_none.with("tide.dat", hourly_currents({0.5, 0.5, 1.0, -2.0})).run();
  expect_completed(with_none);
  for (const char* suffix : {"run.slo", "run.qtr", "run.vcc", "run.mqn"})
    EXPECT_EQ(with_none.folder.read(suffix), without.folder.read(suffix)) << suffix;
}

}  // namespace
}  // namespace kelptest
