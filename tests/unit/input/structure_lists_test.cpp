#include "input/structure_lists.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <string>
#include <vector>

#include "unit/input/coast.h"

namespace {

using kelptest::cells;
using kelptest::Coast;
using kelptest::Said;
using Ints = std::vector<std::int32_t>;
using Reals = std::vector<float>;

template <class T>
std::vector<T> all(const kelprun::Array1<T>& list) {
  return {list.begin(), list.end()};
}

class structure_lists : public testing::Test {
 protected:
  void build() {
    const Said said = coast.build();
    EXPECT_FALSE(said.status.has_value()) << said.out;
  }

  void expect_refused(const std::string& first_line) {
    const Said said = coast.build();
    EXPECT_EQ(said.status, 1);
    EXPECT_EQ(said.out.find(" " + first_line + "\n"), 0u) << said.out;
    const std::string record = kelptest::fatal_record(first_line);
    ASSERT_GE(said.out.size(), record.size());
    EXPECT_EQ(said.out.substr(said.out.size() - record.size()), record);
  }

  Ints breakwater_tips() const { return cells(coast.model.tips.breakwater_tips); }
  Ints groin_tips() const { return cells(coast.model.tips.groin_tips); }
  Ints tips() const { return cells(coast.model.tips.tips); }
  std::int32_t zones() const { return coast.model.tips.NZ; }

