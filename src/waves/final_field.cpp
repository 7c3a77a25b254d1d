#include "waves/final_field.h"

#include <algorithm>

namespace kelprun {

namespace {

constexpr std::int32_t GROIN = 1;  ///< wall type of a groin that stands out
constexpr std::int32_t ON_THE_LINE =
    -1;  ///< state of a cell whose shoreline has reached a breakwater

/// Weights of the left, own and right wall, quarters.
struct Weights {
  float left, own, right;
};

class FinalField {
 public:
  FinalField(const Grid& grid, const Groins& groins, const Breakwaters& breakwaters,
             const Inlets& inlets, Waves& waves)
      : NX_(grid.NX),
        ICSTR_(groins.ICSTR),
        breakwaters_(breakwaters),
        IBWST_(breakwaters.IBWST),
        inlets_(inlets),
        w_(waves) {}

  void smooth() {
    for (const auto end : {std::int32_t{1}, NX_ + 1}) {
      w_.HBS(end) = w_.HB(end);
      w_.ZBS(end) = w_.ZB(end);
    }
    for (std::int32_t i = 2; i <= NX_; ++i) {
      w_.ITOMBOLO(i) = 0;
      w_.HBS(i) = smoothed(w_.HB, i);
      w_.ZBS(i) = smoothed(w_.ZB, i);
    }
  }

  /// Walls inside an inlet have no wave, those at its mouth the wave of the beach beside it.
  void clear_inlets() {
    for (std::int32_t n = 1; n <= inlets_.NINL; ++n) {
      const std::int32_t first = inlets_.IINLS(n);
      const std::int32_t beyond = inlets_.IINLE(n) + 1;
      for (std::int32_t i = first + 1; i < beyond; ++i) set(i, 0.0f, 0.0f);
      if (first > 1) set(first, w_.HBS(first - 1), w_.ZBS(first - 1));
    }
    for (std::int32_t n = 1; n <= inlets_.NINL; ++n) {
      const std::int32_t beyond = inlets_.IINLE(n) + 1;
      if (beyond <= NX_) set(beyond, w_.HBS(beyond + 1), w_.ZBS(beyond + 1));
    }
  }

  void mend_tombolos() {
    for (std::int32_t k = 1; k <= breakwaters_.NDB; ++k) {
      if (breakwaters_.DBI2(k) - breakwaters_.DBI1(k) < 2) continue;
      switch (breakwaters_.attached(k)) {
        case 0:
          mend_detached(k);
          break;
        case 1:
          mend_from_right(k);
          break;
        case 2:
          mend_from_left(k);
          break;
        default:  // groins at both ends leave nothing to mend
          break;
      }
    }
  }

  void take_over() {
    for (std::int32_t i = 2; i <= NX_; ++i) {
      w_.HB(i) = w_.HBS(i);
      w_.ZB(i) = w_.ZBS(i);
    }
  }

 private:
  bool groin(std::int32_t i) const { return ICSTR_(i) == GROIN; }
  bool reached(std::int32_t i) const { return i >= 1 && IBWST_(i) == ON_THE_LINE; }

  float smoothed(const PerWall<float>& x, std::int32_t i) const {
    if (groin(i) || (reached(i - 1) && reached(i))) return x(i);
    if (groin(i + 1) || reached(i)) return (3.0f * x(i) + x(i - 1)) * 0.25f;
    if (groin(i - 1) || reached(i - 1)) return (3.0f * x(i) + x(i + 1)) * 0.25f;
    return (x(i - 1) + 2.0f * x(i) + x(i + 1)) * 0.25f;
  }

  void set(std::int32_t i, float H, float Z) {
    w_.HBS(i) = H;
    w_.ZBS(i) = Z;
  }

  void set_tombolo(std::int32_t i, float H) {
    set(i, H, 0.0f);
    w_.ITOMBOLO(i) = 1;
  }

  /// The wave that comes through breakwater k, of at least a tenth of the height outside.
  float transmitted(std::int32_t k, std::int32_t i) const {
    return std::max(breakwaters_.TRANDB(k), 0.1f) * w_.HBU(i);
  }

  /// No groin attached: between the first and the last cell that the shoreline has reached.
  void mend_detached(std::int32_t k) {
    std::int32_t first = 0;
    std::int32_t last = 0;
    for (std::int32_t i = breakwaters_.DBI1(k); i < breakwaters_.DBI2(k); ++i) {
      if (!reached(i)) continue;
      if (first == 0) first = i;
      last = i;
    }
    for (std::int32_t i = first + 1; i <= last; ++i)
      set_tombolo(i, reached(i) && reached(i - 1) ? 0.0f : transmitted(k, i));
  }

  /// A groin at the left tip.
  void mend_from_right(std::int32_t k) {
    for (std::int32_t i = breakwaters_.DBI2(k); i >= breakwaters_.DBI1(k); --i)
      if (reached(i)) set_tombolo(i, reached(i - 1) || groin(i) ? 0.0f : transmitted(k, i));
  }

  /// A groin at the right tip: from the first wall behind a cell that the shoreline has reached.
  void mend_from_left(std::int32_t k) {
    bool begun = false;
    for (std::int32_t i = breakwaters_.DBI1(k); i <= breakwaters_.DBI2(k); ++i) {
      begun = begun || reached(i - 1);
      if (!begun) continue;
      if (reached(i) && (reached(i - 1) || groin(i))) {
        set_tombolo(i, 0.0f);
      } else if (!groin(i)) {
        set_tombolo(i, transmitted(k, i));
      }
    }
  }

  const std::int32_t NX_;
  const PerWall<std::int32_t>& ICSTR_;
  const Breakwaters& breakwaters_;
  const PerWall<std::int32_t>& IBWST_;
  const Inlets& inlets_;
  Waves& w_;
};

}  // namespace

void finish_field(const Grid& grid, const Groins& groins, const Breakwaters& breakwaters,
                  const Inlets& inlets, Waves& waves) {
  FinalField field(grid, groins, breakwaters, inlets, waves);
  field.smooth();
  field.clear_inlets();
  field.mend_tombolos();
  field.take_over();
}

}  // namespace kelprun
