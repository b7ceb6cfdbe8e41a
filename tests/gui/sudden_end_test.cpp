// The screen is gone, or the desktop ends the session, while a project has unsaved changes: it is kept, and the next start
// offers it.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>

#include "app/script/run.h"
#include "gui/dispatch.h"
#include "gui/recent.h"
#include "gui/sudden_end.h"
#include "one_pair_road.h"
#include "own_screen.h"
#include "panels/mainmenu_project.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/project_hooks.h"
#include "support/site_records.h"
#include "window_session.h"

namespace sondera {
namespace {

namespace fs = std::filesystem;

using RescuedProject = test::WindowSession;

TEST_F(RescuedProject, IsWrittenBesideItsFileAndOfferedOnce) {
  const std::string project = folder.File("site.da"), first = folder.File("site.rescued.da"),
                    second = folder.File("site.rescued2.da");
  Answer("file:" + project);
  Answer("Yes");
  Run([&] {
    DispatchPress(mainmenu::SAVE_RAW_DATA);
    ASSERT_EQ(session.projectFileName, project);
    EXPECT_EQ(RescueProject(), "") << "nothing is lost";
    const std::string saved = test::ReadWhole(project);
    MeasDB.measSetupList.at(1)->srcLoc = 4.5;
    EXPECT_EQ(RescueProject(), first);
    EXPECT_EQ(RescueProject(), second) << "no file is written over";
    EXPECT_EQ(test::ReadWhole(first), test::ReadWhole(second));
    EXPECT_EQ(test::ReadWhole(project), saved) << "the project itself stays as it was saved";
    TakeProjectAsSaved();
    NoteRescuedProject(first);
    OfferRescuedProject();
    EXPECT_EQ(session.projectFileName, first);
    EXPECT_EQ(MeasDB.measSetupList.at(1)->srcLoc, 4.5);
    OfferRescuedProject();
  });
  ASSERT_EQ(asked.size(), 2u);
  EXPECT_EQ(asked[1].find("The program ended suddenly before."), 0u) << asked[1];
}

class SuddenEnd : public ::testing::Test {
 protected:
  /// The program with windows on what a script left: it stops behind an import that was not saved.
  void SetUp() override {
    if (!screen.Trouble().empty()) GTEST_SKIP() << screen.Trouble();
    test::WriteSitePair(folder.File("pair.hyx"), 14, 30, 128);
    std::ofstream(folder.File("job.txt")) << "import pair a 14 30\nexport out nosuch 1 2\n";
    program = screen.Start(folder.Path(), {"auto", "new", "site", "job.txt"});
    ASSERT_FALSE(screen.Window("Sondera", 20000).empty()) << test::ReadWhole(folder.File("said.txt"));
  }
  void TearDown() override {
    if (program > 0 && ::waitpid(program, nullptr, WNOHANG) == 0) ::kill(program, SIGKILL);
  }
  void ExpectKept() {
    const int status = screen.WaitFor(program, 10000);
    const std::string said = test::ReadWhole(folder.File("said.txt"));
    EXPECT_EQ(status, 1) << said;
    EXPECT_NE(said.find("The project with its unsaved changes is in " + folder.File("site.rescued.da")),
              std::string::npos)
        << said;
    StartSession();
    ASSERT_EQ(OpenProject(folder.File("site.rescued.da")), 0);
    EXPECT_EQ(MeasDB.measSetupList.count(), 2);
    ASSERT_EQ(OpenProject(folder.File("site.da")), 0);
    EXPECT_EQ(MeasDB.measSetupList.count(), 1);
    ResetProgramState();
  }

