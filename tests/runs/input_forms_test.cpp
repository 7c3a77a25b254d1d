#include <functional>

#include "runs/case.h"

/// Input files as other systems and editors leave them give the same results.
namespace kelptest {
namespace {

using Rewrite = std::function<std::string(const std::string&)>;

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

std::string with_windows_line_ends(const std::string& text) { return replaced(text, "\n", "\r\n"); }

std::string with_byte_order_mark(const std::string& text) { return "\xEF\xBB\xBF" + text; }

/// Between a keyword and its value, and between the numbers of a data line.
std::string with_tabs(const std::string& text) {
  return replaced(replaced(text, ": ", ":\t"), " ", " \t");
}

std::string without_last_line_end(std::string text) {
  text.pop_back();
  return text;
}

std::string with_blanks_at_line_ends(const std::string& text) {
  return replaced(text, "\n", "   \n");
}

struct Form {
  std::string name;
  Rewrite rewrite;
};

std::ostream& operator<<(std::ostream& out, const Form& form) { return out << form.name; }

/// A run that reads every kind of file: shoreline, contour, widths, two wave series; also the
/// files that are only opened at present.
void write_all_inputs(Case& run, const Rewrite& rewrite) {
  std::vector<double> shoreline;
  std::vector<double> contour;
  std::vector<double> widths;
  for (int i = 1; i <= 20; ++i) {
    shoreline.push_back(120.0 + 3.0 * (i % 4));
    contour.push_back(100.0 + 2.0 * i);
    widths.push_back(i % 2 == 0 ? 90.0 : 110.0);
  }
  run.with("shore.dat", rewrite(values_file(shoreline)))
      .with("reg.dat", rewrite(values_file(contour)))
      .with("dx.dat", rewrite(values_file(widths)))
      .with("waves.dat", rewrite(hourly_waves(19970101, 10, "1.0 8.0 10.0")))
      .with("east.dat", rewrite(hourly_waves(19970101, 10, "1.2 7.0 -5.0")))
      .with("run.cfg", rewrite(run.folder.read("run.cfg")));
}

const Changes EVERY_FILE{{"NUMWAVES", "2"},    {"WAVEID", "8 20.0 10 waves.dat"},
                         {"IREG", "1"},        {"REGFILE", "reg.dat"},
                         {"DX", "-1"},         {"DXFILE", "dx.dat"},
                         {"AZIMUTH", "100.0"}, {"WAVREGANG", "1"}};
const Lines SECOND_FILE{"WAVEID: 20 20.0 10 east.dat"};

class input_files : public testing::TestWithParam<Form> {};

TEST_P(input_files, of_this_form_give_byte_identical_tables_report_and_console) {
  Case plain(EVERY_FILE, SECOND_FILE);
  write_all_inputs(plain, [](const std::string& text) { return text; });
  plain.run();
  expect_completed(plain);
  Case other(EVERY_FILE, SECOND_FILE);
  write_all_inputs(other, GetParam().rewrite);
  other.run();
  expect_completed(other);
  EXPECT_EQ(other.outcome.out, plain.outcome.out);
  for (const char* suffix : {"prt", "slo", "qtr", "off", "mqn", "mqr", "mql", "vcc", "vcx"}) {
    const std::string name = "run." + std::string(suffix);
    EXPECT_EQ(other.folder.read(name), plain.folder.read(name)) << name;
  }
  EXPECT_NE(plain.table("slo").rows.back(), plain.table("slo").rows.front());
}

INSTANTIATE_TEST_SUITE_P(forms, input_files,
                         testing::Values(Form{"windows_line_ends", with_windows_line_ends},
                                         Form{"byte_order_mark", with_byte_order_mark},
                                         Form{"tabs", with_tabs},
                                         Form{"no_line_end_at_the_end", without_last_line_end},
                                         Form{"blanks_at_line_ends", with_blanks_at_line_ends},
                                         Form{"all_of_windows",
                                              [](const std::string& text) {
                                                return with_byte_order_mark(
                                                    with_windows_line_ends(with_tabs(text)));
                                              }}),
                         [](const auto& form) { return form.param.name; });

TEST(line_of_the_configuration, ends_at_column_255_and_a_longer_one_is_told) {
  // The end date stands in the columns 254 to 256: its last digit is lost.
  const std::string line = "SIMDATE:" + std::string(245, ' ') + "105";
  Case cut(Changes{{"SIMDATE", ""}}, {line});
  cut.run();
  EXPECT_EQ(cut.outcome.status, 0);
  EXPECT_EQ(cut.outcome.out,
            text_of({opening(), banner(), begins(), year_block(0, 10, 19970101), closing()}));
  EXPECT_EQ(cut.outcome.err,
            "kelprun: warning: run.cfg: line 36: what stands behind column 255 is not read\n");
}

TEST(line_of_the_configuration, of_blanks_behind_column_255_is_as_good_as_any) {
  Case run(Changes{{"SIMDATE", "10" + std::string(300, ' ')}});
  run.run();
  expect_completed(run);
}

TEST(title, is_cut_at_64_characters) {
  Case run(Changes{{"TITLE", std::string(64, 't') + "lost"}});
  run.run();
  expect_completed(run);
  EXPECT_EQ(occurrences(run.outcome.out, " Simulation Title: " + std::string(64, 't') + "\n"), 1);
}

TEST(keywords, of_more_than_15_characters_match_nothing) {
  Case run(Changes{}, {"SIMDATEXXXXXXXXX: 3", "SIMDATE        : 4", "SIMDATE         : 5"});
  run.run();
  expect_completed(run);
  // 15 characters with their blanks are the keyword; a sixteenth blank changes nothing either.
  EXPECT_EQ(run.table("slo").rows.size(), 1u + 5u);
}

}  // namespace
}  // namespace kelptest
