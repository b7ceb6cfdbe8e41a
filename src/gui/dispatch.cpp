// dispatch.cpp - see dispatch.h. Owns the nesting depth of events and the pending close request.
#include "gui/dispatch.h"

#include <QApplication>
#include <QTimer>

#include "gui/project_questions.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/panel.h"
#include "runtime/input_scope.h"
#include "runtime/project_hooks.h"
#include "runtime/redraw.h"

namespace sondera {
namespace {

struct DispatchState {
  int depth = 0;
  bool closeWaits = false;
  std::function<void()> showViews;
};
DispatchState state;

void ShowViews() {
  if (state.showViews) state.showViews();
}

/// The widget shows the store's value again: a value may have been refused, or restored by a callback.
void ShowAgain(const Control& c) {
  NoteChange({.kind = ChangeKind::Value, .panel = c.panel, .control = &c});
}

/// One event of a person. Its results are shown at its end.
class EventScope {
 public:
  EventScope() { ++state.depth; }
  ~EventScope() {
    if (state.depth == 1 && WaitCursorShown()) SetWaitCursor(false);
    ShowViews();
    --state.depth;
    if (state.depth == 0 && state.closeWaits) QTimer::singleShot(0, qApp, RequestClose);
  }
  EventScope(const EventScope&) = delete;
  EventScope& operator=(const EventScope&) = delete;
};

/// No other event is accepted during an event, except for the controls that a run names.
bool AcceptsEvent(const Control& c) {
  return Answers(c) && (state.depth == 0 || IsLocked());
}

/// Focus in and left click come before the value, since callbacks store the earlier state by them.
bool Enter(Input act, const std::function<bool()>& enter, std::initializer_list<Event> events) {
  const Control& c = *act.control;
  if (!Takes(c)) {
    ShowAgain(c);
    ShowViews();
    return false;
  }
  const EventScope scope;
  InputScope input(std::move(act));
  SendEvent(c, Event::GotFocus);
  SendEvent(c, Event::LeftClick);
  const bool entered = enter();
  if (entered) input.entered();
  if (entered)
    for (const Event event : events) {
      const int result = SendEvent(c, event);
      if (event != Event::ValChanged) input.note(result);  // the relevant event follows
    }
  ShowAgain(c);
  return entered;
}

Input ValueOf(const Control& c, Event event = Event::Commit) {
  return {.kind = Input::Kind::Value, .control = &c, .event = event};
}

void PressCloseOf(Panel panel) {
  for (const std::string_view name : {"CLOSE", "CANCEL", "OK"}) {
    const ControlId button = FindControl(panel, name);
    if (!button || button->kind != ControlKind::Button) continue;
    if (panel == Panel::DEVPANEL) break;  // its OK chooses a board
    if (CallbackOf(*button)) {
      InputScope input({.kind = Input::Kind::Press, .control = button});
      input.note(SendEvent(*button, Event::Commit));
    }
    break;
  }
  HidePanel(panel);
}

}  // namespace

bool Takes(const Control& c) {
  return AcceptsEvent(c) && !IsDimmed(c);
}

void SetShowViews(std::function<void()> show) {
  state.showViews = std::move(show);
}

bool InEvent() {
  return state.depth > 0;
}

bool DispatchPress(const Control& c) {
  if (!Takes(c)) return false;
  const EventScope scope;
  if (PressWithQuestions(c)) return true;
  InputScope input({.kind = Input::Kind::Press, .control = &c});
  input.note(SendEvent(c, Event::Commit));
  return true;
}

bool DispatchNumber(const Control& c, double value) {
  return Enter(ValueOf(c), [&] { return EnterValue(c, value); }, {Event::Commit});
}

bool DispatchText(const Control& c, std::string_view text) {
  return Enter(ValueOf(c), [&] { return EnterValue(c, text); }, {Event::Commit});
}

bool DispatchIndex(const Control& c, int index) {
  const auto enter = [&] { return EnterIndex(c, index); };
  return c.kind == ControlKind::List ? Enter(ValueOf(c), enter, {Event::ValChanged, Event::Commit})
                                     : Enter(ValueOf(c), enter, {Event::Commit});
}

void DispatchClick(const Control& c) {
  Enter(ValueOf(c), [] { return false; }, {});
}

bool DispatchDoubleClick(const Control& c, int index) {
  return Enter(ValueOf(c, Event::LeftDoubleClick), [&] { return EnterIndex(c, index); },
               {Event::LeftDoubleClick});
}

bool DispatchCells(const TableControl& c, const std::vector<CellEntry>& cells) {
  const auto enter = [&] {
    bool all = true;
    for (const CellEntry& cell : cells) all = EnterCell(c, cell.row, cell.column, cell.value) && all;
    return all;
  };
  Input act{.kind = Input::Kind::Cells, .control = &c};
  for (const CellEntry& cell : cells) act.cells.emplace_back(cell.row, cell.column);
  return Enter(std::move(act), enter, {Event::Commit});
}

bool DispatchGraph(const GraphControl& c, Event event, const GraphPlace& place) {
  if (!Takes(c)) return false;
  const EventScope scope;
  InputScope input({.kind = Input::Kind::Point, .control = &c, .event = event, .place = place});
  input.note(SendGraphEvent(c, event, place));
  return true;
}

bool DispatchTab(Panel tabs, int page) {
  if (GetActiveTabPage(tabs) == page) return true;
  if (InEvent() && !IsLocked()) return false;
  const EventScope scope;
  const InputScope input({.kind = Input::Kind::Page, .panel = tabs, .page = page});
  SetActiveTabPage(tabs, page);
  if (tabs == Panel::PANEL && !IsLocked()) {
    if (page == 2) LookAround([] { DispCurvPlot(1); });
    if (page == 3) LookAround([] { ExdThdCurvPlot(); });
  }
  return true;
}

bool DispatchClose(Panel panel) {
  if (IsLocked() || InEvent()) return false;
  const EventScope scope;
  PressCloseOf(panel);
  return true;
}

bool DispatchAction(const std::function<void()>& action) {
  if (IsLocked() || InEvent()) return false;
  const EventScope scope;
  action();
  return true;
}

void RequestClose() {
  if (QuitRequested()) return;
  if (!InEvent()) {
    state.closeWaits = false;
    DispatchAction(PressQuit);
    return;
  }
  if (state.closeWaits || QApplication::activeModalWidget()) return;
  const ControlId ending = EndingControl();
  if (!ending) {
    state.closeWaits = true;  // a run without a halt; it ends soon
    return;
  }
  if (ending == &measpanel::STOPMEAS) {  // closing is not Stop: records cannot be measured again
    SendEvent(panel::CLOSE, Event::Close);
    return;
  }
  if (!PressHalted()) DispatchPress(*ending);
  state.closeWaits = PressHalted();
}

}  // namespace sondera
