#include "text/output_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "text/stop.h"

namespace kelprun {

namespace {

namespace fs = std::filesystem;

/// A pipe would wait for a reader for ever, a folder holds no records; errno gets the reason.
bool is_kind_that_holds_records(fs::file_type kind) {
  if (kind == fs::file_type::directory) errno = EISDIR;
  if (kind == fs::file_type::fifo || kind == fs::file_type::socket) errno = EINVAL;
  return kind != fs::file_type::directory && kind != fs::file_type::fifo &&
         kind != fs::file_type::socket;
}

/// The bytes up to and with the last line end among the first `size` of them; all where they cannot
/// be read.
off_t end_of_last_line(int file, off_t size) {
  std::array<char, 4096> block{};
  for (off_t end = size; end > 0;) {
    const off_t start = std::max<off_t>(0, end - static_cast<off_t>(block.size()));
    const auto wanted = static_cast<std::size_t>(end - start);
    if (pread(file, block.data(), wanted, start) != end - start) return size;
    const auto line_end = std::string_view(block.data(), wanted).rfind('\n');
    if (line_end != std::string_view::npos) return start + static_cast<off_t>(line_end) + 1;
    end = start;
  }
  return 0;
}

}  // namespace

bool OutputFile::find_or_make(const std::string& name) {
  std::error_code ignored;
  const fs::file_type kind = fs::status(name, ignored).type();
  if (!is_kind_that_holds_records(kind)) return false;
  if (kind != fs::file_type::not_found) return access(name.c_str(), R_OK | W_OK) == 0;
  return OutputFile().open(name);
}

bool OutputFile::open(const std::string& name) {
  name_ = name;
  records_ = 0;
  std::error_code ignored;
  if (!is_kind_that_holds_records(fs::status(name, ignored).type())) return false;
  file_.reset(std::fopen(name.c_str(), "w+b"));
  if (is_open()) std::setvbuf(file_.get(), nullptr, _IONBF, 0);
  return is_open();
}

void OutputFile::record(std::string_view text) {
  ++records_;
  line_.assign(text);
  line_ += '\n';
  if (std::fwrite(line_.data(), 1, line_.size(), file_.get()) != line_.size())
    write_failure(std::strerror(errno));
  if (is_removed()) write_failure("the file has been removed");
}

void OutputFile::close() {
  if (std::fclose(file_.release()) != 0) write_failure(std::strerror(errno));
}

bool OutputFile::is_removed() const {
  struct stat file {};
  return fstat(fileno(file_.get()), &file) == 0 && file.st_nlink == 0;
}

void OutputFile::write_failure(const char* reason) {
  const std::string why = reason;
  if (is_open()) keep_whole_records();
  file_.reset();
  const std::string record = std::to_string(records_);
  run_time_message(name_ + ": record " + record + " (line " + record +
                   "): cannot be written: " + why);
}

void OutputFile::keep_whole_records() const {
  if (!is_open()) return;
  const int file = fileno(file_.get());
  struct stat state {};
  // What is no regular file cannot be cut and holds nothing to be kept.
  if (fstat(file, &state) != 0 || !S_ISREG(state.st_mode)) return;
  const off_t whole = end_of_last_line(file, state.st_size);
  // Where the disk refuses even this, nothing more can be done.
  if (whole < state.st_size && ftruncate(file, whole) != 0) return;
}

}  // namespace kelprun
