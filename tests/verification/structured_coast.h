#pragma once

#include <string>
#include <vector>

#include "verification/coast.h"

namespace kelptest {

/// A groin at the left of cell `wall`; positions in m from the baseline.
struct Groin {
  int wall = 0;
  double tip = 0.0;
  double permeability = 0.0;
  bool diffracting = false;
  double depth = 3.0;
};

/// A breakwater from wall `first` to wall `last`; positions, depths in m at its two tips.
struct Breakwater {
  int first = 0;
  int last = 0;
  double Y1 = 0.0, Y2 = 0.0;
  double depth1 = 3.0, depth2 = 3.0;
  double KT = 0.0;
};

struct Structures {
  std::vector<Groin> groins;            ///< from left to right
  std::vector<Breakwater> breakwaters;  ///< from left to right
};

/// The lines of a configuration that build them.
std::vector<std::string> lines_of(const Structures& structures);

/// The same seen in a mirror: wall i of NX+1 walls becomes NX+2-i.
Structures mirrored(const Structures& structures, int NX);

/// Long groins that let nothing past close both ends of the coast.
void close_both_ends(Coast& coast, Structures& structures);

/// Sand that the cells have gained since the start of the run, m3, summed in double.
double gained_sand(const CoastRun& run, int first, int last);

/// Where the environment names a folder in KELPRUN_CURVES, a curve is also kept there as NAME.csv,
/// for the pictures of the document (scripts/figures).
class Curve {
 public:
  Curve(std::string name, const std::string& columns);
  ~Curve();
  Curve(const Curve&) = delete;
  Curve& operator=(const Curve&) = delete;
  void row(const std::vector<double>& values);

 private:
  std::string name_;
  std::string text_;
};

}  // namespace kelptest
