// command_line.cpp - from the command line to the exit status.
#include "app/command_line.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <new>
#include <utility>

#include "acquisition/board_choice.h"
#include "acquisition/daq_driver.h"
#include "app/command_words.h"
#include "app/commands.h"
#include "app/console.h"
#include "app/control_reference.h"
#include "app/script/input_lines.h"
#include "app/script/line.h"
#include "app/script/script_files.h"
#include "app/script/session_log.h"
#include "app/script/values.h"
#include "app/script/words.h"
#include "app/shutdown.h"
#include "app/startup.h"
#include "app/table_export.h"
#include "panels/mainmenu_plot.h"
#include "panels/mainmenu_project.h"
#include "project/project_copies.h"
#include "project/project_file.h"
#include "records/session.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/files.h"
#include "runtime/interrupt_hold.h"
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
  sondera export --format=FORM <file.da> <out>
                                             writes the project for other programs: csv, json, swprepost, dinver,
                                             gpdc, layers, disba
  sondera show <file.da>                     prints what is in a project: curves, profile, masks
  sondera plot <file.da> <out.svg|pdf|png>   draws it
  sondera batch <sites.csv> <script>         runs a script for each site of a list, each in a folder of its own

Options
  --batch      never open a window
  --yes        answer questions with Yes; without it an unattended run answers No
  --quiet      at the end of a script print doubts only, without summary and notes
  --strict     end with status 3 when everything was done but something is doubtful; a script of the second
               dialect always does
  --overwrite  with run: files that exist are written over, as if each line said overwrite=yes
  --finish-iteration
               with run: Ctrl-C ends an inversion when its iteration is finished, not at once
  --figures=FILE
               write the numbers of a script's run to a file, as JSON
  --log=FILE   write every act of the session to a file that runs again: sondera run FILE
  --report=OUT.ps|OUT.pdf
               write the whole report of a project: sondera --report=OUT.ps <file.da>
  --wait       wait for a project or for result files that another run has in use; without it the program
               stops
  --board=DRIVER[:options]
               take records from a board; --board=list prints the drivers and what each finds
  --only=TABLE,...
               with --format=csv: curves, profile, spectra, masks, figures
  --extend     with --format=, show and plot: Vs30 also where the ground was not seen to 30 m
  --curves, --profile, --masks
               with show: these parts only
  --what=curves|fit|profile|phase
               with plot: what to draw
  --known-curve=FILE, --known-layers=FILE
               with show and plot: what is known of the ground, beside what was found
  --jobs=N, --resume, --keep-going, --only=ROW, --collect
               with batch: so many sites at a time; skip those that are done and unchanged; go on after a site
               that failed; one row of the list; only write the summary from the folders
  --help       this text; --help script: the words of a script; --help <word>: one of them;
               --help controls: every control by its name;
               --help completion: for bash
  --version    the version

The exit status is 0 when everything asked for was done, 1 when something was not, with the reason on standard
error, and 3 when everything was done and there are doubts (with --strict, or by a script of the second dialect).
)";

constexpr std::string_view kBoardOption = "--board=", kFormatOption = "--format=", kOnlyOption = "--only=",
                           kReportOption = "--report=", kLogOption = "--log=";

/// The options in the help text, each once, with "=" where a value follows; separated by blanks.
std::string OptionsOf(std::string_view help) {
  std::vector<std::string> options;
  for (std::size_t at = 0; (at = help.find("--", at)) != std::string_view::npos;) {
    std::size_t end = help.find_first_not_of("abcdefghijklmnopqrstuvwxyz-", at);
    if (help[end] == '=') ++end;
    options.emplace_back(help.substr(at, end - at));
    at = end;
  }
  std::sort(options.begin(), options.end());
  options.erase(std::unique(options.begin(), options.end()), options.end());
  std::string text;
  for (const std::string& option : options) text += text.empty() ? option : " " + option;
  return text;
}

