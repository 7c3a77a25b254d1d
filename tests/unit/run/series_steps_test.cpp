#include "run/series_steps.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "run/step_relations.h"
#include "unit/run/in_process.h"
#include "unit/run/small_model.h"

namespace kelprun {
namespace {

using Values = std::vector<float>;

// Water levels.

Model with_levels(std::int32_t NWLREC, std::int32_t NWLSTEP) {
  Model m = kelptest::small_model(3);
  m.settings.KTMETFLAG = 1;
  m.clock.NWLSTEP = NWLSTEP;
  m.series.NWLREC = NWLREC;
  for (std::int32_t i = 1; i <= NWLREC; ++i) m.series.WLFILE.append(static_cast<float>(i));
  return m;
}

/// The level in force in steps 1 to `steps`.
Values levels(Model& m, std::int32_t steps) {
  Values values;
  for (m.clock.ITS = 1; m.clock.ITS <= steps; ++m.clock.ITS) {
    take_water_level(m.settings, m.clock, m.series);
    values.push_back(m.series.WL);
  }
  return values;
}

TEST(water_level, the_first_step_takes_record_2_and_behind_the_last_comes_record_1) {
  Model m = with_levels(4, 1);
  EXPECT_EQ(levels(m, 10), (Values{2, 3, 4, 1, 2, 3, 4, 1, 2, 3}));
}

TEST(water_level, two_records_take_turns) {
  Model m = with_levels(2, 1);
  EXPECT_EQ(levels(m, 4), (Values{2, 1, 2, 1}));
}

TEST(water_level, stays_in_force_between_two_records) {
  Model m = with_levels(3, 3);
  EXPECT_EQ(levels(m, 8), (Values{2, 2, 2, 3, 3, 3, 1, 1}));
}

TEST(water_level, is_zero_and_stands_still_where_no_transmission_is_computed) {
  Model m = with_levels(3, 0);
  m.settings.KTMETFLAG = 0;
  EXPECT_EQ(levels(m, 3), (Values{0, 0, 0}));
  EXPECT_EQ(m.series.IWLREC, 2);
}

// Tidal currents.

/// Three walls; row n of the currents is n, 10 n, 100 n.
Model with_currents(std::int32_t NTCRNTREC, std::int32_t NTCSTEP) {
  Model m = kelptest::small_model(2);
  m.clock.NTCSTEP = NTCSTEP;
  m.series.TIDEFLAG = 1;
  m.series.NTCRNTREC = NTCRNTREC;
  m.series.NTCPOINTS = 3;
  for (std::int32_t n = 1; n <= NTCRNTREC; ++n)
    for (const std::int32_t factor : {1, 10, 100})
      m.series.TCRNT.append(static_cast<float>(n * factor));
  return m;
}

/// The current at wall 1 in steps 1 to `steps`.
Values currents(Model& m, std::int32_t steps, Report& report) {
  Values values;
  for (m.clock.ITS = 1; m.clock.ITS <= steps; ++m.clock.ITS) {
    m.clock.CURDATE = 19970100 + m.clock.ITS;
    take_tidal_currents(m.grid, m.clock, m.series, m.transport, report);
    values.push_back(m.transport.TCUR(1));
  }
  return values;
}

TEST(tidal_current, the_row_in_force_is_the_record_times_the_tidal_factor_at_every_wall) {
  Model m = with_currents(2, 1);
  m.series.KTIDE = 0.25f;
  Report dropped;
  currents(m, 1, dropped);
  EXPECT_EQ(m.transport.TCUR(1), 0.25f);
  EXPECT_EQ(m.transport.TCUR(2), 2.5f);
  EXPECT_EQ(m.transport.TCUR(3), 25.0f);
  EXPECT_EQ(m.series.TCRNT(1), 1.0f) << "the file's own values stay";
}

TEST(tidal_current, the_first_step_takes_record_1_and_each_stays_in_force_for_its_steps) {
  Model m = with_currents(3, 2);
  Report dropped;
  EXPECT_EQ(currents(m, 6, dropped), (Values{1, 1, 2, 2, 3, 3}));
}

TEST(tidal_current, behind_the_last_record_it_is_zero_and_the_report_says_so_once) {
  Model m = with_currents(2, 2);
  kelptest::ReadableReport readable;
  EXPECT_EQ(currents(m, 4, readable.report), (Values{1, 1, 2, 2}));
  EXPECT_TRUE(readable.lines().empty()) << "a series that is long enough needs no warning";
  m = with_currents(2, 2);
  EXPECT_EQ(currents(m, 9, readable.report), (Values{1, 1, 2, 2, 0, 0, 0, 0, 0}));
  EXPECT_EQ(m.transport.TCUR(3), 0.0f);
  EXPECT_EQ(readable.lines(),
            (std::vector<std::string>{"  WARNING. TIDAL CURRENT SERIES HAS ENDED.",
                                      "  DATE IS 19970105.  TIME STEP IS 5"}));
}

TEST(tidal_current, is_zero_where_no_file_is_given) {
  Model m = with_currents(2, 0);
  m.series.TIDEFLAG = 0;
  Report dropped;
  EXPECT_EQ(currents(m, 3, dropped), (Values{0, 0, 0}));
}

TEST(tidal_current, after_a_change_of_the_step_length_records_follow_the_new_count) {
  Model m = with_currents(4, 0);
  m.clock.DT = 2.0f;
  m.clock.DTSAVE = 24.0f;
  m.series.WAVEDT = 2.0f;
  m.series.DTTC = 4.0f;
  count_steps(m.clock, m.settings, m.series);
  EXPECT_EQ(m.clock.NTCSTEP, 2);
  Report dropped;
  EXPECT_EQ(currents(m, 2, dropped), (Values{1, 1}));
  m.clock.DT = 1.0f;
  count_steps(m.clock, m.settings, m.series);
  EXPECT_EQ(m.clock.NTCSTEP, 4);
  // Steps of 1 h are numbered by the hours gone: 5 ends hour 5 and begins a record.
  m.clock.ITS = 5;
  take_tidal_currents(m.grid, m.clock, m.series, m.transport, dropped);
  EXPECT_EQ(m.transport.TCUR(1), 2.0f);
  m.clock.ITS = 6;
  take_tidal_currents(m.grid, m.clock, m.series, m.transport, dropped);
  EXPECT_EQ(m.transport.TCUR(1), 2.0f);
}

// The points of a record.

TEST(tidal_points, fewer_than_there_are_walls_are_told_in_one_line_and_stop_the_run) {
  Model m = with_currents(2, 1);
  m.series.NTCPOINTS = 2;
  kelptest::ReadableReport readable;
  check_tidal_points(m.grid, m.series, m.clock, readable.report);
  EXPECT_EQ(m.clock.IERR, 1);
  EXPECT_EQ(readable.lines(), (std::vector<std::string>{"  Not enough tidal current data 2 points "
                                                        "provided 3 points needed"}));
}

TEST(tidal_points, of_all_walls_are_enough_and_without_a_file_none_are_needed) {
  Model m = with_currents(2, 1);
  kelptest::ReadableReport readable;
  check_tidal_points(m.grid, m.series, m.clock, readable.report);
  m.series.NTCPOINTS = 0;
  m.series.TIDEFLAG = 0;
  check_tidal_points(m.grid, m.series, m.clock, readable.report);
  EXPECT_EQ(m.clock.IERR, 0);
  EXPECT_TRUE(readable.lines().empty());
}

}  // namespace
}  // namespace kelprun
