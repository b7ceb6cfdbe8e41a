// input_lines.cpp - see input_lines.h.
#include "app/script/input_lines.h"

#include <algorithm>
#include <utility>

#include "app/script/control_values.h"
#include "app/script/line.h"
#include "app/script/names.h"
#include "app/script/press_words.h"
#include "app/script/values.h"
#include "app/script/words.h"
#include "records/session.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/text_format.h"

namespace sondera::script {
namespace {

constexpr std::string_view kPhases[] = {"original", "enhanced", "backbone"};

bool Is(const Input& input, const Control& control) {
  return input.control == &control;
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

// --- tables ---

std::string CellLine(const TableControl& table, int row, int column) {
  return FormatText("cell %s %d %d ", NameOf(table).c_str(), row, column) +
         TextOf(GetTableCellVal(table, row, column));
}

/// The first cells, as one line that a script can have; `from` becomes the first cell of the next line. Rows
/// that follow one another, and columns from that of the first cell on; what is between them stays.
std::string BlockLine(const TableControl& table, const std::vector<std::pair<int, int>>& cells,
                      std::size_t& from) {
  const auto [firstRow, firstColumn] = cells[from];
  std::string text = FormatText("cells %s %d %d ", NameOf(table).c_str(), firstRow, firstColumn);
  constexpr std::size_t kLongestNumber = 32;
  int row = firstRow, column = firstColumn;
  for (const std::size_t first = from; from < cells.size(); ++from) {
    const auto [nextRow, nextColumn] = cells[from];
    const bool inOrder = from == first || nextRow > row || (nextRow == row && nextColumn > column);
    if (!inOrder || nextColumn < firstColumn) break;
    const int down = nextRow - row, right = nextColumn - (down > 0 ? firstColumn : column);
    if (text.size() + static_cast<std::size_t>(down + right) + kLongestNumber > kLongestLine) break;
    text.append(static_cast<std::size_t>(down), ';').append(static_cast<std::size_t>(right), ',');
    text += TextOf(GetTableCellVal(table, nextRow, nextColumn));
    row = nextRow;
    column = nextColumn;
  }
  return text;
}

/// One line for the block, since it is one step of Undo. A block that is too long has several.
InputLine LineOfCells(const Input& input) {
  const auto& table = static_cast<const TableControl&>(*input.control);
  InputLine line;
  if (input.cells.size() == 1) {
    line.lines.push_back(CellLine(table, input.cells[0].first, input.cells[0].second));
    return line;
  }
  for (std::size_t from = 0; from < input.cells.size();)
    line.lines.push_back(BlockLine(table, input.cells, from));
  return line;
}

// --- presses ---

/// The word, where it can say the same; else the press, with the answers before it.
InputLine LineOfPress(const Input& input, InputEnd end, InputLine prepared, const GivenAnswers& answers) {
  if (prepared.finish) {
    const bool notes = prepared.notesMessages && end == InputEnd::Told;
    const std::string line = end == InputEnd::Done || notes ? prepared.finish(answers) : "";
    if (!line.empty() && CanBeBound(line)) {
      prepared.neverRefused = notes;
      prepared.lines = {line};
      prepared.dropsAnswers = true;
      return prepared;
    }
  } else if (!prepared.lines.empty() && (answers.empty() || prepared.keepsAnswers)) {
    return prepared;
  }
  return OneLine(PressText(*input.control, input.event));
}

/// The word opens without a question. A cancelled dialog, or a file that does not exist, gives no line.
InputLine LineOfOpen(bool opened, const GivenAnswers& answers) {
  InputLine line;
  line.dropsAnswers = line.neverRefused = true;
  const bool cancelled = CountOf(answers, GivenAnswer::Kind::Cancel) > 0;
  if (opened || (session.readInPart && !cancelled))
    line.lines.push_back("open " + PathText(session.projectFileName) + " discard=yes" +
                         (session.readInPart ? " damaged=yes" : ""));
  return line;
}

}  // namespace

bool OnlyItsLastValueCounts(const Control& c) {
  using namespace sasw;
  const bool movesMarkers = &c == &MASKING_FREQINIT || &c == &MASKING_FREQFINAL || &c == &MASKING_JUMPNO;
  return !CallbackOf(c) || movesMarkers;
}

InputLine LineBefore(const Input& input) {
  const bool presses = input.kind == Input::Kind::Press && input.event == Event::Commit;
  return presses ? WordOfPress(*input.control) : InputLine{};
}

InputLine LineOfEntry(const Input& input) {
  const Control& c = *input.control;
  if (input.kind == Input::Kind::Cells) return LineOfCells(input);
  if (input.event == Event::LeftDoubleClick) {
    InputLine line = OneLine(SetText(c) + (SetText(c).starts_with("set") ? " commit=no" : ""));
    line.lines.push_back(PressText(c, input.event));
    return line;
  }
  if (Is(input, sasw::DISPCURV_OPTION) && WorksOnTraceA()) {
    const int phase = GetCtrlVal(sasw::DISPCURV_OPTION);
    if (phase >= 0 && phase < 3) return OneLine("phase " + std::string(kPhases[phase]));
  }
  if (Is(input, hmsetup::PROJID)) return OneLine("project id=" + ArgumentText(GetCtrlVal(hmsetup::PROJID)));
  if (Is(input, exdthd::ITERNO)) return OneLine("select " + EntryName(GetCtrlVal(exdthd::ITERNO)));
  InputLine line = OneLine(SetText(c));
  if (OnlyItsLastValueCounts(c)) line.replaces = &c;
  return line;
}

InputLine LineBehind(const Input& input, InputEnd end, InputLine prepared, const GivenAnswers& answers) {
  switch (input.kind) {
    case Input::Kind::Press:
      return LineOfPress(input, end, std::move(prepared), answers);
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
  return LineOfOpen(end == InputEnd::Done, answers);
}

}  // namespace sondera::script
