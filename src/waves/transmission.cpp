#include "waves/transmission.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "model/constants.h"
#include "text/free_format.h"
#include "text/stop.h"
#include "waves/kernel.h"

namespace kelprun {

namespace {

/// Two pi of this calculation alone.
constexpr float TWO_PI = 6.283186f;

Transmitted limited(float KT, TransmissionWarnings warnings) {
  constexpr float LIMIT = 1.5f;
  if (KT > LIMIT) {
    KT = LIMIT;
    warnings.above_limit = true;
  }
  if (KT < 0.0f) {
    KT = 0.0f;
    warnings.below_zero = true;
  }
  return {KT, warnings};
}

}  // namespace

Transmitted transmission_over_submerged_crest(const BreakwaterWave& wave, float BDB, float D50DB) {
  const auto& [Hi, L0, L, Rc] = wave;
  const float Rr = Rc / Hi;
  const float e = std::exp(-0.65f * std::abs(Rr) - 1.09f * (Hi / BDB));
  const float p = Rc * BDB / (L * D50DB);
  const float q = Rc * Hi / (BDB * D50DB);
  TransmissionWarnings warnings;
  // The freeboard of a submerged crest makes both negative, so that every normal structure warns.
  warnings.negative_range = p < 0.0f || q < 0.0f;
  warnings.beyond_range = p > 7.08f || q > 2.14f;
  return limited((1.0f - e) - 0.047f * std::abs(p) + 0.067f * std::abs(q), warnings);
}

Transmitted transmission_over_low_crest(const BreakwaterWave& wave, float BDB, float SSDB) {
  constexpr float LOWEST = 0.075f;
  constexpr float HIGHEST = 0.8f;
  constexpr float NARROW = 8.0f;
  constexpr float WIDE = 12.0f;
  const auto& [Hi, L0, L, Rc] = wave;
  const float Rr = Rc / Hi;
  const float Br = BDB / Hi;
  const float xi = SSDB / std::sqrt(Hi / L0);
  const float A1 =
      std::trunc(-0.4f * Rr + 0.64f * std::pow(Br, -0.31f) * (1.0f - std::exp(-0.5f * xi)));
  const float A2 =
      std::trunc(-0.35f * Rr + 0.51f * std::pow(Br, -0.65f) * (1.0f - std::exp(-0.41f * xi)));
  const float w = (Br - NARROW) * 0.25f;
  const float KT = Br < NARROW ? A1 : Br > WIDE ? A2 : (1.0f - w) * A1 + w * A2;
  // In this order what is no number comes to the lower limit.
  return {std::min(std::max(LOWEST, KT), HIGHEST), {}};
}

Transmitted transmission_through_and_over(const BreakwaterWave& wave, float HDB, float ATDB,
                                          float D50DB) {
  const auto& [Hi, L0, L, Rc] = wave;
  const float Rr = Rc / Hi;
  float T1 =
      1.0f / (1.0f + std::pow(Hi / D50DB, 0.982f) * std::exp(0.433f + 2.35f * ATDB / (L0 * HDB)));
  float T2 = 0.0f;
  if (Rr < 0.0f) {
    T2 = 1.0f / (1.0f + std::exp(0.631f * Rr - 0.646f + 0.00137f * ATDB / (D50DB * D50DB)));
    T1 = 0.1f;
  } else if (Rr <= 2.0f) {
    T2 = 1.0f / (1.0f + std::exp(0.465f - 17.4f / (ATDB / (HDB * D50DB)) + 0.00118f / (Hi / L0) +
                                 12.7f * Rc / std::sqrt(L0 * Hi)));
  }
  return limited(std::sqrt(T1 * T1 + T2 * T2), {});
}

BreakwaterWave wave_at_breakwater(const Waves& w, float ALPHAC, std::int32_t cell, float d,
                                  float HDB) {
  const float T = w.pass.T;
  const float Cg0 = G / (2.0f * w.SIGMA);
  const float k1 = PI / (T * Cg0);
  const TransformedWave wave =
      TRANSFORM(k1, w.HRF(cell), w.ZRF(cell), Cg0, ALPHAC, d, w.WK0, w.SIGMA);
  return {wave.H2, (T * T * G) / TWO_PI, TWO_PI / wave.k2, HDB - d};
}

std::int32_t next_breakwater_slot(const Array1<float>& KTZ, std::int32_t slot) {
  ++slot;
  while (slot <= KTZ.size() && (KTZ(slot) == OPEN_WATER || KTZ(slot) == NO_EXTENT)) ++slot;
  return slot;
}

namespace {

/// A list shorter than its breakwaters stands still at its end.
Tip entry(const Array1<Tip>& tips, std::int32_t j) {
  return tips.empty() ? Tip{} : tips(std::clamp(j, 1, tips.size()));
}

float cross_section(const Breakwaters& b, std::int32_t k) {
  const float HDB2 = b.HDB(k) * b.HDB(k);
  return b.HDB(k) * b.BDB(k) + 0.5f * (HDB2 / b.SSDB(k) + HDB2 / b.SHSDB(k));
}

/// With a groin at wall 1 the list has no virtual left end.
float depth_of(const Array1<Tip>& tips, const Groins& g, std::int32_t k) {
  const bool groin_at_left_end = g.NDG > 0 && g.IXDG(1) == 1;
  const std::int32_t left = groin_at_left_end ? 2 * k - 1 : 2 * k;
  return 0.5f * (entry(tips, left).D + entry(tips, left + 1).D);
}

/// Behind a virtual left end the breakwater's right tip goes with entry k+1, not with its left tip,
/// and this is meant: from the second breakwater on the cell moves toward the ones on its left.
std::int32_t reference_cell(const Array1<Tip>& tips, std::int32_t k, std::int32_t NX) {
  const bool virtual_end = entry(tips, 1).cell == LEFT_END_TIP;
  const std::int64_t left = entry(tips, virtual_end ? k + 1 : 2 * k - 1).cell;
  const std::int64_t right = entry(tips, virtual_end ? 2 * k + 1 : 2 * k).cell;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>((left + right) / 2, 1, NX));
}

/// Whether a record of a series begins in step `s`, counted from 0, with one every `interval`
/// steps. Without an interval there is one record for the whole run.
bool record_begins(std::int32_t s, std::int32_t interval) {
  return interval > 0 ? s % interval == 0 : s == 0;
}

[[noreturn]] void refuse_emergent_crest(std::int32_t k, float Rc, const Clock& clock,
                                        Report& report) {
  report.line(" ERROR! SEABROOK & HALL ONLY APPLICABLE FOR SUBMERGED BREAKWATER");
  run_time_message("time step " + std::to_string(clock.ITS) + ": method 1 of breakwater " +
                   std::to_string(k) + " needs a submerged crest, its freeboard is " +
                   free_number(Rc));
}

Transmitted transmitted(const Breakwaters& b, std::int32_t k, const BreakwaterWave& wave,
                        const Clock& clock, Report& report) {
  switch (b.KTMETDB(k)) {
    case 1:
      if (wave.Rc >= 0.0f) refuse_emergent_crest(k, wave.Rc, clock, report);
      return transmission_over_submerged_crest(wave, b.BDB(k), b.D50DB(k));
    case 2:
      return transmission_over_low_crest(wave, b.BDB(k), b.SSDB(k));
    default:
      return transmission_through_and_over(wave, b.HDB(k), b.ATDB(k), b.D50DB(k));
  }
}

void report_warnings(const TransmissionWarnings& warnings, Report& report) {
  constexpr const char* OUTSIDE = " !!WARNING-INPUT VALUES OUTSIDE VARIABLE RANGE";
  if (warnings.above_limit) report.line(" !!WARNING-COMPUTED KT GREATER THAN 1.5, SET TO 1.5");
  if (warnings.below_zero) report.line(" !!WARNING-COMPUTED KT LESS THAN 0, SET TO 0");
  if (warnings.negative_range) report.line(OUTSIDE);
  if (warnings.beyond_range) report.line(OUTSIDE);
}

/// Coefficient of breakwater k at the water level in force.
float KTCALC(const Breakwaters& b, std::int32_t k, const Clock& clock, const Series& series,
             const Waves& waves, const PerWall<float>& ALPHAC, Report& report) {
  constexpr float LEAST_DEPTH = 0.01f;
  const bool warn = record_begins(clock.ITS - 1, clock.NWLSTEP);
  const std::int32_t cell = b.ICDB(k);
  float d = series.WL + b.DBD(k);
  if (!(d > 0.0f)) {  // a breakwater that the water has left: a wave has no length there
    d = LEAST_DEPTH;
    if (warn) report.line(" !!WARNING-NO WATER AT BREAKWATER, DEPTH SET TO 0.01 M");
  }
  const BreakwaterWave wave = wave_at_breakwater(waves, ALPHAC(cell), cell, d, b.HDB(k));
  const Transmitted result = transmitted(b, k, wave, clock, report);
  if (warn) report_warnings(result.warnings, report);
  return result.KT == OPEN_WATER ? NEARLY_OPEN : result.KT;
}

/// The first evaluation of the run sets both extremes.
void count_new(TransmissionStatistics& kt, std::int32_t k, float KT) {
  const float old_maximum = kt.KTCOUNT == 1 ? 0.0f : kt.KTMAX(k);
  const float old_minimum = kt.KTCOUNT == 1 ? 2.0f : kt.KTMIN(k);
  kt.KTSUM(k) += KT;
  kt.KTMAX(k) = std::max(old_maximum, KT);
  kt.KTMIN(k) = std::min(old_minimum, KT);
}

/// Breakwaters and slots, both in their order. A breakwater whose tips coincide has no zone and
/// takes no slot, so that the last ones may be left without.
template <class Work>
void for_each_slot(const Breakwaters& b, const Array1<float>& KTZ, Work work) {
  std::int32_t slot = 0;
  for (std::int32_t k = 1; k <= b.NDB; ++k) {
    slot = next_breakwater_slot(KTZ, slot);
    if (slot > KTZ.size()) return;
    work(k, slot);
  }
}

}  // namespace

