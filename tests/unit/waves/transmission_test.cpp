#include "waves/transmission.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "model/constants.h"
#include "unit/run/in_process.h"
#include "unit/run/small_model.h"

namespace kelprun {
namespace {

using kelptest::list;
using Ints = std::vector<std::int32_t>;
using Lines = std::vector<std::string>;

constexpr std::int32_t REEF = 0;  // methods by their number in the configuration
constexpr std::int32_t SUBMERGED_CREST = 1;
constexpr std::int32_t LOW_CREST = 2;

const std::string OUTSIDE_RANGE = "  !!WARNING-INPUT VALUES OUTSIDE VARIABLE RANGE";

/// Breakwaters of one kind on a coast of 20 cells under a wave of 1 m and 8 s, ready for a pass.
/// The bed lies at 4 m: the wave meets them 1.064 m high and 48 m long.
class transmission : public testing::Test {
 protected:
  void build(std::int32_t method, std::int32_t count, float HDB) {
    m.settings.KTMETFLAG = 1;
    m.clock.ITS = 1;
    m.clock.NWSTEP = 4;
    m.clock.NWLSTEP = 2;
    m.waves.pass.T = 8.0f;
    m.waves.SIGMA = 2.0f * PI / 8.0f;
    m.waves.WK0 = m.waves.SIGMA * m.waves.SIGMA / G;
    m.waves.HRF.fill(1.0f);
    Breakwaters& b = m.breakwaters;
    b.NDB = count;
    const auto n = static_cast<std::size_t>(count);
    b.KTMETDB.allocate(n, method);
    b.HDB.allocate(n, HDB);
    b.BDB.allocate(n, 5.0f);
    b.SSDB.allocate(n, 0.5f);
    b.SHSDB.allocate(n, 0.5f);
    b.D50DB.allocate(n, 1.0f);
    m.tips.breakwater_tips = list(std::array{Tip{LEFT_END_TIP, 0.0f, 0.0f}});
    m.zones.KTZ = list(std::array{1.0f});
    for (std::int32_t k = 1; k <= count; ++k) {
      m.tips.breakwater_tips.append({4 * k, 100.0f, 4.0f});
      m.tips.breakwater_tips.append({4 * k + 2, 100.0f, 4.0f});
      m.zones.KTZ.append(0.5f);
      m.zones.KTZ.append(1.0f);
    }
    prepare_transmission(m.settings, m.grid, m.groins, m.tips, b);
  }

  void pass() {
    update_transmission(m.settings, m.clock, m.series, m.waves, m.shore.ALPHAC, m.breakwaters,
                        m.zones, readable.report);
  }
  void pass(std::int32_t ITS) {
    m.clock.ITS = ITS;
    pass();
  }

  /// The coefficient that the pass must find for a reef, put together by hand.
  float reef(std::int32_t k) {
    const Breakwaters& b = m.breakwaters;
    const std::int32_t cell = b.ICDB(k);
    const BreakwaterWave wave =
        wave_at_breakwater(m.waves, m.shore.ALPHAC(cell), cell, m.series.WL + b.DBD(k), b.HDB(k));
    return transmission_through_and_over(wave, b.HDB(k), b.ATDB(k), b.D50DB(k)).KT;
  }

