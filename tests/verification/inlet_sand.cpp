#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "coast/sediment_step.h"
#include "coast/transport.h"
#include "verification/structured_coast.h"

// The sand of a whole coast with an inlet: beach, shoals and bars together gain what comes in at
// the ends, less what is dredged, less two amounts that are worked out here for every step on a way
// of their own: what a placement on several cells does not deliver, and what the relaxation of
// nodal points makes of the wall at a mouth after its sand was routed.

namespace {

using namespace kelptest;
using kelprun::Model;

constexpr int NX = 80;
constexpr int first = 38, last = 41;  ///< cells of the inlet
constexpr int steps_a_day = 8;
constexpr double cell = 100.0;                ///< m
constexpr double rounding = 1.0 / (1 << 24);  ///< largest relative rounding of a single value

double drawn(double low, double high, std::mt19937& numbers) {
  return low + (high - low) * static_cast<double>(numbers()) / 4294967296.0;
}

/// Three-hourly waves, for half a day to eight days from one side, then from the other. Of their
/// dates the first two are looked at alone.
std::string waves_from_changing_sides(int days, double least_angle) {
  std::mt19937 numbers(1888);
  std::string file;
  double sign = 1.0;
  int left = 0;
  for (int k = 0; k < days * steps_a_day; ++k) {
    if (left-- == 0) {
      sign = -sign;
      left = static_cast<int>(drawn(4, 60, numbers));
    }
    file += "19970101 " + std::to_string(300 * (k % steps_a_day)) + " " +
            digits(drawn(0.4, 1.4, numbers)) + " " + digits(drawn(6, 9, numbers)) + " " +
            digits(sign * drawn(least_angle, least_angle + 30.0, numbers)) + "\n";
  }
  return file;
}

struct Stretch {
  int first = 0;
  int last = 0;
};

struct InletCase {
  Stretch left, right;  ///< placement cells
  int days = 0;
  double angle = 0.0;   ///< of a steady wave, degrees; 0: waves from changing sides
  bool turning = true;  ///< the contour turns with the shoreline
  Structures structures{};
  bool dredged = false;
  double least_angle = 5.0;  ///< of the waves from changing sides, degrees; they reach 30 beyond
};

/// Dates of the dredging, and its volume of a step, m3.
constexpr int dredged_from = 19970301, dredged_to = 19970331;
constexpr double dredged_a_step = 100.0;

Coast coast_of(const InletCase& inlet) {
  Coast coast;
  coast.DX = cell;
  coast.DT = 24.0 / steps_a_day;
  coast.steps = inlet.days * steps_a_day;
  coast.shoreline.assign(NX, 100.0);
  if (!inlet.turning) coast.contour.assign(NX, 500.0);
  coast.waves = steady_wave(1.0, 8.0, inlet.angle);
  coast.keywords = {{"SIMDATS", "19970101"}, {"K2", "0.38"}, {"ISMOOTH", "11"}};
  if (inlet.angle == 0.0) {
    coast.waves = waves_from_changing_sides(inlet.days, inlet.least_angle);
    coast.keywords["WAVEID"] = "80 20 " + std::to_string(coast.steps) + " waves.dat";
  }
  coast.more_lines = lines_of(inlet.structures);
  const auto add = [&](const std::string& keyword, int value) {
    coast.more_lines.push_back(keyword + ": " + std::to_string(value));
  };
  add("IINLS", first);
  add("IINLE", last);
  add("IBYPL1", inlet.left.first);
  add("IBYPL2", inlet.left.last);
  add("IBYPR1", inlet.right.first);
  add("IBYPR2", inlet.right.last);
  add("JBCL", 1);
  add("JBCR", 1);
  for (const char* line : {"VVSE: 15000", "VVSF: 4000", "VVSBL: 600", "VVSBR: 400", "VVSAL: 300",
                           "VVSAR: 200", "VVSEQ: 40000", "VVSFQ: 10000", "VVSBQL: 2000",
                           "VVSBQR: 2000", "VVSAQL: 1000", "VVSAQR: 1000"})
    coast.more_lines.push_back(line);
  if (inlet.dredged) {
    add("IMOR", 3);
    add("IDREDS", dredged_from);
    add("IDREDE", dredged_to);
    add("DRDAY", 1);
    coast.more_lines.push_back("DREDV: " + digits(dredged_a_step * steps_a_day));
  }
  return coast;
}

/// Contents of shoals and bars, m3.
std::vector<double> contents(const Model& m) {
  const kelprun::Inlets& n = m.inlets;
  std::vector<double> volumes;
  for (const auto* V : {&n.VVSE, &n.VVSF, &n.VVSBL, &n.VVSBR, &n.VVSAL, &n.VVSAR})
    volumes.push_back(static_cast<double>((*V)(1)));
  return volumes;
}

double sum_of(const std::vector<double>& volumes) {
  return std::accumulate(volumes.begin(), volumes.end(), 0.0);
}

/// Share of the sand that placement on a stretch delivers: weights of a triangle that sum to 1, of
/// a rate over the width of the whole stretch, in cells of equal width.
double delivered_share(const Stretch& cells) {
  const int N = cells.last - cells.first + 1;
  const double middle = 0.5 * (cells.first + cells.last);
  double sum = 0.0;
  double delivered = 0.0;
  for (int i = cells.first; i <= cells.last; ++i) sum += 1.0 - std::abs(i - middle) / (0.5 * N);
  for (int i = cells.first; i <= cells.last; ++i)
    delivered += (1.0 - std::abs(i - middle) / (0.5 * N)) / sum / N;
  return delivered;
}

/// Transport of a step at the walls, m3/s, index 0 unused.
using Walls = std::vector<double>;

/// What the walls hold ahead of the inlets, from the waves of the step and the shoreline at its
/// start.
Walls transport_ahead_of_inlets(const Model& after) {
  Model m = after;
  m.shore.Y = m.shore.YPREV;
  const auto constants = kelprun::transport_constants(m.clock.DT, m.settings.GAMMA);
  kelprun::clear_transport(constants, m.settings, m.grid, m.profile, m.waves, m.transport);
  kelprun::compute_transport(constants, m.settings, m.grid, m.profile, m.waves, m.shore, m.groins,
                             m.breakwaters, m.transport);
  kelprun::set_boundary_walls(m.grid, m.boundaries, m.transport);
  Walls Q(1, 0.0);
  for (const float rate : m.transport.Q) Q.push_back(static_cast<double>(rate));
  return Q;
}

double& at(Walls& Q, int wall) { return Q[static_cast<std::size_t>(wall)]; }

/// Rates that reach the inlet from its left and right, both positive into it; 0 where none does.
struct Arriving {
  double left = 0.0, right = 0.0;
};

/// Takes the sand that reaches the inlet; the walls then hold what the mouths leave.
Arriving take_at_mouths(const Model& m, Walls& Q) {
  const auto open = [&](int wall) {
    return m.groins.ICSTR(wall) == 0 || m.groins.ICSTR(wall) == 4;
  };
  const int beyond = last + 1;
  Arriving arriving;
  if (at(Q, first - 1) > 0.0) {
    if (open(first)) at(Q, first) = at(Q, first - 1);
    arriving.left = at(Q, first);
  } else {
    at(Q, first) = 0.0;
  }
  if (at(Q, beyond + 1) < 0.0) {
    if (open(beyond)) at(Q, beyond) = at(Q, beyond + 1);
    arriving.right = -at(Q, beyond);
  } else {
    at(Q, beyond) = 0.0;
  }
  return arriving;
}

/// The relaxation of nodal points once more.
void relax(Walls& Q) {
  const auto nodal = [&](int wall) { return at(Q, wall) < static_cast<double>(1e-6f); };
  for (int i = 3; i <= NX - 1; ++i) {
    if (!nodal(i)) continue;
    for (int c = i - 1; c > 1 && c >= i - 11 && !nodal(c); --c)
      at(Q, c) = 0.25 * at(Q, c) + 0.75 * at(Q, c - 1);
    for (int c = i + 1; c <= i + 10 && c < NX - 1 && !nodal(c); ++c)
      at(Q, c) = 0.25 * at(Q, c) + 0.75 * at(Q, c + 1);
  }
}

/// All m3, over the whole run.
struct Account {
  double beach = 0.0, shoals = 0.0;  ///< gained
  double come_in = 0.0;              ///< at the two ends of the coast
  double arrived = 0.0;              ///< at the inlet
  double given_back = 0.0;           ///< by the attachment bars
  double dredged = 0.0;
  double not_delivered = 0.0;         ///< by placements on several cells
  double gap = 0.0;                   ///< passed the walls at the mouths less what was routed
  double gross_gap = 0.0;             ///< the same without its sign
  double largest_residue = 0.0;       ///< of one step
  double allowance = 0.0;             ///< of rounding, over all steps
  int from_left = 0, from_right = 0;  ///< steps in which sand arrived
  int steps_with_gap = 0;

