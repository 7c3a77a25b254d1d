#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "input/checks.h"
#include "input/configuration.h"
#include "support/program.h"
#include "unit/text/stops.h"

namespace kelptest {

/// Makes the folder the current one while this lives, so that files go by their short names.
class InFolder {
 public:
  explicit InFolder(const WorkFolder& folder) : former_(std::filesystem::current_path()) {
    std::filesystem::current_path(folder.path());
  }
  ~InFolder() { std::filesystem::current_path(former_); }
  InFolder(const InFolder&) = delete;
  InFolder& operator=(const InFolder&) = delete;

 private:
  std::filesystem::path former_;
};

using Changes = std::map<std::string, std::string>;
using Lines = std::vector<std::string>;

/// A fresh set of records and files that one configuration is read into.
struct Reading {
  kelprun::Model model;
  kelprun::InputFiles files;
  kelprun::Report report;
  bool accepted = false;
  Said said;
};

/// Reads configurations in a folder that holds the usual input files of 20 cells.
class ReadingTest : public testing::Test {
 protected:
  ReadingTest() { write_basic_inputs(folder, 20, 5.0); }

  /// Reads the text alone: values in the file's own units.
  void read_text(const std::string& text) {
    start(text);
    now->said = listen([&] {
      now->accepted = kelprun::read_configuration("run.cfg", now->model, now->files, now->report);
    });
  }

  /// Reads the usual configuration with changes and further lines.
  void read(const Changes& changes, const Lines& more_lines = {}) {
    read_text(basic_configuration(changes, more_lines));
  }

  /// The same with all checks behind the reading: values in metres.
  void check(const Changes& changes, const Lines& more_lines = {}) {
    start(basic_configuration(changes, more_lines));
    now->said = listen([&] {
      now->accepted = kelprun::read_and_check("run.cfg", now->model, now->files, now->report);
    });
  }

  void expect_accepted() const {
    EXPECT_TRUE(now->accepted) << now->said.out << now->said.err;
    EXPECT_FALSE(now->said.status.has_value()) << now->said.out << now->said.err;
  }

  /// The run ended with this fatal message as its last console record.
  void expect_fatal(const std::string& message) const {
    EXPECT_EQ(now->said.status, 1);
    const std::string record = fatal_record(message);
    const std::string& out = now->said.out;
    ASSERT_GE(out.size(), record.size());
    EXPECT_EQ(out.substr(out.size() - record.size()), record);
  }

  bool said(const std::string& console_line) const {
    for (const std::string& line : lines(now->said.out))
      if (line == console_line) return true;
    return false;
  }

  std::string report_text() {
    now->report.close();
    return folder.read("run.prt");
  }

  kelprun::Model& model() { return now->model; }

  WorkFolder folder;
  InFolder in_folder{folder};
  std::unique_ptr<Reading> now;

 private:
  void start(const std::string& text) {
    folder.write("run.cfg", text);
    now = std::make_unique<Reading>();
  }
};

/// All values of a list, for comparisons.
template <class T>
std::vector<T> values_of(const kelprun::Array1<T>& list) {
  return {list.begin(), list.end()};
}

}  // namespace kelptest
