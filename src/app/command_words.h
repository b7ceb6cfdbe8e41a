// command_words.h - the commands of the command line that are recognised by their first word, for every
// number of other arguments: run, check, show, plot, batch.
#pragma once

#include <optional>
#include <string>

#include "app/options.h"

namespace sondera {

/// Runs the command named by the first argument and ends the program. The exit status; no value for another
/// first word.
std::optional<int> RunCommandWord(const CommandLine& line);

/// Whether a first word is one of them.
bool IsCommandWord(const std::string& word);

}  // namespace sondera
