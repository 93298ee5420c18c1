// Process-wide settings for every test program, in effect before main() and before the first
// GL context: CTest's per-test environment cannot carry several variables through test discovery.
#include <cstdlib>

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

}  // namespace
