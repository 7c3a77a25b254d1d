#include "input/output_names.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "unit/input/reading.h"

namespace {

class output_names : public kelptest::ReadingTest {
 protected:
  /// The run is refused on standard error by a message with both names, before anything is written.
  void expect_refused(const kelptest::Changes& changes, const std::string& output,
                      const std::string& input) {
    const std::string shore = folder.read("shore.dat");
    read(changes);
    EXPECT_EQ(now->said.status, 1);
    EXPECT_NE(now->said.err.find(output), std::string::npos) << now->said.err;
    EXPECT_NE(now->said.err.find(input), std::string::npos) << now->said.err;
    EXPECT_EQ(folder.read("shore.dat"), shore);
  }
};

TEST_F(output_names, a_report_never_overwrites_an_input_file) {
  expect_refused({{"PRFILE", "shore.dat"}}, "shore.dat", "shore.dat");
  expect_refused({{"PRFILE", "waves.dat"}}, "waves.dat", "waves.dat");
  expect_refused({{"PRFILE", "run.cfg"}}, "run.cfg", "run.cfg");
}

TEST_F(output_names, another_way_to_write_the_same_path_is_seen_through) {
  std::filesystem::create_directories("sub");
  expect_refused({{"PRFILE", "sub/../shore.dat"}}, "sub/../shore.dat", "shore.dat");
  expect_refused({{"PRFILE", "./shore.dat"}}, "./shore.dat", "shore.dat");
}

TEST_F(output_names, links_to_an_input_file_are_seen_through) {
  std::filesystem::create_symlink("shore.dat", "soft.prt");
  expect_refused({{"PRFILE", "soft.prt"}}, "soft.prt", "shore.dat");
  std::filesystem::create_hard_link("shore.dat", "hard.prt");
  expect_refused({{"PRFILE", "hard.prt"}}, "hard.prt", "shore.dat");
}

TEST_F(output_names, a_table_never_overwrites_an_input_file) {
  for (const std::string suffix : {"slo", "qtr", "off", "mqn", "mqr", "mql", "vcc", "vcx"}) {
    folder.write("run." + suffix, "a shoreline");
    expect_refused({{"INIFILE", "run." + suffix}}, "run." + suffix, "run." + suffix);
    EXPECT_EQ(folder.read("run." + suffix), "a shoreline");
  }
  expect_refused({{"DXFILE", "run.slo"}}, "run.slo", "run.slo");
}

TEST_F(output_names, the_report_and_a_table_are_different_files) {
  read({{"PRFILE", "run.slo"}});
  EXPECT_EQ(now->said.status, 1);
  EXPECT_NE(now->said.err.find("run.slo"), std::string::npos) << now->said.err;
}

TEST_F(output_names, a_report_name_without_a_full_stop_is_its_own_stem) {
  folder.write("reportslo", "a shoreline");
  expect_refused({{"PRFILE", "report"}, {"INIFILE", "reportslo"}}, "reportslo", "reportslo");
}

TEST_F(output_names, tables_that_would_be_hidden_are_warned_of) {
  read({{"PRFILE", "./run.prt"}});
  expect_accepted();
  EXPECT_EQ(now->said.err.find("kelprun: warning: "), 0u) << now->said.err;
  EXPECT_NE(now->said.err.find("./run.prt"), std::string::npos);
  read({});
  EXPECT_EQ(now->said.err, "");
}

}  // namespace
