// Counts the allocations made through operator new on the test's own thread while
// s_Counting is set. Include it in one source file of a test program: it replaces the
// program's global operator new. Sanitizer builds keep their own allocator, which
// cannot be replaced this way; there NOX_COUNTS_ALLOCATIONS is 0 and nothing counts.
#pragma once
#include <atomic>
#include <cstdlib>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#define NOX_COUNTS_ALLOCATIONS 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define NOX_COUNTS_ALLOCATIONS 0
#endif
#endif
#ifndef NOX_COUNTS_ALLOCATIONS
#define NOX_COUNTS_ALLOCATIONS 1
#endif

namespace allocationcount {
// Only the test's own thread counts: the GL driver renders on threads of its own.
inline thread_local bool s_Counting = false;
inline std::atomic<int> s_Allocations{0};
}  // namespace allocationcount

#if NOX_COUNTS_ALLOCATIONS
void* operator new(std::size_t size) {
  if (allocationcount::s_Counting) ++allocationcount::s_Allocations;
  if (void* p = std::malloc(size ? size : 1)) return p;
  throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
  return operator new(size);
}
void operator delete(void* p) noexcept {
  std::free(p);
}
void operator delete[](void* p) noexcept {
  std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
  std::free(p);
}
void operator delete[](void* p, std::size_t) noexcept {
  std::free(p);
}
#endif
