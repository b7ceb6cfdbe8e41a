// dialogs.h - the boxes that the logic shows, and the front end that stands behind them.
//
// The logic calls MessagePopup, ConfirmPopup, PromptPopup and FileSelectPopup. What happens then is the
// business of the installed front end: the console prints and answers by its rule, windows show real boxes,
// tests record.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/control.h"
#include "runtime/refusal.h"
#include "runtime/version.h"

namespace sondera {

/// Answer of FileSelectPopup. The numbers are part of the logic (2 means a name that does not exist yet).
enum class FileAnswer : int { Cancelled = 0, Exists = 1, IsNew = 2 };

struct FileChoice {
  FileAnswer answer = FileAnswer::Cancelled;
  std::string path;  ///< chosen path; as the dialog left it also after Cancel (usually empty)
};

struct FileRequest {
  std::string directory;  ///< where the dialog starts
  std::string filter;     ///< "*.da" and the like; matched without regard to case
  std::string title;
  bool forSaving = false;
};

/// What is to be printed: graphs of a panel, as their models stand, in the order of the page.
struct PrintRequest {
  std::string title;
  Panel panel = Panel::PANEL;
  std::vector<ControlId> graphs;
};

/// Everything that needs a person or a display, as one table of functions. An empty slot does nothing:
/// messages are dropped, questions are answered No, prompts and files are cancelled, run() returns at once.
struct FrontEnd {
  std::string name = "none";
  std::function<void(std::string_view title, std::string_view text)> message;
  std::function<bool(std::string_view title, std::string_view text)> confirm;
  std::function<std::optional<std::string>(std::string_view title, std::string_view text, int maxLength)>
      prompt;
  std::function<FileChoice(const FileRequest&)> selectFile;
  std::function<void()> processEvents;
  std::function<int()> run;       ///< the event loop; its result is that of RunUserInterface
  std::function<void(int)> quit;  ///< ends run() with this result
  std::function<void(bool)> waitCursor;
  bool answersByRule = false;  ///< no person is asked: a question asked again gets the same kind of answer
  std::function<bool(const PrintRequest&)> print;  ///< false: nothing was printed
  std::function<bool()> showManual;                ///< false: it is not shown
};

/// Installs a front end and returns the one that stood before, so that a test or a script can put it back.
FrontEnd InstallFrontEnd(FrontEnd next);

/// The front end in force.
const FrontEnd& CurrentFrontEnd();

/// Shows a message box and waits until it has been read. Counted, see MessageCount.
void MessagePopup(std::string_view title, std::string_view text);

/// The same under the title of the program. @return -1, the result of whatever refuses
int Refuse(std::string_view text);
/// Shows the reason of a refusal, if it has one. @return 0 for what was done, -1 for what was refused
int ShowRefusal(const Refusal& refusal);

/// Asks a yes/no question. True is yes.
bool ConfirmPopup(std::string_view title, std::string_view text);

/// A person sees questions and answers them.
bool PersonAnswers();

/// Asks for a line of text of at most maxLength bytes. Empty optional: cancelled.
std::optional<std::string> PromptPopup(std::string_view title, std::string_view text, int maxLength);

/// Asks for a file. See FileChoice.
FileChoice FileSelectPopup(const FileRequest& request);

/// Prints graphs. 0; -1 when nothing was printed: cancelled, or a front end that cannot print.
int PrintGraphs(const PrintRequest& request);
/// Shows the user manual. 0, or -1.
int ShowManual();

/// Answers that the next dialogs get without being shown, one of each kind: for whoever has asked a person before and
/// then presses a control that asks again. An answer that nobody has asked for is dropped at the end, and answers laid
/// out before wait again.
class OneShotAnswers {
 public:
  OneShotAnswers();
  ~OneShotAnswers();
  OneShotAnswers(const OneShotAnswers&) = delete;
  OneShotAnswers& operator=(const OneShotAnswers&) = delete;

  OneShotAnswers& File(FileChoice choice);
  OneShotAnswers& Confirm(bool yes);
  /// An empty optional cancels.
  OneShotAnswers& Prompt(std::optional<std::string> text);

 private:
  struct Laid;
  std::unique_ptr<Laid> former_;
};

/// Messages shown since the process began, and the latest text. A script compares the count before and after
/// a command to learn whether the command complained.
int MessageCount();
const std::string& LastMessage();

}  // namespace sondera
