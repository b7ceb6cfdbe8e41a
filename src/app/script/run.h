// run.h - a script of the second dialect, line by line.
//
// A line that cannot be done stops the script: line, word and reason go to standard error as "SCRIPT:LINE:
// WORD: reason", and the status is 1. After `onerror continue` the script continues, and failed lines are
// counted.
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
  bool assumeYes = false;  ///< answers yes/no questions that have no other answer
  bool overwrite = false;  ///< existing files are overwritten, regardless of the line
  /// Gets each line that failed, besides standard error: "SCRIPT:LINE: WORD: reason".
  std::function<void(const std::string& text)> onFault = {};
};

class Run {
 public:
  /// @param name  of the script, for messages about its lines
  Run(std::string name, const RunOptions& options);

  /// The whole script, header first, then the report of the run (run_report.h). Returns the status: 0 for all
  /// done, 1 when something failed, 3 when all was done and the program has doubts about its results. The
  /// session stays as it is at the end of the script.
  int run(Source& source);

  // ---- functions for the words; each throws Fault when it fails ----

  /// Sends an event to a control. A refusal, a message box, or a question without an answer is a fault; so is
  /// pressing a control without a function.
  void press(const Control& control, Event event = Event::Commit, long data = 0);
  /// An event of the mouse over a graph.
  void point(const GraphControl& graph, Event event, const GraphPlace& place);
  /// The same where the control may have no function.
  void notify(const Control& control, Event event);
  /// The actions of a person at a field: into it, a value, done. The text is read by the control's kind.
  void enter(const Control& control, std::string_view text);
  /// Selects an item by its label and commits it.
  void choose(const Control& control, std::string_view label);

  /// overwrite=yes of a line that writes files, or of the whole run.
  bool mayOverwrite(const Arguments& a) const { return overwrite_ || a.isYes("overwrite"); }

  DialogAnswers& dialogs() { return dialogs_; }
  /// Throws the complaints of the dialogs, if there are any.
  void settle();
  /// Throws the complaints of the dialogs after an event, else a refusal.
  void checkResult(const Control& control, int result);

  void continueOnError(bool on) { continueOnError_ = on; }
  /// Presses Halt at the n-th poll of the next run.
  void haltAfter(int polls);
  /// Calls a function at each poll of long runs, as long as the returned object exists.
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
  std::function<void(const std::string&)> onFault_;
  std::function<void()> watcher_;  // of the word that runs
  int haltPolls_ = 0, polls_ = 0;  // 0: no halt requested; polls of runs since the request
  bool halted_ = false;            // by this line
};

/// Checks a script against the table of words without running anything. Every fault is reported as in a run.
/// Returns 0, or 1 when there was one.
int CheckScript(Source& source, const std::string& name);

}  // namespace sondera::script
