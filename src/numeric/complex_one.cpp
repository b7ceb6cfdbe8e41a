// complex_one.cpp - the less frequent routines of complex arithmetic through pointers.
#include "numeric/complex_one.h"

#include <cstdio>
#include <cstdlib>

#include "numeric/process_end.h"

namespace sondera {

void EndOnZeroDivisor() {
  std::fputs("complex division by zero\n", stdout);
  EndProcess(EXIT_FAILURE);
}

void powZI(dcomplex* r, const dcomplex* a, const int* n) {
  dcomplex power = {1.0, 0.0};
  dcomplex square = *a;  // a, a^2, a^4, ...
  unsigned rest = static_cast<unsigned>(*n);
  if (*n < 0) {
    rest = 0u - rest;  // unsigned, since the most negative int has no counterpart
    Zdiv(&square, &power, a);
  }
  while (rest != 0) {
    if ((rest & 1u) != 0) power = power * square;
    rest >>= 1;
    if (rest != 0) square = square * square;
  }
  *r = power;
}

}  // namespace sondera
