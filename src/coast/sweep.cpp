#include "coast/sweep.h"

#include "coast/cell_update.h"

namespace kelprun {

namespace {

/// The sweep over one coast. The order of its loops is part of the result.
class Sweep {
 public:
  Sweep(const Grid& grid, const PerCell<std::int32_t>& INLC, Shore& shore, Transport& transport)
      : NX_(grid.NX),
        DX_(grid.DX),
        INLC_(INLC),
        RDEN_(transport.RDEN),
        DYSRC_(shore.DYSRC),
        YSW_(shore.YSW),
        Y_(shore.Y),
        Q_(transport.Q) {}

  void run() {
    std::int32_t I = 1;
    while (I <= NX_) {
      if (Q_(I) < 0.0f) {
        I = left_going_run(I, I);
      } else if (Q_(I + 1) < 0.0f) {
        I = converging(I);
      } else {
        move_right_going(I);
        ++I;
      }
    }
  }

 private:
  /// From wall J up to the top of a left-going run, then down to cell LOW; gives the next cell.
  std::int32_t left_going_run(std::int32_t J, std::int32_t LOW) {
    while (J < NX_ && Q_(J + 1) < 0.0f) ++J;
    if (J == NX_ && Q_(J + 1) <= 0.0f) {
      move_left_going(J);
    } else {
      move_diverging(J);
    }
    walk_down(J, LOW);
    return J + 1;
  }

  void walk_down(std::int32_t J, std::int32_t LOW) {
    for (std::int32_t c = J - 1; c >= LOW; --c) move_left_going(c);
  }

  /// A cell into which both walls bring sand: it comes last of the run on its right.
  std::int32_t converging(std::int32_t I) {
    // At the end of the grid the last cell moves without a limit, a seawall there included.
    if (I == NX_) {
      move_freely(I);
      return NX_ + 1;
    }
    // The last cell counts as left-going here, whatever its right wall does.
    if (I + 1 == NX_) {
      walk_down(I + 2, I);
      return NX_ + 1;
    }
    return left_going_run(I + 1, I);
  }

  double moved(std::int32_t c) const {
    return moved_position(Y_(c), RDEN_(c), DX_(c), Q_(c), Q_(c + 1), DYSRC_(c));
  }

  /// Stores the new position, or the seawall's where the cell would pass it; true in that case.
  /// The negated test lets a value that is no number pass into the shoreline, where it is told.
  bool stopped_at_seawall(std::int32_t c) {
    const double YN = moved(c);
    const bool stopped = YN < YSW_(c);
    Y_(c) = stopped ? YSW_(c) : YN;
    return stopped;
  }

  void move_freely(std::int32_t c) {
    if (INLC_(c) != 1) Y_(c) = moved(c);
  }

  /// The cuts of the three kinds leave the sources out, and the cut of a converging cell changes a
  /// wall whose left cell has already moved: both are meant so.
  void move_right_going(std::int32_t c) {
    if (INLC_(c) == 1) return;
    const auto YO = static_cast<double>(static_cast<float>(Y_(c)));
    if (stopped_at_seawall(c))
      Q_(c + 1) = Q_(c) - DX_(c) * (static_cast<float>(YSW_(c) - YO) / RDEN_(c));
  }

  void move_left_going(std::int32_t c) {
    if (INLC_(c) == 1) return;
    const auto YO = static_cast<double>(static_cast<float>(Y_(c)));
    if (stopped_at_seawall(c))
      Q_(c) = Q_(c + 1) + DX_(c) * (static_cast<float>(YSW_(c) - YO) / RDEN_(c));
  }

  void move_diverging(std::int32_t c) {
    if (INLC_(c) == 1) return;
    const auto YO = static_cast<double>(static_cast<float>(Y_(c)));
    if (!stopped_at_seawall(c)) return;
    const float DQ = Q_(c + 1) - Q_(c);
    const auto FA = static_cast<float>(YO - YSW_(c));
    Q_(c) = ((Q_(c) * FA) / RDEN_(c) * DX_(c)) / DQ;
    Q_(c + 1) = (DX_(c) * ((Q_(c + 1) * FA) / RDEN_(c))) / DQ;
  }

  const std::int32_t NX_;
  const PerWall<float>& DX_;
  const PerCell<std::int32_t>& INLC_;
  const PerWall<float>& RDEN_;
  const PerWall<double>& DYSRC_;
  const PerCell<double>& YSW_;
  PerCell<double>& Y_;
  PerWall<float>& Q_;
};

}  // namespace

void move_shoreline(const Grid& grid, const PerCell<std::int32_t>& INLC, Shore& shore,
                    Transport& transport) {
  Sweep(grid, INLC, shore, transport).run();
}

}  // namespace kelprun
