#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <new>

#include "run/run.h"
#include "support/program.h"

namespace {

std::atomic<long> allocations{0};

}  // namespace

// Not inlined: a compiler that saw through both would miss the pair of malloc and free.
[[gnu::noinline]] void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}

// std::stable_sort takes its buffer by this one; all must come from where delete returns it to.
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  ++allocations;
  return std::malloc(size);
}

[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace kelprun {
namespace {

/// A run in a folder of its own; the former working directory comes back at the end.
class InFolder {
 public:
  explicit InFolder(const std::filesystem::path& folder)
      : former_(std::filesystem::current_path()) {
    std::filesystem::current_path(folder);
  }
  InFolder(const InFolder&) = delete;
  InFolder& operator=(const InFolder&) = delete;
  ~InFolder() { std::filesystem::current_path(former_); }

 private:
  std::filesystem::path former_;
};

TEST(step, a_step_without_a_record_due_allocates_nothing) {
  kelptest::WorkFolder folder;
  kelptest::write_basic_inputs(folder, 20, 100.0);
  folder.write("waves.dat",
               "19970101 0 1.0 8.0 10\n19970101 100 1.1 8.1 -9\n19970101 200 0.9 8.0 8\n"
               "19970101 300 0.0 0.0 0\n19970101 400 1.2 8.5 30\n19970101 500 0.7 6.5 3\n");
  folder.write("tide.dat",
               "19970101 0 0.1\n19970101 100 0.2\n19970101 200 0.3\n19970101 300 -0.1\n"
               "19970101 400 0\n19970101 500 0.1\n");
  folder.write("run.cfg", kelptest::basic_configuration(
                              {{"WAVEID", "20 20.0 6 waves.dat"},
                               {"SIMDATE", "6"},
                               {"DTSAVE", "100"},
                               {"TIDEFILE", "20 6 tide.dat"}},
                              {"BFDATS: 1", "BFDATE: 6", "IBFS: 5", "IBFE: 8", "YADD: 10",
                               "BPDATS: 1", "BPDATE: 6", "IBPS: 10", "IBPE: 14", "QBP: 30"}));
  const InFolder inside(folder.path());
  testing::internal::CaptureStdout();
  kelprun::Run run;
  setup(run, "run.cfg");
  ASSERT_TRUE(step(run));  // the first step writes the first rows
  const long before = allocations;
  for (int n = 2; n <= 5; ++n) ASSERT_TRUE(step(run));
  const long after = allocations;
  testing::internal::GetCapturedStdout();
  EXPECT_EQ(after - before, 0);
}

}  // namespace
}  // namespace kelprun
