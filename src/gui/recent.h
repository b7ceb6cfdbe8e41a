// recent.h - data that the windows keep from one start to the next: recent projects, and positions of the
// windows. They are in a separate state file (windows.ini below the user's state folder); no computation
// reads it, and losing it does no harm. If the folder cannot be read or written, nothing is kept.
#pragma once

#include <QByteArray>
#include <string>
#include <vector>

namespace sondera {

inline constexpr int kRecentFiles = 8;

/// Newest first.
std::vector<std::string> RecentFiles();
/// Puts a project first.
void NoteRecentFile(const std::string& path);
void ForgetRecentFile(const std::string& path);

/// The project that a sudden end has kept (gui/sudden_end.h). Take gives it once; empty: none.
void NoteRescuedProject(const std::string& path);
std::string TakeRescuedProject();

/// Position of a window in Qt's form; empty when it was never shown.
QByteArray WindowPlace(const std::string& window);
void NoteWindowPlace(const std::string& window, const QByteArray& place);

}  // namespace sondera
