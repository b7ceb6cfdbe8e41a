// command_words.h - the commands of the command line that go by their first word, whatever the count of the
// others: run, check, show, plot, batch.
#pragma once

#include <optional>
#include <string>

#include "app/options.h"

namespace sondera {

/// Does what the first word behind the program's name asks for and tells the program to quit. The exit
/// status; nothing for another first word.
std::optional<int> RunCommandWord(const CommandLine& line);

/// Whether a first word is one of them.
bool IsCommandWord(const std::string& word);

}  // namespace sondera
