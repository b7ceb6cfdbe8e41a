// dialogs.cpp - passes each box to the installed front end. Owns that front end and the message count.
#include "runtime/dialogs.h"

#include <utility>

#include "numeric/nrerror.h"
#include "runtime/changes.h"
#include "runtime/session_watch.h"
#include "runtime/utf8.h"

namespace sondera {
namespace {

/// Prepared answers, one of each kind.
struct LaidAnswers {
  std::optional<FileChoice> file;
  std::optional<bool> confirm;
  std::optional<std::optional<std::string>> prompt;
};

struct DialogState {
  FrontEnd frontEnd;
  LaidAnswers laid;
  int messages = 0;
  std::string lastMessage;
};
DialogState state;

}  // namespace

FrontEnd InstallFrontEnd(FrontEnd next) {
  InstallKernelPopup([](const char* title, const char* text) { MessagePopup(title, text); });
  return std::exchange(state.frontEnd, std::move(next));
}

const FrontEnd& CurrentFrontEnd() {
  return state.frontEnd;
}

void MessagePopup(std::string_view title, std::string_view text) {
  ++state.messages;
  state.lastMessage = text;
  FlushChanges();
  if (state.frontEnd.message) state.frontEnd.message(title, text);
}

int Refuse(std::string_view text) {
  MessagePopup(kAppTitle, text);
  return -1;
}

int ShowRefusal(const Refusal& refusal) {
  if (!refusal) return 0;
  if (!refusal.reason().empty())
    MessagePopup(refusal.title().empty() ? kAppTitle : std::string_view(refusal.title()), refusal.reason());
  return -1;
}

namespace {

bool AskConfirm(std::optional<Panel> page, std::string_view title, std::string_view text) {
  if (state.laid.confirm) return *std::exchange(state.laid.confirm, std::nullopt);
  FlushChanges();
  if (page && state.frontEnd.confirmOnPage) return state.frontEnd.confirmOnPage(*page, title, text);
  return state.frontEnd.confirm && state.frontEnd.confirm(title, text);
}

FileChoice AskFile(const FileRequest& request) {
  if (state.laid.file) return *std::exchange(state.laid.file, std::nullopt);
  FlushChanges();
  return state.frontEnd.selectFile ? state.frontEnd.selectFile(request) : FileChoice{};
}

bool Confirm(std::optional<Panel> page, std::string_view title, std::string_view text) {
  const bool yes = AskConfirm(page, title, text);
  if (TheSessionWatcher().confirmed) TheSessionWatcher().confirmed(yes);
  return yes;
}

}  // namespace

bool ConfirmPopup(std::string_view title, std::string_view text) {
  return Confirm(std::nullopt, title, text);
}
bool ConfirmOnPage(Panel page, std::string_view title, std::string_view text) {
  return Confirm(page, title, text);
}

bool PersonAnswers() {
  return state.frontEnd.confirm && !state.frontEnd.answersByRule;
}

std::optional<std::string> PromptPopup(std::string_view title, std::string_view text, int maxLength) {
  std::optional<std::string> answer;
  if (state.laid.prompt) {
    answer = *std::exchange(state.laid.prompt, std::nullopt);
  } else {
    FlushChanges();
    if (state.frontEnd.prompt) answer = state.frontEnd.prompt(title, text, maxLength);
  }
  if (answer && maxLength >= 0)
    answer->resize(BeginningOf(*answer, static_cast<std::size_t>(maxLength)).size());
  if (TheSessionWatcher().prompted) TheSessionWatcher().prompted(answer);
  return answer;
}

FileChoice FileSelectPopup(const FileRequest& request) {
  FileChoice choice = AskFile(request);
  if (TheSessionWatcher().fileChosen) TheSessionWatcher().fileChosen(choice);
  return choice;
}

struct OneShotAnswers::Laid : LaidAnswers {};

OneShotAnswers::OneShotAnswers() : former_(std::make_unique<Laid>(Laid{std::exchange(state.laid, {})})) {}
OneShotAnswers::~OneShotAnswers() {
  state.laid = std::move(*former_);
}
OneShotAnswers& OneShotAnswers::File(FileChoice choice) {
  state.laid.file = std::move(choice);
  return *this;
}
OneShotAnswers& OneShotAnswers::Confirm(bool yes) {
  state.laid.confirm = yes;
  return *this;
}
OneShotAnswers& OneShotAnswers::Prompt(std::optional<std::string> text) {
  state.laid.prompt = std::move(text);
  return *this;
}

int MessageCount() {
  return state.messages;
}
const std::string& LastMessage() {
  return state.lastMessage;
}

int PrintGraphs(const PrintRequest& request) {
  FlushChanges();
  return CurrentFrontEnd().print && CurrentFrontEnd().print(request) ? 0 : -1;
}

int ShowManual() {
  return CurrentFrontEnd().showManual && CurrentFrontEnd().showManual() ? 0 : -1;
}

}  // namespace sondera
