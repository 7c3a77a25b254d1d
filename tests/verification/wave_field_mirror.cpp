#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>

#include "verification/structured_coast.h"

// The wave field behind structures in a mirror: wall i of NX+1 walls is seen at NX+2-i, the angle
// with another sign. Looked at in the first step, on a straight shoreline, before the transport,
// which has no such symmetry, has moved anything.

namespace {

using namespace kelptest;

constexpr int NX = 60;
constexpr double shore = 100.0;
constexpr int mirror_wall(int i) { return NX + 2 - i; }

Coast coast_of(const Structures& structures, double degrees, double T = 8.0) {
  Coast coast;
  coast.DX = 20.0;
  coast.DT = 0.5;
  coast.steps = 2;
  coast.shoreline.assign(NX, shore);
  coast.waves = steady_wave(1.0, T, degrees);
  coast.more_lines = lines_of(structures);
  return coast;
}

double H(const CoastRun& run, int i) { return static_cast<double>(run.model().waves.HB(i)); }
double Z(const CoastRun& run, int i) { return static_cast<double>(run.model().waves.ZB(i)); }

struct Asymmetry {
  double height = 0.0;  ///< m
  double angle = 0.0;   ///< radians
  int wall = 0;         ///< of the largest difference in height
};

Asymmetry between(const CoastRun& run, const CoastRun& other) {
  Asymmetry a;
  for (int i = 1; i <= NX + 1; ++i) {
    const double height = std::abs(H(run, i) - H(other, mirror_wall(i)));
    if (height > a.height) a.wall = i;
    a.height = std::max(a.height, height);
    a.angle = std::max(a.angle, std::abs(Z(run, i) + Z(other, mirror_wall(i))));
  }
  return a;
}

Asymmetry of_first_step(const Structures& structures, double degrees, double T) {
  CoastRun run(coast_of(structures, degrees, T));
  CoastRun other(coast_of(mirrored(structures, NX), -degrees, T));
  EXPECT_TRUE(run.step());
  EXPECT_TRUE(other.step());
  return between(run, other);
}

/// A number in [low, high), the same on every machine.
double drawn(double low, double high, std::mt19937& numbers) {
  return low + (high - low) * static_cast<double>(numbers()) / 4294967296.0;
}

int drawn_whole(int low, int high, std::mt19937& numbers) {
  return low + static_cast<int>(drawn(0.0, high - low + 1, numbers));
}

enum class Kind { breakwaters, groins, both, joined };

Groin drawn_groin(int wall, std::mt19937& numbers) {
  return {wall, shore + drawn(30, 150, numbers), drawn(0, 0.6, numbers), drawn(0, 1, numbers) < 0.8,
          drawn(1.5, 5.0, numbers)};
}

Breakwater drawn_breakwater(int first, int last, std::mt19937& numbers) {
  return {first,
          last,
          shore + drawn(60, 250, numbers),
          shore + drawn(60, 250, numbers),
          drawn(1.5, 6.0, numbers),
          drawn(1.5, 6.0, numbers),
          drawn(0, 1, numbers) < 0.4 ? 0.0 : drawn(0.05, 0.9, numbers)};
}

/// Two breakwaters that touch, at one tip or with a gap in the offshore distance, or the bar of a T
/// whose stem is a groin. They let no wave through.
void add_joined(int first, int last, std::mt19937& numbers, Structures& s) {
  const int middle = (first + last) / 2;
  Breakwater left = drawn_breakwater(first, middle, numbers);
  Breakwater right = drawn_breakwater(middle, last, numbers);
  left.KT = right.KT = 0.0;
  const double which = drawn(0, 1, numbers);
  if (which < 0.7) {
    right.Y1 = left.Y2;
    right.depth1 = left.depth2;
  }
  if (which < 0.4) s.groins.push_back({middle, left.Y2, drawn(0, 0.6, numbers), true, left.depth2});
  s.breakwaters.push_back(left);
  s.breakwaters.push_back(right);
}

/// Structures from left to right with three to nine cells between them.
Structures layout(Kind kind, std::mt19937& numbers) {
  Structures s;
  int wall = drawn_whole(4, 12, numbers);
  while (wall < NX - 4) {
    const bool groin =
        kind == Kind::groins || (kind != Kind::breakwaters && drawn(0, 1, numbers) < 0.5);
    if (groin) {
      s.groins.push_back(drawn_groin(wall, numbers));
    } else {
      const int last = wall + drawn_whole(kind == Kind::joined ? 4 : 2, 8, numbers);
      if (last >= NX - 2) break;
      if (kind == Kind::joined) {
        add_joined(wall, last, numbers, s);
      } else {
        s.breakwaters.push_back(drawn_breakwater(wall, last, numbers));
      }
      wall = last;
    }
    wall += drawn_whole(3, 9, numbers);
  }
  return s;
}

void expect_mirrored_fields(Kind kind, const std::string& name, unsigned seed) {
  std::mt19937 numbers(seed);
  Asymmetry largest;
  for (int n = 1; n <= 24; ++n) {
    const Structures structures = layout(kind, numbers);
    const double degrees = drawn(-45, 45, numbers);
    const Asymmetry a = of_first_step(structures, degrees, drawn(5, 12, numbers));
    EXPECT_LT(a.height, 1e-5) << name << " " << n << ", wall " << a.wall << ", " << degrees;
    EXPECT_LT(a.angle, 1e-5) << name << " " << n;
    largest.height = std::max(largest.height, a.height);
    largest.angle = std::max(largest.angle, a.angle);
  }
  measured("wave field in a mirror, " + name + ", largest difference of height, m", largest.height);
  measured("wave field in a mirror, " + name + ", largest difference of angle", largest.angle);
}

}  // namespace

