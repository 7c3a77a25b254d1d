#include "run/keeper.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>

namespace kelprun {

namespace {

pid_t keeper = -1;
int line_to_keeper = -1;

/// Tells the keeper that there is nothing to repair, and waits until it is gone: a run that follows
/// in the same folder has its files to itself.
void dismiss() {
  const char byte = 'd';
  if (write(line_to_keeper, &byte, 1) == 1) close(line_to_keeper);
  waitpid(keeper, nullptr, 0);
}

/// The keeper outlives what ends the run: signals to its group, its terminal, its outputs.
void stand_apart() {
  setsid();
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) std::signal(signal, SIG_IGN);
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) close(descriptor);
}

[[noreturn]] void keep(int line, const std::function<void()>& repair) {
  stand_apart();
  char byte = 0;
  if (read(line, &byte, 1) == 0) repair();
  _exit(0);
}

}  // namespace

void keep_after_death(const std::function<void()>& repair) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return;
  keeper = fork();
  if (keeper == 0) {
    close(ends[1]);
    keep(ends[0], repair);
  }
  close(ends[0]);
  line_to_keeper = ends[1];
  if (keeper > 0) std::atexit(dismiss);
}

}  // namespace kelprun
