// board_process.cpp - a board program connected by two file descriptors.
#include "acquisition/board_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <thread>
#include <utility>

#include "runtime/paths.h"
#include "runtime/terminal.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr auto kAnswerTime = std::chrono::seconds(5);
constexpr double kSlowestBytes = 20e6;  // per second; additional time for a record
constexpr auto kByeTime = std::chrono::seconds(2), kTermTime = std::chrono::seconds(1);
constexpr auto kExitPoll = milliseconds(2);
constexpr std::size_t kReadBytes = 1 << 16;
constexpr int kFirstFreeDescriptor = 3;

Clock::duration Lasting(double seconds) {
  return std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
}

/// Milliseconds left for poll(), rounded up; 0 when the time is over.
int TimeLeft(Clock::time_point end) {
  const auto left = std::chrono::ceil<milliseconds>(end - Clock::now()).count();
  return static_cast<int>(std::clamp<long long>(left, 0, 1 << 30));
}

/// Moves the descriptor above standard input, output and error, and closes it in programs that we start. -1
/// stays.
int MovedUp(int fd) {
  if (fd < 0 || fd >= kFirstFreeDescriptor) return fd;
  const int moved = fcntl(fd, F_DUPFD_CLOEXEC, kFirstFreeDescriptor);
  close(fd);
  return moved;
}

struct Ends {
  int read = -1, write = -1;
  bool Good() const { return read >= 0 && write >= 0; }
  void Close() {
    if (read >= 0) close(read);
    if (write >= 0) close(write);
    read = write = -1;
  }
};
Ends MakePipe() {
  int fd[2] = {-1, -1};
  if (pipe2(fd, O_CLOEXEC) != 0) return {};
  return {MovedUp(fd[0]), MovedUp(fd[1])};
}
/// Like a pipe, but writing to a program that has ended is an error and not a signal.
Ends MakeSocket() {
  int fd[2] = {-1, -1};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, fd) != 0) return {};
  return {MovedUp(fd[0]), MovedUp(fd[1])};
}

/// Path of a program: a name without a separator is searched in PATH. "" when it is not found.
std::string FindProgram(const std::string& name) {
  if (name.find(kPathSeparator) != std::string::npos) return name;
  const char* const path = std::getenv("PATH");
  std::string_view rest = path ? path : "/usr/bin:/bin";
  while (!rest.empty()) {
    const std::string_view folder = rest.substr(0, rest.find(':'));
    rest.remove_prefix(std::min(rest.size(), folder.size() + 1));
    std::string candidate = JoinPath(folder.empty() ? "." : folder, name);
    if (access(candidate.c_str(), X_OK) == 0 && !DirectoryExists(candidate)) return candidate;
  }
  return "";
}

/// Starts the program in the child; only calls that are safe after fork(). Writes errno on failure.
[[noreturn]] void Become(const char* path, char* const* arguments, int input, int output, int errors,
                         pid_t parent) {
  setpgid(0, 0);  // Ctrl-C is for this program: the board gets "stop" and "clear"
  prctl(PR_SET_PDEATHSIG, SIGTERM);
  if (getppid() != parent) _exit(127);
  for (const int signal : {SIGINT, SIGQUIT, SIGTERM, SIGPIPE, SIGHUP, SIGCHLD}) ::signal(signal, SIG_DFL);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  if (dup2(input, STDIN_FILENO) >= 0 && dup2(output, STDOUT_FILENO) >= 0 &&
      close_range(kFirstFreeDescriptor, ~0u, CLOSE_RANGE_CLOEXEC) == 0)
    execv(path, arguments);
  const int reason = errno;
  [[maybe_unused]] const ssize_t told = write(errors, &reason, sizeof reason);
  _exit(127);
}

}  // namespace

std::vector<std::string> CommandWords(std::string_view command) {
  std::vector<std::string> words;
  while (true) {
    command.remove_prefix(std::min(command.size(), command.find_first_not_of(' ')));
    if (command.empty()) return words;
    words.emplace_back(command.substr(0, command.find(' ')));
    command.remove_prefix(words.back().size());
  }
}

BoardProcess& BoardProcess::operator=(BoardProcess&& other) noexcept {
  if (this == &other) return *this;
  End();
  program_ = std::move(other.program_);
  dead_ = std::move(other.dead_);
  pid_ = std::exchange(other.pid_, -1);
  toBoard_ = std::exchange(other.toBoard_, -1);
  fromBoard_ = std::exchange(other.fromBoard_, -1);
  bytes_ = std::move(other.bytes_);
  taken_ = other.taken_;
  return *this;
}

bool BoardProcess::Start(const std::vector<std::string>& words, std::string& reason) {
  End();
  dead_.clear();
  bytes_.clear();
  taken_ = 0;
  program_ = words.empty() ? "" : VisibleText(words[0]);
  const std::string path = words.empty() ? "" : FindProgram(words[0]);
  const auto refuse = [&](const char* why) {
    reason = FormatText("The board program %s cannot be started: %s.", program_.c_str(), why);
    return false;
  };
  if (path.empty()) return refuse(std::strerror(ENOENT));
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);

  Ends input = MakeSocket(), output = MakePipe(), errors = MakePipe();
  const auto closeAll = [&] {
    input.Close();
    output.Close();
    errors.Close();
  };
  if (!input.Good() || !output.Good() || !errors.Good()) {
    const int cause = errno;
    closeAll();
    return refuse(std::strerror(cause));
  }
  const pid_t parent = getpid();
  const pid_t child = fork();
  if (child == 0) Become(path.c_str(), arguments.data(), input.read, output.write, errors.write, parent);
  if (child < 0) {
    const int cause = errno;
    closeAll();
    return refuse(std::strerror(cause));
  }
  setpgid(child, child);  // the first that happens
  close(std::exchange(errors.write, -1));
  int cause = 0;
  ssize_t told;
  while ((told = read(errors.read, &cause, sizeof cause)) < 0 && errno == EINTR) {
  }
  if (told != 0) {
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    closeAll();
    return refuse(std::strerror(cause));
  }
  pid_ = child;
  toBoard_ = std::exchange(input.write, -1);
  fromBoard_ = std::exchange(output.read, -1);
  closeAll();
  fcntl(fromBoard_, F_SETFL, O_NONBLOCK);
  return true;
}

