#include "input/keywords.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <sstream>
#include <string>

#include "unit/input/reading.h"

namespace {

using kelprun::Form;

void add(std::map<std::string, Form>& forms, Form form, const std::string& names) {
  std::istringstream words(names);
  for (std::string name; words >> name;) forms[name] = form;
}

/// Every keyword of the file format, by the form of its value.
std::map<std::string, Form> file_format() {
  std::map<std::string, Form> forms;
  add(forms, Form::marker, "KELPRUN");
  add(forms, Form::text, "TITLE KELUNITS WAVUNITS");
  add(forms, Form::name, "INIFILE REGFILE PRFILE DXFILE BYPFILE INLNAME");
  add(forms, Form::items, "WAVEID WLFILE TIDEFILE");
  add(forms, Form::logical7, "PRTOUT PRWARN");
  add(forms, Form::integer, "NX DTADAPT WAVREGANG IWAVREGSMOOTH");
  add(forms, Form::real64, "DTMIN QBP");
  add(forms, Form::real_list, "DX K1 K2 HAMP THETAAMP THETADEL BERMHT DCLOS");
  add(forms, Form::int_list,
      "IK1END IK2END IHAMPEND ITHETAAMPEND ITHETADELEND IBERMHTEND IDCLOSEND");
  add(forms, Form::int8,
      "NUMWAVES SIMDATS SIMDATE PRDATE ISMOOTH IREG LBCTYPE RBCTYPE LMOVPER RMOVPER "
      "IXNDG IXDG DBI1 DBI2 KTMETDB IDB1 IDBN ISWBEG ISWEND "
      "BFDATS BFDATE IBFS IBFE BPDATS BPDATE IBPS IBPE QQDATS QQDATE IQQS IQQE "
      "IINLS IINLE IBYPL1 IBYPL2 IBYPR1 IBYPR2 IMOR IDREDS IDREDE "
      "ILEDGV1 ILEDGV2 ILEDGQ1 ILEDGQ2");
  add(forms, Form::real,
      "KTIDE X0 Y0 AZIMUTH DT DTSAVE DTMAX NSTABDTMIN STABMIN STABMAX GAMMA D50 "
      "LMOVY RMOVY LGROINY RGROINY YNDG PNDG YDG DDG PDG "
      "DBY1 DBY2 DBDEP1 DBDEP2 TRANDB HDB BDB SSDB SHSDB D50DB PDB SWY1 SWY2 YADD DTWL "
      "VVSE VVSF VVSBL VVSBR VVSAL VVSAR VVSEQ VVSFQ VVSBQL VVSBQR VVSAQL VVSAQR "
      "YINLL YINLR JBCL JBCR DRDAY DREDV");
  return forms;
}

TEST(keywords, the_table_holds_every_keyword_in_its_form_and_no_other) {
  std::map<std::string, Form> expected = file_format();
  for (const kelprun::Keyword& keyword : kelprun::keyword_table()) {
    const auto known = expected.extract(std::string(keyword.name));
    ASSERT_FALSE(known.empty()) << keyword.name << " is unknown or stands twice";
    EXPECT_EQ(known.mapped(), keyword.form) << keyword.name;
  }
  for (const auto& [name, form] : expected) ADD_FAILURE() << name << " is missing";
}

TEST(keywords, every_name_fits_its_field_in_upper_case) {
  for (const kelprun::Keyword& keyword : kelprun::keyword_table()) {
    EXPECT_LE(keyword.name.size(), 15u) << keyword.name;
    EXPECT_EQ(keyword.name.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"),
              std::string_view::npos)
        << keyword.name;
  }
}

TEST(keywords, texts_have_the_width_of_their_fields) {
  for (const kelprun::Keyword& keyword : kelprun::keyword_table())
    if (keyword.form == Form::text) {
      EXPECT_EQ(keyword.width, keyword.name == "TITLE" ? 64 : 6) << keyword.name;
    }
}

class keywords_of_the_run : public kelptest::ReadingTest {};

TEST_F(keywords_of_the_run, scalars_reach_their_records) {
  folder.write("north.reg", "contour\n");
  read({{"TITLE", "A long beach"},
        {"REGFILE", "north.reg"},
        {"DXFILE", "widths.dat"},
        {"X0", "1.5"},
        {"AZIMUTH", "72"},
        {"SIMDATE", "19991231"},
        {"DT", "0.5"},
        {"DTSAVE", "24"},
        {"DTADAPT", "1"},
        {"DTMIN", "0.1"},
        {"DTMAX", "6"},
        {"NSTABDTMIN", "7.5"},
        {"STABMIN", "0.45"},
        {"STABMAX", "0.25"},
        {"PRTOUT", "F"},
        {"PRWARN", "F"},
        {"GAMMA", "0.8"},
        {"D50", "0.3"},
        {"ISMOOTH", "21"},
        {"IREG", "1"},
        {"WAVREGANG", "2"},
        {"IWAVREGSMOOTH", "9"},
        {"LBCTYPE", "3"},
        {"RBCTYPE", "1"},
        {"LMOVY", "-2.5"},
        {"RMOVY", "3.5"},
        {"LMOVPER", "2"},
        {"RMOVPER", "1"},
        {"LGROINY", "30"},
        {"RGROINY", "40"},
        {"KTIDE", "0.25"},
        {"DTWL", "3"},
        {"WAVUNITS", "(ft)"},
        {"KELUNITS", "(m)"}});
  expect_accepted();
  const kelprun::Settings& s = model().settings;
  EXPECT_EQ(s.TITLE, "A long beach");
  EXPECT_EQ(s.SHOIN, "shore.dat");
  EXPECT_EQ(s.REGFILE, "north.reg");
  EXPECT_EQ(s.DXIN, "widths.dat");
  EXPECT_EQ(s.PRTFILE, "run.prt");
  EXPECT_EQ(s.DTADAPT, 1);
  EXPECT_EQ(s.DTMIN, 0.1);
  EXPECT_EQ(s.DTMAX, 6.0f);
  EXPECT_EQ(s.NSTABDTMIN, 7.5f);
  EXPECT_EQ(s.STABMIN, 0.45f);
  EXPECT_EQ(s.STABMAX, 0.25f);
  EXPECT_FALSE(s.PRTOUT);
  EXPECT_FALSE(s.PRWARN);
  EXPECT_EQ(s.GAMMA, 0.8f);
  EXPECT_EQ(s.D50, 0.3f);
  EXPECT_EQ(s.ISMOOTH, 21);
  EXPECT_EQ(s.IREG, 1);
  EXPECT_EQ(s.WAVREGANG, 2);
  EXPECT_EQ(s.IWAVREGSMOOTH, 9);
  EXPECT_EQ(s.IUNITS, 1);
  EXPECT_EQ(s.VOLUME_LABEL, "M3");
  EXPECT_EQ(s.WAVCONV, 0.3048f);
  EXPECT_EQ(model().grid.NX, 20);
  EXPECT_EQ(model().grid.X0, 1.5f);
  EXPECT_EQ(model().grid.AZIMUTH, 72.0f);
  EXPECT_EQ(model().grid.AZIM90, -18.0f);
  EXPECT_EQ(model().clock.SIMDATS, 19970101);
  EXPECT_EQ(model().clock.SIMDATE, 19991231);
  EXPECT_EQ(model().clock.DT, 0.5f);
  EXPECT_EQ(model().clock.DTSAVE, 24.0f);
  EXPECT_EQ(model().series.KTIDE, 0.25f);
  EXPECT_EQ(model().series.DTWL, 3.0f);
}

TEST_F(keywords_of_the_run, the_two_ends_are_told_apart) {
  read({{"LBCTYPE", "3"},
        {"RBCTYPE", "1"},
        {"LMOVY", "-2.5"},
        {"RMOVY", "3.5"},
        {"LMOVPER", "2"},
        {"RMOVPER", "1"},
        {"LGROINY", "30"},
        {"RGROINY", "40"}});
  const kelprun::Boundary& left = model().boundaries.left;
  const kelprun::Boundary& right = model().boundaries.right;
  EXPECT_EQ(left.BCTYPE, 3);
  EXPECT_EQ(left.MOVY, -2.5f);
  EXPECT_EQ(left.MOVPER, 2);
  EXPECT_EQ(left.GROINY, 30.0f);
  EXPECT_EQ(right.BCTYPE, 1);
  EXPECT_EQ(right.MOVY, 3.5f);
  EXPECT_EQ(right.MOVPER, 1);
  EXPECT_EQ(right.GROINY, 40.0f);
}

TEST_F(keywords_of_the_run, values_along_the_coast_reach_their_own_lists) {
  read({{"K1", "0.1"},
        {"K2", "0.2"},
        {"HAMP", "1.1"},
        {"THETAAMP", "1.2"},
        {"BERMHT", "1.5"},
        {"DCLOS", "6"},
        {"THETADEL", "10"}});
  EXPECT_EQ(model().profile.K1CELL(7), 0.1f);
  EXPECT_EQ(model().profile.K2CELL(7), 0.2f);
  EXPECT_EQ(model().waves.HAMP(7), 1.1f);
  EXPECT_EQ(model().waves.THETAAMP(7), 1.2f);
  EXPECT_NEAR(model().waves.THETADEL(7), 10.0 * std::acos(-1.0) / 180.0, 1e-7);
  EXPECT_EQ(model().profile.BERMHTCELL(7), 1.5f);
  EXPECT_EQ(model().profile.DCLOSCELL(7), 6.0f);
}

TEST_F(keywords_of_the_run, files_of_the_series_are_stored_with_their_counts) {
  folder.write("tide 1.dat", "");
  folder.write("tide2.dat", "");
  folder.write("level.dat", "");
  folder.write("bypass.dat", "");
  read({{"WLFILE", "365 level.dat"}, {"BYPFILE", "bypass.dat"}},
       {"TIDEFILE: 10 100 \"tide 1.dat\"", "TIDEFILE: 20, 200, tide2.dat"});
  expect_accepted();
  EXPECT_EQ(model().series.NWLREC, 365);
  EXPECT_EQ(model().series.WTRELFILE, "level.dat");
  EXPECT_EQ(model().series.TIDEFLAG, 1);
  EXPECT_EQ(model().series.NTCRNTREC, 200) << "the last line wins";
  EXPECT_EQ(kelptest::values_of(model().series.ITCEND), (std::vector<std::int32_t>{10, 20}));
  EXPECT_EQ(kelptest::values_of(model().series.TCRNTFILE),
            (std::vector<std::string>{"tide 1.dat", "tide2.dat"}));
  EXPECT_EQ(now->files.tides.size(), 2u);
  EXPECT_TRUE(now->files.water_level.is_open());
  EXPECT_TRUE(now->files.bypass.is_open());
}

}  // namespace
