// allocation_count.cpp - the counting operator new of the test program, in all its forms.
#include "numeric/allocation_count.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

long allocations = 0;

}  // namespace

namespace sondera::test {

long AllocationCount() {
  return allocations;
}

}  // namespace sondera::test

namespace {

void* Counted(std::size_t bytes) noexcept {
  ++allocations;
  return std::malloc(bytes == 0 ? 1 : bytes);
}

void* CountedOrThrow(std::size_t bytes) {
  if (void* block = Counted(bytes)) return block;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t bytes) {
  return CountedOrThrow(bytes);
}
void* operator new[](std::size_t bytes) {
  return CountedOrThrow(bytes);
}
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
  return Counted(bytes);
}
void* operator new[](std::size_t bytes, const std::nothrow_t&) noexcept {
  return Counted(bytes);
}
void operator delete(void* block) noexcept {
  std::free(block);
}
void operator delete[](void* block) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  std::free(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
  std::free(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept {
  std::free(block);
}
