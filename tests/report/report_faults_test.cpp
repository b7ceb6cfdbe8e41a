// Reports that cannot be written: one reason, the former file complete, nothing else left.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "report_fixture.h"
#include "support/failing_file_driver.h"

namespace sondera::testing {
namespace {

constexpr std::size_t kPiece = 20000;  // bytes that a disk takes at a time

class ReportFaults : public ReportTest {
 protected:
  void SetUp() override {
    ReportTest::SetUp();
    for (int i = 0; i < 40; ++i) AddPair("A" + std::to_string(i)).hPhase[2] = 50.0 + i;
  }
  std::string ReasonFor(const std::string& name) {
    const Refusal refusal = WriteReport(name, ReportKind::whole, input);
    EXPECT_TRUE(refusal) << name;
    return refusal.reason();
  }
};

TEST_F(ReportFaults, AQuotaInTheMiddleOfTheFileLeavesTheFormerOne) {
  const std::string name = folder.File("report.ps");
  test::WriteWhole(name, "former");
  int writes = 0;
  {
    test::FilePlan pieces;
    pieces.longestWrite = kPiece;
    const test::FailingFileDriver counter(pieces);
    EXPECT_FALSE(WriteReport(folder.File("whole.ps"), ReportKind::whole, input));
    writes = counter.Calls().write;
  }
  ASSERT_GT(writes, 2) << "a file of several writes has a middle";
  const std::vector<std::string> before = folder.Names();
  for (const int failing : {1, writes / 2, writes}) {
    test::FilePlan plan;
    plan.failWrite = failing;
    plan.everAfter = true;
    plan.halfWrite = true;
    plan.error = EDQUOT;
    plan.longestWrite = kPiece;
    ::testing::internal::CaptureStderr();  // the library prints a line of its own
    {
      const test::FailingFileDriver driver(plan);
      const std::string reason = ReasonFor(name);
      EXPECT_NE(reason.find(name), std::string::npos) << reason;
      EXPECT_NE(reason.find("uota"), std::string::npos) << reason;
    }
    ::testing::internal::GetCapturedStderr();
    EXPECT_TRUE(test::ReadWhole(name) == "former") << failing;
    EXPECT_EQ(folder.Names(), before) << failing;
  }
  // The next one works.
  EXPECT_FALSE(WriteReport(name, ReportKind::whole, input));
  EXPECT_GT(test::ReadWhole(name).size(), 1000u);
}

TEST_F(ReportFaults, TargetsThatCannotBeWrittenAreRefused) {
  std::filesystem::create_directory(folder.File("folder.ps"));
  for (const char* target : {"no/such/report.ps", "folder.ps"})
    EXPECT_NE(ReasonFor(folder.File(target)).find(target), std::string::npos);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"folder.ps"});
  if (geteuid() == 0) GTEST_SKIP() << "nothing is write-protected for root";
  test::WriteWhole(folder.File("kept.ps"), "former");
  chmod(folder.File("kept.ps").c_str(), S_IRUSR);
  EXPECT_NE(ReasonFor(folder.File("kept.ps")).find("kept.ps"), std::string::npos);
  EXPECT_TRUE(test::ReadWhole(folder.File("kept.ps")) == "former");
}

}  // namespace
}  // namespace sondera::testing
