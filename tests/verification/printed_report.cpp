#include "verification/printed_report.h"

#include <algorithm>
#include <limits>
#include <sstream>
#include <stdexcept>

#include "support/program.h"

namespace kelptest {

namespace {

constexpr const char* STATISTICS_HEAD = "   X-COORD.";
constexpr std::size_t STATISTICS_ROW = 62;  ///< columns of a row beneath that head

/// A right-justified number of two decimals, a whole number, or asterisks that fill the field.
bool is_field(const std::string& field) {
  if (field.find_first_not_of('*') == std::string::npos) return true;
  const auto start = field.find_first_not_of(' ');
  if (start == std::string::npos) return false;
  const std::string number = field.substr(start);
  if (number == "NaN" || number == "Infinity" || number == "-Infinity") return true;
  if (number.find_first_not_of("-.0123456789") != std::string::npos) return false;
  const auto point = number.find('.');
  return point == std::string::npos || point + 3 == number.size();
}

/// The fields of a line of values, ten or fewer of 11 or 7 columns; none where it is another line.
std::vector<std::string> fields_of(const std::string& line) {
  for (const std::size_t width : {11u, 7u}) {
    if (line.empty() || line.size() % width != 0 || line.size() > 10 * width) continue;
    std::vector<std::string> fields;
    for (std::size_t at = 0; at < line.size(); at += width)
      fields.push_back(line.substr(at, width));
    if (std::all_of(fields.begin(), fields.end(), is_field)) return fields;
  }
  return {};
}

std::vector<std::string> words_of(const std::string& line) {
  std::istringstream text(line);
  std::vector<std::string> words;
  for (std::string word; text >> word;) words.push_back(word);
  return words;
}

void append(std::vector<std::string>& fields, const std::vector<std::string>& more) {
  fields.insert(fields.end(), more.begin(), more.end());
}

}  // namespace

std::vector<double> Block::values() const {
  std::vector<double> numbers;
  for (const std::string& field : fields)
    numbers.push_back(field.find('*') == std::string::npos
                          ? std::stod(field)
                          : std::numeric_limits<double>::quiet_NaN());
  return numbers;
}

PrintedReport::PrintedReport(const std::string& text) {
  const std::vector<std::string> all_lines = lines(text);
  const auto first = std::find_if(all_lines.begin(), all_lines.end(),
                                  [](const auto& line) { return line.starts_with("  RUN  "); });
  for (auto line = first; line != all_lines.end(); ++line) {
    if (line->find_first_not_of(' ') == std::string::npos) continue;
    const std::vector<std::string> fields = fields_of(*line);
    if (!blocks_.empty() && !fields.empty()) {
      append(blocks_.back().fields, fields);
    } else if (!blocks_.empty() && blocks_.back().title.starts_with(STATISTICS_HEAD) &&
               line->size() == STATISTICS_ROW) {
      append(blocks_.back().fields, words_of(*line));
    } else {
      blocks_.push_back({*line, {}});
    }
  }
}

std::vector<Block> PrintedReport::all(const std::string& beginning) const {
  std::vector<Block> found;
  for (const Block& block : blocks_)
    if (block.title.starts_with(beginning)) found.push_back(block);
  return found;
}

Block PrintedReport::only(const std::string& beginning) const {
  const std::vector<Block> found = all(beginning);
  if (found.size() != 1)
    throw std::runtime_error(std::to_string(found.size()) + " blocks '" + beginning + "'");
  return found.front();
}

double number_behind(const std::string& line, const std::string& words) {
  if (!line.starts_with(words)) throw std::runtime_error("'" + line + "' is not '" + words + "'");
  return std::stod(line.substr(words.size()));
}

int integer_behind(const std::string& line, const std::string& words) {
  const auto at = line.find(words);
  if (at == std::string::npos) throw std::runtime_error("'" + line + "' lacks '" + words + "'");
  return std::stoi(line.substr(at + words.size()));
}

}  // namespace kelptest
