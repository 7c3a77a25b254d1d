#pragma once

#include <cstdint>

#include "unit/run/small_model.h"

namespace kelptest {

/// Opens an inlet over cells `first` to `last`, without placement cells, its sides to be derived
/// and the boundary values 1. Its shoals and bars stand at their equilibrium, so that all sand that
/// arrives passes through at once.
inline void add_inlet(kelprun::Model& m, std::int32_t first, std::int32_t last) {
  kelprun::Inlets& n = m.inlets;
  ++n.NINL;
  n.IINLS.append(first);
  n.IINLE.append(last);
  n.INLNAME.append("");
  for (auto* cells : {&n.IBYPL1, &n.IBYPL2, &n.IBYPR1, &n.IBYPR2}) cells->append(0);
  for (auto* volumes : {&n.VVSE, &n.VVSF, &n.VVSBL, &n.VVSBR, &n.VVSAL, &n.VVSAR, &n.VVSEQ,
                        &n.VVSFQ, &n.VVSBQL, &n.VVSBQR, &n.VVSAQL, &n.VVSAQR})
    volumes->append(4096.0f);
  for (auto* side : {&n.YINLL, &n.YINLR}) side->append(0.0f);
  for (auto* value : {&n.JBCL, &n.JBCR}) value->append(1.0f);
  n.NDRED.append(0);
}

/// Empties the shoals and bars of inlet k.
inline void empty_shoals(kelprun::Model& m, std::int32_t k) {
  kelprun::Inlets& n = m.inlets;
  for (auto* volumes : {&n.VVSE, &n.VVSF, &n.VVSBL, &n.VVSBR, &n.VVSAL, &n.VVSAR})
    (*volumes)(k) = 0.0f;
}

}  // namespace kelptest
