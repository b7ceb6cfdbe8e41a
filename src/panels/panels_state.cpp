// panels_state.cpp - all mutable state of panels/.
#include "panels/panels_state.h"

#include "runtime/changes.h"

namespace sondera {

PanelsState panelsState;

void ResetPanelsState() {
  if (panelsState.pictureObserver != 0) RemoveObserver(panelsState.pictureObserver);
  panelsState = PanelsState{};
}

}  // namespace sondera
