#include <algorithm>

#include "runs/wrong_input/family.h"

/// Files that break off. What a cut leaves decides by rule whether the run must be refused, and
/// where: nothing here looks at what the program makes of it.
namespace kelptest {
namespace {

constexpr std::size_t CELLS = 20;
constexpr std::size_t HEADERS = 4;
constexpr std::size_t RECORDS = 10;

std::vector<std::string> tenths_of(const std::string& text) {
  std::vector<std::string> cuts;
  for (std::size_t k = 0; k < 10; ++k) cuts.push_back(text.substr(0, text.size() * k / 10));
  return cuts;
}

/// Lines of a series that hold at least so many items; a record takes what it lacks from the next
/// line, which is not there behind the last one.
std::size_t records_of(const std::string& text, std::size_t needed) {
  const Lines all_lines = lines(text);
  return static_cast<std::size_t>(
      std::count_if(all_lines.begin(), all_lines.end(),
                    [&](const std::string& line) { return items(line).size() >= needed; }));
}

std::string line_text(const std::string& text) {
  return "line " + std::to_string(lines(text).size());
}

/// A shoreline, contour or width file is legal as long as 20 values stand behind its headers.
void refuse_cut_values(Family& rows, const std::string& file, const std::string& cause) {
  for (const std::string& cut : tenths_of(whole_coast().files.at(file))) {
    const Lines all_lines = lines(cut);
    std::size_t values = 0;
    for (std::size_t k = HEADERS; k < all_lines.size(); ++k) values += items(all_lines[k]).size();
    Wrong row = coast_with(file + " of " + std::to_string(cut.size()) + " bytes", file, cut);
    if (values >= CELLS) {
      rows.accept(row);
      continue;
    }
    row.place = file + ": " + line_text(cut) + ": ";
    row.told = {cause, all_lines.size() < HEADERS
                           ? std::to_string(all_lines.size()) + " of 4 header lines"
                           : std::to_string(values) + " of 20 values"};
    rows.refuse(row);
  }
}

TEST(whole_coast, from_which_the_following_rows_are_cut_runs_to_its_end) {
  const WholeCoast& coast = whole_coast();
  Case run(coast.changes, coast.more_lines);
  for (const auto& [name, text] : coast.files) run.with(name, text);
  run.run();
  expect_completed(run);
}

TEST(cut_files, of_values_along_the_coast_are_refused_with_what_they_hold) {
  Family rows("cut files of values");
  refuse_cut_values(rows, "shore.dat", "INITIAL SHORELINE FILE CONTAINS TOO FEW VALUES");
  refuse_cut_values(rows, "contour.dat", "REGIONAL CONTOUR FILE CONTAINS TOO FEW VALUES");
  refuse_cut_values(rows, "widths.dat", "VARIABLE DX FILE CONTAINS TOO FEW VALUES");
  EXPECT_EQ(rows.rows(), 30);
}

/// A series of levels or currents needs all its records.
void refuse_cut_series(Family& rows, const std::string& file) {
  for (const std::string& cut : tenths_of(whole_coast().files.at(file))) {
    const std::size_t whole = records_of(cut, 3);
    Wrong row = coast_with(file + " of " + std::to_string(cut.size()) + " bytes", file, cut);
    if (whole >= RECORDS) {
      rows.accept(row);
      continue;
    }
    row.place = file + ": record " + std::to_string(whole + 1) + " (" + line_text(cut) + "): ";
    row.told = {"the file ends after " + std::to_string(whole) + " records"};
    rows.refuse(row);
  }
}

TEST(cut_files, of_water_levels_and_tidal_currents_are_refused_with_record_and_line) {
  Family rows("cut series");
  for (const char* file : {"levels.dat", "west.dat", "east.dat"}) refuse_cut_series(rows, file);
  EXPECT_EQ(rows.rows(), 30);
}

/// Dates and times are all read before the first step, and the wave of each hour when it is due.
TEST(cut_files, of_waves_are_refused_with_record_and_line) {
  Family rows("cut waves");
  const std::string whole_file = whole_coast().files.at("waves.dat");
  std::vector<std::string> cuts = tenths_of(whole_file);
  // The last record without its wave, without its period and angle, without its angle.
  const std::size_t last = whole_file.rfind("19970101");
  for (const std::size_t kept : {9U, 12U, 14U, 18U, 22U, 23U, 24U})
    cuts.push_back(whole_file.substr(0, last + kept));
  for (const std::string& cut : cuts) {
    const std::size_t dated = records_of(cut, 2);
    const std::size_t whole = records_of(cut, 5);
    const bool waves_lack = dated >= RECORDS;
    const std::size_t record = waves_lack ? whole + 1 : dated + 1;
    Wrong row =
        coast_with("waves.dat of " + std::to_string(cut.size()) + " bytes", "waves.dat", cut);
    if (whole >= RECORDS) {
      rows.accept(row);
      continue;
    }
    row.place = "waves.dat: record " + std::to_string(record) + " (" + line_text(cut) + "): ";
    row.told = {"the file ends"};
    row.kept = waves_lack ? Kept::nothing : Kept::tables;
    rows.refuse(row);
  }
  EXPECT_GE(rows.rows(), 14);
}

TEST(cut_files, of_a_steady_wave_are_refused_with_record_and_line) {
  Family rows("cut steady wave");
  const std::string whole_file = "1.50 8.00 10.0\n";
  for (const std::string& cut : tenths_of(whole_file)) {
    const Wrong row{.name = "waves.dat of " + std::to_string(cut.size()) + " bytes",
                    .files = {{"waves.dat", cut}},
                    .place = "waves.dat: record 1 (" + line_text(cut) + "): ",
                    .told = {"the file ends"},
                    .kept = Kept::nothing};
    if (records_of(cut, 3) >= 1) {
      rows.accept(row);
    } else {
      rows.refuse(row);
    }
  }
  EXPECT_GE(rows.rows(), 7);
}

/// What a cut configuration must be refused for; empty where all that is needed stands in it.
struct Lack {
  Lines told;
  Kept kept = Kept::report_and_tables;
};

/// The value of each keyword that has one.
std::map<std::string, std::string> values_of(const std::string& configuration) {
  std::map<std::string, std::string> values;
  for (const std::string& line : lines(configuration)) {
    const auto colon = line.find(':');
    if (colon == std::string::npos) continue;
    const Lines value = items(line.substr(colon + 1));
    std::string joined;
    for (const std::string& item : value) joined += (joined.empty() ? "" : " ") + item;
    values[line.substr(0, colon)] = joined;
  }
  return values;
}

/// The files are opened where their lines stand; then the marker, the names, the units, the steps
/// and what the sand needs are looked at, in this order.
Lack lack_of(const std::string& configuration) {
  auto values = values_of(configuration);
  const auto number = [&](const char* keyword) {
    return values[keyword].empty() ? 0.0 : std::stod(values[keyword]);
  };
  if (!values["INIFILE"].empty() && values["INIFILE"] != "shore.dat")
    return {{"Cannot not open initial shoreline file", "'" + values["INIFILE"] + "'"}};
  const Lines wave_file = items(values["WAVEID"]);
  if (!wave_file.empty() && (wave_file.size() < 4 || wave_file[3] != "waves.dat"))
    return {{"Cannot not open wave file"}};
  if (values.count("KELPRUN") == 0) return {{"not targeted for KelpRun"}};
  if (values["INIFILE"].empty()) return {{"Initial Shoreline filename omitted"}};
  if (wave_file.empty()) return {{"WAVEINFILE filename omitted"}};
  if (values["PRFILE"].empty()) return {{"PRTFILE filename omitted"}};
  for (const char* unit : {"KELUNITS", "WAVUNITS"})
    if (values[unit] == "(") return {{unit, "must be (ft) or (m)"}};
  if (!(number("DT") > 0.0)) return {{"DT must be > 0."}};
  if (!(number("DTSAVE") > 0.0)) return {{"DTSAVE must be > 0."}};
  for (const char* needed : {"D50", "K1"})
    if (!(number(needed) > 0.0)) return {{needed, "above 0"}, Kept::tables};
  return {};
}

void refuse_cut_configuration(Family& rows, const std::string& cut) {
  const Lack lack = lack_of(cut);
  const Wrong row{.name = "run.cfg of " + std::to_string(cut.size()) + " bytes",
                  .files = {{"run.cfg", cut}},
                  .told = lack.told,
                  .kept = lack.kept};
  if (lack.told.empty()) {
    rows.accept(row);
  } else {
    rows.refuse(row);
  }
}

TEST(cut_files, of_configurations_are_refused_for_what_is_missing_first) {
  Family rows("cut configurations");
  const std::string whole_file = basic_configuration({});
  EXPECT_TRUE(lack_of(whole_file).told.empty());
  for (const std::string& cut : tenths_of(whole_file)) refuse_cut_configuration(rows, cut);
  // At the end of every line, and in the middle of it.
  for (std::size_t end = whole_file.find('\n'); end != std::string::npos;
       end = whole_file.find('\n', end + 1)) {
    const std::size_t begin = end == 0 ? 0 : whole_file.rfind('\n', end - 1) + 1;
    refuse_cut_configuration(rows, whole_file.substr(0, begin + (end - begin) / 2));
    refuse_cut_configuration(rows, whole_file.substr(0, end - 1));
    refuse_cut_configuration(rows, whole_file.substr(0, end + 1));
  }
  EXPECT_GE(rows.rows(), 80);
}

}  // namespace
}  // namespace kelptest
