#include "input/tidal_currents.h"

#include <array>
#include <vector>

#include "input/stations.h"
#include "input/timed_records.h"
#include "text/console.h"

namespace kelprun {

namespace {

/// Currents of all stations, record by record. They grow as the files are read, so that a count
/// far above what the files hold takes no storage.
struct StationRecords {
  std::vector<float> currents;
  std::array<std::int16_t, 2> hours{};  ///< clock times of records 1 and 2
};

StationRecords read_stations(std::int32_t NTCRNTREC, std::vector<InputFile>& stations) {
  StationRecords all;
  for (std::int32_t n = 1; n <= NTCRNTREC; ++n) {
    TimedRecord record;  // the clock time is that of the last station
    for (InputFile& station : stations) {
      record.value = 0.0f;
      read_timed_record(station, n, record);
      all.currents.push_back(record.value);
    }
    if (n <= 2) all.hours[static_cast<std::size_t>(n - 1)] = record.hour;
  }
  return all;
}

/// Takes the rows once, so that the time loop copies one row a record and does nothing else.
void spread_along_coast(const Grid& grid, const std::vector<float>& currents, Series& series) {
  const PerWall<StationPlace> places = place_walls_between(grid, series.ITCEND);
  const auto stations = static_cast<std::size_t>(series.ITCEND.size());
  const std::int32_t walls = grid.NX + 1;
  const auto rows = static_cast<std::size_t>(series.NTCRNTREC);
  series.NTCPOINTS = walls;
  series.TCRNT.allocate(rows * static_cast<std::size_t>(walls));
  for (std::size_t n = 0; n < rows; ++n) {
    const auto current = [&](std::int32_t station) {
      return currents[n * stations + static_cast<std::size_t>(station - 1)];
    };
    const auto row = static_cast<std::int64_t>(n) * walls;
    for (std::int32_t i = 1; i <= walls; ++i) {
      const StationPlace& place = places(i);
      series.TCRNT(row + i) =
          interpolated(current(place.lower), current(place.upper), place.fraction);
    }
  }
}

}  // namespace

void read_tidal_currents(const Grid& grid, float DT, InputFiles& files, Series& series,
                         Report& report) {
  console_line("Reading TCRNTFILE: ");
  const StationRecords all = read_stations(series.NTCRNTREC, files.tides);
  series.DTTC = series_step(all.hours[0], all.hours[1], DT,
                            {"tidal current", "Tidal current", "TIDAL CURRENT"}, report);
  spread_along_coast(grid, all.currents, series);
  series.ITCREC = 1;
}

}  // namespace kelprun
