#include "input/timed_records.h"

#include <cmath>
#include <string>

#include "text/fields.h"
#include "text/list_read.h"
#include "text/stop.h"

namespace kelprun {

namespace {

using Item = ListReader::Item;

constexpr float LONGEST_STEP = 6.0f;  ///< h; a tide is lost between longer ones

template <class Number>
void read_item(InputFile& file, ListReader& list, std::int32_t n, Number& target) {
  const Item item = list.read(target);
  if (item == Item::bad) file.failure(n, shown(list.item_text()) + " is no number of its kind");
  if (item == Item::end_of_file)
    file.failure(n, "the file ends after " + std::to_string(n - 1) + " records");
}

std::string text(std::string_view before, std::string_view name, std::string_view behind) {
  return std::string(before).append(name).append(behind);
}

[[noreturn]] void refuse_long_step(const SeriesName& name, Report& report) {
  report.line(" ERROR.  Time step in ", name.plain, " file exceeds 6 hours.  Please");
  report.line(" review and revise your input ", name.plain, " file.");
  fatal(text("ERROR. ", name.first_word, " time step exceeds 6 hours."));
}

[[noreturn]] void refuse_short_step(const SeriesName& name, Report& report) {
  report.line(" ERROR. SIMULATION TIME STEP GREATER THAN TIME STEP IN ", name.capitals, " FILE.");
  report.line(" PLEASE REVIEW AND REVISE YOUR .cfg AND INPUT ", name.capitals,
              " FILE AS APPROPRIATE.");
  fatal(text("ERROR. Simulation time step greater than ", name.plain, " time step."));
}

[[noreturn]] void refuse_uneven_step(const SeriesName& name, Report& report) {
  report.line(" ERROR. TIME STEP IN ", name.capitals,
              " FILE MUST BE A MULTIPLE OF SIMULATION TIME STEP.");
  report.line(" PLEASE REVIEW AND REVISE YOUR ", name.capitals, " FILE.");
  fatal(text("ERROR. ", name.first_word, " time step not a multiple of simulation time step."));
}

}  // namespace

void read_timed_record(InputFile& file, std::int32_t n, TimedRecord& record) {
  ListReader list(file);
  read_item(file, list, n, record.date);
  read_item(file, list, n, record.hour);
  read_item(file, list, n, record.value);
}

std::int32_t clock_minutes(std::int32_t first, std::int32_t second) {
  return (second - first) - 40 * (second / 100 - first / 100);
}

bool is_multiple(float interval, float DT) {
  return std::fmod(1000.0f * interval, 1000.0f * DT) == 0.0f;
}

float series_step(std::int32_t first, std::int32_t second, float DT, const SeriesName& name,
                  Report& report) {
  const float step = static_cast<float>(clock_minutes(first, second)) / 60.0f;
  if (step > LONGEST_STEP) refuse_long_step(name, report);
  // Here ends also a step across midnight, which comes out negative: meant so.
  if (DT > step) refuse_short_step(name, report);
  if (!is_multiple(step, DT)) refuse_uneven_step(name, report);
  return step;
}

}  // namespace kelprun