  double residue() const { return beach + shoals + dredged + not_delivered + gap - come_in; }
};

/// What a step must do at the inlet, worked out on a way of its own. Volumes in m3.
struct AtInlet {
  double arrived = 0.0, given_back = 0.0, not_delivered = 0.0, gap = 0.0;
  bool from_left = false, from_right = false;
  Walls Q;  ///< as the sweep must use them, m3/s
};

AtInlet worked_out(const Model& m, const InletCase& inlet) {
  const double seconds = static_cast<double>(m.clock.DT) * 3600.0;
  AtInlet s;
  s.Q = transport_ahead_of_inlets(m);
  const Arriving arriving = take_at_mouths(m, s.Q);
  s.arrived = (arriving.left + arriving.right) * seconds;
  s.from_left = arriving.left != 0.0;
  s.from_right = arriving.right != 0.0;
  const double left = at(s.Q, first);
  const double right = at(s.Q, last + 1);
  relax(s.Q);
  s.gap = ((at(s.Q, first) - left) - (at(s.Q, last + 1) - right)) * seconds;
  // A side without sand keeps its rates of an earlier step.
  const auto out = [&](bool arrives, const kelprun::InletSide& side) {
    return arrives ? static_cast<double>(side.Qout) * seconds : 0.0;
  };
  const double to_right = out(s.from_left, m.inlets.flows(1).right);
  const double to_left = out(s.from_right, m.inlets.flows(1).left);
  s.given_back = to_right + to_left;
  s.not_delivered = to_right * (1.0 - delivered_share(inlet.right)) +
                    to_left * (1.0 - delivered_share(inlet.left));
  return s;
}

/// Rounding of a step: each rate of the chain and of a placement is rounded some forty times on its
/// way, a relaxed wall in at most two dozen sweeps, a cell's movement as on the open coast, and a
/// volume when it is dredged and when the sand of either side comes.
double allowance_of(AtInlet& s, double seconds, const std::vector<double>& before,
                    const std::vector<double>& now) {
  double sum = 40.0 * (s.arrived + s.given_back) + 24.0 * std::abs(s.gap);
  for (int c = 1; c <= NX; ++c) sum += 4.0 * seconds * std::abs(at(s.Q, c + 1) - at(s.Q, c));
  for (std::size_t k = 0; k < now.size(); ++k) sum += 3.0 * std::max(now[k], before[k]);
  return rounding * sum;
}

/// One step of the run, entered into the account; false behind the last one.
bool account_step(CoastRun& run, const InletCase& inlet, Account& a) {
  const Model& m = run.model();
  const double seconds = static_cast<double>(m.clock.DT) * 3600.0;
  const std::vector<double> before = contents(m);
  const double beach_before = gained_sand(run, 1, NX);
  const double residue_before = a.residue();
  const bool more = run.step();
  const std::vector<double> now = contents(m);
  AtInlet s = worked_out(m, inlet);
  const bool dredging =
      inlet.dredged && m.clock.CURDATE >= dredged_from && m.clock.CURDATE <= dredged_to;
  a.beach += gained_sand(run, 1, NX) - beach_before;
  a.shoals += sum_of(now) - sum_of(before);
  a.dredged += dredging ? dredged_a_step : 0.0;
  a.not_delivered += s.not_delivered;
  a.gap += s.gap;
  a.come_in += (run.Q(1) - run.Q(NX + 1)) * seconds;
  const double residue = a.residue() - residue_before;
  const double allowance = allowance_of(s, seconds, before, now);
  EXPECT_LE(std::abs(residue), allowance) << "step " << m.clock.ITS;
  a.arrived += s.arrived;
  a.given_back += s.given_back;
  a.gross_gap += std::abs(s.gap);
  a.largest_residue = std::max(a.largest_residue, std::abs(residue));
  a.allowance += allowance;
  a.from_left += s.from_left;
  a.from_right += s.from_right;
  a.steps_with_gap += s.gap != 0.0;
  return more;
}

Account account_of(const InletCase& inlet, const std::string& name) {
  CoastRun run(coast_of(inlet));
  Account a;
  while (account_step(run, inlet, a)) {
  }
  EXPECT_EQ(run.model().clock.ITS, run.model().clock.NTS);
  const std::vector<std::pair<std::string, double>> rows{
      {"arrived at the inlet", a.arrived},
      {"given back", a.given_back},
      {"gained by beach", a.beach},
      {"gained by shoals and bars", a.shoals},
      {"come in at the ends", a.come_in},
      {"dredged", a.dredged},
      {"not delivered", a.not_delivered},
      {"gap at the mouths", a.gap},
      {"gap without sign", a.gross_gap},
      {"left open", a.residue()},
      {"left open in one step", a.largest_residue},
      {"allowance of rounding", a.allowance}};
  for (const auto& [what, value] : rows) measured(name + ", " + what + ", m3", value);
  measured(name + ", steps with sand from the left", a.from_left);
  measured(name + ", steps with sand from the right", a.from_right);
  measured(name + ", steps with a gap", a.steps_with_gap);
  measured(name + ", cell left of the inlet, m", run.Y(first - 1));
  measured(name + ", cell right of the inlet, m", run.Y(last + 1));
  EXPECT_LT(std::abs(a.residue()), 1e-5 * a.arrived);
  EXPECT_LT(a.allowance, 2e-4 * a.arrived) << "the allowance must be that of rounding";
  EXPECT_GT(a.given_back, 0.3 * a.arrived);
  return a;
}

}  // namespace

