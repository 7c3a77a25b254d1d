#pragma once

#include <cstdint>
#include <vector>

#include "input/input_files.h"
#include "input/stations.h"
#include "model/model.h"
#include "text/report.h"

namespace kelprun {

/// Height, period and angle of one record.
struct GaugeWave {
  float HZ = 0.0f;  ///< in the wave height unit
  float T = 0.0f;   ///< s
  float ZZ = 0.0f;  ///< degrees
};

/// A record that cannot drive the model becomes calm: height 0, period 0.1, angle 0. Adds to
/// NBADANG where its angle is beyond 90 degrees.
GaugeWave screened(GaugeWave wave, std::int32_t& NBADANG);

/// The wave files while the run goes through them: one reading position a file, and where each
/// wall lies between two gauges.
class WaveEvents {
 public:
  /// Places every wall between its two gauges; constant for the run.
  void place_walls(const Grid& grid, const Series& series);

  /// Reads one record from each file, forward, and spreads them over walls 1 to NX+1: fills HRF,
  /// TRF, ZRF, ZRFPRTOUT, DRF and the wave of the pass. A file that ends or holds no number ends
  /// the run with a run-time message.
  void read(InputFiles& files, const Settings& settings, const Grid& grid, const Series& series,
            const Clock& clock, Waves& waves, Report& report);

 private:
  /// What a file stands at: an item that a record leaves out keeps the value of the record before.
  struct Position {
    std::int32_t records = 0;  ///< read so far
    std::int32_t date = 0;
    std::int16_t hour = 0;
    GaugeWave wave;  ///< as it stands in the file
  };

  void read_record(std::size_t n, InputFile& file, const Series& series, const Clock& clock);

  PerWall<StationPlace> places_;
  std::vector<Position> positions_;  ///< one a file
  std::vector<GaugeWave> gauges_;    ///< waves of the event, after screening
  std::int32_t events_ = 0;          ///< wave events read so far
};

}  // namespace kelprun
