// shutdown.cpp - the end of a session.
#include "app/shutdown.h"

#include "panels/mainmenu_project.h"
#include "records/inv_records.h"
#include "records/measdb.h"
#include "records/model_records.h"
#include "records/session.h"
#include "run/run_state.h"
#include "run/sweep_state.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/graphs.h"

namespace sondera {

void ClearAllMemories() {
  FreeGlobalArrays();
  FinalizeFModel();
  FinalizeTheoDispInfo();
  FinalizeInvAnal();
  run = Run{};  // the data of the summary at the end stay: the histories of inversions
  sweepState = SweepState{};
  ResetGraphs();
}

void OfferSave() {
  if (ConfirmPopup(session.appTitle, "The program has to end here. Save the project first ?")) SaveRawData();
}

void QuitApp(int status) {
  ClearAllMemories();
  session.projectLock.Release();
  QuitUserInterface(status);
}

int QuitCallback(Panel, ControlId, Event, long) {
  if (ConfirmPopup(session.appTitle, "Do you want to exit the program ?")) QuitApp(0);
  return 0;
}

int QuitProgCallback(Panel panel, ControlId control, Event event, long data) {
  return event == Event::Commit || event == Event::Close ? QuitCallback(panel, control, event, data) : 0;
}

}  // namespace sondera
