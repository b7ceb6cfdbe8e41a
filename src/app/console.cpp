// console.cpp - the console front end. Owns the state of its progress line.
#include "app/console.h"

#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <string>
#include <utility>

#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/controls.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/terminal.h"

namespace sondera {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kTerminalInterval{100};
constexpr std::chrono::seconds kLogInterval{10};

struct ConsoleState {
  ConsoleOptions options;
  int observer = 0;
  bool lineOpen = false;
  ControlId notShown = nullptr;  ///< box that has changed since the line was written
  Clock::time_point lastProgress{};
};
ConsoleState console;

void PrintLine(std::string_view title, std::string_view text) {
  FinishProgressLine();
  while (!text.empty() && text.back() == '\n') text.remove_suffix(1);
  PrintError("%.*s: %.*s\n", static_cast<int>(title.size()), title.data(), static_cast<int>(text.size()),
             text.data());
}

bool Confirm(std::string_view title, std::string_view text) {
  PrintLine(title, std::string(text) + (console.options.assumeYes ? " Yes" : " No"));
  return console.options.assumeYes;
}

std::optional<std::string> Prompt(std::string_view title, std::string_view text, int) {
  PrintLine(title, std::string(text) + " (cancelled)");
  return std::nullopt;
}

FileChoice SelectFile(const FileRequest& request) {
  PrintLine(request.title, "no file chosen (cancelled)");
  return {};
}

bool ShowManualText() {
  PrintLine(kAppTitle, "the manual is docs/manual.md; sondera --help lists the rest.");
  return false;
}

int RunConsole() {
  FinishProgressLine();
  const ConsoleOptions& options = console.options;
  const std::string noWindows = options.batch     ? "--batch opens no windows"
                                : options.windows ? options.windows()
                                                  : options.noWindows;
  if (options.windows && noWindows.empty()) {
    RemoveObserver(std::exchange(console.observer, 0));
    const auto run = CurrentFrontEnd().run;
    return run ? run() : 1;
  }
  if (!options.complaint.empty()) PrintError("sondera: %s.\n", options.complaint.c_str());
  PrintError("sondera: %s; give a command script (sondera --help).\n", noWindows.c_str());
  if (!options.usage.empty()) std::fputs(("\n" + options.usage).c_str(), stderr);
  return 1;
}

bool ShowsProgress(ControlId control) {
  return control == &exdthd::STATUSMSG || control == &exdthd::PROCESSMSG ||
         control == &measpanel::DISPA_AVGCOUNT || control == &measpanel::MSGBOX;
}

/// Both boxes of a page as one line: the progress of the run, then the present step.
std::string ProgressLine(ControlId changed) {
  const bool measures = changed->panel == Panel::MEASPANEL;
  const std::string status = GetCtrlVal(measures ? measpanel::DISPA_AVGCOUNT : exdthd::STATUSMSG),
                    process = GetCtrlVal(measures ? measpanel::MSGBOX : exdthd::PROCESSMSG);
  return status + (status.empty() || process.empty() ? "" : "   ") + process;
}

void RewriteLine(const std::string& text) {
  std::fputs("\r\033[K", stderr);
  PrintError("%.120s", text.c_str());
}

/// Shown at limited intervals, only the latest text.
void ShowProgress(const Change& change) {
  if (!ShowsProgress(change.control)) return;
  const bool terminal = isatty(STDERR_FILENO) == 1;
  const auto now = Clock::now();
  console.notShown = change.control;
  if (now - console.lastProgress <
      (terminal ? Clock::duration(kTerminalInterval) : Clock::duration(kLogInterval)))
    return;
  const std::string text = ProgressLine(change.control);
  if (text.empty() && !console.lineOpen) return;
  console.lastProgress = now;
  console.notShown = nullptr;
  if (terminal) {
    RewriteLine(text);
    console.lineOpen = true;
  } else {
    PrintError("%s\n", text.c_str());
  }
}

extern "C" void OnInterrupt(int) {
  RequestInterrupt();
}

}  // namespace

void FinishProgressLine() {
  if (console.lineOpen) {
    // A text that came too soon after the last one is shown now; otherwise "Paused" would remain after a run.
    if (console.notShown) RewriteLine(ProgressLine(console.notShown));
    std::fputc('\n', stderr);
  }
  console.lineOpen = false;
  console.notShown = nullptr;
}

void InstallConsole(const ConsoleOptions& options) {
  if (console.observer) RemoveObserver(console.observer);
  console = {options, AddWatcher(ShowProgress), false, nullptr, Clock::now()};  // a short run shows nothing

  FrontEnd f;
  f.name = "console";
  f.answersByRule = true;
  f.message = PrintLine;
  f.confirm = Confirm;
  f.prompt = Prompt;
  f.selectFile = SelectFile;
  f.run = RunConsole;
  f.showManual = ShowManualText;
  InstallFrontEnd(std::move(f));

  struct sigaction action = {};
  action.sa_handler = OnInterrupt;
  sigaction(SIGINT, &action, nullptr);
}

}  // namespace sondera
