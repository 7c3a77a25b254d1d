#pragma once

#include <string>
#include <string_view>

#include "input/keywords.h"

/// What keywords do besides storing one value: places in lists, echoes, opened files.
namespace kelprun {

/// The next place of a list; past its capacity a place that is never read.
template <class T>
T& next(Reading& r, Array1<T>& list, std::int32_t limit) {
  if (list.size() >= limit) return std::get<T>(r.dropped);
  list.append(T{});
  return list(list.size());
}

/// The same for a count keyword, which keeps counting past the capacity so that the checks see it.
template <class T>
T& counted(Reading& r, std::int32_t& count, Array1<T>& list, std::int32_t limit) {
  ++count;
  return next(r, list, limit);
}

/// One line on standard error ahead of a fatal message: the file, the line that is being read, the
/// keyword, and what is wrong.
void explain_line(const Reading& r, std::string_view keyword, std::string_view what);

/// Ends the run: `keyword` stands ahead of the `opener` line that it belongs to.
[[noreturn]] void refuse_unopened(const Reading& r, std::string_view keyword,
                                  std::string_view opener);

/// The place of the record that `opener` opened last.
template <class T>
T& at_count(Reading& r, std::string_view keyword, std::string_view opener, std::int32_t count,
            Array1<T>& list, std::int32_t limit) {
  if (count < 1) refuse_unopened(r, keyword, opener);
  if (count > limit) return std::get<T>(r.dropped);
  if (list.size() < count) list.resize(static_cast<std::size_t>(count));
  return list(count);
}

/// The place of the inlet opened last.
template <class T>
T& of_inlet(Reading& r, std::string_view keyword, Array1<T>& list) {
  return at_count(r, keyword, "IINLS", r.model.inlets.NINL, list, capacity::INLETS);
}

/// The first entry of a list, under its second name; without counting.
std::int32_t& first_entry(Array1<std::int32_t>& list, std::int32_t& ahead_of_first);

void echo_title(Reading& r);
void echo_cell_widths(Reading& r);
void open_initial_shoreline(Reading& r);
void open_regional_contour(Reading& r);
void open_bypass_events(Reading& r);
void open_report(Reading& r);

/// One wave file: last cell served, gauge depth, number of wave events, name.
bool read_wave_file_line(Reading& r, std::string_view value);
/// The water level file: number of records, name.
bool read_water_level_line(Reading& r, std::string_view value);
/// One tidal current station: last cell served, number of records, name.
bool read_tidal_line(Reading& r, std::string_view value);

void note_transmission_method(Reading& r);

/// An equilibrium volume of 0 is replaced by 0.00001, so that all fill ratios exist.
void replace_zero(Reading& r, Array1<float>& volumes, std::string_view keyword);

/// Opens a dredging event of the inlet opened last.
Dredging& opened_dredging(Reading& r);
/// The event of the current inlet and the current count.
Dredging& current_dredging(Reading& r, std::string_view keyword);
/// The days of the events to come.
float& dredging_days(Reading& r);
/// The volume as a rate per step, from the days and the step length seen so far in the file.
void store_dredging_rate(Reading& r);

}  // namespace kelprun
