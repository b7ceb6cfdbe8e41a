// analytic_profile.h - the steps of the analytic starting profile: layers stripped off a dispersion curve
// from the top, and what is made of them.
//
// A point of the curve stands for the depth ratio * wavelength. At the shortest wavelength the ground is a
// half-space whose Rayleigh wave has the measured velocity; at each longer one the half-space lies below the
// layers found so far. Its shear-wave velocity is the root of the plane-wave condition of plane_wave.h.
// FS_AnalPrePrf runs the steps. Owned state: none.
//
// Odd on purpose: the last point of the curve is only the end of the walk; the velocity is taken two half
// steps below the place where the bracket ended; scans step by a tenth, so that two close roots are not seen.
#pragma once

#include <functional>
#include <vector>

#include "run/layer_stack.h"

namespace sondera {

/// Steps v until R changes its sign, then halves the step until it is below 1e-5 v.
/// @param[in]     R           the function; a NaN is no change of sign
/// @param[in]     cMin, cMax  the search ends without a root when v leaves this range
/// @param[in,out] v           in: first trial, R(v) counts as the value before; out: the root, less two steps
/// @param[in]     s           first step, of either sign, not 0
/// @return whether there is a root. A product of values that is exactly 0 ends the search at once, with the
///         step as it then is.
bool FindRootByHalving(const std::function<double(double)>& R, double cMin, double cMax, double& v, double s);

/// Layers of a curve, from the top, for points in ascending wavelength.
/// @param[in]  curve  points; at most one layer comes of each, none of the last
/// @param[in]  ratio  depth over wavelength, above 0
/// @param[out] found  room for one layer more than there are points. Layers 1..n - 1 are those of the curve,
///                    layer n is the extra deep one. No layer: n is 0
/// @return refused, without a reason, when halted
/// A point within 5 % of the velocity that made the last layer extends that layer. A point without a root, or
/// with a layer that its wave does not get through, is passed over, and so is one no deeper than the layers.
Refusal StripLayers(const std::vector<CurvePoint>& curve, double ratio, LayerStack& found,
                    Listener& listener);

/// The found layers on the layering of the run: each of its layers gets the travel-time mean velocity of what
/// lies in it, the one of the layer above where nothing does.
/// @return nLayersCur + 1 layers; the last one is a half-space with the deepest found velocity, 100 times as
///         thick as the stripped depth. Kept: the run goes on counting nLayersCur layers, so that this one
///         takes no part, and the last layer of the table is the half-space of the solvers.
LayerStack OnGivenLayering(const LayerStack& found);

/// The found layers with neighbours of one class made one (kMergedByHVs, kMergedByHOverVs): classes of equal
/// width over the measure H * Vs or H / Vs. Width: standard deviation over 0.339 and over the cube root of
/// the number of layers (Scott's rule for histograms, with its own constant). The extra deep layer stays as
/// it is.
LayerStack MergedLayers(const LayerStack& found, int shape);

}  // namespace sondera
