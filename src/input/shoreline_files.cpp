#include "input/shoreline_files.h"

#include <algorithm>
#include <array>

#include "input/nonsense.h"
#include "text/console.h"
#include "text/fields.h"
#include "text/list_read.h"
#include "text/stop.h"

namespace kelprun {

namespace {

using Item = ListReader::Item;

constexpr std::int32_t HEADER_LINES = 4;
constexpr std::int32_t VALUES_PER_GROUP = 10;

/// What a file is called in its messages.
struct FileWords {
  std::array<std::string_view, 3> lines;
  std::string_view fatal_message;
};

constexpr FileWords SHORELINE_WORDS = {
    {" ERROR FOUND IN \"SHOIN\".", " FILE \"SHORL\" CONTAINS TOO FEW VALUES",
     " PLEASE CHANGE IN DATA FILE(S)"},
    "INITIAL SHORELINE FILE CONTAINS TOO FEW VALUES"};
constexpr FileWords CONTOUR_WORDS = {
    {" ERROR FOUND IN \"SHOIN\".", " FILE \"SHORM\" CONTAINS TOO FEW VALUES",
     " PLEASE CHANGE IN DATA FILE(S)"},
    "REGIONAL CONTOUR FILE CONTAINS TOO FEW VALUES"};
constexpr FileWords WIDTH_WORDS = {
    {" ERROR FOUND IN \"DXIN\".", " FILE \"DXDAT\" CONTAINS TOO FEW VALUES",
     " PLEASE CHANGE IN DATA FILE"},
    "VARIABLE DX FILE CONTAINS TOO FEW VALUES"};

/// The told lines name neither the file nor what it holds: `held` does, in a line of its own.
[[noreturn]] void too_few_values(const InputFile& file, const std::string& held,
                                 const FileWords& words, Report& report) {
  file.explain("the file ends after " + held);
  for (const std::string_view line : words.lines) {
    console_line(line);
    report.line(line);
  }
  console_record("");
  fatal(words.fatal_message);
}

void skip_header_line(InputFile& file, const FileWords& words, Report& report) {
  if (file.next_line()) return;
  const std::string lines = std::to_string(file.line_number());
  too_few_values(file, lines + " of " + std::to_string(HEADER_LINES) + " header lines", words,
                 report);
}

/// One free-format read of up to 10 values from `first` on, not beyond NX; what is left on the
/// last line it touches is lost.
template <class Values>
void read_group(InputFile& file, std::int32_t first, std::int32_t NX, Values& values,
                const FileWords& words, Report& report) {
  const std::int32_t group = (first - 1) / VALUES_PER_GROUP + 1;
  ListReader list(file);
  for (std::int32_t i = first; i <= std::min(first + VALUES_PER_GROUP - 1, NX); ++i) {
    switch (list.read(values(i))) {
      case Item::end_of_file:
        too_few_values(file, std::to_string(i - 1) + " of " + std::to_string(NX) + " values", words,
                       report);
      case Item::bad:
        file.failure(group, shown(list.item_text()) + " is no number");
      case Item::end:
        return;
      case Item::value:
      case Item::null:
        break;
    }
  }
}

void set_coordinates(Grid& grid) {
  grid.XCELL.take(grid.NX);
  grid.XCELL(1) = grid.DX(1) + grid.X0;
  for (std::int32_t i = 2; i <= grid.NX; ++i) grid.XCELL(i) = grid.XCELL(i - 1) + grid.DX(i);
  grid.XCELL(grid.NX + 1) = grid.XCELL(grid.NX) + grid.DX(grid.NX);
}

}  // namespace

void read_cell_widths(const Settings& settings, Grid& grid, Report& report) {
  if (grid.variable) {
    InputFile file;
    if (settings.DXIN.empty())
      run_time_message("DXFILE: DX is -1, but no file of cell widths is named");
    if (!file.open(settings.DXIN))
      run_time_message(settings.DXIN + ": cannot be opened: " + open_failure(settings.DXIN));
    for (std::int32_t n = 1; n <= HEADER_LINES; ++n) skip_header_line(file, WIDTH_WORDS, report);
    for (std::int32_t first = 1; first <= grid.NX; first += VALUES_PER_GROUP)
      read_group(file, first, grid.NX, grid.DX, WIDTH_WORDS, report);
    if (settings.CONV < 0.5f)
      for (float& DX : grid.DX) DX *= settings.CONV;
    grid.DX(grid.NX + 1) = grid.DX(grid.NX);
    refuse_widths(grid);
  }
  set_coordinates(grid);
}

void read_shorelines(const Settings& settings, const Grid& grid, InputFiles& files, Shore& shore,
                     Report& report) {
  const bool contour_given = settings.IREG == 1 || settings.IREG == 3;
  InputFile& initial = files.initial_shoreline;
  InputFile& contour = files.regional_contour;
  if (contour_given && !contour.is_open())
    run_time_message("REGFILE: IREG is " + std::to_string(settings.IREG) +
                     ", but no regional contour file is named");
  for (std::int32_t n = 1; n <= HEADER_LINES; ++n) {
    skip_header_line(initial, SHORELINE_WORDS, report);
    if (contour_given) skip_header_line(contour, CONTOUR_WORDS, report);
  }
  for (std::int32_t first = 1; first <= grid.NX; first += VALUES_PER_GROUP) {
    read_group(initial, first, grid.NX, shore.Y, SHORELINE_WORDS, report);
    if (contour_given) read_group(contour, first, grid.NX, shore.YREG, CONTOUR_WORDS, report);
  }
  if (settings.IREG == 3) {
    shore.YCON = shore.YREG;
    shore.YREG.fill(0.0f);
  }
  // The offshore contour of IREG 3 has left YREG by now and stays in the file's unit.
  if (settings.CONV < 0.5f) {
    for (double& Y : shore.Y) Y *= static_cast<double>(settings.CONV);
    for (float& YREG : shore.YREG) YREG *= settings.CONV;
  }
}

}  // namespace kelprun
