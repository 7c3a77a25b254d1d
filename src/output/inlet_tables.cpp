#include "output/inlet_tables.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <string>

#include "model/constants.h"
#include "model/table_names.h"
#include "text/column_record.h"
#include "text/stop.h"

namespace kelprun {

namespace {

std::string row(std::int32_t ITS, const std::array<float, 16>& values, std::int32_t date) {
  ColumnRecord line;
  line.integer(8, ITS).blanks(1);
  for (const float value : values) line.real(14, 0, static_cast<double>(value));
  return line.blanks(4).integer(8, date).record();
}

}  // namespace

void InletTables::open(const Inlets& inlets) {
  files_.resize(static_cast<std::size_t>(inlets.NINL));
  for (std::int32_t k = 1; k <= inlets.NINL; ++k) {
    OutputFile& file = files_[static_cast<std::size_t>(k - 1)];
    const std::string file_name = inlet_table_name(inlets, k);
    if (!file.open(file_name))
      run_time_message(file_name + ": cannot be opened: " + std::strerror(errno));
    file.record("Inlet Shoal Volumes for " + inlet_name(inlets, k));
    file.record(
        "      DT        L_Qout         L_Qie      L_Attach         L_Qba      L_Bypass         "
        "L_Qeb           Ebb           Qfe         Flood           Qce         R_Qeb      R_Bypass "
        "        R_Qba      R_Attach         R_Qie        R_Qout       DATE");
  }
}

void InletTables::write(const Clock& clock, float CONVYD3, const Inlets& n) {
  const float Y = SECONDS_PER_YEAR / CONVYD3;
  const float V = 1.0f / CONVYD3;
  for (std::int32_t k = 1; k <= n.NINL; ++k) {
    const InletFlow& f = n.flows(k);
    OutputFile& file = files_[static_cast<std::size_t>(k - 1)];
    file.record(
        row(clock.ITS,
            {f.left.Qout * Y, f.left.Qie * Y, n.VVSAL(k) * V, f.left.Qba * Y, n.VVSBL(k) * V,
             f.left.Qeb * Y, n.VVSE(k) * V, f.Qfe * Y, n.VVSF(k) * V, f.Qce * Y, f.right.Qeb * Y,
             n.VVSBR(k) * V, f.right.Qba * Y, n.VVSAR(k) * V, f.right.Qie * Y, f.right.Qout * Y},
            clock.CURDATE));
  }
}

void InletTables::keep_whole_records() const {
  for (const OutputFile& file : files_) file.keep_whole_records();
}

void InletTables::close() {
  for (OutputFile& file : files_) file.close();
}

}  // namespace kelprun
