#include "input/keyword_actions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "unit/input/reading.h"

namespace {

using kelptest::Lines;
using kelptest::values_of;
using Ints = std::vector<std::int32_t>;
using Reals = std::vector<float>;

class list_keywords : public kelptest::ReadingTest {
 protected:
  void read_lines(const Lines& more_lines) {
    read({}, more_lines);
    expect_accepted();
  }
};

Lines times(int count, const std::string& line) {
  return Lines(static_cast<std::size_t>(count), line);
}

// Positional lists.

TEST_F(list_keywords, each_list_counts_its_own_lines) {
  read_lines({"YNDG: 80", "YNDG: 90", "IXNDG: 5", "PNDG: 0.1", "IXNDG: 9", "YNDG: 100", "IXNDG: 13",
              "PNDG: 0.2"});
  const kelprun::Groins& g = model().groins;
  EXPECT_EQ(g.NNDG, 3);
  EXPECT_EQ(values_of(g.IXNDG), (Ints{5, 9, 13}));
  EXPECT_EQ(values_of(g.YNDG), (Reals{80.0f, 90.0f, 100.0f}));
  EXPECT_EQ(values_of(g.PNDG), (Reals{0.1f, 0.2f, 0.0f})) << "what lacks is 0";
}

TEST_F(list_keywords, the_count_keyword_alone_says_how_many_there_are) {
  read_lines({"IXNDG: 5", "YNDG: 80", "YNDG: 90", "PNDG: 0.1", "PNDG: 0.2", "PNDG: 0.3"});
  const kelprun::Groins& g = model().groins;
  EXPECT_EQ(g.NNDG, 1);
  EXPECT_EQ(values_of(g.YNDG), (Reals{80.0f}));
  EXPECT_EQ(values_of(g.PNDG), (Reals{0.1f}));
}

TEST_F(list_keywords, an_item_that_is_not_there_still_takes_its_place) {
  read_lines({"IXNDG: 5", "IXNDG: 9", "YNDG: /", "YNDG: 90"});
  EXPECT_EQ(values_of(model().groins.YNDG), (Reals{0.0f, 90.0f}));
}

TEST_F(list_keywords, a_depth_at_a_groin_that_is_not_there_leaves_its_place_at_zero) {
  read_lines({"IXDG: 5", "IXDG: 9", "IXDG: 13", "DDG: 3", "DDG: ,", "DDG: 5"});
  EXPECT_EQ(values_of(model().groins.DDG), (Reals{3.0f, 0.0f, 5.0f}));
}

TEST_F(list_keywords, breakwaters_are_filled_by_the_order_of_their_lines) {
  read_lines({"DBI1: 5", "DBI2: 8", "DBI1: 11", "DBI2: 15", "DBY1: 200", "DBY1: 210", "DBY2: 220",
              "DBDEP1: 4", "DBDEP2: 5", "DBDEP2: 6", "HDB: 1", "HDB: 2", "BDB: 3", "SSDB: 1.5",
              "SHSDB: 2.5"});
  const kelprun::Breakwaters& b = model().breakwaters;
  EXPECT_EQ(b.NDB, 2);
  EXPECT_EQ(values_of(b.DBI1), (Ints{5, 11}));
  EXPECT_EQ(values_of(b.DBI2), (Ints{8, 15}));
  EXPECT_EQ(values_of(b.DBY1), (Reals{200.0f, 210.0f}));
  EXPECT_EQ(values_of(b.DBY2), (Reals{220.0f, 0.0f}));
  EXPECT_EQ(values_of(b.DBDEP1), (Reals{4.0f, 0.0f}));
  EXPECT_EQ(values_of(b.DBDEP2), (Reals{5.0f, 6.0f}));
  EXPECT_EQ(values_of(b.HDB), (Reals{1.0f, 2.0f}));
  EXPECT_EQ(values_of(b.BDB), (Reals{3.0f, 0.0f}));
  EXPECT_EQ(values_of(b.SSDB), (Reals{1.5f, 0.0f}));
  EXPECT_EQ(values_of(b.SHSDB), (Reals{2.5f, 0.0f}));
}

TEST_F(list_keywords, fills_bypasses_and_print_dates_append) {
  read_lines({"BFDATS: 19970110", "BFDATE: 19970120", "IBFS: 3", "IBFE: 6", "YADD: 12.5",
              "BPDATS: 10", "BPDATE: 20", "IBPS: 4", "IBPE: 7", "QBP: -0.5", "BFDATS: 30",
              "PRDATE: 19970105", "PRDATE: 9"});
  const kelprun::Events& e = model().events;
  EXPECT_EQ(e.NBF, 2);
  EXPECT_EQ(values_of(e.BFDATS), (Ints{19970110, 30}));
  EXPECT_EQ(values_of(e.BFDATE), (Ints{19970120, 0}));
  EXPECT_EQ(values_of(e.IBFS), (Ints{3, 0}));
  EXPECT_EQ(values_of(e.IBFE), (Ints{6, 0}));
  EXPECT_EQ(values_of(e.YADD), (Reals{12.5f, 0.0f}));
  EXPECT_EQ(e.NBP, 1);
  EXPECT_EQ(values_of(e.BPDATS), Ints{10});
  EXPECT_EQ(values_of(e.BPDATE), Ints{20});
  EXPECT_EQ(values_of(e.IBPS), Ints{4});
  EXPECT_EQ(values_of(e.IBPE), Ints{7});
  EXPECT_EQ(values_of(e.QBP), std::vector<double>{-0.5});
  EXPECT_EQ(model().settings.NOUT, 2);
  EXPECT_EQ(values_of(model().settings.PRDATE), (Ints{19970105, 9}));
}

// Items at another keyword's count.

TEST_F(list_keywords, the_end_of_a_seawall_belongs_to_the_wall_opened_last) {
  read_lines(
      {"ISWBEG: 3", "ISWBEG: 8", "ISWEND: 12", "ISWEND: 10", "SWY1: 1", "SWY1: 2", "SWY2: 3"});
  const kelprun::Seawalls& s = model().seawalls;
  EXPECT_EQ(s.NSW, 2);
  EXPECT_EQ(values_of(s.ISWBEG), (Ints{3, 8}));
  EXPECT_EQ(values_of(s.ISWEND), (Ints{0, 10})) << "the second line wrote over the first";
  EXPECT_EQ(values_of(s.SWY1), (Reals{1.0f, 2.0f}));
  EXPECT_EQ(values_of(s.SWY2), (Reals{3.0f, 0.0f}));
}

TEST_F(list_keywords, the_second_budget_items_belong_to_the_first_ones_opened_last) {
  read_lines({"ILEDGV1: 1", "ILEDGV2: 5", "ILEDGV1: 6", "ILEDGV2: 10", "ILEDGQ1: 2", "ILEDGQ1: 4",
              "ILEDGQ2: 7"});
  const kelprun::Budget& b = model().budget;
  EXPECT_EQ(b.NLEDGV, 2);
  EXPECT_EQ(values_of(b.ILEDGV1), (Ints{1, 6}));
  EXPECT_EQ(values_of(b.ILEDGV2), (Ints{5, 10}));
  EXPECT_EQ(b.NLEDGQ, 2);
  EXPECT_EQ(values_of(b.ILEDGQ1), (Ints{2, 4}));
  EXPECT_EQ(values_of(b.ILEDGQ2), (Ints{0, 7}));
}

TEST_F(list_keywords, an_item_before_its_opener_is_refused_by_both_names) {
  const std::pair<const char*, const char*> cases[] = {
      {"ISWEND: 5", "ISWBEG"}, {"ILEDGV2: 5", "ILEDGV1"}, {"ILEDGQ2: 5", "ILEDGQ1"},
      {"D50DB: 5", "KTMETDB"}, {"PDB: 5", "KTMETDB"},     {"INLNAME: North", "IINLS"},
      {"JBCL: 5", "IINLS"},    {"JBCR: 5", "IINLS"},      {"IMOR: 5", "IINLS"},
      {"IDREDS: 5", "IINLS"},  {"IDREDE: 5", "IINLS"},    {"DREDV: 5", "IINLS"},
      {"DRDAY: 5", "IINLS"}};
  for (const auto& [line, opener] : cases) {
    read({}, {line});
    const std::string keyword = std::string(line).substr(0, std::string(line).find(':'));
    expect_fatal(keyword + " stands before any " + opener + " line");
  }
}

TEST_F(list_keywords, a_dredging_item_before_its_event_is_refused) {
  for (const std::string keyword : {"IDREDS", "IDREDE", "DREDV"}) {
    read({}, {"IINLS: 5", keyword + ": 5"});
    expect_fatal(keyword + " stands before any IMOR line");
  }
}

// Past the capacity.

TEST_F(list_keywords, a_count_keyword_goes_on_counting_past_its_capacity) {
  Lines lines = times(260, "IXNDG: 5");
  for (const auto& [count, line] : {std::pair{255, "IXDG: 5"},
                                    {130, "DBI1: 5"},
                                    {252, "BPDATS: 5"},
                                    {251, "BFDATS: 5"},
                                    {503, "PRDATE: 5"},
                                    {4002, "ISWBEG: 5"},
                                    {251, "IINLS: 5"},
                                    {501, "ILEDGV1: 5"},
                                    {502, "ILEDGQ1: 5"}})
    for (const std::string& more : times(count, line)) lines.push_back(more);
  lines.push_back("DDG: 1");
  read_lines(lines);
  const kelprun::Model& m = model();
  EXPECT_EQ(m.groins.NNDG, 260);
  EXPECT_EQ(m.groins.IXNDG.size(), 250);
  EXPECT_EQ(m.groins.NDG, 255);
  EXPECT_EQ(m.groins.IXDG.size(), 250);
  EXPECT_EQ(m.breakwaters.NDB, 130);
  EXPECT_EQ(m.breakwaters.DBI1.size(), 125);
  EXPECT_EQ(m.events.NBP, 252);
  EXPECT_EQ(m.events.BPDATS.size(), 250);
  EXPECT_EQ(m.events.NBF, 251);
  EXPECT_EQ(m.events.BFDATS.size(), 250);
  EXPECT_EQ(m.settings.NOUT, 503);
  EXPECT_EQ(m.settings.PRDATE.size(), 500);
  EXPECT_EQ(m.seawalls.NSW, 4002);
  EXPECT_EQ(m.seawalls.ISWBEG.size(), 4000);
  EXPECT_EQ(m.inlets.NINL, 251);
  EXPECT_EQ(m.inlets.IINLS.size(), 250);
  EXPECT_EQ(m.budget.NLEDGV, 501);
  EXPECT_EQ(m.budget.ILEDGV1.size(), 500);
  EXPECT_EQ(m.budget.NLEDGQ, 502);
  EXPECT_EQ(m.budget.ILEDGQ1.size(), 500);
}

TEST_F(list_keywords, what_goes_past_a_capacity_touches_no_stored_value) {
  Lines lines = times(125, "DBI1: 5");
  lines.push_back("DBI1: 9");
  for (const std::string& more : times(4000, "ISWBEG: 7")) lines.push_back(more);
  lines.insert(lines.end(), {"ISWEND: 11", "ISWBEG: 8", "ISWEND: 12"});
  read_lines(lines);
  for (const std::int32_t cell : model().breakwaters.DBI1) EXPECT_EQ(cell, 5);
  EXPECT_EQ(model().seawalls.ISWEND(4000), 11);
}

// Second names of the first bypass entries.

TEST_F(list_keywords, the_second_names_write_the_first_bypass_entries_without_counting) {
  read_lines({"BPDATS: 10", "BPDATE: 20", "IBPS: 4", "IBPE: 7", "BPDATS: 30", "BPDATE: 40",
              "IBPS: 5", "IBPE: 8", "QQDATS: 11", "QQDATE: 21", "IQQS: 3", "IQQE: 9"});
  const kelprun::Events& e = model().events;
  EXPECT_EQ(e.NBP, 2);
  EXPECT_EQ(values_of(e.BPDATS), (Ints{11, 30}));
  EXPECT_EQ(values_of(e.BPDATE), (Ints{21, 40}));
  EXPECT_EQ(values_of(e.IBPS), (Ints{3, 5}));
  EXPECT_EQ(values_of(e.IBPE), (Ints{9, 8}));
}

TEST_F(list_keywords, a_second_name_ahead_of_the_list_yields_to_its_first_line_only) {
  read_lines({"QQDATS: 11", "QQDATE: 21", "IQQS: 3", "IQQE: 9", "BPDATS: 10", "IBPS: 4"});
  const kelprun::Events& e = model().events;
  EXPECT_EQ(e.NBP, 1);
  EXPECT_EQ(values_of(e.BPDATS), Ints{10});
  EXPECT_EQ(values_of(e.BPDATE), Ints{21}) << "no line of its own came behind it";
  EXPECT_EQ(values_of(e.IBPS), Ints{4});
  EXPECT_EQ(values_of(e.IBPE), Ints{9});
}

TEST_F(list_keywords, second_names_alone_make_no_bypass_operation) {
  read_lines({"QQDATS: 11", "QQDATE: 21", "IQQS: 3", "IQQE: 9"});
  EXPECT_EQ(model().events.NBP, 0);
}

// Breakwater transmission.

TEST_F(list_keywords, the_last_of_both_transmission_keywords_decides_for_all_breakwaters) {
  read_lines({"DBI1: 5", "KTMETDB: 2", "TRANDB: 0.3"});
  EXPECT_EQ(model().settings.KTMETFLAG, 0);
  read_lines({"DBI1: 5", "TRANDB: 0.3", "KTMETDB: 2"});
  EXPECT_EQ(model().settings.KTMETFLAG, 1);
}

TEST_F(list_keywords, a_transmission_method_sets_what_it_does_not_use) {
  read_lines({"DBI1: 5", "DBI1: 8", "DBI1: 11", "DBI1: 14", "KTMETDB: 3", "PDB: 0.4", "D50DB: 0.7",
              "KTMETDB: 0", "D50DB: 0.8", "KTMETDB: 1", "KTMETDB: 2", "PDB: 0.6"});
  const kelprun::Breakwaters& b = model().breakwaters;
  EXPECT_EQ(values_of(b.KTMETDB), (Ints{3, 0, 1, 2}));
  EXPECT_EQ(values_of(b.PDB), (Reals{0.4f, 1.0f, 1.0f, 0.6f}));
  EXPECT_EQ(values_of(b.D50DB), (Reals{0.7f, 0.8f, 0.0f, 0.0f}));
}

// Inlets and dredging.

TEST_F(list_keywords, starred_items_belong_to_the_inlet_opened_last) {
  read_lines({"IINLS: 4", "INLNAME: \"North Inlet\"", "JBCL: 1.5", "IINLS: 12", "IINLE: 6",
              "IINLE: 14", "JBCL: 2.5", "JBCR: 3.5", "INLNAME: South", "YINLL: 7", "IBYPL1: 2",
              "IBYPL2: 3", "IBYPR1: 7", "IBYPR2: 8", "YINLR: 9"});
  const kelprun::Inlets& n = model().inlets;
  EXPECT_EQ(n.NINL, 2);
  EXPECT_EQ(values_of(n.IINLE), (Ints{6, 14}));
  EXPECT_EQ(values_of(n.INLNAME), (std::vector<std::string>{"North Inlet", "South"}));
  EXPECT_EQ(values_of(n.JBCL), (Reals{1.5f, 2.5f}));
  EXPECT_EQ(values_of(n.JBCR), (Reals{0.0f, 3.5f}));
  EXPECT_EQ(values_of(n.YINLL), (Reals{7.0f, 0.0f}));
  EXPECT_EQ(values_of(n.YINLR), (Reals{9.0f, 0.0f}));
  EXPECT_EQ(values_of(n.IBYPL1), (Ints{2, 0}));
  EXPECT_EQ(values_of(n.IBYPL2), (Ints{3, 0}));
  EXPECT_EQ(values_of(n.IBYPR1), (Ints{7, 0}));
  EXPECT_EQ(values_of(n.IBYPR2), (Ints{8, 0}));
}

TEST_F(list_keywords, dredging_events_are_counted_through_all_inlets) {
  read_lines({"DT: 2", "IINLS: 4", "IMOR: 1", "IDREDS: 100", "IDREDE: 200", "DRDAY: 10",
              "DREDV: 4800", "IMOR: 2", "IINLS: 12", "IMOR: 6", "DRDAY: 5", "DREDV: 1200"});
  const kelprun::Inlets& n = model().inlets;
  EXPECT_EQ(n.DREDFLAG, 1);
  EXPECT_EQ(values_of(n.NDRED), (Ints{2, 3}));
  ASSERT_EQ(n.dredgings.size(), 3u);
  EXPECT_EQ(n.dredgings[0].inlet, 1);
  EXPECT_EQ(n.dredgings[0].event, 1);
  EXPECT_EQ(n.dredgings[0].IMOR, 1);
  EXPECT_EQ(n.dredgings[0].IDREDS, 100);
  EXPECT_EQ(n.dredgings[0].IDREDE, 200);
  EXPECT_EQ(n.dredgings[0].DREDQ, 40.0f) << "4800 over 10 days, in steps of 2 hours";
  EXPECT_EQ(n.dredgings[1].event, 2);
  EXPECT_EQ(n.dredgings[1].DREDQ, 0.0f);
  EXPECT_EQ(n.dredgings[2].inlet, 2);
  EXPECT_EQ(n.dredgings[2].event, 3);
  EXPECT_EQ(n.dredgings[2].IMOR, 6);
  EXPECT_EQ(n.dredgings[2].DREDQ, 20.0f);
}

TEST_F(list_keywords, a_dredged_volume_ahead_of_its_days_is_divided_by_zero_or_by_the_last_days) {
  read_lines(
      {"IINLS: 4", "IMOR: 1", "DREDV: 4800", "DRDAY: 10", "IMOR: 2", "DREDV: 4800", "DRDAY: 20"});
  const kelprun::Inlets& n = model().inlets;
  ASSERT_EQ(n.dredgings.size(), 2u);
  EXPECT_EQ(n.dredgings[0].DREDQ, std::numeric_limits<float>::infinity());
  EXPECT_EQ(n.dredgings[1].DREDQ, 20.0f) << "hourly steps, the 10 days of the event before";
}

TEST_F(list_keywords, a_dredged_volume_ahead_of_the_step_length_gives_no_rate) {
  read_text("KELPRUN:\nIINLS: 4\nIMOR: 1\nDRDAY: 10\nDREDV: 4800\nDT: 1\n");
  EXPECT_EQ(model().inlets.dredgings.at(0).DREDQ, 0.0f);
}

TEST_F(list_keywords, an_equilibrium_volume_of_zero_is_replaced_and_told) {
  for (const std::string keyword : {"VVSEQ", "VVSFQ", "VVSBQL", "VVSBQR", "VVSAQL", "VVSAQR"}) {
    read_lines({"IINLS: 4", keyword + ": 0"});
    const std::string message = " " + keyword + " cannot = 0; resetting to 0.00001";
    EXPECT_TRUE(said(message)) << keyword;
    EXPECT_EQ(report_text(), message + "\n");
  }
  read_lines({"IINLS: 4", "IINLS: 8", "VVSEQ: 250", "VVSEQ: 0"});
  EXPECT_EQ(values_of(model().inlets.VVSEQ), (Reals{250.0f, 0.00001f}));
  EXPECT_EQ(values_of(model().inlets.VVSFQ), (Reals{0.0f, 0.0f})) << "silence is not replaced";
}

TEST_F(list_keywords, a_replaced_volume_reaches_the_report_only_behind_its_name) {
  read({{"PRFILE", ""}}, {"IINLS: 4", "VVSEQ: 0", "PRFILE: run.prt", "VVSFQ: 0"});
  expect_accepted();
  EXPECT_TRUE(said(" VVSEQ cannot = 0; resetting to 0.00001"));
  EXPECT_EQ(report_text(), " VVSFQ cannot = 0; resetting to 0.00001\n");
}

TEST_F(list_keywords, the_six_volumes_and_their_equilibria_are_told_apart) {
  read_lines({"IINLS: 4", "VVSE: 1", "VVSF: 2", "VVSBL: 3", "VVSBR: 4", "VVSAL: 5", "VVSAR: 6",
              "VVSEQ: 11", "VVSFQ: 12", "VVSBQL: 13", "VVSBQR: 14", "VVSAQL: 15", "VVSAQR: 16"});
  const kelprun::Inlets& n = model().inlets;
  EXPECT_EQ((Reals{n.VVSE(1), n.VVSF(1), n.VVSBL(1), n.VVSBR(1), n.VVSAL(1), n.VVSAR(1)}),
            (Reals{1.0f, 2.0f, 3.0f, 4.0f, 5.0f, 6.0f}));
  EXPECT_EQ((Reals{n.VVSEQ(1), n.VVSFQ(1), n.VVSBQL(1), n.VVSBQR(1), n.VVSAQL(1), n.VVSAQR(1)}),
            (Reals{11.0f, 12.0f, 13.0f, 14.0f, 15.0f, 16.0f}));
}

// Groins in coast order.

TEST_F(list_keywords, groins_are_sorted_by_wall_with_all_that_belongs_to_them) {
  read_lines({"IXNDG: 13", "IXNDG: 5", "IXNDG: 9", "YNDG: 130", "YNDG: 50", "YNDG: 90",
              "PNDG: 0.13", "PNDG: 0.05", "PNDG: 0.09", "IXDG: 7", "IXDG: 3", "YDG: 70", "YDG: 30",
              "DDG: 7", "DDG: 3", "PDG: 0.7", "PDG: 0.3"});
  const kelprun::Groins& g = model().groins;
  EXPECT_EQ(values_of(g.IXNDG), (Ints{5, 9, 13}));
  EXPECT_EQ(values_of(g.YNDG), (Reals{50.0f, 90.0f, 130.0f}));
  EXPECT_EQ(values_of(g.PNDG), (Reals{0.05f, 0.09f, 0.13f}));
  EXPECT_EQ(values_of(g.IXDG), (Ints{3, 7}));
  EXPECT_EQ(values_of(g.YDG), (Reals{30.0f, 70.0f}));
  EXPECT_EQ(values_of(g.DDG), (Reals{3.0f, 7.0f}));
  EXPECT_EQ(values_of(g.PDG), (Reals{0.3f, 0.7f}));
}

TEST_F(list_keywords, swapping_the_smallest_into_place_can_turn_equal_walls_round) {
  // 9a 9b 5: the 5 changes places with 9a, which then stands behind 9b.
  read_lines({"IXNDG: 9", "IXNDG: 9", "IXNDG: 5", "YNDG: 1", "YNDG: 2", "YNDG: 3"});
  EXPECT_EQ(values_of(model().groins.IXNDG), (Ints{5, 9, 9}));
  EXPECT_EQ(values_of(model().groins.YNDG), (Reals{3.0f, 2.0f, 1.0f}));
}

TEST_F(list_keywords, equal_walls_that_need_no_swap_keep_their_order) {
  read_lines(
      {"IXNDG: 5", "IXNDG: 9", "IXNDG: 9", "IXNDG: 9", "YNDG: 1", "YNDG: 2", "YNDG: 3", "YNDG: 4"});
  EXPECT_EQ(values_of(model().groins.YNDG), (Reals{1.0f, 2.0f, 3.0f, 4.0f}));
}

TEST_F(list_keywords, nothing_else_is_sorted) {
  read_lines({"DBI1: 13", "DBI1: 5", "ISWBEG: 9", "ISWBEG: 2", "PRDATE: 30", "PRDATE: 10"});
  EXPECT_EQ(values_of(model().breakwaters.DBI1), (Ints{13, 5}));
  EXPECT_EQ(values_of(model().seawalls.ISWBEG), (Ints{9, 2}));
  EXPECT_EQ(values_of(model().settings.PRDATE), (Ints{30, 10}));
}

TEST_F(list_keywords, diffracting_groins_want_a_depth_in_the_last_line_that_gives_one) {
  const std::string message =
      " Diffracting groin depth file DDG omitted or set to  zero in config file";
  for (const Lines& depths : {Lines{}, Lines{"DDG: 0"}, Lines{"DDG: 4", "DDG: 0"}}) {
    Lines all = {"IXDG: 5", "IXDG: 9"};
    all.insert(all.end(), depths.begin(), depths.end());
    read({}, all);
    EXPECT_FALSE(now->accepted);
    EXPECT_FALSE(now->said.status.has_value());
    EXPECT_EQ(kelptest::lines(now->said.out).back(), message);
  }
  read_lines({"IXDG: 5", "IXDG: 9", "DDG: 0", "DDG: 4"});
  read_lines({"DDG: 0"});
}

}  // namespace
