// offset_array.h - vectors and matrices with the index ranges of the formulas.
//
// Almost every vector of the method counts from 1 (layers, points, observations), some from 0. OffsetVector
// and OffsetMatrix own their storage, release it themselves and know their range; the sanitizer build checks
// each access against it. Only this file shifts a pointer.
#pragma once

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

namespace sondera {

/// Memory of a table that is zero without being written: the system gives zero pages at the first access, so large
/// tables that a job never fills cost nothing. Only for vectors that get their size when they are made: an element
/// that is made without a value keeps the zeros of new memory.
template <class T>
struct ZeroPages {
  static_assert(std::is_arithmetic_v<T>, "zero bytes must be the value zero");
  using value_type = T;
  ZeroPages() = default;
  template <class U>
  explicit ZeroPages(const ZeroPages<U>&) {}

  T* allocate(std::size_t n) {
    if (void* memory = std::calloc(n, sizeof(T))) return static_cast<T*>(memory);
    throw std::bad_alloc();
  }
  void deallocate(T* memory, std::size_t) { std::free(memory); }
  void construct(T*) {}
  template <class V>
  void construct(T* at, V&& value) {
    *at = std::forward<V>(value);
  }
  bool operator==(const ZeroPages&) const = default;
};

/// Numbers lie in zero pages; other elements are made one by one.
template <class T>
using ZeroedVector =
    std::conditional_t<std::is_arithmetic_v<T>, std::vector<T, ZeroPages<T>>, std::vector<T>>;

/// Ends the process when an index is outside its range (checked builds only): a wrong index is a programming
/// error.
[[noreturn]] inline void OffsetIndexFault(int i, int lo, int hi) {
  std::fprintf(stderr, "index %d outside %d..%d\n", i, lo, hi);
  std::abort();
}

#ifdef SONDERA_CHECK_BOUNDS
inline void CheckOffsetIndex(int i, int lo, int hi) {
  if (i < lo || i > hi) OffsetIndexFault(i, lo, hi);
}
#else
inline void CheckOffsetIndex(int, int, int) {}
#endif

/// Vector valid for indices lo..hi, initially zero. A range with hi < lo is empty.
template <class T>
class OffsetVector {
 public:
  OffsetVector() = default;
  OffsetVector(int lo, int hi) : lo_(lo), data_(hi >= lo ? static_cast<std::size_t>(hi) - lo + 1 : 0) {}

  T& operator[](int i) {
    CheckOffsetIndex(i, lo_, hi());
    return data_[static_cast<std::size_t>(i - lo_)];
  }
  const T& operator[](int i) const {
    CheckOffsetIndex(i, lo_, hi());
    return data_[static_cast<std::size_t>(i - lo_)];
  }

  int lo() const { return lo_; }
  int hi() const { return lo_ + static_cast<int>(data_.size()) - 1; }
  int size() const { return static_cast<int>(data_.size()); }
  bool empty() const { return data_.empty(); }

  /// Pointer p for the kernels, with the elements p[lo] .. p[hi]. Null for an empty vector.
  T* shifted() { return data_.empty() ? nullptr : data_.data() - lo_; }
  const T* shifted() const { return data_.empty() ? nullptr : data_.data() - lo_; }

  /// First element, for block reads and writes.
  T* data() { return data_.data(); }
  const T* data() const { return data_.data(); }
  typename ZeroedVector<T>::iterator begin() { return data_.begin(); }
  typename ZeroedVector<T>::iterator end() { return data_.end(); }
  typename ZeroedVector<T>::const_iterator begin() const { return data_.begin(); }
  typename ZeroedVector<T>::const_iterator end() const { return data_.end(); }

 private:
  int lo_ = 1;
  ZeroedVector<T> data_;
};

/// Matrix valid for rows rowLo..rowHi and columns colLo..colHi, one contiguous block, row after row,
/// initially zero.
template <class T>
class OffsetMatrix {
 public:
  OffsetMatrix() = default;
  OffsetMatrix(int rowLo, int rowHi, int colLo, int colHi)
      : rowLo_(rowLo),
        rowHi_(rowHi),
        colLo_(colLo),
        colHi_(colHi),
        data_(rowHi >= rowLo && colHi >= colLo ? (static_cast<std::size_t>(rowHi) - rowLo + 1) *
                                                     (static_cast<std::size_t>(colHi) - colLo + 1)
                                               : 0) {}

  T& operator()(int i, int j) { return data_[at(i, j)]; }
  const T& operator()(int i, int j) const { return data_[at(i, j)]; }

  int rowLo() const { return rowLo_; }
  int rowHi() const { return rowHi_; }
  int colLo() const { return colLo_; }
  int colHi() const { return colHi_; }
  bool empty() const { return data_.empty(); }
  T* data() { return data_.data(); }
  const T* data() const { return data_.data(); }
  void fill(const T& value) { data_.assign(data_.size(), value); }

 private:
  std::size_t at(int i, int j) const {
    CheckOffsetIndex(i, rowLo_, rowHi_);
    CheckOffsetIndex(j, colLo_, colHi_);
    return static_cast<std::size_t>(i - rowLo_) * static_cast<std::size_t>(colHi_ - colLo_ + 1) +
           static_cast<std::size_t>(j - colLo_);
  }
  int rowLo_ = 1, rowHi_ = 0, colLo_ = 1, colHi_ = 0;
  ZeroedVector<T> data_;
};

/// View of a matrix stored by columns in a vector that counts from 1: element (i, j), both from 1, is
/// data[(j - 1) * ld + i]. Owns nothing.
template <class T>
struct BasicFlatMatrix {
  T* data;  ///< shifted pointer: data[1] is element (1, 1)
  int ld;   ///< leading dimension, at least the number of rows

  T& operator()(int i, int j) const { return data[static_cast<std::ptrdiff_t>(j - 1) * ld + i]; }

  /// Pointer c with c[i] = element (i, j), for loops that run down a column.
  T* column(int j) const { return data + static_cast<std::ptrdiff_t>(j - 1) * ld; }
};

using FlatMatrix = BasicFlatMatrix<double>;
using ConstFlatMatrix = BasicFlatMatrix<const double>;

}  // namespace sondera
