// panels_state.cpp - all mutable state of panels/.
#include "panels/panels_state.h"

namespace sondera {

PanelsState panelsState;

void ResetPanelsState() {
  panelsState = PanelsState{};
}

}  // namespace sondera
