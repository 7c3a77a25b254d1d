#include "text/standard_error.h"

#include <unistd.h>

#include <cstdio>
#include <string>

#include "text/fields.h"

namespace kelprun {

namespace {

bool progress_shown = false;

void write_line(std::string_view kind, std::string_view text) {
  clear_progress();
  const std::string line = printable(text);
  std::fprintf(stderr, "kelprun: %.*s%s\n", static_cast<int>(kind.size()), kind.data(),
               line.c_str());
}

}  // namespace

void error_line(std::string_view text) { write_line("", text); }

void warning_line(std::string_view text) { write_line("warning: ", text); }

bool progress_wanted() { return isatty(STDERR_FILENO) == 1; }

void show_progress(std::string_view text) {
  std::fprintf(stderr, "\r\033[K%.*s", static_cast<int>(text.size()), text.data());
  std::fflush(stderr);
  progress_shown = true;
}

void clear_progress() {
  if (!progress_shown) return;
  std::fputs("\r\033[K", stderr);
  std::fflush(stderr);
  progress_shown = false;
}

}  // namespace kelprun
