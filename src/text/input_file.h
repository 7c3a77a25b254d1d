#pragma once

#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>

namespace kelprun {

/// A text file read line by line. A byte-order mark at its start is skipped, a carriage return
/// before the line end is dropped, and a tab counts as a blank.
class InputFile {
 public:
  /// False unless the name is that of a regular file which can be read; open_failure tells why.
  bool open(const std::string& name);
  bool is_open() const { return stream_.is_open(); }
  void close() { stream_.close(); }
  /// The last read failed for another reason than the end of the file.
  bool broken() const { return stream_.bad(); }
  /// The next line is the first one again.
  void rewind();

  /// Reads the next line; false at the end of the file.
  bool next_line();
  std::string_view line() const { return line_; }
  std::int64_t line_number() const { return line_number_; }
  const std::string& name() const { return name_; }

  /// Ends the run with "FILE: record N (line L): " and what is wrong.
  [[noreturn]] void failure(std::int64_t record, std::string_view what) const;
  /// One line on standard error, "FILE: line L: " and what is wrong, ahead of a fatal message that
  /// does not tell it.
  void explain(std::string_view what) const;

 private:
  std::ifstream stream_;
  std::string name_;
  std::string line_;
  std::int64_t line_number_ = 0;
};

/// Why a file of that name cannot be read.
std::string open_failure(const std::string& name);

}  // namespace kelprun
