#pragma once

#include <chrono>

#include "model/clock.h"

namespace kelprun {

/// A progress line on standard error, kept there only while that is a terminal.
class Progress {
 public:
  void start();
  void update(const Clock& clock);

 private:
  using Watch = std::chrono::steady_clock;
  bool wanted_ = false;
  Watch::time_point started_{};
  Watch::time_point shown_{};
};

}  // namespace kelprun
