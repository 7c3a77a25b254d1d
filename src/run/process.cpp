#include "run/process.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <new>

#include "run/interrupt.h"
#include "text/stop.h"

namespace kelprun {

namespace {

void occupy(int descriptor) {
  if (fcntl(descriptor, F_GETFD) != -1) return;
  const int nothing = open("/dev/null", O_RDWR);
  if (nothing == -1 || nothing == descriptor) return;
  dup2(nothing, descriptor);
  close(nothing);
}

/// Needs no memory itself.
void tell_memory() { run_time_message("the memory of the system does not suffice for this run"); }

}  // namespace

void prepare_process() {
  occupy(STDIN_FILENO);
  occupy(STDERR_FILENO);
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
  std::set_new_handler(tell_memory);
  await_interrupts();
}

}  // namespace kelprun
