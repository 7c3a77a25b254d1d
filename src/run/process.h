#pragma once

namespace kelprun {

/// Makes the process safe for files: a standard error or input that is closed is replaced by
/// nothing, so that no file of the run takes its place; and a full disk, a limit of file sizes or a
/// reader that has gone is a failed write, which is told, and not the end of the process. Memory
/// that the system does not give ends the run with a line. An interrupt waits for the end of the
/// step.
void prepare_process();

}  // namespace kelprun
