#include "text/fields.h"

#include <algorithm>

namespace kelprun {

std::string_view without_trailing_blanks(std::string_view text) {
  const auto last = text.find_last_not_of(' ');
  return last == std::string_view::npos ? std::string_view{} : text.substr(0, last + 1);
}

std::string_view left_justified(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

std::string upper_case(std::string_view text) {
  std::string folded(text);
  std::transform(folded.begin(), folded.end(), folded.begin(), [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  return folded;
}

std::string lower_case(std::string_view text) {
  std::string folded(text);
  std::transform(folded.begin(), folded.end(), folded.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return folded;
}

std::string_view cut(std::string_view text, int width) {
  return text.substr(0, static_cast<std::size_t>(width));
}

std::optional<std::string> unquoted(std::string_view text) {
  if (text.empty() || text.front() != '"') return std::string(text);
  std::string name(text.substr(1));
  const auto closing = name.find('"');
  if (closing == std::string::npos) return std::nullopt;
  name[closing] = ' ';
  return std::string(without_trailing_blanks(name));
}

std::string printable(std::string_view text) {
  std::string result(text);
  std::replace_if(
      result.begin(), result.end(), [](char c) { return (c >= 0 && c < ' ') || c == 0x7F; }, '?');
  return result;
}

std::string shown(std::string_view text) {
  constexpr int MOST = 40;
  const std::string_view begin = cut(text, MOST);
  return "'" + printable(begin) + (begin.size() < text.size() ? "..." : "") + "'";
}

}  // namespace kelprun
