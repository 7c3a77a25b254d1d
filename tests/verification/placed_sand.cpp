#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "verification/coast.h"

// Sand placed and removed by beach fills and bypassing: what the cells gained is what came in
// through the ends and what the ledgers of fills and bypassing hold, to the rounding of single
// precision. The coast is wavy, the waves come from both sides with calms between them.

namespace {

using namespace kelptest;

constexpr int days = 100;
constexpr int steps = days * wave_records_a_day;
constexpr double rounding = 1.0 / (1 << 24);  ///< largest relative rounding of a single value
constexpr double foot = 0.3048;
constexpr double yard = 0.9144;

/// Told in this length unit, m: metres, or feet with cubic yards.
Coast wavy_coast(double unit) {
  Coast coast;
  coast.DX = 100.0 / unit;
  coast.DT = 24.0 / wave_records_a_day;
  coast.steps = steps;
  for (int i = 1; i <= 60; ++i)
    coast.shoreline.push_back((50.0 + 10.0 * std::sin(2.0 * std::numbers::pi * i / 23.0)) / unit);
  coast.waves = changing_waves(2005, days, 2.0);
  coast.keywords = {
      {"WAVEID", "60 " + digits(gauge_depth / unit) + " " + std::to_string(steps) + " waves.dat"},
      {"DCLOS", digits(7.0 / unit)},
      {"BERMHT", digits(1.0 / unit)},
      {"KELUNITS", unit == 1.0 ? "(m)" : "(ft)"},
      {"SIMDATS", "19970101"},
      {"K2", "0.38"},
      {"ISMOOTH", "11"}};
  return coast;
}

// A fill of 21.7 m on 9 cells in the 30 days from 20 January, another one that takes 4.9 m off 6
// cells in the 10 days from 1 March; from 10 January to 1 April, 81 days, 37.3 m3 an hour from a
// sink of 5 cells to a source of 7, which fill and waves reach. A day has 8 steps of an eighth,
// exact in binary, so that each of these days has all its steps.
constexpr double placed_by_fills = 9 * 100 * 8 * 21.7;
constexpr double removed_by_fills = 6 * 100 * 8 * 4.9;
constexpr double bypassed = 81 * 24 * 37.3;

Coast with_events(Coast coast, double unit) {
  const double volume = unit == 1.0 ? 1.0 : yard * yard * yard;
  const std::string rate = digits(37.3 / volume);
  coast.more_lines = {"BFDATS: 19970120",
                      "BFDATE: 19970219",
                      "IBFS: 10",
                      "IBFE: 18",
                      "YADD: " + digits(21.7 / unit),
                      "BFDATS: 19970301",
                      "BFDATE: 19970311",
                      "IBFS: 35",
                      "IBFE: 40",
                      "YADD: " + digits(-4.9 / unit),
                      "BPDATS: 19970110",
                      "BPDATE: 19970401",
                      "IBPS: 17",
                      "IBPE: 21",
                      "QBP: -" + rate,
                      "BPDATS: 19970110",
                      "BPDATE: 19970401",
                      "IBPS: 44",
                      "IBPE: 50",
                      "QBP: " + rate};
  return coast;
}

double total(const kelprun::PerCell<float>& ledger) {
  double sum = 0.0;
  for (const float V : ledger) sum += static_cast<double>(V);
  return sum;
}

/// What the cells gained, what passed the ends, and what rounding may have added, all m3.
struct Balance {
  double gained = 0.0;
  double come_in = 0.0;
  double of_waves = 0.0;      ///< rounding of the transport's share, see sand_balance.cpp
  double of_sources = 0.0;    ///< rounding of RDEN, of the sources' share of the shoreline
  double of_ledgers = 0.0;    ///< rounding of the volumes that the ledgers add, and of their sums
  double of_shoreline = 0.0;  ///< rounding of the position itself, double
  int calms = 0;

