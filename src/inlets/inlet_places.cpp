#include "inlets/inlet_places.h"

#include <algorithm>
#include <cstdlib>

namespace kelprun {

namespace {

constexpr std::int32_t DIFFRACTING_GROIN = 1;
constexpr std::int32_t PLAIN_GROIN = -1;

/// The shoreline at a side of an inlet: by its distance from the jetty's tip, or the beach's own.
float side_position(const Groins& g, std::int32_t wall, double beside_jetty, float JBC,
                    double open_beach, Report& report) {
  const std::int32_t type = g.ICSTR(wall);
  if (type == DIFFRACTING_GROIN || type == PLAIN_GROIN) {
    const auto TP = static_cast<double>(g.YGT(groin_on(g, wall)));
    return static_cast<float>(TP - (TP - beside_jetty) * static_cast<double>(JBC));
  }
  if (type != 0) {
    report.line("WARNING: Unstructured inlet is next to groin");
    report.line("Setting virtual shoreline equal to", " shoreline at inlet ");
  }
  return static_cast<float>(open_beach);
}

void derive_sides(std::int32_t k, const Groins& g, const PerCell<double>& Y, Inlets& n,
                  Report& report) {
  const std::int32_t L = n.IINLS(k);
  const std::int32_t R = n.IINLE(k);
  n.YINLL(k) = side_position(g, L, Y(L), n.JBCL(k), Y(L - 1), report);
  // A non-diffracting groin on the right takes the beach beyond it, unlike all others: meant so.
  const double beside_jetty = g.ICSTR(R + 1) == PLAIN_GROIN ? Y(R + 1) : Y(R);
  n.YINLR(k) = side_position(g, R + 1, beside_jetty, n.JBCR(k), Y(R + 1), report);
}

void draw_across(std::int32_t k, const Inlets& n, PerCell<double>& Y) {
  const std::int32_t L = n.IINLS(k);
  const std::int32_t R = n.IINLE(k);
  Y(L) = static_cast<double>(n.YINLL(k));
  const float step = (n.YINLR(k) - n.YINLL(k)) / static_cast<float>(R - L);
  for (std::int32_t i = L + 1; i <= R; ++i) Y(i) = Y(i - 1) + static_cast<double>(step);
}

/// Height of the triangle over cells IS to IE at cell i, 1 at its top.
float triangle(std::int32_t IS, std::int32_t IE, std::int32_t i) {
  const std::int32_t N = IE - IS + 1;
  const std::int32_t M = (IS + IE) / 2;
  const float HF = static_cast<float>(N) * 0.5f;
  if (N % 2 != 0) return i == M ? 1.0f : 1.0f - static_cast<float>(std::abs(i - M)) / HF;
  if (i <= M) return 1.0f - (static_cast<float>(M - i) + 0.5f) / HF;
  return 1.0f - (static_cast<float>(i - M) - 0.5f) / HF;
}

Placement placement(const Grid& grid, std::int32_t IS, std::int32_t IE) {
  Placement p;
  p.first = std::max(IS, 1);
  p.last = std::min(IE, grid.NX);
  if (p.last < p.first) return p;
  float sum = 0.0f;
  for (std::int32_t i = IS; i <= IE; ++i) sum += triangle(IS, IE, i);
  for (std::int32_t i = p.first; i <= p.last; ++i) {
    p.WPLACE.append(triangle(IS, IE, i) / sum);
    p.SUMDX += grid.DX(i);
  }
  return p;
}

}  // namespace

void set_inlet_shorelines(const Groins& groins, Inlets& n, Shore& shore, Report& report) {
  n.flows.allocate(static_cast<std::size_t>(n.NINL));
  for (std::int32_t k = 1; k <= n.NINL; ++k)
    for (std::int32_t i = n.IINLS(k); i <= n.IINLE(k); ++i) n.INLC(i) = 1;
  for (std::int32_t k = 1; k <= n.NINL; ++k) {
    if (groins.ICSTR(n.IINLS(k)) == 0) n.JBCL(k) = n.JBCR(k) = 1.0f;
    if (n.YINLL(k) == 0.0f) derive_sides(k, groins, shore.Y, n, report);
    draw_across(k, n, shore.Y);
  }
}

void set_placements(const Grid& grid, Inlets& n) {
  n.left_placement.allocate(0);
  n.right_placement.allocate(0);
  for (std::int32_t k = 1; k <= n.NINL; ++k) {
    n.left_placement.append(placement(grid, n.IBYPL1(k), n.IBYPL2(k)));
    n.right_placement.append(placement(grid, n.IBYPR1(k), n.IBYPR2(k)));
  }
}

void bridge_inlets(const Grid& grid, const Inlets& n, PerCell<double>& YOLD) {
  for (std::int32_t k = 1; k <= n.NINL; ++k) {
    const std::int32_t left = n.IINLS(k) - 1;
    const std::int32_t right = n.IINLE(k) + 1;
    const auto from = static_cast<float>(YOLD(left));
    const auto to = static_cast<float>(YOLD(right));
    const float distance = grid.XCELL(right) - grid.XCELL(left);
    for (std::int32_t i = left + 1; i < right; ++i)
      YOLD(i) =
          static_cast<double>((grid.XCELL(i) - grid.XCELL(left)) / distance * (to - from) + from);
  }
}

}  // namespace kelprun
