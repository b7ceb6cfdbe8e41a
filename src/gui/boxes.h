// boxes.h - the boxes that the program asks for, as windows: messages, questions, prompts, files.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "runtime/dialogs.h"

class QWidget;

namespace sondera {

/// The parent window of boxes; null before there is one.
void SetBoxOwner(QWidget* window);

void ShowMessageBox(std::string_view title, std::string_view text);
bool AskYesNo(std::string_view title, std::string_view text);
std::optional<std::string> AskText(std::string_view title, std::string_view text, int maxLength);
FileChoice AskFile(const FileRequest& request);

/// A message of the windows themselves, under the title of the program.
void ShowNotice(std::string_view text);

/// A person's decision about unsaved changes.
enum class UnsavedAnswer : int { Save, DontSave, Cancel };
/// One box: the question, and below it a note about changes that are not saved.
UnsavedAnswer AskAboutUnsaved(std::string_view question);

}  // namespace sondera
