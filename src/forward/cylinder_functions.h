// cylinder_functions.h - Bessel functions J0, J1 and Hankel functions H0, H1 of a complex argument.
//
// The disk-load kernels multiply a J that grows with |Im z| by an H of the second kind that decays with it.
// The plain forms are for general use; the kernels use the scaled forms, whose product stays finite as long
// as the mathematical product does.
//
// Accuracy: relative error below 3e-13 for |z| from 1e-6 to several thousand (near a zero of J relative to
// the larger of J0 and J1; beyond |z| of some thousand the reduction of Re z costs |z| * 1e-16).
// NaN arguments give NaN results. All functions are pure.
#pragma once

#include "numeric/dcomplex.h"

namespace sondera {

/// J0(z), J1(z) and ratio = J0(z) / J1(z), any complex z. Power series up to |z| = 10, beyond that backward
/// recurrence and, from 25, the sum of both asymptotic Hankel series.
/// Where |Im z| exceeds some 700 J0 and J1 become infinite; the ratio stays right. At z = 0 the ratio is
/// infinite.
void Bessel(dcomplex z, dcomplex& J0, dcomplex& J1, dcomplex& ratio);

/// H0(z), H1(z) of the given kind (1: first; anything else: second) and ratio = H0 / H1, principal branch,
/// cut along the negative real axis (the sign of a zero imaginary part chooses the side). The second kind
/// goes to 0 for Im z below about -700, and grows without bound above the real axis; the first kind does the
/// opposite. Infinite at z = 0.
void Hankel(dcomplex z, dcomplex& H0, dcomplex& H1, dcomplex& ratio, int kind);

/// J0(z) and J1(z), both multiplied by exp(-|Im z|).
void BesselScaled(dcomplex z, dcomplex& j0, dcomplex& j1);

/// H0 and H1 of the second kind, both multiplied by exp(i z), for Im z <= 0. A zero imaginary part of either
/// sign counts as the limit from below.
void HankelScaled(dcomplex z, dcomplex& h0, dcomplex& h1);

/// Only the first of the two results of HankelScaled, at a third of the cost.
dcomplex Hankel0Scaled(dcomplex z);

}  // namespace sondera
