#pragma once

#include "model/model.h"

namespace kelprun {

/// Takes all storage by cell and wall, in the size of the grid; the loop takes none.
void take_storage(Model& model);

}  // namespace kelprun
