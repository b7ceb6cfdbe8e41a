// press_words.h - presses of a person that have a word of their own, with the line of that word. A word is
// taken only where it does the same as the press: other panels and entries that it would change are as it
// leaves them. No state.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/script/log_line.h"
#include "runtime/control.h"

namespace sondera::script {

/// The word of a press, before the press; no lines and no `finish` where there is none.
InputLine WordOfPress(const Control& pressed);

/// A press with its word, for the documentation.
struct PressWord {
  ControlId control;
  std::string_view word;
};
/// All of them, in the order of the documentation; the redraw buttons of the pages (`plot`) are not listed.
std::vector<PressWord> PressesWithWords();

// --- rows by subject, each with its function ---

struct PressRow {
  ControlId control;
  std::string_view word;
  InputLine (*line)(const Control& pressed);
};
std::vector<PressRow> FilePresses();
std::vector<PressRow> ImportPresses();
std::vector<PressRow> PairPresses();
std::vector<PressRow> RunPresses();

// --- parts of these functions ---

/// Whether masks, windows and curves work on trace A, as their words do.
bool WorksOnTraceA();
InputLine OneLine(std::string line);
/// A line that needs the answers of the press.
InputLine WithAnswers(std::function<std::string(const GivenAnswers&)> finish);
/// The line when every answer was Yes, with `flag` behind it if there was one; else empty.
std::string WithFlag(const std::string& line, const GivenAnswers& answers, std::string_view flag);

}  // namespace sondera::script
