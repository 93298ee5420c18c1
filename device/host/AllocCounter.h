// Counts heap allocations made on the thread that drives the app, for --stats. The
// executable replaces the global operator new and interposes malloc, calloc and realloc;
// it is linked with -rdynamic, so App.so and libostra.so resolve them here too and the
// count covers the game, the platform and the host alike (the host pauses it around its
// own calls into the GL driver and the window system). Sanitizer builds keep their
// own allocator: there the counter is not available and --stats says so.
#pragma once
#include <cstdint>

namespace appmanager {
namespace AllocCounter {

bool IsAvailable();
// From now on, allocations made on the calling thread are counted.
void CountThisThread();
// Stops and restarts counting on this thread (only if it was counted), for host steps
// that are the GL driver's own business, such as finishing the frame's rendering.
void PauseThisThread();
void ResumeThisThread();
uint64_t Count();

}  // namespace AllocCounter
}  // namespace appmanager
