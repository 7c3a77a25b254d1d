#include "inlets/mouths.h"

#include "inlets/shoals.h"

namespace kelprun {

namespace {

constexpr float STRETCH_SHARE = 0.9f;  ///< of the sand, for the placement cells
constexpr float BESIDE_SHARE = 0.1f;   ///< of the sand, for the cell beside the inlet

/// Spreads Qout over the placement cells and the cell beside the inlet. The rate is divided by the
/// width of the whole stretch and then by weights that sum to 1, so that a stretch of N cells gets
/// about 1/N of the sand, which is meant.
void place(const Placement& p, float Qout, std::int32_t beside, const PerWall<float>& RDEN,
           PerCell<double>& Y) {
  if (p.last < p.first) return;
  const float QPLACE = Qout / p.SUMDX;
  double sum = 0.0;
  for (std::int32_t i = p.first; i <= p.last; ++i) {
    const float weight = p.WPLACE(i - p.first + 1);
    Y(i) += static_cast<double>(RDEN(i) * (QPLACE * STRETCH_SHARE) * weight);
    sum += static_cast<double>(RDEN(i) * (QPLACE * BESIDE_SHARE) * weight);
  }
  Y(beside) += sum;
}

/// Without a standing groin the wall at the mouth takes what arrives one wall before it; at a groin
/// it keeps its own, which the groin's factor has cut.
bool is_open_mouth(std::int32_t type) { return type == 0 || type == 4; }

}  // namespace

void route_inlets(std::int32_t CURDATE, float DTSEC, const Groins& groins, Inlets& n, Shore& shore,
                  Transport& t) {
  for (std::int32_t k = 1; k <= n.NINL; ++k) {
    dredge(k, CURDATE, n);
    const std::int32_t L = n.IINLS(k);
    const std::int32_t R = n.IINLE(k);
    if (t.Q(L - 1) > 0.0f) {
      if (is_open_mouth(groins.ICSTR(L))) t.Q(L) = t.Q(L - 1);
      place(n.right_placement(k), SHOALROUTE(InletMouth::left, t.Q(L), k, DTSEC, n), R + 1, t.RDEN,
            shore.Y);
    } else {
      t.Q(L) = 0.0f;
    }
    if (t.Q(R + 2) < 0.0f) {
      if (is_open_mouth(groins.ICSTR(R + 1))) t.Q(R + 1) = t.Q(R + 2);
      place(n.left_placement(k), SHOALROUTE(InletMouth::right, t.Q(R + 1), k, DTSEC, n), L - 1,
            t.RDEN, shore.Y);
    } else {
      t.Q(R + 1) = 0.0f;
    }
  }
}

void reset_mouths(const Inlets& n, Transport& t) {
  for (std::int32_t k = 1; k <= n.NINL; ++k) {
    const std::int32_t L = n.IINLS(k);
    const std::int32_t R = n.IINLE(k);
    t.Q(L) = 0.0f;
    t.Q(R + 1) = 0.0f;
    t.Q(L - 1) = t.Q(L - 2);
    t.Q(R + 2) = t.Q(R + 3);
  }
}

}  // namespace kelprun
