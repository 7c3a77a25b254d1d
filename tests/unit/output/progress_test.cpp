#include "output/progress.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <thread>

#include "text/standard_error.h"

namespace kelprun {
namespace {

using Watch = std::chrono::steady_clock;

double seconds_since(Watch::time_point start) {
  return std::chrono::duration<double>(Watch::now() - start).count();
}

/// Standard error is a terminal while this lives; what is written there can be read.
class Terminal {
 public:
  Terminal() : reading_end_(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK)) {
    if (reading_end_ < 0 || grantpt(reading_end_) != 0 || unlockpt(reading_end_) != 0)
      throw std::runtime_error("no terminal");
    const int screen = open(ptsname(reading_end_), O_RDWR | O_NOCTTY);
    former_ = dup(STDERR_FILENO);
    dup2(screen, STDERR_FILENO);
    close(screen);
  }
  ~Terminal() {
    clear_progress();
    dup2(former_, STDERR_FILENO);
    close(former_);
    close(reading_end_);
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  /// What has been written since the last time.
  std::string shown() const {
    std::string text;
    char part[256];
    for (ssize_t n = 0; (n = read(reading_end_, part, sizeof part)) > 0;)
      text.append(part, static_cast<std::size_t>(n));
    return text;
  }

 private:
  int reading_end_;
  int former_ = -1;
};

Clock at_step(std::int32_t ITS, std::int32_t NTS) {
  Clock clock;
  clock.ITS = ITS;
  clock.NTS = NTS;
  clock.NEXTDATE = 19970102;
  return clock;
}

void wait_for_the_next_line() { std::this_thread::sleep_for(std::chrono::milliseconds(210)); }

TEST(progress, tells_the_share_the_date_and_the_time_that_is_left) {
  const Terminal terminal;
  Progress progress;
  const auto before = Watch::now();
  progress.start();
  const auto after = Watch::now();
  wait_for_the_next_line();
  const double least = seconds_since(after);
  progress.update(at_step(10, 100));
  const double most = seconds_since(before);
  const std::string text = terminal.shown();
  long left = -1;
  ASSERT_EQ(std::sscanf(text.c_str(), "\r\033[K10 %%  19970102  %ld s left", &left), 1) << text;
  // A tenth of the steps is done, so that nine times the time spent is left.
  EXPECT_GE(left, std::floor(9 * least) - 1);
  EXPECT_LE(left, std::floor(9 * most));
}

TEST(progress, stays_at_a_hundred_percent_behind_the_last_step) {
  const Terminal terminal;
  Progress progress;
  progress.start();
  wait_for_the_next_line();
  progress.update(at_step(120, 100));
  EXPECT_EQ(terminal.shown(), "\r\033[K100 %  19970102  0 s left");
}

TEST(progress, is_renewed_no_more_than_five_times_a_second) {
  const Terminal terminal;
  Progress progress;
  progress.start();
  const auto start = Watch::now();
  wait_for_the_next_line();
  int lines = 0;
  for (int step = 1; step <= 500; ++step) {
    progress.update(at_step(step, 1000));
    if (!terminal.shown().empty()) ++lines;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  EXPECT_GE(lines, 1);
  EXPECT_LE(lines, seconds_since(start) / 0.2);
}

TEST(progress, says_nothing_before_the_first_step) {
  const Terminal terminal;
  Progress progress;
  progress.start();
  wait_for_the_next_line();
  progress.update(at_step(0, 100));
  EXPECT_EQ(terminal.shown(), "");
}

TEST(progress, says_nothing_where_standard_error_is_no_terminal) {
  testing::internal::CaptureStderr();
  Progress progress;
  progress.start();
  wait_for_the_next_line();
  progress.update(at_step(10, 100));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace kelprun
