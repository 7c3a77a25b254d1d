#include "verification/structured_coast.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace kelptest {

namespace {

std::string line(const std::string& keyword, double value) {
  return keyword + ": " + digits(value);
}

std::string line(const std::string& keyword, int value) {
  return keyword + ": " + std::to_string(value);
}

}  // namespace

std::vector<std::string> lines_of(const Structures& structures) {
  std::vector<std::string> text;
  for (const Groin& g : structures.groins) {
    const std::string kind = g.diffracting ? "DG" : "NDG";
    text.push_back(line("IX" + kind, g.wall));
    text.push_back(line("Y" + kind, g.tip));
    if (g.diffracting) text.push_back(line("DDG", g.depth));
    text.push_back(line("P" + kind, g.permeability));
  }
  for (const Breakwater& b : structures.breakwaters)
    text.insert(text.end(), {line("DBI1", b.first), line("DBI2", b.last), line("DBY1", b.Y1),
                             line("DBY2", b.Y2), line("DBDEP1", b.depth1), line("DBDEP2", b.depth2),
                             line("TRANDB", b.KT)});
  return text;
}

Structures mirrored(const Structures& structures, int NX) {
  Structures other = structures;
  std::reverse(other.groins.begin(), other.groins.end());
  std::reverse(other.breakwaters.begin(), other.breakwaters.end());
  for (Groin& g : other.groins) g.wall = NX + 2 - g.wall;
  for (Breakwater& b : other.breakwaters) {
    std::swap(b.Y1, b.Y2);
    std::swap(b.depth1, b.depth2);
    const int first = NX + 2 - b.last;
    b.last = NX + 2 - b.first;
    b.first = first;
  }
  return other;
}

void close_both_ends(Coast& coast, Structures& structures) {
  constexpr double length = 1000.0;
  const auto ends = std::minmax_element(coast.shoreline.begin(), coast.shoreline.end());
  structures.groins.insert(structures.groins.begin(), {1, *ends.second + length});
  structures.groins.push_back({coast.NX() + 1, *ends.second + length});
  coast.keywords.insert({{"LBCTYPE", "1"},
                         {"RBCTYPE", "1"},
                         {"LGROINY", digits(length)},
                         {"RGROINY", digits(length)}});
}

double gained_sand(const CoastRun& run, int first, int last) {
  double sum = 0.0;
  for (int c = first; c <= last; ++c)
    sum += (run.Y(c) - run.model().shore.YSTART(c)) * static_cast<double>(run.model().grid.DX(c)) *
           profile_height;
  return sum;
}

Curve::Curve(std::string name, const std::string& columns)
    : name_(std::move(name)), text_(columns + "\n") {}

Curve::~Curve() {
  const char* folder = std::getenv("KELPRUN_CURVES");
  if (folder == nullptr) return;
  std::ofstream(std::filesystem::path(folder) / (name_ + ".csv")) << text_;
}

void Curve::row(const std::vector<double>& values) {
  for (std::size_t k = 0; k < values.size(); ++k) text_ += (k > 0 ? "," : "") + digits(values[k]);
  text_ += "\n";
}

}  // namespace kelptest
