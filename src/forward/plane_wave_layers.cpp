// plane_wave_layers.cpp - condensation of the layers and the half-space, in complex arithmetic.
//
// The starting model calls it, and plane_wave.cpp for the few trial velocities that the eight-lane real
// formulas leave out. Owns no state. plane_wave_lane_body.inc repeats the order of operations with real
// numbers: change both together.
#include "forward/plane_wave.h"

#include <cmath>

#include "numeric/complex_one.h"

namespace sondera {
namespace {

constexpr double kVelocityShift = 0.9998999834060669;  // Kept: single precision; moves c off a layer velocity
constexpr double kThick = 18.0;  // exponent from which on waves do not reach the base of a layer
constexpr int kMaxShifts = 64;   // valid data need two at most

using Z = dcomplex;

Z FromOne(Z a) {
  return {1.0 - a.re, -a.im};
}

/// As Zdiv, but a zero divisor does not end the process: it gives NaNs, and the search then finds no root.
Z Over(Z a, Z b) {
  if (std::fabs(b.im) < std::fabs(b.re)) {
    const double t = b.im / b.re, den = (t * t + 1.0) * b.re;
    return {(t * a.im + a.re) / den, (a.im - t * a.re) / den};
  }
  const double t = b.re / b.im, den = (t * t + 1.0) * b.im;
  return {(a.im + t * a.re) / den, (t * a.im - a.re) / den};
}

/// sqrt(1 - c^2 / V^2), real or on the positive imaginary axis.
Z DecayFactor(double c, double V) {
  const Z square{1.0 - c * c / (V * V), 0.0};
  Z factor;
  Zsqrt(&factor, &square);
  return factor;
}

struct Hyperbolic {
  Z C, S;
};

Hyperbolic CoshSinh(Z a) {
  Z E;
  Zexp(&E, &a);
  const Z inverse = Over({1.0, 0.0}, E);
  return {(E + inverse) / 2.0, (E - inverse) / 2.0};
}

/// Decay factors and stiffness factors of a layer at one velocity.
struct LayerWaves {
  Z r, s;
  double k, G;
};

double CompressionVelocity(double Vs, double nu) {
  return Vs * std::sqrt(2.0 * (1.0 - nu) / (1.0 - 2.0 * nu));
}

LayerWaves WavesOf(double omega, double c, double Vs, double nu, double rho) {
  return {DecayFactor(c, CompressionVelocity(Vs, nu)), DecayFactor(c, Vs), omega / c, Vs * Vs * rho};
}

/// Exact stiffness of a layer of thickness h, all but the upper-left block: that follows by symmetry.
void SetLayerTerms(LayerStiffness& K, const LayerWaves& w, double h) {
  const auto [C1, S1] = CoshSinh(w.r * w.k * h);
  const auto [C2, S2] = CoshSinh(w.s * w.k * h);
  const Z rs = w.r * w.s, ss = w.s * w.s, one{1.0, 0.0};
  const Z D0 = FromOne(C1 * C2) * 2.0 + (Over(one, rs) + rs) * S1 * S2;
  const Z Q = Over(FromOne(ss) / 2.0, D0);
  const Z T = Q * (2.0 * w.k * w.G);
  const Z A0 = (one + ss) * (w.k * w.G);
  K(3, 3) = T * (Over(S2 * C1, w.s) - w.r * S1 * C2);
  K(3, 4) = A0 + T * (one + rs * S1 * S2 - C1 * C2);
  K(4, 4) = T * (Over(S1 * C2, w.r) - w.s * S2 * C1);
  K(1, 3) = T * (w.r * S1 - Over(S2, w.s));
  K(1, 4) = T * (C2 - C1);
  K(2, 3) = K(1, 4) * -1.0;
  K(2, 4) = T * (w.s * S2 - Over(S1, w.r));
}

/// Gauss elimination of the two degrees of freedom at the layer's top; moves the rest up and updates the
/// phase.
void EliminateTop(LayerStiffness& K, dcomplex* D) {
  for (int i = 1; i <= 2; ++i) {
    const Z P = Over({1.0, 0.0}, K(i, i));
    for (int j = i + 1; j <= 4; ++j) {
      const Z f = P * K(i, j);
      for (int m = j; m <= 4; ++m) K(j, m) = K(j, m) - K(i, m) * f;
    }
  }
  *D = *D * K(1, 1) * K(2, 2);
  *D = *D / Zabs(D);
  K(1, 1) = K(3, 3);
  K(1, 2) = K(3, 4);
  K(2, 2) = K(4, 4);
}

}  // namespace

void FS_strat_(LayerStiffness* K, double omega, double* c, const double* h, const double* Vs,
               const double* nu, const double* rho, int nl, int* stopLayer, dcomplex* D) {
  *stopLayer = 0;
  for (int l = 1; l <= nl; ++l) {
    LayerWaves w = WavesOf(omega, *c, Vs[l], nu[l], rho[l]);
    for (int i = 0; i < kMaxShifts && Zabs(&w.r) * Zabs(&w.s) == 0.0; ++i) {
      *c *= kVelocityShift;
      w = WavesOf(omega, *c, Vs[l], nu[l], rho[l]);
    }
    if (w.r.re * w.k * h[l] > kThick || w.s.re * w.k * h[l] > kThick) {
      *stopLayer = l;
      return;
    }
    const Z above11 = (*K)(1, 1), above12 = (*K)(1, 2), above22 = (*K)(2, 2);
    SetLayerTerms(*K, w, h[l]);
    (*K)(1, 1) = above11 + (*K)(3, 3);
    (*K)(2, 2) = above22 + (*K)(4, 4);
    (*K)(1, 2) = above12 - (*K)(3, 4);
    EliminateTop(*K, D);
  }
}

void FS_hspace_(const LayerStiffness& K, double omega, double c, int hsLayer, const double* Vs,
                const double* nu, const double* rho, dcomplex* F, const dcomplex& D) {
  const LayerWaves w = WavesOf(omega, c, Vs[hsLayer], nu[hsLayer], rho[hsLayer]);
  const double B = 2.0 * w.k * w.G;
  // Kept: the imaginary part of a complex quotient is dropped, so a leaking wave has only part of its loss.
  const double H = Over(FromOne(w.s * w.s) * (w.k * w.G), FromOne(w.r * w.s)).re;
  const Z K11 = K(1, 1) + w.r * H;
  const Z K12 = K(1, 2) + Z{H - B, 0.0};
  const Z K22 = K(2, 2) + w.s * H;
  const Z det = (K11 * K22 - K12 * K12) * D;
  const double size = Zabs(&det);
  *F = {size == 0.0 ? 0.0 : det.re / size, 0.0};
}

int FS_strat(LayerStiffness* K, double omega, double* c, const double* h, const double* Vs, const double* nu,
             const double* rho, int nl, dcomplex* D) {
  int stopLayer = 0;
  FS_strat_(K, omega, c, h, Vs, nu, rho, nl, &stopLayer, D);
  return stopLayer;
}

dcomplex FS_hspace(const LayerStiffness& K, double omega, double c, int hsLayer, const double* Vs,
                   const double* nu, const double* rho, const dcomplex& D) {
  dcomplex F;
  FS_hspace_(K, omega, c, hsLayer, Vs, nu, rho, &F, D);
  return F;
}

}  // namespace sondera
