// press_words.cpp - see press_words.h: the table, and the presses about pairs, masks and curves.
#include "app/script/press_words.h"

#include <cmath>
#include <utility>

#include "app/script/control_values.h"
#include "app/script/names.h"
#include "app/script/values.h"
#include "app/script/words.h"
#include "panels/irfsetpnl.h"
#include "panels/trace_selection.h"
#include "records/curve_labels.h"
#include "records/session.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/gaborpnl.h"
#include "runtime/catalogue/irfsetpnl.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/text_format.h"
#include "signal/irf.h"
#include "signal/masking.h"

namespace sondera::script {

bool WorksOnTraceA() {
  return GetCtrlVal(sasw::TRACE_ONOFF) == 0;
}

InputLine OneLine(std::string line) {
  InputLine made;
  made.lines.push_back(std::move(line));
  return made;
}

InputLine WithAnswers(std::function<std::string(const GivenAnswers&)> finish) {
  InputLine made;
  made.finish = std::move(finish);
  return made;
}

std::string WithFlag(const std::string& line, const GivenAnswers& answers, std::string_view flag) {
  if (CountOf(answers, GivenAnswer::Kind::Yes) != answers.size()) return "";
  return line + (answers.empty() || flag.empty() ? "" : " " + std::string(flag));
}

namespace {

// --- masks ---

std::string RangeText() {
  using namespace sasw;
  const double from = GetCtrlVal(MASKING_FREQINIT), to = GetCtrlVal(MASKING_FREQFINAL);
  const int jumps = static_cast<int>(GetCtrlVal(MASKING_JUMPNO));
  if (!(from >= 0.0) || !(to > from) || jumps < 0) return "";
  return TextOf(from) + " " + TextOf(to) + (jumps != 0 ? " jumps=" + std::to_string(jumps) : "");
}

std::vector<ControlId> RangeFields() {
  return {&sasw::MASKING_FREQINIT, &sasw::MASKING_FREQFINAL, &sasw::MASKING_JUMPNO};
}

/// The fields of a new mask are arguments of the word.
InputLine NewMask(const Control&) {
  const std::string range = RangeText();
  if (range.empty() || !WorksOnTraceA()) return {};
  InputLine line = OneLine("mask " + range);
  line.replaced = RangeFields();
  return line;
}

/// A frequency at which the word finds the picked mask of the pair on display; no value where it would find
/// another one.
std::optional<double> FrequencyOfPicked() {
  if (!WorksOnTraceA()) return std::nullopt;
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  const PickedMask& picked = session.selMask;
  if (current.key != picked.key || current.refChan != picked.refChan || current.dspChan != picked.dspChan)
    return std::nullopt;
  const double middle = 0.5 * (picked.freqInit + picked.freqFinal);
  double from = 0.0, to = 0.0;
  int jumps = 0;
  const bool found =
      GetMaskInform(current.key, current.refChan, current.dspChan, middle, jumps, from, to) == 0;
  if (!found || from != picked.freqInit || to != picked.freqFinal || jumps != picked.jumpNo)
    return std::nullopt;
  return middle;
}

/// The word picks the mask, which puts its range into the fields and two markers on the graph.
InputLine DeleteMask(const Control&) {
  using namespace sasw;
  constexpr int kTwoMarkers = 2;
  const auto frequency = FrequencyOfPicked();
  const PickedMask& picked = session.selMask;
  const bool asPicked =
      GetCtrlVal(MASKING_FREQINIT) == picked.freqInit && GetCtrlVal(MASKING_FREQFINAL) == picked.freqFinal &&
      GetCtrlVal(MASKING_JUMPNO) == picked.jumpNo && GetCtrlVal(MARKERS_ONOFF) == kTwoMarkers;
  if (!frequency || !asPicked) return {};
  return WithAnswers([line = "mask delete " + TextOf(*frequency)](const GivenAnswers& answers) {
    return answers.empty() ? line : "";
  });
}

InputLine UpdateMask(const Control&) {
  const std::string range = RangeText();
  const auto frequency = FrequencyOfPicked();
  if (!frequency || range.empty()) return {};
  InputLine line = WithAnswers([text = "mask update " + TextOf(*frequency) + " " + range](
                                   const GivenAnswers& answers) { return answers.empty() ? text : ""; });
  line.replaced = RangeFields();
  return line;
}

InputLine ResetMasks(const Control&) {
  return WorksOnTraceA() ? OneLine("mask clear") : InputLine{};
}

InputLine AutoMasks(const Control&) {
  if (!WorksOnTraceA()) return {};
  return WithAnswers([](const GivenAnswers& answers) { return WithFlag("mask auto", answers, ""); });
}

// --- windows of the filter ---

using WindowFields = std::array<const NumericControl*, 4>;
constexpr WindowFields kTimes = {&irfsetpnl::SMIRF_T1, &irfsetpnl::SMIRF_T2, &irfsetpnl::SMIRF_T3,
                                 &irfsetpnl::SMIRF_T4};
constexpr WindowFields kVelocities[] = {
    {&irfsetpnl::SMIRF_V1, &irfsetpnl::SMIRF_V2, &irfsetpnl::SMIRF_V3, &irfsetpnl::SMIRF_V4},
    {&irfsetpnl::BBIRF_V1, &irfsetpnl::BBIRF_V2, &irfsetpnl::BBIRF_V3, &irfsetpnl::BBIRF_V4}};
constexpr const char* kWindows[] = {"enhanced", "backbone"};

InputLine WindowLine(const char* window, const char* argument, const WindowFields& fields) {
  constexpr const char* kModes[] = {"bandpass", "lowpass"};
  const int mode = GetCtrlVal(irfsetpnl::IRFMODE);
  if (mode < 0 || mode > 1) return {};
  std::string numbers;
  for (const NumericControl* field : fields)
    numbers += (numbers.empty() ? "" : ",") + TextOf(GetCtrlVal(*field));
  InputLine line =
      WithAnswers([text = FormatText("window %s %s %s=%s", window, kModes[mode], argument, numbers.c_str())](
                      const GivenAnswers& answers) { return answers.empty() ? text : ""; });
  line.replaced.assign(fields.begin(), fields.end());
  return line;
}

/// OK takes the velocities of both windows, and the word sets one of them.
InputLine VelocityWindow(const Control&) {
  if (!WorksOnTraceA()) return {};
  const bool enhancedStays = ShowsStoredVelocities(kEnhancedWindow),
             backboneStays = ShowsStoredVelocities(kBackboneWindow);
  if (!enhancedStays && !backboneStays) return {};
  const std::size_t window = backboneStays ? kEnhancedWindow : kBackboneWindow;
  return WindowLine(kWindows[window], "velocities", kVelocities[window]);
}

/// Apply takes the times of the enhanced window as they stand.
InputLine TimeWindow(const Control&) {
  using namespace irfsetpnl;
  if (!WorksOnTraceA() || !ShowsStoredVelocities(kBackboneWindow)) return {};
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  IrfGeometry geometry;
  if (!current.pair || !GetIrfGeometry(current, geometry)) return {};
  const bool isShown = GetCtrlVal(MEASID) == current.records.measID &&
                       GetCtrlVal(REFCHNL) == current.refChan + 1 &&
                       GetCtrlVal(DSPCHNL) == current.dspChan + 1;
  const bool mirrored = GetCtrlVal(SMIRF_T3) == geometry.total - GetCtrlVal(SMIRF_T2) &&
                        GetCtrlVal(SMIRF_T4) == geometry.total - GetCtrlVal(SMIRF_T1);
  if (!isShown || (GetCtrlVal(IRFMODE) == kLowPass && !mirrored)) return {};
  return WindowLine(kWindows[kEnhancedWindow], "times", kTimes);
}

// --- curves ---

InputLine Disperse(const Control&) {
  return OneLine("disperse");
}

/// A pair that moves to the other list.
InputLine Move(const Control& pressed) {
  const bool includes = &pressed == &dispcurv::INCLUDE;
  const ListControl& from = includes ? dispcurv::LIST_EXCLUDED : dispcurv::LIST_INCLUDED;
  const PMeasInfo* pair = PairOfLabel(GetLabelFromIndex(from, GetCtrlIndex(from)));
  std::string projID, measID;
  if (!pair) return {};
  GetIDfromKey(pair->key, projID, measID);
  InputLine line = OneLine((includes ? "include " : "exclude ") + ArgumentText(measID) +
                           FormatText(" %d %d", pair->refChan + 1, pair->dspChan + 1));
  line.replaced = {&from};
  return line;
}

/// The word opens the dialog, which gives new pairs an order and shows that of the first one.
InputLine Condense(const Control&) {
  using namespace cdisppnl;
  const PMeasInfo* first = nullptr;
  for (const PMeasInfo& pair : MeasDB.pMeasList) {
    if (pair.included != 1) continue;
    if (pair.polyOrderA == 0) return {};
    if (!first) first = &pair;
  }
  if (GetCtrlIndex(ARRAY_DISPCURVELIST) > 0 || (first && GetCtrlVal(ARRAY_POLYORDER) != first->polyOrderA))
    return {};
  InputLine line = OneLine("condense");
  line.keepsAnswers = true;
  return line;
}

// --- Gabor map ---

struct GaborField {
  const Control& control;
  double stored;  ///< by which opening the panel fills it; NAN: not known
};

InputLine Gabor(const Control&) {
  using namespace gaborpnl;
  const PMeasInfo* pair = WorksOnTraceA() ? FindCurrentPair(Panel::SASW).pair : nullptr;
  if (!pair) return {};
  const double finalTime = pair->finalTime > 0.0 ? pair->finalTime : NAN,
               finalFreq = pair->finalFreq > 0.0 ? pair->finalFreq : NAN;
  const GaborField kFields[] = {{INITTIME, 0.0},
                                {FINALTIME, finalTime},
                                {TIMEDIV, static_cast<double>(pair->timeDiv)},
                                {INITFREQ, 0.0},
                                {FINALFREQ, finalFreq},
                                {FREQDIV, static_cast<double>(pair->freqDiv)},
                                {BETA, pair->beta},
                                {BAND, pair->band},
                                {NCONTLEVEL, static_cast<double>(pair->nContLevel)},
                                {CNTTHRESHOLD, pair->cntThreshold}};
  std::string text = "gabor";
  InputLine line;
  for (const GaborField& field : kFields) {
    line.replaced.push_back(&field.control);
    const std::string value = ValueOf(field.control);
    if (value == TextOf(field.stored)) continue;
    std::string name(field.control.name);
    for (char& c : name) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    text += " " + name + "=" + value;
  }
  line.finish = [text](const GivenAnswers& answers) { return answers.empty() ? text : ""; };
  return line;
}

// --- undo ---

InputLine TakeBack(const Control& pressed) {
  return WithAnswers([line = &pressed == &mainmenu::UNDO ? "undo" : "redo"](const GivenAnswers& answers) {
    return answers.empty() ? line : "";
  });
}

std::vector<PressRow> AllRows() {
  std::vector<PressRow> rows;
  for (const auto subject : {FilePresses, ImportPresses, PairPresses, RunPresses})
    for (const PressRow& row : subject()) rows.push_back(row);
  return rows;
}

}  // namespace

std::vector<PressRow> PairPresses() {
  return {{&sasw::MASKINGNEW, "mask", NewMask},
          {&sasw::MASKINGDEL, "mask", DeleteMask},
          {&sasw::MASKINGUPDATE, "mask", UpdateMask},
          {&sasw::MASKINGRESET, "mask", ResetMasks},
          {&sasw::MASKINGAUTO, "mask", AutoMasks},
          {&irfsetpnl::OK, "window", VelocityWindow},
          {&irfsetpnl::APPLY, "window", TimeWindow},
          {&gaborpnl::CALC, "gabor", Gabor},
          {&sasw::MASKINGCALCDISP, "disperse", Disperse},
          {&dispcurv::INCLUDE, "include", Move},
          {&dispcurv::EXCLUDE, "exclude", Move},
          {&cdisppnl::CALC, "condense", Condense},
          {&mainmenu::UNDO, "undo", TakeBack},
          {&mainmenu::REDO, "redo", TakeBack}};
}

InputLine WordOfPress(const Control& pressed) {
  static const std::vector<PressRow> rows = AllRows();
  for (const PressRow& row : rows)
    if (row.control == &pressed) return row.line(pressed);
  if (pressed.name != "REDRAW") return {};
  // Every page with graphs has a button that redraws them, and a word that names one of them.
  for (ControlId c : ControlsOf(pressed.panel))
    if (c->kind == ControlKind::Graph) return OneLine("plot " + NameOf(*c));
  return {};
}

std::vector<PressWord> PressesWithWords() {
  std::vector<PressWord> words;
  for (const PressRow& row : AllRows()) words.push_back({row.control, row.word});
  return words;
}

}  // namespace sondera::script