bool BoardProcess::Ask(const std::string& request, BoardReply& reply, double seconds) {
  if (!Running()) return dead_.empty() ? GiveUp("is not running") : false;
  if (!IsQuiet()) return false;
  const Clock::time_point end = Clock::now() + kAnswerTime + Lasting(std::clamp(seconds, 0.0, 1e6));
  reader_.ExpectLine();
  if (!Send(request + "\n", end) || !Receive(end)) return false;
  if (ParseBoardReply(reader_.Line(), reply)) return true;
  return GiveUp("does not keep to the protocol: \"" + reader_.Line().substr(0, 80) + "\"");
}

/// There must be no unread input: it would be taken for the answer to the next request.
bool BoardProcess::IsQuiet() {
  char byte;
  const ssize_t n = taken_ < bytes_.size() ? 1 : read(fromBoard_, &byte, 1);
  if (n > 0) return GiveUp("sends more than was asked for");
  return n < 0 || GiveUp("has ended");
}

bool BoardProcess::TakeSamples(double* samples, std::size_t count) {
  if (!Running()) return false;
  reader_.ExpectSamples(samples, count);
  return Receive(Clock::now() + kAnswerTime + Lasting(static_cast<double>(count) * 8.0 / kSlowestBytes));
}

bool BoardProcess::Send(const std::string& line, Clock::time_point end) {
  std::size_t sent = 0;
  while (sent < line.size()) {
    const ssize_t n = send(toBoard_, line.data() + sent, line.size() - sent, MSG_NOSIGNAL | MSG_DONTWAIT);
    if (n >= 0) {
      sent += static_cast<std::size_t>(n);
    } else if (errno == EAGAIN || errno == EINTR) {
      if (TimeLeft(end) == 0) return GiveUp("takes no requests");
      pollfd ready{toBoard_, POLLOUT, 0};
      poll(&ready, 1, TimeLeft(end));
    } else {
      return GiveUp("has ended");
    }
  }
  return true;
}

/// Reads until the reader is complete.
bool BoardProcess::Receive(Clock::time_point end) {
  while (true) {
    taken_ += reader_.Feed(bytes_.data() + taken_, bytes_.size() - taken_);
    if (!reader_.Fault().empty()) return GiveUp("does not keep to the protocol: " + reader_.Fault());
    if (reader_.Whole()) return true;
    bytes_.resize(kReadBytes);
    taken_ = 0;
    const ssize_t n = read(fromBoard_, bytes_.data(), bytes_.size());
    const int cause = errno;
    bytes_.resize(n > 0 ? static_cast<std::size_t>(n) : 0);
    if (n == 0 || (n < 0 && cause != EAGAIN && cause != EINTR)) return GiveUp("has ended");
    if (Clock::now() >= end) return GiveUp("does not answer");
    if (n > 0) continue;
    pollfd ready{fromBoard_, POLLIN, 0};
    poll(&ready, 1, TimeLeft(end));
  }
}

bool BoardProcess::GiveUp(const std::string& reason) {
  dead_ = FormatText("The board program %s %s.", program_.c_str(), reason.c_str());
  if (Running()) KillAndReap();
  return false;
}

void BoardProcess::End() {
  if (!Running()) return;
  constexpr std::string_view kBye = "bye\n";
  [[maybe_unused]] const ssize_t sent = send(toBoard_, kBye.data(), kBye.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
  shutdown(toBoard_, SHUT_WR);
  if (!ExitedBy(Clock::now() + kByeTime)) {
    kill(-pid_, SIGTERM);
    ExitedBy(Clock::now() + kTermTime);
  }
  KillAndReap();
}

/// Whether the program has ended. It is not waited for yet, so that its process id is not reused.
bool BoardProcess::ExitedBy(Clock::time_point end) const {
  while (true) {
    siginfo_t info{};
    const int result = waitid(P_PID, static_cast<id_t>(pid_), &info, WEXITED | WNOHANG | WNOWAIT);
    if (result == 0 && info.si_pid == pid_) return true;
    if (result < 0 && errno != EINTR) return true;
    if (Clock::now() >= end) return false;
    std::this_thread::sleep_for(kExitPoll);
  }
}

/// Ends the program and its children if they still run.
void BoardProcess::KillAndReap() {
  kill(-pid_, SIGKILL);
  while (waitpid(pid_, nullptr, 0) < 0 && errno == EINTR) {
  }
  pid_ = -1;
  CloseBoth();
}

void BoardProcess::CloseBoth() {
  for (int* fd : {&toBoard_, &fromBoard_})
    if (*fd >= 0) close(std::exchange(*fd, -1));
}

}  // namespace sondera
