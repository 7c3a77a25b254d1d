#pragma once

#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "verification/coast.h"
#include "verification/printed_report.h"

/// A coast with all that a report tells of: groins, breakwaters, a seawall, an inlet that is
/// dredged, fills and bypassing, under changing waves over several years.
namespace kelptest {

/// What the coasts differ in. Lengths of the coast are round numbers in its own unit.
struct Reported {
  std::string name;
  double unit = 1.0;  ///< m in a length unit: 1 or 0.3048
  int start = 0, end = 0;
  double DT = 6.0;         ///< h
  double wave_step = 6.0;  ///< h, a multiple of DT
  double highest = 1.0;    ///< wave, m
  bool wave_feet = false;  ///< waves are told in feet
  bool computed = false;   ///< transmission of the breakwaters
  double K1 = 0.77;
  std::vector<int> PRDATE{};
};

inline std::ostream& operator<<(std::ostream& out, const Reported& one) { return out << one.name; }

/// Cells of the coast.
inline constexpr int reported_cells = 30;

struct WaveRecord {
  double H = 0.0, T = 0.0, angle = 0.0;
};

/// The coast, without its waves and what reads them.
Coast reported_coast(const Reported& one);

/// What the model's records hold behind a step.
struct StepRecord {
  int CURDATE = 0, NEXTDATE = 0;
  bool calm = false;
  std::vector<double> HB, ZB, HRF, ZRFPRTOUT;  ///< by wall
  std::vector<double> HBU, ZBU, ALPHA, CGBU;   ///< by wall
  std::vector<double> KT;                      ///< by breakwater
};

using Row = std::vector<double>;

/// Transports summed from the rows of the table of rates, by wall, as reported volumes.
struct Sums {
  Row net = Row(reported_cells + 1, 0.0), left = net, right = net, gross = net;
  int steps = 0;

  /// A rate a year that held for some hours.
  void add(const Row& rate, double hours);
  double largest_gross() const;
};

/// A run of the coast from its start to its end, with what it wrote and what it knew.
class ReportedRun {
 public:
  explicit ReportedRun(const Reported& one);

  const kelprun::Model& model() const { return run_.model(); }
  const Row& row(const std::string& table, int step) const;
  /// The wave in force in a step.
  const WaveRecord& wave(int step) const;
  int steps() const { return static_cast<int>(records.size()); }
  const StepRecord& record(int step) const {
    return records.at(static_cast<std::size_t>(step - 1));
  }
  /// Transports of the steps from one to another.
  Sums sums(int first, int last) const;
  double in_unit(double metres) const { return metres / one.unit; }
  /// Cubic metres in a reported volume.
  double U() const;
  bool feet() const { return one.unit != 1.0; }

  Reported one;
  std::vector<StepRecord> records;
  std::map<std::string, Table> tables;
  PrintedReport report;
  /// The steps that a print block and a year block belong to, by the calendar.
  std::vector<int> print_steps, year_steps;
  double shoals_at_start = 0.0;  ///< in shoals and bars, m3

 private:
  void take_record();
  void find_blocks();

  std::vector<WaveRecord> waves_;
  CoastRun run_;
};

/// Sand in the shoals and bars of the first inlet, m3.
double sand_in_shoals(const kelprun::Model& model);

/// The run of that coast; made once.
const ReportedRun& reported_run(const Reported& one);

/// Days from one date YYYYMMDD to another.
int days_between(int from, int to);
/// The date that many days after another.
int date_after(int date, int days);

}  // namespace kelptest
