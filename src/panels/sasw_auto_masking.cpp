// sasw_auto_masking.cpp - see sasw_auto_masking.h. Owns no state.
#include "panels/sasw_auto_masking.h"

#include "panels/event_listener.h"
#include "panels/irfsetpnl.h"
#include "panels/sasw_masking.h"
#include "panels/trace_selection.h"
#include "panels/undo.h"
#include "records/session.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/dialogs.h"
#include "runtime/redraw.h"
#include "signal/auto_masking.h"

namespace sondera {
namespace {

bool AllowNewRange() {
  return ConfirmPopup(session.appTitle, "Need to recalculate Gabor spectrum. Allow to do it ?");
}

}  // namespace

int AutoMasking() {
  EventListener listener;
  const AutoMaskResult result = MaskPair(
      {[] { return FindCurrentPair(Panel::SASW); }, GetCtrlVal(sasw::DISPCURV_OPTION), AllowNewRange},
      listener);
  const int status = ShowRefusal(result.refusal);
  if (result.masked) DoPlotting(kMaskingPage);
  return status;
}

int MaskingAutoCallback(Panel panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (RefuseWindowB(panel)) return -1;
  const UndoStep step("Automatic masks");
  const int result = AutoMasking();
  RefreshIRFwindow(Panel::SASW);
  return result;
}

}  // namespace sondera
