#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include "unit/input/coast.h"
#include "unit/run/small_model.h"
#include "waves/transmission.h"

namespace kelprun {
namespace {

using kelptest::list;
using Ints = std::vector<std::int32_t>;

/// The lists of a coast of 20 cells as the configuration leaves them, with computed coefficients.
class prepared_transmission : public testing::Test {
 protected:
  void prepare() {
    coast.model.settings.KTMETFLAG = 1;
    Breakwaters& b = coast.model.breakwaters;
    for (auto* values : {&b.HDB, &b.BDB, &b.SSDB, &b.SHSDB})
      values->allocate(static_cast<std::size_t>(b.NDB), 1.0f);
    const kelptest::Said said = coast.build();
    ASSERT_FALSE(said.status.has_value()) << said.out;
    run();
  }
  void run() {
    prepare_transmission(coast.model.settings, coast.model.grid, coast.model.groins,
                         coast.model.tips, coast.model.breakwaters);
  }
  Ints cells() const {
    return {coast.model.breakwaters.ICDB.begin(), coast.model.breakwaters.ICDB.end()};
  }
  std::vector<float> depths() const {
    return {coast.model.breakwaters.DBD.begin(), coast.model.breakwaters.DBD.end()};
  }

  kelptest::Coast coast;
};

TEST_F(prepared_transmission, the_cross_section_is_a_trapezium) {
  coast.breakwater(5, 8);
  prepare();
  Breakwaters& b = coast.model.breakwaters;
  b.HDB(1) = 3.0f;
  b.BDB(1) = 4.0f;
  b.SSDB(1) = 0.5f;
  b.SHSDB(1) = 0.75f;
  run();
  // 3 4 + (9/0.5 + 9/0.75)/2
  EXPECT_EQ(b.ATDB(1), 27.0f);
}

TEST_F(prepared_transmission, a_vertical_face_of_slope_0_makes_no_trap) {
  coast.breakwater(5, 8);
  prepare();
  coast.model.breakwaters.SSDB(1) = 0.0f;
  run();
  EXPECT_TRUE(std::isinf(coast.model.breakwaters.ATDB(1)));
}

TEST_F(prepared_transmission, depth_is_the_mean_of_the_two_tips_behind_a_virtual_left_end) {
  coast.breakwater(4, 6, 100, 100, 3.0f, 4.0f);
  coast.breakwater(9, 12, 100, 100, 5.0f, 5.5f);
  prepare();
  EXPECT_EQ(depths(), (std::vector{3.5f, 5.25f}));
}

TEST_F(prepared_transmission, depth_is_the_mean_of_the_two_tips_where_a_groin_is_the_left_end) {
  coast.model.boundaries.left.BCTYPE = 1;
  coast.model.boundaries.left.GROINY = 10.0f;
  coast.diffracting_groin(1, 100.0f);
  coast.breakwater(1, 6, 100, 100, 3.0f, 4.0f);
  coast.breakwater(9, 12, 100, 100, 5.0f, 5.5f);
  prepare();
  EXPECT_EQ(depths(), (std::vector{3.5f, 5.25f}));
  // Entries are 1, 6, 9, 12 with no virtual end before them: (1+6)/2 and (9+12)/2.
  EXPECT_EQ(cells(), (Ints{3, 10}));
}

TEST_F(prepared_transmission, a_groin_elsewhere_does_not_move_the_entries) {
  coast.diffracting_groin(15, 100.0f);
  coast.breakwater(4, 6, 100, 100, 3.0f, 4.0f);
  prepare();
  EXPECT_EQ(depths(), std::vector{3.5f});
}

TEST_F(prepared_transmission, behind_a_virtual_left_end_the_reference_cell_mixes_two_counts) {
  coast.breakwater(3, 6);
  coast.breakwater(8, 11);
  coast.breakwater(13, 18);
  prepare();
  // Entries -1, 3, 6, 8, 11, 13, 18: (3+6)/2, (6+11)/2, (8+18)/2.
  EXPECT_EQ(cells(), (Ints{4, 8, 13}));
}

TEST_F(prepared_transmission, the_reference_cell_stays_inside_the_grid) {
  coast.breakwater(21, 21);
  prepare();
  EXPECT_EQ(cells(), Ints{20});
}

TEST_F(prepared_transmission, lists_that_fit_nothing_lead_nowhere_outside) {
  coast.breakwater(4, 6);
  coast.breakwater(9, 12);
  prepare();
  for (const Array1<Tip>& tips :
       {Array1<Tip>{}, list(std::array{Tip{5, 0.0f, 2.0f}}),
        list(std::array{Tip{LEFT_END_TIP, 0.0f, 0.0f}}),
        list(std::array{Tip{2147483647, 0.0f, 2.0f}, Tip{2147483647, 0.0f, 2.0f}}),
        list(std::array{Tip{-2147483647, 0.0f, 2.0f}, Tip{RIGHT_END_TIP, 0.0f, 2.0f},
                        Tip{LAST_TIP, 0.0f, 2.0f}})}) {
    coast.model.tips.breakwater_tips = tips;
    run();
    for (const std::int32_t cell : cells()) {
      EXPECT_GE(cell, 1);
      EXPECT_LE(cell, 20);
    }
  }
}

TEST_F(prepared_transmission, nothing_is_derived_where_the_coefficients_are_given) {
  coast.breakwater(4, 6);
  ASSERT_FALSE(coast.build().status.has_value());
  run();
  EXPECT_TRUE(coast.model.breakwaters.ATDB.empty());
  EXPECT_TRUE(coast.model.breakwaters.kt.KTSUM.empty());
}

TEST(breakwater_slot, is_the_next_entry_that_is_no_mark) {
  const auto KTZ = list(std::array{1.0f, 0.5f, 1.0f, -1.0f, 0.25f, 1.5f, 1.0f});
  EXPECT_EQ(next_breakwater_slot(KTZ, 0), 2);
  EXPECT_EQ(next_breakwater_slot(KTZ, 2), 5);
  EXPECT_EQ(next_breakwater_slot(KTZ, 5), 6);
  EXPECT_EQ(next_breakwater_slot(KTZ, 6), 8);
  EXPECT_EQ(next_breakwater_slot({}, 0), 1);
}

TEST(breakwater_slot, nearly_open_and_no_number_are_no_marks) {
  const auto KTZ = list(std::array{0.99f, std::numeric_limits<float>::quiet_NaN(), 0.0f,
                                   std::nextafter(1.0f, 0.0f), std::nextafter(1.0f, 2.0f)});
  for (std::int32_t slot = 1; slot <= 5; ++slot)
    EXPECT_EQ(next_breakwater_slot(KTZ, slot - 1), slot);
}

}  // namespace
}  // namespace kelprun
