// acquisition_state.cpp - the state of acquisition/.
#include "acquisition/acquisition_state.h"

namespace sondera {

MeasRunState measRun;

void ResetAcquisitionState() {
  measRun = MeasRunState{};
}

}  // namespace sondera
