// panels_state.h - what panels/ remembers between two events.
#pragma once

#include <map>
#include <string>

#include "runtime/controls.h"

namespace sondera {

/// The three check boxes of the phase curves, as the masking page starts with them.
struct PhaseBoxes {
  int original = 0, enhanced = 1, backbone = 0;
};

/// Texts of the setup dialog before they are edited.
struct EditedTexts {
  std::string projID, measID;
};

struct PanelsState {
  PhaseBoxes boxesBefore;                 ///< phase boxes at the last click on one of them
  std::map<ControlId, int> indexAtFocus;  ///< position of each selector of a trace when it was last entered
  EditedTexts edited;                     ///< project and measurement at focus in
  bool lastStartHasEntries = false;       ///< see LastStartHasEntries of inversion.h
};
extern PanelsState panelsState;

/// State of a fresh start.
void ResetPanelsState();

}  // namespace sondera
