#include "run/command_line.h"
#include "run/keeper.h"
#include "run/process.h"
#include "run/run.h"

int main(int argc, char** argv) {
  kelprun::prepare_process();
  kelprun::Run run;
  kelprun::setup(run, kelprun::configuration_argument(argc, argv));
  kelprun::keep_after_death([&run] { kelprun::keep_whole_records(run); });
  while (kelprun::step(run)) {
  }
  return kelprun::finish(run);
}
