#pragma once

#include "input/input_files.h"
#include "model/model.h"

namespace kelprun {

/// Refuses a run whose report or tables would overwrite one of its own input files (same path,
/// link or inode) or each other, naming both. Warns of table names that start with a full stop.
void refuse_shared_names(const Model& model, const InputFiles& files);

}  // namespace kelprun
