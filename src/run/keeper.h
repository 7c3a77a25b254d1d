#pragma once

#include <functional>

namespace kelprun {

/// Starts a second process that does nothing but wait for the end of this one. Where this one is
/// killed, which the system may do in the middle of a long record, the second one calls `repair`;
/// where this one ends by itself, the second one has ended before. Without a second process (the
/// system may refuse one) the run goes on unkept.
void keep_after_death(const std::function<void()>& repair);

}  // namespace kelprun
