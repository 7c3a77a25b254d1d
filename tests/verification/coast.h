#pragma once

#include <map>
#include <string>
#include <vector>

#include "run/run.h"
#include "support/program.h"

namespace kelptest {

/// A coast to run: uniform sand, one wave file, pinned ends, the waves refracting over the
/// shoreline itself (ISMOOTH 1), unless `keywords` says otherwise. Lengths in the unit of KELUNITS.
struct Coast {
  double DX = 100.0;
  double DT = 24.0;  ///< hours
  int steps = 10;
  std::vector<double> shoreline;  ///< one value a cell
  std::vector<double> contour;    ///< a contour file is written where this is not empty
  std::string waves;              ///< contents of the wave file
  std::string tide{};             ///< contents of a tidal current file tide.dat, where one is named
  std::string levels{};           ///< contents of a water level file levels.dat, where one is named
  std::map<std::string, std::string> keywords{};
  std::vector<std::string> more_lines{};

  int NX() const { return static_cast<int>(shoreline.size()); }
};

/// Height of the moving profile of every such coast, m: DCLOS 7 and BERMHT 1.
inline constexpr double profile_height = 8.0;
inline constexpr double K1_of_the_coast = 0.77;
inline constexpr double D50_of_the_coast = 0.2;
/// Depth of the wave gauge, m.
inline constexpr double gauge_depth = 20.0;

/// A number with all its digits.
std::string digits(double value);
/// The file of a steady wave: metres, seconds, degrees.
std::string steady_wave(double H, double T, double degrees);

/// Three-hourly waves from New Year 1997 for some days until April, drawn: heights from 0.2 m to
/// the highest, angles to 40 degrees on both sides; one record in ten is a calm.
std::string changing_waves(unsigned seed, int days, double highest);
inline constexpr int wave_records_a_day = 8;

/// Prints one line "measured: WHAT = VALUE"; docs/verification.md quotes these.
void measured(const std::string& what, double value);

/// Writes run.cfg and what it reads.
void write_coast(const WorkFolder& folder, const Coast& coast);

/// The program's own setup, step and finish on a coast, so that a test can look into every step.
/// A run that ends before its time throws.
class CoastRun {
 public:
  explicit CoastRun(const Coast& coast);
  CoastRun(const CoastRun&) = delete;
  CoastRun& operator=(const CoastRun&) = delete;

  /// One step; false behind the last one.
  bool step() { return kelprun::step(run_); }
  /// All steps that are left.
  void to_the_end();
  /// Closes the run; gives the report.
  std::string finish();

  const kelprun::Model& model() const { return run_.model; }
  double Y(int cell) const { return run_.model.shore.Y(cell); }
  double Q(int wall) const { return static_cast<double>(run_.model.transport.Q(wall)); }
  std::vector<double> shoreline() const;
  const WorkFolder& folder() const { return folder_; }

 private:
  WorkFolder folder_;
  kelprun::Run run_;
};

}  // namespace kelptest