/// Messages during an action count as its failure.
template <class Action>
bool WorksWithoutMessage(Action action) {
  const int before = MessageCount();
  action();
  return MessageCount() == before;
}

/// The program ends before its work begins: an unattended run must not stay open.
int Stop() {
  QuitApp(1);
  return 1;
}

/// The same with a line that names what was not done; the reason was already printed.
int Stop(const std::string& project, const char* leftOut) {
  PrintError("sondera: %s was not opened completely, so %s.\n", project.c_str(), leftOut);
  return Stop();
}

/// False after one sentence when another process has the project.
bool MayWorkOn(const std::string& path) {
  std::string reason;
  return LockProject(path, reason) || Refuse(reason + ".") == 0;
}

std::string NewProjectPath(const std::string& name) {
  return JoinUnlessAbsolute(CurrentDirectory(), name) + ".da";
}

/// Makes a project, and keeps the former one of its name beside it: the copy ".bkup" lasts for one save only,
/// and a script saves more than once. False after a message when the former one cannot be kept.
bool NewProjectFile(const std::string& path) {
  std::string kept, reason;
  if (!KeepFormerProject(
          path, [](AtomicWriter& file) { StoreProject(file); }, kept, reason)) {
    Refuse("The project of this name cannot be kept, so no new one is made. " + reason + ".");
    return false;
  }
  if (!kept.empty()) PrintError("sondera: the former project is kept as %s.\n", FileNameOf(kept).c_str());
  session.projectFileName = path;
  Commit(measpanel::F6);
  return true;
}

/// "auto new" with an empty name, or with a folder: the project would be a file ".da".
bool LacksProjectName(const std::vector<std::string>& arguments) {
  return arguments.size() == 5 && arguments[1] == "auto" && arguments[2] == "new" &&
         FileNameOf(arguments[3]).find_first_not_of(" \t") == std::string::npos;
}

/// The script of "auto". A script of the second dialect needs a complete project; one of the first works with
/// the data there are, and the status reports failures.
int RunScript(const std::vector<std::string>& arguments, bool prepared, bool assumeYes) {
  const std::string &how = arguments[2], &name = arguments[3], &script = arguments[4];
  const char* const was = how == "old" ? "opened" : "made";
  if (script::FileHasHeader(JoinUnlessAbsolute(CurrentDirectory(), script))) {
    if (prepared) return script::RunFile(script, {assumeYes});
    PrintError("sondera: %s was not %s, so the script is not run.\n", name.c_str(), was);
    return Stop();
  }
  if (how != "old" && how != "new")
    PrintError("sondera: auto takes \"old\" or \"new\"; the script works on a project without a name.\n");
  else if (!prepared && (how == "new" || !MayExist(name)))
    PrintError("sondera: %s was not %s; the script works on an empty project.\n", name.c_str(), was);
  const int result = ProcessCommands(0, script);
  return prepared && result == 0 ? 0 : 1;
}

int RunAutoOld(const std::vector<std::string>& arguments, bool assumeYes) {
  const std::string& path = arguments[3];
  bool opened = false;
  const bool missing = !MayExist(path);
  if (!missing && !MayWorkOn(path)) return Stop();
  script::LoggedAct logged(script::LoggedAct::Answers::AreAsked);
  const bool quiet = WorksWithoutMessage([&] { opened = OpenFileProc(path) == 0; });
  if (!opened && !missing) return Stop(path, "no script was run");
  if (opened) logged.is("open " + script::PathText(JoinUnlessAbsolute(CurrentDirectory(), path)), false);
  logged.end();
  return RunScript(arguments, quiet, assumeYes);
}

