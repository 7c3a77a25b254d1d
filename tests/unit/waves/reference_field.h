#pragma once

#include <cstdint>
#include <vector>

#include "model/model.h"

/// A second, plain way from the undiffracted breaking waves to the field of all zones, for the
/// tests to compare with: no stored geometry, every rule written out where it acts, in double
/// precision (where only rounding separates it from the model) or in single precision (where every
/// branch is taken at the same value).
namespace kelptest {

/// One of the two tips of a zone in the reference.
template <class Real>
struct ReferenceTip {
  std::int32_t ITP = 0;
  std::int32_t cell = 0;
  Real Y{}, D{};              ///< distance from the baseline and depth
  Real A{};                   ///< wave angle at the tip
  Real SMAX{1}, AKD{1}, L{};  ///< spreading, wave length of the blend
  Real k{}, H2{};             ///< wave number and height at the tip's depth
  Real KTn{}, BYP{};
  bool HIGH = false;
  bool settled = false;
};

template <class Real>
class ReferenceField {
 public:
  /// Reads the coast, the tips, the zones, HBU, ZBU, WKBU and the waves at the tips.
  explicit ReferenceField(const kelprun::Model& model);

  /// Sum of all zones into HB and ZB; false where a coefficient does not converge.
  bool combine();

  /// One zone from its left tip to its right one: HBD, ZRAY, IZONE, W1, W2, IBEG, IEND. The other
  /// calls are its pieces.
  bool work(std::int32_t zone);
  void open(std::int32_t zone);  ///< loads the undiffracted wave, finds both tips
  bool diffract(int ID);         ///< one tip
  void merge();                  ///< HBD, ZBD of the zone after both tips

  std::vector<Real> HB, ZB, HBD, ZBD, KDA, KDB, ZRAY, W1, W2;
  std::vector<std::int32_t> IZONE, DONE;
  std::vector<std::vector<Real>> KDTAB;
  std::int32_t Z = 0, IBEG = 0, IEND = 0;
  Real KT{}, ZTPL{};
  ReferenceTip<Real> first, second;

 private:
  ReferenceTip<Real> tip_of(int ID) const;
  Real bypass_share(const ReferenceTip<Real>& tip) const;
  Real sum_of_widths(std::int32_t from, std::int32_t to) const;
  Real alongshore(std::int32_t cell, std::int32_t wall) const;
  Real shoreline_at(std::int32_t wall) const;
  bool groin(std::int32_t wall) const;
  Real zone_share(std::int32_t zone) const;
  bool beyond_has_no_extent(int ID) const;
  bool joined(std::int32_t cell) const;
  bool passed(std::int32_t tip) const;
  bool begins_the_coast(std::int32_t zone) const;

  bool walk(int ID, int number, std::int32_t from, std::int32_t start, std::int32_t a,
            std::int32_t b);
  bool work_wall(int ID, int number, std::int32_t i, std::int32_t start, std::int32_t a,
                 std::int32_t b, bool& open_mark);
  bool iterate(int ID, int number, std::int32_t i);
  void overlap(int ID, std::int32_t i, Real KD, Real P, Real th);
  void finish(int ID, std::int32_t i);
  void choose_ray(std::int32_t i);

  const kelprun::Model& m_;
  std::int32_t NX_;
  Real GAMMA_, Htip_{}, B_{};
};

extern template class ReferenceField<float>;
extern template class ReferenceField<double>;

}  // namespace kelptest
