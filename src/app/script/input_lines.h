// input_lines.h - what a person did as lines of a script: the word that a press has, else set and press. No state.
#pragma once

#include <string>
#include <vector>

#include "runtime/input_scope.h"

namespace sondera::script {

struct InputLine {
  std::vector<std::string> lines;   ///< empty: nothing is left of the act
  ControlId replaces = nullptr;     ///< a later act with this one takes its place
  std::vector<ControlId> replaced;  ///< fields that the word holds: what was entered into them is said by it
  bool dropsAnswers = false;        ///< the word answers by itself
  bool neverRefused = false;
};

/// Whether of several values in a row only the last one leaves anything: the control has no callback, or one that only
/// moves the markers of a graph.
bool OnlyItsLastValueCounts(const Control& c);

/// A path as one argument: relative to the current folder where it lies below it.
std::string PathText(const std::string& path);

/// The word of a press, as the fields stand before it; no lines where it has none.
InputLine LineBefore(const Input& input);
/// The line of a value that has just been entered.
InputLine LineOfEntry(const Input& input);
/// The lines of an act that has ended.
/// @param prepared  of one of the two above
/// @param answers   lines of the answers that were given in it
InputLine LineBehind(const Input& input, bool refused, InputLine prepared,
                     const std::vector<std::string>& answers);

}  // namespace sondera::script
