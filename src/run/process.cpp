#include "run/process.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

#include "run/interrupt.h"

namespace kelprun {

namespace {

void occupy(int descriptor) {
  if (fcntl(descriptor, F_GETFD) != -1) return;
  const int nothing = open("/dev/null", O_RDWR);
  if (nothing == -1 || nothing == descriptor) return;
  dup2(nothing, descriptor);
  close(nothing);
}

}  // namespace

void prepare_process() {
  occupy(STDIN_FILENO);
  occupy(STDERR_FILENO);
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
  await_interrupts();
}

}  // namespace kelprun
