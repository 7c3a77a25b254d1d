#include "coast/volumes.h"

#include <cmath>

#include "model/constants.h"

namespace kelprun {

void VOLSTEP(const Grid& grid, const Profile& profile, const Shore& shore, Ledgers& ledgers) {
  constexpr auto LEAST_CHANGE = static_cast<double>(0.0001f);
  float total = 0.0f;
  float area_total = 0.0f;
  for (std::int32_t i = 1; i <= grid.NX; ++i) {
    double DYV = shore.Y(i) - shore.YSTART(i);
    if (std::abs(DYV) < LEAST_CHANGE) DYV = 0.0;
    const auto area = static_cast<float>(static_cast<double>(grid.DX(i)) * DYV);
    const float V = area * (profile.DCLOSCELL(i) + profile.BERMHTCELL(i));
    ledgers.VOLCELL(i) = V;
    ledgers.VOLLEN(i) = V / grid.DX(i);
    total += V;
    area_total += area;
  }
  ledgers.VOLTOTAL = total;
  ledgers.AREATOTAL = area_total;
}

void add_transport(const Grid& grid, const Transport& t, float VOLFAC, float CONVYD3, Ledgers& l) {
  for (std::int32_t i = 1; i <= grid.NX + 1; ++i) {
    const float net = VOLFAC * t.Q(i);
    const float left = VOLFAC * t.QLEFT(i);
    const float right = VOLFAC * t.QRIGHT(i);
    l.QNETYR(i) += net;
    l.QLEFTYR(i) += left;
    l.QRIGHTYR(i) += right;
    l.QGROSSYR(i) += VOLFAC * t.QGROSS(i);
    l.QNETSUM(i) += net;
    l.QLEFTSUM(i) += left;
    l.QRIGHTSUM(i) += right;
    l.QANNUAL(i) = t.Q(i) * SECONDS_PER_YEAR / CONVYD3;
  }
}

}  // namespace kelprun
