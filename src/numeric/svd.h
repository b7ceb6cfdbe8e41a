// svd.h - singular value decomposition A = U diag(w) V^T, and functions that use it.
//
// svdcmp serves the least-squares fits, FS_svdcmp the reports of the inversion. All matrices are flat:
// element (i, j), both from 1, is a[(j - 1) * ld + i] of a vector that counts from 1. The singular values are
// not sorted.
//
// Kept: the two decompositions differ in argument order, in the leading dimension of v, in the root of a sum
// of squares (zero test or none), and in their messages when a value does not converge.
//
// Source: Golub and Reinsch, Singular value decomposition and least squares solutions, Numer. Math. 14, 1970.
#pragma once

namespace sondera {

/// sqrt(a^2 + b^2) without overflow on the way. Kept: no test for zero, so that PYTHAG(0, 0) is NaN.
double PYTHAG(double a, double b);

/// Decomposes a.
/// @param[in,out] a  m x n, leading dimension m; U afterwards, with orthonormal columns
/// @param[in]     m  rows, at least 1. m < n works too: then n - m of the values and of the columns of U are
///                   0
/// @param[in]     n  columns, at least 1
/// @param[out]    w  singular values, 1..n, all >= 0
/// @param[out]    v  n x n, leading dimension n; V, not its transpose
/// Kept: every value gets at most 30 sweeps, without a message at the end. A value that has not converged
/// stays (possibly negative), and the next value follows.
void svdcmp(double* a, int m, int n, double* w, double* v);

/// The same decomposition with other edge cases.
/// @param[in]     m, n  rows and columns. m < n prints "SVDCMP: You must augment A with extra zero rows" to
///                      standard output and ends the process with exit status 1
/// @param[in,out] a     as for svdcmp
/// @param[out]    w     as for svdcmp
/// @param[out]    v     Kept: leading dimension m, so that v needs (n - 1) * m + n elements
/// Kept: on the thirtieth sweep for a value it calls nrerror and still does the sweep. It uses PYTHAG, so an
/// exact zero in the rotations gives NaNs.
void FS_svdcmp(int m, int n, double* a, double* w, double* v);

/// Solves A x = b in the least-squares sense with the factors of svdcmp: x = V diag(1/w) U^T b. A w of
/// exactly 0 contributes nothing.
/// @param[in]  u  m x n, leading dimension m
/// @param[in]  w  1..n
/// @param[in]  v  n x n, leading dimension n
/// @param[in]  b  1..m
/// @param[out] x  1..n
void svbksb(const double* u, const double* w, const double* v, int m, int n, const double* b, double* x);

/// Covariance of the parameters of a fit: cvm(i, j) = sum over k of v(i, k) v(j, k) / w(k)^2; terms with
/// w(k) = 0 are left out.
/// @param[in]  v    ma x ma, leading dimension ma
/// @param[in]  ma   number of parameters
/// @param[in]  w    1..ma
/// @param[out] cvm  ma x ma, symmetric, leading dimension ma
void svdvar(const double* v, int ma, const double* w, double* cvm);

}  // namespace sondera
