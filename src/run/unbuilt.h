#pragma once

#include <string>

#include "model/model.h"

namespace kelprun {

/// Ends the run where the configuration holds structures or events that this version reads and
/// checks but cannot run: a result without them would mislead.
void refuse_unbuilt(const Model& model, const std::string& configuration);

}  // namespace kelprun
