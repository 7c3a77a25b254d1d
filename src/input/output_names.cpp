#include "input/output_names.h"

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "model/table_names.h"
#include "text/standard_error.h"
#include "text/stop.h"

namespace kelprun {

namespace {

/// A name and the file that it leads to.
struct Place {
  std::string name;
  std::filesystem::path path;
};

/// Follows links, also those that lead to no file yet.
std::filesystem::path followed(std::filesystem::path path) {
  constexpr int MOST_LINKS = 40;
  std::error_code ignored;
  for (int k = 1; k <= MOST_LINKS && std::filesystem::is_symlink(path, ignored); ++k)
    path = path.parent_path() / std::filesystem::read_symlink(path, ignored);
  return path;
}

Place place(const std::string& name) {
  std::error_code ignored;
  // A name that leads to no file yet would keep the form in which it is written.
  const std::filesystem::path full = followed(std::filesystem::absolute(name, ignored));
  return {name, std::filesystem::weakly_canonical(full, ignored)};
}

bool same_file(const Place& one, const Place& other) {
  std::error_code ignored;
  return one.path == other.path || std::filesystem::equivalent(one.path, other.path, ignored);
}

std::vector<std::string> input_names(const Model& model, const InputFiles& files) {
  const Settings& settings = model.settings;
  std::vector<std::string> names = {files.configuration, settings.SHOIN,   settings.REGFILE,
                                    settings.DXIN,       settings.BYPFILE, model.series.WTRELFILE};
  names.insert(names.end(), model.series.WAVEFILE.begin(), model.series.WAVEFILE.end());
  names.insert(names.end(), model.series.TCRNTFILE.begin(), model.series.TCRNTFILE.end());
  std::erase(names, "");
  return names;
}

std::vector<Place> outputs_of(const Settings& settings, const Inlets& inlets) {
  std::vector<Place> outputs;
  if (!settings.PRTFILE.empty()) outputs.push_back(place(settings.PRTFILE));
  for (const std::string_view suffix : TABLE_SUFFIXES)
    outputs.push_back(place(settings.STEM + std::string(suffix)));
  for (std::int32_t k = 1; k <= inlets.INLNAME.size(); ++k)
    outputs.push_back(place(inlet_table_name(inlets, k)));
  return outputs;
}

}  // namespace

void refuse_shared_names(const Model& model, const InputFiles& files) {
  const std::vector<Place> outputs = outputs_of(model.settings, model.inlets);
  for (const std::string& name : input_names(model, files)) {
    const Place input = place(name);
    for (const Place& output : outputs)
      if (same_file(input, output))
        run_time_message(output.name + ": this output would overwrite the input file " + name);
  }
  for (std::size_t i = 0; i < outputs.size(); ++i)
    for (std::size_t j = i + 1; j < outputs.size(); ++j)
      if (same_file(outputs[i], outputs[j]))
        run_time_message(outputs[i].name + ": this output and " + outputs[j].name +
                         " are the same file");

  const std::string& STEM = model.settings.STEM;
  if (STEM.substr(STEM.rfind('/') + 1).starts_with('.'))
    warning_line("PRFILE " + model.settings.PRTFILE + " gives result tables named " + STEM +
                 "slo and so on, which are hidden files");
}

}  // namespace kelprun
