// command_line.h - options and arguments of the program, and the actions that they select.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/console.h"
#include "app/options.h"

namespace sondera {

/// Splits a command line. Every word that begins with "--" is an option and does not count as an argument.
CommandLine ParseCommandLine(const std::vector<std::string>& words);

/// Text of --help, and of --version.
std::string HelpText();
std::string VersionText();
/// Help on "script", on "completion" or on a word of a script; empty for anything else.
std::string HelpText(const std::string& subject);

/// Fault of arguments that match no form of the command line, or whose project has no name: a sentence
/// without its full stop. Empty if they match.
std::string WrongForm(const std::vector<std::string>& arguments);

/// Opens the file, makes the project or runs the script of the arguments. A form that does not match does
/// nothing: the plain session continues. A new project without a name is not made and its script not run. The
/// program ends before it does anything if another process has the project open, or if a script or an export
/// cannot read it completely. Returns the exit status: 1 when something could not be done, 3 when a script of
/// the second dialect did everything but with doubts, else 0.
/// @param assumeYes  questions of such a script are answered with Yes
int DispatchCommandLine(const std::vector<std::string>& arguments, bool assumeYes = false);
/// The same with the options of its commands.
int DispatchWithOptions(const CommandLine& line);

/// Runs the body and returns its status. An exception that nobody else handled, such as lack of memory, gives
/// one sentence on standard error and 1: no file is left half written.
int EndOnException(const std::function<int()>& body);

/// The program: session, dispatch, event loop, shutdown. The exit status: 0 for a finished script or a closed
/// window, 1 for anything that was not done, 3 for a script that was done with doubts, when they count. An
/// interactive session opens windows; a script opens them only when it stops early, with its results so far;
/// --batch never does.
/// does.
int RunProgram(const std::vector<std::string>& words, const WindowsOpener& windows = {});

}  // namespace sondera
