#include "run/year_block.h"

#include <array>

#include "output/announcements.h"
#include "output/report_layout.h"
#include "output/year_report.h"

namespace kelprun {

namespace {

constexpr float SCALE = 0.001f;

std::array<PerWall<float>*, 4> year_sums(Ledgers& l) {
  return {&l.QNETYR, &l.QLEFTYR, &l.QRIGHTYR, &l.QGROSSYR};
}

/// A volume that is not a number does not hide those of the other walls.
float largest_gross(const Ledgers& l) {
  float largest = 0.0f;
  for (const float volume : l.QGROSSYR)
    if (volume > largest) largest = volume;
  return largest;
}

void scale_year_sums(Ledgers& l) {
  for (PerWall<float>* sums : year_sums(l))
    for (float& sum : *sums) sum *= SCALE;
}

}  // namespace

bool is_year_end(const Clock& c) {
  if (c.ITS == c.NTS) return true;
  const std::int64_t anniversary = c.SIMDATS + std::int64_t{10000} * c.NYEARS;
  return anniversary != 0 && c.CURDATE % anniversary == 0 && c.FIRSTDAY == 0;
}

void close_year(Model& m, Tables& tables, Report& report) {
  for (std::int32_t i = 1; i <= m.grid.NX; ++i)
    m.shore.YDIFF(i) = static_cast<float>(m.shore.Y(i) - m.shore.YSTART(i));
  if (m.settings.PRTOUT) report_year_shoreline(m, report);
  announce_years(m.clock);
  if (m.settings.PRTOUT) report_year_waves(m, report);

  Ledgers& l = m.ledgers;
  l.QMAX = largest_gross(l);
  // The report shows thousands above a limit; the tables get full units back from them.
  const bool scaled = in_thousands(l.QMAX);
  if (scaled) scale_year_sums(l);
  if (m.settings.PRTOUT) report_year_volumes(m, report);
  tables.write_year_sums(l, m.clock.NEXTDATE, scaled ? 1000.0f : 1.0f);
  m.clock.FROMDATE = m.clock.NEXTDATE;
  for (PerWall<float>* sums : year_sums(l)) sums->fill(0.0f);
}

}  // namespace kelprun
