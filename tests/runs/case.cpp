#include "runs/case.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace kelptest {

namespace {

constexpr int CELLS = 20;
constexpr double SHORELINE = 100.0;

std::string right_justified(int value, int width) {
  std::ostringstream text;
  text << std::setw(width) << value;
  return text.str();
}

}  // namespace

Case::Case(const Changes& changes, const Lines& more_lines) {
  write_basic_inputs(folder, CELLS, SHORELINE);
  folder.write("run.cfg", basic_configuration(changes, more_lines));
}

Case& Case::with(const std::string& name, const std::string& text) {
  folder.write(name, text);
  return *this;
}

const Outcome& Case::run() {
  outcome = run_program(folder, {"run.cfg"});
  EXPECT_FALSE(outcome.timed_out);
  return outcome;
}

std::string Case::report() const { return folder.exists("run.prt") ? folder.read("run.prt") : ""; }

Lines Case::ahead_of_head() const {
  const Lines all_lines = lines(report());
  // The banner begins with two empty lines.
  const auto head = std::adjacent_find(
      all_lines.begin(), all_lines.end(),
      [](const auto& line, const auto& next) { return line.empty() && next.empty(); });
  EXPECT_NE(head, all_lines.end()) << report();
  return {all_lines.begin(), head};
}

Lines Case::behind_head() const {
  const Lines all_lines = lines(report());
  auto line = std::find_if(all_lines.begin(), all_lines.end(), [](const auto& title) {
    return title.starts_with("  INITIAL SHORELINE POSITION (");
  });
  EXPECT_NE(line, all_lines.end()) << report();
  if (line == all_lines.end()) return {};
  const auto is_row_of_positions = [](const std::string& text) {
    return text.find('.') != std::string::npos &&
           text.find_first_not_of("-.0123456789 ") == std::string::npos;
  };
  return {std::find_if_not(line + 1, all_lines.end(), is_row_of_positions), all_lines.end()};
}

Table Case::table(const std::string& suffix, const std::string& stem) const {
  const bool transport = suffix == "qtr" || suffix[0] == 'm';
  return read_table(folder.read(stem + suffix), transport ? 16 : 14);
}

std::string text_of(std::initializer_list<Lines> parts) {
  std::string text;
  for (const Lines& part : parts)
    for (const std::string& line : part) text += line + "\n";
  return text;
}

Lines all(std::initializer_list<Lines> parts) {
  Lines lines;
  for (const Lines& part : parts) lines.insert(lines.end(), part.begin(), part.end());
  return lines;
}

Lines free_lines(const Lines& texts) {
  Lines result;
  for (const std::string& text : texts) result.push_back(" " + text);
  return result;
}

std::string fatal_record(const std::string& message) {
  std::string record = "ERROR: " + message.substr(0, 73);
  record.resize(80, ' ');
  return record;
}

Lines opening() {
  return free_lines({"KelpRun Model Execution", "Reading CONFIGFILE: run.cfg",
                     "Simulation Title: test", "Reading Initial Shoreline: shore.dat",
                     "Opening Wave Input File: waves.dat"});
}

Lines banner() {
  return free_lines(
      {"+-------------------------------------+", "              KelpRun                  ",
       "+-------------------------------------+", "     Version 1.1 release 8, JAN 2020",
       "             KelpRun_v1p1r8.exe          "});
}

Lines begins() { return free_lines({"Time Simulation begins ..."}); }

Lines year_block(int years, int ITS, int NEXTDATE) {
  const std::string ornament = " " + std::string(65, '*');
  Lines block{""};
  block.insert(block.end(), 3, ornament);
  block.push_back("CALCULATED " + right_justified(years, 3) +
                  " YEARS  =" + right_justified(ITS, 8) + " TIME STEPS.  DATE IS " +
                  right_justified(NEXTDATE, 8));
  block.insert(block.end(), 4, ornament);
  return block;
}

Lines closing() { return free_lines({"<<<Simulation finished>>>", "Model run completed"}); }

std::string hourly_waves(int date, int count, const std::string& wave, int step) {
  std::ostringstream text;
  for (int k = 0; k < count; ++k) {
    const int hour = k * step;
    text << date + hour / 24 << " " << 100 * (hour % 24) << " " << wave << "\n";
  }
  return text.str();
}

Lines placement(int left, int right) {
  const std::string L = std::to_string(left);
  const std::string R = std::to_string(right);
  return {"IBYPL1: " + L, "IBYPL2: " + L, "IBYPR1: " + R, "IBYPR2: " + R};
}

Lines inlet(int first, int last) {
  return {"IINLS: " + std::to_string(first),
          "IINLE: " + std::to_string(last),
          "VVSEQ: 100000",
          "VVSFQ: 80000",
          "VVSBQL: 5000",
          "VVSBQR: 6000",
          "VVSAQL: 2000",
          "VVSAQR: 3000"};
}

std::string values_file(const std::vector<double>& values) {
  std::ostringstream text;
  text.precision(12);
  text << "first\nsecond\nthird\nfourth\n";
  for (std::size_t i = 0; i < values.size(); ++i)
    text << values[i] << (i % 10 == 9 || i + 1 == values.size() ? "\n" : " ");
  return text.str();
}

void expect_fatal(const Case& ended, std::initializer_list<Lines> before,
                  const std::string& message, const std::string& explained) {
  EXPECT_EQ(ended.outcome.status, 1);
  EXPECT_EQ(ended.outcome.out, text_of(before) + fatal_record(message) + "\n");
  EXPECT_EQ(ended.outcome.err, explained.empty() ? "" : "kelprun: " + explained + "\n");
}

void expect_completed(const Case& ended) {
  EXPECT_EQ(ended.outcome.status, 0);
  EXPECT_TRUE(ended.outcome.out.ends_with(text_of({closing()}))) << ended.outcome.out;
  EXPECT_EQ(ended.outcome.err, "");
}

void expect_run_time_message(const Case& ended, const std::string& text) {
  EXPECT_EQ(ended.outcome.status, 1);
  EXPECT_EQ(lines(ended.outcome.err).size(), 1u) << ended.outcome.err;
  EXPECT_TRUE(ended.outcome.err.starts_with(text)) << ended.outcome.err;
  EXPECT_TRUE(ended.outcome.err.ends_with("\n"));
  EXPECT_EQ(occurrences(ended.outcome.out, "Model run completed"), 0);
}

void expect_refused(const Refusal& row) {
  Case refused(row.changes, row.more_lines);
  refused.run();
  expect_fatal(refused, {opening(), free_lines(row.printed)}, row.printed.front());
  EXPECT_EQ(refused.report(), "");
}

int occurrences(const std::string& text, const std::string& part) {
  int count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size()))
    ++count;
  return count;
}

}  // namespace kelptest
