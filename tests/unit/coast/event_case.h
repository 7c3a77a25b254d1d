#pragma once

#include <cstdint>

#include "model/model.h"

/// What the tests of fills and bypass operations share.
namespace kelptest {

struct Window {
  std::int32_t start, end;
};

struct Stretch {
  std::int32_t first, last;
};

inline void add_fill(kelprun::Model& m, Window w, Stretch cells, float YADD) {
  kelprun::Events& e = m.events;
  ++e.NBF;
  e.BFDATS.append(w.start);
  e.BFDATE.append(w.end);
  e.IBFS.append(cells.first);
  e.IBFE.append(cells.last);
  e.YADD.append(YADD);
}

inline void add_bypass(kelprun::Model& m, Window w, Stretch cells, double QBP) {
  kelprun::Events& e = m.events;
  ++e.NBP;
  e.BPDATS.append(w.start);
  e.BPDATE.append(w.end);
  e.IBPS.append(cells.first);
  e.IBPE.append(cells.last);
  e.QBP.append(QBP);
}

}  // namespace kelptest
