#pragma once

#include <string>
#include <vector>

namespace kelptest {

/// A line of words of a report, and the values that are printed beneath it.
struct Block {
  std::string title;
  std::vector<std::string> fields;  ///< as printed, with their blanks

  /// The fields as numbers; asterisks are no number.
  std::vector<double> values() const;
};

/// A report taken apart by its titles; lines of blanks and the banner are left out.
class PrintedReport {
 public:
  PrintedReport() = default;
  explicit PrintedReport(const std::string& text);

  const std::vector<Block>& blocks() const { return blocks_; }
  /// The blocks whose title begins so, in their order.
  std::vector<Block> all(const std::string& beginning) const;
  /// The one block whose title begins so; throws where there is another number of them.
  Block only(const std::string& beginning) const;

 private:
  std::vector<Block> blocks_;
};

/// The number that follows the words at the start of a line; throws where the words are others.
double number_behind(const std::string& line, const std::string& words);

/// The whole number that follows the words somewhere in a line; throws where they are not there.
int integer_behind(const std::string& line, const std::string& words);

}  // namespace kelptest
