// own_screen.h - a real screen for a test: an X server in memory with a window manager, and the built program on it, which
// xdotool drives from outside. Without these programs Trouble() says so.
#pragma once

#include <sys/types.h>

#include <QSize>
#include <string>
#include <vector>

namespace sondera::test {

class OwnScreen {
 public:
  explicit OwnScreen(QSize size);
  ~OwnScreen();
  OwnScreen(const OwnScreen&) = delete;
  OwnScreen& operator=(const OwnScreen&) = delete;

  /// Why there is no screen; empty: there is one.
  const std::string& Trouble() const { return trouble_; }
  /// Starts the built program on the screen, with a state folder of its own; what it prints goes to `folder`/said.txt.
  /// @param environment  "NAME=value" beside the present one
  pid_t Start(const std::string& folder, const std::vector<std::string>& arguments,
              const std::vector<std::string>& environment = {});
  /// Status of the program: that of its exit, 128 + signal, or -1 when it has not ended in this time.
  static int WaitFor(pid_t process, int milliseconds);
  /// Runs xdotool with these arguments; what it prints. `words` is for the shell.
  std::string Do(const std::string& words) const;
  /// The window with exactly this beginning of its title, waited for; empty: none came.
  std::string Window(const std::string& title, int milliseconds = 8000) const;
  QSize SizeOf(const std::string& window) const;
  /// Ends the X server at once, as when it crashes.
  void Break();

 private:
  std::string trouble_, display_;
  pid_t server_ = 0, manager_ = 0;
};

}  // namespace sondera::test
