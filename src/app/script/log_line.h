// log_line.h - an action of a person on its way to the log: its lines, and what was answered to the boxes of the
// action. No state.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "runtime/control.h"

namespace sondera::script {

struct GivenAnswer {
  enum class Kind { Yes, No, Cancel, Text, File } kind = Kind::Cancel;
  std::string text = {};  ///< of Text and File; a file's whole path
  bool existed = false;   ///< of File: it was there when it was chosen
};
using GivenAnswers = std::vector<GivenAnswer>;

/// The `answer` line of a script.
std::string LineOfAnswer(const GivenAnswer& answer);

/// How many answers are of a kind.
std::size_t CountOf(const GivenAnswers& answers, GivenAnswer::Kind kind);

struct InputLine {
  std::vector<std::string> lines;   ///< empty: the action leaves no line
  ControlId replaces = nullptr;     ///< a later action of this kind replaces it
  std::vector<ControlId> replaced;  ///< fields that the word holds: what was entered into them is said by it
  /// The line of a word that gives the answers itself; empty where it cannot. Only for an action that was done.
  std::function<std::string(const GivenAnswers&)> finish = {};
  bool notesMessages = false;  ///< the word takes the program's messages for notes
  bool keepsAnswers = false;   ///< the answers are lines before the word
  bool dropsAnswers = false;   ///< the word itself gives the answers
  bool neverRefused = false;
};

/// Relative to the current folder if it is below it.
std::string RelativePath(const std::string& path);
/// The same as one argument.
std::string PathText(const std::string& path);

}  // namespace sondera::script
