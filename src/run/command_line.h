#pragma once

#include <string>

namespace kelprun {

/// The first line on the console, then the one argument of the program: the configuration file.
/// Another number of arguments, or a file that does not exist, ends the run.
std::string configuration_argument(int argc, char** argv);

}  // namespace kelprun
