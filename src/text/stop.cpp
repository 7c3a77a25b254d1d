#include "text/stop.h"

#include <cstdio>
#include <cstdlib>

#include "text/console.h"
#include "text/fields.h"
#include "text/standard_error.h"

namespace kelprun {

namespace {

constexpr int MESSAGE_WIDTH = 73;

void end_process(int status) { std::exit(status); }

StopHandler current_handler = end_process;

}  // namespace

StopHandler set_stop_handler(StopHandler handler) {
  const StopHandler former = current_handler;
  current_handler = handler;
  return former;
}

void stop_run(int status) {
  std::fflush(nullptr);
  clear_progress();
  current_handler(status);
  std::abort();
}

void fatal(std::string_view message) {
  std::string record(cut(message, MESSAGE_WIDTH));
  record.resize(MESSAGE_WIDTH, ' ');
  console_record("ERROR: " + record);
  stop_run(1);
}

void run_time_message(std::string_view text) {
  std::fflush(nullptr);
  error_line(text);
  stop_run(1);
}

}  // namespace kelprun
