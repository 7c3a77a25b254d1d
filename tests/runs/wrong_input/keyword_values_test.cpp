#include <set>

#include "input/keywords.h"
#include "runs/wrong_input/family.h"

/// Values that no keyword can mean. The rows come from the program's own table of keywords, so that
/// a new one is covered without a word here.
namespace kelptest {
namespace {

using kelprun::Form;
using kelprun::Keyword;

/// A value, and the part of it that is wrong.
struct Value {
  std::string text;
  std::string bad;
};

/// What a value can be instead of the number or name that is wanted: a word, letters in a number, a
/// number that the form cannot hold.
enum Fault : std::size_t { WORD, LETTERS, BEYOND };

/// The values of a form with these faults, in their order; a name has two of its own.
std::vector<Value> wrong_values(Form form) {
  switch (form) {
    case Form::int8:
      return {{"ten", "ten"}, {"1x2", "1x2"}, {"1.5", "1.5"}};
    case Form::logical7:
      return {{"yes", "yes"}, {"1", "1"}, {".maybe.", ".maybe."}};
    case Form::integer:
      return {{"ten", "ten"}, {"1x2", "1x2"}, {"99999999999", "99999999999"}};
    case Form::int_list:
      return {{"ten", "ten"}, {"1 1x2 3", "1x2"}, {"1 99999999999", "99999999999"}};
    case Form::real:
      return {{"ten", "ten"}, {"1.2.3", "1.2.3"}, {"1e999", "1e999"}};
    case Form::real64:
      return {{"ten", "ten"}, {"1.2.3", "1.2.3"}, {"-1e9999", "-1e9999"}};
    case Form::real_list:
      return {{"ten", "ten"}, {"1 0x2 3", "0x2"}, {"2*1e999", "1e999"}};
    case Form::name:
      return {{"\"run", "\"run"}, {std::string("run\0.cfg", 8), "run?.cfg"}};
    default:
      return {};
  }
}

/// Lines that open the record to which a line of this keyword belongs.
Lines lines_ahead(const Keyword& keyword) {
  if (keyword.opener.empty()) return {};
  Lines ahead;
  if (keyword.opener != "IINLS") ahead.push_back("IINLS: 9");
  if (keyword.opener != keyword.name) ahead.push_back(std::string(keyword.opener) + ": 9");
  return ahead;
}

/// The told message of a value that cannot be decoded, and of the two keywords that have another.
std::string message(const std::string& keyword, const std::string& line) {
  if (keyword == "NUMWAVES" || keyword == "KTIDE") return "ERROR: Cannot not open wave file";
  return "ERROR: Invalid config data: " + line;
}

Wrong wrong_value(const Keyword& keyword, const Value& value) {
  Wrong row{.name = std::string(keyword.name) + ": " + value.bad};
  row.more_lines = lines_ahead(keyword);
  const std::string name(keyword.name);
  const int line = first_further_line({}) + static_cast<int>(row.more_lines.size());
  row.more_lines.push_back(name + ": " + value.text);
  row.place =
      "run.cfg: line " + std::to_string(line) + ": " + name + ": '" + value.bad + "' is no ";
  row.told = {message(name, name + ": " + (value.text.size() == 8 ? value.bad : value.text))};
  row.kept = Kept::report_and_tables;
  return row;
}

/// The rows of the keywords whose form is one of these, with this fault.
void refuse_values(const std::string& family, const std::set<Form>& forms, std::size_t fault) {
  Family rows(family);
  int expected = 0;
  for (const Keyword& keyword : kelprun::keyword_table()) {
    if (forms.count(keyword.form) == 0) continue;
    ++expected;
    rows.refuse(wrong_value(keyword, wrong_values(keyword.form).at(fault)));
  }
  EXPECT_EQ(rows.rows(), expected);
  EXPECT_GT(expected, 0);
}

const std::set<Form> WHOLE_NUMBERS{Form::int8, Form::integer, Form::int_list};
const std::set<Form> NUMBERS{Form::real, Form::real64, Form::real_list};

TEST(wrong_values, that_are_words_for_whole_numbers_are_refused_with_their_line) {
  refuse_values("words for whole numbers", WHOLE_NUMBERS, WORD);
}

TEST(wrong_values, that_are_words_for_numbers_are_refused_with_their_line) {
  refuse_values("words for numbers", NUMBERS, WORD);
}

TEST(wrong_values, with_letters_in_whole_numbers_are_refused_with_their_line) {
  refuse_values("letters in whole numbers", WHOLE_NUMBERS, LETTERS);
}

TEST(wrong_values, with_letters_in_numbers_are_refused_with_their_line) {
  refuse_values("letters in numbers", NUMBERS, LETTERS);
}

TEST(wrong_values, that_are_no_whole_numbers_or_too_large_are_refused_with_their_line) {
  refuse_values("impossible whole numbers", WHOLE_NUMBERS, BEYOND);
}

TEST(wrong_values, that_are_too_large_numbers_are_refused_with_their_line) {
  refuse_values("impossible numbers", NUMBERS, BEYOND);
}

TEST(wrong_values, of_switches_and_names_are_refused_with_their_line) {
  for (const Fault fault : {WORD, LETTERS, BEYOND})
    refuse_values("switches", {Form::logical7}, fault);
  refuse_values("names without a closing quote", {Form::name}, 0);
  refuse_values("names with a byte of value 0", {Form::name}, 1);
}

TEST(wrong_values, leave_no_form_of_a_keyword_out) {
  const std::set<Form> covered{Form::int8,     Form::integer,   Form::real,     Form::real64,
                               Form::int_list, Form::real_list, Form::logical7, Form::name};
  std::set<std::string> others;
  for (const Keyword& keyword : kelprun::keyword_table())
    if (covered.count(keyword.form) == 0) others.emplace(keyword.name);
  // A marker and a title cannot be wrong; units and lines of items have rows of their own.
  EXPECT_EQ(others, (std::set<std::string>{"KELPRUN", "TITLE", "KELUNITS", "WAVUNITS", "WAVEID",
                                           "WLFILE", "TIDEFILE"}));
}

/// A line of items with one that is wrong, or that ends too early.
Wrong items_line(const std::string& keyword, const std::string& value, const std::string& told,
                 const std::string& cause) {
  Wrong row{.name = keyword + ": " + value};
  row.more_lines = {keyword + ": " + value};
  row.place =
      "run.cfg: line " + std::to_string(first_further_line({})) + ": " + keyword + ": " + cause;
  row.told = {told};
  row.kept = Kept::report_and_tables;
  return row;
}

TEST(wrong_values, in_lines_of_items_are_refused_with_their_line) {
  Family rows("lines of items");
  struct Items {
    std::string keyword;
    Lines good;
    std::string cannot_open;
  };
  const std::vector<Items> kinds{
      {"WAVEID", {"20", "20.0", "0", "waves.dat"}, "Cannot not open wave file"},
      {"WLFILE", {"10", "waves.dat"}, "Cannot not open water level file"},
      {"TIDEFILE", {"20", "10", "waves.dat"}, "Cannot not open tidal current file"}};
  for (const auto& [keyword, good, cannot_open] : kinds) {
    const auto joined = [](const Lines& list) {
      std::string text;
      for (const std::string& item : list) text += (text.empty() ? "" : " ") + item;
      return text;
    };
    for (std::size_t k = 0; k + 1 < good.size(); ++k)
      for (const std::string bad : {"ten", "2x", "1e999"}) {
        Lines list = good;
        list[k] = bad;
        const std::string value = joined(list);
        rows.refuse(items_line(keyword, value, "Invalid config data: " + keyword + ": " + value,
                               "'" + bad + "' is no "));
      }
    Lines list = good;
    list.back() = "\"waves.dat";
    rows.refuse(items_line(keyword, joined(list),
                           "Invalid config data: " + keyword + ": " + joined(list),
                           "'waves.dat' is no "));
    list.back() = "none.dat";
    rows.refuse(items_line(keyword, joined(list), cannot_open,
                           "'none.dat' cannot be opened: there is no such file"));
    list.back() = std::string("waves.dat\0x", 11);
    rows.refuse(items_line(keyword, joined(list), cannot_open,
                           "'waves.dat?x' cannot be opened: the name holds a NUL byte"));
    for (const std::string none : {"", "\"\""}) {
      list.back() = none;
      Wrong row = items_line(keyword, joined(list), cannot_open, "");
      row.told.push_back("no file is named");
      rows.refuse(row);
    }
  }
}

TEST(wrong_values, of_the_units_are_refused) {
  Family rows("units");
  for (const std::string keyword : {"KELUNITS", "WAVUNITS"})
    for (const std::string value : {"ft", "m", "(km)", "feet", "1", "()", "\"(m)\""})
      rows.refuse(Wrong{.name = keyword + ": " + value,
                        .changes = {{keyword, value}},
                        .told = {keyword + " must be (ft) or (m)"},
                        .kept = Kept::report_and_tables});
}

TEST(needed_keywords, that_are_left_out_are_asked_for_by_name) {
  Family rows("left out");
  struct Needed {
    std::string keyword, told;
    Kept kept;
  };
  for (const auto& [keyword, told, kept] : std::vector<Needed>{
           {"KELPRUN", "not targeted for KelpRun", Kept::report_and_tables},
           {"INIFILE", "Initial Shoreline filename omitted", Kept::report_and_tables},
           {"WAVEID", "WAVEINFILE filename omitted", Kept::report_and_tables},
           {"PRFILE", "PRTFILE filename omitted", Kept::report_and_tables},
           {"DT", "DT must be > 0.", Kept::report_and_tables},
           {"DTSAVE", "DTSAVE must be > 0.", Kept::report_and_tables},
           {"NUMWAVES", "NUMWAVES", Kept::tables},
           {"NX", "NX", Kept::tables},
           {"DX", "DX", Kept::tables},
           {"SIMDATE", "SIMDATE", Kept::tables},
           {"K1", "K1", Kept::tables},
           {"D50", "D50", Kept::tables}})
    rows.refuse(Wrong{.name = keyword, .changes = {{keyword, ""}}, .told = {told}, .kept = kept});
  rows.refuse(Wrong{.name = "both heights of the profile",
                    .changes = {{"DCLOS", ""}, {"BERMHT", ""}},
                    .told = {"DCLOS + BERMHT at cell 1"}});
}

}  // namespace
}  // namespace kelptest
