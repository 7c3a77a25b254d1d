#include "run/command_line.h"

#include <filesystem>
#include <system_error>

#include "model/capacities.h"
#include "text/console.h"
#include "text/fields.h"
#include "text/stop.h"

namespace kelprun {

std::string configuration_argument(int argc, char** argv) {
  console_line("KelpRun Model Execution");
  if (argc != 2) {
    console_line("Please include a valid KelpRun configuration ", "file on the command line.");
    stop_run(1);
  }
  std::string name(cut(argv[1], capacity::ARGUMENT));
  std::error_code ignored;
  if (!std::filesystem::exists(name, ignored)) {
    console_line(" --> Cannot find the input file= ", name);
    stop_run(1);
  }
  return name;
}

}  // namespace kelprun
