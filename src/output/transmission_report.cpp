#include "output/transmission_report.h"

#include "output/report_layout.h"

namespace kelprun {

namespace {

/// A run of calm passes alone has no values: its sums of 0 stand for the means.
Array1<float> means(const TransmissionStatistics& kt) {
  Array1<float> KTMEAN = kt.KTSUM;
  if (kt.KTCOUNT > 0)
    for (float& KT : KTMEAN) KT /= static_cast<float>(kt.KTCOUNT);
  return KTMEAN;
}

}  // namespace

void report_transmission(const Settings& settings, const Breakwaters& b, Report& report) {
  if (settings.KTMETFLAG != 1) return;
  report.line(" DETACHED BREAKWATER KT STATISTICS: ");
  report.line(" AVG KT VALUE(S)  = ");
  report.array(means(b.kt), b.NDB, POSITION_WIDTH);
  report.line(" MAX KT VALUE(S)  = ");
  report.array(b.kt.KTMAX, b.NDB, POSITION_WIDTH);
  report.line(" MIN KT VALUE(S)  = ");
  report.array(b.kt.KTMIN, b.NDB, POSITION_WIDTH);
}

}  // namespace kelprun
