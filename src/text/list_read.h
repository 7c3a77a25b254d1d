#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "text/input_file.h"

namespace kelprun {

/// One free-format read: items separated by blanks or commas, `n*v` for a repeat, nothing between
/// two commas for a null item, `/` to end the list. From a file it takes as many lines as its
/// items need, and what is left on the last line is thrown away with the reader; from a single
/// value it ends with the value.
class ListReader {
 public:
  enum class Item { value, null, end, end_of_file, bad };

  explicit ListReader(std::string_view value) : text_(value) {}
  explicit ListReader(InputFile& file) : file_(&file) {}

  /// Reads one item. Only Item::value changes the target; a null item and the end of the list
  /// leave it as it was. Item::bad: the item is no number of the target's kind.
  Item read(std::int32_t& target) { return read_number(target); }
  Item read(std::int16_t& target) { return read_number(target); }
  Item read(float& target) { return read_number(target); }
  Item read(double& target) { return read_number(target); }

  /// Reads a name: in single or double quotes, or up to the next blank or comma. A `/` belongs to
  /// the name. Item::bad: the closing quote is missing.
  Item read_name(std::string& target);

  /// The last item read, as it stands in the text.
  std::string_view item_text() const { return token_; }

 private:
  enum class Place { number, name };

  Item next_item(Place place);
  Item find_item();
  Item take_number();
  Item take_name();
  template <class Number>
  Item read_number(Number& target);

  InputFile* file_ = nullptr;
  std::string_view text_;
  std::size_t position_ = 0;
  std::string_view token_;
  std::int32_t repeats_ = 0;  ///< how often the last item is still to be given
  bool repeats_null_ = false;
  bool behind_value_ = false;  ///< a comma now separates; otherwise it is a null item
  bool ended_ = false;         ///< a slash has ended the list
};

}  // namespace kelprun
