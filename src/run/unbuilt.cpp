#include "run/unbuilt.h"

#include "text/stop.h"

namespace kelprun {

void refuse_unbuilt(const Model& m, const std::string& configuration) {
  const auto refuse_if = [&](bool given, const char* what) {
    if (given) run_time_message(configuration + ": this version cannot run " + what);
  };
  refuse_if(m.inlets.NINL > 0, "tidal inlets");
  refuse_if(m.events.NBF > 0, "beach fills");
  refuse_if(m.events.NBP > 0, "bypass operations");
}

}  // namespace kelprun
