#pragma once

#include <array>
#include <cstddef>

#include "inlets/shoals.h"

/// What the tests of the shoals share.
namespace kelptest {

/// Storage for `count` inlets: all shoals and bars empty, with an equilibrium volume of 10^6 m3.
inline kelprun::Inlets empty_inlets(std::size_t count) {
  kelprun::Inlets n;
  n.NINL = static_cast<std::int32_t>(count);
  for (auto* volumes : {&n.VVSE, &n.VVSF, &n.VVSBL, &n.VVSBR, &n.VVSAL, &n.VVSAR})
    volumes->allocate(count);
  for (auto* volumes : {&n.VVSEQ, &n.VVSFQ, &n.VVSBQL, &n.VVSBQR, &n.VVSAQL, &n.VVSAQR})
    volumes->allocate(count, 1000000.0f);
  n.NDRED.allocate(count);
  n.flows.allocate(count);
  return n;
}

/// The six present volumes of inlet k: left attachment and bypass bar, ebb and flood shoal, right
/// bypass and attachment bar.
inline std::array<float, 6> volumes_of(const kelprun::Inlets& n, std::int32_t k) {
  return {n.VVSAL(k), n.VVSBL(k), n.VVSE(k), n.VVSF(k), n.VVSBR(k), n.VVSAR(k)};
}

}  // namespace kelptest
