// dcomplex.h - the complex number of the solvers and its operators.
//
// The named families of routines on it are complex_one.h (through pointers) and complex_two.h (by value).
// Nothing here tests for zero or ends the process: infinities and NaNs propagate.
#pragma once

#include <cmath>

namespace sondera {

struct dcomplex {
  double re = 0.0;
  double im = 0.0;
};

inline constexpr dcomplex operator+(dcomplex a, dcomplex b) {
  return {a.re + b.re, a.im + b.im};
}
inline constexpr dcomplex operator-(dcomplex a, dcomplex b) {
  return {a.re - b.re, a.im - b.im};
}
inline constexpr dcomplex operator-(dcomplex a) {
  return {-a.re, -a.im};
}
inline constexpr dcomplex operator*(dcomplex a, dcomplex b) {
  return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}
inline constexpr dcomplex operator*(double x, dcomplex a) {
  return {x * a.re, x * a.im};
}
inline constexpr dcomplex operator*(dcomplex a, double x) {
  return {a.re * x, a.im * x};
}
inline constexpr dcomplex operator/(dcomplex a, double x) {
  return {a.re / x, a.im / x};
}
/// a / b, by Smith's division: parts of b from 1e-200 to 1e+200 neither overflow nor vanish on the way.
inline dcomplex operator/(dcomplex a, dcomplex b) {
  if (std::fabs(b.re) < std::fabs(b.im)) {
    const double r = b.re / b.im;
    const double den = b.im + r * b.re;
    return {(a.re * r + a.im) / den, (a.im * r - a.re) / den};
  }
  const double r = b.im / b.re;
  const double den = b.re + r * b.im;
  return {(a.re + r * a.im) / den, (a.im - r * a.re) / den};
}

}  // namespace sondera
