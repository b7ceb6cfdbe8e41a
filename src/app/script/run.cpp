// run.cpp - see run.h.
#include "app/script/run.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "app/console.h"
#include "app/run_report.h"
#include "app/script/control_values.h"
#include "app/script/fault.h"
#include "app/script/names.h"
#include "app/script/session_log.h"
#include "app/script/values.h"
#include "runtime/events.h"
#include "runtime/findings.h"
#include "runtime/terminal.h"
#include "runtime/text_format.h"

namespace sondera::script {
namespace {

constexpr std::string_view kNoWord = "line";  // replaces the word of a line that could not be split

/// One line on standard error for each line of the reason.
void PrintFault(const std::string& name, int number, std::string_view word, std::string_view reason) {
  FinishProgressLine();
  for (std::size_t from = 0; from <= reason.size();) {
    const std::size_t end = std::min(reason.find('\n', from), reason.size());
    const std::string text(reason.substr(from, end - from));
    PrintError("%s:%d: %.*s: %s\n", name.c_str(), number, static_cast<int>(word.size()), word.data(),
               text.c_str());
    from = end + 1;
  }
}

void TakeHeader(Source& source) {
  std::string first;
  if (!source.Next(first) || !IsHeader(first))
    throw Fault("the first line has to be \"" + std::string(kHeader) + "\"");
}

std::string WordOf(const Line& line) {
  return line.word.empty() ? std::string(kNoWord) : line.word;
}

}  // namespace

Run::Run(std::string name, const RunOptions& options)
    : name_(std::move(name)),
      dialogs_(options.assumeYes),
      overwrite_(options.overwrite),
      onFault_(options.onFault) {
  dialogs_.onPoll = [this] { poll(); };
}

int Run::run(Source& source) {
  Line line;
  std::string text;
  try {
    TakeHeader(source);
  } catch (const Fault& fault) {
    report(1, std::string(kNoWord), fault.reason);
    return kNotAllDone;
  }
  bool more = true;
  while (more && !stopped_ && !QuitRequested()) {
    line = {};
    try {
      more = source.Next(text);
      if (more) runLine(text, line);
    } catch (const Fault& fault) {
      report(source.Number(), WordOf(line), fault.reason);
    }
    if (InterruptRequested()) {
      report(source.Number(), WordOf(line), "halted here");
      stopped_ = true;
    }
  }
  if (!stopped_) checkEnd(source.Number());
  if (failed_ > 0 && continueOnError_) {
    PrintError("sondera: %d %s of %s could not be done.\n", failed_, failed_ == 1 ? "line" : "lines",
               name_.c_str());
  }
  return ReportRun(failed_ == 0, true);
}

void Run::runLine(const std::string& text, Line& line) {
  SplitLine(text, line);
  if (!line.word.empty()) runForm(Bind(line));
}

void Run::runForm(const Arguments& arguments) {
  const WordForm::Role role = arguments.form->role;
  const bool acts = role == WordForm::Role::Acts || role == WordForm::Role::Files;
  if (role == WordForm::Role::Steers) {
    arguments.form->run(*this, arguments);
    if (arguments.form->word != "onerror") LogSteering(LineOf(arguments));  // a log reports refusals itself
    return;
  }
  LoggedAct logged(LoggedAct::Answers::InScript);
  const ControlId set = arguments.form->word == "set" || arguments.form->word == "item"
                            ? arguments.controlOrNull("CONTROL")
                            : nullptr;
  halted_ = false;
  try {
    arguments.form->run(*this, arguments);
    settle();
    if (acts) afterActing();
    logged.is(LineOf(arguments), false, set);
  } catch (const Fault&) {
    logged.is(LineOf(arguments), true);
    dialogs_.takeComplaints();
    dialogs_.endOfWord();
    if (acts) dialogs_.dropUnused();
    throw;
  }
  dialogs_.endOfWord();
}

/// The answers were for this line, and so was the halt if the line made a run.
void Run::afterActing() {
  if (dialogs_.unused() > 0)
    throw Fault(FormatText("%zu of the answers before it %s not asked for", dialogs_.unused(),
                           dialogs_.unused() == 1 ? "was" : "were"));
  if (haltPolls_ > 0 && polls_ > 0) {
    const int polls = std::exchange(polls_, 0);
    const int wanted = std::exchange(haltPolls_, 0);
    throw Fault(FormatText("the run ended after %d polls, before the halt after %d", polls, wanted));
  }
}

void Run::checkEnd(int number) {
  if (dialogs_.unused() > 0) report(number, "answer", "no line follows that could ask for it");
  if (haltPolls_ > 0) report(number, "halt", "no run follows that could be halted");
}

void Run::report(int number, const std::string& word, const std::string& reason) {
  std::fflush(stdout);
  PrintFault(name_, number, word, reason);
  if (onFault_) onFault_(name_ + ":" + std::to_string(number) + ": " + word + ": " + reason);
  ++failed_;
  stopped_ = stopped_ || !continueOnError_;
}

void Run::settle() {
  std::string reason;
  for (const std::string& complaint : dialogs_.takeComplaints())
    if (halted_)
      AddNote(complaint);  // the script requested the halt, so the program's message about it is not a fault
    else
      reason += (reason.empty() ? "" : "\n") + complaint;
  if (!reason.empty()) throw Fault(reason);
}

void Run::press(const Control& control, Event event, long data) {
  if (!CallbackOf(control)) throw Fault(NameOf(control) + " does nothing when it is pressed");
  checkResult(control, SendEvent(control, event, data));
}

void Run::point(const GraphControl& graph, Event event, const GraphPlace& place) {
  if (!CallbackOf(graph)) throw Fault(NameOf(graph) + " takes no events of the mouse");
  checkResult(graph, SendGraphEvent(graph, event, place));
}

void Run::checkResult(const Control& control, int result) {
  settle();
  if (result < 0 && !halted_) throw Fault(NameOf(control) + " refused");
}

void Run::notify(const Control& control, Event event) {
  if (CallbackOf(control)) press(control, event);
}

/// The events that a window sends: by the first two, callbacks store the earlier state, and a list reports
/// its new item before the last one.
template <class Write>
void Run::enterBy(const Control& control, Write write) {
  notify(control, Event::GotFocus);
  tell(control, Event::LeftClick);
  write();
  if (control.kind == ControlKind::List) tell(control, Event::ValChanged);
  notify(control, Event::Commit);
}

void Run::enter(const Control& control, std::string_view text) {
  enterBy(control, [&] { WriteValue(control, text); });
}

void Run::choose(const Control& control, std::string_view label) {
  enterBy(control, [&] { SelectItem(control, label); });
}

/// An event before the relevant one: a callback's result for it is not a refusal.
void Run::tell(const Control& control, Event event) {
  if (CallbackOf(control)) SendEvent(control, event);
  settle();
}

void Run::haltAfter(int polls) {
  haltPolls_ = polls;
  polls_ = 0;
}

std::shared_ptr<void> Run::atPolls(std::function<void()> watcher) {
  watcher_ = std::move(watcher);
  return {nullptr, [this](void*) { watcher_ = nullptr; }};
}

/// Only polls of a run count: during a run a lock names the control that ends it. Other code polls to ask
/// whether it may continue.
void Run::poll() {
  if (watcher_) watcher_();
  const ControlId halt = EndingControl();
  if (haltPolls_ == 0 || !halt || ++polls_ < haltPolls_) return;
  haltPolls_ = polls_ = 0;
  halted_ = true;
  const std::size_t others = dialogs_.unused();
  dialogs_.layOutFirst({Answer::Kind::Yes, {}});
  Commit(*halt);
  if (dialogs_.unused() > others) dialogs_.dropFirst();
}

int CheckScript(Source& source, const std::string& name) {
  int faults = 0;
  Line line;
  std::string text;
  const auto report = [&](int number, const std::string& word, const std::string& reason) {
    PrintFault(name, number, word, reason);
    ++faults;
  };
  try {
    TakeHeader(source);
  } catch (const Fault& fault) {
    report(1, std::string(kNoWord), fault.reason);
    return kNotAllDone;
  }
  for (bool more = true; more;) {
    line = {};
    try {
      more = source.Next(text);
      if (!more) break;
      SplitLine(text, line);
      line.number = source.Number();
      if (!line.word.empty()) Bind(line);
    } catch (const Fault& fault) {
      report(source.Number(), WordOf(line), fault.reason);
    }
  }
  return faults == 0 ? kAllDone : kNotAllDone;
}

}  // namespace sondera::script
