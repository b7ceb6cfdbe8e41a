// Tests of the result files made empty at the start of a run.
#include <gtest/gtest.h>

#include "forward/system_model.h"
#include "inversion/observations.h"
#include "inversion/run_files.h"
#include "runtime/panels/hmsetup.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

class RunFiles : public RunTest {
 protected:
  void SetUp() override {
    RunTest::SetUp();
    run.baseName = Base();
  }
};

using Names = std::vector<std::string>;

TEST_F(RunFiles, ForwardRunMakesFour) {
  EXPECT_EQ(FS_OpenFiles(kForwardRun), 0);
  EXPECT_EQ(folder.Names(), (Names{"site.fdp", "site.fmp", "site.pcm", "site.pfl"}));
  FS_CloseFiles(kForwardRun);
}

TEST_F(RunFiles, InversionMakesSeven) {
  EXPECT_EQ(FS_OpenFiles(kInversionRun), 0);
  EXPECT_EQ(folder.Names(),
            (Names{"site.fdp", "site.fmp", "site.fsp", "site.n", "site.pcm", "site.pfl", "site.r"}));
}

TEST_F(RunFiles, WaveformRunMakesSix) {
  EXPECT_EQ(FS_OpenFiles(kWaveformRun), 0);
  EXPECT_EQ(folder.Names(), (Names{"site.fdp", "site.fmp", "site.pcm", "site.pfl", "site.pls", "site.spc"}));
}

TEST_F(RunFiles, FormerContentsAreGoneAndOtherFilesStay) {
  for (const char* name : {"site.fdp", "site.pfl", "site.r", "other.fdp"})
    test::WriteWhole(folder.File(name), "former run\n");
  EXPECT_EQ(FS_OpenFiles(kForwardRun), 0);
  EXPECT_EQ(test::ReadWhole(folder.File("site.fdp")), "");
  EXPECT_EQ(test::ReadWhole(folder.File("site.pfl")), "");
  EXPECT_EQ(test::ReadWhole(folder.File("site.r")), "former run\n");
  EXPECT_EQ(test::ReadWhole(folder.File("other.fdp")), "former run\n");
}

TEST_F(RunFiles, ReportsAreMadeBehindTheirSwitches) {
  run.reportSwitch[0] = run.reportSwitch[4] = true;
  EXPECT_EQ(FS_OpenFiles(kForwardRun), 0);
  EXPECT_EQ(folder.Names(), (Names{"site.G", "site.fdp", "site.fmp", "site.pcm", "site.pfl", "site.svd"}));
}

TEST_F(RunFiles, StartOfARunUsesTheProjectText) {
  SetPlainLayers(2);
  SetGlobalCurve(3);
  SetCtrlVal(hmsetup::PROJID, folder.File("named"));
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(FS_RetrieveSystemPM(kInversionRun, 0), 0);
  EXPECT_TRUE(folder.Names().size() == 7 && folder.Names().front() == "named.fdp");
}

TEST_F(RunFiles, UnusablePlaceOfAnInversionIsToldAndEndsTheRun) {
  run.baseName = folder.File("nowhere/site");
  EXPECT_EQ(FS_OpenFiles(kInversionRun), -1);
  EXPECT_EQ(OnlyMessage(), "Error in opening file " + run.baseName + ".fsp\n");
  EXPECT_EQ(frontEnd.messageTitles.front(), "Sondera 4.1");
  EXPECT_TRUE(folder.Names().empty());
}

TEST_F(RunFiles, UnusablePlaceOfAWaveformRunIsToldOnce) {
  run.baseName = folder.File("nowhere/site");
  EXPECT_EQ(FS_OpenFiles(kWaveformRun), -1);
  EXPECT_EQ(OnlyMessage(), "Error in opening file " + run.baseName + ".pls\n");
}

TEST_F(RunFiles, UnusablePlaceOfAForwardRunEndsTheProcess) {
  run.baseName = folder.File("nowhere/site");
  EXPECT_EXIT((void)FS_OpenFiles(kForwardRun), ::testing::ExitedWithCode(1),
              "Error in opening file .*nowhere/site.fdp");
}

}  // namespace
}  // namespace sondera::testing
