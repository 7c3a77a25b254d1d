#include "input/spans.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/program.h"
#include "unit/input/reading.h"

namespace {

using kelptest::values_of;
using Reals = std::vector<float>;

class spans : public testing::Test {
 protected:
  void give(const Reals& values, const std::vector<std::int32_t>& ends) {
    for (std::size_t n = 0; n < values.size(); ++n)
      given.values(static_cast<std::int32_t>(n) + 1) = values[n];
    for (std::size_t n = 0; n < ends.size(); ++n)
      given.ends(static_cast<std::int32_t>(n) + 1) = ends[n];
  }

  Reals expanded(std::int32_t NX, float factor = 1.0f) {
    said = kelptest::listen([&] { kelprun::expand_spans(given, NX, factor, cells, report); });
    return values_of(cells);
  }

  kelprun::Spans given{"HAMP", "IHAMPEND"};
  kelprun::PerWall<float> cells;
  kelprun::Report report;
  kelptest::Said said;
};

TEST_F(spans, one_value_to_the_last_cell_serves_all) {
  give({3.0f}, {4});
  EXPECT_EQ(expanded(4), (Reals{3, 3, 3, 3, 3}));
  EXPECT_EQ(said.out, "");
  EXPECT_EQ(said.err, "");
}

TEST_F(spans, each_value_runs_to_its_end_cell_and_the_last_through_the_last_wall) {
  give({1.0f, 2.0f, 3.0f}, {2, 3, 6});
  EXPECT_EQ(expanded(6), (Reals{1, 1, 2, 3, 3, 3, 3}));
}

TEST_F(spans, one_value_more_than_end_cells_runs_on_to_the_last_wall) {
  give({0.1f, 0.2f}, {50});
  const Reals K1 = expanded(100);
  ASSERT_EQ(K1.size(), 101u);
  for (std::size_t i = 1; i <= 101; ++i) EXPECT_EQ(K1[i - 1], i <= 50 ? 0.1f : 0.2f) << i;
}

TEST_F(spans, what_stands_behind_an_end_at_the_last_cell_is_ignored) {
  give({1.0f, 2.0f, 7.0f, 8.0f}, {2, 5, 3, 5});
  EXPECT_EQ(expanded(5), (Reals{1, 1, 2, 2, 2, 2}));
}

TEST_F(spans, without_end_cells_the_first_value_serves_all_and_this_is_said) {
  give({4.0f, 5.0f}, {});
  EXPECT_EQ(expanded(3), (Reals{4, 4, 4, 4}));
  EXPECT_EQ(said.out, " No IHAMPEND specified. HAMP is constant alongshore\n");
}

TEST_F(spans, a_list_left_out_is_zero) { EXPECT_EQ(expanded(3), (Reals{0, 0, 0, 0})); }

TEST_F(spans, end_cells_without_values_give_zero) {
  give({1.0f}, {2, 4});
  EXPECT_EQ(expanded(4), (Reals{1, 1, 0, 0, 0}));
}

TEST_F(spans, an_end_cell_that_does_not_ascend_fills_nothing_and_moves_the_next_begin) {
  // The second value would run from 5 to 2; the third begins at 3 and writes over the first.
  give({1.0f, 2.0f, 3.0f}, {4, 2, 6});
  EXPECT_EQ(expanded(6), (Reals{1, 1, 3, 3, 3, 3, 3}));
}

TEST_F(spans, an_end_cell_beyond_the_grid_runs_to_the_last_wall_with_a_warning) {
  give({1.0f, 2.0f}, {2, 9});
  EXPECT_EQ(expanded(4), (Reals{1, 1, 2, 2, 2}));
  EXPECT_EQ(said.err, "kelprun: warning: IHAMPEND holds end cells beyond NX = 4\n");
  EXPECT_FALSE(said.status.has_value());
}

TEST_F(spans, the_largest_end_cell_that_can_be_written_does_no_harm) {
  give({1.0f, 2.0f, 3.0f}, {2147483647, 3, 2147483647});
  EXPECT_EQ(expanded(4), (Reals{1, 1, 1, 3, 3}));
}

TEST_F(spans, a_negative_end_cell_is_refused) {
  give({1.0f, 2.0f}, {2, -1});
  expanded(4);
  EXPECT_EQ(said.status, 1);
  EXPECT_EQ(said.out, kelptest::fatal_record("IHAMPEND holds -1, which is no cell of the grid"));
}

TEST_F(spans, each_value_is_multiplied_as_it_is_filled) {
  give({10.0f, -20.0f}, {1, 3});
  EXPECT_EQ(expanded(3, 0.5f), (Reals{5, -10, -10, -10}));
}

TEST_F(spans, as_many_spans_as_walls_are_possible) {
  Reals values;
  std::vector<std::int32_t> ends;
  for (std::int32_t i = 1; i <= 4000; ++i) {
    values.push_back(static_cast<float>(i));
    ends.push_back(i);
  }
  give(values, ends);
  const Reals all = expanded(4000);
  ASSERT_EQ(all.size(), 4001u);
  EXPECT_EQ(all[0], 1.0f);
  EXPECT_EQ(all[3998], 3999.0f);
  EXPECT_EQ(all[4000], 4000.0f);
}

TEST_F(spans, a_coast_of_one_cell_has_two_walls) {
  give({2.0f, 3.0f}, {1, 2});
  EXPECT_EQ(expanded(1), (Reals{2, 2}));
}

class spans_of_the_run : public kelptest::ReadingTest {};

TEST_F(spans_of_the_run, lists_without_end_cells_are_told_in_their_order) {
  read({{"IK1END", ""},
        {"IK2END", ""},
        {"IHAMPEND", ""},
        {"ITHETAAMPEND", ""},
        {"ITHETADELEND", ""},
        {"IBERMHTEND", ""},
        {"IDCLOSEND", ""}});
  expect_accepted();
  const std::string told =
      " No IK1END specified. K1 is constant alongshore\n"
      " No IK2END specified. K2 is constant alongshore\n"
      " No IHAMPEND specified. HAMP is constant alongshore\n"
      " No ITHETAAMPEND specified. THETAAMP is constant alongshore\n"
      " No ITHETADELEND specified. THETADEL is constant alongshore\n"
      " No IBERMHTEND specified. BERMHT is constant alongshore\n"
      " No IDCLOSEND specified. DCLOS is constant alongshore\n";
  EXPECT_NE(now->said.out.find(told), std::string::npos) << now->said.out;
  EXPECT_EQ(report_text(), told);
}

TEST_F(spans_of_the_run, amplification_factors_left_out_are_zero) {
  read({{"HAMP", ""}, {"IHAMPEND", ""}, {"THETAAMP", ""}});
  expect_accepted();
  for (const float value : model().waves.HAMP) EXPECT_EQ(value, 0.0f);
  for (const float value : model().waves.THETAAMP) EXPECT_EQ(value, 0.0f);
}

TEST_F(spans_of_the_run, only_angle_increments_become_radians) {
  read({{"THETADEL", "90 -45"}, {"ITHETADELEND", "10"}, {"DCLOS", "90"}});
  expect_accepted();
  EXPECT_EQ(model().waves.THETADEL(10), 90.0f * 0.017453294f);
  EXPECT_EQ(model().waves.THETADEL(11), -45.0f * 0.017453294f);
  EXPECT_EQ(model().waves.THETADEL(21), -45.0f * 0.017453294f);
  EXPECT_EQ(model().profile.DCLOSCELL(21), 90.0f);
}

}  // namespace
