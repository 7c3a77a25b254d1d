#include "input/wave_events.h"

#include <string>

#include "model/constants.h"
#include "text/fields.h"
#include "text/list_read.h"

namespace kelprun {

namespace {

using Item = ListReader::Item;

constexpr float LEAST_WAVE = 0.1f;     ///< a height or period below is calm
constexpr float MISSING_MARK = 98.0f;  ///< a height or period above marks missing data
constexpr float STEEPEST = 0.142f;     ///< largest ratio of height to deep-water length

/// The angle turned from the baseline to the regional contour, degrees, -180 to 180. The offset of
/// the baseline cancels but for rounding, and the sums are formed in this order.
float turned_to_contour(float a, float AZIM90, float RANG) {
  const float b = AZIM90;
  const float r = b - RANG * (180.0f / PI);
  float angle;
  if (a > 90.0f) {
    angle = ((a - 180.0f) - b) + r;
  } else if (a < -90.0f) {
    angle = ((180.0f - b) + a) + r;
  } else {
    angle = (a - b) + r;
  }
  if (angle > 180.0f) angle -= 360.0f;
  if (angle < -180.0f) angle += 360.0f;
  return angle;
}

void warn_of_steepness(const Settings& settings, float h, std::int32_t& WAVEWARN, Report& report) {
  if (settings.PRWARN || WAVEWARN == 0) {
    report.line("WARNING. UNPHYSICAL DEEPWATER WAVE STEEPNESS.");
    report.line(" WAVE HEIGHT REDUCED TO MATCH HZ/LZ = 0.142");
    report.line(" GIVING HZ = ", h / settings.CONV);
    report.record("");
  }
  if (WAVEWARN == 0) WAVEWARN = 1;
  if (WAVEWARN == -1) WAVEWARN = 2;
}

}  // namespace

GaugeWave screened(GaugeWave wave, std::int32_t& NBADANG) {
  constexpr GaugeWave CALM{0.0f, LEAST_WAVE, 0.0f};
  if (wave.HZ < LEAST_WAVE || wave.T < LEAST_WAVE) wave = CALM;
  if (wave.HZ > MISSING_MARK || wave.T > MISSING_MARK) wave = CALM;
  if (wave.ZZ > 90.0f || wave.ZZ < -90.0f) {
    ++NBADANG;
    wave = CALM;
  }
  return wave;
}

void WaveEvents::place_walls(const Grid& grid, const Series& series) {
  const std::int32_t files = series.IWEND.size();
  positions_.assign(static_cast<std::size_t>(files), {});
  gauges_.assign(static_cast<std::size_t>(files), {});
  places_ = place_walls_between(grid, series.IWEND);
}

void WaveEvents::read_record(std::size_t n, InputFile& file, const Series& series,
                             const Clock& clock) {
  Position& at = positions_[n];
  do {
    ++at.records;
    ListReader list(file);
    const auto check = [&](Item item) {
      if (item == Item::bad)
        file.failure(at.records, shown(list.item_text()) + " is no number of its kind");
      if (item == Item::end_of_file)
        file.failure(at.records, "the file ends here, but the run needs " +
                                     std::to_string(events_) + " wave records by time step " +
                                     std::to_string(clock.ITS));
    };
    if (series.WAVEID > 0) {
      check(list.read(at.date));
      check(list.read(at.hour));
    }
    check(list.read(at.wave.HZ));
    check(list.read(at.wave.T));
    check(list.read(at.wave.ZZ));
  } while (series.WAVEID > 0 && at.date < clock.SIMDATS);
}

void WaveEvents::read(InputFiles& files, const Settings& settings, const Grid& grid,
                      const Series& series, const Clock& clock, Waves& waves, Report& report) {
  ++events_;
  for (std::size_t n = 0; n < gauges_.size(); ++n) {
    // A steady file holds one record: once read it serves all events.
    if (series.WAVEID > 0 || positions_[n].records == 0)
      read_record(n, files.waves[n], series, clock);
    gauges_[n] = screened(positions_[n].wave, waves.NBADANG);
  }
  const auto gauge = [&](std::int32_t n) { return gauges_[static_cast<std::size_t>(n - 1)]; };

  const std::int32_t last = grid.NX + 1;
  for (std::int32_t i = 1; i <= last; ++i) {
    const StationPlace& place = places_(i);
    const GaugeWave lower = gauge(place.lower);
    const GaugeWave upper = gauge(place.upper);
    const float f = place.fraction;
    const float a = interpolated(lower.ZZ, upper.ZZ, f);
    const float T = interpolated(lower.T, upper.T, f);
    const float turned = settings.IREG == 1 ? turned_to_contour(a, grid.AZIM90, waves.RANG(i)) : a;
    waves.ZRF(i) = turned * (waves.THETAAMP(i) * (PI / 180.0f)) + waves.THETADEL(i);
    waves.TRF(i) = T;
    waves.ZRFPRTOUT(i) = a;
    waves.DRF(i) = interpolated(series.WMDEP(place.lower), series.WMDEP(place.upper), f);
    float h = (waves.HAMP(i) * settings.WAVCONV) * interpolated(lower.HZ, upper.HZ, f);
    waves.HRF(i) = h;
    if (T <= 0.0f) return;
    if (h / (1.56f * T * T) > STEEPEST) {
      h = STEEPEST * 1.56f * T * T;
      waves.HRF(i) = h;
      warn_of_steepness(settings, h, waves.WAVEWARN, report);
    }
  }
  waves.pass.HZ = waves.HRF(last);
  waves.pass.T = waves.TRF(last);
  waves.pass.ZZ = waves.ZRF(last) * (180.0f / PI);
  waves.pass.ZZDEG =
      (waves.THETADEL(last) + waves.ZRFPRTOUT(last) * waves.THETAAMP(last) * PI / 180.0f) * 180.0f /
      PI;
}

}  // namespace kelprun
