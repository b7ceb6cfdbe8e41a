// refresh.cpp - see refresh.h. Owns the changes that are not shown yet.
#include "gui/refresh.h"

#include <QApplication>
#include <QTimer>
#include <algorithm>
#include <set>
#include <utility>
#include <vector>

#include "gui/binder.h"
#include "gui/dispatch.h"
#include "gui/main_window.h"
#include "gui/unit_labels.h"
#include "runtime/changes.h"
#include "runtime/events.h"

namespace sondera {
namespace {

struct RefreshState {
  int observer = 0;
  bool everything = false, lock = false, flushing = false, timer = false;
  std::set<std::pair<ControlId, ChangeKind>> controls;
  std::vector<Change> windows;  // titles, panels, tab pages
};
RefreshState state;

void Note(const Change& change) {
  switch (change.kind) {
    case ChangeKind::Everything:
      state.everything = true;
      break;
    case ChangeKind::Lock:
      state.lock = true;
      break;
    case ChangeKind::Shown:
    case ChangeKind::Title:
    case ChangeKind::TabPage:
      state.windows.push_back(change);
      break;
    default:
      if (change.control) state.controls.emplace(change.control, change.kind);
  }
}

void Observe(std::span<const Change> changes) {
  for (const Change& change : changes) Note(change);
  if (state.timer || !qApp) return;
  state.timer = true;
  QTimer::singleShot(0, qApp, [] {
    state.timer = false;
    FlushViews();
  });
}

}  // namespace

void StartRefresh() {
  StopRefresh();
  state.observer = AddObserver(Observe);
  SetShowViews(FlushViews);
}

void StopRefresh() {
  if (state.observer) RemoveObserver(state.observer);
  state = {};
  SetShowViews({});
}

void FlushViews() {
  if (state.flushing || !state.observer || QuitRequested()) return;
  state.flushing = true;
  FlushChanges();
  const bool everything = std::exchange(state.everything, false), lock = std::exchange(state.lock, false);
  const auto controls = std::exchange(state.controls, {});
  const auto windows = std::exchange(state.windows, {});
  const bool units = std::any_of(controls.begin(), controls.end(),
                                 [](const auto& changed) { return IsUnitOfLength(*changed.first); });
  for (Binder* binder : LivingBinders()) {
    if (everything) {
      binder->ShowAll();
      continue;
    }
    for (const auto& [control, kind] : controls)
      if (control->panel == binder->panel()) binder->Show(*control, kind);
    if (units) binder->ShowUnits();
    if (lock) binder->ShowAnswers();
  }
  ShowWindowChanges(windows, everything, lock || everything);
  state.flushing = false;
}

}  // namespace sondera
