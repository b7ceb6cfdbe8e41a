// terminal.h - text for a terminal, which may contain names from files.
//
// Callers: all code that prints to standard error. Otherwise the terminal would interpret a control byte in a
// name as a command: move the cursor, change the title, hide a line.
#pragma once

#include <string>
#include <string_view>

namespace sondera {

/// The text with every control byte except the line end, and every byte that is not UTF-8, as "\xNN".
std::string TerminalText(std::string_view text);

/// The same for one line: also without line ends, so that a name cannot look like another line.
std::string VisibleText(std::string_view text);

/// printf to standard error, through TerminalText; numbers in the C locale.
void PrintError(const char* format, ...) __attribute__((format(printf, 1, 2)));

}  // namespace sondera
