#include "input/water_levels.h"

#include "input/timed_records.h"
#include "text/console.h"
#include "text/stop.h"

namespace kelprun {

void read_water_levels(const Settings& settings, float DT, InputFiles& files, Series& series,
                       Report& report) {
  console_line("Reading WTRELFILE");
  if (!files.water_level.is_open())
    run_time_message("WLFILE: KTMETDB is given, but no water level file is named");
  series.WLFILE.allocate(static_cast<std::size_t>(series.NWLREC));
  std::int16_t first = 0;
  std::int16_t second = 0;
  for (std::int32_t i = 1; i <= series.NWLREC; ++i) {
    TimedRecord record;
    read_timed_record(files.water_level, i, record);
    series.WLFILE(i) = record.value * settings.CONV;
    if (i == 1) first = record.hour;
    if (i == 2) second = record.hour;
  }
  series.DTWL =
      series_step(first, second, DT, {"water level", "Water level", "WATER LEVEL"}, report);
  series.IWLREC = 2;
}

}  // namespace kelprun
