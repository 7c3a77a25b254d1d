#include "input/keyword_actions.h"

#include <algorithm>

#include "model/constants.h"
#include "text/console.h"
#include "text/fields.h"
#include "text/list_read.h"
#include "text/stop.h"

namespace kelprun {

namespace {

using Item = ListReader::Item;

/// Longer names are cut, as every name of the configuration is.
std::string file_name(std::string_view name) { return std::string(cut(name, capacity::FILE_NAME)); }

void open_or_stop(InputFile& file, const std::string& name, std::string_view message) {
  if (!file.open(name)) fatal(message);
}

}  // namespace

void refuse_unopened(std::string_view keyword, std::string_view opener) {
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
  open_or_stop(r.files.initial_shoreline, r.model.settings.SHOIN,
               "Cannot not open initial shoreline file");
}

void open_regional_contour(Reading& r) {
  console_line("Reading Regional Shoreline: ", r.model.settings.REGFILE);
  open_or_stop(r.files.regional_contour, r.model.settings.REGFILE,
               "Cannot not open regional shoreline file");
}

void open_bypass_events(Reading& r) {
  console_line("Opening Non-uniform Bypass Event Input File: ", r.model.settings.BYPFILE);
  // The message names the water level file; users know it so, and it stays.
  open_or_stop(r.files.bypass, r.model.settings.BYPFILE, "Cannot not open water level file");
}

void open_report(Reading& r) {
  Settings& settings = r.model.settings;
  settings.STEM = settings.PRTFILE.substr(0, settings.PRTFILE.find('.'));
  if (settings.STEM.size() < settings.PRTFILE.size()) settings.STEM += '.';
  if (!r.report.set_name(settings.PRTFILE)) fatal("Cannot not open prtfil file");
}

bool read_wave_file_line(Reading& r, std::string_view value) {
  Series& series = r.model.series;
  std::int32_t end_cell = 0;
  float depth = 0.0f;
  std::string name;
  ListReader list(value);
  if (list.read(end_cell) == Item::bad || list.read(depth) == Item::bad ||
      list.read(series.WAVEID) == Item::bad || list.read_name(name) == Item::bad)
    return false;
  name = file_name(name);
  if (series.IWEND.size() >= capacity::WAVE_FILES)
    fatal("WAVEID: more than " + std::to_string(capacity::WAVE_FILES) + " wave files");
  series.IWEND.append(end_cell);
  series.WMDEP.append(depth);
  series.WAVEFILE.append(name);
  r.wave_file_name = name;
  console_line("Opening Wave Input File: ", name);
  open_or_stop(r.files.waves.emplace_back(), name, "Cannot not open wave file");
  return true;
}

bool read_water_level_line(Reading& r, std::string_view value) {
  Series& series = r.model.series;
  ListReader list(value);
  if (list.read(series.NWLREC) == Item::bad || list.read_name(series.WTRELFILE) == Item::bad)
    return false;
  series.WTRELFILE = file_name(series.WTRELFILE);
  console_line("Opening Water Level Input File: ", series.WTRELFILE);
  open_or_stop(r.files.water_level, series.WTRELFILE, "Cannot not open water level file");
  return true;
}

bool read_tidal_line(Reading& r, std::string_view value) {
  Series& series = r.model.series;
  std::int32_t end_cell = 0;
  std::string name;
  ListReader list(value);
  if (list.read(end_cell) == Item::bad || list.read(series.NTCRNTREC) == Item::bad ||
      list.read_name(name) == Item::bad)
    return false;
  name = file_name(name);
  if (series.ITCEND.size() >= capacity::TIDAL_FILES)
    fatal("TIDEFILE: more than " + std::to_string(capacity::TIDAL_FILES) + " tidal current files");
  series.ITCEND.append(end_cell);
  series.TCRNTFILE.append(name);
  series.TIDEFLAG = 1;
  console_line("Opening Tidal Current Input File: ", name);
  open_or_stop(r.files.tides.emplace_back(), name, "Cannot not open tidal current file");
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
  if (inlets.NINL < 1) refuse_unopened(keyword, "IINLS");
  if (r.dredge_counter < 1) refuse_unopened(keyword, "IMOR");
  if (r.dredge_counter > capacity::DREDGE_EVENTS)
    fatal("IMOR: more than " + std::to_string(capacity::DREDGE_EVENTS) + " dredging events");
  // An event belongs to the inlet and the count that stand when its lines are read.
  if (inlets.dredgings.empty() || inlets.dredgings.back().inlet != inlets.NINL ||
      inlets.dredgings.back().event != r.dredge_counter)
    inlets.dredgings.push_back({inlets.NINL, r.dredge_counter, 0, 0, 0, 0.0f});
  return inlets.dredgings.back();
}

float& dredging_days(Reading& r) {
  if (r.model.inlets.NINL < 1) refuse_unopened("DRDAY", "IINLS");
  return r.DRDAY;
}

void store_dredging_rate(Reading& r) {
  current_dredging(r, "DREDV").DREDQ = r.DREDV / r.DRDAY / 24.0f * r.model.clock.DT;
}

}  // namespace kelprun
