#include "output/closing_report.h"

#include <string_view>

#include "output/budget_report.h"
#include "output/report_layout.h"
#include "output/result_blocks.h"
#include "output/transmission_report.h"
#include "output/wave_report.h"

namespace kelprun {

namespace {

void write_mean(const Settings& s, std::string_view title, const PerWall<double>& means,
                Report& report) {
  report.line(title, in_feet(s) ? "(YARDS3/1000)" : "(M3/1000) ");
  report.array(means.size(), POSITION_WIDTH, [&](std::int32_t i) { return means(i) / 1000.0; });
}

void write_last_wave(const Clock& c, const PassWave& wave, float WAVCONV, Report& report) {
  report.line("OUTPUT LAST TIMESTEP NO.", c.ITS, " DATE IS ", c.NEXTDATE);
  report.line(" OFFSHORE WAVE DATA INPUT:");
  report.line("  HZ =", wave.HZ / WAVCONV, " T =", wave.T, "    ZZ =", wave.ZZ);
  report.record("");
}

void write_last_transport(const Settings& s, const PerWall<float>& Q, Report& report) {
  report.line("LONGSHORE TRANSPORT FOR LAST TIME STEP *100 ",
              in_feet(s) ? "(YARDS3/SEC)" : " (M3/SEC)");
  report.array(Q.size(), POSITION_WIDTH, [&](std::int32_t i) { return 100.0f * Q(i) / s.CONVYD3; });
  report.record("");
}

void write_line_position(const Model& m, std::string_view title, const PerCell<float>& line,
                         Report& report) {
  report.line(title, " POSITION ", length_unit(m.settings));
  report.array(m.grid.NX, POSITION_WIDTH,
               [&](std::int32_t i) { return (line(i) + m.shore.YREG(i)) / m.settings.CONV; });
}

void write_final_shorelines(const Model& m, Report& report) {
  report.line(" CALCULATED FINAL SHORELINE POSITION ", length_unit(m.settings));
  report_shoreline(m, report);
  write_line_position(m, " CALCULATED SEAWARDMOST SHORELINE", m.shore.YMAX, report);
  write_line_position(m, " CALCULATED LANDWARDMOST SHORELINE", m.shore.YMIN, report);
  write_line_position(m, " CALCULATED REPRESENTATIVE OFFSHORE CONTOUR", m.shore.YCON, report);
}

}  // namespace

void report_means(const Model& m, Report& report) {
  write_mean(m.settings, " MEAN NET ANNUAL TRANSPORT ", m.ledgers.QNETMEAN, report);
  write_mean(m.settings, " MEAN ANNUAL TRANSPORT TO THE LEFT ", m.ledgers.QLEFTMEAN, report);
  write_mean(m.settings, " MEAN ANNUAL TRANSPORT TO THE RIGHT ", m.ledgers.QRIGHTMEAN, report);
}

void report_end(const Model& m, Report& report) {
  write_last_wave(m.clock, m.waves.pass, m.settings.WAVCONV, report);
  report_undiffracted(m.grid, m.undiffracted, report);
  write_last_transport(m.settings, m.transport.Q, report);
  write_final_shorelines(m, report);
  report_transmission(m.settings, m.breakwaters, report);
}

void report_closing_volumes(const Model& m, Report& report) {
  report_volume_changes(m, report);
  report_budget(m, report);
  // Only the height of the last cell enters the closing total, unlike that of the print dates.
  const std::int32_t last = m.grid.NX;
  const float height = m.profile.DCLOSCELL(last) + m.profile.BERMHTCELL(last);
  report_total_change(m.settings, height * m.ledgers.AREATOTAL, report);
  report.line(SIGN_CONVENTION);
}

}  // namespace kelprun