void prepare_transmission(const Settings& settings, const Grid& grid, const Groins& groins,
                          const Tips& tips, Breakwaters& b) {
  if (settings.KTMETFLAG != 1) return;
  const auto count = static_cast<std::size_t>(b.NDB);
  for (Array1<float>* values : {&b.ATDB, &b.DBD, &b.kt.KTMAX, &b.kt.KTMIN, &b.kt.KTSUM})
    values->allocate(count);
  b.ICDB.allocate(count);
  b.kt.KTCOUNT = 0;
  for (std::int32_t k = 1; k <= b.NDB; ++k) {
    b.ATDB(k) = cross_section(b, k);
    b.DBD(k) = depth_of(tips.breakwater_tips, groins, k);
    b.ICDB(k) = reference_cell(tips.breakwater_tips, k, grid.NX);
  }
}

void update_transmission(const Settings& settings, const Clock& clock, const Series& series,
                         const Waves& waves, const PerWall<float>& ALPHAC, Breakwaters& b,
                         Zones& zones, Report& report) {
  if (settings.KTMETFLAG != 1) return;
  const std::int32_t s = clock.ITS - 1;
  ++b.kt.KTCOUNT;
  if (record_begins(s, clock.NWSTEP) || record_begins(s, clock.NWLSTEP)) {
    for_each_slot(b, zones.KTZ, [&](std::int32_t k, std::int32_t slot) {
      zones.KTZ(slot) = KTCALC(b, k, clock, series, waves, ALPHAC, report);
      count_new(b.kt, k, zones.KTZ(slot));
    });
  } else {
    for_each_slot(b, zones.KTZ,
                  [&](std::int32_t k, std::int32_t slot) { b.kt.KTSUM(k) += zones.KTZ(slot); });
  }
}

}  // namespace kelprun
