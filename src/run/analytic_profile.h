// analytic_profile.h - the steps of the analytic starting profile: strips layers off a dispersion curve from
// the top, and makes a profile of them.
//
// A point of the curve represents the depth ratio * wavelength. At the shortest wavelength the ground is a
// half-space whose Rayleigh wave has the measured velocity; at each longer one the half-space lies below the
// layers found so far. Its shear-wave velocity is the root of the plane-wave condition of plane_wave.h.
// FS_AnalPrePrf runs the steps. Owned state: none.
//
// Odd on purpose: the last point of the curve only ends the search; the velocity used lies two half steps
// below the end of the bracket; scans step by a tenth, so two close roots are missed.
#pragma once

#include <functional>
#include <vector>

#include "run/layer_stack.h"

namespace sondera {

/// Steps v until R changes its sign, then halves the step until it is below 1e-5 v.
/// @param[in]     R           the function; a NaN is no change of sign
/// @param[in]     cMin, cMax  the search ends without a root when v leaves this range
/// @param[in,out] v           in: first trial, R(v) counts as the value before; out: the root minus two steps
/// @param[in]     s           first step, of either sign, not 0
/// @return whether there is a root. A product of values of exactly 0 ends the search at once, with the
/// present step.
bool FindRootByHalving(const std::function<double(double)>& R, double cMin, double cMax, double& v, double s);

/// Layers of a curve, from the top, for points in ascending wavelength.
/// @param[in]  curve  points; each gives at most one layer, the last one none
/// @param[in]  ratio  depth over wavelength, above 0
/// @param[out] found  room for one layer more than there are points. Layers 1..n - 1 are those of the curve,
///                    layer n is the extra deep one. No layer: n is 0
/// @return refused, without a reason, when halted
/// A point within 5 % of the velocity that made the last layer extends that layer. A point is skipped if it
/// has no root, if its wave does not get through a layer above, or if it is no deeper than the layers found.
Refusal StripLayers(const Run& run, const std::vector<CurvePoint>& curve, double ratio, LayerStack& found,
                    Listener& listener);

/// The layers found, on the layering of the run: each of its layers gets the travel-time mean velocity of the
/// part of the profile in it; without such a part, the velocity of the layer above.
/// @return nLayersCur + 1 layers; the last one is a half-space with the deepest velocity found, 100 times as
/// thick as the stripped depth. Kept: the run still counts nLayersCur layers, so this one has no effect, and
/// the last layer of the table is the half-space of the solvers.
LayerStack OnGivenLayering(const Run& run, const LayerStack& found);

/// The layers found, with neighbours of the same class merged (kMergedByHVs, kMergedByHOverVs): classes of
/// equal width over the measure H * Vs or H / Vs. Width: standard deviation over 0.339 and over the cube root
/// of the number of layers (Scott's rule for histograms, with another constant). The extra deep layer stays
/// unchanged.
LayerStack MergedLayers(const Run& run, const LayerStack& found, int shape);

}  // namespace sondera
