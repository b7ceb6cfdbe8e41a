// sasw_phases.cpp - see sasw_phases.h. Owns no state.
#include "panels/sasw_phases.h"

#include <array>

#include "panels/panels_state.h"
#include "panels/trace_selection.h"
#include "records/kinds.h"
#include "records/session.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/dialogs.h"
#include "runtime/redraw.h"

namespace sondera {
namespace {

PhaseBoxes ReadBoxes() {
  return {GetCtrlVal(sasw::PHASE_ORIGINAL), GetCtrlVal(sasw::PHASE_ENHANCED),
          GetCtrlVal(sasw::PHASE_BACKBONE)};
}

/// Turns on the box of a curve, by its phase option.
void TurnOnBox(int curve) {
  if (curve == kBackbonePhase) SetCtrlVal(sasw::PHASE_BACKBONE, 1);
  if (curve == kEnhancedPhase) SetCtrlVal(sasw::PHASE_ENHANCED, 1);
  if (curve == kOriginalPhase) SetCtrlVal(sasw::PHASE_ORIGINAL, 1);
}

}  // namespace

int PhaseOptionCallback(Panel, ControlId, Event event, long) {
  if (event == Event::LeftClick) panelsState.boxesBefore = ReadBoxes();
  if (event != Event::Commit) return 0;
  const PhaseBoxes boxes = ReadBoxes();
  TurnOnBox(GetCtrlVal(sasw::DISPCURV_OPTION));
  if (!boxes.original && !boxes.enhanced && !boxes.backbone) {
    const PhaseBoxes& before = panelsState.boxesBefore;
    TurnOnBox(before.original ? kOriginalPhase : before.enhanced ? kEnhancedPhase : kBackbonePhase);
  }
  DoPlotting(kMaskingPage);
  return 0;
}

int DispCurveOptionCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  if (!current.pair) {
    MessagePopup(session.appTitle, "Perform IRF first.");
    return -1;
  }
  current.pair->phaseOption = GetCtrlVal(sasw::DISPCURV_OPTION);
  TurnOnBox(current.pair->phaseOption);
  DoPlotting(kMaskingPage);
  return 0;
}

}  // namespace sondera
