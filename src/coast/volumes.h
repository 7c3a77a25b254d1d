#pragma once

#include "model/model.h"

namespace kelprun {

/// Volume change of each cell since the start, m3, and the same per unit length, m2; VOLTOTAL, the
/// sum of the volumes, and AREATOTAL, that of width times change of position, m2. A change of
/// position below a tenth of a millimetre counts as none.
void VOLSTEP(const Grid& grid, const Profile& profile, const Shore& shore, Ledgers& ledgers);

/// Adds the transport of a pass to the sums of the year and of the run, in reporting units, and
/// sets the annualised rate of the pass.
void add_transport(const Grid& grid, const Transport& transport, float VOLFAC, float CONVYD3,
                   Ledgers& ledgers);

}  // namespace kelprun
