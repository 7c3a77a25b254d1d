#include "input/structure_lists.h"

#include <algorithm>

#include "input/refusal.h"
#include "model/capacities.h"
#include "model/diffraction.h"

namespace kelprun {

namespace {

void scale(Array1<float>& values, float factor) {
  for (float& value : values) value *= factor;
}

void check_non_diffracting(const Grid& grid, const Settings& settings, Groins& g) {
  if (g.NNDG == 0) return;
  if (g.NNDG > capacity::NON_DIFFRACTING_GROINS)
    refuse_limit({" ERROR. TOO MANY NON-DIFFRACTING GROINS. PLEASE",
                  " CHANGE VALUE OF \"NNDG\" IN YOUR .spd FILE."},
                 capacity::NON_DIFFRACTING_GROINS);
  if (g.IXNDG(1) < 1 || g.IXNDG(g.NNDG) > grid.NX + 1)
    refuse({" ERROR. NON-DIFFRACTING GROIN OUTSIDE CALCULATION GRID.",
            " PLEASE CHANGE IN YOUR .spd FILE."});
  scale(g.YNDG, settings.CONV);
}

void check_diffracting(const Grid& grid, const Settings& settings, Groins& g) {
  if (g.NDG == 0) return;
  if (g.NDG > capacity::DIFFRACTING_GROINS)
    refuse_limit({" ERROR. TOO MANY DIFFRACTING GROINS. PLEASE CHANGE",
                  " VALUE OF \"NDG\" IN YOUR .spd FILE."},
                 capacity::DIFFRACTING_GROINS);
  if (g.IXDG(1) < 1 || g.IXDG(g.NDG) > grid.NX + 1)
    refuse({" ERROR. DIFFRACTING GROIN OUTSIDE CALCULATION",
            " GRID. PLEASE CHANGE IN YOUR .spd FILE."});
  scale(g.YDG, settings.CONV);
  scale(g.DDG, settings.CONV);
}

/// A diffracting groin goes first where both kinds stand at one wall.
void merge_groins(Groins& g) {
  std::int32_t i = 1;
  std::int32_t j = 1;
  while (i <= g.NNDG || j <= g.NDG) {
    const std::int32_t plain = i <= g.NNDG ? g.IXNDG(i) : EXHAUSTED;
    const std::int32_t diffracting = j <= g.NDG ? g.IXDG(j) : EXHAUSTED;
    if (plain < diffracting) {
      g.IXGRP.append(plain);
      g.YGT.append(g.YNDG(i));
      g.PGR.append(g.PNDG(i));
      ++i;
    } else {
      g.IXGRP.append(diffracting);
      g.YGT.append(g.YDG(j));
      g.PGR.append(g.PDG(j));
      ++j;
    }
  }
  g.NGRP = g.IXGRP.size();
}

void check_distances(const Grid& grid, const Groins& g) {
  if (g.NGRP == 0) return;
  if (g.IXGRP(1) == 2 || g.IXGRP(g.NGRP) == grid.NX)
    refuse({" ERROR. GROIN NEXT TO GRID BOUNDARY. ",
            " MOVE GROIN OR GRID ONE STEP IN EITHER DIRECTION."});
  for (std::int32_t k = 2; k <= g.NGRP; ++k)
    if (g.IXGRP(k) - g.IXGRP(k - 1) < 2)
      refuse({" ERROR. GROINS MUST BE SEPARATED BY AT LEAST",
              " TWO CALCULATION CELLS. PLEASE CHANGE."});
}

void check_breakwater_ends(const Grid& grid, const Groins& g, const Array1<Tip>& tips) {
  const Tip& first = tips(1);
  const Tip& last = tips(tips.size());
  if (first.cell == 1) {
    if (!has_groin_at(g, 1))
      refuse({" ERROR. DETACHED BREAKWATER ENDING ON OPEN ", " LEFT-HAND BOUNDARY NOT ALLOWED. ",
              " PLEASE CHANGE IN YOUR .spd FILE."});
    if (has_diffracting_groin_at(g, 1) && g.YDG(1) != first.Y)
      refuse({" ERROR. DETACHED BREAKWATER AND DIFFRACTING  GROIN ON",
              " LEFT-HAND BOUNDARY MUST BE CONNECTED.  PLEASE CHANGE", " IN YOUR .spd FILE."});
  }
  if (g.NGRP > 0 && last.cell == grid.NX + 1) {
    if (!has_groin_at(g, grid.NX + 1))
      refuse({" ERROR. DETACHED BREAKWATER ENDING ON OPEN ", " RIGHT-HAND BOUNDARY NOT ALLOWED. ",
              " PLEASE CHANGE IN YOUR .spd FILE."});
    if (has_diffracting_groin_at(g, grid.NX + 1) && g.YDG(g.NDG) != last.Y)
      refuse({" ERROR. DETACHED BREAKWATER AND DIFFRACTING GROIN ON",
              " RIGHT-HAND BOUNDARY MUST BE CONNECTED.  PLEASE CHANGE", " IN YOUR .spd FILE."});
  }
  if (first.cell < 1 || last.cell > grid.NX + 1)
    refuse({" ERROR. DETACHED BREAKWATER TIP OUTSIDE ",
            " CALCULATION GRID. PLEASE CHANGE IN YOUR .kelFILE."});
}

/// Inner diffracting groins stand twice in a row, because each has a zone on either side.
void double_groin_tips(const Grid& grid, const Groins& g, Array1<Tip>& groin_tips) {
  for (std::int32_t j = 1; j <= g.NDG; ++j) {
    const Tip tip{g.IXDG(j), g.YDG(j), g.DDG(j)};
    groin_tips.append(tip);
    if (tip.cell != 1 && tip.cell != grid.NX + 1) groin_tips.append(tip);
  }
}

void merge_by_cell(Tips& t) {
  const auto& breakwaters = t.breakwater_tips;
  const auto& groins = t.groin_tips;
  std::int32_t i = 1;
  std::int32_t j = 1;
  const auto cell = [](const Array1<Tip>& list, std::int32_t entry) {
    return entry <= list.size() ? list(entry).cell : EXHAUSTED;
  };
  while (i <= breakwaters.size() || j <= groins.size()) {
    if (cell(groins, j) < cell(breakwaters, i)) {
      t.tips.append(groins(j++));
      continue;
    }
    const Tip taken = breakwaters(i++);
    t.tips.append(taken);
    if (j > groins.size() || groins(j).cell != taken.cell) continue;
    const float groin_Y = groins(j).Y;
    const bool next_at_cell = cell(breakwaters, i) == taken.cell;
    if (groin_Y > taken.Y || (groin_Y < taken.Y && next_at_cell))
      refuse({" ERROR. DETACHED BREAKWATER CAN ONLY", " CONNECT TO A GROIN AT THE GROIN TIP.",
              " PLEASE CONSULT YOUR MANUAL."});
  }
}

bool tips_overlap(const Array1<Tip>& tips) {
  if (tips.size() <= 2) return false;
  for (std::int32_t i = 2; i <= tips.size(); ++i)
    if (tips(i).cell != LAST_TIP && tips(i).cell < tips(i - 1).cell) return true;
  return false;
}

bool groin_between_tips(const Array1<Tip>& tips, const Array1<Tip>& groin_tips) {
  if (groin_tips.empty() || tips.empty()) return false;
  const std::int32_t first_right_tip = tips(1).cell == LEFT_END_TIP ? 3 : 2;
  for (std::int32_t i = first_right_tip; i <= tips.size(); i += 2)
    for (const Tip& groin : groin_tips)
      if (groin.cell > tips(i - 1).cell && groin.cell < tips(i).cell) return true;
  return false;
}

}  // namespace

bool has_groin_at(const Groins& g, std::int32_t wall) {
  return g.NGRP > 0 && (g.IXGRP(1) == wall || g.IXGRP(g.NGRP) == wall);
}

bool has_diffracting_groin_at(const Groins& g, std::int32_t wall) {
  return g.NDG > 0 && (g.IXDG(1) == wall || g.IXDG(g.NDG) == wall);
}

void check_groins(Model& m) {
  check_non_diffracting(m.grid, m.settings, m.groins);
  check_diffracting(m.grid, m.settings, m.groins);
  merge_groins(m.groins);
  check_distances(m.grid, m.groins);
}

void check_breakwaters(Model& m) {
  Breakwaters& b = m.breakwaters;
  if (b.NDB == 0) return;
  if (b.NDB > capacity::BREAKWATERS)
    refuse_limit({" ERROR. TOO MANY DETACHED BREAKWATERS. PLEASE",
                  " CHANGE VALUE OF \"NDB\" IN YOUR .spd FILE."},
                 capacity::BREAKWATERS);
  for (Array1<float>* lengths : {&b.DBY1, &b.DBY2, &b.DBDEP1, &b.DBDEP2})
    scale(*lengths, m.settings.CONV);
  for (std::int32_t k = 1; k <= b.NDB; ++k) {
    m.tips.breakwater_tips.append({b.DBI1(k), b.DBY1(k), b.DBDEP1(k)});
    m.tips.breakwater_tips.append({b.DBI2(k), b.DBY2(k), b.DBDEP2(k)});
  }
  check_breakwater_ends(m.grid, m.groins, m.tips.breakwater_tips);
  if (m.settings.KTMETFLAG == 1) b.TRANDB.fill(0.5f);
  std::replace(b.TRANDB.begin(), b.TRANDB.end(), OPEN_WATER, NEARLY_OPEN);
}

void insert_left_end(Tips& t) {
  Array1<Tip> with_end;
  with_end.append({LEFT_END_TIP, 0.0f, 0.0f});
  for (const Tip& tip : t.breakwater_tips) with_end.append(tip);
  t.breakwater_tips = with_end;
}

void append_right_end(Tips& t) { t.breakwater_tips.append({RIGHT_END_TIP, 0.0f, 0.0f}); }

void merge_tips(Model& m) {
  Tips& t = m.tips;
  double_groin_tips(m.grid, m.groins, t.groin_tips);
  const std::int32_t total = t.breakwater_tips.size() + t.groin_tips.size();
  if (total < 1) {
    t.tips.append({LEFT_END_TIP, 0.0f, 0.0f});
    t.tips.append({LAST_TIP, 0.0f, 0.0f});
  } else {
    merge_by_cell(t);
  }
  if (!has_diffracting_groin_at(m.groins, m.grid.NX + 1)) {
    if (!t.breakwater_tips.empty()) t.breakwater_tips(t.breakwater_tips.size()).cell = LAST_TIP;
    t.tips(t.tips.size()).cell = LAST_TIP;
  }
  const bool both = m.breakwaters.NDB > 0 && m.groins.NDG > 0;
  if (tips_overlap(t.breakwater_tips) ||
      (both && groin_between_tips(t.breakwater_tips, t.groin_tips)))
    refuse({" ERROR. DIFFRACTING STRUCTURES OVERLAP.", " PLEASE CONSULT YOUR MANUAL."});
  t.NZ = total / 2;
}

void check_groins_on_breakwaters(const Groins& g, const Breakwaters& b, Report& report) {
  for (std::int32_t j = 1; j <= g.NNDG; ++j) {
    for (std::int32_t k = 1; k <= b.NDB; ++k) {
      const bool left = b.DBI1(k) == g.IXNDG(j) && g.YNDG(j) >= b.DBY1(k);
      const bool right = b.DBI2(k) == g.IXNDG(j) && g.YNDG(j) >= b.DBY2(k);
      if (!left && !right) continue;
      report.line(" ERROR. GROIN CONNECTED TO DETACHED BREAKWATER MUST BE");
      report.line(" CLASSIFIED AS A DIFFRACTING GROIN. PLEASE CHANGE YOUR .spd FILE.");
      fatal("ERROR.  Non-Diffracting groin connected to breakwater");
    }
  }
}

}  // namespace kelprun
