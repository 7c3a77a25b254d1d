#include "output/progress.h"

#include <algorithm>
#include <string>

#include "text/standard_error.h"

namespace kelprun {

void Progress::start() {
  wanted_ = progress_wanted();
  started_ = Watch::now();
  shown_ = started_;
}

void Progress::update(const Clock& clock) {
  if (!wanted_ || clock.ITS < 1) return;
  constexpr auto INTERVAL = std::chrono::milliseconds(200);
  const auto now = Watch::now();
  if (now - shown_ < INTERVAL) return;
  shown_ = now;
  const double share = std::min(1.0, static_cast<double>(clock.ITS) / clock.NTS);
  const double spent = std::chrono::duration<double>(now - started_).count();
  const auto left = static_cast<long>(spent / share - spent);
  show_progress(std::to_string(static_cast<int>(100.0 * share)) + " %  " +
                std::to_string(clock.NEXTDATE) + "  " + std::to_string(left) + " s left");
}

}  // namespace kelprun
