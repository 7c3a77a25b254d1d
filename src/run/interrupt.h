#pragma once

#include <string_view>

namespace kelprun {

/// From now on SIGINT and SIGTERM let the step that is under way come to its end; a second one ends
/// the process at once. A signal that was ignored at the start stays so.
void await_interrupts();

/// The signal that has arrived; 0 where none has.
int interrupting_signal();

std::string_view signal_name(int signal);

}  // namespace kelprun
