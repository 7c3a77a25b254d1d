#include "input/nonsense.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/input/reading.h"

namespace {

using kelptest::Changes;
using kelptest::Lines;

class nonsense : public kelptest::ReadingTest {
 protected:
  /// The run is refused by one fatal record with all these words.
  void expect_refused(const Changes& changes, const Lines& more_lines, const Lines& words) {
    check(changes, more_lines);
    EXPECT_EQ(now->said.status, 1) << words.front();
    const std::string record = kelptest::lines(now->said.out).back();
    EXPECT_EQ(record.size(), 80u) << record;
    EXPECT_EQ(record.find("ERROR: "), 0u) << record;
    for (const std::string& word : words) EXPECT_NE(record.find(word), std::string::npos) << record;
  }
};

TEST_F(nonsense, an_empty_grid_is_refused) {
  expect_refused({{"NX", "0"}}, {}, {"NX", "0"});
  expect_refused({{"NX", "-5"}}, {}, {"NX", "-5"});
  expect_refused({{"NX", ""}}, {}, {"NX", "0"});
}

TEST_F(nonsense, a_cell_width_must_be_positive) {
  expect_refused({{"DX", "0"}}, {}, {"DX", "0."});
  expect_refused({{"DX", "-2"}}, {}, {"DX", "-2."});
  expect_refused({{"DX", ""}}, {}, {"DX", "0."});
}

TEST_F(nonsense, sand_and_breaker_index_must_be_positive) {
  expect_refused({{"D50", "0"}}, {}, {"D50", "0."});
  expect_refused({{"D50", ""}}, {}, {"D50"});
  expect_refused({{"GAMMA", "-0.5"}}, {}, {"GAMMA", "-0.5"});
}

TEST_F(nonsense, the_transport_coefficient_must_be_positive_in_every_cell) {
  expect_refused({{"K1", "0.4 0 0.4"}, {"IK1END", "7 9 20"}}, {}, {"K1", "cell 8", "0."});
  expect_refused({{"K1", ""}}, {}, {"K1", "cell 1"});
}

TEST_F(nonsense, the_moving_profile_must_have_a_height_in_every_cell) {
  expect_refused({{"DCLOS", "8 2"}, {"IDCLOSEND", "11 20"}, {"BERMHT", "-2"}}, {},
                 {"DCLOS", "BERMHT", "cell 12"});
  check({{"DCLOS", "8"}, {"BERMHT", "-2"}});
  expect_accepted();
}

TEST_F(nonsense, the_number_of_wave_files_must_be_that_of_their_lines) {
  expect_refused({{"NUMWAVES", "2"}}, {}, {"NUMWAVES", "2", "1"});
  expect_refused({{"NUMWAVES", ""}}, {}, {"NUMWAVES", "0", "1"});
  expect_refused({}, {"WAVEID: 20 20 0 shore.dat"}, {"NUMWAVES", "1", "2"});
}

TEST_F(nonsense, wave_files_end_inside_the_grid_in_ascending_order) {
  expect_refused({{"WAVEID", "0 20 0 waves.dat"}}, {}, {"WAVEID", "0", "21"});
  expect_refused({{"WAVEID", "22 20 0 waves.dat"}}, {}, {"WAVEID", "22", "21"});
  expect_refused({{"WAVEID", "8 20 0 waves.dat"}, {"NUMWAVES", "2"}}, {"WAVEID: 8 20 0 shore.dat"},
                 {"WAVEID", "8"});
  check({{"WAVEID", "21 20 0 waves.dat"}});
  expect_accepted();
}

TEST_F(nonsense, the_number_of_wave_events_has_its_limits) {
  expect_refused({{"WAVEID", "20 20 -1 waves.dat"}}, {}, {"WAVEID", "-1", "2000000"});
  expect_refused({{"WAVEID", "20 20 2000001 waves.dat"}}, {}, {"WAVEID", "2000001"});
}

TEST_F(nonsense, water_levels_and_tidal_currents_need_two_records) {
  expect_refused({{"WLFILE", "1 waves.dat"}}, {}, {"WLFILE", "1"});
  expect_refused({{"WLFILE", "100001 waves.dat"}}, {}, {"WLFILE", "100001"});
  expect_refused({{"TIDEFILE", "20 1 waves.dat"}}, {}, {"TIDEFILE", "1"});
  expect_refused({{"TIDEFILE", "22 2 waves.dat"}}, {}, {"TIDEFILE", "22"});
  check({{"WLFILE", "2 waves.dat"}, {"TIDEFILE", "20 2 waves.dat"}});
  expect_accepted();
}

TEST_F(nonsense, tidal_stations_out_of_their_order_are_warned_of) {
  check({}, {"TIDEFILE: 15 2 waves.dat", "TIDEFILE: 5 2 waves.dat", "TIDEFILE: 5 2 waves.dat"});
  expect_accepted();
  EXPECT_EQ(now->said.err, "kelprun: warning: TIDEFILE end cells do not ascend, 5 follows 15\n");
  check({}, {"TIDEFILE: 5 2 waves.dat", "TIDEFILE: 5 2 waves.dat"});
  EXPECT_EQ(now->said.err, "kelprun: warning: TIDEFILE end cells do not ascend, 5 follows 5\n");
  check({}, {"TIDEFILE: 5 2 waves.dat", "TIDEFILE: 15 2 waves.dat"});
  EXPECT_EQ(now->said.err, "");
}

TEST_F(nonsense, indices_outside_the_grid_are_refused_by_keyword_and_value) {
  struct Case {
    Lines given;
    Lines words;
  };
  const std::vector<Case> cases = {{{"ISWBEG: 0", "ISWEND: 5"}, {"ISWBEG", "0", "20"}},
                                   {{"ISWBEG: 21", "ISWEND: 21"}, {"ISWBEG", "21", "20"}},
                                   {{"ISWBEG: 5", "ISWEND: 21"}, {"ISWEND", "21", "20"}},
                                   {{"ISWBEG: 5"}, {"ISWEND", "0", "20"}},
                                   {{"IINLS: 0", "IINLE: 5"}, {"IINLS", "0", "20"}},
                                   {{"IINLS: 5", "IINLE: 21"}, {"IINLE", "21", "20"}},
                                   {{"ILEDGV1: 21", "ILEDGV2: 5"}, {"ILEDGV1", "21", "20"}},
                                   {{"ILEDGV1: 5", "ILEDGV2: -1"}, {"ILEDGV2", "-1", "20"}},
                                   {{"ILEDGQ1: 22", "ILEDGQ2: 5"}, {"ILEDGQ1", "22", "21"}},
                                   {{"ILEDGQ1: 1", "ILEDGQ2: 22"}, {"ILEDGQ2", "22", "21"}}};
  for (const Case& c : cases) expect_refused({}, c.given, c.words);
}

TEST_F(nonsense, no_tip_of_a_breakwater_leads_out_of_the_grid) {
  for (const std::string outside : {"0", "-1", "-2", "22", "9998", "9999", "99999999"}) {
    check({}, {"DBI1: 5", "DBI2: " + outside, "DBI1: " + outside, "DBI2: 15"});
    EXPECT_EQ(now->said.status, 1) << outside;
    check({}, {"IXDG: 9", "DDG: 3", "DBI1: 5", "DBI2: " + outside, "DBI1: 12", "DBI2: 15"});
    EXPECT_EQ(now->said.status, 1) << outside;
  }
}

/// The lines of a breakwater with one of them given anew behind it.
Lines breakwater_with(const std::string& line) {
  Lines lines{"DBI1: 5",   "DBI2: 8",   "DBY1: 300",  "DBY2: 300",
              "DBDEP1: 3", "DBDEP2: 3", "TRANDB: 0.5"};
  const std::string keyword = line.substr(0, line.find(':'));
  for (std::string& given : lines)
    if (given.starts_with(keyword + ":")) given = line;
  return lines;
}

TEST_F(nonsense, a_tip_must_stand_in_water) {
  for (const std::string depth : {"0", "-2.5"}) {
    expect_refused({}, breakwater_with("DBDEP1: " + depth), {"DBDEP1 of breakwater 1", depth});
    expect_refused({}, breakwater_with("DBDEP2: " + depth), {"DBDEP2 of breakwater 1", depth});
    // The groins are put in order first, so that the wall names them.
    expect_refused({}, {"IXDG: 15", "YDG: 200", "DDG: " + depth, "IXDG: 9", "YDG: 200", "DDG: 4"},
                   {"DDG", "wall 15", depth});
  }
  check({}, breakwater_with("DBDEP1: 0.01"));
  expect_accepted();
  check({}, {"IXDG: 9", "YDG: 200", "DDG: 0.01"});
  expect_accepted();
}

TEST_F(nonsense, a_breakwater_covers_a_cell) {
  expect_refused({}, breakwater_with("DBI2: 5"), {"DBI2 of breakwater 1", "5"});
  check({}, breakwater_with("DBI2: 6"));
  expect_accepted();
}

TEST_F(nonsense, no_groin_ends_behind_the_left_tip_of_a_breakwater) {
  const auto with_groin = [](const std::string& wall, const std::string& tip) {
    Lines lines = breakwater_with("TRANDB: 0.5");
    for (const std::string& line : {"IXDG: " + wall, "YDG: " + tip, std::string("DDG: 4")})
      lines.push_back(line);
    return lines;
  };
  expect_refused({}, with_groin("5", "200"), {"wall 5", "left tip of breakwater 1"});
  check({}, with_groin("5", "300"));  // joined at the tip
  expect_accepted();
  check({}, with_groin("8", "200"));  // behind the right tip
  expect_accepted();
}

TEST_F(nonsense, a_breakwater_without_its_depths_is_refused) {
  expect_refused({}, {"DBI1: 5", "DBI2: 8", "DBY1: 300", "DBY2: 300", "TRANDB: 0.5"},
                 {"DBDEP1 of breakwater 1"});
}

TEST_F(nonsense, a_given_transmission_coefficient_is_not_below_0) {
  expect_refused({}, breakwater_with("TRANDB: -0.25"), {"TRANDB of breakwater 1", "-0.25"});
  // It would pass for a zone without extent.
  expect_refused({}, breakwater_with("TRANDB: -1"), {"TRANDB", "-1."});
  for (const std::string passes : {"0", "0.5", "1", "1.2"}) {
    check({}, breakwater_with("TRANDB: " + passes));
    expect_accepted();
  }
}

TEST_F(nonsense, a_given_coefficient_does_not_matter_where_it_is_computed) {
  Lines lines = breakwater_with("TRANDB: -0.25");
  lines.emplace_back("KTMETDB: 0");
  check({}, lines);
  expect_accepted();
  EXPECT_EQ(model().breakwaters.TRANDB(1), 0.5f);
}

TEST_F(nonsense, a_breakwater_without_a_stone_size_is_not_refused) {
  Lines lines = breakwater_with("TRANDB: 0.5");
  for (const char* line : {"KTMETDB: 1", "HDB: 2", "BDB: 4"}) lines.emplace_back(line);
  check({}, lines);
  expect_accepted();
  EXPECT_EQ(model().breakwaters.D50DB(1), 0.0f);
}

TEST_F(nonsense, the_last_cell_and_the_last_wall_are_inside) {
  check({}, {"ISWBEG: 1", "ISWEND: 20", "ILEDGV1: 1", "ILEDGV2: 20", "ILEDGQ1: 1", "ILEDGQ2: 21"});
  expect_accepted();
}

TEST_F(nonsense, lists_past_their_capacity_are_refused_by_count_and_limit) {
  const std::pair<const char*, int> cases[] = {
      {"ISWBEG", 4000}, {"BFDATS", 250}, {"IINLS", 250}, {"ILEDGV1", 500}, {"ILEDGQ1", 500}};
  for (const auto& [keyword, most] : cases) {
    Lines given;
    for (int n = 0; n <= most; ++n) {
      const std::string name = keyword;
      given.push_back(name + ": 5");
      if (name == "ISWBEG") given.emplace_back("ISWEND: 6");
      if (name == "ILEDGV1") given.emplace_back("ILEDGV2: 6");
    }
    expect_refused({}, given, {keyword, std::to_string(most + 1), std::to_string(most)});
  }
}

TEST_F(nonsense, a_run_without_a_step_is_refused) {
  expect_refused({{"SIMDATE", "0"}}, {}, {"SIMDATE", "0"});
  expect_refused({{"SIMDATE", "-10"}}, {}, {"SIMDATE", "-10"});
  expect_refused({{"SIMDATE", ""}}, {}, {"SIMDATE", "0"});
}

TEST_F(nonsense, waves_switched_off_everywhere_are_warned_of_and_run) {
  check({{"HAMP", "0"}});
  expect_accepted();
  EXPECT_NE(now->said.err.find("kelprun: warning: HAMP"), std::string::npos);
  check({{"THETAAMP", ""}});
  expect_accepted();
  EXPECT_NE(now->said.err.find("kelprun: warning: THETAAMP"), std::string::npos);
  check({{"HAMP", "0 1"}, {"IHAMPEND", "20 21"}, {"THETAAMP", "0 1"}, {"ITHETAAMPEND", "19"}});
  EXPECT_EQ(now->said.err.find("THETAAMP"), std::string::npos);
}

TEST_F(nonsense, end_cells_beyond_the_grid_are_warned_of_and_run) {
  check({{"IDCLOSEND", "30"}});
  expect_accepted();
  EXPECT_NE(now->said.err.find("kelprun: warning: IDCLOSEND"), std::string::npos);
  EXPECT_EQ(model().profile.DCLOSCELL(21), 8.0f);
}

}  // namespace
