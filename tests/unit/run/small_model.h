#pragma once

#include <array>
#include <cstdint>
#include <random>

#include "model/model.h"
#include "run/storage.h"

/// What the unit tests of the rooms share: a model of a few cells that is ready to be filled by
/// hand, rows of values, and random numbers that are the same in every run.
namespace kelptest {

/// A straight coast of NX cells of 100 m with an active height of 8 m and all storage taken.
inline kelprun::Model small_model(std::int32_t NX) {
  kelprun::Model m;
  m.grid.NX = NX;
  for (auto* field : {&m.grid.DX, &m.grid.XCELL, &m.profile.DCLOSCELL, &m.profile.BERMHTCELL,
                      &m.profile.K1CELL, &m.profile.K2CELL})
    field->take(NX);
  m.grid.DX.fill(100.0f);
  for (std::int32_t i = 1; i <= NX + 1; ++i) m.grid.XCELL(i) = 100.0f * static_cast<float>(i);
  m.profile.DCLOSCELL.fill(7.0f);
  m.profile.BERMHTCELL.fill(1.0f);
  m.settings.CONV = 1.0f;
  m.settings.CONVYD = 1.0f;
  m.settings.CONVYD3 = 1.0f;
  m.settings.WAVCONV = 1.0f;
  kelprun::take_storage(m);
  return m;
}

/// Puts the values into places 1, 2, ... of the array.
template <class T, std::size_t N>
void put(kelprun::Array1<T>& array, const std::array<T, N>& values) {
  for (std::size_t k = 0; k < N; ++k) array(static_cast<std::int64_t>(k) + 1) = values[k];
}

/// An array that holds the values and nothing else.
template <class T, std::size_t N>
kelprun::Array1<T> list(const std::array<T, N>& values) {
  kelprun::Array1<T> array;
  for (const T value : values) array.append(value);
  return array;
}

/// Reproducible numbers: the generator's bits are fixed by the C++ standard.
class Random {
 public:
  explicit Random(std::uint32_t seed) : bits_(seed) {}
  double between(double low, double high) {
    return low + (high - low) * (static_cast<double>(bits_()) / 4294967296.0);
  }
  float real(double low, double high) { return static_cast<float>(between(low, high)); }
  std::int32_t whole(std::int32_t low, std::int32_t high) {
    return low + static_cast<std::int32_t>(bits_() % static_cast<std::uint32_t>(high - low + 1));
  }

 private:
  std::mt19937 bits_;
};

}  // namespace kelptest
