// lu.h - dense linear systems by LU decomposition.
//
// Used for the Hessian of the inversion (FS_InvMatrix) and the polynomial fit. All matrices are flat: element
// (i, j), both from 1, is a[(j - 1) * n + i] of a vector that counts from 1.
// Kept: nothing here reports failure. A singular matrix gives huge, infinite or NaN results, and the callers
// check the results.
// Source: Crout's method with implicit pivoting, e.g. Golub and Van Loan, Matrix Computations, ch. 3.
#pragma once

namespace sondera {

/// LU decomposition of a row-permuted a, in place: U with its diagonal on and above the diagonal, L (unit
/// diagonal) below it.
/// @param[in,out] a     n x n, leading dimension n
/// @param[in]     n     order, at least 1
/// @param[out]    indx  1..n: row that was swapped with row j at step j
/// @param[out]    d     +1 or -1, the parity of the swaps
/// A row of zeros prints "Singular matrix in routine LUDCMP\n" to standard output, once for each, and the
/// calculation continues with an infinite scale. A pivot of exactly 0 becomes 1e-20.
void ludcmp(double* a, int n, int* indx, double* d);

/// Solves A x = b with the factors and swaps of ludcmp.
/// @param[in]     a, n, indx  as ludcmp left them
/// @param[in,out] b           right-hand side, then solution. Kept: points to the first element, b[0]..b[n-1]
void lubksb(const double* a, int n, const int* indx, double* b);

/// y = inverse of a, column by column.
/// @param[in,out] a  n x n, leading dimension n; holds its LU factors afterwards
/// @param[out]    y  n x n, leading dimension n; must not overlap a
/// Singular matrices are not detected, see ludcmp.
void FS_InvMatrix(double* a, int n, double* y);

}  // namespace sondera
