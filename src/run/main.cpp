#include "run/command_line.h"
#include "run/process.h"
#include "run/run.h"

int main(int argc, char** argv) {
  kelprun::prepare_process();
  kelprun::Run run;
  kelprun::setup(run, kelprun::configuration_argument(argc, argv));
  while (kelprun::step(run)) {
  }
  return kelprun::finish(run);
}
