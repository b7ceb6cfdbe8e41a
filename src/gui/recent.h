// recent.h - what the windows remember from one start to the next: recent projects, and where the windows stood. It
// lies in a state file of its own (windows.ini below the user's state folder); no logic reads it, and losing it loses
// nothing. A folder that cannot be read or written means that nothing is remembered.
#pragma once

#include <QByteArray>
#include <string>
#include <vector>

namespace sondera {

inline constexpr int kRecentFiles = 8;

/// Newest first.
std::vector<std::string> RecentFiles();
/// Puts a project in front.
void NoteRecentFile(const std::string& path);
void ForgetRecentFile(const std::string& path);

/// Place of a window as Qt packs it; empty when it never stood anywhere.
QByteArray WindowPlace(const std::string& window);
void NoteWindowPlace(const std::string& window, const QByteArray& place);

}  // namespace sondera
