#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "model/array.h"
#include "text/free_format.h"
#include "text/output_file.h"

namespace kelprun {

/// The printable report. It gets its name where its keyword stands in the configuration and is
/// opened by begin(), once it is certain that it is no input file; lines until then are kept for
/// it. Without a name all lines are dropped.
class Report {
 public:
  /// The file is made where there is none; one that is there keeps what it holds. False where it
  /// could not be opened.
  bool set_name(const std::string& name) {
    name_ = name;
    return OutputFile::find_or_make(name);
  }
  /// Opens the file, empties it and writes the lines kept so far.
  void begin();

  /// One line as it stands.
  void record(std::string_view text);

  /// One free-format line.
  template <class... Items>
  void line(const Items&... items) {
    record(free_format(items...));
  }

  /// value(1) to value(count), 10 a line, in columns of `width` with 2 decimals.
  void array(std::int32_t count, int width, const std::function<double(std::int32_t)>& value);
  /// The first `count` values in the same way.
  void array(const Array1<float>& values, std::int32_t count, int width);
  /// Cell or wall numbers, 10 a line, in columns of 7.
  void numbers(const Array1<std::int32_t>& values);

  void keep_whole_records() const { file_.keep_whole_records(); }
  void close() {
    if (file_.is_open()) file_.close();
  }

 private:
  OutputFile file_;
  std::string name_;
  bool begun_ = false;
  std::string kept_;
};

}  // namespace kelprun
