#include "runs/wrong_input/family.h"

/// Letters in the numbers of the data files: each is told with its file, record and line, and as it
/// stands there.
namespace kelptest {
namespace {

/// One line of the text, numbered from 1, with one of its items, numbered from 1, replaced.
std::string with_item(const std::string& text, std::size_t line, std::size_t item,
                      const std::string& bad) {
  Lines all_lines = lines(text);
  Lines of_line = items(all_lines.at(line - 1));
  of_line.at(item - 1) = bad;
  std::string changed;
  for (const std::string& part : of_line) changed += (changed.empty() ? "" : " ") + part;
  all_lines[line - 1] = changed;
  return text_of({all_lines});
}

std::string place(const std::string& file, std::size_t record, std::size_t line) {
  return file + ": record " + std::to_string(record) + " (line " + std::to_string(line) + "): ";
}

TEST(garbled_files, of_values_along_the_coast_are_refused_with_group_and_line) {
  Family rows("garbled values");
  for (const std::string file : {"shore.dat", "contour.dat", "widths.dat"})
    for (const std::string bad : {"ten", "1x2", "x1.2", "1.2.3", "1e999", "nan", "--3", "1;2"})
      for (const std::size_t group : {1U, 2U}) {
        const std::size_t line = 4 + group;
        Wrong row =
            coast_with(file + ": " + bad, file,
                       with_item(whole_coast().files.at(file), line, group == 1 ? 1 : 10, bad));
        row.place = place(file, group, line) + "'" + bad + "' is no number";
        row.told = {"'" + bad + "'"};
        rows.refuse(row);
      }
}

TEST(garbled_files, of_series_are_refused_with_record_and_line) {
  Family rows("garbled series");
  struct Column {
    std::size_t item;
    Lines bad;
  };
  const std::vector<Column> columns{{1, {"1997-01-01", "19970101.5", "99999999999", "today"}},
                                    {2, {"12:00", "70000", "-40000", "noon"}},
                                    {3, {"0.1m", "ten", "1.2.3", "1e999"}}};
  for (const std::string file : {"levels.dat", "west.dat", "east.dat"})
    for (const auto& [item, bads] : columns)
      for (const std::string& bad : bads)
        for (const std::size_t record : {1U, 2U, 10U}) {
          if (record == 2 && &bad != &bads.front()) continue;
          Wrong row = coast_with(file + ": " + bad, file,
                                 with_item(whole_coast().files.at(file), record, item, bad));
          row.place = place(file, record, record) + "'" + bad + "' is no number of its kind";
          row.told = {"'" + bad + "'"};
          rows.refuse(row);
        }
}

TEST(garbled_files, of_waves_are_refused_with_record_and_line) {
  Family rows("garbled waves");
  struct Column {
    std::size_t item;
    Lines bad;
    Kept kept;
  };
  // Dates and times are read ahead of the tables' titles, the waves when they are due.
  const std::vector<Column> columns{{1, {"1997-01-01", "99999999999"}, Kept::tables},
                                    {2, {"12:00", "70000"}, Kept::tables},
                                    {3, {"0.5m", "calm"}, Kept::nothing},
                                    {4, {"8s", "1.2.3"}, Kept::nothing},
                                    {5, {"N", "1e999"}, Kept::nothing}};
  for (const auto& [item, bads, kept] : columns)
    for (const std::string& bad : bads)
      for (const std::size_t record : {1U, 10U}) {
        Wrong row = coast_with("waves.dat: " + bad, "waves.dat",
                               with_item(whole_coast().files.at("waves.dat"), record, item, bad));
        row.place = place("waves.dat", record, record) + "'" + bad + "' is no ";
        row.told = {"'" + bad + "'"};
        row.kept = kept;
        rows.refuse(row);
      }
  for (const std::size_t item : {1U, 2U, 3U})
    for (const std::string bad : {"calm", "1x"})
      rows.refuse(Wrong{.name = "steady " + bad,
                        .files = {{"waves.dat", with_item("1 8 10\n", 1, item, bad)}},
                        .place = place("waves.dat", 1, 1) + "'" + bad + "' is no number",
                        .told = {"'" + bad + "'"},
                        .kept = Kept::nothing});
}

TEST(garbled_files, tell_the_line_of_a_record_that_blank_lines_move) {
  Family rows("moved lines");
  const std::string good = "19970101 0 0.5\n";
  Wrong row = coast_with("a record over three lines", "levels.dat",
                         good + "\n\n  \t\n19970101\n\nnoon 0.5\n");
  row.place = place("levels.dat", 2, 7) + "'noon'";
  row.told = {"'noon'"};
  rows.refuse(row);
  row = coast_with("Windows line ends", "shore.dat",
                   "1\r\n2\r\n3\r\n4\r\n1 2 3 4 5 6 7 8 9 10\r\n1 2 3 four\r\n");
  row.place = place("shore.dat", 2, 6) + "'four' is no number";
  row.told = {"'four'"};
  rows.refuse(row);
  row = coast_with("three headers", "shore.dat",
                   "1\n2\n3\n1 2 3 4 5 6 7 8 9 10\n1 2 3 4 5 6 7 8 9 10\n");
  row.place = "shore.dat: line 5: ";
  row.told = {"10 of 20 values"};
  rows.refuse(row);
}

}  // namespace
}  // namespace kelptest