constexpr Stretch one_left{20, 20}, one_right{59, 59};

// No nodal point comes near a mouth on the side that its sand comes from: no gap, to the last bit.

TEST(inlet_sand, is_kept_by_one_cell_placement_under_waves_from_the_right) {
  const Account a = account_of({one_left, one_right, 200, -20}, "from the right");
  EXPECT_EQ(a.from_left, 0);
  EXPECT_EQ(a.from_right, 1600);
  EXPECT_EQ(a.gross_gap, 0.0);
}

TEST(inlet_sand, is_kept_by_one_cell_placement_under_waves_from_the_left_on_a_straight_contour) {
  const Account a = account_of({one_left, one_right, 40, 30, false}, "from the left");
  EXPECT_EQ(a.from_left, 320);
  EXPECT_EQ(a.gross_gap, 0.0);
}

TEST(inlet_sand, is_kept_by_one_cell_placement_under_waves_from_changing_sides) {
  const Account a =
      account_of({one_left, one_right, 20, 0, false, {}, false, 25}, "from changing sides");
  EXPECT_GT(a.from_left, 30);
  EXPECT_GT(a.from_right, 100);
  EXPECT_EQ(a.gross_gap, 0.0);
}

// Later nodal points do, and the balance closes with the gap.

TEST(inlet_sand, at_an_open_mouth_misses_the_gap_that_nodal_points_beside_it_make) {
  account_of({one_left, one_right, 200, 20}, "long from the left");
  const Account a = account_of({one_left, one_right, 200, 0, true, {}, true},
                               "long from changing sides, dredged");
  EXPECT_GT(a.gross_gap, 1e-4 * a.arrived) << "the case must have a gap";
  // 31 days in March.
  EXPECT_EQ(a.dredged, 31 * steps_a_day * dredged_a_step);
}

