// sort.h - heapsort of doubles through an index table, and sorts that permute other arrays alike.
//
// Used wherever curves and pairs are sorted. All sorts are ascending. Equal keys get the order of the heap
// algorithm, not their original order; stored curves and lists depend on this, so do not replace it by
// another sort.
// Source: heapsort, Williams 1964, in the index form of the Numerical Recipes family.
#pragma once

namespace sondera {

/// Index table: arrin[indx[1]] <= arrin[indx[2]] <= ... <= arrin[indx[n]].
/// @param[in]  n      number of keys, at least 1
/// @param[in]  arrin  keys, 1..n, not changed
/// @param[out] indx   permutation of 1..n, 1..n
/// Allocates nothing. With NaNs among the keys the order is undefined, but indx is a permutation.
void indexx(int n, const double* arrin, int* indx);

/// As indexx, but returns at once for n <= 0.
void indexx3(int n, const double* arrin, int* indx);

/// Sorts ra[1..n] through indexx; n >= 1.
void sort1(int n, double* ra);

/// Sorts ra[1..n] and applies the same permutation to rb[1..n]; n >= 1.
void sort2(int n, double* ra, double* rb);

/// Sorts a and permutes b, c and d alike; each of these may be null.
/// @param n     number of elements; nothing happens for n <= 0
/// @param base  0: the arrays are indexed from 0 (elements 0..n-1); 1: from 1 (elements 1..n).
/// Any other base is a mistake of the caller: nothing is changed.
void sort3(int n, double* a, double* b, double* c, double* d, int base);

}  // namespace sondera
