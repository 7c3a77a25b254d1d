#include "output/inlet_tables.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "unit/inlets/inlet_case.h"
#include "unit/input/reading.h"
#include "unit/text/stops.h"

namespace kelprun {
namespace {

constexpr float CUBIC_YARD = 0.9144f * 0.9144f * 0.9144f;

/// One inlet with numbers that tell all columns apart, in a folder of its own.
class InletTablesTest : public testing::Test {
 protected:
  InletTablesTest() : inside_(folder), m(kelptest::small_model(20)) {
    kelptest::add_inlet(m, 8, 11);
    Inlets& n = m.inlets;
    n.flows.allocate(1);
    InletFlow& f = n.flows(1);
    f.left = {.Qie = 0.002f, .Qc = 9.0f, .Qeb = 0.004f, .Qba = 0.003f, .Qout = 0.001f};
    f.right = {.Qie = 0.009f, .Qc = 9.0f, .Qeb = 0.007f, .Qba = 0.008f, .Qout = 0.01f};
    f.Qfe = 0.005f;
    f.Qce = -0.006f;
    n.VVSAL(1) = 1000.4f;
    n.VVSBL(1) = 2000.6f;
    n.VVSE(1) = 1234567.5f;
    n.VVSF(1) = -0.25f;
    n.VVSBR(1) = 0.00001f;
    n.VVSAR(1) = 6000.0f;
    m.clock.ITS = 1234;
    m.clock.CURDATE = 19970203;
    m.clock.NEXTDATE = 19970204;
  }
  std::vector<std::string> lines(const std::string& file) {
    return kelptest::lines(folder.read(file));
  }

  kelptest::WorkFolder folder;

 private:
  kelptest::InFolder inside_;

 protected:
  Model m;
  InletTables tables;
};

TEST_F(InletTablesTest, open_with_the_inlets_name_and_the_head_of_their_columns) {
  tables.open(m.inlets);
  EXPECT_EQ(folder.read("Inlet1.irv"),
            "Inlet Shoal Volumes for Inlet1\n"
            "      DT        L_Qout         L_Qie      L_Attach         L_Qba      L_Bypass"
            "         L_Qeb           Ebb           Qfe         Flood           Qce         R_Qeb"
            "      R_Bypass         R_Qba      R_Attach         R_Qie        R_Qout       DATE\n");
}

TEST_F(InletTablesTest, a_row_holds_yearly_rates_volumes_step_and_date_column_by_column) {
  tables.open(m.inlets);
  tables.write(m.clock, 1.0f, m.inlets);
  // A thousandth of a m3/s is 31557.6 m3 a year. The volume 1234567.5 is a tie and goes to even.
  EXPECT_EQ(lines("Inlet1.irv")[2],
            "    1234 "
            "        31558."  // L_Qout
            "        63115."  // L_Qie
            "         1000."  // L_Attach
            "        94673."  // L_Qba
            "         2001."  // L_Bypass
            "       126230."  // L_Qeb
            "      1234568."  // Ebb
            "       157788."  // Qfe
            "           -0."  // Flood
            "      -189346."  // Qce
            "       220903."  // R_Qeb
            "            0."  // R_Bypass
            "       252461."  // R_Qba
            "         6000."  // R_Attach
            "       284018."  // R_Qie
            "       315576."  // R_Qout
            "    19970203");
}

TEST_F(InletTablesTest, in_feet_volumes_are_cubic_yards) {
  m.inlets.VVSE(1) = 764554.857984f;  // a million cubic yards
  m.inlets.VVSAR(1) = 7645.54857984f;
  m.inlets.flows(1).right.Qout = 764.554857984f / 31557600.0f;
  tables.open(m.inlets);
  tables.write(m.clock, CUBIC_YARD, m.inlets);
  const std::string row = lines("Inlet1.irv")[2];
  const auto column = [&](std::size_t k) { return row.substr(9 + 14 * (k - 1), 14); };
  EXPECT_EQ(column(7), "      1000000.");
  EXPECT_EQ(column(14), "        10000.");
  EXPECT_EQ(column(16), "         1000.");
}

TEST_F(InletTablesTest, numbers_that_do_not_fit_are_asterisks) {
  m.inlets.VVSE(1) = 1e14f;
  m.clock.ITS = 123456789;
  tables.open(m.inlets);
  tables.write(m.clock, 1.0f, m.inlets);
  const std::string row = lines("Inlet1.irv")[2];
  EXPECT_EQ(row.substr(0, 9), "******** ");
  EXPECT_EQ(row.substr(9 + 14 * 6, 14), std::string(14, '*'));
}

TEST_F(InletTablesTest, are_named_by_the_inlet_without_the_blanks_at_its_ends_or_by_its_number) {
  for (std::int32_t k = 2; k <= 11; ++k) kelptest::add_inlet(m, 8, 8);
  m.inlets.flows.allocate(11);
  m.inlets.INLNAME(2) = "  North Inlet  ";
  m.inlets.INLNAME(3) = "   ";
  tables.open(m.inlets);
  tables.write(m.clock, 1.0f, m.inlets);
  tables.close();
  EXPECT_EQ(lines("Inlet1.irv")[0], "Inlet Shoal Volumes for Inlet1");
  EXPECT_EQ(lines("North Inlet.irv")[0], "Inlet Shoal Volumes for North Inlet");
  EXPECT_EQ(lines("Inlet3.irv")[0], "Inlet Shoal Volumes for Inlet3");
  EXPECT_EQ(lines("Inlet9.irv")[0], "Inlet Shoal Volumes for Inlet9");
  EXPECT_EQ(lines("Inlet10.irv")[0], "Inlet Shoal Volumes for Inlet10");
  EXPECT_EQ(lines("Inlet11.irv")[0], "Inlet Shoal Volumes for Inlet11");
  EXPECT_FALSE(folder.exists("Inlet2.irv"));
  for (const char* name : {"Inlet1", "North Inlet", "Inlet11"})
    EXPECT_EQ(lines(name + std::string(".irv")).size(), 3u) << name;
}

TEST_F(InletTablesTest, replace_what_an_earlier_run_left) {
  folder.write("Inlet1.irv", std::string(10000, 'x'));
  tables.open(m.inlets);
  EXPECT_EQ(lines("Inlet1.irv").size(), 2u);
}

TEST_F(InletTablesTest, one_that_cannot_be_opened_ends_the_run) {
  std::filesystem::create_directory("Inlet1.irv");
  const kelptest::Said said = kelptest::listen([&] { tables.open(m.inlets); });
  EXPECT_EQ(said.status, 1);
  EXPECT_EQ(said.err.find("kelprun: Inlet1.irv: cannot be opened: "), 0u) << said.err;
}

TEST_F(InletTablesTest, without_inlets_there_are_none) {
  tables.open(Inlets{});
  tables.write(m.clock, 1.0f, Inlets{});
  tables.close();
  EXPECT_TRUE(std::filesystem::is_empty("."));
}

}  // namespace
}  // namespace kelprun
