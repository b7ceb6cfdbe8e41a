// input_lines.h - a person's actions as lines of a script: the word for a press if there is one, else set and
// press. No state.
#pragma once

#include "app/script/log_line.h"
#include "runtime/input_scope.h"
#include "runtime/session_watch.h"

namespace sondera::script {

/// Whether only the last of several values in a row has an effect: the control has no callback, or one that
/// only moves the markers of a graph.
bool OnlyItsLastValueCounts(const Control& c);

/// The word of a press, with the fields before it; no lines where there is none.
InputLine LineBefore(const Input& input);
/// The line of a value that has just been entered.
InputLine LineOfEntry(const Input& input);
/// The lines of a finished action.
/// @param prepared  from one of the two above
/// @param answers   given during it
InputLine LineBehind(const Input& input, InputEnd end, InputLine prepared, const GivenAnswers& answers);

}  // namespace sondera::script