int RunAutoNew(const std::vector<std::string>& arguments, bool assumeYes) {
  const std::string path = NewProjectPath(arguments[3]);
  if (!MayWorkOn(path)) return Stop();
  bool mayRun = false;
  script::LoggedAct logged(script::LoggedAct::Answers::AreAsked);
  const bool quiet = WorksWithoutMessage([&] { mayRun = NewProjectFile(path); });
  if (mayRun) logged.is("save " + script::PathText(path) + " overwrite=yes", !quiet);
  logged.end();
  return mayRun ? RunScript(arguments, quiet, assumeYes) : Stop();
}

int RunAuto(const std::vector<std::string>& arguments, bool assumeYes) {
  if (arguments[2] == "old") return RunAutoOld(arguments, assumeYes);
  if (arguments[2] == "new") return RunAutoNew(arguments, assumeYes);
  return RunScript(arguments, true, assumeYes);
}

/// Only reads the project, so it takes no lock: a save never leaves half a file.
int RunExport(const std::vector<std::string>& arguments) {
  const std::string& path = arguments[2];
  bool opened = false;
  const bool quiet = WorksWithoutMessage([&] { opened = OpenFileProc(path, OpenFor::Reading) == 0; });
  if (!opened) return Stop(path, "nothing was exported");
  std::string line;
  for (std::size_t i = 3; i < 8; ++i) line += (line.empty() ? "" : " ") + arguments[i];
  const int result = ProcessCommands(1, line);
  return quiet && result == 0 ? 0 : 1;
}

/// "export" with --format=: the tables of a project, which is only read.
int RunTableExport(const CommandLine& line) {
  const std::string& path = line.arguments[2];
  bool opened = false;
  const bool quiet = WorksWithoutMessage([&] { opened = OpenFileProc(path, OpenFor::Reading) == 0; });
  if (!opened) return Stop(path, "nothing was exported");
  std::string remark;
  const std::string reason = WriteTables(
      {line.format, JoinUnlessAbsolute(CurrentDirectory(), line.arguments[3]), line.tables, line.extend},
      remark);
  if (!reason.empty()) PrintError("sondera: %s; nothing was exported.\n", reason.c_str());
  if (!remark.empty()) PrintError("sondera: %s.\n", remark.c_str());
  const int status = quiet && reason.empty() ? 0 : 1;
  QuitApp(status);
  return status;
}

/// The whole report of a project. Only reads it, as an export does. Pages without contents are reported and
/// are not a failure.
int RunReport(const std::vector<std::string>& arguments, const std::string& file) {
  if (arguments.size() != 2 || file.empty()) {
    PrintError("sondera: it is sondera --report=OUT.ps <file.da>\n");
    return Stop();
  }
  bool opened = false;
  const bool quiet = WorksWithoutMessage([&] { opened = OpenFileProc(arguments[1], OpenFor::Reading) == 0; });
  if (!opened) return Stop(arguments[1], "no report was written");
  const int result = PrintReport(ReportKind::whole, JoinUnlessAbsolute(CurrentDirectory(), file));
  const int status = quiet && result == 0 ? 0 : 1;
  QuitApp(status);
  return status;
}

/// Fault of a line with a format.
std::string WrongTableExport(const CommandLine& line) {
  const bool isExport = line.arguments.size() == 4 && line.arguments[1] == "export";
  return isExport ? std::string() : "--format= goes with export, a project and a name to write to";
}

int OpenForAPerson(const std::string& path) {
  if (FileExists(path) && !MayWorkOn(path)) return Stop();
  script::LoggedAct logged(script::LoggedAct::Answers::AreAsked);
  bool opened = false;
  const bool quiet = WorksWithoutMessage([&] { opened = OpenFileProc(path) == 0; });
  if (opened || session.readInPart)
    logged.is("open " + script::PathText(JoinUnlessAbsolute(CurrentDirectory(), path)) +
                  (session.readInPart ? " damaged=yes" : ""),
              false);
  return quiet ? 0 : 1;
}

