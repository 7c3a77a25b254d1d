#pragma once

#include <cstdint>

#include "model/model.h"
#include "text/report.h"

/// Transmission coefficients KT of the detached breakwaters: the share of the wave height that
/// passes through or over each, from the wave and the water level in force.
namespace kelprun {

/// Wave and water level at a breakwater, m.
struct BreakwaterWave {
  float Hi;  ///< height at the structure
  float L0;  ///< deep-water length
  float L;   ///< length at the structure
  float Rc;  ///< freeboard, negative where the crest is submerged
};

/// What is worth a line in the report about one coefficient, in the order of the lines.
struct TransmissionWarnings {
  bool above_limit = false;     ///< KT was above 1.5
  bool below_zero = false;      ///< KT was below 0
  bool negative_range = false;  ///< an input of method 1 lies below its range
  bool beyond_range = false;    ///< an input of method 1 lies above its range
  bool operator==(const TransmissionWarnings&) const = default;
};

struct Transmitted {
  float KT;
  TransmissionWarnings warnings;
};

/// Method 1: submerged rubble mound, Rc < 0 (Seabrook and Hall 1998, "Wave transmission at
/// submerged rubblemound breakwaters", Proc. 26th Coastal Engineering Conf. ASCE). Crest width BDB
/// and stone size D50DB; a stone size of 0 gives a value that is not a number.
Transmitted transmission_over_submerged_crest(const BreakwaterWave& wave, float BDB, float D50DB);

/// Method 2: low crest of width BDB and seaward slope SSDB (d'Angremond, van der Meer and de Jong
/// 1996, "Wave transmission at low-crested structures", Proc. 25th Coastal Engineering Conf. ASCE,
/// for narrow crests; van der Meer, Briganti, Zanuttigh and Wang 2005, "Wave transmission and
/// reflection at low-crested structures", Coastal Engineering 52, for wide ones). Between 0.075 and
/// 0.8; its two parts are whole numbers, and meant so, which leaves one of the two limits for most
/// waves. Nothing is left to warn of.
Transmitted transmission_over_low_crest(const BreakwaterWave& wave, float BDB, float SSDB);

/// Any other method: through and over a reef breakwater, two parts summed by their squares (after
/// Ahrens 2001, "Wave transmission over reef breakwaters", Proc. Waves 2001 ASCE). Crest height
/// HDB, cross-section ATDB, stone size D50DB.
Transmitted transmission_through_and_over(const BreakwaterWave& wave, float HDB, float ATDB,
                                          float D50DB);

/// Brings the wave of a reference cell to the breakwater in a depth d above 0: its height and angle
/// are those of the cell, its wave number and group speed those of deep water, and meant so. HDB is
/// taken as configured, also where the run is in feet and d in metres.
BreakwaterWave wave_at_breakwater(const Waves& waves, float ALPHAC, std::int32_t cell, float d,
                                  float HDB);

/// Slot of the next breakwater in the row of zones: the first behind `slot` that is neither open
/// water nor without extent; one past the end where there is none.
std::int32_t next_breakwater_slot(const Array1<float>& KTZ, std::int32_t slot);

/// Cross-section, depth and reference cell of each breakwater, and statistics of zero: once before
/// the run, and only where KT is computed. The tips are those of the breakwaters with the virtual
/// ends.
void prepare_transmission(const Settings& settings, const Grid& grid, const Groins& groins,
                          const Tips& tips, Breakwaters& breakwaters);

/// The coefficients of a wave pass into KTZ, and their statistics: computed anew with a new wave or
/// water level record, otherwise those in force count once more. Nothing where KT is given. A crest
/// above the water ends the run where method 1 is asked for.
void update_transmission(const Settings& settings, const Clock& clock, const Series& series,
                         const Waves& waves, const PerWall<float>& ALPHAC, Breakwaters& breakwaters,
                         Zones& zones, Report& report);

}  // namespace kelprun
