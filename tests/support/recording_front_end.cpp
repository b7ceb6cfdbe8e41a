#include "support/recording_front_end.h"

#include <utility>

namespace sondera::testing {
namespace {

template <class T>
T TakeFirst(std::deque<T>& answers, T whenEmpty) {
  if (answers.empty()) return whenEmpty;
  T answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

}  // namespace

RecordingFrontEnd::RecordingFrontEnd() {
  FrontEnd f;
  f.name = "recording";
  f.message = [this](std::string_view title, std::string_view text) {
    messageTitles.emplace_back(title);
    messages.emplace_back(text);
  };
  f.confirm = [this](std::string_view, std::string_view text) {
    questions.emplace_back(text);
    return TakeFirst(confirmAnswers, false);
  };
  f.prompt = [this](std::string_view, std::string_view text, int) -> std::optional<std::string> {
    prompts.emplace_back(text);
    return TakeFirst(promptAnswers, std::optional<std::string>{});
  };
  f.selectFile = [this](const FileRequest& request) {
    files.push_back(request);
    return TakeFirst(fileAnswers, FileChoice{});
  };
  f.processEvents = [this] {
    if (onProcessEvents) onProcessEvents();
  };
  former_ = InstallFrontEnd(std::move(f));
}

RecordingFrontEnd::~RecordingFrontEnd() {
  InstallFrontEnd(std::move(former_));
}

}  // namespace sondera::testing
