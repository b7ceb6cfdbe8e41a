// run_boxes.cpp - see run_boxes.h.
#include "panels/run_boxes.h"

#include "run/run_progress.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"

namespace sondera {

void RunBoxes::Status(const std::string& text) {
  ShowRunStatus(text);
}

void RunBoxes::Process(const std::string& text) {
  SetCtrlVal(exdthd::PROCESSMSG, text);
}

void RunBoxes::ShowMessage(const std::string& title, const std::string& text) {
  MessagePopup(title.empty() ? kAppTitle : std::string_view(title), text);
}

bool RunBoxes::Poll() {
  return HaltAsked();
}

void RunBoxes::LetEventsIn() {
  ProcessSystemEvents();
}

void RunBoxes::Misfit(double rms) {
  SetCtrlVal(exdthd::RMSERROR, rms);
}

}  // namespace sondera
