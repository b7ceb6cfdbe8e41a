// alloc.h - vectors and matrices by the names of the formulas, the dmMatrix record, and MallocOrDie.
//
// Used by everything that computes. The vectors and matrices own their storage and release it when they leave
// their scope; the free_ functions release it earlier.
#pragma once

#include <cstddef>

#include "numeric/dcomplex.h"
#include "numeric/offset_array.h"

namespace sondera {

// --- Vectors: valid for nl..nh inclusive, every element zero. ---

inline OffsetVector<int> ivector(int nl, int nh) {
  return {nl, nh};
}
inline OffsetVector<double> dvector(int nl, int nh) {
  return {nl, nh};
}
inline OffsetVector<dcomplex> dcvector(int nl, int nh) {
  return {nl, nh};
}

/// Releases v at once; v is empty afterwards. The lower bound is not needed and may be left out.
inline void free_ivector(OffsetVector<int>& v, int /*nl*/ = 0) {
  v = {};
}
inline void free_dvector(OffsetVector<double>& v, int /*nl*/ = 0) {
  v = {};
}
inline void free_dcvector(OffsetVector<dcomplex>& v, int /*nl*/ = 0) {
  v = {};
}

// --- Matrices: rows nrl..nrh, columns ncl..nch. Do not rely on the initial value of an element. ---

inline OffsetMatrix<int> imatrix(int nrl, int nrh, int ncl, int nch) {
  return {nrl, nrh, ncl, nch};
}
inline OffsetMatrix<double> dmatrix(int nrl, int nrh, int ncl, int nch) {
  return {nrl, nrh, ncl, nch};
}
inline OffsetMatrix<dcomplex> dcmatrix(int nrl, int nrh, int ncl, int nch) {
  return {nrl, nrh, ncl, nch};
}

/// Releases m at once; m is empty afterwards. The bounds are not needed and may be left out.
inline void free_imatrix(OffsetMatrix<int>& m, int = 0, int = 0, int = 0, int = 0) {
  m = {};
}
inline void free_dmatrix(OffsetMatrix<double>& m, int = 0, int = 0, int = 0, int = 0) {
  m = {};
}
inline void free_dcmatrix(OffsetMatrix<dcomplex>& m, int = 0, int = 0, int = 0, int = 0) {
  m = {};
}

// --- dmMatrix: a plain row-major record, indexed from 0, passed by value. ---

struct dmMatrix {
  int rows = 0;
  int cols = 0;
  double* data = nullptr;  ///< rows * cols doubles; dmMatrixSetup allocates them, dmMatrixFree frees them
};

/// Stores the sizes and allocates rows * cols zeroed doubles. Earlier contents of m are forgotten, not freed.
/// When there is not enough memory, or a size is negative, data is null.
void dmMatrixSetup(dmMatrix* m, int rows, int cols);

/// Address of element (i, j), both from 0.
inline double* Md(dmMatrix m, int i, int j) {
  return m.data + (static_cast<std::ptrdiff_t>(i) * m.cols + j);
}

/// Frees the data, if any. Kept: the record is passed by value, so the caller's fields do not change and its
/// data pointer is invalid afterwards.
void dmMatrixFree(dmMatrix m);

/// 1 when m has no rows, else 0.
inline int dmMatrixEmpty(dmMatrix m) {
  return m.rows == 0 ? 1 : 0;
}

/// Allocates a block of that many bytes; free it with std::free. Without memory it shows a pop-up and returns
/// null. Kept: in spite of the name the process does not end, so the caller must check the result.
void* MallocOrDie(std::size_t bytes);

}  // namespace sondera
