#include "output/year_report.h"

#include <string>
#include <string_view>

#include "output/report_layout.h"
#include "output/result_blocks.h"

namespace kelprun {

namespace {

/// The text of a unit keyword in its field of six characters.
std::string six_characters(std::string text) {
  text.resize(6, ' ');
  return text;
}

void write_title(const Model& m, std::string_view what, Report& report) {
  const Clock& c = m.clock;
  report.line(what, six_characters(m.settings.KELUNITS), " AFTER ", completed_years(c),
              " YEARS  =", c.ITS, " TIME STEPS.  DATE IS ", c.NEXTDATE);
}

}  // namespace

void report_year_shoreline(const Model& m, Report& report) {
  write_title(m, "SHORELINE POSITION ", report);
  report_shoreline(m, report);
  write_title(m, "SHORELINE CHANGE ", report);
  report.array(m.grid.NX, POSITION_WIDTH,
               [&](std::int32_t i) { return m.shore.YDIFF(i) / m.settings.CONV; });
}

void report_year_waves(const Model& m, Report& report) {
  const std::int32_t walls = m.grid.NX + 1;
  const std::int32_t date = m.clock.NEXTDATE;
  const std::string unit = six_characters(m.settings.WAVUNITS);
  const float WAVCONV = m.settings.WAVCONV;
  const Waves& waves = m.waves;
  report.line("BREAKING WAVE ANGLE TO X-AXIS (Deg). DATE IS ", date);
  report.array(walls, HEIGHT_WIDTH, [&](std::int32_t i) { return degrees(waves.ZB(i)); });
  report.line("OFFSHORE WAVE ANGLE TO X-AXIS (Deg). DATE IS ", date);
  report.array(waves.ZRFPRTOUT, walls, HEIGHT_WIDTH);
  report.line("BREAKING WAVE HEIGHT ", unit, " DATE IS ", date);
  report.array(walls, HEIGHT_WIDTH, [&](std::int32_t i) { return waves.HB(i) / WAVCONV; });
  report.line("OFFSHORE WAVE HEIGHT ", unit, " DATE IS ", date);
  report.array(walls, HEIGHT_WIDTH, [&](std::int32_t i) { return waves.HRF(i) / WAVCONV; });
}

void report_year_volumes(const Model& m, Report& report) {
  report.line("********************");
  report_transport(m, " GROSS TRANSPORT VOLUME", m.ledgers.QGROSSYR, report);
  report_transport(m, " NET TRANSPORT VOLUME", m.ledgers.QNETYR, report);
  report_transport(m, " TRANSPORT VOLUME TO THE LEFT", m.ledgers.QLEFTYR, report);
  report_transport(m, " TRANSPORT VOLUME TO THE RIGHT", m.ledgers.QRIGHTYR, report);
}

}  // namespace kelprun
