// script_files.h - scripts of both dialects as files: the first line determines the dialect.
#pragma once

#include <string>

#include "app/script/run.h"

namespace sondera::script {

/// Runs a script and ends the program, as the end of a script does; "-" is standard input. A file without the
/// header of the second dialect is one of the first. Returns the exit status.
int RunFile(const std::string& name, const RunOptions& options);

/// Checks a script of the second dialect and runs nothing. 0, or 1 when any part of it cannot be run.
int CheckFile(const std::string& name);

}  // namespace sondera::script
