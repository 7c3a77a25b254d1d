#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "run/run.h"
#include "support/program.h"
#include "text/report.h"
#include "unit/text/stops.h"

/// What tests need that call the program's rooms in their own process: a report that can be read
/// back, and a whole run that can be watched step by step.
namespace kelptest {

/// A report in a folder of its own.
class ReadableReport {
 public:
  ReadableReport() {
    report.set_name((folder_.path() / "run.prt").string());
    report.begin();
  }
  std::vector<std::string> lines() { return kelptest::lines(folder_.read("run.prt")); }

  kelprun::Report report;

 private:
  WorkFolder folder_;
};

/// A run of the basic configuration with changes, set up in this process and stepped by hand, with
/// its console kept silent.
class WatchedRun {
 public:
  WatchedRun(const std::string& configuration, const std::string& waves,
             const std::string& shoreline = "") {
    write_basic_inputs(folder_, 20, 100.0);
    folder_.write("waves.dat", waves);
    if (!shoreline.empty()) folder_.write("shore.dat", shoreline);
    folder_.write("run.cfg", configuration);
    const InFolder inside(folder_.path());
    kelprun::setup(run, "run.cfg");
  }
  kelprun::Model& model() { return run.model; }
  bool step() { return kelprun::step(run); }
  /// Steps to the end and closes; gives the exit status.
  int complete() {
    while (step()) {
    }
    return finish();
  }
  int finish() { return kelprun::finish(run); }
  const WorkFolder& folder() const { return folder_; }

  kelprun::Run run;

 private:
  /// The working directory while the names of the configuration are opened.
  class InFolder {
   public:
    explicit InFolder(const std::filesystem::path& folder)
        : former_(std::filesystem::current_path()) {
      std::filesystem::current_path(folder);
    }
    ~InFolder() { std::filesystem::current_path(former_); }
    InFolder(const InFolder&) = delete;
    InFolder& operator=(const InFolder&) = delete;

   private:
    std::filesystem::path former_;
  };

  WorkFolder folder_;
};

}  // namespace kelptest
