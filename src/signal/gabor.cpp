// gabor.cpp - the maps are not computed yet; see gabor.h. The filtration calls this at the points where they
// go stale.
#include "signal/gabor.h"

namespace sondera {

void CalcGabor(Panel /*panel*/) {}

}  // namespace sondera
