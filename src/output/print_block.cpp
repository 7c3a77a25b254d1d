#include "output/print_block.h"

#include "output/report_layout.h"
#include "output/result_blocks.h"

namespace kelprun {

void report_print_date(const Model& m, Report& report) {
  report.line(" SHORELINE POSITION ", length_unit(m.settings), " AFTER ", m.clock.ITS,
              " TIME STEPS. DATE IS ", m.clock.NEXTDATE);
  report_shoreline(m, report);
  // These words are the block's own, though the sums are neither annualised nor means.
  report_transport(m, " MEAN ANNUALIZED NET TRANSPORT", m.ledgers.QNETYR, report);
  report_transport(m, " MEAN ANNUALIZED TRANSPORT TO THE LEFT", m.ledgers.QLEFTYR, report);
  report_transport(m, " MEAN ANNUALIZED TRANSPORT TO THE RIGHT", m.ledgers.QRIGHTYR, report);
  report_volume_changes(m, report);
  report_total_change(m.settings, m.ledgers.VOLTOTAL, report);
  report.record("");
}

}  // namespace kelprun