int PrintHelpOn(const std::string& subject) {
  const std::string text = HelpText(subject);
  if (text.empty())
    PrintError("sondera: there is no help on %s; sondera --help script lists the words.\n", subject.c_str());
  std::fputs(text.c_str(), stdout);
  return text.empty() ? 1 : 0;
}

/// Options of one command: show, plot, batch.
bool TakeOptionOfWord(const std::string& word, CommandLine& line) {
  const auto value = [&](std::string_view option, std::string& text) {
    if (!word.starts_with(option)) return false;
    text = word.substr(option.size());
    return true;
  };
  std::string jobs;
  if (word == "--overwrite")
    line.overwrite = true;
  else if (word == "--finish-iteration")
    line.finishIteration = true;
  else if (value("--figures=", line.report.figuresFile)) {
  } else if (word == "--curves" || word == "--profile" || word == "--masks")
    line.look.parts.push_back(word.substr(2));
  else if (word == "--resume")
    line.batchRun.resume = true;
  else if (word == "--keep-going")
    line.batchRun.keepGoing = true;
  else if (word == "--collect")
    line.batchRun.collect = true;
  else if (value("--jobs=", jobs))
    line.batchRun.jobs = script::WholeOf(jobs).value_or(0);
  else
    return value("--what=", line.look.what) || value("--known-curve=", line.look.knownCurve) ||
           value("--known-layers=", line.look.knownLayers);
  return true;
}

/// An option that does not belong to the command; empty for none.
std::string StrayOption(CommandLine& line) {
  const std::string word = line.arguments.size() > 1 ? line.arguments[1] : std::string();
  const bool looks = word == "show" || word == "plot", isBatch = word == "batch";
  const LookOptions& look = line.look;
  if (isBatch) line.batchRun.only = std::exchange(line.tables, {});
  if (line.format.empty() && !line.tables.empty()) return "--only";
  if (line.format.empty() && !looks && line.extend) return "--extend";
  if (word != "run" && line.overwrite) return "--overwrite";
  if (word != "run" && line.finishIteration) return "--finish-iteration";
  if (word != "show" && !look.parts.empty()) return "--" + look.parts.front();
  if (word != "plot" && !look.what.empty()) return "--what";
  if (!looks && !(look.knownCurve + look.knownLayers).empty())
    return look.knownCurve.empty() ? "--known-layers" : "--known-curve";
  const batch::Options& run = line.batchRun;
  if (!isBatch && (run.resume || run.keepGoing || run.collect || run.jobs != 1))
    return run.resume ? "--resume" : run.keepGoing ? "--keep-going" : run.collect ? "--collect" : "--jobs";
  return "";
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
    else if (word == "--wait")
      line.wait = true;
    else if (word.starts_with(kBoardOption))
      line.board = word.substr(kBoardOption.size());
    else if (word.starts_with(kFormatOption))
      line.format = word.substr(kFormatOption.size());
    else if (word.starts_with(kOnlyOption))
      line.tables = script::ItemsOf(word.substr(kOnlyOption.size()));
    else if (word == "--extend")
      line.extend = true;
    else if (word.starts_with(kLogOption))
      line.log = word.substr(kLogOption.size());
    else if (word.starts_with(kReportOption))
      line.reportFile = word.substr(kReportOption.size());
    else if (!TakeOptionOfWord(word, line) && line.unknownOption.empty())
      line.unknownOption = word;
  }
  if (line.unknownOption.empty()) line.unknownOption = StrayOption(line);
  return line;
}

std::string HelpText() {
  return kHelp;
}
std::string HelpText(const std::string& subject) {
  if (subject == "script") return script::HelpOfWords();
  if (subject == "controls") return ControlReference();
  if (subject == "completion") return script::BashCompletion(OptionsOf(kHelp));
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
               : FormatText("\"%s\" with %zu words after it is not a command", word.c_str(), count - 2);
}

int DispatchCommandLine(const std::vector<std::string>& arguments, bool assumeYes) {
  CommandLine line;
  line.arguments = arguments;
  line.assumeYes = assumeYes;
  return DispatchWithOptions(line);
}

