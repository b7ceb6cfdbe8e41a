// loop.cpp - see loop.h. Owns the time of the last poll and the count of scopes that block polls.
#include "gui/loop.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <memory>

#include "gui/main_window.h"
#include "gui/refresh.h"
#include "gui/sudden_end.h"
#include "runtime/control_lock.h"
#include "runtime/events.h"

namespace sondera {
namespace {

constexpr qint64 kPollInterval = 15;  // milliseconds: a person sees no delay, and a run loses no time

struct LoopState {
  QElapsedTimer sincePoll;
  int keepOut = 0;
  bool running = false;
};
LoopState state;

}  // namespace

NoPolls::NoPolls() {
  ++state.keepOut;
}
NoPolls::~NoPolls() {
  --state.keepOut;
}

int RunLoop() {
  if (QuitRequested()) return 0;
  StartRefresh();
  OpenMainWindow();
  state.running = true;
  const auto watch = std::make_unique<SuddenEndWatch>();
  QTimer::singleShot(0, qApp, OfferRescuedProject);
  const int result = QApplication::exec();
  state.running = false;
  StopRefresh();
  CloseMainWindow();
  return result;
}

void QuitLoop(int result) {
  if (state.running) QApplication::exit(result);
}

void Poll() {
  if (!state.running || state.keepOut > 0) return;
  if (state.sincePoll.isValid() && state.sincePoll.elapsed() < kPollInterval) return;
  const NoPolls one;
  FlushViews();
  QApplication::processEvents(IsLocked() ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
  state.sincePoll.start();
}

void ShowWaitCursor(bool on) {
  if (on && !QApplication::overrideCursor())
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else if (!on)
    while (QApplication::overrideCursor()) QApplication::restoreOverrideCursor();
}

}  // namespace sondera
