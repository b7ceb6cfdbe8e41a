// scratch.h - the work array of one kernel call: on the stack while it is small, else on the heap.
//
// The kernels are called once for each output cell or matrix column, mostly with few elements, so the usual
// call allocates nothing. One block, allocated at entry and released at exit.
#pragma once

#include <array>
#include <cstddef>
#include <memory>

#include "numeric/offset_array.h"

namespace sondera {

/// Elements 1..n, not initialised. N is the largest n that stays on the stack.
template <class T, int N = 64>
class Scratch {
 public:
  explicit Scratch(int n) : n_(n) {
    if (n > N) heap_ = std::make_unique_for_overwrite<T[]>(static_cast<std::size_t>(n) + 1);
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  T& operator[](int i) {
    CheckOffsetIndex(i, 1, n_);
    return pointer()[i];
  }
  const T& operator[](int i) const {
    CheckOffsetIndex(i, 1, n_);
    return heap_ ? heap_[static_cast<std::size_t>(i)] : stack_[static_cast<std::size_t>(i)];
  }

  /// Pointer p with p[1] .. p[n] the elements; element 0 exists but is not used.
  T* pointer() { return heap_ ? heap_.get() : stack_.data(); }

 private:
  int n_;
  std::array<T, N + 1> stack_;
  std::unique_ptr<T[]> heap_;
};

}  // namespace sondera
