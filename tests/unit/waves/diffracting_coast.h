#pragma once

#include "model/model.h"
#include "text/report.h"
#include "waves/final_field.h"
#include "waves/zones.h"

namespace kelptest {

/// The records of a model that the diffraction reads.
inline kelprun::DiffractingCoast diffracting_coast(const kelprun::Model& m) {
  return {m.settings, m.grid,  m.boundaries, m.groins, m.breakwaters,
          m.tips,     m.zones, m.inlets,     m.shore};
}

/// The energy sum of all zones, HB and ZB; false where a coefficient does not converge.
inline bool combine_zones(kelprun::Model& m) {
  kelprun::Report report;
  return kelprun::combine_zones(diffracting_coast(m), m.series.WL, m.waves, m.diffraction, report);
}

inline void finish_field(kelprun::Model& m) {
  kelprun::finish_field(m.grid, m.groins, m.breakwaters, m.inlets, m.waves);
}

}  // namespace kelptest
