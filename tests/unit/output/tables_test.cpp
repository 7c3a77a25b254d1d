#include "output/tables.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "support/program.h"
#include "unit/run/small_model.h"
#include "unit/text/stops.h"

namespace kelprun {
namespace {

/// Tables of three cells in a folder of their own.
class TablesTest : public testing::Test {
 protected:
  TablesTest() : m(kelptest::small_model(3)) { m.clock.NEXTDATE = 19970203; }
  void open() { tables.open((folder.path() / "run.").string(), 3); }
  std::vector<std::string> lines(const std::string& suffix) {
    return kelptest::lines(folder.read("run." + suffix));
  }

  kelptest::WorkFolder folder;
  Model m;
  Tables tables;
};

TEST_F(TablesTest, take_the_stem_of_the_report_and_open_with_their_titles) {
  open();
  const std::vector<std::pair<std::string, std::string>> titles{
      {"slo", "Shoreline Position Output"},
      {"qtr", "Net Transport Rate"},
      {"off", "Calculated Offshore Contour"},
      {"mqn", "Mean Annual Net Transport Rate"},
      {"mqr", "Mean Annual Transport Rate to the Right"},
      {"mql", "Mean Annual Transport Rate to the Left"},
      {"vcc", "Volume Change Per Cell"},
      {"vcx", "Volume Change Per Linear Distance Unit Alongshore"}};
  for (const auto& [suffix, title] : titles)
    EXPECT_EQ(folder.read("run." + suffix), title + "\n") << suffix;
}

TEST_F(TablesTest, replace_what_an_earlier_run_left) {
  folder.write("run.slo", "old\nolder\noldest\n");
  open();
  EXPECT_EQ(folder.read("run.slo"), "Shoreline Position Output\n");
}

TEST_F(TablesTest, a_table_that_cannot_be_opened_ends_the_run) {
  const std::string stem = (folder.path() / "missing" / "run.").string();
  const kelptest::Said said = kelptest::listen([&] { tables.open(stem, 3); });
  EXPECT_EQ(said.status, 1);
  EXPECT_NE(said.err.find(stem + "slo"), std::string::npos);
}

TEST_F(TablesTest, a_row_is_a_date_in_8_columns_and_values_in_14_with_2_decimals) {
  kelptest::put(m.shore.Y, std::array{1.0, -2.345, 1234567.891});
  open();
  tables.write_state(m);
  EXPECT_EQ(lines("slo")[1], "19970203          1.00         -2.35    1234567.89");
}

TEST_F(TablesTest, transports_take_16_columns_without_decimals_and_one_column_more) {
  kelptest::put(m.ledgers.QANNUAL, std::array{0.0f, 250000.4f, -0.3f, -1.5f});
  open();
  tables.write_state(m);
  EXPECT_EQ(lines("qtr")[1],
            "19970203              0.         250000.             -0.             -2.");
}

TEST_F(TablesTest, positions_count_from_the_baseline_in_the_files_unit) {
  m.settings.CONV = 0.3048f;
  m.shore.Y.fill(30.48);
  m.shore.YREG.fill(60.96f);
  open();
  tables.write_state(m);
  const auto slo = kelptest::read_table(folder.read("run.slo"), 14);
  EXPECT_EQ(slo.rows[0], (std::vector<double>{300, 300, 300}));
}

TEST_F(TablesTest, positions_are_formed_in_double_precision) {
  // In single precision the second decimal of 300 km is lost.
  kelptest::put(m.shore.Y, std::array{300000.12, 300000.13, 0.0});
  open();
  tables.write_state(m);
  EXPECT_EQ(lines("slo")[1], "19970203     300000.12     300000.13          0.00");
}

TEST_F(TablesTest, the_contour_counts_from_the_baseline_and_keeps_its_offset) {
  m.settings.CONV = 0.5f;
  m.shore.YREG.fill(10.0f);
  kelptest::put(m.shore.YCON, std::array{300.0f, 305.5f, 290.0f});
  open();
  tables.write_state(m);
  const auto off = kelptest::read_table(folder.read("run.off"), 14);
  EXPECT_EQ(off.rows[0], (std::vector<double>{620, 631, 600}));
}

TEST_F(TablesTest, volumes_are_reported_in_the_units_cube) {
  m.settings.CONV = 0.3048f;
  m.settings.CONVYD3 = 0.9144f * 0.9144f * 0.9144f;
  m.ledgers.VOLCELL.fill(1000.0f);
  m.ledgers.VOLLEN.fill(10.0f);
  open();
  tables.write_state(m);
  // 1000 m3 are 1307.95 cubic yards, 10 m3 a metre 3.9866 cubic yards a foot.
  EXPECT_NEAR(kelptest::read_table(folder.read("run.vcc"), 14).rows[0][1], 1307.95, 0.011);
  EXPECT_NEAR(kelptest::read_table(folder.read("run.vcx"), 14).rows[0][1], 3.99, 0.011);
}

TEST_F(TablesTest, a_value_that_does_not_fit_is_asterisks) {
  kelptest::put(m.shore.Y, std::array{99999999999.0, 1.0, -9999999999.0});
  m.ledgers.QANNUAL(2) = 1e16f;
  open();
  tables.write_state(m);
  const std::string stars14(14, '*');
  EXPECT_EQ(lines("slo")[1], "1997020399999999999.00          1.00-9999999999.00");
  m.shore.Y(1) = 999999999999.0;
  tables.write_state(m);
  EXPECT_EQ(lines("slo")[2], "19970203" + stars14 + "          1.00-9999999999.00");
  EXPECT_EQ(lines("qtr")[1].substr(24, 16), std::string(16, '*'));
}

TEST_F(TablesTest, a_state_is_on_its_files_at_once_and_touches_five_of_them) {
  open();
  tables.write_state(m);
  tables.write_state(m);
  for (const char* suffix : {"slo", "qtr", "off", "vcc", "vcx"})
    EXPECT_EQ(lines(suffix).size(), 3u) << suffix;
  for (const char* suffix : {"mqn", "mqr", "mql"}) EXPECT_EQ(lines(suffix).size(), 1u) << suffix;
}

TEST_F(TablesTest, year_sums_go_to_the_three_mean_annual_tables_times_their_factor) {
  kelptest::put(m.ledgers.QNETYR, std::array{1.0f, 2.0f, 3.0f, 4.0f});
  kelptest::put(m.ledgers.QLEFTYR, std::array{-1.0f, -2.0f, -3.0f, -4.0f});
  kelptest::put(m.ledgers.QRIGHTYR, std::array{10.0f, 20.0f, 30.0f, 40.0f});
  open();
  tables.write_year_sums(m.ledgers, 19980101, 1.0f);
  tables.write_year_sums(m.ledgers, 19990101, 1000.0f);
  const auto mqn = kelptest::read_table(folder.read("run.mqn"), 16);
  EXPECT_EQ(mqn.dates, (std::vector{19980101, 19990101}));
  EXPECT_EQ(mqn.rows[0], (std::vector<double>{1, 2, 3, 4}));
  EXPECT_EQ(mqn.rows[1], (std::vector<double>{1000, 2000, 3000, 4000}));
  EXPECT_EQ(kelptest::read_table(folder.read("run.mql"), 16).rows[0],
            (std::vector<double>{-1, -2, -3, -4}));
  EXPECT_EQ(kelptest::read_table(folder.read("run.mqr"), 16).rows[0],
            (std::vector<double>{10, 20, 30, 40}));
  EXPECT_EQ(lines("slo").size(), 1u);
}

TEST_F(TablesTest, mean_rates_go_to_the_three_mean_annual_tables) {
  kelptest::put(m.ledgers.QNETMEAN, std::array{1.5, 2.5, -3.5, 1e15});
  m.ledgers.QLEFTMEAN.fill(-7.0);
  m.ledgers.QRIGHTMEAN.fill(8.0);
  open();
  tables.write_means(m.ledgers, 20010101);
  EXPECT_EQ(lines("mqn")[1],
            "20010101              2.              2.             -4.*" + std::string(15, '*'));
  EXPECT_EQ(kelptest::read_table(folder.read("run.mql"), 16).rows[0],
            (std::vector<double>{-7, -7, -7, -7}));
  EXPECT_EQ(kelptest::read_table(folder.read("run.mqr"), 16).rows[0],
            (std::vector<double>{8, 8, 8, 8}));
}

TEST_F(TablesTest, values_that_are_no_numbers_are_written_as_such) {
  kelptest::put(m.shore.Y, std::array{std::nan(""), HUGE_VAL, -HUGE_VAL});
  open();
  tables.write_state(m);
  EXPECT_EQ(lines("slo")[1], "19970203           NaN      Infinity     -Infinity");
}

}  // namespace
}  // namespace kelprun
