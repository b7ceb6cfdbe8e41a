// command_line.cpp - from the words of the command line to the exit status.
#include "app/command_line.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <new>
#include <system_error>

#include "app/command_words.h"
#include "app/commands.h"
#include "app/console.h"
#include "app/script/line.h"
#include "app/script/script_files.h"
#include "app/script/words.h"
#include "app/shutdown.h"
#include "app/startup.h"
#include "project/project_file.h"
#include "project/session.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/files.h"
#include "runtime/panels/measpanel.h"
#include "runtime/terminal.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr const char* kHelp = R"(Sondera - analysis of surface-wave tests (SASW)

  sondera                                    interactive session
  sondera <file.da>                          opens a project
  sondera run <script>                       runs a script; - is standard input
  sondera check <script>                     reads a script and says what in it cannot be run
  sondera auto new <name> <script>           makes the project <name>.da here and runs a command script
  sondera auto old <file.da> <script>        opens a project and runs a command script
  sondera export <file.da> <outfile> <measID> <refChan> <dspChan> <type>
                                             writes what a trace would show (channels count from 1)

Options
  --batch      never open a window
  --yes        answer questions with Yes; without it an unattended run answers No
  --quiet      at the end of a script print doubts only, without summary and notes
  --strict     end with status 3 when everything was done but something is doubtful; a script of the second
               dialect always does
  --help       this text; --help script: the words of a script; --help <word>: one of them;
               --help completion: for bash
  --version    the version

The exit status is 0 when everything asked for was done, 1 when something was not, with the reason on standard
error, and 3 when everything was done and there are doubts (with --strict, or by a script of the second dialect).
)";

/// Messages shown by an action count as its failure.
template <class Action>
bool WorksWithoutMessage(Action action) {
  const int before = MessageCount();
  action();
  return MessageCount() == before;
}

/// Keeps a project that a new one of its name is going to replace. The copy beside it (".bkup") lasts for one
/// save only, and a script saves more than once. False after a message when it cannot be kept.
bool KeepFormerProject(const std::string& path) {
  namespace fs = std::filesystem;
  std::error_code error;
  if (!fs::exists(path, error)) return true;
  std::string kept = path + ".former";
  for (int k = 2; fs::exists(kept, error); ++k) kept = path + FormatText(".former%d", k);
  if (!fs::copy_file(path, kept, error)) {
    MessagePopup(session.appTitle,
                 "The project of this name cannot be kept, so no new one is made: " + error.message());
    return false;
  }
  PrintError("sondera: the former project is kept as %s.\n", FileNameOf(kept).c_str());
  return true;
}

void NewProjectFile(const std::string& name) {
  const std::string path = JoinUnlessAbsolute(CurrentDirectory(), name) + ".da";
  if (!KeepFormerProject(path)) return;
  session.projectFileName = path;
  Commit(measpanel::F6);
}

/// "auto new" of an empty name, or of a folder: the project would be a file ".da".
bool LacksProjectName(const std::vector<std::string>& arguments) {
  return arguments.size() == 5 && arguments[1] == "auto" && arguments[2] == "new" &&
         FileNameOf(arguments[3]).find_first_not_of(" \t") == std::string::npos;
}

int RunAuto(const std::vector<std::string>& arguments, bool assumeYes) {
  const std::string &how = arguments[2], &name = arguments[3], &script = arguments[4];
  bool prepared = true;
  if (how == "old") prepared = WorksWithoutMessage([&] { OpenFileProc(name); });
  if (how == "new") prepared = WorksWithoutMessage([&] { NewProjectFile(name); });
  if (script::FileHasHeader(JoinUnlessAbsolute(CurrentDirectory(), script))) {
    if (prepared) return script::RunFile(script, assumeYes);
    PrintError("sondera: %s was not %s, so the script is not run.\n", name.c_str(),
               how == "old" ? "opened" : "made");
    QuitApp(1);
    return 1;
  }
  if (how != "old" && how != "new") {
    PrintError("sondera: auto takes \"old\" or \"new\"; the script works on a project without a name.\n");
  } else if (!prepared) {
    PrintError("sondera: %s was not %s; the script works on an empty project.\n", name.c_str(),
               how == "old" ? "opened" : "made");
  }
  const int result = ProcessCommands(0, script);
  return prepared && result == 0 ? 0 : 1;
}

int RunExport(const std::vector<std::string>& arguments) {
  const bool opened = WorksWithoutMessage([&] { OpenFileProc(arguments[2]); });
  std::string line;
  for (std::size_t i = 3; i < 8; ++i) line += (line.empty() ? "" : " ") + arguments[i];
  const int result = ProcessCommands(1, line);
  return opened && result == 0 ? 0 : 1;
}

