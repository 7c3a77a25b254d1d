#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "unit/input/reading.h"

namespace {

class decoding : public kelptest::ReadingTest {
 protected:
  void expect_refused(const std::string& line) {
    read({}, {line});
    SCOPED_TRACE(line);
    expect_fatal("Invalid config data: " + line.substr(0, 52));
  }
};

TEST_F(decoding, an_int8_field_reads_its_first_eight_columns_without_their_blanks) {
  const std::pair<const char*, std::int32_t> cases[] = {{"7", 7},
                                                        {"-5", -5},
                                                        {"+12", 12},
                                                        {"12 34", 1234},
                                                        {"1 2 3 4", 1234},
                                                        {"20", 20},
                                                        {"7       /text", 7},
                                                        {"99999999", 99999999},
                                                        {"00000012", 12},
                                                        {"- 5", -5},
                                                        {"123456789", 12345678}};
  for (const auto& [value, expected] : cases) {
    read({{"IREG", value}});
    expect_accepted();
    EXPECT_EQ(model().settings.IREG, expected) << value;
  }
}

TEST_F(decoding, nine_digits_in_a_date_lose_their_last) {
  read({{"SIMDATE", "199802015"}});
  expect_accepted();
  EXPECT_EQ(model().clock.SIMDATE, 19980201);
}

TEST_F(decoding, anything_else_in_the_eight_columns_of_an_int8_field_is_refused) {
  for (const char* value : {"1.0", "one", "5 cells", "1,2", "2*3", "/", "5/", "--5", "+-5", "-",
                            "+", "0x10", "1e3", "'5'"})
    expect_refused(std::string("IREG: ") + value);
}

TEST_F(decoding, a_logical_field_looks_at_its_first_letter) {
  for (const char* value : {"T", "t", "true", "TRUE", ".TRUE.", ".t", "Tomorrow", "T 1 2 3"}) {
    read({{"PRWARN", value}});
    expect_accepted();
    EXPECT_TRUE(model().settings.PRWARN) << value;
  }
  for (const char* value : {"F", "f", "false", ".FALSE.", ".f.", "Fish", "F,T"}) {
    read({{"PRWARN", value}});
    expect_accepted();
    EXPECT_FALSE(model().settings.PRWARN) << value;
  }
}

TEST_F(decoding, a_logical_field_without_that_letter_is_refused) {
  for (const char* value : {"1", "yes", "..T", ".", "'T'", "0"})
    expect_refused(std::string("PRTOUT: ") + value);
}

TEST_F(decoding, a_single_integer_is_the_first_item_of_a_free_format_read) {
  for (const char* value : {"20", "20 cells", "20,7", "+20", "1*20", "20/ or so", "20 / x"}) {
    read({{"NX", value}});
    expect_accepted();
    EXPECT_EQ(model().grid.NX, 20) << value;
  }
  for (const char* value : {"20.", "20cells", "twenty", "2e1", "99999999999"})
    expect_refused(std::string("NX: ") + value);
}

TEST_F(decoding, an_item_that_is_not_there_leaves_the_value_as_it_was) {
  for (const char* value : {"/", ",", "/ 7", ", 7"}) {
    read({}, {std::string("NX: ") + value, std::string("GAMMA: ") + value});
    expect_accepted();
    EXPECT_EQ(model().grid.NX, 20) << value;
    EXPECT_EQ(model().settings.GAMMA, 0.78f) << value;
  }
}

TEST_F(decoding, a_single_real_takes_every_way_of_writing_a_number) {
  const std::pair<const char*, float> cases[] = {
      {"0.5", 0.5f},  {".5", 0.5f},   {"5e-1", 0.5f},      {"0.5d0", 0.5f},
      {"5D-1", 0.5f}, {"+0.5", 0.5f}, {"0.5 hours", 0.5f}, {"0.5,1", 0.5f},
      {"3", 3.0f},    {"3.", 3.0f},   {"1*0.25", 0.25f},   {"0.5/1", 0.5f}};
  for (const auto& [value, expected] : cases) {
    read({{"DT", value}});
    expect_accepted();
    EXPECT_EQ(model().clock.DT, expected) << value;
  }
}

TEST_F(decoding, a_word_in_the_place_of_a_real_is_refused) {
  for (const char* value : {"half", "nan", "Inf"}) expect_refused(std::string("GAMMA: ") + value);
  expect_refused("DTMIN: small");
  expect_refused("X0: 1.2.3");
}

TEST_F(decoding, a_double_keeps_its_full_precision) {
  read({{"DTMIN", "0.1"}, {"BPDATS", "1"}, {"QBP", "1.23456789012345"}});
  EXPECT_EQ(model().settings.DTMIN, 0.1);
  EXPECT_EQ(model().events.QBP(1), 1.23456789012345);
}

TEST_F(decoding, a_list_fills_its_first_elements) {
  read({{"K1", "0.1,0.2 2*0.3"}, {"IK1END", "2 4 6 20"}});
  expect_accepted();
  const auto& K1 = model().profile.K1CELL;
  EXPECT_EQ(K1(2), 0.1f);
  EXPECT_EQ(K1(4), 0.2f);
  EXPECT_EQ(K1(6), 0.3f);
  EXPECT_EQ(K1(7), 0.3f);
}

TEST_F(decoding, a_second_line_of_a_list_writes_over_its_first_elements_only) {
  read({{"K1", "0.1 0.2 0.3"}, {"IK1END", "5 10 20"}}, {"K1: ,0.7"});
  expect_accepted();
  EXPECT_EQ(model().profile.K1CELL(5), 0.1f);
  EXPECT_EQ(model().profile.K1CELL(10), 0.7f);
  EXPECT_EQ(model().profile.K1CELL(20), 0.3f);
}

TEST_F(decoding, a_word_inside_a_list_is_refused) {
  expect_refused("K1: 0.1 much 0.2");
  expect_refused("IK1END: 5 10.5");
  expect_refused("DX: 100 wide");
}

TEST_F(decoding, of_several_cell_widths_the_first_serves_all_cells) {
  check({{"DX", "100 200"}});
  expect_accepted();
  for (std::int32_t i = 1; i <= 20; ++i) EXPECT_EQ(model().grid.DX(i), 100.0f);
  EXPECT_FALSE(model().grid.variable);
}

TEST_F(decoding, the_line_of_a_refused_value_is_told_up_to_its_fifty_second_character) {
  const std::string line =
      "K1: " + std::string(20, ' ') + "0.1 abcdefghijklmnopqrstuvwxyz0123456789";
  ASSERT_GT(line.size(), 52u);
  read({}, {line});
  EXPECT_EQ(now->said.status, 1);
  const std::string& out = now->said.out;
  EXPECT_EQ(out.substr(out.size() - 81),
            "ERROR: Invalid config data: " + line.substr(0, 52) + "\n");
}

TEST_F(decoding, an_opening_quote_without_a_closing_one_is_refused) {
  expect_refused("DXFILE: \"widths.dat");
  read({}, {"IINLS: 5", "INLNAME: \"North"});
  expect_fatal("Invalid config data: INLNAME: \"North");
}

TEST_F(decoding, items_of_a_file_line_must_be_numbers) {
  expect_refused("WAVEID: x 20 0 waves.dat");
  expect_refused("WAVEID: 20.5 20 0 waves.dat");
  expect_refused("WAVEID: 20 deep 0 waves.dat");
  expect_refused("WLFILE: many waves.dat");
  expect_refused("TIDEFILE: 20 many waves.dat");
  expect_refused("WAVEID: 20 20 0 'waves.dat");
}

TEST_F(decoding, two_keywords_speak_of_the_wave_file_instead) {
  for (const char* line : {"NUMWAVES: one", "NUMWAVES: 1.5", "KTIDE: half"}) {
    read({}, {line});
    expect_fatal("Cannot not open wave file");
  }
}

TEST_F(decoding, the_tidal_factor_is_a_real_and_takes_whole_numbers) {
  read({{"KTIDE", "2"}});
  EXPECT_EQ(model().series.KTIDE, 2.0f);
  read({{"KTIDE", "0.35"}});
  EXPECT_EQ(model().series.KTIDE, 0.35f);
}

TEST_F(decoding, values_that_are_read_and_discarded_must_still_be_numbers) {
  read({{"Y0", "12.5"}, {"IDB1", "3"}, {"IDBN", "4"}});
  expect_accepted();
  expect_refused("Y0: here");
  expect_refused("IDBN: last");
}

}  // namespace
