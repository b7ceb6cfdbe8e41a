// terminal.h - text for a person's terminal, which may hold names from files.
//
// Callers: everything that prints to standard error. A control byte in a name would else reach the terminal
// as a command: move the cursor, change the title, hide a line.
#pragma once

#include <string>
#include <string_view>

namespace sondera {

/// The text with every control byte but the line end, and every byte that is no UTF-8, as "\xNN".
std::string TerminalText(std::string_view text);

/// The same for one line: the line end too, so that a name cannot look like a line of its own.
std::string VisibleText(std::string_view text);

/// printf to standard error, through TerminalText; numbers in the C locale.
void PrintError(const char* format, ...) __attribute__((format(printf, 1, 2)));

}  // namespace sondera
