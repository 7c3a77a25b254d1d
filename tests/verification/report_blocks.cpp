#include <gtest/gtest.h>

#include <algorithm>

#include "verification/report_fixture.h"

// The blocks of whole reports by their titles, in their order.

namespace {

using namespace kelptest;

class report_blocks : public ReportTest {};

INSTANTIATE_TEST_SUITE_P(of, report_blocks, testing::ValuesIn(REPORTED), name_of_coast);

std::vector<std::string> head_titles(const ReportedRun& run, const std::string& L) {
  const bool feet = run.feet();
  return {"  RUN       test",
          feet ? "  AMERICAN CUSTOMARY UNITS" : "  METRIC UNITS",
          run.one.wave_feet ? "  Wave heights input and reported in feet"
                            : "  Wave heights input and reported in meters",
          "  Median Grain Size (D50) input and reported in     millimeters",
          "  GROIN X-COORDINATES",
          "  DISTANCE TO GROIN TIPS FROM X-AXIS",
          "  GROIN PERMEABILITIES",
          "  X-COORDINATES OF DETACHED BREAKWATER TIPS",
          "  DISTANCE TO BREAKWATER TIPS FROM X-AXIS",
          "  DETACHED BREAKWATER TRANSMISSION COEFFICIENTS",
          feet ? " DX =  328.0    DT =" : " DX =  100.0    DT =",
          " NWAVES =  1    NWFIL =  1.0   D50 =    0.2    WMDEP  =   " +
              std::string(feet ? "65.6" : "20.0"),
          "  Wave Height Amplification Factor (HAMP or HCNGF) =",
          "  Wave Angle Amplification Factor (THETAAMP or ZCNGF) =",
          "  Wave Angle Incremental Adjustment Term (THETADEL or ZCNGA) =",
          "  Longshore Sediment Transport Coefficient (K1) =",
          "  Longshore Sediment Transport Coefficient 2 (K2) =",
          "  Depth of Closure (DCLOS) =",
          "  Average Berm Height (ABH) =",
          "  INITIAL SHORELINE POSITION " + L};
}

/// " (M3) FROM 19970101 TO 19980101" with the unit word of the last year block.
std::string from_to(const std::string& V, bool thousands, int from, int to) {
  return " (" + V + (thousands ? "/1000) FROM " : ") FROM ") + std::to_string(from) + " TO " +
         std::to_string(to);
}

std::vector<std::string> print_titles(const std::string& L, const std::string& label,
                                      const std::string& period, int ITS, int date) {
  return {"  SHORELINE POSITION " + L + " AFTER " + std::to_string(ITS) + " TIME STEPS. DATE IS " +
              std::to_string(date),
          "  MEAN ANNUALIZED NET TRANSPORT" + period,
          "  MEAN ANNUALIZED TRANSPORT TO THE LEFT" + period,
          "  MEAN ANNUALIZED TRANSPORT TO THE RIGHT" + period,
          "  CALCULATED VOLUME CHANGE (" + label + " PER GRID CELL) ",
          "  CALCULATED VOLUME CHANGE (" + label + " PER LINEAR " + L.substr(1) + " ",
          " CALCULATED TOTAL VOLUMETRIC CHANGE = "};
}

std::vector<std::string> year_titles(const Reported& one, const std::string& period, int years,
                                     int ITS, int date) {
  const std::string dated = std::to_string(date);
  const std::string after = std::string(one.unit == 1.0 ? "(m)   " : "(ft)  ") + " AFTER " +
                            std::to_string(years) + " YEARS  = " + std::to_string(ITS) +
                            " TIME STEPS.  DATE IS " + dated;
  const std::string height = std::string(one.wave_feet ? "(ft)  " : "(m)   ") + " DATE IS " + dated;
  return {" SHORELINE POSITION " + after,
          " SHORELINE CHANGE " + after,
          " BREAKING WAVE ANGLE TO X-AXIS (Deg). DATE IS " + dated,
          " OFFSHORE WAVE ANGLE TO X-AXIS (Deg). DATE IS " + dated,
          " BREAKING WAVE HEIGHT " + height,
          " OFFSHORE WAVE HEIGHT " + height,
          " ********************",
          "  GROSS TRANSPORT VOLUME" + period,
          "  NET TRANSPORT VOLUME" + period,
          "  TRANSPORT VOLUME TO THE LEFT" + period,
          "  TRANSPORT VOLUME TO THE RIGHT" + period};
}

std::vector<std::string> closing_titles(const ReportedRun& run, const std::string& L,
                                        const std::string& V, const std::string& label) {
  const std::string thousands = run.feet() ? "(YARDS3/1000)" : "(M3/1000) ";
  std::vector<std::string> titles{"  MEAN NET ANNUAL TRANSPORT " + thousands,
                                  "  MEAN ANNUAL TRANSPORT TO THE LEFT " + thousands,
                                  "  MEAN ANNUAL TRANSPORT TO THE RIGHT " + thousands,
                                  " OUTPUT LAST TIMESTEP NO. " + std::to_string(run.steps()) +
                                      " DATE IS " +
                                      std::to_string(run.record(run.steps()).NEXTDATE),
                                  "  OFFSHORE WAVE DATA INPUT:",
                                  "   HZ =",
                                  "  OUTPUT OF UNDIFFRACTED BREAKING WAVE STATISITCS",
                                  "  N.B. THESE VALUES ARE NOT SMOOTHED!",
                                  "   X-COORD.   H-MEAN   H52-MEAN   ZBS-MEAN   ZB-MEAN    HZ-MEAN",
                                  " LONGSHORE TRANSPORT FOR LAST TIME STEP *100 " +
                                      std::string(run.feet() ? "" : " ") + "(" + V + "/SEC)",
                                  "  CALCULATED FINAL SHORELINE POSITION " + L,
                                  "  CALCULATED SEAWARDMOST SHORELINE POSITION " + L,
                                  "  CALCULATED LANDWARDMOST SHORELINE POSITION " + L,
                                  "  CALCULATED REPRESENTATIVE OFFSHORE CONTOUR POSITION " + L};
  if (run.one.computed)
    titles.insert(titles.end(), {"  DETACHED BREAKWATER KT STATISTICS: ", "  AVG KT VALUE(S)  = ",
                                 "  MAX KT VALUE(S)  = ", "  MIN KT VALUE(S)  = "});
  titles.insert(titles.end(),
                {"  CALCULATED VOLUME CHANGE (" + label + " PER GRID CELL) ",
                 "  CALCULATED VOLUME CHANGE (" + label + " PER LINEAR " + L.substr(1) + " "});
  return titles;
}

bool contains(const std::vector<int>& numbers, int number) {
  return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

TEST_P(report_blocks, stand_in_their_order) {
  std::vector<std::string> titles = head_titles(run, L());
  const auto add = [&](const std::vector<std::string>& more) {
    titles.insert(titles.end(), more.begin(), more.end());
  };
  int from = run.one.start;
  int last_year_block = 0;
  bool thousands = false;
  for (int n = 1; n <= run.steps(); ++n) {
    const int date = run.record(n).NEXTDATE;
    if (n == run.steps()) titles.emplace_back("  LAST TIME STEP. DIFFRACTED WAVES ALONGSHORE");
    if (contains(run.print_steps, n))
      add(print_titles(L(), label(), from_to(V(), thousands, from, date), n, date));
    if (!contains(run.year_steps, n)) continue;
    thousands = run.sums(last_year_block + 1, n).largest_gross() > 100000.0;
    add(year_titles(run.one, from_to(V(), thousands, from, date), (date - run.one.start) / 10000, n,
                    date));
    from = date;
    last_year_block = n;
  }
  add(closing_titles(run, L(), V(), label()));
  std::size_t k = 0;
  for (const Block& block : run.report.blocks()) {
    if (k == titles.size()) break;
    EXPECT_TRUE(block.title.starts_with(titles[k]))
        << "'" << block.title << "' stands for '" << titles[k] << "'";
    ++k;
  }
  // The budget follows, then the total and the last line.
  const auto& blocks = run.report.blocks();
  ASSERT_GT(blocks.size(), titles.size() + 5);
  EXPECT_EQ(blocks[titles.size()].title, " " + std::string(63, '*'));
  EXPECT_EQ(blocks[titles.size() + 1].title,
            " *                         LEDG OUTPUT                         *");
  EXPECT_EQ(blocks[blocks.size() - 3].title, " " + std::string(63, '*'));
  EXPECT_TRUE(
      blocks[blocks.size() - 2].title.starts_with(" CALCULATED TOTAL VOLUMETRIC CHANGE = "));
  EXPECT_EQ(blocks.back().title, "  SIGN CONVENTION:  EROSION (-), ACCRETION (+)");
}

}  // namespace
