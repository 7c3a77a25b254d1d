#include "text/list_read.h"

#include <charconv>
#include <system_error>
#include <type_traits>

namespace kelprun {

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }

template <class Whole>
bool parse_whole(std::string_view text, Whole& value) {
  if (text.starts_with('+') && text.size() > 1 && is_digit(text[1])) text.remove_prefix(1);
  Whole parsed{};
  const auto result = std::from_chars(text.data(), text.data() + text.size(), parsed);
  if (result.ec != std::errc{} || result.ptr != text.data() + text.size()) return false;
  value = parsed;
  return true;
}

/// Whether a decimal text that the target cannot hold lies below what it holds, not above.
bool is_too_small(std::string_view text) {
  long double wide{};
  const auto result = std::from_chars(text.data(), text.data() + text.size(), wide);
  if (result.ec == std::errc{}) return wide < 1.0L;
  return text.find("e-") != std::string_view::npos;
}

/// Decimal text to the nearest value of the target's own precision; `1.5d0` is a number, a word
/// such as "nan" is not. A value too small to hold is zero, one too large is no number.
template <class Real>
bool parse_real(std::string_view text, Real& value) {
  std::string exponent_e;
  if (text.find_first_of("dDE") != std::string_view::npos) {
    exponent_e = text;
    for (char& c : exponent_e)
      if (c == 'd' || c == 'D' || c == 'E') c = 'e';
    text = exponent_e;
  }
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  if (text.empty() || !(is_digit(text[0]) || text[0] == '.')) return false;
  Real parsed{};
  const auto result = std::from_chars(text.data(), text.data() + text.size(), parsed);
  if (result.ptr != text.data() + text.size()) return false;
  if (result.ec == std::errc::result_out_of_range) {
    if (!is_too_small(text)) return false;
    parsed = Real{};
  } else if (result.ec != std::errc{}) {
    return false;
  }
  value = negative ? -parsed : parsed;
  return true;
}

}  // namespace

ListReader::Item ListReader::find_item() {
  for (;;) {
    while (position_ < text_.size() && text_[position_] == ' ') ++position_;
    if (position_ >= text_.size()) {
      if (file_ == nullptr) return Item::end;
      if (!file_->next_line()) return Item::end_of_file;
      text_ = file_->line();
      position_ = 0;
    } else if (text_[position_] == ',') {
      ++position_;
      if (!behind_value_) return Item::null;
      behind_value_ = false;
    } else {
      return Item::value;
    }
  }
}

ListReader::Item ListReader::next_item(Place place) {
  if (ended_) return Item::end;
  if (repeats_ > 0) {
    --repeats_;
    return repeats_null_ ? Item::null : Item::value;
  }
  const Item found = find_item();
  if (found != Item::value) return found;
  behind_value_ = true;
  return place == Place::name ? take_name() : take_number();
}

ListReader::Item ListReader::take_name() {
  const char quote = text_[position_];
  if (quote == '"' || quote == '\'') {
    const auto closing = text_.find(quote, position_ + 1);
    token_ = text_.substr(position_ + 1, closing - position_ - 1);
    if (closing == std::string_view::npos) return Item::bad;
    position_ = closing + 1;
    return Item::value;
  }
  const auto end = std::min(text_.find_first_of(" ,", position_), text_.size());
  token_ = text_.substr(position_, end - position_);
  position_ = end;
  return Item::value;
}

ListReader::Item ListReader::take_number() {
  if (text_[position_] == '/') {
    ended_ = true;
    return Item::end;
  }
  const auto end = std::min(text_.find_first_of(" ,/", position_), text_.size());
  token_ = text_.substr(position_, end - position_);
  position_ = end;
  const auto star = token_.find('*');
  if (star == std::string_view::npos) return Item::value;
  std::int32_t count = 0;
  if (!parse_whole(token_.substr(0, star), count) || count < 1) return Item::bad;
  token_.remove_prefix(star + 1);
  repeats_ = count - 1;
  repeats_null_ = token_.empty();
  return repeats_null_ ? Item::null : Item::value;
}

template <class Number>
ListReader::Item ListReader::read_number(Number& target) {
  const Item item = next_item(Place::number);
  if (item != Item::value) return item;
  if constexpr (std::is_integral_v<Number>) {
    return parse_whole(token_, target) ? Item::value : Item::bad;
  } else {
    return parse_real(token_, target) ? Item::value : Item::bad;
  }
}

ListReader::Item ListReader::read_name(std::string& target) {
  const Item item = next_item(Place::name);
  if (item == Item::value) target = token_;
  return item;
}

template ListReader::Item ListReader::read_number(std::int32_t&);
template ListReader::Item ListReader::read_number(std::int16_t&);
template ListReader::Item ListReader::read_number(float&);
template ListReader::Item ListReader::read_number(double&);

}  // namespace kelprun
