#include "coast/events.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include "unit/coast/event_case.h"
#include "unit/run/small_model.h"

namespace kelprun {
namespace {

using kelptest::add_bypass;
using kelptest::add_fill;
using kelptest::Stretch;
using kelptest::Window;

/// Six cells of 100 m with an active height of 8 m, the shoreline at 0.
Model coast() { return kelptest::small_model(6); }

void fill_at(Model& m, std::int32_t ITS, std::int32_t CURDATE) {
  m.clock.ITS = ITS;
  m.clock.CURDATE = CURDATE;
  fill_beaches(m.grid, m.profile, m.events, m.clock, m.shore, m.ledgers);
}

void bypass_at(Model& m, std::int32_t ITS, std::int32_t CURDATE) {
  m.clock.ITS = ITS;
  m.clock.CURDATE = CURDATE;
  run_bypassing(m.grid, m.events, m.clock, m.shore, m.ledgers);
}

template <class Value>
std::vector<Value> values_of(const Array1<Value>& array) {
  return {array.begin(), array.end()};
}

using Reals = std::vector<float>;
using Doubles = std::vector<double>;

const Reals NOTHING(6, 0.0f);

// When a fill acts.

TEST(beach_fill, by_date_acts_from_its_first_date_up_to_the_day_before_its_last) {
  Model m = coast();
  add_fill(m, {19970110, 19970112}, {2, 3}, 0.5f);
  fill_at(m, 1, 19970109);
  EXPECT_EQ(m.shore.Y(2), 0.0);
  fill_at(m, 2, 19970110);
  EXPECT_EQ(m.shore.Y(2), 0.5);
  fill_at(m, 3, 19970111);
  EXPECT_EQ(m.shore.Y(2), 1.0);
  fill_at(m, 4, 19970112);
  fill_at(m, 5, 19970113);
  EXPECT_EQ(values_of(m.shore.Y), (Doubles{0, 1.0, 1.0, 0, 0, 0}));
}

TEST(beach_fill, by_date_acts_at_every_step_of_a_day) {
  Model m = coast();
  add_fill(m, {19970110, 19970111}, {2, 2}, 0.25f);
  for (std::int32_t ITS = 1; ITS <= 8; ++ITS) fill_at(m, ITS, 19970110);
  EXPECT_EQ(m.shore.Y(2), 2.0);
}

TEST(beach_fill, by_step_number_acts_from_its_first_step_up_to_the_one_before_its_last) {
  Model m = coast();
  add_fill(m, {5, 7}, {1, 1}, 0.5f);
  const std::array after{0.0, 0.5, 1.0, 1.0, 1.0};
  for (std::int32_t ITS = 4; ITS <= 8; ++ITS) {
    fill_at(m, ITS, 19970110);
    EXPECT_EQ(m.shore.Y(1), after[static_cast<std::size_t>(ITS - 4)]) << "step " << ITS;
  }
}

TEST(beach_fill, eighteen_million_is_the_last_step_number_and_no_date) {
  Model steps = coast();
  add_fill(steps, {18000000, 18000002}, {1, 1}, 1.0f);
  fill_at(steps, 18000000, 19970110);
  EXPECT_EQ(steps.shore.Y(1), 1.0);
  Model dates = coast();
  add_fill(dates, {18000001, 18000002}, {1, 1}, 1.0f);
  fill_at(dates, 18000001, 19970110);
  EXPECT_EQ(dates.shore.Y(1), 0.0);
  fill_at(dates, 1, 18000001);
  EXPECT_EQ(dates.shore.Y(1), 1.0);
}

TEST(beach_fill, the_kind_of_the_first_entry_sets_the_clock_for_all) {
  Model steps = coast();
  add_fill(steps, {5, 7}, {1, 1}, 1.0f);
  add_fill(steps, {19970101, 19971231}, {2, 2}, 1.0f);
  fill_at(steps, 6, 19970610);
  EXPECT_EQ(steps.shore.Y(1), 1.0);
  EXPECT_EQ(steps.shore.Y(2), 0.0) << "step 6 lies ahead of any date";

  Model dates = coast();
  add_fill(dates, {19970101, 19970102}, {1, 1}, 1.0f);
  add_fill(dates, {5, 7}, {2, 2}, 1.0f);
  add_fill(dates, {5, 19971231}, {3, 3}, 1.0f);
  fill_at(dates, 6, 19970610);
  EXPECT_EQ(values_of(dates.shore.Y), (Doubles{0, 0, 1.0, 0, 0, 0}))
      << "any date lies behind step 7 and between step 5 and the end of the year";
}

TEST(beach_fill, of_zero_days_has_an_infinite_amount_that_is_never_added) {
  Model m = coast();
  add_fill(m, {19970110, 19970110}, {1, 6}, std::numeric_limits<float>::infinity());
  add_fill(m, {19970111, 19970111}, {1, 6}, -std::numeric_limits<float>::infinity());
  for (const std::int32_t date : {19970109, 19970110, 19970111, 19970112}) fill_at(m, 1, date);
  EXPECT_EQ(values_of(m.shore.Y), Doubles(6, 0.0));
  EXPECT_EQ(values_of(m.ledgers.VFILLP), NOTHING);
  EXPECT_EQ(values_of(m.ledgers.VFILLN), NOTHING);
}

TEST(beach_fill, from_step_5_to_step_5_acts_on_no_step) {
  Model m = coast();
  add_fill(m, {5, 5}, {1, 6}, 12.0f);
  for (std::int32_t ITS = 1; ITS <= 10; ++ITS) fill_at(m, ITS, 19970110);
  EXPECT_EQ(values_of(m.shore.Y), Doubles(6, 0.0));
  EXPECT_EQ(values_of(m.ledgers.VFILLP), NOTHING);
}

TEST(beach_fill, that_ends_before_it_starts_never_acts) {
  Model m = coast();
  add_fill(m, {19970120, 19970110}, {1, 6}, 1.0f);
  for (const std::int32_t date : {19970109, 19970110, 19970115, 19970120, 19970121})
    fill_at(m, 1, date);
  EXPECT_EQ(values_of(m.shore.Y), Doubles(6, 0.0));
}

TEST(beach_fill, without_entries_leaves_shoreline_and_ledgers_alone) {
  Model m = coast();
  m.shore.Y.fill(3.0);
  fill_at(m, 1, 19970110);
  EXPECT_EQ(values_of(m.shore.Y), Doubles(6, 3.0));
  EXPECT_EQ(values_of(m.ledgers.VFILLP), NOTHING);
}

// Where it acts, and what it books.

TEST(beach_fill, books_width_times_advance_times_height_and_keeps_removed_sand_apart) {
  Model m = coast();
  kelptest::put(m.grid.DX, std::array{100.0f, 50.0f, 200.0f});
  add_fill(m, {1, 9}, {1, 3}, 0.5f);
  add_fill(m, {1, 9}, {3, 4}, -0.25f);
  fill_at(m, 1, 19970110);
  EXPECT_EQ(values_of(m.shore.Y), (Doubles{0.5, 0.5, 0.25, -0.25, 0, 0}));
  EXPECT_EQ(values_of(m.ledgers.VFILLP), (Reals{400, 200, 800, 0, 0, 0}));
  EXPECT_EQ(values_of(m.ledgers.VFILLN), (Reals{0, 0, -400, -200, 0, 0}));
  fill_at(m, 2, 19970110);
  EXPECT_EQ(values_of(m.ledgers.VFILLP), (Reals{800, 400, 1600, 0, 0, 0}));
  EXPECT_EQ(values_of(m.ledgers.VFILLN), (Reals{0, 0, -800, -400, 0, 0}));
  EXPECT_EQ(values_of(m.ledgers.VBYPP), NOTHING);
  EXPECT_EQ(values_of(m.ledgers.VBYPN), NOTHING);
}

TEST(beach_fill, partly_outside_the_grid_acts_on_its_cells_inside) {
  Model m = coast();
  add_fill(m, {1, 9}, {-3, 2}, 1.0f);
  add_fill(m, {1, 9}, {5, 9}, 2.0f);
  fill_at(m, 1, 19970110);
  EXPECT_EQ(values_of(m.shore.Y), (Doubles{1, 1, 0, 0, 2, 2}));
  EXPECT_EQ(values_of(m.ledgers.VFILLP), (Reals{800, 800, 0, 0, 1600, 1600}));
}

TEST(beach_fill, wholly_beyond_one_end_of_the_grid_does_nothing) {
  Model m = coast();
  add_fill(m, {1, 9}, {-5, 0}, 1.0f);
  add_fill(m, {1, 9}, {7, 12}, 1.0f);
  fill_at(m, 1, 19970110);
  EXPECT_EQ(values_of(m.shore.Y), Doubles(6, 0.0));
  EXPECT_EQ(values_of(m.ledgers.VFILLP), NOTHING);
}

TEST(beach_fill, overlapping_fills_add) {
  Model m = coast();
  add_fill(m, {1, 9}, {1, 4}, 1.0f);
  add_fill(m, {1, 5}, {3, 6}, 2.0f);
  add_fill(m, {1, 9}, {4, 4}, -0.5f);
  fill_at(m, 1, 19970110);
  EXPECT_EQ(values_of(m.shore.Y), (Doubles{1, 1, 3, 2.5, 2, 2}));
  EXPECT_EQ(values_of(m.ledgers.VFILLP), (Reals{800, 800, 2400, 2400, 1600, 1600}));
  EXPECT_EQ(values_of(m.ledgers.VFILLN), (Reals{0, 0, 0, -400, 0, 0}));
}

TEST(beach_fill, adds_a_single_precision_amount_to_the_double_shoreline) {
  Model m = coast();
  m.shore.Y.fill(100.0);
  add_fill(m, {1, 9}, {1, 1}, 0.1f);
  fill_at(m, 1, 19970110);
  EXPECT_EQ(m.shore.Y(1), 100.0 + static_cast<double>(0.1f));
  EXPECT_NE(m.shore.Y(1), 100.1);
}

TEST(beach_fill, books_in_single_precision_with_width_times_advance_formed_first) {
  Model m = kelptest::small_model(200);
  kelptest::Random random(45);
  for (std::int32_t i = 1; i <= 200; ++i) {
    m.grid.DX(i) = random.real(20.0, 200.0);
    m.profile.DCLOSCELL(i) = random.real(4.0, 9.0);
    m.profile.BERMHTCELL(i) = random.real(0.5, 2.0);
    m.ledgers.VFILLP(i) = random.real(0.0, 5.0);
  }
  const Reals before = values_of(m.ledgers.VFILLP);
  const float YADD = 0.0137f;
  add_fill(m, {1, 9}, {1, 200}, YADD);
  fill_at(m, 1, 19970110);
  std::int32_t other_order = 0;
  for (std::int32_t i = 1; i <= 200; ++i) {
    const float height = m.profile.DCLOSCELL(i) + m.profile.BERMHTCELL(i);
    const float V = height * (m.grid.DX(i) * YADD);
    const float V_other = (height * m.grid.DX(i)) * YADD;
    const float start = before[static_cast<std::size_t>(i - 1)];
    EXPECT_EQ(m.ledgers.VFILLP(i), start + V) << "cell " << i;
    if (start + V != start + V_other) ++other_order;
  }
  EXPECT_GT(other_order, 0) << "the cells must be able to tell the orders apart";
}

// Bypassing.

TEST(bypassing, adds_its_hourly_rate_per_second_to_the_sources_of_its_cells) {
  Model m = coast();
  m.clock.DT = 3.0f;
  add_bypass(m, {1, 9}, {2, 4}, 7.2);
  m.shore.DYSRC(2) = 1.0;
  bypass_at(m, 1, 19970110);
  EXPECT_EQ(values_of(m.shore.DYSRC),
            (Doubles{0, 1.0 + 7.2 / 3600.0, 7.2 / 3600.0, 7.2 / 3600.0, 0, 0, 0}))
      << "whatever the step length";
  EXPECT_EQ(values_of(m.shore.Y), Doubles(6, 0.0)) << "the update of the shoreline moves the sand";
}

TEST(bypassing, books_width_times_hours_times_rate_and_keeps_a_sink_apart) {
  Model m = coast();
  kelptest::put(m.grid.DX, std::array{100.0f, 50.0f, 200.0f});
  m.clock.DT = 3.0f;
  add_bypass(m, {1, 9}, {1, 2}, 0.5);
  add_bypass(m, {1, 9}, {2, 3}, -0.25);
  bypass_at(m, 1, 19970110);
  EXPECT_EQ(values_of(m.ledgers.VBYPP), (Reals{150, 75, 0, 0, 0, 0}));
  EXPECT_EQ(values_of(m.ledgers.VBYPN), (Reals{0, -37.5, -150, 0, 0, 0}));
  EXPECT_EQ(m.shore.DYSRC(2), 0.5 / 3600.0 - 0.25 / 3600.0);
  EXPECT_EQ(m.shore.DYSRC(3), -0.25 / 3600.0);
  EXPECT_EQ(values_of(m.ledgers.VFILLP), NOTHING);
  EXPECT_EQ(values_of(m.ledgers.VFILLN), NOTHING);
}

TEST(bypassing, by_date_runs_from_its_first_date_up_to_the_day_before_its_last) {
  Model m = coast();
  m.clock.DT = 24.0f;
  add_bypass(m, {19970110, 19970112}, {2, 2}, 1.0);
  for (const std::int32_t date : {19970109, 19970110, 19970111, 19970112, 19970113}) {
    m.shore.DYSRC.fill(0.0);
    bypass_at(m, 1, date);
    EXPECT_EQ(m.shore.DYSRC(2) != 0.0, date == 19970110 || date == 19970111) << date;
  }
  EXPECT_EQ(m.ledgers.VBYPP(2), 4800.0f) << "two days of 24 hours";
}

TEST(bypassing, by_step_number_runs_from_its_first_step_up_to_the_one_before_its_last) {
  Model m = coast();
  m.clock.DT = 1.0f;
  add_bypass(m, {5, 7}, {2, 2}, 1.0);
  for (std::int32_t ITS = 4; ITS <= 8; ++ITS) {
    m.shore.DYSRC.fill(0.0);
    bypass_at(m, ITS, 19970110);
    EXPECT_EQ(m.shore.DYSRC(2) != 0.0, ITS == 5 || ITS == 6) << ITS;
  }
  EXPECT_EQ(m.ledgers.VBYPP(2), 200.0f);
}

TEST(bypassing, of_no_length_never_runs) {
  Model m = coast();
  m.clock.DT = 1.0f;
  add_bypass(m, {5, 5}, {1, 6}, 1.0);
  add_bypass(m, {7, 6}, {1, 6}, 1.0);
  for (std::int32_t ITS = 4; ITS <= 8; ++ITS) bypass_at(m, ITS, 19970110);
  EXPECT_EQ(values_of(m.shore.DYSRC), Doubles(7, 0.0));
  EXPECT_EQ(values_of(m.ledgers.VBYPP), NOTHING);
}

TEST(bypassing, the_kind_of_the_first_entry_sets_the_clock_for_all) {
  Model steps = coast();
  steps.clock.DT = 1.0f;
  add_bypass(steps, {18000000, 18000001}, {1, 1}, 1.0);
  add_bypass(steps, {19970101, 19971231}, {2, 2}, 1.0);
  add_bypass(steps, {5, 7}, {3, 3}, 1.0);
  bypass_at(steps, 6, 19970610);
  EXPECT_EQ(values_of(steps.ledgers.VBYPP), (Reals{0, 0, 100, 0, 0, 0}));

  Model dates = coast();
  dates.clock.DT = 1.0f;
  add_bypass(dates, {18000001, 18000002}, {1, 1}, 1.0);
  add_bypass(dates, {19970101, 19971231}, {2, 2}, 1.0);
  add_bypass(dates, {5, 7}, {3, 3}, 1.0);
  bypass_at(dates, 6, 19970610);
  EXPECT_EQ(values_of(dates.ledgers.VBYPP), (Reals{0, 100, 0, 0, 0, 0}));
}

TEST(bypassing, its_clock_is_not_that_of_the_fills) {
  Model m = coast();
  m.clock.DT = 1.0f;
  add_fill(m, {19970101, 19971231}, {1, 1}, 1.0f);
  add_bypass(m, {5, 7}, {2, 2}, 1.0);
  fill_at(m, 6, 19970610);
  bypass_at(m, 6, 19970610);
  EXPECT_EQ(m.shore.Y(1), 1.0);
  EXPECT_EQ(m.ledgers.VBYPP(2), 100.0f);
}

TEST(bypassing, overlapping_operations_add) {
  Model m = coast();
  m.clock.DT = 1.0f;
  add_bypass(m, {1, 9}, {1, 4}, 3.6);
  add_bypass(m, {1, 5}, {3, 6}, 7.2);
  add_bypass(m, {1, 9}, {4, 4}, -1.8);
  bypass_at(m, 1, 19970110);
  const std::array per_hour{3.6, 3.6, 10.8, 9.0, 7.2, 7.2};
  const std::array placed{360.0f, 360.0f, 1080.0f, 1080.0f, 720.0f, 720.0f};
  for (std::int32_t i = 1; i <= 6; ++i) {
    const auto k = static_cast<std::size_t>(i - 1);
    EXPECT_DOUBLE_EQ(m.shore.DYSRC(i) * 3600.0, per_hour[k]) << "cell " << i;
    EXPECT_FLOAT_EQ(m.ledgers.VBYPP(i), placed[k]) << "cell " << i;
    EXPECT_FLOAT_EQ(m.ledgers.VBYPN(i), i == 4 ? -180.0f : 0.0f) << "cell " << i;
  }
}

TEST(bypassing, without_operations_ignores_what_the_lists_hold) {
  Model m = coast();
  m.clock.DT = 1.0f;
  add_bypass(m, {1, 9}, {1, 6}, 1.0);
  m.events.NBP = 0;
  bypass_at(m, 1, 19970110);
  EXPECT_EQ(values_of(m.shore.DYSRC), Doubles(7, 0.0));
  EXPECT_EQ(values_of(m.ledgers.VBYPP), NOTHING);
}

// Between 2^24 and 2^25 single precision holds the even numbers. 2^24 + 1 lies in the middle and
// would fall back to 2^24; the hundred-millionth more, which single precision cannot hold beside
// the 1, lifts the sum to the next number.
TEST(bypassing, books_a_volume_in_double_precision_that_is_rounded_on_the_sum) {
  Model m = coast();
  m.clock.DT = 1.0f;
  m.grid.DX(1) = 1.0f;
  ASSERT_EQ(static_cast<float>(1.00000001), 1.0f);
  add_bypass(m, {1, 9}, {1, 1}, 1.00000001);
  m.ledgers.VBYPP(1) = 16777216.0f;
  bypass_at(m, 1, 19970110);
  EXPECT_EQ(m.ledgers.VBYPP(1), 16777218.0f);
}

TEST(bypassing, books_single_precision_widths_and_hours_widened) {
  Model m = kelptest::small_model(200);
  kelptest::Random random(46);
  for (std::int32_t i = 1; i <= 200; ++i) {
    m.grid.DX(i) = random.real(20.0, 200.0);
    m.ledgers.VBYPN(i) = random.real(-0.5, 0.0);
  }
  m.clock.DT = 0.1f;
  const Reals before = values_of(m.ledgers.VBYPN);
  add_bypass(m, {1, 9}, {1, 200}, -0.037);
  bypass_at(m, 1, 19970110);
  std::int32_t in_single = 0;
  for (std::int32_t i = 1; i <= 200; ++i) {
    const auto start = static_cast<double>(before[static_cast<std::size_t>(i - 1)]);
    const double hours = static_cast<double>(0.1f) * -0.037;
    const double V = static_cast<double>(m.grid.DX(i)) * hours;
    EXPECT_EQ(m.ledgers.VBYPN(i), static_cast<float>(start + V)) << "cell " << i;
    const float V_single = m.grid.DX(i) * (0.1f * -0.037f);
    if (m.ledgers.VBYPN(i) != static_cast<float>(start) + V_single) ++in_single;
  }
  EXPECT_GT(in_single, 0) << "the cells must be able to tell the precisions apart";
}

}  // namespace
}  // namespace kelprun
