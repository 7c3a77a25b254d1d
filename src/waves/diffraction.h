#pragma once

#include "model/model.h"
#include "text/report.h"

namespace kelprun {

/// What the diffraction reads of the coast in a step.
struct DiffractingCoast {
  const Settings& settings;
  const Grid& grid;
  const Boundaries& boundaries;
  const Groins& groins;
  const Breakwaters& breakwaters;
  const Tips& tips;
  const Zones& zones;
  const Inlets& inlets;
  const Shore& shore;

  /// A groin that stands out or ends level with the shoreline; a buried one is none.
  bool groin_at(std::int32_t wall) const { return is_standing_groin(groins.ICSTR(wall)); }
  /// A wall between two cells of an inlet.
  bool inside_inlet(std::int32_t wall) const {
    return wall >= 2 && wall <= grid.NX && inlets.INLC(wall) == 1 && inlets.INLC(wall - 1) == 1;
  }
  /// The zone of this number has no extent, so that a groin stands there; false beyond the list.
  bool no_extent(std::int32_t zone) const {
    return zone >= 1 && zone <= zones.KTZ.size() && zones.KTZ(zone) < 0.0f;
  }
};

/// One of the two tips of a zone.
struct ZoneTip {
  std::int32_t ITP = 0;   ///< entry of the tip list; 0: the open left end of the coast
  std::int32_t cell = 0;  ///< its wall, LEFT_END_TIP or LAST_TIP
  float KTn = 0.0f;       ///< share of the zone beyond, or minus a groin's permeability
  float BYP = 0.0f;       ///< share of the surf zone beyond a groin's tip
  bool HIGH = false;      ///< this zone is brighter than the one beyond
  float k = 0.0f;         ///< wave number at the tip, 1/m; 0 at an end of the coast
  bool settled = false;   ///< no diffraction at this tip: an end, or grown to the beach
};

/// A zone as it is worked in one step.
struct WorkedZone {
  std::int32_t Z = 0;
  float KT = 0.0f;                  ///< share of the height that it lets through
  std::int32_t IBEG = 0, IEND = 0;  ///< walls that its waves reach
  ZoneTip first, second;            ///< left and right tip
  float ZTPL = 0.0f;                ///< wave angle at the left tip; LEFT_SETTLED without one
};

/// What stands for a wave angle where a tip does not bend the waves.
inline constexpr float LEFT_SETTLED = -999.0f;
inline constexpr float RIGHT_SETTLED = 999.0f;

/// The search for the two walls that the zone's waves reach: the first groins beyond its tips.
void find_reach(const DiffractingCoast& coast, WorkedZone& zone);

/// Diffraction of one zone at its left tip (ID 1), then at its right one (ID 2). The first call
/// stores the coefficients of the left tip, the second one turns the undiffracted breaking heights
/// HBD of the zone into diffracted ones and chooses the ray that reaches each wall. The depth of
/// breaking changes with the height, so that each coefficient is found by iteration. False where
/// this does not converge; the report then says so.
bool KDGODA(std::int32_t ID, const DiffractingCoast& coast, WorkedZone& zone,
            Diffraction& diffraction, Report& report);

}  // namespace kelprun
