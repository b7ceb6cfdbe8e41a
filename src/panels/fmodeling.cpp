// fmodeling.cpp - see fmodeling.h.
#include "panels/fmodeling.h"

#include <string>

#include "panels/fmodeling_files.h"
#include "panels/fmodeling_records.h"
#include "panels/undo.h"
#include "records/kinds.h"
#include "records/model_records.h"
#include "records/run_limits.h"
#include "records/session.h"
#include "records/settings_capacity.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/dialogs.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

using namespace fmodeling;

// ---- rows of tables ---------------------------------------------------------------------------------

/// The rows of a table follow its number; an invalid number is replaced by the old one.
int FollowNumber(const IntControl& number, const TableControl& table, const char* what, int most,
                 const char* prefix) {
  const int n = GetCtrlVal(number);
  if (n < 0 || n > most) {
    SetCtrlVal(number, GetNumTableRows(table));
    return Refuse(FormatText("The number of %s is %d. It must be from 0 to %d.", what, n, most));
  }
  const UndoStep step(std::string("Number of ") + what);
  AdjustTableSize(table, n, prefix);
  return 0;
}

/// NLAYERS and the labels after rows were added or removed.
void LayersChanged() {
  const int n = GetNumTableRows(SOILPROFILE);
  SetCtrlVal(NLAYERS, n);
  AdjustTableSize(SOILPROFILE, n, "L");
}

int NoSuchLayer(int row) {
  return Refuse(FormatText("There is no layer %d.", row));
}

/// Column of an "Apply All" button, 0 for another control.
int ColumnOf(ControlId control) {
  const ControlId buttons[] = {&UPDATE_PROFILE1, &UPDATE_PROFILE2, &UPDATE_PROFILE3,
                               &UPDATE_PROFILE4, &UPDATE_PROFILE5, &UPDATE_PROFILE6};
  for (int k = 0; control && k < 6; ++k)
    if (buttons[k]->panel == control->panel && buttons[k]->name == control->name) return k + 1;
  return 0;
}

// ---- files ------------------------------------------------------------------------------------------

FileChoice AskForFile(const char* title, bool forSaving) {
  return FileSelectPopup({ProjectDirectory(), "*.fmd", title, forSaving});
}

int Save() {
  const FileChoice choice = AskForFile("Save the Forward Modeling Parameters.", true);
  if (choice.answer == FileAnswer::Cancelled) return 0;
  if (GetFModelParam_AS() < 0 || GetFModelParam_RD() < 0) return -1;
  return SaveFModelParam(choice.path);
}

int Read() {
  const FileChoice choice = AskForFile("Read the Forward Modeling Parameters.", false);
  if (choice.answer == FileAnswer::Cancelled) return 0;
  if (choice.answer != FileAnswer::Exists) return Refuse("File does not exist.");
  if (ReadFModelParam(choice.path) < 0) return -1;
  SetFModelParam();
  const std::string complaint = CheckRunSettings(FModelParam);
  if (!complaint.empty()) MessagePopup(session.appTitle, complaint);
  return 0;
}

/// Result of the import; the panel shows the record in both cases.
int TakeCurves() {
  ResetFModel_D();
  const int result = RetrieveDispCurvInfoFromMemory();
  SetFModelParam_R();
  SetFModelParam_D();
  return result;
}

void Open() {
  SetFModelParam();
  DisplayPanel(Panel::FMODELING);
}

}  // namespace

int FModelParamCallback(Panel, ControlId, Event, long) {
  Open();
  return 0;
}

int OpenFModelParamCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) Open();
  return 0;
}

int FModelParamCloseCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit || event == Event::Close) HidePanel(Panel::FMODELING);
  return 0;
}

int UpdateFModelNLayersCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  return FollowNumber(NLAYERS, SOILPROFILE, "layers", kMaxRunLayers, "L");
}

int FM_nReceiversUpdateCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  return FollowNumber(NRECEIVERS, RECEIVERLOC, "receivers", kMaxRunCurves, "R");
}