TEST(wave_field, of_a_symmetric_breakwater_under_normal_waves_is_symmetric) {
  double height = 0.0;
  double angle = 0.0;
  for (const double KT : {0.0, 0.3, 0.7}) {
    for (const int half : {1, 4, 10}) {
      for (const double distance : {40.0, 120.0, 400.0}) {
        const Structures s{
            {}, {{31 - half, 31 + half, shore + distance, shore + distance, 2.0, 2.0, KT}}};
        CoastRun run(coast_of(s, 0.0));
        ASSERT_TRUE(run.step());
        const Asymmetry a = between(run, run);
        EXPECT_LT(a.height, 1e-6) << KT << " " << half << " " << distance;
        EXPECT_LT(a.angle, 1e-6) << KT << " " << half << " " << distance;
        EXPECT_LT(H(run, 31), 0.95 * H(run, 1)) << "the breakwater must shelter";
        height = std::max(height, a.height);
        angle = std::max(angle, a.angle);
      }
    }
  }
  measured("symmetric breakwater, largest asymmetry of the height, m", height);
  measured("symmetric breakwater, largest asymmetry of the angle", angle);
}

TEST(wave_field, behind_breakwaters_is_mirrored_with_the_coast) {
  expect_mirrored_fields(Kind::breakwaters, "breakwaters", 1);
}

TEST(wave_field, beside_groins_is_mirrored_with_the_coast) {
  expect_mirrored_fields(Kind::groins, "groins", 2);
}

TEST(wave_field, of_groins_and_breakwaters_is_mirrored_with_the_coast) {
  expect_mirrored_fields(Kind::both, "groins and breakwaters", 3);
}

TEST(wave_field, of_t_groins_and_touching_breakwaters_is_mirrored_where_they_let_no_wave_through) {
  expect_mirrored_fields(Kind::joined, "T-groins and touching breakwaters of KT 0", 4);
}

// The places where the field of structures has a left and a right.

// The smoothing asks for a groin on the right of a wall first. A wall between two groins two cells
// apart therefore takes a quarter of its left neighbour, in the coast and in its mirror.
TEST(wave_field, between_two_groins_two_cells_apart_leans_to_the_left_one) {
  const Structures s{{{30, shore + 200, 0.0, true}, {32, shore + 150, 0.0, true}}, {}};
  CoastRun run(coast_of(s, 20.0));
  CoastRun other(coast_of(mirrored(s, NX), -20.0));
  run.step();
  other.step();
  for (int i = 1; i <= NX + 1; ++i) {
    if (i != 31) {
      EXPECT_NEAR(H(run, i), H(other, mirror_wall(i)), 1e-5) << "wall " << i;
    }
  }
  // Groin walls are not smoothed, and 3 x + left less 3 x + right leaves the groins' own waves.
  EXPECT_NEAR(H(run, 31) - H(other, 31), 0.25 * (H(run, 30) - H(run, 32)), 1e-6);
  EXPECT_GT(std::abs(H(run, 30) - H(run, 32)), 0.01);
  measured("wave field between two groins two cells apart, difference in the mirror, m",
           H(run, 31) - H(other, 31));
}

