#include "input/keyword_actions.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <type_traits>

#include "model/constants.h"
#include "text/console.h"
#include "text/fields.h"
#include "text/list_read.h"
#include "text/standard_error.h"
#include "text/stop.h"

namespace kelprun {

namespace {

using Item = ListReader::Item;

/// Longer names are cut, as every name of the configuration is.
std::string file_name(std::string_view name) { return std::string(cut(name, capacity::FILE_NAME)); }

void open_or_stop(const Reading& r, std::string_view keyword, InputFile& file,
                  const std::string& name, std::string_view message) {
  if (file.open(name)) return;
  explain_line(r, keyword, shown(name) + " cannot be opened: " + open_failure(name));
  fatal(message);
}

[[noreturn]] void refuse_surplus(const Reading& r, std::string_view keyword, std::int32_t most,
                                 std::string_view what) {
  explain_line(r, keyword, "one too many");
  fatal(std::string(keyword) + ": more than " + std::to_string(most) + " " + std::string(what));
}

/// Reads one item of a line of items; keeps the text of one that is none.
template <class Target>
bool take(Reading& r, ListReader& list, Target& target) {
  Item item;
  if constexpr (std::is_same_v<Target, std::string>)
    item = list.read_name(target);
  else
    item = list.read(target);
  if (item == Item::bad) r.bad_item = list.item_text();
  return item != Item::bad;
}

}  // namespace

void explain_line(const Reading& r, std::string_view keyword, std::string_view what) {
  error_line(r.files.configuration + ": line " + std::to_string(r.line) + ": " +
             std::string(keyword) + ": " + std::string(what));
}

void refuse_unopened(const Reading& r, std::string_view keyword, std::string_view opener) {
  explain_line(r, keyword, "no " + std::string(opener) + " line stands ahead of it");
  fatal(std::string(keyword) + " stands before any " + std::string(opener) + " line");
}

std::int32_t& first_entry(Array1<std::int32_t>& list, std::int32_t& ahead_of_first) {
  return list.empty() ? ahead_of_first : list(1);
}

void echo_title(Reading& r) { console_line("Simulation Title: ", r.model.settings.TITLE); }

void echo_cell_widths(Reading& r) {
  console_line("Reading Variable Grid Cell Spacing File: ", r.model.settings.DXIN);
}

void open_initial_shoreline(Reading& r) {
  console_line("Reading Initial Shoreline: ", r.model.settings.SHOIN);
  open_or_stop(r, "INIFILE", r.files.initial_shoreline, r.model.settings.SHOIN,
               "Cannot not open initial shoreline file");
}

void open_regional_contour(Reading& r) {
  console_line("Reading Regional Shoreline: ", r.model.settings.REGFILE);
  open_or_stop(r, "REGFILE", r.files.regional_contour, r.model.settings.REGFILE,
               "Cannot not open regional shoreline file");
}

void open_bypass_events(Reading& r) {
  console_line("Opening Non-uniform Bypass Event Input File: ", r.model.settings.BYPFILE);
  // The message names the water level file; users know it so, and it stays.
  open_or_stop(r, "BYPFILE", r.files.bypass, r.model.settings.BYPFILE,
               "Cannot not open water level file");
}

void open_report(Reading& r) {
  Settings& settings = r.model.settings;
  settings.STEM = settings.PRTFILE.substr(0, settings.PRTFILE.find('.'));
  if (settings.STEM.size() < settings.PRTFILE.size()) settings.STEM += '.';
  errno = 0;
  if (r.report.set_name(settings.PRTFILE)) return;
  explain_line(r, "PRFILE",
               shown(settings.PRTFILE) + " cannot be opened for writing: " + std::strerror(errno));
  fatal("Cannot not open prtfil file");
}

bool read_wave_file_line(Reading& r, std::string_view value) {
  Series& series = r.model.series;
  std::int32_t end_cell = 0;
  float depth = 0.0f;
  std::string name;
  ListReader list(value);
  if (!take(r, list, end_cell) || !take(r, list, depth) || !take(r, list, series.WAVEID) ||
      !take(r, list, name))
    return false;
  name = file_name(name);
  if (series.IWEND.size() >= capacity::WAVE_FILES)
    refuse_surplus(r, "WAVEID", capacity::WAVE_FILES, "wave files");
  series.IWEND.append(end_cell);
  series.WMDEP.append(depth);
  series.WAVEFILE.append(name);
  r.wave_file_name = name;
  console_line("Opening Wave Input File: ", name);
  open_or_stop(r, "WAVEID", r.files.waves.emplace_back(), name, "Cannot not open wave file");
  return true;
}

bool read_water_level_line(Reading& r, std::string_view value) {
  Series& series = r.model.series;
  ListReader list(value);
  if (!take(r, list, series.NWLREC) || !take(r, list, series.WTRELFILE)) return false;
  series.WTRELFILE = file_name(series.WTRELFILE);
  console_line("Opening Water Level Input File: ", series.WTRELFILE);
  open_or_stop(r, "WLFILE", r.files.water_level, series.WTRELFILE,
               "Cannot not open water level file");
  return true;
}

bool read_tidal_line(Reading& r, std::string_view value) {
  Series& series = r.model.series;
  std::int32_t end_cell = 0;
  std::string name;
  ListReader list(value);
  if (!take(r, list, end_cell) || !take(r, list, series.NTCRNTREC) || !take(r, list, name))
    return false;
  name = file_name(name);
  if (series.ITCEND.size() >= capacity::TIDAL_FILES)
    refuse_surplus(r, "TIDEFILE", capacity::TIDAL_FILES, "tidal current files");
  series.ITCEND.append(end_cell);
  series.TCRNTFILE.append(name);
  series.TIDEFLAG = 1;
  console_line("Opening Tidal Current Input File: ", name);
  open_or_stop(r, "TIDEFILE", r.files.tides.emplace_back(), name,
               "Cannot not open tidal current file");
  return true;
}

void note_transmission_method(Reading& r) {
  Breakwaters& breakwaters = r.model.breakwaters;
  r.model.settings.KTMETFLAG = 1;
  const std::int32_t entry = breakwaters.KTMETDB.size();
  const std::int32_t method = breakwaters.KTMETDB(entry);
  if (method == 0 || method == 1)
    at_count(r, "PDB", "KTMETDB", entry, breakwaters.PDB, capacity::BREAKWATERS) = 1.0f;
  if (method == 2)
    at_count(r, "D50DB", "KTMETDB", entry, breakwaters.D50DB, capacity::BREAKWATERS) = 0.0f;
}

void replace_zero(Reading& r, Array1<float>& volumes, std::string_view keyword) {
  float& volume = volumes(volumes.size());
  if (volume != 0.0f) return;
  volume = LEAST_VOLUME;
  const std::string message = std::string(keyword) + " cannot = 0; resetting to 0.00001";
  console_line(message);
  // Like every report line it is kept only once the report has a name.
  if (!r.model.settings.PRTFILE.empty()) r.report.line(message);
}

Dredging& opened_dredging(Reading& r) {
  Inlets& inlets = r.model.inlets;
  ++r.dredge_counter;
  of_inlet(r, "IMOR", inlets.NDRED) = r.dredge_counter;
  inlets.DREDFLAG = 1;
  return current_dredging(r, "IMOR");
}

Dredging& current_dredging(Reading& r, std::string_view keyword) {
  Inlets& inlets = r.model.inlets;
  if (inlets.NINL < 1) refuse_unopened(r, keyword, "IINLS");
  if (r.dredge_counter < 1) refuse_unopened(r, keyword, "IMOR");
  if (r.dredge_counter > capacity::DREDGE_EVENTS)
    refuse_surplus(r, "IMOR", capacity::DREDGE_EVENTS, "dredging events");
  // An event belongs to the inlet and the count that stand when its lines are read.
  if (inlets.dredgings.empty() || inlets.dredgings.back().inlet != inlets.NINL ||
      inlets.dredgings.back().event != r.dredge_counter)
    inlets.dredgings.push_back({inlets.NINL, r.dredge_counter, 0, 0, 0, 0.0f});
  return inlets.dredgings.back();
}

float& dredging_days(Reading& r) {
  if (r.model.inlets.NINL < 1) refuse_unopened(r, "DRDAY", "IINLS");
  return r.DRDAY;
}

void store_dredging_rate(Reading& r) {
  current_dredging(r, "DREDV").DREDQ = r.DREDV / r.DRDAY / 24.0f * r.model.clock.DT;
}

}  // namespace kelprun
