#include "verification/reported_coast.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <memory>
#include <random>

namespace kelptest {

namespace {

constexpr int NX = reported_cells;

std::chrono::sys_days day_of(int date) {
  using namespace std::chrono;
  return sys_days(year(date / 10000) / (date / 100 % 100) / (date % 100));
}

/// A length in the unit of the coast, rounded to a tenth of it.
std::string length(double metres, const Reported& one) {
  return digits(std::round(10.0 * metres / one.unit) / 10.0);
}

/// A volume in the unit of the coast, rounded to a whole one.
std::string volume(double m3, const Reported& one) {
  const double yards = one.unit == 1.0 ? 1.0 : 3.0 * one.unit;
  return digits(std::round(m3 / (yards * yards * yards)));
}

std::vector<std::string> structures(const Reported& one) {
  const auto L = [&](double metres) { return length(metres, one); };
  std::vector<std::string> lines{
      "IXNDG: 6",          "YNDG: " + L(120),   "PNDG: 0.3",        "IXDG: 10",
      "YDG: " + L(150),    "DDG: " + L(2),      "PDG: 0.15",        "ISWBEG: 3",
      "ISWEND: 5",         "SWY1: " + L(100),   "SWY2: " + L(99),   "DBI1: 13",
      "DBI2: 16",          "DBY1: " + L(220),   "DBY2: " + L(230),  "DBDEP1: " + L(3),
      "DBDEP2: " + L(3.2), "DBI1: 26",          "DBI2: 28",         "DBY1: " + L(240),
      "DBY2: " + L(240),   "DBDEP1: " + L(3.4), "DBDEP2: " + L(3.4)};
  const std::vector<std::string> computed{
      "KTMETDB: 3", "HDB: " + L(3.6), "BDB: " + L(6), "SSDB: 2", "SHSDB: 2", "D50DB: " + L(1),
      "KTMETDB: 3", "HDB: " + L(3.0), "BDB: " + L(9), "SSDB: 3", "SHSDB: 2", "D50DB: " + L(0.7)};
  const std::vector<std::string> given{"TRANDB: 0.4", "TRANDB: 0.25"};
  for (const std::string& line : one.computed ? computed : given) lines.push_back(line);
  if (one.computed) lines.push_back("WLFILE: 28 levels.dat");
  return lines;
}

/// Events in the months behind the start.
std::vector<std::string> events(const Reported& one) {
  const auto date = [&](int days) { return std::to_string(date_after(one.start, days)); };
  return {"BFDATS: " + date(40),
          "BFDATE: " + date(100),
          "IBFS: 7",
          "IBFE: 9",
          "YADD: " + length(9, one),
          "BFDATS: " + date(130),
          "BFDATE: " + date(150),
          "IBFS: 17",
          "IBFE: 18",
          "YADD: -" + length(2, one),
          "BPDATS: " + date(20),
          "BPDATE: " + date(300),
          "IBPS: 3",
          "IBPE: 5",
          "QBP: -" + volume(5, one),
          "BPDATS: " + date(20),
          "BPDATE: " + date(300),
          "IBPS: 24",
          "IBPE: 27",
          "QBP: " + volume(5, one)};
}

std::vector<std::string> inlet(const Reported& one) {
  const auto V = [&](double m3) { return volume(m3, one); };
  const auto date = [&](int days) { return std::to_string(date_after(one.start, days)); };
  return {"IINLS: 20",
          "IINLE: 22",
          "INLNAME: Pass",
          "IBYPL1: 18",
          "IBYPL2: 18",
          "IBYPR1: 24",
          "IBYPR2: 24",
          "VVSE: " + V(15000),
          "VVSF: " + V(4000),
          "VVSBL: " + V(600),
          "VVSBR: " + V(400),
          "VVSAL: " + V(300),
          "VVSAR: " + V(200),
          "VVSEQ: " + V(40000),
          "VVSFQ: " + V(10000),
          "VVSBQL: " + V(2000),
          "VVSBQR: " + V(2000),
          "VVSAQL: " + V(1000),
          "VVSAQR: " + V(1000),
          "IMOR: 3",
          "IDREDS: " + date(60),
          "IDREDE: " + date(79),
          "DRDAY: 10",
          "DREDV: " + V(1500),
          "IMOR: 4",
          "IDREDS: " + date(200),
          "IDREDE: " + date(204),
          "DRDAY: 5",
          "DREDV: -" + V(800)};
}

std::vector<std::string> budget() {
  return {"ILEDGV1: 1",  "ILEDGV2: 11", "ILEDGV1: 12", "ILEDGV2: 19", "ILEDGV1: 20",
          "ILEDGV2: 24", "ILEDGV1: 25", "ILEDGV2: 30", "ILEDGV1: 21", "ILEDGV2: 30",
          "ILEDGV1: 22", "ILEDGV2: 30", "ILEDGV1: 1",  "ILEDGV2: 30", "ILEDGQ1: 1",
          "ILEDGQ2: 31", "ILEDGQ1: 20", "ILEDGQ2: 23", "ILEDGQ1: 8",  "ILEDGQ2: 17"};
}

int records_of(const Reported& one) {
  return static_cast<int>(days_between(one.start, one.end) * 24.0 / one.wave_step) + 4;
}

/// Drawn waves, from both sides; one record in ten is a calm, but for the last ones.
std::vector<WaveRecord> drawn_waves(const Reported& one) {
  std::mt19937 numbers(1905);
  const auto between = [&](double low, double high) {
    const double share = static_cast<double>(numbers()) / 4294967296.0;
    return std::round(100.0 * (low + (high - low) * share)) / 100.0;
  };
  const double foot = one.wave_feet ? 0.3048 : 1.0;
  std::vector<WaveRecord> waves;
  const int count = records_of(one);
  for (int k = 0; k < count; ++k) {
    const bool calm = between(0.0, 1.0) < 0.1 && k < count - 12;
    WaveRecord wave;
    wave.H = between(0.2 / foot, one.highest / foot);
    wave.T = between(5.0, 9.0);
    wave.angle = between(-30.0, 35.0);
    if (calm) wave.H = 0.0;
    waves.push_back(wave);
  }
  return waves;
}

std::string wave_file(const Reported& one, const std::vector<WaveRecord>& waves) {
  std::string file;
  int hour = 0;
  int date = one.start;
  for (const WaveRecord& wave : waves) {
    file += std::to_string(date) + " " + std::to_string(100 * hour) + " " + digits(wave.H) + " " +
            digits(wave.T) + " " + digits(wave.angle) + "\n";
    hour += static_cast<int>(one.wave_step);
    date = date_after(date, hour / 24);
    hour %= 24;
  }
  return file;
}

/// Six-hourly levels of a week, from a neap to a spring tide, in the unit of the coast.
std::string levels(const Reported& one) {
  std::string file;
  for (int k = 0; k < 28; ++k)
    file += std::to_string(19970101 + k / 4) + " " + std::to_string(600 * (k % 4)) + " " +
            length((0.3 + 0.02 * k) * (k % 2 == 0 ? 1.0 : -1.0), one) + "\n";
  return file;
}

Coast with_waves(const Reported& one, const std::vector<WaveRecord>& waves) {
  Coast coast = reported_coast(one);
  coast.waves = wave_file(one, waves);
  coast.keywords["WAVEID"] = std::to_string(NX) + " " + length(gauge_depth, one) + " " +
                             std::to_string(waves.size()) + " waves.dat";
  if (one.computed) coast.levels = levels(one);
  return coast;
}

std::vector<double> wide(const kelprun::PerWall<float>& values) {
  return {values.begin(), values.end()};
}

}  // namespace

int days_between(int from, int to) { return static_cast<int>((day_of(to) - day_of(from)).count()); }

int date_after(int date, int days) {
  const std::chrono::year_month_day day(day_of(date) + std::chrono::days(days));
  return 10000 * static_cast<int>(day.year()) +
         static_cast<int>(100 * static_cast<unsigned>(day.month()) +
                          static_cast<unsigned>(day.day()));
}

Coast reported_coast(const Reported& one) {
  Coast coast;
  coast.DX = std::round(100.0 / one.unit);
  coast.DT = one.DT;
  for (int i = 1; i <= NX; ++i)
    coast.shoreline.push_back(std::stod(length(104.0 + 2.0 * std::sin(0.4 * i) + 0.1 * i, one)));
  coast.keywords = {{"DTSAVE", digits(one.DT)},
                    {"SIMDATS", std::to_string(one.start)},
                    {"SIMDATE", std::to_string(one.end)},
                    {"KELUNITS", one.unit == 1.0 ? "(m)" : "(ft)"},
                    {"WAVUNITS", one.wave_feet ? "(ft)" : "(m)"},
                    {"DCLOS", length(7, one) + " " + length(5.5, one)},
                    {"IDCLOSEND", "14 30"},
                    {"BERMHT", length(1, one)},
                    {"K1", digits(one.K1)},
                    {"K2", digits(0.5 * one.K1)},
                    {"THETADEL", "1.5 -2"},
                    {"ITHETADELEND", "12 30"},
                    {"ISMOOTH", "5"},
                    {"PRWARN", "F"}};
  for (const auto& lines : {structures(one), events(one), inlet(one), budget()})
    coast.more_lines.insert(coast.more_lines.end(), lines.begin(), lines.end());
  for (const int date : one.PRDATE) coast.more_lines.push_back("PRDATE: " + std::to_string(date));
  return coast;
}

void Sums::add(const Row& rate, double hours) {
  constexpr double hours_a_year = 365.25 * 24.0;
  for (std::size_t w = 0; w < rate.size(); ++w) {
    const double V = rate[w] * hours / hours_a_year;
    net[w] += V;
    left[w] += std::min(V, 0.0);
    right[w] += std::max(V, 0.0);
    gross[w] += std::abs(V);
  }
  ++steps;
}

double Sums::largest_gross() const { return *std::max_element(gross.begin(), gross.end()); }

ReportedRun::ReportedRun(const Reported& which)
    : one(which), waves_(drawn_waves(one)), run_(with_waves(one, waves_)) {
  shoals_at_start = sand_in_shoals(model());
  for (bool more = true; more;) {
    more = run_.step();
    take_record();
  }
  report = PrintedReport(run_.finish());
  for (const char* suffix : {"slo", "qtr", "off", "mqn", "mqr", "mql", "vcc", "vcx"}) {
    const std::string name = suffix;
    const bool transport = name == "qtr" || name[0] == 'm';
    tables[name] = read_table(run_.folder().read("run." + name), transport ? 16 : 14);
  }
  find_blocks();
}

void ReportedRun::take_record() {
  const kelprun::Model& m = model();
  StepRecord now;
  now.CURDATE = m.clock.CURDATE;
  now.NEXTDATE = m.clock.NEXTDATE;
  now.HB = wide(m.waves.HB);
  now.ZB = wide(m.waves.ZB);
  now.HRF = wide(m.waves.HRF);
  now.ZRFPRTOUT = wide(m.waves.ZRFPRTOUT);
  now.HBU = wide(m.waves.HBU);
  now.ZBU = wide(m.waves.ZBU);
  now.ALPHA = wide(m.shore.ALPHA);
  now.CGBU = wide(m.waves.CGBU);
  for (const float KT : m.zones.KTZ)
    if (KT != kelprun::OPEN_WATER && KT != kelprun::NO_EXTENT)
      now.KT.push_back(static_cast<double>(KT));
  records.push_back(now);
  records.back().calm = wave(steps()).H == 0.0;
}

/// A step ends at its number times its length; a print date is due in the first step of its day,
/// and only once those ahead of it in the list have come.
void ReportedRun::find_blocks() {
  std::size_t due = 0;
  for (int n = 1; n <= steps(); ++n) {
    const int date = date_after(one.start, static_cast<int>(n * one.DT / 24.0));
    if (due < one.PRDATE.size() && n != steps() &&
        (one.PRDATE[due] == date || one.PRDATE[due] == n)) {
      print_steps.push_back(n);
      ++due;
    }
    const bool anniversary = date % 10000 == one.start % 10000 && date != one.start;
    if (anniversary || n == steps()) year_steps.push_back(n);
  }
}

const Row& ReportedRun::row(const std::string& table, int step) const {
  return tables.at(table).rows.at(static_cast<std::size_t>(step));
}

const WaveRecord& ReportedRun::wave(int step) const {
  return waves_.at(static_cast<std::size_t>((step - 1) * one.DT / one.wave_step));
}

Sums ReportedRun::sums(int first, int last) const {
  Sums sums;
  for (int n = first; n <= last; ++n)
    if (!record(n).calm) sums.add(row("qtr", n), one.DT);
  return sums;
}

double ReportedRun::U() const {
  const double yard = feet() ? 3.0 * one.unit : 1.0;
  return yard * yard * yard;
}

double sand_in_shoals(const kelprun::Model& model) {
  const kelprun::Inlets& n = model.inlets;
  double sum = 0.0;
  for (const auto* V : {&n.VVSE, &n.VVSF, &n.VVSBL, &n.VVSBR, &n.VVSAL, &n.VVSAR})
    sum += static_cast<double>((*V)(1));
  return sum;
}

const ReportedRun& reported_run(const Reported& one) {
  static std::map<std::string, std::unique_ptr<ReportedRun>> runs;
  auto& run = runs[one.name];
  if (!run) run = std::make_unique<ReportedRun>(one);
  return *run;
}

}  // namespace kelptest
