#include "runs/wrong_input/family.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <random>
#include <sstream>

#include "text/fields.h"

namespace kelptest {

namespace {

constexpr double LONGEST_SECONDS = 2.0;
constexpr std::size_t LONGEST_LINE = 600;
const std::string FORMER = "of a former run\n";

/// The first and the last table that a run opens stand for all.
const std::vector<std::string> TABLES{"run.slo", "run.vcx"};

/// What stands in the ordinary files of the folder.
std::map<std::string, std::string> contents_of(const WorkFolder& folder) {
  std::map<std::string, std::string> contents;
  std::error_code no_target;
  for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
    if (entry.is_regular_file(no_target))
      contents[entry.path().filename().string()] = folder.read(entry.path().filename().string());
  return contents;
}

bool is_result(const std::string& name) {
  return name == "run.prt" || std::find(TABLES.begin(), TABLES.end(), name) != TABLES.end();
}

bool must_stay(const std::string& name, Kept kept) {
  if (!is_result(name)) return true;
  if (name == "run.prt") return kept == Kept::report_and_tables;
  return kept != Kept::nothing;
}

/// Console lines that say what goes on, not what is wrong.
bool is_course(const std::string& line) {
  for (const char* start : {" KelpRun Model Execution", " Simulation Title: ", " Reading ",
                            " Opening ", " +----", "              KelpRun", " Time Simulation "})
    if (line.starts_with(start)) return true;
  return false;
}

/// Everything that tells the user what is wrong.
std::string message_of(const Outcome& outcome) {
  std::string message;
  for (const std::string& line : lines(outcome.out))
    if (!is_course(line)) message += line + "\n";
  for (const std::string& line : lines(outcome.err))
    if (!line.starts_with("kelprun: warning: ")) message += line + "\n";
  return message;
}

void expect_ended_in_order(const Outcome& outcome, double seconds) {
  EXPECT_FALSE(outcome.timed_out);
  EXPECT_LT(seconds, LONGEST_SECONDS);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(occurrences(outcome.out, "Model run completed"), 0);
  for (const char* crash : {"Sanitizer", "runtime error:", "internal error", "terminate called"})
    EXPECT_EQ(occurrences(outcome.err, crash), 0) << outcome.err;
}

/// Lines that a terminal shows as they are, none of them long, and all of them ours.
void expect_readable(const Outcome& outcome) {
  for (const std::string* said : {&outcome.out, &outcome.err})
    for (const std::string& line : lines(*said)) {
      EXPECT_LE(line.size(), LONGEST_LINE);
      EXPECT_TRUE(std::none_of(line.begin(), line.end(), [](char c) {
        return (c >= 0 && c < ' ') || c == 0x7F;
      })) << line;
    }
  for (const std::string& line : lines(outcome.err))
    EXPECT_TRUE(line.starts_with("kelprun: ")) << line;
}

void expect_told(const Wrong& row, const Outcome& outcome) {
  const std::string message = message_of(outcome);
  EXPECT_FALSE(message.empty());
  EXPECT_FALSE(row.told.empty()) << "the row must tell what a user has to read";
  for (const std::string& piece : row.told)
    EXPECT_GT(occurrences(message, piece), 0) << "lacks: " << piece << "\n" << message;
  if (row.place.empty()) return;
  const Lines told = lines(outcome.err);
  EXPECT_TRUE(std::any_of(
      told.begin(), told.end(),
      [&](const std::string& line) { return line.starts_with("kelprun: " + row.place); }))
      << "lacks: kelprun: " << row.place << "\n"
      << outcome.err;
}

void expect_kept(const Wrong& row, const std::map<std::string, std::string>& before,
                 const std::map<std::string, std::string>& after) {
  for (const auto& [name, text] : before) {
    if (!must_stay(name, row.kept)) continue;
    ASSERT_EQ(after.count(name), 1u) << name << " is gone";
    EXPECT_TRUE(after.at(name) == text) << name << " was changed";
  }
  for (const auto& [name, text] : after)
    EXPECT_TRUE(text.empty() || text.ends_with("\n") || before.count(name) == 1)
        << name << " ends in the middle of a record";
}

}  // namespace

Family::~Family() {
  std::cout << "[   rows   ] " << name_ << ": " << rows_ << " refused";
  if (legal_ > 0) std::cout << ", " << legal_ << " legal by rule";
  std::cout << ", slowest " << static_cast<int>(1000.0 * slowest_ + 0.5) << " ms ("
            << kelprun::printable(slowest_row_) << ")\n";
}

void Family::refuse(const Wrong& row, const WorkFolder& folder,
                    const std::vector<std::string>& args) {
  SCOPED_TRACE(name_ + ": " + row.name);
  const std::map<std::string, std::string> before = contents_of(folder);
  const auto start = std::chrono::steady_clock::now();
  const Outcome outcome = run_program(folder, args, 5.0 * LONGEST_SECONDS);
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;

  expect_ended_in_order(outcome, seconds.count());
  expect_readable(outcome);
  expect_told(row, outcome);
  expect_kept(row, before, contents_of(folder));
  ++rows_;
  if (seconds.count() <= slowest_) return;
  slowest_ = seconds.count();
  slowest_row_ = row.name;
}

void Family::accept(const Wrong& row) {
  SCOPED_TRACE(name_ + ": " + row.name);
  Case legal(row.changes, row.more_lines);
  for (const auto& [name, text] : row.files) legal.with(name, text);
  legal.run();
  EXPECT_EQ(legal.outcome.status, 0) << message_of(legal.outcome);
  ++legal_;
}

void Family::refuse(const Wrong& row) {
  const Case ready(row.changes, row.more_lines);
  ready.folder.write("run.prt", FORMER);
  for (const std::string& table : TABLES) ready.folder.write(table, FORMER);
  for (const auto& [name, text] : row.files) ready.folder.write(name, text);
  refuse(row, ready.folder, {"run.cfg"});
}

void Family::refuse(const std::vector<Wrong>& rows) {
  for (const Wrong& row : rows) refuse(row);
}

const WholeCoast& whole_coast() {
  static const WholeCoast coast{
      {{"IREG", "1"},
       {"REGFILE", "contour.dat"},
       {"DX", "-1"},
       {"DXFILE", "widths.dat"},
       {"WAVEID", "20 20.0 10 waves.dat"}},
      {"WLFILE: 10 levels.dat", "TIDEFILE: 9 10 west.dat", "TIDEFILE: 20 10 east.dat", "DBI1: 8",
       "DBI2: 12", "DBY1: 300", "DBY2: 300", "DBDEP1: 5", "DBDEP2: 5", "KTMETDB: 2", "HDB: 4",
       "BDB: 4", "SSDB: 0.5", "SHSDB: 0.5"},
      {{"shore.dat", values_file(std::vector<double>(20, 100.25))},
       {"contour.dat", values_file(std::vector<double>(20, 1.5))},
       {"widths.dat", values_file(std::vector<double>(20, 99.75))},
       {"waves.dat", hourly_waves(19970101, 10, "0.50 8.00 10.0")},
       {"levels.dat", hourly_waves(19970101, 10, "0.10")},
       {"west.dat", hourly_waves(19970101, 10, "0.05")},
       {"east.dat", hourly_waves(19970101, 10, "0.15")}}};
  return coast;
}

Wrong coast_with(const std::string& name, const std::string& file, const std::string& text) {
  Wrong row{.name = name,
            .changes = whole_coast().changes,
            .more_lines = whole_coast().more_lines,
            .files = whole_coast().files};
  row.files[file] = text;
  return row;
}

int first_further_line(const Changes& changes) {
  return static_cast<int>(lines(basic_configuration(changes)).size()) + 1;
}

std::vector<std::string> items(const std::string& line) {
  std::istringstream text(line);
  std::vector<std::string> result;
  for (std::string item; text >> item;) result.push_back(item);
  return result;
}

std::string binary_noise(std::size_t size, unsigned seed) {
  std::mt19937 random(seed);
  std::string noise(size, '\0');
  for (char& c : noise) c = static_cast<char>(static_cast<unsigned char>(random() >> 24U));
  return noise;
}

}  // namespace kelptest
