#include <gtest/gtest.h>

#include "model/model.h"

namespace {

// What holds where the configuration is silent.

TEST(defaults, the_values_that_are_not_zero) {
  const kelprun::Model model;
  EXPECT_EQ(model.settings.KELUNITS, "(ft)");
  EXPECT_EQ(model.settings.WAVUNITS, "(m)");
  EXPECT_EQ(model.settings.GAMMA, 0.78f);
  EXPECT_EQ(model.series.KTIDE, 1.0f);
  EXPECT_EQ(model.settings.ISMOOTH, 11);
  EXPECT_TRUE(model.settings.PRTOUT);
  EXPECT_TRUE(model.settings.PRWARN);
  EXPECT_EQ(model.settings.STABMIN, 0.5f);
  EXPECT_EQ(model.settings.STABMAX, 0.5f);
  EXPECT_EQ(model.clock.IPRINT, 1);
  EXPECT_TRUE(model.clock.FIRSTWARN);
  EXPECT_EQ(model.clock.FIRSTDAY, 1);
}

TEST(defaults, names_are_blank) {
  const kelprun::Settings settings;
  for (const std::string& name : {settings.TITLE, settings.SHOIN, settings.REGFILE, settings.DXIN,
                                  settings.PRTFILE, settings.STEM, settings.BYPFILE})
    EXPECT_EQ(name, "");
}

TEST(defaults, counts_are_zero) {
  const kelprun::Model m;
  for (const std::int32_t count :
       {m.settings.NOUT,   m.series.NWFIL,  m.series.WAVEID, m.series.NWLREC, m.series.NTCRNTREC,
        m.series.IWEVENT,  m.grid.NX,       m.groins.NNDG,   m.groins.NDG,    m.groins.NGRP,
        m.breakwaters.NDB, m.seawalls.NSW,  m.events.NBF,    m.events.NBP,    m.inlets.NINL,
        m.budget.NLEDGV,   m.budget.NLEDGQ, m.tips.NZ,       m.clock.ITS,     m.clock.NTS,
        m.clock.NDAYS,     m.waves.NBADANG})
    EXPECT_EQ(count, 0);
}

TEST(defaults, switches_are_off) {
  const kelprun::Model m;
  for (const std::int32_t flag :
       {m.settings.DTADAPT, m.settings.KTMETFLAG, m.settings.IREG, m.settings.WAVREGANG,
        m.settings.IWAVREGSMOOTH, m.series.TIDEFLAG, m.inlets.DREDFLAG, m.clock.IERR,
        m.boundaries.left.BCTYPE, m.boundaries.right.BCTYPE, m.waves.WAVEWARN})
    EXPECT_EQ(flag, 0);
  EXPECT_FALSE(m.clock.DTCHANGED);
}

}  // namespace