  Model m = kelptest::small_model(20);
  kelptest::ReadableReport readable;
  const TransmissionStatistics& kt = m.breakwaters.kt;
};

TEST_F(transmission, each_breakwater_gets_the_coefficient_of_its_own_cell_in_its_own_slot) {
  build(REEF, 3, 4.5f);
  m.zones.KTZ = list(std::array{1.0f, 0.5f, 1.0f, 0.5f, -1.0f, 0.5f, 1.0f});
  for (std::int32_t i = 1; i <= 21; ++i) {
    m.waves.HRF(i) = 0.5f + 0.1f * static_cast<float>(i);
    m.waves.ZRF(i) = 0.01f * static_cast<float>(i);
    m.shore.ALPHAC(i) = 0.2f - 0.02f * static_cast<float>(i);
  }
  pass();
  for (const auto& [k, slot] : {std::pair{1, 2}, {2, 4}, {3, 6}}) {
    EXPECT_EQ(m.zones.KTZ(slot), reef(k));
    EXPECT_NE(m.zones.KTZ(slot), 0.5f);
  }
  EXPECT_EQ(m.zones.KTZ(1), 1.0f);
  EXPECT_EQ(m.zones.KTZ(3), 1.0f);
  EXPECT_EQ(m.zones.KTZ(5), -1.0f);
  EXPECT_EQ(m.zones.KTZ(7), 1.0f);
  EXPECT_NE(m.zones.KTZ(2), m.zones.KTZ(4));
}

TEST_F(transmission, each_breakwater_follows_its_own_method) {
  build(REEF, 3, 3.0f);
  m.breakwaters.KTMETDB = list(std::array<std::int32_t, 3>{SUBMERGED_CREST, LOW_CREST, 7});
  pass();
  const BreakwaterWave wave = wave_at_breakwater(m.waves, 0.0f, 5, 4.0f, 3.0f);
  EXPECT_EQ(m.zones.KTZ(2), transmission_over_submerged_crest(wave, 5.0f, 1.0f).KT);
  EXPECT_EQ(m.zones.KTZ(4), 0.075f);
  EXPECT_EQ(m.zones.KTZ(6), reef(3));
}

TEST_F(transmission, the_water_level_in_force_decides_over_depth_and_freeboard) {
  build(LOW_CREST, 1, 3.0f);
  pass();
  // Freeboard -1 m, 1.06 m waves: A1 = 0.38 + 0.64 4.7^-0.31 (1 - exp(-2.4)) = 0.74.
  EXPECT_EQ(m.zones.KTZ(2), 0.075f);
  m.series.WL = 2.0f;
  pass(3);
  // Freeboard -3 m, 0.99 m waves: A1 = 1.21 + 0.36.
  EXPECT_EQ(m.zones.KTZ(2), 0.8f);
}

TEST_F(transmission, given_coefficients_are_left_alone) {
  build(REEF, 1, 4.5f);
  m.settings.KTMETFLAG = 0;
  pass();
  EXPECT_EQ(m.zones.KTZ(2), 0.5f);
  EXPECT_EQ(kt.KTCOUNT, 0);
  EXPECT_EQ(kt.KTSUM(1), 0.0f);
}

TEST_F(transmission, is_computed_with_every_wave_or_water_level_record_and_stands_between) {
  build(REEF, 1, 4.5f);
  m.clock.NWSTEP = 6;
  m.clock.NWLSTEP = 4;
  Ints computed;
  for (std::int32_t ITS = 1; ITS <= 14; ++ITS) {
    m.waves.HRF.fill(0.5f + 0.1f * static_cast<float>(ITS));
    const float before = m.zones.KTZ(2);
    pass(ITS);
    if (m.zones.KTZ(2) != before) computed.push_back(ITS);
  }
  // Wave records in steps 1, 7, 13, water levels in 1, 5, 9, 13.
  EXPECT_EQ(computed, (Ints{1, 5, 7, 9, 13}));
}

TEST_F(transmission, without_water_level_records_only_waves_bring_a_new_value) {
  build(REEF, 1, 4.5f);
  m.clock.NWLSTEP = 0;
  m.clock.NWSTEP = 3;
  Ints computed;
  for (std::int32_t ITS = 1; ITS <= 7; ++ITS) {
    m.waves.HRF.fill(0.5f + 0.1f * static_cast<float>(ITS));
    const float before = m.zones.KTZ(2);
    pass(ITS);
    if (m.zones.KTZ(2) != before) computed.push_back(ITS);
  }
  EXPECT_EQ(computed, (Ints{1, 4, 7}));
}

TEST_F(transmission, a_value_that_stands_adds_to_the_sum_and_leaves_the_extremes) {
  build(REEF, 1, 4.5f);
  pass(1);
  const float KT = m.zones.KTZ(2);
  EXPECT_EQ(kt.KTMAX(1), KT);
  EXPECT_EQ(kt.KTMIN(1), KT);
  m.zones.KTZ(2) = 0.9f;  // larger than both
  pass(2);
  m.zones.KTZ(2) = 0.1f;  // and smaller
  pass(2);
  EXPECT_EQ(kt.KTCOUNT, 3);
  EXPECT_EQ(kt.KTSUM(1), KT + 0.9f + 0.1f);
  EXPECT_EQ(kt.KTMAX(1), KT);
  EXPECT_EQ(kt.KTMIN(1), KT);
}

TEST_F(transmission, the_statistics_hold_extremes_and_sum_of_each_breakwater) {
  build(REEF, 2, 4.5f);
  m.breakwaters.HDB(2) = 5.5f;
  float sum = 0.0f;
  float most = 0.0f;
  float least = 2.0f;
  for (const float height : {1.0f, 2.0f, 0.5f, 1.5f}) {
    m.waves.HRF.fill(height);
    pass(1);
    EXPECT_EQ(m.zones.KTZ(4), reef(2));
    sum += m.zones.KTZ(4);
    most = std::max(most, m.zones.KTZ(4));
    least = std::min(least, m.zones.KTZ(4));
  }
  EXPECT_EQ(kt.KTCOUNT, 4);
  EXPECT_EQ(kt.KTSUM(2), sum);
  EXPECT_EQ(kt.KTMAX(2), most);
  EXPECT_EQ(kt.KTMIN(2), least);
  EXPECT_LT(least, most);
  EXPECT_NE(kt.KTSUM(1), kt.KTSUM(2));
}

TEST_F(transmission, a_value_of_exactly_one_is_held_as_099_and_counted_so) {
  static_assert(std::bit_cast<std::uint32_t>(NEARLY_OPEN) == 0x3F7D70A4u);
  // Stones of 1e30 m let everything through a reef; over a crest 30 m deep nothing is lost either.
  build(REEF, 2, 9.0f);
  m.breakwaters.KTMETDB(2) = SUBMERGED_CREST;
  m.breakwaters.HDB(2) = 1.0f;
  m.breakwaters.DBD(2) = 31.0f;
  m.breakwaters.D50DB.fill(1e30f);
  const BreakwaterWave reef_wave = wave_at_breakwater(m.waves, 0.0f, 5, 4.0f, 9.0f);
  ASSERT_EQ(transmission_through_and_over(reef_wave, 9.0f, 1.0f, 1e30f).KT, 1.0f);
  const BreakwaterWave deep_wave = wave_at_breakwater(m.waves, 0.0f, 5, 31.0f, 1.0f);
  ASSERT_EQ(transmission_over_submerged_crest(deep_wave, 5.0f, 1e30f).KT, 1.0f);
  pass();
  for (const std::int32_t k : {1, 2}) {
    EXPECT_EQ(m.zones.KTZ(2 * k), 0.99f);
    EXPECT_EQ(kt.KTSUM(k), 0.99f);
    EXPECT_EQ(kt.KTMAX(k), 0.99f);
    EXPECT_EQ(kt.KTMIN(k), 0.99f);
  }
  pass(1);  // the slots are found again
  EXPECT_EQ(kt.KTSUM(2), 0.99f + 0.99f);
}

TEST_F(transmission, warnings_are_written_only_in_steps_with_a_water_level_record) {
  build(SUBMERGED_CREST, 2, 3.0f);
  m.clock.NWSTEP = 1;
  m.clock.NWLSTEP = 3;
  pass(1);
  EXPECT_EQ(readable.lines(), (Lines{OUTSIDE_RANGE, OUTSIDE_RANGE}));
  pass(2);
  pass(3);
  EXPECT_EQ(readable.lines().size(), 2u);
  pass(4);
  EXPECT_EQ(readable.lines().size(), 4u);
}

TEST_F(transmission, a_value_is_limited_whether_or_not_the_warning_is_written) {
  build(SUBMERGED_CREST, 1, 3.9f);
  m.breakwaters.BDB(1) = 400.0f;
  m.breakwaters.D50DB(1) = 0.01f;  // |p| = 0.1 400/(48 0.01) = 83: far below 0
  m.clock.NWSTEP = 1;
  pass(2);
  EXPECT_EQ(m.zones.KTZ(2), 0.0f);
  EXPECT_TRUE(readable.lines().empty());
  pass(3);
  EXPECT_EQ(m.zones.KTZ(2), 0.0f);
  EXPECT_EQ(readable.lines(),
            (Lines{"  !!WARNING-COMPUTED KT LESS THAN 0, SET TO 0", OUTSIDE_RANGE}));
}

TEST_F(transmission, a_value_above_the_limit_is_warned_of_by_its_line) {
  build(SUBMERGED_CREST, 1, 2.0f);
  m.breakwaters.BDB(1) = 0.5f;
  m.breakwaters.D50DB(1) = 0.05f;  // |q| = 2 1.06/(0.5 0.05) = 85
  pass(1);
  EXPECT_EQ(m.zones.KTZ(2), 1.5f);
  EXPECT_EQ(readable.lines(),
            (Lines{"  !!WARNING-COMPUTED KT GREATER THAN 1.5, SET TO 1.5", OUTSIDE_RANGE}));
}

TEST_F(transmission, method_1_ends_the_run_where_the_crest_is_not_submerged) {
  for (const float HDB : {4.0f, 4.5f}) {  // level with the water, and above it
    SCOPED_TRACE(HDB);
    kelptest::ReadableReport own;
    build(SUBMERGED_CREST, 2, 3.0f);
    m.breakwaters.HDB(2) = HDB;
    m.clock.ITS = 18;  // also where no warning would be written
    m.clock.NWSTEP = 1;
    const kelptest::Said said = kelptest::listen([&] {
      update_transmission(m.settings, m.clock, m.series, m.waves, m.shore.ALPHAC, m.breakwaters,
                          m.zones, own.report);
    });
    EXPECT_EQ(said.status, 1);
    EXPECT_TRUE(said.out.empty());
    EXPECT_EQ(said.err,
              "kelprun: time step 18: method 1 of breakwater 2 needs a submerged crest, its "
              "freeboard is " +
                  std::string(HDB == 4.0f ? "0." : "0.5") + "\n");
    EXPECT_EQ(own.lines(),
              Lines{"  ERROR! SEABROOK & HALL ONLY APPLICABLE FOR SUBMERGED BREAKWATER"});
  }
}

TEST_F(transmission, only_method_1_needs_a_submerged_crest) {
  for (const std::int32_t method : {0, 2, 3}) {
    build(method, 1, 9.0f);
    const kelptest::Said said = kelptest::listen([&] { pass(1); });
    EXPECT_FALSE(said.status.has_value());
    EXPECT_GE(m.zones.KTZ(2), 0.0f);
  }
}

TEST_F(transmission, without_a_stone_size_method_1_leaves_no_number_and_goes_on) {
  build(SUBMERGED_CREST, 1, 3.0f);
  m.breakwaters.D50DB(1) = 0.0f;
  const kelptest::Said said = kelptest::listen([&] { pass(1); });
  EXPECT_FALSE(said.status.has_value());
  EXPECT_TRUE(std::isnan(m.zones.KTZ(2)));
  EXPECT_TRUE(std::isnan(kt.KTSUM(1)));
  EXPECT_EQ(kt.KTMAX(1), 0.0f);
  EXPECT_EQ(kt.KTMIN(1), 2.0f);
  pass(1);  // its slot is found again
  EXPECT_EQ(kt.KTCOUNT, 2);
}

TEST_F(transmission, a_breakwater_that_the_water_has_left_keeps_a_number_and_is_warned_of) {
  for (const float WL : {-4.0f, -9.0f}) {
    kelptest::ReadableReport own;
    build(LOW_CREST, 2, 3.0f);
    m.breakwaters.KTMETDB(2) = 0;
    m.series.WL = WL;
    update_transmission(m.settings, m.clock, m.series, m.waves, m.shore.ALPHAC, m.breakwaters,
                        m.zones, own.report);
    EXPECT_EQ(m.zones.KTZ(2), 0.075f);
    const BreakwaterWave wave = wave_at_breakwater(m.waves, 0.0f, 5, 0.01f, 3.0f);
    const float ATDB = m.breakwaters.ATDB(2);
    EXPECT_EQ(m.zones.KTZ(4), transmission_through_and_over(wave, 3.0f, ATDB, 1.0f).KT);
    EXPECT_TRUE(std::isfinite(m.zones.KTZ(4)));
    const std::string line = "  !!WARNING-NO WATER AT BREAKWATER, DEPTH SET TO 0.01 M";
    EXPECT_EQ(own.lines(), (Lines{line, line}));
  }
}

TEST_F(transmission, a_breakwater_without_a_zone_takes_no_slot) {
  build(REEF, 2, 4.5f);
  m.zones.KTZ = list(std::array{1.0f, -1.0f, 1.0f, 0.5f, 1.0f});
  pass(1);
  EXPECT_EQ(m.zones.KTZ(4), reef(1));
  EXPECT_EQ(kt.KTSUM(2), 0.0f);
  m.zones.KTZ = {};
  pass(1);
  pass(2);
  EXPECT_EQ(kt.KTCOUNT, 3);
}

TEST_F(transmission, a_breakwater_in_the_last_slot_has_its_coefficient) {
  build(REEF, 1, 4.5f);
  m.zones.KTZ = list(std::array{1.0f, 0.5f});
  pass(1);
  EXPECT_EQ(m.zones.KTZ(2), reef(1));
}

TEST_F(transmission, follows_random_waves_and_structures_without_a_trap) {
  kelptest::Random random(335);
  const std::array odd{0.0f, -1.0f, 1e-30f, 1e30f, std::numeric_limits<float>::quiet_NaN()};
  build(REEF, 4, 3.0f);
  const auto hostile = [&](double low, double high) {
    return random.whole(0, 9) == 0 ? odd[static_cast<std::size_t>(random.whole(0, 4))]
                                   : random.real(low, high);
  };
  int stopped = 0;
  for (int n = 0; n < 3000; ++n) {
    Breakwaters& b = m.breakwaters;
    for (std::int32_t k = 1; k <= 4; ++k) {
      b.KTMETDB(k) = random.whole(-1, 3);
      b.HDB(k) = hostile(0.5, 8.0);
      b.BDB(k) = hostile(1.0, 30.0);
      b.D50DB(k) = hostile(0.1, 3.0);
      b.SSDB(k) = hostile(0.1, 2.0);
      b.ATDB(k) = hostile(1.0, 100.0);
    }
    m.series.WL = hostile(-5.0, 5.0);
    m.waves.HRF.fill(hostile(0.1, 4.0));
    m.waves.ZRF.fill(random.real(-1.5, 1.5));
    const kelptest::Said said = kelptest::listen([&] { pass(random.whole(1, 20)); });
    if (said.status) ++stopped;
    for (const std::int32_t slot : {1, 3, 5, 7, 9}) ASSERT_EQ(m.zones.KTZ(slot), 1.0f);
    for (const std::int32_t slot : {2, 4, 6, 8}) {
      const float KT = m.zones.KTZ(slot);
      ASSERT_TRUE(std::isnan(KT) || (KT >= 0.0f && KT <= 1.5f && KT != 1.0f)) << KT;
    }
  }
  EXPECT_EQ(kt.KTCOUNT, 3000);
  EXPECT_GT(stopped, 0);
  EXPECT_LT(stopped, 3000);
}

}  // namespace
}  // namespace kelprun
