#pragma once

#include "model/model.h"
#include "text/report.h"

/// The lists of structures in coast order, and the checks that come with building them.
namespace kelprun {

bool has_groin_at(const Groins& groins, std::int32_t wall);
bool has_diffracting_groin_at(const Groins& groins, std::int32_t wall);

/// Limits, place in the grid and units of the two kinds of groins; builds the merged list.
void check_groins(Model& model);

/// Limits, ends and units of the breakwaters; builds their list of tips.
void check_breakwaters(Model& model);

/// Virtual tips: an open end of the coast, where no structure stands.
void insert_left_end(Tips& tips);
void append_right_end(Tips& tips);

/// Merges breakwater tips and diffracting groin tips into one list ascending by cell, refuses
/// those that do not fit together, and counts the diffraction zones.
void merge_tips(Model& model);

/// Refuses a non-diffracting groin on a breakwater's end that reaches that end or beyond.
void check_groins_on_breakwaters(const Groins& groins, const Breakwaters& breakwaters,
                                 Report& report);

}  // namespace kelprun
