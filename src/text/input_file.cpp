#include "text/input_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "text/standard_error.h"
#include "text/stop.h"

namespace kelprun {

bool InputFile::open(const std::string& name) {
  name_ = name;
  line_number_ = 0;
  // The system would open what stands ahead of such a byte.
  if (name.find('\0') != std::string::npos) return false;
  std::error_code ignored;
  // A folder would open and then read nothing; a pipe could wait for ever.
  if (!std::filesystem::is_regular_file(name, ignored)) return false;
  stream_ = std::ifstream(name, std::ios::binary);
  return stream_.is_open();
}

void InputFile::rewind() {
  stream_.clear();
  stream_.seekg(0);
  line_number_ = 0;
}

bool InputFile::next_line() {
  if (!std::getline(stream_, line_)) return false;
  ++line_number_;
  constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";
  if (line_number_ == 1 && line_.starts_with(BYTE_ORDER_MARK))
    line_.erase(0, BYTE_ORDER_MARK.size());
  if (line_.ends_with('\r')) line_.pop_back();
  std::replace(line_.begin(), line_.end(), '\t', ' ');
  return true;
}

void InputFile::failure(std::int64_t record, std::string_view what) const {
  run_time_message(name_ + ": record " + std::to_string(record) + " (line " +
                   std::to_string(line_number_) + "): " + std::string(what));
}

void InputFile::explain(std::string_view what) const {
  error_line(name_ + ": line " + std::to_string(line_number_) + ": " + std::string(what));
}

std::string open_failure(const std::string& name) {
  using std::filesystem::file_type;
  if (name.empty()) return "no file is named";
  if (name.find('\0') != std::string::npos) return "the name holds a NUL byte";
  std::error_code error;
  switch (std::filesystem::status(name, error).type()) {
    case file_type::none:
      return error.message();
    case file_type::not_found:
      return "there is no such file";
    case file_type::directory:
      return "this is a folder";
    case file_type::regular:
      break;
    default:
      return "this is no ordinary file";
  }
  errno = 0;
  const std::ifstream attempt(name, std::ios::binary);
  return attempt.is_open() ? "it could not be opened" : std::strerror(errno);
}

}  // namespace kelprun
