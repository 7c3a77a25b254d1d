#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace kelprun {

/// A text file that is written record by record and holds whole records only: a record that
/// cannot be written completely is taken back, and the run ends with a run-time message.
class OutputFile {
 public:
  /// Opens the file; with `emptied` false what it holds stays. False where it cannot be opened.
  bool open(const std::string& name, bool emptied);
  bool is_open() const { return file_ != nullptr; }
  const std::string& name() const { return name_; }

  /// Adds one record, line end included by this routine.
  void record(std::string_view text);
  /// Brings all records so far to the file.
  void flush();
  void close();

 private:
  struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  [[noreturn]] void write_failure();
  /// Cuts off what follows the last record that reached the file as a whole.
  void keep_whole_records() const;

  std::unique_ptr<std::FILE, Closer> file_;
  std::string name_;
  std::int64_t records_ = 0;
  std::uintmax_t pending_ = 0;  ///< bytes of the records since the last flush
  std::uintmax_t safe_ = 0;     ///< bytes of the records that have reached the file
};

}  // namespace kelprun
