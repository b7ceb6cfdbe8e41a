// own_screen.cpp - see own_screen.h.
#include "own_screen.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QThread>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>

namespace sondera::test {
namespace {

bool HaveProgram(const char* name) {
  return std::system((std::string("command -v ") + name + " >/dev/null 2>&1").c_str()) == 0;
}

/// In the child: words and environment of a program; never returns.
[[noreturn]] void Become(const std::vector<std::string>& words, const char* output, int kept = -1) {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);  // none outlives a test that is cut off
  // Nor does it keep files of the test open, locks among them; `kept` is the one that it needs.
  for (int file = 3; file < 256; ++file)
    if (file != kept) ::close(file);
  const int out = ::open(output, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (out >= 0) {
    ::dup2(out, 1);
    ::dup2(out, 2);
  }
  std::vector<char*> pointers;
  for (const std::string& word : words) pointers.push_back(const_cast<char*>(word.c_str()));
  pointers.push_back(nullptr);
  ::execvp(pointers[0], pointers.data());
  ::_exit(127);
}

/// Ends a process that this test has started.
void End(pid_t& process, int signal) {
  if (process <= 0) return;
  ::kill(process, signal);
  ::waitpid(process, nullptr, 0);
  process = 0;
}

}  // namespace

OwnScreen::OwnScreen(QSize size) {
  for (const char* name : {"Xvfb", "openbox", "xdotool"})
    if (!HaveProgram(name)) {
      trouble_ = std::string("there is no ") + name + " here";
      return;
    }
  int ends[2];
  if (::pipe(ends) != 0) {
    trouble_ = "no pipe";
    return;
  }
  const std::string screen = std::to_string(size.width()) + "x" + std::to_string(size.height()) + "x24";
  server_ = ::fork();
  if (server_ == 0) {
    ::close(ends[0]);
    Become({"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0", screen, "-dpi", "96", "-nolisten",
            "tcp"},
           "/dev/null", ends[1]);
  }
  ::close(ends[1]);
  std::string number;
  char letter = 0;
  pollfd wait = {ends[0], POLLIN, 0};
  while (::poll(&wait, 1, 20000) == 1 && ::read(ends[0], &letter, 1) == 1 && letter != '\n') number += letter;
  ::close(ends[0]);
  if (number.empty()) {
    trouble_ = "Xvfb does not start";
    return;
  }
  display_ = ":" + number;
  manager_ = ::fork();
  if (manager_ == 0) {
    ::setenv("DISPLAY", display_.c_str(), 1);
    Become({"openbox", "--sm-disable"}, "/dev/null");
  }
  QThread::msleep(500);
}

OwnScreen::~OwnScreen() {
  End(manager_, SIGTERM);
  Break();
}

void OwnScreen::Break() {
  End(server_, SIGKILL);
}

pid_t OwnScreen::Start(const std::string& folder, const std::vector<std::string>& arguments,
                       const std::vector<std::string>& environment) {
  const std::string program = std::filesystem::absolute(SONDERA_PROGRAM).string();
  const pid_t child = ::fork();
  if (child != 0) return child;
  if (::chdir(folder.c_str()) != 0) ::_exit(126);
  ::setenv("DISPLAY", display_.c_str(), 1);
  ::setenv("XDG_STATE_HOME", (folder + "/state").c_str(), 1);
  ::setenv("QT_QPA_PLATFORM", "xcb", 1);
  ::unsetenv("WAYLAND_DISPLAY");
  ::unsetenv("QT_SCALE_FACTOR");
  for (const std::string& entry : environment) ::putenv(const_cast<char*>(entry.c_str()));
  std::vector<std::string> words = {program};
  words.insert(words.end(), arguments.begin(), arguments.end());
  Become(words, (folder + "/said.txt").c_str());
}

int OwnScreen::WaitFor(pid_t process, int milliseconds) {
  for (int waited = 0; waited <= milliseconds; waited += 20) {
    int status = 0;
    if (::waitpid(process, &status, WNOHANG) == process)
      return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    QThread::msleep(20);
  }
  return -1;
}

std::string OwnScreen::Do(const std::string& words) const {
  const std::string line = "DISPLAY=" + display_ + " timeout 20 xdotool " + words + " 2>/dev/null";
  std::string text;
  FILE* const pipe = ::popen(line.c_str(), "r");
  if (!pipe) return text;
  std::array<char, 256> part = {};
  while (std::fgets(part.data(), part.size(), pipe)) text += part.data();
  ::pclose(pipe);
  while (!text.empty() && text.back() == '\n') text.pop_back();
  return text;
}

std::string OwnScreen::Window(const std::string& title, int milliseconds) const {
  std::string pattern;
  for (const char c : title)
    pattern += (std::string("()[].*+?^$|\\{}").find(c) == std::string::npos ? "" : "\\") + std::string(1, c);
  for (int waited = 0; waited <= milliseconds; waited += 50) {
    const std::string found = Do("search --onlyvisible --name '^" + pattern + "'");
    if (!found.empty())
      return found.substr(found.rfind('\n') == std::string::npos ? 0 : found.rfind('\n') + 1);
    QThread::msleep(50);
  }
  return {};
}

QSize OwnScreen::SizeOf(const std::string& window) const {
  int width = 0, height = 0;
  const std::string text = Do("getwindowgeometry --shell " + window);
  const std::size_t at = text.find("WIDTH=");
  if (at == std::string::npos || std::sscanf(text.c_str() + at, "WIDTH=%d\nHEIGHT=%d", &width, &height) != 2)
    return {};
  return {width, height};
}

}  // namespace sondera::test
