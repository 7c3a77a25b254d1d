#pragma once

namespace kelprun {

/// New position of a cell, m: one explicit step of the conservation of sand from position Y, with
/// the transports QL and QR of its left and right wall, m3/s, and the source DYSRC, m2/s. The order
/// and the two precisions are part of the result.
inline double moved_position(double Y, float RDEN, float DX, float QL, float QR, double DYSRC) {
  return Y - static_cast<double>((RDEN / DX) * (QR - QL)) + static_cast<double>(RDEN) * DYSRC;
}

}  // namespace kelprun
