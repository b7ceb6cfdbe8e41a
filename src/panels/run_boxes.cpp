// run_boxes.cpp - see run_boxes.h.
#include "panels/run_boxes.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "records/session.h"
#include "run/run_state.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/controls.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/text_format.h"
#include "runtime/version.h"

namespace sondera {
namespace {

constexpr std::chrono::milliseconds kRenewal{500};
constexpr double kJudgeAfter = 0.2;  // seconds; a shorter time allows no estimate of the rest

}  // namespace

RunBoxes::RunBoxes() : status_(exdthd::STATUSMSG), process_(&exdthd::PROCESSMSG) {}

void RunBoxes::Show(Clock::time_point now) {
  shown_ = now;
  const double elapsed = std::chrono::duration<double>(now - start_).count();
  SetCtrlVal(status_, text_ + ProgressText(share_, elapsed));
}

void RunBoxes::Status(const std::string& text) {
  text_ = text;
  if (underWay_ && !text.empty()) {
    Show(Clock::now());
  } else {
    SetCtrlVal(status_, text);
  }
}

void RunBoxes::Process(const std::string& text) {
  if (process_) SetCtrlVal(*process_, text);
}

void RunBoxes::ShowMessage(const std::string& title, const std::string& text) {
  MessagePopup(title.empty() ? kAppTitle : std::string_view(title), text);
}

void RunBoxes::Done(double share) {
  const Clock::time_point now = Clock::now();
  share_ = share;
  if (!underWay_ || !(share > 0.0)) {
    underWay_ = true;
    start_ = now;
    shown_ = {};
    text_.clear();
  } else if (now - shown_ >= kRenewal) {
    Show(now);
  }
}

bool RunBoxes::Poll() {
  ProcessSystemEvents();
  const bool asked = run.course.iHaltRequest == 1 || InterruptRequested();
  if (asked) {
    run.course.iHaltRequest = 0;
    NoteHalt();
  }
  return asked;
}

void RunBoxes::LetEventsIn() {
  ProcessSystemEvents();
}

void RunBoxes::Misfit(double rmsVel) {
  if (process_) SetCtrlVal(exdthd::RMSERROR, rmsVel);
}

AnalysisLock::AnalysisLock() : AnalysisLock(&exdthd::HALT, "An analysis is running. Please halt it first.") {}

AnalysisLock::AnalysisLock(ControlId halt, std::string_view refusal)
    : ControlLock({halt}, session.appTitle, refusal) {
  run.course.iHaltRequest = 0;
  ForgetHalt();
}

std::string ProgressText(double share, double elapsed) {
  share = std::min(share, 1.0);  // steps are halved
  std::string text = FormatText("     %d %% done", static_cast<int>(100.0 * share));
  if (!(share > 0.0) || share >= 1.0 || elapsed < kJudgeAfter) return text;
  const long left = static_cast<long>(std::floor(elapsed * (1.0 - share) / share + 0.5));
  if (left >= 3600) return text + FormatText(", %ld h %02ld min left", left / 3600, left / 60 % 60);
  if (left >= 60) return text + FormatText(", %ld min %02ld s left", left / 60, left % 60);
  return text + FormatText(", %ld s left", left);
}

}  // namespace sondera
