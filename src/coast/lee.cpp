#include "coast/lee.h"

#include <algorithm>

#include "coast/cell_update.h"

namespace kelprun {

namespace {

/// One tip of a group, looking inwards. At the right tip all is mirrored: cells ascend towards the
/// tip, and sand that enters moves to the left.
struct Side {
  std::int32_t tip_cell;
  std::int32_t far_cell;
  std::int32_t inwards;  ///< +1 from the left tip, -1 from the right one

  /// Wall of a cell that lies towards the tip.
  std::int32_t outer(std::int32_t c) const { return inwards > 0 ? c : c + 1; }
  /// Wall of a cell that lies away from the tip.
  std::int32_t inner(std::int32_t c) const { return inwards > 0 ? c + 1 : c; }
  std::int32_t tip_wall() const { return outer(tip_cell); }
  std::int32_t outside() const { return tip_cell - inwards; }
  float sign() const { return static_cast<float>(inwards); }
};

/// The lee of one group of touching breakwaters, cells I1 to I2.
class Lee {
 public:
  Lee(const Grid& grid, const Boundaries& boundaries, const Groins& groins,
      const Breakwaters& breakwaters, const PerCell<std::int32_t>& INLC, const LeeGroup& group,
      Shore& shore, Transport& transport)
      : NX_(grid.NX),
        I1_(group.I1),
        I2_(group.I2),
        left_{group.I1, group.I2, +1},
        right_{group.I2, group.I1, -1},
        boundaries_(boundaries),
        DX_(grid.DX),
        ICSTR_(groins.ICSTR),
        IBWST_(breakwaters.IBWST),
        INLC_(INLC),
        shore_(shore),
        t_(transport) {}

  void LEEFILL() {
    for (std::int32_t i = I1_; i <= I2_ + 1; ++i) {
      t_.QLEE(i) = 0.0f;
      t_.QSWEPT(i) = t_.Q(i);
    }
    const float QT1 = t_.QBWTIP(I1_);
    const float QT2 = t_.QBWTIP(I2_ + 1);
    // Sand that would enter at both tips stays on its walls: neither tip is asked for a share.
    const bool both = QT1 > 0.0f && QT2 < 0.0f;
    take_in(left_, QT1, both);
    take_in(right_, QT2, both);
    for (std::int32_t i = I1_; i <= I2_ + 1; ++i) t_.Q(i) += t_.QLEE(i);

    const std::int32_t end_of_left = last_cell_of_left_part();
    for (std::int32_t c = end_of_left; c >= I1_; --c) settle(c, left_);
    for (std::int32_t c = end_of_left + 1; c <= I2_; ++c) settle(c, right_);
    settle_outside(left_);
    settle_outside(right_);
  }

 private:
  /// Plans in QLEE what goes into the lee of the share QT that was taken off at a tip. A share that
  /// leaves the lee goes back to its wall whole. A tip wall with a groin on it or beside it gets
  /// nothing.
  void take_in(const Side& side, float QT, bool both) {
    std::int32_t J = side.tip_cell;
    if (both || side.sign() * QT < 0.0f) {
      t_.QLEE(side.tip_wall()) = QT;
    } else if (QT != 0.0f && ICSTR_(side.tip_wall()) == 0) {
      J = innermost_cell(side);
      lay_down(side, J, side.sign() * QT);
    }
    cut_at_seawall(side, J);
  }

  /// The far end of the stretch that a tip fills: as far as the first groin in the lee, else to the
  /// middle, or through to a groin at the other end.
  std::int32_t innermost_cell(const Side& side) const {
    std::int32_t J = side.far_cell;
    bool groin = false;
    for (std::int32_t c = side.far_cell; c != side.outside(); c -= side.inwards) {
      if (!is_standing_groin(ICSTR_(side.outer(c)))) continue;
      J = c - side.inwards;
      groin = true;
    }
    if (!groin && ICSTR_(side.outer(side.far_cell)) == 0) {
      const std::int32_t middle = (I1_ + I2_) / 2;
      J = side.inwards > 0 ? middle : middle + 1;
    }
    return std::clamp(J, I1_, I2_);
  }

  /// Lays the rate QIN down from cell J to the tip, falling off with the distance from the tip; at
  /// most what the cells still hold up to the line. The innermost cell J and its width count in the
  /// sums and get nothing, and meant so: their share stays outside the tip.
  void lay_down(const Side& side, std::int32_t J, float QIN) {
    float CAP = 0.0f;
    float SUMD = 0.0f;
    for (std::int32_t c = side.tip_cell; c != J + side.inwards; c += side.inwards) {
      SUMD += DX_(c);
      if (takes_sand(c)) CAP = static_cast<float>(static_cast<double>(CAP) + room(c));
    }
    CAP = std::max(CAP, 0.0f);
    if (!(QIN > CAP)) CAP = QIN;
    for (std::int32_t c = J - side.inwards; c != side.outside(); c -= side.inwards)
      t_.QLEE(side.outer(c)) = t_.QLEE(side.inner(c)) + side.sign() * ((CAP / SUMD) * DX_(c));
  }

  bool takes_sand(std::int32_t c) const { return IBWST_(c) != -2 && INLC_(c) != 1; }

  /// Rate that would bring the cell from its place at entry of the step to the line, m3/s.
  double room(std::int32_t c) const {
    return ((shore_.YBW(c) - shore_.YPREV(c)) / static_cast<double>(t_.RDEN(c))) *
           static_cast<double>(DX_(c));
  }

