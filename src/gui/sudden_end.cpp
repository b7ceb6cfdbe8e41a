// sudden_end.cpp - see sudden_end.h. Owns whether windows are open, and the pipe of the signals.
#include "gui/sudden_end.h"

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "gui/dispatch.h"
#include "gui/project_questions.h"
#include "gui/recent.h"
#include "runtime/dialogs.h"
#include "runtime/paths.h"
#include "runtime/project_hooks.h"
#include "runtime/version.h"

namespace sondera {
namespace {

constexpr int kSignals[] = {SIGTERM, SIGHUP, SIGINT};

struct EndState {
  bool windowsAreOpen = false, registered = false;
  int pipe[2] = {-1, -1};
  std::unique_ptr<QSocketNotifier> notifier;
};
EndState state;

/// Runs in exit(), also below a running callback. Nothing else of the process is needed afterwards, so it ends here.
void KeepProject() {
  if (!state.windowsAreOpen) return;
  state.windowsAreOpen = false;
  try {
    const std::string kept = RescueProject();
    if (!kept.empty()) {
      NoteRescuedProject(kept);
      std::fprintf(stderr,
                   "sondera: the windows ended suddenly. The project with its unsaved changes is in %s.\n",
                   kept.c_str());
    }
  } catch (...) {  // it ends in any case
  }
  std::fflush(nullptr);
  std::_Exit(1);
}

void TellOfSignal(int number) {
  std::signal(number, SIG_DFL);  // the second one ends a program that does not answer
  const char one = 1;
  [[maybe_unused]] const ssize_t written = ::write(state.pipe[1], &one, 1);
}

}  // namespace

SuddenEndWatch::SuddenEndWatch() {
  // Registered behind the windows: what they use is then still there at the end.
  if (!state.registered) state.registered = std::atexit(KeepProject) == 0;
  state.windowsAreOpen = true;
  if (::pipe2(state.pipe, O_CLOEXEC | O_NONBLOCK) != 0) return;
  state.notifier = std::make_unique<QSocketNotifier>(state.pipe[0], QSocketNotifier::Read);
  QObject::connect(state.notifier.get(), &QSocketNotifier::activated, [] { std::exit(1); });
  for (const int number : kSignals) std::signal(number, TellOfSignal);
}

SuddenEndWatch::~SuddenEndWatch() {
  state.windowsAreOpen = false;
  if (!state.notifier) return;
  for (const int number : kSignals) std::signal(number, SIG_DFL);
  state.notifier.reset();
  for (int& end : state.pipe) {
    ::close(end);
    end = -1;
  }
}

void OfferRescuedProject() {
  const std::string path = TakeRescuedProject();
  if (path.empty() || !FileExists(path)) return;
  DispatchAction([&] {
    if (ConfirmPopup(kAppTitle,
                     "The program ended suddenly before. The project with its unsaved changes is in " + path +
                         ". Do you want to open it now ?"))
      OpenAfterQuestion(path);
  });
}

}  // namespace sondera
