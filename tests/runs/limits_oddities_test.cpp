#include <cmath>
#include <filesystem>

#include "runs/limits_case.h"

/// Rules of the model that a design must know of, as whole runs show them: transport past groins,
/// the mouths of inlets, dredging under an adaptive step.
namespace kelptest {
namespace {

using Row = std::vector<double>;

Lines plain_groin(int wall, const std::string& permeability) {
  return {"IXNDG: " + std::to_string(wall), "YNDG: 400", "PNDG: " + permeability};
}

/// Transport at the walls in the first step of a straight coast.
Row first_transport(const Lines& lines, const std::string& angle, Changes changes = {}) {
  changes["SIMDATE"] = "1";
  Case run(changes, lines);
  run.with("waves.dat", "1 8 " + angle + "\n").run();
  expect_run(run);
  return run.table("qtr").rows.back();
}

double at(const Row& row, int wall) { return row.at(static_cast<std::size_t>(wall - 1)); }

TEST(groin_on_the_right_end, passes_nothing_whatever_its_permeability) {
  const Changes right{{"RBCTYPE", "1"}, {"RGROINY", "300"}};
  const Changes left{{"LBCTYPE", "1"}, {"LGROINY", "300"}};
  for (const char* angle : {"10", "-10"}) {
    const double open = at(first_transport({}, angle), 10);
    EXPECT_GT(std::abs(open), 100000.0);
    EXPECT_EQ(at(first_transport(plain_groin(21, "1"), angle, right), 21), 0.0);
    // On the left end all of it passes: the shoreline outside lies as far behind the tip.
    EXPECT_NEAR(at(first_transport(plain_groin(1, "1"), angle, left), 1), open,
                1e-4 * std::abs(open));
  }
}

TEST(groin_within_eleven_walls_left_of_a_tight_one, passes_three_quarters_more_to_the_right) {
  const auto shares = [&](int tight, const std::string& angle) {
    Case run(wide(40, {{"SIMDATE", "1"}}), all({plain_groin(8, "0.1"), plain_groin(tight, "0")}));
    run.with("waves.dat", "1 8 " + angle + "\n")
        .with("shore.dat", values_file(Row(40, 100.0)))
        .run();
    expect_run(run);
    const Row Q = run.table("qtr").rows.back();
    EXPECT_EQ(at(Q, tight), 0.0);
    return at(Q, 8) / at(Q, 6);
  };
  // Its wall takes a quarter of its own transport and three quarters of that on its left.
  EXPECT_NEAR(shares(19, "10"), 0.25 * 0.1 + 0.75, 1e-5);
  EXPECT_NEAR(shares(14, "10"), 0.25 * 0.1 + 0.75, 1e-5);
  EXPECT_NEAR(shares(20, "10"), 0.1, 1e-5) << "twelve walls";
  EXPECT_NEAR(shares(14, "-10"), 0.1, 1e-5) << "to the left nothing is changed";
}

// An inlet in cells 38 to 41 of 80, shoals and bars a little above a third of their equilibrium.

const Lines VOLUMES{"VVSE: 15000",  "VVSF: 4000",   "VVSBL: 600",   "VVSBR: 400",
                    "VVSAL: 300",   "VVSAR: 200",   "VVSFQ: 10000", "VVSBQL: 2000",
                    "VVSBQR: 2000", "VVSAQL: 1000", "VVSAQR: 1000"};
const Lines PLACE{"IINLS: 38", "IINLE: 41", "IBYPL1: 20", "IBYPL2: 20", "IBYPR1: 59", "IBYPR2: 59"};

struct InletRun {
  Row shoreline;     ///< at the end
  double ebb = 0.0;  ///< volume of the ebb shoal at the end, m3
  std::string console;
};

InletRun run_inlet(int steps, const std::string& angle, const Lines& more_lines) {
  Case run(wide(80, {{"DT", "3"},
                     {"DTSAVE", "3"},
                     {"SIMDATE", std::to_string(steps)},
                     {"K1", "0.77"},
                     {"K2", "0.38"},
                     {"DCLOS", "7"}}),
           all({PLACE, VOLUMES, more_lines}));
  run.with("waves.dat", "1 8 " + angle + "\n").with("shore.dat", values_file(Row(80, 100.0))).run();
  expect_run(run);
  const std::string last = lines(run.folder.read("Inlet1.irv")).back();
  return {run.table("slo").rows.back(), std::stod(last.substr(9 + 6 * 14, 14)), run.outcome.out};
}

TEST(open_inlet_mouth, on_the_left_of_an_inlet_feeds_its_own_erosion) {
  const Lines open{"VVSEQ: 40000"};
  const InletRun from_left = run_inlet(1600, "20", open);
  const InletRun from_right = run_inlet(1600, "-20", open);
  // The cells beside the mouth that the sand comes to, 37 and its mirror image 42.
  EXPECT_LT(from_left.shoreline[36], -200.0);
  EXPECT_GT(from_right.shoreline[41], 95.0);
}

TEST(boundary_values_of_jetties,
     left_out_are_those_of_the_tips_and_bring_less_sand_or_take_it_back) {
  const auto jetties = [](const std::string& kind) {
    Lines both;
    for (const char* wall : {"38", "42"})
      both = all({both, {"IX" + kind + ": " + wall, "Y" + kind + ": 130"}});
    if (kind == "DG") both = all({both, {"DDG: 3", "DDG: 3"}});
    return all({both, {"VVSEQ: 40000"}});
  };
  const Lines beach{"JBCL: 1", "JBCR: 1"};
  for (const char* kind : {"NDG", "DG"}) {
    const InletRun at_tips = run_inlet(80, "20", jetties(kind));
    const InletRun at_beach = run_inlet(80, "20", all({jetties(kind), beach}));
    EXPECT_EQ(at_tips.shoreline[38], 130.0) << "the water between the jetties";
    EXPECT_EQ(at_beach.shoreline[38], 100.0);
    EXPECT_LT(at_tips.ebb, at_beach.ebb) << kind;
    EXPECT_GT(at_beach.ebb, 15000.0);
  }
  EXPECT_LT(run_inlet(80, "20", jetties("DG")).ebb, 15000.0) << "sand is taken out of the shoal";
}

TEST(ebb_shoal_with_a_volume_and_an_equilibrium_of_0, throws_the_beach_away) {
  // The share that it passes on is its volume over 0.00001 m3, 1.5 thousand million times what
  // arrives; nothing refuses it.
  const InletRun run = run_inlet(1, "20", {"VVSEQ: 0"});
  EXPECT_GT(run.shoreline[58], 1e6);
  EXPECT_EQ(occurrences(run.console, "VVSEQ cannot = 0; resetting to 0.00001"), 1);
}

TEST(dredging_under_an_adaptive_step, takes_its_volume_of_a_step_in_every_shorter_step) {
  // Straight waves bring the inlet nothing. Cells of 12 m make steps of 3 h into four of 0.75 h.
  std::string waves;
  for (int n = 1; n <= 40; ++n)
    waves += std::to_string(19970101 + (n - 1) / 8) + " " + std::to_string(300 * ((n - 1) % 8)) +
             (n < 2 ? " 0 8 0\n" : " 1 8 0\n");
  const auto dredged = [&](const std::string& DX) {
    Case run(Changes{{"DX", DX},
                     {"DT", "3"},
                     {"DTSAVE", "24"},
                     {"SIMDATE", "19970106"},
                     {"DTADAPT", "1"},
                     {"WAVEID", "20 20.0 40 waves.dat"}},
             all({inlet(9, 11),
                  placement(7, 13),
                  {"VVSE: 60000"},
                  {"IMOR: 3", "IDREDS: 19970103", "IDREDE: 19970103", "DRDAY: 1", "DREDV: 800"}}));
    run.with("waves.dat", waves).run();
    expect_run(run);
    EXPECT_EQ(occurrences(run.outcome.out, "NEW DT = 0.75\n"), DX == "12" ? 1 : 0);
    const std::string last = lines(run.folder.read("Inlet1.irv")).back();
    return 60000.0 - std::stod(last.substr(9 + 6 * 14, 14));
  };
  EXPECT_EQ(dredged("100"), 800.0);
  EXPECT_EQ(dredged("12"), 4 * 800.0);
}

TEST(run_that_a_search_without_end_stops, says_so_and_has_the_status_0) {
  // The permeability of -5 is a slip for 0.5: tests/runs/stopped tells why no search ends with it.
  WorkFolder folder;
  const std::filesystem::path source =
      std::filesystem::path(KELPRUN_SOURCE_DIR) / "tests/runs/stopped";
  for (const char* name : {"run.cfg", "shore.dat", "waves.dat", "levels.dat"})
    std::filesystem::copy_file(source / name, folder.path() / name);
  const Outcome outcome = run_program(folder, {"run.cfg"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.err.find("the run was stopped during time step 3"), std::string::npos);
  EXPECT_NE(folder.read("run.prt").find("EXECUTION STOPPED DURING TIME STEP 3"), std::string::npos);
}

}  // namespace
}  // namespace kelptest
