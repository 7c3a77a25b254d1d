#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace kelprun {

/// Ends the program: index i lies outside 1..size. Called only where index checks are compiled in.
[[noreturn]] void index_failure(std::int64_t i, std::size_t size);

/// A row of values numbered from 1, as cells and walls are numbered on the coast.
/// The bounds check is on where KELPRUN_CHECK_INDEX is defined (debug and sanitizer builds).
template <class T>
class Array1 {
 public:
  Array1() = default;
  explicit Array1(std::size_t size, T value = T{}) : values_(size, value) {}

  /// Takes `size` places, all holding `value`; what was held before is gone.
  void allocate(std::size_t size, T value = T{}) { values_.assign(size, value); }
  /// Keeps the first `size` values; places that are new hold zero.
  void resize(std::size_t size) { values_.resize(size); }
  /// Adds a value behind the last one.
  void append(T value) { values_.push_back(value); }
  void fill(T value) { std::fill(values_.begin(), values_.end(), value); }

  T& operator()(std::int64_t i) {
    check(i);
    return values_[static_cast<std::size_t>(i - 1)];
  }
  const T& operator()(std::int64_t i) const {
    check(i);
    return values_[static_cast<std::size_t>(i - 1)];
  }

  /// Number of values as a cell number, so that `1 <= i && i <= size()` is the valid range.
  std::int32_t size() const { return static_cast<std::int32_t>(values_.size()); }
  bool empty() const { return values_.empty(); }
  auto begin() { return values_.begin(); }
  auto end() { return values_.end(); }
  auto begin() const { return values_.begin(); }
  auto end() const { return values_.end(); }
  T* data() { return values_.data(); }
  const T* data() const { return values_.data(); }

 private:
#ifdef KELPRUN_CHECK_INDEX
  void check(std::int64_t i) const {
    if (i < 1 || static_cast<std::size_t>(i) > values_.size()) index_failure(i, values_.size());
  }
#else
  void check(std::int64_t) const {}
#endif

  std::vector<T> values_;
};

/// One value a cell, cells 1 to NX.
template <class T>
class PerCell : public Array1<T> {
 public:
  /// The orientation at the left end always looks at cells 1 and 2, so that a coast of one cell
  /// holds a second, zero value.
  void take(std::int32_t NX, T value = T{}) {
    this->allocate(static_cast<std::size_t>(std::max(NX, 2)), value);
  }
};

/// One value a wall, walls 1 to NX+1; wall i lies on the left of cell i.
template <class T>
class PerWall : public Array1<T> {
 public:
  void take(std::int32_t NX, T value = T{}) {
    this->allocate(static_cast<std::size_t>(std::max(NX, 1) + 1), value);
  }
};

}  // namespace kelprun
