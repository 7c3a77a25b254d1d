#include "input/configuration.h"

#include <gtest/gtest.h>

#include <string>

#include "unit/input/reading.h"

namespace {

class configuration : public kelptest::ReadingTest {
 protected:
  /// The title that stays after the usual configuration and these further lines.
  std::string title_after(const kelptest::Lines& more_lines) {
    read({{"TITLE", ""}}, more_lines);
    expect_accepted();
    return model().settings.TITLE;
  }
};

// How a line is taken apart.

TEST_F(configuration, blanks_between_keyword_and_colon_do_no_harm) {
  EXPECT_EQ(title_after({"TITLE : one"}), "one");
  EXPECT_EQ(title_after({"TITLE          :two"}), "two");
}

TEST_F(configuration, a_keyword_must_begin_in_column_one) {
  EXPECT_EQ(title_after({" TITLE: one"}), "");
  EXPECT_EQ(title_after({"\tTITLE: one"}), "");
}

TEST_F(configuration, keywords_may_be_written_in_any_case_and_values_keep_theirs) {
  EXPECT_EQ(title_after({"title: Duck, NC"}), "Duck, NC");
  EXPECT_EQ(title_after({"TiTlE: duck, nc"}), "duck, nc");
}

TEST_F(configuration, only_the_first_colon_separates) {
  EXPECT_EQ(title_after({"TITLE: run: the second"}), "run: the second");
}

TEST_F(configuration, lines_that_are_no_keyword_lines_are_ignored) {
  EXPECT_EQ(title_after({"TITLE one", "", "   ", ":", ": x", "# TITLE: one", "REMARK: TITLE: one",
                         "! free text", "/"}),
            "");
}

TEST_F(configuration, a_keyword_longer_than_fifteen_characters_matches_nothing) {
  EXPECT_EQ(title_after({"TITLE           X: one", "TITLETITLETITLETITLE: one"}), "");
}

TEST_F(configuration, a_blank_value_keeps_the_default_and_prints_nothing) {
  EXPECT_EQ(title_after({"TITLE:", "TITLE:   "}), "");
  EXPECT_EQ(now->said.out.find("Simulation Title"), std::string::npos);
}

TEST_F(configuration, a_blank_value_keeps_what_an_earlier_line_gave) {
  EXPECT_EQ(title_after({"TITLE: one", "TITLE:"}), "one");
}

TEST_F(configuration, a_blank_value_is_not_counted) {
  read({}, {"PRDATE:", "ISWBEG:", "BFDATS:  ", "IXNDG:"});
  expect_accepted();
  EXPECT_EQ(model().settings.NOUT, 0);
  EXPECT_EQ(model().seawalls.NSW, 0);
  EXPECT_EQ(model().events.NBF, 0);
  EXPECT_EQ(model().groins.NNDG, 0);
}

TEST_F(configuration, the_last_of_several_scalars_wins) {
  EXPECT_EQ(title_after({"TITLE: one", "TITLE: two"}), "two");
}

TEST_F(configuration, a_title_is_echoed_at_once_and_cut_at_sixty_four_characters) {
  const std::string start(64, 'x');
  EXPECT_EQ(title_after({"TITLE: " + start + "yyy"}), start);
  EXPECT_TRUE(said(" Simulation Title: " + start));
}

TEST_F(configuration, what_stands_behind_column_255_is_lost) {
  const std::string line = "NX: 20" + std::string(248, ' ') + "07";
  ASSERT_EQ(line.size(), 256u);
  read({{"NX", ""}}, {line});
  expect_accepted();
  EXPECT_EQ(model().grid.NX, 20);
  read({{"K1", ""}}, {"K1: 0.5" + std::string(247, ' ') + "0.25"});
  EXPECT_EQ(model().profile.K1CELL(1), 0.5f);
  // The colon in column 256 is not seen.
  read({{"TITLE", ""}}, {"TITLE" + std::string(250, ' ') + ": one"});
  EXPECT_EQ(model().settings.TITLE, "");
}

TEST_F(configuration, files_from_windows_read_the_same) {
  std::string text = "\xEF\xBB\xBF" + kelptest::basic_configuration({{"TITLE", "one\ttwo "}});
  for (std::size_t i = 0; (i = text.find('\n', i)) != std::string::npos; i += 2)
    text.insert(i, "\r");
  read_text(text);
  expect_accepted();
  EXPECT_EQ(model().settings.TITLE, "one two");
  EXPECT_EQ(model().settings.SHOIN, "shore.dat");
}

TEST_F(configuration, a_last_line_without_its_end_counts) {
  read_text(kelptest::basic_configuration({}) + "TITLE: last");
  EXPECT_EQ(model().settings.TITLE, "last");
}

// The marker.

TEST_F(configuration, the_marker_may_stand_anywhere_with_or_without_a_value) {
  for (const char* line : {"KELPRUN:", "kelprun : yes", "KELPRUN:1"}) {
    // An empty value drops the usual line.
    read({{"KELPRUN", ""}}, {line});
    expect_accepted();
  }
}

TEST_F(configuration, without_the_marker_the_run_ends_after_all_files_were_opened) {
  read({{"KELPRUN", ""}});
  expect_fatal("Configuration file not targeted for KelpRun");
  EXPECT_TRUE(now->files.initial_shoreline.is_open());
  ASSERT_EQ(now->files.waves.size(), 1u);
  EXPECT_TRUE(now->files.waves[0].is_open());
  EXPECT_TRUE(folder.exists("run.prt"));
}

TEST_F(configuration, a_marker_without_its_colon_or_away_from_column_one_is_none) {
  for (const char* line : {"KELPRUN", " KELPRUN:", "KELPRUN2:"}) {
    read({{"KELPRUN", ""}}, {line});
    expect_fatal("Configuration file not targeted for KelpRun");
  }
}

// What must be there, in the order in which it is asked for.

TEST_F(configuration, missing_files_are_told_in_their_order) {
  read_text("TITLE: nothing\n");
  expect_fatal("Configuration file not targeted for KelpRun");
  read_text("KELPRUN:\n");
  expect_fatal("Initial Shoreline filename omitted in config file");
  read_text("KELPRUN:\nINIFILE: shore.dat\n");
  expect_fatal("WAVEINFILE filename omitted in config file");
}

TEST_F(configuration, a_wanted_report_needs_a_name) {
  read({{"PRFILE", ""}});
  expect_fatal("PRTFILE filename omitted in config file");
  read({{"PRFILE", ""}, {"PRTOUT", "F"}});
  expect_accepted();
  EXPECT_EQ(model().settings.STEM, "");
}

TEST_F(configuration, a_blank_or_absent_configuration_is_told) {
  now = std::make_unique<kelptest::Reading>();
  const auto told = [this](const std::string& name) {
    return kelptest::listen(
               [&] { kelprun::read_configuration(name, now->model, now->files, now->report); })
        .out;
  };
  EXPECT_EQ(told("   "), kelptest::fatal_record("Specify a config file"));
  EXPECT_EQ(told("absent.cfg"), kelptest::fatal_record("Cannot not open config file"));
}

TEST_F(configuration, dates_and_steps_must_make_sense) {
  read({{"SIMDATE", "19961231"}});
  expect_fatal("SIMDATE must be >= SIMDATS");
  read({{"DT", "0"}});
  expect_fatal("DT must be > 0.");
  read({{"DT", "-1"}});
  expect_fatal("DT must be > 0.");
  read({{"DTSAVE", "0"}});
  expect_fatal("DTSAVE must be > 0.");
  read({{"SIMDATE", "19961231"}, {"DT", "0"}, {"DTSAVE", "0"}});
  expect_fatal("SIMDATE must be >= SIMDATS");
}

TEST_F(configuration, a_step_count_needs_not_reach_the_start_date) {
  read({{"SIMDATE", "60"}});
  expect_accepted();
  EXPECT_EQ(model().clock.SIMDATE, 60);
}

// Units.

TEST_F(configuration, units_are_told_by_the_letters_behind_the_first_character) {
  struct Case {
    const char* value;
    int IUNITS;
    const char* label;
  };
  for (const Case& c : {Case{"(ft)", 2, "CY"}, Case{"(FT)", 2, "CY"}, Case{"(m)", 1, "M3"},
                        Case{"(M)", 1, "M3"}, Case{"(meters)", 1, "M3"}, Case{"xft", 2, "CY"}}) {
    read({{"KELUNITS", c.value}});
    expect_accepted();
    EXPECT_EQ(model().settings.IUNITS, c.IUNITS) << c.value;
    EXPECT_EQ(model().settings.VOLUME_LABEL, c.label) << c.value;
  }
}

TEST_F(configuration, units_without_their_parenthesis_are_refused) {
  for (const char* value : {"ft", "m", "feet", "(f)", "(yd)", "("}) {
    read({{"KELUNITS", value}});
    expect_fatal("KELUNITS must be (ft) or (m)");
    read({{"WAVUNITS", value}});
    expect_fatal("WAVUNITS must be (ft) or (m)");
  }
}

TEST_F(configuration, wave_heights_have_a_unit_of_their_own) {
  read({{"KELUNITS", "(ft)"}, {"WAVUNITS", "(m)"}});
  EXPECT_EQ(model().settings.WAVCONV, 1.0f);
  read({{"KELUNITS", "(m)"}, {"WAVUNITS", "(ft)"}});
  EXPECT_EQ(model().settings.WAVCONV, 0.3048f);
}

TEST_F(configuration, unit_texts_are_folded_for_the_report) {
  read({{"KELUNITS", "(FT)"}, {"WAVUNITS", "(Metres)"}});
  expect_accepted();
  EXPECT_EQ(model().settings.KELUNITS, "(ft)  ");
  EXPECT_EQ(model().settings.WAVUNITS, "(metre");
}

TEST_F(configuration, silence_on_units_means_feet_and_waves_in_metres) {
  read({{"KELUNITS", ""}, {"WAVUNITS", ""}});
  EXPECT_EQ(model().settings.IUNITS, 2);
  EXPECT_EQ(model().settings.WAVCONV, 1.0f);
}

// Echoes and opened files.

TEST_F(configuration, every_file_is_echoed_where_its_keyword_stands) {
  folder.write("a.dat", "");
  read_text(
      "REGFILE: a.dat\nINIFILE: shore.dat\nWAVEID: 20 20 0 waves.dat\nWLFILE: 5 a.dat\n"
      "TIDEFILE: 20 5 a.dat\nDXFILE: no such file\nBYPFILE: a.dat\nTITLE: t\n");
  EXPECT_EQ(now->said.out,
            " Reading CONFIGFILE: run.cfg\n"
            " Reading Regional Shoreline: a.dat\n"
            " Reading Initial Shoreline: shore.dat\n"
            " Opening Wave Input File: waves.dat\n"
            " Opening Water Level Input File: a.dat\n"
            " Opening Tidal Current Input File: a.dat\n"
            " Reading Variable Grid Cell Spacing File: no such file\n"
            " Opening Non-uniform Bypass Event Input File: a.dat\n"
            " Simulation Title: t\n" +
                kelptest::fatal_record("Configuration file not targeted for KelpRun"));
}

TEST_F(configuration, a_file_that_cannot_be_opened_ends_the_run_in_its_own_words) {
  const std::pair<const char*, const char*> cases[] = {
      {"INIFILE: absent", "Cannot not open initial shoreline file"},
      {"REGFILE: absent", "Cannot not open regional shoreline file"},
      {"WAVEID: 20 20 0 absent", "Cannot not open wave file"},
      {"WLFILE: 5 absent", "Cannot not open water level file"},
      {"BYPFILE: absent", "Cannot not open water level file"},
      {"TIDEFILE: 20 5 absent", "Cannot not open tidal current file"},
      {"PRFILE: absent/run.prt", "Cannot not open prtfil file"}};
  for (const auto& [line, message] : cases) {
    read_text(kelptest::basic_configuration({}, {line}));
    expect_fatal(message);
  }
}

TEST_F(configuration, quoted_names_may_hold_blanks) {
  folder.write("my shore.dat", "");
  folder.write("my waves.dat", "");
  read({{"INIFILE", "\"my shore.dat\""}, {"WAVEID", "20 20 0 'my waves.dat'"}});
  expect_accepted();
  EXPECT_EQ(model().settings.SHOIN, "my shore.dat");
  EXPECT_EQ(model().series.WAVEFILE(1), "my waves.dat");
}

TEST_F(configuration, the_number_of_wave_events_is_one_for_the_run_and_the_last_line_wins) {
  folder.write("b.dat", "");
  read({{"WAVEID", "8 15.5 100 waves.dat"}}, {"WAVEID: 20,25.5,200,b.dat"});
  const kelprun::Series& s = model().series;
  EXPECT_EQ(s.WAVEID, 200);
  EXPECT_EQ(kelptest::values_of(s.IWEND), (std::vector<std::int32_t>{8, 20}));
  EXPECT_EQ(kelptest::values_of(s.WMDEP), (std::vector<float>{15.5f, 25.5f}));
  EXPECT_EQ(kelptest::values_of(s.WAVEFILE), (std::vector<std::string>{"waves.dat", "b.dat"}));
  EXPECT_EQ(now->files.waves.size(), 2u);
}

// The report and the stem of the tables.

TEST_F(configuration, the_stem_of_the_tables_ends_with_the_first_full_stop_of_the_report_name) {
  std::filesystem::create_directories("v1.2/run");
  const std::pair<const char*, const char*> cases[] = {
      {"run.prt", "run."},      {"v1.2/run/a.prt", "v1."}, {"./a.prt", "."},
      {"v1.2/../a.prt", "v1."}, {"a.b.prt", "a."},         {"report", "report"}};
  for (const auto& [name, stem] : cases) {
    read({{"PRFILE", name}});
    expect_accepted();
    EXPECT_EQ(model().settings.STEM, stem) << name;
  }
}

TEST_F(configuration, a_report_in_the_folder_above_gives_tables_named_by_a_full_stop_alone) {
  std::filesystem::create_directories("work");
  folder.write("work/run.cfg", kelptest::basic_configuration({{"PRFILE", "../run/a.prt"},
                                                              {"INIFILE", "../shore.dat"},
                                                              {"WAVEID", "20 20 0 ../waves.dat"}}));
  std::filesystem::create_directories("run");
  std::filesystem::current_path(folder.path() / "work");
  now = std::make_unique<kelptest::Reading>();
  now->said = kelptest::listen([&] {
    now->accepted = kelprun::read_configuration("run.cfg", now->model, now->files, now->report);
  });
  expect_accepted();
  EXPECT_EQ(model().settings.STEM, ".");
}

TEST_F(configuration, the_report_keeps_what_it_held_until_the_configuration_has_been_read) {
  folder.write("run.prt", "the former run\n");
  read({{"DT", "-1"}});
  expect_fatal("DT must be > 0.");
  EXPECT_EQ(report_text(), "the former run\n");
  read({{"IK1END", ""}});
  expect_accepted();
  EXPECT_EQ(report_text(), " No IK1END specified. K1 is constant alongshore\n");
}

}  // namespace
