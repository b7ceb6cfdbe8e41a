// command_line.h - options and arguments of the program, and what is done with them.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/console.h"
#include "app/options.h"

namespace sondera {

/// Splits a command line. Whatever begins with "--" is an option and does not count as an argument.
CommandLine ParseCommandLine(const std::vector<std::string>& words);

/// Text of --help, and of --version.
std::string HelpText();
std::string VersionText();
/// Help on "script", on "completion" or on a word of a script; empty for anything else.
std::string HelpText(const std::string& subject);

/// What is wrong with arguments that no form of the command line has, or whose project has no name: a
/// sentence without its end. Empty for a form.
std::string WrongForm(const std::vector<std::string>& arguments);

/// Opens the file, makes the project or runs the script that the arguments ask for. A form that does not
/// match does nothing: the plain session goes on. A new project without a name is not made and its script not
/// run. A project that another process has open, and one that a script or an export cannot read whole, ends
/// the program before anything is done with it. Returns the exit status: 1 when something asked for could not
/// be done, 3 when a script of the second dialect did it with doubts, else 0.
/// @param assumeYes  questions of such a script are answered with Yes
int DispatchCommandLine(const std::vector<std::string>& arguments, bool assumeYes = false);
/// The same with the options of its commands.
int DispatchWithOptions(const CommandLine& line);

/// Runs the body and returns its status. An exception that nobody else handled, such as memory that is not
/// there, ends in one sentence on standard error and 1: nothing that is written is left half.
int EndOnException(const std::function<int()>& body);

/// The program: session, dispatch, event loop, shutdown. The exit status: 0 for a finished script or a closed
/// window, 1 for anything that was not done, 3 for a script that was done with doubts, when they count.
/// A session of a person opens windows; a script opens them only when it stops early, on what it left; --batch never
/// does.
int RunProgram(const std::vector<std::string>& words, const WindowsDoor& windows = {});

}  // namespace sondera
