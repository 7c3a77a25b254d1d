#pragma once

#include "model/model.h"

namespace kelprun {

/// How far the shoreline has come to each structure, once a wave pass: the types ICSTR of the
/// diffracting groins, the states IBWST of the cells behind breakwaters with the line YBW that
/// they may not pass and the limit YSW that they may not fall behind, and the tips TIPOFF that the
/// shoreline has passed. TIPOFF holds a place for each entry of Tips::tips.
void set_structure_states(const Grid& grid, Groins& groins, Breakwaters& breakwaters, Shore& shore,
                          Tips& tips);

}  // namespace kelprun
