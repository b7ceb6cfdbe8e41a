// script_files.h - scripts of both dialects as files: the first line decides which one a script is.
#pragma once

#include <string>

#include "app/script/run.h"

namespace sondera::script {

/// Runs a script and tells the program to quit, as the end of a script does; "-" is standard input. A file
/// without the header of the second dialect is one of the first. Returns the exit status.
int RunFile(const std::string& name, const RunOptions& options);

/// Reads a script of the second dialect and does nothing. 0, or 1 when anything in it cannot be run.
int CheckFile(const std::string& name);

}  // namespace sondera::script
