#pragma once

#include <map>
#include <string>
#include <vector>

#include "runs/case.h"

/// What the tests of wrong input share: rows that a run must refuse, and a coast that reads a file
/// of every kind.
namespace kelptest {

/// The former results that a refused run must leave alone. The report is emptied once the whole
/// configuration has been read; the tables, once its checks have passed and the files have been
/// read.
enum class Kept { report_and_tables, tables, nothing };

/// A run that must end at once, and what it must tell.
struct Wrong {
  std::string name;
  Changes changes = {};
  Lines more_lines = {};
  std::map<std::string, std::string> files = {};  ///< that replace the usual ones or join them
  /// Begin of a line on standard error that names file, record and line; empty where the fault
  /// stands in no line alone.
  std::string place = "";
  Lines told = {};  ///< pieces of the message: the cause
  Kept kept = Kept::tables;
};

/// The rows of one kind, counted and timed.
class Family {
 public:
  explicit Family(std::string name) : name_(std::move(name)) {}
  /// Tells how many rows there were, and the slowest.
  ~Family();
  Family(const Family&) = delete;
  Family& operator=(const Family&) = delete;

  /// Runs the row and expects that it is refused.
  void refuse(const Wrong& row);
  void refuse(const std::vector<Wrong>& rows);
  /// Runs the program in a folder that is ready and expects the same; `inputs` must stay as they
  /// are.
  void refuse(const Wrong& row, const WorkFolder& folder, const std::vector<std::string>& args);
  /// A row that the rules leave legal: it must run to its end.
  void accept(const Wrong& row);

  int rows() const { return rows_; }

 private:
  std::string name_;
  int rows_ = 0;
  int legal_ = 0;
  double slowest_ = 0.0;
  std::string slowest_row_;
};

/// A coast of 20 cells and 10 hours that reads a shoreline, a contour, widths, waves, water levels
/// and the tidal currents of two stations.
struct WholeCoast {
  Changes changes;
  Lines more_lines;
  std::map<std::string, std::string> files;
};

const WholeCoast& whole_coast();

/// The whole coast with one of its files replaced.
Wrong coast_with(const std::string& name, const std::string& file, const std::string& text);

/// The line of run.cfg at which the first of the further lines of a row stands.
int first_further_line(const Changes& changes);

/// Items of the line between its blanks.
std::vector<std::string> items(const std::string& line);

/// Bytes of all values, the same on every machine.
std::string binary_noise(std::size_t size, unsigned seed);

}  // namespace kelptest
