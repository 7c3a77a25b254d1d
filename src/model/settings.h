#pragma once

#include <cstdint>
#include <string>

#include "model/array.h"

namespace kelprun {

/// What the configuration says of the run as a whole. Written by input/, read-only afterwards but
/// for ISMOOTH, which the contour lowers to an odd number.
struct Settings {
  std::string TITLE;              ///< run title, at most 64 characters
  std::string SHOIN;              ///< initial shoreline file (INIFILE)
  std::string REGFILE;            ///< regional contour file
  std::string DXIN;               ///< variable cell width file (DXFILE)
  std::string PRTFILE;            ///< printable report (PRFILE)
  std::string STEM;               ///< stem of the result table names
  std::string BYPFILE;            ///< named and opened, never read
  std::string KELUNITS = "(ft)";  ///< lower case in 6 characters once read
  std::string WAVUNITS = "(m)";   ///< likewise

  std::int32_t IUNITS = 0;   ///< 1 metres, 2 feet
  std::string VOLUME_LABEL;  ///< "M3" or "CY"
  float CONV = 0.0f;         ///< metres in a length unit
  float CONVYD = 0.0f;       ///< metres in the unit whose cube reports volumes
  float CONVYD3 = 0.0f;      ///< CONVYD cubed, stored once in single precision
  float WAVCONV = 0.0f;      ///< metres in a wave height unit

  bool PRTOUT = true;  ///< echoes and result blocks of the report are wanted
  bool PRWARN = true;  ///< repeated warnings are written

  float GAMMA = 0.78f;        ///< breaker index
  float D50 = 0.0f;           ///< median grain size, mm
  float ASHAPE = 0.0f;        ///< equilibrium profile shape factor, m^(1/3)
  float ASHAPE_GAMMA = 0.0f;  ///< ASHAPE times GAMMA, for the inlet formulas

  std::int32_t ISMOOTH = 11;       ///< window of the contour smoothing, cells
  std::int32_t IREG = 0;           ///< regional contour mode, 0 to 3
  std::int32_t WAVREGANG = 0;      ///< averaging mode of the regional angle
  std::int32_t IWAVREGSMOOTH = 0;  ///< averaging window of the regional angle, cells

  std::int32_t DTADAPT = 0;  ///< 1: the step length adapts to the stability parameter
  double DTMIN = 0.0;        ///< lower bound of a reduced step, h
  float DTMAX = 0.0f;        ///< upper bound of an increased step, h
  float NSTABDTMIN = 0.0f;   ///< quiet days before an increase; a real, despite its name
  float STABMIN = 0.5f;      ///< S above this forces a reduction (the ceiling, and meant so)
  float STABMAX = 0.5f;      ///< S at or below this counts as quiet

  std::int32_t KTMETFLAG = 0;   ///< 1: breakwater transmission is computed
  std::int32_t NOUT = 0;        ///< number of print dates
  Array1<std::int32_t> PRDATE;  ///< print dates or step numbers
};

/// Cells and walls of the sediment budget at the end of the report (input/ writes).
struct Budget {
  std::int32_t NLEDGV = 0;  ///< budget cells
  Array1<std::int32_t> ILEDGV1, ILEDGV2;
  std::int32_t NLEDGQ = 0;  ///< flux arrows
  Array1<std::int32_t> ILEDGQ1, ILEDGQ2;
};

}  // namespace kelprun
