#include "runs/wrong_input/family.h"

/// Structures, events, inlets and budget lists whose cells, walls and values no coast of 20 cells
/// (21 walls) can have.
namespace kelptest {
namespace {

Lines plain_groin(const std::string& wall, const std::string& permeability = "0") {
  return {"IXNDG: " + wall, "YNDG: 200", "PNDG: " + permeability};
}

Lines diffracting_groin(const std::string& wall, const std::string& depth = "4",
                        const std::string& permeability = "0") {
  return {"IXDG: " + wall, "YDG: 200", "DDG: " + depth, "PDG: " + permeability};
}

Lines breakwater(const std::string& left, const std::string& right,
                 const Lines& more = {"DBDEP1: 3", "DBDEP2: 3", "TRANDB: 0.5"}) {
  return all({{"DBI1: " + left, "DBI2: " + right, "DBY1: 300", "DBY2: 300"}, more});
}

Lines seawall(const std::string& first, const std::string& last) {
  return {"ISWBEG: " + first, "ISWEND: " + last, "SWY1: 50", "SWY2: 50"};
}

Lines fill(const std::string& first, const std::string& last, const std::string& start = "1",
           const std::string& end = "5") {
  return {"BFDATS: " + start, "BFDATE: " + end, "IBFS: " + first, "IBFE: " + last, "YADD: 5"};
}

Lines bypass(const std::string& first, const std::string& last) {
  return {"BPDATS: 1", "BPDATE: 5", "IBPS: " + first, "IBPE: " + last, "QBP: 10"};
}

Lines repeated(int count, const Lines& record) {
  Lines result;
  for (int k = 1; k <= count; ++k) result.insert(result.end(), record.begin(), record.end());
  return result;
}

Wrong refused(const std::string& name, const Lines& more_lines, const Lines& told) {
  return {.name = name, .more_lines = more_lines, .told = told};
}

/// What is refused while the configuration is still being read, at this one of the further lines.
Wrong refused_at(int line, const std::string& name, const Lines& more_lines, const Lines& told) {
  return {.name = name,
          .more_lines = more_lines,
          .place = "run.cfg: line " + std::to_string(first_further_line({}) + line - 1) + ": ",
          .told = told,
          .kept = Kept::report_and_tables};
}

/// What is refused once the tables are open.
Wrong refused_late(const std::string& name, const Lines& more_lines, const Lines& told) {
  return {.name = name, .more_lines = more_lines, .told = told, .kept = Kept::nothing};
}

TEST(structures, that_the_following_tests_make_wrong_are_right_to_begin_with) {
  for (const Lines& right :
       {plain_groin("8"), diffracting_groin("8"), breakwater("5", "10"), seawall("3", "9"),
        fill("3", "9"), bypass("3", "9"), all({inlet(9, 11), placement(7, 13)}),
        Lines{"ILEDGV1: 3", "ILEDGV2: 9", "ILEDGQ1: 3", "ILEDGQ2: 9"}}) {
    SCOPED_TRACE(right.front());
    Case run({}, right);
    run.run();
    expect_completed(run);
  }
}

TEST(wrong_groins, are_refused) {
  Family rows("groins");
  for (const std::string wall : {"0", "-3", "22", "99999999", "-9999999"}) {
    rows.refuse(refused("non-diffracting at " + wall, plain_groin(wall),
                        {"NON-DIFFRACTING GROIN OUTSIDE CALCULATION GRID"}));
    rows.refuse(refused("diffracting at " + wall, diffracting_groin(wall),
                        {"DIFFRACTING GROIN OUTSIDE CALCULATION"}));
  }
  for (const std::string wall : {"2", "20"}) {
    rows.refuse(refused("beside an end", plain_groin(wall), {"GROIN NEXT TO GRID BOUNDARY"}));
    rows.refuse(refused("beside an end", diffracting_groin(wall), {"GROIN NEXT TO GRID BOUNDARY"}));
  }
  const Lines close{"GROINS MUST BE SEPARATED BY AT LEAST", "TWO CALCULATION CELLS"};
  rows.refuse(refused("one wall", all({plain_groin("8"), diffracting_groin("8")}), close));
  rows.refuse(refused("one cell apart", all({plain_groin("9"), plain_groin("8")}), close));
  rows.refuse(
      refused("one cell apart", all({diffracting_groin("9"), diffracting_groin("8")}), close));
  for (const std::string depth : {"0", "-4", "-1e-30"})
    rows.refuse(refused("depth " + depth,
                        all({diffracting_groin("8", depth), diffracting_groin("12", "4")}),
                        {"DDG of the groin at wall 8 must be above 0"}));
  rows.refuse({.name = "without a depth",
               .more_lines = {"IXDG: 8", "YDG: 200"},
               .told = {"groin depth", "DDG omitted"},
               .kept = Kept::report_and_tables});
  for (const std::string permeability : {"1.001", "50", "1e30"}) {
    rows.refuse(refused("permeability " + permeability, plain_groin("8", permeability),
                        {"PNDG of the groin at wall 8 must not be above 1"}));
    rows.refuse(refused("permeability " + permeability, diffracting_groin("8", "4", permeability),
                        {"PDG of the groin at wall 8 must not be above 1"}));
  }
  rows.refuse(refused("251 of a kind", repeated(251, plain_groin("8")),
                      {"TOO MANY NON-DIFFRACTING GROINS", "250"}));
  rows.refuse(refused("251 of a kind", repeated(251, diffracting_groin("8")),
                      {"TOO MANY DIFFRACTING GROINS", "250"}));
  rows.refuse(refused_late("non-diffracting at a breakwater",
                           all({{"IXNDG: 10", "YNDG: 300", "PNDG: 0"}, breakwater("5", "10")}),
                           {"Non-Diffracting groin connected to breakwater"}));
}

TEST(wrong_breakwaters, are_refused) {
  Family rows("breakwaters");
  for (const std::string left : {"0", "-1", "-9999999"})
    rows.refuse(
        refused("left tip " + left, breakwater(left, "5"), {"BREAKWATER TIP OUTSIDE", "GRID"}));
  for (const std::string right : {"22", "99999999"})
    rows.refuse(
        refused("right tip " + right, breakwater("15", right), {"BREAKWATER TIP OUTSIDE", "GRID"}));
  rows.refuse(refused("first of two outside on the right",
                      all({breakwater("15", "25"), breakwater("3", "5")}), {"DBI2", "25", "21"}));
  rows.refuse(refused("second of two outside on the left",
                      all({breakwater("8", "9"), breakwater("0", "5")}), {"DBI1", "0", "1 to 21"}));
  rows.refuse(refused("open left end", breakwater("1", "5"), {"OPEN", "LEFT-HAND BOUNDARY"}));
  rows.refuse(refused("open right end", all({plain_groin("8"), breakwater("15", "21")}),
                      {"OPEN", "RIGHT-HAND BOUNDARY"}));
  rows.refuse(refused("no right tip", {"DBI1: 5", "DBY1: 300", "DBDEP1: 3"}, {"DBI2", "0"}));
  rows.refuse(refused("no extent", breakwater("5", "5"), {"DBI2 of breakwater 1", "DBI1", "5"}));
  rows.refuse(refused("ends exchanged", breakwater("10", "5"), {"DIFFRACTING STRUCTURES OVERLAP"}));
  rows.refuse(refused("overlapping", all({breakwater("5", "12"), breakwater("9", "16")}),
                      {"DIFFRACTING STRUCTURES OVERLAP"}));
  rows.refuse(refused("in descending order", all({breakwater("12", "16"), breakwater("5", "8")}),
                      {"DIFFRACTING STRUCTURES OVERLAP"}));
  rows.refuse(refused("around a groin", all({breakwater("5", "12"), diffracting_groin("8")}),
                      {"DIFFRACTING STRUCTURES OVERLAP"}));
  for (const std::string depth : {"0", "-3"}) {
    rows.refuse(refused("left depth " + depth,
                        breakwater("5", "10", {"DBDEP1: " + depth, "DBDEP2: 3", "TRANDB: 0.5"}),
                        {"DBDEP1 of breakwater 1 must be above 0"}));
    rows.refuse(refused("right depth " + depth,
                        breakwater("5", "10", {"DBDEP1: 3", "DBDEP2: " + depth, "TRANDB: 0.5"}),
                        {"DBDEP2 of breakwater 1 must be above 0"}));
  }
  rows.refuse(refused("without depths", breakwater("5", "10", {"TRANDB: 0.5"}), {"DBDEP1"}));
  rows.refuse(refused("transmission below 0",
                      breakwater("5", "10", {"DBDEP1: 3", "DBDEP2: 3", "TRANDB: -0.1"}),
                      {"TRANDB of breakwater 1", "-0.1"}));
  rows.refuse(refused("transmission without water levels",
                      breakwater("5", "10", {"DBDEP1: 3", "DBDEP2: 3", "KTMETDB: 2"}),
                      {"WLFILE", "KTMETDB"}));
  for (const std::string stones : {"PDB", "D50DB"})
    rows.refuse(refused_at(1, stones + " ahead of its method", {stones + ": 1", "KTMETDB: 1"},
                           {stones + " stands before any KTMETDB"}));
  rows.refuse(
      refused("126 of them", repeated(126, breakwater("5", "10")), {"TOO MANY DETACHED", "125"}));
}

TEST(wrong_seawalls, are_refused) {
  Family rows("seawalls");
  for (const std::string cell : {"0", "-1", "21", "99999999"}) {
    rows.refuse(refused("from " + cell, seawall(cell, "9"), {"ISWBEG " + cell, "1 to 20"}));
    rows.refuse(refused("to " + cell, seawall("3", cell), {"ISWEND " + cell, "1 to 20"}));
  }
  rows.refuse(refused("without an end", {"ISWBEG: 3", "SWY1: 50", "SWY2: 50"}, {"ISWEND 0"}));
  rows.refuse(refused("ends exchanged", all({seawall("3", "5"), seawall("12", "8")}),
                      {"ISWEND 8 of seawall 2", "before its ISWBEG 12"}));
  rows.refuse(refused_at(1, "end ahead of the beginning", {"ISWEND: 9", "ISWBEG: 3"},
                         {"ISWEND stands before any ISWBEG"}));
  rows.refuse(refused("4001 of them", repeated(4001, {"ISWBEG: 3", "ISWEND: 9"}),
                      {"ISWBEG", "4001", "4000"}));
}

TEST(wrong_fills, are_refused) {
  Family rows("fills");
  for (const auto& [first, last] : std::vector<std::pair<std::string, std::string>>{
           {"0", "21"}, {"-5", "99999999"}, {"-9999999", "21"}})
    rows.refuse(refused(first + " to " + last, fill(first, last),
                        {"BEACH FILL IS OUTSIDE CALCULATION GRID"}));
  for (const auto& [first, last] :
       std::vector<std::pair<std::string, std::string>>{{"9", "3"}, {"99999999", "1"}, {"3", "0"}})
    rows.refuse(refused(first + " to " + last, fill(first, last),
                        {"START X-COORDINATE OF BEACH FILL IS .GT. END"}));
  rows.refuse(refused("wrong second of two", all({fill("3", "9"), fill("12", "11")}),
                      {"START X-COORDINATE OF BEACH FILL IS .GT. END"}));
  const Lines dates{"Incorrect format on beach fill dates"};
  rows.refuse(refused_late("month 13", fill("3", "9", "19971301", "19980101"), dates));
  rows.refuse(refused_late("end in month 99", fill("3", "9", "19970101", "19979901"), dates));
  rows.refuse(refused_late("day 32", fill("3", "9", "19970132", "19970301"), dates));
  rows.refuse(refused_late("end on day 99", fill("3", "9", "19970101", "19970199"), dates));
  rows.refuse(refused("251 of them", repeated(251, fill("3", "9")), {"BFDATS", "251", "250"}));
}

TEST(wrong_bypass_operations, are_refused) {
  Family rows("bypass operations");
  for (const auto& [first, last] : std::vector<std::pair<std::string, std::string>>{
           {"0", "9"}, {"-5", "9"}, {"3", "21"}, {"3", "99999999"}, {"0", "0"}})
    rows.refuse(refused_late(first + " to " + last, bypass(first, last),
                             {"Bypassed material placed outside calculation grid"}));
  for (const auto& [first, last] :
       std::vector<std::pair<std::string, std::string>>{{"9", "3"}, {"99999999", "1"}})
    rows.refuse(refused_late(first + " to " + last, bypass(first, last),
                             {"Bypass start coordinate is greater than end coordinate"}));
  rows.refuse(refused_late("without cells", {"BPDATS: 1", "BPDATE: 5", "QBP: 10"},
                           {"placed outside calculation grid"}));
  rows.refuse(refused_late("251 of them", repeated(251, bypass("3", "9")),
                           {"Too many bypassing operations"}));
}

TEST(wrong_inlets, are_refused) {
  Family rows("inlets");
  for (const int cell : {0, -1, 21, 99999999}) {
    const std::string text = std::to_string(cell);
    rows.refuse(refused("from " + text, inlet(cell, 11), {"IINLS " + text, "1 to 20"}));
    rows.refuse(refused("to " + text, inlet(9, cell), {"IINLE " + text, "1 to 20"}));
  }
  rows.refuse(refused("ends exchanged", inlet(11, 9), {"IINLE 9 of inlet 1", "IINLS 11"}));
  rows.refuse(refused("at the left end", inlet(2, 5), {"inlet 1", "two cells of beach"}));
  rows.refuse(refused("at the right end", inlet(15, 19), {"inlet 1", "two cells of beach"}));
  rows.refuse(refused("two at one place", all({inlet(9, 11), inlet(11, 12)}),
                      {"inlet 2 overlaps inlet 1"}));
  rows.refuse(refused("two side by side", all({inlet(6, 7), inlet(9, 11)}),
                      {"inlet 2 and inlet 1", "two cells of beach"}));
  rows.refuse(refused("placement over all numbers",
                      all({inlet(9, 11), {"IBYPL1: -9999999", "IBYPL2: 99999999"}}),
                      {"inlet 1", "placement cells -9999999 to 99999999"}));
  for (const std::string volume : {"VVSEQ", "VVSFQ", "VVSBQL", "VVSBQR", "VVSAQL", "VVSAQR"}) {
    Lines lines = inlet(9, 11);
    std::erase_if(lines, [&](const std::string& line) { return line.starts_with(volume + ":"); });
    rows.refuse(refused("without " + volume, lines, {volume + " of inlet 1 must be above 0"}));
    lines.push_back(volume + ": -5");
    rows.refuse(refused(volume + " -5", lines, {volume + " of inlet 1 must be above 0", "-5."}));
  }
  for (const std::string line : {"INLNAME: Pass", "JBCL: 1", "JBCR: 1", "IMOR: 1",
                                 "IDREDS: 19970101", "IDREDE: 19970102", "DRDAY: 1", "DREDV: 1"}) {
    const std::string keyword = line.substr(0, line.find(':'));
    rows.refuse(refused_at(1, keyword + " ahead of its inlet", all({{line}, inlet(9, 11)}),
                           {keyword + " stands before any IINLS"}));
  }
  for (const std::string line : {"IDREDS: 19970101", "IDREDE: 19970102", "DREDV: 1"}) {
    const std::string keyword = line.substr(0, line.find(':'));
    rows.refuse(refused_at(9, keyword + " ahead of its event", all({inlet(9, 11), {line}}),
                           {keyword + " stands before any IMOR"}));
  }
  for (const std::string days : {"DRDAY: 0", "DRDAY:"})
    rows.refuse(refused("dredging over no days",
                        all({inlet(9, 11), {"IMOR: 3", "IDREDS: 19970101", days, "DREDV: 10"}}),
                        {"dredging event 1 of inlet 1", "DRDAY"}));
  rows.refuse(
      refused("251 of them", repeated(251, {"IINLS: 9", "IINLE: 11"}), {"IINLS", "251", "250"}));
  Wrong events = refused_at(25009, "25001 dredging events",
                            all({inlet(9, 11), repeated(25001, {"IMOR: 3"})}), {"IMOR", "25000"});
  rows.refuse(events);
  rows.refuse(
      {.name = "two of one name",
       .more_lines = all({inlet(5, 6), {"INLNAME: East"}, inlet(12, 13), {"INLNAME: East"}}),
       .told = {"East.irv", "same file"},
       .kept = Kept::report_and_tables});
  rows.refuse({.name = "named over the shoreline",
               .changes = {{"INIFILE", "East.irv"}},
               .more_lines = all({inlet(9, 11), {"INLNAME: East"}}),
               .files = {{"East.irv", values_file(std::vector<double>(20, 100.0))}},
               .told = {"East.irv", "overwrite the input file"},
               .kept = Kept::report_and_tables});
}

TEST(wrong_budget_lists, are_refused) {
  Family rows("budget lists");
  const auto list = [](const std::string& name, const std::string& first, const std::string& last) {
    return Lines{name + "1: " + first, name + "2: " + last};
  };
  for (const std::string cell : {"0", "-1", "21", "99999999"}) {
    rows.refuse(refused("cell", list("ILEDGV", cell, "9"), {"ILEDGV1 " + cell, "1 to 20"}));
    rows.refuse(refused("cell", list("ILEDGV", "3", cell), {"ILEDGV2 " + cell, "1 to 20"}));
  }
  for (const std::string wall : {"0", "-1", "22", "99999999"}) {
    rows.refuse(refused("arrow", list("ILEDGQ", wall, "9"), {"ILEDGQ1 " + wall, "1 to 21"}));
    rows.refuse(refused("arrow", list("ILEDGQ", "3", wall), {"ILEDGQ2 " + wall, "1 to 21"}));
  }
  for (const std::string name : {"ILEDGV", "ILEDGQ"}) {
    rows.refuse(refused("without an end", {name + "1: 3"}, {name + "2 0"}));
    rows.refuse(refused_at(1, "end ahead of the beginning", {name + "2: 9", name + "1: 3"},
                           {name + "2 stands before any " + name + "1"}));
    rows.refuse(
        refused("501 of them", repeated(501, list(name, "3", "9")), {name + "1", "501", "500"}));
  }
}

TEST(wrong_ends_of_the_grid, are_refused) {
  Family rows("ends of the grid");
  for (const auto& [keyword, side, mover] : std::vector<std::array<std::string, 3>>{
           {"LBCTYPE", "LEFT-HAND", "LMOVPER"}, {"RBCTYPE", "RIGHT-HAND", "RMOVPER"}}) {
    for (const std::string type : {"-1", "4", "99999999"})
      rows.refuse(Wrong{.name = keyword + " " + type,
                        .changes = {{keyword, type}},
                        .told = {"INVALID BOUNDARY CONDITION", side, keyword}});
    for (const std::string period : {"0", "4", "-1", ""})
      rows.refuse(Wrong{.name = mover + " " + period,
                        .changes = {{keyword, "3"}, {mover, period}},
                        .told = {"INVALID BOUNDARY MOVEMENT PERIOD", side, mover}});
    for (const std::string type : {"0", "3"})
      rows.refuse(Wrong{.name = keyword + " " + type + " with a groin",
                        .changes = {{keyword, type}, {mover, "1"}},
                        .more_lines = plain_groin(keyword == "LBCTYPE" ? "1" : "21"),
                        .told = {"GROIN ARE SPECIFIED ON THE " + side}});
  }
  for (const std::string type : {"1", "2"})
    rows.refuse(Wrong{.name = "gate without a groin",
                      .changes = {{"RBCTYPE", type}},
                      .told = {"GATED BOUNDARY CONDITION", "NO GROIN SPECIFIED AT N+1"}});
}

}  // namespace
}  // namespace kelptest
