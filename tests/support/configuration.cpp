#include <array>
#include <sstream>
#include <utility>

#include "support/program.h"

namespace kelptest {

namespace {

using Line = std::pair<const char*, const char*>;

constexpr std::array usual_lines{
    Line{"KELPRUN", ""},
    Line{"TITLE", "test"},
    Line{"INIFILE", "shore.dat"},
    Line{"NUMWAVES", "1"},
    Line{"WAVEID", "20 20.0 0 waves.dat"},
    Line{"PRFILE", "run.prt"},
    Line{"KELUNITS", "(m)"},
    Line{"WAVUNITS", "(m)"},
    Line{"NX", "20"},
    Line{"DX", "100"},
    Line{"SIMDATS", "19970101"},
    Line{"SIMDATE", "10"},
    Line{"DT", "1"},
    Line{"DTSAVE", "1"},
    Line{"K1", "0.4"},
    Line{"K2", "0.2"},
    Line{"IK1END", "20"},
    Line{"IK2END", "20"},
    Line{"HAMP", "1"},
    Line{"IHAMPEND", "20"},
    Line{"THETAAMP", "1"},
    Line{"ITHETAAMPEND", "20"},
    Line{"THETADEL", "0"},
    Line{"ITHETADELEND", "20"},
    Line{"BERMHT", "1"},
    Line{"IBERMHTEND", "20"},
    Line{"DCLOS", "8"},
    Line{"IDCLOSEND", "20"},
    Line{"D50", "0.2"},
    Line{"ISMOOTH", "11"},
    Line{"IREG", "0"},
    Line{"LBCTYPE", "0"},
    Line{"RBCTYPE", "0"},
    Line{"PRWARN", "F"},
    Line{"AZIMUTH", "0"},
    Line{"X0", "0"},
};

std::string config_line(const std::string& keyword, const std::string& value) {
  return value.empty() ? keyword + ":\n" : keyword + ": " + value + "\n";
}

}  // namespace

std::string basic_configuration(const std::map<std::string, std::string>& changes,
                                const std::vector<std::string>& more_lines) {
  std::map<std::string, std::string> unplaced = changes;
  std::string text;
  for (const auto& [keyword, usual] : usual_lines) {
    const auto change = unplaced.extract(keyword);
    if (change.empty()) {
      text += config_line(keyword, usual);
    } else if (!change.mapped().empty()) {
      text += config_line(keyword, change.mapped());
    }
  }
  for (const auto& [keyword, value] : unplaced) {
    if (!value.empty()) text += config_line(keyword, value);
  }
  for (const std::string& line : more_lines) text += line + "\n";
  return text;
}

void write_basic_inputs(WorkFolder& folder, int nx, double y) {
  std::ostringstream shore;
  shore.precision(10);
  for (int header = 1; header <= 4; ++header) shore << "header " << header << "\n";
  for (int i = 1; i <= nx; ++i) shore << y << (i % 10 == 0 || i == nx ? "\n" : " ");
  folder.write("shore.dat", shore.str());
  folder.write("waves.dat", "1.0 8.0 10.0\n");
}

}  // namespace kelptest
