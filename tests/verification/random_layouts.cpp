#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <exception>
#include <random>
#include <string>

#include "verification/structured_coast.h"

// Whole runs over drawn layouts: all kinds of structures, ends, units and ways of transmission. A
// run must go through to its end with numbers everywhere, or stop because a diffraction coefficient
// did not converge, which the report tells. The ctest time limit ends a run that hangs.

namespace {

using namespace kelptest;

constexpr int layouts = 240;
constexpr double foot = 0.3048;
constexpr double depth_of_gauge = 15.0;

/// Draws the same numbers on every machine.
class Draw {
 public:
  explicit Draw(unsigned seed) : numbers_(seed) {}
  double between(double low, double high) {
    return low + (high - low) * static_cast<double>(numbers_()) / 4294967296.0;
  }
  int whole(int low, int high) { return low + static_cast<int>(between(0.0, high - low + 1)); }
  bool chance(double share) { return between(0.0, 1.0) < share; }
  double one_of(std::initializer_list<double> values) {
    return values.begin()[whole(0, static_cast<int>(values.size()) - 1)];
  }

 private:
  std::mt19937 numbers_;
};

/// A layout in metres, and how its breakwaters pass waves.
struct Layout {
  Coast coast;
  Structures structures;
  double unit = 1.0;  ///< m, of the lengths in the files
  bool computed = false;
  double shore = 0.0;
  double H = 0.0;
};

Groin groin(int wall, double tip, bool diffracting, Draw& draw) {
  return {wall, tip, draw.one_of({0, 0.1, 0.5, 1}), diffracting, draw.between(0.3, 18.0)};
}

Breakwater breakwater(int first, int last, double Y1, double Y2, Draw& draw) {
  return {first,
          last,
          Y1,
          Y2,
          draw.between(2.0, 18.0),
          draw.between(2.0, 6.0),
          draw.one_of({0, 0.005, 0.1, 0.3, 0.7, 0.99, 1})};
}

/// One end of the coast: pinned, moving, or a groin, which may stand on wall `wall`.
void add_end(const std::string& side, int wall, Layout& l, Draw& draw) {
  const int type = draw.whole(0, 3);
  l.coast.keywords[side + "BCTYPE"] = std::to_string(type);
  if (type == 3) {
    l.coast.keywords[side + "MOVY"] = digits(draw.between(-0.5, 0.5) / l.unit);
    l.coast.keywords[side + "MOVPER"] = std::to_string(draw.whole(1, 3));
  } else if (type != 0 && (side == "R" || draw.chance(0.8))) {
    l.coast.keywords[side + "GROINY"] = digits(draw.between(0.0, 150.0) / l.unit);
    l.structures.groins.push_back(
        groin(wall, l.shore + draw.between(-20.0, 150.0), draw.chance(0.6), draw));
  }
}

/// A breakwater, two that touch, one with a groin in its lee or the bar of a T.
int add_breakwaters(int wall, Layout& l, Draw& draw) {
  const int NX = l.coast.NX();
  Structures& s = l.structures;
  const int last = std::min(wall + draw.whole(1, 12), NX - 2);
  const double Y1 = l.shore + draw.between(2.0, 250.0);
  const double Y2 = draw.chance(0.5) ? Y1 : l.shore + draw.between(2.0, 250.0);
  const int middle = (wall + last) / 2;
  const double kind = draw.between(0.0, 1.0);
  if (last - wall < 4 || kind < 0.4) {
    s.breakwaters.push_back(breakwater(wall, last, Y1, Y2, draw));
    return last;
  }
  if (kind < 0.55) {
    s.breakwaters.push_back(breakwater(wall, last, Y1, Y2, draw));
    s.groins.push_back(groin(middle, l.shore + draw.between(-5.0, 60.0), false, draw));
    return last;
  }
  if (kind < 0.75) s.groins.push_back(groin(middle, Y1, true, draw));
  s.breakwaters.push_back(breakwater(wall, middle, Y1, Y1, draw));
  if (kind < 0.9) {
    s.breakwaters.push_back(breakwater(middle, last, Y1, Y2, draw));
    return last;
  }
  return middle;
}

void add_structures(Layout& l, Draw& draw) {
  const int NX = l.coast.NX();
  int wall = draw.whole(3, 6);
  while (wall < NX - 2) {
    const double kind = draw.between(0.0, 1.0);
    if (kind < 0.35) {
      l.structures.groins.push_back(
          groin(wall, l.shore + draw.between(-20.0, 150.0), draw.chance(0.7), draw));
      wall += draw.whole(2, 8);
    } else if (kind < 0.85) {
      wall = add_breakwaters(wall, l, draw) + draw.whole(2, 6);
    } else {
      wall += draw.whole(1, 8);
    }
  }
}

/// Lengths of the structures in the unit of the files.
Structures in_unit(Structures s, double unit) {
  for (Groin& g : s.groins) {
    g.tip /= unit;
    g.depth /= unit;
  }
  for (Breakwater& b : s.breakwaters)
    for (double* length : {&b.Y1, &b.Y2, &b.depth1, &b.depth2}) *length /= unit;
  return s;
}

/// Crests below the lowest level, because the second method stops at others.
std::vector<std::string> transmission_lines(const Structures& s, Draw& draw) {
  std::vector<std::string> lines;
  for (std::size_t k = 0; k < s.breakwaters.size(); ++k) {
    lines.push_back("KTMETDB: " + std::to_string(draw.whole(0, 2)));
    lines.push_back("HDB: " + digits(draw.between(0.2, 1.2)));
    lines.push_back("BDB: " + digits(draw.between(2.0, 10.0)));
    lines.push_back("SSDB: 0.5");
    lines.push_back("SHSDB: 0.6");
    lines.push_back("D50DB: " + digits(draw.between(0.5, 1.5)));
  }
  return lines;
}

std::vector<std::string> structure_lines(const Layout& l, Draw& draw) {
  std::vector<std::string> lines;
  for (const std::string& line : lines_of(in_unit(l.structures, l.unit)))
    if (!l.computed || line.rfind("TRANDB", 0) != 0) lines.push_back(line);
  if (l.computed)
    for (const std::string& line : transmission_lines(l.structures, draw)) lines.push_back(line);
  if (draw.chance(0.3)) {
    const int first = draw.whole(1, l.coast.NX());
    const double Y = (l.shore - draw.between(0.0, 10.0)) / l.unit;
    for (const std::string& line : {"ISWBEG: " + std::to_string(first),
                                    "ISWEND: " + std::to_string(draw.whole(first, l.coast.NX())),
                                    "SWY1: " + digits(Y), "SWY2: " + digits(Y)})
      lines.push_back(line);
  }
  return lines;
}

/// Records of six hours. No wave is steeper than 0.05 of its deep-water length, and none comes
/// along the coast, so that the formula of breaking holds.
std::string waves(Layout& l, int records, Draw& draw) {
  std::string file;
  for (int k = 0; k < records; ++k) {
    const double T = draw.between(3.5, 14.0);
    const double H =
        draw.chance(0.05) ? 0.0 : std::min(draw.between(0.2, 3.0), 0.05 * 1.56 * T * T);
    l.H = std::max(l.H, H);
    const char* hours[] = {"0", "600", "1200", "1800"};
    file += std::string("20000101 ") + hours[k % 4] + " " + digits(H) + " " + digits(T) + " " +
            digits(draw.between(-80.0, 80.0)) + "\n";
  }
  return file;
}

/// A level or a current every six hours.
std::string records_of(double largest, int records, Draw& draw) {
  std::string file;
  for (int k = 0; k < records; ++k)
    file += std::string("20000101 ") + (k % 2 == 0 ? "0 " : "600 ") +
            digits(draw.between(-largest, largest)) + "\n";
  return file;
}

void set_keywords(Layout& l, int records, Draw& draw) {
  const std::string NX = std::to_string(l.coast.NX());
  l.coast.keywords.insert({
      {"KELUNITS", l.unit == 1.0 ? "(m)" : "(ft)"},
      {"WAVEID",
       NX + " " + digits(depth_of_gauge / l.unit) + " " + std::to_string(records) + " waves.dat"},
      {"SIMDATS", "20000101"},
      {"DCLOS", digits(7.0 / l.unit)},
      {"BERMHT", digits(1.0 / l.unit)},
      {"K2", draw.chance(0.7) ? "0.38" : "1e-6"},
      {"D50", digits(draw.between(0.15, 0.6))},
      {"ISMOOTH", std::to_string(draw.whole(0, 3) * 4 + 1)},
      {"PRWARN", "F"},
  });
  if (l.computed) l.coast.keywords["WLFILE"] = std::to_string(records) + " levels.dat";
  if (draw.chance(0.2)) {
    l.coast.keywords["TIDEFILE"] = NX + " " + std::to_string(records) + " tide.dat";
    l.coast.tide = records_of(0.5, records, draw);
  }
}

/// A step that stays stable in the highest wave of the run.
double stable_step(const Layout& l, double DX) {
  const double rate = 0.15 * std::pow(l.H, 2.5) / (DX * DX * 8.0);
  for (const double DT : {3.0, 1.5, 0.5, 0.25})
    if (rate * DT * 3600.0 < 0.4) return DT;
  return 0.125;
}

Layout layout(unsigned seed) {
  Draw draw(seed);
  Layout l;
  l.unit = draw.chance(0.5) ? 1.0 : foot;
  l.computed = draw.chance(0.35);
  l.shore = draw.between(150.0, 250.0);
  const int NX = draw.whole(8, 60);
  const double DX = draw.one_of({10.0, 25.0, 50.0});
  l.coast.shoreline.assign(static_cast<std::size_t>(NX), 0.0);
  const double bump = draw.chance(0.5) ? 0.0 : draw.between(-0.2, 0.2) * DX;
  for (double& Y : l.coast.shoreline) {
    const auto c = static_cast<double>(&Y - l.coast.shoreline.data());
    Y = (l.shore + bump * std::sin(0.4 * c)) / l.unit;
  }
  add_end("L", 1, l, draw);
  add_structures(l, draw);
  add_end("R", NX + 1, l, draw);
  constexpr int records = 40;
  l.computed = l.computed && !l.structures.breakwaters.empty();
  if (l.computed) l.coast.levels = records_of(0.5 / l.unit, records, draw);
  l.coast.waves = waves(l, records, draw);
  l.coast.DX = DX / l.unit;
  l.coast.DT = stable_step(l, DX);
  l.coast.steps = 36;
  if (draw.chance(0.2)) l.coast.contour.assign(l.coast.shoreline.size(), l.shore / l.unit);
  set_keywords(l, records, draw);
  l.coast.more_lines = structure_lines(l, draw);
  return l;
}

bool all_numbers(const kelprun::Model& m) {
  for (std::int32_t i = 1; i <= m.grid.NX + 1; ++i) {
    if (!std::isfinite(m.transport.Q(i)) || !std::isfinite(m.waves.HB(i)) ||
        !std::isfinite(m.waves.ZB(i)) || m.waves.HB(i) < 0.0f)
      return false;
    if (i <= m.grid.NX && !std::isfinite(m.shore.Y(i))) return false;
  }
  return true;
}

struct Counts {
  int ended = 0, not_converged = 0, with_shadow = 0, in_feet = 0, computed = 0;
};

void run_layout(unsigned seed, Counts& counts) {
  const Layout l = layout(seed);
  CoastRun run(l.coast);
  bool shadow = false;
  for (bool more = true; more;) {
    more = run.step();
    ASSERT_TRUE(all_numbers(run.model())) << "step " << run.model().clock.ITS;
    shadow = shadow || run.model().tips.NZ > 1;
  }
  const bool ended = run.model().clock.ITS == run.model().clock.NTS && run.model().clock.IERR == 0;
  const bool told = run.finish().find("KD CALCULATION DID NOT CONVERGE") != std::string::npos;
  EXPECT_NE(ended, told);
  ++(ended ? counts.ended : counts.not_converged);
  counts.with_shadow += shadow;
  counts.in_feet += l.unit != 1.0;
  counts.computed += l.computed;
}

}  // namespace

TEST(random_layouts, run_to_their_end_or_tell_that_a_coefficient_did_not_converge) {
  Counts counts;
  testing::internal::CaptureStdout();
  for (unsigned seed = 1; seed <= layouts; ++seed) {
    SCOPED_TRACE("layout " + std::to_string(seed));
    try {
      run_layout(seed, counts);
    } catch (const std::exception& stop) {
      ADD_FAILURE() << "layout " << seed << ": " << stop.what();
    }
  }
  testing::internal::GetCapturedStdout();
  measured("random layouts, runs", layouts);
  measured("random layouts, ended", counts.ended);
  measured("random layouts, stopped because KD did not converge", counts.not_converged);
  measured("random layouts, with diffraction", counts.with_shadow);
  measured("random layouts, in feet", counts.in_feet);
  measured("random layouts, with computed transmission", counts.computed);
  EXPECT_EQ(counts.ended + counts.not_converged, layouts);
  // Of 3000 such layouts 0.7 % stop so.
  EXPECT_LE(counts.not_converged, layouts / 50);
  EXPECT_GE(counts.with_shadow, layouts / 2);
  EXPECT_GE(counts.in_feet, layouts / 4);
  EXPECT_GE(counts.computed, layouts / 10);
}
