#include <algorithm>
#include <array>
#include <cmath>
#include <sstream>

#include "runs/case.h"

/// Runs with tidal inlets: what the tables of the coast and of the inlets hold, and that a row can
/// be worked out by hand.
namespace kelptest {
namespace {

/// Shoals and bars near one half of their equilibrium.
const Lines HALF_FULL{"VVSE: 60000", "VVSF: 30000", "VVSBL: 2000",
                      "VVSBR: 4000", "VVSAL: 1500", "VVSAR: 1000"};

Lines working_inlet() { return all({inlet(9, 11), HALF_FULL, placement(5, 15)}); }

/// A table of an inlet: rows[k] holds the sixteen values of the row of step steps[k].
struct InletTable {
  Lines head;
  std::vector<int> steps, dates;
  std::vector<std::vector<double>> rows;

  /// The values of one column, numbered from 1, over all rows.
  std::vector<double> column(std::size_t number) const {
    std::vector<double> values;
    for (const auto& row : rows) values.push_back(row.at(number - 1));
    return values;
  }
};

InletTable inlet_table(const Case& run, const std::string& name) {
  const Lines all_lines = lines(run.folder.read(name));
  InletTable table;
  table.head.assign(all_lines.begin(), all_lines.begin() + 2);
  for (std::size_t k = 2; k < all_lines.size(); ++k) {
    const std::string& row = all_lines[k];
    EXPECT_EQ(row.size(), 245u) << row;
    table.steps.push_back(std::stoi(row.substr(0, 8)));
    table.dates.push_back(std::stoi(row.substr(237)));
    std::vector<double>& values = table.rows.emplace_back();
    for (std::size_t begin = 9; begin < 233; begin += 14)
      values.push_back(std::stod(row.substr(begin, 14)));
  }
  return table;
}

/// Columns of the table by their heads.
enum Column : std::size_t { L_QOUT = 1, EBB = 7, FLOOD = 9, R_ATTACH = 14, R_QOUT = 16 };

// What the tables hold.

/// Waves from the left, from the right and a calm, again and again.
std::string changing_waves(int count) {
  std::string text;
  for (int k = 0; k < count; ++k) {
    const char* wave = k % 5 == 4 ? "0.0 8.0 0.0" : k % 2 == 0 ? "1.2 8.0 20.0" : "0.9 7.0 -25.0";
    text += std::to_string(19970101 + k / 24) + " " + std::to_string(100 * (k % 24)) + " " + wave +
            "\n";
  }
  return text;
}

const Changes CHANGING{{"SIMDATE", "40"}, {"WAVEID", "20 20.0 40 waves.dat"}};

TEST(inlets, hold_no_transport_at_their_walls_in_any_table_and_their_cells_never_move) {
  const Lines jetties{"IXDG: 9",  "YDG: 160", "DDG: 3", "PDG: 0.2",
                      "IXDG: 12", "YDG: 150", "DDG: 3", "PDG: 0"};
  for (const Lines& structures : {Lines{}, jetties}) {
    Case run(CHANGING, all({working_inlet(), structures}));
    run.with("waves.dat", changing_waves(40)).run();
    expect_completed(run);
    for (const char* table : {"qtr", "mqn", "mqr", "mql"}) {
      for (const auto& row : run.table(table).rows)
        for (std::size_t wall = 9; wall <= 12; ++wall) EXPECT_EQ(row[wall - 1], 0.0) << table;
    }
    double largest = 0.0;
    for (const auto& row : run.table("qtr").rows) {
      largest = std::max({largest, row[6], -row[13]});
      EXPECT_EQ(row[7], row[6]) << "wall 8 shows its neighbour";
      EXPECT_EQ(row[12], row[13]);
    }
    EXPECT_GT(largest, 100000.0);
    const auto positions = run.table("slo").rows;
    ASSERT_EQ(positions.size(), 41u);
    for (const auto& row : positions)
      for (std::size_t cell = 9; cell <= 11; ++cell)
        EXPECT_EQ(row[cell - 1], positions.front()[cell - 1]) << cell;
    for (const std::size_t cell : {7u, 14u})
      EXPECT_NE(positions.back()[cell - 1], positions.front()[cell - 1]) << cell;
    for (const auto& row : run.table("vcc").rows)
      for (std::size_t cell = 9; cell <= 11; ++cell) EXPECT_EQ(row[cell - 1], 0.0);
  }
}

TEST(inlets, write_a_row_at_every_table_step_but_none_in_a_calm_or_offshore_one) {
  Case run(Changes{{"SIMDATE", "30"}, {"DTSAVE", "3"}, {"WAVEID", "20 20.0 30 waves.dat"}},
           working_inlet());
  std::string waves;
  for (int k = 0; k < 30; ++k) {
    const int step = k + 1;
    const char* wave = step == 9 ? "0 8 0" : step == 15 ? "1 8 90" : "1 8 15";
    waves += std::to_string(19970101 + k / 24) + " " + std::to_string(100 * (k % 24)) + " " + wave +
             "\n";
  }
  run.with("waves.dat", waves).run();
  expect_completed(run);
  const InletTable table = inlet_table(run, "Inlet1.irv");
  EXPECT_EQ(table.head[0], "Inlet Shoal Volumes for Inlet1");
  EXPECT_EQ(table.steps, (std::vector<int>{3, 6, 12, 18, 21, 24, 27, 30}));
  // The date is that of the step and not, as in the tables of the coast, that of the next one.
  const std::vector<int> coast = run.table("slo").dates;
  ASSERT_EQ(coast.size(), 11u);
  EXPECT_EQ(table.dates.front(), 19970101);
  EXPECT_EQ(table.dates[5], 19970101);
  EXPECT_EQ(coast[8], 19970102) << "step 24";
  EXPECT_EQ(table.dates.back(), 19970102);
}

TEST(inlets, that_are_dredged_are_so_in_calms_too_but_not_under_waves_from_behind) {
  const auto dredged = [](const std::string& second_wave) {
    Case run(
        Changes{{"SIMDATE", "3"}, {"WAVEID", "20 20.0 3 waves.dat"}},
        all({inlet(9, 11),
             HALF_FULL,
             placement(7, 13),
             {"IMOR: 3", "IDREDS: 19970101", "IDREDE: 19970101", "DRDAY: 1", "DREDV: 24000"}}));
    // Waves along the normal bring nothing: the volume falls by 1000 m3 an hour and no more.
    run.with("waves.dat",
             "19970101 0 1 8 0\n19970101 100 " + second_wave + "\n19970101 200 1 8 0\n")
        .run();
    expect_completed(run);
    return inlet_table(run, "Inlet1.irv").column(EBB).back();
  };
  EXPECT_EQ(dredged("1 8 0"), 57000.0);
  EXPECT_EQ(dredged("0 8 0"), 57000.0);
  EXPECT_EQ(dredged("1 8 90"), 58000.0);
}

TEST(inlets, keep_the_rates_of_a_side_that_gets_no_sand) {
  Case run(Changes{{"SIMDATE", "4"}, {"WAVEID", "20 20.0 4 waves.dat"}}, working_inlet());
  run.with("waves.dat",
           "19970101 0 1 8 15\n19970101 100 1 8 -15\n19970101 200 1 8 -15\n19970101 300 1 8 15\n")
      .run();
  expect_completed(run);
  const InletTable table = inlet_table(run, "Inlet1.irv");
  const auto right = table.column(R_QOUT);
  const auto left = table.column(L_QOUT);
  ASSERT_EQ(right.size(), 4u);
  EXPECT_GT(right[0], 1000.0);
  EXPECT_EQ(left[0], 0.0);
  EXPECT_GT(left[1], 1000.0);
  EXPECT_EQ(right[1], right[0]);
  EXPECT_EQ(right[2], right[0]);
  EXPECT_NE(right[3], right[0]);
  EXPECT_EQ(left[3], left[2]);
  EXPECT_NE(left[2], left[1]) << "the left bars fill meanwhile";
  const auto bar = table.column(R_ATTACH);
  EXPECT_GT(bar[0], 1000.0);
  EXPECT_EQ(bar[1], bar[0]);
  EXPECT_EQ(bar[2], bar[0]);
  EXPECT_GT(bar[3], bar[0]);
}

TEST(inlets, two_of_them_have_a_table_each) {
  Case run(Changes{{"SIMDATE", "4"}}, all({inlet(5, 6),
                                           {"INLNAME: \"West Gap\""},
                                           inlet(13, 14),
                                           {"VVSE: 0", "VVSE: 5000"},
                                           placement(4, 7),
                                           placement(11, 16)}));
  run.run();
  expect_completed(run);
  const InletTable west = inlet_table(run, "West Gap.irv");
  const InletTable second = inlet_table(run, "Inlet2.irv");
  EXPECT_EQ(west.head[0], "Inlet Shoal Volumes for West Gap");
  EXPECT_EQ(second.head[0], "Inlet Shoal Volumes for Inlet2");
  EXPECT_FALSE(run.folder.exists("Inlet1.irv"));
  EXPECT_EQ(west.steps, (std::vector<int>{1, 2, 3, 4}));
  EXPECT_EQ(second.steps, west.steps);
  // Both fill from the left.
  EXPECT_GT(west.column(EBB).front(), 0.0);
  EXPECT_LT(west.column(EBB).back(), 5000.0);
  EXPECT_GT(second.column(EBB).front(), 5000.0);
  for (const auto& row : run.table("qtr").rows)
    for (const std::size_t wall : {5u, 6u, 7u, 13u, 14u, 15u}) EXPECT_EQ(row[wall - 1], 0.0);
}

// Units.

TEST(inlets, in_feet_have_volumes_in_cubic_yards_and_sides_as_given) {
  Case run(Changes{{"KELUNITS", "(ft)"}, {"DX", "300"}, {"DCLOS", "25"}, {"BERMHT", "5"}},
           all({working_inlet(), {"YINLL: 30", "YINLR: 33"}}));
  run.with("waves.dat", "1 8 0\n").run();
  expect_completed(run);
  const InletTable table = inlet_table(run, "Inlet1.irv");
  EXPECT_EQ(table.column(EBB).back(), 60000.0);
  EXPECT_EQ(table.column(FLOOD).back(), 30000.0);
  EXPECT_EQ(table.column(R_ATTACH).back(), 1000.0);
  // The beach stands at 100 feet; the sides are metres, and the tables tell feet.
  const auto positions = run.table("slo").rows.back();
  EXPECT_EQ(positions[7], 100.0);
  EXPECT_NEAR(positions[8], 30.0 / 0.3048, 0.005);
  EXPECT_NEAR(positions[9], 31.5 / 0.3048, 0.005);
  EXPECT_NEAR(positions[10], 33.0 / 0.3048, 0.005);
}

/// The lines with all numbers divided by a factor.
Lines in_unit(const Lines& metric, double unit) {
  Lines lines;
  for (const std::string& line : metric) {
    const std::size_t number = line.find(": ") + 2;
    std::ostringstream text;
    text.precision(15);
    text << line.substr(0, number) << std::stod(line.substr(number)) / unit;
    lines.push_back(text.str());
  }
  return lines;
}

TEST(inlets, in_feet_give_the_metric_result_in_cubic_yards) {
  const Lines volumes = all({HALF_FULL,
                             {"VVSEQ: 100000", "VVSFQ: 80000", "VVSBQL: 5000", "VVSBQR: 6000",
                              "VVSAQL: 2000", "VVSAQR: 3000"}});
  const Lines cells = all({{"IINLS: 9", "IINLE: 11"}, placement(5, 15)});
  const Lines dredging{"IMOR: 5", "IDREDS: 19970101", "IDREDE: 19970101", "DRDAY: 1"};
  const double yard = 0.9144 * 0.9144 * 0.9144;
  const auto run_in = [&](const Changes& lengths, double unit) {
    Changes changes = lengths;
    changes.insert(CHANGING.begin(), CHANGING.end());
    Case run(changes,
             all({cells, in_unit(volumes, unit), dredging, in_unit({"DREDV: 2400"}, unit)}));
    run.with("waves.dat", changing_waves(40))
        .with("shore.dat", values_file(std::vector<double>(20, unit == 1.0 ? 60.96 : 200.0)))
        .run();
    expect_completed(run);
    return inlet_table(run, "Inlet1.irv");
  };
  const InletTable metres = run_in({{"DX", "91.44"}, {"DCLOS", "6.096"}, {"BERMHT", "1.524"}}, 1.0);
  const InletTable feet = run_in({{"KELUNITS", "(ft)"},
                                  {"DX", "300"},
                                  {"DCLOS", "20"},
                                  {"BERMHT", "5"},
                                  {"WAVEID", "20 65.616798 40 waves.dat"}},
                                 yard);
  ASSERT_EQ(feet.steps, metres.steps);
  ASSERT_EQ(feet.rows.size(), 32u);
  for (std::size_t k = 0; k < feet.rows.size(); ++k)
    for (std::size_t c = 0; c < 16; ++c)
      EXPECT_NEAR(feet.rows[k][c] * yard, metres.rows[k][c],
                  1.0 + 2e-5 * std::abs(metres.rows[k][c]))
          << "step " << feet.steps[k] << ", column " << c + 1;
}

// A row by hand.

/// The chain of reservoirs once more, in double, for sand from the left alone.
struct Chain {
  double VE, VF, VB, VA;
  double VEQ, VFQ, VBQ, VAQ;
  double Qie = 0, Qeb = 0, Qba = 0, Qout = 0, Qfe = 0, Qce = 0;

