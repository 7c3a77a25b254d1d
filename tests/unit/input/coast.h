#pragma once

#include <cstdint>
#include <vector>

#include "input/boundary_checks.h"
#include "input/structure_lists.h"
#include "model/model.h"
#include "unit/text/stops.h"

namespace kelptest {

/// A coast of 20 cells in metres with pinned ends, to which a test adds its structures.
struct Coast {
  kelprun::Model model;

  Coast() {
    model.grid.NX = 20;
    model.settings.CONV = 1.0f;
    model.clock.NTS = 240;
    model.clock.SPD = 24.0f;
  }

  void plain_groin(std::int32_t wall, float Y = 100.0f, float permeability = 0.0f) {
    kelprun::Groins& g = model.groins;
    ++g.NNDG;
    g.IXNDG.append(wall);
    g.YNDG.append(Y);
    g.PNDG.append(permeability);
  }

  void diffracting_groin(std::int32_t wall, float Y = 100.0f, float D = 4.0f,
                         float permeability = 0.0f) {
    kelprun::Groins& g = model.groins;
    ++g.NDG;
    g.IXDG.append(wall);
    g.YDG.append(Y);
    g.DDG.append(D);
    g.PDG.append(permeability);
  }

  void breakwater(std::int32_t left, std::int32_t right, float Y1 = 100.0f, float Y2 = 100.0f,
                  float D1 = 5.0f, float D2 = 6.0f) {
    kelprun::Breakwaters& b = model.breakwaters;
    ++b.NDB;
    b.DBI1.append(left);
    b.DBI2.append(right);
    b.DBY1.append(Y1);
    b.DBY2.append(Y2);
    b.DBDEP1.append(D1);
    b.DBDEP2.append(D2);
    b.TRANDB.append(0.25f);
  }

  /// Both ends become groins, of type 1.
  void groin_ends() {
    for (kelprun::Boundary* end : {&model.boundaries.left, &model.boundaries.right}) {
      end->BCTYPE = 1;
      end->GROINY = 10.0f;
    }
  }

  /// Builds all lists in the order of the checks.
  Said build() {
    return listen([&] {
      kelprun::check_groins(model);
      kelprun::check_breakwaters(model);
      kelprun::check_left_boundary(model);
      kelprun::check_right_boundary(model);
      kelprun::merge_tips(model);
    });
  }
};

inline std::vector<std::int32_t> cells(const kelprun::Array1<kelprun::Tip>& tips) {
  std::vector<std::int32_t> all;
  for (const kelprun::Tip& tip : tips) all.push_back(tip.cell);
  return all;
}

}  // namespace kelptest
