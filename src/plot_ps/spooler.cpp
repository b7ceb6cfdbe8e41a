// spooler.cpp - see spooler.h. File and queue names are data: no shell interprets them.
#include "plot_ps/spooler.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "plot_ps/statement.h"
#include "runtime/terminal.h"

namespace sondera {
namespace {

constexpr const char* kSpooler = "lp";
constexpr int kNotFound = 127;  // status of a child that could not start the program

/// Exit status of a child, or -1.
int WaitFor(pid_t child) {
  int status = 0;
  while (::waitpid(child, &status, 0) < 0)
    if (errno != EINTR) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

bool PrintFile(const std::string& queue, const std::string& file) {
  // A name that begins with "-" must not become an option.
  std::string path = file.starts_with('-') ? "./" + file : file;
  std::string program = kSpooler, option = "-d", target = queue;
  char* const arguments[] = {program.data(), option.data(), target.data(), path.data(), nullptr};
  pid_t child = 0;
  const int error = ::posix_spawnp(&child, kSpooler, nullptr, nullptr, arguments, environ);
  const int status = error != 0 ? kNotFound : WaitFor(child);
  if (status == 0) return true;
  if (status == kNotFound)
    Complain("PLOT_PS: no print spooler (%s) here, %s is not printed\n", kSpooler, VisibleText(file).c_str());
  else
    Complain("PLOT_PS: the print spooler did not take %s\n", VisibleText(file).c_str());
  return false;
}

}  // namespace sondera
