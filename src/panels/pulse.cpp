// pulse.cpp - see pulse.h.
#include "panels/pulse.h"

#include <optional>
#include <utility>

#include "panels/analresult.h"
#include "panels/mainmenu.h"
#include "panels/panels_state.h"
#include "panels/pulse_display.h"
#include "project/waveform_files.h"
#include "records/pulse_record.h"
#include "records/session.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/pulse.h"
#include "runtime/dialogs.h"
#include "runtime/paths.h"

namespace sondera {
namespace {

constexpr const char* kBoxTitle = "Sondera 2.0";

void ShowTime(const TextControl& field, double seconds) {
  std::string text;
  if (seconds > 0.0) GetNiceTimeStr(seconds, text);
  SetCtrlVal(field, text);
}

int OpenLayers() {
  return Commit(mainmenu::FMODEL_PARAM);
}

}  // namespace

void SetPulseParm() {
  PulseParam& p = panelsState.pulse;
  SetCtrlVal(pulse::SHAPE, p.shape);
  if (p.shape == kPulseFile) SetCtrlVal(pulse::FILE, p.fileName);
  SetCtrlVal(pulse::CFREQ, p.centerFreq);
  SetCtrlVal(pulse::FREQSPAN, p.freqSpan);
  SetCtrlVal(pulse::NPOINTS, p.nPoints);
  if (p.freqSpan > 0.0)
    p.Derive();
  else
    p.deltaT = p.timeLength = 0.0;
  ShowTime(pulse::DELTAT, p.nPoints >= 1 ? p.deltaT : 0.0);
  ShowTime(pulse::TOTALT, p.timeLength);
}

void GetPulseParm() {
  PulseParam& p = panelsState.pulse;
  p.shape = GetCtrlVal(pulse::SHAPE);
  if (p.shape == kPulseFile) p.fileName = GetCtrlVal(pulse::FILE);
  p.centerFreq = GetCtrlVal(pulse::CFREQ);
  p.freqSpan = GetCtrlVal(pulse::FREQSPAN);
  p.nPoints = GetCtrlVal(pulse::NPOINTS);
}

int Pulse_WaveformMenuCallback(Panel, ControlId, Event, long) {
  SetPulseParm();
  if (const std::optional<Panel> page = HidePages()) panelsState.waveform.pageBefore = page;
  DisplayPanel(Panel::PULSE);
  DrawWaveform();
  return 0;
}

int Pulse_LayeringRecMenuCallback(Panel, ControlId, Event, long) {
  return OpenLayers();
}

int Pulse_OpenProfileRecCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? OpenLayers() : 0;
}

int Pulse_SrcShapeCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  PulseParam& p = panelsState.pulse;
  p.shape = GetCtrlVal(pulse::SHAPE);
  if (p.shape == kPulseFile) p.fileName = GetCtrlVal(pulse::FILE);
  return 0;
}

int Pulse_NPointsCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  PulseParam& p = panelsState.pulse;
  p.nPoints = GetCtrlVal(pulse::NPOINTS);
  p.centerFreq = GetCtrlVal(pulse::CFREQ);
  p.freqSpan = GetCtrlVal(pulse::FREQSPAN);
  SetPulseParm();
  return 0;
}

int Pulse_SrcFileBrowseCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const FileChoice choice = FileSelectPopup({ProjectDirectory(), "*.*", "Load a Source Function.", false});
  if (choice.answer == FileAnswer::Exists) {
    SetCtrlVal(pulse::FILE, choice.path);
    if (panelsState.pulse.shape == kPulseFile) panelsState.pulse.fileName = choice.path;
    SetCtrlVal(pulse::STATUSMSG, LoadSrcFunction(choice.path).reason());
    return 0;
  }
  MessagePopup(kBoxTitle,
               choice.answer == FileAnswer::IsNew ? "File does not exist." : "Error in reading the file.");
  return -1;
}

Refusal LoadSrcFunction(const std::string& path) {
  return ReadSourceFile(JoinUnlessAbsolute(CurrentDirectory(), path), panelsState.waveform.source);
}

int Pulse_CloseCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit && event != Event::Close) return 0;
  HidePanel(Panel::PULSE);
  if (const std::optional<Panel> page = std::exchange(panelsState.waveform.pageBefore, std::nullopt))
    DisplayPanel(*page);
  return 0;
}

}  // namespace sondera
