#include "text/console.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

#include "text/fields.h"
#include "text/standard_error.h"
#include "text/stop.h"

namespace kelprun {

void console_record(std::string_view text) {
  clear_progress();
  std::string line = printable(text);
  line += '\n';
  const bool written = std::fwrite(line.data(), 1, line.size(), stdout) == line.size();
  if (!written || std::fflush(stdout) != 0)
    run_time_message(std::string("standard output: cannot be written: ") + std::strerror(errno));
}

}  // namespace kelprun
