#include "model/array.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "model/capacities.h"

namespace {

using namespace kelprun;

TEST(array, values_are_numbered_from_one) {
  Array1<int> values(3);
  values(1) = 10;
  values(3) = 30;
  EXPECT_EQ(*values.begin(), 10);
  EXPECT_EQ(*(values.end() - 1), 30);
  EXPECT_EQ(values.data()[1], 0);
  EXPECT_EQ(values.size(), 3);
}

TEST(array, taking_places_forgets_what_was_held) {
  Array1<float> values(2, 5.0f);
  values.allocate(3);
  for (const float value : values) EXPECT_EQ(value, 0.0f);
  EXPECT_EQ(values.size(), 3);
}

TEST(array, a_new_length_keeps_the_first_values_and_adds_zeros) {
  Array1<int> values;
  EXPECT_TRUE(values.empty());
  values.append(7);
  values.append(8);
  values.resize(3);
  EXPECT_EQ(values(1), 7);
  EXPECT_EQ(values(2), 8);
  EXPECT_EQ(values(3), 0);
  values.resize(1);
  EXPECT_EQ(values.size(), 1);
  EXPECT_EQ(values(1), 7);
}

TEST(array, filling_reaches_every_place) {
  PerWall<double> line;
  line.take(5, 1.0);
  line.fill(-9999.0);
  for (const double value : line) EXPECT_EQ(value, -9999.0);
}

TEST(array, a_coast_of_4000_cells_has_its_4001st_wall) {
  EXPECT_EQ(capacity::CELLS, 4000);
  PerWall<float> Q;
  Q.take(capacity::CELLS);
  ASSERT_EQ(Q.size(), 4001);
  Q(4001) = 0.5f;
  EXPECT_EQ(Q(4001), 0.5f);
  EXPECT_EQ(Q(4000), 0.0f);
}

TEST(array, a_coast_has_one_value_a_cell_and_one_wall_more) {
  PerCell<float> Y;
  PerWall<float> Q;
  Y.take(20, 3.0f);
  Q.take(20);
  EXPECT_EQ(Y.size(), 20);
  EXPECT_EQ(Y(20), 3.0f);
  EXPECT_EQ(Q.size(), 21);
}

TEST(array, the_second_cell_that_an_orientation_looks_at_exists_on_a_coast_of_one) {
  PerCell<float> YREG;
  PerWall<float> DX;
  YREG.take(1);
  DX.take(1);
  EXPECT_EQ(YREG.size(), 2);
  EXPECT_EQ(YREG(2), 0.0f);
  EXPECT_EQ(DX.size(), 2);
}

#ifdef KELPRUN_CHECK_INDEX
TEST(array, an_index_outside_is_caught_where_checks_are_compiled_in) {
  const Array1<float> values(3);
  EXPECT_DEATH(static_cast<void>(values(0)), "index 0 outside 1 to 3");
  EXPECT_DEATH(static_cast<void>(values(4)), "index 4 outside 1 to 3");
  EXPECT_DEATH(static_cast<void>(Array1<float>{}(1)), "index 1 outside 1 to 0");
}
#endif

}  // namespace
