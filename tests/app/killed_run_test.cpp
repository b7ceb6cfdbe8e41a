// The program is ended at random moments of a measuring run, by signals with and without a handler: the
// project on the disk stays complete, and no board program remains. SONDERA_KILLS sets the number.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <thread>

#include "panels/mainmenu_project.h"
#include "records/measdb.h"
#include "support/app_fixture.h"

namespace sondera {
namespace {

const std::string kProgram = std::filesystem::absolute(SONDERA_PROGRAM).string();
const std::string kBoard =
    std::filesystem::absolute(SONDERA_SOURCE_DIR "/tests/acquisition/test_board.py").string();

class KilledRun : public testing::AppTest {
 protected:
  static int Kills() {
    const char* wanted = std::getenv("SONDERA_KILLS");
    return wanted ? std::max(1, std::atoi(wanted)) : 50;
  }
  static pid_t Start() {
    const pid_t child = ::fork();
    if (child != 0) return child;
    if (!std::freopen("/dev/null", "w", stderr) || !std::freopen("/dev/null", "w", stdout)) ::_exit(126);
    ::execl(kProgram.c_str(), kProgram.c_str(), "--batch", "run", "job.txt", nullptr);
    ::_exit(127);
  }
  /// Whether a process has this text on its command line.
  static bool Runs(const std::string& text) {
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/proc", error)) {
      std::ifstream in(entry.path() / "cmdline", std::ios::binary);
      std::string words;
      std::getline(in, words, '\n');  // without an exception where the process has just ended
      if (words.find(text) != std::string::npos) return true;
    }
    return false;
  }
  bool IsGoneSoon(const std::string& text) {
    for (int i = 0; i < 300; ++i) {
      if (!Runs(text)) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
  }
  int LinesOf(const std::string& name) {
    std::ifstream in(folder.File(name));
    return static_cast<int>(std::count(std::istreambuf_iterator<char>(in), {}, '\n'));
  }
};

TEST_F(KilledRun, LeavesTheFileWholeAndNoBoardProgram) {
  const std::string log = folder.File("requests.log");
  Write("job.txt", "*sondera 2\nboard \"process:python3 " + kBoard + " " + log +
                       "\"\nsetup freqspan=1000 naverage=3 at=1,2,3,4\nmeasure\nsave site.da overwrite=yes\n"
                       "setup naverage=1000000\nmeasure\n");
  std::mt19937 random(13);
  const int kSignals[] = {SIGKILL, SIGTERM, SIGINT};
  int inRun = 0;
  for (int kill = 0; kill < Kills(); ++kill) {
    SCOPED_TRACE(kill);
    std::filesystem::remove(log);
    std::filesystem::remove(folder.File("site.da"));
    const pid_t child = Start();
    for (int i = 0; i < 2000 && !Exists("site.da"); ++i)
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    ASSERT_TRUE(Exists("site.da"));
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 100000));
    const int lines = LinesOf("requests.log");
    ::kill(child, kSignals[kill % 3]);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (kSignals[kill % 3] == SIGINT) {
      EXPECT_TRUE(WIFEXITED(status)) << "the run ends as by Stop";
    }
    inRun += lines > 40 ? 1 : 0;
    EXPECT_TRUE(IsGoneSoon(log));
    StartSession();
    frontEnd.messages.clear();
    ASSERT_EQ(OpenFileProc(folder.File("site.da"), OpenFor::Reading), 0);
    EXPECT_EQ(frontEnd.messages, std::vector<std::string>{});
    EXPECT_NE(MeasDB.rawDataList.at(1)->powerSpec[1], 0.0);
  }
  EXPECT_GT(inRun, Kills() / 2);
}

}  // namespace
}  // namespace sondera
