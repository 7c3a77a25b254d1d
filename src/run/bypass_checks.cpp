#include "run/bypass_checks.h"

#include "model/capacities.h"
#include "model/constants.h"
#include "text/stop.h"

namespace kelprun {

namespace {

void check_count(const Events& events, Report& report) {
  if (events.NBP <= capacity::BYPASS_OPERATIONS) return;
  report.line(" ERROR. TOO MANY BYPASSING OPERATIONS.");
  report.line(" PLEASE CHANGE VALUE OF \"NBP\" IN YOUR SPATIAL DOMAIN FILE.");
  report.line(" MAXIMUM NUMBER IS ", capacity::BYPASS_OPERATIONS);
  report.record("");
  fatal("ERROR. Too many bypassing operations.");
}

void warn(Report& report, std::string_view what, std::string_view when) {
  report.line(what);
  report.line(when);
  report.record("");
}

/// Compares the times of an operation with those of the run. A run of a number of steps has no end
/// date to compare dates with.
void warn_of_times(const Clock& c, std::int32_t start, std::int32_t end, bool dates,
                   Report& report) {
  constexpr std::string_view STARTED = " SIMULATION HAS STARTED.";
  constexpr std::string_view ENDED = " SIMULATION HAS ENDED.";
  const std::int32_t first = dates ? c.SIMDATS : 1;
  const std::int32_t last = dates ? c.SIMDATE : c.NTS;
  const bool has_end = !dates || c.SIMDATS < c.SIMDATE;
  if (start < first) warn(report, " WARNING. BYPASS OPERATION STARTS BEFORE THE", STARTED);
  if (has_end && start > last) warn(report, " WARNING. BYPASS OPERATION STARTS AFTER THE", ENDED);
  if (end < first) warn(report, " WARNING. BYPASS OPERATION ENDS BEFORE THE", STARTED);
  if (has_end && end > last) warn(report, " WARNING. BYPASS OPERATION ENDS AFTER THE", ENDED);
}

void check_stretch(std::int32_t first, std::int32_t last, std::int32_t NX, Report& report) {
  if (first > last) {
    report.line(" BYPASS MATERIAL IS .GT. THE END X-COORDINATE.");
    fatal("ERROR. Bypass start coordinate is greater than end coordinate.");
  }
  if (first < 1 || last > NX) {
    report.line(" ERROR. BYPASSED MATERIAL IS PLACED OUTSIDE ");
    fatal("ERROR. Bypassed material placed outside calculation grid.");
  }
}

}  // namespace

void prepare_bypassing(const Settings& settings, const Clock& clock, const Grid& grid, Events& e,
                       Report& report) {
  check_count(e, report);
  if (e.NBP < 1) return;
  const bool dates = e.BPDATS(1) > LAST_STEP_NUMBER;
  for (std::int32_t k = 1; k <= e.NBP; ++k) {
    warn_of_times(clock, e.BPDATS(k), e.BPDATE(k), dates, report);
    check_stretch(e.IBPS(k), e.IBPE(k), grid.NX, report);
    float length = 0.0f;
    for (std::int32_t i = e.IBPS(k); i <= e.IBPE(k); ++i) length += grid.DX(i);
    e.QBP(k) = e.QBP(k) * static_cast<double>(settings.CONVYD3) / static_cast<double>(length);
  }
}

}  // namespace kelprun
