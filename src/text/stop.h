#pragma once

#include <string>
#include <string_view>

namespace kelprun {

/// Takes the exit status and must not return. The default one ends the process.
using StopHandler = void (*)(int status);

/// Replaces the way in which a run ends (a test sets one that throws); gives the former one.
StopHandler set_stop_handler(StopHandler handler);

/// The one end of a run that cannot go on: everything written so far reaches its file, then the
/// handler is called.
[[noreturn]] void stop_run(int status);

/// Fatal message: one console record of exactly 80 characters, "ERROR: " and the message cut or
/// padded to 73, then a stop with status 1.
[[noreturn]] void fatal(std::string_view message);

/// Run-time message: one line "kelprun: TEXT" on standard error behind all output so far, then a
/// stop with status 1.
[[noreturn]] void run_time_message(std::string_view text);

}  // namespace kelprun
