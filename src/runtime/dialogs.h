// dialogs.h - the boxes that the program shows, and the front end that shows them.
//
// The program calls MessagePopup, ConfirmPopup, PromptPopup and FileSelectPopup. The installed front end
// decides what happens: the console prints and answers by its rule, windows show real boxes, tests record.
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

/// Answer of FileSelectPopup. The program depends on the numbers (2 means a name that does not exist yet).
enum class FileAnswer : int { Cancelled = 0, Exists = 1, IsNew = 2 };

struct FileChoice {
  FileAnswer answer = FileAnswer::Cancelled;
  std::string path;  ///< chosen path; the dialog's text also after Cancel (usually empty)
};

/// Files that a dialog shows together, and their description: "*.pdf", "PDF document".
struct FileKind {
  std::string filter, name;
};

struct FileRequest {
  std::string directory;  ///< where the dialog starts
  std::string filter;     ///< "*.da" and the like; matched without regard to case
  std::string title;
  bool forSaving = false;
  /// Where the ending of the name selects the kind: all kinds, that of the filter first.
  std::vector<FileKind> kinds = {};
  std::string name = {};  ///< proposed for a new file, without its ending
};

/// Print request: graphs of a panel, with the present models, in the order of the page.
struct PrintRequest {
  std::string title;
  Panel panel = Panel::PANEL;
  std::vector<ControlId> graphs;
};

/// Everything that needs a person or a display, as one table of functions. An empty entry does nothing:
/// messages are dropped, questions are answered No, prompts and files are cancelled, run() returns at once.
struct FrontEnd {
  std::string name = "none";
  std::function<void(std::string_view title, std::string_view text)> message;
  std::function<bool(std::string_view title, std::string_view text)> confirm;
  /// The same beside what it is about, on a page. Empty: as confirm.
  std::function<bool(Panel page, std::string_view title, std::string_view text)> confirmOnPage;
  std::function<std::optional<std::string>(std::string_view title, std::string_view text, int maxLength)>
      prompt;
  std::function<FileChoice(const FileRequest&)> selectFile;
  std::function<void()> processEvents;
  std::function<int()> run;       ///< the event loop; its result is that of RunUserInterface
  std::function<void(int)> quit;  ///< ends run() with this result
  std::function<void(bool)> waitCursor;
  bool answersByRule = false;  ///< no person is asked: a repeated question gets the same kind of answer
  std::function<bool(const PrintRequest&)> print;  ///< false: nothing was printed
  std::function<bool()> showManual;                ///< false: it is not shown
};

/// Installs a front end and returns the previous one, so that a test or a script can restore it.
FrontEnd InstallFrontEnd(FrontEnd next);

/// The installed front end.
const FrontEnd& CurrentFrontEnd();

/// Shows a message box and waits until it is closed. Counted, see MessageCount.
void MessagePopup(std::string_view title, std::string_view text);

/// The same under the title of the program. @return -1, the result of callers that refuse
int Refuse(std::string_view text);
/// Shows the reason of a refusal, if it has one. @return 0 for success, -1 for a refusal
int ShowRefusal(const Refusal& refusal);

/// Asks a yes/no question. True is yes.
bool ConfirmPopup(std::string_view title, std::string_view text);

/// The same about something that a page shows: windows ask it there, so that no box hides it.
bool ConfirmOnPage(Panel page, std::string_view title, std::string_view text);

/// Whether a person sees questions and answers them.
bool PersonAnswers();

/// Asks for a line of text of at most maxLength bytes. Empty optional: cancelled.
std::optional<std::string> PromptPopup(std::string_view title, std::string_view text, int maxLength);

/// Asks for a file. See FileChoice.
FileChoice FileSelectPopup(const FileRequest& request);

/// Prints graphs. 0; -1 when nothing was printed: cancelled, or a front end that cannot print.
int PrintGraphs(const PrintRequest& request);
/// Shows the user manual. 0, or -1.
int ShowManual();

/// Answers that the next dialogs get without being shown, one of each kind: for code that has already asked
/// the person and then presses a control that asks again. An unused answer is dropped at the end, and earlier
/// answers apply again.
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
/// a command to find out whether there was a message.
int MessageCount();
const std::string& LastMessage();

}  // namespace sondera
