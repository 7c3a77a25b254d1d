#pragma once

#include <cstdint>

#include "model/array.h"

namespace kelprun {

/// Beach fills and bypass operations. Owner: input/; YADD, QBP become rates at set-up (run/).
struct Events {
  std::int32_t NBF = 0;                 ///< beach fills
  Array1<std::int32_t> BFDATS, BFDATE;  ///< start, end: dates or step numbers
  Array1<std::int32_t> IBFS, IBFE;      ///< first and last cell
  Array1<float> YADD;                   ///< advance of the fill, m; per step after set-up
  std::int32_t NBP = 0;                 ///< bypass operations
  Array1<std::int32_t> BPDATS, BPDATE;
  Array1<std::int32_t> IBPS, IBPE;
  Array1<double> QBP;  ///< bypass rate
};

}  // namespace kelprun
