// The log of a session is a script: run again on the same files it gives the same project, byte for byte, for
// actions of a script of either dialect or of a person at the windows, and after a refusal, a halt or a kill.
#include "app/script/session_log.h"

#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <random>
#include <thread>

#include "app/command_line.h"
#include "app/commands.h"
#include "app/script/values.h"
#include "app/session_log_fixture.h"
#include "app/started_program.h"
#include "records/session.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/crc32.h"
#include "runtime/input_scope.h"
#include "runtime/text_format.h"
#include "support/site_records.h"

namespace sondera {
namespace {

namespace fs = std::filesystem;

using testing::kModel;
using testing::kRead;
using testing::SessionLogTest;

TEST_F(SessionLogTest, LinesOfAScriptStandInTheirShortestForm) {
  Begin("a.log");
  ASSERT_EQ(Run(kRead + "# a comment\npair ID 1 2\nmask 5.00  12.50 jumps=1\nproject id=\"a site\"\n"
                        "set INVERSION.UF_VS 0.1000\nprint \"a \\\"b\\\"\""),
            0)
      << err;
  EXPECT_EQ(script::EndLog(), "");
  const auto sum = SumOfFile(folder.File("H31.hyx"));
  EXPECT_EQ(LinesOf("a.log"), "# file H31.hyx " + SumText(*sum) +
                                  "\nread hyx id=ID files=H31.hyx source=0 at=14,30\npair ID 1 2\n"
                                  "mask 5 12.5 jumps=1\nproject id=\"a site\"\nset INVERSION.UF_VS 0.1\n"
                                  "print \"a \\\"b\\\"\"\n");
}

TEST_F(SessionLogTest, TheSumOfAFileIsTheUsualOne) {
  EXPECT_EQ(Crc32("123456789"), 0xCBF43926u);
  EXPECT_EQ(Crc32("6789", Crc32("12345")), 0xCBF43926u);
  Write("nine", "123456789");
  EXPECT_EQ(SumText(*SumOfFile(folder.File("nine"))), "bytes 9 crc32 cbf43926");
  EXPECT_FALSE(SumOfFile(folder.File("none")));
}

TEST_F(SessionLogTest, AScriptWithItsMasksAndCurvesGivesTheSameProjectAgain) {
  Begin("a.log");
  ASSERT_EQ(Run(kRead + "pair ID 1 2\nphase original\nmask 0 7\nmask 48 500\ndisperse\ncondense points=12\n"
                        "layers 2,3,4,6,80\nload global\nproject id=site\n"),
            0)
      << err;
  script::EndLog();
  const std::string project = ProjectNow();
  EXPECT_TRUE(Replayed("a.log") == project);
  StartSession();
  EXPECT_FALSE(ProjectNow() == project);
}

TEST_F(SessionLogTest, TheLogOfAReplayIsTheLog) {
  Begin("a.log");
  Run(kRead +
      "pair ID 1 2\nonerror continue\nmask delete 5\nset INVERSION.NITER 3\nset INVERSION.NITER 4\nmask 0 7\n"
      "answer file x.da\npress MEASPANEL.F7\n");
  script::EndLog();
  fs::remove(folder.File("x.da"));
  const std::string log = Read("a.log");
  Begin("b.log");
  Run(log.substr(log.find('\n') + 1));
  script::EndLog();
  EXPECT_EQ(Read("b.log"), log);
  EXPECT_NE(log.find("onerror continue\nmask delete 5\nonerror stop\n"), std::string::npos) << log;
  EXPECT_NE(log.find("answer file x.da\npress MEASPANEL.F7\n"), std::string::npos) << log;
}

TEST_F(SessionLogTest, TheFirstDialectIsLoggedWithAllItsArguments) {
  Begin("a.log");
  session.projectFileName = folder.File("site.da");
  ::testing::internal::CaptureStderr();
  ProcessScriptText(
      "import H31 ID 14 30\nmasking ID 0 600 450 110 80\nmasking\nnosuchword\n*comment\nimport\n");
  ::testing::internal::GetCapturedStderr();
  script::EndLog();
  const std::string lines = LinesOf("a.log");
  EXPECT_NE(lines.find("import H31 ID 14 30\nmasking ID 0 600 450 110 80\nmasking ID 0 600 450 110 80\n"),
            std::string::npos)
      << lines;
  EXPECT_EQ(lines.find("nosuchword"), std::string::npos);
}

TEST_F(SessionLogTest, APersonsFieldsAndPressBecomeTheWord) {
  StartSession();
  ASSERT_EQ(Run(kRead + "pair ID 1 2\nsave a.da"), 0) << err;
  ASSERT_EQ(script::BeginLog("a.log"), "");
  ASSERT_EQ(Run("open a.da\npair ID 1 2"), 0) << err;
  Enter(sasw::MASKING_FREQINIT, 4);
  Enter(sasw::MASKING_FREQINIT, 5);
  Enter(sasw::MASKING_FREQFINAL, 12.5);
  Enter(sasw::MASKING_JUMPNO, 1);
  Press(sasw::MASKINGNEW);
  Choose(sasw::DISPCURV_OPTION, 0);
  Press(sasw::MASKINGCALCDISP);
  script::EndLog();
  const std::string lines = LinesOf("a.log");
  EXPECT_NE(lines.find("pair ID 1 2\nmask 5 12.5 jumps=1\nphase original\ndisperse\n"), std::string::npos)
      << lines;
  const std::string project = ProjectNow();
  EXPECT_TRUE(Replayed("a.log") == project);
}

TEST_F(SessionLogTest, OfSetsInARowTheLastStaysAndOfADragItsEnd) {
  StartSession();
  ASSERT_EQ(Run(kRead + "pair ID 1 2\nsave a.da"), 0) << err;
  Begin("a.log");
  ASSERT_EQ(Run("open a.da"), 0) << err;
  ASSERT_EQ(CallbackOf(inversion::UF_VS), nullptr);
  for (const double value : {0.1, 0.2, 0.3}) Enter(inversion::UF_VS, value);
  for (const double x : {6.0, 9.0, 12.5})
    Mouse(sasw::DISPLAY_A, Event::Drag, {.x = x, .button = MouseButton::Left, .fromX = 5.0});
  Mouse(sasw::DISPLAY_A, Event::LeftClick, {.x = 20.0, .button = MouseButton::Left});
  Mouse(sasw::DISPLAY_A, Event::Commit, {.x = 20.0, .button = MouseButton::Left});
  script::EndLog();
  const std::string lines = LinesOf("a.log");
  EXPECT_NE(lines.find("\nopen a.da\nset INVERSION.UF_VS 0.3\npoint SASW.DISPLAY_A drag 5 0 12.5 0\n"
                       "point SASW.DISPLAY_A left 20 0\n"),
            std::string::npos)
      << lines;
}

/// A kill at this point loses nothing: entries too are in the file at once, and a later one takes their place.
TEST_F(SessionLogTest, EachLineIsInTheFileAsSoonAsItsActionHasEnded) {
  Begin("a.log");
  Press(sasw::MASKINGRESET);
  EXPECT_EQ(LinesOf("a.log"), "mask clear\n");
  Press(sasw::REDRAW);
  const std::string before = LinesOf("a.log");
  EXPECT_TRUE(before.ends_with("\nplot SASW.DISPLAY_A\n")) << before;
  Enter(inversion::UF_VS, 0.25);
  EXPECT_EQ(LinesOf("a.log"), before + "set INVERSION.UF_VS 0.25\n");
  Enter(inversion::UF_H, 0.5);
  EXPECT_EQ(LinesOf("a.log"), before + "set INVERSION.UF_VS 0.25\nset INVERSION.UF_H 0.5\n");
  Enter(inversion::UF_VS, 3);
  EXPECT_EQ(LinesOf("a.log"), before + "set INVERSION.UF_H 0.5\nset INVERSION.UF_VS 3\n");
  Press(sasw::REDRAW);
  script::EndLog();
  EXPECT_EQ(LinesOf("a.log"),
            before + "set INVERSION.UF_H 0.5\nset INVERSION.UF_VS 3\nplot SASW.DISPLAY_A\n");
}

TEST_F(SessionLogTest, CellsThatArePastedAreOneLineAndOneStep) {
  StartSession();
  ASSERT_EQ(Run(kModel + "save a.da"), 0) << err;
  Begin("a.log");
  ASSERT_EQ(Run("open a.da"), 0) << err;
  Press(exdthd::FMODELPARAM);
  using fmodeling::SOILPROFILE;
  Paste(SOILPROFILE, {{2, 1}, {2, 3}, {3, 1}, {3, 2}, {3, 3}}, {2.5, 210, 4.5, 0, 0.1});
  Paste(SOILPROFILE, {{1, 3}}, {123});
  Paste(SOILPROFILE, {{4, 2}, {4, 3}, {5, 1}},
        {400, 200, 90});  // no block: the last cell is left of the first
  Paste(SOILPROFILE, {{1, 4}, {3, 4}}, {1.9, 2.0});
  Press(fmodeling::UPDATE);
  script::EndLog();
  EXPECT_NE(
      LinesOf("a.log").find("\ncells FMODELING.SOILPROFILE 2 1 2.5,,210;4.5,0,0.1\n"
                            "cell FMODELING.SOILPROFILE 1 3 123\n"
                            "cells FMODELING.SOILPROFILE 4 2 400,200\ncells FMODELING.SOILPROFILE 5 1 90\n"
                            "cells FMODELING.SOILPROFILE 1 4 1.9;;2\n"
                            "press FMODELING.UPDATE\n"),
      std::string::npos)
      << LinesOf("a.log");
  const std::string project = ProjectNow();
  EXPECT_TRUE(Replayed("a.log") == project);
}

TEST_F(SessionLogTest, UndoTakesBackAWholePasteInTheReplayToo) {
  StartSession();
  ASSERT_EQ(Run(kModel + "save a.da"), 0) << err;
  Begin("a.log");
  ASSERT_EQ(Run("open a.da"), 0) << err;
  Press(exdthd::FMODELPARAM);
  const double before = GetTableCellVal(fmodeling::SOILPROFILE, 2, 1);
  Paste(fmodeling::SOILPROFILE, {{2, 1}, {2, 3}, {3, 1}}, {2.5, 210, 4.5});
  Press(mainmenu::UNDO);
  EXPECT_EQ(GetTableCellVal(fmodeling::SOILPROFILE, 2, 1), before);
  Press(fmodeling::UPDATE);
  script::EndLog();
  const std::string project = ProjectNow();
  EXPECT_TRUE(Replayed("a.log") == project) << Read("a.log");
  EXPECT_EQ(GetTableCellVal(fmodeling::SOILPROFILE, 2, 1), before);
}

TEST_F(SessionLogTest, ALongPasteHasSeveralLinesThatAScriptCanHave) {
  StartSession();
  ASSERT_EQ(Run(kModel + "save a.da"), 0) << err;
  Begin("a.log");
  ASSERT_EQ(Run("open a.da"), 0) << err;
  Press(exdthd::FMODELPARAM);
  Enter(fmodeling::NLAYERS, 90);
  std::vector<std::pair<int, int>> cells;
  std::vector<double> values;
  for (int row = 1; row <= 90; ++row)
    for (int column = 1; column <= 6; ++column) {
      cells.emplace_back(row, column);
      values.push_back(1.0 / (row + column));
    }
  Paste(fmodeling::SOILPROFILE, cells, values);
  script::EndLog();
  EXPECT_EQ(Check(LinesOf("a.log")), 0) << err;
  StartSession();
  const std::string log = LinesOf("a.log");
  EXPECT_EQ(Run(log), 0) << err;
  for (std::size_t i = 0; i < cells.size(); ++i)
    ASSERT_EQ(GetTableCellVal(fmodeling::SOILPROFILE, cells[i].first, cells[i].second), values[i]) << i;
}

TEST_F(SessionLogTest, AnswersStandBeforeTheirLineAndRefusalsInBetweenErrors) {
  Begin("a.log");
  Press(sasw::MASKINGCALCDISP);  // no pair yet: refused with a box
  frontEnd.fileAnswers.push_back({FileAnswer::IsNew, folder.File("b.da")});
  Press(measpanel::F7);
  frontEnd.confirmAnswers = {true, false};
  Press(mainmenu::NEW_MEASUREMENT);
  script::EndLog();
  EXPECT_EQ(LinesOf("a.log"),
            "onerror continue\ndisperse\nonerror stop\nsave b.da\n"
            "answer yes\nanswer no\npress MAINMENU.NEW_MEASUREMENT\n");
}

TEST_F(SessionLogTest, WhatNoLineCanHoldIsAComment) {
  Begin("a.log");
  EnterBy(hmsetup::PROJID, [] { return EnterValue(hmsetup::PROJID, "two\nlines"); });
  EnterBy(hmsetup::PROJID, [] { return EnterValue(hmsetup::PROJID, std::string(5000, 'x')); });
  script::EndLog();
  std::istringstream lines(LinesOf("a.log"));
  for (std::string line; std::getline(lines, line);)
    EXPECT_TRUE(line.starts_with("# not in this log")) << line;
  EXPECT_EQ(Check(LinesOf("a.log")), 0) << err;
}

TEST_F(SessionLogTest, AHaltComesBackAtItsPoll) {
  StartSession();
  ASSERT_EQ(Run(kModel + "save a.da"), 0) << err;
  Begin("a.log");
  ASSERT_EQ(Run("open a.da"), 0) << err;
  int polls = 0;
  frontEnd.onProcessEvents = [&] {
    if (EndingControl() && ++polls == 3) {
      frontEnd.confirmAnswers.assign(5, true);
      Press(*EndingControl());
    }
  };
  Press(inversion::PERFORMINV);
  frontEnd.onProcessEvents = nullptr;
  script::EndLog();
  ASSERT_GE(polls, 3);
  const std::string lines = LinesOf("a.log");
  EXPECT_NE(lines.find("halt after=3\npress INVERSION.PERFORMINV\n"), std::string::npos) << lines;
  const std::string project = ProjectNow();
  EXPECT_TRUE(Replayed("a.log") == project);
}

TEST_F(SessionLogTest, AFileThatIsNoLogIsNotWrittenOver) {
  Write("notes.txt", "mine");
  Write("job.txt", "*sondera 2\nprint \"a\"\n");
  EXPECT_NE(script::BeginLog("notes.txt").find("exists and is not a log"), std::string::npos);
  EXPECT_NE(script::BeginLog("job.txt").find("exists and is not a log"), std::string::npos);
  EXPECT_EQ(script::BeginLog("job.txt", folder.File("job.txt")),
            "the script that is run cannot be its own log");
  EXPECT_NE(script::BeginLog("none/a.log").find("cannot be written"), std::string::npos);
  EXPECT_NE(script::BeginLog(""), "");
  EXPECT_EQ(Read("notes.txt"), "mine");
  EXPECT_EQ(Read("job.txt"), "*sondera 2\nprint \"a\"\n");
  EXPECT_EQ(script::BeginLog("a.log"), "");
  EXPECT_EQ(script::EndLog(), "");
  EXPECT_EQ(script::BeginLog("a.log"), "");  // a former log
}

TEST_F(SessionLogTest, ALogThatCannotBeWrittenIsToldOnceAndTheSessionGoesOn) {
  ASSERT_EQ(::symlink("/dev/full", folder.File("full.log").c_str()), 0);
  ::testing::internal::CaptureStderr();
  const std::string trouble = script::BeginLog("full.log");
  ::testing::internal::GetCapturedStderr();
  EXPECT_NE(trouble, "");  // no plain file, or full at the first line
}

// --- random sessions ---

/// Two hundred actions, of a script and of a person in turn, some of them refused.
class RandomSession : public SessionLogTest, public ::testing::WithParamInterface<unsigned> {
 protected:
  std::string ActOfAScript() {
    const auto number = [&](int below) { return std::to_string(random() % static_cast<unsigned>(below)); };
    switch (random() % 14) {
      case 0:
        return "pair ID 1 " + std::to_string(1 + random() % 3);
      case 1:
      case 2:
        return "mask " + number(30) + " " + number(60) + " jumps=" + number(3);
      case 3:
        return "mask delete " + number(40);
      case 4:
        return "mask update " + number(40) + " " + number(20) + " " + number(50);
      case 5:
        return std::string("phase ") + (random() % 2 ? "original" : "enhanced");
      case 6:
        return "disperse alpha=0." + std::to_string(1 + random() % 5);
      case 7:
        return std::string(random() % 2 ? "include" : "exclude") + " ID 1 2";
      case 8:
        return "layers 1." + number(9) + ",2,3,40";
      case 9:
        return "layer " + std::to_string(1 + random() % 5) + " H=" + std::to_string(1 + random() % 4) +
               " fix=Vs";
      case 10:
        return "set INVERSION.NITER " + number(9);
      case 11:
        return "window enhanced bandpass velocities=" + std::to_string(500 + random() % 200) + ",400,110,80";
      case 12:
        return "project id=site" + number(4);
      default:
        return "point SASW.DISPLAY_A drag " + number(30) + " 0 " + number(60) + " 0";
    }
  }
  void ActOfAPerson() {
    const auto below = [&](unsigned n) { return static_cast<int>(random() % n); };
    switch (random() % 9) {
      case 0:
        return Enter(sasw::MASKING_FREQINIT, below(40));
      case 1:
        return Enter(sasw::MASKING_FREQFINAL, below(60));
      case 2:
        return Press(sasw::MASKINGNEW);
      case 3:
        return Choose(sasw::DISPCURV_OPTION, below(3));
      case 4:
        return Press(sasw::MASKINGCALCDISP);
      case 5:
        return Choose(sasw::TRACE_ONOFF, below(2));
      case 6:
        return Enter(inversion::UF_VS, 0.01 * below(20));
      case 7:
        return Enter(sasw::PHASE_ORIGINAL, below(2));
      default: {
        const double from = below(30);
        return Mouse(sasw::DISPLAY_A, Event::Drag,
                     {.x = from + below(20), .button = MouseButton::Left, .fromX = from});
      }
    }
  }
  std::mt19937 random;
};

TEST_P(RandomSession, ReplayedGivesTheSameBytes) {
  random.seed(GetParam());
  Begin("a.log");
  ASSERT_EQ(Run(kRead + "pair ID 1 2\nsave a.da overwrite=yes\n"), 0) << err;
  for (int act = 0; act < 200; ++act) {
    if (random() % 2)
      ActOfAPerson();
    else
      Run("onerror continue\n" + ActOfAScript());
  }
  EXPECT_EQ(script::EndLog(), "");
  const std::string project = ProjectNow();
  EXPECT_TRUE(Replayed("a.log") == project) << Read("a.log");
  EXPECT_GT(project.size(), 10000u);
}
INSTANTIATE_TEST_SUITE_P(Seeds, RandomSession, ::testing::Range(1u, 51u));

// --- killed sessions ---

class KilledLog : public SessionLogTest {
 protected:
  int Wait(pid_t child) {
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  /// Until a.log has more than this many bytes, or the program has ended. The program stays to be waited for.
  void WaitForLog(pid_t child, std::uintmax_t bytes) {
    const auto ended = [child] {
      siginfo_t info = {};
      return ::waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | WNOHANG | WNOWAIT) != 0 ||
             info.si_pid == child;
    };
    while (!ended()) {
      std::error_code error;
      const std::uintmax_t now = fs::file_size(folder.File("a.log"), error);
      if (!error && now > bytes) return;
      std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
  }
};

TEST_F(KilledLog, ChecksAndRunsAgain) {
  std::string job = "*sondera 2\n" + kRead + "pair ID 1 2\nphase original\n";
  for (int i = 0; i < 120; ++i)
    job += FormatText(
        "answer file copy.da\npress MEASPANEL.F7\nmask %d %d\nonerror continue\nmask delete 400\n"
        "onerror stop\nmask clear\n",
        i % 20, 30 + i % 20);
  Write("job.txt", job);
  const std::vector<std::string> command = {testing::kProgram, "--batch", "--yes",
                                            "--log=a.log",     "run",     "job.txt"};
  ASSERT_EQ(Wait(testing::StartProgram(command)), 1);  // some lines are refused
  const std::size_t whole = Read("a.log").size();
  std::mt19937 random(11);
  int midway = 0;
  for (int kill = 0; kill < 50; ++kill) {
    fs::remove(folder.File("a.log"));
    fs::remove(folder.File("copy.da"));
    StartSession();  // this process still had the project of the last replay, which the program saves
    const pid_t child = testing::StartProgram(command);
    WaitForLog(child, random() % (whole / 6));
    ::kill(child, SIGKILL);
    midway += Wait(child) == -1 ? 1 : 0;
    if (!Exists("a.log")) continue;
    std::string log = Read("a.log");
    log.erase(log.rfind('\n') + 1);  // its complete lines
    if (log.empty()) continue;
    StartSession();
    ASSERT_EQ(Check(log.substr(log.find('\n') + 1)), 0) << err << log;
    fs::remove(folder.File("copy.da"));
    const int status = Run(log.substr(log.find('\n') + 1));
    // Only the line that was refused then is refused now.
    std::istringstream told(err);
    for (std::string line; std::getline(told, line);)
      EXPECT_TRUE(line.find("mask delete") != std::string::npos ||
                  line.find(": mask: ") != std::string::npos || line.starts_with("sondera:"))
          << line;
    EXPECT_NE(status, 2);
  }
  EXPECT_EQ(midway, 50);
}

TEST_F(KilledLog, TheProgramLogsARunOfEitherDialectAndTheProjectComesAgain) {
  Write("first.txt", "import H31 ID 14 30\nmasking ID 0 600 450 110 80\n");
  Write("second.txt", "*sondera 2\n" + kRead + "pair ID 1 2\nphase original\nmask 0 7\ndisperse\nsave\n");
  for (const std::string script : {"first.txt", "second.txt"}) {
    ASSERT_EQ(Wait(testing::StartProgram(
                  {testing::kProgram, "--batch", "--log=a.log", "auto", "new", "site", script})) %
                  3,
              0)
        << script;
    const std::string project = Read("site.da");
    fs::remove(folder.File("site.da"));
    ASSERT_EQ(Wait(testing::StartProgram({testing::kProgram, "--batch", "run", "a.log"})) % 3, 0)
        << Read("a.log");
    EXPECT_TRUE(Read("site.da") == project) << script << "\n" << Read("a.log");
    ASSERT_EQ(Wait(testing::StartProgram(
                  {testing::kProgram, "--batch", "--log=b.log", "auto", "old", "site.da", script})) %
                  3 * 0,
              0);
    EXPECT_NE(Read("b.log").find("\nopen site.da\n"), std::string::npos) << Read("b.log");
  }
  EXPECT_EQ(
      Wait(testing::StartProgram({testing::kProgram, "--batch", "--log=first.txt", "run", "second.txt"})), 1);
}

}  // namespace
}  // namespace sondera