  /// Cuts what is handed in so far that the cell outside the tip, which gives it, does not fall
  /// behind its seawall. An inlet cell has nothing to give.
  void cut_at_seawall(const Side& side, std::int32_t J) {
    const std::int32_t outside = side.outside();
    float& QLEE = t_.QLEE(side.tip_wall());
    const float handed_in = side.sign() * QLEE;
    if (handed_in <= 0.0f || outside < 1 || outside > NX_ || has_prescribed_movement(outside))
      return;
    float kept = 0.0f;
    if (INLC_(outside) != 1) {
      const float Q = t_.Q(side.tip_wall()) + QLEE;
      const double YN = side.inwards > 0 ? moved(outside, t_.Q(outside), Q)
                                         : moved(outside, Q, t_.Q(outside + 1));
      if (!(YN < shore_.YSW(outside))) return;
      kept = std::max(handed_in - rate(outside, shore_.YSW(outside) - YN), 0.0f);
    }
    for (std::int32_t c = side.tip_cell; c != J + side.inwards; c += side.inwards)
      t_.QLEE(side.outer(c)) *= kept / handed_in;
  }

  /// Which tip a cell's surplus leaves by: up to the first groin in the lee, else up to the middle
  /// by the left one; where one tip alone has a groin, all by the other.
  std::int32_t last_cell_of_left_part() const {
    for (std::int32_t i = I1_ + 1; i <= I2_; ++i)
      if (is_standing_groin(ICSTR_(i))) return i - 1;
    const bool left_closed = ICSTR_(I1_) != 0;
    const bool right_closed = ICSTR_(I2_ + 1) != 0;
    if (left_closed != right_closed) return left_closed ? I1_ - 1 : I2_;
    return (I1_ + I2_) / 2;
  }

  bool has_changed(std::int32_t wall) const { return t_.Q(wall) != t_.QSWEPT(wall); }

  /// Moves a cell by its new transports. The surplus over the line goes out through the wall
  /// towards the tip, also where the sweep alone brought the cell over it.
  void settle(std::int32_t c, const Side& side) {
    if (!takes_sand(c)) {
      hand_on(c, side);
      return;
    }
    if (has_changed(c) || has_changed(c + 1)) move(c);
    if (!(shore_.Y(c) > shore_.YBW(c))) return;
    shore_.Y(c) = shore_.YBW(c);
    const double source = static_cast<double>(t_.RDEN(c)) * shore_.DYSRC(c);
    const float outflow = rate(c, shore_.YBASE(c) + source - shore_.YBW(c));
    t_.Q(side.outer(c)) = t_.Q(side.inner(c)) - side.sign() * outflow;
  }

  /// A cell past the structure and an inlet cell take nothing: what their inner wall has gained or
  /// lost, their outer wall gains or loses too.
  void hand_on(std::int32_t c, const Side& side) {
    const std::int32_t from = side.inner(c);
    t_.Q(side.outer(c)) = t_.QSWEPT(side.outer(c)) + (t_.Q(from) - t_.QSWEPT(from));
  }

  /// The cell outside the tip. Across an inlet, and a lee beyond it, the sand goes on to the first
  /// open beach: the walls between take it through.
  void settle_outside(const Side& side) {
    if (!has_changed(side.tip_wall())) return;
    const float change = t_.Q(side.tip_wall()) - t_.QSWEPT(side.tip_wall());
    std::int32_t c = side.outside();
    while (c >= 1 && c <= NX_ && (INLC_(c) == 1 || IBWST_(c) != 0)) {
      t_.Q(side.outer(c)) += change;
      c -= side.inwards;
    }
    if (c < 1 || c > NX_) return;
    if (has_prescribed_movement(c)) {
      t_.Q(side.outer(c)) += change;
    } else {
      move(c);
    }
  }

  /// An end cell whose wall has no groin: its wall carries what moves it as prescribed.
  bool has_prescribed_movement(std::int32_t c) const {
    return (c == 1 && boundaries_.left.QBC) || (c == NX_ && boundaries_.right.QBC);
  }

  double moved(std::int32_t c, float QL, float QR) const {
    return moved_position(shore_.YBASE(c), t_.RDEN(c), DX_(c), QL, QR, shore_.DYSRC(c));
  }

  void move(std::int32_t c) {
    const double YN = moved(c, t_.Q(c), t_.Q(c + 1));
    shore_.Y(c) = YN < shore_.YSW(c) ? shore_.YSW(c) : YN;
  }

  /// Transport that moves cell c by a distance in one step, m3/s.
  float rate(std::int32_t c, double distance) const {
    return static_cast<float>(distance * static_cast<double>(DX_(c)) /
                              static_cast<double>(t_.RDEN(c)));
  }

  const std::int32_t NX_;
  const std::int32_t I1_, I2_;
  const Side left_, right_;
  const Boundaries& boundaries_;
  const PerWall<float>& DX_;
  const PerWall<std::int32_t>& ICSTR_;
  const PerWall<std::int32_t>& IBWST_;
  const PerCell<std::int32_t>& INLC_;
  Shore& shore_;
  Transport& t_;
};

}  // namespace

void keep_base_of_lees(const Grid& grid, const Breakwaters& breakwaters, Shore& shore) {
  if (breakwaters.lee_groups.empty()) return;
  for (std::int32_t c = 1; c <= grid.NX; ++c) shore.YBASE(c) = shore.Y(c);
}

void fill_lees(const Grid& grid, const Boundaries& boundaries, const Groins& groins,
               const Breakwaters& breakwaters, const PerCell<std::int32_t>& INLC, Shore& shore,
               Transport& t) {
  for (const LeeGroup& group : breakwaters.lee_groups)
    Lee(grid, boundaries, groins, breakwaters, INLC, group, shore, t).LEEFILL();
}

}  // namespace kelprun
