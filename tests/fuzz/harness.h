#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

/// What the fuzz targets share: a small coast that has everything, and runs of it in this process
/// that may end in any way but a crash.
namespace kelptest {

using Files = std::map<std::string, std::string>;

/// The files of a coast of 20 cells with every kind of structure, event and series.
const Files& small_coast();

/// Reads and checks the configuration; the other files are those of the small coast.
void check_configuration(std::string_view configuration);

/// Runs the small coast with one file replaced, and no more than some steps.
void run_with(const std::string& name, std::string_view text);

/// Runs these files, and no more than some steps.
void run_files(const Files& files);

inline std::string_view as_text(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

}  // namespace kelptest
