#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "verification/report_fixture.h"

// The sediment budget at the end of a report: against the tables, against what the configuration
// places and removes, and against itself.

namespace {

using namespace kelptest;
using kelprun::PerCell;

/// The lines of one budget cell or flux arrow.
struct Entry {
  std::vector<std::string> lines;

  bool has(const std::string& words) const { return !all(words).empty(); }
  /// The numbers at the end of the lines that begin with these words.
  std::vector<double> all(const std::string& words) const {
    std::vector<double> numbers;
    for (const std::string& line : lines)
      if (line.starts_with(words)) numbers.push_back(std::stod(line.substr(line.rfind(' '))));
    return numbers;
  }
  double number(const std::string& words) const {
    const std::vector<double> numbers = all(words);
    if (numbers.size() != 1) throw std::runtime_error("not one line '" + words + "'");
    return numbers.front();
  }
  /// Volume and rate, or 0 where the pair is left out.
  double volume_or_0(const std::string& words) const { return has(words) ? number(words) : 0.0; }
};

/// The entries whose first line begins so, in their order.
std::vector<Entry> entries(const PrintedReport& report, const std::string& beginning) {
  std::vector<Entry> found;
  bool inside = false;
  for (const Block& block : report.blocks()) {
    if (block.title.starts_with("  LEDG ")) {
      inside = block.title.starts_with(beginning);
      if (inside) found.emplace_back();
    }
    if (block.title.starts_with("  SIGN CONVENTION")) inside = false;
    if (inside) found.back().lines.push_back(block.title);
  }
  return found;
}

const std::string CELL = "  LEDG CELL ";
const std::string ARROW = "  LEDG FLUX ARROW ";

struct Cells {
  int first, last;
};

/// The budget cells and arrows of the coast: the first four cover it, each cell once.
const std::vector<Cells> RANGES{{1, 11}, {12, 19}, {20, 24}, {25, 30}, {21, 30}, {22, 30}, {1, 30}};
const std::vector<Cells> ARROWS{{1, 31}, {20, 23}, {8, 17}};

class report_budget : public ReportTest {
 protected:
  report_budget() : cells(entries(run.report, CELL)), arrows(entries(run.report, ARROW)) {}

  double years() const { return days_between(run.one.start, run.one.end) / 365.0; }
  /// A volume and its rate a year.
  void expect_pair(const Entry& entry, const std::string& volume, const std::string& rate,
                   double expected, double tolerance) const {
    ASSERT_TRUE(entry.has(volume)) << entry.lines.front() << volume;
    EXPECT_NEAR(entry.number(volume), expected, tolerance) << entry.lines.front() << volume;
    EXPECT_NEAR(entry.number(rate), entry.number(volume) / years(),
                3e-7 * std::abs(entry.number(volume)) / years())
        << entry.lines.front() << rate;
  }
  double total(const PerCell<float>& ledger, Cells range) const {
    double volume = 0.0;
    for (int i = range.first; i <= range.last; ++i) volume += static_cast<double>(ledger(i));
    return volume / run.U();
  }
  /// "    WORDS (M3" as a line begins.
  std::string words(const std::string& text) const { return "     " + text + " (" + label(); }

