// command_words.cpp - see command_words.h.
#include "app/command_words.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <vector>

#include "app/batch/batch.h"
#include "app/known_ground.h"
#include "app/picture.h"
#include "app/script/script_files.h"
#include "app/show.h"
#include "app/shutdown.h"
#include "app/table_export.h"

#include "figure/figure_file.h"
#include "panels/mainmenu_project.h"
#include "project/project_file.h"
#include "runtime/dialogs.h"
#include "runtime/paths.h"
#include "runtime/terminal.h"

namespace sondera {
namespace {

struct CommandWord {
  const char* word;
  std::size_t count;  ///< of arguments after the word
  const char* usage;
  int (*run)(const CommandLine& line);
};

int RunScript(const CommandLine& line) {
  return script::RunFile(line.arguments[2], {line.assumeYes, line.overwrite});
}
int CheckScript(const CommandLine& line) {
  return script::CheckFile(line.arguments[2]);
}

int Fail(const std::string& reason) {
  PrintError("sondera: %s.\n", reason.c_str());
  return 1;
}

/// Opens the project for reading, and reads the known ground. False after a sentence.
bool OpenForLooking(const CommandLine& line, KnownGround& known) {
  const std::string& path = line.arguments[2];
  const int before = MessageCount();
  if (OpenFileProc(path, OpenFor::Reading) != 0 || MessageCount() != before)
    return Fail(path + " was not opened completely, so nothing is shown") == 0;
  const std::string reason = ReadKnownGround(line.look.knownCurve, line.look.knownLayers, known);
  return reason.empty() || Fail(reason) == 0;
}

int Show(const CommandLine& line) {
  KnownGround known;
  if (!OpenForLooking(line, known)) return 1;
  const std::vector<std::string>& parts = line.look.parts;
  const auto wanted = [&](const char* part) {
    return parts.empty() || std::find(parts.begin(), parts.end(), part) != parts.end();
  };
  const std::string text =
      ShowText(OpenProjectTables(line.extend), {wanted("curves"), wanted("profile"), wanted("masks")}, known);
  std::fputs(text.c_str(), stdout);
  return std::fflush(stdout) == 0 ? 0 : Fail("the text could not be written to its end");
}

int Plot(const CommandLine& line) {
  const std::string &name = line.arguments[3], what = line.look.what.empty() ? "curves" : line.look.what;
  if (std::string fault = FigureNameFault(name); !fault.empty())
    return ShowRefusal(Refusal(fault)) == 0 ? 0 : 1;
  KnownGround known;
  if (!OpenForLooking(line, known)) return 1;
  GraphModel graph;
  if (const std::string reason = PictureOf(OpenProjectTables(line.extend), what, known, graph);
      !reason.empty())
    return Fail(reason + "; nothing was drawn");
  return ShowRefusal(WriteFigure(graph, JoinUnlessAbsolute(CurrentDirectory(), name))) == 0 ? 0 : 1;
}

int Batch(const CommandLine& line) {
  return batch::Run(line.arguments[2], line.arguments.size() > 3 ? line.arguments[3] : std::string(),
                    line.batchRun);
}

constexpr CommandWord kWords[] = {
    {"run", 1, "run <script>", RunScript},
    {"check", 1, "check <script>", CheckScript},
    {"show", 1, "show <file.da> [--curves] [--profile] [--masks]", Show},
    {"plot", 2, "plot <file.da> <out.svg> [--what=curves|fit|profile|phase]", Plot},
    {"batch", 2, "batch <sites.csv> <script> [--jobs=N] [--resume] [--keep-going] [--only=ROW] [--collect]",
     Batch},
};

}  // namespace

bool IsCommandWord(const std::string& word) {
  return std::any_of(std::begin(kWords), std::end(kWords),
                     [&](const CommandWord& command) { return word == command.word; });
}

std::optional<int> RunCommandWord(const CommandLine& line) {
  if (line.arguments.size() < 2) return std::nullopt;
  for (const CommandWord& command : kWords) {
    if (line.arguments[1] != command.word) continue;
    int status = 1;
    const bool fits = line.arguments.size() - 2 == command.count;
    if (!fits)
      PrintError("sondera: it is sondera %s\n", command.usage);
    else
      status = command.run(line);
    // A script of the first dialect that stopped early leaves the session open, as with "auto".
    if (command.run != RunScript || !fits) QuitApp(status);
    return status;
  }
  return std::nullopt;
}

}  // namespace sondera
