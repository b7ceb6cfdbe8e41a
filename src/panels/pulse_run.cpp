// pulse_run.cpp - see pulse_run.h. Owns no state.
#include "panels/pulse_run.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "forward/waveform.h"
#include "forward/waveform_site.h"
#include "numeric/scale_arithmetic.h"
#include "panels/fmodeling_records.h"
#include "panels/loadtxdata_import.h"
#include "panels/panels_state.h"
#include "panels/pulse.h"
#include "panels/pulse_display.h"
#include "panels/run_boxes.h"
#include "panels/undo.h"
#include "project/waveform_files.h"
#include "records/measdb.h"
#include "records/selection.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/pulse.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/files.h"
#include "runtime/findings.h"
#include "runtime/paths.h"
#include "runtime/redraw.h"
#include "runtime/text_format.h"
#include "signal/masking.h"

namespace sondera {
namespace {

using namespace pulse;

constexpr int kMaskingPage = 1;
constexpr double kLowestOfBand = 0.2, kHighestOfBand = 4.0;  // of the centre frequency
constexpr char kNoRecord[] = "There is no record yet. Press Run first.";

/// Ground, receivers and settings from the panels. -1 after a message.
int GetSetup(WaveformSetup& setup) {
  GetPulseParm();
  if (GetFModelParam_AS() < 0 || GetFModelParam_R() < 0) return -1;
  if (ShowRefusal(SiteOfModel(FModelParam, setup.site)) < 0) return -1;
  setup.pulse = panelsState.pulse;
  setup.motion = static_cast<WaveformMotion>(GetCtrlVal(MOTION));
  if (setup.pulse.shape != kPulseFile) return 0;
  if (setup.pulse.fileName.empty()) return Refuse("The source is a file, and none is chosen.");
  if (ShowRefusal(LoadSrcFunction(setup.pulse.fileName)) < 0) return -1;
  setup.source = panelsState.waveform.source;
  return 0;
}

std::string StatusOf(const WaveformSetup& setup, const WaveformResult& result) {
  std::string text = FormatText("%zu receivers, %d points every %.4g s, %.4g s.", result.record.trace.size(),
                                setup.pulse.nPoints, setup.pulse.deltaT, setup.pulse.timeLength);
  for (const std::string& note : result.notes) text += "\n" + note;
  return text;
}

int FitToSite() {
  WaveformSetup setup;
  if (GetSetup(setup) < 0) return -1;
  PulseRecord fitted = setup.pulse;
  if (ShowRefusal(FitToSite(setup, fitted)) < 0) return -1;
  panelsState.pulse = fitted;
  SetPulseParm();
  return 0;
}

int RunWaveform() {
  WaveformSetup setup;
  if (GetSetup(setup) < 0) return -1;
  WaveformResult result;
  Refusal refusal;
  {
    const AnalysisLock lock(&HALT, "A waveform is being computed. Please halt it first.");
    SetWaitCursor(true);
    RunBoxes boxes(STATUSMSG);
    refusal = GenerateWaveform(setup, boxes, result);
    SetWaitCursor(false);
  }
  if (refusal) {
    SetCtrlVal(STATUSMSG,
               refusal.reason().empty() ? "The run was halted; nothing of it is kept." : refusal.reason());
    return ShowRefusal(refusal);
  }
  setup.pulse.Derive();
  SetCtrlVal(STATUSMSG, StatusOf(setup, result));
  for (const std::string& note : result.notes) AddNote(note);
  panelsState.waveform.setup = std::move(setup);
  panelsState.waveform.result = std::move(result);
  panelsState.waveform.made = true;
  ShowNewWaveform();
  return 0;
}

int SaveResults() {
  const WaveformState& w = panelsState.waveform;
  if (!w.made) return Refuse(kNoRecord);
  const FileChoice choice = FileSelectPopup({ProjectDirectory(), "*.tim", "Save the waveform.", true});
  if (choice.answer == FileAnswer::Cancelled || choice.path.empty()) return 0;
  const std::string base = WaveformBase(choice.path);
  const int option = GetCtrlVal(SAVEOPTION);
  const std::vector<std::string> files = WaveformFiles(base, option, w.result.record.trace.size());
  if (std::any_of(files.begin(), files.end(), [](const std::string& f) { return FileExists(f); }) &&
      !ConfirmPopup(session.appTitle, "File already exists. Do you want to overwrite it ?"))
    return -1;
  if (ShowRefusal(SaveWaveform(base, option, w.setup, w.result, LengthUnitText(session.lengthUnit))) < 0)
    return -1;
  SetCtrlVal(STATUSMSG, FormatText("Saved: %s", FileNameOf(files.front()).c_str()) +
                            (files.size() > 1 ? " ... " + FileNameOf(files.back()) : ""));
  return 0;
}

// --- to a measurement ---

/// The masks of one pair outside a band; the first with the number of cycles below the band.
Refusal MaskOutside(int key, int near, double lowest, double highest, const HWSetup& hw) {
  const auto line = static_cast<std::size_t>(std::lround(lowest / hw.deltaF));
  const int cycles = CyclesPassed(panelsState.waveform.result.lines, static_cast<std::size_t>(near),
                                  static_cast<std::size_t>(near) + 1, line);
  Refusal refusal = NewMask({key, near, near + 1, 0.0, lowest, cycles}, hw.deltaF);
  const double end = hw.deltaF * hw.nLines;
  if (!refusal && highest < end) refusal = NewMask({key, near, near + 1, highest, end, 0}, hw.deltaF);
  return refusal;
}

void OfferMasks(const std::string& measID) {
  const PulseRecord& pulse = panelsState.waveform.setup.pulse;
  const int key = GetKeyFromID(session.curProjID, measID);
  MeasRecords records;
  if (pulse.shape == kPulseFile || GetInfoFromKey(key, records) == -1 || records.hwPos < 1) return;
  if (records.hwSetup->nChannels < 2) return;
  constexpr int kDigits = 3;
  const double lowest = NiceNumber(kLowestOfBand * pulse.centerFreq, kDigits),
               highest = NiceNumber(kHighestOfBand * pulse.centerFreq, kDigits);
  if (!ConfirmPopup(session.appTitle,
                    FormatText("Mask the pairs of neighbours outside %g to %g Hz ?", lowest, highest)))
    return;
  const UndoStep step("Masks of the waveform");
  for (int near = 0; near + 1 < records.hwSetup->nChannels; ++near)
    if (ShowRefusal(MaskOutside(key, near, lowest, highest, *records.hwSetup)) < 0) return;
  DoPlotting(kMaskingPage);
}

/// Several blows are averages of one measurement, one blow its only record.
int Import(const std::vector<WaveformRecord>& blows, const std::string& measID) {
  if (blows.size() == 1) return LoadTimeData(ImportOfRecord(blows.front(), measID, session.lengthUnit));
  if (GetKeyFromID(GetCtrlVal(hmsetup::PROJID), measID) != -1 && !AskToOverwrite()) return -1;
  const ShotRequest request = ImportOfBlows(blows, measID, session.lengthUnit, session.alphaWlen);
  ShotPlan plan;
  std::string reason = PlanShots(request, plan);
  if (reason.empty()) reason = LoadShots(request, plan);
  return reason.empty() ? 0 : Refuse(reason);
}

int ToMeasurement() {
  const WaveformState& w = panelsState.waveform;
  if (!w.made) return Refuse(kNoRecord);
  const std::string measID = GetCtrlVal(MEASID);
  if (measID.empty()) return Refuse("Empty ID String !");
  const std::size_t receivers = w.result.record.trace.size();
  if (receivers > kMostMeasured)
    return Refuse(FormatText("A measurement takes up to %zu receivers, and the record has %zu.",
                             kMostMeasured, receivers));
  BlowSettings settings;
  settings.blows = GetCtrlVal(BLOWS);
  settings.noise = GetCtrlVal(NOISE);
  settings.hum = GetCtrlVal(HUM);
  settings.humFrequency = GetCtrlVal(HUMFREQ);
  settings.seed = static_cast<std::uint64_t>(std::max(GetCtrlVal(SEED), 0));
  std::vector<WaveformRecord> blows;
  if (ShowRefusal(MakeBlows(w.result.record, settings, blows)) < 0) return -1;
  if (Import(blows, measID) < 0) return -1;
  SetCtrlVal(STATUSMSG, "The record is the measurement " + measID + ".");
  OfferMasks(measID);
  return 0;
}

}  // namespace

int Pulse_FitToSiteCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? FitToSite() : 0;
}
int Pulse_RunWaveFormGenCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? RunWaveform() : 0;
}
int Pulse_SaveResultsCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? SaveResults() : 0;
}
int Pulse_ToMeasurementCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? ToMeasurement() : 0;
}
int Pulse_RunFullWaveMenuCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? Commit(RUN) : 0;
}
int Pulse_SaveResultsMenuCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? Commit(SAVE) : 0;
}

}  // namespace sondera
