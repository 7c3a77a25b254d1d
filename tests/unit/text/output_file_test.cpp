#include "text/output_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <fstream>
#include <string>

#include "support/program.h"
#include "unit/text/stops.h"

namespace {

using kelprun::OutputFile;

class output_file : public testing::Test {
 protected:
  std::string path(const std::string& name) const { return (folder.path() / name).string(); }

  kelptest::WorkFolder folder;
  OutputFile file;
};

/// No file may grow beyond `bytes` while this lives, as on a disk that is full.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : former_signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &former_);
    const rlimit smaller{bytes, former_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &smaller);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &former_);
    std::signal(SIGXFSZ, former_signal_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  void (*former_signal_)(int);
  rlimit former_{};
};

TEST_F(output_file, records_become_lines) {
  ASSERT_TRUE(file.open(path("out.dat")));
  file.record("one");
  file.record("");
  file.record("three");
  file.close();
  EXPECT_EQ(folder.read("out.dat"), "one\n\nthree\n");
  EXPECT_FALSE(file.is_open());
}

TEST_F(output_file, an_emptied_file_loses_what_it_held) {
  folder.write("out.dat", "old\n");
  ASSERT_TRUE(file.open(path("out.dat")));
  file.close();
  EXPECT_EQ(folder.read("out.dat"), "");
}

TEST_F(output_file, to_be_found_keeps_what_it_holds_and_is_made_where_it_is_missing) {
  folder.write("out.dat", "old\n");
  EXPECT_TRUE(OutputFile::find_or_make(path("out.dat")));
  EXPECT_EQ(folder.read("out.dat"), "old\n");
  EXPECT_TRUE(OutputFile::find_or_make(path("new.dat")));
  EXPECT_EQ(folder.read("new.dat"), "");
}

TEST_F(output_file, a_name_in_no_folder_cannot_be_opened) {
  EXPECT_FALSE(OutputFile::find_or_make(path("absent/out.dat")));
  EXPECT_FALSE(file.open(path("absent/out.dat")));
  EXPECT_FALSE(file.is_open());
}

TEST_F(output_file, a_pipe_is_not_waited_for) {
  ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(OutputFile::find_or_make(path("pipe")));
  EXPECT_FALSE(file.open(path("pipe")));
}

TEST_F(output_file, a_folder_is_no_file) {
  EXPECT_FALSE(OutputFile::find_or_make(folder.path().string()));
  EXPECT_FALSE(file.open(folder.path().string()));
}

TEST_F(output_file, a_record_can_be_read_at_once) {
  ASSERT_TRUE(file.open(path("out.dat")));
  file.record("one");
  EXPECT_EQ(folder.read("out.dat"), "one\n");
}

TEST_F(output_file, a_device_without_room_ends_the_run_with_file_and_record) {
  ASSERT_TRUE(file.open("/dev/full"));
  const kelptest::Said said = kelptest::listen([&] {
    file.record("one");
    file.record("two");
  });
  EXPECT_EQ(said.status, 1);
  EXPECT_EQ(said.err,
            "kelprun: /dev/full: record 1 (line 1): cannot be written: No space left on device\n");
}

TEST_F(output_file, a_full_disk_leaves_whole_records_only) {
  const std::string record(100, 'x');
  ASSERT_TRUE(file.open(path("out.dat")));
  kelptest::Said said;
  {
    const FullDisk disk(20000);
    said = kelptest::listen([&] {
      for (int n = 1; n <= 1000; ++n) file.record(record);
    });
  }
  EXPECT_EQ(said.status, 1);
  EXPECT_NE(said.err.find("cannot be written"), std::string::npos) << said.err;
  const auto lines = kelptest::lines(folder.read("out.dat"));
  // 20000 bytes hold 198 records of 101 bytes and two bytes more, which are cut off again.
  EXPECT_EQ(lines.size(), 198u);
  for (const std::string& line : lines) EXPECT_EQ(line, record);
}

/// What another hand has added to the file, or a record that a lost machine has left half written.
void append(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::app | std::ios::binary) << text;
}

TEST_F(output_file, loses_what_follows_its_last_line_end_however_long_that_is) {
  for (const std::size_t size : {1u, 4095u, 4096u, 4097u, 20000u}) {
    ASSERT_TRUE(file.open(path("out.dat")));
    file.record("one");
    append(path("out.dat"), std::string(size, 'x'));
    file.keep_whole_records();
    EXPECT_EQ(folder.read("out.dat"), "one\n") << size;
  }
}

TEST_F(output_file, that_holds_no_line_end_loses_all) {
  for (const std::size_t size : {1u, 4096u, 10000u}) {
    ASSERT_TRUE(file.open(path("out.dat")));
    append(path("out.dat"), std::string(size, 'x'));
    file.keep_whole_records();
    EXPECT_EQ(folder.read("out.dat"), "") << size;
  }
}

TEST_F(output_file, of_whole_records_loses_nothing) {
  file.keep_whole_records();
  ASSERT_TRUE(file.open(path("out.dat")));
  file.keep_whole_records();
  EXPECT_EQ(folder.read("out.dat"), "");
  file.record("one");
  file.record("");
  file.keep_whole_records();
  EXPECT_EQ(folder.read("out.dat"), "one\n\n");
}

TEST_F(output_file, that_somebody_removes_ends_the_run) {
  ASSERT_TRUE(file.open(path("out.dat")));
  file.record("one");
  std::filesystem::remove(path("out.dat"));
  const kelptest::Said said = kelptest::listen([&] { file.record("two"); });
  EXPECT_EQ(said.status, 1);
  EXPECT_EQ(said.err, "kelprun: " + path("out.dat") +
                          ": record 2 (line 2): cannot be written: the file has been removed\n");
}

}  // namespace
