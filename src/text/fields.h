#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kelprun {

/// Fixed-width text is blank-padded, so trailing blanks never count: these helpers drop them.
std::string_view without_trailing_blanks(std::string_view text);
std::string_view left_justified(std::string_view text);
std::string upper_case(std::string_view text);
std::string lower_case(std::string_view text);

/// The first `width` characters.
std::string_view cut(std::string_view text, int width);

/// Double-quote clean-up of a name: the opening quote goes, the closing one becomes a blank.
/// Nothing is returned where the closing quote is missing.
std::optional<std::string> unquoted(std::string_view text);

/// A question mark for each control character: what a file holds must not steer a terminal.
std::string printable(std::string_view text);

/// The text in single quotes for a message: printable, and cut where it is long.
std::string shown(std::string_view text);

}  // namespace kelprun
