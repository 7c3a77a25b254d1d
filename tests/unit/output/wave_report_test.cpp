#include "output/wave_report.h"

#include <gtest/gtest.h>

#include <array>

#include "unit/run/in_process.h"
#include "unit/run/small_model.h"

namespace kelprun {
namespace {

TEST(wave_report, the_last_steps_waves_stand_ten_a_line_in_seven_columns) {
  Model m = kelptest::small_model(10);
  for (std::int32_t i = 1; i <= 11; ++i) {
    m.waves.HB(i) = 0.25f * static_cast<float>(i);
    m.waves.ZB(i) = 3.141593f / 180.0f * static_cast<float>(i - 6);
  }
  kelptest::ReadableReport readable;
  report_last_waves(m.settings, m.grid, m.waves, readable.report);
  const auto lines = readable.lines();
  ASSERT_EQ(lines.size(), 5u);
  EXPECT_EQ(lines[0], "  LAST TIME STEP. DIFFRACTED WAVES ALONGSHORE");
  EXPECT_EQ(lines[1], "   0.25   0.50   0.75   1.00   1.25   1.50   1.75   2.00   2.25   2.50");
  EXPECT_EQ(lines[2], "   2.75");
  EXPECT_EQ(lines[3], "  -5.00  -4.00  -3.00  -2.00  -1.00   0.00   1.00   2.00   3.00   4.00");
  EXPECT_EQ(lines[4], "   5.00");
}

TEST(wave_report, the_last_steps_heights_are_in_the_length_unit) {
  Model m = kelptest::small_model(1);
  m.settings.CONV = 0.3048f;
  m.waves.HB.fill(1.2192f);
  kelptest::ReadableReport readable;
  report_last_waves(m.settings, m.grid, m.waves, readable.report);
  EXPECT_EQ(readable.lines()[1], "   4.00   4.00");
}

/// Sums of four steps whose means are known.
Model with_sums(std::int32_t NX) {
  Model m = kelptest::small_model(NX);
  UndiffractedSums& s = m.undiffracted;
  s.steps = 4;
  s.H.fill(4.0f * 1.25f);
  s.H52.fill(4.0f * 1.75f);
  s.ZBS.fill(4.0f * -3.5f * 3.141593f / 180.0f);
  s.ZB.fill(4.0f * 12.0f * 3.141593f / 180.0f);
  s.QZ.fill(4.0f * 0.0625f);
  return m;
}

TEST(wave_report, means_of_the_undiffracted_waves_stand_in_a_row_a_wall) {
  const Model m = with_sums(2);
  kelptest::ReadableReport readable;
  report_undiffracted(m.grid, m.undiffracted, readable.report);
  const auto lines = readable.lines();
  ASSERT_EQ(lines.size(), 6u);
  EXPECT_EQ(lines[0], "  OUTPUT OF UNDIFFRACTED BREAKING WAVE STATISITCS");
  EXPECT_EQ(lines[1], "  N.B. THESE VALUES ARE NOT SMOOTHED!");
  EXPECT_EQ(lines[2], "   X-COORD.   H-MEAN   H52-MEAN   ZBS-MEAN   ZB-MEAN    HZ-MEAN");
  //                   5 blanks, 3 columns, then 6+5.2, 4+5.2, 6+5.1, 6+5.1, 4+8.4.
  EXPECT_EQ(lines[3], "       1       1.25     1.75       -3.5       12.0      0.0625");
  EXPECT_EQ(lines[4], "       2       1.25     1.75       -3.5       12.0      0.0625");
  EXPECT_EQ(lines[5], "       3       1.25     1.75       -3.5       12.0      0.0625");
}

TEST(wave_report, wall_numbers_above_999_are_asterisks) {
  const Model m = with_sums(1000);
  kelptest::ReadableReport readable;
  report_undiffracted(m.grid, m.undiffracted, readable.report);
  const auto lines = readable.lines();
  ASSERT_EQ(lines.size(), 1004u);
  EXPECT_EQ(lines[1001], "     999       1.25     1.75       -3.5       12.0      0.0625");
  EXPECT_EQ(lines[1002], "     ***       1.25     1.75       -3.5       12.0      0.0625");
  EXPECT_EQ(lines[1003], "     ***       1.25     1.75       -3.5       12.0      0.0625");
}

TEST(wave_report, means_that_do_not_fit_their_columns_are_asterisks) {
  Model m = with_sums(1);
  m.undiffracted.H52(1) = 4.0f * 123.25f;
  m.undiffracted.ZB(1) = 4.0f * -120.0f * 3.141593f / 180.0f;
  m.undiffracted.QZ(1) = 4.0f * -123.0625f;
  kelptest::ReadableReport readable;
  report_undiffracted(m.grid, m.undiffracted, readable.report);
  EXPECT_EQ(readable.lines()[3],
            "       1       1.25    *****       -3.5      *****    *****"
            "***");
}

TEST(wave_report, without_an_added_step_there_is_no_block) {
  const Model m = kelptest::small_model(2);
  kelptest::ReadableReport readable;
  report_undiffracted(m.grid, m.undiffracted, readable.report);
  EXPECT_TRUE(readable.lines().empty());
}

}  // namespace
}  // namespace kelprun
