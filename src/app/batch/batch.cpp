// batch.cpp - see batch.h.
#include "app/batch/batch.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <thread>
#include <utility>

#include "app/batch/site_list.h"
#include "app/batch/site_status.h"
#include "app/run_report.h"
#include "app/script/values.h"
#include "runtime/crc32.h"
#include "runtime/events.h"
#include "runtime/files.h"
#include "runtime/terminal.h"
#include "runtime/version.h"

namespace sondera::batch {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr const char *kScript = "script.txt", *kLog = "session.log", *kOutput = "log.txt",
                     *kFigures = "figures.json";
constexpr std::chrono::milliseconds kLook{20};
constexpr std::int64_t kLargestScript = std::int64_t{1} << 24;  // bytes

int Fail(const std::string& reason) {
  PrintError("sondera: %s.\n", reason.c_str());
  return kNotAllDone;
}

std::string ReadWhole(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// A site of the list with its script, its folder, and its result.
struct Job {
  Site site;
  std::string folder, script, scriptSum, rowSum;
  SiteStatus status;
  pid_t process = 0;
  Clock::time_point begin;
};

class Batch {
 public:
  explicit Batch(const Options& options) : options_(options) {}

  std::string read(const std::string& list, const std::string& scriptName);
  int run();
  int collect();

 private:
  bool isDone(Job& job) const;
  std::string start(Job& job) const;
  void finish(Job& job, int status);
  void halt();
  void lookAfter();
  bool startsMore() const;
  bool writeSummary() const;
  int result() const;

  Options options_;
  std::vector<Job> jobs_;
  bool failed_ = false, halted_ = false;
};

std::string Batch::read(const std::string& list, const std::string& scriptName) {
  const std::string path = JoinUnlessAbsolute(CurrentDirectory(), list);
  std::vector<Site> sites;
  if (std::string reason = ReadSites(path, sites); !reason.empty()) return reason;
  const std::string scriptPath = JoinUnlessAbsolute(CurrentDirectory(), scriptName);
  const auto sum = SumOfFile(scriptPath);
  if (!sum) return "the script " + scriptPath + " cannot be read";
  if (sum->bytes > kLargestScript) return "the script " + scriptPath + " is too large";
  const std::string script = ReadWhole(scriptPath);
  const std::string folderOfList = fs::path(path).parent_path().string();
  for (Site& site : sites) {
    Job job;
    std::string reason = ScriptOfSite(script, site, folderOfList, job.script);
    if (!reason.empty()) return scriptPath + ", " + reason;
    job.folder = JoinPath(CurrentDirectory(), site.name);
    job.scriptSum = FormatText("%08x", Crc32(script));
    job.rowSum = SumOfRow(site);
    job.site = std::move(site);
    jobs_.push_back(std::move(job));
  }
  return "";
}

/// Finished before, with the same program, script, row and files.
bool Batch::isDone(Job& job) const {
  SiteStatus former;
  const bool same = ReadStatus(job.folder, former) &&
                    (former.status == kAllDone || former.status == kDoneWithDoubts) &&
                    former.version == kVersion && former.scriptSum == job.scriptSum &&
                    former.rowSum == job.rowSum && InputsAreUnchanged(job.folder, former.inputs);
  if (same) job.status = std::move(former);
  return same;
}

/// In the child: standard output and error to the log, no standard input, then the program.
[[noreturn]] void BecomeSite(const std::string& folder, pid_t batch) {
  // A site does not outlive its batch: the next one would work in the same folder.
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (::getppid() != batch) ::_exit(127);
  const int input = ::open("/dev/null", O_RDONLY),
            log = ::open(JoinPath(folder, kOutput).c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
  if (log < 0 || ::chdir(folder.c_str()) != 0) ::_exit(127);
  ::dup2(input, STDIN_FILENO);
  ::dup2(log, STDOUT_FILENO);
  ::dup2(log, STDERR_FILENO);
  const std::string logOption = std::string("--log=") + kLog, figures = std::string("--figures=") + kFigures;
  const char* const words[] = {
      "sondera",         "--batch",       "--yes", "--overwrite", "--finish-iteration",
      logOption.c_str(), figures.c_str(), "run",   kScript,       nullptr};
  ::execv("/proc/self/exe", const_cast<char* const*>(words));
  ::_exit(127);
}

std::string Batch::start(Job& job) const {
  std::error_code error;
  fs::create_directory(job.folder, error);
  if (!fs::is_directory(job.folder, error)) return "the folder " + job.folder + " cannot be made";
  for (const char* name : {"status.json", kFigures, kLog}) fs::remove(JoinPath(job.folder, name), error);
  TextWriter file(JoinPath(job.folder, kScript));
  file.Put(job.script);
  if (!file.Close()) return file.Reason();
  job.begin = Clock::now();
  const pid_t batch = ::getpid();
  job.process = ::fork();
  if (job.process == 0) BecomeSite(job.folder, batch);
  return job.process < 0 ? "no further process can be started" : "";
}

/// The error message of a failed run about its last line, else the end of its output.
std::string ReasonOfLog(const std::string& path) {
  std::ifstream in(path);
  std::string reason, last;
  for (std::string line; std::getline(in, line);) {
    if (reason.empty() && line.starts_with(std::string(kScript) + ":")) reason = line;
    if (!line.empty()) last = line;
  }
  return VisibleText(reason.empty() ? last : reason).substr(0, 500);
}

void Batch::finish(Job& job, int raw) {
  SiteStatus& s = job.status;
  const int ended = WIFEXITED(raw) ? WEXITSTATUS(raw) : kNotAllDone;
  s.status = ended == kAllDone || ended == kDoneWithDoubts ? ended : kNotAllDone;
  s.seconds =
      0.001 * static_cast<double>(
                  std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - job.begin).count());
  s.version = kVersion;
  s.scriptSum = job.scriptSum;
  s.rowSum = job.rowSum;
  s.inputs = InputsOfLog(JoinPath(job.folder, kLog));
  // A file of its own folder that the run has read and then overwritten is not an input.
  std::erase_if(s.inputs, [&](const ReadFile& file) {
    return !file.name.starts_with('/') && !InputsAreUnchanged(job.folder, {file});
  });
  s.figures = ReadWhole(JoinPath(job.folder, kFigures));
  if (WIFSIGNALED(raw))
    s.reason = FormatText("ended by signal %d", WTERMSIG(raw));
  else if (s.status == kNotAllDone)
    s.reason = ReasonOfLog(JoinPath(job.folder, kOutput));
  else if (s.status == kDoneWithDoubts)
    s.reason = "doubts, see log.txt";
  job.process = 0;
  if (std::string fault = WriteStatus(job.folder, s); !fault.empty()) {
    s.status = kNotAllDone;
    s.reason = fault;
  }
  failed_ = failed_ || s.status == kNotAllDone;
  PrintError("%s: status %d, %.1f s%s%s\n", job.site.name.c_str(), s.status, s.seconds,
             s.reason.empty() ? "" : ": ", s.reason.c_str());
}

/// Running sites finish their iteration.
void Batch::halt() {
  if (!InterruptRequested() || std::exchange(halted_, true)) return;
  PrintError("sondera: no further site is started; those that run end soon.\n");
  for (const Job& job : jobs_)
    if (job.process > 0) ::kill(job.process, SIGINT);
}

void Batch::lookAfter() {
  halt();
  for (Job& job : jobs_) {
    int raw = 0;
    if (job.process <= 0 || ::waitpid(job.process, &raw, WNOHANG) != job.process) continue;
    finish(job, raw);
    if (options_.only.empty() && !writeSummary()) failed_ = true;
  }
}

bool Batch::startsMore() const {
  return !halted_ && (!failed_ || options_.keepGoing);
}

bool Batch::writeSummary() const {
  TextWriter file(JoinPath(CurrentDirectory(), "summary.csv"));
  file.Put(SummaryHead() + "\n");
  for (const Job& job : jobs_) file.Put(SummaryRow(job.site, job.status) + "\n");
  if (file.Close()) return true;
  PrintError("sondera: %s.\n", file.Reason().c_str());
  return false;
}

int Batch::result() const {
  int worst = kAllDone;
  for (const Job& job : jobs_) {
    if (job.status.status != kAllDone && job.status.status != kDoneWithDoubts) return kNotAllDone;
    if (job.status.status == kDoneWithDoubts) worst = kDoneWithDoubts;
  }
  return failed_ ? kNotAllDone : worst;
}

int Batch::run() {
  if (!options_.only.empty()) {
    const auto row = options_.only.size() == 1 ? script::WholeOf(options_.only.front()) : std::nullopt;
    if (!row || *row < 1 || static_cast<std::size_t>(*row) > jobs_.size())
      return Fail(FormatText("--only= takes a number of a row, 1 to %zu", jobs_.size()));
    Job job = std::move(jobs_[static_cast<std::size_t>(*row - 1)]);
    jobs_.clear();
    jobs_.push_back(std::move(job));
  }
  for (Job& job : jobs_) {
    if (options_.resume && isDone(job)) {
      PrintError("%s: done before\n", job.site.name.c_str());
      continue;
    }
    const auto atWork = [&] {
      return std::count_if(jobs_.begin(), jobs_.end(), [](const Job& j) { return j.process > 0; });
    };
    while (atWork() >= options_.jobs) {
      lookAfter();
      std::this_thread::sleep_for(kLook);
    }
    lookAfter();
    if (!startsMore()) break;
    if (std::string reason = start(job); !reason.empty()) {
      job.status.status = kNotAllDone;
      job.status.reason = reason;
      failed_ = true;
      Fail(reason);
    }
  }
  while (std::any_of(jobs_.begin(), jobs_.end(), [](const Job& j) { return j.process > 0; })) {
    lookAfter();
    std::this_thread::sleep_for(kLook);
  }
  if (options_.only.empty() && !writeSummary()) failed_ = true;
  return result();
}

int Batch::collect() {
  for (Job& job : jobs_)
    if (!ReadStatus(job.folder, job.status)) job.status = {};
  return writeSummary() ? result() : kNotAllDone;
}

}  // namespace

int Run(const std::string& list, const std::string& script, const Options& options) {
  if (options.jobs < 1 || options.jobs > kMostJobs)
    return Fail(FormatText("--jobs= takes a number from 1 to %d", kMostJobs));
  Batch batch(options);
  if (std::string reason = batch.read(list, script); !reason.empty())
    return Fail(reason + "; nothing was run");
  return options.collect ? batch.collect() : batch.run();
}

}  // namespace sondera::batch
