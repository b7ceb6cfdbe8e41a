// popup_recorder.h - a front end that notes the message boxes, for the life of the object.
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