  static double overflow(double& V, double VQ, double seconds) {
    const double over = std::max(V - VQ, 0.0);
    V -= over;
    return over / seconds;
  }

  void take(double QI, double seconds) {
    const double ebb = VE / VEQ;
    const double filled = (VE + VF) / (VEQ + VFQ);
    const double share = (1 - ebb) / ((1 - ebb) + (1 - VF / VFQ));
    Qie = filled * QI;
    const double Qc = QI - Qie;
    Qce = share * Qc;
    VF += (Qc - Qce) * seconds;
    Qfe = overflow(VF, VFQ, seconds);
    const double arriving = Qie + Qce + Qfe;
    Qeb = ebb * arriving;
    VE += (arriving - Qeb) * seconds;
    Qeb += overflow(VE, VEQ, seconds);
    Qba = VB / VBQ * Qeb;
    VB += (Qeb - Qba) * seconds;
    Qba += overflow(VB, VBQ, seconds);
    Qout = VA / VAQ * Qba;
    VA += (Qba - Qout) * seconds;
    Qout += overflow(VA, VAQ, seconds);
  }
};

/// Runs an inlet under a wave from the left and follows it with the chain, every `save` steps.
void expect_rows_of(Chain& chain, const Lines& volumes, int steps, int save) {
  // A profile of ten thousand kilometres holds the shoreline still, so that the transport of the
  // open coast, wall 1 of the table, arrives at the inlet in every step.
  Case run(
      Changes{
          {"SIMDATE", std::to_string(steps)}, {"DCLOS", "1e7"}, {"DTSAVE", std::to_string(save)}},
      all({inlet(9, 11), volumes, placement(5, 15)}));
  run.with("waves.dat", "1.3 9.0 20.0\n").run();
  expect_completed(run);
  const auto transport = run.table("qtr").rows;
  const double yearly = transport.back()[0];
  EXPECT_GT(yearly, 1e6);
  for (std::size_t k = 1; k < transport.size(); ++k) EXPECT_NEAR(transport[k][0], yearly, 1.0);
  const InletTable table = inlet_table(run, "Inlet1.irv");
  ASSERT_EQ(table.rows.size(), static_cast<std::size_t>(steps / save));
  const double year = 31557600.0;
  for (int step = 1; step <= steps; ++step) {
    chain.take(yearly / year, 3600.0);
    if (step % save != 0) continue;
    const std::array row{0.0,
                         0.0,
                         1500.0,
                         0.0,
                         2000.0,
                         0.0,
                         chain.VE,
                         chain.Qfe * year,
                         chain.VF,
                         chain.Qce * year,
                         chain.Qeb * year,
                         chain.VB,
                         chain.Qba * year,
                         chain.VA,
                         chain.Qie * year,
                         chain.Qout * year};
    // Half of the last digit, and a hundred-thousandth for single precision: of a volume, and of
    // the whole inflow for rates, which are shares of it.
    for (std::size_t c = 0; c < 16; ++c) {
      const bool volume = c == 2 || c == 4 || c == 6 || c == 8 || c == 11 || c == 13;
      const double size = volume ? row[c] : std::max(std::abs(row[c]), yearly);
      EXPECT_NEAR(table.rows[static_cast<std::size_t>(step / save - 1)][c], row[c],
                  0.5 + 1e-5 * size)
          << "step " << step << ", column " << c + 1;
    }
  }
}

TEST(inlets, rows_are_those_of_a_chain_worked_out_by_hand) {
  Chain chain{60000, 30000, 4000, 1000, 100000, 80000, 6000, 3000};
  expect_rows_of(chain, HALF_FULL, 2000, 250);
  EXPECT_GT(chain.VE, 90000.0);
  EXPECT_GT(chain.VA, 2990.0) << "the shoals must have filled on the way";
}

TEST(inlets, rows_of_shoals_that_start_too_full_are_those_of_a_chain_worked_out_by_hand) {
  // The flood shoal hands its surplus of 5000 m3 over in the first step, and all shoals and bars
  // behind it then their own.
  Chain chain{98000, 85000, 5500, 3000, 100000, 80000, 6000, 3000};
  const Lines volumes{"VVSE: 98000", "VVSF: 85000", "VVSBL: 2000",
                      "VVSBR: 5500", "VVSAL: 1500", "VVSAR: 3000"};
  expect_rows_of(chain, volumes, 5, 1);
  EXPECT_EQ(chain.VF, 80000.0);
  EXPECT_GT(chain.Qout, 0.0);
}

}  // namespace
}  // namespace kelptest
