#include "output/wave_report.h"

#include <string>

#include "output/report_layout.h"
#include "text/column_record.h"

namespace kelprun {

namespace {

std::string row(std::int32_t wall, float H, float H52, float ZBS, float ZB, float QZ) {
  const auto wide = [](float value) { return static_cast<double>(value); };
  return ColumnRecord()
      .blanks(5)
      .integer(3, wall)
      .blanks(6)
      .real(5, 2, wide(H))
      .blanks(4)
      .real(5, 2, wide(H52))
      .blanks(6)
      .real(5, 1, wide(ZBS))
      .blanks(6)
      .real(5, 1, wide(ZB))
      .blanks(4)
      .real(8, 4, wide(QZ))
      .record();
}

}  // namespace

void report_last_waves(const Settings& settings, const Grid& grid, const Waves& waves,
                       Report& report) {
  report.line(" LAST TIME STEP. DIFFRACTED WAVES ALONGSHORE");
  report.array(grid.NX + 1, HEIGHT_WIDTH,
               [&](std::int32_t i) { return waves.HB(i) / settings.CONV; });
  report.array(grid.NX + 1, HEIGHT_WIDTH, [&](std::int32_t i) { return degrees(waves.ZB(i)); });
}

void report_undiffracted(const Grid& grid, const UndiffractedSums& sums, Report& report) {
  if (sums.steps == 0) return;
  const auto steps = static_cast<float>(sums.steps);
  report.line(" OUTPUT OF UNDIFFRACTED BREAKING WAVE STATISITCS");
  report.line(" N.B. THESE VALUES ARE NOT SMOOTHED!");
  report.record("   X-COORD.   H-MEAN   H52-MEAN   ZBS-MEAN   ZB-MEAN    HZ-MEAN");
  for (std::int32_t i = 1; i <= grid.NX + 1; ++i)
    report.record(row(i, sums.H(i) / steps, sums.H52(i) / steps, degrees(sums.ZBS(i) / steps),
                      degrees(sums.ZB(i) / steps), sums.QZ(i) / steps));
}

}  // namespace kelprun
