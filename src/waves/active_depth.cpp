#include "waves/active_depth.h"

#include "model/constants.h"
#include "text/stop.h"

namespace kelprun {

namespace {

[[noreturn]] void refuse_depth(std::int32_t cell, const Grid& grid, const Clock& clock,
                               const Waves& waves, Report& report) {
  constexpr int COLUMNS = 7;
  report.line(" ERROR. BAD BALANCE IN WAVE INPUT PARAMETERS");
  report.line(" CAUSING DLTZ TO BE ZERO OR NEGATIVE.");
  report.line(" PLEASE CHECK YOUR WAVE INPUT PARAMETERS.");
  report.line(" CURRENT TIME STEP:", clock.ITS);
  report.line(" CURRENT INDEX:", cell);
  report.line(" HRF:");
  report.array(waves.HRF, grid.NX, COLUMNS);
  report.line(" TRF:");
  report.array(waves.TRF, grid.NX, COLUMNS);
  report.line(" ZRFPRTOUT:");
  report.array(waves.ZRFPRTOUT, grid.NX, COLUMNS);
  fatal("ERROR. DLTZ is negative. Please check input wave parameters.");
}

}  // namespace

void set_active_depth(const Grid& grid, const Clock& clock, Waves& waves, Report& report) {
  bool all_positive = true;
  for (std::int32_t i = 1; i <= grid.NX; ++i) {
    const float ratio = waves.HRF(i) / waves.TRF(i);
    waves.DLTZ(i) = 2.28f * waves.HRF(i) - 68.5f * (ratio * ratio) / G;
    all_positive &= waves.DLTZ(i) > 0.0f;
  }
  if (all_positive) return;
  for (std::int32_t i = 1; i <= grid.NX; ++i)
    if (!(waves.DLTZ(i) > 0.0f)) refuse_depth(i, grid, clock, waves, report);
}

}  // namespace kelprun