  std::vector<Entry> cells, arrows;
};

INSTANTIATE_TEST_SUITE_P(of, report_budget, testing::ValuesIn(REPORTED), name_of_coast);

TEST_P(report_budget, cells_gain_the_sum_of_their_column_of_the_table) {
  ASSERT_EQ(cells.size(), RANGES.size());
  const Row& volumes = run.row("vcc", run.steps());
  for (std::size_t n = 0; n < RANGES.size(); ++n) {
    const auto [first, last] = RANGES[n];
    EXPECT_EQ(cells[n].lines.front(), CELL + std::to_string(n + 1));
    EXPECT_EQ(cells[n].number("         STARTING GRID CELL:"), first);
    EXPECT_EQ(cells[n].number("         ENDING   GRID CELL:"), last);
    double sum = 0.0;
    for (int i = first; i <= last; ++i) sum += volumes.at(static_cast<std::size_t>(i - 1));
    expect_pair(cells[n], words("VOLUME CHANGE"), words("AVG. VOLUME CHANGE RATE"), sum,
                (last - first + 1) * half + 1e-6 * std::abs(sum));
    const double exact = total(m.ledgers.VOLCELL, RANGES[n]);
    EXPECT_NEAR(cells[n].number(words("VOLUME CHANGE")), exact, 3e-7 * std::abs(exact));
  }
}

TEST_P(report_budget, cells_that_cover_the_coast_add_up_to_the_change_of_the_whole) {
  double sum = 0.0;
  for (std::size_t n = 0; n < 4; ++n) sum += cells[n].number(words("VOLUME CHANGE"));
  const double whole = cells.back().number(words("VOLUME CHANGE"));
  EXPECT_NEAR(sum, whole, 1e-9 * std::abs(total(m.ledgers.VFILLP, {1, 30}))) << "in double";
  EXPECT_NE(whole, 0.0);
}

TEST_P(report_budget, fills_and_bypassing_are_what_the_configuration_asks_for) {
  const std::vector<std::string> lines = reported_coast(run.one).more_lines;
  const auto told = [&](const std::string& keyword, int number) {
    for (const std::string& line : lines)
      if (line.starts_with(keyword + ": ") && number-- == 1)
        return std::stod(line.substr(line.find(' ')));
    throw std::runtime_error(keyword);
  };
  // Heights of the moving profile left and right, all in the unit of the coast; 27 cubic feet are
  // one cubic yard.
  const double left = std::round(70 / run.one.unit) / 10 + std::round(10 / run.one.unit) / 10;
  const double right = std::round(55 / run.one.unit) / 10 + std::round(10 / run.one.unit) / 10;
  const double DX = std::round(100.0 / run.one.unit);
  const double unit = run.feet() ? 27.0 : 1.0;
  const double filled = 3 * DX * left * told("YADD", 1) / unit;
  const double excavated = 2 * DX * right * told("YADD", 2) / unit;
  const double hours = 280 * 24.0;
  const double sink = told("QBP", 1) * hours;
  const double source = told("QBP", 2) * hours;

  const auto check = [&](const std::string& volume, const std::string& rate,
                         const std::vector<double>& expected, const PerCell<float>& ledger) {
    for (std::size_t n = 0; n < expected.size(); ++n) {
      if (expected[n] == 0.0) {
        EXPECT_FALSE(cells[n].has("     " + volume)) << n + 1;
        EXPECT_FALSE(cells[n].has("     " + rate)) << n + 1;
        continue;
      }
      expect_pair(cells[n], "     " + volume, "     " + rate, expected[n],
                  2e-4 * std::abs(expected[n]));
      const double exact = total(ledger, RANGES[n]);
      EXPECT_NEAR(cells[n].number("     " + volume), exact, 3e-7 * std::abs(exact));
    }
  };
  const kelprun::Ledgers& l = m.ledgers;
  check("BEACH FILL VOLUME PLACEMENT ", "AVG. BEACH FILL RATE ", {filled, 0, 0, 0, 0, 0, filled},
        l.VFILLP);
  check("BEACH EXCAVATION VOLUME REMOVAL ", "AVG. BEACH EXCAVATION RATE ",
        {0, excavated, 0, 0, 0, 0, excavated}, l.VFILLN);
  check("BYPASS SOURCE VOLUME PLACEMENT ", "AVG. BYPASS SOURCE RATE ",
        {0, 0, source / 4, source * 3 / 4, source, source, source}, l.VBYPP);
  check("BYPASS SINK VOLUME REMOVAL ", "AVG. BYPASS SINK RATE ", {sink, 0, 0, 0, 0, 0, sink},
        l.VBYPN);
}

TEST_P(report_budget, inlet_stands_in_the_cells_that_hold_the_whole_of_it) {
  const kelprun::InletFlow& flow = m.inlets.flows(1);
  const double U = run.U();
  // 1500 m3 in 10 days for 20 days, and 800 m3 in 5 days, rounded to whole cubic yards in feet.
  const double removal = -2.0 * std::round(1500.0 / U);
  const double placement = -std::round(800.0 / U);
  for (const std::size_t n : {2u, 6u}) {
    const Entry& cell = cells[n];
    const double into = cell.number("     VOLUME TRANSPORTED INTO INLET ");
    const double from = cell.number("     VOLUME TRANSPORTED FROM INLET ");
    const double change = cell.number("     INLET VOLUME CHANGE ");
    EXPECT_TRUE(std::find(cell.lines.begin(), cell.lines.end(),
                          "     LEDG CELL INCLUDES INLET:           Pass") != cell.lines.end());
    EXPECT_NEAR(into, static_cast<double>(flow.VQIN) / U, 3e-7 * into);
    EXPECT_NEAR(from, static_cast<double>(flow.VQOUT) / U, 3e-7 * from);
    EXPECT_GT(from, 0.2 * into);
    expect_pair(cell, "     DREDGED VOLUME PLACEMENT (", "     AVG. DREDGED PLACEMENT RATE (",
                placement, 1e-4 * std::abs(placement));
    expect_pair(cell, "     DREDGED VOLUME REMOVAL (", "     AVG. DREDGED REMOVAL RATE (", removal,
                1e-4 * std::abs(removal));
    expect_pair(cell, "     INLET VOLUME CHANGE (", "     AVG. INLET VOL. CHANGE RATE (",
                into - from + placement + removal, 1e-6 * into + 1e-4 * std::abs(removal));
    // Sand placed into the shoals counts with a minus sign, as sand taken out does: what the shoals
    // hold more at the end is the inlet's change less twice what was placed.
    const double gained = (sand_in_shoals(m) - run.shoals_at_start) / U;
    const double rounding = run.steps() / static_cast<double>(1 << 24);
    EXPECT_NEAR(gained, change - 2.0 * placement, rounding * (into + from + 60000.0 / U));
  }
  for (const std::size_t n : {0u, 1u, 3u, 4u, 5u})
    for (const std::string& line : cells[n].lines) {
      EXPECT_EQ(line.find("INCLUDES INLET"), std::string::npos) << n + 1;
      EXPECT_EQ(line.find("DREDGED"), std::string::npos) << n + 1;
    }
}

TEST_P(report_budget, cells_beside_an_inlet_or_with_a_part_of_it_are_warned_of) {
  const auto warnings = [&](std::size_t n) {
    std::vector<std::string> told;
    for (const std::string& line : cells[n].lines)
      if (line.find("WARNING") != std::string::npos || line.find(" INLET") != std::string::npos)
        told.push_back(line);
    return told;
  };
  const std::string not_included = "     INLET VOLUME CONTRIBUTION NOT INCLUDED IN CALCULATION";
  EXPECT_EQ(warnings(1), (std::vector<std::string>{"     WARNING: LEDG CELL 2",
                                                   "     IS ADJACENT TO BOUNDARY OF INLET: Pass",
                                                   not_included}));
  EXPECT_EQ(warnings(4),
            (std::vector<std::string>{"     WARNING: LEDG CELL 5 ONLY CONTAINS PART OF INLET: Pass",
                                      not_included}));
  // One that shares only its last cell with it gets neither.
  for (const std::size_t n : {0u, 3u, 5u}) EXPECT_TRUE(warnings(n).empty()) << n + 1;
}

TEST_P(report_budget, arrows_show_the_sums_and_means_of_their_two_walls) {
  ASSERT_EQ(arrows.size(), ARROWS.size());
  const Sums sums = run.sums(1, run.steps());
  const double open = sums.steps * (0.5 * run.one.DT / 8766.0 + 6e-8 * sums.largest_gross());
  const auto last = static_cast<std::size_t>(run.tables.at("mqr").rows.size() - 1);
  for (std::size_t n = 0; n < ARROWS.size(); ++n) {
    const Entry& arrow = arrows[n];
    EXPECT_EQ(arrow.number("         STARTING GRID CELL-WALL:"), ARROWS[n].first);
    EXPECT_EQ(arrow.number("         ENDING   GRID CELL-WALL:"), ARROWS[n].last);
    const auto at = arrow.all("     TRANSPORT AT GRID CELL-WALL:");
    const auto right = arrow.all("         VOLUME TO RIGHT (");
    const auto left = arrow.all("         VOLUME TO LEFT ");
    const auto mean_right = arrow.all("         AVG. RATE TO RIGHT (");
    const auto mean_left = arrow.all("         AVG. RATE TO LEFT  (");
    for (const auto* numbers : {&at, &right, &left, &mean_right, &mean_left})
      ASSERT_EQ(numbers->size(), 2u) << n + 1;
    for (std::size_t end = 0; end < 2; ++end) {
      const int wall = end == 0 ? ARROWS[n].first : ARROWS[n].last;
      const auto w = static_cast<std::size_t>(wall - 1);
      EXPECT_EQ(at[end], wall);
      EXPECT_NEAR(right[end], sums.right[w], open);
      EXPECT_NEAR(left[end], sums.left[w], open);
      // Free-format numbers read back to the value that was written.
      EXPECT_EQ(static_cast<float>(right[end]), m.ledgers.QRIGHTSUM(wall));
      EXPECT_EQ(static_cast<float>(left[end]), m.ledgers.QLEFTSUM(wall));
      EXPECT_NEAR(mean_right[end], run.tables.at("mqr").rows[last][w], 0.5);
      EXPECT_NEAR(mean_left[end], run.tables.at("mql").rows[last][w], 0.5);
      const bool mouth = wall == 20 || wall == 23;
      EXPECT_EQ(right[end] == 0.0, mouth) << wall;
    }
  }
}

TEST_P(report_budget, arrows_at_the_mouths_split_what_the_inlet_takes_and_gives_by_its_sides) {
  for (const std::size_t n : {0u, 2u}) EXPECT_FALSE(arrows[n].has("         VOL. INTO"));
  const Entry& arrow = arrows[1];
  EXPECT_EQ(arrow.all("     TRANSPORT INTO OR OUT OF INLET AT CELL-WALL:"), (Row{20, 23}));
  const double from_left = arrow.number("         VOL. INTO INLET LEFT TO RIGHT ");
  const double to_left = arrow.number("         VOL. FROM INLET RIGHT TO LEFT ");
  const double from_right = arrow.number("         VOL. INTO INLET RIGHT TO LEFT ");
  const double to_right = arrow.number("         VOL. FROM INLET LEFT TO RIGHT ");
  const double into = cells[2].number("     VOLUME TRANSPORTED INTO INLET ");
  const double from = cells[2].number("     VOLUME TRANSPORTED FROM INLET ");
  // Their signs are those of the transport.
  for (const double volume : {from_left, to_right}) EXPECT_GT(volume, 0.0);
  for (const double volume : {from_right, to_left}) EXPECT_LT(volume, 0.0);
  const double rounding = 4.0 * run.steps() / static_cast<double>(1 << 24);
  EXPECT_NEAR(from_left - from_right, into, rounding * into);
  EXPECT_NEAR(to_right - to_left, from, rounding * from);
  const auto& [left, right] = std::tie(m.inlets.flows(1).left, m.inlets.flows(1).right);
  const auto expect = [&](double told, const std::string& rate, float V, double sign) {
    EXPECT_NEAR(told, sign * static_cast<double>(V) / run.U(), 3e-7 * std::abs(told));
    EXPECT_NEAR(arrow.number(rate), told / years(), 3e-7 * std::abs(told));
  };
  expect(from_left, "         AVG. RATE INTO INLET L TO R", right.VQIE + right.VQC, 1.0);
  expect(to_left, "         AVG. RATE FROM INLET R TO L", left.VQOUT, -1.0);
  expect(from_right, "         AVG. RATE INTO INLET R TO L", left.VQIE + left.VQC, -1.0);
  expect(to_right, "         AVG. RATE FROM INLET L TO R", right.VQOUT, 1.0);
}

// The sand of the whole coast in the words of the block, under waves from the right alone and with
// placement on single cells, where no wall at a mouth is changed behind the routing and all that is
// given back is delivered:
//
//   VOLUME CHANGE + (INTO - FROM INLET) = net transport at the first wall - that at the last one
//                                         + FILL + EXCAVATION + SOURCE + SINK
//
// and INTO - FROM is INLET VOLUME CHANGE less DREDGED PLACEMENT and REMOVAL, which leave the beach
// alone. Each ledger rounds once a step, by at most half of the last place of what it holds, which
// is half of what it ends with in the mean of the run. A cell that has moved by less than 0.1 mm
// counts as one that has not.
TEST(report_budget_of_a_whole_coast, closes) {
  constexpr int NX = 30;
  constexpr double rounding = 1.0 / (1 << 24);
  Coast coast;
  coast.DT = 6.0;
  coast.shoreline.assign(NX, 100.0);
  coast.waves = steady_wave(0.8, 8.0, -20.0);
  coast.keywords = {{"SIMDATS", "19970101"}, {"SIMDATE", "19980301"}, {"K2", "0.38"},
                    {"ISMOOTH", "5"},        {"PRWARN", "F"},         {"DTSAVE", "24"}};
  coast.more_lines = {
      "IINLS: 16",        "IINLE: 18",    "IBYPL1: 8",    "IBYPL2: 8",        "IBYPR1: 25",
      "IBYPR2: 25",       "VVSE: 15000",  "VVSF: 4000",   "VVSBL: 600",       "VVSBR: 400",
      "VVSAL: 300",       "VVSAR: 200",   "VVSEQ: 40000", "VVSFQ: 10000",     "VVSBQL: 2000",
      "VVSBQR: 2000",     "VVSAQL: 1000", "VVSAQR: 1000", "IMOR: 3",          "IDREDS: 19970301",
      "IDREDE: 19970331", "DRDAY: 31",    "DREDV: 5000",  "IMOR: 4",          "IDREDS: 19970501",
      "IDREDE: 19970510", "DRDAY: 10",    "DREDV: -700",  "BFDATS: 19970201", "BFDATE: 19970401",
      "IBFS: 22",         "IBFE: 25",     "YADD: 4",      "BFDATS: 19970601", "BFDATE: 19970701",
      "IBFS: 3",          "IBFE: 5",      "YADD: -2",     "BPDATS: 19970115", "BPDATE: 19971001",
      "IBPS: 10",         "IBPE: 12",     "QBP: 2",       "BPDATS: 19970115", "BPDATE: 19971001",
      "IBPS: 26",         "IBPE: 28",     "QBP: -3",      "ILEDGV1: 1",       "ILEDGV2: 15",
      "ILEDGV1: 16",      "ILEDGV2: 18",  "ILEDGV1: 19",  "ILEDGV2: 30",      "ILEDGQ1: 1",
      "ILEDGQ2: 31"};
  CoastRun run(coast);
  run.to_the_end();
  const PrintedReport report(run.finish());
  const std::vector<Entry> cells = entries(report, CELL);
  const std::vector<Entry> arrows = entries(report, ARROW);
  ASSERT_EQ(cells.size(), 3u);
  ASSERT_EQ(arrows.size(), 1u);
  double change = 0.0;
  double placed = 0.0;
  double ledgers = 0.0;
  for (const Entry& cell : cells) {
    change += cell.number("     VOLUME CHANGE (M3):");
    for (const char* words : {"BEACH FILL VOLUME PLACEMENT", "BEACH EXCAVATION VOLUME REMOVAL",
                              "BYPASS SOURCE VOLUME PLACEMENT", "BYPASS SINK VOLUME REMOVAL"}) {
      const double volume = cell.volume_or_0("     " + std::string(words));
      placed += volume;
      ledgers += std::abs(volume);
    }
  }
  const double into = cells[1].number("     VOLUME TRANSPORTED INTO INLET");
  const double from = cells[1].number("     VOLUME TRANSPORTED FROM INLET");
  const double dredged = cells[1].number("     DREDGED VOLUME PLACEMENT") +
                         cells[1].number("     DREDGED VOLUME REMOVAL");
  const auto right = arrows[0].all("         VOLUME TO RIGHT");
  const auto left = arrows[0].all("         VOLUME TO LEFT");
  const double come_in = (right.at(0) + left.at(0)) - (right.at(1) + left.at(1));
  ledgers += into + from + right[0] - left[0] + right[1] - left[1] + 2.0 * std::abs(change);
  const double allowance =
      0.5 * run.model().clock.NTS * rounding * ledgers + NX * 100.0 * 8.0 * 1e-4;

  measured("budget of a whole coast, gained by the beach, m3", change);
  measured("budget of a whole coast, taken by the inlet, m3", into - from);
  measured("budget of a whole coast, come in at the ends, m3", come_in);
  measured("budget of a whole coast, placed and removed, m3", placed);
  measured("budget of a whole coast, left open, m3", change + into - from - come_in - placed);
  measured("budget of a whole coast, allowance, m3", allowance);
  EXPECT_NEAR(change + (into - from), come_in + placed, allowance);
  EXPECT_NEAR(cells[1].number("     INLET VOLUME CHANGE") - dredged, into - from,
              1e-6 * (into + from));
  EXPECT_EQ(change, cells[0].number("     VOLUME CHANGE") + cells[2].number("     VOLUME CHANGE"))
      << "the cells of the inlet never move";
  EXPECT_LT(allowance, 0.003 * into) << "the allowance must be that of rounding";
  EXPECT_LT(allowance, 0.1 * std::abs(placed));
}

}  // namespace
