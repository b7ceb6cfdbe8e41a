// project_questions.h - questions before a press that leaves the project: one box if changes are not saved.
#pragma once

#include <string>

#include "runtime/control.h"

namespace sondera {

/// Presses a control that ends, opens or creates a project, after its questions. False for any other control:
/// nothing was done.
bool PressWithQuestions(const Control& c);

/// Ends the program after its question.
void PressQuit();
/// Opens this file after the question about unsaved changes.
void OpenAfterQuestion(const std::string& path);

}  // namespace sondera
