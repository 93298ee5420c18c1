#include "AllocCounter.h"

#include <atomic>
#include <cstdlib>
#include <new>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define APPMANAGER_COUNTING 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
#define APPMANAGER_COUNTING 0
#endif
#endif
#ifndef APPMANAGER_COUNTING
#define APPMANAGER_COUNTING 1
#endif

namespace {

std::atomic<uint64_t> s_Count{0};
thread_local bool t_bCounted = false;
thread_local bool t_bPaused = false;

inline void Note() {
  if (t_bCounted) s_Count.fetch_add(1, std::memory_order_relaxed);
}

}  // namespace

namespace appmanager {
namespace AllocCounter {

bool IsAvailable() {
  return APPMANAGER_COUNTING != 0;
}
void CountThisThread() {
  t_bCounted = true;
}
void PauseThisThread() {
  t_bPaused = t_bCounted;
  t_bCounted = false;
}
void ResumeThisThread() {
  t_bCounted = t_bPaused;
  t_bPaused = false;
}
uint64_t Count() {
  return s_Count.load(std::memory_order_relaxed);
}

}  // namespace AllocCounter
}  // namespace appmanager

#if APPMANAGER_COUNTING

// glibc's own allocator under its internal names; the interposed entry points forward
// to it, so memory from memalign and friends (not interposed) is freed consistently.
extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* ptr, size_t size);
void __libc_free(void* ptr);

void* malloc(size_t size) {
  Note();
  return __libc_malloc(size);
}

void* calloc(size_t count, size_t size) {
  Note();
  return __libc_calloc(count, size);
}

void* realloc(void* ptr, size_t size) {
  Note();
  return __libc_realloc(ptr, size);
}

void free(void* ptr) {
  __libc_free(ptr);
}
}

// operator new reaches malloc above, which counts; these only keep the C++ contract.
void* operator new(size_t size) {
  void* p = malloc(size ? size : 1);
  if (!p) throw std::bad_alloc();
  return p;
}
void* operator new[](size_t size) {
  return operator new(size);
}
void* operator new(size_t size, const std::nothrow_t&) noexcept {
  return malloc(size ? size : 1);
}
void* operator new[](size_t size, const std::nothrow_t&) noexcept {
  return malloc(size ? size : 1);
}
void operator delete(void* p) noexcept {
  free(p);
}
void operator delete[](void* p) noexcept {
  free(p);
}
void operator delete(void* p, size_t) noexcept {
  free(p);
}
void operator delete[](void* p, size_t) noexcept {
  free(p);
}
void operator delete(void* p, const std::nothrow_t&) noexcept {
  free(p);
}
void operator delete[](void* p, const std::nothrow_t&) noexcept {
  free(p);
}

#endif
