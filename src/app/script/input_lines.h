// input_lines.h - a person's actions as lines of a script: the word for a press if there is one, else set and
// press. No state.
#pragma once

#include <string>
#include <vector>

#include "runtime/input_scope.h"

namespace sondera::script {

struct InputLine {
  std::vector<std::string> lines;   ///< empty: the action leaves no line
  ControlId replaces = nullptr;     ///< a later action of this kind replaces it
  std::vector<ControlId> replaced;  ///< fields that the word holds: what was entered into them is said by it
  bool dropsAnswers = false;        ///< the word itself gives the answers
  bool neverRefused = false;
};

/// Whether only the last of several values in a row has an effect: the control has no callback, or one that
/// only moves the markers of a graph.
bool OnlyItsLastValueCounts(const Control& c);

/// A path as one argument: relative to the current folder if it is below it.
std::string PathText(const std::string& path);

/// The word of a press, with the fields before it; no lines where there is none.
InputLine LineBefore(const Input& input);
/// The line of a value that has just been entered.
InputLine LineOfEntry(const Input& input);
/// The lines of a finished action.
/// @param prepared  from one of the two above
/// @param answers   lines of the answers given during it
InputLine LineBehind(const Input& input, bool refused, InputLine prepared,
                     const std::vector<std::string>& answers);

}  // namespace sondera::script
