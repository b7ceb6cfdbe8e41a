// dialog_answers.h - the front end of a script: answers message boxes, questions and file dialogs instead of
// a person, on top of the previous front end.
//
// A message box, a question without an answer, or an answer of another kind than the question is a complaint;
// the code that runs the line reads the complaints afterwards. An answer that a line of the script has
// prepared is used once, in order. A word may answer its own dialogs.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "runtime/dialogs.h"

namespace sondera::script {

struct Answer {
  enum class Kind { Yes, No, Cancel, Text, File } kind;
  std::string text;  ///< of Text and File; a file's name is absolute
};

class DialogAnswers {
 public:
  /// Installs itself, and restores the former front end at its end. assumeYes answers yes/no questions that
  /// have no other answer.
  explicit DialogAnswers(bool assumeYes);
  ~DialogAnswers();
  DialogAnswers(const DialogAnswers&) = delete;
  DialogAnswers& operator=(const DialogAnswers&) = delete;

  void layOut(Answer answer) { laidOut_.push_back(std::move(answer)); }
  /// Before the waiting ones: for a question in between.
  void layOutFirst(Answer answer) { laidOut_.push_front(std::move(answer)); }
  void dropFirst() { laidOut_.pop_front(); }
  std::size_t unused() const { return laidOut_.size(); }
  void dropUnused() { laidOut_.clear(); }

  // Answers of the word itself, until endOfWord().
  void sayYes() { yes_ = true; }
  /// Answers No, with this complaint.
  void sayNo(std::string complaint) { no_ = std::move(complaint); }
  /// For the file dialogs of the word.
  void chooseFile(std::string path) { file_ = std::move(path); }
  void endOfWord();

  /// Texts of the boxes and of the questions without an answer since the last call.
  std::vector<std::string> takeComplaints();
  /// Of these the ones with this beginning; the others stay.
  std::vector<std::string> takeComplaints(std::string_view beginning);

  /// Called at each poll of a long run, after that of the former front end.
  std::function<void()> onPoll;

 private:
  bool confirm(std::string_view text);
  std::optional<std::string> prompt(std::string_view text);
  FileChoice selectFile(const FileRequest& request);
  std::optional<Answer> next();
  void complain(std::string_view what, std::string_view text);

  FrontEnd former_;
  bool assumeYes_;
  std::deque<Answer> laidOut_;
  std::vector<std::string> complaints_;
  bool yes_ = false;
  std::optional<std::string> no_, file_;
};

}  // namespace sondera::script
