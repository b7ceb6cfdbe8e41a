// trace_selection.cpp - see trace_selection.h. Owns no state of its own.
#include "panels/trace_selection.h"

#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/files.h"

namespace sondera {
namespace {

/// The four selection controls of one trace on one page.
struct TraceControls {
  const RingControl& id;
  const RingControl& refChannel;
  const RingControl& channel;
  const RingControl& type;
};

TraceControls ControlsOfTrace(Panel panel, Trace trace) {
  const bool a = trace == Trace::A;
  if (panel == Panel::MEASPANEL) {
    using namespace measpanel;
    return a ? TraceControls{DISPAID, DISPA_REFCHNL, DISPACHNL, DISPATYPE}
             : TraceControls{DISPBID, DISPB_REFCHNL, DISPBCHNL, DISPBTYPE};
  }
  using namespace sasw;
  return a ? TraceControls{DISPAID, DISPA_REFCHNL, DISPACHNL, DISPATYPE}
           : TraceControls{DISPBID, DISPB_REFCHNL, DISPBCHNL, DISPBTYPE};
}

/// Settings of one page that belong to the trace in TRACE_ONOFF.
struct SettingControls {
  const RingControl& which;
  const RingControl& voltUnit;
  const RingControl& logLinear;
  const RingControl& markers;
};

SettingControls SettingsOf(Panel panel) {
  if (panel == Panel::MEASPANEL)
    return {measpanel::TRACE_ONOFF, measpanel::VOLT_UNIT, measpanel::LOG_LINEAR, measpanel::MARKERS_ONOFF};
  return {sasw::TRACE_ONOFF, sasw::VOLT_UNIT, sasw::LOG_LINEAR, sasw::MARKERS_ONOFF};
}

template <class L>
void RefillIDList(const L& list, const std::vector<std::string>& labels) {
  const bool hadItems = GetNumListItems(list) > 0;
  ClearListCtrl(list);
  for (std::size_t i = 0; i < labels.size(); ++i) InsertListItem(list, -1, labels[i], static_cast<double>(i));
  if (hadItems) SetCtrlIndex(list, GetNumListItems(list) - 1);
}

void UpdateTraceSetup(Panel panel, Trace trace, const std::string& projID, const std::string& measID) {
  MeasRecords records;
  if (GetInfoFromKey(GetKeyFromID(projID, measID), records) == -1 || records.hwPos < 0) return;
  const HWSetup& hw = *records.hwSetup;
  const TraceControls controls = ControlsOfTrace(panel, trace);
  for (const RingControl* ring : {&controls.channel, &controls.refChannel}) {
    ClearListCtrl(*ring);
    for (int c = 0; c < hw.nChannels; ++c) InsertListItem(*ring, -1, FormatText("%3d", c + 1), c);
  }
  SetCtrlVal(controls.refChannel, hw.refChannel);
  SetCtrlVal(controls.channel, 1);
  const int index = FindListItem(controls.id, measID);
  if (index >= 0) SetCtrlIndex(controls.id, index);
  TraceIDSetup(panel);
}

}  // namespace

TraceSelection LookupID(Trace trace) {
  session.curProjID = GetCtrlVal(hmsetup::PROJID);
  if (GetNumListItems(sasw::DISPA_REFCHNL) == 0) return {};
  if (trace == Trace::Selected) {
    trace = GetCtrlVal(sasw::TRACE_ONOFF) == 1 ? Trace::B : Trace::A;
    SetCtrlVal(sasw::TRACE_ONOFF, static_cast<int>(trace));
  }
  const TraceControls controls = ControlsOfTrace(Panel::SASW, trace);
  const int idIndex = GetCtrlIndex(controls.id);
  if (idIndex < 0 || GetCtrlIndex(controls.refChannel) < 0 || GetCtrlIndex(controls.channel) < 0) return {};
  return {GetLabelFromIndex(controls.id, idIndex), GetCtrlVal(controls.refChannel),
          GetCtrlVal(controls.channel)};
}

CurrentPair FindCurrentPair(Panel panel) {
  CurrentPair current;
  std::string measID = session.curMeasID;
  if (panel == Panel::SASW) {
    const TraceSelection selection = LookupID();
    measID = selection.measID;
    if (!selection.empty()) {
      session.refChan = selection.refChan;
      session.dspChan = selection.dspChan;
    }
  } else {
    session.curProjID = GetCtrlVal(hmsetup::PROJID);
  }
  current.refChan = session.refChan;
  current.dspChan = session.dspChan;
  if (measID.empty()) return current;
  current.key = GetKeyFromID(session.curProjID, measID);
  if (GetInfoFromKey(current.key, current.records) == -1) return current;
  current.pair = FindPair(current.key, current.refChan, current.dspChan);
  return current;
}

void FillMeasIDListBox(Panel panel, const std::string& projID) {
  std::vector<std::string> labels;
  for (const MeasSetup& ms : MeasDB.measSetupList) {
    std::string proj, meas;
    if (GetIDfromKey(ms.key, proj, meas) && proj == projID) labels.push_back(meas);
  }
  if (panel == Panel::SASW || panel == Panel::MEASPANEL) {
    RefillIDList(ControlsOfTrace(panel, Trace::A).id, labels);
    RefillIDList(ControlsOfTrace(panel, Trace::B).id, labels);
  }
  RefillIDList(hmsetup::MEASIDLISTBOX, labels);
}

void UpdateSASWwinASetup(const std::string& projID, const std::string& measID) {
  UpdateTraceSetup(Panel::SASW, Trace::A, projID, measID);
}
void UpdateSASWwinBSetup(const std::string& projID, const std::string& measID) {
  UpdateTraceSetup(Panel::SASW, Trace::B, projID, measID);
}
void UpdateMEASwinASetup(const std::string& projID, const std::string& measID) {
  UpdateTraceSetup(Panel::MEASPANEL, Trace::A, projID, measID);
}
void UpdateMEASwinBSetup(const std::string& projID, const std::string& measID) {
  UpdateTraceSetup(Panel::MEASPANEL, Trace::B, projID, measID);
}

void TraceIDSetup(Panel panel) {
  const SettingControls settings = SettingsOf(panel);
  const int which = GetCtrlVal(settings.which) == 1 ? 1 : 0;
  DisplayRecord& record = session.display[static_cast<std::size_t>(which)];
  SetCtrlVal(settings.voltUnit, record.voltUnit);
  SetCtrlVal(settings.logLinear, record.logLinear);
  SetCtrlVal(settings.markers, record.markersOnOff);
  if (panel == Panel::SASW) {
    SetCtrlVal(sasw::AUTOSCALE_X, record.autoScaleX);
    SetCtrlVal(sasw::AUTOSCALE_Y, record.autoScaleY);
  }
  session.display[0].active = which == 0;
  session.display[1].active = which == 1;
}

void RefreshWindowTitle() {
  SetPanelTitle(Panel::PANEL, SessionTitle());
}

}  // namespace sondera