  Coast coast;
};

// All groins.

TEST_F(structure_lists, both_kinds_of_groins_are_merged_in_coast_order) {
  coast.plain_groin(5, 50.0f, 0.5f);
  coast.plain_groin(12, 120.0f, 0.12f);
  coast.diffracting_groin(8, 80.0f, 4.0f, 0.8f);
  coast.diffracting_groin(15, 150.0f, 4.0f, 0.15f);
  build();
  const kelprun::Groins& g = coast.model.groins;
  EXPECT_EQ(g.NGRP, 4);
  EXPECT_EQ(all(g.IXGRP), (Ints{5, 8, 12, 15}));
  EXPECT_EQ(all(g.YGT), (Reals{50.0f, 80.0f, 120.0f, 150.0f}));
  EXPECT_EQ(all(g.PGR), (Reals{0.5f, 0.8f, 0.12f, 0.15f}));
}

TEST_F(structure_lists, groins_of_one_kind_make_the_list_alone) {
  coast.plain_groin(5);
  coast.plain_groin(8);
  build();
  EXPECT_EQ(all(coast.model.groins.IXGRP), (Ints{5, 8}));
  EXPECT_EQ(tips(), (Ints{-1, -2})) << "waves do not bend around them";
}

TEST_F(structure_lists, a_groin_next_to_the_end_of_the_grid_is_refused_even_alone) {
  coast.plain_groin(2);
  expect_refused(" ERROR. GROIN NEXT TO GRID BOUNDARY. ");
  coast = {};
  coast.diffracting_groin(20);
  expect_refused(" ERROR. GROIN NEXT TO GRID BOUNDARY. ");
}

TEST_F(structure_lists, two_groins_at_one_wall_or_side_by_side_are_refused) {
  const std::string message = " ERROR. GROINS MUST BE SEPARATED BY AT LEAST";
  coast.plain_groin(7);
  coast.plain_groin(7);
  expect_refused(message);
  coast = {};
  coast.plain_groin(7);
  coast.diffracting_groin(7);
  expect_refused(message);
  coast = {};
  coast.plain_groin(8);
  coast.diffracting_groin(7);
  expect_refused(message);
  coast = {};
  coast.plain_groin(9);
  coast.diffracting_groin(7);
  build();
}

TEST_F(structure_lists, groins_outside_the_grid_are_refused) {
  for (const std::int32_t wall : {0, -3, 22}) {
    coast = {};
    coast.plain_groin(wall);
    expect_refused(" ERROR. NON-DIFFRACTING GROIN OUTSIDE CALCULATION GRID.");
    coast = {};
    coast.diffracting_groin(wall);
    expect_refused(" ERROR. DIFFRACTING GROIN OUTSIDE CALCULATION");
  }
}

// Tips.

TEST_F(structure_lists, a_coast_without_structures_has_its_two_open_ends) {
  build();
  EXPECT_EQ(breakwater_tips(), (Ints{-1, -2}));
  EXPECT_EQ(groin_tips(), Ints{});
  EXPECT_EQ(tips(), (Ints{-1, -2}));
  EXPECT_EQ(zones(), 1);
}

TEST_F(structure_lists, open_ends_have_neither_distance_nor_depth) {
  build();
  for (const kelprun::Tip& tip : coast.model.tips.tips) {
    EXPECT_EQ(tip.Y, 0.0f);
    EXPECT_EQ(tip.D, 0.0f);
  }
}

TEST_F(structure_lists, no_tip_at_all_counts_as_one_open_coast) {
  kelptest::listen([&] { kelprun::merge_tips(coast.model); });
  EXPECT_EQ(tips(), (Ints{-1, -2}));
  EXPECT_EQ(breakwater_tips(), Ints{});
  EXPECT_EQ(zones(), 0);
}

TEST_F(structure_lists, a_breakwater_stands_with_both_tips) {
  coast.breakwater(5, 8, 150.0f, 160.0f, 4.5f, 5.5f);
  build();
  EXPECT_EQ(breakwater_tips(), (Ints{-1, 5, 8, -2}));
  EXPECT_EQ(tips(), (Ints{-1, 5, 8, -2}));
  EXPECT_EQ(zones(), 2);
  const auto& t = coast.model.tips.tips;
  EXPECT_EQ(t(2).Y, 150.0f);
  EXPECT_EQ(t(2).D, 4.5f);
  EXPECT_EQ(t(3).Y, 160.0f);
  EXPECT_EQ(t(3).D, 5.5f);
}

TEST_F(structure_lists, a_given_transmission_of_exactly_one_is_held_as_099) {
  for (std::int32_t left : {3, 7, 11, 15}) coast.breakwater(left, left + 2);
  auto& TRANDB = coast.model.breakwaters.TRANDB;
  TRANDB(1) = 1.0f;
  TRANDB(2) = std::nextafter(1.0f, 0.0f);
  TRANDB(3) = std::nextafter(1.0f, 2.0f);
  build();
  EXPECT_EQ(std::bit_cast<std::uint32_t>(TRANDB(1)), 0x3F7D70A4u);
  EXPECT_EQ(TRANDB(2), std::nextafter(1.0f, 0.0f));
  EXPECT_EQ(TRANDB(3), std::nextafter(1.0f, 2.0f));
  EXPECT_EQ(TRANDB(4), 0.25f);
}

TEST_F(structure_lists, every_breakwater_adds_a_zone) {
  coast.breakwater(4, 6);
  coast.breakwater(9, 12);
  coast.breakwater(15, 18);
  build();
  EXPECT_EQ(tips(), (Ints{-1, 4, 6, 9, 12, 15, 18, -2}));
  EXPECT_EQ(zones(), 4);
}

TEST_F(structure_lists, inner_diffracting_groins_stand_twice_in_a_row) {
  coast.diffracting_groin(5, 80.0f, 3.0f);
  coast.diffracting_groin(10, 90.0f, 3.5f);
  coast.diffracting_groin(15, 95.0f, 3.7f);
  build();
  EXPECT_EQ(groin_tips(), (Ints{5, 5, 10, 10, 15, 15}));
  EXPECT_EQ(tips(), (Ints{-1, 5, 5, 10, 10, 15, 15, -2}));
  EXPECT_EQ(zones(), 4);
  const auto& t = coast.model.tips.groin_tips;
  for (const std::int32_t k : {3, 4}) {
    EXPECT_EQ(t(k).Y, 90.0f);
    EXPECT_EQ(t(k).D, 3.5f);
  }
}

TEST_F(structure_lists, diffracting_groins_on_both_ends_stand_once_and_close_the_coast) {
  coast.groin_ends();
  coast.diffracting_groin(1, 80.0f, 3.0f);
  coast.diffracting_groin(21, 90.0f, 3.5f);
  build();
  EXPECT_EQ(breakwater_tips(), Ints{});
  EXPECT_EQ(groin_tips(), (Ints{1, 21}));
  EXPECT_EQ(tips(), (Ints{1, 21})) << "no open end, no end mark";
  EXPECT_EQ(zones(), 1);
}

TEST_F(structure_lists, end_groins_with_one_between_make_two_zones) {
  coast.groin_ends();
  coast.diffracting_groin(1);
  coast.diffracting_groin(11);
  coast.diffracting_groin(21);
  build();
  EXPECT_EQ(tips(), (Ints{1, 11, 11, 21}));
  EXPECT_EQ(zones(), 2);
}

TEST_F(structure_lists, one_diffracting_end_groin_leaves_the_other_end_open) {
  coast.model.boundaries.left.BCTYPE = 2;
  coast.diffracting_groin(1);
  build();
  EXPECT_EQ(breakwater_tips(), Ints{-2});
  EXPECT_EQ(tips(), (Ints{1, -2}));
  EXPECT_EQ(zones(), 1);
  coast = {};
  coast.model.boundaries.right.BCTYPE = 2;
  coast.diffracting_groin(21);
  build();
  EXPECT_EQ(breakwater_tips(), Ints{-1});
  EXPECT_EQ(tips(), (Ints{-1, 21}));
  EXPECT_EQ(zones(), 1);
}

TEST_F(structure_lists, non_diffracting_end_groins_leave_the_coast_open_to_waves) {
  coast.groin_ends();
  coast.plain_groin(1);
  coast.plain_groin(21);
  build();
  EXPECT_EQ(tips(), (Ints{-1, -2}));
  EXPECT_EQ(zones(), 1);
}

TEST_F(structure_lists, groins_and_breakwaters_are_merged_in_coast_order) {
  coast.breakwater(3, 6);
  coast.diffracting_groin(9);
  coast.breakwater(12, 14);
  coast.diffracting_groin(17);
  build();
  EXPECT_EQ(breakwater_tips(), (Ints{-1, 3, 6, 12, 14, -2}));
  EXPECT_EQ(tips(), (Ints{-1, 3, 6, 9, 9, 12, 14, 17, 17, -2}));
  EXPECT_EQ(zones(), 5);
}

TEST_F(structure_lists, a_t_groin_is_two_breakwaters_joined_at_the_groin_tip) {
  coast.breakwater(8, 10);
  coast.breakwater(10, 12);
  coast.diffracting_groin(10);
  build();
  EXPECT_EQ(breakwater_tips(), (Ints{-1, 8, 10, 10, 12, -2}));
  EXPECT_EQ(tips(), (Ints{-1, 8, 10, 10, 10, 10, 12, -2}));
  EXPECT_EQ(zones(), 4);
}

TEST_F(structure_lists, an_l_groin_is_one_breakwater_joined_at_the_groin_tip) {
  coast.breakwater(10, 12);
  coast.diffracting_groin(10);
  build();
  EXPECT_EQ(tips(), (Ints{-1, 10, 10, 10, 12, -2}));
  EXPECT_EQ(zones(), 3);
}

TEST_F(structure_lists, a_groin_that_sticks_out_of_the_breakwater_it_joins_is_refused) {
  const std::string message = " ERROR. DETACHED BREAKWATER CAN ONLY";
  coast.breakwater(10, 12, 100.0f, 100.0f);
  coast.diffracting_groin(10, 100.5f);
  expect_refused(message);
  coast = {};
  coast.breakwater(8, 10, 100.0f, 100.0f);
  coast.diffracting_groin(10, 100.5f);
  expect_refused(message);
}

TEST_F(structure_lists, a_short_groin_behind_one_breakwater_end_passes_and_between_two_does_not) {
  coast.breakwater(10, 12, 100.0f, 100.0f);
  coast.diffracting_groin(10, 80.0f);
  build();
  coast = {};
  coast.breakwater(8, 10, 100.0f, 100.0f);
  coast.breakwater(10, 12, 100.0f, 100.0f);
  coast.diffracting_groin(10, 80.0f);
  expect_refused(" ERROR. DETACHED BREAKWATER CAN ONLY");
}

TEST_F(structure_lists, a_breakwater_from_an_end_groin_starts_at_its_tip) {
  coast.groin_ends();
  coast.diffracting_groin(1, 100.0f);
  coast.plain_groin(21);
  coast.breakwater(1, 5, 100.0f);
  build();
  EXPECT_EQ(breakwater_tips(), (Ints{1, 5, -2}));
  EXPECT_EQ(tips(), (Ints{1, 1, 5, -2}));
  EXPECT_EQ(zones(), 2);
}

TEST_F(structure_lists, a_breakwater_to_an_end_groin_ends_at_its_tip) {
  coast.groin_ends();
  coast.plain_groin(1);
  coast.diffracting_groin(21, 100.0f);
  coast.breakwater(15, 21);
  build();
  EXPECT_EQ(breakwater_tips(), (Ints{-1, 15, 21}));
  EXPECT_EQ(tips(), (Ints{-1, 15, 21, 21}));
  EXPECT_EQ(zones(), 2);
}

TEST_F(structure_lists, a_breakwater_on_an_open_end_is_refused) {
  coast.breakwater(1, 5);
  expect_refused(" ERROR. DETACHED BREAKWATER ENDING ON OPEN ");
  coast = {};
  coast.plain_groin(7);
  coast.breakwater(15, 21);
  expect_refused(" ERROR. DETACHED BREAKWATER ENDING ON OPEN ");
}

TEST_F(structure_lists, on_a_coast_without_groins_a_breakwater_may_end_on_the_right_end) {
  coast.breakwater(15, 21);
  build();
  EXPECT_EQ(tips(), (Ints{-1, 15, 21, -2}));
}

TEST_F(structure_lists, a_breakwater_on_an_end_groin_must_be_joined_to_its_tip) {
  coast.groin_ends();
  coast.diffracting_groin(1, 90.0f);
  coast.plain_groin(21);
  coast.breakwater(1, 5, 100.0f);
  expect_refused(" ERROR. DETACHED BREAKWATER AND DIFFRACTING  GROIN ON");
  coast = {};
  coast.groin_ends();
  coast.plain_groin(1);
  coast.diffracting_groin(21, 90.0f);
  coast.breakwater(15, 21);
  expect_refused(" ERROR. DETACHED BREAKWATER AND DIFFRACTING GROIN ON");
}

TEST_F(structure_lists, a_breakwater_outside_the_grid_is_refused) {
  coast.breakwater(0, 5);
  expect_refused(" ERROR. DETACHED BREAKWATER TIP OUTSIDE ");
  coast = {};
  coast.breakwater(15, 22);
  expect_refused(" ERROR. DETACHED BREAKWATER TIP OUTSIDE ");
}

TEST_F(structure_lists, breakwaters_that_overlap_or_lie_out_of_order_are_refused) {
  coast.breakwater(4, 10);
  coast.breakwater(8, 14);
  expect_refused(" ERROR. DIFFRACTING STRUCTURES OVERLAP.");
  coast = {};
  coast.breakwater(12, 15);
  coast.breakwater(4, 7);
  expect_refused(" ERROR. DIFFRACTING STRUCTURES OVERLAP.");
  coast = {};
  coast.breakwater(9, 5);
  expect_refused(" ERROR. DIFFRACTING STRUCTURES OVERLAP.");
}

TEST_F(structure_lists, breakwaters_may_touch) {
  coast.breakwater(4, 8);
  coast.breakwater(8, 12);
  build();
  EXPECT_EQ(tips(), (Ints{-1, 4, 8, 8, 12, -2}));
}

TEST_F(structure_lists, a_diffracting_groin_behind_a_breakwater_is_an_overlap) {
  coast.breakwater(5, 9);
  coast.diffracting_groin(7);
  expect_refused(" ERROR. DIFFRACTING STRUCTURES OVERLAP.");
  coast = {};
  coast.groin_ends();
  coast.diffracting_groin(1, 100.0f);
  coast.diffracting_groin(4, 50.0f);
  coast.plain_groin(21);
  coast.breakwater(1, 6, 100.0f);
  expect_refused(" ERROR. DIFFRACTING STRUCTURES OVERLAP.");
}

TEST_F(structure_lists, a_groin_in_the_gap_between_breakwaters_is_no_overlap) {
  coast.breakwater(3, 6);
  coast.breakwater(12, 15);
  coast.diffracting_groin(9);
  build();
  EXPECT_EQ(tips(), (Ints{-1, 3, 6, 9, 9, 12, 15, -2}));
}

TEST_F(structure_lists, a_plain_groin_behind_a_breakwater_is_no_overlap) {
  coast.breakwater(5, 9);
  coast.plain_groin(7);
  build();
  EXPECT_EQ(tips(), (Ints{-1, 5, 9, -2}));
}

// Units and transmission.

TEST_F(structure_lists, lengths_become_metres_and_permeability_does_not) {
  coast.model.settings.CONV = 0.3048f;
  coast.plain_groin(5, 100.0f, 0.5f);
  coast.diffracting_groin(9, 200.0f, 10.0f, 0.25f);
  coast.breakwater(12, 15, 300.0f, 400.0f, 20.0f, 30.0f);
  build();
  const kelprun::Groins& g = coast.model.groins;
  EXPECT_FLOAT_EQ(g.YNDG(1), 30.48f);
  EXPECT_FLOAT_EQ(g.YDG(1), 60.96f);
  EXPECT_FLOAT_EQ(g.DDG(1), 3.048f);
  EXPECT_FLOAT_EQ(g.YGT(1), 30.48f);
  EXPECT_FLOAT_EQ(g.YGT(2), 60.96f);
  EXPECT_EQ(g.PNDG(1), 0.5f);
  EXPECT_EQ(g.PDG(1), 0.25f);
  const auto& t = coast.model.tips.tips;
  EXPECT_FLOAT_EQ(t(2).D, 3.048f);
  EXPECT_FLOAT_EQ(t(4).Y, 91.44f);
  EXPECT_FLOAT_EQ(t(5).Y, 121.92f);
  EXPECT_FLOAT_EQ(t(4).D, 6.096f);
  EXPECT_FLOAT_EQ(t(5).D, 9.144f);
  EXPECT_EQ(coast.model.breakwaters.TRANDB(1), 0.25f);
}

TEST_F(structure_lists, computed_transmission_starts_at_one_half) {
  coast.model.settings.KTMETFLAG = 1;
  coast.breakwater(4, 6);
  coast.breakwater(9, 12);
  build();
  EXPECT_EQ(all(coast.model.breakwaters.TRANDB), (Reals{0.5f, 0.5f}));
}

TEST_F(structure_lists, more_structures_than_their_capacity_are_refused) {
  coast.model.groins.NNDG = 251;
  expect_refused(" ERROR. TOO MANY NON-DIFFRACTING GROINS. PLEASE");
  coast = {};
  coast.model.groins.NDG = 251;
  expect_refused(" ERROR. TOO MANY DIFFRACTING GROINS. PLEASE CHANGE");
  coast = {};
  coast.model.breakwaters.NDB = 126;
  expect_refused(" ERROR. TOO MANY DETACHED BREAKWATERS. PLEASE");
}

// Plain groins at the ends of breakwaters.

TEST_F(structure_lists, a_plain_groin_that_reaches_a_breakwater_end_must_be_called_diffracting) {
  for (const float Y : {100.0f, 120.0f}) {
    for (const std::int32_t wall : {8, 12}) {
      coast = {};
      coast.breakwater(8, 12);
      coast.plain_groin(wall, Y);
      build();
      kelprun::Report report;
      const Said said = kelptest::listen([&] {
        kelprun::check_groins_on_breakwaters(coast.model.groins, coast.model.breakwaters, report);
      });
      EXPECT_EQ(said.out,
                kelptest::fatal_record("ERROR.  Non-Diffracting groin connected to breakwater"));
    }
  }
}

TEST_F(structure_lists, a_plain_groin_short_of_a_breakwater_end_or_between_its_ends_may_stand) {
  for (const auto& [wall, Y] : {std::pair{8, 99.5f}, std::pair{12, 99.5f}, std::pair{10, 200.0f}}) {
    coast = {};
    coast.breakwater(8, 12);
    coast.plain_groin(wall, Y);
    build();
    kelprun::Report report;
    const Said said = kelptest::listen([&] {
      kelprun::check_groins_on_breakwaters(coast.model.groins, coast.model.breakwaters, report);
    });
    EXPECT_FALSE(said.status.has_value()) << wall;
  }
}

}  // namespace
