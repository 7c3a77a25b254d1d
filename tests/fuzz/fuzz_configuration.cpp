#include "fuzz/harness.h"

/// The configuration reader with all its checks.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kelptest::check_configuration(kelptest::as_text(data, size));
  return 0;
}
