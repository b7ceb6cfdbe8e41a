// Tests of the result files of a run: written to temporary files, put in place at its end or not at all, one
// process at a time.
#include "run/run_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "records/session.h"
#include "run/observations.h"
#include "run/run_sizes.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/lock_file.h"
#include "support/failing_file_driver.h"
#include "support/named_runs.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;
using Names = std::vector<std::string>;

class RunFilesTest : public RunTest {
 protected:
  void SetUp() override {
    RunTest::SetUp();
    run.switches.baseName = Base();
  }

  /// Names of the files that a run of this kind leaves.
  Names LeftBy(int kind) {
    EXPECT_EQ(FS_OpenFiles(kind), 0);
    AddToRunFile(".fdp", "block\n");
    FS_CloseFiles(kind);
    return folder.Names();
  }
  void WriteFormer(std::initializer_list<const char*> names) {
    for (const char* name : names) test::WriteWhole(folder.File(name), "former run\n");
  }
};

TEST_F(RunFilesTest, ForwardRunLeavesFour) {
  EXPECT_EQ(LeftBy(kForwardRun), (Names{"site.fdp", "site.fmp", "site.pcm", "site.pfl"}));
  EXPECT_EQ(test::ReadWhole(folder.File("site.fdp")), "block\n");
  EXPECT_EQ(test::ReadWhole(folder.File("site.pcm")), "");
}

TEST_F(RunFilesTest, InversionLeavesSeven) {
  EXPECT_EQ(LeftBy(kInversionRun),
            (Names{"site.fdp", "site.fmp", "site.fsp", "site.n", "site.pcm", "site.pfl", "site.r"}));
}

TEST_F(RunFilesTest, WaveformRunLeavesSix) {
  EXPECT_EQ(LeftBy(kWaveformRun),
            (Names{"site.fdp", "site.fmp", "site.pcm", "site.pfl", "site.pls", "site.spc"}));
}

TEST_F(RunFilesTest, ReportsAreMadeBehindTheirSwitches) {
  run.switches.reportSwitch[0] = run.switches.reportSwitch[4] = true;
  EXPECT_EQ(LeftBy(kForwardRun),
            (Names{"site.G", "site.fdp", "site.fmp", "site.pcm", "site.pfl", "site.svd"}));
}

TEST_F(RunFilesTest, FormerContentsGoAtTheEndAndOtherFilesStay) {
  WriteFormer({"site.fdp", "site.pfl", "site.r", "other.fdp"});
  ASSERT_EQ(FS_OpenFiles(kForwardRun), 0);
  AddToRunFile(".fdp", "first\n");
  AddToRunFile(".fdp", "second\n");
  EXPECT_EQ(test::ReadWhole(folder.File("site.fdp")), "former run\n");
  EXPECT_EQ(test::ReadWhole(folder.File("site.pfl")), "former run\n");
  FS_CloseFiles(kForwardRun);
  EXPECT_EQ(test::ReadWhole(folder.File("site.fdp")), "first\nsecond\n");
  EXPECT_EQ(test::ReadWhole(folder.File("site.pfl")), "");
  EXPECT_EQ(test::ReadWhole(folder.File("site.r")), "former run\n");
  EXPECT_EQ(test::ReadWhole(folder.File("other.fdp")), "former run\n");
}

/// A long run can be followed in the temporary file, which is found by its name.
TEST_F(RunFilesTest, BlocksCanBeReadWhileTheRunGoesOn) {
  ASSERT_EQ(FS_OpenFiles(kForwardRun), 0);
  AddToRunFile(".fdp", "first\n");
  int seen = 0;
  for (const std::string& name : folder.Names()) {
    EXPECT_TRUE(name == "site.lock" || name.find(".saving-") != std::string::npos) << name;
    if (name.starts_with("site.fdp.saving-")) seen += test::ReadWhole(folder.File(name)) == "first\n";
  }
  EXPECT_EQ(seen, 1);
}

TEST_F(RunFilesTest, RunWithoutABlockLeavesTheFormerFiles) {
  WriteFormer({"site.fdp", "site.pcm"});
  const Names before = folder.Names();
  ASSERT_EQ(FS_OpenFiles(kInversionRun), 0);
  FS_CloseFiles(kInversionRun);
  EXPECT_EQ(folder.Names(), before);
  EXPECT_EQ(test::ReadWhole(folder.File("site.fdp")), "former run\n");
  EXPECT_EQ(test::ReadWhole(folder.File("site.pcm")), "former run\n");
}

