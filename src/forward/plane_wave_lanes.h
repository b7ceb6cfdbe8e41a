// plane_wave_lanes.h - the characteristic function of the plane-wave solver at eight trial velocities at
// once.
//
// Inner part of plane_wave.cpp, visible to its tests only. The decay factors r and s of a layer are real or
// purely imaginary, and the stiffness of the layer contains them only in even combinations: cosh(r k h),
// sinh(r k h) / r and r sinh(r k h) are power series in r^2 and real for both signs of it. So the stack is
// condensed in real arithmetic, without a square root, an exponential or a branch; only the half-space is
// complex. All velocities of a batch share k = 2 pi / L; it does not depend on the velocity. The formulas are
// those of plane_wave_layers.cpp with other rounding. Where rounding could decide a sign in either form, the
// lane is marked for the complex formulas. No fused multiply-add: every instruction set gives the same bits.
#pragma once

namespace sondera {

inline constexpr int kLanes = 8;

/// Terms of one layer at one wavelength.
struct LaneLayer {
  double kh;   ///< wavenumber times thickness
  double iV2;  ///< 1 / Vs^2
  double iP2;  ///< 1 / Vp^2
  double G;    ///< shear modulus
};

/// Layers from the surface down, element 0 the top one, the last one the half-space.
struct LaneStack {
  const LaneLayer* layer;
  int count;
};

/// Values at c[0..7] to g[0..7]: condensed determinant over k^2 with the sign of the characteristic function,
/// not normalised. A bit in the result marks a lane whose sign is unknown: a velocity that equals one of a
/// layer, a value near zero, a NaN, an overflow, too many oscillations in a layer, or a layer beyond the
/// exponent that ends the stack (it must be thicker than twice the wavelength with another layer below, which
/// never occurs in the search). Do not use g of a marked lane.
using LaneFunction = unsigned (*)(const LaneStack& stack, const double* c, double* g);

enum class LaneSet { kPortable, kAvx2, kAvx512 };

/// The function for an instruction set; null where build or processor lacks it.
LaneFunction LanesFor(LaneSet set);

/// The widest one of this processor.
LaneFunction BestLanes();

}  // namespace sondera
