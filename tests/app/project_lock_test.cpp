// Two processes on one project: the second one stops, or waits, and changes nothing.
#include <gmock/gmock.h>

#include <cerrno>

#include "app/command_line.h"
#include "panels/mainmenu_project.h"
#include "project/project_file.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/events.h"
#include "runtime/file_driver.h"
#include "runtime/lock_file.h"
#include "support/app_fixture.h"
#include "support/lock_holder.h"

namespace sondera {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class ProjectLock : public testing::AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    Write("job.txt", "* nothing to do\n");
    Write("save.txt", "masking measID 0 400 180 90 40\n");
    session.projectFileName = folder.File("site.da");
    ASSERT_EQ(Commit(measpanel::F6), 0);
    before = test::ReadWhole(folder.File("site.da"));
    StartSession();
  }
  void TearDown() override {
    WaitForLocks(nullptr);
    AppTest::TearDown();
  }
  std::string before;
};

TEST_F(ProjectLock, StopsEveryFormThatWorksOnAProjectInUse) {
  const test::LockHolder other(folder.File("site.da"));
  ASSERT_TRUE(other.holds);
  const std::vector<std::vector<std::string>> forms = {{"sondera", "site.da"},
                                                       {"sondera", "auto", "old", "site.da", "save.txt"},
                                                       {"sondera", "auto", "new", "site", "save.txt"}};
  for (const auto& form : forms) {
    StartSession();
    frontEnd.messages.clear();
    EXPECT_EQ(DispatchCommandLine(form), 1);
    EXPECT_TRUE(QuitRequested());
    ASSERT_EQ(frontEnd.messages.size(), 1u);
    EXPECT_THAT(frontEnd.messages[0], HasSubstr("site.da is in use by process " + std::to_string(other.pid)));
  }
  EXPECT_EQ(test::ReadWhole(folder.File("site.da")), before);
  EXPECT_FALSE(Exists("site.da.former"));
  EXPECT_FALSE(Exists("site.da.bkup"));
}

TEST_F(ProjectLock, IsHeldWhileAProjectIsOpenAndGivenBackBehindIt) {
  ASSERT_EQ(OpenFileProc(folder.File("site.da")), 0);
  EXPECT_FALSE(test::LockHolder(folder.File("site.da")).holds);
  ASSERT_EQ(Commit(measpanel::F6), 0);
  EXPECT_FALSE(test::LockHolder(folder.File("site.da")).holds) << "a save does not give it away";
  ASSERT_EQ(OpenFileProc(folder.File("site.da")), 0) << "this process may open it again";
  OpenFileProc();
  EXPECT_TRUE(test::LockHolder(folder.File("site.da")).holds) << "left by a cancelled open";
}

TEST_F(ProjectLock, IsGivenBackAtTheEndOfAScript) {
  EXPECT_EQ(DispatchCommandLine({"sondera", "auto", "new", "site", "job.txt"}), 0);
  EXPECT_FALSE(Exists("site.da.lock"));
}

TEST_F(ProjectLock, ARefusedOpenLeavesTheOpenProjectAsItWas) {
  ASSERT_EQ(OpenFileProc(folder.File("site.da")), 0);
  std::filesystem::copy_file(folder.File("site.da"), folder.File("other.da"));
  const test::LockHolder other(folder.File("other.da"));
  EXPECT_EQ(OpenFileProc(folder.File("other.da")), -1);
  EXPECT_EQ(session.projectFileName, folder.File("site.da"));
  EXPECT_EQ(MeasDB.idList.count(), 1);
  EXPECT_FALSE(test::LockHolder(folder.File("site.da")).holds);
}

TEST_F(ProjectLock, ASaveUnderANameInUseIsRefused) {
  const test::LockHolder other(folder.File("site.da"));
  frontEnd.fileAnswers.push_back({FileAnswer::Exists, folder.File("site.da")});
  frontEnd.confirmAnswers = {true};
  EXPECT_EQ(Commit(measpanel::F7), -1);
  EXPECT_THAT(frontEnd.messages.back(), HasSubstr("is in use by process"));
  EXPECT_EQ(test::ReadWhole(folder.File("site.da")), before);
  EXPECT_FALSE(Exists("site.da.bkup"));
}

TEST_F(ProjectLock, AnExportReadsWhatIsThere) {
  const test::LockHolder other(folder.File("site.da"));
  DispatchCommandLine({"sondera", "export", "site.da", "out", "measID", "1", "2", "0"});
  EXPECT_THAT(frontEnd.messages, ElementsAre(HasSubstr("measID has no time records")))
      << "the project was read as far as to the measurement, which is empty";
}

TEST_F(ProjectLock, WaitingGoesOnWhenTheOtherProcessEnds) {
  test::LockHolder other(folder.File("site.da"));
  WaitForLocks([&](const std::string&) { other.Kill(); });
  EXPECT_EQ(DispatchCommandLine({"sondera", "auto", "old", "site.da", "job.txt"}), 0);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(ProjectLock, AFolderWithoutLocksLetsAProjectBeReadAndSaved) {
  FileDriver noLocks = posixFileDriver;
  noLocks.lock = [](int) { return errno = ENOLCK, -1; };
  InstallFileDriver(&noLocks);
  EXPECT_EQ(OpenFileProc(folder.File("site.da")), 0);
  EXPECT_EQ(Commit(measpanel::F6), 0);
  InstallFileDriver(nullptr);
}

}  // namespace
}  // namespace sondera
