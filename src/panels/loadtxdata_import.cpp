// loadtxdata_import.cpp - see loadtxdata_import.h.
#include "panels/loadtxdata_import.h"

#include <algorithm>

#include "panels/hwsetup.h"
#include "panels/meassetup.h"
#include "panels/trace_selection.h"
#include "project/import_spectra.h"
#include "project/import_time.h"
#include "project/import_uff58.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/redraw.h"

namespace sondera {
namespace {

constexpr int kBothTraces = 2;

/// Position of a measurement among those of its project, from 0; -1 when it is not listed.
int ListIndexOf(const std::string& projID, int key) {
  int index = 0;
  for (const MeasSetup& ms : MeasDB.measSetupList) {
    std::string proj, meas;
    if (!GetIDfromKey(ms.key, proj, meas) || proj != projID) continue;
    if (ms.key == key) return index;
    ++index;
  }
  return -1;
}

/// Completes the request from the panels, imports, and shows the result.
template <class Import>
int RunImport(ImportRequest& request, Import import) {
  request.projID = GetCtrlVal(hmsetup::PROJID);
  request.mayOverwrite = AskToOverwrite;
  SetWaitCursor(true);
  const ImportResult result = import(request);
  SetWaitCursor(false);
  if (!result.refusal) {
    ShowMeasurement(request.measID);
    return 0;
  }
  ShowRefusal(result.refusal);
  if (result.begun) TrimDataBase(session.curProjID, request.measID);
  return -1;
}

}  // namespace

int LoadTimeData(ImportRequest request) {
  return RunImport(request, ImportTimeHistories);
}
int LoadHyxData(ImportRequest request) {
  return RunImport(request, ImportTransferFunctions);
}
int LoadGyxData(ImportRequest request) {
  return RunImport(request, ImportCrossSpectra);
}
int LoadHyx58Data(ImportRequest request, int functionType) {
  return RunImport(request,
                   [&](const ImportRequest& r) { return ImportTransferFunctions58(r, functionType); });
}
int LoadGyx58Data(ImportRequest request, int functionType) {
  return RunImport(request, [&](const ImportRequest& r) { return ImportCrossSpectra58(r, functionType); });
}

std::string LoadShots(ShotRequest request, const ShotPlan& plan, std::vector<std::string>* ids) {
  request.projID = GetCtrlVal(hmsetup::PROJID);
  request.stored = ShowMeasurement;
  return ImportShots(request, plan, ids);
}

bool AskToOverwrite() {
  return ConfirmPopup(session.appTitle, "The same measurement ID is in the list. Overwrite it ?");
}

void ShowMeasurement(const std::string& measID) {
  UpdateMeasSetup(session.curProjID, measID, kBothTraces);
  UpdateHWSetup(session.curProjID, measID);
  DoPlotting(kMaskingPage);
}

void TrimDataBase(const std::string& projID, const std::string& measID) {
  const int key = GetKeyFromID(projID, measID);
  if (key == -1) return;
  const int before = ListIndexOf(projID, key) - 1;
  RemoveMeasurement(key);
  FillMeasIDListBox(Panel::SASW, projID);
  FillMeasIDListBox(Panel::MEASPANEL, projID);
  SetCtrlIndex(hmsetup::MEASIDLISTBOX, std::max(before, 0));
  session.curMeasID = GetLabelFromIndex(hmsetup::MEASIDLISTBOX, GetCtrlIndex(hmsetup::MEASIDLISTBOX));
  SetCtrlVal(hmsetup::MEASID, session.curMeasID);
  UpdateMeasSetup(projID, session.curMeasID, kBothTraces);
  UpdateHWSetup(projID, session.curMeasID);
  DoPlotting(kMaskingPage);
  RefreshWindowTitle();
}

}  // namespace sondera
