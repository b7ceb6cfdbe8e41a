// project_questions.h - what a person is asked before a press leaves the project: one box where changes are not saved.
#pragma once

#include <string>

#include "runtime/control.h"

namespace sondera {

/// Presses a control that ends, opens or begins a project, after its questions. False for any other control: nothing
/// was done.
bool PressWithQuestions(const Control& c);

/// Ends the program after its question.
void PressQuit();
/// Opens this file after the question about unsaved changes.
void OpenAfterQuestion(const std::string& path);

}  // namespace sondera
