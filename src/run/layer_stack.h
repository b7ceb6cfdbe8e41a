// layer_stack.h - a profile under construction, separate from the layers of the run.
//
// Callers: the two makers of starting profiles. Owns no state.
#pragma once

#include "numeric/offset_array.h"
#include "run/preliminary_profile.h"

namespace sondera {

/// Layers 1..n from the surface down, in columns with space for more.
struct LayerStack {
  int n = 0;
  OffsetVector<double> H, Vs, Vp, G, E, rho, nu, damp;

  explicit LayerStack(int room);
  LayerColumns columns();
  /// Sum of the thicknesses of layers 1..upTo.
  double Depth(int upTo) const;
};

/// Keeps the given layers of the run as its strata, so that a profile that replaces them can still use their
/// properties. FS_DeAllocateStrataPropLayer releases them.
void KeepGivenLayersAsStrata(const LayeredGround& ground, StrataTables& strata);

/// Makes the stack the layers of the run, and of TheoDispInfo for storage and display: thickness, completed
/// properties, and the flags of the stratum at each mid-depth. Refuses a stack with too many layers for a
/// run.
Refusal ReplaceRunLayers(Run& run, const LayerStack& stack);

}  // namespace sondera
