#pragma once

#include <string_view>

#include "model/model.h"
#include "text/report.h"

/// Pieces that the blocks of the report share.
namespace kelprun {

/// The shoreline from the baseline, in the unit of the files.
void report_shoreline(const Model& model, Report& report);

/// Volumes that passed the walls since the last year block, as they stand.
void report_transport(const Model& model, std::string_view title, const PerWall<float>& volumes,
                      Report& report);

/// The volume change of every cell, by cell and by length.
void report_volume_changes(const Model& model, Report& report);

/// @param total volume change of the coast, m3
void report_total_change(const Settings& settings, float total, Report& report);

}  // namespace kelprun
