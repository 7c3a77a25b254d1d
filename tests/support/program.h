#pragma once

#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

/// What tests of whole runs share: a folder to run in, the real program, its tables read back.
namespace kelptest {

/// How a run of the program ended, and what it said.
struct Outcome {
  int status;      ///< exit status, or 128 + the number of the signal that ended it
  bool timed_out;  ///< killed by the watchdog
  std::string out;
  std::string err;
};

/// A fresh, empty folder that is removed with all that is in it at the end of the test.
class WorkFolder {
 public:
  WorkFolder();
  ~WorkFolder();
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  bool exists(const std::string& name) const;
  /// The file's bytes; throws where the file cannot be read.
  std::string read(const std::string& name) const;
  /// Writes the bytes as they stand; folders that the name needs are made.
  void write(const std::string& name, const std::string& text) const;

 private:
  std::filesystem::path path_;
};

/// Starts the program with the folder as its working directory and an empty standard input, and
/// kills it after the timeout. A report of a sanitizer gives the status 99, which no run ends with.
Outcome run_program(const WorkFolder& folder, const std::vector<std::string>& args,
                    double timeout_seconds = 10.0);

/// The same, with `watch` called every millisecond with the number of the process, until it ends.
Outcome run_watched(const WorkFolder& folder, const std::vector<std::string>& args,
                    const std::function<void(pid_t)>& watch, double timeout_seconds = 20.0);

/// The same through the shell, for a run with a closed output or a limit: "$0" in the command is
/// the program.
Outcome run_shell(const WorkFolder& folder, const std::string& command,
                  double timeout_seconds = 10.0);

/// The lines without their line ends. A last line without its end counts as a line.
std::vector<std::string> lines(const std::string& text);

/// A result table: rows[k] holds the values of the row dated dates[k].
struct Table {
  std::string title;
  std::vector<int> dates;
  std::vector<std::vector<double>> rows;
};

/// Reads a title line and rows of an 8-column date and columns of `width` characters: 14 for slo,
/// off, vcc and vcx, 16 for qtr, mqn, mqr and mql. A field of asterisks is read as NaN. A row of
/// another form throws, with the number of its line.
Table read_table(const std::string& text, int width);

/// A small valid run of 20 cells of 100 m and 10 hourly steps, as lines "KEYWORD: value": it reads
/// shore.dat and waves.dat and writes run.prt. A value in `changes` takes the place of the usual
/// one, an empty value drops the line. Other keywords of `changes` follow, then `more_lines`.
std::string basic_configuration(const std::map<std::string, std::string>& changes,
                                const std::vector<std::string>& more_lines = {});

/// Writes what the basic configuration reads: shore.dat with all `nx` cells at the distance y, and
/// waves.dat with one steady wave of 1 m, 8 s and 10 degrees.
void write_basic_inputs(WorkFolder& folder, int nx, double y);

}  // namespace kelptest
