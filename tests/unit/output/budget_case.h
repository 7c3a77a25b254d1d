#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "output/budget_report.h"
#include "unit/inlets/inlet_case.h"
#include "unit/output/report_case.h"

/// What the tests of the sediment budget share.
namespace kelptest {

using Lines = std::vector<std::string>;

inline const Lines BUDGET_HEAD{" " + std::string(46, ' '), " " + std::string(63, '*'),
                               " *                         LEDG OUTPUT                         *",
                               " " + std::string(63, '*')};
inline const Lines BUDGET_END{"  SIGN CONVENTION:  EROSION (-), ACCRETION (+)",
                              " " + std::string(46, ' '), " " + std::string(63, '*')};

/// Ten cells over two years of 365 days, so that a rate is half a volume.
class BudgetReport : public testing::Test {
 protected:
  BudgetReport() : m(coast_in_metres(10)) { m.clock.NDAYS = 730; }

  /// Lengths in feet, volumes in cubic yards.
  void use_feet() {
    m = coast_in_feet(10);
    m.clock.NDAYS = 730;
  }

  void add_cell(std::int32_t first, std::int32_t last) {
    ++m.budget.NLEDGV;
    m.budget.ILEDGV1.append(first);
    m.budget.ILEDGV2.append(last);
  }

  void add_arrow(std::int32_t first, std::int32_t last) {
    ++m.budget.NLEDGQ;
    m.budget.ILEDGQ1.append(first);
    m.budget.ILEDGQ2.append(last);
  }

  kelprun::InletFlow& add_inlet(std::int32_t first, std::int32_t last,
                                const std::string& name = "South") {
    kelptest::add_inlet(m, first, last);
    m.inlets.INLNAME(m.inlets.NINL) = name;
    m.inlets.flows.resize(static_cast<std::size_t>(m.inlets.NINL));
    return m.inlets.flows(m.inlets.NINL);
  }

  Lines whole() { return report_of(m, kelprun::report_budget); }

  /// The entries between head and end.
  Lines entries() {
    const Lines all = whole();
    EXPECT_GE(all.size(), BUDGET_HEAD.size() + BUDGET_END.size());
    if (all.size() < BUDGET_HEAD.size() + BUDGET_END.size()) return {};
    const Lines head(all.begin(), all.begin() + 4);
    const Lines end(all.end() - 3, all.end());
    EXPECT_EQ(head, BUDGET_HEAD);
    EXPECT_EQ(end, BUDGET_END);
    return {all.begin() + 4, all.end() - 3};
  }

  /// What stands behind the range and the volume change of the only budget cell.
  Lines behind_volume_change() {
    const Lines all = entries();
    EXPECT_GE(all.size(), 7u);
    EXPECT_EQ(all[6], "");
    return {all.begin() + 7, all.end()};
  }

  /// What stands behind the two walls of the only arrow.
  Lines behind_walls() {
    const Lines all = entries();
    EXPECT_GE(all.size(), 14u);
    return {all.begin() + 14, all.end()};
  }

  kelprun::Model m;
};

}  // namespace kelptest
