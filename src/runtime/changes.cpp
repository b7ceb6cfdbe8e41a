// changes.cpp - see changes.h. Owns the observers and the changes that wait for them.
#include "runtime/changes.h"

#include <algorithm>
#include <list>
#include <new>
#include <utility>
#include <vector>

namespace sondera {
namespace {

struct Listening {
  int number = 0;
  Observer observer;
  Watcher watcher;
  bool removed = false;  // it must not be destroyed while it may be running
};

struct ChangeState {
  std::list<Listening> listening;  // of nodes that do not move when one is added
  std::vector<Change> waiting;
  int nextNumber = 1;
  int batches = 0;
  int telling = 0;      // depth of calls out of here
  bool missed = false;  // an observer did not get a batch: the next one says that everything changed
};
ChangeState state;

int Listen(Listening listening) {
  listening.number = state.nextNumber;
  state.listening.push_back(std::move(listening));
  return state.nextNumber++;
}

void DropRemoved() {
  if (state.telling == 0) state.listening.remove_if([](const Listening& l) { return l.removed; });
}

/// A call out of here ends also when an observer throws, or no later change would be told.
struct Telling {
  Telling() { ++state.telling; }
  ~Telling() {
    --state.telling;
    DropRemoved();
  }
};

template <class Tell>
void TellAll(Tell tell) {
  const Telling telling;
  for (Listening& l : state.listening)
    if (!l.removed) tell(l);
}

/// Adds a pending change; one of the same kind and control absorbs it.
void Gather(const Change& change) {
  std::vector<Change>& waiting = state.waiting;
  if (!waiting.empty() && waiting.front().kind == ChangeKind::Everything) return;
  if (change.kind == ChangeKind::Everything) waiting.clear();
  const auto same = std::find_if(waiting.rbegin(), waiting.rend(), [&](const Change& c) {
    return c.kind == change.kind && c.control == change.control && c.panel == change.panel;
  });
  if (same == waiting.rend()) {
    waiting.push_back(change);
    return;
  }
  same->firstRow = std::min(same->firstRow, change.firstRow);
  same->lastRow = std::max(same->lastRow, change.lastRow);
  same->firstColumn = std::min(same->firstColumn, change.firstColumn);
  same->lastColumn = std::max(same->lastColumn, change.lastColumn);
}

}  // namespace

int AddObserver(Observer observer) {
  return Listen({0, std::move(observer), nullptr, false});
}
int AddWatcher(Watcher watcher) {
  return Listen({0, nullptr, std::move(watcher), false});
}
void RemoveObserver(int number) {
  for (Listening& l : state.listening)
    if (l.number == number) l.removed = true;
  DropRemoved();
}

void NoteChange(const Change& change) {
  if (state.listening.empty()) return;
  TellAll([&](Listening& l) {
    if (l.watcher) l.watcher(change);
  });
  Gather(change);
  if (state.batches == 0 && state.telling == 0) FlushChanges();
}

// Changes made by an observer are sent in the next round.
void FlushChanges() {
  if (std::exchange(state.missed, false)) Gather({.kind = ChangeKind::Everything});
  while (!state.waiting.empty()) {
    const std::vector<Change> batch = std::exchange(state.waiting, {});
    try {
      TellAll([&](Listening& l) {
        if (l.observer) l.observer(batch);
      });
    } catch (...) {
      state.missed = true;
      throw;
    }
  }
}

ChangeBatch::ChangeBatch() {
  ++state.batches;
}
ChangeBatch::~ChangeBatch() {
  if (--state.batches > 0 || state.telling > 0) return;
  try {
    FlushChanges();
  } catch (const std::bad_alloc&) {
    // A destructor cannot pass it on. The next notice says that everything changed.
  }
}

}  // namespace sondera