TEST_F(RunFilesTest, RunThatThrowsLeavesTheFormerFiles) {
  WriteFormer({"site.fdp"});
  try {
    const RunFiles files;
    ASSERT_EQ(FS_OpenFiles(kForwardRun), 0);
    AddToRunFile(".fdp", "half a run\n");
    throw std::bad_alloc();
  } catch (const std::bad_alloc&) {
  }
  EXPECT_EQ(folder.Names(), Names{"site.fdp"});
  EXPECT_EQ(test::ReadWhole(folder.File("site.fdp")), "former run\n");
}

TEST_F(RunFilesTest, NextRunTakesAwayWhatAKilledOneLeft) {
  WriteFormer({"site.fdp.saving-4711-0", "site.pcm.saving-4711-0", "site.fdp.saving-notes",
               "other.fdp.saving-4711-0", "site.fdp.txt"});
  LeftBy(kForwardRun);
  EXPECT_EQ(folder.Names(), (Names{"other.fdp.saving-4711-0", "site.fdp", "site.fdp.saving-notes",
                                   "site.fdp.txt", "site.fmp", "site.pcm", "site.pfl"}));
}

// --- Places ---

TEST_F(RunFilesTest, UnusablePlaceIsRefusedForEveryKindOfRun) {
  run.switches.baseName = folder.File("nowhere/site");
  const char* const first[] = {".fdp", ".fsp", ".pls"};
  for (const int kind : {kForwardRun, kInversionRun, kWaveformRun}) {
    frontEnd.messages.clear();
    EXPECT_EQ(FS_OpenFiles(kind), -1);
    EXPECT_EQ(OnlyMessage(), "Error in opening file " + run.switches.baseName + first[kind - 1] +
                                 "\nCannot write " + run.switches.baseName + first[kind - 1] +
                                 ": No such file or directory.");
    EXPECT_EQ(frontEnd.messageTitles.front(), "Sondera 4.1");
  }
  EXPECT_TRUE(folder.Names().empty());
}

TEST_F(RunFilesTest, PipeDeviceAndFolderAreRefusedAndNothingChanges) {
  WriteFormer({"site.fdp", "site.fmp"});
  const std::string place = folder.File("site.pfl");
  for (const int what : {0, 1, 2}) {
    if (what == 0) {
      ASSERT_EQ(::mkfifo(place.c_str(), 0600), 0);
    }
    if (what == 1) std::filesystem::create_symlink("/dev/null", place);
    if (what == 2) std::filesystem::create_directory(place);
    const Names before = folder.Names();
    frontEnd.messages.clear();
    EXPECT_EQ(FS_OpenFiles(kInversionRun), -1) << what;
    EXPECT_THAT(OnlyMessage(), StartsWith("Error in opening file " + place + "\n"));
    EXPECT_THAT(OnlyMessage(), HasSubstr(what == 2 ? "directory" : "it is not a plain file"));
    EXPECT_EQ(folder.Names(), before);
    std::filesystem::remove(place);
  }
  EXPECT_EQ(test::ReadWhole(folder.File("site.fdp")), "former run\n");
}

TEST_F(RunFilesTest, LinkStaysAndItsTargetIsReplaced) {
  std::filesystem::create_directory(folder.File("kept"));
  WriteFormer({"kept/curves"});
  std::filesystem::create_symlink("kept/curves", folder.File("site.fdp"));
  LeftBy(kForwardRun);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.File("site.fdp")));
  EXPECT_EQ(test::ReadWhole(folder.File("kept/curves")), "block\n");
}

TEST_F(RunFilesTest, ProjectIdNamesTheFilesInTheFolderOfTheResults) {
  SetPlainLayers(2);
  SetGlobalCurve(3);
  SetCtrlVal(hmsetup::PROJID, "named");
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(FS_RetrieveSystemPM(kInversionRun, 0), 0);
  EXPECT_EQ(run.switches.baseName, folder.File("named"));
  AddToRunFile(".fdp", "");
  FS_CloseFiles(kInversionRun);
  EXPECT_TRUE(folder.Names().size() == 7 && folder.Names().front() == "named.fdp");
}

/// The id may come from a project file; it must not choose the folder of the results.
TEST_F(RunFilesTest, ProjectIdThatIsNoFileNameIsRefused) {
  SetPlainLayers(2);
  SetGlobalCurve(3);
  std::filesystem::create_directory(folder.File("below"));
  session.resultFolder = folder.File("below");
  for (const std::string id : {"../site", "/tmp/site", "a/b", "..", ".", ""}) {
    frontEnd.messages.clear();
    SetCtrlVal(hmsetup::PROJID, id);
    ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
    EXPECT_EQ(FS_RetrieveSystemPM(kForwardRun, 0), -1) << id;
    EXPECT_THAT(OnlyMessage(), StartsWith("The project id \"" + id + "\" cannot name the result files"));
  }
  EXPECT_EQ(folder.Names(), Names{"below"});
  EXPECT_TRUE(std::filesystem::is_empty(folder.File("below")));
}

