#include "run/held_wave.h"

#include <algorithm>

namespace kelprun {

void hold_wave(Waves& w) {
  w.held = w.pass;
  std::copy(w.HRF.begin(), w.HRF.end(), w.HRF_held.begin());
  std::copy(w.ZRF.begin(), w.ZRF.end(), w.ZRF_held.begin());
}

void restore_wave(Waves& w) {
  w.pass = w.held;
  std::copy(w.HRF_held.begin(), w.HRF_held.end(), w.HRF.begin());
  std::copy(w.ZRF_held.begin(), w.ZRF_held.end(), w.ZRF.begin());
}

}  // namespace kelprun
