// lu.cpp - LU decomposition, its solver, and the matrix inverse. Owns no state.
//
// Each element goes through the subtractions of Crout's formulas in their order, k = 1, 2, ...; only the
// loops are exchanged, so that they run down the columns as the matrices are stored.
#include "numeric/lu.h"

#include <cmath>
#include <cstdio>
#include <utility>

#include "numeric/offset_array.h"
#include "numeric/scratch.h"

namespace sondera {

namespace {

// Replaces a pivot of exactly 0: small enough to show up as a huge result, large enough to divide by.
constexpr double kTinyPivot = 1.0e-20;

/// scale[i] = 1 / (largest magnitude in row i), infinite for a row of zeros.
void RowScales(ConstFlatMatrix A, int n, Scratch<double>& scale) {
  for (int i = 1; i <= n; ++i) scale[i] = 0.0;
  for (int j = 1; j <= n; ++j) {
    const double* column = A.column(j);
    for (int i = 1; i <= n; ++i) {
      if (std::fabs(column[i]) > scale[i]) scale[i] = std::fabs(column[i]);
    }
  }
  for (int i = 1; i <= n; ++i) {
    if (scale[i] == 0.0) std::fputs("Singular matrix in routine LUDCMP\n", stdout);
    scale[i] = 1.0 / scale[i];
  }
}

/// Row of the pivot of column j, from row j on: the greatest scaled magnitude.
int PivotRow(const double* column, int j, int n, Scratch<double>& scale) {
  int pivotRow = j;  // default: all scaled magnitudes are NaN
  double greatest = 0.0;
  for (int i = j; i <= n; ++i) {
    const double scaled = scale[i] * std::fabs(column[i]);
    // Kept: the later of two equal rows wins; stored results depend on this order of elimination.
    if (scaled >= greatest) {
      greatest = scaled;
      pivotRow = i;
    }
  }
  return pivotRow;
}

}  // namespace

void ludcmp(double* a, int n, int* indx, double* d) {
  const FlatMatrix A{a, n};
  Scratch<double> scale(n);
  *d = 1.0;

  // 1. Scales for implicit pivoting.
  RowScales({a, n}, n, scale);

  for (int j = 1; j <= n; ++j) {
    double* column = A.column(j);

    // 2. Subtract the contributions of the columns before from column j.
    for (int k = 1; k < j; ++k) {
      const double* lower = A.column(k);
      const double upper = column[k];  // final: element (k, j) of U
      for (int i = k + 1; i <= n; ++i) column[i] -= lower[i] * upper;
    }

    // 3. Swap the pivot row into place.
    const int pivotRow = PivotRow(column, j, n, scale);
    if (pivotRow != j) {
      for (int k = 1; k <= n; ++k) std::swap(A(pivotRow, k), A(j, k));
      *d = -*d;
      scale[pivotRow] = scale[j];
    }
    indx[j] = pivotRow;

    // 4. Divide the rest of the column by the pivot.
    if (column[j] == 0.0) column[j] = kTinyPivot;
    const double reciprocal = 1.0 / column[j];
    for (int i = j + 1; i <= n; ++i) column[i] *= reciprocal;
  }
}

void lubksb(const double* a, int n, const int* indx, double* b) {
  const ConstFlatMatrix A{a, n};
  const auto x = [b](int i) -> double& { return b[i - 1]; };  // the right-hand side, counted from 1

  // 1. The row swaps of the decomposition.
  for (int i = 1; i <= n; ++i) std::swap(x(i), x(indx[i]));

  // 2. Forward substitution from the first element that is not 0: columns of the inverse begin with many
  //    zeros, and a zero times an infinite factor must not count.
  int first = 1;
  while (first <= n && x(first) == 0.0) ++first;
  for (int j = first; j < n; ++j) {
    const double* lower = A.column(j);
    const double known = x(j);
    for (int i = j + 1; i <= n; ++i) x(i) -= lower[i] * known;
  }

  // 3. Back substitution.
  for (int j = n; j >= 1; --j) {
    const double* upper = A.column(j);
    x(j) /= upper[j];
    const double known = x(j);
    for (int i = 1; i < j; ++i) x(i) -= upper[i] * known;
  }
}

void FS_InvMatrix(double* a, int n, double* y) {
  const FlatMatrix Y{y, n};
  Scratch<int> indx(n);
  double parity;
  ludcmp(a, n, indx.pointer(), &parity);
  for (int j = 1; j <= n; ++j) {
    double* column = Y.column(j);
    for (int i = 1; i <= n; ++i) column[i] = 0.0;
    column[j] = 1.0;
    lubksb(a, n, indx.pointer(), &column[1]);
  }
}

}  // namespace sondera
