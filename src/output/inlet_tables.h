#pragma once

#include <vector>

#include "model/model.h"
#include "text/output_file.h"

namespace kelprun {

/// The table of an inlet: volumes of its shoals and bars and the rates between them.
class InletTables {
 public:
  /// Opens a table for each inlet and writes its two head lines.
  void open(const Inlets& inlets);
  /// One row a table: rates a year and volumes in reporting units.
  void write(const Clock& clock, float CONVYD3, const Inlets& inlets);
  /// Cuts off what follows the last line end of each table.
  void keep_whole_records() const;
  void close();

 private:
  std::vector<OutputFile> files_;
};

}  // namespace kelprun
