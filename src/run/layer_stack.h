// layer_stack.h - a profile under construction, beside the layers of the run.
//
// Callers: the two makers of starting profiles. Owns no state.
#pragma once

#include "numeric/offset_array.h"
#include "run/preliminary_profile.h"

namespace sondera {

/// Layers 1..n from the surface down, in columns with room for more.
struct LayerStack {
  int n = 0;
  OffsetVector<double> H, Vs, Vp, G, E, rho, nu, damp;

  explicit LayerStack(int room);
  LayerColumns columns();
  /// Sum of the thicknesses of layers 1..upTo.
  double Depth(int upTo) const;
};

/// Keeps the given layers of the run as its strata, so that a profile that takes their place can still look
/// up their properties. FS_DeAllocateStrataPropLayer gives them back.
void KeepGivenLayersAsStrata();

/// Makes the stack the layers of the run, and of TheoDispInfo for what stores and shows them: thickness,
/// completed properties, and the flags of the stratum at each mid-depth.
/// Refuses when no run takes that many layers.
Refusal ReplaceRunLayers(const LayerStack& stack);

}  // namespace sondera
