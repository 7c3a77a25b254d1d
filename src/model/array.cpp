#include "model/array.h"

#include <cstdio>
#include <cstdlib>

namespace kelprun {

void index_failure(std::int64_t i, std::size_t size) {
  std::fprintf(stderr, "kelprun: internal error: index %lld outside 1 to %zu\n",
               static_cast<long long>(i), size);
  std::abort();
}

}  // namespace kelprun
