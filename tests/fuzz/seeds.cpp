#include <filesystem>
#include <fstream>

#include "fuzz/harness.h"

/// Writes the files of the small coast as first inputs: seeds FOLDER gives FOLDER/NAME/small_coast.
int main(int argc, char** argv) {
  if (argc != 2) return 2;
  for (const auto& [name, text] : kelptest::small_coast()) {
    const std::filesystem::path folder =
        std::filesystem::path(argv[1]) / (name == "run.cfg" ? "configuration" : name);
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "small_coast", std::ios::binary) << text;
  }
  return 0;
}
