// wavenumber_integral.h - surface displacement under a disk load by integration over wavenumbers.
//
// The point-load solver is compared with it. Shares nothing with the solver: layers are exact (reflection of
// plane waves at each interface, no sublayers), the half-space is exact, and the field is the Hankel
// transform itself, not a sum of modes. Time factor exp(i omega t), hysteretic damping: both Lame constants
// times 1 + 2 i D.
#pragma once

#include <complex>
#include <vector>

namespace sondera::truth {

using Complex = std::complex<double>;

struct Layer {
  double h;  // thickness; the last layer is the half-space
  double Vs, rho, nu, damp;
};

/// Vertical displacement of the surface for a vertical load of wavenumber k, load and displacement downward.
Complex VerticalCompliance(const std::vector<Layer>& layers, double omega, Complex k);

/// The same for a uniform half-space, by the Rayleigh function in closed form.
Complex LambCompliance(const Layer& layer, double omega, Complex k);

/// Vertical surface displacement at distance r > r0 under a disk load of unit total force.
using Compliance = Complex (*)(const std::vector<Layer>&, double, Complex);
Complex DiskLoad(const std::vector<Layer>& layers, double omega, double r, double r0,
                 Compliance compliance = VerticalCompliance);

}  // namespace sondera::truth
