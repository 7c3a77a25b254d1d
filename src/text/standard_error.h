#pragma once

#include <string_view>

namespace kelprun {

/// Writes "kelprun: " and the text as one line on standard error.
void error_line(std::string_view text);

/// The same behind "warning: "; the run goes on.
void warning_line(std::string_view text);

/// Whether standard error is a terminal, the one place where a progress line may stand.
bool progress_wanted();

/// Replaces the progress line; the next line on standard error removes it first.
void show_progress(std::string_view text);
void clear_progress();

}  // namespace kelprun