int FM_nDispCurvesCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const UndoStep step("Number of array curves");
  if (FollowNumber(NDISPCURVES, DISPCURVINFO, "array curves", kMaxRunCurves, "D") < 0) return -1;
  ReservePairs(FModelParam, GetCtrlVal(NDISPCURVES));
  ShowPairs();
  return 0;
}

int FM_GlobalArrayDispOption(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  FModelParam.dispCurvType = GetCtrlVal(GLOBAL_ARRAY);
  SetFModelParam_D();
  return 0;
}

int FM_DispCurvUpdateCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (GetFModelParam_AS() < 0 || GetFModelParam_RD() < 0) return -1;
  const bool global = FModelParam.dispCurvType == kGlobalCurve;
  SetCtrlVal(inversion::UF_VS, global ? 0.005 : 0.05);
  SetCtrlVal(inversion::UF_H, global ? 0.04 : 0.2);
  return 0;
}

int GlobalRecTypeCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  FModelParam.GlobalRecType = GetCtrlVal(GLOBAL_REC_TYPE);
  if (FModelParam.GlobalRecType == kFixedReceivers) {
    FModelParam.GlobalRec1Loc = GetCtrlVal(R1_LOC);
    FModelParam.GlobalRec2Loc = GetCtrlVal(R2_LOC);
  }
  return 0;
}

int SetFreqWaveLTextCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  FModelParam.xDomainType = GetCtrlVal(XDOMAIN_TYPE);
  FModelParam.xMinGlobal = GetCtrlVal(XMIN);
  FModelParam.xMaxGlobal = GetCtrlVal(XMAX);
  ShowDomainLabels(FModelParam.xDomainType);
  return 0;
}

int ApplyDefaultVal2ColCallback(Panel, ControlId control, Event event, long) {
  if (event != Event::Commit) return 0;
  const int column = ColumnOf(control);
  if (column == 0) return -1;
  const UndoStep step("Apply All");
  const double value = GetTableCellVal(SOILPROFILE_DFLT, 1, column);
  for (int row = 1; row <= GetNumTableRows(SOILPROFILE); ++row)
    SetTableCellVal(SOILPROFILE, row, column, value);
  return 0;
}

int InsertLayerCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (GetNumTableRows(SOILPROFILE) >= kMaxRunLayers)
    return Refuse(FormatText("There are %d layers, and no more can be.", kMaxRunLayers));
  const UndoStep step("Insert layer");
  if (!InsertTableRow(SOILPROFILE, GetCtrlVal(EDITLAYERNO))) return NoSuchLayer(GetCtrlVal(EDITLAYERNO));
  LayersChanged();
  return 0;
}

int DeleteRowCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const UndoStep step("Delete layer");
  if (!DeleteTableRow(SOILPROFILE, GetCtrlVal(EDITLAYERNO))) return NoSuchLayer(GetCtrlVal(EDITLAYERNO));
  LayersChanged();
  return 0;
}

int ClearRowCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const UndoStep step("Clear");
  for (int row = 1; row <= GetNumTableRows(SOILPROFILE); ++row)
    for (int column = 1; column <= GetNumTableColumns(SOILPROFILE); ++column)
      SetTableCellVal(SOILPROFILE, row, column, 0.0);
  return 0;
}

int SetupLayeringCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (GetCtrlVal(MAXDEPTH) == 0.0 && GetCtrlVal(AUTOLAYERTYPE) == 0)
    return Refuse("Please fill in the required max. depth.");
  return Commit(inversion::AUTOSETUPSMP, kDepthOfPanel);
}

int DispCurveInfoInCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? TakeCurves() : 0;
}

int DispCurveLoadCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const int result = TakeCurves();
  SetDispCurveType();
  return result;
}

int SaveFModelParamCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? Save() : 0;
}

int SaveFModelParamMenuCallback(Panel, ControlId, Event, long) {
  return Save();
}

int ReadFModelParamCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? Read() : 0;
}

int ReadFModelParamMenuCallback(Panel, ControlId, Event, long) {
  return Read();
}

}  // namespace sondera
