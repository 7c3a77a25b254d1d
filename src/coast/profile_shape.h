#pragma once

namespace kelprun {

/// Shape factor of the equilibrium profile h = ASHAPE y^(2/3), m^(1/3), from the median grain size
/// D50 in mm (Moore 1982; Dean 1991, "Equilibrium beach profiles", J. Coastal Research 7(1)).
float profile_shape_factor(float D50);

/// Beach slope of the step from the shape factor and the depth of active movement, m.
float beach_slope(float ASHAPE, float DLTZ);

}  // namespace kelprun
