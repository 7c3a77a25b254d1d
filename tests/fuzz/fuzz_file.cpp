#include "fuzz/harness.h"

/// The reader of one input file, and what a run makes of it. KELPRUN_FUZZED_FILE is its name.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kelptest::run_with(KELPRUN_FUZZED_FILE, kelptest::as_text(data, size));
  return 0;
}
