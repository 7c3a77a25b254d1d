#pragma once

#include <cstdint>
#include <string_view>

#include "text/input_file.h"
#include "text/report.h"

/// Series of one value over time, a record each time: date, clock time, value.
namespace kelprun {

/// An item that a record leaves out keeps what stands here.
struct TimedRecord {
  std::int32_t date = 0;  ///< YYYYMMDD, in no use
  std::int16_t hour = 0;  ///< clock time HHMM
  float value = 0.0f;
};

/// Reads the file's next record, its n-th one. An item that is no number and the end of the file
/// end the run with a run-time message that names file, record and line.
void read_timed_record(InputFile& file, std::int32_t n, TimedRecord& record);

/// Minutes from the first to the second clock time HHMM of one day; negative across midnight.
std::int32_t clock_minutes(std::int32_t first, std::int32_t second);

/// Whether steps of DT hours fill the interval: the remainder between thousandths, in single
/// precision, must be exactly zero.
bool is_multiple(float interval, float DT);

/// What a series is called in its messages: "water level", "Water level" and "WATER LEVEL".
struct SeriesName {
  std::string_view plain;
  std::string_view first_word;
  std::string_view capitals;
};

/// Time step of a series, hours, from the clock times of its first two records; their dates do not
/// count. A step above 6 hours, below DT or no multiple of DT ends the run with two report lines
/// and a fatal message.
float series_step(std::int32_t first, std::int32_t second, float DT, const SeriesName& name,
                  Report& report);

}  // namespace kelprun
