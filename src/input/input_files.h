#pragma once

#include <string>
#include <vector>

#include "text/input_file.h"

namespace kelprun {

/// The files that the configuration names, open and positioned at their start.
struct InputFiles {
  std::string configuration;
  InputFile initial_shoreline;
  InputFile regional_contour;
  InputFile water_level;
  InputFile bypass;
  std::vector<InputFile> waves;
  std::vector<InputFile> tides;
};

}  // namespace kelprun
