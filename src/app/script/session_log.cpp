// session_log.cpp - see session_log.h. Owns the log of the process.
#include "app/script/session_log.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <map>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include "app/script/input_lines.h"
#include "app/script/line.h"
#include "app/script/values.h"
#include "app/script/words.h"
#include "runtime/crc32.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/files.h"
#include "runtime/input_scope.h"
#include "runtime/session_watch.h"
#include "runtime/terminal.h"
#include "runtime/version.h"
#include "runtime/written_files.h"

namespace sondera::script {
namespace {

constexpr std::string_view kSecondLine = "# log of a session";

/// The line of an entry, which a later entry into the same field replaces.
struct Waiting {
  std::string lines;
  ControlId control = nullptr;
};

/// Events during the present action.
struct Act {
  std::vector<std::string> files;  // comments
  GivenAnswers answers;
  bool takesAnswers = false;
  int polls = 0, haltAt = 0;
  InputLine input;  // of a person
};

struct SessionLog {
  int file = -1;
  std::string path, trouble;
  bool rewinds = false;  // a regular file: waiting lines stand in it, and are replaced there
  off_t settled = 0;     // its length without them
  std::string shown;     // the waiting lines in the file
  std::map<std::string, std::string> sums;  // of files read, by their names
  std::vector<Waiting> waiting;
  std::vector<std::string> steering;
  int depth = 0;  // nested actions: only the outermost is written
  Act act;
};
SessionLog sessionLog;

bool IsOn() {
  return sessionLog.file >= 0;
}

void WriteOut(const std::string& text) {
  if (!IsOn() || !sessionLog.trouble.empty()) return;
  for (std::size_t at = 0; at < text.size();) {
    const ssize_t n = ::write(sessionLog.file, text.data() + at, text.size() - at);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) {
      sessionLog.trouble = "the log " + sessionLog.path + " cannot be written any further: " +
                           std::generic_category().message(n < 0 ? errno : ENOSPC);
      PrintError("sondera: %s; the session continues.\n", sessionLog.trouble.c_str());
      return;
    }
    at += static_cast<std::size_t>(n);
  }
}

std::string TextOfWaiting() {
  std::string text;
  for (const Waiting& w : sessionLog.waiting) text += w.lines;
  return text;
}

/// Makes the waiting lines of the file those of now.
void ShowWaiting() {
  if (!IsOn() || !sessionLog.rewinds) return;
  const std::string text = TextOfWaiting();
  std::string& shown = sessionLog.shown;
  if (!text.starts_with(shown)) {
    if (::ftruncate(sessionLog.file, sessionLog.settled) != 0 ||
        ::lseek(sessionLog.file, sessionLog.settled, SEEK_SET) < 0) {
      sessionLog.rewinds = false;  // a later action writes them, after those that stand here
      return;
    }
    shown.clear();
  }
  WriteOut(text.substr(shown.size()));
  shown = text;
}

/// Nothing replaces the waiting lines any more.
void SettleWaiting() {
  ShowWaiting();
  const std::string text = TextOfWaiting();
  sessionLog.waiting.clear();
  if (sessionLog.rewinds)
    sessionLog.settled += static_cast<off_t>(std::exchange(sessionLog.shown, {}).size());
  else
    WriteOut(text);
}

void WriteSettled(const std::string& text) {
  SettleWaiting();
  WriteOut(text);
  sessionLog.settled += static_cast<off_t>(text.size());
}

/// A line that a script cannot contain is written as a comment: it is not replayed, and the log stays valid.
std::string Writable(const std::string& line) {
  const auto isControl = [](char c) {
    return (static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7f;
  };
  if (line.size() <= kLongestLine && std::none_of(line.begin(), line.end(), isControl)) return line;
  return "# not in this log, a line cannot hold it: " + VisibleText(line.substr(0, 200));
}

void WriteAct(const std::vector<std::string>& lines, bool refused, ControlId replaces) {
  Act act = std::exchange(sessionLog.act, {});
  std::string before;
  for (const std::string& file : act.files) before += file + "\n";
  for (const std::string& l : std::exchange(sessionLog.steering, {})) before += l + "\n";
  for (const GivenAnswer& answer : act.answers) before += Writable(LineOfAnswer(answer)) + "\n";
  if (act.haltAt > 0) before += FormatText("halt after=%d\n", act.haltAt);
  std::string shown;
  for (const std::string& line : lines)
    if (!line.empty()) shown += Writable(line) + "\n";
  if (shown.empty()) return;
  if (replaces && !refused && before.empty()) {
    std::erase_if(sessionLog.waiting, [&](const Waiting& w) { return w.control == replaces; });
    sessionLog.waiting.push_back({shown, replaces});
    ShowWaiting();
    return;
  }
  WriteSettled(refused ? "onerror continue\n" + before + shown + "onerror stop\n" : before + shown);
}

void BeginAct(bool takesAnswers) {
  if (sessionLog.depth++ > 0) return;
  sessionLog.act = {};
  sessionLog.act.takesAnswers = takesAnswers;
}

/// An interrupt after the last poll, which no poll has seen, ended the run.
void EndAct(const std::vector<std::string>& lines, bool refused, ControlId replaces) {
  if (--sessionLog.depth > 0) return;
  Act& act = sessionLog.act;
  if (InterruptRequested() && act.haltAt == 0) act.haltAt = act.polls;
  WriteAct(lines, refused, replaces);
}

// --- reports of the session ---

void Polled() {
  if (sessionLog.depth == 0 || !EndingControl()) return;
  ++sessionLog.act.polls;
  if (InterruptRequested() && sessionLog.act.haltAt == 0) sessionLog.act.haltAt = sessionLog.act.polls;
}

void Answered(GivenAnswer answer) {
  if (sessionLog.depth == 1 && sessionLog.act.takesAnswers)
    sessionLog.act.answers.push_back(std::move(answer));
}

/// A file that this session has written is not an input.
void ReadsFile(const std::string& path) {
  if (sessionLog.depth == 0) return;
  const auto& written = WrittenFiles();
  if (std::find(written.begin(), written.end(), path) != written.end()) return;
  const std::optional<FileSum> sum = SumOfFile(path);
  if (!sum) return;
  std::string text = SumText(*sum);
  std::string& known = sessionLog.sums[path];
  if (std::exchange(known, text) == text) return;
  sessionLog.act.files.push_back("# file " + VisibleText(PathText(path)) + " " + text);
}

void Begins(const Input& input) {
  BeginAct(true);
  if (sessionLog.depth == 1) sessionLog.act.input = LineBefore(input);
}

void Entered(const Input& input) {
  if (sessionLog.depth == 1) sessionLog.act.input = LineOfEntry(input);
}

/// The action that begins a log is not part of it. Inside another action only the button that ends it is
/// possible: that is a halt at the poll that processed it.
/// A message counts as a refusal, since a script stops at it.
void Ends(const Input& input, InputEnd end) {
  if (sessionLog.depth == 0) return;
  const bool refused = end != InputEnd::Done;
  Act& act = sessionLog.act;
  if (sessionLog.depth > 1 && input.control && input.control == EndingControl() && PressHalted() &&
      act.haltAt == 0)
    act.haltAt = act.polls;
  if (sessionLog.depth > 1) {
    EndAct({}, refused, nullptr);
    return;
  }
  const InputLine line = LineBehind(input, end, std::move(act.input), act.answers);
  if (line.dropsAnswers) act.answers.clear();
  for (const ControlId control : line.replaced)
    std::erase_if(sessionLog.waiting, [&](const Waiting& w) { return w.control == control; });
  EndAct(line.lines, refused && !line.neverRefused, line.replaces);
}

SessionWatcher WatcherOfTheLog() {
  SessionWatcher watcher;
  watcher.begins = Begins;
  watcher.entered = Entered;
  watcher.ends = Ends;
  using Kind = GivenAnswer::Kind;
  watcher.confirmed = [](bool yes) { Answered({.kind = yes ? Kind::Yes : Kind::No}); };
  watcher.prompted = [](const std::optional<std::string>& text) {
    Answered(text ? GivenAnswer{.kind = Kind::Text, .text = *text} : GivenAnswer{});
  };
  watcher.fileChosen = [](const FileChoice& choice) {
    if (choice.answer == FileAnswer::Cancelled)
      Answered({});
    else
      Answered({.kind = Kind::File, .text = choice.path, .existed = choice.answer == FileAnswer::Exists});
  };
  watcher.polled = Polled;
  watcher.readsFile = ReadsFile;
  return watcher;
}

/// Why an existing file must not be overwritten; empty when it may.
std::string WhyNotReplaced(const std::string& path, const std::string& script) {
  std::error_code error;
  if (!script.empty() && std::filesystem::equivalent(path, script, error))
    return "the script that is run cannot be its own log";
  if (!MayExist(path)) return "";
  TextReader file;
  std::string first, second, reason;
  if (!file.Open(path, &reason)) return reason;
  file.ReadPhysicalLine(first, kLongestLine);
  file.ReadPhysicalLine(second, kLongestLine);
  const bool isLog = IsHeader(first) && second.starts_with(kSecondLine);
  return isLog ? "" : path + " exists and is not a log, so it is not overwritten";
}

}  // namespace

std::string BeginLog(const std::string& name, const std::string& script) {
  const std::string path = JoinUnlessAbsolute(CurrentDirectory(), name);
  if (name.empty()) return "--log= takes the name of a file";
  if (std::string why = WhyNotReplaced(path, script); !why.empty()) return why;
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (file < 0) return "the log " + path + " cannot be written: " + std::generic_category().message(errno);
  sessionLog = {};
  sessionLog.file = file;
  sessionLog.path = path;
  struct stat kind = {};
  sessionLog.rewinds = ::fstat(file, &kind) == 0 && S_ISREG(kind.st_mode);
  WatchSession(WatcherOfTheLog());
  WriteSettled(std::string(kHeader) + "\n" + std::string(kSecondLine) + ", Sondera " + std::string(kVersion) +
               "\n");
  return sessionLog.trouble;
}

std::string BeginLogOn(const std::string& path, const std::string& project) {
  const std::string fault = BeginLog(path);
  if (fault.empty() && !project.empty())
    WriteAct({"open " + PathText(JoinUnlessAbsolute(CurrentDirectory(), project))}, false, nullptr);
  return fault.empty() ? sessionLog.trouble : fault;
}

bool IsLogging() {
  return IsOn();
}

std::string EndLog() {
  if (!IsOn()) return "";
  SettleWaiting();
  WatchSession({});
  if (::close(sessionLog.file) != 0 && sessionLog.trouble.empty())
    sessionLog.trouble = "the log " + sessionLog.path + " was not written to its end";
  std::string trouble = sessionLog.trouble;
  sessionLog = {};
  return trouble;
}

LoggedAct::LoggedAct(Answers answers) : open_(IsOn()) {
  if (open_) BeginAct(answers == Answers::AreAsked);
}

LoggedAct::~LoggedAct() {
  end();
}

void LoggedAct::end() {
  if (std::exchange(open_, false) && IsOn()) EndAct({line_}, refused_, replaces_);
}

void LoggedAct::is(std::string line, bool refused, ControlId replaces) {
  line_ = std::move(line);
  refused_ = refused;
  replaces_ = replaces && OnlyItsLastValueCounts(*replaces) ? replaces : nullptr;
}

void LogSteering(const std::string& line) {
  if (IsOn()) sessionLog.steering.push_back(Writable(line));
}

}  // namespace sondera::script
