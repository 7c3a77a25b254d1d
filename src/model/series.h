#pragma once

#include <cstdint>
#include <string>

#include "model/array.h"

namespace kelprun {

/// Wave files, water levels and tidal currents over time. Owner: input/; what says so: run/.
struct Series {
  std::int32_t NWFIL = 0;         ///< wave files announced (NUMWAVES)
  Array1<std::int32_t> IWEND;     ///< last cell served by each wave file
  Array1<float> WMDEP;            ///< depth of each gauge, m after set-up
  Array1<std::string> WAVEFILE;   ///< names
  std::int32_t WAVEID = 0;        ///< wave events in a file; 0: a steady file
  Array1<std::int32_t> WAVEDATE;  ///< dates of the wave events
  Array1<std::int16_t> WAVEHOUR;  ///< clock times HHMM of the wave events
  float WAVEDT = 0.0f;            ///< time step of the wave files, h
  std::int32_t IWEVENT = 0;       ///< current entry of the date table, cycled (run/)

  std::string WTRELFILE;  ///< water level file
  std::int32_t NWLREC = 0;
  float DTWL = 0.0f;        ///< time step of the water level file, h
  Array1<float> WLFILE;     ///< water levels, m
  std::int32_t IWLREC = 2;  ///< the entry in force plus 1, 2 to NWLREC+1, cycled (run/)
  float WL = 0.0f;          ///< water level in force, m; 0 without a file (run/)

  std::int32_t TIDEFLAG = 0;  ///< 1: tidal current files are given
  std::int32_t NTCRNTREC = 0;
  Array1<std::int32_t> ITCEND;  ///< last cell served by each tidal current file
  Array1<std::string> TCRNTFILE;
  float KTIDE = 1.0f;          ///< tidal current factor
  float DTTC = 0.0f;           ///< time step of the tidal current files, h
  Array1<float> TCRNT;         ///< currents, a row of NTCPOINTS walls for each record
  std::int32_t ITCREC = 1;     ///< next record of the tidal current files (run/)
  std::int32_t NTCPOINTS = 0;  ///< walls that each record has a value for
  bool TCENDED = false;        ///< the records are used up, and this has been said (run/)
};

}  // namespace kelprun