int PrintHelpOn(const std::string& subject) {
  const std::string text = HelpText(subject);
  if (text.empty())
    PrintError("sondera: there is no help on %s; sondera --help script lists the words.\n", subject.c_str());
  std::fputs(text.c_str(), stdout);
  return text.empty() ? 1 : 0;
}

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& words) {
  CommandLine line;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (i == 0 || !word.starts_with("--"))
      line.arguments.push_back(word);
    else if (word == "--help")
      line.help = true;
    else if (word == "--version")
      line.version = true;
    else if (word == "--batch")
      line.batch = true;
    else if (word == "--yes")
      line.assumeYes = true;
    else if (word == "--quiet")
      line.report.quiet = true;
    else if (word == "--strict")
      line.report.strict = true;
    else if (line.unknownOption.empty())
      line.unknownOption = word;
  }
  return line;
}

std::string HelpText() {
  return kHelp;
}
std::string HelpText(const std::string& subject) {
  if (subject == "script") return script::HelpOfWords();
  if (subject == "completion") return script::BashCompletion();
  return script::HelpOfWord(subject);
}
std::string VersionText() {
  return Session{}.appTitle + "\n";
}

std::string WrongForm(const std::vector<std::string>& arguments) {
  const std::size_t count = arguments.size();
  if (count < 2) return {};
  const std::string& word = arguments[1];
  if (LacksProjectName(arguments)) return "the name of the new project is empty";
  if (count == 2 && (word == "auto" || word == "export" || word.starts_with("-")))
    return "\"" + word + "\" alone is taken for the name of a project file";
  if (word == "auto" && count != 5)
    return FormatText("auto takes three words (new or old, a project, a script), not %zu", count - 2);
  if (word == "export" && count != 8) return FormatText("export takes six words, not %zu", count - 2);
  const bool known = count == 2 || word == "auto" || word == "export" || IsCommandWord(word);
  return known ? std::string()
               : FormatText("\"%s\" with %zu words behind it is no command", word.c_str(), count - 2);
}

int DispatchCommandLine(const std::vector<std::string>& arguments, bool assumeYes) {
  const std::size_t count = arguments.size();
  if (const auto status = RunCommandWord(arguments, assumeYes)) return *status;
  if (LacksProjectName(arguments)) return 1;
  if (count == 2) return WorksWithoutMessage([&] { OpenFileProc(arguments[1]); }) ? 0 : 1;
  if (count == 5 && arguments[1] == "auto") return RunAuto(arguments, assumeYes);
  if (count == 8 && arguments[1] == "export") return RunExport(arguments);
  return 0;
}

namespace {

/// All of a run behind the options.
int RunSession(const CommandLine& line) {
  SetRunReportOptions(line.report);
  // The usage helps against a wrong command line only; a script that stopped early has said why.
  const std::string wrong = WrongForm(line.arguments);
  const bool forPerson = line.arguments.size() <= 2 || !wrong.empty();
  InstallConsole({line.assumeYes, wrong, forPerson ? HelpText() : std::string()});
  StartSession();
  const int dispatched = DispatchCommandLine(line.arguments, line.assumeYes);
  const int status = RunUserInterface();
  FinishProgressLine();
  if (dispatched != kAllDone && dispatched != kDoneWithDoubts) return kNotAllDone;
  return status == kAllDone || status == kDoneWithDoubts ? status : kNotAllDone;
}

}  // namespace

int EndOnException(const std::function<int()>& body) {
  try {
    return body();
  } catch (const std::bad_alloc&) {
    FinishProgressLine();
    std::fputs("sondera: there is not enough memory for this. The program ends; saved files are whole.\n",
               stderr);
  } catch (const std::exception& e) {
    FinishProgressLine();
    PrintError("sondera: an error of the program: %s. The program ends; saved files are whole.\n", e.what());
  }
  return kNotAllDone;
}

int RunProgram(const std::vector<std::string>& words) {
  const CommandLine line = ParseCommandLine(words);
  if (!line.unknownOption.empty()) {
    PrintError("sondera: unknown option %s; sondera --help lists the options.\n", line.unknownOption.c_str());
    return 1;
  }
  if (line.help && line.arguments.size() > 1) return PrintHelpOn(line.arguments[1]);
  if (line.help || line.version) {
    std::fputs((line.help ? HelpText() : VersionText()).c_str(), stdout);
    return 0;
  }
  return EndOnException([&] { return RunSession(line); });
}

}  // namespace sondera
