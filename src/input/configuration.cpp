#include "input/configuration.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "input/keyword_actions.h"
#include "input/keywords.h"
#include "input/output_names.h"
#include "model/constants.h"
#include "text/console.h"
#include "text/fields.h"
#include "text/list_read.h"
#include "text/standard_error.h"
#include "text/stop.h"

namespace kelprun {

namespace {

using Item = ListReader::Item;

std::optional<std::int32_t> decode_int8(std::string_view value) {
  std::string digits(cut(value, 8));
  std::erase(digits, ' ');
  if (digits.size() > 1 && digits[0] == '+' && digits[1] != '-') digits.erase(0, 1);
  std::int32_t number = 0;
  const char* end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, number);
  if (result.ec != std::errc{} || result.ptr != end) return std::nullopt;
  return number;
}

std::optional<bool> decode_logical7(std::string_view value) {
  std::string field = upper_case(cut(value, 7));
  if (field.starts_with('.')) field.erase(0, 1);
  if (field.starts_with('T')) return true;
  if (field.starts_with('F')) return false;
  return std::nullopt;
}

/// One item of a free-format read; too few items leave the target as it is.
template <class Number>
bool decode_item(std::string_view value, Number& target, Reading& r) {
  ListReader list(value);
  if (list.read(target) != Item::bad) return true;
  r.bad_item = list.item_text();
  return false;
}

template <class Number>
bool decode_list(std::string_view value, Array1<Number>& targets, Reading& r) {
  ListReader list(value);
  for (Number& target : targets) {
    const Item item = list.read(target);
    if (item == Item::bad) {
      r.bad_item = list.item_text();
      return false;
    }
    if (item == Item::end) break;
  }
  return true;
}

/// A byte of this kind would end the name early for the system.
bool is_name(const std::optional<std::string>& name) {
  return name.has_value() && name->find('\0') == std::string::npos;
}

/// Decodes the value by the keyword's form and stores it; false: it cannot be decoded.
bool store_value(const Keyword& keyword, std::string_view value, Reading& r) {
  switch (keyword.form) {
    case Form::marker:
      return true;
    case Form::text:
      std::get<StoreText>(keyword.store)(r) = without_trailing_blanks(cut(value, keyword.width));
      return true;
    case Form::name: {
      const auto name = unquoted(cut(value, capacity::FILE_NAME));
      if (!is_name(name)) return false;
      std::get<StoreText>(keyword.store)(r) = *name;
      return true;
    }
    case Form::int8: {
      const auto number = decode_int8(value);
      if (number) std::get<StoreInt>(keyword.store)(r) = *number;
      return number.has_value();
    }
    case Form::logical7: {
      const auto flag = decode_logical7(value);
      if (flag) std::get<StoreBool>(keyword.store)(r) = *flag;
      return flag.has_value();
    }
    case Form::integer:
      return decode_item(value, std::get<StoreInt>(keyword.store)(r), r);
    case Form::real:
      return decode_item(value, std::get<StoreReal>(keyword.store)(r), r);
    case Form::real64:
      return decode_item(value, std::get<StoreReal64>(keyword.store)(r), r);
    case Form::int_list:
      return decode_list(value, std::get<StoreInts>(keyword.store)(r), r);
    case Form::real_list:
      return decode_list(value, std::get<StoreReals>(keyword.store)(r), r);
    case Form::items:
      return std::get<StoreItems>(keyword.store)(r, value);
  }
  return false;
}

/// What a value of that form must be, as the end of "is no ...".
std::string_view wanted(Form form) {
  switch (form) {
    case Form::int8:
      return "whole number in its first 8 columns";
    case Form::integer:
    case Form::int_list:
      return "whole number";
    case Form::logical7:
      return "T or F";
    case Form::name:
      return "name: a closing quote is missing, or it holds a NUL byte";
    case Form::items:
      return "item of its kind, or has no closing quote";
    default:
      return "number";
  }
}

/// The fatal message of a value cuts its line and does not tell where it stands.
[[noreturn]] void refuse_value(const Keyword& keyword, std::string_view line,
                               std::string_view value, const Reading& r) {
  const std::string_view bad = r.bad_item.empty() ? value : std::string_view(r.bad_item);
  explain_line(r, keyword.name, shown(bad) + " is no " + std::string(wanted(keyword.form)));
  fatal(keyword.failure.empty() ? "Invalid config data: " + std::string(cut(line, 52))
                                : std::string(keyword.failure));
}

/// A number across the last column is read as another one.
void warn_of_long_line(std::string_view whole, const Reading& r) {
  if (without_trailing_blanks(whole).size() > std::size_t{capacity::CONFIGURATION_LINE})
    warning_line(r.files.configuration + ": line " + std::to_string(r.line) +
                 ": what stands behind column " + std::to_string(capacity::CONFIGURATION_LINE) +
                 " is not read");
}

/// One line: the keyword before the first colon, from column 1 on, and the value behind it.
void read_line(std::string_view whole, Reading& r) {
  const std::string_view line = cut(whole, capacity::CONFIGURATION_LINE);
  const auto colon = line.find(':');
  if (colon == std::string_view::npos) return;
  const std::string name = upper_case(without_trailing_blanks(line.substr(0, colon)));
  const std::string_view value = without_trailing_blanks(left_justified(line.substr(colon + 1)));
  if (name == "KELPRUN") r.marker = true;
  if (value.empty()) return;

  const auto table = keyword_table();
  const auto keyword = std::find_if(table.begin(), table.end(),
                                    [&](const Keyword& known) { return known.name == name; });
  if (keyword == table.end()) return;
  warn_of_long_line(whole, r);
  if (!store_value(*keyword, value, r)) refuse_value(*keyword, line, value, r);
  if (keyword->then != nullptr) keyword->then(r);
}

/// Selection sort into ascending wall order: at each place the first smallest of the rest is
/// swapped in, so that equal walls keep the order that this sort gives them.
void sort_groins(Array1<std::int32_t>& walls, Array1<float>& first, Array1<float>& second,
                 Array1<float>* third) {
  for (std::int32_t place = 1; place < walls.size(); ++place) {
    std::int32_t smallest = place;
    for (std::int32_t i = place + 1; i <= walls.size(); ++i)
      if (walls(i) < walls(smallest)) smallest = i;
    std::swap(walls(place), walls(smallest));
    std::swap(first(place), first(smallest));
    std::swap(second(place), second(smallest));
    if (third != nullptr) std::swap((*third)(place), (*third)(smallest));
  }
}

/// Gives every list of a record the length of the record's count: what lacks is zero, what no
/// count line opened is dropped.
template <class... Lists>
void fit_lists(std::int32_t count, std::int32_t limit, Lists&... lists) {
  (lists.resize(static_cast<std::size_t>(std::min(count, limit))), ...);
}

void fit_structures(Model& m) {
  Groins& g = m.groins;
  fit_lists(g.NNDG, capacity::NON_DIFFRACTING_GROINS, g.IXNDG, g.YNDG, g.PNDG);
  fit_lists(g.NDG, capacity::DIFFRACTING_GROINS, g.IXDG, g.YDG, g.DDG, g.PDG);
  Breakwaters& b = m.breakwaters;
  fit_lists(b.NDB, capacity::BREAKWATERS, b.DBI1, b.DBI2, b.DBY1, b.DBY2, b.DBDEP1, b.DBDEP2,
            b.TRANDB, b.KTMETDB, b.HDB, b.BDB, b.SSDB, b.SHSDB, b.D50DB, b.PDB);
  Seawalls& s = m.seawalls;
  fit_lists(s.NSW, capacity::SEAWALLS, s.ISWBEG, s.ISWEND, s.SWY1, s.SWY2);
}

void fit_events(Model& m, const Array1<std::int32_t>& QQ) {
  Events& e = m.events;
  std::int32_t entry = 0;
  for (Array1<std::int32_t>* list : {&e.BPDATS, &e.BPDATE, &e.IBPS, &e.IBPE}) {
    ++entry;
    if (list->empty()) list->append(QQ(entry));
  }
  fit_lists(e.NBF, capacity::FILLS, e.BFDATS, e.BFDATE, e.IBFS, e.IBFE, e.YADD);
  fit_lists(e.NBP, capacity::BYPASS_OPERATIONS, e.BPDATS, e.BPDATE, e.IBPS, e.IBPE, e.QBP);
  Inlets& n = m.inlets;
  fit_lists(n.NINL, capacity::INLETS, n.IINLS, n.IINLE, n.INLNAME, n.IBYPL1, n.IBYPL2, n.IBYPR1,
            n.IBYPR2, n.VVSE, n.VVSF, n.VVSBL, n.VVSBR, n.VVSAL, n.VVSAR, n.VVSEQ, n.VVSFQ,
            n.VVSBQL, n.VVSBQR, n.VVSAQL, n.VVSAQR, n.YINLL, n.YINLR, n.JBCL, n.JBCR, n.NDRED);
  Budget& b = m.budget;
  fit_lists(b.NLEDGV, capacity::BUDGET_ITEMS, b.ILEDGV1, b.ILEDGV2);
  fit_lists(b.NLEDGQ, capacity::BUDGET_ITEMS, b.ILEDGQ1, b.ILEDGQ2);
}

void demand_files(const Reading& r) {
  if (!r.marker) fatal("Configuration file not targeted for KelpRun");
  if (r.model.settings.SHOIN.empty()) fatal("Initial Shoreline filename omitted in config file");
  if (r.wave_file_name.empty()) fatal("WAVEINFILE filename omitted in config file");
}

void expand_values(Reading& r) {
  Model& m = r.model;
  const std::int32_t NX = m.grid.NX;
  expand_spans(r.K1, NX, 1.0f, m.profile.K1CELL, r.report);
  expand_spans(r.K2, NX, 1.0f, m.profile.K2CELL, r.report);
  expand_spans(r.HAMP, NX, 1.0f, m.waves.HAMP, r.report);
  expand_spans(r.THETAAMP, NX, 1.0f, m.waves.THETAAMP, r.report);
  expand_spans(r.THETADEL, NX, RADIANS_PER_DEGREE, m.waves.THETADEL, r.report);
  expand_spans(r.BERMHT, NX, 1.0f, m.profile.BERMHTCELL, r.report);
  expand_spans(r.DCLOS, NX, 1.0f, m.profile.DCLOSCELL, r.report);
}

enum class LengthUnit { feet, metres, unknown };

/// Characters 2 and 3 of a unit text such as "(ft)"; the parentheses are part of the value.
LengthUnit length_unit(std::string_view text) {
  if (text.size() > 1 && cut(text.substr(1), 2) == "ft") return LengthUnit::feet;
  if (text.size() > 1 && text[1] == 'm') return LengthUnit::metres;
  return LengthUnit::unknown;
}

/// The unit texts are kept folded, as the report prints them.
void take_units(Settings& settings) {
  for (std::string* text : {&settings.KELUNITS, &settings.WAVUNITS})
    *text = lower_case(left_justified(*text));
  switch (length_unit(settings.KELUNITS)) {
    case LengthUnit::feet:
      settings.IUNITS = 2;
      settings.VOLUME_LABEL = "CY";
      break;
    case LengthUnit::metres:
      settings.IUNITS = 1;
      settings.VOLUME_LABEL = "M3";
      break;
    case LengthUnit::unknown:
      fatal("KELUNITS must be (ft) or (m)");
  }
  const LengthUnit height_unit = length_unit(settings.WAVUNITS);
  if (height_unit == LengthUnit::unknown) fatal("WAVUNITS must be (ft) or (m)");
  settings.WAVCONV = height_unit == LengthUnit::feet ? 0.3048f : 1.0f;
}

void demand_times(const Clock& clock) {
  // A step count below the start date is no date, and is meant so.
  if (clock.SIMDATE > LAST_STEP_NUMBER && clock.SIMDATE < clock.SIMDATS)
    fatal("SIMDATE must be >= SIMDATS");
  if (!(clock.DT > 0.0f)) fatal("DT must be > 0.");
  if (!(clock.DTSAVE > 0.0f)) fatal("DTSAVE must be > 0.");
}

/// The steps at the end of the file, in their order.
bool finish_reading(Reading& r) {
  Model& m = r.model;
  const bool groin_depth_missing = !m.groins.IXDG.empty() && r.last_DDG == 0.0f;
  fit_structures(m);
  fit_events(m, r.QQ);
  sort_groins(m.groins.IXNDG, m.groins.YNDG, m.groins.PNDG, nullptr);
  sort_groins(m.groins.IXDG, m.groins.YDG, m.groins.DDG, &m.groins.PDG);
  demand_files(r);
  if (groin_depth_missing) {
    console_line("Diffracting groin depth file DDG omitted or set to  zero in config file");
    return false;
  }
  expand_values(r);
  if (m.settings.PRTOUT && m.settings.PRTFILE.empty())
    fatal("PRTFILE filename omitted in config file");
  take_units(m.settings);
  demand_times(m.clock);
  refuse_shared_names(m, r.files);
  r.report.begin();
  return true;
}

}  // namespace

bool read_configuration(const std::string& name, Model& model, InputFiles& files, Report& report) {
  files.configuration = std::string(without_trailing_blanks(cut(name, capacity::FILE_NAME)));
  if (files.configuration.empty()) fatal("Specify a config file");
  InputFile file;
  if (!file.open(files.configuration)) {
    error_line(files.configuration + ": cannot be opened: " + open_failure(files.configuration));
    fatal("Cannot not open config file");
  }
  console_line("Reading CONFIGFILE: ", files.configuration);

  Reading reading{model, files, report};
  while (file.next_line()) {
    reading.line = file.line_number();
    read_line(file.line(), reading);
  }
  if (file.broken()) fatal("Specify a config file");
  file.close();
  // Only the first width is used: it stands for all cells, or announces a file of widths.
  model.grid.DX.allocate(1, reading.DX(1));
  return finish_reading(reading);
}

}  // namespace kelprun
