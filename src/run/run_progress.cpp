// run_progress.cpp - see run_progress.h. Owns the count of the present run.
#include "run/run_progress.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>

#include "records/session.h"
#include "run/system_state.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/events.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kRenewal{500};
constexpr double kJudgeAfter = 0.2;  // seconds; a shorter time says nothing about the rest

struct ProgressState {
  bool underWay = false;
  long solves = 0, done = 0;
  Clock::time_point start{}, shown{};
  std::string text;
};
ProgressState state;

double SecondsSince(Clock::time_point start, Clock::time_point now) {
  return std::chrono::duration<double>(now - start).count();
}

void Show(Clock::time_point now) {
  state.shown = now;
  SetCtrlVal(exdthd::STATUSMSG,
             state.text + ProgressText(state.done, state.solves, SecondsSince(state.start, now)));
}

}  // namespace

long SolvesOfSweep() {
  if (std::abs(run.switches.iAnalysis) == 2) return run.observations.nDispPoints;
  if (run.switches.iDispSource != 1) return run.observations.nObsRows;
  long solves = 0;
  for (int i = 1; i <= run.observations.nDispPoints; ++i) solves += run.observations.globalRecCount[i];
  return solves;
}

void BeginRunProgress(long solves) {
  state = ProgressState{};
  state.underWay = solves > 0;
  state.solves = solves;
  state.start = Clock::now();
}

void EndRunProgress() {
  state = ProgressState{};
}

AnalysisLock::AnalysisLock()
    : ControlLock({&exdthd::HALT}, session.appTitle, "An analysis is running. Please halt it first.") {
  run.course.iHaltRequest = 0;
  ForgetHalt();
}

bool HaltAsked() {
  ProcessSystemEvents();
  const bool asked = run.course.iHaltRequest == 1 || InterruptRequested();
  if (asked) {
    run.course.iHaltRequest = 0;
    NoteHalt();
  }
  return asked;
}

void CountSolve() {
  if (!state.underWay) return;
  ++state.done;
  const Clock::time_point now = Clock::now();
  if (now - state.shown >= kRenewal) Show(now);
}

void ShowRunStatus(const std::string& text) {
  state.text = text;
  if (state.underWay && !text.empty()) {
    Show(Clock::now());
  } else {
    SetCtrlVal(exdthd::STATUSMSG, text);
  }
}

std::string ProgressText(long done, long solves, double elapsed) {
  if (solves < 1) return {};
  const double share =
      std::min(static_cast<double>(done) / static_cast<double>(solves), 1.0);  // steps are halved
  std::string text = FormatText("     %d %% done", static_cast<int>(100.0 * share));
  if (done < 1 || done >= solves || elapsed < kJudgeAfter) return text;
  const long left = static_cast<long>(elapsed * (1.0 - share) / share + 0.5);
  if (left >= 3600) return text + FormatText(", %ld h %02ld min left", left / 3600, left / 60 % 60);
  if (left >= 60) return text + FormatText(", %ld min %02ld s left", left / 60, left % 60);
  return text + FormatText(", %ld s left", left);
}

}  // namespace sondera
