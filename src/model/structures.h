#pragma once

#include <cstdint>

#include "model/array.h"

namespace kelprun {

/// Groins as configured and merged; positions are relative to YREG once the run has begun. Owner:
/// input/; the last five fields: run/ at set-up, ICSTR, BYPF and QGR: coast/ in every step.
struct Groins {
  std::int32_t NNDG = 0;       ///< non-diffracting groins
  Array1<std::int32_t> IXNDG;  ///< wall
  Array1<float> YNDG, PNDG;    ///< tip position, m; permeability
  std::int32_t NDG = 0;        ///< diffracting groins
  Array1<std::int32_t> IXDG;
  Array1<float> YDG, DDG, PDG;  ///< tip position, m; depth at the tip, m; permeability

  std::int32_t NGRP = 0;  ///< all groins, ascending by wall
  Array1<std::int32_t> IXGRP;
  Array1<float> YGT, PGR;  ///< tip position, m; permeability
  Array1<float> BYPF;      ///< factor on the transport of the groin's wall
  Array1<float> QGR;       ///< transport that the groin would see, m3/s; its sign steers the lee

  /// Which end of a breakwater lies on the groin's wall: 0 none, 1 the left end, 2 the right end,
  /// 3 one of each. By groin of the merged list, and by wall.
  Array1<std::int32_t> IGCONN;
  PerWall<std::int32_t> IGSHAD;

  /// Structure type of a wall: 0 none; 1, 3, 4 diffracting groin with its tip seaward of, level
  /// with, landward of the shoreline; 2 beside a diffracting groin; -1, -2 non-diffracting groin
  /// with its tip seaward of, level with the shoreline. Walls 1 to NX+1. Writers in call order:
  /// set-up, the structure states and the groin factors of each pass.
  PerWall<std::int32_t> ICSTR;
};

/// Place in the merged list of the groin on a wall; 0 where none stands.
inline std::int32_t groin_on(const Groins& groins, std::int32_t wall) {
  for (std::int32_t k = 1; k <= groins.NGRP; ++k)
    if (groins.IXGRP(k) == wall) return k;
  return 0;
}

/// A wall type of a diffracting groin that stands out or ends level with the shoreline.
inline bool is_standing_groin(std::int32_t type) { return type == 1 || type == 3; }

/// Stretch of cells I1 to I2 behind one breakwater or several that touch.
struct LeeGroup {
  std::int32_t I1 = 0;
  std::int32_t I2 = 0;
};

/// Transmission of the breakwaters over the run. Owner: waves/.
struct TransmissionStatistics {
  Array1<float> KTMAX, KTMIN, KTSUM;  ///< by breakwater
  std::int32_t KTCOUNT = 0;           ///< values in KTSUM
};

/// Detached breakwaters as configured. A breakwater covers cells DBI1 to DBI2-1. Owner: input/; the
/// fields from ATDB on: run/ at set-up; IBWST: coast/.
struct Breakwaters {
  std::int32_t NDB = 0;
  Array1<std::int32_t> DBI1, DBI2;      ///< cells of the left and right tip
  Array1<float> DBY1, DBY2;             ///< distance of the tips from the baseline, m
  Array1<float> DBDEP1, DBDEP2;         ///< depth at the tips, m
  Array1<float> TRANDB;                 ///< transmission coefficient
  Array1<std::int32_t> KTMETDB;         ///< transmission method
  Array1<float> HDB, BDB, SSDB, SHSDB;  ///< crest height and width, seaward and shoreward slope
  Array1<float> D50DB, PDB;             ///< stone size; kept and not used

  Array1<float> ATDB;           ///< cross-section area
  Array1<float> DBD;            ///< depth at the breakwater, m
  Array1<std::int32_t> ICDB;    ///< cell whose wave reaches the breakwater
  TransmissionStatistics kt;    ///< for the report (waves/)
  Array1<LeeGroup> lee_groups;  ///< ascending
  /// Groins at the ends of a breakwater: 0 none, 1 at the left one, 2 at the right one, 3 both.
  Array1<std::int32_t> attached;

  /// Cell against breakwater: 0 none, 1 shoreline landward of the line, -1 on it, -2 beyond it.
  PerWall<std::int32_t> IBWST;
};

/// Seawalls as configured. Owner: input/.
struct Seawalls {
  std::int32_t NSW = 0;
  Array1<std::int32_t> ISWBEG, ISWEND;  ///< first and last cell
  Array1<float> SWY1, SWY2;             ///< position at the two ends, in the file's unit
};

/// A point where waves may bend: cell, distance from the baseline and depth, m.
struct Tip {
  std::int32_t cell = 0;
  float Y = 0.0f;
  float D = 0.0f;
};

/// Marks among the tips: the coast's open ends, and what an exhausted list counts as.
inline constexpr std::int32_t LEFT_END_TIP = -1;
inline constexpr std::int32_t RIGHT_END_TIP = 9998;
inline constexpr std::int32_t LAST_TIP = -2;
inline constexpr std::int32_t EXHAUSTED = 9999;

/// Tips in coast order, as the checks of the configuration lay them out. Owner: input/; run/ makes
/// positions relative to YREG, waves/ turns `tips` into the list that the zones lie between.
struct Tips {
  Array1<Tip> breakwater_tips;  ///< both tips of each breakwater, with the virtual ends
  Array1<Tip> groin_tips;       ///< inner diffracting groins twice, those on a boundary once
  Array1<Tip> tips;             ///< merge of the two, ascending by cell
  std::int32_t NZ = 0;          ///< zones between the tips (input/, waves/)
  /// 1: the tip is inactive in this step, because the shoreline has passed it (coast/).
  Array1<std::int32_t> TIPOFF;
};

}  // namespace kelprun
