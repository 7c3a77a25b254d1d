#include <gtest/gtest.h>

#include <new>

#include "run/process.h"

namespace kelprun {
namespace {

TEST(memory, that_the_system_does_not_give_ends_the_run_with_a_line) {
  const auto ask_in_vain = [] {
    prepare_process();
    std::get_new_handler()();
  };
  EXPECT_EXIT(ask_in_vain(), testing::ExitedWithCode(1),
              "kelprun: the memory of the system does not suffice for this run");
}

}  // namespace
}  // namespace kelprun
