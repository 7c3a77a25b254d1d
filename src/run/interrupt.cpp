#include "run/interrupt.h"

#include <csignal>

namespace kelprun {

namespace {

volatile std::sig_atomic_t arrived = 0;

extern "C" void note_signal(int signal) {
  if (arrived == 0) arrived = signal;
}

void await(int signal) {
  struct sigaction former {};
  if (sigaction(signal, nullptr, &former) != 0 || former.sa_handler == SIG_IGN) return;
  struct sigaction noting {};
  noting.sa_handler = note_signal;
  sigemptyset(&noting.sa_mask);
  // A write that a signal breaks off goes on; the second signal finds the usual end.
  noting.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
  sigaction(signal, &noting, nullptr);
}

}  // namespace

void await_interrupts() {
  await(SIGINT);
  await(SIGTERM);
}

int interrupting_signal() { return arrived; }

std::string_view signal_name(int signal) { return signal == SIGINT ? "SIGINT" : "SIGTERM"; }

}  // namespace kelprun
