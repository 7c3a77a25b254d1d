#include "run/numerics.h"

#if defined(__x86_64__)
#include <pmmintrin.h>
#include <xmmintrin.h>
#elif defined(__aarch64__)
#include <cstdint>
#endif

namespace kelprun {

void flush_denormals() {
#if defined(__x86_64__)
  _MM_SET_FLUSH_ZERO_MODE(_MM_FLUSH_ZERO_ON);
  _MM_SET_DENORMALS_ZERO_MODE(_MM_DENORMALS_ZERO_ON);
#elif defined(__aarch64__)
  constexpr std::uint64_t FLUSH_TO_ZERO = std::uint64_t{1} << 24;
  std::uint64_t control = 0;
  __asm__ __volatile__("mrs %0, fpcr" : "=r"(control));
  __asm__ __volatile__("msr fpcr, %0" : : "r"(control | FLUSH_TO_ZERO));
#endif
}

}  // namespace kelprun
