// command_words.cpp - see command_words.h.
#include "app/command_words.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "app/script/script_files.h"
#include "app/shutdown.h"
#include "runtime/terminal.h"

namespace sondera {
namespace {

struct CommandWord {
  const char* word;
  std::size_t count;  ///< of arguments behind the word
  const char* usage;
  int (*run)(const std::vector<std::string>& arguments, bool assumeYes);
};

int RunScript(const std::vector<std::string>& arguments, bool assumeYes) {
  return script::RunFile(arguments[0], assumeYes);
}
int CheckScript(const std::vector<std::string>& arguments, bool) {
  return script::CheckFile(arguments[0]);
}

constexpr CommandWord kWords[] = {
    {"run", 1, "run <script>", RunScript},
    {"check", 1, "check <script>", CheckScript},
    {"show", 1, "show <file.da>", nullptr},
    {"plot", 2, "plot <file.da> <out.svg>", nullptr},
    {"batch", 2, "batch <folder> <script>", nullptr},
};

}  // namespace

bool IsCommandWord(const std::string& word) {
  return std::any_of(std::begin(kWords), std::end(kWords),
                     [&](const CommandWord& command) { return word == command.word; });
}

std::optional<int> RunCommandWord(const std::vector<std::string>& arguments, bool assumeYes) {
  if (arguments.size() < 2) return std::nullopt;
  for (const CommandWord& command : kWords) {
    if (arguments[1] != command.word) continue;
    int status = 1;
    const std::vector<std::string> rest(arguments.begin() + 2, arguments.end());
    if (!command.run)
      PrintError("sondera: %s is not there yet.\n", command.word);
    else if (rest.size() != command.count)
      PrintError("sondera: it is sondera %s\n", command.usage);
    else
      status = command.run(rest, assumeYes);
    // A script of the first dialect that stopped early leaves the session open, as it does behind "auto".
    if (command.run != RunScript || rest.size() != command.count) QuitApp(status);
    return status;
  }
  return std::nullopt;
}

}  // namespace sondera
