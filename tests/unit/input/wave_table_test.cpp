#include "input/wave_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/input/reading.h"

namespace {

using kelptest::Said;

struct Stamp {
  std::int32_t date;
  std::int16_t hour;
};

class wave_table : public testing::Test {
 protected:
  std::string path(const std::string& name) const { return (folder.path() / name).string(); }

  /// Opens wave files with these texts; all hold `events` events.
  void open(const std::vector<std::string>& texts, std::int32_t events) {
    files.waves.clear();
    for (const std::string& text : texts) {
      const std::string name = "waves" + std::to_string(files.waves.size() + 1) + ".dat";
      folder.write(name, text);
      ASSERT_TRUE(files.waves.emplace_back().open(path(name)));
    }
    series.WAVEID = events;
  }

  Said read() {
    return kelptest::listen([&] { kelprun::read_wave_dates(series, files); });
  }

  void give(const std::vector<Stamp>& stamps) {
    series.WAVEID = static_cast<std::int32_t>(stamps.size());
    series.WAVEDATE = {};
    series.WAVEHOUR = {};
    for (const Stamp& stamp : stamps) {
      series.WAVEDATE.append(stamp.date);
      series.WAVEHOUR.append(stamp.hour);
    }
  }

  Said set_step(const std::vector<Stamp>& stamps) {
    give(stamps);
    return kelptest::listen([&] { kelprun::set_wave_step(series, 0.25f, report); });
  }

  float step(const std::vector<Stamp>& stamps) {
    EXPECT_FALSE(set_step(stamps).status.has_value());
    return series.WAVEDT;
  }

