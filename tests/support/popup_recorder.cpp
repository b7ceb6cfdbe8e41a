// popup_recorder.cpp - see popup_recorder.h.
#include "support/popup_recorder.h"

#include <string_view>

namespace sondera::test {

PopupRecorder::PopupRecorder() {
  FrontEnd recording;
  recording.name = "popup recorder";
  recording.message = [this](std::string_view title, std::string_view text) {
    shown.emplace_back(std::string(title), std::string(text));
  };
  before_ = InstallFrontEnd(std::move(recording));
}

PopupRecorder::~PopupRecorder() {
  InstallFrontEnd(std::move(before_));
}

}  // namespace sondera::test
