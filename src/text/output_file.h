#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace kelprun {

/// A text file that is written record by record and holds whole records only. A record goes to the
/// file at once and in one piece; one that cannot be written completely is taken back, and the
/// run ends with a run-time message.
class OutputFile {
 public:
  /// Makes an empty file where there is none, and does not open one that is there. False where
  /// open() would fail; the reason stands in errno.
  static bool find_or_make(const std::string& name);

  /// Opens the file and empties it. False where it cannot be opened; the reason stands in errno.
  bool open(const std::string& name);
  bool is_open() const { return file_ != nullptr; }

  /// Adds one record, line end included by this routine.
  void record(std::string_view text);
  void close();

  /// Cuts off what follows the last line end.
  void keep_whole_records() const;

 private:
  struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  [[noreturn]] void write_failure(const char* reason);
  bool is_removed() const;

  std::unique_ptr<std::FILE, Closer> file_;
  std::string name_;
  std::string line_;
  std::int64_t records_ = 0;
};

}  // namespace kelprun
