// column_matrix.h - matrices of a run that own their storage: stored by columns as in the formulas, and the
// diagonal matrix of uncorrelated data.
#pragma once

#include <algorithm>

#include "numeric/offset_array.h"

namespace sondera {

/// Matrix stored by columns: element (i, j), both from 1, at (j - 1) * ld + i of a vector that counts from 1.
/// Initially zero. The leading dimension is the initial number of rows.
class ColumnMatrix {
 public:
  ColumnMatrix() = default;
  ColumnMatrix(int rows, int cols) : rows_(rows), cols_(cols), data_(1, rows * cols) {}

  double& operator()(int i, int j) { return data_[(j - 1) * rows_ + i]; }
  const double& operator()(int i, int j) const { return data_[(j - 1) * rows_ + i]; }

  int rows() const { return rows_; }
  int cols() const { return cols_; }
  bool empty() const { return data_.empty(); }
  void fill(double value) { std::fill(data_.begin(), data_.end(), value); }

  /// Pointer p with p[1] the element (1, 1), for the kernels; null for an empty matrix.
  double* shifted() { return data_.shifted(); }
  const double* shifted() const { return data_.shifted(); }
  FlatMatrix view() { return {data_.shifted(), rows_}; }
  ConstFlatMatrix view() const { return {data_.shifted(), rows_}; }

 private:
  int rows_ = 0, cols_ = 0;
  OffsetVector<double> data_;
};

/// Square matrix with only its diagonal in use, (i, j) from 1.
class DiagonalMatrix {
 public:
  DiagonalMatrix() = default;
  explicit DiagonalMatrix(int n) : diagonal_(1, n) {}

  double operator()(int i, int j) const { return i == j ? diagonal_[i] : 0.0; }
  double& diag(int i) { return diagonal_[i]; }
  double diag(int i) const { return diagonal_[i]; }
  int size() const { return diagonal_.size(); }

 private:
  OffsetVector<double> diagonal_;
};

}  // namespace sondera
