// measpanel_run.cpp - see measpanel_run.h. Owns no state.
#include "panels/measpanel_run.h"

#include <functional>
#include <string>

#include "acquisition/acquisition_state.h"
#include "acquisition/hardware_settings.h"
#include "acquisition/measurement_run.h"
#include "panels/hwsetup_fields.h"
#include "panels/measpanel_preview.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/dialogs.h"
#include "runtime/graphs.h"
#include "runtime/redraw.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr const char* kRunning = "Measurement is running...";
constexpr int kMeasurementPage = 0;

/// Fills the page and processes events.
class PageListener : public MeasListener {
 public:
  bool Poll() override {
    ProcessSystemEvents();
    return InterruptRequested() || QuitRequested();
  }
  void Say(const std::string& text) override { ResetTextBox(measpanel::MSGBOX, text); }
  void Armed(bool on) override { SetCtrlVal(measpanel::MEAS_ARM_LED, on ? 1 : 0); }
  void Averages(int count) override {
    SetCtrlVal(measpanel::DISPA_AVGCOUNT, FormatText("Averages: %d", count));
  }
  std::function<bool()> Question() override {
    return session.measOptions.previewOn ? std::function<bool()>(PreviewAccepted) : nullptr;
  }
  bool PersonAnswers() override { return sondera::PersonAnswers(); }
  void Redraw() override { DoPlotting(kMeasurementPage); }
};

/// The page and the controls of a run, from its start to its end of any kind.
class RunPage {
 public:
  RunPage()
      : lock_(
            {&measpanel::STOPMEAS, &measpanel::SASWPAUSECONT, &measpanel::DISPAID, &measpanel::DISPA_REFCHNL,
             &measpanel::DISPACHNL, &measpanel::DISPATYPE, &measpanel::DISPBID, &measpanel::DISPB_REFCHNL,
             &measpanel::DISPBCHNL, &measpanel::DISPBTYPE, &measpanel::TRACE_ONOFF, &measpanel::LOG_LINEAR,
             &measpanel::VOLT_UNIT, &measpanel::MARKERS_ONOFF, &measpanel::AUTOSCALE_X,
             &measpanel::AUTOSCALE_Y, &measpanel::REDRAW, &measpanel::DISPLAY_A, &measpanel::DISPLAY_B},
            session.appTitle, kRunning) {
    ForgetHalt();
    SetWaitCursor(true);
    SetCtrlVal(measpanel::MEAS_ARM_LED, 1);
    DeleteGraphPlot(measpanel::DISPLAY_A);
    DeleteGraphPlot(measpanel::DISPLAY_B);
    SetCtrlVal(measpanel::DISPA_AVGCOUNT, "");
    ResetTextBox(measpanel::MSGBOX);
    SetCtrlVal(measpanel::SASWPAUSECONT, 0);
    SetCtrlVal(hmsetup::PROJID, session.curProjID);
    SetCtrlVal(hmsetup::MEASID, session.curMeasID);
    measRun = {.measRunning = 1};
    session.avgCount = 0;
  }
  ~RunPage() {
    measRun.measRunning = measRun.measPaused = 0;
    if (measRun.measStopped) NoteHalt();
    SetCtrlVal(measpanel::SASWPAUSECONT, 0);
    SetCtrlVal(measpanel::MEAS_ARM_LED, 0);
    ResetTextBox(measpanel::MSGBOX);
    SetWaitCursor(false);
  }
  RunPage(const RunPage&) = delete;
  RunPage& operator=(const RunPage&) = delete;

 private:
  ControlLock lock_;
};

RunEnd RunOnPage(int key) {
  const RunPage page;
  PageListener listener;
  return PerformMeas(key, listener);
}

}  // namespace

int SASWStartCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (measRun.measRunning) return Refuse(kRunning);
  const MeasRecords records = CurrentSetup();
  if (records.hwPos < 1) return -1;
  if (!HasBoard()) return Refuse("There is no acquisition board.");
  const int key = records.hwSetup->key;
  if (records.hwSetup->freqSpan < 0.0 && !MayRemoveData(key)) return -1;
  const RunEnd end = RunOnPage(key);
  for (const std::string& text : end.boxes) MessagePopup(session.appTitle, text);
  return end.result == 0 ? 0 : -1;
}

int SASWPauseContCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) measRun.measPaused = GetCtrlVal(measpanel::SASWPAUSECONT);
  return 0;
}

int SASWstopCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  StopProcedure(0);
  SetWaitCursor(false);
  SetCtrlVal(measpanel::MEAS_ARM_LED, 0);
  return 0;
}

}  // namespace sondera
