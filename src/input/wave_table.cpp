#include "input/wave_table.h"

#include <algorithm>
#include <string>

#include "input/timed_records.h"
#include "text/fields.h"
#include "text/list_read.h"
#include "text/standard_error.h"
#include "text/stop.h"

namespace kelprun {

namespace {

using Item = ListReader::Item;

template <class Number>
void read_stamp_item(InputFile& file, ListReader& list, std::int32_t record, Number& target) {
  const Item item = list.read(target);
  if (item == Item::bad)
    file.failure(record, shown(list.item_text()) + " is no whole number of its kind");
  if (item == Item::end_of_file)
    file.failure(record, "the file ends after " + std::to_string(record - 1) + " records");
}

[[noreturn]] void refuse_step(std::string_view span, Report& report) {
  report.line(" ERROR.  Time step in WAVEFILE exceeds one ", span, ".  Please");
  report.line(" review and revise your input wave files.");
  fatal("ERROR. Wave time step exceeds one " + std::string(span) + ".");
}

}  // namespace

void read_wave_dates(Series& series, InputFiles& files) {
  if (series.WAVEID == 0) return;
  series.WAVEDATE.allocate(static_cast<std::size_t>(series.WAVEID));
  series.WAVEHOUR.allocate(static_cast<std::size_t>(series.WAVEID));
  InputFile& file = files.waves.back();
  for (std::int32_t i = 1; i <= series.WAVEID; ++i) {
    ListReader list(file);
    read_stamp_item(file, list, i, series.WAVEDATE(i));
    read_stamp_item(file, list, i, series.WAVEHOUR(i));
  }
  file.rewind();
}

void set_wave_step(Series& series, float DT, Report& report) {
  if (series.WAVEID == 0) {
    series.WAVEDT = DT;
    return;
  }
  const WaveStamp first = wave_stamp(series, 1, false);
  const WaveStamp second = wave_stamp(series, 2, false);
  std::int32_t minutes = clock_minutes(first.hour, second.hour);
  if (first.date != second.date) {
    if (first.date / 10000 != second.date / 10000) refuse_step("year", report);
    if (first.date / 100 != second.date / 100) refuse_step("month", report);
    minutes += (second.date - first.date) * 24 * 60;
  }
  series.WAVEDT = static_cast<float>(minutes) / 60.0f;
}

void warn_of_short_waves(const Series& series, const Clock& clock) {
  if (series.WAVEID == 0) return;
  const auto early = std::find_if(series.WAVEDATE.begin(), series.WAVEDATE.end(),
                                  [&](std::int32_t date) { return date >= clock.SIMDATS; });
  const auto usable = series.WAVEDATE.end() - early;
  const std::int32_t needed = (clock.NTS - 1) / clock.NWSTEP + 1;
  if (usable < needed)
    warning_line("the run needs " + std::to_string(needed) + " wave records, the table holds " +
                 std::to_string(usable) + " from the start date on");
}

WaveStamp wave_stamp(const Series& series, std::int32_t entry, bool cycled) {
  if (entry == 0 && cycled) entry = series.WAVEDATE.size();
  if (entry < 1 || entry > series.WAVEDATE.size()) return {};
  return {series.WAVEDATE(entry), series.WAVEHOUR(entry)};
}

}  // namespace kelprun
