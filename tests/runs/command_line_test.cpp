#include "runs/case.h"

/// The one argument of the program, and the outputs that a caller may close.
namespace kelptest {
namespace {

const Lines FIRST = free_lines({"KelpRun Model Execution"});

TEST(command_line, no_argument_and_two_arguments_give_the_same_message_and_a_stop) {
  const WorkFolder folder;
  for (const Lines& arguments : {Lines{}, Lines{"run.cfg", "run.cfg"}, Lines{"a", "b", "c"}}) {
    const Outcome outcome = run_program(folder, arguments);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, text_of({FIRST, free_lines({"Please include a valid KelpRun "
                                                       "configuration file on the command "
                                                       "line."})}));
    EXPECT_EQ(outcome.err, "");
  }
}

TEST(command_line, a_file_that_does_not_exist_is_told_by_its_name) {
  const WorkFolder folder;
  for (const char* name : {"none.cfg", "no folder/none.cfg", " ", ""}) {
    const Outcome outcome = run_program(folder, {name});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out,
              text_of({FIRST, {"  --> Cannot find the input file= " + std::string(name)}}));
    EXPECT_EQ(outcome.err, "");
  }
}

TEST(command_line, a_blank_name_is_no_configuration_even_where_such_a_file_exists) {
  Case blank;
  blank.with(" ", basic_configuration({}));
  blank.outcome = run_program(blank.folder, {" "});
  expect_fatal(blank, {FIRST}, "Specify a config file");
}

TEST(command_line, a_folder_cannot_be_opened_as_configuration) {
  Case folder;
  folder.outcome = run_program(folder.folder, {"."});
  expect_fatal(folder, {FIRST}, "Cannot not open config file",
               ".: cannot be opened: this is a folder");
}

TEST(command_line, a_configuration_that_breaks_off_while_it_is_read_is_refused) {
  Case broken;
  // A file of its own memory exists and opens, but its first bytes cannot be read.
  broken.outcome = run_program(broken.folder, {"/proc/self/mem"});
  expect_fatal(broken, {FIRST, free_lines({"Reading CONFIGFILE: /proc/self/mem"})},
               "Specify a config file");
}

TEST(command_line, a_name_with_folders_and_blanks_is_used_as_given) {
  Case named(Changes{{"SIMDATE", "2"}});
  named.with("my runs/a b.cfg", basic_configuration({{"SIMDATE", "2"}}));
  named.outcome = run_program(named.folder, {"my runs/a b.cfg"});
  expect_completed(named);
  EXPECT_EQ(occurrences(named.outcome.out, " Reading CONFIGFILE: my runs/a b.cfg\n"), 1);
  // The names inside stay relative to the working folder.
  EXPECT_TRUE(named.folder.exists("run.slo"));
}

TEST(command_line, a_closed_standard_output_ends_the_run_with_a_line_on_standard_error) {
  Case closed;
  closed.outcome = run_shell(closed.folder, "\"$0\" run.cfg >&-");
  expect_run_time_message(closed, "kelprun: standard output: cannot be written: ");
}

TEST(command_line, a_full_standard_output_ends_the_run_with_a_line_on_standard_error) {
  Case full;
  full.outcome = run_shell(full.folder, "\"$0\" run.cfg >/dev/full");
  expect_run_time_message(full, "kelprun: standard output: cannot be written: ");
}

TEST(command_line, a_closed_standard_error_and_input_change_nothing) {
  Case open;
  open.run();
  Case closed;
  closed.outcome = run_shell(closed.folder, "\"$0\" run.cfg 2>&- <&-");
  expect_completed(closed);
  EXPECT_EQ(closed.outcome.out, open.outcome.out);
  for (const char* table : {"run.slo", "run.qtr", "run.off", "run.mqn", "run.vcc"})
    EXPECT_EQ(closed.folder.read(table), open.folder.read(table)) << table;
}

TEST(command_line, a_run_without_any_output_ends_and_touches_no_file) {
  Case closed;
  const std::string shore = closed.folder.read("shore.dat");
  closed.outcome = run_shell(closed.folder, "\"$0\" run.cfg >&- 2>&-");
  EXPECT_EQ(closed.outcome.status, 1);
  EXPECT_EQ(closed.outcome.out + closed.outcome.err, "");
  EXPECT_EQ(closed.folder.read("shore.dat"), shore);
  for (const char* made : {"run.prt", "run.slo", "run.qtr"})
    EXPECT_FALSE(closed.folder.exists(made)) << made;
}

TEST(command_line, a_warning_on_a_closed_standard_error_spoils_no_file) {
  // Without standard error the next file that is opened could take its place.
  const Changes still{{"HAMP", "0"}};
  Case open(still);
  open.run();
  ASSERT_GT(occurrences(open.outcome.err, "warning"), 0);
  Case closed(still);
  closed.outcome = run_shell(closed.folder, "\"$0\" run.cfg 2>&-");
  EXPECT_EQ(closed.outcome.status, 0);
  for (const char* file : {"run.prt", "run.slo", "run.qtr", "run.off", "shore.dat", "waves.dat"})
    EXPECT_EQ(closed.folder.read(file), open.folder.read(file)) << file;
}

}  // namespace
}  // namespace kelptest
