#include "output/tables.h"

#include <cerrno>
#include <cstring>

#include "model/table_names.h"
#include "text/columns.h"
#include "text/stop.h"

namespace kelprun {

namespace {

constexpr std::array<std::string_view, 8> TITLES = {
    "Shoreline Position Output",
    "Net Transport Rate",
    "Calculated Offshore Contour",
    "Mean Annual Net Transport Rate",
    "Mean Annual Transport Rate to the Right",
    "Mean Annual Transport Rate to the Left",
    "Volume Change Per Cell",
    "Volume Change Per Linear Distance Unit Alongshore"};

constexpr int DATE_WIDTH = 8;

}  // namespace

void Tables::open(const std::string& STEM, std::int32_t NX) {
  NX_ = NX;
  row_.reserve(static_cast<std::size_t>(DATE_WIDTH + (NX + 1) * TRANSPORT.width));
  for (std::size_t table = 0; table < files_.size(); ++table) {
    const std::string name = STEM + std::string(TABLE_SUFFIXES[table]);
    if (!files_[table].open(name))
      run_time_message(name + ": cannot be opened: " + std::strerror(errno));
    files_[table].record(TITLES[table]);
  }
}

template <class Value>
void Tables::write_row(Table table, Form form, std::int32_t date, std::int32_t count, Value value) {
  row_.resize(static_cast<std::size_t>(DATE_WIDTH + count * form.width));
  put_integer(row_.data(), DATE_WIDTH, date);
  char* field = row_.data() + DATE_WIDTH;
  for (std::int32_t i = 1; i <= count; ++i, field += form.width)
    put_fixed(field, form.width, form.decimals, value(i));
  files_[table].record(row_);
}

void Tables::write_state(const Model& m) {
  const Settings& s = m.settings;
  const Shore& shore = m.shore;
  const std::int32_t date = m.clock.NEXTDATE;
  write_row(SLO, POSITION, date, NX_, [&](std::int32_t i) {
    return (static_cast<double>(shore.YREG(i)) + shore.Y(i)) / static_cast<double>(s.CONV);
  });
  write_row(QTR, TRANSPORT, date, NX_ + 1,
            [&](std::int32_t i) { return static_cast<double>(m.ledgers.QANNUAL(i)); });
  write_row(OFF, POSITION, date, NX_, [&](std::int32_t i) {
    return static_cast<double>((shore.YCON(i) + shore.YREG(i)) / s.CONV);
  });
  write_row(VCC, POSITION, date, NX_,
            [&](std::int32_t i) { return static_cast<double>(m.ledgers.VOLCELL(i) / s.CONVYD3); });
  write_row(VCX, POSITION, date, NX_, [&](std::int32_t i) {
    return static_cast<double>(m.ledgers.VOLLEN(i) * s.CONV / s.CONVYD3);
  });
}

void Tables::write_year_sums(const Ledgers& l, std::int32_t date, float factor) {
  const auto row = [&](Table table, const PerWall<float>& sums) {
    write_row(table, TRANSPORT, date, NX_ + 1,
              [&](std::int32_t i) { return static_cast<double>(sums(i) * factor); });
  };
  row(MQN, l.QNETYR);
  row(MQL, l.QLEFTYR);
  row(MQR, l.QRIGHTYR);
}

void Tables::write_means(const Ledgers& l, std::int32_t date) {
  const auto row = [&](Table table, const PerWall<double>& means) {
    write_row(table, TRANSPORT, date, NX_ + 1, [&](std::int32_t i) { return means(i); });
  };
  row(MQN, l.QNETMEAN);
  row(MQL, l.QLEFTMEAN);
  row(MQR, l.QRIGHTMEAN);
}

void Tables::keep_whole_records() const {
  for (const OutputFile& file : files_) file.keep_whole_records();
}

void Tables::close() {
  for (OutputFile& file : files_)
    if (file.is_open()) file.close();
}

}  // namespace kelprun
