#include "verification/sinusoid.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kelptest {

double Sinusoid::wave_number() { return 2.0 * std::numbers::pi / length; }

double Sinusoid::diffusivity() const {
  return effective_diffusivity(wave, K1_of_the_coast, profile_height, contour);
}

double Sinusoid::decay() const {
  return diffusivity() * wave_number() * wave_number() * days * 86400.0;
}

double Sinusoid::exact_ratio() const { return std::exp(-decay()); }

double Sinusoid::leading_error(int cells) const {
  const double kDX = wave_number() * length / cells;
  const Coast coast = sinusoid_coast(*this, cells);
  const double r = diffusivity() * coast.DT * 3600.0 / (coast.DX * coast.DX);
  const double frozen =
      effective_diffusivity(wave, K1_of_the_coast, profile_height, Contour::stays_straight);
  const double followed = frozen / diffusivity() - 1.0;
  return std::abs(decay()) * kDX * kDX *
         (1.0 / 12.0 + std::abs(r) / 2.0 + std::abs(followed) / 4.0);
}

Coast sinusoid_coast(const Sinusoid& sinusoid, int cells) {
  Coast coast;
  coast.DX = Sinusoid::length / cells;
  const int refinement = cells / 20;
  coast.DT = 24.0 / (refinement * refinement);
  coast.steps = sinusoid.days * refinement * refinement;
  for (int i = 0; i <= 2 * cells; ++i)
    coast.shoreline.push_back(sinusoid.amplitude *
                              std::sin(Sinusoid::wave_number() * i * coast.DX));
  if (sinusoid.contour == Contour::stays_straight)
    coast.contour.assign(coast.shoreline.size(), 500.0);
  coast.waves = steady_wave(sinusoid.wave.H, sinusoid.wave.T, sinusoid.wave.degrees);
  return coast;
}

Decayed decay(const Sinusoid& sinusoid, int cells) {
  const Coast coast = sinusoid_coast(sinusoid, cells);
  CoastRun run(coast);
  run.to_the_end();
  double sum = 0.0;
  double deviation = 0.0;
  for (int i = 1; i <= coast.NX(); ++i) {
    const double sine = std::sin(Sinusoid::wave_number() * (i - 1) * coast.DX);
    sum += run.Y(i) * sine;
    deviation = std::max(deviation,
                         std::abs(run.Y(i) - sinusoid.amplitude * sinusoid.exact_ratio() * sine));
  }
  // Over two wave lengths the squares of the sine sum to the cells of one.
  return {sum / (cells * sinusoid.amplitude), deviation / sinusoid.amplitude};
}

}  // namespace kelptest
