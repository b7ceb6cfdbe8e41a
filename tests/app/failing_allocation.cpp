// failing_allocation.cpp - see failing_allocation.h. Replaces the operators of the whole test program.
#include "app/failing_allocation.h"

#include <cstdlib>
#include <new>

namespace {

thread_local long allocations = 0, failing = 0;

void* Allocate(std::size_t bytes) {
  if (++allocations == failing) throw std::bad_alloc();
  if (void* p = std::malloc(bytes == 0 ? 1 : bytes)) return p;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t bytes) {
  return Allocate(bytes);
}
void* operator new[](std::size_t bytes) {
  return Allocate(bytes);
}
// The library's sorts ask for memory in this way and use less when there is none.
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
  return ++allocations == failing ? nullptr : std::malloc(bytes == 0 ? 1 : bytes);
}
void* operator new[](std::size_t bytes, const std::nothrow_t&) noexcept {
  return ++allocations == failing ? nullptr : std::malloc(bytes == 0 ? 1 : bytes);
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

namespace sondera::test {

void FailAllocation(long n) {
  allocations = 0;
  failing = n;
}

long AllocationsSince() {
  return allocations;
}

}  // namespace sondera::test
