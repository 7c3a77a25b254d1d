#include <gtest/gtest.h>

#include <cmath>

#include "unit/inlets/shoal_case.h"

namespace kelprun {
namespace {

using kelptest::volumes_of;
using Volumes = std::array<float, 6>;

/// Two inlets: each shoal or bar holds its number along the chain (1 for the left attachment bar to
/// 6 for the right one) times 100 m3.
Inlets two_inlets() {
  Inlets n = kelptest::empty_inlets(2);
  for (std::int32_t k = 1; k <= 2; ++k) {
    n.VVSAL(k) = 100.0f;
    n.VVSBL(k) = 200.0f;
    n.VVSE(k) = 300.0f;
    n.VVSF(k) = 400.0f;
    n.VVSBR(k) = 500.0f;
    n.VVSAR(k) = 600.0f;
  }
  n.DREDFLAG = 1;
  return n;
}

constexpr Volumes as_begun{100.0f, 200.0f, 300.0f, 400.0f, 500.0f, 600.0f};

/// An event of inlet k in June 2020. Events count through all inlets.
void plan(Inlets& n, std::int32_t k, std::int32_t IMOR, float DREDQ) {
  const auto count = static_cast<std::int32_t>(n.dredgings.size()) + 1;
  n.dredgings.push_back({k, count, IMOR, 20200601, 20200630, DREDQ});
  n.NDRED(k) = count;
}

constexpr std::int32_t midway = 20200615;

}  // namespace

TEST(dredging, takes_the_volume_of_a_step_from_the_reservoir_of_its_number) {
  for (std::int32_t IMOR = 1; IMOR <= 6; ++IMOR) {
    Inlets n = two_inlets();
    plan(n, 1, IMOR, 40.0f);
    dredge(1, midway, n);
    Volumes expected = as_begun;
    expected[static_cast<std::size_t>(IMOR - 1)] -= 40.0f;
    EXPECT_EQ(volumes_of(n, 1), expected) << IMOR;
    EXPECT_EQ(volumes_of(n, 2), as_begun) << IMOR;
    EXPECT_EQ(n.flows(1).VDREDR, -40.0f);
    EXPECT_EQ(n.flows(1).VDREDP, 0.0f);
  }
}

TEST(dredging, of_no_reservoir_is_counted_and_moves_nothing) {
  for (const std::int32_t IMOR : {7, 0, -1}) {
    Inlets n = two_inlets();
    plan(n, 1, IMOR, 40.0f);
    dredge(1, midway, n);
    EXPECT_EQ(volumes_of(n, 1), as_begun) << IMOR;
    EXPECT_EQ(n.flows(1).VDREDR, -40.0f) << IMOR;
    plan(n, 1, IMOR, -15.0f);
    dredge(1, midway, n);
    EXPECT_EQ(volumes_of(n, 1), as_begun) << IMOR;
    EXPECT_EQ(n.flows(1).VDREDP, -15.0f) << IMOR;
  }
}

TEST(dredging, of_a_negative_volume_places_sand_and_its_sum_is_negative_too) {
  for (std::int32_t IMOR = 1; IMOR <= 6; ++IMOR) {
    Inlets n = two_inlets();
    plan(n, 1, IMOR, -40.0f);
    dredge(1, midway, n);
    dredge(1, midway, n);
    Volumes expected = as_begun;
    expected[static_cast<std::size_t>(IMOR - 1)] += 80.0f;
    EXPECT_EQ(volumes_of(n, 1), expected) << IMOR;
    EXPECT_EQ(n.flows(1).VDREDR, 0.0f);
    EXPECT_EQ(n.flows(1).VDREDP, -80.0f);
  }
}

// Only the sign of a zero tells which sum took the 0: -0 + 0 is +0, and -0 - 0 stays -0.
TEST(dredging, of_nothing_counts_as_placed) {
  Inlets n = two_inlets();
  plan(n, 1, 3, 0.0f);
  n.flows(1).VDREDR = n.flows(1).VDREDP = -0.0f;
  dredge(1, midway, n);
  EXPECT_FALSE(std::signbit(n.flows(1).VDREDP));
  EXPECT_TRUE(std::signbit(n.flows(1).VDREDR));
  EXPECT_EQ(volumes_of(n, 1), as_begun);
}

TEST(dredging, acts_from_its_first_to_its_last_date_both_included) {
  for (const std::int32_t date : {20200601, 20200602, 20200615, 20200629, 20200630}) {
    Inlets n = two_inlets();
    plan(n, 1, 3, 40.0f);
    dredge(1, date, n);
    EXPECT_EQ(n.VVSE(1), 260.0f) << date;
  }
  for (const std::int32_t date : {0, 19990615, 20200531, 20200701, 20210615}) {
    Inlets n = two_inlets();
    plan(n, 1, 3, 40.0f);
    dredge(1, date, n);
    EXPECT_EQ(n.VVSE(1), 300.0f) << date;
    EXPECT_EQ(n.flows(1).VDREDR, 0.0f) << date;
  }
}

TEST(dredging, of_a_single_day_acts_on_that_day) {
  Inlets n = two_inlets();
  plan(n, 1, 3, 40.0f);
  n.dredgings[0].IDREDE = 20200601;
  dredge(1, 20200601, n);
  EXPECT_EQ(n.VVSE(1), 260.0f);
  dredge(1, 20200602, n);
  EXPECT_EQ(n.VVSE(1), 260.0f);
}

TEST(dredging, that_ends_before_it_begins_never_acts) {
  Inlets n = two_inlets();
  plan(n, 1, 3, 40.0f);
  n.dredgings[0].IDREDE = 20200531;
  for (const std::int32_t date : {20200531, 20200601}) dredge(1, date, n);
  EXPECT_EQ(n.VVSE(1), 300.0f);
}

TEST(dredging, without_a_first_date_is_no_event) {
  Inlets n = two_inlets();
  plan(n, 1, 3, 40.0f);
  n.dredgings[0].IDREDS = 0;
  dredge(1, midway, n);
  dredge(1, 0, n);
  EXPECT_EQ(n.VVSE(1), 300.0f);
  EXPECT_EQ(n.flows(1).VDREDR, 0.0f);
}

TEST(dredging, is_not_looked_at_without_the_switch) {
  Inlets n = two_inlets();
  plan(n, 1, 3, 40.0f);
  n.DREDFLAG = 0;
  dredge(1, midway, n);
  EXPECT_EQ(volumes_of(n, 1), as_begun);
  EXPECT_EQ(n.flows(1).VDREDR, 0.0f);
}

TEST(dredging, beyond_the_count_of_the_inlet_is_not_looked_at) {
  Inlets n = two_inlets();
  plan(n, 1, 3, 40.0f);
  plan(n, 1, 3, 5.0f);
  plan(n, 1, 3, 100.0f);
  n.NDRED(1) = 2;
  dredge(1, midway, n);
  EXPECT_EQ(n.VVSE(1), 255.0f);
}

// Dates and volume that follow a new inlet's first line belong to that inlet, under the number of
// the event that was opened for the one before. It acts on no reservoir, and only once the new
// inlet has opened an event of its own, which raises its count over that number.
TEST(dredging, whose_lines_follow_the_next_inlet_acts_there_once_that_has_an_event) {
  Inlets n = two_inlets();
  n.dredgings.push_back({1, 1, 3, 0, 0, 0.0f});
  n.NDRED(1) = 1;
  n.dredgings.push_back({2, 1, 0, 20200601, 20200630, 40.0f});
  for (const std::int32_t k : {1, 2}) dredge(k, midway, n);
  EXPECT_EQ(n.flows(1).VDREDR, 0.0f);
  EXPECT_EQ(n.flows(2).VDREDR, 0.0f);

  n.dredgings.push_back({2, 2, 4, 20200601, 20200630, 7.0f});
  n.NDRED(2) = 2;
  for (const std::int32_t k : {1, 2}) dredge(k, midway, n);
  EXPECT_EQ(volumes_of(n, 1), as_begun);
  EXPECT_EQ(n.flows(1).VDREDR, 0.0f);
  EXPECT_EQ(n.flows(2).VDREDR, -47.0f);
  EXPECT_EQ(volumes_of(n, 2), (Volumes{100.0f, 200.0f, 300.0f, 393.0f, 500.0f, 600.0f}));
}

TEST(dredging, of_two_inlets_acts_on_each_by_its_own_events) {
  Inlets n = two_inlets();
  plan(n, 1, 3, 40.0f);
  plan(n, 1, 6, -10.0f);
  plan(n, 2, 3, 25.0f);
  n.dredgings[2].IDREDS = 20200620;
  dredge(1, midway, n);
  dredge(2, midway, n);
  EXPECT_EQ(volumes_of(n, 1), (Volumes{100.0f, 200.0f, 260.0f, 400.0f, 500.0f, 610.0f}));
  EXPECT_EQ(n.flows(1).VDREDR, -40.0f);
  EXPECT_EQ(n.flows(1).VDREDP, -10.0f);
  EXPECT_EQ(volumes_of(n, 2), as_begun);
  dredge(2, 20200620, n);
  EXPECT_EQ(n.VVSE(2), 275.0f);
  EXPECT_EQ(n.flows(2).VDREDR, -25.0f);
}

TEST(dredging, of_an_inlet_between_others_without_events_finds_its_own) {
  Inlets n = kelptest::empty_inlets(4);
  n.DREDFLAG = 1;
  plan(n, 3, 3, 40.0f);
  for (std::int32_t k = 1; k <= 4; ++k) dredge(k, midway, n);
  EXPECT_EQ(n.VVSE(3), -40.0f);
  for (const std::int32_t k : {1, 2, 4}) EXPECT_EQ(n.VVSE(k), 0.0f);
}

TEST(dredging, may_take_a_reservoir_below_zero) {
  for (std::int32_t IMOR = 1; IMOR <= 6; ++IMOR) {
    Inlets n = two_inlets();
    plan(n, 1, IMOR, 1000.0f);
    dredge(1, midway, n);
    EXPECT_EQ(volumes_of(n, 1)[static_cast<std::size_t>(IMOR - 1)],
              static_cast<float>(IMOR) * 100.0f - 1000.0f);
  }
}

TEST(dredging, events_of_one_date_act_one_after_the_other) {
  Inlets n = two_inlets();
  plan(n, 1, 3, 40.0f);
  plan(n, 1, 3, 2.0f);
  plan(n, 1, 4, -42.0f);
  for (int step = 1; step <= 3; ++step) dredge(1, midway, n);
  EXPECT_EQ(n.VVSE(1), 300.0f - 3.0f * 42.0f);
  EXPECT_EQ(n.VVSF(1), 400.0f + 3.0f * 42.0f);
  EXPECT_EQ(n.flows(1).VDREDR, -126.0f);
  EXPECT_EQ(n.flows(1).VDREDP, -126.0f);
}

}  // namespace kelprun
