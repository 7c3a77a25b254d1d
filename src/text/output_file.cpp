#include "text/output_file.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "text/stop.h"

namespace kelprun {

bool OutputFile::open(const std::string& name, bool emptied) {
  name_ = name;
  records_ = 0;
  pending_ = 0;
  safe_ = 0;
  // A pipe would wait for a reader for ever.
  std::error_code ignored;
  const auto kind = std::filesystem::status(name, ignored).type();
  if (kind == std::filesystem::file_type::fifo || kind == std::filesystem::file_type::socket) {
    errno = EINVAL;
    return false;
  }
  file_.reset(std::fopen(name.c_str(), emptied ? "wb" : "ab"));
  return is_open();
}

void OutputFile::record(std::string_view text) {
  ++records_;
  pending_ += text.size() + 1;
  const bool written = std::fwrite(text.data(), 1, text.size(), file_.get()) == text.size();
  if (!written || std::fputc('\n', file_.get()) == EOF) write_failure();
}

void OutputFile::flush() {
  if (!is_open()) return;
  if (std::fflush(file_.get()) != 0) write_failure();
  safe_ += pending_;
  pending_ = 0;
}

void OutputFile::close() {
  flush();
  file_.reset();
}

void OutputFile::write_failure() {
  const std::string reason = std::strerror(errno);
  file_.reset();
  keep_whole_records();
  const std::string record = std::to_string(records_);
  run_time_message(name_ + ": record " + record + " (line " + record +
                   "): cannot be written: " + reason);
}

void OutputFile::keep_whole_records() const {
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(name_, ignored)) return;
  std::uintmax_t whole = safe_;
  std::ifstream written(name_, std::ios::binary);
  written.seekg(static_cast<std::streamoff>(safe_));
  for (std::string line; std::getline(written, line) && !written.eof();) whole += line.size() + 1;
  written.close();
  std::filesystem::resize_file(name_, whole, ignored);
}

}  // namespace kelprun
