// recording_front_end.h - a front end for tests: records all boxes and gives the prepared answers.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "runtime/dialogs.h"

namespace sondera::testing {

/// Installed while it exists. Answers are used in order; when none is left: No, Cancel.
class RecordingFrontEnd {
 public:
  RecordingFrontEnd();
  ~RecordingFrontEnd();
  RecordingFrontEnd(const RecordingFrontEnd&) = delete;
  RecordingFrontEnd& operator=(const RecordingFrontEnd&) = delete;

  std::vector<std::string> messages;       ///< texts of message boxes
  std::vector<std::string> messageTitles;  ///< their titles
  std::vector<std::string> questions;      ///< texts of yes/no questions
  std::vector<std::string> prompts;        ///< texts of prompts
  std::vector<FileRequest> files;          ///< file dialogs asked for

  std::deque<bool> confirmAnswers;
  std::deque<std::optional<std::string>> promptAnswers;
  std::deque<FileChoice> fileAnswers;
  std::function<void()> onProcessEvents;

 private:
  FrontEnd former_;
};

}  // namespace sondera::testing
