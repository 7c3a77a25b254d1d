#include <algorithm>

#include "runs/limits_case.h"

/// The longest names and lines, and the greatest numbers that can be written.
namespace kelptest {
namespace {

/// A path of so many characters, in folders with names that every file system takes.
std::string path_of_length(std::size_t length) {
  std::string path;
  while (length - path.size() > 200) path += std::string(99, 'd') + "/";
  return path + std::string(length - path.size(), 'n');
}

/// The basic configuration under a name of so many characters.
struct Named {
  explicit Named(std::size_t length) : name(path_of_length(length)) {
    run.with(name, run.folder.read("run.cfg"));
  }
  Case& start() {
    run.outcome = run_program(run.folder, {name});
    return run;
  }
  std::string name;
  Case run;
};

TEST(longest, name_of_a_configuration_has_255_characters) {
  expect_run(Named(255).start());
  expect_refusal(Named(256).start(), {}, "Cannot not open config file");
  Named longer(257);
  EXPECT_EQ(longer.start().outcome.status, 1);
  EXPECT_TRUE(longer.run.outcome.out.ends_with(
      "  --> Cannot find the input file= " + longer.name.substr(0, 256) + "\n"))
      << longer.run.outcome.out;
}

TEST(longest, name_that_is_cut_can_be_that_of_another_file) {
  Named longer(257);
  longer.run.with(longer.name.substr(0, 256), "no configuration\n");
  longer.run.with(longer.name.substr(0, 255), "TITLE: another one\n");
  longer.start();
  EXPECT_EQ(occurrences(longer.run.outcome.out, " Simulation Title: another one\n"), 1);
}

TEST(longest, file_name_is_what_its_line_of_255_characters_holds) {
  // "INIFILE:" takes 8 of them.
  Case run(Changes{{"INIFILE", ""}}, {"INIFILE:" + path_of_length(247)});
  run.with(path_of_length(247), run.folder.read("shore.dat")).run();
  expect_run(run);
  Case cut(Changes{{"INIFILE", ""}}, {"INIFILE:" + path_of_length(248)});
  cut.with(path_of_length(248), cut.folder.read("shore.dat")).run();
  expect_refusal(cut, free_lines({"Reading Initial Shoreline: " + path_of_length(247)}),
                 "Cannot not open initial shoreline file");
}

TEST(longest, inlet_name_loses_what_its_line_does_not_hold) {
  for (const std::size_t length : {246u, 247u, 248u}) {
    Case run({}, all({inlet(9, 11), placement(7, 13), {"INLNAME:" + std::string(length, 'i')}}));
    run.run();
    expect_run(run);
    EXPECT_TRUE(run.folder.exists(std::string(std::min<std::size_t>(length, 247), 'i') + ".irv"))
        << length;
  }
}

TEST(longest, list_loses_what_stands_behind_column_255_and_the_rest_of_a_number_cut_there) {
  // The 1 of 15 is the last character that is read.
  const std::string blanks(247, ' ');
  Case cut(Changes{{"K1", "0.4 0.8"}, {"IK1END", ""}}, {"IK1END:" + blanks + "15 20"});
  cut.run();
  Case short_list(Changes{{"K1", "0.4 0.8"}, {"IK1END", "1"}});
  short_list.run();
  expect_run(cut);
  EXPECT_EQ(cut.folder.read("run.qtr"), short_list.folder.read("run.qtr"));
  Case meant(Changes{{"K1", "0.4 0.8"}, {"IK1END", "15 20"}});
  meant.run();
  EXPECT_NE(cut.folder.read("run.qtr"), meant.folder.read("run.qtr"));
}

TEST(longest, repeat_count_of_a_list_is_that_of_a_whole_number_and_what_is_too_much_is_dropped) {
  for (const char* count : {"4001", "4002", "2147483647"}) {
    Case run(Changes{{"K1", std::string(count) + "*0.4"}});
    run.run();
    expect_run(run);
  }
  Case refused(Changes{{"K1", "2147483648*0.4"}});
  refused.run();
  expect_refusal(refused, {}, "Invalid config data: K1: 2147483648*0.4");
}

// Numbers.

TEST(greatest, real_number_is_that_of_single_precision_and_words_for_infinity_are_none) {
  Case run(Changes{{"DCLOS", "3.4e38"}});
  run.run();
  expect_run(run);
  for (const char* value : {"3.5e38", "1e39", "-1e39", "inf", "Infinity", "-inf", "nan", "NaN"}) {
    Case refused(Changes{{"DCLOS", value}});
    refused.run();
    expect_refusal(refused, {}, "Invalid config data: DCLOS: " + std::string(value));
  }
}

TEST(greatest, rate_of_a_bypass_operation_and_shortest_step_are_those_of_double_precision) {
  const auto refused_at = [](const std::string& line) {
    Case run({}, {line});
    run.run();
    if (run.outcome.status == 0) return false;
    expect_refusal(run, {}, "Invalid config data: " + line);
    return true;
  };
  EXPECT_FALSE(refused_at("QBP: 1e308"));
  EXPECT_TRUE(refused_at("QBP: 1e309"));
  EXPECT_FALSE(refused_at("DTMIN: 1e308"));
  EXPECT_TRUE(refused_at("DTMIN: 1e309"));
}

TEST(greatest, whole_number_is_2147483647) {
  Case too_many_cells(Changes{{"NX", "2147483647"}});
  too_many_cells.run();
  expect_refusal(too_many_cells, free_lines({" MAXIMUM NUMBER IS 4000"}),
                 " ERROR. TOO MANY SHORELINE CELLS.");
  Case no_number(Changes{{"NX", "2147483648"}});
  no_number.run();
  expect_refusal(no_number, {}, "Invalid config data: NX: 2147483648");
}

TEST(greatest, number_of_eight_columns_loses_its_ninth) {
  // The last 1 is not read: ten steps.
  Case run(Changes{{"SIMDATE", "000000101"}});
  run.run();
  expect_run(run);
  EXPECT_EQ(run.table("slo").rows.size(), 1u + 10u);
}

TEST(greatest, values_of_a_wave_record_are_those_of_their_kinds) {
  const Changes series{{"WAVEID", "20 20.0 2 waves.dat"}, {"SIMDATE", "1"}};
  const auto outcome = [&](const std::string& stamp, const std::string& wave) {
    Case run(series);
    run.with("waves.dat", "19970101 0 " + wave + "\n19970101 " + stamp + " 1 8 10\n").run();
    return run.outcome;
  };
  // 327 hours and 67 minutes behind midnight: 19687 minutes, a wave step that steps of an hour do
  // not divide.
  EXPECT_TRUE(
      outcome("32767", "1 8 10")
          .out.ends_with(
              fatal_record("ERROR. Wave time step not a multiple of simulation time step") + "\n"));
  EXPECT_NE(outcome("32768", "1 8 10").err.find("'32768' is no whole number of its kind"),
            std::string::npos);
  EXPECT_EQ(outcome("100", "3e38 8 10").status, 0) << "a mark of missing data";
  for (const char* word : {"1e39", "nan", "inf"}) {
    const Outcome refused = outcome("100", std::string(word) + " 8 10");
    EXPECT_EQ(refused.status, 1);
    EXPECT_NE(refused.err.find("'" + std::string(word) + "' is no number of its kind"),
              std::string::npos)
        << refused.err;
  }
}

TEST(greatest, positions_of_a_shoreline_lead_to_values_that_are_no_numbers) {
  const auto outcome = [](const std::string& value) {
    Case run;
    const std::string ten = "10*" + value + "\n";
    run.with("shore.dat", "1\n2\n3\n4\n" + ten + ten).run();
    return run.outcome;
  };
  const Outcome refused = outcome("1e309");
  EXPECT_EQ(refused.status, 1);
  EXPECT_NE(refused.err.find("'1e309' is no number"), std::string::npos);
  const Outcome lost = outcome("1e300");
  EXPECT_EQ(lost.status, 1);
  EXPECT_NE(lost.err.find("the shoreline is no number any more: date 19970101, step 1"),
            std::string::npos);
  EXPECT_TRUE(lost.out.ends_with(text_of({closing()}))) << "the run goes on to its end";
}

TEST(greatest, position_of_a_table_has_11_digits_before_its_point) {
  // In a calm the shoreline stays as it was read.
  const auto first_field = [](const std::string& value) {
    Case run;
    const std::string ten = "10*" + value + "\n";
    run.with("waves.dat", "0 8 0\n").with("shore.dat", "1\n2\n3\n4\n" + ten + ten).run();
    expect_run(run);
    return lines(run.folder.read("run.slo")).at(1).substr(8, 14);
  };
  EXPECT_EQ(first_field("99999999999"), "99999999999.00");
  EXPECT_EQ(first_field("100000000000"), std::string(14, '*'));
  EXPECT_EQ(first_field("-9999999999"), "-9999999999.00");
  EXPECT_EQ(first_field("-10000000000"), std::string(14, '*'));
}

}  // namespace
}  // namespace kelptest
