#include "coast/volumes.h"
#include "output/announcements.h"
#include "output/closing_report.h"
#include "run/interrupt.h"
#include "run/run.h"
#include "text/console.h"
#include "text/standard_error.h"

namespace kelprun {

namespace {

/// Mean annual rates, in single precision, kept in double.
void set_mean_rates(const Clock& c, Ledgers& l) {
  const auto mean = [&](float sum) {
    return static_cast<double>(((sum / static_cast<float>(c.NTS)) * 365.25f) * c.SPD);
  };
  for (std::int32_t i = 1; i <= l.QNETSUM.size(); ++i) {
    l.QNETMEAN(i) = mean(l.QNETSUM(i));
    l.QLEFTMEAN(i) = mean(l.QLEFTSUM(i));
    l.QRIGHTMEAN(i) = mean(l.QRIGHTSUM(i));
  }
}

void tell_stop(const Clock& c) {
  if (const int signal = interrupting_signal()) {
    warning_line(std::string(signal_name(signal)) + " ended the run behind time step " +
                 std::to_string(c.ITS) + " of " + std::to_string(c.NTS));
  } else {
    warning_line("the run was stopped during time step " + std::to_string(c.ITS));
  }
}

/// As a shell tells it of a program that a signal has ended.
int exit_status(const Clock& c) {
  constexpr int SIGNALLED = 128;
  if (c.STOPPED && interrupting_signal() != 0) return SIGNALLED + interrupting_signal();
  return c.NONFINITE ? 1 : 0;
}

}  // namespace

void keep_whole_records(const Run& run) {
  run.report.keep_whole_records();
  run.tables.keep_whole_records();
  run.inlet_tables.keep_whole_records();
}

int finish(Run& run) {
  Model& m = run.model;
  const Clock& c = m.clock;
  if (c.STOPPED) {
    run.report.line(" EXECUTION STOPPED DURING TIME STEP", c.ITS);
    tell_stop(c);
  }
  set_mean_rates(c, m.ledgers);
  if (m.settings.PRTOUT) report_means(m, run.report);
  run.tables.write_means(m.ledgers, c.NEXTDATE);
  if (!c.STOPPED && c.ITS == c.NTS && c.ITS % c.NDTSAVE != 0) run.tables.write_state(m);
  if (m.settings.PRTOUT) report_end(m, run.report);
  announce_bad_angles(m.waves.NBADANG, run.report);
  VOLSTEP(m.grid, m.profile, m.shore, m.ledgers);
  if (m.settings.PRTOUT) report_closing_volumes(m, run.report);
  console_line("<<<Simulation finished>>>");
  run.report.close();
  run.tables.close();
  run.inlet_tables.close();
  console_line("Model run completed");
  clear_progress();
  return exit_status(c);
}

}  // namespace kelprun
