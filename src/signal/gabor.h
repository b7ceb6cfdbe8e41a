// gabor.h - maps of the energy of a transfer function over frequency and group delay.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// Fills the map of the selected pair that its phaseOption names (0 original, 1 enhanced, 2 backbone).
/// Not written yet: the maps stay as they are, which is zero for every pair.
void CalcGabor(Panel panel);

}  // namespace sondera
