// complex_two.h - complex arithmetic by value, as the point-load solver and its kernel functions use it.
//
// Nothing here tests for zero or ends the process: infinities and NaNs propagate. The other family, through
// pointers, is numeric/complex_one.h.
#pragma once

#include <cmath>

#include "numeric/complex_one.h"
#include "numeric/dcomplex.h"

namespace sondera {

inline dcomplex Complex(double re, double im) {
  return {re, im};
}
inline double Creal(dcomplex c) {
  return c.re;
}
inline double Cimag(dcomplex c) {
  return c.im;
}
inline dcomplex Conjg(dcomplex c) {
  return {c.re, -c.im};
}

inline dcomplex Cadd(dcomplex a, dcomplex b) {
  return a + b;
}
inline dcomplex Csub(dcomplex a, dcomplex b) {
  return a - b;
}
inline dcomplex Cmul(dcomplex a, dcomplex b) {
  return a * b;
}

/// Real x times complex a.
inline dcomplex RCmul(double x, dcomplex a) {
  return x * a;
}

/// a / b, by Smith's division. Kept: no test for zero; a zero divisor gives infinities or NaNs.
inline dcomplex Cdiv(dcomplex a, dcomplex b) {
  return a / b;
}

/// Modulus, scaled by the larger part so that it neither overflows nor underflows on the way.
inline double Cabs(dcomplex c) {
  const double x = std::fabs(c.re), y = std::fabs(c.im);
  if (x == 0.0) return y;
  if (y == 0.0) return x;
  if (x > y) return x * std::sqrt(1.0 + Dsqr(y / x));
  return y * std::sqrt(1.0 + Dsqr(x / y));
}

/// Angle in radians, -pi..pi.
inline double Cangle(dcomplex c) {
  return std::atan2(c.im, c.re);
}

/// Square root: the formula of Zsqrt, with its unscaled modulus and its rule for -0.0, on a value.
inline dcomplex Csqrt(dcomplex c) {
  dcomplex root;
  Zsqrt(&root, &c);
  return root;
}

}  // namespace sondera