// --- Losses ---

TEST_F(RunFilesTest, WriteOrCloseThatFailsKeepsTheWholeFormerSet) {
  for (const bool atClose : {false, true}) {
    for (int n = 1; n <= 4; ++n) {
      WriteFormer({"site.fdp", "site.fmp", "site.pcm", "site.pfl"});
      const Names before = folder.Names();
      frontEnd.messages.clear();
      ASSERT_EQ(FS_OpenFiles(kForwardRun), 0);
      {
        const test::FailingFileDriver failing(atClose ? test::FilePlan{.failClose = n}
                                                      : test::FilePlan{.failWrite = n, .halfWrite = true});
        for (const char* extension : {".fdp", ".fmp", ".pfl", ".pcm"}) AddToRunFile(extension, "block\n");
        FS_CloseFiles(kForwardRun);
      }
      EXPECT_THAT(OnlyMessage(), HasSubstr("Those of the former run stay.")) << atClose << n;
      EXPECT_EQ(folder.Names(), before);
      for (const std::string& name : before) EXPECT_EQ(test::ReadWhole(folder.File(name)), "former run\n");
    }
  }
}

TEST_F(RunFilesTest, FileThatCannotBeReplacedIsToldAndStays) {
  WriteFormer({"site.fdp", "site.fmp", "site.pcm", "site.pfl"});
  ASSERT_EQ(FS_OpenFiles(kForwardRun), 0);
  AddToRunFile(".fdp", "block\n");
  {
    const test::FailingFileDriver failing({.failRename = 2});
    FS_CloseFiles(kForwardRun);
  }
  EXPECT_EQ(OnlyMessage(), "Cannot replace " + Base() +
                               ".fmp: Input/output error.\nIt is still the file of the former run.");
  EXPECT_EQ(test::ReadWhole(folder.File("site.fmp")), "former run\n");
  EXPECT_EQ(test::ReadWhole(folder.File("site.fdp")), "block\n");
  EXPECT_EQ(folder.Names().size(), 4u);
}

TEST_F(RunFilesTest, SignalInAWriteIsNoLoss) {
  ASSERT_EQ(FS_OpenFiles(kForwardRun), 0);
  {
    const test::FailingFileDriver signals({.failWrite = 1, .failRename = 1, .failClose = 1, .error = EINTR});
    AddToRunFile(".fdp", "block\n");
    FS_CloseFiles(kForwardRun);
  }
  EXPECT_TRUE(frontEnd.messages.empty()) << frontEnd.messages.front();
  EXPECT_EQ(test::ReadWhole(folder.File("site.fdp")), "block\n");
}

// --- Two processes ---

TEST_F(RunFilesTest, SecondProcessIsRefusedWhileARunHasItsFilesOpen) {
  int ready[2], done[2];
  ASSERT_EQ(::pipe(ready), 0);
  ASSERT_EQ(::pipe(done), 0);
  const pid_t other = ::fork();
  if (other == 0) {
    char go = FS_OpenFiles(kForwardRun) == 0 ? 'y' : 'n';
    (void)!::write(ready[1], &go, 1);
    (void)!::read(done[0], &go, 1);
    AddToRunFile(".fdp", "the first one's\n");
    FS_CloseFiles(kForwardRun);
    ::_exit(0);
  }
  char answer = 0;
  ASSERT_EQ(::read(ready[0], &answer, 1), 1);
  ASSERT_EQ(answer, 'y');
  const Names before = folder.Names();
  EXPECT_EQ(FS_OpenFiles(kInversionRun), -1);
  EXPECT_THAT(OnlyMessage(), HasSubstr("site"));
  EXPECT_EQ(folder.Names(), before);
  ASSERT_EQ(::write(done[1], "x", 1), 1);
  int status = 0;
  ::waitpid(other, &status, 0);
  EXPECT_EQ(test::ReadWhole(folder.File("site.fdp")), "the first one's\n");
  EXPECT_EQ(FS_OpenFiles(kInversionRun), 0);  // and now it succeeds
  for (const int fd : {ready[0], ready[1], done[0], done[1]}) ::close(fd);
}

}  // namespace
}  // namespace sondera::testing
