#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "input/keywords.h"

namespace {

using kelprun::Form;
using kelprun::Keyword;

std::string_view form_name(Form form) {
  switch (form) {
    case Form::marker:
      return "marker";
    case Form::text:
      return "text";
    case Form::name:
      return "name";
    case Form::int8:
      return "int8";
    case Form::logical7:
      return "logical7";
    case Form::integer:
      return "integer";
    case Form::real:
      return "real";
    case Form::real64:
      return "real64";
    case Form::int_list:
      return "int_list";
    case Form::real_list:
      return "real_list";
    case Form::items:
      return "items";
  }
  return "";
}

std::string shown(const std::string& value) { return value; }
std::string shown(bool value) { return value ? "T" : "F"; }

template <class Number>
std::string shown(Number value) {
  std::ostringstream text;
  text << value;
  return text.str();
}

/// A list that is left out is its first value everywhere.
template <class Number>
std::string shown(const kelprun::Array1<Number>& values) {
  return shown(values(1));
}

/// What stands in the model where the configuration does not name the keyword. An entry of a list
/// that its opener counts has no such value, and neither has a line of items.
std::string default_of(const Keyword& keyword, kelprun::Reading& unread) {
  if (!keyword.opener.empty()) return "";
  return std::visit(
      [&](auto store) -> std::string {
        using Store = decltype(store);
        if constexpr (std::is_same_v<Store, std::monostate> ||
                      std::is_same_v<Store, kelprun::StoreItems>)
          return "";
        else
          return shown(store(unread));
      },
      keyword.store);
}

/// One keyword a line, so that a change of the table is a change of a line.
std::string table_as_json() {
  std::ostringstream text;
  kelprun::Model model;
  kelprun::InputFiles files;
  kelprun::Report report;
  kelprun::Reading unread{model, files, report};
  std::string_view before = "[\n";
  for (const Keyword& keyword : kelprun::keyword_table()) {
    text << before << R"(  {"name": ")" << keyword.name << R"(", "form": ")"
         << form_name(keyword.form) << R"(", "width": )" << keyword.width << R"(, "default": ")"
         << default_of(keyword, unread) << R"(", "opener": ")" << keyword.opener
         << R"(", "to_last_record": )" << (keyword.to_last_record ? "true" : "false") << "}";
    before = ",\n";
  }
  text << "\n]\n";
  return text.str();
}

std::string content_of(const char* path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

/// A file that holds the table already is left alone, so that a source tree that nobody may write
/// can be built.
bool update(const char* path, const std::string& table) {
  if (content_of(path) == table) return true;
  std::ofstream file(path, std::ios::binary);
  file << table;
  file.close();
  return !file.fail();
}

}  // namespace

/// Prints the keywords of the configuration as JSON, or brings the named file up to date with it.
int main(int count, char** arguments) try {
  if (count > 2) {
    std::cerr << "usage: kelprun_keywords [FILE]\n";
    return 2;
  }
  const std::string table = table_as_json();
  if (count == 1) {
    std::cout << table << std::flush;
    return std::cout ? 0 : 1;
  }
  if (update(arguments[1], table)) return 0;
  std::cerr << "kelprun_keywords: " << arguments[1] << ": cannot be written\n";
  return 1;
} catch (const std::exception& failure) {
  std::cerr << "kelprun_keywords: " << failure.what() << '\n';
  return 1;
}
