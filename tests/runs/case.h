#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <ostream>
#include <string>

#include "support/program.h"

/// What the tests of whole runs share: a case to run, and the console that it must give.
namespace kelptest {

using Lines = std::vector<std::string>;
using Changes = std::map<std::string, std::string>;

/// The basic configuration with changes, as run.cfg in a folder with the basic inputs.
class Case {
 public:
  explicit Case(const Changes& changes = {}, const Lines& more_lines = {});

  /// Writes or replaces a file of the folder.
  Case& with(const std::string& name, const std::string& text);
  const Outcome& run();

  /// The report's text; empty where there is none.
  std::string report() const;
  /// The table of that suffix with its stem, "run." unless told otherwise.
  Table table(const std::string& suffix, const std::string& stem = "run.") const;

  /// The report's lines ahead of the banner, and those behind the initial shoreline, with which
  /// its head ends.
  Lines ahead_of_head() const;
  Lines behind_head() const;

  WorkFolder folder;
  Outcome outcome{};
};

/// All parts, one after the other, each line with its line end.
std::string text_of(std::initializer_list<Lines> parts);

/// All parts as one list of lines.
Lines all(std::initializer_list<Lines> parts);

/// The texts as free-format lines: with one blank in front.
Lines free_lines(const Lines& texts);

/// The record of a fatal message: exactly 80 characters.
std::string fatal_record(const std::string& message);

/// The console up to the checks of the basic configuration.
Lines opening();
/// The short banner at the start of the report.
Lines banner();
Lines begins();
/// The lines of one year block.
Lines year_block(int years, int ITS, int NEXTDATE);
Lines closing();

/// `count` wave records from the first hour of the date on, `step` hours apart, within one month.
std::string hourly_waves(int date, int count, const std::string& wave, int step = 1);

/// The lines of an inlet from one cell to another, its shoals and bars empty.
Lines inlet(int first, int last);

/// The cells of an inlet, one on each side, on which its sand comes back.
Lines placement(int left, int right);

/// A shoreline, contour or width file: four headers, then the values in groups of 10.
std::string values_file(const std::vector<double>& values);

/// Ended in the fatal message, with exactly these lines on the console before it, and on standard
/// error the line that explains it, if there is one.
void expect_fatal(const Case& ended, std::initializer_list<Lines> before,
                  const std::string& message, const std::string& explained = "");

/// Ended with "Model run completed" and the status 0, and said nothing on standard error.
void expect_completed(const Case& ended);

/// Ended with the status 1 and one line on standard error that begins with this text.
void expect_run_time_message(const Case& ended, const std::string& text);

/// A configuration that a check refuses with lines on the console, the first once more as the
/// fatal message.
struct Refusal {
  std::string name;
  Changes changes;
  Lines more_lines;
  Lines printed;
};

inline std::ostream& operator<<(std::ostream& out, const Refusal& row) { return out << row.name; }

/// The name of a row as the end of its test's name.
inline std::string name_of_row(const testing::TestParamInfo<Refusal>& row) {
  return row.param.name;
}

/// Runs the row and expects its lines, and nothing in the report.
void expect_refused(const Refusal& row);

/// How often the text stands in the other one.
int occurrences(const std::string& text, const std::string& part);

}  // namespace kelptest
