// pulse.cpp - see pulse.h.
#include "panels/pulse.h"

#include "panels/analresult.h"
#include "panels/panels_state.h"
#include "project/section_io.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/pulse.h"
#include "runtime/dialogs.h"

namespace sondera {
namespace {

constexpr int kFromFile = 0;
constexpr const char* kBoxTitle = "Sondera 2.0";

void ShowTime(const TextControl& field, double seconds) {
  std::string text;
  GetNiceTimeStr(seconds, text);
  SetCtrlVal(field, text);
}

int OpenLayers() {
  return Commit(mainmenu::FMODEL_PARAM);
}

}  // namespace

void SetPulseParm() {
  PulseParam& p = panelsState.pulse;
  SetCtrlVal(pulse::SHAPE, p.shape);
  if (p.shape == kFromFile) SetCtrlVal(pulse::FILE, p.fileName);
  SetCtrlVal(pulse::CFREQ, p.centerFreq);
  SetCtrlVal(pulse::FREQSPAN, p.freqSpan);
  SetCtrlVal(pulse::NPOINTS, p.nPoints);
  p.deltaT = p.freqSpan > 0.0 ? 0.5 / p.freqSpan : 0.0;
  p.timeLength = p.nPoints * p.deltaT;
  ShowTime(pulse::DELTAT, p.deltaT);
  ShowTime(pulse::TOTALT, p.timeLength);
}

void GetPulseParm() {
  PulseParam& p = panelsState.pulse;
  p.shape = GetCtrlVal(pulse::SHAPE);
  if (p.shape == kFromFile) p.fileName = GetCtrlVal(pulse::FILE);
  p.centerFreq = GetCtrlVal(pulse::CFREQ);
  p.freqSpan = GetCtrlVal(pulse::FREQSPAN);
  p.nPoints = GetCtrlVal(pulse::NPOINTS);
}

int Pulse_WaveformMenuCallback(Panel, ControlId, Event, long) {
  SetPulseParm();
  DisplayPanel(Panel::PULSE);
  return 0;
}

int Pulse_LayeringRecMenuCallback(Panel, ControlId, Event, long) {
  return OpenLayers();
}

int Pulse_OpenProfileRecCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? OpenLayers() : 0;
}

int Pulse_SrcShapeCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) panelsState.pulse.shape = GetCtrlVal(pulse::SHAPE);
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
    LoadSrcFunction(choice.path);
    return 0;
  }
  MessagePopup(kBoxTitle,
               choice.answer == FileAnswer::IsNew ? "File does not exist." : "Error in reading the file.");
  return -1;
}

void LoadSrcFunction(const std::string&) {}

int Pulse_CloseCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit || event == Event::Close) HidePanel(Panel::PULSE);
  return 0;
}

}  // namespace sondera
