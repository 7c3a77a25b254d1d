#include "run/command_line.h"
#include "run/run.h"

int main(int argc, char** argv) {
  kelprun::Run run;
  kelprun::setup(run, kelprun::configuration_argument(argc, argv));
  while (kelprun::step(run)) {
  }
  return kelprun::finish(run);
}
