#include "waves/undiffracted.h"

#include <cmath>

#include "model/constants.h"

namespace kelprun {

void UNDIFFSTAT(const Settings& settings, const Grid& grid, const Profile& profile,
                const Waves& waves, const PerWall<float>& ALPHA, UndiffractedSums& sums) {
  ++sums.steps;
  for (std::int32_t i = 1; i <= grid.NX + 1; ++i) {
    const float H = waves.HBU(i) / settings.CONV;
    const float ALF = waves.ZBU(i) - unmarked(ALPHA(i));
    sums.H(i) += H;
    sums.H52(i) += H * H * std::sqrt(H);
    sums.ZBS(i) += ALF;
    sums.ZB(i) += waves.ZBU(i);
    sums.QZ(i) +=
        waves.CGBU(i) * profile.K1EFF(i) * (waves.HBU(i) * waves.HBU(i)) * std::sin(2.0f * ALF);
  }
}

}  // namespace kelprun
