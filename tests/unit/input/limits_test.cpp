#include "input/keyword_actions.h"
#include "unit/input/reading.h"

// Limits that a whole run would reach only with thousands of open files, and what lists and units
// do at theirs.

namespace {

using kelptest::Changes;
using kelptest::Lines;

class limits : public kelptest::ReadingTest {
 protected:
  /// Reads a line of a file where so many such lines have been read.
  template <class Read>
  kelptest::Said read_behind(int lines, Read read_line, const std::string& value) {
    now = std::make_unique<kelptest::Reading>();
    const auto before = static_cast<std::size_t>(lines);
    model().series.IWEND.allocate(before, 20);
    model().series.ITCEND.allocate(before, 20);
    kelprun::Reading reading{now->model, now->files, now->report};
    return kelptest::listen([&] { EXPECT_TRUE(read_line(reading, value)); });
  }
};

TEST_F(limits, wave_files_are_4000) {
  const auto read = kelprun::read_wave_file_line;
  EXPECT_FALSE(read_behind(3999, read, "20 20 0 waves.dat").status.has_value());
  EXPECT_EQ(model().series.IWEND.size(), 4000);
  EXPECT_EQ(read_behind(4000, read, "20 20 0 waves.dat").out,
            kelptest::fatal_record("WAVEID: more than 4000 wave files"));
}

TEST_F(limits, tidal_current_stations_are_4000) {
  const auto read = kelprun::read_tidal_line;
  EXPECT_FALSE(read_behind(3999, read, "20 2 waves.dat").status.has_value());
  EXPECT_EQ(model().series.ITCEND.size(), 4000);
  EXPECT_EQ(read_behind(4000, read, "20 2 waves.dat").out,
            kelptest::fatal_record("TIDEFILE: more than 4000 tidal current files"));
}

TEST_F(limits, a_list_of_cells_above_99_holds_62_of_them) {
  // 7 characters of "IK1END:" and 62 times three digits with 61 blanks are 254 of the 255.
  std::string ends = "IK1END:";
  std::string values = "K1:";
  for (int k = 1; k <= 63; ++k) {
    if (k > 1) ends += ' ';
    ends += std::to_string(99 + 2 * k);
    values += std::to_string(1 + k % 2) + " ";
  }
  ASSERT_EQ(ends.size(), 258u);
  Changes changes{{"NX", "300"}, {"WAVEID", "300 20.0 0 waves.dat"}, {"K1", ""}, {"IK1END", ""}};
  read(changes, {values, ends});
  expect_accepted();
  // The 62nd ends with cell 223; the 63rd, which was to end with cell 225, goes on to the last.
  const auto& K1 = model().profile.K1CELL;
  EXPECT_EQ(K1(101), 2.0f);
  EXPECT_EQ(K1(102), 1.0f);
  EXPECT_EQ(K1(223), 1.0f);
  EXPECT_EQ(K1(224), 2.0f);
  EXPECT_EQ(K1(300), 2.0f);
}

TEST_F(limits, the_greatest_number_of_steps_told_as_such_is_17999999) {
  check({{"SIMDATE", "17999999"}});
  expect_accepted();
  EXPECT_EQ(model().clock.NTS, 17999999);
}

TEST_F(limits, crest_and_stones_of_a_breakwater_are_metres_also_in_feet) {
  check({{"KELUNITS", "(ft)"}, {"DX", "300"}},
        {"DBI1: 5", "DBI2: 9", "DBY1: 1000", "DBY2: 1000", "DBDEP1: 10", "DBDEP2: 10", "KTMETDB: 0",
         "HDB: 3", "BDB: 5", "SSDB: 0.5", "SHSDB: 0.5", "D50DB: 1.5", "WLFILE: 2 waves.dat"});
  expect_accepted();
  const kelprun::Breakwaters& b = model().breakwaters;
  EXPECT_FLOAT_EQ(b.DBY1(1), 304.8f);
  EXPECT_FLOAT_EQ(b.DBDEP2(1), 3.048f);
  EXPECT_EQ(b.HDB(1), 3.0f);
  EXPECT_EQ(b.BDB(1), 5.0f);
  EXPECT_EQ(b.D50DB(1), 1.5f);
}

}  // namespace