// The wall of a groin belongs to the side that the waves come from. On the last wall there is no
// such side for waves from beyond, on the first wall the rule is not asked.
TEST(wave_field, at_a_groin_on_the_end_wall_is_0_on_the_right_and_whole_on_the_left) {
  const Structures s{{{1, shore + 150, 0.0, true}}, {}};
  Coast coast = coast_of(s, 20.0);
  coast.keywords.insert({{"LBCTYPE", "1"}, {"LGROINY", "150"}});
  Coast other_coast = coast_of(mirrored(s, NX), -20.0);
  other_coast.keywords.insert({{"RBCTYPE", "1"}, {"RGROINY", "150"}});
  CoastRun run(coast);
  CoastRun other(other_coast);
  run.step();
  other.step();
  EXPECT_EQ(H(run, 1), static_cast<double>(run.model().waves.HBU(1)));
  EXPECT_EQ(H(other, NX + 1), 0.0);
  for (int i = 2; i <= NX + 1; ++i)
    EXPECT_NEAR(H(run, i), H(other, mirror_wall(i)), 1e-5) << "wall " << i;
}

// A breakwater that waves pass, on the left of the groin at its end: the walk from its free tip has
// cleared the groin's wall before the groin's tip takes its height from there, so that this tip
// sees the wave break at the shoreline, not at its breaking depth.
TEST(wave_field, at_a_groin_that_ends_a_permeable_breakwater_bends_round_it_as_if_without_height) {
  constexpr double tip = 100.0;
  constexpr double depth = 3.0;
  const Structures s{{{31, shore + tip, 0.0, true, depth}},
                     {{31, 35, shore + tip, shore + tip, depth, depth, 0.4}}};
  CoastRun run(coast_of(s, 20.0));
  CoastRun other(coast_of(mirrored(s, NX), -20.0));
  run.step();
  other.step();
  /// Share that bends round the groin's tip, one cell behind it, where a wave of height `Htip`
  /// breaks.
  const auto bent = [&](const kelprun::TipWave& wave, double Htip) {
    const double P = tip * (1.0 - Htip / 0.78 / depth);
    const double th = std::atan(20.0 / P) - std::abs(static_cast<double>(wave.Z));
    const double B = static_cast<double>(wave.SMAX) / static_cast<double>(wave.AKD);
    return std::sqrt(0.5 * (1.0 + std::tanh(B * th)));
  };
  const kelprun::Diffraction& d = run.model().diffraction;
  const kelprun::Diffraction& in_mirror = other.model().diffraction;
  const double KD = static_cast<double>(d.KDTAB(3)(32));
  const double KD_in_mirror = static_cast<double>(in_mirror.KDTAB(3)(30));
  const double H_at_tip = static_cast<double>(run.model().waves.HBU(31));
  // The search for KD ends with a change of 0.025 m of the height.
  EXPECT_NEAR(KD, bent(d.tip_waves(3), H_at_tip * KD), 0.025);
  EXPECT_NEAR(KD_in_mirror, bent(in_mirror.tip_waves(3), 0.0), 1e-4);
  measured("permeable breakwater left of a groin, largest difference in the mirror, m",
           between(run, other).height);
  EXPECT_GT(between(run, other).height, 0.02);
}

// Of two touching breakwaters of the same transmission neither is the darker one, so that nobody
// bends waves round their common tip. The left one takes all that the open water on its left
// leaves, however far to the right; the right one stays dark.
TEST(wave_field, of_touching_breakwaters_of_one_transmission_is_raised_far_on_their_right) {
  constexpr double KT = 0.4;
  const Structures s{
      {},
      {{27, 31, shore + 100, shore + 100, 3, 3, KT}, {31, 35, shore + 100, shore + 100, 3, 3, KT}}};
  CoastRun run(coast_of(s, 20.0));
  run.step();
  const double open = static_cast<double>(run.model().waves.HBU(NX + 1));
  measured("touching breakwaters of KT 0.4, height far on their right over the open one",
           H(run, NX + 1) / open);
  EXPECT_NEAR(H(run, NX + 1) / open, std::sqrt(1.0 + KT * KT), 1e-3);
  EXPECT_NEAR(H(run, 1) / open, 1.0, 1e-3);
}