int DispatchWithOptions(const CommandLine& line) {
  const std::vector<std::string>& arguments = line.arguments;
  const bool assumeYes = line.assumeYes;
  const std::size_t count = arguments.size();
  if (const auto status = RunCommandWord(line)) return *status;
  if (LacksProjectName(arguments)) return 1;
  if (count == 2) return OpenForAPerson(arguments[1]);
  if (count == 5 && arguments[1] == "auto") return RunAuto(arguments, assumeYes);
  if (count == 8 && arguments[1] == "export") return RunExport(arguments);
  return 0;
}

namespace {

/// The script in the arguments; empty without one.
std::string ScriptOf(const std::vector<std::string>& arguments) {
  const bool isRun = arguments.size() == 3 && arguments[1] == "run",
             isAuto = arguments.size() == 5 && arguments[1] == "auto";
  return isRun || isAuto ? JoinUnlessAbsolute(CurrentDirectory(), arguments.back()) : std::string();
}

/// Begins the log requested by an option. False after a sentence.
bool LogBegins(const CommandLine& line) {
  const std::string fault = line.log ? script::BeginLog(*line.log, ScriptOf(line.arguments)) : std::string();
  if (!fault.empty()) PrintError("sondera: %s; nothing was done.\n", fault.c_str());
  return fault.empty();
}

/// The whole run after the options.
int RunSession(const CommandLine& line, const WindowsOpener& windows) {
  SetRunReportOptions(line.report);
  // The usage is printed only for a wrong command line; a script that stopped early has reported why.
  const std::string wrong = line.format.empty() ? WrongForm(line.arguments) : WrongTableExport(line);
  const bool forPerson = (line.arguments.size() <= 2 || !wrong.empty()) && !line.reportFile &&
                         (line.arguments.size() < 2 || !IsCommandWord(line.arguments[1]));
  const WindowsOpener opener = line.batch ? WindowsOpener() : windows;
  const std::string noWindows = !opener ? "this build has no windows" : forPerson ? opener() : std::string();
  if (forPerson && noWindows.empty()) {
    if (!wrong.empty()) PrintError("sondera: %s; the windows open on an empty project.\n", wrong.c_str());
  } else {
    InstallConsole({line.assumeYes, wrong, forPerson ? HelpText() : std::string(), line.batch, noWindows,
                    forPerson ? WindowsOpener() : opener});
  }
  if (line.wait) {
    WaitForLocks([](const std::string& sentence) {
      FinishProgressLine();
      PrintError("sondera: waiting, since %s.\n", sentence.c_str());
    });
  }
  if (!LogBegins(line)) return kNotAllDone;
  StartSession();
  LetRunsFinishSteps(line.finishIteration);
  const int dispatched = line.reportFile       ? RunReport(line.arguments, *line.reportFile)
                         : line.format.empty() ? DispatchWithOptions(line)
                         : wrong.empty()       ? RunTableExport(line)
                                               : kAllDone;
  const int status = RunUserInterface();
  FinishProgressLine();
  const bool logIsWhole = script::EndLog().empty();  // otherwise the reason was already printed
  InstallDaqDriver(&daqNone);                        // a board program gets time to end
  if ((dispatched != kAllDone && dispatched != kDoneWithDoubts) || !logIsWhole) return kNotAllDone;
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

int RunProgram(const std::vector<std::string>& words, const WindowsOpener& windows) {
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
  if (line.board == "list") {
    std::fputs(BoardListText().c_str(), stdout);
    return 0;
  }
  return EndOnException([&] {
    const std::string fault = line.board ? ChooseBoard(*line.board) : std::string();
    if (fault.empty()) return RunSession(line, windows);
    PrintError("sondera: %s\n", fault.c_str());
    return kNotAllDone;
  });
}

}  // namespace sondera
