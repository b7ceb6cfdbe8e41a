// dialog_answers.cpp - see dialog_answers.h.
#include "app/script/dialog_answers.h"

#include <utility>

#include "app/script/session_log.h"
#include "app/script/values.h"
#include "runtime/paths.h"

namespace sondera::script {
namespace {

std::string WithoutLineEnd(std::string_view text) {
  while (!text.empty() && text.back() == '\n') text.remove_suffix(1);
  return std::string(text);
}

}  // namespace

DialogAnswers::DialogAnswers(bool assumeYes) : former_(CurrentFrontEnd()), assumeYes_(assumeYes) {
  FrontEnd mine = former_;
  mine.answersByRule = true;
  mine.message = [this](std::string_view, std::string_view text) {
    complaints_.push_back(WithoutLineEnd(text));
  };
  mine.confirm = [this](std::string_view, std::string_view text) { return confirm(text); };
  mine.confirmOnPage = nullptr;
  mine.prompt = [this](std::string_view, std::string_view text, int) { return prompt(text); };
  mine.selectFile = [this](const FileRequest& request) { return selectFile(request); };
  mine.processEvents = [this] {
    if (former_.processEvents) former_.processEvents();
    if (onPoll) onPoll();
  };
  InstallFrontEnd(std::move(mine));
}

DialogAnswers::~DialogAnswers() {
  InstallFrontEnd(std::move(former_));
}

void DialogAnswers::endOfWord() {
  yes_ = false;
  no_.reset();
  file_.reset();
}

std::vector<std::string> DialogAnswers::takeComplaints() {
  return std::exchange(complaints_, {});
}

std::vector<std::string> DialogAnswers::takeComplaints(std::string_view beginning) {
  std::vector<std::string> taken;
  std::erase_if(complaints_, [&](const std::string& text) {
    const bool takes = text.starts_with(beginning);
    if (takes) taken.push_back(text);
    return takes;
  });
  return taken;
}

std::optional<Answer> DialogAnswers::next() {
  if (laidOut_.empty()) return std::nullopt;
  Answer answer = std::move(laidOut_.front());
  laidOut_.pop_front();
  return answer;
}

void DialogAnswers::complain(std::string_view what, std::string_view text) {
  complaints_.push_back(std::string(what) + ": " + Quoted(WithoutLineEnd(text)));
}

bool DialogAnswers::confirm(std::string_view text) {
  if (yes_) return true;
  if (no_) {
    complaints_.push_back(*no_);
    return false;
  }
  const auto answer = next();
  if (!answer) {
    if (!assumeYes_) complain("a question without an answer", text);
    if (assumeYes_) LogSteering("answer yes");
    return assumeYes_;
  }
  if (answer->kind != Answer::Kind::Yes && answer->kind != Answer::Kind::No)
    complain("the answer does not fit the question", text);
  return answer->kind == Answer::Kind::Yes;
}

std::optional<std::string> DialogAnswers::prompt(std::string_view text) {
  const auto answer = next();
  if (!answer) complain("a question without an answer", text);
  if (!answer || answer->kind == Answer::Kind::Cancel) return std::nullopt;
  if (answer->kind == Answer::Kind::Text) return answer->text;
  complain("the answer does not fit the question", text);
  return std::nullopt;
}

FileChoice DialogAnswers::selectFile(const FileRequest& request) {
  const auto choice = [](const std::string& path) {
    return FileChoice{FileExists(path) ? FileAnswer::Exists : FileAnswer::IsNew, path};
  };
  if (file_) return choice(*file_);
  const auto answer = next();
  if (!answer) complain("a file dialog without an answer", request.title);
  if (!answer || answer->kind == Answer::Kind::Cancel) return {};
  if (answer->kind == Answer::Kind::File) return choice(answer->text);
  complain("the answer does not fit the file dialog", request.title);
  return {};
}

}  // namespace sondera::script