  test::TempFolder folder;
  test::OwnScreen screen{{1024, 700}};
  pid_t program = 0;
};

TEST_F(SuddenEnd, OfTheScreenKeepsTheUnsavedChanges) {
  screen.Break();
  ExpectKept();
}

/// Seconds of work of a process so far.
double WorkOf(pid_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  std::string word;
  double user = 0.0, system = 0.0;
  for (int i = 1; i < 14; ++i) file >> word;
  file >> user >> system;
  return (user + system) / static_cast<double>(::sysconf(_SC_CLK_TCK));
}

/// In the middle of an inversion: no loop without end, and the project is kept.
TEST_F(SuddenEnd, OfTheScreenDuringARunEndsItAndKeepsTheProject) {
  ::kill(program, SIGKILL);  // another one, on a project that is ready to be inverted
  ::waitpid(program, nullptr, 0);
  const std::string place = folder.File("run");
  fs::create_directory(place);
  test::WriteSiteRecords(place);
  const fs::path former = fs::current_path();
  fs::current_path(place);
  StartSession();
  script::Source source = script::Source::OfText(test::kOnePairRoad);
  ::testing::internal::CaptureStderr();
  EXPECT_NE(script::Run("road", {}).run(source), 1);
  ::testing::internal::GetCapturedStderr();
  SetCtrlVal(fmodeling::ANALYSISTYPE, 3);
  SetCtrlVal(fmodeling::GLOBAL_ARRAY, 1);
  for (const Control* press : {static_cast<const Control*>(&fmodeling::GLOBAL_ARRAY),
                               static_cast<const Control*>(&fmodeling::LOADDISPCURV),
                               static_cast<const Control*>(&fmodeling::UPDATE)})
    Commit(*press);
  EXPECT_EQ(SaveProjectNow(), 0);
  ResetProgramState();
  fs::current_path(former);
  std::ofstream(place + "/job.txt") << "export out nosuch 1 2\n";
  program = screen.Start(place, {"auto", "old", "Site.da", "job.txt"});
  const std::string window = screen.Window("Sondera", 30000);
  ASSERT_FALSE(window.empty()) << test::ReadWhole(place + "/said.txt");
  QTest::qWait(300);
  screen.Do("windowactivate --sync " + window + " key alt+i sleep 0.2 key p");
  const std::string panel = screen.Window("Parameters for Inversion Analysis");
  ASSERT_FALSE(panel.empty());
  screen.Do("windowactivate --sync " + panel + " key alt+r");
  const double before = WorkOf(program);
  for (int i = 0; i < 500 && WorkOf(program) < before + 0.5; ++i) QTest::qWait(20);
  EXPECT_GE(WorkOf(program), before + 0.5) << "the run works";
  screen.Break();
  EXPECT_EQ(screen.WaitFor(program, 10000), 1) << test::ReadWhole(place + "/said.txt");
  EXPECT_TRUE(fs::exists(place + "/Site.rescued.da")) << test::ReadWhole(place + "/said.txt");
  program = 0;
}

TEST_F(SuddenEnd, OfTheSessionKeepsTheUnsavedChanges) {
  ::kill(program, SIGTERM);
  ExpectKept();
}

/// Two programs of one person, with one list of recent projects.
TEST(TwoPrograms, SaveTheirProjectsAndBothStandInTheListThatAScriptDoesNotTouch) {
  test::OwnScreen screen({1280, 900});
  if (!screen.Trouble().empty()) GTEST_SKIP() << screen.Trouble();
  const test::TempFolder folder;
  const std::string state = "XDG_STATE_HOME=" + folder.File("state");
  const std::string names[] = {"one", "two"};
  pid_t programs[2];
  for (int i = 0; i < 2; ++i) {
    const std::string place = folder.File(names[i]);
    fs::create_directory(place);
    test::WriteSitePair(place + "/pair.hyx", 14, 30, 128);
    std::ofstream(place + "/job.txt") << "import pair a 14 30\nexport out nosuch 1 2\n";
    programs[i] = screen.Start(place, {"auto", "new", names[i], "job.txt"}, {state});
  }
  std::string windows[2];
  for (int i = 0; i < 2; ++i) {
    for (int waited = 0; waited < 20000 && windows[i].empty(); waited += 100) {
      windows[i] =
          screen.Do("search --all --onlyvisible --pid " + std::to_string(programs[i]) + " --name '^Sondera'");
      QTest::qWait(100);
    }
    ASSERT_FALSE(windows[i].empty()) << test::ReadWhole(folder.File(names[i]) + "/said.txt");
  }
  QTest::qWait(300);
  for (const std::string& window : windows)
    screen.Do("windowactivate --sync " + window + " key ctrl+s sleep 0.3");
  for (const std::string& window : windows)
    screen.Do("windowactivate --sync " + window + " key ctrl+q sleep 0.5 key Return");
  for (int i = 0; i < 2; ++i) {
    const std::string project = folder.File(names[i]) + "/" + names[i] + ".da";
    EXPECT_EQ(screen.WaitFor(programs[i], 10000), 1)
        << "the script that stopped: " << test::ReadWhole(folder.File(names[i]) + "/said.txt");
    StartSession();
    ASSERT_EQ(OpenProject(project), 0);
    EXPECT_EQ(MeasDB.measSetupList.count(), 2) << names[i];
  }
  ResetProgramState();
  qputenv("XDG_STATE_HOME", QByteArray::fromStdString(folder.File("state")));
  std::vector<std::string> recent = RecentFiles();
  std::sort(recent.begin(), recent.end());
  const std::vector<std::string> both = {folder.File("one") + "/one.da", folder.File("two") + "/two.da"};
  EXPECT_EQ(recent, both);
  const std::string list = test::ReadWhole(folder.File("state") + "/sondera/windows.ini");
  std::ofstream(folder.File("job.txt"))
      << "*sondera 2\nread hyx id=a files=one/pair.hyx source=0 at=14,30\nsave third.da\n";
  const pid_t script = screen.Start(folder.Path(), {"run", "job.txt"}, {state});
  EXPECT_NE(screen.WaitFor(script, 20000), 1) << test::ReadWhole(folder.File("said.txt"));
  EXPECT_TRUE(fs::exists(folder.File("third.da")));
  EXPECT_EQ(test::ReadWhole(folder.File("state") + "/sondera/windows.ini"), list);
}

}  // namespace
}  // namespace sondera
