#include "coast/contour.h"

#include <cmath>

namespace kelprun {

namespace {

/// The contour shows this offset in its table; only its differences enter the waves.
constexpr float CONTOUR_OFFSET = 300.0f;

/// One pass of the moving mean from WORK to SM. The sum runs along the coast in single precision,
/// so that its rounding is carried from cell to cell.
void moving_mean(std::int32_t NX, std::int32_t M, const PerCell<float>& WORK, PerCell<float>& SM) {
  const auto L = static_cast<float>(2 * M + 1);
  float sum = 0.0f;
  for (std::int32_t j = 1; j <= 2 * M + 1; ++j) sum += WORK(j);
  SM(M + 1) = sum / L;
  for (std::int32_t i = M + 2; i <= NX - M; ++i) {
    sum = sum - WORK(i - M - 1) + WORK(i + M);
    SM(i) = sum / L;
  }
}

/// Straight lines from the first and the last point to the first and the last mean.
void straight_ends(std::int32_t NX, std::int32_t M, const PerCell<float>& WORK,
                   PerCell<float>& SM) {
  const auto m = static_cast<float>(M);
  const float XC = (m + 2.0f) * 0.5f;
  const float XR = 1.0f - XC + static_cast<float>(NX);
  const float SL = SM(M + 1);
  const float W1 = WORK(1);
  for (std::int32_t i = 1; i <= M; ++i)
    SM(i) = (static_cast<float>(i) - XC) * ((SL - W1) / m) + (SL + W1) * 0.5f;
  const float SR = SM(NX - M);
  const float WN = WORK(NX);
  for (std::int32_t i = NX - M + 1; i <= NX; ++i)
    SM(i) = (static_cast<float>(i) - XR) * ((WN - SR) / m) + (WN + SR) * 0.5f;
}

}  // namespace

void smooth_contour(const Grid& grid, std::int32_t& ISMOOTH, Shore& shore) {
  const std::int32_t NX = grid.NX;
  if (ISMOOTH > 2 && ISMOOTH % 2 == 0) --ISMOOTH;
  std::int32_t L = ISMOOTH;
  if (L > NX) L = NX % 2 == 0 ? NX - 1 : NX;
  for (std::int32_t i = 1; i <= NX; ++i) shore.WORK(i) = static_cast<float>(shore.YOLD(i));
  if (L >= 3) {
    const std::int32_t M = (L - 1) / 2;
    constexpr int PASSES = 2;
    for (int pass = 1; pass <= PASSES; ++pass) {
      moving_mean(NX, M, shore.WORK, shore.SM);
      straight_ends(NX, M, shore.WORK, shore.SM);
      for (std::int32_t i = 1; i <= NX; ++i) shore.WORK(i) = shore.SM(i);
    }
  }
  for (std::int32_t i = 1; i <= NX; ++i) shore.YCON(i) = shore.WORK(i) + CONTOUR_OFFSET;
}

void set_contour_orientation(const Grid& grid, Shore& shore) {
  const auto orientation = [&](std::int32_t i) {
    return std::atan((shore.YCON(i) - shore.YCON(i - 1)) / (0.5f * (grid.DX(i) + grid.DX(i - 1))));
  };
  shore.ALPHAC(1) = orientation(2);
  for (std::int32_t i = 2; i <= grid.NX; ++i) shore.ALPHAC(i) = orientation(i);
  shore.ALPHAC(grid.NX + 1) = shore.ALPHAC(grid.NX);
}

}  // namespace kelprun
