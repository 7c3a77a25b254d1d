#pragma once

#include <cstdint>

#include "model/model.h"

/// Values that would make nonsense of the whole run, or lead outside the grid or a list, and that
/// no other check catches: each is refused by a fatal message which names keyword and value.
namespace kelprun {

void refuse_empty_grid(std::int32_t NX);

/// Everything that can be told once the configuration has passed its other checks.
void refuse_nonsense(const Model& model);

/// Tips of breakwaters, ahead of the merge of all tips.
void refuse_tips(const Breakwaters& breakwaters, std::int32_t NX);

/// Cell widths, once they are known for every cell.
void refuse_widths(const Grid& grid);

/// What a user surely did not mean, though it runs: a line on standard error each.
void warn_of_oddities(const Model& model);

}  // namespace kelprun
