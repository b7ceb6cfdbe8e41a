// complex_one.h - complex arithmetic through pointers, as the plane-wave solver uses it, with its real
// helpers.
//
// The first pointer receives the result and may equal an argument: every routine reads all its inputs before
// it writes. The other family, by value, is numeric/complex_two.h. The two differ on purpose in division
// (here a zero divisor ends the process) and in the modulus (here unscaled).
#pragma once

#include <cmath>

#include "numeric/dcomplex.h"

namespace sondera {

/// |a| with the sign of b. Kept: only b < 0 counts as negative, so that b = -0.0 gives +|a|.
inline double Dsign(double a, double b) {
  return b < 0.0 ? -std::fabs(a) : std::fabs(a);
}

/// a squared.
inline double Dsqr(double a) {
  return a * a;
}

/// Modulus of re + i im. Kept: not scaled, so parts above about 1e154 overflow and those below about 1e-162
/// count as zero.
inline double Dabs(double re, double im) {
  return std::sqrt(im * im + re * re);
}

inline double Dreal(const dcomplex* z) {
  return z->re;
}
inline double Dimag(const dcomplex* z) {
  return z->im;
}

/// Modulus of z, unscaled.
inline double Zabs(const dcomplex* z) {
  return Dabs(z->re, z->im);
}

/// r = conjugate of z.
inline void Zcnjg(dcomplex* r, const dcomplex* z) {
  *r = {z->re, -z->im};
}

/// Prints "complex division by zero\n" to standard output and ends the process with exit status 1.
[[noreturn]] void EndOnZeroDivisor();

/// r = a / b, by Smith's division.
/// A divisor of 0 + 0i ends the process (EndOnZeroDivisor). Kept: so does a NaN over an imaginary
/// part of 0, since the comparison of the two magnitudes fails for it.
inline void Zdiv(dcomplex* r, const dcomplex* a, const dcomplex* b) {
  if (std::fabs(b->im) < std::fabs(b->re)) {
    const double t = b->im / b->re;
    const double den = (t * t + 1.0) * b->re;
    *r = {(t * a->im + a->re) / den, (a->im - t * a->re) / den};
    return;
  }
  if (std::fabs(b->im) == 0.0) EndOnZeroDivisor();
  const double t = b->re / b->im;
  const double den = (t * t + 1.0) * b->im;
  *r = {(a->im + t * a->re) / den, (t * a->im - a->re) / den};
}

/// r = square root of z, the one with a real part >= 0. A modulus of 0 (also by underflow, see Dabs) gives 0.
/// Kept: on the negative real axis an imaginary part of -0.0 counts as not negative: the root of -1 is +i for
/// either sign of zero.
inline void Zsqrt(dcomplex* r, const dcomplex* z) {
  const double re = z->re, im = z->im;
  const double m = Dabs(re, im);
  if (m == 0.0) {
    *r = {0.0, 0.0};
  } else if (re > 0.0) {
    const double rootRe = std::sqrt((re + m) * 0.5);
    *r = {rootRe, im / rootRe / 2.0};
  } else {
    double rootIm = std::sqrt((m - re) * 0.5);
    if (im < 0.0) rootIm = -rootIm;
    *r = {im / rootIm / 2.0, rootIm};
  }
}

/// r = e to the power z.
inline void Zexp(dcomplex* r, const dcomplex* z) {
  const double magnitude = std::exp(z->re), angle = z->im;
  *r = {magnitude * std::cos(angle), magnitude * std::sin(angle)};
}

/// r = a to the integer power *n, by repeated squaring. *n = 0 gives 1 for every a; *n < 0 gives a power of 1
/// / a, which ends the process for a = 0 (see Zdiv).
void powZI(dcomplex* r, const dcomplex* a, const int* n);

}  // namespace sondera
