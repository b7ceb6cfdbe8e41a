// boxes.h - the boxes that the logic asks for, as windows: messages, questions, prompts, files.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "runtime/dialogs.h"

class QWidget;

namespace sondera {

/// The window that boxes stand above; null before there is one.
void SetBoxOwner(QWidget* window);

void ShowMessageBox(std::string_view title, std::string_view text);
bool AskYesNo(std::string_view title, std::string_view text);
std::optional<std::string> AskText(std::string_view title, std::string_view text, int maxLength);
FileChoice AskFile(const FileRequest& request);

/// A message of the windows themselves, under the title of the program.
void ShowNotice(std::string_view text);

/// What a person wants to happen to unsaved changes.
enum class UnsavedAnswer : int { Save, DontSave, Cancel };
/// One box: the question, and below it that the project has changes that are not saved.
UnsavedAnswer AskAboutUnsaved(std::string_view question);

}  // namespace sondera
