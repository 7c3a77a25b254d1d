#pragma once

#include <array>
#include <string>

#include "model/model.h"
#include "text/output_file.h"

namespace kelprun {

/// The result tables: plain text, a title line, then one row a record, the date in 8 columns and a
/// value a cell or wall. Every row has gone to its file when its routine returns. A table that
/// cannot be opened or written ends the run with a run-time message.
class Tables {
 public:
  /// Opens all tables in their order, emptied, with their titles.
  void open(const std::string& STEM, std::int32_t NX);

  /// One row each to slo, qtr, off, vcc and vcx: the state as it stands, under NEXTDATE.
  void write_state(const Model& model);

  /// One row each to mqn, mql and mqr: the sums of the year times `factor`.
  void write_year_sums(const Ledgers& ledgers, std::int32_t date, float factor);

  /// One row each to mqn, mql and mqr: the mean annual rates.
  void write_means(const Ledgers& ledgers, std::int32_t date);

  /// Cuts off what follows the last line end of each table.
  void keep_whole_records() const;
  void close();

 private:
  enum Table { SLO, QTR, OFF, MQN, MQR, MQL, VCC, VCX };

  /// Columns of a value: positions and volume changes, or transports.
  struct Form {
    int width;
    int decimals;
  };
  static constexpr Form POSITION{14, 2};
  static constexpr Form TRANSPORT{16, 0};

  template <class Value>
  void write_row(Table table, Form form, std::int32_t date, std::int32_t count, Value value);

  std::array<OutputFile, 8> files_;
  std::string row_;
  std::int32_t NX_ = 0;
};

}  // namespace kelprun
