#include <sys/stat.h>

#include <filesystem>

#include "runs/wrong_input/family.h"

/// Files that are none, or nothing that a person would write: missing, folders, pipes, empty, of
/// one huge line, of noise, with bytes of value 0.
namespace kelptest {
namespace {

constexpr std::size_t TEN_MEGABYTES = 10'000'000;
const std::string HEADERS = "1\n2\n3\n4\n";

enum class Layout { values, series, waves };

/// A data file of the whole coast, and what is told where it cannot be opened.
struct DataFile {
  std::string name, keyword, cannot_open;
  Layout layout;
};

const std::vector<DataFile> FILES{
    {"shore.dat", "INIFILE", "Cannot not open initial shoreline file", Layout::values},
    {"contour.dat", "REGFILE", "Cannot not open regional shoreline file", Layout::values},
    {"widths.dat", "DXFILE", "widths.dat: cannot be opened", Layout::values},
    {"waves.dat", "WAVEID", "Cannot not open wave file", Layout::waves},
    {"levels.dat", "WLFILE", "Cannot not open water level file", Layout::series},
    {"west.dat", "TIDEFILE", "Cannot not open tidal current file", Layout::series},
    {"east.dat", "TIDEFILE", "Cannot not open tidal current file", Layout::series}};

/// The line of run.cfg that names the file.
std::size_t line_of(const Wrong& row, const std::string& file) {
  const Lines all_lines = lines(basic_configuration(row.changes, row.more_lines));
  for (std::size_t k = 0; k < all_lines.size(); ++k)
    if (all_lines[k].ends_with(file)) return k + 1;
  return 0;
}

/// The whole coast without that file, and the message that it cannot be opened. All but the widths
/// are opened where their line stands.
Wrong without_file(const DataFile& file, const std::string& reason) {
  Wrong row = coast_with(file.name + ": " + reason, file.name, "");
  row.files.erase(file.name);
  const bool late = file.keyword == "DXFILE";
  if (!late) {
    row.place = "run.cfg: line " + std::to_string(line_of(row, file.name)) + ": " + file.keyword +
                ": '" + file.name + "' cannot be opened: " + reason;
  }
  row.told = {file.cannot_open, reason};
  row.kept = late ? Kept::tables : Kept::report_and_tables;
  return row;
}

/// Runs the row in a folder that `prepare` has changed.
template <class Prepare>
void refuse_prepared(Family& rows, const Wrong& row, Prepare prepare) {
  Case ready(row.changes, row.more_lines);
  for (const auto& [name, text] : row.files) ready.with(name, text);
  prepare(ready.folder.path());
  rows.refuse(row, ready.folder, {"run.cfg"});
}

TEST(strange_files, that_cannot_be_opened_are_told_with_the_line_that_names_them_and_why) {
  Family rows("files that cannot be opened");
  for (const DataFile& file : FILES) {
    const auto remove = [&](const std::filesystem::path& folder) {
      std::filesystem::remove(folder / file.name);
    };
    refuse_prepared(rows, without_file(file, "there is no such file"), remove);
    refuse_prepared(rows, without_file(file, "this is a folder"), [&](const auto& folder) {
      remove(folder);
      std::filesystem::create_directory(folder / file.name);
    });
    refuse_prepared(rows, without_file(file, "this is no ordinary file"), [&](const auto& folder) {
      remove(folder);
      ASSERT_EQ(mkfifo((folder / file.name).c_str(), 0600), 0);
    });
    refuse_prepared(rows, without_file(file, "there is no such file"), [&](const auto& folder) {
      remove(folder);
      std::filesystem::create_symlink("nowhere.dat", folder / file.name);
    });
    refuse_prepared(rows, without_file(file, "Too many levels of symbolic links"),
                    [&](const auto& folder) {
                      remove(folder);
                      std::filesystem::create_symlink(file.name, folder / file.name);
                    });
  }
  refuse_prepared(rows,
                  {.name = "bypass events in a folder",
                   .changes = {{"BYPFILE", "bypass"}},
                   .place = "run.cfg: line 37: BYPFILE: 'bypass' cannot be opened",
                   .told = {"this is a folder"},
                   .kept = Kept::report_and_tables},
                  [](const auto& folder) { std::filesystem::create_directory(folder / "bypass"); });
}

TEST(strange_files, that_are_empty_are_told_so) {
  Family rows("empty files");
  for (const DataFile& file : FILES)
    for (const std::string text : {"", "\n", "\xEF\xBB\xBF", " \t \r\n\r\n"}) {
      Wrong row = coast_with(file.name, file.name, text);
      const std::string line = "line " + std::to_string(lines(text).size());
      row.place = file.name + ": " +
                  (file.layout == Layout::values ? line + ": " : "record 1 (" + line + "): ");
      row.told = {file.layout == Layout::values ? "of 4 header lines" : "ends after 0 records"};
      rows.refuse(row);
    }
}

/// The text ahead of the first number, and the line of that number.
std::string ahead(const DataFile& file) { return file.layout == Layout::values ? HEADERS : ""; }
std::string place(const DataFile& file) {
  return file.name + ": record 1 (line " + (file.layout == Layout::values ? "5" : "1") + "): ";
}

TEST(strange_files, of_one_huge_line_are_refused_without_repeating_it) {
  Family rows("lines of 10 MB");
  const std::string letters(TEN_MEGABYTES, 'x');
  const std::string digits(TEN_MEGABYTES, '9');
  const std::string headers_of_a_line(TEN_MEGABYTES, '\t');
  for (const DataFile& file : FILES) {
    for (const std::string* line : {&letters, &digits}) {
      Wrong row = coast_with(file.name, file.name, ahead(file) + *line);
      row.place = place(file) + "'" + line->substr(0, 40) + "...' is no ";
      row.told = {"..."};
      rows.refuse(row);
    }
    Wrong blank = coast_with(file.name, file.name, headers_of_a_line);
    blank.place = file.name + ": ";
    blank.told = {file.layout == Layout::values ? "1 of 4 header lines" : "ends after 0 records"};
    rows.refuse(blank);
  }
}

TEST(strange_files, of_noise_are_refused) {
  Family rows("noise");
  for (const DataFile& file : FILES)
    for (const unsigned seed : {1U, 2U, 3U}) {
      // The first item must be no list of nulls by chance.
      Wrong row =
          coast_with(file.name, file.name, ahead(file) + "\x7F" + binary_noise(100'000, seed));
      row.place = place(file) + "'?";
      row.told = {" is no "};
      rows.refuse(row);
      row = coast_with(file.name, file.name, binary_noise(100'000, seed));
      row.place = file.name + ": ";
      row.told = {"line "};
      rows.refuse(row);
    }
}

TEST(strange_files, that_hold_bytes_of_value_0_are_refused) {
  Family rows("bytes of value 0");
  const std::string zeros(1000, '\0');
  for (const DataFile& file : FILES)
    for (const std::string& text : {std::string("1\0", 2), std::string("\0", 1), zeros}) {
      Wrong row = coast_with(file.name, file.name, ahead(file) + text + " 2 3\n");
      row.place = place(file) + "'";
      row.told = {"?", "is no "};
      rows.refuse(row);
    }
}

/// A configuration that is none.
Wrong configuration(const std::string& name, const std::string& text, const Lines& told) {
  return {
      .name = name, .files = {{"run.cfg", text}}, .told = told, .kept = Kept::report_and_tables};
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t at = text.find(from); at != std::string::npos;
       at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

TEST(strange_configurations, are_refused) {
  Family rows("strange configurations");
  const Lines no_marker{"not targeted for KelpRun"};
  const std::string usual = basic_configuration({});
  for (const std::string text : {"", "\n", "\xEF\xBB\xBF", "KELPRUN", " KELPRUN:", "KELPRUNS:"})
    rows.refuse(configuration("'" + text + "'", text, no_marker));
  for (const unsigned seed : {4U, 5U, 6U})
    rows.refuse(configuration("noise", binary_noise(1'000'000, seed), no_marker));
  rows.refuse(configuration("zeros", std::string(1'000'000, '\0'), no_marker));
  rows.refuse(configuration("10 MB of letters", std::string(TEN_MEGABYTES, 'x'), no_marker));
  rows.refuse(configuration("10 MB of colons", std::string(TEN_MEGABYTES, ':'), no_marker));
  rows.refuse(configuration("10 MB ahead of the marker",
                            std::string(TEN_MEGABYTES, ' ') + "KELPRUN:\n" + usual.substr(9),
                            no_marker));
  std::string two_bytes_a_letter;
  for (const char c : usual) two_bytes_a_letter += {c, '\0'};
  rows.refuse(configuration("two bytes a letter", two_bytes_a_letter, no_marker));
  rows.refuse(configuration("equals signs", replaced(usual, ":", "="), no_marker));
  // One line, whose keyword is the marker.
  rows.refuse(configuration("carriage returns alone", replaced(usual, "\n", "\r"),
                            {"Initial Shoreline filename omitted"}));
  for (const std::string& tail :
       {std::string(TEN_MEGABYTES, 'x'), std::string(TEN_MEGABYTES, '9')}) {
    Wrong row =
        configuration("10 MB in a list", usual + "K1: 0.4 " + tail, {"Invalid config data"});
    row.place = "run.cfg: line 37: K1: '" + tail.substr(0, 40) + "...' is no number";
    rows.refuse(row);
  }
  Wrong row = configuration("a byte of value 0 in a number", usual + std::string("X0: 1\0 2\n", 9),
                            {"Invalid config data: X0: 1?"});
  row.place = "run.cfg: line 37: X0: '1?' is no number";
  rows.refuse(row);
  row = configuration("a word behind Windows line ends",
                      replaced(usual, "\n", "\r\n") + "X0: one\r\n",
                      {"Invalid config data: X0: one"});
  row.place = "run.cfg: line 37: X0: 'one' is no number";
  rows.refuse(row);
  row = configuration("a step that steers the terminal", usual + "DT: \x1B[2J\x1B[31m\n",
                      {"Invalid config data: DT: ?[2J?[31m"});
  row.place = "run.cfg: line 37: DT: '?[2J?[31m' is no number";
  rows.refuse(row);
}

TEST(strange_configurations, that_rules_make_legal_run_to_their_end) {
  Family rows("strange but legal configurations");
  const std::string usual = basic_configuration({});
  for (const auto& [name, text] : std::vector<std::pair<std::string, std::string>>{
           {"Windows line ends", replaced(usual, "\n", "\r\n")},
           {"byte-order mark", "\xEF\xBB\xBF" + usual},
           {"noise without a keyword", usual + binary_noise(100'000, 7)},
           {"10 MB behind the end", usual + std::string(TEN_MEGABYTES, 'x')},
           {"no end of the last line", usual.substr(0, usual.size() - 1)},
           {"tabs", replaced(usual, ": ", ":\t")}})
    rows.accept({.name = name, .files = {{"run.cfg", text}}});
}

TEST(strange_arguments, are_refused) {
  Family rows("arguments");
  const std::string one{"configuration file on the command line"};
  const auto argument = [&](const std::vector<std::string>& arguments, const std::string& told) {
    Case ready;
    std::filesystem::create_directory(ready.folder.path() / "folder");
    ASSERT_EQ(mkfifo((ready.folder.path() / "pipe").c_str(), 0600), 0);
    rows.refuse({.name = arguments.empty() ? "none" : arguments[0].substr(0, 30), .told = {told}},
                ready.folder, arguments);
  };
  argument({}, one);
  argument({"run.cfg", "run.cfg"}, one);
  argument({"--help", "--version", "-x"}, one);
  argument({""}, "Cannot find the input file=");
  argument({"  "}, "Cannot find the input file=");
  argument({"none.cfg"}, "Cannot find the input file= none.cfg");
  argument({"--help"}, "Cannot find the input file= --help");
  argument({"none/run.cfg"}, "Cannot find the input file= none/run.cfg");
  argument({"run.cfg/"}, "Cannot find the input file= run.cfg/");
  argument({std::string(5000, 'n')}, "Cannot find the input file= nnn");
  argument({"folder"}, "folder: cannot be opened: this is a folder");
  argument({"pipe"}, "pipe: cannot be opened: this is no ordinary file");
  argument({"/dev/null"}, "/dev/null: cannot be opened: this is no ordinary file");
  argument({"/dev/zero"}, "/dev/zero: cannot be opened: this is no ordinary file");
  argument({"/proc/self/mem"}, "Specify a config file");
  argument({"shore.dat"}, "not targeted for KelpRun");
  argument({KELPRUN_PROGRAM}, "not targeted for KelpRun");
}

TEST(strange_names, are_refused) {
  Family rows("names");
  const std::string long_name(240, 'n');
  const auto name = [&](const std::string& keyword, const std::string& value,
                        const std::string& told, const std::string& reason) {
    const Changes changes{{keyword, value}};
    rows.refuse({.name = keyword + " " + value.substr(0, 20),
                 .changes = changes,
                 .told = {told, keyword, reason},
                 .kept = Kept::report_and_tables});
  };
  // A line is cut at 255 characters, the names of a system at as many.
  name("INIFILE", long_name, "Cannot not open initial shoreline file", "no such file");
  name("INIFILE", long_name + "/" + long_name, "Cannot not open initial shoreline file",
       "no such file");
  name("INIFILE", std::string(5000, 'n'), "Cannot not open initial shoreline file", "no such file");
  name("INIFILE", "shore.dat/", "Cannot not open initial shoreline file",
       "'shore.dat/' cannot be opened");
  name("INIFILE", "shore.dat # the beach", "Cannot not open initial shoreline file",
       "'shore.dat # the beach'");
  name("REGFILE", "\x1B[2J", "Cannot not open regional shoreline file", "'?[2J'");
  name("WAVEID", "20 20 0 '" + long_name.substr(0, 230) + "'", "Cannot not open wave file",
       "no such file");
  // Its closing quote stands behind column 255.
  name("WAVEID", "20 20 0 '" + long_name + "'", "Invalid config data: WAVEID: 20 20 0 'nnn",
       "no closing quote");
  name("PRFILE", "no_folder/run.prt", "Cannot not open prtfil file", "No such file or directory");
  name("PRFILE", ".", "Cannot not open prtfil file", "irectory");
  name("PRFILE", "/", "Cannot not open prtfil file", "irectory");
  name("PRFILE", "shore.dat/run.prt", "Cannot not open prtfil file", "Not a directory");
  for (const auto& [keyword, value, input] :
       std::vector<std::array<std::string, 3>>{{"PRFILE", "run.cfg", "run.cfg"},
                                               {"PRFILE", "./shore.dat", "shore.dat"},
                                               {"PRFILE", "waves.dat", "waves.dat"},
                                               {"PRFILE", "run.vcx", "run.vcx"},
                                               {"WAVEID", "20 20 0 run.slo", "run.slo"}})
    rows.refuse({.name = keyword + " " + value,
                 .changes = {{keyword, value}},
                 .told = {input, value == "run.vcx" ? "same file" : "overwrite the input file"},
                 .kept = Kept::report_and_tables});
}

}  // namespace
}  // namespace kelptest