TEST(inlet_sand, on_longer_stretches_is_lost_as_their_number_of_cells_tells) {
  // Four fifths of what is given back to the left, which is all.
  const Account a = account_of({{18, 22}, {57, 60}, 200, -20}, "five cells");
  EXPECT_NEAR(a.not_delivered, 0.8 * a.given_back, 1e-9 * a.given_back);
  EXPECT_NEAR(a.beach + a.shoals - a.come_in, -0.8 * a.given_back, 1e-5 * a.arrived);
  const Account b = account_of({{18, 22}, {57, 60}, 200}, "five and four cells");
  EXPECT_GT(b.not_delivered, 0.75 * b.given_back);
  EXPECT_LT(b.not_delivered, 0.8 * b.given_back);
}

TEST(inlet_sand, at_jetties_misses_what_the_relaxation_adds_to_the_walls_at_the_mouths) {
  for (const bool diffracting : {false, true}) {
    const Structures jetties{{{first, 130, 0.2, diffracting}, {last + 1, 125, 0.1, diffracting}},
                             {}};
    const Account a = account_of({one_left, one_right, 200, 0, true, jetties},
                                 diffracting ? "diffracting jetties" : "jetties");
    EXPECT_GT(a.gap, 0.1 * a.arrived) << "the case must have a gap";
  }
}

