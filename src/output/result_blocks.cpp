#include "output/result_blocks.h"

#include <string>

#include "output/report_layout.h"

namespace kelprun {

namespace {

/// The print block keeps the words of the last year block, though its sums are in full units.
std::string unit_text(const Settings& s, float QMAX) {
  return " (" + std::string(volume_unit(s)) + (in_thousands(QMAX) ? "/1000) FROM " : ") FROM ");
}

}  // namespace

void report_shoreline(const Model& m, Report& report) {
  const auto CONV = static_cast<double>(m.settings.CONV);
  report.array(m.grid.NX, POSITION_WIDTH, [&](std::int32_t i) {
    return (static_cast<double>(m.shore.YREG(i)) + m.shore.Y(i)) / CONV;
  });
}

void report_transport(const Model& m, std::string_view title, const PerWall<float>& volumes,
                      Report& report) {
  report.line(title, unit_text(m.settings, m.ledgers.QMAX), m.clock.FROMDATE, " TO ",
              m.clock.NEXTDATE);
  report.array(volumes, m.grid.NX + 1, POSITION_WIDTH);
}

void report_volume_changes(const Model& m, Report& report) {
  const Settings& s = m.settings;
  report.line(" CALCULATED VOLUME CHANGE (", s.VOLUME_LABEL, " PER GRID CELL) ");
  report.array(m.grid.NX, POSITION_WIDTH,
               [&](std::int32_t i) { return m.ledgers.VOLCELL(i) / s.CONVYD3; });
  report.line(" CALCULATED VOLUME CHANGE (", s.VOLUME_LABEL,
              in_feet(s) ? " PER LINEAR FT) " : " PER LINEAR M) ");
  report.array(m.grid.NX, POSITION_WIDTH,
               [&](std::int32_t i) { return m.ledgers.VOLLEN(i) / s.CONVYD3 * s.CONV; });
}

void report_total_change(const Settings& s, float total, Report& report) {
  report.line("CALCULATED TOTAL VOLUMETRIC CHANGE = ", total / s.CONVYD3, " (", volume_unit(s),
              ")");
}

}  // namespace kelprun
