// Process-wide settings for every test program, in effect before main() and before the first
// GL context: CTest's per-test environment cannot carry several variables through test discovery.
#include <gtest/gtest.h>

#include <cstdlib>

// Present only in sanitized builds.
extern "C" void __lsan_do_leak_check() __attribute__((weak));

extern "C" const char* __asan_default_options() { return "detect_leaks=1:abort_on_error=0"; }
extern "C" const char* __ubsan_default_options() { return "print_stacktrace=1:halt_on_error=1"; }

namespace {

// The software rasteriser draws on the calling thread and keeps no shader cache (whose writer
// thread is torn down at exit): a thread exiting while the leak checker scans at exit crashes it
// now and then.
struct QuietRasteriser {
  QuietRasteriser() {
    setenv("LP_NUM_THREADS", "0", 0);
    setenv("MESA_SHADER_CACHE_DISABLE", "true", 0);
  }
} const quietRasteriser;

// The leak check runs once all tests are done, before exit. Left to the exit handlers it
// would run after the GL library's own, which end its worker threads: a thread ending
// while the checker stops the world crashes the checker now and then.
class LeakCheckBeforeExit : public ::testing::Environment {
 public:
  void TearDown() override {
    if (__lsan_do_leak_check) __lsan_do_leak_check();
  }
};

::testing::Environment* const leakCheck = ::testing::AddGlobalTestEnvironment(new LeakCheckBeforeExit);

}  // namespace