// On a straight beach, in the first step, the gap can be told without any of the above: the wall of
// the jetty takes three quarters of what it held back.
TEST(inlet_sand, at_a_jetty_misses_three_quarters_of_what_it_holds_back_in_the_first_step) {
  const Structures jetties{{{first, 130, 0.2}, {last + 1, 125, 0.1}}, {}};
  const InletCase inlet{one_left, one_right, 1, 20, true, jetties};
  Coast coast = coast_of(inlet);
  coast.keywords["K2"] = "1e-6";
  CoastRun run(coast);
  const double before = sum_of(contents(run.model()));
  ASSERT_TRUE(run.step());
  const kelprun::InletSide& side = run.model().inlets.flows(1).right;
  const double seconds = 3 * 3600.0;
  const double routed = static_cast<double>(side.Qie) + static_cast<double>(side.Qc);
  const double arriving = run.Q(5);
  EXPECT_GT(routed, 0.2 * arriving);
  EXPECT_LT(routed, 0.8 * arriving);
  const double kept = gained_sand(run, 1, NX) + sum_of(contents(run.model())) - before;
  const double gap = 0.75 * (arriving - routed) * seconds;
  measured("first step at a jetty, sand missing, m3", -kept);
  EXPECT_NEAR(kept, -gap, 1e-4 * gap);

  // From the right nothing is relaxed.
  coast.waves = steady_wave(1.0, 8.0, -20);
  CoastRun from_right(coast);
  ASSERT_TRUE(from_right.step());
  EXPECT_NEAR(gained_sand(from_right, 1, NX) + sum_of(contents(from_right.model())) - before, 0.0,
              1e-4 * gap);
}
