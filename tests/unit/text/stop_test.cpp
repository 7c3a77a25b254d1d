#include "text/stop.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <string>

#include "support/program.h"
#include "text/console.h"
#include "text/output_file.h"
#include "text/standard_error.h"
#include "text/whole.h"
#include "unit/text/stops.h"

namespace {

using namespace kelprun;
using kelptest::listen;
using kelptest::Said;

TEST(stop, a_fatal_record_has_eighty_characters_and_ends_the_run_with_status_one) {
  const Said said = listen([] { fatal("DT must be > 0."); });
  EXPECT_EQ(said.status, 1);
  EXPECT_EQ(said.out, "ERROR: DT must be > 0." + std::string(58, ' ') + "\n");
  EXPECT_EQ(said.out.size(), 81u);
  EXPECT_EQ(said.err, "");
}

TEST(stop, a_long_fatal_message_is_cut_at_seventy_three_characters) {
  const std::string message(200, 'x');
  const Said said = listen([&] { fatal(message); });
  EXPECT_EQ(said.out, "ERROR: " + std::string(73, 'x') + "\n");
}

TEST(stop, a_fatal_message_of_seventy_three_characters_stays_whole) {
  const std::string message = std::string(72, 'x') + "y";
  const Said said = listen([&] { fatal(message); });
  EXPECT_EQ(said.out, "ERROR: " + message + "\n");
}

TEST(stop, a_run_time_message_is_one_line_on_standard_error) {
  const Said said = listen([] { run_time_message("waves.dat: record 3 (line 3): too short"); });
  EXPECT_EQ(said.status, 1);
  EXPECT_EQ(said.err, "kelprun: waves.dat: record 3 (line 3): too short\n");
  EXPECT_EQ(said.out, "");
}

TEST(stop, the_handler_is_given_the_status) {
  EXPECT_EQ(listen([] { stop_run(3); }).status, 3);
}

TEST(stop, what_was_written_reaches_its_file_before_the_run_ends) {
  const kelptest::WorkFolder folder;
  OutputFile file;
  ASSERT_TRUE(file.open((folder.path() / "out.dat").string()));
  file.record("one");
  EXPECT_EQ(listen([] { fatal("end"); }).status, 1);
  EXPECT_EQ(folder.read("out.dat"), "one\n");
}

TEST(stop_of_the_process, the_usual_handler_ends_the_process_with_the_status) {
  EXPECT_EXIT(run_time_message("over"), testing::ExitedWithCode(1), "^kelprun: over\n$");
}

TEST(stop_of_the_process, a_handler_that_comes_back_does_not_let_the_run_go_on) {
  const auto stop_with_such_a_handler = [] {
    set_stop_handler([](int status) { std::fprintf(stderr, "status %d", status); });
    stop_run(7);
  };
  EXPECT_EXIT(stop_with_such_a_handler(), testing::KilledBySignal(SIGABRT), "status 7$");
}

TEST(console, a_free_format_line_has_one_blank_more_than_a_record) {
  const Said said = listen([] {
    console_record("CALCULATED");
    console_line(" MAXIMUM NUMBER IS ", 250);
  });
  EXPECT_EQ(said.out, "CALCULATED\n  MAXIMUM NUMBER IS 250\n");
  EXPECT_FALSE(said.status.has_value());
}

TEST(standard_error, lines_carry_the_name_of_the_program) {
  const Said said = listen([] {
    error_line("one");
    warning_line("two");
  });
  EXPECT_EQ(said.err, "kelprun: one\nkelprun: warning: two\n");
}

TEST(standard_error, a_progress_line_is_removed_before_the_next_line) {
  const Said said = listen([] {
    show_progress("50 %");
    error_line("one");
    error_line("two");
  });
  EXPECT_EQ(said.err, "\r\033[K50 %\r\033[Kkelprun: one\nkelprun: two\n");
}

TEST(whole, halves_go_away_from_zero) {
  EXPECT_EQ(nearest_integer(2.5, "n"), 3);
  EXPECT_EQ(nearest_integer(-2.5, "n"), -3);
  EXPECT_EQ(nearest_integer(2.4999, "n"), 2);
  EXPECT_EQ(truncated(2.9999, "n"), 2);
  EXPECT_EQ(truncated(-2.9999, "n"), -2);
  EXPECT_EQ(nearest_integer(2147483647.4, "n"), 2147483647);
}

TEST(whole, a_value_that_no_integer_holds_ends_the_run_by_name) {
  for (const double value : {2147483648.0, -2147483649.0, 1e300, std::stod("nan")}) {
    const Said said = listen([&] { nearest_integer(value, "number of steps"); });
    EXPECT_EQ(said.status, 1);
    EXPECT_EQ(said.err.find("kelprun: number of steps: "), 0u) << said.err;
  }
  EXPECT_EQ(listen([] { truncated(-1e10, "n"); }).status, 1);
}

}  // namespace
