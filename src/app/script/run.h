// run.h - a script of the second dialect, line by line.
//
// A line that cannot be done stops the script: line, word and reason go to standard error as
// "SCRIPT:LINE: WORD: reason", and the status is 1. After `onerror continue` the script goes on, and what was
// not done is counted.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "app/script/dialog_answers.h"
#include "app/script/words.h"
#include "runtime/controls.h"
#include "runtime/graphs.h"

namespace sondera::script {

struct RunOptions {
  bool assumeYes = false;  ///< answers questions of yes or no that have no other answer
  bool overwrite = false;  ///< files that exist are written over, whatever a line says
};

class Run {
 public:
  /// @param name  of the script, in front of what is said about its lines
  Run(std::string name, const RunOptions& options);

  /// The whole script, header first, then what the run found (run_report.h). Returns the status: 0 for all
  /// done, 1 when something was not, 3 when all was done and the program has doubts about its results. Leaves
  /// the session as the script left it.
  int run(Source& source);

  // ---- what words use; each throws Fault for what cannot be done ----

  /// Sends an event to a control. A refusal, a message box, or a question without an answer is a fault; so is
  /// pressing what has no function.
  void press(const Control& control, Event event = Event::Commit, long data = 0);
  /// An event of the mouse over a graph.
  void point(const GraphControl& graph, Event event, const GraphPlace& place);
  /// The same where the control may have no function.
  void notify(const Control& control, Event event);
  /// What a person does to a field: into it, a value, done. The text is read by the control's kind.
  void enter(const Control& control, std::string_view text);
  /// Selects an item by its label and is done.
  void choose(const Control& control, std::string_view label);

  /// overwrite=yes of a line that writes files, or of the whole run.
  bool mayOverwrite(const Arguments& a) const { return overwrite_ || a.isYes("overwrite"); }

  DialogAnswers& dialogs() { return dialogs_; }
  /// Throws the complaints of the dialogs, if there are any.
  void settle();
  /// Throws what the dialogs complained of behind an event, else a refusal.
  void checkResult(const Control& control, int result);

  void continueOnError(bool on) { continueOnError_ = on; }
  /// Presses Halt at the n-th poll of the next run.
  void haltAfter(int polls);
  /// Calls a function at each poll of long runs, for as long as what is returned lives.
  [[nodiscard]] std::shared_ptr<void> atPolls(std::function<void()> watcher);
  const std::string& name() const { return name_; }

 private:
  template <class Write>
  void enterBy(const Control& control, Write write);
  void tell(const Control& control, Event event);
  void runLine(const std::string& text, Line& line);
  void runForm(const Arguments& arguments);
  void afterActing();
  void poll();
  void report(int number, const std::string& word, const std::string& reason);
  void checkEnd(int number);

  std::string name_;
  DialogAnswers dialogs_;
  bool overwrite_ = false, continueOnError_ = false;
  bool stopped_ = false;
  int failed_ = 0;
  std::function<void()> watcher_;  // of the word that runs
  int haltPolls_ = 0, polls_ = 0;  // 0: no halt wanted; polls of runs since it is
  bool halted_ = false;            // by this line
};

/// Reads a script against the table of words without doing anything. Every fault is reported as by a run.
/// Returns 0, or 1 when there was one.
int CheckScript(Source& source, const std::string& name);

}  // namespace sondera::script
