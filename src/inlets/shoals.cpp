#include "inlets/shoals.h"

#include <algorithm>

#include "model/constants.h"

namespace kelprun {

namespace {

/// A volume above its equilibrium hands the surplus on within the step; gives the rate of it.
float spill(float& volume, float equilibrium, float DTSEC) {
  if (!(volume > equilibrium)) return 0.0f;
  const float rate = (volume - equilibrium) / DTSEC;
  volume = equilibrium;
  return rate;
}

/// Share of the channel's sand for the ebb shoal, by the deficits of the two shoals. It is not
/// limited: shoals above their equilibrium give shares outside 0 to 1. Without a deficit in sum all
/// goes to the ebb shoal.
float ebb_share(float RE, float RF) {
  const float deficits = (2.0f - RF) - RE;
  if ((RE == 1.0f && RF == 1.0f) || deficits == 0.0f) return 1.0f;
  return (1.0f - RE) / deficits;
}

/// The bar takes `inflow` in and passes on its share; gives the outflow.
float pass_bar(float& volume, float equilibrium, float inflow, float DTSEC) {
  float outflow = (volume * inflow) / equilibrium;
  volume = volume + (inflow - outflow) * DTSEC;
  outflow += spill(volume, equilibrium, DTSEC);
  return outflow;
}

/// The reservoir that an event touches; none for other numbers.
float* reservoir(Inlets& n, std::int32_t k, std::int32_t IMOR) {
  switch (IMOR) {
    case 1:
      return &n.VVSAL(k);
    case 2:
      return &n.VVSBL(k);
    case 3:
      return &n.VVSE(k);
    case 4:
      return &n.VVSF(k);
    case 5:
      return &n.VVSBR(k);
    case 6:
      return &n.VVSAR(k);
    default:
      return nullptr;
  }
}

void apply(const Dredging& event, Inlets& n) {
  InletFlow& flow = n.flows(event.inlet);
  if (event.DREDQ > 0.0f) {
    flow.VDREDR -= event.DREDQ;
  } else {
    flow.VDREDP += event.DREDQ;
  }
  if (float* const volume = reservoir(n, event.inlet, event.IMOR)) *volume -= event.DREDQ;
}

}  // namespace

float SHOALROUTE(InletMouth SIDE, float QIN, std::int32_t k, float DTSEC, Inlets& n) {
  const bool to_right = SIDE == InletMouth::left;
  float& VB = to_right ? n.VVSBR(k) : n.VVSBL(k);
  float& VA = to_right ? n.VVSAR(k) : n.VVSAL(k);
  const float VBQ = to_right ? n.VVSBQR(k) : n.VVSBQL(k);
  const float VAQ = to_right ? n.VVSAQR(k) : n.VVSAQL(k);
  float& VE = n.VVSE(k);
  float& VF = n.VVSF(k);
  InletFlow& flow = n.flows(k);
  InletSide& side = to_right ? flow.right : flow.left;

  const float QI = static_cast<float>(SIDE) * QIN;
  VB = std::max(VB, LEAST_VOLUME);
  VA = std::max(VA, LEAST_VOLUME);
  flow.VQIN += DTSEC * QI;

  const float RE = VE / n.VVSEQ(k);
  const float RF = VF / n.VVSFQ(k);
  const float RT = (VE + VF) / (n.VVSEQ(k) + n.VVSFQ(k));
  const float FRC = ebb_share(RE, RF);
  side.Qc = (1.0f - RT) * QI;
  side.Qie = RT * QI;

  VF = VF + (1.0f - FRC) * DTSEC * side.Qc;
  flow.Qfe = spill(VF, n.VVSFQ(k), DTSEC);
  flow.Qce = FRC * side.Qc;

  const float QE = flow.Qfe + side.Qie + flow.Qce;
  side.Qeb = RE * QE;
  VE = VE + (QE - side.Qeb) * DTSEC;
  side.Qeb += spill(VE, n.VVSEQ(k), DTSEC);
  side.Qba = pass_bar(VB, VBQ, side.Qeb, DTSEC);
  side.Qout = pass_bar(VA, VAQ, side.Qba, DTSEC);

  flow.VQOUT += DTSEC * side.Qout;
  side.VQIE += side.Qie * DTSEC;
  side.VQC += side.Qc * DTSEC;
  side.VQOUT += side.Qout * DTSEC;
  return side.Qout;
}

void dredge_all(std::int32_t CURDATE, Inlets& n) {
  for (std::int32_t k = 1; k <= n.NINL; ++k) dredge(k, CURDATE, n);
}

void dredge(std::int32_t k, std::int32_t CURDATE, Inlets& n) {
  if (n.DREDFLAG != 1) return;
  // The lines of an event stand behind those that open its inlet, so that the list ascends by
  // inlet.
  for (auto event = std::ranges::lower_bound(n.dredgings, k, {}, &Dredging::inlet);
       event != n.dredgings.end() && event->inlet == k; ++event) {
    if (event->event > n.NDRED(k) || event->IDREDS == 0) continue;
    if (event->IDREDS <= CURDATE && CURDATE <= event->IDREDE) apply(*event, n);
  }
}

}  // namespace kelprun
