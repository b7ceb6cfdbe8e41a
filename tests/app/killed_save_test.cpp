// The program is killed at random moments while it saves: project and copy are complete, nothing blocks the
// next run, and its first save removes the remaining files. SONDERA_KILLS sets the number of kills.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>

#include "app/command_line.h"
#include "app/started_program.h"
#include "panels/mainmenu_project.h"
#include "project/project_file.h"
#include "records/session.h"
#include "runtime/catalogue/measpanel.h"
#include "support/app_fixture.h"
#include "support/site_records.h"

namespace sondera {
namespace {

class KilledProgram : public testing::AppTest {
 protected:
  static int Kills() {
    const char* wanted = std::getenv("SONDERA_KILLS");
    return wanted ? std::max(1, std::atoi(wanted)) : 25;
  }
  /// Whether a file exists and opens as a complete project; nothing is saved over it.
  bool OpensWhole(const std::string& name) {
    StartSession();
    frontEnd.messages.clear();
    return OpenFileProc(folder.File(name), OpenFor::Reading) == 0 && frontEnd.messages.empty();
  }
};

TEST_F(KilledProgram, LeavesWholeFilesAndNothingThatBlocks) {
  test::WriteSitePair(folder.File("pair.hyx"), 14.0, 30.0, 129);
  // Each masking ends with a save; pairs of saves change the project back and forth.
  std::string job = "import pair pair 14 30\n";
  for (int i = 0; i < 60; ++i)
    job += i % 2 ? "masking pair 0 600 450 110 80\n" : "masking pair 0 500 400 100 70\n";
  Write("job.txt", job);
  const std::vector<std::string> form = {testing::kProgram, "--batch", "--yes", "auto", "new", "site",
                                         "job.txt"};
  std::mt19937 random(20);
  int midway = 0, rests = 0;
  const int kills = Kills();
  for (int kill = 0; kill < kills; ++kill) {
    const pid_t child = testing::StartProgram(form);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 400000));
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    midway += WIFSIGNALED(status) ? 1 : 0;
    ASSERT_FALSE(WIFEXITED(status) && WEXITSTATUS(status) > 1);
    for (const std::string& name : folder.Names())
      rests += name.find(".saving-") != std::string::npos ? 1 : 0;
    for (const char* name : {"site.da", "site.da.bkup", "site.da.former"})
      if (Exists(name)) {
        ASSERT_TRUE(OpensWhole(name)) << name << ", kill " << kill;
      }
  }
  StartSession();
  ASSERT_EQ(OpenFileProc(folder.File("site.da")), 0) << "a killed run's lock blocks nobody";
  ASSERT_EQ(Commit(measpanel::F6), 0);
  for (const std::string& name : folder.Names())
    EXPECT_FALSE(name.starts_with("site.da.saving-")) << name << " stayed";
  std::printf("%d kills, %d of them midway; temporary files seen %d times\n", kills, midway, rests);
  EXPECT_GT(midway, 0);
}

}  // namespace
}  // namespace sondera