  kelptest::WorkFolder folder;
  kelprun::Series series;
  kelprun::InputFiles files;
  kelprun::Report report;
};

// The table.

TEST_F(wave_table, dates_and_hours_are_taken_and_the_rest_of_each_record_is_skipped) {
  open({"19970101 0 1 8 10\n19970101 600 a b c\n19970102 1200\n"}, 3);
  EXPECT_FALSE(read().status.has_value());
  EXPECT_EQ(kelptest::values_of(series.WAVEDATE),
            (std::vector<std::int32_t>{19970101, 19970101, 19970102}));
  EXPECT_EQ(kelptest::values_of(series.WAVEHOUR), (std::vector<std::int16_t>{0, 600, 1200}));
}

TEST_F(wave_table, the_last_file_gives_the_table_and_begins_again_at_its_start) {
  open({"19960101 0\n", "19970101 0\n19970102 300\n"}, 2);
  EXPECT_FALSE(read().status.has_value());
  EXPECT_EQ(series.WAVEDATE(1), 19970101);
  EXPECT_EQ(files.waves[1].line_number(), 0);
  EXPECT_EQ(files.waves[0].line_number(), 0) << "the other files are not touched";
}

TEST_F(wave_table, a_steady_file_has_no_table) {
  open({"1 8 10\n"}, 0);
  EXPECT_FALSE(read().status.has_value());
  EXPECT_TRUE(series.WAVEDATE.empty());
}

TEST_F(wave_table, more_events_than_records_end_the_run_with_what_there_is) {
  open({"19970101 0 1 8 10\n19970101 600 1 8 10\n"}, 3);
  const Said said = read();
  EXPECT_EQ(said.status, 1);
  EXPECT_EQ(said.err, "kelprun: " + path("waves1.dat") +
                          ": record 3 (line 2): the file ends after 2 records\n");
}

TEST_F(wave_table, a_stamp_that_is_no_whole_number_of_its_kind_ends_the_run) {
  for (const char* text : {"jan 0\n", "19970101.5 0\n", "19970101 noon\n", "19970101 40000\n"}) {
    open({text}, 1);
    const Said said = read();
    EXPECT_EQ(said.status, 1) << text;
    EXPECT_NE(said.err.find("record 1 (line 1)"), std::string::npos) << said.err;
  }
}

// The step.

TEST_F(wave_table, hours_of_the_clock_are_sixty_minutes_each) {
  EXPECT_EQ(step({{19970101, 0}, {19970101, 100}}), 1.0f);
  EXPECT_EQ(step({{19970101, 1200}, {19970101, 1300}}), 1.0f);
  EXPECT_EQ(step({{19970101, 1230}, {19970101, 1300}}), 0.5f);
  EXPECT_EQ(step({{19970101, 945}, {19970101, 1200}}), 2.25f);
  EXPECT_EQ(step({{19970101, 0}, {19970101, 2359}}), 1439.0f / 60.0f);
}

TEST_F(wave_table, days_between_the_two_dates_are_counted) {
  EXPECT_EQ(step({{19970101, 2300}, {19970102, 0}}), 1.0f);
  EXPECT_EQ(step({{19970101, 0}, {19970102, 0}}), 24.0f);
  EXPECT_EQ(step({{19970101, 1200}, {19970104, 600}}), 66.0f);
}

TEST_F(wave_table, only_the_first_two_entries_count) {
  EXPECT_EQ(step({{19970101, 0}, {19970101, 300}, {19980101, 0}, {19970101, 0}}), 3.0f);
}

TEST_F(wave_table, a_steady_file_steps_with_the_model) { EXPECT_EQ(step({}), 0.25f); }

TEST_F(wave_table, a_first_step_across_the_end_of_a_month_stops_the_run) {
  ASSERT_TRUE(report.set_name(path("run.prt")));
  report.begin();
  const Said said = set_step({{19970131, 2300}, {19970201, 0}});
  EXPECT_EQ(said.out, kelptest::fatal_record("ERROR. Wave time step exceeds one month."));
  report.close();
  EXPECT_EQ(folder.read("run.prt"),
            "  ERROR.  Time step in WAVEFILE exceeds one month.  Please\n"
            "  review and revise your input wave files.\n");
}

TEST_F(wave_table, a_first_step_across_new_year_stops_the_run) {
  const Said said = set_step({{19971231, 2300}, {19980101, 0}});
  EXPECT_EQ(said.out, kelptest::fatal_record("ERROR. Wave time step exceeds one year."));
  EXPECT_EQ(set_step({{19970115, 0}, {19980115, 0}}).out, said.out);
}

// Entries for messages.

TEST_F(wave_table, entry_0_is_the_last_one_only_after_the_table_has_cycled) {
  give({{19970101, 0}, {19970102, 600}});
  EXPECT_EQ(kelprun::wave_stamp(series, 0, true).date, 19970102);
  EXPECT_EQ(kelprun::wave_stamp(series, 0, true).hour, 600);
  EXPECT_EQ(kelprun::wave_stamp(series, 0, false).date, 0);
  EXPECT_EQ(kelprun::wave_stamp(series, 0, false).hour, 0);
  EXPECT_EQ(kelprun::wave_stamp(series, 2, false).date, 19970102);
  EXPECT_EQ(kelprun::wave_stamp(series, 3, true).date, 0);
  EXPECT_EQ(kelprun::wave_stamp(series, -1, true).date, 0);
}

TEST_F(wave_table, without_a_table_every_entry_is_0) {
  EXPECT_EQ(kelprun::wave_stamp(series, 1, false).date, 0);
  EXPECT_EQ(kelprun::wave_stamp(series, 0, true).date, 0);
}

// Records that a run will need.

TEST_F(wave_table, a_table_that_is_too_short_for_the_run_is_warned_of) {
  kelprun::Clock clock;
  clock.SIMDATS = 19970102;
  clock.NTS = 9;
  clock.NWSTEP = 4;
  // Steps 1, 5 and 9 take a record; two of the four lie before the start date.
  give({{19970101, 0}, {19970101, 1200}, {19970102, 0}, {19970102, 1200}});
  EXPECT_EQ(kelptest::listen([&] { kelprun::warn_of_short_waves(series, clock); }).err,
            "kelprun: warning: the run needs 3 wave records, the table holds 2 from the start date "
            "on\n");
  clock.NTS = 8;
  EXPECT_EQ(kelptest::listen([&] { kelprun::warn_of_short_waves(series, clock); }).err, "");
}

}  // namespace
