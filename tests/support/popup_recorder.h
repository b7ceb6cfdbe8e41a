// popup_recorder.h - a front end that records the message boxes, as long as the object exists.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "runtime/dialogs.h"

namespace sondera::test {

class PopupRecorder {
 public:
  PopupRecorder();
  ~PopupRecorder();
  PopupRecorder(const PopupRecorder&) = delete;
  PopupRecorder& operator=(const PopupRecorder&) = delete;

  std::vector<std::pair<std::string, std::string>> shown;  ///< title, text

 private:
  FrontEnd before_;
};

}  // namespace sondera::test
