#include "waves/tip_list.h"

namespace kelprun {

namespace {

constexpr float DARK = 0.01f;            ///< zones below are not worked
constexpr float NEARLY_BRIGHT = 0.999f;  ///< zones from here on count as open water

bool same_place(const Tip& a, const Tip& b) { return a.cell == b.cell && a.Y == b.Y; }

/// Goes along the tips, open water and structures in turn.
class ZoneRow {
 public:
  ZoneRow(std::int32_t NX, const Array1<float>& TRANDB, Tips& tips, Zones& zones)
      : NX_(NX), TRANDB_(TRANDB), tips_(tips.tips), zones_(zones) {}

  void lay_out() {
    begin_left();
    for (std::int32_t j = 2; j < tips_.size();) j = follow_with(j);
    drop_doubled_end();
    end_right();
  }

 private:
  /// A coast that begins with a structure gets one more tip in front.
  void begin_left() {
    const Tip first = tips_(1);
    behind_structure_ = first.cell >= 1;
    if (!behind_structure_) return;
    Array1<Tip> longer;
    longer.append(first.cell == 1 ? first : Tip{LEFT_END_TIP, 0.0f, 0.0f});
    for (const Tip& tip : tips_) longer.append(tip);
    tips_ = longer;
  }

  /// The zone between tips j-1 and j, or one tip less; gives the tip to look at next.
  std::int32_t follow_with(std::int32_t j) {
    const bool doubled = same_place(tips_(j - 1), tips_(j));
    if (doubled && !behind_structure_) {
      remove_tip(j);
      behind_structure_ = true;
      return j;
    }
    if (doubled) {
      zones_.KTZ.append(NO_EXTENT);
    } else {
      zones_.KTZ.append(behind_structure_ ? next_breakwater() : OPEN_WATER);
    }
    behind_structure_ = !behind_structure_;
    return j + 1;
  }

  void drop_doubled_end() {
    const std::int32_t last = tips_.size();
    if (last < 2 || !same_place(tips_(last - 1), tips_(last))) return;
    if (tips_(last).cell == NX_ + 1) zones_.ITIPJOIN(NX_ + 1) = 1;
    tips_.resize(static_cast<std::size_t>(last - 1));
    behind_structure_ = true;
  }

  void end_right() {
    const Tip last = tips_(tips_.size());
    const bool last_zone_is_open = !behind_structure_ || last.cell == LAST_TIP;
    if (zones_.KTZ.size() < tips_.size() - 1) zones_.KTZ.append(OPEN_WATER);
    if (last_zone_is_open && !zones_.KTZ.empty()) zones_.KTZ(zones_.KTZ.size()) = OPEN_WATER;
    if (last.cell == LAST_TIP) return;
    const bool at_end_of_coast = last.cell == NX_ + 1;
    tips_.append(at_end_of_coast ? last : Tip{LAST_TIP, 0.0f, 0.0f});
    zones_.KTZ.append(at_end_of_coast ? NO_EXTENT : next_breakwater());
  }

  void remove_tip(std::int32_t j) {
    const std::int32_t wall = tips_(j).cell;
    if (wall >= 1 && wall <= NX_ + 1) zones_.ITIPJOIN(wall) = 1;
    for (std::int32_t k = j; k < tips_.size(); ++k) tips_(k) = tips_(k + 1);
    tips_.resize(static_cast<std::size_t>(tips_.size() - 1));
  }

  float next_breakwater() {
    ++used_;
    return used_ <= TRANDB_.size() ? TRANDB_(used_) : OPEN_WATER;
  }

  const std::int32_t NX_;
  const Array1<float>& TRANDB_;
  Array1<Tip>& tips_;
  Zones& zones_;
  bool behind_structure_ = false;  ///< the zone that comes next is not open water
  std::int32_t used_ = 0;          ///< breakwaters that have their zone
};

void set_order(Zones& zones, std::int32_t NZ) {
  const auto is_behind_breakwater = [&](std::int32_t z) {
    return zones.KTZ(z) > DARK && zones.KTZ(z) < NEARLY_BRIGHT;
  };
  zones.ZORDER.allocate(0);
  for (const bool behind : {false, true})
    for (std::int32_t z = 1; z <= NZ; ++z)
      if (is_behind_breakwater(z) == behind && !(zones.KTZ(z) < DARK)) zones.ZORDER.append(z);
  zones.NZACT = zones.ZORDER.size();
  zones.ZORDER.resize(static_cast<std::size_t>(NZ));
}

/// Sum of the widths of cells `from` to `to` in this order, which is part of the result.
float summed_widths(const Grid& grid, std::int32_t from, std::int32_t to) {
  float sum = 0.0f;
  for (std::int32_t j = from; j <= to; ++j) sum += grid.DX(j);
  return sum;
}

/// Distance of each wall from a tip, positive to the right.
void set_distances(const Grid& grid, std::int32_t cell, PerWall<float>& X) {
  float sum = 0.0f;
  for (std::int32_t i = cell + 1; i <= grid.NX + 1; ++i) X(i) = sum += grid.DX(i - 1);
  sum = 0.0f;
  for (std::int32_t i = cell - 1; i >= 1; --i)
    X(i) = -(grid.variable ? summed_widths(grid, i, cell - 1) : sum += grid.DX(i));
}

}  // namespace

void TIPLIST(const Grid& grid, const Breakwaters& breakwaters, Tips& tips, Zones& zones,
             Diffraction& diffraction) {
  zones.KTZ.allocate(0);
  ZoneRow(grid.NX, breakwaters.TRANDB, tips, zones).lay_out();
  const std::int32_t NTIP = tips.tips.size();
  tips.NZ = zones.KTZ.size();
  set_order(zones, tips.NZ);

  const auto count = static_cast<std::size_t>(NTIP);
  PerWall<float> row;
  row.take(grid.NX);
  zones.XTIP.allocate(count, row);
  zones.DXTIPS.allocate(count);
  diffraction.KDTAB.allocate(count, row);
  diffraction.tip_waves.allocate(count);
  tips.TIPOFF.allocate(count);
  for (std::int32_t j = 1; j <= NTIP; ++j) {
    const std::int32_t cell = tips.tips(j).cell;
    if (j > 1 && cell == tips.tips(j - 1).cell) {
      zones.XTIP(j) = zones.XTIP(j - 1);
    } else if (cell >= 1) {
      set_distances(grid, cell, zones.XTIP(j));
    }
  }
  for (std::int32_t j = 1; j < NTIP; ++j)
    if (tips.tips(j).cell >= 1 && tips.tips(j + 1).cell >= 1)
      zones.DXTIPS(j) = zones.XTIP(j)(tips.tips(j + 1).cell);
}

}  // namespace kelprun
