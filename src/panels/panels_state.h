// panels_state.h - the state that panels/ keeps between two events.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "forward/waveform.h"
#include "panels/section_state.h"
#include "panels/undo_record.h"
#include "plot/results_plot.h"
#include "records/pulse_record.h"
#include "records/session.h"
#include "runtime/controls.h"

namespace sondera {

/// The three check boxes of the phase curves, in the initial state of the masking page.
struct PhaseBoxes {
  int original = 0, enhanced = 1, backbone = 0;
};

/// Texts of the setup dialog before they are edited.
struct EditedTexts {
  std::string projID, measID;
};

/// Markers and colours of the theoretical curves of the results page; the counter of markers continues from
/// run to run.
struct TheoreticalLooks {
  std::vector<CurveLook> curves;
  int nextMarker = 0;
};

/// Target of the traces' axis dialog: a page and 0 for A, 1 for B, 2 for both.
struct AxisDialogOf {
  Panel panel = Panel::SASW;
  int window = 0;
};

/// Settings of a computed record.
using PulseParam = PulseRecord;

/// The last computed record, with its settings.
struct WaveformState {
  SourceSamples source;  ///< force of the file in use
  bool made = false;
  WaveformSetup setup;
  WaveformResult result;
  std::array<DisplayRecord, 2> display{};  ///< of the graphs A and B of its panel
  std::optional<Panel> pageBefore;         ///< page that the panel replaced
};

struct PanelsState {
  PhaseBoxes boxesBefore;                 ///< phase boxes at the last click on one of them
  std::map<ControlId, int> indexAtFocus;  ///< position of each selector of a trace when it was last entered
  EditedTexts edited;                     ///< project and measurement at focus in
  bool lastStartHasEntries = false;       ///< see LastStartHasEntries of inversion.h
  TheoreticalLooks theoretical;
  AxisDialogOf axisDialog;
  UndoHistory undo;
  PulseParam pulse;
  SectionState section;
  WaveformState waveform;
  int pictureObserver = 0;  ///< of panel_pictures.h; 0: none
  bool loading = false;     ///< a project is being read: the memory holds a part of it
};
extern PanelsState panelsState;

/// State of a fresh start.
void ResetPanelsState();

}  // namespace sondera
