#include "coast/structure_places.h"

namespace kelprun {

namespace {

/// The regional contour at a wall: the mean of the two cells, at the ends the line through the two
/// cells nearest to them. A coast of one cell has a level contour.
float contour_at_wall(std::int32_t i, std::int32_t NX, const PerCell<float>& YREG) {
  if (NX == 1) return YREG(1);
  if (i == 1) return YREG(1) + (YREG(1) - YREG(2)) * 0.5f;
  if (i == NX + 1) return YREG(NX) + (YREG(NX) - YREG(NX - 1)) * 0.5f;
  return (YREG(i) + YREG(i - 1)) * 0.5f;
}

constexpr std::int32_t LEFT_END = 1;
constexpr std::int32_t RIGHT_END = 2;

/// Ends of breakwaters on a wall: LEFT_END, RIGHT_END, their sum, or 0.
std::int32_t breakwater_ends_at(std::int32_t wall, const Breakwaters& b) {
  bool left = false;
  bool right = false;
  for (std::int32_t k = 1; k <= b.NDB; ++k) {
    left = left || b.DBI1(k) == wall;
    right = right || b.DBI2(k) == wall;
  }
  return (left ? LEFT_END : 0) + (right ? RIGHT_END : 0);
}

}  // namespace

void subtract_regional_contour(const Settings& settings, const Grid& grid,
                               const PerCell<float>& YREG, Groins& g, Breakwaters& b, Tips& tips) {
  if (settings.IREG != 1 && settings.IREG != 2) return;
  const auto subtract = [&](std::int32_t wall, float& position) {
    position -= contour_at_wall(wall, grid.NX, YREG);
  };
  for (std::int32_t j = 1; j <= g.NNDG; ++j) subtract(g.IXNDG(j), g.YNDG(j));
  for (std::int32_t j = 1; j <= g.NDG; ++j) subtract(g.IXDG(j), g.YDG(j));
  for (std::int32_t k = 1; k <= g.NGRP; ++k) subtract(g.IXGRP(k), g.YGT(k));
  for (std::int32_t k = 1; k <= b.NDB; ++k) {
    subtract(b.DBI1(k), b.DBY1(k));
    subtract(b.DBI2(k), b.DBY2(k));
  }
  for (Array1<Tip>* list : {&tips.breakwater_tips, &tips.groin_tips, &tips.tips})
    for (Tip& tip : *list)
      if (tip.cell >= 1 && tip.cell <= grid.NX + 1) subtract(tip.cell, tip.Y);
}

void set_wall_types(const Grid& grid, Groins& g) {
  for (std::int32_t j = 1; j <= g.NDG; ++j) {
    const std::int32_t i = g.IXDG(j);
    if (i > 1) g.ICSTR(i - 1) = 2;
    g.ICSTR(i) = 1;
    if (i <= grid.NX) g.ICSTR(i + 1) = 2;
  }
  for (std::int32_t j = 1; j <= g.NNDG; ++j) g.ICSTR(g.IXNDG(j)) = -1;
}

void connect_groins_and_breakwaters(Groins& g, Breakwaters& b) {
  const auto NGRP = static_cast<std::size_t>(g.NGRP);
  g.IGCONN.allocate(NGRP);
  g.BYPF.allocate(NGRP);
  g.QGR.allocate(NGRP);
  g.IGSHAD.fill(0);
  for (std::int32_t k = 1; k <= g.NGRP; ++k) {
    g.IGCONN(k) = breakwater_ends_at(g.IXGRP(k), b);
    g.IGSHAD(g.IXGRP(k)) = g.IGCONN(k);
  }
  b.attached.allocate(static_cast<std::size_t>(b.NDB));
  for (std::int32_t k = 1; k <= b.NDB; ++k)
    b.attached(k) =
        (groin_on(g, b.DBI1(k)) > 0 ? LEFT_END : 0) + (groin_on(g, b.DBI2(k)) > 0 ? RIGHT_END : 0);
}

void group_breakwaters(Breakwaters& b) {
  b.lee_groups = {};
  std::int32_t k = 1;
  while (k <= b.NDB) {
    LeeGroup group{b.DBI1(k), b.DBI2(k) - 1};
    while (++k <= b.NDB && b.DBI1(k) == group.I2 + 1) group.I2 = b.DBI2(k) - 1;
    // A breakwater whose tips stand on one wall covers no cell.
    if (group.I1 <= group.I2) b.lee_groups.append(group);
  }
}

void set_breakwater_lines(const Grid& grid, const Breakwaters& b, Shore& shore) {
  for (std::int32_t k = 1; k <= b.NDB; ++k) {
    float length = 0.0f;
    for (std::int32_t c = b.DBI1(k); c < b.DBI2(k); ++c) length += grid.DX(c);
    float left_of_cell = 0.0f;
    for (std::int32_t c = b.DBI1(k); c < b.DBI2(k); ++c) {
      const float middle = left_of_cell + grid.DX(c) * 0.5f;
      shore.YBWI(c) = static_cast<double>(b.DBY1(k) + (b.DBY2(k) - b.DBY1(k)) * (middle / length));
      left_of_cell += grid.DX(c);
    }
  }
}

}  // namespace kelprun