  /// Rounding of the beach, the ledgers left aside.
  double of_beach() const { return of_waves + of_sources + of_shoreline; }
};

double area_of(const kelprun::Model& m, int c) {
  return static_cast<double>(m.grid.DX(c)) *
         static_cast<double>(m.profile.DCLOSCELL(c) + m.profile.BERMHTCELL(c));
}

/// The ledgers of the cell, each sum rounded once, and the rounding of what was added: of a fill
/// width times advance and that times height.
double rounding_of_ledgers(const kelprun::Ledgers& now, const kelprun::Ledgers& before, int c) {
  double allowance = 0.0;
  const auto add = [&](const kelprun::PerCell<float>& sum, const kelprun::PerCell<float>& former,
                       double products) {
    const double size = std::abs(static_cast<double>(sum(c)));
    const double added = size - std::abs(static_cast<double>(former(c)));
    if (added != 0.0) allowance += rounding * (size + products * added);
  };
  add(now.VFILLP, before.VFILLP, 2.0);
  add(now.VFILLN, before.VFILLN, 2.0);
  add(now.VBYPP, before.VBYPP, 0.0);
  add(now.VBYPN, before.VBYPN, 0.0);
  return allowance;
}

Balance balance_of(CoastRun& run) {
  const kelprun::Model& m = run.model();
  const int NX = m.grid.NX;
  const double seconds = static_cast<double>(m.clock.DT) * 3600.0;
  const std::vector<double> start = run.shoreline();
  Balance b;
  for (bool more = true; more;) {
    const kelprun::Ledgers before = m.ledgers;
    more = run.step();
    const bool calm = m.waves.HRF(1) == 0.0f;
    if (calm) ++b.calms;
    if (!calm) b.come_in += seconds * (run.Q(1) - run.Q(NX + 1));
    for (int c = 1; c <= NX; ++c) {
      if (!calm) {
        b.of_waves += 4.0 * rounding * seconds * std::abs(run.Q(c + 1) - run.Q(c));
        // DT 3600, the quotient; the height is that of the ledger of fills, summed in the same way.
        b.of_sources += 2.0 * rounding * seconds * static_cast<double>(m.grid.DX(c)) *
                        std::abs(m.shore.DYSRC(c));
      }
      b.of_ledgers += rounding_of_ledgers(m.ledgers, before, c);
      b.of_shoreline += 2.0 * area_of(m, c) * 0x1p-53 * std::abs(run.Y(c));
    }
  }
  for (int c = 1; c <= NX; ++c)
    b.gained += area_of(m, c) * (run.Y(c) - start[static_cast<std::size_t>(c - 1)]);
  return b;
}

class placed_sand : public testing::TestWithParam<double> {
 protected:
  placed_sand() : run(with_events(wavy_coast(GetParam()), GetParam())), balance(balance_of(run)) {}
  void measure(const std::string& what, double value) const {
    measured((GetParam() == 1.0 ? "placed sand, " : "placed sand in feet, ") + what, value);
  }

  CoastRun run;
  const Balance balance;
};

// The ledgers of the bypassed cells grow evenly from zero in 648 steps: at most half as many
// roundings of what they hold at the end are allowed, and the fills have fewer.
TEST_P(placed_sand, is_on_the_beach_or_has_left_at_the_ends) {
  const Balance& b = balance;
  const kelprun::Ledgers& l = run.model().ledgers;
  const double placed = total(l.VFILLP) + total(l.VBYPP);
  const double removed = total(l.VFILLN) + total(l.VBYPN);
  measure("placed by fills and bypassing, m3", placed);
  measure("removed by fills and bypassing, m3", removed);
  measure("come in through the ends, m3", b.come_in);
  measure("balance with the ledgers left open, m3", b.gained - b.come_in - placed - removed);
  measure("allowance of rounding, m3", b.of_beach() + b.of_ledgers);
  EXPECT_NEAR(b.gained, b.come_in + placed + removed, b.of_beach() + b.of_ledgers);
  EXPECT_LT(b.of_ledgers, (648 / 2 + 4) * rounding * (placed - removed));
  EXPECT_GT(b.calms, steps / 20);
  EXPECT_GT(std::abs(b.come_in), 1000.0) << "sand must pass the ends";
}

// From the configuration to a volume a number is rounded at most twelve times: the advance of a
// fill when it is read, by the foot and its product and by the quotient (4, and the steps of the
// quotient), the width (3), and the two heights with their sum (4).
constexpr double of_the_amounts = 12.0 * rounding;

TEST_P(placed_sand, on_the_beach_is_the_amount_that_was_ordered) {
  const double ordered = placed_by_fills - removed_by_fills;  // bypassing takes what it gives
  const double allowance =
      balance.of_beach() +
      of_the_amounts * (placed_by_fills + removed_by_fills + bypassed + bypassed);
  measure("balance with the amounts ordered left open, m3",
          balance.gained - balance.come_in - ordered);
  measure("allowance of rounding without the ledgers, m3", allowance);
  EXPECT_NEAR(balance.gained, balance.come_in + ordered, allowance);
  EXPECT_LT(allowance, 1e-5 * placed_by_fills);
}

TEST_P(placed_sand, in_the_ledgers_is_the_amount_that_was_ordered) {
  const kelprun::Ledgers& l = run.model().ledgers;
  const double relative = 648 * rounding + of_the_amounts;
  measure("error of the ledger of fills, m3", total(l.VFILLP) - placed_by_fills);
  measure("error of the ledger of sources, m3", total(l.VBYPP) - bypassed);
  EXPECT_NEAR(total(l.VFILLP), placed_by_fills, relative * placed_by_fills);
  EXPECT_NEAR(total(l.VFILLN), -removed_by_fills, relative * removed_by_fills);
  EXPECT_NEAR(total(l.VBYPP), bypassed, relative * bypassed);
  EXPECT_NEAR(total(l.VBYPN), -bypassed, relative * bypassed);
}

INSTANTIATE_TEST_SUITE_P(told_in, placed_sand, testing::Values(1.0, foot),
                         [](const auto& row) { return row.param == 1.0 ? "metres" : "feet"; });

}  // namespace
