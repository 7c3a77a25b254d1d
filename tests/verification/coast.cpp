#include "verification/coast.h"

#include <cstdio>
#include <filesystem>
#include <iomanip>
#include <random>
#include <sstream>
#include <stdexcept>

#include "text/stop.h"

namespace kelptest {

namespace {

[[noreturn]] void throw_stop(int status) {
  throw std::runtime_error("the run stopped with status " + std::to_string(status));
}

/// Four header lines and ten values a line.
std::string cell_file(const std::vector<double>& values) {
  std::ostringstream file;
  file.precision(17);
  for (int header = 1; header <= 4; ++header) file << "header " << header << "\n";
  for (std::size_t i = 0; i < values.size(); ++i)
    file << values[i] << (i % 10 == 9 || i + 1 == values.size() ? "\n" : " ");
  return file.str();
}

std::string configuration(const Coast& coast) {
  const std::string NX = std::to_string(coast.NX());
  std::map<std::string, std::string> keywords{
      {"NX", NX},
      {"DX", digits(coast.DX)},
      {"DT", digits(coast.DT)},
      {"DTSAVE", digits(coast.DT * coast.steps)},
      {"SIMDATE", std::to_string(coast.steps)},
      {"WAVEID", NX + " " + digits(gauge_depth) + " 0 waves.dat"},
      {"K1", digits(K1_of_the_coast)},
      {"K2", "1e-6"},
      {"DCLOS", "7"},
      {"BERMHT", "1"},
      {"D50", digits(D50_of_the_coast)},
      {"ISMOOTH", "1"},
  };
  for (const char* end :
       {"IK1END", "IK2END", "IHAMPEND", "ITHETAAMPEND", "ITHETADELEND", "IBERMHTEND", "IDCLOSEND"})
    keywords[end] = NX;
  if (!coast.contour.empty()) {
    keywords["IREG"] = "3";
    keywords["REGFILE"] = "contour.dat";
  }
  for (const auto& [keyword, value] : coast.keywords) keywords[keyword] = value;
  return basic_configuration(keywords, coast.more_lines);
}

}  // namespace

std::string digits(double value) {
  std::ostringstream text;
  text.precision(17);
  text << value;
  return text.str();
}

std::string steady_wave(double H, double T, double degrees) {
  return digits(H) + " " + digits(T) + " " + digits(degrees) + "\n";
}

std::string changing_waves(unsigned seed, int days, double highest) {
  std::mt19937 numbers(seed);
  // The standard's distributions differ between libraries.
  const auto between = [&](double low, double high) {
    return low + (high - low) * static_cast<double>(numbers()) / 4294967296.0;
  };
  std::ostringstream file;
  file << std::fixed << std::setprecision(2);
  const int days_of_month[] = {31, 28, 31, 30};
  int month = 1;
  int day = 1;
  for (int d = 0; d < days; ++d) {
    for (int hour = 0; hour < 24; hour += 24 / wave_records_a_day) {
      const bool calm = between(0.0, 1.0) < 0.1;
      // The order of evaluation of a chain of output is that of its writing.
      file << 19970000 + month * 100 + day << " " << hour * 100 << " "
           << (calm ? 0.0 : between(0.2, highest)) << " " << between(5.0, 10.0) << " "
           << between(-40.0, 40.0) << "\n";
    }
    if (++day > days_of_month[month - 1]) {
      ++month;
      day = 1;
    }
  }
  return file.str();
}

void measured(const std::string& what, double value) {
  std::printf("measured: %s = %.3g\n", what.c_str(), value);
}

void write_coast(const WorkFolder& folder, const Coast& coast) {
  folder.write("run.cfg", configuration(coast));
  folder.write("shore.dat", cell_file(coast.shoreline));
  folder.write("waves.dat", coast.waves);
  if (!coast.tide.empty()) folder.write("tide.dat", coast.tide);
  if (!coast.levels.empty()) folder.write("levels.dat", coast.levels);
  if (!coast.contour.empty()) folder.write("contour.dat", cell_file(coast.contour));
}

CoastRun::CoastRun(const Coast& coast) {
  write_coast(folder_, coast);
  kelprun::set_stop_handler(throw_stop);
  // The names in a configuration hold from the folder in which the program is started.
  const std::filesystem::path home = std::filesystem::current_path();
  std::filesystem::current_path(folder_.path());
  kelprun::setup(run_, "run.cfg");
  std::filesystem::current_path(home);
}

void CoastRun::to_the_end() {
  while (step()) {
  }
}

std::string CoastRun::finish() {
  kelprun::finish(run_);
  return folder_.read("run.prt");
}

std::vector<double> CoastRun::shoreline() const {
  std::vector<double> values;
  for (int i = 1; i <= model().grid.NX; ++i) values.push_back(Y(i));
  return values;
}

}  // namespace kelptest
