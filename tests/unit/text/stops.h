#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "text/stop.h"

namespace kelptest {

struct Stopped {
  int status;
};

/// What a routine wrote on both outputs, and the exit status where it ended the run.
struct Said {
  std::string out;
  std::string err;
  std::optional<int> status;
};

/// Calls the routine with a stop handler that throws instead of ending the process.
template <class Routine>
Said listen(Routine routine) {
  const kelprun::StopHandler former =
      kelprun::set_stop_handler([](int status) { throw Stopped{status}; });
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  Said said;
  try {
    routine();
  } catch (const Stopped& stopped) {
    said.status = stopped.status;
  }
  said.out = testing::internal::GetCapturedStdout();
  said.err = testing::internal::GetCapturedStderr();
  kelprun::set_stop_handler(former);
  return said;
}

/// The console record of a fatal message with its line end.
inline std::string fatal_record(const std::string& message) {
  std::string text = message.substr(0, 73);
  text.resize(73, ' ');
  return "ERROR: " + text + "\n";
}

}  // namespace kelptest
