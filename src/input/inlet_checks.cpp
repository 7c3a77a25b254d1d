#include "input/inlet_checks.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "input/demands.h"
#include "model/capacities.h"
#include "text/standard_error.h"
#include "text/stop.h"

namespace kelprun {

namespace {

std::string inlet_text(std::int32_t k) { return "inlet " + std::to_string(k); }

/// The mouths read two walls of the beach on each side.
void check_inlet_place(const Inlets& n, std::int32_t k, std::int32_t NX) {
  constexpr std::int32_t BEACH = 2;
  const std::int32_t L = n.IINLS(k);
  const std::int32_t R = n.IINLE(k);
  if (R < L)
    fatal("IINLE " + std::to_string(R) + " of " + inlet_text(k) + " lies before its IINLS " +
          std::to_string(L));
  if (L <= BEACH || R > NX - BEACH)
    fatal(inlet_text(k) + ", cells " + std::to_string(L) + " to " + std::to_string(R) +
          ", needs two cells of beach on each side");
  for (std::int32_t j = 1; j < k; ++j) {
    if (L <= n.IINLE(j) && R >= n.IINLS(j)) fatal(inlet_text(k) + " overlaps " + inlet_text(j));
    if (L <= n.IINLE(j) + BEACH && R >= n.IINLS(j) - BEACH)
      fatal(inlet_text(k) + " and " + inlet_text(j) + " need two cells of beach between them");
  }
}

void check_placement_cells(const Inlets& n, std::int32_t k) {
  for (const auto& [first, last] :
       {std::pair(n.IBYPL1(k), n.IBYPL2(k)), std::pair(n.IBYPR1(k), n.IBYPR2(k))})
    if (last - first >= capacity::CELLS)
      fatal(inlet_text(k) + ": placement cells " + std::to_string(first) + " to " +
            std::to_string(last) + " are more than a coast has");
}

/// Every rate between shoals and bars is a share of an equilibrium volume.
void check_equilibrium_volumes(const Inlets& n, std::int32_t k) {
  const auto demand = [&](const char* keyword, const Array1<float>& volumes) {
    demand_positive(keyword + (" of " + inlet_text(k)), volumes(k));
  };
  demand("VVSEQ", n.VVSEQ);
  demand("VVSFQ", n.VVSFQ);
  demand("VVSBQL", n.VVSBQL);
  demand("VVSBQR", n.VVSBQR);
  demand("VVSAQL", n.VVSAQL);
  demand("VVSAQR", n.VVSAQR);
}

/// An event without a first date never acts, whatever its rate.
void check_dredgings(const std::vector<Dredging>& dredgings) {
  for (const Dredging& event : dredgings)
    if (event.IDREDS != 0 && !std::isfinite(event.DREDQ))
      fatal("dredging event " + std::to_string(event.event) + " of " + inlet_text(event.inlet) +
            ": DREDV needs a DRDAY before it, not 0");
}

/// Sand that comes out of an attachment bar without a place to go is lost.
void warn_of_missing_placement(const Inlets& n, std::int32_t NX) {
  const auto warn = [](std::int32_t k, const char* first, const char* last) {
    warning_line(inlet_text(k) + " has no placement cells " + first + " to " + last +
                 " in the grid: sand that passes to that side is lost");
  };
  const auto missing = [NX](std::int32_t first, std::int32_t last) {
    return std::max(first, 1) > std::min(last, NX);
  };
  for (std::int32_t k = 1; k <= n.NINL; ++k) {
    if (missing(n.IBYPL1(k), n.IBYPL2(k))) warn(k, "IBYPL1", "IBYPL2");
    if (missing(n.IBYPR1(k), n.IBYPR2(k))) warn(k, "IBYPR1", "IBYPR2");
  }
}

/// DREDV is a rate by the DT and DRDAY that stand ahead of it.
void warn_of_idle_dredging(const std::vector<Dredging>& dredgings) {
  for (const Dredging& event : dredgings)
    if (event.IDREDS != 0 && event.DREDQ == 0.0f)
      warning_line("dredging event " + std::to_string(event.event) + " of " +
                   inlet_text(event.inlet) +
                   " moves nothing: DT and DRDAY must stand ahead of DREDV");
}

}  // namespace

void refuse_inlets(const Inlets& n, std::int32_t NX) {
  for (std::int32_t k = 1; k <= n.NINL; ++k) {
    check_inlet_place(n, k, NX);
    check_placement_cells(n, k);
    check_equilibrium_volumes(n, k);
  }
  check_dredgings(n.dredgings);
}

void warn_of_inlets(const Inlets& n, std::int32_t NX) {
  warn_of_missing_placement(n, NX);
  warn_of_idle_dredging(n.dredgings);
}

}  // namespace kelprun
