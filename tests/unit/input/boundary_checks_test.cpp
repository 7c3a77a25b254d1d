#include "input/boundary_checks.h"

#include <gtest/gtest.h>

#include <string>

#include "unit/input/coast.h"

namespace {

using kelptest::Coast;
using kelptest::Said;

class boundary_checks : public testing::Test {
 protected:
  Said check_left() {
    return kelptest::listen([&] { kelprun::check_left_boundary(coast.model); });
  }
  Said check_right() {
    return kelptest::listen([&] { kelprun::check_right_boundary(coast.model); });
  }

  kelprun::Boundary& left() { return coast.model.boundaries.left; }
  kelprun::Boundary& right() { return coast.model.boundaries.right; }

  Coast coast;
};

void expect_refused(const Said& said, const std::string& first_line) {
  EXPECT_EQ(said.status, 1);
  EXPECT_EQ(said.out.find(" " + first_line + "\n"), 0u) << said.out;
}

TEST_F(boundary_checks, a_type_below_0_is_refused_like_one_above_3) {
  for (const std::int32_t type : {-1, 4}) {
    left().BCTYPE = type;
    right().BCTYPE = type;
    EXPECT_EQ(check_left().out,
              "  ERROR. INVALID BOUNDARY CONDITION SPECIFICATION ON\n"
              "  LEFT-HAND MODEL BOUNDARY.  PLEASE CHANGE VALUEOF\n"
              "  \"LBCTYPE\" IN YOUR .cfg FILE.\n" +
                  kelptest::fatal_record(" ERROR. INVALID BOUNDARY CONDITION SPECIFICATION ON"));
    EXPECT_EQ(check_right().out,
              "  ERROR. INVALID BOUNDARY CONDITION SPECIFICATION ON\n"
              "  RIGHT-HAND MODEL BOUNDARY.  PLEASE CHANGE VALUE OF\n"
              "  \"RBCTYPE\" IN YOUR .cfg FILE.\n" +
                  kelptest::fatal_record(" ERROR. INVALID BOUNDARY CONDITION SPECIFICATION ON"));
  }
}

TEST_F(boundary_checks, pinned_and_moving_ends_bear_no_groin) {
  for (const std::int32_t type : {0, 3}) {
    coast = {};
    coast.plain_groin(1);
    coast.diffracting_groin(21);
    ASSERT_FALSE(kelptest::listen([&] { kelprun::check_groins(coast.model); }).status.has_value());
    left().BCTYPE = type;
    right().BCTYPE = type;
    const std::string message = type == 0
                                    ? " ERROR. BOTH \"PINNED-BEACH\" BOUNDARY CONDITION AND A"
                                    : " ERROR. BOTH \"MOVING-SHORELINE\" BOUNDARY CONDITION AND";
    expect_refused(check_left(), message);
    expect_refused(check_right(), message);
  }
}

TEST_F(boundary_checks, a_movement_of_a_pinned_end_is_told_and_forgotten) {
  left().MOVY = 2.0f;
  right().MOVY = -3.0f;
  const Said first = check_left();
  const Said second = check_right();
  EXPECT_FALSE(first.status.has_value());
  EXPECT_NE(first.out.find(" WARNING. \"PINNED-BEACH\" BOUNDARY CONDITION SPECIFIED"),
            std::string::npos);
  EXPECT_NE(second.out.find("  ON RIGHT-HAND BOUNDARY REASSIGNED TO ZERO.\n"), std::string::npos);
  EXPECT_EQ(left().MOVY, 0.0f);
  EXPECT_EQ(right().MOVY, 0.0f);
  EXPECT_EQ(left().MOVSTEP, 0.0f);
  EXPECT_EQ(right().MOVSTEP, 0.0f);
}

TEST_F(boundary_checks, a_pinned_end_without_movement_says_nothing) {
  EXPECT_EQ(check_left().out, "");
  EXPECT_EQ(check_right().out, "");
}

TEST_F(boundary_checks, a_movement_is_spread_over_the_steps_of_its_period) {
  const std::pair<std::int32_t, float> cases[] = {
      {1, 12.0f / 240.0f}, {2, 12.0f / 24.0f}, {3, 12.0f}};
  for (const auto& [period, step] : cases) {
    for (kelprun::Boundary* end : {&left(), &right()}) {
      end->BCTYPE = 3;
      end->MOVY = 12.0f;
      end->MOVPER = period;
    }
    EXPECT_EQ(check_left().out, "");
    EXPECT_EQ(check_right().out, "");
    EXPECT_FLOAT_EQ(left().MOVSTEP, step);
    EXPECT_FLOAT_EQ(right().MOVSTEP, step);
  }
}

TEST_F(boundary_checks, a_movement_in_feet_becomes_metres) {
  coast.model.settings.CONV = 0.3048f;
  right().BCTYPE = 3;
  right().MOVY = -10.0f;
  right().MOVPER = 3;
  check_right();
  EXPECT_FLOAT_EQ(right().MOVSTEP, -3.048f);
}

TEST_F(boundary_checks, only_a_moving_end_moves) {
  kelprun::Boundary end;
  end.MOVY = 12.0f;
  end.MOVPER = 3;
  for (const std::int32_t type : {0, 1, 2}) {
    end.BCTYPE = type;
    EXPECT_EQ(kelprun::boundary_movement(end, 1.0f, 240, 24.0f), 0.0f);
  }
  end.BCTYPE = 3;
  EXPECT_EQ(kelprun::boundary_movement(end, 1.0f, 240, 24.0f), 12.0f);
}

TEST_F(boundary_checks, a_period_that_does_not_exist_is_refused) {
  for (const std::int32_t period : {0, 4, -1}) {
    for (kelprun::Boundary* end : {&left(), &right()}) {
      end->BCTYPE = 3;
      end->MOVPER = period;
    }
    const std::string message = " ERROR. INVALID BOUNDARY MOVEMENT PERIOD SPECIFICATION";
    expect_refused(check_left(), message);
    expect_refused(check_right(), message);
  }
}

TEST_F(boundary_checks, a_groin_distance_of_zero_is_told_and_passes) {
  coast.plain_groin(21);
  ASSERT_FALSE(kelptest::listen([&] { kelprun::check_groins(coast.model); }).status.has_value());
  left().BCTYPE = 1;
  right().BCTYPE = 2;
  const Said first = check_left();
  EXPECT_FALSE(first.status.has_value());
  EXPECT_EQ(first.out,
            "  WARNING. DISTANCE FROM GROIN TIP ON LEFT-HAND BOUNDARY\n"
            "  TO SHORELINE OUTSIDE GRID SPECIFIED AS ZERO. PLEASE\n"
            "  VERIFY VALUE OF \"LGROINY\" IN YOUR .cfg FILE.\n");
  EXPECT_NE(check_right().out.find("\"RGROINY\""), std::string::npos);
}

TEST_F(boundary_checks, a_groin_distance_in_feet_becomes_metres) {
  coast.model.settings.CONV = 0.3048f;
  left().BCTYPE = 1;
  left().GROINY = 100.0f;
  EXPECT_EQ(check_left().out, "");
  EXPECT_FLOAT_EQ(left().GROINY, 30.48f);
}

TEST_F(boundary_checks, only_the_right_end_asks_whether_its_groin_exists) {
  for (const std::int32_t type : {1, 2}) {
    coast = {};
    left().BCTYPE = right().BCTYPE = type;
    left().GROINY = right().GROINY = 5.0f;
    EXPECT_FALSE(check_left().status.has_value());
    EXPECT_EQ(check_right().out,
              "  ERROR. GATED BOUNDARY CONDITION SPECIFIED AT N+1,\n"
              " BUT NO GROIN SPECIFIED AT N+1\n" +
                  kelptest::fatal_record(" ERROR. GATED BOUNDARY CONDITION SPECIFIED AT N+1,"));
  }
}

TEST_F(boundary_checks, a_groin_elsewhere_is_none_at_the_right_end) {
  coast.plain_groin(18);
  ASSERT_FALSE(kelptest::listen([&] { kelprun::check_groins(coast.model); }).status.has_value());
  right().BCTYPE = 1;
  expect_refused(check_right(), " ERROR. GATED BOUNDARY CONDITION SPECIFIED AT N+1,");
}

}  // namespace
