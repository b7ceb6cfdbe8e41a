// sort.cpp - index table by heapsort, and the sorts that use it. Owns no state.
#include "numeric/sort.h"

#include "numeric/scratch.h"

namespace sondera {

namespace {

/// Puts entry `held` into the heap indx[1..last], starting at the free place `at`: as long as a child is
/// greater than the held key, the greater child moves up and its place becomes free.
void SiftDown(const double* keys, int* indx, int at, int last, int held) {
  const double key = keys[held];
  while (at <= last / 2) {
    int child = 2 * at;
    // The second child wins only when it is strictly greater.
    if (child < last && keys[indx[child]] < keys[indx[child + 1]]) ++child;
    // A child equal to the held key stays below it.
    if (!(key < keys[indx[child]])) break;
    indx[at] = indx[child];
    at = child;
  }
  indx[at] = held;
}

void HeapIndex(int n, const double* keys, int* indx) {
  for (int i = 1; i <= n; ++i) indx[i] = i;

  // 1. Build the heap from the last parent upwards.
  for (int parent = n / 2; parent >= 1; --parent) SiftDown(keys, indx, parent, n, indx[parent]);

  // 2. Move the top, the greatest key, behind the heap, and sift the entry that was there into the rest.
  for (int last = n - 1; last >= 1; --last) {
    const int held = indx[last + 1];
    indx[last + 1] = indx[1];
    SiftDown(keys, indx, 1, last, held);
  }
}

/// values[i] = old values[indx[i]] for i in 1..n.
void Permute(int n, const int* indx, double* values, double* copy) {
  for (int i = 1; i <= n; ++i) copy[i] = values[i];
  for (int i = 1; i <= n; ++i) values[i] = copy[indx[i]];
}

}  // namespace

void indexx(int n, const double* arrin, int* indx) {
  HeapIndex(n, arrin, indx);
}

void indexx3(int n, const double* arrin, int* indx) {
  if (n <= 0) return;
  HeapIndex(n, arrin, indx);
}

void sort1(int n, double* ra) {
  Scratch<int> indx(n);
  Scratch<double> copy(n);
  indexx(n, ra, indx.pointer());
  Permute(n, indx.pointer(), ra, copy.pointer());
}

void sort2(int n, double* ra, double* rb) {
  Scratch<int> indx(n);
  Scratch<double> copy(n);
  indexx(n, ra, indx.pointer());
  Permute(n, indx.pointer(), ra, copy.pointer());
  Permute(n, indx.pointer(), rb, copy.pointer());
}

void sort3(int n, double* a, double* b, double* c, double* d, int base) {
  if (n <= 0 || (base != 0 && base != 1)) return;
  Scratch<int> indx(n);
  Scratch<double> copy(n);  // of one array at a time, counting from 1 for both bases

  for (int i = 1; i <= n; ++i) copy[i] = a[base + i - 1];
  indexx3(n, copy.pointer(), indx.pointer());
  for (double* values : {a, b, c, d}) {
    if (values == nullptr) continue;
    for (int i = 1; i <= n; ++i) copy[i] = values[base + i - 1];
    for (int i = 1; i <= n; ++i) values[base + i - 1] = copy[indx[i]];
  }
}

}  // namespace sondera
