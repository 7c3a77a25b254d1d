#include "text/input_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/program.h"
#include "unit/text/stops.h"

namespace {

using kelprun::InputFile;
using Lines = std::vector<std::string>;

class input_file : public testing::Test {
 protected:
  std::string path(const std::string& name) const { return (folder.path() / name).string(); }

  Lines rest() {
    Lines all;
    while (file.next_line()) all.emplace_back(file.line());
    return all;
  }

  Lines lines_of(const std::string& text) {
    folder.write("in.dat", text);
    EXPECT_TRUE(file.open(path("in.dat")));
    return rest();
  }

  kelptest::WorkFolder folder;
  InputFile file;
};

TEST_F(input_file, lines_come_without_their_ends) {
  EXPECT_EQ(lines_of("one\n\nthree\n"), (Lines{"one", "", "three"}));
}

TEST_F(input_file, a_last_line_without_its_end_counts) {
  EXPECT_EQ(lines_of("one\ntwo"), (Lines{"one", "two"}));
}

TEST_F(input_file, an_empty_file_has_no_line) { EXPECT_EQ(lines_of(""), Lines{}); }

TEST_F(input_file, a_carriage_return_is_dropped_at_the_line_end_only) {
  EXPECT_EQ(lines_of("one\r\nt\rwo\r\n\r\n"), (Lines{"one", "t\rwo", ""}));
}

TEST_F(input_file, a_tab_counts_as_a_blank) { EXPECT_EQ(lines_of("a\tb\t\n"), (Lines{"a b "})); }

TEST_F(input_file, a_byte_order_mark_is_skipped_at_the_start_of_the_file_only) {
  EXPECT_EQ(lines_of("\xEF\xBB\xBFone\n\xEF\xBB\xBFtwo\n"), (Lines{"one", "\xEF\xBB\xBFtwo"}));
}

TEST_F(input_file, a_rewound_file_begins_again_with_line_one) {
  EXPECT_EQ(lines_of("\xEF\xBB\xBFone\ntwo\n"), (Lines{"one", "two"}));
  EXPECT_EQ(file.line_number(), 2);
  file.rewind();
  EXPECT_EQ(file.line_number(), 0);
  EXPECT_EQ(rest(), (Lines{"one", "two"}));
}

TEST_F(input_file, the_end_of_a_file_is_no_broken_read) {
  lines_of("one\n");
  EXPECT_FALSE(file.next_line());
  EXPECT_FALSE(file.broken());
}

TEST_F(input_file, only_a_regular_file_opens) {
  EXPECT_FALSE(file.open(path("absent.dat")));
  EXPECT_FALSE(file.open(folder.path().string()));
  EXPECT_FALSE(file.open(""));
  EXPECT_FALSE(file.open("/dev/null"));
  EXPECT_FALSE(file.is_open());
}

TEST_F(input_file, that_does_not_open_is_told_with_the_reason) {
  EXPECT_EQ(kelprun::open_failure(""), "no file is named");
  EXPECT_EQ(kelprun::open_failure(path("absent.dat")), "there is no such file");
  EXPECT_EQ(kelprun::open_failure(folder.path().string()), "this is a folder");
  EXPECT_EQ(kelprun::open_failure("/dev/null"), "this is no ordinary file");
  std::filesystem::create_symlink(path("circle.dat"), path("circle.dat"));
  EXPECT_EQ(kelprun::open_failure(path("circle.dat")), "Too many levels of symbolic links");
}

/// The process can open no more files while this lives.
class NoMoreFiles {
 public:
  NoMoreFiles() {
    getrlimit(RLIMIT_NOFILE, &former_);
    const rlimit none{0, former_.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
  }
  ~NoMoreFiles() { setrlimit(RLIMIT_NOFILE, &former_); }
  NoMoreFiles(const NoMoreFiles&) = delete;
  NoMoreFiles& operator=(const NoMoreFiles&) = delete;

 private:
  rlimit former_{};
};

TEST_F(input_file, that_the_system_does_not_open_is_told_with_its_reason) {
  folder.write("in.dat", "one\n");
  std::string reason;
  {
    const NoMoreFiles limit;
    EXPECT_FALSE(file.open(path("in.dat")));
    reason = kelprun::open_failure(path("in.dat"));
  }
  EXPECT_EQ(reason, "Too many open files");
  EXPECT_EQ(kelprun::open_failure(path("in.dat")), "it could not be opened") << "it opens again";
}

TEST_F(input_file, a_link_to_a_file_opens) {
  folder.write("in.dat", "one\n");
  std::filesystem::create_symlink(path("in.dat"), path("link.dat"));
  EXPECT_TRUE(file.open(path("link.dat")));
  EXPECT_EQ(rest(), Lines{"one"});
}

TEST_F(input_file, a_failure_names_file_record_and_line_and_ends_the_run) {
  lines_of("one\ntwo\nthree\n");
  const kelptest::Said said = kelptest::listen([&] { file.failure(2, "'x' is no number"); });
  EXPECT_EQ(said.status, 1);
  EXPECT_EQ(said.err, "kelprun: " + path("in.dat") + ": record 2 (line 3): 'x' is no number\n");
  EXPECT_EQ(said.out, "");
}

}  // namespace
