// meassetup.cpp - see meassetup.h. Owns no state.
#include "panels/meassetup.h"

#include <cstddef>

#include "acquisition/first_settings.h"
#include "panels/hwsetup.h"
#include "panels/trace_selection.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/dialogs.h"
#include "runtime/files.h"

namespace sondera {
namespace {}  // namespace

int UpdateWLenFilterCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  session.alphaWlen = GetCtrlVal(meassetup::HYX_WLENFILTER);
  SetCtrlVal(loadtxdata::WLENGTHFILTER, session.alphaWlen);
  return 0;
}

int RSpacingOptionCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const bool even = GetCtrlVal(meassetup::RSPACING) == kEvenSpacing;
  SetVisible(meassetup::EVENSPACING, even);
  SetVisible(meassetup::CHNLLOC, !even);
  SetVisible(meassetup::NCHANNELS3, !even);
  SetVisible(meassetup::CHNLLOCLABEL, !even);
  return 0;
}

void InitMeasSetup(MeasSetup& ms) {
  MeasRecords records;
  if (GetInfoFromKey(ms.key, records) == -1 || records.hwPos < 0) {
    MessagePopup(session.appTitle, "Software configuation for the hardware was not completed.");
    return;
  }
  FirstMeasSetup(ms);
  FillChannelRing(meassetup::NCHANNELS3, records.hwSetup->nChannels);
}

void InitRawData(RawData& raw) {
  if (MeasDB.rawDataList.findKey(raw.key) < 0)
    MessagePopup(session.appTitle, "Software configuation for the hardware was not completed.");
}

void UpdateMeasSetup(const std::string& projID, const std::string& measID, int which) {
  MeasRecords records;
  if (GetInfoFromKey(GetKeyFromID(projID, measID), records) == -1 || records.measPos < 0 || records.hwPos < 0)
    return;
  const MeasSetup& ms = *records.measSetup;
  using namespace meassetup;

  session.curProjID = projID;
  session.curMeasID = measID;
  SetCtrlVal(hmsetup::PROJID, projID);
  SetCtrlVal(hmsetup::MEASID, measID);
  SetCtrlVal(SRCLOC, ms.srcLoc);
  FillChannelRing(NCHANNELS3, records.hwSetup->nChannels);
  FillReceiverList(ms);
  SetCtrlVal(CHNLLOC, ms.recLoc.empty() ? 0.0 : ms.recLoc[0]);
  SetCtrlVal(LENGTHUNIT, ms.lengthUnit);
  session.lengthUnit = ms.lengthUnit;

  FillMeasIDListBox(Panel::SASW, projID);
  FillMeasIDListBox(Panel::MEASPANEL, projID);
  SetCtrlIndex(hmsetup::MEASIDLISTBOX, FindListItem(hmsetup::MEASIDLISTBOX, measID));
  if (which != 1) {
    UpdateSASWwinASetup(projID, measID);
    UpdateMEASwinASetup(projID, measID);
  }
  if (which != 0) {
    UpdateSASWwinBSetup(projID, measID);
    UpdateMEASwinBSetup(projID, measID);
  }
}

void FillReceiverList(const MeasSetup& ms) {
  ClearListCtrl(meassetup::RECLOCLIST);
  for (std::size_t c = 0; c < ms.recLoc.size(); ++c)
    InsertListItem(meassetup::RECLOCLIST, -1, FormatText("Ch%3d: %lg", static_cast<int>(c) + 1, ms.recLoc[c]),
                   static_cast<double>(c));
}

}  // namespace sondera
