// A damaged project, or one that cannot be opened: every action must keep the parts that could not be read.
#include <gmock/gmock.h>

#include "app/command_line.h"
#include "panels/mainmenu_project.h"
#include "project/project_file.h"
#include "records/session.h"
#include "runtime/catalogue/asavedlg.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/events.h"
#include "support/app_fixture.h"
#include "support/failing_file_driver.h"

namespace sondera {
namespace {

using ::testing::HasSubstr;

class DamagedProject : public testing::AppTest {
 protected:
  std::string Read(const std::string& name) { return test::ReadWhole(folder.File(name)); }
  /// A saved project with only this share of its bytes left.
  std::string CutOnDisk(double share = 0.5) {
    StartSession();
    session.projectFileName = folder.File("whole.da");
    EXPECT_EQ(Commit(measpanel::F6), 0);
    std::string bytes = Read("whole.da");
    bytes.resize(static_cast<std::size_t>(share * static_cast<double>(bytes.size())));
    test::WriteWhole(folder.File("site.da"), bytes);
    StartSession();
    return bytes;
  }
  /// The same, opened, with the last good state in ".bkup".
  std::string OpenCutProject(double share = 0.5) {
    const std::string cut = CutOnDisk(share);
    test::WriteWhole(folder.File("site.da.bkup"), "the last good state");
    EXPECT_EQ(OpenFileProc(folder.File("site.da")), -1);
    EXPECT_EQ(frontEnd.messages.size(), 1u);
    return cut;
  }
};

TEST_F(DamagedProject, StaysInACopyOfItsOwnThroughAnyNumberOfSaves) {
  const std::string cut = OpenCutProject();
  for (int save = 0; save < 3; ++save) {
    ASSERT_EQ(Commit(measpanel::F6), 0);
    EXPECT_EQ(Read("site.da.damaged"), cut) << "save " << save;
    EXPECT_EQ(Read("site.da.bkup"), "the last good state") << "save " << save;
  }
  EXPECT_NE(Read("site.da"), cut);
  EXPECT_FALSE(Exists("site.da.damaged2"));
}

TEST_F(DamagedProject, ASecondDamageDoesNotOverwriteTheFirst) {
  const std::string first = OpenCutProject(0.5);
  ASSERT_EQ(Commit(measpanel::F6), 0);
  frontEnd.messages.clear();
  const std::string second = OpenCutProject(0.25);
  ASSERT_EQ(Commit(measpanel::F6), 0);
  EXPECT_EQ(Read("site.da.damaged"), first);
  EXPECT_EQ(Read("site.da.damaged2"), second);
  frontEnd.messages.clear();
  EXPECT_EQ(OpenCutProject(0.25), second);
  ASSERT_EQ(Commit(measpanel::F6), 0);
  EXPECT_FALSE(Exists("site.da.damaged3")) << "that state is kept already";
}

TEST_F(DamagedProject, IsNotOverwrittenWhenItCannotBeCopied) {
  const std::string cut = OpenCutProject();
  for (const test::FilePlan& plan : {test::FilePlan{.failWrite = 1}, test::FilePlan{.failRead = 1}}) {
    const test::FailingFileDriver driver(plan);
    EXPECT_EQ(Commit(measpanel::F6), -1);
    EXPECT_EQ(Read("site.da"), cut);
  }
  EXPECT_EQ(frontEnd.messages.size(), 3u);
  EXPECT_FALSE(Exists("site.da.damaged"));
}

TEST_F(DamagedProject, IsKeptBySaveAsAndByTheAutomaticSaveToo) {
  const std::string cut = OpenCutProject();
  std::filesystem::create_symlink(folder.Path(), folder.File("again"));
  frontEnd.fileAnswers.push_back({FileAnswer::Exists, folder.File("other.da")});
  frontEnd.confirmAnswers = {true};
  ASSERT_EQ(Commit(measpanel::F7), 0);
  EXPECT_EQ(Read("site.da"), cut);
  SetCtrlVal(asavedlg::PATHNAME, folder.File("again"));
  SetCtrlVal(asavedlg::AUTOFILE, "site");
  ASSERT_EQ(Commit(asavedlg::SAVE), 0);
  EXPECT_NE(Read("site.da"), cut);
  EXPECT_EQ(Read("site.da.damaged"), cut);
}

TEST_F(DamagedProject, AnotherProjectOpenedLaterIsBackedUpAsEver) {
  OpenCutProject();
  ASSERT_EQ(Commit(measpanel::F6), 0);
  ASSERT_EQ(OpenFileProc(folder.File("site.da")), 0) << "whole again";
  const std::string whole = Read("site.da");
  ASSERT_EQ(Commit(measpanel::F6), 0);
  EXPECT_EQ(Read("site.da.bkup"), whole);
}

TEST_F(DamagedProject, AScriptDoesNotRunOnIt) {
  const std::string cut = CutOnDisk();
  Write("job.txt", "masking measID 0 400 180 90 40\nexport out measID 1 2 3\n");
  for (int run = 0; run < 2; ++run) {
    frontEnd.messages.clear();
    StartSession();
    EXPECT_EQ(DispatchCommandLine({"sondera", "auto", "old", "site.da", "job.txt"}), 1);
    EXPECT_TRUE(QuitRequested());
    ASSERT_EQ(frontEnd.messages.size(), 1u);
    EXPECT_THAT(frontEnd.messages[0], HasSubstr("was not read whole"));
    EXPECT_EQ(Read("site.da"), cut);
    for (const char* name : {"site.da.bkup", "out.hyx"}) EXPECT_FALSE(Exists(name)) << name;
  }
}

TEST_F(DamagedProject, NothingIsExportedFromIt) {
  CutOnDisk(0.9);
  Write("out.tim", "a former export");
  EXPECT_EQ(DispatchCommandLine({"sondera", "export", "site.da", "out", "measID", "1", "2", "0"}), 1);
  EXPECT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_EQ(Read("out.tim"), "a former export");
  EXPECT_TRUE(QuitRequested());
}

TEST_F(DamagedProject, NothingIsExportedFromAMissingOne) {
  Write("out.tim", "a former export");
  EXPECT_EQ(DispatchCommandLine({"sondera", "export", "none.da", "out", "measID", "1", "2", "0"}), 1);
  EXPECT_EQ(frontEnd.messages, std::vector<std::string>{"File does not exist."});
  EXPECT_EQ(Read("out.tim"), "a former export");
}

/// A complete project whose open fails once, after the open of its lock.
class UnopenedProject : public DamagedProject {
 protected:
  void SetUp() override {
    DamagedProject::SetUp();
    CutOnDisk(1.0);
    whole = Read("site.da");
  }
  std::string whole;
  const test::FilePlan plan{.failOpen = 2, .error = EMFILE};
};

TEST_F(UnopenedProject, IsNoSaveTarget) {
  {
    const test::FailingFileDriver driver(plan);
    EXPECT_EQ(OpenFileProc(folder.File("site.da")), -1);
  }
  EXPECT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_EQ(session.projectFileName, "");
  EXPECT_EQ(Commit(measpanel::F6), -1) << "a name is asked for";
  EXPECT_EQ(frontEnd.files.size(), 1u);
  EXPECT_EQ(Read("site.da"), whole);
  frontEnd.fileAnswers.push_back({FileAnswer::Exists, folder.File("site.da")});
  frontEnd.confirmAnswers = {true};
  EXPECT_EQ(Commit(measpanel::F6), 0);
  EXPECT_EQ(Read("site.da.damaged"), whole);
}

TEST_F(UnopenedProject, NoScriptRunsOnIt) {
  Write("job.txt", "masking measID 0 400 180 90 40\n");
  const test::FailingFileDriver driver(plan);
  EXPECT_EQ(DispatchCommandLine({"sondera", "auto", "old", "site.da", "job.txt"}), 1);
  EXPECT_TRUE(QuitRequested());
  EXPECT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_EQ(Read("site.da"), whole);
  EXPECT_FALSE(Exists("site.da.bkup"));
}

TEST_F(UnopenedProject, ANewProjectDoesNotTakeItsPlaceWhenItCannotBeKept) {
  test::WriteWhole(folder.File("site.da"), "another project");
  Write("job.txt", "masking measID 0 400 180 90 40\n");
  for (int n = 1; n <= 4; ++n) {
    StartSession();
    frontEnd.messages.clear();
    std::filesystem::remove(folder.File("site.da.former"));
    const test::FailingFileDriver driver({.failOpen = n, .everAfter = true});
    EXPECT_EQ(DispatchCommandLine({"sondera", "auto", "new", "site", "job.txt"}), 1) << n;
    EXPECT_GE(frontEnd.messages.size(), 1u) << n;
    EXPECT_EQ(Read("site.da"), "another project") << n;
  }
}

}  // namespace
}  // namespace sondera
