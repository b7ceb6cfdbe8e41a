// mainmenu_export.cpp - see mainmenu_export.h.
#include "panels/mainmenu_export.h"

#include <algorithm>

#include "panels/sasw_pair.h"
#include "panels/trace_selection.h"
#include "project/trace_export.h"
#include "records/session.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "signal/spectra.h"

namespace sondera {
namespace {

constexpr char kOverwrite[] = "File already exists. Do you want to overwrite it ?";

/// The pair's record, created when there is none. Meanwhile its trace is the selected one, since the
/// filtration works on that.
PMeasInfo* PairOf(const MeasRecords& r, int key, int refChan, int dspChan, Trace trace) {
  PMeasInfo* pair = FindPair(key, refChan, dspChan);
  if (pair) return pair;
  const int selected = GetCtrlVal(sasw::TRACE_ONOFF);
  SetCtrlVal(sasw::TRACE_ONOFF, static_cast<int>(trace));
  SetupPMeasDataNode(r.projID, r.measID, refChan, dspChan, *r.hwSetup, pair);
  SetCtrlVal(sasw::TRACE_ONOFF, selected);
  return pair;
}

/// Name from the dialog; empty after a cancel, or when an existing file must stay.
std::string AskForName(const std::string& display, const TraceExport& exported) {
  const FileChoice choice = FileSelectPopup(
      {ProjectDirectory(), "*." + exported.files.front().ext, "Save the Data on Display " + display, true});
  if (choice.answer == FileAnswer::Cancelled || choice.path.empty()) return {};
  const bool exists = choice.answer == FileAnswer::Exists || AnyFileExists(choice.path, exported);
  return exists && !ConfirmPopup(session.appTitle, kOverwrite) ? std::string() : choice.path;
}

VoltUnit UnitOf(Trace trace) {
  const int unit = session.display[static_cast<std::size_t>(trace)].voltUnit;
  return static_cast<VoltUnit>(std::clamp(unit, 0, static_cast<int>(VoltUnit::Vpk2)));
}

int SaveTrace(Trace trace, const std::string& name) {
  const TraceSelection selection = LookupID(trace);
  const RingControl& type = trace == Trace::B ? sasw::DISPBTYPE : sasw::DISPATYPE;
  return SaveTraceData(selection.refChan, selection.dspChan, GetCtrlVal(type), trace == Trace::B ? "B" : "A",
                       name);
}

}  // namespace

int SaveTraceData(int refChan, int dspChan, int type, std::string_view label, const std::string& name) {
  const Trace trace = label == "B" ? Trace::B : Trace::A;
  const TraceSelection selection = LookupID(trace);
  TraceExportRequest request;
  request.display = trace == Trace::B ? "B" : "A";
  request.refChan = refChan;
  request.dspChan = dspChan;
  request.type = type;
  request.unit = UnitOf(trace);
  const int key = selection.empty() ? -1 : GetKeyFromID(session.curProjID, selection.measID);
  GetInfoFromKey(key, request.records);
  request.pair = [&] { return PairOf(request.records, key, refChan, dspChan, trace); };
  TraceExport exported;
  if (const Refusal refusal = MakeTraceExport(request, exported)) return ShowRefusal(refusal);
  const std::string path = name.empty() ? AskForName(request.display, exported) : name;
  if (path.empty()) return -1;
  SetWaitCursor(true);
  const Refusal refusal = WriteTraceExport(path, exported);
  SetWaitCursor(false);
  return ShowRefusal(refusal);
}

int SaveTraceA(const std::string& name) {
  return SaveTrace(Trace::A, name);
}
int SaveTraceB(const std::string& name) {
  return SaveTrace(Trace::B, name);
}

int Save_TraceACallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? SaveTraceA({}) : 0;
}
int Save_TraceBCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? SaveTraceB({}) : 0;
}
int SaveAs_TraceACallback(Panel panel, ControlId control, Event event, long data) {
  return Save_TraceACallback(panel, control, event, data);
}
int SaveAs_TraceBCallback(Panel panel, ControlId control, Event event, long data) {
  return Save_TraceBCallback(panel, control, event, data);
}

}  // namespace sondera
