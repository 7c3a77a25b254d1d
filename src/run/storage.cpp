#include "run/storage.h"

#include "model/constants.h"

namespace kelprun {

namespace {

template <class... Arrays>
void take_all(std::int32_t NX, Arrays&... arrays) {
  (arrays.take(NX), ...);
}

}  // namespace

void take_storage(Model& m) {
  const std::int32_t NX = m.grid.NX;
  take_all(NX, m.profile.K1EFF, m.profile.K2EFF);
  Waves& w = m.waves;
  take_all(NX, w.RANG0, w.RANG, w.HRF, w.TRF, w.ZRF, w.ZRFPRTOUT, w.DRF, w.CGRF, w.WKRF, w.NRF,
           w.HBU, w.ZBU, w.WKBU, w.CGBU, w.HB, w.ZB, w.CGB, w.WKB, w.HBS, w.ZBS, w.SWS, w.ITOMBOLO,
           w.DLTZ, w.HRF_held, w.ZRF_held);
  Shore& s = m.shore;
  take_all(NX, s.Y, s.YOLD, s.YPREV, s.YBASE, s.YSTART, s.YMAX, s.YMIN, s.YDIFF, s.YREG, s.YCON,
           s.WORK, s.SM, s.ALPHAC, s.ALPHA, s.YSW, s.YSWI, s.YBWI, s.DYSRC);
  s.YBW.take(NX, NO_BREAKWATER_LINE);
  Transport& t = m.transport;
  take_all(NX, t.Q, t.QRIGHT, t.QLEFT, t.QGROSS, t.QBWTIP, t.QLEE, t.QSWEPT, t.TCUR, t.CB, t.RDEN);
  Ledgers& l = m.ledgers;
  take_all(NX, l.QNETYR, l.QLEFTYR, l.QRIGHTYR, l.QGROSSYR, l.QNETSUM, l.QLEFTSUM, l.QRIGHTSUM,
           l.QANNUAL, l.QNETMEAN, l.QLEFTMEAN, l.QRIGHTMEAN, l.VOLCELL, l.VOLLEN, l.VFILLP,
           l.VFILLN, l.VBYPP, l.VBYPN);
  Diffraction& d = m.diffraction;
  take_all(NX, d.HBD, d.ZBD, d.KDA, d.KDB, d.ZRAY, d.IZONE, d.WRAMP1, d.WRAMP2, d.DONE);
  UndiffractedSums& u = m.undiffracted;
  take_all(NX, u.H, u.H52, u.ZBS, u.ZB, u.QZ);
  take_all(NX, m.groins.ICSTR, m.groins.IGSHAD, m.breakwaters.IBWST, m.inlets.INLC,
           m.zones.ITIPJOIN);
}

}  // namespace kelprun
