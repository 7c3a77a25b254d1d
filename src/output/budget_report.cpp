#include "output/budget_report.h"

#include <string>
#include <string_view>

#include "model/table_names.h"
#include "output/report_layout.h"

namespace kelprun {

namespace {

/// Units of the block: cubic metres in a reported volume, and that times the years of the run.
struct Units {
  float U;
  float YR;
  std::string label;  ///< with its opening parenthesis
};

Units units_of(const Settings& s, const Clock& c) {
  return {s.CONVYD3, static_cast<float>(c.NDAYS) / 365.0f * s.CONVYD3, "(" + s.VOLUME_LABEL};
}

/// Cells, or walls, `first` to `last`; none where `last` lies below `first`.
struct Range {
  std::int32_t first;
  std::int32_t last;
};

double sum_of(const PerCell<float>& volumes, Range cells) {
  double sum = 0.0;
  for (std::int32_t i = cells.first; i <= cells.last; ++i) sum += static_cast<double>(volumes(i));
  return sum;
}

/// A volume and its rate, each behind its own words.
void write_pair(std::string_view volume, std::string_view rate, double sum, const Units& u,
                Report& report) {
  report.line(volume, sum / static_cast<double>(u.U));
  report.line(rate, sum / static_cast<double>(u.YR));
  report.record("");
}

// The missing colon and the unmatched parentheses of some of these words are meant to be there.

void write_cell_volumes(const Ledgers& l, Range cells, const Units& u, Report& report) {
  constexpr auto LEAST_SHOWN = static_cast<double>(0.01f);
  const std::string& label = u.label;
  write_pair("    VOLUME CHANGE " + label + "):                  ",
             "    AVG. VOLUME CHANGE RATE " + label + "/YR):     ", sum_of(l.VOLCELL, cells), u,
             report);
  const double SFP = sum_of(l.VFILLP, cells);
  if (SFP > LEAST_SHOWN)
    write_pair("    BEACH FILL VOLUME PLACEMENT " + label + "):    ",
               "    AVG. BEACH FILL RATE " + label + "/YR):        ", SFP, u, report);
  const double SFN = sum_of(l.VFILLN, cells);
  if (SFN < -LEAST_SHOWN)
    write_pair("    BEACH EXCAVATION VOLUME REMOVAL " + label + ")",
               "    AVG. BEACH EXCAVATION RATE " + label + "/YR):  ", SFN, u, report);
  const double SBP = sum_of(l.VBYPP, cells);
  if (SBP > LEAST_SHOWN)
    write_pair("    BYPASS SOURCE VOLUME PLACEMENT " + label + "): ",
               "    AVG. BYPASS SOURCE RATE " + label + "/YR):     ", SBP, u, report);
  const double SBN = sum_of(l.VBYPN, cells);
  if (SBN < -LEAST_SHOWN)
    write_pair("    BYPASS SINK VOLUME REMOVAL " + label + "):     ",
               "    AVG. BYPASS SINK RATE " + label + "/YR):       ", SBN, u, report);
}

void write_whole_inlet(const std::string& name, const InletFlow& flow, float VC, const Units& u,
                       Report& report) {
  const std::string& label = u.label;
  report.line("    LEDG CELL INCLUDES INLET:           ", name);
  report.line("    VOLUME TRANSPORTED INTO INLET " + label + "):  ", flow.VQIN / u.U);
  report.line("    VOLUME TRANSPORTED FROM INLET " + label + "):  ", flow.VQOUT / u.U);
  report.line("    DREDGED VOLUME PLACEMENT " + label + ":       ", flow.VDREDP / u.U);
  report.line("    DREDGED VOLUME REMOVAL " + label + "):         ", flow.VDREDR / u.U);
  report.line("    INLET VOLUME CHANGE " + label + "):            ", VC / u.U);
  report.line("    AVG. DREDGED PLACEMENT RATE " + label + "/YR): ", flow.VDREDP / u.YR);
  report.line("    AVG. DREDGED REMOVAL RATE " + label + "/YR):   ", flow.VDREDR / u.YR);
  report.line("    AVG. INLET VOL. CHANGE RATE " + label + "/YR): ", VC / u.YR);
}

void write_not_included(Report& report) {
  report.line("    INLET VOLUME CONTRIBUTION NOT INCLUDED IN CALCULATION");
}

/// What an inlet has to do with budget cell `number`. A cell that only touches the first or the
/// last cell of an inlet gets neither lines nor warning.
void write_inlet(std::int32_t number, Range cells, Range inlet, const std::string& name,
                 const InletFlow& flow, const Units& u, Report& report) {
  const float VC = (flow.VQIN - flow.VQOUT) + flow.VDREDP + flow.VDREDR;
  const auto inside = [&](std::int32_t cell) { return cell > inlet.first && cell < inlet.last; };
  if (inlet.first >= cells.first && inlet.last <= cells.last) {
    write_whole_inlet(name, flow, VC, u, report);
  } else if (cells.last == inlet.first - 1 || cells.first == inlet.last + 1) {
    report.line("    WARNING: LEDG CELL ", number);
    report.line("    IS ADJACENT TO BOUNDARY OF INLET: ", name);
    write_not_included(report);
  } else if (inside(cells.first) || inside(cells.last)) {
    report.line("    WARNING: LEDG CELL ", number, " ONLY CONTAINS PART OF INLET: ", name);
    write_not_included(report);
  }
}

void write_cell(const Model& m, std::int32_t n, const Units& u, Report& report) {
  const Range cells{m.budget.ILEDGV1(n), m.budget.ILEDGV2(n)};
  report.line(" LEDG CELL ", n);
  report.line("    KELPRUN GRID CELL RANGE: ");
  report.line("        STARTING GRID CELL:        ", cells.first);
  report.line("        ENDING   GRID CELL:        ", cells.last);
  write_cell_volumes(m.ledgers, cells, u, report);
  for (std::int32_t k = 1; k <= m.inlets.NINL; ++k)
    write_inlet(n, cells, {m.inlets.IINLS(k), m.inlets.IINLE(k)}, inlet_name(m.inlets, k),
                m.inlets.flows(k), u, report);
}

void write_wall(const Ledgers& l, std::int32_t wall, const std::string& left_volume, const Units& u,
                Report& report) {
  report.line("    TRANSPORT AT GRID CELL-WALL:   ", wall);
  report.line("        VOLUME TO RIGHT " + u.label + "):            ", l.QRIGHTSUM(wall));
  report.line(left_volume, l.QLEFTSUM(wall));
  report.line("        AVG. RATE TO RIGHT " + u.label + "/YR):      ", l.QRIGHTMEAN(wall));
  report.line("        AVG. RATE TO LEFT  " + u.label + "/YR):      ", l.QLEFTMEAN(wall));
}

void write_mouth(const std::string& name, std::int32_t wall, Report& report) {
  report.line("    LEDG FLUX ARROW ADJACENT TO INLET:  ", name);
  report.line("    TRANSPORT INTO OR OUT OF INLET AT CELL-WALL:", wall);
}

void write_left_mouth(const InletFlow& flow, const Units& u, Report& report) {
  const float in = flow.right.VQIE + flow.right.VQC;
  const float out = flow.left.VQOUT;
  report.line("        VOL. INTO INLET LEFT TO RIGHT ", in / u.U);
  report.line("        VOL. FROM INLET RIGHT TO LEFT ", out / -u.U);
  report.line("        AVG. RATE INTO INLET L TO R/YR):", in / u.YR);
  report.line("        AVG. RATE FROM INLET R TO L/YR):", out / -u.YR);
}

void write_right_mouth(const InletFlow& flow, const Units& u, Report& report) {
  const float in = flow.left.VQIE + flow.left.VQC;
  const float out = flow.right.VQOUT;
  report.line("        VOL. INTO INLET RIGHT TO LEFT ", in / -u.U);
  report.line("        VOL. FROM INLET LEFT TO RIGHT ", out / u.U);
  report.line("        AVG. RATE INTO INLET R TO L/YR):", in / -u.YR);
  report.line("        AVG. RATE FROM INLET L TO R/YR):", out / u.YR);
}

void write_arrow(const Model& m, std::int32_t n, const Units& u, Report& report) {
  const Range walls{m.budget.ILEDGQ1(n), m.budget.ILEDGQ2(n)};
  report.line(" LEDG FLUX ARROW ", n);
  report.line("    KELPRUN GRID CELL RANGE: ");
  report.line("        STARTING GRID CELL-WALL:   ", walls.first);
  report.line("        ENDING   GRID CELL-WALL:   ", walls.last);
  write_wall(m.ledgers, walls.first, "        VOLUME TO LEFT  " + u.label + "):            ", u,
             report);
  // The blanks of the second wall differ from those of the first, and are meant to.
  write_wall(m.ledgers, walls.last, "        VOLUME TO LEFT " + u.label + "):      ", u, report);
  for (std::int32_t k = 1; k <= m.inlets.NINL; ++k)
    for (const std::int32_t wall : {walls.first, walls.last}) {
      const bool left = wall == m.inlets.IINLS(k);
      if (!left && wall != m.inlets.IINLE(k) + 1) continue;
      write_mouth(inlet_name(m.inlets, k), wall, report);
      (left ? write_left_mouth : write_right_mouth)(m.inlets.flows(k), u, report);
    }
}

}  // namespace

void report_budget(const Model& m, Report& report) {
  if (m.budget.NLEDGV < 1 && m.budget.NLEDGQ < 1) return;
  const std::string BLANKS(46, ' ');
  const std::string STARS(63, '*');
  const Units u = units_of(m.settings, m.clock);
  report.line(BLANKS);
  report.line(STARS);
  report.line("*                         LEDG OUTPUT                         *");
  report.line(STARS);
  for (std::int32_t n = 1; n <= m.budget.NLEDGV; ++n) write_cell(m, n, u, report);
  for (std::int32_t n = 1; n <= m.budget.NLEDGQ; ++n) write_arrow(m, n, u, report);
  report.line(SIGN_CONVENTION);
  report.line(BLANKS);
  report.line(STARS);
}

}  // namespace kelprun
