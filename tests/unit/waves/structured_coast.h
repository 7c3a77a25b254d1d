#pragma once

#include <cstdint>
#include <vector>

#include "model/model.h"
#include "unit/run/small_model.h"

/// Coasts with structures, made by hand: what the diffraction tests work on.
namespace kelptest {

struct GroinPlan {
  std::int32_t wall = 0;
  float Y = 0.0f, D = 0.0f;
  float permeability = 0.0f;
  std::int32_t type = 1;  ///< 1 standing out, 3 level with the shoreline, 4 buried
};

struct BreakwaterPlan {
  std::int32_t left = 0, right = 0;
  float Y = 0.0f, D = 0.0f;
  float KT = 0.0f;
  std::int32_t state = 1;  ///< of all its cells: 1, -1 or -2
};

struct CoastPlan {
  std::int32_t NX = 0;
  float DX = 20.0f;
  std::vector<GroinPlan> groins = {};  ///< ascending
  std::vector<BreakwaterPlan> breakwaters = {};
  std::vector<float> widths = {};  ///< of the cells, where they differ
};

/// Uniform offshore wave; angle in degrees, positive from the left.
struct OffshoreWave {
  float H = 1.0f, T = 7.0f;
  double degrees = 0.0;
  float depth = 20.0f;
};

/// A straight coast at Y = 0 with the structures of the plan: tips in the order of the merged list,
/// zones, wall types, states, side codes. No waves yet.
kelprun::Model structured_coast(const CoastPlan& plan);

/// Undiffracted breaking waves and the waves at the tips.
void send_waves(kelprun::Model& m, const OffshoreWave& wave);

/// The tips of the plan ahead of the zones' layout: groins inside the coast twice, breakwater tips
/// ahead of groins at the same wall, the marks of open ends.
std::vector<kelprun::Tip> merged_tips(const CoastPlan& plan);

/// A coast of some structures at random, groins and breakwaters that stand free, touch, join or are
/// passed by the shoreline, with a winding shoreline, at times an inlet or cells of many widths,
/// and oblique waves.
kelprun::Model random_sea(Random& random);

}  // namespace kelptest
