// The progress line of a terminal: its text at the end of a run.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <thread>

#include "app/console.h"
#include "runtime/catalogue/measpanel.h"
#include "support/app_fixture.h"

namespace sondera {
namespace {

class ConsoleLine : public testing::AppTest {
 protected:
  /// The text of the line after the last rewriting, when `work` ran in a child whose errors go to a terminal.
  static std::string Left(const std::function<void()>& work) {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0) return "no terminal";
    const std::string name = ptsname(terminal);
    const pid_t child = fork();
    if (child == 0) {
      const int side = open(name.c_str(), O_RDWR | O_NOCTTY);
      if (side < 0 || dup2(side, STDERR_FILENO) < 0) _exit(1);
      InstallConsole({});
      Wait();
      work();
      FinishProgressLine();
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    std::string text;
    char piece
        [4096];  // a read may bring a part only; the last one fails, since nobody has the other side open
    for (ssize_t got = 0; (got = read(terminal, piece, sizeof piece)) > 0;)
      text.append(piece, static_cast<std::size_t>(got));
    close(terminal);
    const std::string rewriting = "\r\033[K";
    const std::size_t at = text.rfind(rewriting);
    return at == std::string::npos ? text : text.substr(at + rewriting.size());
  }
  /// Longer than the time between two texts.
  static void Wait() { std::this_thread::sleep_for(std::chrono::milliseconds(130)); }
};

TEST_F(ConsoleLine, ShowsAPauseWhileItLasts) {
  EXPECT_EQ(Left([] {
              SetCtrlVal(measpanel::DISPA_AVGCOUNT, "Averages: 2");
              Wait();
              ResetTextBox(measpanel::MSGBOX, "Paused");
            }),
            "Averages: 2   Paused\r\n");
}

TEST_F(ConsoleLine, NoPauseIsLeftBehindARun) {
  EXPECT_EQ(Left([] {
              SetCtrlVal(measpanel::DISPA_AVGCOUNT, "Averages: 2");
              Wait();
              ResetTextBox(measpanel::MSGBOX, "Paused");
              ResetTextBox(measpanel::MSGBOX);  // at once, as Stop does
            }),
            "Averages: 2\r\n");
}

TEST_F(ConsoleLine, APauseBeforeTheFirstRecordGoesToo) {
  EXPECT_EQ(Left([] {
              SetCtrlVal(measpanel::DISPA_AVGCOUNT, "");
              ResetTextBox(measpanel::MSGBOX, "Paused");
              Wait();
              ResetTextBox(measpanel::MSGBOX);
            }),
            "\r\n");
}

}  // namespace
}  // namespace sondera
