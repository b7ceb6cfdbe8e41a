// input_lines.cpp - see input_lines.h.
#include "app/script/input_lines.h"

#include <algorithm>
#include <utility>

#include "app/script/control_values.h"
#include "app/script/names.h"
#include "app/script/values.h"
#include "app/script/words.h"
#include "records/curve_labels.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/paths.h"
#include "runtime/text_format.h"

namespace sondera::script {
namespace {

constexpr std::string_view kAuto = "mask auto";
constexpr std::string_view kPhases[] = {"original", "enhanced", "backbone"};

bool WorksOnTraceA() {
  return GetCtrlVal(sasw::TRACE_ONOFF) == 0;
}

bool Is(const Input& input, const Control& control) {
  return input.control == &control;
}

InputLine OneLine(std::string line) {
  InputLine made;
  made.lines.push_back(std::move(line));
  return made;
}

// --- words of presses ---

/// The fields of a new mask are arguments of the word.
InputLine MaskLine() {
  using namespace sasw;
  const double from = GetCtrlVal(MASKING_FREQINIT), to = GetCtrlVal(MASKING_FREQFINAL);
  const int jumps = static_cast<int>(GetCtrlVal(MASKING_JUMPNO));
  if (!(from >= 0.0) || !(to > from) || jumps < 0 || !WorksOnTraceA()) return {};
  InputLine line = OneLine("mask " + TextOf(from) + " " + TextOf(to) +
                           (jumps != 0 ? " jumps=" + std::to_string(jumps) : ""));
  line.replaced = {&MASKING_FREQINIT, &MASKING_FREQFINAL, &MASKING_JUMPNO};
  return line;
}

/// A pair that moves to the other list.
InputLine MoveLine(const char* word, const ListControl& from) {
  const PMeasInfo* pair = PairOfLabel(GetLabelFromIndex(from, GetCtrlIndex(from)));
  std::string projID, measID;
  if (!pair) return {};
  GetIDfromKey(pair->key, projID, measID);
  InputLine line = OneLine(std::string(word) + " " + ArgumentText(measID) +
                           FormatText(" %d %d", pair->refChan + 1, pair->dspChan + 1));
  line.replaced = {&from};
  return line;
}

/// Every page with graphs has a button that redraws them, and a word that names one of them.
InputLine PlotLine(const Control& redraw) {
  for (ControlId c : ControlsOf(redraw.panel))
    if (c->kind == ControlKind::Graph) return OneLine("plot " + NameOf(*c));
  return {};
}

InputLine WordOfPress(const Input& input) {
  if (input.event != Event::Commit) return {};
  if (Is(input, sasw::MASKINGNEW)) return MaskLine();
  if (Is(input, sasw::MASKINGRESET) && WorksOnTraceA()) return OneLine("mask clear");
  if (Is(input, sasw::MASKINGAUTO) && WorksOnTraceA()) return OneLine(std::string(kAuto));
  if (Is(input, sasw::MASKINGCALCDISP)) return OneLine("disperse");
  if (Is(input, dispcurv::INCLUDE)) return MoveLine("include", dispcurv::LIST_EXCLUDED);
  if (Is(input, dispcurv::EXCLUDE)) return MoveLine("exclude", dispcurv::LIST_INCLUDED);
  if (Is(input, inversion::PERFORMINV) && IsPanelShown(Panel::INVERSION)) return OneLine("invert");
  if (input.control->name == "REDRAW") return PlotLine(*input.control);
  return {};
}

std::string_view EventName(Event event) {
  switch (event) {
    case Event::ValChanged:
      return " event=changed";
    case Event::LeftClick:
      return " event=left";
    case Event::RightClick:
      return " event=right";
    case Event::LeftDoubleClick:
      return " event=double";
    case Event::GotFocus:
      return " event=focus";
    case Event::LostFocus:
      return " event=blur";
    case Event::Close:
      return " event=close";
    default:
      return "";
  }
}

std::string PressText(const Control& control, Event event) {
  return "press " + NameOf(control) + std::string(EventName(event));
}

// --- values ---

bool HasItems(const Control& c) {
  return c.kind == ControlKind::Ring || c.kind == ControlKind::RealRing || c.kind == ControlKind::List;
}

/// Position of the first item with this value.
int FirstWithValue(const Control& c, double value) {
  for (int i = 0; i < items::Count(c); ++i)
    if (items::Value(c, i) == value) return i;
  return -1;
}

/// `set`, or `item` where the label is clearer than the value.
std::string SetText(const Control& c) {
  if (HasItems(c)) {
    const int index = items::Index(c);
    const std::string label = items::Label(c, index);
    if (FirstWithValue(c, items::Value(c, index)) != index && items::Find(c, label) == index)
      return "item " + NameOf(c) + " " + ArgumentText(label);
  }
  return "set " + NameOf(c) + " " + ArgumentText(ValueOf(c));
}

std::string EntryName(int entry) {
  return entry < 0 ? "smp:" + std::to_string(-entry) : "inv:" + std::to_string(entry);
}

// --- the mouse ---

std::string PointText(const Input& input, std::string_view event) {
  const GraphPlace& p = input.place;
  return "point " + NameOf(*input.control) + " " + std::string(event) + " " + TextOf(p.x) + " " + TextOf(p.y);
}

InputLine LineOfPoint(const Input& input) {
  const GraphPlace& p = input.place;
  switch (input.event) {
    case Event::Commit:
      return OneLine(p.cursor > 0 ? PointText(input, "move") + " cursor=" + std::to_string(p.cursor)
                                  : PointText(input, "left"));
    case Event::RightClick:
      return OneLine(PointText(input, "right"));
    case Event::LeftDoubleClick:
      return OneLine(PointText(input, "double"));
    case Event::Drag: {
      InputLine line = OneLine("point " + NameOf(*input.control) + " drag " + TextOf(p.fromX) + " " +
                               TextOf(p.fromY) + " " + TextOf(p.x) + " " + TextOf(p.y));
      line.replaces = input.control;
      return line;
    }
    default:
      return {};  // the event at the end of a click or of a marker's movement reports it
  }
}

/// The word opens without a question. A cancelled dialog, or a file that does not exist, gives no line.
InputLine LineOfOpen(bool opened, const std::vector<std::string>& answers) {
  InputLine line;
  line.dropsAnswers = line.neverRefused = true;
  const bool cancelled = std::find(answers.begin(), answers.end(), "answer cancel") != answers.end();
  if (opened || (session.readInPart && !cancelled))
    line.lines.push_back("open " + PathText(session.projectFileName) + " discard=yes" +
                         (session.readInPart ? " damaged=yes" : ""));
  return line;
}

}  // namespace

std::string PathText(const std::string& path) {
  const std::string here = CurrentDirectory() + "/";
  return ArgumentText(path.starts_with(here) && path.size() > here.size() ? path.substr(here.size()) : path);
}

bool OnlyItsLastValueCounts(const Control& c) {
  using namespace sasw;
  const bool movesMarkers = &c == &MASKING_FREQINIT || &c == &MASKING_FREQFINAL || &c == &MASKING_JUMPNO;
  return !CallbackOf(c) || movesMarkers;
}

InputLine LineBefore(const Input& input) {
  return input.kind == Input::Kind::Press ? WordOfPress(input) : InputLine{};
}

InputLine LineOfEntry(const Input& input) {
  const Control& c = *input.control;
  if (input.kind == Input::Kind::Cells) {
    const auto& table = static_cast<const TableControl&>(c);
    InputLine line;
    for (const auto& [row, column] : input.cells)
      line.lines.push_back(FormatText("cell %s %d %d ", NameOf(c).c_str(), row, column) +
                           TextOf(GetTableCellVal(table, row, column)));
    return line;
  }
  if (input.event == Event::LeftDoubleClick) {
    InputLine line = OneLine(SetText(c) + (SetText(c).starts_with("set") ? " commit=no" : ""));
    line.lines.push_back(PressText(c, input.event));
    return line;
  }
  if (Is(input, sasw::DISPCURV_OPTION) && WorksOnTraceA()) {
    const int phase = GetCtrlVal(sasw::DISPCURV_OPTION);
    if (phase >= 0 && phase < 3) return OneLine("phase " + std::string(kPhases[phase]));
  }
  if (Is(input, exdthd::ITERNO)) return OneLine("select " + EntryName(GetCtrlVal(exdthd::ITERNO)));
  InputLine line = OneLine(SetText(c));
  if (OnlyItsLastValueCounts(c)) line.replaces = &c;
  return line;
}

InputLine LineBehind(const Input& input, bool refused, InputLine prepared,
                     const std::vector<std::string>& answers) {
  switch (input.kind) {
    case Input::Kind::Press: {
      const bool saysYes =
          !prepared.lines.empty() && prepared.lines.front() == kAuto &&
          std::all_of(answers.begin(), answers.end(), [](const std::string& a) { return a == "answer yes"; });
      if (!prepared.lines.empty() && (answers.empty() || saysYes)) {
        prepared.dropsAnswers = true;
        return prepared;
      }
      return OneLine(PressText(*input.control, input.event));
    }
    case Input::Kind::Value:
    case Input::Kind::Cells:
      return prepared;
    case Input::Kind::Point:
      return LineOfPoint(input);
    case Input::Kind::Page:
      return OneLine("page " + std::string(PanelName(input.panel)) + " " + std::to_string(input.page + 1));
    case Input::Kind::Open:
      break;
  }
  return LineOfOpen(!refused, answers);
}

}  // namespace sondera::script
