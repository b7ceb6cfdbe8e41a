// commands.h - unattended work: the export form of the command line, and command scripts.
//
// A script is a text file, one command a line; a line that begins with "*" is a comment; words are separated
// by blanks, commas or tabs. Commands only write settings and press buttons. A line without a word ends the
// script, as the end of the file does; a read error or a zero byte stops it as a failure. docs/script.md has
// all commands with their arguments.
#pragma once

#include <string>
#include <string_view>

namespace sondera {

/// mode 1: text is one export line. Any other mode: text is the name of a script file in the current
/// directory. 0 when the work came to its end and the program has been told to quit; -1 when it stopped early
/// and the program stays open. Its exit status is that of the report at the end (run_report.h): 1 when a
/// command failed; then a last line on stderr names the failed commands.
int ProcessCommands(int mode, const std::string& text);

/// The same for a script given as text.
int ProcessScriptText(std::string_view script);

/// One separate command line; the session stays. 0 for success, else -1.
int ProcessCommandLine(const std::string& line);

/// Number of a command word: "export" 1, "import" 2, "masking" 3, "calcVel" 4, "preInversion" 5, "inversion"
/// 6, any other -1. Exact comparison.
int getCommandID(const std::string& word);

}  // namespace sondera
