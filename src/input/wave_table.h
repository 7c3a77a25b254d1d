#pragma once

#include "input/input_files.h"
#include "model/model.h"
#include "text/report.h"

namespace kelprun {

/// Reads the date table of the wave events from the last wave file, and rewinds that file; a
/// steady file has none.
void read_wave_dates(Series& series, InputFiles& files);

/// Time step of the wave files, hours, from the first two entries of the table; the step length
/// itself where the file is steady. Two first dates in different months or years end the run.
void set_wave_step(Series& series, float DT, Report& report);

/// Warns where the wave files hold fewer records than the run will need.
void warn_of_short_waves(const Series& series, const Clock& clock);

/// Entry of the date table or 0 outside it; `entry` 0 is the last one once the table has cycled.
struct WaveStamp {
  std::int32_t date = 0;
  std::int32_t hour = 0;
};
WaveStamp wave_stamp(const Series& series, std::int32_t entry, bool cycled);

}  // namespace kelprun
