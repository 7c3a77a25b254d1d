#pragma once

#include "model/model.h"
#include "text/report.h"

namespace kelprun {

/// Stability parameter S = S1 + S2 of the explicit scheme for a step of DT hours, from the breaking
/// wave field: the largest diffusive term and the largest gradient term, each at its own worst
/// cell. Values above 0.5 are unstable.
float stability_parameter(const Grid& grid, const Profile& profile, const Waves& waves, float DT);

/// Warns on the console of an S above 0.5, and in the report the first time or always.
void warn_of_instability(const Settings& settings, const Series& series, const Waves& waves,
                         float S, Clock& clock, Report& report);

/// Changes the step length where the configuration lets it adapt: shrinks it until S is not above
/// STABMIN, or doubles it after a quiet spell; what follows from the step length is rescaled, and
/// nothing is computed again but S.
void adapt_step(Model& model, float S, Report& report);

}  // namespace kelprun
