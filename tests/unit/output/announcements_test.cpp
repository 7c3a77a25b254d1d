#include "output/announcements.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "unit/run/in_process.h"
#include "unit/run/small_model.h"

namespace kelprun {
namespace {

using Lines = std::vector<std::string>;

template <class Routine>
Lines console_of(Routine routine) {
  return kelptest::lines(kelptest::listen(routine).out);
}

TEST(announcements, the_program_announces_itself_in_a_box) {
  EXPECT_EQ(
      console_of([] { announce_program(); }),
      (Lines{" +-------------------------------------+", "               KelpRun                  ",
             " +-------------------------------------+", "      Version 1.1 release 8, JAN 2020",
             "              KelpRun_v1p1r8.exe          "}));
}

Lines years(std::int32_t SIMDATS, std::int32_t NEXTDATE, std::int32_t ITS) {
  Clock c;
  c.SIMDATS = SIMDATS;
  c.NEXTDATE = NEXTDATE;
  c.ITS = ITS;
  return console_of([&] { announce_years(c); });
}

TEST(announcements, the_year_line_stands_between_three_and_four_ornaments) {
  const Lines lines = years(19970101, 19980102, 8760);
  ASSERT_EQ(lines.size(), 9u);
  EXPECT_EQ(lines[0], "");
  for (const std::size_t k : {1u, 2u, 3u, 5u, 6u, 7u, 8u})
    EXPECT_EQ(lines[k], " " + std::string(65, '*'));
  EXPECT_EQ(lines[4], "CALCULATED   1 YEARS  =    8760 TIME STEPS.  DATE IS 19980102");
}

TEST(announcements, a_year_is_complete_when_the_shown_date_has_passed_its_day) {
  EXPECT_EQ(years(19970315, 19980314, 1)[4].substr(0, 14), "CALCULATED   0");
  EXPECT_EQ(years(19970315, 19980315, 1)[4].substr(0, 14), "CALCULATED   1");
  EXPECT_EQ(years(19970315, 20080314, 1)[4].substr(0, 14), "CALCULATED  10");
}

TEST(announcements, cycling_waves_are_told_in_the_report) {
  Clock c;
  c.NEXTDATE = 19980102;
  Series s;
  s.WAVEID = 2920;
  s.WAVEDATE = kelptest::list(std::array{19970101, 19970102});
  kelptest::ReadableReport readable;
  const kelptest::Said said = kelptest::listen([&] { report_cycling(c, s, readable.report); });
  EXPECT_TRUE(said.out.empty());
  EXPECT_EQ(readable.lines(),
            (Lines{std::string(45, ' '), " " + std::string(63, '*'),
                   "  WARNING: Current wave event exceeds maximum number of wave    ",
                   "           events as specified in control file(*.kel).          ",
                   "           Cycling back to first wave event.                    ",
                   "           Specified maximum number of wave events: 2920", "  ",
                   "           Current simulation date is:             19980102",
                   "           Newly cycled wave event date is:        19970101",
                   " " + std::string(63, '*')}));
}

TEST(announcements, a_steady_wave_that_cycles_has_no_date) {
  Clock c;
  Series s;
  kelptest::ReadableReport readable;
  report_cycling(c, s, readable.report);
  EXPECT_EQ(readable.lines()[8], "           Newly cycled wave event date is:        0");
}

TEST(announcements, bad_angles_are_counted_on_console_and_report_with_their_own_blanks) {
  kelptest::ReadableReport readable;
  EXPECT_EQ(console_of([&] { announce_bad_angles(12, readable.report); }),
            (Lines{" WARNING: Wave Angle is greater than 90 deg         or less than -90 deg.",
                   " Number of Occurrences : 12"}));
  EXPECT_EQ(readable.lines(),
            (Lines{" WARNING: Wave Angle is greater than 90 deg   or less than -90 deg.",
                   " Number of Occurrences : 12"}));
}

TEST(announcements, no_bad_angle_is_not_worth_a_line) {
  kelptest::ReadableReport readable;
  EXPECT_TRUE(console_of([&] { announce_bad_angles(0, readable.report); }).empty());
  EXPECT_TRUE(readable.lines().empty());
}

}  // namespace
}  // namespace kelprun
