// Every call of the operating system fails once during a save and during an export: the former files stay
// complete, and the failure is reported.
#include <gmock/gmock.h>

#include <new>

#include "app/command_line.h"
#include "app/failing_allocation.h"
#include "panels/mainmenu_project.h"
#include "project/project_file.h"
#include "records/session.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/events.h"
#include "support/app_fixture.h"
#include "support/failing_file_driver.h"
#include "support/site_records.h"

namespace sondera {
namespace {

constexpr int kMostCalls = 2000;

struct Kind {
  const char* name;
  int test::FilePlan::*failAt;
};
constexpr Kind kKinds[] = {
    {"open", &test::FilePlan::failOpen},     {"read", &test::FilePlan::failRead},
    {"write", &test::FilePlan::failWrite},   {"fsync", &test::FilePlan::failFlush},
    {"close", &test::FilePlan::failClose},   {"rename", &test::FilePlan::failRename},
    {"remove", &test::FilePlan::failRemove}, {"lock", &test::FilePlan::failLock},
};

class SaveFaults : public testing::AppTest {
 protected:
  std::string Read(const std::string& name) { return test::ReadWhole(folder.File(name)); }

  /// Two states of a project that differ: "first" and "second", and the session that can save the second.
  void MakeStates() {
    session.projectFileName = folder.File("first");
    ASSERT_EQ(Commit(measpanel::F6), 0);
    test::WriteSitePair(folder.File("pair.hyx"), 14.0, 30.0, 129);
    Write("import.txt", "import pair pair 14 30\nmasking pair 0 600 450 110 80\n");
    StartSession();
    ASSERT_EQ(DispatchCommandLine({"sondera", "auto", "new", "second", "import.txt"}), 0);
    for (const char* name : {"second.da.bkup", "second.da.former"})
      std::filesystem::remove(folder.File(name));
    first = Read("first");
    second = Read("second.da");
    ASSERT_NE(first, second);
    StartSession();
    frontEnd.messages.clear();
  }
  /// The folder contains no other files.
  void ExpectNoRests() {
    for (const std::string& name : folder.Names())
      EXPECT_EQ(name.find(".saving-"), std::string::npos) << name;
  }
  std::string first, second;
};

TEST_F(SaveFaults, EveryFailingCallOfASaveLeavesWholeFilesAndIsTold) {
  MakeStates();
  for (const Kind& kind : kKinds) {
    int n = 1;
    for (bool reached = true; reached && n < kMostCalls; ++n) {
      SCOPED_TRACE(std::string(kind.name) + " " + std::to_string(n));
      StartSession();
      ASSERT_EQ(OpenFileProc(folder.File("second.da")), 0);
      session.projectFileName = folder.File("site.da");
      test::WriteWhole(folder.File("site.da"), first);
      test::WriteWhole(folder.File("site.da.bkup"), "older");
      frontEnd.messages.clear();
      test::FilePlan plan;
      plan.*kind.failAt = n;
      int result = 0;
      {
        const test::FailingFileDriver driver(plan);
        result = Commit(measpanel::F6);
        const test::FileCalls& c = driver.Calls();
        const int calls[] = {c.open, c.read, c.write, c.flush, c.close, c.rename, c.remove, c.lock};
        reached = calls[&kind - kKinds] >= n;
      }
      const std::string now = Read("site.da"), backup = Read("site.da.bkup");
      EXPECT_TRUE(now == first || now == second) << now.size() << " bytes";
      EXPECT_TRUE(backup == "older" || backup == first) << backup.size() << " bytes";
      EXPECT_TRUE(now == first || backup == first || !frontEnd.messages.empty());
      const bool harmless = std::string(kind.name) == "remove" || std::string(kind.name) == "close";
      if (reached && !harmless) {
        EXPECT_EQ(frontEnd.messages.size(), 1u);
      }
      if (result < 0) {
        EXPECT_EQ(frontEnd.messages.size(), 1u);
      }
      if (!reached) {
        EXPECT_EQ(result, 0);
        EXPECT_TRUE(frontEnd.messages.empty());
        EXPECT_EQ(now, second);
        EXPECT_EQ(backup, first);
      }
      ExpectNoRests();
      if (HasFailure()) return;
    }
    EXPECT_LT(n, kMostCalls);
  }
}

TEST_F(SaveFaults, EveryFailingAllocationOfASaveLeavesWholeFilesAndIsTold) {
  MakeStates();
  ASSERT_EQ(OpenFileProc(folder.File("second.da")), 0);
  long n = 1;
  for (bool reached = true; reached && n < kMostCalls; ++n) {
    SCOPED_TRACE(n);
    session.projectFileName = folder.File("site.da");
    test::WriteWhole(folder.File("site.da"), first);
    test::WriteWhole(folder.File("site.da.bkup"), "older");
    frontEnd.messages.clear();
    int result = 0;
    {
      test::FailAllocation(n);
      try {
        result = SaveRawData();
      } catch (const std::bad_alloc&) {  // outside of the save proper; the program ends by it, and says so
        result = -1;
        frontEnd.messages.emplace_back("bad_alloc");
      }
      reached = test::AllocationsSince() >= n;
      test::FailAllocation(0);
    }
    const std::string now = Read("site.da"), backup = Read("site.da.bkup");
    EXPECT_TRUE(now == first || now == second) << now.size() << " bytes";
    EXPECT_TRUE(backup == "older" || backup == first) << backup.size() << " bytes";
    if (result < 0) {
      EXPECT_EQ(frontEnd.messages.size(), 1u);
    }
    if (now == first) {
      EXPECT_LT(result, 0);
    }
    if (!reached) {
      EXPECT_EQ(result, 0);
    }
    ExpectNoRests();
    if (HasFailure()) return;
  }
  EXPECT_GT(n, 20) << "the save allocates";
  EXPECT_LT(n, kMostCalls);
}

TEST_F(SaveFaults, EveryFailingCallOfAnExportLeavesWholeFilesAndGivesStatusOne) {
  MakeStates();
  const char* const kNames[] = {"out.TFp", "out.TFa", "out.hyxSM", "out.hyx"};
  const std::vector<std::string> form = {"sondera", "export", "second.da", "out", "pair", "1", "2", "3"};
  ASSERT_EQ(DispatchCommandLine(form), 0);
  std::map<std::string, std::string> whole;
  for (const char* name : kNames) whole[name] = Read(name);
  for (const Kind& kind : kKinds) {
    int n = 1;
    for (bool reached = true; reached && n < kMostCalls; ++n) {
      SCOPED_TRACE(std::string(kind.name) + " " + std::to_string(n));
      StartSession();
      for (const char* name : kNames) test::WriteWhole(folder.File(name), "former");
      frontEnd.messages.clear();
      test::FilePlan plan;
      plan.*kind.failAt = n;
      int status = 0;
      {
        const test::FailingFileDriver driver(plan);
        ::testing::internal::CaptureStderr();
        status = DispatchCommandLine(form);
        const int quit = RunUserInterface();
        ::testing::internal::GetCapturedStderr();
        status = status != 0 || quit != 0 ? 1 : 0;
        const test::FileCalls& c = driver.Calls();
        const int calls[] = {c.open, c.read, c.write, c.flush, c.close, c.rename, c.remove, c.lock};
        reached = calls[&kind - kKinds] >= n;
      }
      bool allNew = true;
      for (const char* name : kNames) {
        const std::string text = Read(name);
        EXPECT_TRUE(text == "former" || text == whole[name]) << name << ", " << text.size() << " bytes";
        allNew = allNew && text == whole[name];
      }
      EXPECT_EQ(status, allNew ? 0 : 1);
      if (status != 0) {
        EXPECT_GE(frontEnd.messages.size(), 1u);
      }
      EXPECT_EQ(Read("second.da"), second);
      if (!reached) {
        EXPECT_EQ(status, 0);
      }
      ExpectNoRests();
      if (HasFailure()) return;
    }
    EXPECT_LT(n, kMostCalls);
  }
}

}  // namespace
}  // namespace sondera
