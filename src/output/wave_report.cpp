#include "output/wave_report.h"

#include <array>
#include <string>

#include "model/constants.h"
#include "text/columns.h"

namespace kelprun {

namespace {

constexpr int WAVE_COLUMNS = 7;

float degrees(float angle) { return angle * 180.0f / PI; }

/// One value of the table of means: the blanks ahead of it, its width and decimals.
struct Column {
  int blanks;
  int width;
  int decimals;
};
constexpr std::array<Column, 5> COLUMNS = {{{6, 5, 2}, {4, 5, 2}, {6, 5, 1}, {6, 5, 1}, {4, 8, 4}}};

std::string row(std::int32_t wall, const std::array<float, 5>& means) {
  constexpr int NUMBER_WIDTH = 3;
  std::string text(5 + NUMBER_WIDTH, ' ');
  put_integer(text.data() + 5, NUMBER_WIDTH, wall);
  for (std::size_t n = 0; n < COLUMNS.size(); ++n) {
    const auto [blanks, width, decimals] = COLUMNS[n];
    const std::size_t start = text.size() + static_cast<std::size_t>(blanks);
    text.resize(start + static_cast<std::size_t>(width), ' ');
    put_fixed(text.data() + start, width, decimals, static_cast<double>(means[n]));
  }
  return text;
}

}  // namespace

void report_last_waves(const Settings& settings, const Grid& grid, const Waves& waves,
                       Report& report) {
  Array1<float> values(static_cast<std::size_t>(grid.NX + 1));
  report.line(" LAST TIME STEP. DIFFRACTED WAVES ALONGSHORE");
  for (std::int32_t i = 1; i <= grid.NX + 1; ++i) values(i) = waves.HB(i) / settings.CONV;
  report.array(values, grid.NX + 1, WAVE_COLUMNS);
  for (std::int32_t i = 1; i <= grid.NX + 1; ++i) values(i) = degrees(waves.ZB(i));
  report.array(values, grid.NX + 1, WAVE_COLUMNS);
}

void report_undiffracted(const Grid& grid, const UndiffractedSums& sums, Report& report) {
  if (sums.steps == 0) return;
  const auto steps = static_cast<float>(sums.steps);
  report.line(" OUTPUT OF UNDIFFRACTED BREAKING WAVE STATISITCS");
  report.line(" N.B. THESE VALUES ARE NOT SMOOTHED!");
  report.record("   X-COORD.   H-MEAN   H52-MEAN   ZBS-MEAN   ZB-MEAN    HZ-MEAN");
  for (std::int32_t i = 1; i <= grid.NX + 1; ++i)
    report.record(row(i, {sums.H(i) / steps, sums.H52(i) / steps, degrees(sums.ZBS(i) / steps),
                          degrees(sums.ZB(i) / steps), sums.QZ(i) / steps}));
}

}  // namespace kelprun
